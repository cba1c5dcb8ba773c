#pragma once

#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

/// Stands between two runs of samples in a thinned series: the line breaks there.
inline constexpr std::size_t g_iSeriesGap = static_cast<std::size_t>(-1);

/// The samples of a depth series that a picture of iPixels rows from dFrom to dTo (in either order) can show, in
/// their order: of the samples that follow each other in one row, the first, the one with the least and with the
/// greatest value, and the last. The line through them covers the pixels that the line through all samples covers.
///
/// Outside the range only the ends of a stay are kept, so that the line runs out of the picture as it should. A
/// missing position or value breaks the line: g_iSeriesGap stands in its place, never first, last or twice in a row.
/// Positions may rise, fall or be unsorted; the order of the samples is the order of the line, so that in an
/// unsorted series every stay in a row is thinned by itself, and many samples may be left. Empty for iPixels below 1
/// and for bounds that are missing or equal. Linear in the number of samples.
GKBASECORE_EXPORT std::vector<std::size_t>
thinSeries(std::span<const double> vdPosition, std::span<const double> vdValue, double dFrom, double dTo, int iPixels);

} // namespace gkBase
