#pragma once

#include "CanvasFrame.h"
#include "QCartesianAxisWidget.h"
#include "QChartDrawingArea.h"
#include "gkBaseToolsExport.h"

#include <QList>
#include <QString>

#include <functional>

class QPainter;
class QRect;
class QRectF;

namespace gkBase {

class ElidedLabel;

/// A chart canvas with a title above, an axis to the left and one below. Keeps axes, grid and scroll bars in step with
/// the canvas and draws the chart with title and axes on any device.
class GKBASETOOLS_EXPORT ChartFrame : public CanvasFrame
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

    QCartesianAxisWidget* leftAxis() const { return m_pqLeftAxis; }
    QCartesianAxisWidget* bottomAxis() const { return m_pqBottomAxis; }

    void setTitle(const QString& sTitle) override;
    void setBlackBackground(bool bBlack) override;
    void setFontSize(double dPointSize) override;
    void renderTo(QPainter& painter, const QRectF& oTarget) const override;

protected:
    /// Puts a widget in the place of the bottom axis, which is hidden. The frame becomes its parent.
    void setBottomWidget(QWidget* pqWidget);
    void syncAxes() override;
    /// Pixels that renderChart() needs below a chart of that width on a page.
    virtual int bottomThickness(const QRect& oPage, int iChartWidth) const;
    /// Draws the whole chart with the horizontal lines of its grid, and what stands below it.
    virtual void renderChart(QPainter& painter, const QRect& oPage, const QRect& oChart,
                             const QList<int>& viHorizontal) const;

private:
    using RenderCanvas = std::function<void(QPainter&, const QRect&, const QList<int>&, const QList<int>&)>;

    ChartFrame(QChartDrawingArea* pqCanvas, QWidget* pqParent);

    RenderCanvas m_fnRenderCanvas;
    ElidedLabel* m_pqTitleLabel;
    QCartesianAxisWidget* m_pqLeftAxis;
    QCartesianAxisWidget* m_pqBottomAxis;
};

} // namespace gkBase
