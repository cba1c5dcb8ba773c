#pragma once

#include "MissingValue.h"

#include <cstddef>
#include <span>

namespace gkBase {

/// The weight of a record: 1 without weights, NaN where it is missing or negative and for records beyond the end of the
/// weights.
inline double recordWeight(std::span<const double> vdWeights, std::size_t iRecord)
{
    if (vdWeights.empty()) {
        return 1.0;
    }
    const double dWeight = iRecord < vdWeights.size() ? vdWeights[iRecord] : g_dEmptyCell;
    return isMissing(dWeight) || dWeight < 0.0 ? g_dEmptyCell : dWeight;
}

} // namespace gkBase
