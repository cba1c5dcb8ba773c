#include "HistogramGeometry.h"

#include "Angles.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace gkBase {

namespace {

constexpr double g_dSmallestWidth = 5e-7;
/// Half the range around a single point.
constexpr double g_dPointMargin = 10.0;
constexpr double g_dHalfTurn = 180.0;

bool isNarrow(double dFrom, double dTo)
{
    return std::abs(dTo - dFrom) < g_dSmallestWidth;
}

} // namespace

HistogramBoundaries guardedBoundaries(const HistogramBoundaries& boundaries)
{
    HistogramBoundaries guarded = boundaries;
    const double dXMax = boundaries.m_oUpperRight.x();
    const double dYMax = boundaries.m_oUpperRight.y();
    const bool bNarrowX = isNarrow(boundaries.m_oLowerLeft.x(), dXMax);
    const bool bNarrowY = isNarrow(boundaries.m_oLowerLeft.y(), dYMax);
    if (bNarrowX && bNarrowY) {
        // The centre passes through single precision, as it always has.
        const double dX = static_cast<double>(static_cast<float>(dXMax));
        const double dY = static_cast<double>(static_cast<float>(dYMax));
        guarded.m_oLowerLeft = QPointF(dX - g_dPointMargin, dY - g_dPointMargin);
        guarded.m_oUpperRight = QPointF(dX + g_dPointMargin, dY + g_dPointMargin);
    } else if (bNarrowX) {
        // Deliberately the other axis's maximum: one value gets a bar about as wide as it is high.
        guarded.m_oLowerLeft.setX(dXMax - dYMax / 2.0);
        guarded.m_oUpperRight.setX(dXMax + dYMax / 2.0);
    } else if (bNarrowY) {
        guarded.m_oLowerLeft.setY(dYMax - dXMax / 2.0);
        guarded.m_oUpperRight.setY(dYMax + dXMax / 2.0);
    }
    return guarded;
}

HistogramMap histogramMap(const HistogramBoundaries& boundaries, const QSize& oChart)
{
    return {AxisScale(boundaries.m_oLowerLeft.x(), boundaries.m_oUpperRight.x(), oChart.width(), Qt::Horizontal),
            AxisScale(boundaries.m_oLowerLeft.y(), boundaries.m_oUpperRight.y(), oChart.height(), Qt::Vertical)};
}

std::vector<HistogramBar> histogramBars(const std::vector<HistogramInterval>& vIntervals, const HistogramMap& map)
{
    std::vector<HistogramBar> vBars;
    vBars.reserve(vIntervals.size());
    const int iBottom = map.m_oY.toPixelIndex(0.0);
    for (std::size_t i = 0; i < vIntervals.size(); ++i) {
        const HistogramInterval& interval = vIntervals[i];
        if (!(interval.m_dHeight > 0.0)) // NaN as well
            continue;
        const int iLeft = map.m_oX.toPixelIndex(interval.m_dLeft);
        const int iRight = map.m_oX.toPixelIndex(interval.m_dRight);
        const int iTop = map.m_oY.toPixelIndex(interval.m_dHeight);
        const bool bFits = iRight - iLeft >= 2;
        const int iFirst = bFits ? iLeft + 1 : iLeft;
        const int iLast = bFits ? iRight - 1 : iFirst;
        vBars.push_back({QRectF(iFirst, iTop, iLast - iFirst, iBottom - iTop), static_cast<int>(i)});
    }
    return vBars;
}

int barAt(const std::vector<HistogramBar>& vBars, const QPointF& oPixel)
{
    const double dX = std::floor(oPixel.x());
    const double dY = std::floor(oPixel.y());
    const auto itAfter = std::upper_bound(vBars.begin(), vBars.end(), dX, [](double dPixel, const HistogramBar& bar) {
        return dPixel < bar.m_oRect.left();
    });
    if (itAfter == vBars.begin())
        return -1;
    const HistogramBar& bar = *std::prev(itAfter);
    const bool bInside = dX <= bar.m_oRect.right() && dY >= bar.m_oRect.top() && dY <= bar.m_oRect.bottom();
    return bInside ? bar.m_iInterval : -1;
}

std::vector<HistogramLine> percentileLines(const HistogramPercentiles& percentiles, bool bP10, bool bP50, bool bP90,
                                           const HistogramMap& map)
{
    std::vector<HistogramLine> vLines;
    const auto add = [&](bool bShow, double dValue, int iPercent) {
        if (!bShow || isMissing(dValue) || dValue < map.m_oX.minValue() || dValue > map.m_oX.maxValue())
            return;
        vLines.push_back({static_cast<double>(map.m_oX.toPixelIndex(dValue)), iPercent});
    };
    add(bP10, percentiles.m_dP10, 10);
    add(bP50, percentiles.m_dP50, 50);
    add(bP90, percentiles.m_dP90, 90);
    return vLines;
}

std::vector<HistogramDirection> directionMarks(double dT, double dL, const HistogramMap& map)
{
    const double dFrom = map.m_oX.minValue();
    const double dPeriod = map.m_oX.maxValue() - dFrom > g_dHalfTurn ? 2.0 * g_dHalfTurn : g_dHalfTurn;
    std::vector<HistogramDirection> vMarks;
    const auto add = [&](double dDirection, bool bTransverse) {
        if (isMissing(dDirection))
            return;
        const double dShown = dFrom + wrapAngle(dDirection - dFrom, dPeriod);
        if (dShown <= map.m_oX.maxValue())
            vMarks.push_back({static_cast<double>(map.m_oX.toPixelIndex(dShown)), bTransverse});
    };
    add(dT, true);
    add(dL, false);
    if (vMarks.size() == 2 && vMarks[1].m_dX < vMarks[0].m_dX)
        std::swap(vMarks[0], vMarks[1]);
    return vMarks;
}

QList<int> labelRows(const QList<double>& vdX, const QList<double>& vdWidths, double dGap)
{
    QList<int> viRows;
    QList<double> vdRowEnds;
    for (qsizetype i = 0; i < qMin(vdX.size(), vdWidths.size()); ++i) {
        const double dStart = vdX[i] - vdWidths[i] / 2.0;
        qsizetype iRow = 0;
        while (iRow < vdRowEnds.size() && dStart < vdRowEnds[iRow] + dGap)
            ++iRow;
        if (iRow == vdRowEnds.size())
            vdRowEnds.append(0.0);
        vdRowEnds[iRow] = dStart + vdWidths[i];
        viRows.append(static_cast<int>(iRow));
    }
    return viRows;
}

} // namespace gkBase
