#include "FrequencyClasses.h"

#include "SummaryStatistics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace gkBase {

namespace {

constexpr double g_dEpsilon = std::numeric_limits<double>::epsilon();
constexpr double g_dFewestClasses = 5.0;
constexpr double g_dMostClasses = 200.0;

/// (dMax − dMin) · dFactor without overflow on the way.
double scaledRange(double dMin, double dMax, double dFactor)
{
    const double dRange = dMax - dMin;
    return std::isfinite(dRange) ? dRange * dFactor : dMax * dFactor - dMin * dFactor;
}

/// Edge i of classes from dMin on, without overflow on the way.
double edgeAt(double dMin, double dInterval, int i)
{
    const double dStep = dInterval * i;
    return std::isfinite(dStep) ? dMin + dStep : std::fma(dInterval, i, dMin);
}

/// The iStep-th number of the series …, 0.5, 1, 2, 5, 10, … counted from 1.
double numberOf125(int iStep)
{
    constexpr std::array<double, 3> adMantissas{1.0, 2.0, 5.0};
    const int iExponent = iStep >= 0 ? iStep / 3 : (iStep - 2) / 3;
    const double dMantissa = adMantissas[static_cast<std::size_t>(iStep - 3 * iExponent)];
    // Dividing by a whole power of ten gives the double nearest to the decimal number.
    return iExponent >= 0 ? dMantissa * std::pow(10.0, iExponent) : dMantissa / std::pow(10.0, -iExponent);
}

/// The number of that series that is nearest to dValue by ratio.
int nearest125(double dValue)
{
    const int iGuess = static_cast<int>(std::floor(3.0 * std::log10(dValue)));
    int iBest = iGuess;
    double dBest = std::numeric_limits<double>::infinity();
    for (int iStep = iGuess - 2; iStep <= iGuess + 3; ++iStep) {
        const double dDistance = std::abs(std::log(numberOf125(iStep) / dValue));
        if (dDistance < dBest) {
            dBest = dDistance;
            iBest = iStep;
        }
    }
    return iBest;
}

/// The interval before rounding.
double suggestedInterval(const RecordValues& oValues, const SummaryStatistics& oRange)
{
    const auto dCount = static_cast<double>(oRange.m_iCount);
    constexpr std::array<double, 2> adQuartiles{25.0, 75.0};
    const std::vector<double> vdQuartiles = quantiles(oValues, adQuartiles);
    const double dIqr = scaledRange(vdQuartiles[0], vdQuartiles[1], 1.0);
    if (dIqr > 0.0) {
        return 2.0 * dIqr / std::cbrt(dCount);
    }
    const double dDeviation = summaryStatistics(oValues).m_dStandardDeviation;
    if (dDeviation > 0.0 && !isMissing(dDeviation)) {
        return 3.49 * dDeviation / std::cbrt(dCount);
    }
    return scaledRange(oRange.m_dMin, oRange.m_dMax, 1.0 / (1.0 + std::log2(dCount)));
}

} // namespace

FrequencyClasses::FrequencyClasses(double dMin, double dMax, double dInterval)
{
    if (isMissing(dMin) || isMissing(dMax) || dMin > dMax) {
        return;
    }
    if (dMin == dMax) {
        m_vdEdges = {dMin, dMax};
        return;
    }
    if (!(dInterval > 0.0) || !std::isfinite(dInterval)) {
        dInterval = std::min(scaledRange(dMin, dMax, 1.0), std::numeric_limits<double>::max());
    }
    const double dRounding = g_dEpsilon * std::max(std::abs(dMin), std::abs(dMax));
    const double dFinest = std::max(scaledRange(dMin, dMax, 1.0 / s_iMaximumCount), 16.0 * dRounding);
    m_dInterval = std::max(dInterval, dFinest);
    // Subnormal intervals have no reciprocal.
    m_dInterval = std::max(m_dInterval, std::numeric_limits<double>::min());
    m_dReciprocal = 1.0 / m_dInterval;

    const double dWhole = std::floor(std::min(scaledRange(dMin, dMax, m_dReciprocal), double(s_iMaximumCount)));
    int iCount = std::max(1, static_cast<int>(dWhole));
    // A maximum that misses the last edge by rounding only lies on it and needs no class of its own.
    if (iCount < s_iMaximumCount && edgeAt(dMin, m_dInterval, iCount) < dMax - 4.0 * dRounding) {
        ++iCount;
    }
    m_vdEdges.resize(static_cast<std::size_t>(iCount) + 1);
    for (int i = 0; i <= iCount; ++i) {
        m_vdEdges[static_cast<std::size_t>(i)] = edgeAt(dMin, m_dInterval, i);
    }
    m_vdEdges.back() = std::clamp(m_vdEdges.back(), dMax, std::numeric_limits<double>::max());
}

int FrequencyClasses::classOf(double dValue) const
{
    if (m_vdEdges.empty() || !(dValue >= m_vdEdges.front() && dValue <= m_vdEdges.back())) {
        return -1;
    }
    const int iLast = count() - 1;
    // The guess is right but for rounding; the edges themselves decide.
    const double dGuess = scaledRange(m_vdEdges.front(), dValue, m_dReciprocal);
    int iClass = static_cast<int>(std::min(dGuess, static_cast<double>(iLast)));
    while (iClass < iLast && dValue >= rightEdge(iClass)) {
        ++iClass;
    }
    while (iClass > 0 && dValue < leftEdge(iClass)) {
        --iClass;
    }
    return iClass;
}

bool isAutomaticInterval(double dInterval)
{
    return isMissing(dInterval) || !(dInterval > FrequencyClasses::s_dSmallestInterval);
}

double automaticInterval(const RecordValues& oValues)
{
    const SummaryStatistics oRange = valueRange(oValues);
    if (oRange.m_iCount == 0 || oRange.m_dMin == oRange.m_dMax) {
        return 0.0;
    }
    const double dFinest = scaledRange(oRange.m_dMin, oRange.m_dMax, 1.0 / g_dMostClasses);
    const double dCoarsest = scaledRange(oRange.m_dMin, oRange.m_dMax, 1.0 / g_dFewestClasses);
    const double dSuggested = std::clamp(suggestedInterval(oValues, oRange), dFinest, dCoarsest);
    if (!std::isnormal(dSuggested)) {
        return dCoarsest;
    }
    int iStep = nearest125(dSuggested);
    while (numberOf125(iStep) < dFinest) {
        ++iStep;
    }
    while (numberOf125(iStep) > dCoarsest) {
        --iStep;
    }
    return numberOf125(iStep);
}

FrequencyClasses frequencyClasses(const RecordValues& oValues, double dInterval)
{
    const SummaryStatistics oRange = valueRange(oValues);
    if (isAutomaticInterval(dInterval)) {
        dInterval = automaticInterval(oValues);
    }
    return FrequencyClasses(oRange.m_dMin, oRange.m_dMax, dInterval);
}

std::vector<std::size_t> classCounts(const RecordValues& oValues, const FrequencyClasses& oClasses)
{
    std::vector<std::size_t> viCounts(static_cast<std::size_t>(oClasses.count()), 0);
    oValues.forEach([&](double dValue) {
        const int iClass = oClasses.classOf(dValue);
        if (iClass >= 0) {
            ++viCounts[static_cast<std::size_t>(iClass)];
        }
    });
    return viCounts;
}

std::vector<double> cumulativePercent(std::span<const std::size_t> viCounts)
{
    std::size_t iTotal = 0;
    for (const std::size_t iCount : viCounts) {
        iTotal += iCount;
    }
    std::vector<double> vdPercent;
    vdPercent.reserve(viCounts.size());
    std::size_t iSum = 0;
    for (const std::size_t iCount : viCounts) {
        iSum += iCount;
        vdPercent.push_back(iTotal > 0 ? 100.0 * static_cast<double>(iSum) / static_cast<double>(iTotal) : 0.0);
    }
    return vdPercent;
}

} // namespace gkBase
