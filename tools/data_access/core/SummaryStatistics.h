#pragma once

#include "MissingValue.h"
#include "RecordValues.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

/// Count, range, mean and spread of the values that are not missing.
struct SummaryStatistics
{
    std::size_t m_iCount = 0;
    std::size_t m_iMissing = 0;      ///< visited records without a value (or out of range)
    double m_dMin = g_dMissingValue; ///< 99999.0 without values, as maximum and mean
    double m_dMax = g_dMissingValue;
    double m_dMean = g_dMissingValue;
    double m_dStandardDeviation = g_dMissingValue; ///< of the sample (n − 1); 99999.0 below two values
};

/// Two passes over the values with the correction for the rounding of the mean (Chan, Golub, LeVeque 1983), so that
/// a small spread far from zero keeps its digits. The standard deviation of equal values is exactly 0.
GKBASECORE_EXPORT SummaryStatistics summaryStatistics(const RecordValues& oValues);

/// Count, minimum and maximum only: one pass, the other members stay missing.
GKBASECORE_EXPORT SummaryStatistics valueRange(const RecordValues& oValues);
/// As valueRange(), and the mean, in one pass too.
GKBASECORE_EXPORT SummaryStatistics rangeAndMean(const RecordValues& oValues);

/// The quantile at dPercent (0 … 100, clamped) of values sorted in rising order without missing ones: linear between
/// the order statistics at position (n − 1) · dPercent / 100 (Hyndman and Fan 1996, definition 7). 99999.0 for an
/// empty list or a missing percentage.
GKBASECORE_EXPORT double sortedQuantile(std::span<const double> vdSorted, double dPercent);

/// The same of values in any order, for several percentages at once; linear in the number of values.
GKBASECORE_EXPORT std::vector<double> quantiles(const RecordValues& oValues, std::span<const double> vdPercents);

} // namespace gkBase
