#pragma once

#include "CircularStatistics.h"
#include "IntervalBins.h"
#include "MissingValue.h"
#include "RecordMask.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

/// Mean orientation of the planes, or lines, of a bin, in degrees.
struct BinOrientation
{
    double m_dDip = g_dMissingValue;     ///< dip or plunge, 0 … 90; 99999.0 for an empty bin or one without a mean
    double m_dAzimuth = g_dMissingValue; ///< of the dip or the line, [0, 360); 0 where it is undefined (level, upright)
    double m_dResultantLength = 0.0;     ///< length of the resultant over the number of vectors, 0 … 1
    std::size_t m_iCount = 0;            ///< orientations in the bin: both angles present
};

/// The bin of every record by its depth; −1 for records outside the bins, without depth or left out by the mask.
GKBASECORE_EXPORT std::vector<int> binsOfRecords(std::span<const double> vdDepth, const IntervalBins& oBins,
                                                 std::span<const unsigned char> vbMask = {});

/// Number of records of each of nBins bins. In this and the following functions records of no bin (−1, or nBins and
/// more) do not count, and the result is empty for nBins below 1.
GKBASECORE_EXPORT std::vector<std::size_t> binCounts(std::span<const int> viBins, int nBins);

/// Number of records of each bin that have a value.
GKBASECORE_EXPORT std::vector<std::size_t> binCounts(std::span<const int> viBins, int nBins,
                                                     std::span<const double> vdValues);

/// Arithmetic mean of the values of each bin, missing ones left out; 99999.0 for a bin without values.
GKBASECORE_EXPORT std::vector<double> binMeans(std::span<const int> viBins, int nBins,
                                               std::span<const double> vdValues);

/// Mean plane of each bin: the resultant of the unit vectors along the lower-hemisphere poles, turned back to dip and
/// dip azimuth (Fisher, Lewis, Embleton 1987, section 3.2). Records that lack one of the two angles are left out. A
/// resultant that vanishes to within rounding has no orientation.
GKBASECORE_EXPORT std::vector<BinOrientation>
binMeanPlanes(std::span<const int> viBins, int nBins, std::span<const double> vdDip, std::span<const double> vdAzimuth);

/// Mean line of each bin from plunge and azimuth: the resultant of the unit vectors along the lower ends.
GKBASECORE_EXPORT std::vector<BinOrientation> binMeanLines(std::span<const int> viBins, int nBins,
                                                           std::span<const double> vdPlunge,
                                                           std::span<const double> vdAzimuth);

/// Circular mean of each bin of azimuths that have no dip, as circularMean().
GKBASECORE_EXPORT std::vector<CircularMean> binMeanDirections(std::span<const int> viBins, int nBins,
                                                              std::span<const double> vdAzimuth);

} // namespace gkBase
