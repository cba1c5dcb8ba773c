#pragma once

#include "ChartExporter.h"
#include "gkBaseToolsExport.h"

#include <QPixmap>
#include <QString>
#include <QWidget>

class QFrame;
class QGridLayout;
class QLabel;
class QPainter;
class QRectF;
class QScrollBar;

namespace gkBase {

class QChartDrawingArea;

/// What stands around every chart canvas: a frame on the chart's background, scroll bars that come with magnification
/// and a line of text for the cursor. Subclasses add titles and axes, and draw it all on any device.
class GKBASETOOLS_EXPORT CanvasFrame : public QWidget
{
    Q_OBJECT
public:
    QChartDrawingArea* canvas() const { return m_pqCanvas; }

    /// Shown as "chart name: title"; empty for none.
    virtual void setTitle(const QString& sTitle);
    void setGridIsOn(bool bOn);
    /// White texts on black, or black texts on white: canvas and what stands beside it.
    virtual void setBlackBackground(bool bBlack);
    /// Size of all texts of the chart; nothing for a size not above 0.
    virtual void setFontSize(double dPointSize);
    /// Magnifies the canvas; scroll bars and axes follow.
    void setZoom(double dZoom);
    /// The line below the chart.
    void setCursorText(const QString& sText);
    /// The chart and its scroll bars respond or are grayed out.
    void setChartEnabled(bool bEnabled);

    /// The visible part of the chart with what belongs to it, as shown.
    QPixmap grabChart();
    /// Draws the whole chart with what belongs to it into the rectangle of any device; the frame need not be shown.
    virtual void renderTo(QPainter& painter, const QRectF& oTarget) const = 0;
    /// What renderTo() draws, for files, printers and metafiles; not to be used after the frame is gone.
    ChartPicture picture() const;
    /// Logical size at which a picture looks as the frame does now.
    QSize pictureSize() const;
    /// Puts what renderTo() draws, at pictureSize(), on the clipboard as an enhanced metafile.
    void copyMetafileToClipboard() const;

signals:
    /// The user magnified the canvas with the wheel; axes and scroll bars have followed.
    void zoomChanged(double dZoom);

protected:
    /// The frame becomes the canvas's parent.
    explicit CanvasFrame(QChartDrawingArea* pqCanvas, QWidget* pqParent = nullptr);

    QFrame* frame() const { return m_pqFrame; }
    /// Of the frame; the canvas stands in row 1, column 1 and takes all room.
    QGridLayout* frameLayout() const;
    QScrollBar* horizontalScrollBar() const { return m_pqHorizontalScrollBar; }
    QScrollBar* verticalScrollBar() const { return m_pqVerticalScrollBar; }
    /// What follows the canvas takes over what it shows; here the scroll bars.
    virtual void syncAxes();
    /// The horizontal scroll bar was moved; its range is per cent unless syncAxes() gives it another.
    virtual void scrollHorizontally(int iPosition);

    bool eventFilter(QObject* pqWatched, QEvent* pEvent) override;

private:
    void createLayouts();
    void slotCanvasZoomed(double dZoom);
    void slotVerticalSliderChanged(int iPercent);

    QChartDrawingArea* m_pqCanvas;
    QFrame* m_pqFrame;
    QScrollBar* m_pqVerticalScrollBar;
    QScrollBar* m_pqHorizontalScrollBar;
    QLabel* m_pqCursorPosLabel;
};

} // namespace gkBase
