#pragma once

#include "gkBaseCoreExport.h"

#include <span>
#include <vector>

namespace gkBase {

/// Linear look-up on a curve of pairs (position, value): the value where the positions first reach dAt. Positions
/// may rise or fall; outside of them the value at the nearest end is taken. Pairs with a missing number are left
/// out. 99999.0 for a missing dAt or no pairs. Linear in the number of pairs.
GKBASECORE_EXPORT double curveValue(std::span<const double> vdPositions, std::span<const double> vdValues, double dAt);

/// A curve with one pair for each distinct position, rising: the mean of the values at that position.
struct AveragedCurve
{
    std::vector<double> m_vdPositions;
    std::vector<double> m_vdValues;
};

/// Pairs with a missing number are left out. n log n in the number of pairs, linear when the positions rise.
GKBASECORE_EXPORT AveragedCurve averagedCurve(std::span<const double> vdPositions, std::span<const double> vdValues);

/// Fills the missing cells (NaN, 99999.0) between two values linearly; those before the first and after the last
/// value stay. Returns the number of cells filled.
GKBASECORE_EXPORT int fillGaps(std::span<double> vdValues);

} // namespace gkBase
