#pragma once

#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

/// An interval filter never has more lines than this.
inline constexpr int g_iMaximumIntervalLines = 100000;

/// The lines dMin, dMin + dSize, … below dMax, and the closing line one step on, which lies at or beyond dMax; a
/// line that misses dMax by rounding only is put on it and closes. Stops after g_iMaximumIntervalLines. Empty for a
/// size that is missing, not above 0 or lost in the rounding of the bounds, for missing bounds and unless
/// dMin < dMax.
GKBASECORE_EXPORT std::vector<double> equalIntervals(double dSize, double dMin, double dMax);

/// The n + 1 lines that cut the range into n equal intervals, the last exactly at dMax. n is cut down to
/// g_iMaximumIntervalLines − 1; empty for n below 1, missing bounds and unless dMin < dMax.
GKBASECORE_EXPORT std::vector<double> numberOfIntervals(int n, double dMin, double dMax);

/// The bins between consecutive lines of an interval filter: bin i holds lower(i) ≤ value < upper(i), the last one
/// its upper boundary as well.
class GKBASECORE_EXPORT IntervalBins
{
public:
    /// No bins.
    IntervalBins() = default;
    /// The boundaries may stand in any order; they are sorted, and missing and repeated ones are dropped. Fewer than
    /// two that differ give no bins.
    explicit IntervalBins(std::span<const double> vdBoundaries);

    int count() const { return m_vdBoundaries.empty() ? 0 : static_cast<int>(m_vdBoundaries.size()) - 1; }
    double lower(int iBin) const { return m_vdBoundaries[static_cast<std::size_t>(iBin)]; }
    double upper(int iBin) const { return m_vdBoundaries[static_cast<std::size_t>(iBin) + 1]; }
    double centre(int iBin) const { return lower(iBin) * 0.5 + upper(iBin) * 0.5; }
    /// count() + 1 rising numbers; empty without bins.
    std::span<const double> boundaries() const { return m_vdBoundaries; }

    /// The bin of a value; −1 for one outside the bins or missing. The boundaries decide exactly. Constant time for
    /// bins of equal width, else logarithmic.
    int binOf(double dValue) const { return binOf(dValue, -1); }
    /// As above, quick when the value lies in bin iGuess: for records that follow each other in depth.
    int binOf(double dValue, int iGuess) const;

private:
    std::vector<double> m_vdBoundaries;
    double m_dBinsPerUnit = 0.0; ///< 1 / width for bins of equal width, else 0
};

} // namespace gkBase
