#include "CanvasFrame.h"

#include "MetafileClipboard.h"
#include "QChartDrawingArea.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>

#include <algorithm>

namespace gkBase {

namespace {

constexpr int g_iCentrePercent = 50;
constexpr int g_iPlotMinimumWidth = 120;
constexpr int g_iPlotMinimumHeight = 90;

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

CanvasFrame::CanvasFrame(QChartDrawingArea* pqCanvas, QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqCanvas(pqCanvas)
    , m_pqFrame(new QFrame)
    , m_pqVerticalScrollBar(newPercentBar(Qt::Vertical, tr("Vertical position of the zoomed chart in per cent")))
    , m_pqHorizontalScrollBar(newPercentBar(Qt::Horizontal, tr("Horizontal position of the zoomed chart in per cent")))
    , m_pqCursorPosLabel(new QLabel)
{
    createLayouts();
    connect(m_pqCanvas, &QChartDrawingArea::zoomChanged, this, &CanvasFrame::slotCanvasZoomed);
    connect(m_pqVerticalScrollBar, &QScrollBar::valueChanged, this, &CanvasFrame::slotVerticalSliderChanged);
    connect(m_pqHorizontalScrollBar, &QScrollBar::valueChanged, this, &CanvasFrame::scrollHorizontally);
    CanvasFrame::setBlackBackground(false);
}

void CanvasFrame::createLayouts()
{
    m_pqCanvas->setMinimumSize(g_iPlotMinimumWidth, g_iPlotMinimumHeight);
    m_pqCanvas->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_pqCanvas->installEventFilter(this);
    m_pqFrame->setFrameShape(QFrame::StyledPanel);
    m_pqFrame->setAutoFillBackground(true);
    auto* pqGrid = new QGridLayout(m_pqFrame);
    pqGrid->setSpacing(0);
    pqGrid->addWidget(m_pqCanvas, 1, 1);
    pqGrid->setRowStretch(1, 1);
    pqGrid->setColumnStretch(1, 1);

    m_pqCursorPosLabel->setTextFormat(Qt::PlainText);
    m_pqCursorPosLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_pqCursorPosLabel->setAccessibleName(tr("Cursor position in the chart"));
    // A long read-out must not push the chart wider than the window.
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

QGridLayout* CanvasFrame::frameLayout() const
{
    return static_cast<QGridLayout*>(m_pqFrame->layout());
}

// ---- looks ----------------------------------------------------------------------------------------------------------

void CanvasFrame::setTitle(const QString& sTitle)
{
    m_pqCanvas->changeHeaderTitle(sTitle);
}

void CanvasFrame::setGridIsOn(bool bOn)
{
    m_pqCanvas->setGridIsOn(bOn);
}

void CanvasFrame::setBlackBackground(bool bBlack)
{
    m_pqCanvas->setLabelColor(bBlack ? Qt::white : Qt::black);
    // What surrounds the canvas stands on the chart's background, whatever the desktop's colours are.
    QPalette oPalette = m_pqFrame->palette();
    oPalette.setColor(QPalette::Window, m_pqCanvas->backgroundColor());
    oPalette.setColor(QPalette::WindowText, m_pqCanvas->labelColor());
    m_pqFrame->setPalette(oPalette);
}

void CanvasFrame::setFontSize(double dPointSize)
{
    if (!(dPointSize > 0.0))
        return;
    QFont oFont = font();
    oFont.setPointSizeF(dPointSize);
    m_pqCanvas->setFont(oFont);
}

void CanvasFrame::setCursorText(const QString& sText)
{
    m_pqCursorPosLabel->setText(sText);
}

void CanvasFrame::setChartEnabled(bool bEnabled)
{
    m_pqFrame->setEnabled(bEnabled);
    m_pqHorizontalScrollBar->setEnabled(bEnabled);
    m_pqVerticalScrollBar->setEnabled(bEnabled);
}

// ---- zoom and pan ---------------------------------------------------------------------------------------------------

void CanvasFrame::setZoom(double dZoom)
{
    if (m_pqCanvas->zoomFactor() != dZoom)
        m_pqCanvas->zoom(dZoom);
    syncAxes();
}

void CanvasFrame::slotCanvasZoomed(double dZoom)
{
    syncAxes();
    emit zoomChanged(dZoom);
}

void CanvasFrame::slotVerticalSliderChanged(int iPercent)
{
    m_pqCanvas->yoffset(iPercent);
    syncAxes();
}

void CanvasFrame::scrollHorizontally(int iPosition)
{
    m_pqCanvas->xoffset(iPosition);
    syncAxes();
}

void CanvasFrame::syncAxes()
{
    const bool bZoomed = m_pqCanvas->zoomFactor() > 1.0;
    m_pqVerticalScrollBar->setVisible(bZoomed);
    m_pqHorizontalScrollBar->setVisible(bZoomed);
    // Per cent of what does not fit: the handle is as long as the visible share.
    const int iPage = std::max(1, static_cast<int>(100.0 / std::max(1e-6, m_pqCanvas->zoomFactor() - 1.0)));
    m_pqVerticalScrollBar->setPageStep(iPage);
    m_pqHorizontalScrollBar->setPageStep(iPage);
}

bool CanvasFrame::eventFilter(QObject* pqWatched, QEvent* pEvent)
{
    // The offsets follow from the percentages and the canvas's new size.
    if (pqWatched == m_pqCanvas && pEvent->type() == QEvent::Resize)
        syncAxes();
    return QWidget::eventFilter(pqWatched, pEvent);
}

// ---- pictures -------------------------------------------------------------------------------------------------------

QPixmap CanvasFrame::grabChart()
{
    return m_pqFrame->grab();
}

QSize CanvasFrame::pictureSize() const
{
    // A frame that was never shown may be smaller than a chart needs.
    return m_pqFrame->size().expandedTo(m_pqFrame->minimumSizeHint());
}

ChartPicture CanvasFrame::picture() const
{
    return {m_pqCanvas->backgroundColor(), m_pqCanvas->headerTitle(),
            [this](QPainter& painter, const QRectF& oTarget) { renderTo(painter, oTarget); }};
}

void CanvasFrame::copyMetafileToClipboard() const
{
    gkBase::copyMetafileToClipboard(ChartExporter::metafile(pictureSize(), picture()), this);
}

} // namespace gkBase
