#pragma once

#include "gkBaseToolsExport.h"

#include <QPoint>
#include <QRect>
#include <QSize>

namespace gkBase {

/// Which part of a magnified chart a widget shows. The chart is zoom times as large as the view; the pan position is a
/// percentage of what does not fit, so that zooming and resizing keep the view's relative place. All sizes are
/// logical pixels.
class GKBASETOOLS_EXPORT ChartViewport
{
public:
    static constexpr double s_dMinZoom = 1.0;
    static constexpr double s_dMaxZoom = 20.0;

    void setViewSize(const QSize& oSize);
    /// Magnifies both directions. Not limited to the wheel's range; zero, negative numbers, NaN and infinity are
    /// ignored (returns false).
    bool setZoom(double dZoom) { return setZoom(dZoom, false); }
    /// Magnifies the height only.
    bool setZoomY(double dZoom) { return setZoom(dZoom, true); }
    /// 0 to 100, clamped.
    void setPercentX(int iPercent);
    void setPercentY(int iPercent);
    /// Brings a pixel of the chart to the top left of the view, as far as the chart reaches, by percentages that need
    /// not be whole.
    void setOffset(const QPoint& oOffset);

    QSize viewSize() const { return m_oViewSize; }
    double zoom() const { return m_dZoom; }
    bool zoomsHeightOnly() const { return m_bHeightOnly; }
    /// The nearest whole percentages.
    int percentX() const;
    int percentY() const;
    /// Size of the whole chart.
    QSize chartSize() const;
    /// Top-left corner of the visible area on the chart; (0, 0) at zoom 1.
    QPoint offset() const;
    QRect visibleRect() const { return {offset(), m_oViewSize}; }

    /// The zoom after turning a wheel by iDelta (120 per notch): 0.1 for each whole notch, kept between 1 and 20.
    static double wheelZoom(double dZoom, int iDelta);

private:
    bool setZoom(double dZoom, bool bHeightOnly);

    QSize m_oViewSize;
    double m_dZoom = 1.0;
    bool m_bHeightOnly = false;
    double m_dPercentX = 50.0;
    double m_dPercentY = 50.0;
};

} // namespace gkBase
