#pragma once

#include "MatrixData.h"
#include "MissingValue.h"

namespace gkBase {

/// Cached minimum, maximum and mean of one column. The vector of them is emptied when values change; an entry is
/// filled when it is first asked for.
struct MatrixData::ColumnRange
{
    bool m_bRangeKnown = false;
    bool m_bMeanKnown = false;
    double m_dMin = g_dMissingValue; ///< of all records, or of those that setMinMax() named
    double m_dMax = g_dMissingValue;
    double m_dMean = g_dMissingValue; ///< always of all records
};

} // namespace gkBase
