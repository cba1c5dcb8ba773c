#pragma once

#include "LineInPlane.h"
#include "MissingValue.h"
#include "RecordMask.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>

namespace gkBase {

/// The axis of a cylindrical fold found in the tangent diagram.
struct TangentFit
{
    std::size_t m_iCount = 0;    ///< planes taken
    std::size_t m_iMissing = 0;  ///< planes of the mask that an empty angle, or a weight, leaves out
    std::size_t m_iTooSteep = 0; ///< planes beyond the largest dip
    LineOrientation m_oFoldAxis{g_dMissingValue, g_dMissingValue}; ///< undefined when the points mark no line
    double m_dTransverse = g_dMissingValue; ///< T, the azimuth across the axis (axis + 90, [0, 360)): most change
    /// Root of the mean square distance of the points from the line, in tangents; undefined without a line.
    double m_dDeviation = g_dMissingValue;
};

/// Fits the axis to planes by dip and dip azimuth in degrees. The planes of a cylindrical fold contain its axis
/// (plunge p, azimuth a), tan dip · cos(dip azimuth − a) = tan p: their points lie on a straight line across a, at the
/// distance tan p from the centre (Bengtson 1980). The line with the least sum of squared distances from the points is
/// taken (Pearson 1901), which does not depend on the directions of the frame. An axis through the centre (horizontal)
/// has an azimuth of [0, 180).
///
/// Planes steeper than dLargestDip, and overturned ones with negative dips or dips above 90, are left out, because
/// tangents near 90 degrees would decide everything. Weights as for orientationSums(). Undefined below two points and
/// where they coincide or scatter alike to all sides. Linear in the number of records.
GKBASECORE_EXPORT TangentFit tangentFit(std::span<const double> vdDips, std::span<const double> vdDipAzimuths,
                                        double dLargestDip = 85.0, std::span<const unsigned char> vbMask = {},
                                        std::span<const double> vdWeights = {});

} // namespace gkBase
