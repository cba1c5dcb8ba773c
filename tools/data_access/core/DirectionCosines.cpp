#include "DirectionCosines.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// The lower end of an axis scaled to length 1; false when it has no direction.
bool toLowerUnit(gdfVertex& oAxis)
{
    if (!oAxis.normalize()) {
        return false;
    }
    oAxis = lowerHemisphere(oAxis);
    return true;
}

double azimuthOf(double dNorth, double dEast)
{
    return std::hypot(dNorth, dEast) < g_dNoiseOfCosines ? 0.0 : wrapAngle(degrees(std::atan2(dEast, dNorth)), 360.0);
}

} // namespace

LineOrientation lineOf(const gdfVertex& oAxis)
{
    gdfVertex oDown = oAxis;
    if (!toLowerUnit(oDown)) {
        return g_oMissingLine;
    }
    const double dPlunge = degrees(std::atan2(std::max(oDown.z(), 0.0), std::hypot(oDown.x(), oDown.y())));
    return {dPlunge, azimuthOf(oDown.x(), oDown.y())};
}

PlaneOrientation planeOfPole(const gdfVertex& oPole)
{
    gdfVertex oDown = oPole;
    if (!toLowerUnit(oDown)) {
        return g_oMissingPlane;
    }
    const double dDip = degrees(std::atan2(std::hypot(oDown.x(), oDown.y()), std::max(oDown.z(), 0.0)));
    return {dDip, azimuthOf(-oDown.x(), -oDown.y())};
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
