#pragma once

#include "MissingValue.h"
#include "RecordMask.h"
#include "TangentFit.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>

namespace gkBase {

/// The directions, [0, 360) degrees, in which the dips of a folded well change most and least; missing where the
/// planes do not tell.
struct TransverseDirections
{
    std::size_t m_iCount = 0;                 ///< planes taken
    std::size_t m_iMissing = 0;               ///< planes of the mask that an empty angle leaves out
    double m_dTransverse = g_dMissingValue;   ///< T, across the fold axis
    double m_dLongitudinal = g_dMissingValue; ///< L, along it: T + 90 or T − 90
};

/// T and L of planes by dip and dip azimuth in degrees, from the line that fits their points in the tangent diagram
/// best (tangentFit(), Bengtson 1980): the rule for cylindrical folds, plunging or not. Planes steeper than 85 degrees
/// do not shape the line. T and L are turned to their positive sides, see positiveSide(). Undefined where tangentFit()
/// finds no axis. Linear in the number of records.
GKBASECORE_EXPORT TransverseDirections directionsByTangentLine(std::span<const double> vdDips,
                                                               std::span<const double> vdDipAzimuths,
                                                               std::span<const unsigned char> vbMask = {});

/// The same from a fit that was made before, of the same planes.
GKBASECORE_EXPORT TransverseDirections directionsOfFit(const TangentFit& oFit, std::span<const double> vdDips,
                                                       std::span<const double> vdDipAzimuths,
                                                       std::span<const unsigned char> vbMask = {});

/// As above with T where the root mean square of the apparent dips, as angles, is largest. A first guess that needs no
/// fold: planes that dip alike have it in the direction of their dip. The plunge of the axis pulls it away from T
/// of the line where one limb prevails. The maximum is that of all records, to 1e-6 degrees; of equal ones that next
/// to north. Undefined below two planes, for horizontal ones, and where all directions are alike, as for vertical
/// planes. Linear in the number of records.
GKBASECORE_EXPORT TransverseDirections directionsByRootMeanSquare(std::span<const double> vdDips,
                                                                  std::span<const double> vdDipAzimuths,
                                                                  std::span<const unsigned char> vbMask = {});

/// The direction or its opposite, [0, 360): the side towards which more of the planes dip; apparent dips that are 0 to
/// within 1e-9 belong to none. When both sides have as many, the side with the positive sum of the apparent dips, and
/// when that is 0 too, the one below 180. Missing for a missing direction. Linear in the number of records.
GKBASECORE_EXPORT double positiveSide(double dDirection, std::span<const double> vdDips,
                                      std::span<const double> vdDipAzimuths,
                                      std::span<const unsigned char> vbMask = {});

} // namespace gkBase
