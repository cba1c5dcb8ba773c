#include "SummaryStatistics.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace gkBase {

namespace {

/// A power of two that keeps squares of the values inside the range of double; 1 for all but astronomic values.
double safeScale(double dMin, double dMax)
{
    constexpr double dLargest = 1e140;
    const double dMagnitude = std::max(std::abs(dMin), std::abs(dMax));
    return dMagnitude > dLargest ? std::exp2(-std::ceil(std::log2(dMagnitude))) : 1.0;
}

} // namespace

SummaryStatistics valueRange(const RecordValues& oValues)
{
    SummaryStatistics oResult;
    double dMin = std::numeric_limits<double>::infinity();
    double dMax = -dMin;
    std::size_t iCount = 0;
    oValues.forEach([&](double dValue) {
        dMin = std::min(dMin, dValue);
        dMax = std::max(dMax, dValue);
        ++iCount;
    });
    oResult.m_iCount = iCount;
    oResult.m_iMissing = oValues.size() - iCount;
    if (iCount > 0) {
        oResult.m_dMin = dMin;
        oResult.m_dMax = dMax;
    }
    return oResult;
}

SummaryStatistics summaryStatistics(const RecordValues& oValues)
{
    SummaryStatistics oResult = valueRange(oValues);
    if (oResult.m_iCount == 0) {
        return oResult;
    }
    const double dScale = safeScale(oResult.m_dMin, oResult.m_dMax);
    const auto dCount = static_cast<double>(oResult.m_iCount);
    // Summing distances from the middle of the range keeps the digits of values that lie far from zero.
    const double dMiddle = 0.5 * (oResult.m_dMin * dScale) + 0.5 * (oResult.m_dMax * dScale);
    double dSum = 0.0;
    oValues.forEach([&](double dValue) { dSum += dValue * dScale - dMiddle; });
    const double dMean = dMiddle + dSum / dCount;
    double dSquares = 0.0;
    double dRest = 0.0;
    oValues.forEach([&](double dValue) {
        const double dDistance = dValue * dScale - dMean;
        dSquares += dDistance * dDistance;
        dRest += dDistance;
    });
    oResult.m_dMean = std::clamp((dMean + dRest / dCount) / dScale, oResult.m_dMin, oResult.m_dMax);
    if (oResult.m_iCount > 1) {
        const double dVariance = std::max(0.0, dSquares - dRest * dRest / dCount) / (dCount - 1.0);
        oResult.m_dStandardDeviation = oResult.m_dMin == oResult.m_dMax ? 0.0 : std::sqrt(dVariance) / dScale;
    }
    return oResult;
}

namespace {

/// Where a quantile lies among n order statistics: position and the share of the next one.
struct QuantilePosition
{
    QuantilePosition(std::size_t iCount, double dPercent)
    {
        const double dPosition = static_cast<double>(iCount - 1) * (std::clamp(dPercent, 0.0, 100.0) / 100.0);
        m_iLower = std::min(static_cast<std::size_t>(dPosition), iCount - 1);
        m_dShare = m_iLower + 1 < iCount ? dPosition - static_cast<double>(m_iLower) : 0.0;
    }
    std::size_t m_iLower;
    double m_dShare;
};

} // namespace

double sortedQuantile(std::span<const double> vdSorted, double dPercent)
{
    if (vdSorted.empty() || isMissing(dPercent)) {
        return g_dMissingValue;
    }
    const QuantilePosition oPosition(vdSorted.size(), dPercent);
    const double dLower = vdSorted[oPosition.m_iLower];
    return oPosition.m_dShare == 0.0 ? dLower : std::lerp(dLower, vdSorted[oPosition.m_iLower + 1], oPosition.m_dShare);
}

std::vector<double> quantiles(const RecordValues& oValues, std::span<const double> vdPercents)
{
    std::vector<double> vdResult(vdPercents.size(), g_dMissingValue);
    std::vector<double> vdValues;
    vdValues.reserve(oValues.size());
    oValues.forEach([&vdValues](double dValue) { vdValues.push_back(dValue); });
    if (vdValues.empty()) {
        return vdResult;
    }
    std::vector<std::size_t> viOrder(vdPercents.size());
    std::iota(viOrder.begin(), viOrder.end(), std::size_t(0));
    std::erase_if(viOrder, [&](std::size_t i) { return isMissing(vdPercents[i]); });
    std::sort(viOrder.begin(), viOrder.end(),
              [&](std::size_t a, std::size_t b) { return vdPercents[a] < vdPercents[b]; });
    // Everything before itFrom is in its final half already, so each selection works on what is left.
    auto itFrom = vdValues.begin();
    for (const std::size_t i : viOrder) {
        const QuantilePosition oPosition(vdValues.size(), vdPercents[i]);
        const auto itLower = vdValues.begin() + static_cast<std::ptrdiff_t>(oPosition.m_iLower);
        std::nth_element(itFrom, itLower, vdValues.end());
        itFrom = itLower;
        vdResult[i] = *itLower;
        if (oPosition.m_dShare > 0.0) {
            vdResult[i] = std::lerp(*itLower, *std::min_element(itLower + 1, vdValues.end()), oPosition.m_dShare);
        }
    }
    return vdResult;
}

} // namespace gkBase
