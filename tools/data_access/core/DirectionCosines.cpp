#include "DirectionCosines.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Lower end of an axis, of the length that the axis has.
struct LowerEnd
{
    explicit LowerEnd(const gdfVertex& oAxis)
        : m_dSize(std::abs(oAxis.x()) + std::abs(oAxis.y()) + std::abs(oAxis.z()))
    {
        const double dSense = oAxis.z() < -g_dNoiseOfCosines * m_dSize ? -1.0 : 1.0;
        m_dNorth = dSense * oAxis.x();
        m_dEast = dSense * oAxis.y();
        m_dDown = std::max(dSense * oAxis.z(), 0.0);
        m_dHorizontal = std::hypot(m_dNorth, m_dEast);
    }

    bool hasDirection() const { return m_dSize > 0.0 && std::isfinite(m_dSize); }
    bool isVertical() const { return m_dHorizontal < g_dNoiseOfCosines * m_dSize; }

    double m_dSize;
    double m_dNorth;
    double m_dEast;
    double m_dDown;
    double m_dHorizontal;
};

double azimuthOf(double dNorth, double dEast)
{
    return wrapAngle(degrees(std::atan2(dEast, dNorth)), 360.0);
}

} // namespace

LineOrientation lineOf(const gdfVertex& oAxis)
{
    const LowerEnd oEnd(oAxis);
    if (!oEnd.hasDirection()) {
        return g_oMissingLine;
    }
    return {degrees(std::atan2(oEnd.m_dDown, oEnd.m_dHorizontal)),
            oEnd.isVertical() ? 0.0 : azimuthOf(oEnd.m_dNorth, oEnd.m_dEast)};
}

PlaneOrientation planeOfPole(const gdfVertex& oPole)
{
    const LowerEnd oEnd(oPole);
    if (!oEnd.hasDirection()) {
        return g_oMissingPlane;
    }
    return {degrees(std::atan2(oEnd.m_dHorizontal, oEnd.m_dDown)),
            oEnd.isVertical() ? 0.0 : azimuthOf(-oEnd.m_dNorth, -oEnd.m_dEast)};
}

LineOrientation poleOfPlane(const PlaneOrientation& oPlane)
{
    if (isMissing(oPlane.m_dDip) || isMissing(oPlane.m_dDipAzimuth)) {
        return g_oMissingLine;
    }
    return {90.0 - oPlane.m_dDip, wrapAngle(oPlane.m_dDipAzimuth + 180.0, 360.0)};
}

PlaneOrientation planeOfPole(const LineOrientation& oPole)
{
    if (isMissing(oPole.m_dPlunge) || isMissing(oPole.m_dAzimuth)) {
        return g_oMissingPlane;
    }
    return {90.0 - oPole.m_dPlunge, wrapAngle(oPole.m_dAzimuth + 180.0, 360.0)};
}

double angleBetweenAxes(const gdfVertex& oFirst, const gdfVertex& oSecond)
{
    return degrees(std::atan2((oFirst ^ oSecond).length(), std::abs(oFirst.dot(oSecond))));
}

} // namespace gkBase
