#include "QBarDiagramWidget.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace gkBase {

namespace {

/// Bars narrower than this have no outline, which would be all that is seen of them.
constexpr double g_dSmallestOutlined = 4.0;
/// Share of its colour that a bar keeps while others are selected.
constexpr double g_dUnselectedShare = 0.3;
constexpr double g_dValueDistance = 2.0;
constexpr double g_dWheelNotch = 120.0;
/// Part of the window that a notch scrolls.
constexpr double g_dScrollShare = 0.1;
constexpr double g_dSmallestTop = 1e-9;

QColor blended(const QColor& oColor, const QColor& oBackground, double dShare)
{
    const auto mix = [dShare](int iColor, int iBackground) {
        return static_cast<int>(std::lround(dShare * iColor + (1.0 - dShare) * iBackground));
    };
    return {mix(oColor.red(), oBackground.red()), mix(oColor.green(), oBackground.green()),
            mix(oColor.blue(), oBackground.blue())};
}

} // namespace

QBarDiagramWidget::QBarDiagramWidget(QWidget* pqParent, const QString& sName)
    : QHistogramPlotWidget(pqParent, sName)
{
}

// ---- what is shown --------------------------------------------------------------------------------------------------

void QBarDiagramWidget::setClasses(std::shared_ptr<const BarDiagramClasses> pClasses)
{
    m_pClasses = std::move(pClasses);
    classesChanged();
}

void QBarDiagramWidget::classesChanged()
{
    updateHeights();
    updateWindow();
    scheduleRedraw();
}

void QBarDiagramWidget::setPercent(bool bPercent)
{
    m_bPercent = bPercent;
    updateHeights();
    scheduleRedraw();
}

void QBarDiagramWidget::setTop(double dTop)
{
    m_dTop = dTop > g_dSmallestTop ? dTop : 1.0;
    updateWindow();
}

void QBarDiagramWidget::setColorByClass(bool bByClass)
{
    m_bColorByClass = bByClass;
    scheduleRedraw();
}

void QBarDiagramWidget::setAttributeColor(const QColor& oColor)
{
    m_oAttributeColor = oColor;
    scheduleRedraw();
}

void QBarDiagramWidget::setShowValues(bool bShow)
{
    m_bShowValues = bShow;
    scheduleRedraw();
}

void QBarDiagramWidget::setSelectedIds(const std::vector<int>& viIds)
{
    m_selectedIds = std::unordered_set<int>(viIds.begin(), viIds.end());
    scheduleRedraw();
}

void QBarDiagramWidget::setFirstBar(double dFirst)
{
    m_dFirst = dFirst;
    updateWindow();
}

void QBarDiagramWidget::updateHeights()
{
    m_vdHeights.resize(static_cast<std::size_t>(barCount()));
    for (int i = 0; i < barCount(); ++i) {
        const std::size_t iBar = static_cast<std::size_t>(i);
        m_vdHeights[iBar] = m_bPercent ? m_pClasses->share(i) : m_pClasses->bars()[iBar].m_iCount;
    }
}

void QBarDiagramWidget::updateWindow()
{
    // Names that read upwards stand beside each other from this width on.
    const double dPitch = std::ceil(QFontMetricsF(font()).height()) + 2.0;
    const BarWindow window = barWindow(barCount(), width(), dPitch, zoomFactor(), m_dFirst);
    setBoundaries({window.m_dFirst, 0.0}, {window.m_dFirst + window.m_dCount, m_dTop});
    if (window == m_oWindow)
        return;
    m_oWindow = window;
    m_dFirst = window.m_dFirst;
    emit windowChanged(window);
}

double QBarDiagramWidget::barHeight(int iBar) const
{
    const bool bInside = iBar >= 0 && iBar < static_cast<int>(m_vdHeights.size());
    return bInside ? m_vdHeights[static_cast<std::size_t>(iBar)] : 0.0;
}

QString QBarDiagramWidget::barText(int iBar) const
{
    if (iBar < 0 || iBar >= barCount())
        return {};
    const BarClass& bar = m_pClasses->bars()[static_cast<std::size_t>(iBar)];
    return tr("%1: %2 (%3 %)")
        .arg(bar.m_sName, QString::number(bar.m_iCount), QString::number(m_pClasses->share(iBar), 'f', 2));
}

QString QBarDiagramWidget::intervalToolTip(int iInterval) const
{
    return barText(iInterval);
}

int QBarDiagramWidget::intervalAt(const QPointF& oPixel) const
{
    const double dBar = std::floor(transformInDataPoint(oPixel).x());
    return dBar >= 0.0 && dBar < barCount() ? static_cast<int>(dBar) : -1;
}

// ---- zoom and pan ---------------------------------------------------------------------------------------------------

void QBarDiagramWidget::zoom(double dZoom)
{
    // The bars in the middle stay there.
    const double dCentre = m_oWindow.m_dFirst + m_oWindow.m_dCount / 2.0;
    const double dShare = zoomFactor() / dZoom;
    zoomY(dZoom);
    if (std::isfinite(dShare) && dShare > 0.0)
        m_dFirst = dCentre - m_oWindow.m_dCount * dShare / 2.0;
    updateWindow();
}

void QBarDiagramWidget::wheelEvent(QWheelEvent* pEvent)
{
    const QPoint oDelta = pEvent->angleDelta();
    const bool bShift = pEvent->modifiers().testFlag(Qt::ShiftModifier);
    const int iScroll = bShift && oDelta.x() == 0 ? oDelta.y() : oDelta.x();
    if (!bShift && std::abs(oDelta.x()) <= std::abs(oDelta.y())) {
        QHistogramPlotWidget::wheelEvent(pEvent);
        return;
    }
    setFirstBar(m_oWindow.m_dFirst - g_dScrollShare * m_oWindow.m_dCount * iScroll / g_dWheelNotch);
    pEvent->accept();
}

void QBarDiagramWidget::resizeEvent(QResizeEvent* pEvent)
{
    QHistogramPlotWidget::resizeEvent(pEvent);
    updateWindow();
}

void QBarDiagramWidget::changeEvent(QEvent* pEvent)
{
    QHistogramPlotWidget::changeEvent(pEvent);
    if (pEvent->type() == QEvent::FontChange)
        updateWindow();
}

void QBarDiagramWidget::mousePressEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() != Qt::LeftButton) {
        QHistogramPlotWidget::mousePressEvent(pEvent);
        return;
    }
    emit barClicked(diagramBarAt(m_vBars, pEvent->position() + pixmapRect().topLeft()),
                    pEvent->modifiers().testFlag(Qt::ControlModifier));
}

// ---- drawing --------------------------------------------------------------------------------------------------------

void QBarDiagramWidget::layoutChart()
{
    QHistogramPlotWidget::layoutChart();
    m_vBars = diagramBars(m_vdHeights, map());
}

QColor QBarDiagramWidget::fillColor(int iBar) const
{
    const BarClass& bar = m_pClasses->bars()[static_cast<std::size_t>(iBar)];
    const QColor oColor = m_bColorByClass || bar.m_iId == 0 ? bar.m_oColor : m_oAttributeColor;
    const bool bFull = m_selectedIds.empty() || m_selectedIds.count(bar.m_iId) > 0;
    return bFull ? oColor : blended(oColor, m_oBackgroundColor, g_dUnselectedShare);
}

QString QBarDiagramWidget::valueText(int iBar) const
{
    const double dHeight = barHeight(iBar);
    if (m_bPercent) // a bar that is there does not stand for nothing
        return dHeight < 0.05 ? QStringLiteral("<0.1") : QString::number(dHeight, 'f', dHeight < 9.95 ? 1 : 0);
    return QString::number(static_cast<qint64>(dHeight));
}

void QBarDiagramWidget::drawHistogram(QPainter* pPainter)
{
    const QFontMetricsF metrics(pPainter->font(), pPainter->device());
    const double dPitch = map().m_oX.map().pixelsPerUnit();
    for (const HistogramBar& bar : m_vBars) {
        const QRectF& oRect = bar.m_oRect;
        const QColor oFill = fillColor(bar.m_iInterval);
        if (oRect.width() < g_dSmallestOutlined) {
            pPainter->fillRect(oRect.adjusted(0, 0, 1, 1), oFill);
        } else {
            pPainter->setPen(QPen(m_oLabelColor, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
            pPainter->setBrush(oFill);
            pPainter->drawRect(oRect);
        }
        if (!m_bShowValues || dPitch < metrics.averageCharWidth())
            continue;
        const QString sValue = valueText(bar.m_iInterval);
        const double dWidth = metrics.horizontalAdvance(sValue);
        if (dWidth + metrics.averageCharWidth() / 2.0 > dPitch)
            continue;
        pPainter->setPen(m_oLabelColor);
        pPainter->drawText(QRectF(oRect.center().x() - dWidth / 2.0, oRect.top() - g_dValueDistance - metrics.height(),
                                  dWidth, metrics.height()),
                           Qt::AlignCenter | Qt::TextDontClip, sValue);
    }
}

/// A distribution over names has no percentiles.
void QBarDiagramWidget::drawStatisticMeasures(QPainter*) {}

void QBarDiagramWidget::drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea)
{
    if (barCount() == 0)
        drawNoValues(painter, oVisibleArea);
}

void QBarDiagramWidget::renderAllBars(QPainter& painter, const QRect& oTarget, const QList<int>& viHorizontal)
{
    const HistogramBoundaries shown = boundaries();
    setBoundaries({0.0, 0.0}, {std::max(1.0, static_cast<double>(barCount())), m_dTop});
    renderWithGrid(painter, oTarget, {}, viHorizontal);
    setBoundaries(shown.m_oLowerLeft, shown.m_oUpperRight);
    layoutChart();
}

} // namespace gkBase
