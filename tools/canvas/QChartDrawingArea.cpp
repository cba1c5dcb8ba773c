#include "QChartDrawingArea.h"

#include "MissingValue.h"

#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QWheelEvent>

namespace gkBase {

QChartDrawingArea::QChartDrawingArea(QWidget* pqParent, const QString& sName)
    : QWidget(pqParent)
    , m_oMousePickingPos(g_dMissingValue, g_dMissingValue)
    , m_sChartName(sName)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(sName);
    createActions();
}

QChartDrawingArea::~QChartDrawingArea() = default;

// ---- operations for subclasses --------------------------------------------------------------------------------------

void QChartDrawingArea::setLabelColor(const QColor& oColor)
{
    m_oLabelColor = oColor;
    // Red alone decides: owners pass black or white.
    const bool bOnBlack = oColor.red() != 0;
    m_oBackgroundColor = bOnBlack ? QColor(0, 0, 0) : QColor(255, 255, 255);
    m_oGridColor = bOnBlack ? Qt::lightGray : Qt::gray;
    scheduleRedraw();
}

void QChartDrawingArea::setGridIsOn(bool bOn)
{
    if (bOn == m_bGridIsOn)
        return;
    m_bGridIsOn = bOn;
    scheduleRedraw();
}

void QChartDrawingArea::drawChart(QPainter&) {}

void QChartDrawingArea::drawAxis(QPainter&, QRect) {}

void QChartDrawingArea::layoutChart() {}

void QChartDrawingArea::drawVisibleFrame(QPainter&, const QRect&) {}

void QChartDrawingArea::addToContextMenuEvent(QMenu*) {}

bool QChartDrawingArea::colorAttributeIsOn()
{
    return false;
}

bool QChartDrawingArea::symbolAttributeIsOn()
{
    return false;
}

int QChartDrawingArea::gridColumns() const
{
    return 0;
}

int QChartDrawingArea::gridRows() const
{
    return 0;
}

QPointF QChartDrawingArea::transformInPixelPoint(const QPointF&)
{
    return {0.0, 0.0};
}

// ---- off-screen picture --------------------------------------------------------------------------------------------

ChartViewport QChartDrawingArea::viewport() const
{
    // A hidden widget has its new size before its resize event.
    ChartViewport oViewport = m_oRenderSize.isValid() ? ChartViewport() : m_oViewport;
    oViewport.setViewSize(m_oRenderSize.isValid() ? m_oRenderSize : size());
    return oViewport;
}

void QChartDrawingArea::scheduleRedraw()
{
    m_bNeedsRedraw = true;
    update();
}

void QChartDrawingArea::layOut()
{
    m_bPointsMoved = true;
    layoutChart();
}

void QChartDrawingArea::redraw()
{
    m_bNeedsRedraw = false;
    m_oOverlayPixmap = QPixmap();
    layOut();
    drawRegion(m_oStore.reset(chartSize(), pixmapRect(), devicePixelRatioF()));
}

void QChartDrawingArea::drawRegion(const QRegion& oRegion)
{
    if (oRegion.isEmpty() || m_oStore.pixmap().isNull())
        return;
    QPainter painter(&m_oStore.pixmap());
    painter.setFont(font());
    painter.translate(-m_oStore.coverage().topLeft());
    painter.setClipRegion(oRegion);
    painter.fillRect(oRegion.boundingRect(), m_oBackgroundColor);
    drawChart(painter);
}

void QChartDrawingArea::updateChart()
{
    redraw();
    update();
}

void QChartDrawingArea::renderTo(QPainter& painter, const QRect& oTarget)
{
    if (oTarget.isEmpty())
        return;
    m_oRenderSize = oTarget.size();
    layOut();
    painter.save();
    painter.setClipRect(oTarget, Qt::IntersectClip);
    painter.fillRect(oTarget, m_oBackgroundColor);
    painter.setFont(font());
    painter.translate(oTarget.topLeft());
    drawChart(painter);
    drawVisibleFrame(painter, QRect(QPoint(0, 0), oTarget.size()));
    painter.restore();
    m_oRenderSize = QSize();
    layOut();
}

void QChartDrawingArea::paintEvent(QPaintEvent*)
{
    if (m_bNeedsRedraw || m_oStore.devicePixelRatio() != devicePixelRatioF()) {
        redraw();
    } else if (!m_oStore.covers(pixmapRect())) {
        m_oOverlayPixmap = QPixmap(); // it belongs to the pixels that go
        drawRegion(m_oStore.moveTo(pixmapRect()));
    }
    const QRect oVisible = pixmapRect();
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillRect(rect(), palette().brush(backgroundRole()));
    const QPixmap& oPixmap = m_oOverlayPixmap.isNull() ? m_oStore.pixmap() : m_oOverlayPixmap;
    painter.drawPixmap(m_oStore.coverage().topLeft() - oVisible.topLeft(), oPixmap);
    drawVisibleFrame(painter, oVisible);
}

void QChartDrawingArea::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    // Hidden widgets hear of one resize again and again.
    if (m_oStore.chartSize() != chartSize())
        scheduleRedraw();
}

void QChartDrawingArea::changeEvent(QEvent* pEvent)
{
    QWidget::changeEvent(pEvent);
    if (pEvent->type() == QEvent::FontChange)
        scheduleRedraw();
}

// ---- zoom and pan --------------------------------------------------------------------------------------------------

void QChartDrawingArea::zoom(double dZoom)
{
    if (m_oViewport.setZoom(dZoom))
        scheduleRedraw();
}

void QChartDrawingArea::zoomY(double dZoom)
{
    if (m_oViewport.setZoomY(dZoom))
        scheduleRedraw();
}

void QChartDrawingArea::xoffset(int iPercent)
{
    m_oViewport.setPercentX(iPercent);
    update();
}

void QChartDrawingArea::yoffset(int iPercent)
{
    m_oViewport.setPercentY(iPercent);
    update();
}

void QChartDrawingArea::panTo(const QPoint& oTopLeft)
{
    m_oViewport.setViewSize(size()); // a hidden widget has its size before its resize event
    m_oViewport.setOffset(oTopLeft);
    update();
}

void QChartDrawingArea::enableMouseZoom(bool bEnable)
{
    m_bMouseZoomEnabled = bEnable;
}

void QChartDrawingArea::wheelEvent(QWheelEvent* pEvent)
{
    const int iDelta = pEvent->angleDelta().y();
    if (!m_bMouseZoomEnabled || iDelta == 0) {
        pEvent->ignore();
        return;
    }
    pEvent->accept();
    // What a gesture drew so far stands in pixels of the widget, and would no longer lie where it was drawn.
    if (pEvent->buttons() != Qt::NoButton)
        return;
    const double dZoom = ChartViewport::wheelZoom(zoomFactor(), iDelta);
    if (dZoom == zoomFactor())
        return;
    // Who magnified the height alone wants it so.
    m_oViewport.zoomsHeightOnly() ? zoomY(dZoom) : zoom(dZoom);
    emit zoomChanged(zoomFactor());
}

// ---- title ---------------------------------------------------------------------------------------------------------

void QChartDrawingArea::changeHeaderTitle(const QString& sTitle)
{
    const QString sHeader = sTitle.isEmpty() ? QString() : m_sChartName + QLatin1String(": ") + sTitle;
    if (sHeader == m_sHeaderTitle)
        return;
    m_sHeaderTitle = sHeader;
    update();
}

} // namespace gkBase
