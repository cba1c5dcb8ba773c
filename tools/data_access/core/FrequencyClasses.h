#pragma once

#include "RecordValues.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

/// Classes of equal width that cover a range from its minimum: class i holds the values from edge i up to, but not
/// at, edge i + 1; the last class holds its right edge as well.
class GKBASECORE_EXPORT FrequencyClasses
{
public:
    /// More classes than this are never made; the interval grows instead.
    static constexpr int s_iMaximumCount = 100000;
    /// An interval at or below this counts as "choose one".
    static constexpr double s_dSmallestInterval = 1e-8;

    /// No classes.
    FrequencyClasses() = default;
    /// Classes of dInterval from dMin on until they hold dMax. An interval not above 0 gives one class over the whole
    /// range; equal bounds give one class of width 0. An interval that would need more than s_iMaximumCount classes,
    /// or be finer than the doubles around the bounds, is enlarged: ask interval(). Bounds that are missing or in
    /// the wrong order give no classes.
    FrequencyClasses(double dMin, double dMax, double dInterval);

    int count() const { return m_vdEdges.empty() ? 0 : static_cast<int>(m_vdEdges.size()) - 1; }
    double interval() const { return m_dInterval; }
    double leftEdge(int iClass) const { return m_vdEdges[static_cast<std::size_t>(iClass)]; }
    double rightEdge(int iClass) const { return m_vdEdges[static_cast<std::size_t>(iClass) + 1]; }
    /// count() + 1 rising numbers minimum + i · interval; empty without classes.
    std::span<const double> edges() const { return m_vdEdges; }

    /// The class of a value; −1 for one outside the classes or missing. Values are compared with the edges as
    /// doubles, exactly.
    int classOf(double dValue) const;

private:
    double m_dInterval = 0.0;
    double m_dReciprocal = 0.0; ///< 1 / interval; 0 for a single class
    std::vector<double> m_vdEdges;
};

/// True for an interval that asks for an automatic one: at or below 1e-8, NaN, infinite or 99999.0.
GKBASECORE_EXPORT bool isAutomaticInterval(double dInterval);

/// A class interval that suits the values: 2 · IQR · n^(−1/3) (Freedman and Diaconis 1981); where the interquartile
/// range is 0, 3.49 · s · n^(−1/3) (Scott 1979) or, failing that, range / (1 + log2 n) (Sturges 1926). Then rounded
/// to the nearest of 1, 2, 5 · 10^k that gives 5 to 200 classes. 0 for values that are all equal or missing.
GKBASECORE_EXPORT double automaticInterval(const RecordValues& oValues);

/// Classes over the range of the values with the interval, or with an automatic one where isAutomaticInterval().
GKBASECORE_EXPORT FrequencyClasses frequencyClasses(const RecordValues& oValues, double dInterval);

/// Number of values per class; values outside the classes do not count.
GKBASECORE_EXPORT std::vector<std::size_t> classCounts(const RecordValues& oValues, const FrequencyClasses& oClasses);

/// Running share of the counts in per cent, at the right edge of each class; the last is exactly 100. All 0 when
/// nothing was counted.
GKBASECORE_EXPORT std::vector<double> cumulativePercent(std::span<const std::size_t> viCounts);

} // namespace gkBase
