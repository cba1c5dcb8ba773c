#include "BarDiagramGeometry.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Share of a bar's place that stays free on each side.
constexpr double g_dGapShare = 0.15;
/// Places narrower than this have no gaps.
constexpr double g_dSmallestGapPitch = 4.0;
/// Bars lower than this are found above them too.
constexpr double g_dSmallestHitHeight = 8.0;
/// Names are cut rather than turned where this many characters have room.
constexpr double g_dReadableCharacters = 14.0;
constexpr std::size_t g_iMostMeasuredNames = 64;

double nameGap(const QFontMetricsF& metrics)
{
    return metrics.averageCharWidth();
}

/// First and last pixel of the bar at a place.
std::pair<int, int> barPixels(double dBar, const HistogramMap& map)
{
    const double dLeft = map.m_oX.toPixel(dBar);
    const double dRight = map.m_oX.toPixel(dBar + 1.0);
    const double dGap = dRight - dLeft < g_dSmallestGapPitch ? 0.0 : std::max(1.0, g_dGapShare * (dRight - dLeft));
    const int iFirst = static_cast<int>(std::lround(dLeft + dGap));
    const int iLast = static_cast<int>(std::lround(dRight - dGap));
    return {iFirst, std::max(iFirst, dGap > 0.0 ? iLast : iLast - 1)};
}

} // namespace

BarWindow barWindow(int iBars, int iWidth, double dSmallestPitch, double dZoom, double dFirst)
{
    if (iBars < 1)
        return {};
    const double dFitting = dSmallestPitch > 0.0 ? std::max(1.0, iWidth / dSmallestPitch) : iBars;
    const double dCount = std::min<double>(iBars, dFitting) / (dZoom > 1.0 ? dZoom : 1.0);
    const double dLast = std::max(0.0, iBars - dCount);
    return {dFirst > 0.0 ? std::min(dFirst, dLast) : 0.0, dCount};
}

std::vector<HistogramBar> diagramBars(std::span<const double> vdHeights, const HistogramMap& map)
{
    std::vector<HistogramBar> vBars;
    if (!map.m_oX.isValid())
        return vBars;
    const auto iSize = static_cast<double>(vdHeights.size());
    const auto iBegin = static_cast<std::size_t>(std::clamp(std::floor(map.m_oX.minValue()), 0.0, iSize));
    const auto iEnd = static_cast<std::size_t>(std::clamp(std::ceil(map.m_oX.maxValue()), 0.0, iSize));
    const int iBottom = map.m_oY.toPixelIndex(0.0);
    for (std::size_t i = iBegin; i < iEnd; ++i) {
        if (!(vdHeights[i] > 0.0))
            continue;
        const auto [iFirst, iLast] = barPixels(static_cast<double>(i), map);
        const int iTop = std::min(map.m_oY.toPixelIndex(vdHeights[i]), iBottom);
        const HistogramBar bar{QRectF(iFirst, iTop, iLast - iFirst, iBottom - iTop), static_cast<int>(i)};
        if (vBars.empty() || vBars.back().m_oRect.right() < iFirst)
            vBars.push_back(bar);
        else if (vBars.back().m_oRect.top() > iTop)
            vBars.back() = bar;
    }
    return vBars;
}

int diagramBarAt(const std::vector<HistogramBar>& vBars, const QPointF& oPixel)
{
    const auto itAfter =
        std::upper_bound(vBars.begin(), vBars.end(), std::floor(oPixel.x()),
                         [](double dPixel, const HistogramBar& bar) { return dPixel < bar.m_oRect.left(); });
    if (itAfter == vBars.begin())
        return -1;
    const HistogramBar& bar = *std::prev(itAfter);
    const double dTop = std::min(bar.m_oRect.top(), bar.m_oRect.bottom() - g_dSmallestHitHeight);
    const bool bInside = std::floor(oPixel.x()) <= bar.m_oRect.right() && oPixel.y() >= dTop;
    return bInside ? bar.m_iInterval : -1;
}

double widestName(const std::vector<BarClass>& vBars, const QFontMetricsF& metrics)
{
    qsizetype iLongest = 0;
    for (const BarClass& bar : vBars)
        iLongest = std::max(iLongest, bar.m_sName.size());
    double dWidest = 0.0;
    std::size_t iMeasured = 0;
    for (const BarClass& bar : vBars) {
        if (bar.m_sName.size() < 0.7 * iLongest)
            continue;
        dWidest = std::max(dWidest, metrics.horizontalAdvance(bar.m_sName));
        if (++iMeasured == g_iMostMeasuredNames)
            break;
    }
    return dWidest;
}

BarLabels barLabels(const std::vector<BarClass>& vBars, const BarWindow& window, int iWidth,
                    const QFontMetricsF& metrics, double dWidest, double dMostDepth)
{
    BarLabels labels;
    if (vBars.empty() || iWidth < 2 || !(window.m_dCount > 0.0))
        return labels;
    const HistogramMap map =
        histogramMap({{window.m_dFirst, 0.0}, {window.m_dFirst + window.m_dCount, 1.0}}, QSize(iWidth, 2));
    const double dPitch = map.m_oX.toPixel(1.0) - map.m_oX.toPixel(0.0);
    const double dRoom = dPitch - nameGap(metrics);
    labels.m_bUpright = dWidest > dRoom && dRoom < g_dReadableCharacters * metrics.averageCharWidth();
    const double dLength = labels.m_bUpright ? dMostDepth : dRoom;
    labels.m_dDepth = labels.m_bUpright ? std::min(std::ceil(dWidest), dMostDepth) : metrics.height();

    // Numbers of bars, not places on the screen, decide which names are left out: scrolling moves them, no more.
    const auto iStep = labels.m_bUpright ? static_cast<int>(std::max(1.0, std::ceil(metrics.height() / dPitch))) : 1;
    const int iFirst = std::max(0, static_cast<int>(std::floor(window.m_dFirst)));
    const int iEnd =
        std::min(static_cast<int>(vBars.size()), static_cast<int>(std::ceil(window.m_dFirst + window.m_dCount)));
    for (int i = (iFirst + iStep - 1) / iStep * iStep; i < iEnd; i += iStep) {
        const double dCentre = map.m_oX.toPixel(i + 0.5);
        if (dCentre < 0.0 || dCentre > iWidth)
            continue;
        const QString& sName = vBars[static_cast<std::size_t>(i)].m_sName;
        labels.m_vLabels.push_back({i, dCentre, metrics.elidedText(sName, Qt::ElideRight, dLength)});
    }
    return labels;
}

} // namespace gkBase
