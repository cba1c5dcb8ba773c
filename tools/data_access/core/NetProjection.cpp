#include "NetProjection.h"

#include "Angles.h"
#include "SineCosine.h"
#include "VectorRegisters.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dSqrt2 = 1.4142135623730951;
/// Dips from here down count as level.
constexpr double g_dSmallestDip = 5e-9;

/// The position at a distance in the direction of an azimuth; azimuths 180 apart give exactly opposite ones.
inline NetPoint polarPoint(double dRadius, double dAzimuth)
{
    const SineCosine oAzimuth = sineCosine(dAzimuth);
    return {dRadius * oAzimuth.m_dSine, dRadius * oAzimuth.m_dCosine};
}

/// Distance from the centre of a line by its angle from the vertical; for the tangent net by its plunge.
template <NetLayout eLayout>
inline double radiusOf(double dAngle, double dRimTangent)
{
    if constexpr (eLayout == NetLayout::EqualArea) {
        return g_dSqrt2 * sineCosine(0.5 * dAngle).m_dSine;
    } else if constexpr (eLayout == NetLayout::EqualAngle) {
        const SineCosine oHalf = sineCosine(0.5 * dAngle);
        return oHalf.m_dSine / oHalf.m_dCosine;
    } else {
        return std::tan(radians(dAngle)) / dRimTangent;
    }
}

/// Calls fn with the layout as a compile-time constant, so that loops hold no choice.
template <typename Function>
inline auto withLayout(NetLayout eLayout, Function&& fn)
{
    switch (eLayout) {
    case NetLayout::EqualArea:
        return fn.template operator()<NetLayout::EqualArea>();
    case NetLayout::EqualAngle:
        return fn.template operator()<NetLayout::EqualAngle>();
    case NetLayout::Tangent:
        break;
    }
    return fn.template operator()<NetLayout::Tangent>();
}

/// bPoles: the pairs are planes, which plot in the direction opposite to their dip azimuth.
template <NetLayout eLayout, bool bPoles>
inline NetPoint project(double dAngle, double dAzimuth, double dRimTangent)
{
    if (isMissing(dAngle) || isMissing(dAzimuth)) {
        return {g_dEmptyCell, g_dEmptyCell};
    }
    // The angle from the vertical is the dip of a plane for its pole and 90 − plunge for a line.
    constexpr bool bComplement = (eLayout == NetLayout::Tangent) == bPoles;
    const double dRadius = radiusOf<eLayout>(bComplement ? 90.0 - dAngle : dAngle, dRimTangent);
    return polarPoint(bPoles ? -dRadius : dRadius, dAzimuth);
}

template <bool bPoles>
void projectColumns(const NetProjection& oProjection, std::span<const double> vdAngle,
                    std::span<const double> vdAzimuth, std::span<NetPoint> vPoints)
{
    const std::size_t iCount = std::min({vdAngle.size(), vdAzimuth.size(), vPoints.size()});
    const double dRimTangent = std::tan(radians(oProjection.maximumAngle()));
    clearVectorRegisters();
    withLayout(oProjection.layout(), [&]<NetLayout eLayout>() {
        for (std::size_t i = 0; i < iCount; ++i) {
            vPoints[i] = project<eLayout, bPoles>(vdAngle[i], vdAzimuth[i], dRimTangent);
        }
    });
}

} // namespace

NetProjection::NetProjection(NetLayout eLayout, double dMaximumAngle)
    : m_eLayout(eLayout)
    , m_dMaximumAngle(isMissing(dMaximumAngle) ? s_dDefaultMaximumAngle : std::clamp(dMaximumAngle, 10.0, 85.0))
    , m_dRimTangent(std::tan(radians(m_dMaximumAngle)))
{
}

double NetProjection::lineRadius(double dPlunge) const
{
    return poleRadius(90.0 - dPlunge);
}

double NetProjection::poleRadius(double dDip) const
{
    return withLayout(m_eLayout, [&]<NetLayout eLayout>() {
        return radiusOf<eLayout>(eLayout == NetLayout::Tangent ? 90.0 - dDip : dDip, m_dRimTangent);
    });
}

NetPoint NetProjection::line(double dPlunge, double dAzimuth) const
{
    return withLayout(m_eLayout,
                      [&]<NetLayout eLayout>() { return project<eLayout, false>(dPlunge, dAzimuth, m_dRimTangent); });
}

NetPoint NetProjection::pole(double dDip, double dDipAzimuth) const
{
    return withLayout(m_eLayout,
                      [&]<NetLayout eLayout>() { return project<eLayout, true>(dDip, dDipAzimuth, m_dRimTangent); });
}

NetPoint NetProjection::vector(double dNorth, double dEast, double dDown) const
{
    const double dHorizontal = std::sqrt(dNorth * dNorth + dEast * dEast);
    const double dLength = std::sqrt(dNorth * dNorth + dEast * dEast + dDown * dDown);
    if (!(dLength > 0.0) || !std::isfinite(dLength)) {
        return {g_dEmptyCell, g_dEmptyCell};
    }
    const double dSign = dDown < 0.0 ? -1.0 : 1.0;
    double dScale = 0.0; // radius over horizontal length
    switch (m_eLayout) {
    case NetLayout::EqualArea:
        dScale = 1.0 / std::sqrt(dLength * (dLength + std::abs(dDown)));
        break;
    case NetLayout::EqualAngle:
        dScale = 1.0 / (dLength + std::abs(dDown));
        break;
    case NetLayout::Tangent:
        if (dHorizontal == 0.0) {
            return line(90.0, 0.0);
        }
        dScale = std::abs(dDown) / (dHorizontal * dHorizontal * m_dRimTangent);
        break;
    }
    return {dSign * dScale * dEast, dSign * dScale * dNorth};
}

LineOrientation NetProjection::lineAt(NetPoint oPoint) const
{
    const PlaneOrientation oPlane = poleAt(oPoint);
    if (isMissing(oPlane.m_dDip)) {
        return {g_dMissingValue, g_dMissingValue};
    }
    return {90.0 - oPlane.m_dDip, netAzimuth(oPoint)};
}

PlaneOrientation NetProjection::poleAt(NetPoint oPoint) const
{
    const double dRadius = std::hypot(oPoint.m_dX, oPoint.m_dY);
    if (!std::isfinite(dRadius) || (m_eLayout != NetLayout::Tangent && !isOnNet(oPoint))) {
        return {g_dMissingValue, g_dMissingValue};
    }
    double dDip = 0.0;
    switch (m_eLayout) {
    case NetLayout::EqualArea:
        dDip = 2.0 * asinDegrees(dRadius / g_dSqrt2);
        break;
    case NetLayout::EqualAngle:
        dDip = 2.0 * degrees(std::atan(dRadius));
        break;
    case NetLayout::Tangent:
        dDip = 90.0 - degrees(std::atan(dRadius * m_dRimTangent));
        break;
    }
    // Poles of level planes lie at the centre, where only the position itself has a direction.
    if (m_eLayout != NetLayout::Tangent && dDip <= g_dSmallestDip) {
        return {0.0, netAzimuth(oPoint)};
    }
    return {std::min(dDip, 90.0), netAzimuth({-oPoint.m_dX, -oPoint.m_dY})};
}

bool isOnNet(NetPoint oPoint)
{
    return std::hypot(oPoint.m_dX, oPoint.m_dY) <= 1.0 + NetProjection::s_dRimTolerance;
}

NetPoint pulledOntoNet(NetPoint oPoint)
{
    const double dRadius = std::hypot(oPoint.m_dX, oPoint.m_dY);
    return dRadius > 1.0 ? NetPoint{oPoint.m_dX / dRadius, oPoint.m_dY / dRadius} : oPoint;
}

double netAzimuth(NetPoint oPoint)
{
    // An explicit 0 keeps the sign of −0.0 out: the centre lies in direction 0.
    if (oPoint.m_dX == 0.0 && oPoint.m_dY == 0.0) {
        return 0.0;
    }
    return wrapAzimuth(degrees(std::atan2(oPoint.m_dX, oPoint.m_dY)));
}

void projectLines(const NetProjection& oProjection, std::span<const double> vdPlunge, std::span<const double> vdAzimuth,
                  std::span<NetPoint> vPoints)
{
    projectColumns<false>(oProjection, vdPlunge, vdAzimuth, vPoints);
}

void projectPoles(const NetProjection& oProjection, std::span<const double> vdDip, std::span<const double> vdDipAzimuth,
                  std::span<NetPoint> vPoints)
{
    projectColumns<true>(oProjection, vdDip, vdDipAzimuth, vPoints);
}

NetFrame NetFrame::fitted(int iWidth, int iHeight)
{
    const long long iShorter = std::max(0, std::min(iWidth, iHeight));
    const int iCentreX = (iWidth - 1) / 2;
    const int iCentreY = (iHeight - 1) / 2;
    // 2 n / 5 in whole numbers is 0.4 n cut to a whole number.
    const long long iRadius = 2 * iShorter / 5;
    return {static_cast<double>(iCentreX), static_cast<double>(iCentreY), static_cast<double>(iRadius)};
}

} // namespace gkBase
