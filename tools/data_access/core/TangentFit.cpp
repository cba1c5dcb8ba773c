#include "TangentFit.h"

#include "Angles.h"
#include "RecordWeight.h"
#include "VectorRegisters.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

struct WeightedPlanes
{
    std::span<const double> m_vdDips;
    std::span<const double> m_vdDipAzimuths;
    double m_dLargestDip;
    std::span<const unsigned char> m_vbMask;
    std::span<const double> m_vdWeights;

    /// Calls fn(point, weight) for the planes that are taken and counts them.
    template <typename Function>
    TangentFit forEach(Function&& fn) const
    {
        TangentFit oCounts;
        const std::size_t iRecords = std::min(m_vdDips.size(), m_vdDipAzimuths.size());
        clearVectorRegisters();
        for (std::size_t i = 0; i < iRecords; ++i) {
            if (!isTaken(m_vbMask, i)) {
                continue;
            }
            const double dWeight = recordWeight(m_vdWeights, i);
            if (isMissing(m_vdDips[i]) || isMissing(m_vdDipAzimuths[i]) || dWeight == 0.0) {
                ++oCounts.m_iMissing;
            } else if (m_vdDips[i] < 0.0 || m_vdDips[i] > m_dLargestDip || m_vdDips[i] >= 90.0) {
                ++oCounts.m_iTooSteep;
            } else {
                ++oCounts.m_iCount;
                fn(tangentPoint(m_vdDips[i], m_vdDipAzimuths[i]), dWeight);
            }
        }
        return oCounts;
    }
};

struct Moments
{
    double m_dWeight = 0.0;
    double m_dEast = 0.0;  ///< mean
    double m_dNorth = 0.0; ///< mean
    double m_dEastEast = 0.0;
    double m_dEastNorth = 0.0;
    double m_dNorthNorth = 0.0;
};

/// Means and mean products about them; the second pass keeps the digits of narrow clouds.
TangentFit computeMoments(const WeightedPlanes& oPlanes, Moments& oMoments)
{
    const TangentFit oCounts = oPlanes.forEach([&](const TangentPoint& oPoint, double dWeight) {
        oMoments.m_dWeight += dWeight;
        oMoments.m_dEast += dWeight * oPoint.m_dEast;
        oMoments.m_dNorth += dWeight * oPoint.m_dNorth;
    });
    if (oCounts.m_iCount == 0) {
        return oCounts;
    }
    oMoments.m_dEast /= oMoments.m_dWeight;
    oMoments.m_dNorth /= oMoments.m_dWeight;
    oPlanes.forEach([&](const TangentPoint& oPoint, double dWeight) {
        const double dEast = oPoint.m_dEast - oMoments.m_dEast;
        const double dNorth = oPoint.m_dNorth - oMoments.m_dNorth;
        oMoments.m_dEastEast += dWeight * dEast * dEast / oMoments.m_dWeight;
        oMoments.m_dEastNorth += dWeight * dEast * dNorth / oMoments.m_dWeight;
        oMoments.m_dNorthNorth += dWeight * dNorth * dNorth / oMoments.m_dWeight;
    });
    return oCounts;
}

/// The axis whose azimuth and plunge belong to a line across dAzimuth at the signed distance dDistance.
LineOrientation axisOf(double dAzimuth, double dDistance)
{
    if (std::abs(dDistance) < 1e-12) {
        return {0.0, wrapAngle(dAzimuth, 180.0)};
    }
    return {degrees(std::atan(std::abs(dDistance))), wrapAngle(dDistance < 0.0 ? dAzimuth + 180.0 : dAzimuth, 360.0)};
}

} // namespace

TangentPoint tangentPoint(double dAngle, double dAzimuth)
{
    if (isMissing(dAngle) || isMissing(dAzimuth) || std::abs(dAngle) >= 90.0) {
        return {g_dMissingValue, g_dMissingValue};
    }
    const double dRadius = std::tan(radians(dAngle));
    return {dRadius * std::sin(radians(dAzimuth)), dRadius * std::cos(radians(dAzimuth))};
}

LineOrientation orientationOfTangentPoint(const TangentPoint& oPoint)
{
    if (isMissing(oPoint.m_dEast) || isMissing(oPoint.m_dNorth)) {
        return {g_dMissingValue, g_dMissingValue};
    }
    return {degrees(std::atan(std::hypot(oPoint.m_dEast, oPoint.m_dNorth))),
            wrapAngle(degrees(std::atan2(oPoint.m_dEast, oPoint.m_dNorth)), 360.0)};
}

TangentFit tangentFit(std::span<const double> vdDips, std::span<const double> vdDipAzimuths, double dLargestDip,
                      std::span<const unsigned char> vbMask, std::span<const double> vdWeights)
{
    Moments oMoments;
    TangentFit oFit = computeMoments({vdDips, vdDipAzimuths, dLargestDip, vbMask, vdWeights}, oMoments);
    if (oFit.m_iCount < 2) {
        return oFit;
    }
    // Variances along and across the line are half the sum and difference of these two.
    const double dSum = oMoments.m_dEastEast + oMoments.m_dNorthNorth;
    const double dDifference = std::hypot(oMoments.m_dNorthNorth - oMoments.m_dEastEast, 2.0 * oMoments.m_dEastNorth);
    const double dMeanSquare = oMoments.m_dEast * oMoments.m_dEast + oMoments.m_dNorth * oMoments.m_dNorth;
    constexpr double dNoiseOfSquares = 1e-24;
    constexpr double dRound = 1e-9;
    if (dSum <= dNoiseOfSquares * (1.0 + dMeanSquare) || dDifference <= dRound * dSum) {
        return oFit;
    }
    const double dAlong = 0.5 * std::atan2(2.0 * oMoments.m_dEastNorth, oMoments.m_dNorthNorth - oMoments.m_dEastEast);
    const double dAcross = dAlong + 0.5 * g_dPi;
    const double dDistance = oMoments.m_dEast * std::sin(dAcross) + oMoments.m_dNorth * std::cos(dAcross);
    oFit.m_oFoldAxis = axisOf(degrees(dAcross), dDistance);
    oFit.m_dTransverse = wrapAngle(oFit.m_oFoldAxis.m_dAzimuth + 90.0, 360.0);
    oFit.m_dDeviation = std::sqrt(std::max(0.5 * (dSum - dDifference), 0.0));
    return oFit;
}

} // namespace gkBase
