#include "TransverseDipEvents.h"

#include "Curve.h"
#include "SummaryStatistics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace gkBase {

namespace {

constexpr double g_dLeastLimit = 1.5; // degrees, about what dips in wells are measured to
constexpr std::size_t g_iFewRecords = 20;
constexpr std::size_t g_iWidestReach = 15; // records to each side

double tricube(double dDistance)
{
    const double dCube = std::abs(dDistance * dDistance * dDistance);
    return dCube < 1.0 ? (1.0 - dCube) * (1.0 - dCube) * (1.0 - dCube) : 0.0;
}

/// What is left of the standard deviation of independent values after a weighted mean over evenly spaced ones.
double noiseFactor(std::size_t iReach)
{
    double dSum = 1.0;
    double dSquares = 1.0;
    for (std::size_t i = 1; i <= iReach; ++i) {
        const double dWeight = tricube(static_cast<double>(i) / static_cast<double>(iReach + 1));
        dSum += 2.0 * dWeight;
        dSquares += 2.0 * dWeight * dWeight;
    }
    return std::sqrt(dSquares) / dSum;
}

/// Standard deviation of the values about a smooth curve; 0 for few values, which do not tell it from the curve.
double noiseOf(const AveragedCurve& curve)
{
    const std::vector<double>& vdDepths = curve.m_vdPositions;
    const std::vector<double>& vdDips = curve.m_vdValues;
    if (vdDips.size() < g_iFewRecords) {
        return 0.0;
    }
    std::vector<double> vdDistances(vdDips.size() - 2);
    for (std::size_t i = 1; i + 1 < vdDips.size(); ++i) {
        const double dBefore = (vdDepths[i + 1] - vdDepths[i]) / (vdDepths[i + 1] - vdDepths[i - 1]);
        const double dAfter = 1.0 - dBefore;
        const double dLine = dBefore * vdDips[i - 1] + dAfter * vdDips[i + 1];
        vdDistances[i - 1] = std::abs(vdDips[i] - dLine) / std::sqrt(1.0 + dBefore * dBefore + dAfter * dAfter);
    }
    constexpr double dMedianOfNormal = 0.6744897501960817;
    constexpr std::array<double, 1> adMedian{50.0};
    return quantiles(vdDistances, adMedian).front() / dMedianOfNormal;
}

/// The value in the middle of the 2 · iReach + 1 (at most 5) values around value i.
double localMedian(const std::vector<double>& vdValues, std::size_t i, std::size_t iReach)
{
    std::array<double, 5> adWindow{};
    const auto itFirst = vdValues.begin() + static_cast<std::ptrdiff_t>(i - iReach);
    const auto itEnd = std::copy_n(itFirst, 2 * iReach + 1, adWindow.begin());
    const auto itMedian = adWindow.begin() + static_cast<std::ptrdiff_t>(iReach);
    std::nth_element(adWindow.begin(), itMedian, itEnd);
    return *itMedian;
}

/// An end of smoothed values: the middle one of itself, its neighbour, and what the neighbours lead to two steps on
/// (the end-point rule of Tukey 1977).
double smoothedEnd(double dEnd, double dNeighbour, double dNext)
{
    const double dExtended = 3.0 * dNeighbour - 2.0 * dNext;
    return std::clamp(dEnd, std::min(dNeighbour, dExtended), std::max(dNeighbour, dExtended));
}

/// Running median with narrower windows next to the ends. The values themselves for a reach of 0.
std::vector<double> runningMedian(const std::vector<double>& vdValues, std::size_t iReach)
{
    if (iReach == 0) {
        return vdValues;
    }
    std::vector<double> vdMedians = vdValues;
    const std::size_t iLast = vdValues.size() - 1;
    for (std::size_t i = 1; i < iLast; ++i) {
        vdMedians[i] = localMedian(vdValues, i, std::min({iReach, i, iLast - i}));
    }
    vdMedians.front() = smoothedEnd(vdValues.front(), vdMedians[1], vdMedians[2]);
    vdMedians.back() = smoothedEnd(vdValues.back(), vdMedians[iLast - 1], vdMedians[iLast - 2]);
    return vdMedians;
}

/// The value at record i of the line through the records from iFirst to iLast, nearer ones with more weight.
double localLine(const std::vector<double>& vdDepths, const std::vector<double>& vdDips, std::size_t i,
                 std::size_t iFirst, std::size_t iLast)
{
    const double dRecords = static_cast<double>(iLast - iFirst + 1);
    const double dReach = std::max(vdDepths[i] - vdDepths[iFirst], vdDepths[iLast] - vdDepths[i]);
    const double dScale = (dRecords - 1.0) / (dReach * (dRecords + 1.0)); // the outermost record keeps a weight
    double dWeights = 0.0;
    double dDepths = 0.0;
    double dDips = 0.0;
    double dSquares = 0.0;
    double dProducts = 0.0;
    for (std::size_t k = iFirst; k <= iLast; ++k) {
        const double dDepth = (vdDepths[k] - vdDepths[i]) * dScale;
        const double dWeight = tricube(dDepth);
        dWeights += dWeight;
        dDepths += dWeight * dDepth;
        dDips += dWeight * vdDips[k];
        dSquares += dWeight * dDepth * dDepth;
        dProducts += dWeight * dDepth * vdDips[k];
    }
    const double dDeterminant = dWeights * dSquares - dDepths * dDepths;
    return (dDips * dSquares - dDepths * dProducts) / dDeterminant;
}

std::vector<double> locallyFitted(const std::vector<double>& vdDepths, const std::vector<double>& vdDips,
                                  std::size_t iReach)
{
    if (iReach == 0) {
        return vdDips;
    }
    std::vector<double> vdSmoothed(vdDips.size());
    for (std::size_t i = 0; i < vdDips.size(); ++i) {
        const std::size_t iFirst = std::min(i - std::min(i, iReach), vdDips.size() - 1 - 2 * iReach);
        vdSmoothed[i] = localLine(vdDepths, vdDips, i, iFirst, iFirst + 2 * iReach);
    }
    return vdSmoothed;
}

/// The smoothed curve, and what in it is more than noise.
struct SmoothCurve
{
    std::vector<double> m_vdDepths;
    std::vector<double> m_vdDips;
    double m_dNoise = 0.0; ///< of the smoothed dips, as large as n of them reach
    double m_dLimit = g_dLeastLimit;

    double depth(std::size_t i) const { return m_vdDepths[i]; }
    double dip(std::size_t i) const { return m_vdDips[i]; }
    std::size_t size() const { return m_vdDips.size(); }
};

/// The depth of a change of sign from record iBefore to record iAfter, between which all dips are 0.
double crossing(const SmoothCurve& curve, std::size_t iBefore, std::size_t iAfter)
{
    if (iAfter > iBefore + 1) {
        return 0.5 * (curve.depth(iBefore + 1) + curve.depth(iAfter - 1));
    }
    const double dShare = curve.dip(iBefore) / (curve.dip(iBefore) - curve.dip(iAfter));
    return curve.depth(iBefore) + dShare * (curve.depth(iAfter) - curve.depth(iBefore));
}

/// The crest between records iFrom and iTo, whose dips have different signs: of the changes from the sign of the
/// first to that of the second the one where the integral of the dips is extreme.
double crestBetween(const SmoothCurve& curve, std::size_t iFrom, std::size_t iTo)
{
    const double dSign = curve.dip(iFrom) < 0.0 ? -1.0 : 1.0;
    double dIntegral = 0.0;
    double dLargest = std::numeric_limits<double>::lowest();
    double dCrest = curve.depth(iTo);
    std::size_t iBefore = iFrom;
    for (std::size_t i = iFrom; i < iTo; ++i) {
        const double dDip = dSign * curve.dip(i);
        const double dNext = dSign * curve.dip(i + 1);
        iBefore = dDip > 0.0 ? i : iBefore;
        if (dDip >= 0.0 && dNext < 0.0) {
            const double dCrossing = crossing(curve, iBefore, i + 1);
            const double dHere = dIntegral + 0.5 * dDip * (dCrossing - curve.depth(i));
            if (dHere > dLargest) {
                dLargest = dHere;
                dCrest = dCrossing;
            }
        }
        dIntegral += 0.5 * (dDip + dNext) * (curve.depth(i + 1) - curve.depth(i));
    }
    return dCrest;
}

std::vector<double> crestsOf(const SmoothCurve& curve)
{
    std::vector<double> vdCrests;
    std::optional<std::size_t> oLast; // the last record beyond the limit
    for (std::size_t i = 0; i < curve.size(); ++i) {
        if (std::abs(curve.dip(i)) < curve.m_dLimit) {
            continue;
        }
        if (oLast && (curve.dip(*oLast) < 0.0) != (curve.dip(i) < 0.0)) {
            vdCrests.push_back(crestBetween(curve, *oLast, i));
        }
        oLast = i;
    }
    return vdCrests;
}

/// The middle of the stretch around an extreme that differs from it by noise only.
double extremeDepth(const SmoothCurve& curve, std::size_t iExtreme)
{
    const auto isAlike = [&](std::size_t i) { return std::abs(curve.dip(i) - curve.dip(iExtreme)) <= curve.m_dNoise; };
    std::size_t iFirst = iExtreme;
    while (iFirst > 0 && isAlike(iFirst - 1)) {
        --iFirst;
    }
    std::size_t iLast = iExtreme;
    while (iLast + 1 < curve.size() && isAlike(iLast + 1)) {
        ++iLast;
    }
    return 0.5 * (curve.depth(iFirst) + curve.depth(iLast));
}

/// Extremes from which the curve falls off by twice the limit on both sides. Such a fall makes an extreme certain, and
/// is the first side of the next one; the end of the well is none because one side is missing.
std::vector<double> inflectionsOf(const SmoothCurve& curve)
{
    std::vector<double> vdInflections;
    const double dChange = 2.0 * curve.m_dLimit;
    std::size_t iLowest = 0;
    std::size_t iHighest = 0;
    int iTrend = 0; // 1 while the curve rises, −1 while it falls, 0 before it does either
    for (std::size_t i = 0; i < curve.size(); ++i) {
        iLowest = curve.dip(i) < curve.dip(iLowest) ? i : iLowest;
        iHighest = curve.dip(i) > curve.dip(iHighest) ? i : iHighest;
        if (iTrend <= 0 && curve.dip(i) - curve.dip(iLowest) >= dChange) {
            if (iTrend < 0) {
                vdInflections.push_back(extremeDepth(curve, iLowest));
            }
            iTrend = 1;
            iHighest = i;
        } else if (iTrend >= 0 && curve.dip(iHighest) - curve.dip(i) >= dChange) {
            if (iTrend > 0) {
                vdInflections.push_back(extremeDepth(curve, iHighest));
            }
            iTrend = -1;
            iLowest = i;
        }
    }
    return vdInflections;
}

} // namespace

TransverseDipEvents transverseDipEvents(std::span<const double> vdDepths, std::span<const double> vdTransverseDips)
{
    AveragedCurve averaged = averagedCurve(vdDepths, vdTransverseDips);
    TransverseDipEvents oEvents;
    oEvents.m_iCount = averaged.m_vdValues.size();
    oEvents.m_dNoise = noiseOf(averaged);
    if (oEvents.m_iCount == 0) {
        return oEvents;
    }
    const double dExtent = 1.0 + std::sqrt(2.0 * std::log(static_cast<double>(oEvents.m_iCount)));
    const std::size_t iWidest = std::min(g_iWidestReach, oEvents.m_iCount / g_iFewRecords);
    const auto noise = [&](std::size_t iReach) { return oEvents.m_dNoise * noiseFactor(iReach) * dExtent; };
    std::size_t iReach = 0;
    while (iReach < iWidest && noise(iReach) > g_dLeastLimit) {
        ++iReach;
    }
    const std::size_t iMedianReach = std::min<std::size_t>(2, oEvents.m_iCount / g_iFewRecords);
    const std::vector<double> vdMedians = runningMedian(averaged.m_vdValues, iMedianReach);
    SmoothCurve curve;
    curve.m_vdDips = locallyFitted(averaged.m_vdPositions, vdMedians, iReach);
    curve.m_vdDepths = std::move(averaged.m_vdPositions);
    curve.m_dNoise = noise(iReach);
    curve.m_dLimit = std::max(g_dLeastLimit, curve.m_dNoise);
    oEvents.m_iWindow = 2 * (iReach + iMedianReach) + 1;
    oEvents.m_dLeastChange = 2.0 * curve.m_dLimit;
    oEvents.m_vdCrests = crestsOf(curve);
    oEvents.m_vdInflections = inflectionsOf(curve);
    return oEvents;
}

} // namespace gkBase
