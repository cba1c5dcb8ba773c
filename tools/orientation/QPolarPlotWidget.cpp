#include "QPolarPlotWidget.h"

#include "QRelationshipItemModel.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace gkBase {

namespace {

constexpr double g_dTickLength = 7.0;
constexpr int g_iAngleGap = 5;
constexpr int g_iCompassGap = 8;
constexpr int g_iTickStep = 10;
/// Labels stand every so many degrees, the first of these that has room; the quarters are always among them.
constexpr std::array<int, 3> g_aiLabelSteps{10, 30, 90};
constexpr double g_dLabelDistance = 3.0;
/// Below this size labels cannot be read.
constexpr double g_dSmallestPointSize = 5.25;
constexpr int g_iSmallestPixelSize = 7;
/// Words shrink to this much before their initials take their place.
constexpr double g_dReadableShare = 0.7;

constexpr double g_dCircleWidth = 2.0;
constexpr double g_dArrowLength = 10.0;
constexpr double g_dArrowHalfWidth = 6.0;
constexpr int g_iArcPieces = 50;
constexpr double g_dFlatArc = 5e-9; ///< radians
constexpr double g_dArcDeviation = 0.2;

constexpr QPointF g_oTitleCorner(10.0, 5.0);
constexpr double g_dTitleHeight = 14.0;
constexpr double g_dBoxDistance = 6.0;
constexpr double g_dCircleDistance = 2.0;
/// Texts in the corners are not made smaller than this for the sake of the circle.
constexpr double g_dOrdinaryPointSize = 9.0;
constexpr double g_dOrdinaryPixelSize = 12.0;
/// Of the width, for the box at the top right.
constexpr double g_dLargestInfoShare = 0.4;

double capHeight(const QFontMetricsF& metrics)
{
    return metrics.capHeight() > 0.0 ? metrics.capHeight() : 0.7 * metrics.ascent();
}

QFont resized(const QFont& oFont, double dFactor)
{
    QFont oSmaller = oFont;
    if (oFont.pointSizeF() > 0.0)
        oSmaller.setPointSizeF(std::max(g_dSmallestPointSize, oFont.pointSizeF() * dFactor));
    else
        oSmaller.setPixelSize(std::max(g_iSmallestPixelSize, static_cast<int>(oFont.pixelSize() * dFactor)));
    return oSmaller;
}

bool overlap(const std::vector<QRectF>& voBoxes)
{
    for (std::size_t i = 0; i < voBoxes.size(); ++i) {
        const QRectF& oNext = voBoxes[(i + 1) % voBoxes.size()];
        if (voBoxes[i]
                .adjusted(-g_dLabelDistance, -g_dLabelDistance, g_dLabelDistance, g_dLabelDistance)
                .intersects(oNext))
            return true;
    }
    return false;
}

/// From b through a to c, in pieces; empty when the three lie on a line. The angle at the centre of the circle follows
/// from the height of a above the chord b - c.
QPolygonF arcThrough(const QPointF& a, const QPointF& b, const QPointF& c)
{
    const QPointF oChord = c - b;
    const double dChord = std::hypot(oChord.x(), oChord.y());
    const QPointF oToApex = a - b;
    const double dCross = oChord.x() * oToApex.y() - oChord.y() * oToApex.x();
    // |ab| · sin(angle at b), by the cross product: an arc cosine would lose the digits of flat arcs.
    const double dHeight = std::abs(dCross) / dChord;
    const double dSpan = 4.0 * std::atan(2.0 * dHeight / dChord);
    if (dSpan < g_dFlatArc)
        return {};
    const double dRadius = 0.5 * dChord / std::sin(0.5 * dSpan);
    // The centre lies on the perpendicular through the middle of the chord, on the far side of a.
    const double dSide = dCross < 0.0 ? 1.0 : -1.0;
    const QPointF oNormal = dSide / dChord * QPointF(oChord.y(), -oChord.x());
    const QPointF oCentre = 0.5 * (b + c) + (dHeight - dRadius) * oNormal;

    const double dStart = std::atan2(b.y() - oCentre.y(), b.x() - oCentre.x());
    // A piece leaves the arc by radius · (1 − cos(piece / 2)).
    const double dPiece = 2.0 * std::acos(std::clamp(1.0 - g_dArcDeviation / dRadius, -1.0, 1.0));
    const int iPieces = std::max(g_iArcPieces, static_cast<int>(std::ceil(dSpan / dPiece)));
    QPolygonF oArc;
    oArc.reserve(iPieces + 1);
    for (int i = 0; i <= iPieces; ++i) {
        const double dAngle = dStart + dSide * dSpan * i / iPieces;
        oArc << oCentre + dRadius * QPointF(std::cos(dAngle), std::sin(dAngle));
    }
    return oArc;
}

} // namespace

QPolarPlotWidget::QPolarPlotWidget(QWidget* pqParent, const QString& sName)
    : QChartDrawingArea(pqParent, sName)
{
}

// ---- circle ---------------------------------------------------------------------------------------------------------

void QPolarPlotWidget::layoutChart()
{
    setCenterAndRadius();
    // Before anything is measured: title and labels make room for the box.
    m_sTopRightInfo = m_bShowPointsCount ? pointsText() : QString();
}

void QPolarPlotWidget::setCenterAndRadius()
{
    const NetFrame frame = NetFrame::fitted(chartSize().width(), chartSize().height());
    m_iCentreX = static_cast<int>(frame.m_dCentreX);
    m_iCentreY = static_cast<int>(frame.m_dCentreY);
    m_iRadius = static_cast<int>(frame.m_dRadius);
    m_oPlotRect = QRectF(m_iCentreX - m_iRadius, m_iCentreY - m_iRadius, 2 * m_iRadius, 2 * m_iRadius);
}

QPointF QPolarPlotWidget::pointAt(double dDirection, double dDistance) const
{
    const double dAngle = (dDirection - 90.0) * std::numbers::pi / 180.0;
    return {m_iCentreX + dDistance * std::cos(dAngle), m_iCentreY + dDistance * std::sin(dAngle)};
}

QRegion QPolarPlotWidget::clipRegion() const
{
    return {m_oPlotRect.toRect(), QRegion::Ellipse};
}

QPainterPath QPolarPlotWidget::clipPath() const
{
    QPainterPath oPath;
    oPath.addEllipse(m_oPlotRect);
    return oPath;
}

// ---- drawing operations of subclasses -------------------------------------------------------------------------------

void QPolarPlotWidget::drawCircle(QPainter* pPainter, const int& r)
{
    drawCircle(pPainter, r, centre());
}

void QPolarPlotWidget::drawCircle(QPainter* pPainter, const int& r, const QPoint& c)
{
    pPainter->drawEllipse(c.x() - r, c.y() - r, 2 * r, 2 * r);
}

void QPolarPlotWidget::drawLine(QPainter* pPainter, double dDirection, int iExtra)
{
    pPainter->drawLine(QPointF(centre()), pointAt(dDirection, m_iRadius + iExtra));
}

void QPolarPlotWidget::drawArrow(QPainter* pPainter, const QPointF& oTip)
{
    const QPointF oShaft = oTip - QPointF(centre());
    const double dLength = std::hypot(oShaft.x(), oShaft.y());
    if (!(dLength > 0.0))
        return; // without a shaft there is no direction
    const QPointF oAlong = oShaft / dLength;
    const QPointF oBack = oTip - g_dArrowLength * oAlong;
    const QPointF oAside = g_dArrowHalfWidth * QPointF(oAlong.y(), -oAlong.x());
    pPainter->drawLine(oTip, oBack + oAside);
    pPainter->drawLine(oTip, oBack - oAside);
}

void QPolarPlotWidget::drawSector(const QPointF& a, const QPointF& b, const QPointF& c, QPainter* pPainter,
                                  const bool& bAsChord)
{
    const auto distance = [](const QPointF& p, const QPointF& q) { return std::hypot(p.x() - q.x(), p.y() - q.y()); };
    // Written so that a co-ordinate that is no number ends here too.
    if (!(distance(a, b) > 0.0 && distance(a, c) > 0.0 && distance(b, c) > 0.0))
        return;
    const QPolygonF oArc = arcThrough(a, b, c);
    if (oArc.isEmpty())
        pPainter->drawLine(m_iCentreX, m_iCentreY + m_iRadius, m_iCentreX, m_iCentreY - m_iRadius);
    else if (bAsChord)
        pPainter->drawPolygon(oArc); // QPainter::drawChord() knows sixteenths of degrees, too coarse for flat arcs
    else
        pPainter->drawPolyline(oArc);
}

void QPolarPlotWidget::rotation(QPainter* pPainter, const double& dAngle)
{
    pPainter->translate(m_iCentreX, m_iCentreY);
    pPainter->rotate(dAngle);
    pPainter->translate(-m_iCentreX, -m_iCentreY);
}

// ---- labels around the circle ---------------------------------------------------------------------------------------

bool QPolarPlotWidget::isWholeChart() const
{
    return chartSize() == pixmapRect().size();
}

QSizeF QPolarPlotWidget::margin() const
{
    const QSize oChart = chartSize();
    return {std::min(m_oPlotRect.left(), oChart.width() - m_oPlotRect.right()),
            std::min(m_oPlotRect.top(), oChart.height() - m_oPlotRect.bottom())};
}

QFont QPolarPlotWidget::rimFont(const QPainter& painter) const
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    const QString sWidest = m_bLabelAsAngle ? QStringLiteral("300") : compassLabel(painter, 270.0).m_sText;
    const double dTaken = (m_bLabelAsAngle ? g_iAngleGap : g_iCompassGap) + 2.0 + 1.0;
    const double dWidthShare = (margin().width() - dTaken) / std::max(1.0, metrics.horizontalAdvance(sWidest));
    const double dHeightShare = (margin().height() - dTaken) / std::max(1.0, capHeight(metrics));
    const double dFactor = std::min(dWidthShare, dHeightShare);
    return dFactor < 1.0 ? resized(painter.font(), std::max(0.0, dFactor)) : painter.font();
}

QPolarPlotWidget::RimLabel QPolarPlotWidget::angleLabel(double dDirection, int iGap) const
{
    return {QString::number(dDirection, 'g', 6), dDirection, iGap};
}

QPolarPlotWidget::RimLabel QPolarPlotWidget::compassLabel(const QPainter& painter, double dDirection) const
{
    const std::array<QString, 4> asWords{tr("North"), tr("East"), tr("South"), tr("West")};
    if (dDirection < 0.0 || dDirection > 360.0 || std::fmod(dDirection, 90.0) != 0.0)
        return {QString(), dDirection, g_iCompassGap};
    const QFontMetricsF metrics(painter.font(), painter.device());
    const double dWidest = std::max(metrics.horizontalAdvance(asWords[1]), metrics.horizontalAdvance(asWords[3]));
    const bool bFits = g_dReadableShare * dWidest + g_iCompassGap + 2.0 <= margin().width();
    const QString& sWord = asWords[static_cast<std::size_t>(dDirection / 90.0) % 4];
    return {bFits ? sWord : sWord.left(1), dDirection, g_iCompassGap};
}

QRectF QPolarPlotWidget::labelBox(const QFontMetricsF& metrics, const RimLabel& label) const
{
    const QSizeF oSize(metrics.horizontalAdvance(label.m_sText), capHeight(metrics));
    const QPointF oOutwards = pointAt(label.m_dDirection, 1.0) - QPointF(centre());
    // As far out as the corner or side that is nearest to the circle needs.
    const double dHalf = 0.5 * (std::abs(oOutwards.x()) * oSize.width() + std::abs(oOutwards.y()) * oSize.height());
    const QPointF oMiddle = pointAt(label.m_dDirection, m_iRadius + label.m_iGap + 2.0 + dHalf);
    return {oMiddle - 0.5 * QPointF(oSize.width(), oSize.height()), oSize};
}

QRectF QPolarPlotWidget::northLabelBox(const QPainter& painter) const
{
    const QFontMetricsF metrics(rimFont(painter), painter.device());
    return labelBox(metrics, m_bLabelAsAngle ? angleLabel(360.0, g_iAngleGap) : compassLabel(painter, 360.0));
}

void QPolarPlotWidget::drawRimLabel(QPainter& painter, const RimLabel& label) const
{
    if (label.m_sText.isEmpty())
        return;
    const QRectF oBox = labelBox(QFontMetricsF(painter.font(), painter.device()), label);
    painter.drawText(oBox.bottomLeft(), label.m_sText);
}

void QPolarPlotWidget::drawAnnotationTick(QPainter* pPainter, double dDirection)
{
    if (hasAnnotation())
        pPainter->drawLine(pointAt(dDirection, m_iRadius), pointAt(dDirection, m_iRadius + g_dTickLength));
}

void QPolarPlotWidget::drawAnnotationLabel(QPainter* pPainter, double dDirection)
{
    if (hasAnnotation())
        drawRimLabel(*pPainter,
                     m_bLabelAsAngle ? angleLabel(dDirection, g_iCompassGap) : compassLabel(*pPainter, dDirection));
}

void QPolarPlotWidget::drawAngleAnnotationLabel(QPainter* pPainter, double dDirection, int iGap)
{
    drawRimLabel(*pPainter, angleLabel(dDirection, iGap));
}

/// 360 is drawn over 0, deliberately: both name north. The 0 is cleared away with the background, so that one number
/// is read.
void QPolarPlotWidget::drawCoveredZero(QPainter& painter, const QRectF& oBoxOf360) const
{
    const RimLabel zero = angleLabel(0.0, g_iAngleGap);
    drawRimLabel(painter, zero);
    const QRectF oBox = labelBox(QFontMetricsF(painter.font(), painter.device()), zero) | oBoxOf360;
    // Round digits reach a little beyond the height of capitals.
    painter.fillRect(oBox.adjusted(-1.0, -1.0, 1.0, 1.0), m_oBackgroundColor);
}

std::vector<QPolarPlotWidget::RimLabel> QPolarPlotWidget::angleLabels(const QPainter& painter) const
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    std::vector<RimLabel> vLabels;
    for (const int iStep : g_aiLabelSteps) {
        vLabels.clear();
        // North is both 0 and 360; drawRimLabels() puts the label of 0 under that of 360.
        for (int iDirection = iStep; iDirection <= 360; iDirection += iStep)
            vLabels.push_back(angleLabel(iDirection, g_iAngleGap));
        std::vector<QRectF> voBoxes;
        voBoxes.reserve(vLabels.size());
        for (const RimLabel& label : vLabels)
            voBoxes.push_back(labelBox(metrics, label));
        if (!overlap(voBoxes))
            break;
    }
    return vLabels;
}

std::vector<QPolarPlotWidget::RimLabel> QPolarPlotWidget::compassLabels(const QPainter& painter) const
{
    std::vector<RimLabel> vLabels;
    for (int iDirection = 90; iDirection <= 360; iDirection += 90)
        vLabels.push_back(compassLabel(painter, iDirection));
    return vLabels;
}

std::vector<QRectF> QPolarPlotWidget::visibleBoxes(const QPainter& painter) const
{
    std::vector<QRectF> voBoxes{titleBox(painter)};
    if (m_bShowPointsCount)
        voBoxes.push_back(topRightInfoBox(painter));
    if (hasAnnotation())
        voBoxes.push_back(northBox(painter));
    voBoxes.push_back(cornerBox(painter));
    return voBoxes;
}

void QPolarPlotWidget::drawRimLabels(QPainter& painter)
{
    std::vector<QRectF> voTaken;
    if (isWholeChart())
        voTaken = visibleBoxes(painter);
    painter.save();
    painter.setFont(rimFont(painter));
    const QFontMetricsF metrics(painter.font(), painter.device());
    for (const RimLabel& label : m_bLabelAsAngle ? angleLabels(painter) : compassLabels(painter)) {
        const QRectF oBox = labelBox(metrics, label);
        const bool bCovered = std::any_of(voTaken.begin(), voTaken.end(),
                                          [&oBox](const QRectF& oTaken) { return oTaken.intersects(oBox); });
        if (bCovered || !QRectF(QPointF(0, 0), chartSize()).contains(oBox))
            continue;
        if (m_bLabelAsAngle && label.m_dDirection == 360.0)
            drawCoveredZero(painter, oBox);
        drawRimLabel(painter, label);
    }
    painter.restore();
}

// ---- frame ----------------------------------------------------------------------------------------------------------

void QPolarPlotWidget::drawChart(QPainter& painter)
{
    drawFrame(&painter, 1);
    if (gridIsOn())
        drawGrid(&painter);
}

void QPolarPlotWidget::drawFrame(QPainter* pPainter, int iPenWidth)
{
    pPainter->save();
    pPainter->setRenderHint(QPainter::Antialiasing);
    pPainter->setPen(QPen(m_oLabelColor, iPenWidth, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    if (hasAnnotation())
        drawRimLabels(*pPainter);
    const int iStep = m_bLabelAsAngle ? g_iTickStep : 90;
    for (int iDirection = 0; iDirection < 360; iDirection += iStep)
        drawAnnotationTick(pPainter, iDirection);
    if (m_bShowCircleFrame) {
        pPainter->setPen(QPen(m_oLabelColor, g_dCircleWidth));
        pPainter->setBrush(Qt::NoBrush);
        drawCircle(pPainter, m_iRadius);
    }
    pPainter->restore();
}

QString QPolarPlotWidget::pointsText() const
{
    return tr("points = %1").arg(model() ? model()->numberOfTakenPoints() : 0);
}

void QPolarPlotWidget::drawVisibleFrame(QPainter& painter, const QRect&)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_oLabelColor, 1.0));
    drawTitle(&painter);
    if (m_bShowPointsCount)
        drawTopRightInfo(&painter);
    drawNorth(&painter);
    drawCornerLines(&painter);
    painter.restore();
}

QStringList QPolarPlotWidget::cornerLines() const
{
    return {};
}

QRectF QPolarPlotWidget::cornerBox(const QPainter& painter) const
{
    const QStringList lLines = cornerLines();
    if (lLines.isEmpty())
        return {};
    const QFontMetricsF metrics(cornerFont(painter), painter.device());
    double dWidth = 0.0;
    for (const QString& sLine : lLines)
        dWidth = std::max(dWidth, metrics.horizontalAdvance(sLine));
    const QSizeF oSize(std::ceil(dWidth), metrics.lineSpacing() * static_cast<double>(lLines.size()));
    const QRectF oBox(QPointF(g_oTitleCorner.x(), pixmapRect().height() - g_oTitleCorner.y() - oSize.height()), oSize);
    return covers(oBox) || oBox.width() > pixmapRect().width() ? QRectF() : oBox;
}

void QPolarPlotWidget::drawCornerLines(QPainter* pPainter)
{
    const QRectF oBox = cornerBox(*pPainter);
    if (oBox.isEmpty())
        return;
    pPainter->save();
    // Of a magnified chart anything may lie below.
    if (!m_bTransparentBackground)
        pPainter->fillRect(oBox, m_oBackgroundColor);
    pPainter->setFont(cornerFont(*pPainter));
    pPainter->setPen(m_oLabelColor);
    pPainter->drawText(oBox, Qt::AlignLeft | Qt::AlignBottom, cornerLines().join(QLatin1Char('\n')));
    pPainter->restore();
}

bool QPolarPlotWidget::covers(const QRectF& oBox) const
{
    const QPointF oCentre = centre();
    const QPointF oNearest(std::clamp(oCentre.x(), oBox.left(), oBox.right()),
                           std::clamp(oCentre.y(), oBox.top(), oBox.bottom()));
    return isWholeChart() &&
           std::hypot(oNearest.x() - oCentre.x(), oNearest.y() - oCentre.y()) < radius() + g_dCircleDistance;
}

QFont QPolarPlotWidget::cornerFont(const QPainter& painter) const
{
    const QFont& oFont = painter.font();
    const QFontMetricsF metrics(oFont, painter.device());
    const double dTitle = metrics.horizontalAdvance(headerTitle());
    const double dInfo = m_bShowPointsCount ? topRightInfoWidth(metrics) : 0.0;
    const QPointF oInfoCorner(pixmapRect().width() - dInfo, g_oTitleCorner.y());
    if (!covers({g_oTitleCorner, QSizeF(dTitle, metrics.height())}) &&
        !covers({oInfoCorner, QSizeF(dInfo, metrics.height())}))
        return oFont;
    double dFactor = (m_oPlotRect.top() - g_dTickLength - g_oTitleCorner.y()) / metrics.height();
    if (dInfo > 0.0)
        dFactor = std::min(dFactor, g_dLargestInfoShare * pixmapRect().width() / dInfo);
    const bool bPoints = oFont.pointSizeF() > 0.0;
    const double dSmallest =
        bPoints ? g_dOrdinaryPointSize / oFont.pointSizeF() : g_dOrdinaryPixelSize / std::max(1, oFont.pixelSize());
    dFactor = std::max(dFactor, dSmallest);
    return dFactor < 1.0 ? resized(oFont, dFactor) : oFont;
}

QRectF QPolarPlotWidget::titleBox(const QPainter& painter) const
{
    if (headerTitle().isEmpty())
        return {};
    const QFontMetricsF metrics(cornerFont(painter), painter.device());
    QRectF oBox(g_oTitleCorner,
                QSizeF(metrics.horizontalAdvance(headerTitle()) + 5.0, std::max(g_dTitleHeight, metrics.height())));
    double dRight = titleLimit(painter);
    if (isWholeChart() && hasAnnotation()) {
        // Of charts without room for both a long title gives way to the label of north.
        const QRectF oNorth = northLabelBox(painter);
        if (oNorth.top() < oBox.bottom())
            dRight = std::min(dRight, oNorth.left() - g_dBoxDistance);
    }
    oBox.setRight(std::max(oBox.left(), std::min(oBox.right(), dRight)));
    // No wider than what is left of the text, which begins at the corner.
    const double dText = metrics.horizontalAdvance(titleText(metrics, oBox.width()));
    oBox.setWidth(std::min(oBox.width(), dText + 5.0));
    return oBox;
}

double QPolarPlotWidget::titleLimit(const QPainter& painter) const
{
    return m_bShowPointsCount ? topRightInfoBox(painter).left() - g_dBoxDistance
                              : pixmapRect().width() - g_oTitleCorner.x();
}

void QPolarPlotWidget::drawTitle(QPainter* pPainter)
{
    const QRectF oBox = titleBox(*pPainter);
    if (oBox.isEmpty())
        return;
    // The title is written in the label colour, which is seen on the chart's background whatever the desktop's is.
    if (!m_bTransparentBackground)
        pPainter->fillRect(oBox, m_oBackgroundColor);
    pPainter->save();
    pPainter->setFont(cornerFont(*pPainter));
    const QFontMetricsF metrics(pPainter->font(), pPainter->device());
    pPainter->drawText(oBox, Qt::AlignCenter, titleText(metrics, oBox.width()));
    pPainter->restore();
}

QString QPolarPlotWidget::titleText(const QFontMetricsF& metrics, double dWidth) const
{
    if (metrics.horizontalAdvance(headerTitle()) <= dWidth)
        return headerTitle();
    const QString sName = chartName() + QLatin1String(": ");
    const QString sTitle = headerTitle().startsWith(sName) ? headerTitle().mid(sName.size()) : headerTitle();
    return metrics.elidedText(sTitle, Qt::ElideRight, dWidth);
}

/// Measured on a fixed text, so that the box does not jump when the count changes.
double QPolarPlotWidget::topRightInfoWidth(const QFontMetricsF& metrics) const
{
    return std::max(metrics.horizontalAdvance(QStringLiteral("drawTopRightInfo")),
                    metrics.horizontalAdvance(m_sTopRightInfo) + 1.0);
}

QRectF QPolarPlotWidget::topRightInfoBox(const QPainter& painter) const
{
    const QFontMetricsF metrics(cornerFont(painter), painter.device());
    const double dWidth = topRightInfoWidth(metrics);
    const double dRight = pixmapRect().width() - 1.0;
    QRectF oBox(QPointF(dRight - dWidth - 8.0, g_oTitleCorner.y()),
                QPointF(dRight - 9.0, g_oTitleCorner.y() + metrics.height() + 30.0));
    const QPointF oToCircle = oBox.bottomLeft() - QPointF(centre());
    // Small charts have no room for the space above the text.
    if (isWholeChart() && std::hypot(oToCircle.x(), oToCircle.y()) < m_iRadius + 2.0 * metrics.height())
        oBox.setHeight(metrics.height());
    return oBox;
}

void QPolarPlotWidget::drawTopRightInfo(QPainter* pPainter)
{
    const QRectF oBox = topRightInfoBox(*pPainter);
    pPainter->setPen(QPen(m_oLabelColor, 1.0));
    if (!m_bTransparentBackground)
        pPainter->fillRect(oBox, m_oBackgroundColor);
    pPainter->save();
    pPainter->setFont(cornerFont(*pPainter));
    pPainter->drawText(oBox, Qt::AlignLeft | Qt::AlignBottom, m_sTopRightInfo);
    pPainter->restore();
}

QRectF QPolarPlotWidget::northBox(const QPainter& painter) const
{
    const QPointF oBase(pixmapRect().width() - 21.0, pixmapRect().height() - 31.0);
    const double dLetter = capHeight(QFontMetricsF(rimFont(painter), painter.device()));
    return {oBase - QPointF(8.0, 19.0 + dLetter), oBase + QPointF(8.0, 9.0)};
}

void QPolarPlotWidget::drawNorth(QPainter* pPainter)
{
    if (!hasAnnotation())
        return;
    const QPointF oBase(pixmapRect().width() - 21.0, pixmapRect().height() - 31.0);
    const QPointF oTip = oBase - QPointF(0.0, 16.0);
    pPainter->setPen(QPen(m_oLabelColor, 1.0));
    pPainter->setBrush(m_oLabelColor);
    pPainter->drawPolygon(QPolygonF({oTip, oBase + QPointF(-7.0, 8.0), oBase}));
    pPainter->setBrush(m_oBackgroundColor);
    pPainter->drawPolygon(QPolygonF({oTip, oBase + QPointF(7.0, 8.0), oBase}));
    pPainter->save();
    pPainter->setFont(rimFont(*pPainter));
    const QString sNorth = tr("N", "north");
    const double dWidth = QFontMetricsF(pPainter->font(), pPainter->device()).horizontalAdvance(sNorth);
    pPainter->drawText(oBase - QPointF(0.5 * dWidth, 18.0), sNorth);
    pPainter->restore();
}

} // namespace gkBase
