#pragma once

#include "gkBaseToolsExport.h"

#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QRegion>
#include <QSize>

namespace gkBase {

/// The pixels of a chart that may be much larger than the screen. Up to a memory budget the whole chart is held, so
/// that panning only copies; above it a tile around the visible part is, and a pan beyond the tile moves the pixels
/// that stay and asks for the strips that come in.
///
/// Rectangles are logical pixels of the chart; the pixmap has the device pixel ratio.
class GKBASETOOLS_EXPORT ChartBackingStore
{
public:
    /// 48 MB: a full-HD chart at zoom 2.4, or a tile with a margin of half the view on each side.
    static constexpr qint64 s_iDefaultBudget = 48LL * 1024 * 1024;

    explicit ChartBackingStore(qint64 iBudgetBytes = s_iDefaultBudget)
        : m_iBudget(iBudgetBytes)
    {
    }

    /// The part of the chart to hold: everything when that fits into the budget, otherwise the visible part with as
    /// much margin as fits, at most half the view on each side, moved inside the chart. Never less than what is seen.
    static QRect coverageFor(const QSize& oChart, const QRect& oVisible, qreal dDevicePixelRatio, qint64 iBudget);

    /// Makes room for the visible part and forgets all pixels. Returns what must be drawn: the whole coverage.
    QRegion reset(const QSize& oChart, const QRect& oVisible, qreal dDevicePixelRatio);
    /// After a pan: returns what must be drawn; empty when the held part still covers the view.
    QRegion moveTo(const QRect& oVisible);

    bool covers(const QRect& oVisible) const;
    QRect coverage() const { return m_oCoverage; }
    /// The chart that the last reset() was for.
    QSize chartSize() const { return m_oChart; }
    qreal devicePixelRatio() const { return m_dDevicePixelRatio; }
    QPixmap& pixmap() { return m_oPixmap; }
    const QPixmap& pixmap() const { return m_oPixmap; }
    static qint64 bytes(const QSize& oSize, qreal dDevicePixelRatio);
    qint64 bytes() const { return bytes(m_oCoverage.size(), m_dDevicePixelRatio); }

private:
    void allocate(const QRect& oCoverage);

    qint64 m_iBudget;
    QSize m_oChart;
    QRect m_oCoverage;
    qreal m_dDevicePixelRatio = 1.0;
    QPixmap m_oPixmap;
};

} // namespace gkBase
