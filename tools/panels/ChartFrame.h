#pragma once

#include "QCartesianAxisWidget.h"
#include "QChartDrawingArea.h"
#include "gkBaseToolsExport.h"

#include <QList>
#include <QPixmap>
#include <QString>
#include <QWidget>

#include <functional>

class QFrame;
class QLabel;
class QPainter;
class QRect;
class QRectF;
class QScrollBar;

namespace gkBase {

class ElidedLabel;

/// A chart canvas with what stands around it: a title above, an axis to the left and one below, scroll bars that come
/// with magnification, and a line of text for the cursor. Keeps axes, grid and scroll bars in step with the canvas
/// and draws the chart with title and axes on any device.
class GKBASETOOLS_EXPORT ChartFrame : public QWidget
{
    Q_OBJECT
public:
    /// Canvas: a QChartDrawingArea with setAxes(), renderWithGrid() and slots for the lines of the grid. The frame
    /// becomes its parent.
    template <typename Canvas>
    explicit ChartFrame(Canvas* pqCanvas, QWidget* pqParent = nullptr)
        : ChartFrame(static_cast<QChartDrawingArea*>(pqCanvas), pqParent)
    {
        m_fnRenderCanvas = [pqCanvas](QPainter& painter, const QRect& oTarget, const QList<int>& viVertical,
                                      const QList<int>& viHorizontal) {
            pqCanvas->renderWithGrid(painter, oTarget, viVertical, viHorizontal);
        };
        pqCanvas->setAxes(m_pqLeftAxis, m_pqBottomAxis);
        connect(m_pqLeftAxis, &QCartesianAxisWidget::gridLinesChanged, pqCanvas, &Canvas::horizontalGridLinesChanged);
        connect(m_pqBottomAxis, &QCartesianAxisWidget::gridLinesChanged, pqCanvas, &Canvas::verticalGridLinesChanged);
        pqCanvas->verticalGridLinesChanged(m_pqBottomAxis->gridLines());
        pqCanvas->horizontalGridLinesChanged(m_pqLeftAxis->gridLines());
    }

    QChartDrawingArea* canvas() const { return m_pqCanvas; }
    QCartesianAxisWidget* leftAxis() const { return m_pqLeftAxis; }
    QCartesianAxisWidget* bottomAxis() const { return m_pqBottomAxis; }

    /// Shown as "chart name: title"; empty for none.
    void setTitle(const QString& sTitle);
    void setGridIsOn(bool bOn) { m_pqCanvas->setGridIsOn(bOn); }
    /// White texts on black, or black texts on white: canvas, axes and title.
    virtual void setBlackBackground(bool bBlack);
    /// Size of all texts of the chart; nothing for a size not above 0.
    virtual void setFontSize(double dPointSize);
    /// Magnifies the canvas; the axes follow.
    void setZoom(double dZoom);
    /// The line below the chart.
    void setCursorText(const QString& sText);
    /// Chart, axes and scroll bars respond or are grayed out.
    void setChartEnabled(bool bEnabled);

    /// Title, axes and the visible part of the chart as shown.
    QPixmap grabChart();
    /// Draws title, axes and the whole chart into the rectangle of any device; the frame need not be shown.
    void renderTo(QPainter& painter, const QRectF& oTarget) const;
    /// Logical size at which a picture looks as the frame does now.
    QSize pictureSize() const;
    /// Puts what renderTo() draws, at pictureSize(), on the clipboard as an enhanced metafile.
    void copyMetafileToClipboard() const;

signals:
    /// The user magnified the canvas with the wheel; axes and scroll bars have followed.
    void zoomChanged(double dZoom);

protected:
    /// Puts a widget in the place of the bottom axis, which is hidden. The frame becomes its parent.
    void setBottomWidget(QWidget* pqWidget);
    QScrollBar* horizontalScrollBar() const { return m_pqHorizontalScrollBar; }
    QScrollBar* verticalScrollBar() const { return m_pqVerticalScrollBar; }
    /// Axes and scroll bars take over what the canvas shows.
    virtual void syncAxes();
    /// The horizontal scroll bar was moved; its range is per cent unless syncAxes() gives it another.
    virtual void scrollHorizontally(int iPosition);
    /// Pixels that renderChart() needs below a chart of that width on a page.
    virtual int bottomThickness(const QRect& oPage, int iChartWidth) const;
    /// Draws the whole chart with the horizontal lines of its grid, and what stands below it.
    virtual void renderChart(QPainter& painter, const QRect& oPage, const QRect& oChart,
                             const QList<int>& viHorizontal) const;

    bool eventFilter(QObject* pqWatched, QEvent* pEvent) override;

private:
    using RenderCanvas = std::function<void(QPainter&, const QRect&, const QList<int>&, const QList<int>&)>;

    ChartFrame(QChartDrawingArea* pqCanvas, QWidget* pqParent);

    void createChart();
    void createSurroundings();
    void slotCanvasZoomed(double dZoom);
    void slotVerticalSliderChanged(int iPercent);

    QChartDrawingArea* m_pqCanvas;
    RenderCanvas m_fnRenderCanvas;
    QFrame* m_pqFrame;
    ElidedLabel* m_pqTitleLabel;
    QCartesianAxisWidget* m_pqLeftAxis;
    QCartesianAxisWidget* m_pqBottomAxis;
    QScrollBar* m_pqVerticalScrollBar;
    QScrollBar* m_pqHorizontalScrollBar;
    QLabel* m_pqCursorPosLabel;
};

} // namespace gkBase
