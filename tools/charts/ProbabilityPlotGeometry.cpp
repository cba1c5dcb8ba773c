#include "ProbabilityPlotGeometry.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cmath>

namespace gkBase {

namespace {

/// Per cents with a label, up to the middle; the others mirror them.
constexpr std::array g_aLabelled{0.0001, 0.001, 0.01, 0.1, 1.0, 5.0, 10.0, 25.0, 50.0};
constexpr std::array g_aUnlabelled{0.2, 0.5, 2.0, 3.0, 4.0, 15.0, 20.0, 30.0, 35.0, 40.0, 45.0};
constexpr double g_dLowestPercent = 0.1;
/// Room between the outermost points and the frame.
constexpr double g_dRangeMargin = 1.04;
constexpr double g_dPickDistance = 6.0;

void appendTick(AxisTicks& ticks, double dPercent)
{
    ticks.m_vMajor.append(normalQuantile(dPercent / 100.0));
    ticks.m_lLabels.append(QString::number(dPercent, 'g', 10));
}

QPointF pointOf(std::span<const double> vdSorted, std::size_t i, const HistogramMap& map)
{
    return map.toPixel({vdSorted[i], normalQuantile(plottingPosition(i, vdSorted.size()))});
}

bool isSamePixel(const QPointF& a, const QPointF& b)
{
    return std::floor(a.x()) == std::floor(b.x()) && std::floor(a.y()) == std::floor(b.y());
}

/// The first rank after i that lies on another pixel. Both co-ordinates are monotonic, so steps that grow and a
/// bisection find it.
std::size_t nextPixel(std::span<const double> vdSorted, std::size_t i, const QPointF& oPixel, const HistogramMap& map)
{
    const auto isSame = [&](std::size_t iRank) { return isSamePixel(pointOf(vdSorted, iRank, map), oPixel); };
    std::size_t iSame = i;
    std::size_t iStep = 1;
    while (iSame + iStep < vdSorted.size() && isSame(iSame + iStep)) {
        iSame += iStep;
        iStep *= 2;
    }
    std::size_t iOther = std::min(iSame + iStep, vdSorted.size());
    while (iOther - iSame > 1) {
        const std::size_t iMiddle = iSame + (iOther - iSame) / 2;
        (isSame(iMiddle) ? iSame : iOther) = iMiddle;
    }
    return iOther;
}

} // namespace

double quantileRange(std::size_t iCount)
{
    const double dLowest = iCount > 0 ? plottingPosition(0, iCount) : 0.5;
    return -g_dRangeMargin * normalQuantile(std::min(dLowest, g_dLowestPercent / 100.0));
}

AxisTicks probabilityTicks(double dRange)
{
    AxisTicks ticks;
    for (const double dPercent : g_aLabelled)
        if (normalQuantile(dPercent / 100.0) >= -dRange)
            appendTick(ticks, dPercent);
    for (qsizetype i = ticks.m_vMajor.size() - 2; i >= 0; --i)
        appendTick(ticks, 100.0 - ticks.m_lLabels[i].toDouble());
    for (const double dPercent : g_aUnlabelled) {
        const double dQuantile = normalQuantile(dPercent / 100.0);
        ticks.m_vMinor << dQuantile << -dQuantile;
    }
    std::sort(ticks.m_vMinor.begin(), ticks.m_vMinor.end());
    return ticks;
}

std::vector<ProbabilityPoint> probabilityPoints(std::span<const double> vdSorted, const HistogramMap& map)
{
    std::vector<ProbabilityPoint> vPoints;
    if (!map.m_oX.isValid() || !map.m_oY.isValid())
        return vPoints;
    for (std::size_t i = 0; i < vdSorted.size();) {
        const QPointF oPixel = pointOf(vdSorted, i, map);
        vPoints.push_back({oPixel, i});
        i = nextPixel(vdSorted, i, oPixel, map);
    }
    if (!vPoints.empty() && vPoints.back().m_iRank + 1 < vdSorted.size())
        vPoints.push_back({pointOf(vdSorted, vdSorted.size() - 1, map), vdSorted.size() - 1});
    return vPoints;
}

QLineF fitLine(const NormalFit& fit, const HistogramMap& map)
{
    if (isMissing(fit.m_dMean) || isMissing(fit.m_dStandardDeviation))
        return {};
    double dFrom = map.m_oY.minValue();
    double dTo = map.m_oY.maxValue();
    if (fit.m_dStandardDeviation > 0.0) {
        dFrom = std::max(dFrom, (map.m_oX.minValue() - fit.m_dMean) / fit.m_dStandardDeviation);
        dTo = std::min(dTo, (map.m_oX.maxValue() - fit.m_dMean) / fit.m_dStandardDeviation);
    }
    if (!(dFrom < dTo))
        return {};
    const auto at = [&](double dQuantile) {
        return map.toPixel({fit.m_dMean + dQuantile * fit.m_dStandardDeviation, dQuantile});
    };
    return {at(dFrom), at(dTo)};
}

const ProbabilityPoint* probabilityPointAt(const std::vector<ProbabilityPoint>& vPoints, const QPointF& oPixel)
{
    const auto itFirst =
        std::lower_bound(vPoints.begin(), vPoints.end(), oPixel.x() - g_dPickDistance,
                         [](const ProbabilityPoint& point, double dX) { return point.m_oPixel.x() < dX; });
    const ProbabilityPoint* pNearest = nullptr;
    double dNearest = g_dPickDistance;
    for (auto it = itFirst; it != vPoints.end() && it->m_oPixel.x() <= oPixel.x() + g_dPickDistance; ++it) {
        const double dDistance = QLineF(it->m_oPixel, oPixel).length();
        if (dDistance <= dNearest) {
            dNearest = dDistance;
            pNearest = &*it;
        }
    }
    return pNearest;
}

} // namespace gkBase
