#include "IntervalBins.h"

#include "MissingValue.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace gkBase {

namespace {

bool isRange(double dMin, double dMax)
{
    return !isMissing(dMin) && !isMissing(dMax) && dMin < dMax;
}

/// What rounding may add to a sum of numbers up to the bounds.
double roundingOf(double dMin, double dMax)
{
    return 4.0 * std::numeric_limits<double>::epsilon() * std::max(std::abs(dMin), std::abs(dMax));
}

} // namespace

std::vector<double> equalIntervals(double dSize, double dMin, double dMax)
{
    if (isMissing(dSize) || !(dSize > 0.0) || !isRange(dMin, dMax)) {
        return {};
    }
    const double dRounding = roundingOf(dMin, dMax);
    if (dSize <= dRounding) {
        return {};
    }
    std::vector<double> vdLines;
    double dLine = dMin;
    for (int i = 0; i < g_iMaximumIntervalLines - 1 && dLine < dMax; ++i) {
        vdLines.push_back(dLine);
        // Products, not repeated sums: ten steps of 0.1 end at 1.
        dLine = dMin + (i + 1) * dSize;
        if (std::abs(dLine - dMax) <= dRounding) {
            dLine = dMax;
        }
    }
    vdLines.push_back(dLine);
    return vdLines;
}

std::vector<double> numberOfIntervals(int n, double dMin, double dMax)
{
    if (n < 1 || !isRange(dMin, dMax)) {
        return {};
    }
    n = std::min(n, g_iMaximumIntervalLines - 1);
    const double dStep = dMax / n - dMin / n;
    std::vector<double> vdLines;
    vdLines.reserve(static_cast<std::size_t>(n) + 1);
    for (int i = 0; i < n; ++i) {
        vdLines.push_back(dMin + i * dStep);
    }
    vdLines.push_back(dMax);
    return vdLines;
}

IntervalBins::IntervalBins(std::span<const double> vdBoundaries)
{
    m_vdBoundaries.reserve(vdBoundaries.size());
    std::copy_if(vdBoundaries.begin(), vdBoundaries.end(), std::back_inserter(m_vdBoundaries),
                 [](double dBoundary) { return !isMissing(dBoundary); });
    std::sort(m_vdBoundaries.begin(), m_vdBoundaries.end());
    m_vdBoundaries.erase(std::unique(m_vdBoundaries.begin(), m_vdBoundaries.end()), m_vdBoundaries.end());
    if (m_vdBoundaries.size() < 2) {
        m_vdBoundaries.clear();
        return;
    }
    const double dWidth = m_vdBoundaries.back() / count() - m_vdBoundaries.front() / count();
    const bool bEqual = [&] {
        for (int i = 1; i < count(); ++i) {
            if (std::abs(lower(i) - (lower(0) + i * dWidth)) > 0.25 * dWidth) {
                return false;
            }
        }
        return true;
    }();
    m_dBinsPerUnit = bEqual && std::isfinite(1.0 / dWidth) ? 1.0 / dWidth : 0.0;
}

int IntervalBins::binOf(double dValue, int iGuess) const
{
    // 99999.0 may lie between the boundaries, and is still no value.
    if (m_vdBoundaries.empty() || isMissing(dValue) || dValue < m_vdBoundaries.front() ||
        dValue > m_vdBoundaries.back()) {
        return -1;
    }
    const int iLast = count() - 1;
    if (iGuess >= 0 && iGuess <= iLast && dValue >= lower(iGuess) && dValue < upper(iGuess)) {
        return iGuess;
    }
    if (m_dBinsPerUnit > 0.0) {
        // The quotient is right to within a bin; the boundaries themselves decide.
        const double dQuotient = (dValue - m_vdBoundaries.front()) * m_dBinsPerUnit;
        int iBin = static_cast<int>(std::min(dQuotient, static_cast<double>(iLast)));
        while (iBin < iLast && dValue >= upper(iBin)) {
            ++iBin;
        }
        while (iBin > 0 && dValue < lower(iBin)) {
            --iBin;
        }
        return iBin;
    }
    const auto itUpper = std::upper_bound(m_vdBoundaries.begin(), m_vdBoundaries.end(), dValue);
    return std::min(static_cast<int>(itUpper - m_vdBoundaries.begin()) - 1, iLast);
}

} // namespace gkBase
