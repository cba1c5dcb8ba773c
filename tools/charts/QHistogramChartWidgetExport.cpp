// The histogram panel's picture for files: title, axes and the whole chart at any size.

#include "ChartExporter.h"
#include "QCartesianAxisWidget.h"
#include "QHistogramChartWidget.h"
#include "QHistogramPlotWidget.h"

#include <QFontMetricsF>
#include <QLabel>
#include <QPainter>

#include <cmath>
#include <memory>

namespace gkBase {

namespace {

constexpr int g_iMargin = 10;
/// Room to the right of the chart for the half of the last label that stands out.
constexpr int g_iRightMargin = 20;
constexpr int g_iTitleGap = 6;

/// The same axis for a whole chart of another length, never shown.
std::unique_ptr<QCartesianAxisWidget> axisOfLength(const QCartesianAxisWidget& oAxis, int iLength)
{
    auto pqAxis = std::make_unique<QCartesianAxisWidget>(oAxis.position(), nullptr);
    pqAxis->setFont(oAxis.font());
    pqAxis->setTitle(oAxis.title());
    pqAxis->setDrawTitle(oAxis.drawTitle());
    pqAxis->setLabelOrientation(oAxis.labelOrientation());
    pqAxis->setUnitManager(oAxis.unitManager());
    pqAxis->setInverted(oAxis.isInverted());
    pqAxis->setRange(oAxis.minValue(), oAxis.maxValue());
    const bool bVertical = oAxis.orientation() == Qt::Vertical;
    pqAxis->resize(bVertical ? 1 : iLength, bVertical ? iLength : 1);
    pqAxis->redraw(); // a hidden widget gets no resize event
    return pqAxis;
}

} // namespace

void QHistogramChartWidget::renderTo(QPainter& painter, const QRectF& oTarget)
{
    const QFontMetricsF titleMetrics(m_pqTitleLabel->font(), painter.device());
    const QString sTitle = m_pqPlot->headerTitle();
    const int iTitleHeight = sTitle.isEmpty() ? 0 : static_cast<int>(std::ceil(titleMetrics.height())) + g_iTitleGap;
    const QRect oInner = oTarget.toRect().adjusted(g_iMargin, g_iMargin, -g_iRightMargin, -g_iMargin);
    const int iHeight = oInner.height() - iTitleHeight - m_pqBottomAxis->thickness();
    const auto pqLeftAxis = axisOfLength(*m_pqLeftAxis, iHeight);
    const int iLeft = pqLeftAxis->thickness();
    const QRect oChart(oInner.left() + iLeft, oInner.top() + iTitleHeight, oInner.width() - iLeft, iHeight);
    if (oChart.width() < 2 || oChart.height() < 2)
        return;
    const auto pqBottomAxis = axisOfLength(*m_pqBottomAxis, oChart.width());
    pqLeftAxis->setAxisColor(m_pqPlot->labelColor());
    pqBottomAxis->setAxisColor(m_pqPlot->labelColor());

    painter.save();
    m_pqPlot->renderWithGrid(painter, oChart, pqBottomAxis->gridLines(), pqLeftAxis->gridLines());
    pqLeftAxis->drawAxis(painter, oChart);
    pqBottomAxis->drawAxis(painter, oChart);
    painter.setPen(m_pqPlot->labelColor());
    painter.setFont(m_pqTitleLabel->font());
    const QRectF oTitle(oChart.left(), oInner.top(), oChart.width(), titleMetrics.height());
    painter.drawText(oTitle, Qt::AlignCenter, titleMetrics.elidedText(sTitle, Qt::ElideRight, oTitle.width()));
    painter.restore();
}

bool QHistogramChartWidget::exportChart(const QString& sPath, const QSize& oSize, QString* psError)
{
    return ChartExporter::write(
        sPath, oSize, m_pqPlot->backgroundColor(), m_pqPlot->headerTitle(),
        [this](QPainter& painter, const QRectF& oRect) { renderTo(painter, oRect); }, psError);
}

} // namespace gkBase
