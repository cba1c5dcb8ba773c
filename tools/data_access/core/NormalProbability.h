#pragma once

#include "MissingValue.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>

namespace gkBase {

/// The straight line through values on normal probability paper.
struct NormalFit
{
    double m_dMean = g_dMissingValue;              ///< where the line crosses 50 %; 99999.0 without values
    double m_dStandardDeviation = g_dMissingValue; ///< slope of the line; 99999.0 below two values
    double m_dCorrelation = 0.0; ///< of values and quantiles (Filliben 1975); 1 for perfectly normal values
    std::size_t m_iCount = 0;
};

/// The standard normal quantile: the z that a share p of the distribution lies below (Wichura 1988, algorithm AS 241,
/// routine PPND16), right to about 1e-15. −infinity at 0, infinity at 1, NaN outside [0, 1].
GKBASECORE_EXPORT double normalQuantile(double p);

/// The share of the standard normal distribution below z.
GKBASECORE_EXPORT double normalProbability(double z);

/// The probability at which value iRank (from 0) of iCount sorted values is plotted: (i − 3/8) / (n + 1/4) with
/// i = iRank + 1, close to the expected order statistics of a normal sample (Blom 1958).
inline double plottingPosition(std::size_t iRank, std::size_t iCount)
{
    return (static_cast<double>(iRank) + 0.625) / (static_cast<double>(iCount) + 0.25);
}

/// Least-squares line of the values, sorted in rising order and without missing ones, on the normal quantiles of
/// their plotting positions. Equal values have standard deviation and correlation 0.
GKBASECORE_EXPORT NormalFit normalProbabilityFit(std::span<const double> vdSorted);

} // namespace gkBase
