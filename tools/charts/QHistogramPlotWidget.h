#pragma once

#include "HistogramGeometry.h"
#include "QChartDrawingArea.h"
#include "gkBaseToolsExport.h"

#include <QList>
#include <QPointer>

#include <vector>

class QCartesianAxisWidget;

namespace gkBase {

class QHistogramItemModel;

/// The canvas of the histogram: bars over intervals, percentile lines, grid and, on azimuths, the T and L directions of
/// a dipmeter analysis. Data units are model units.
class GKBASETOOLS_EXPORT QHistogramPlotWidget : public QChartDrawingArea
{
    Q_OBJECT
public:
    explicit QHistogramPlotWidget(QWidget* pqParent = nullptr, const QString& sName = QString());

    /// Not owned; may be deleted while the canvas lives.
    void setHistogramItemModel(QHistogramItemModel* pModel);
    /// The axes that stand beside the canvas, for drawAxis(). Not owned; null for none.
    void setAxes(QCartesianAxisWidget* pqLeft, QCartesianAxisWidget* pqBottom);

    /// The shown range. A range narrower than 5e-7 is widened; boundaries() tells what came out.
    void setBoundaries(QPointF oLowerLeft, QPointF oUpperRight);
    HistogramBoundaries boundaries() const { return m_oBoundaries; }
    /// The percentiles to mark (99999.0: none) and the colour of their lines.
    void setStatisticPoints(double dP10, double dP50, double dP90, const QColor& oColor);
    void setShowP10(bool bShow);
    void setShowP50(bool bShow);
    void setShowP90(bool bShow);
    /// The directions to mark on an axis of azimuths, in degrees; 99999.0 for none, as at first.
    void setTandLdirection(const double& dT, const double& dL);
    /// The marks of the present layout, from left to right.
    const std::vector<HistogramDirection>& directionMarks() const { return m_vDirections; }

    QPointF transformInPixelPoint(const QPointF& oPoint) override;
    /// Chart pixels to data units.
    QPointF transformInDataPoint(const QPointF& oPixel) const;
    /// Interval of the bar at a chart pixel, −1 where there is none.
    virtual int intervalAt(const QPointF& oPixel) const { return barAt(m_vBars, oPixel); }
    /// Tick positions at which the grid is drawn, in chart pixels.
    QList<int> verticalGridLines() const { return m_viVerticalGridLines; }
    QList<int> horizontalGridLines() const { return m_viHorizontalGridLines; }
    /// Draws the whole chart at another size with the grid lines that belong to it.
    void renderWithGrid(QPainter& painter, const QRect& oTarget, const QList<int>& viVertical,
                        const QList<int>& viHorizontal);

    void drawChart(QPainter& painter) override;
    void drawAxis(QPainter& painter, QRect oVisibleArea) override;
    void layoutChart() override;
    void drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea) override;

public slots:
    void verticalGridLinesChanged(const QList<int>& viPositions);
    void horizontalGridLinesChanged(const QList<int>& viPositions);

protected:
    virtual void drawHistogram(QPainter* pPainter);
    virtual void drawStatisticMeasures(QPainter* pPainter);
    /// T as a continuous line, L as a dashed one.
    virtual void drawTandLdirection(QPainter* pPainter);
    /// Grid lines at the axes' ticks and the frame of the plot.
    virtual void drawAxes(QPainter* pPainter);
    /// What the tool tip of an interval says, as plain text; empty for none.
    virtual QString intervalToolTip(int iInterval) const;

    bool event(QEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void leaveEvent(QEvent* pEvent) override;

    QHistogramItemModel* histogramItemModel() const;
    HistogramMap map() const { return histogramMap(m_oBoundaries, chartSize()); }
    /// Says in the middle of the chart that there is nothing to show.
    void drawNoValues(QPainter& painter, const QRect& oVisibleArea);

private:
    /// A name at the upper end of a vertical line.
    struct LineLabel
    {
        double m_dX; ///< chart pixels
        QString m_sText;
        bool m_bDirection; ///< T or L, else a percentile
    };
    std::vector<LineLabel> lineLabels() const;
    void drawLineLabels(QPainter& painter, const QRect& oVisibleArea) const;

    QPointer<QHistogramItemModel> m_pModel;        ///< not owned
    QPointer<QCartesianAxisWidget> m_pqLeftAxis;   ///< not owned
    QPointer<QCartesianAxisWidget> m_pqBottomAxis; ///< not owned
    HistogramBoundaries m_oBoundaries;
    HistogramPercentiles m_oPercentiles;
    QColor m_oPercentileColor = Qt::white;
    bool m_bShowP10 = true;
    bool m_bShowP50 = true;
    bool m_bShowP90 = true;
    double m_dT = g_dMissingValue;
    double m_dL = g_dMissingValue;
    QList<int> m_viVerticalGridLines;
    QList<int> m_viHorizontalGridLines;
    std::vector<HistogramBar> m_vBars;
    std::vector<HistogramLine> m_vLines;
    std::vector<HistogramDirection> m_vDirections;
};

} // namespace gkBase
