#include "ChartFrame.h"

#include "AxisCopy.h"
#include "ElidedLabel.h"

#include <QFontMetricsF>
#include <QFrame>
#include <QGridLayout>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>

namespace gkBase {

namespace {

constexpr int g_iMargin = 10;
/// Room to the right of the chart for the half of the last label that stands out.
constexpr int g_iRightMargin = 20;
constexpr int g_iTitleGap = 6;

} // namespace

ChartFrame::ChartFrame(QChartDrawingArea* pqCanvas, QWidget* pqParent)
    : CanvasFrame(pqCanvas, pqParent)
    , m_pqTitleLabel(new ElidedLabel)
    , m_pqLeftAxis(new QCartesianAxisWidget(QCartesianAxisWidget::Left, nullptr))
    , m_pqBottomAxis(new QCartesianAxisWidget(QCartesianAxisWidget::Bottom, nullptr))
{
    m_pqTitleLabel->setTextFormat(Qt::PlainText);
    m_pqTitleLabel->setContentsMargins(0, 0, 0, 4);
    // A long name must not push the chart wider than the window.
    m_pqTitleLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    frameLayout()->setContentsMargins(6, 6, 12, 6);
    frameLayout()->addWidget(m_pqTitleLabel, 0, 1);
    frameLayout()->addWidget(m_pqLeftAxis, 1, 0);
    frameLayout()->addWidget(m_pqBottomAxis, 2, 1);
    ChartFrame::setBlackBackground(false);
}

void ChartFrame::setBottomWidget(QWidget* pqWidget)
{
    m_pqBottomAxis->hide();
    frameLayout()->addWidget(pqWidget, 2, 1);
}

// ---- looks ----------------------------------------------------------------------------------------------------------

void ChartFrame::setTitle(const QString& sTitle)
{
    CanvasFrame::setTitle(sTitle);
    m_pqTitleLabel->setText(canvas()->headerTitle());
}

void ChartFrame::setBlackBackground(bool bBlack)
{
    CanvasFrame::setBlackBackground(bBlack);
    m_pqTitleLabel->setPalette(frame()->palette());
    m_pqLeftAxis->setAxisColor(canvas()->labelColor());
    m_pqBottomAxis->setAxisColor(canvas()->labelColor());
}

void ChartFrame::setFontSize(double dPointSize)
{
    if (!(dPointSize > 0.0))
        return;
    CanvasFrame::setFontSize(dPointSize);
    QFont oFont = canvas()->font();
    m_pqLeftAxis->setFont(oFont);
    m_pqBottomAxis->setFont(oFont);
    oFont.setBold(true);
    m_pqTitleLabel->setFont(oFont);
}

void ChartFrame::syncAxes()
{
    CanvasFrame::syncAxes();
    const QRect oVisible = canvas()->pixmapRect();
    m_pqLeftAxis->setZoom(canvas()->zoomFactor());
    m_pqBottomAxis->setZoom(canvas()->zoomFactor());
    m_pqLeftAxis->setOffset(oVisible.top());
    m_pqBottomAxis->setOffset(oVisible.left());
}

// ---- pictures -------------------------------------------------------------------------------------------------------

int ChartFrame::bottomThickness(const QRect&, int) const
{
    return m_pqBottomAxis->thickness();
}

void ChartFrame::renderChart(QPainter& painter, const QRect&, const QRect& oChart, const QList<int>& viHorizontal) const
{
    const auto pqBottomAxis = axisOfLength(*m_pqBottomAxis, oChart.width());
    pqBottomAxis->setAxisColor(canvas()->labelColor());
    m_fnRenderCanvas(painter, oChart, pqBottomAxis->gridLines(), viHorizontal);
    pqBottomAxis->drawAxis(painter, oChart);
}

void ChartFrame::renderTo(QPainter& painter, const QRectF& oTarget) const
{
    const QFontMetricsF titleMetrics(m_pqTitleLabel->font(), painter.device());
    const QString sTitle = canvas()->headerTitle();
    const int iTitleHeight = sTitle.isEmpty() ? 0 : static_cast<int>(std::ceil(titleMetrics.height())) + g_iTitleGap;
    const QRect oInner = oTarget.toRect().adjusted(g_iMargin, g_iMargin, -g_iRightMargin, -g_iMargin);
    // How deep the labels below are may depend on the chart's width, and that on the labels of the left axis.
    const int iFirstHeight = oInner.height() - iTitleHeight - bottomThickness(oInner, oInner.width());
    const int iLeft = axisOfLength(*m_pqLeftAxis, iFirstHeight)->thickness();
    const int iWidth = oInner.width() - iLeft;
    const int iHeight = oInner.height() - iTitleHeight - bottomThickness(oInner, iWidth);
    const QRect oChart(oInner.left() + iLeft, oInner.top() + iTitleHeight, iWidth, iHeight);
    if (oChart.width() < 2 || oChart.height() < 2)
        return;
    const auto pqLeftAxis = axisOfLength(*m_pqLeftAxis, iHeight);
    pqLeftAxis->setAxisColor(canvas()->labelColor());

    painter.save();
    renderChart(painter, oInner, oChart, pqLeftAxis->gridLines());
    pqLeftAxis->drawAxis(painter, oChart);
    painter.setPen(canvas()->labelColor());
    painter.setFont(m_pqTitleLabel->font());
    const QRectF oTitle(oChart.left(), oInner.top(), oChart.width(), titleMetrics.height());
    painter.drawText(oTitle, Qt::AlignCenter, titleMetrics.elidedText(sTitle, Qt::ElideRight, oTitle.width()));
    painter.restore();
}

} // namespace gkBase
