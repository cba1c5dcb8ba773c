#pragma once

#include "AxisScale.h"
#include "MissingValue.h"
#include "gkBaseToolsExport.h"

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSize>

#include <vector>

namespace gkBase {

/// One bar of a histogram in data units.
struct HistogramInterval
{
    double m_dLeft = 0.0;
    double m_dRight = 0.0;
    double m_dHeight = 0.0;
};

/// g_dMissingValue = missing.
struct HistogramPercentiles
{
    double m_dP10 = g_dMissingValue;
    double m_dP50 = g_dMissingValue;
    double m_dP90 = g_dMissingValue;
};

/// The ranges that a chart shows, in data units.
struct HistogramBoundaries
{
    QPointF m_oLowerLeft{0.0, 0.0};
    QPointF m_oUpperRight{1.0, 1.0};
};

/// Data to pixels of a chart whose whole picture is the plotting area, as the axes beside it have it.
struct HistogramMap
{
    AxisScale m_oX;
    AxisScale m_oY;

    QPointF toPixel(const QPointF& oData) const { return {m_oX.toPixel(oData.x()), m_oY.toPixel(oData.y())}; }
    QPointF toData(const QPointF& oPixel) const { return {m_oX.toData(oPixel.x()), m_oY.toData(oPixel.y())}; }
};

/// A bar in chart pixels and the interval that it stands for.
struct HistogramBar
{
    QRectF m_oRect;
    int m_iInterval = -1;
};

/// A percentile line in chart pixels.
struct HistogramLine
{
    double m_dX = 0.0;
    int m_iPercent = 0;
};

/// A direction marked on an axis of azimuths, in chart pixels.
struct HistogramDirection
{
    double m_dX = 0.0;
    bool m_bTransverse = false; ///< T, else L
};

/// Widens ranges narrower than 5e-7 so that they can be drawn.
GKBASETOOLS_EXPORT HistogramBoundaries guardedBoundaries(const HistogramBoundaries& boundaries);
/// A degenerate boundary or a chart without pixels maps everything to one point, never to NaN.
GKBASETOOLS_EXPORT HistogramMap histogramMap(const HistogramBoundaries& boundaries, const QSize& oChart);
/// Bars of the intervals with a height above 0, one pixel narrower on each side so that neighbours stay apart, but at
/// least one pixel wide. The rectangle names its first and last pixels, as the outline of a pen of one pixel does.
GKBASETOOLS_EXPORT std::vector<HistogramBar> histogramBars(const std::vector<HistogramInterval>& vIntervals,
                                                           const HistogramMap& map);
/// Interval of the bar at a chart pixel, −1 where there is none. The bars are in the order of their intervals.
GKBASETOOLS_EXPORT int barAt(const std::vector<HistogramBar>& vBars, const QPointF& oPixel);
/// Lines of the percentiles that are neither missing nor switched off nor outside the chart.
GKBASETOOLS_EXPORT std::vector<HistogramLine> percentileLines(const HistogramPercentiles& percentiles, bool bP10,
                                                              bool bP50, bool bP90, const HistogramMap& map);
/// The marks of the T and L directions (degrees, 99999.0: none) on an axis of azimuths in degrees, from left to right.
/// They are brought into the shown range by whole turns, of a range of half a circle, as axes, by half turns; one that
/// stays outside has no mark.
GKBASETOOLS_EXPORT std::vector<HistogramDirection> directionMarks(double dT, double dL, const HistogramMap& map);
/// Rows (0 = topmost) for labels that are centred at vdX (rising) and vdWidths wide, so that labels of one row stay
/// dGap apart.
GKBASETOOLS_EXPORT QList<int> labelRows(const QList<double>& vdX, const QList<double>& vdWidths, double dGap);

} // namespace gkBase
