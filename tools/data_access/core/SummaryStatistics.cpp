#include "SummaryStatistics.h"

#include <algorithm>
#include <array>
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

namespace {

/// Minimum, maximum, count and sum of distances from a middle, taken without branches and in independent lanes: a
/// whole column then costs little more than reading it from memory.
class LaneSums
{
public:
    explicit LaneSums(double dMiddle, double dScale)
        : m_dMiddle(dMiddle)
        , m_dScale(dScale)
    {
        m_adMin.fill(std::numeric_limits<double>::infinity());
        m_adMax.fill(-std::numeric_limits<double>::infinity());
    }

    void add(std::span<const double> vdValues)
    {
        std::size_t i = 0;
        for (; i + s_iLanes <= vdValues.size(); i += s_iLanes)
            for (std::size_t iLane = 0; iLane < s_iLanes; ++iLane)
                add(iLane, vdValues[i + iLane]);
        for (; i < vdValues.size(); ++i)
            add(0, vdValues[i]);
    }

    double minimum() const { return *std::min_element(m_adMin.begin(), m_adMin.end()); }
    double maximum() const { return *std::max_element(m_adMax.begin(), m_adMax.end()); }
    double sum() const { return (m_adSum[0] + m_adSum[1]) + (m_adSum[2] + m_adSum[3]); }
    std::size_t count() const { return m_aiCount[0] + m_aiCount[1] + m_aiCount[2] + m_aiCount[3]; }

private:
    static constexpr std::size_t s_iLanes = 4;

    void add(std::size_t iLane, double dValue)
    {
        const bool bValue = std::abs(dValue) <= std::numeric_limits<double>::max() && dValue != g_dMissingValue;
        m_adMin[iLane] = bValue && dValue < m_adMin[iLane] ? dValue : m_adMin[iLane];
        m_adMax[iLane] = bValue && dValue > m_adMax[iLane] ? dValue : m_adMax[iLane];
        m_adSum[iLane] += bValue ? dValue * m_dScale - m_dMiddle : 0.0;
        m_aiCount[iLane] += bValue ? 1 : 0;
    }

    double m_dMiddle;
    double m_dScale;
    std::array<double, s_iLanes> m_adMin;
    std::array<double, s_iLanes> m_adMax;
    std::array<double, s_iLanes> m_adSum{};
    std::array<std::size_t, s_iLanes> m_aiCount{};
};

LaneSums laneSums(const RecordValues& oValues, double dMiddle, double dScale)
{
    LaneSums oSums(dMiddle, dScale);
    if (!oValues.hasRecordList())
        oSums.add(oValues.column());
    else
        oValues.forEach([&oSums](double dValue) { oSums.add({&dValue, 1}); });
    return oSums;
}

} // namespace

namespace {

SummaryStatistics rangeOf(const LaneSums& oSums, const RecordValues& oValues)
{
    SummaryStatistics oResult;
    oResult.m_iCount = oSums.count();
    oResult.m_iMissing = oValues.size() - oSums.count();
    if (oSums.count() > 0) {
        oResult.m_dMin = oSums.minimum();
        oResult.m_dMax = oSums.maximum();
    }
    return oResult;
}

} // namespace

SummaryStatistics valueRange(const RecordValues& oValues)
{
    return rangeOf(laneSums(oValues, 0.0, 0.0), oValues);
}

SummaryStatistics rangeAndMean(const RecordValues& oValues)
{
    // Distances from any of the values keep the digits of values that lie far from zero.
    double dMiddle = g_dMissingValue;
    const std::span<const double> vdColumn = oValues.column();
    for (std::size_t i = 0; i < vdColumn.size() && isMissing(dMiddle); ++i)
        dMiddle = vdColumn[i];
    if (isMissing(dMiddle))
        dMiddle = 0.0;
    LaneSums oSums = laneSums(oValues, dMiddle, 1.0);
    SummaryStatistics oResult = rangeOf(oSums, oValues);
    if (oResult.m_iCount == 0)
        return oResult;
    const double dScale = safeScale(oResult.m_dMin, oResult.m_dMax);
    if (dScale != 1.0) {
        // Sums of such values overflow: once more, scaled.
        dMiddle = 0.5 * (oResult.m_dMin * dScale) + 0.5 * (oResult.m_dMax * dScale);
        oSums = laneSums(oValues, dMiddle, dScale);
    }
    const double dMean = (dMiddle + oSums.sum() / static_cast<double>(oResult.m_iCount)) / dScale;
    oResult.m_dMean = std::clamp(dMean, oResult.m_dMin, oResult.m_dMax);
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

namespace {

/// Buckets of equal width over the range of the values, and which of them hold a wanted order statistic. Few values
/// are left to be ordered then; only an outlier that squeezes all others into one bucket brings no gain.
class WantedBuckets
{
public:
    WantedBuckets(const RecordValues& oValues, const SummaryStatistics& oRange, std::span<const double> vdPercents)
        : m_dMin(oRange.m_dMin)
        , m_dFactor(0.999 * s_iBuckets / (0.5 * oRange.m_dMax - 0.5 * oRange.m_dMin))
    {
        // A range that is too narrow for a factor goes into one bucket.
        m_dFactor = std::isnormal(m_dFactor) ? m_dFactor : 0.0;
        oValues.forEach([this](double dValue) { ++m_aiCounts[bucketOf(dValue)]; });
        for (const double dPercent : vdPercents) {
            if (!isMissing(dPercent)) {
                const QuantilePosition oPosition(oRange.m_iCount, dPercent);
                m_abWanted[bucketOfRank(oPosition.m_iLower)] = true;
                m_abWanted[bucketOfRank(std::min(oPosition.m_iLower + 1, oRange.m_iCount - 1))] = true;
            }
        }
    }

    std::vector<double> wantedValues(const RecordValues& oValues) const
    {
        std::size_t iCount = 0;
        for (std::size_t i = 0; i < s_iBuckets; ++i) {
            iCount += m_abWanted[i] ? m_aiCounts[i] : 0;
        }
        std::vector<double> vdWanted;
        vdWanted.reserve(iCount);
        oValues.forEach([&](double dValue) {
            if (m_abWanted[bucketOf(dValue)]) {
                vdWanted.push_back(dValue);
            }
        });
        return vdWanted;
    }

    /// The rank among the wanted values of the value that has rank iRank among all.
    std::size_t rankAmongWanted(std::size_t iRank) const
    {
        std::size_t iLeftOut = 0;
        const std::size_t iBucket = bucketOfRank(iRank);
        for (std::size_t i = 0; i < iBucket; ++i) {
            iLeftOut += m_abWanted[i] ? 0 : m_aiCounts[i];
        }
        return iRank - iLeftOut;
    }

private:
    static constexpr std::size_t s_iBuckets = 4096;

    /// Halves, since the range itself may be wider than the doubles.
    std::size_t bucketOf(double dValue) const
    {
        return static_cast<std::size_t>((0.5 * dValue - 0.5 * m_dMin) * m_dFactor);
    }

    std::size_t bucketOfRank(std::size_t iRank) const
    {
        std::size_t iBucket = 0;
        for (std::size_t iBelow = 0; iBelow + m_aiCounts[iBucket] <= iRank; ++iBucket) {
            iBelow += m_aiCounts[iBucket];
        }
        return iBucket;
    }

    double m_dMin;
    double m_dFactor;
    std::array<std::size_t, s_iBuckets> m_aiCounts{};
    std::array<bool, s_iBuckets> m_abWanted{};
};

} // namespace

std::vector<double> quantiles(const RecordValues& oValues, std::span<const double> vdPercents)
{
    std::vector<double> vdResult(vdPercents.size(), g_dMissingValue);
    const SummaryStatistics oRange = valueRange(oValues);
    if (oRange.m_iCount == 0) {
        return vdResult;
    }
    const WantedBuckets oBuckets(oValues, oRange, vdPercents);
    std::vector<double> vdWanted = oBuckets.wantedValues(oValues);
    std::vector<std::size_t> viOrder(vdPercents.size());
    std::iota(viOrder.begin(), viOrder.end(), std::size_t(0));
    std::erase_if(viOrder, [&](std::size_t i) { return isMissing(vdPercents[i]); });
    std::sort(viOrder.begin(), viOrder.end(),
              [&](std::size_t a, std::size_t b) { return vdPercents[a] < vdPercents[b]; });
    // What lies before itFrom is smaller than the rest already, so each selection works on what is left.
    auto itFrom = vdWanted.begin();
    for (const std::size_t i : viOrder) {
        const QuantilePosition oPosition(oRange.m_iCount, vdPercents[i]);
        const std::size_t iRank = oBuckets.rankAmongWanted(oPosition.m_iLower);
        const auto itLower = vdWanted.begin() + static_cast<std::ptrdiff_t>(iRank);
        std::nth_element(itFrom, itLower, vdWanted.end());
        itFrom = itLower;
        vdResult[i] = *itLower;
        if (oPosition.m_dShare > 0.0) {
            vdResult[i] = std::lerp(*itLower, *std::min_element(itLower + 1, vdWanted.end()), oPosition.m_dShare);
        }
    }
    return vdResult;
}

} // namespace gkBase
