#pragma once

#include "NetCurves.h"
#include "gkBaseCoreExport.h"

#include <vector>

namespace gkBase {

inline constexpr int g_iCoarseNetStep = 10; ///< degrees
inline constexpr int g_iFineNetStep = 2;

/// What a reference net draws. The stereonets have great and small circles about the level north-south axis, the
/// tangent net circles about the centre and radial lines.
struct NetLines
{
    std::vector<NetPolyline> m_vGreatCircles; ///< planes that dip east or west, without the level and the upright one
    std::vector<NetPolyline> m_vSmallCircles; ///< about both ends of the axis
    std::vector<double> m_vdRadii;            ///< rising, below 1
    std::vector<double> m_vdAzimuths;         ///< of the radial lines, from 0 on
};

/// The net with a curve every iStep degrees, brought to 1 … 90. A step of 2 gives great circles of the dips 2 … 88 on
/// either side. On a tangent net the circles stay below the maximum angle: 10, 20, 30, 40, 50 for a step of 10 and a
/// maximum of 60. dStep: as for greatCircle(), smaller for large pictures.
GKBASECORE_EXPORT NetLines netLines(const NetProjection& oProjection, int iStep, double dStep = g_dCurveStep);

/// Radius of the disc that is cleared at the crowded centre of a net: for the fine net the lines within 20 degrees
/// of the vertical (equal-area) or 10 degrees (equal-angle), for the coarse net within 2 degrees. On a tangent net the
/// plunges up to 20 degrees (fine) or 10 degrees.
GKBASECORE_EXPORT double clearedNetCentre(const NetProjection& oProjection, bool bFine);

} // namespace gkBase
