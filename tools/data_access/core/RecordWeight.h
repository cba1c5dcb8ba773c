#pragma once

#include "MissingValue.h"

#include <cstddef>
#include <span>

namespace gkBase {

/// The weight of a record: 1 without weights; 0, which leaves the record out, where the weight is missing or negative
/// and for records beyond the end of the weights.
inline double recordWeight(std::span<const double> vdWeights, std::size_t iRecord)
{
    if (vdWeights.empty()) {
        return 1.0;
    }
    const double dWeight = iRecord < vdWeights.size() ? vdWeights[iRecord] : 0.0;
    return isMissing(dWeight) || dWeight < 0.0 ? 0.0 : dWeight;
}

} // namespace gkBase
