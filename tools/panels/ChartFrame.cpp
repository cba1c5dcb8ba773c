#include "ChartFrame.h"

#include "AxisCopy.h"
#include "ChartExporter.h"
#include "ElidedLabel.h"
#include "MetafileClipboard.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <memory>

namespace gkBase {

namespace {

constexpr int g_iCentrePercent = 50;
constexpr int g_iPlotMinimumWidth = 120;
constexpr int g_iPlotMinimumHeight = 90;
constexpr int g_iMargin = 10;
/// Room to the right of the chart for the half of the last label that stands out.
constexpr int g_iRightMargin = 20;
constexpr int g_iTitleGap = 6;

QScrollBar* newPercentBar(Qt::Orientation eOrientation, const QString& sName)
{
    auto* pqBar = new QScrollBar(eOrientation);
    pqBar->setRange(0, 100);
    pqBar->setValue(g_iCentrePercent);
    pqBar->setAccessibleName(sName);
    pqBar->hide();
    return pqBar;
}

} // namespace

ChartFrame::ChartFrame(QChartDrawingArea* pqCanvas, QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqCanvas(pqCanvas)
    , m_pqFrame(new QFrame)
    , m_pqTitleLabel(new ElidedLabel)
    , m_pqLeftAxis(new QCartesianAxisWidget(QCartesianAxisWidget::Left, nullptr))
    , m_pqBottomAxis(new QCartesianAxisWidget(QCartesianAxisWidget::Bottom, nullptr))
    , m_pqVerticalScrollBar(newPercentBar(Qt::Vertical, tr("Vertical position of the zoomed chart in per cent")))
    , m_pqHorizontalScrollBar(newPercentBar(Qt::Horizontal, tr("Horizontal position of the zoomed chart in per cent")))
    , m_pqCursorPosLabel(new QLabel)
{
    createChart();
    createSurroundings();
    connect(m_pqCanvas, &QChartDrawingArea::zoomChanged, this, &ChartFrame::slotCanvasZoomed);
    connect(m_pqVerticalScrollBar, &QScrollBar::valueChanged, this, &ChartFrame::slotVerticalSliderChanged);
    connect(m_pqHorizontalScrollBar, &QScrollBar::valueChanged, this, &ChartFrame::scrollHorizontally);
    ChartFrame::setBlackBackground(false);
}

void ChartFrame::createChart()
{
    m_pqCanvas->setMinimumSize(g_iPlotMinimumWidth, g_iPlotMinimumHeight);
    m_pqCanvas->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_pqCanvas->installEventFilter(this);
    m_pqTitleLabel->setTextFormat(Qt::PlainText);
    m_pqTitleLabel->setContentsMargins(0, 0, 0, 4);
    // A long name must not push the chart wider than the window.
    m_pqTitleLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

    m_pqFrame->setFrameShape(QFrame::StyledPanel);
    m_pqFrame->setAutoFillBackground(true);
    auto* pqGrid = new QGridLayout(m_pqFrame);
    pqGrid->setSpacing(0);
    pqGrid->setContentsMargins(6, 6, 12, 6);
    pqGrid->addWidget(m_pqTitleLabel, 0, 1);
    pqGrid->addWidget(m_pqLeftAxis, 1, 0);
    pqGrid->addWidget(m_pqCanvas, 1, 1);
    pqGrid->addWidget(m_pqBottomAxis, 2, 1);
    pqGrid->setRowStretch(1, 1);
    pqGrid->setColumnStretch(1, 1);
}

void ChartFrame::createSurroundings()
{
    m_pqCursorPosLabel->setTextFormat(Qt::PlainText);
    m_pqCursorPosLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_pqCursorPosLabel->setAccessibleName(tr("Cursor position in the chart"));
    // Neither must a long read-out.
    m_pqCursorPosLabel->setMinimumWidth(1);

    auto* pqOuter = new QGridLayout(this);
    pqOuter->setContentsMargins(0, 0, 0, 0);
    pqOuter->setSpacing(2);
    pqOuter->addWidget(m_pqFrame, 0, 0);
    pqOuter->addWidget(m_pqVerticalScrollBar, 0, 1);
    pqOuter->addWidget(m_pqHorizontalScrollBar, 1, 0);
    pqOuter->addWidget(m_pqCursorPosLabel, 2, 0);
    pqOuter->setRowStretch(0, 1);
    pqOuter->setColumnStretch(0, 1);
}

void ChartFrame::setBottomWidget(QWidget* pqWidget)
{
    m_pqBottomAxis->hide();
    static_cast<QGridLayout*>(m_pqFrame->layout())->addWidget(pqWidget, 2, 1);
}

// ---- looks ----------------------------------------------------------------------------------------------------------

void ChartFrame::setTitle(const QString& sTitle)
{
    m_pqCanvas->changeHeaderTitle(sTitle);
    m_pqTitleLabel->setText(m_pqCanvas->headerTitle());
}

void ChartFrame::setBlackBackground(bool bBlack)
{
    m_pqCanvas->setLabelColor(bBlack ? Qt::white : Qt::black);
    // The axes and the title stand on the chart's background, whatever the desktop's colours are.
    QPalette oPalette = m_pqFrame->palette();
    oPalette.setColor(QPalette::Window, m_pqCanvas->backgroundColor());
    oPalette.setColor(QPalette::WindowText, m_pqCanvas->labelColor());
    m_pqFrame->setPalette(oPalette);
    m_pqTitleLabel->setPalette(oPalette);
    m_pqLeftAxis->setAxisColor(m_pqCanvas->labelColor());
    m_pqBottomAxis->setAxisColor(m_pqCanvas->labelColor());
}

void ChartFrame::setFontSize(double dPointSize)
{
    if (!(dPointSize > 0.0))
        return;
    QFont oFont = font();
    oFont.setPointSizeF(dPointSize);
    m_pqCanvas->setFont(oFont);
    m_pqLeftAxis->setFont(oFont);
    m_pqBottomAxis->setFont(oFont);
    oFont.setBold(true);
    m_pqTitleLabel->setFont(oFont);
}

void ChartFrame::setCursorText(const QString& sText)
{
    m_pqCursorPosLabel->setText(sText);
}

void ChartFrame::setChartEnabled(bool bEnabled)
{
    m_pqFrame->setEnabled(bEnabled);
    m_pqHorizontalScrollBar->setEnabled(bEnabled);
    m_pqVerticalScrollBar->setEnabled(bEnabled);
}

// ---- zoom and pan ---------------------------------------------------------------------------------------------------

void ChartFrame::setZoom(double dZoom)
{
    if (m_pqCanvas->zoomFactor() != dZoom)
        m_pqCanvas->zoom(dZoom);
    syncAxes();
}

void ChartFrame::slotCanvasZoomed(double dZoom)
{
    syncAxes();
    emit zoomChanged(dZoom);
}

void ChartFrame::slotVerticalSliderChanged(int iPercent)
{
    m_pqCanvas->yoffset(iPercent);
    syncAxes();
}

void ChartFrame::scrollHorizontally(int iPosition)
{
    m_pqCanvas->xoffset(iPosition);
    syncAxes();
}

void ChartFrame::syncAxes()
{
    const QRect oVisible = m_pqCanvas->pixmapRect();
    m_pqLeftAxis->setZoom(m_pqCanvas->zoomFactor());
    m_pqBottomAxis->setZoom(m_pqCanvas->zoomFactor());
    m_pqLeftAxis->setOffset(oVisible.top());
    m_pqBottomAxis->setOffset(oVisible.left());
    const bool bZoomed = m_pqCanvas->zoomFactor() > 1.0;
    m_pqVerticalScrollBar->setVisible(bZoomed);
    m_pqHorizontalScrollBar->setVisible(bZoomed);
    // Per cent of what does not fit: the handle is as long as the visible share.
    const int iPage = std::max(1, static_cast<int>(100.0 / std::max(1e-6, m_pqCanvas->zoomFactor() - 1.0)));
    m_pqVerticalScrollBar->setPageStep(iPage);
    m_pqHorizontalScrollBar->setPageStep(iPage);
}

bool ChartFrame::eventFilter(QObject* pqWatched, QEvent* pEvent)
{
    // The offsets follow from the percentages and the canvas's new size.
    if (pqWatched == m_pqCanvas && pEvent->type() == QEvent::Resize)
        syncAxes();
    return QWidget::eventFilter(pqWatched, pEvent);
}

// ---- pictures -------------------------------------------------------------------------------------------------------

QPixmap ChartFrame::grabChart()
{
    return m_pqFrame->grab();
}

int ChartFrame::bottomThickness(const QRect&, int) const
{
    return m_pqBottomAxis->thickness();
}

void ChartFrame::renderChart(QPainter& painter, const QRect&, const QRect& oChart, const QList<int>& viHorizontal) const
{
    const auto pqBottomAxis = axisOfLength(*m_pqBottomAxis, oChart.width());
    pqBottomAxis->setAxisColor(m_pqCanvas->labelColor());
    m_fnRenderCanvas(painter, oChart, pqBottomAxis->gridLines(), viHorizontal);
    pqBottomAxis->drawAxis(painter, oChart);
}

void ChartFrame::renderTo(QPainter& painter, const QRectF& oTarget) const
{
    const QFontMetricsF titleMetrics(m_pqTitleLabel->font(), painter.device());
    const QString sTitle = m_pqCanvas->headerTitle();
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
    pqLeftAxis->setAxisColor(m_pqCanvas->labelColor());

    painter.save();
    renderChart(painter, oInner, oChart, pqLeftAxis->gridLines());
    pqLeftAxis->drawAxis(painter, oChart);
    painter.setPen(m_pqCanvas->labelColor());
    painter.setFont(m_pqTitleLabel->font());
    const QRectF oTitle(oChart.left(), oInner.top(), oChart.width(), titleMetrics.height());
    painter.drawText(oTitle, Qt::AlignCenter, titleMetrics.elidedText(sTitle, Qt::ElideRight, oTitle.width()));
    painter.restore();
}

QSize ChartFrame::pictureSize() const
{
    // A frame that was never shown may be smaller than a chart needs.
    return m_pqFrame->size().expandedTo(m_pqFrame->minimumSizeHint());
}

void ChartFrame::copyMetafileToClipboard() const
{
    const ChartPicture picture{m_pqCanvas->backgroundColor(), m_pqCanvas->headerTitle(),
                               [this](QPainter& painter, const QRectF& oTarget) { renderTo(painter, oTarget); }};
    gkBase::copyMetafileToClipboard(ChartExporter::metafile(pictureSize(), picture), this);
}

} // namespace gkBase
