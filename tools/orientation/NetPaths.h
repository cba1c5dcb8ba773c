#pragma once

#include "NetCurves.h"
#include "NetProjection.h"
#include "gkBaseToolsExport.h"

#include <QPainterPath>

#include <span>

namespace gkBase {

/// The step in degrees with which curves on a net of this size look round: at most g_dCurveStep, and so small that no
/// chord lies more than a quarter of a pixel beside its arc.
GKBASETOOLS_EXPORT double curveStep(const NetFrame& oFrame);

/// Adds lines on the net to a path in pixels.
GKBASETOOLS_EXPORT void addToPath(QPainterPath& oPath, const NetFrame& oFrame, std::span<const NetPolyline> vLines);

/// The great circle of a plane in pixels, of a level one a pixel within the rim; empty for missing angles.
GKBASETOOLS_EXPORT QPainterPath greatCirclePath(const NetProjection& oProjection, const NetFrame& oFrame, double dDip,
                                                double dDipAzimuth);

/// The small circle at dAngle degrees from an axis in pixels, as smallCircle(); empty for missing angles.
GKBASETOOLS_EXPORT QPainterPath smallCirclePath(const NetProjection& oProjection, const NetFrame& oFrame,
                                                const LineOrientation& oAxis, double dAngle);

/// The pieces of a line on the net that lie farther from the centre than a radius.
GKBASETOOLS_EXPORT std::vector<NetPolyline> outsideRadius(std::span<const NetPolyline> vLines, double dRadius);

/// The part on the net of the area inside a closed outline, to be filled: what lies beyond the rim is pulled onto it,
/// which changes the winding number of no point inside. Not every device clips.
GKBASETOOLS_EXPORT NetPolyline areaOnNet(const NetPolyline& outline);

/// A reference net in pixels. Its lines end where the crowded centre is kept clear, so that no disc needs to cover
/// what lies under the net.
struct NetPaths
{
    QPainterPath m_oFine;   ///< in the pen of the fine net
    QPainterPath m_oCoarse; ///< in the pen of the coarse net
    QPainterPath m_oAxes;   ///< what either net draws, in the pen of the coarse one where both are on
};

/// The net of a stereonet: great and small circles every 2 and every 10 degrees. The fine net has no great circles,
/// the coarse one no lines within clearedNetCentre(); the axes are the diameters north-south and east-west.
GKBASETOOLS_EXPORT NetPaths stereoNetPaths(const NetProjection& oProjection, const NetFrame& oFrame, bool bFine,
                                           bool bCoarse);

/// The net of a tangent diagram: circles about the centre and radial lines every 2 and every 10 degrees, those of 10
/// reaching dExtra pixels beyond the rim. The fine net begins at 20 degrees from the centre, the radial lines of 10
/// degrees at 10, and every third of these at the centre.
GKBASETOOLS_EXPORT NetPaths tangentNetPaths(const NetProjection& oProjection, const NetFrame& oFrame, bool bFine,
                                            bool bCoarse, double dExtra = 6.0);

} // namespace gkBase
