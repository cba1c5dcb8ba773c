#include "TangentFit.h"

#include "Angles.h"
#include "RecordWeight.h"
#include "SineCosine.h"
#include "VectorRegisters.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// A point of the tangent diagram: at the tangent of the dip from the centre, in the direction of the dip azimuth.
struct TangentPoint
{
    double m_dEast;
    double m_dNorth;
};

TangentPoint tangentPoint(double dDip, double dDipAzimuth)
{
    const SineCosine oDip = sineCosine(dDip);
    const SineCosine oAzimuth = sineCosine(dDipAzimuth);
    const double dRadius = oDip.m_dSine / oDip.m_dCosine;
    return {dRadius * oAzimuth.m_dSine, dRadius * oAzimuth.m_dCosine};
}

struct Moments
{
    double m_dWeight = 0.0;
    double m_dEast = 0.0;
    double m_dNorth = 0.0;
    double m_dEastEast = 0.0;
    double m_dEastNorth = 0.0;
    double m_dNorthNorth = 0.0;

    void add(double dEast, double dNorth, double dWeight)
    {
        m_dWeight += dWeight;
        m_dEast += dWeight * dEast;
        m_dNorth += dWeight * dNorth;
        m_dEastEast += dWeight * dEast * dEast;
        m_dEastNorth += dWeight * dEast * dNorth;
        m_dNorthNorth += dWeight * dNorth * dNorth;
    }

    /// Turns the sums into means, the products into mean products about the means.
    void centre()
    {
        m_dEast /= m_dWeight;
        m_dNorth /= m_dWeight;
        m_dEastEast = m_dEastEast / m_dWeight - m_dEast * m_dEast;
        m_dEastNorth = m_dEastNorth / m_dWeight - m_dEast * m_dNorth;
        m_dNorthNorth = m_dNorthNorth / m_dWeight - m_dNorth * m_dNorth;
    }
};

/// The planes that the fit takes, summed up about the first one so that narrow clouds keep their digits.
struct PointSums
{
    TangentPoint m_oFirst{0.0, 0.0};
    Moments m_oMoments;
    TangentFit m_oCounts;

    void add(double dDip, double dDipAzimuth, double dWeight, double dLargestDip)
    {
        if (isMissing(dDip) || isMissing(dDipAzimuth) || isMissing(dWeight)) {
            ++m_oCounts.m_iMissing;
        } else if (dDip < 0.0 || dDip > dLargestDip || dDip >= 90.0) {
            ++m_oCounts.m_iTooSteep;
        } else {
            const TangentPoint oPoint = tangentPoint(dDip, dDipAzimuth);
            if (m_oCounts.m_iCount++ == 0) {
                m_oFirst = oPoint;
            }
            m_oMoments.add(oPoint.m_dEast - m_oFirst.m_dEast, oPoint.m_dNorth - m_oFirst.m_dNorth, dWeight);
        }
    }
};

/// The axis whose azimuth and plunge belong to a line across dAzimuth at the signed distance dDistance.
LineOrientation axisOf(double dAzimuth, double dDistance)
{
    if (std::abs(dDistance) < 1e-12) {
        return {0.0, wrapAngle(dAzimuth, 180.0)};
    }
    return {degrees(std::atan(std::abs(dDistance))), wrapAngle(dDistance < 0.0 ? dAzimuth + 180.0 : dAzimuth, 360.0)};
}

} // namespace

TangentFit tangentFit(std::span<const double> vdDips, std::span<const double> vdDipAzimuths, double dLargestDip,
                      std::span<const unsigned char> vbMask, std::span<const double> vdWeights)
{
    PointSums oSums;
    const std::size_t iRecords = std::min(vdDips.size(), vdDipAzimuths.size());
    clearVectorRegisters();
    for (std::size_t i = 0; i < iRecords; ++i) {
        if (isTaken(vbMask, i)) {
            oSums.add(vdDips[i], vdDipAzimuths[i], recordWeight(vdWeights, i), dLargestDip);
        }
    }
    TangentFit oFit = oSums.m_oCounts;
    Moments& oMoments = oSums.m_oMoments;
    if (oFit.m_iCount < 2 || !(oMoments.m_dWeight > 0.0)) {
        return oFit;
    }
    oMoments.centre();
    const double dEast = oSums.m_oFirst.m_dEast + oMoments.m_dEast;
    const double dNorth = oSums.m_oFirst.m_dNorth + oMoments.m_dNorth;
    // The variances along and across the line are half the sum and half the difference of these two.
    const double dSum = oMoments.m_dEastEast + oMoments.m_dNorthNorth;
    const double dDifference = std::hypot(oMoments.m_dNorthNorth - oMoments.m_dEastEast, 2.0 * oMoments.m_dEastNorth);
    constexpr double dNoiseOfSquares = 1e-24;
    constexpr double dRound = 1e-9;
    if (dSum <= dNoiseOfSquares * (1.0 + dEast * dEast + dNorth * dNorth) || dDifference <= dRound * dSum) {
        return oFit;
    }
    const double dAlong = 0.5 * std::atan2(2.0 * oMoments.m_dEastNorth, oMoments.m_dNorthNorth - oMoments.m_dEastEast);
    const double dAcross = dAlong + 0.5 * g_dPi;
    const double dDistance = dEast * std::sin(dAcross) + dNorth * std::cos(dAcross);
    oFit.m_oFoldAxis = axisOf(degrees(dAcross), dDistance);
    oFit.m_dTransverse = wrapAngle(oFit.m_oFoldAxis.m_dAzimuth + 90.0, 360.0);
    oFit.m_dDeviation = std::sqrt(std::max(0.5 * (dSum - dDifference), 0.0));
    return oFit;
}

} // namespace gkBase
