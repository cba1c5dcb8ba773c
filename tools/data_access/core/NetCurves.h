#pragma once

#include "NetProjection.h"
#include "gkBaseCoreExport.h"

#include <span>
#include <vector>

namespace gkBase {

/// A line on the net, in its own sense of direction; at least two points.
using NetPolyline = std::vector<NetPoint>;

/// The largest step along a curve, in degrees; curves on the tangent net take a fifth of a step.
inline constexpr double g_dCurveStep = 5.0;

/// Planes within this of level or upright, in degrees, are drawn as the rim or a diameter.
inline constexpr double g_dPlaneTolerance = 0.005;

/// The great circle of a plane: its lines from the right-hand strike (dip azimuth − 90, pitch 0) over the dip to the
/// other strike end (pitch 180), in steps of at most dStep. A level plane is the rim, clockwise from its right-hand
/// strike and closed; an upright one the diameter along the strike. On the tangent net a great circle is a circle
/// through the centre, and is cut at the rim: up to two pieces; a level plane is the centre and has none. Empty for
/// missing angles.
GKBASECORE_EXPORT std::vector<NetPolyline> greatCircle(const NetProjection& oProjection, double dDip,
                                                       double dDipAzimuth, double dStep = g_dCurveStep);

/// A circle on the net.
struct NetCircle
{
    NetPoint m_oCentre;
    double m_dRadius;
};

/// The circle that carries the great circle of a plane on the equal-angle net: centre at tan(dip) from the middle,
/// opposite to the dip, radius 1 / cos(dip). NaN for upright planes (within g_dPlaneTolerance) and missing angles.
GKBASECORE_EXPORT NetCircle greatCircleArc(double dDip, double dDipAzimuth);

/// The small circle of the lines at dAngle (0 … 180 degrees) from the axis, and at 180 − dAngle from its lower end
/// where they point upwards, so that both sides of the double cone show. Split where it meets the rim: an inclined
/// axis whose cone reaches beyond the horizontal has two pieces, a level axis one at either end; a cone that stays
/// below the horizontal is one closed piece. Angles of 90 give the great circle of the plane normal to the axis. On the
/// tangent net the pieces are cut at its rim. Empty for missing angles.
GKBASECORE_EXPORT std::vector<NetPolyline> smallCircle(const NetProjection& oProjection, double dPlunge,
                                                       double dAzimuth, double dAngle, double dStep = g_dCurveStep);

/// Shares of the way along a segment's line, 0 at oFrom and 1 at oTo, at which it enters and leaves the circle of a
/// radius about the centre; false when the line misses or only touches it, and for ends that coincide.
GKBASECORE_EXPORT bool circleCrossings(const NetPoint& oFrom, const NetPoint& oTo, double dRadius, double& dEnter,
                                       double& dLeave);

/// The pieces of a line that lie on the net; where it crosses the rim a piece ends on it. Points without a position
/// break the line.
GKBASECORE_EXPORT std::vector<NetPolyline> clippedToNet(std::span<const NetPoint> vLine);

} // namespace gkBase
