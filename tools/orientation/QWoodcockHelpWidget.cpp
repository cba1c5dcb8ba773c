#include "QWoodcockHelpWidget.h"

#include "LabelPlacement.h"
#include "MissingValue.h"
#include "OrientationText.h"
#include "ReadableColor.h"
#include "SymbolGeometry.h"
#include "WoodcockGeometry.h"
#include "WoodcockPainting.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QLineF>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>
#include <QToolTip>

#include <algorithm>

namespace gkBase {

namespace {

constexpr QColor g_oHighlight(255, 255, 0);
/// Lengths in pixels, of pictures up to this size; in larger ones they grow with it.
constexpr double g_dPlainSize = 634.0;
/// Half the widths of symbols: large enough to tell their shapes apart, the current one twice as large.
constexpr double g_dSymbolSize = 4.0;
constexpr double g_dCurrentSize = 8.0;
constexpr double g_dPenWidth = 2.0;
/// Between the edge of the picture and the marks of points outside; they hold the arrow.
constexpr double g_dEdge = 18.0;
constexpr double g_dArrowGap = 2.0;
constexpr double g_dArrow = 9.0; ///< from the symbol to the tip of its arrow
constexpr double g_dReach = 8.0; ///< of the cursor about a point

QPointF missingPoint()
{
    return {g_dMissingValue, g_dMissingValue};
}

bool isDefined(const QPointF& oValues)
{
    return !isMissing(oValues.x()) && !isMissing(oValues.y());
}

} // namespace

QWoodcockHelpWidget::QWoodcockHelpWidget(QWidget* pqParent)
    : QChartDrawingArea(pqParent, tr("Woodcock Diagram"))
    , m_oCurrent(missingPoint())
{
    QSizePolicy oPolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    oPolicy.setHeightForWidth(true);
    setSizePolicy(oPolicy);
    setMouseTracking(true);
    // Nothing is hidden in so small a picture; the wheel scrolls what the diagram stands in.
    enableMouseZoom(false);
    allowCopyToWMF(true);
}

QWoodcockHelpWidget::~QWoodcockHelpWidget() = default;

QSize QWoodcockHelpWidget::sizeHint() const
{
    return {383, 383};
}

// ---- points --------------------------------------------------------------------------------------------------------

void QWoodcockHelpWidget::addPoint(const double& x, const double& y, const int& symbol, const QColor& colour)
{
    addPoint(x, y, symbol, colour, {});
}

void QWoodcockHelpWidget::addPoint(const double& x, const double& y, const int& symbol, const QColor& colour,
                                   const QString& sName)
{
    m_voPoints.append({x, y});
    m_viSymbols.append(symbol);
    m_voColors.append(colour);
    m_vsNames.append(sName);
    scheduleRedraw();
}

void QWoodcockHelpWidget::resetPoints()
{
    m_voPoints.clear();
    m_viSymbols.clear();
    m_voColors.clear();
    m_vsNames.clear();
    m_vMarks.clear(); // the mouse may ask for them before the next layout
    scheduleRedraw();
}

void QWoodcockHelpWidget::setCurrentPoint(const double& x, const double& y)
{
    m_oCurrent = {x, y};
    scheduleRedraw();
}

void QWoodcockHelpWidget::clearCurrentPoint()
{
    setCurrentPoint(g_dMissingValue, g_dMissingValue);
}

bool QWoodcockHelpWidget::isCurrent(int iPoint) const
{
    // Equal to the last bit, as the values were computed once; QPointF compares with a tolerance.
    const QPointF& oPoint = m_voPoints[iPoint];
    return isDefined(m_oCurrent) && oPoint.x() == m_oCurrent.x() && oPoint.y() == m_oCurrent.y();
}

// ---- geometry ------------------------------------------------------------------------------------------------------

QPointF QWoodcockHelpWidget::point(const QPointF& small, const QPointF& large) const
{
    return woodcockReferencePixel(chartSize(), small, large);
}

QPointF QWoodcockHelpWidget::transformInPixelPoint(const QPointF& oPoint)
{
    return WoodcockAxes(chartSize()).pixel(oPoint.x(), oPoint.y());
}

QWoodcockHelpWidget::Mark QWoodcockHelpWidget::markOf(const QPointF& oValues) const
{
    if (!isDefined(oValues))
        return {};
    const WoodcockAxes oAxes(m_oLaidOut);
    const QPointF oPixel = oAxes.pixel(oValues.x(), oValues.y());
    const double dEdge = g_dEdge * m_dScale;
    const QRectF oArea = QRectF(QPointF(0.0, 0.0), m_oLaidOut).adjusted(dEdge, dEdge, -dEdge, -dEdge);
    const std::optional<QPointF> oEdge = woodcockEdgeMark(oArea, oAxes.m_oOrigin, oPixel);
    return {oEdge.value_or(oPixel), oEdge.has_value(), true};
}

void QWoodcockHelpWidget::layoutChart()
{
    QChartDrawingArea::layoutChart();
    m_oLaidOut = chartSize();
    m_dScale = std::max(1.0, std::min(m_oLaidOut.width(), m_oLaidOut.height()) / g_dPlainSize);
    m_oPlotRect = WoodcockAxes(m_oLaidOut).area();
    m_vMarks.clear();
    for (const QPointF& oPoint : m_voPoints)
        m_vMarks.push_back(markOf(oPoint));
}

int QWoodcockHelpWidget::pointAt(const QPointF& oPosition) const
{
    const QPointF oChart = oPosition + pixmapRect().topLeft();
    int iNearest = -1;
    double dNearest = g_dReach * m_dScale;
    for (int i = 0; i < static_cast<int>(m_vMarks.size()); ++i) {
        const Mark& mark = m_vMarks[static_cast<std::size_t>(i)];
        const double dDistance = QLineF(mark.m_oPosition, oChart).length();
        if (mark.m_bDefined && dDistance <= dNearest) { // later points lie on top
            dNearest = dDistance;
            iNearest = i;
        }
    }
    return iNearest;
}

// ---- drawing -------------------------------------------------------------------------------------------------------

void QWoodcockHelpWidget::drawChart(QPainter& painter)
{
    // The diagram is drawn and not scaled from the picture in the resources: so its lines and texts are sharp at every
    // size, it follows the black background, and vector copies stay vectors. The pixels of its axes are the same.
    drawWoodcockDiagram(painter, m_oLaidOut, {m_oBackgroundColor, m_oLabelColor, m_oGridColor});
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    bool bCurrentIsStored = false;
    for (int i = 0; i < m_voPoints.size(); ++i) {
        const bool bCurrent = isCurrent(i);
        bCurrentIsStored = bCurrentIsStored || bCurrent;
        if (!bCurrent)
            drawMark(painter, m_vMarks[static_cast<std::size_t>(i)], m_viSymbols[i], m_voColors[i], false);
    }
    // Above the others, which it would vanish under.
    for (int i = 0; i < m_voPoints.size(); ++i) {
        if (isCurrent(i))
            drawMark(painter, m_vMarks[static_cast<std::size_t>(i)], m_viSymbols[i], m_voColors[i], true);
    }
    if (!bCurrentIsStored)
        drawMark(painter, markOf(m_oCurrent), Circle, m_oLabelColor, true);
    drawNames(painter);
    painter.restore();
}

void QWoodcockHelpWidget::drawMark(QPainter& painter, const Mark& mark, int iSymbol, const QColor& oColor,
                                   bool bCurrent)
{
    if (!mark.m_bDefined)
        return;
    const int iSize = qRound((bCurrent ? g_dCurrentSize : g_dSymbolSize) * m_dScale);
    const QColor oLine = bCurrent ? m_oLabelColor : readableColor(oColor, m_oBackgroundColor, m_oLabelColor);
    const QColor oFill = bCurrent ? g_oHighlight : oLine;
    const SymbolFill eFill = symbolFill(iSymbol);
    painter.setPen(QPen(oLine, g_dPenWidth * m_dScale));
    painter.setBrush(bCurrent || eFill == SymbolFill::Colour ? oFill : m_oBackgroundColor);
    if (eFill == SymbolFill::None && (bCurrent || iSymbol == Pixel)) // has no inside to be filled
        painter.drawEllipse(mark.m_oPosition, bCurrent ? iSize : m_dScale, bCurrent ? iSize : m_dScale);
    painter.drawPath(symbolPath(iSymbol, mark.m_oPosition, iSize));
    if (mark.m_bOutside)
        drawArrow(painter, mark.m_oPosition, iSize, oLine);
}

/// An arrow beside a mark that points to where its point lies.
void QWoodcockHelpWidget::drawArrow(QPainter& painter, const QPointF& oMark, int iSymbolSize, const QColor& oColor)
{
    const QLineF oRay = QLineF(WoodcockAxes(m_oLaidOut).m_oOrigin, oMark).unitVector();
    const QPointF oAlong(oRay.dx(), oRay.dy());
    const QPointF oAcross(-oAlong.y(), oAlong.x());
    const QPointF oBase = oMark + oAlong * (iSymbolSize + g_dArrowGap * m_dScale);
    const double dLength = (g_dArrow - g_dArrowGap) * m_dScale;
    painter.setBrush(oColor);
    painter.setPen(Qt::NoPen);
    painter.drawPolygon(
        QPolygonF{oBase + oAcross * (dLength / 2.0), oBase + oAlong * dLength, oBase - oAcross * (dLength / 2.0)});
}

void QWoodcockHelpWidget::drawNames(QPainter& painter)
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    LabelPlacement placement(QRectF(QPointF(0.0, 0.0), m_oLaidOut));
    std::vector<QRectF> voBoxes;
    for (std::size_t i = 0; i < m_vMarks.size(); ++i) {
        const double dSymbol = isCurrent(static_cast<int>(i)) ? g_dCurrentSize : g_dSymbolSize;
        const double dSize = (dSymbol + (m_vMarks[i].m_bOutside ? g_dArrow : g_dPenWidth / 2.0)) * m_dScale;
        voBoxes.push_back(QRectF(m_vMarks[i].m_oPosition, QSizeF()).adjusted(-dSize, -dSize, dSize, dSize));
        if (m_vMarks[i].m_bDefined)
            placement.block(voBoxes.back());
    }
    painter.setPen(m_oLabelColor);
    for (std::size_t i = 0; i < m_vMarks.size(); ++i) {
        const QString& sName = m_vsNames[static_cast<qsizetype>(i)];
        if (!m_vMarks[i].m_bDefined || sName.isEmpty())
            continue;
        const QSizeF oText(metrics.horizontalAdvance(sName), metrics.height());
        const QRectF oPlace = placement.place(voBoxes[i], oText);
        if (!oPlace.isNull())
            painter.drawText(oPlace, Qt::AlignCenter | Qt::TextDontClip, sName);
    }
}

// ---- mouse ---------------------------------------------------------------------------------------------------------

QString QWoodcockHelpWidget::toolTipAt(const QPointF& oPosition) const
{
    const int iPoint = pointAt(oPosition);
    if (iPoint < 0)
        return {};
    const auto i = static_cast<std::size_t>(iPoint);
    const QPointF& oValues = m_voPoints[iPoint];
    QString sText;
    if (!m_vsNames[iPoint].isEmpty())
        sText = tr("Subset %1").arg(m_vsNames[iPoint]) + QLatin1Char('\n');
    sText += tr("ln(S1/S2) = %1, ln(S2/S3) = %2").arg(oValues.y(), 0, 'f', 3).arg(oValues.x(), 0, 'f', 3);
    const QString sK = oValues.x() > 0.0 ? QString::number(oValues.y() / oValues.x(), 'f', 3) : undefinedText();
    sText += QLatin1Char('\n') + tr("K = %1, C = %2").arg(sK).arg(oValues.x() + oValues.y(), 0, 'f', 3);
    if (m_vMarks[i].m_bOutside)
        sText += QLatin1Char('\n') + tr("Lies outside the picture, where the arrow points");
    return sText;
}

bool QWoodcockHelpWidget::event(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::ToolTip)
        return QChartDrawingArea::event(pEvent);
    const auto* pHelp = static_cast<QHelpEvent*>(pEvent);
    const QString sText = toolTipAt(pHelp->pos());
    if (sText.isEmpty())
        QToolTip::hideText();
    else // names are plain texts, whatever they hold
        QToolTip::showText(pHelp->globalPos(), sText.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>")),
                           this);
    return true;
}

void QWoodcockHelpWidget::mousePressEvent(QMouseEvent* pEvent)
{
    QChartDrawingArea::mousePressEvent(pEvent);
    if (pEvent->button() == Qt::LeftButton)
        emit pointClicked(pointAt(pEvent->position()));
}

void QWoodcockHelpWidget::mouseMoveEvent(QMouseEvent* pEvent)
{
    QChartDrawingArea::mouseMoveEvent(pEvent);
    setMousePickingPos(pEvent->position());
    setCursor(pointAt(pEvent->position()) >= 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
    emit cursorPos(WoodcockAxes(m_oLaidOut).values(pEvent->position() + pixmapRect().topLeft()));
}

void QWoodcockHelpWidget::leaveEvent(QEvent* pEvent)
{
    QChartDrawingArea::leaveEvent(pEvent);
    setMousePickingPos(missingPoint());
    emit cursorPos(missingPoint());
}

} // namespace gkBase
