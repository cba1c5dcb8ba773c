// How the rose diagram is painted.

#include "MatrixData.h"
#include "MissingValue.h"
#include "QRelationshipItemModel.h"
#include "QRosePlotWidget.h"
#include "ReadableColor.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr int g_iGridLineStep = 30;  ///< degrees
constexpr int g_iVectorOverhang = 6; ///< of the arrow beyond the rim, pixels
constexpr double g_dTickHalfLength = 3.0;
constexpr double g_dMeanWidth = 2.5;
constexpr double g_dHaloWidth = 5.5;
constexpr double g_dCaptionMargin = 10.0;
constexpr double g_dCaptionTop = 5.0;
constexpr double g_dSampleLength = 26.0;
constexpr double g_dSampleGap = 6.0;
constexpr double g_dScaleFontShare = 0.85;
/// Petals without a class, or without any classes and data.
const QColor g_oNoClassColor(200, 200, 200);
const QColor g_oMeanColor(204, 0, 0);
const QColor g_oAxisColor(0, 96, 192);

} // namespace

// ---- chart ----------------------------------------------------------------------------------------------------------

void QRosePlotWidget::drawChart(QPainter& painter)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_bins.m_iRecords > 0 && m_bGridCircles)
        drawGridCircles(&painter, 1);
    if (!m_bRosePlot)
        drawBinBoundaryCircles(&painter);
    else if (m_bins.m_iClasses > 0)
        drawClassifiedRoseData(&painter);
    else
        drawRoseData(&painter);
    if (m_bins.m_iRecords > 0 && m_bTickMarks)
        drawTickMarks(&painter);
    if (m_bGridCircles || m_bTickMarks)
        drawScaleLabels(&painter);
    drawMeans(&painter);
    painter.restore();
    drawFrame(&painter, 1);
}

QColor QRosePlotWidget::dataColor() const
{
    const MatrixData* poDirection = model() ? model()->nodeX() : nullptr;
    return readableColor(poDirection ? poDirection->color() : m_oPointFillColor, m_oBackgroundColor, m_oLabelColor);
}

void QRosePlotWidget::drawBin(QPainter* pPainter, const QPolygonF& oOutline)
{
    pPainter->drawPolygon(oOutline);
}

void QRosePlotWidget::drawRoseData(QPainter* pPainter)
{
    pPainter->setPen(QPen(Qt::darkGray, 1.0));
    pPainter->setBrush(dataColor());
    for (const QPolygonF& oOutline : m_voOutlines)
        drawBin(pPainter, oOutline);
}

void QRosePlotWidget::drawClassifiedRoseData(QPainter* pPainter)
{
    const bool bWhite = m_oBackgroundColor == QColor(Qt::white);
    pPainter->setPen(QPen(bWhite ? Qt::black : Qt::darkGray, 1.0));
    for (std::size_t i = 0; i < m_vPetals.size(); ++i) {
        const int iClass = m_vPetals[i].m_iClass;
        const QColor oColor = model() && iClass > 0 ? model()->colorClasses().color(iClass) : QColor();
        pPainter->setBrush(oColor.isValid() ? oColor : g_oNoClassColor);
        drawBin(pPainter, m_voOutlines[i]);
    }
}

void QRosePlotWidget::drawBinBoundaryCircles(QPainter* pPainter)
{
    const QColor oColor = dataColor();
    pPainter->setBrush(Qt::NoBrush);
    const RoseScale roseScale = scale();
    for (int iSector = 0; iSector < m_bins.sectors(); ++iSector) {
        const double dCount = m_bins.m_vdCounts[static_cast<std::size_t>(iSector)];
        if (!(dCount > 0.0))
            continue;
        const int iRadius = static_cast<int>(std::lround(radius() * roseScale.vectorRadius(dCount)));
        pPainter->setPen(QPen(oColor, 1.0));
        drawCircle(pPainter, iRadius);
        pPainter->setPen(QPen(oColor, 2.0));
        const QPointF oTip = pointAt(m_bins.sectorStart(iSector) + 0.5 * m_bins.m_dSectorSize, iRadius);
        pPainter->drawLine(QPointF(centre()), oTip);
        drawArrow(pPainter, oTip);
    }
}

void QRosePlotWidget::drawGridCircles(QPainter* pPainter, int iPenWidth)
{
    pPainter->setBrush(Qt::NoBrush);
    // Dotted, so that the petals stand out from the scale.
    pPainter->setPen(QPen(m_oLabelColor, iPenWidth, Qt::DotLine));
    for (const int iRadius : m_viGridRadii)
        drawCircle(pPainter, iRadius);
    for (int iDirection = 0; iDirection < 360; iDirection += g_iGridLineStep)
        drawLine(pPainter, iDirection, 0);
}

void QRosePlotWidget::drawTickMarks(QPainter* pPainter)
{
    pPainter->setPen(QPen(m_oLabelColor, 1.0));
    for (int iDirection = 0; iDirection < 360; iDirection += 90) {
        drawLine(pPainter, iDirection, 0);
        const QPointF oAside = g_dTickHalfLength * (pointAt(iDirection + 90.0, 1.0) - QPointF(centre()));
        for (const int iRadius : m_viGridRadii) {
            const QPointF oTick = pointAt(iDirection, iRadius);
            pPainter->drawLine(oTick - oAside, oTick + oAside);
        }
    }
}

/// The middle of the sector with the shortest petal, or the axis in such a sector, where labels cover least.
double QRosePlotWidget::quietDirection() const
{
    const auto count = [this](double dDirection) {
        const int iSector = m_bins.sectorAt(dDirection);
        return iSector < 0 ? 0.0 : m_bins.m_vdCounts[static_cast<std::size_t>(iSector)];
    };
    std::vector<double> vdDirections{90.0, 180.0, 270.0, 0.0};
    if (!m_bTickMarks) {
        vdDirections.clear();
        for (int i = 0; i < m_bins.sectors(); ++i)
            vdDirections.push_back(m_bins.sectorStart(i) + 0.5 * m_bins.m_dSectorSize);
    }
    return *std::min_element(vdDirections.begin(), vdDirections.end(),
                             [&count](double dA, double dB) { return count(dA) < count(dB); });
}

void QRosePlotWidget::drawScaleLabels(QPainter* pPainter)
{
    if (m_viGridRadii.empty())
        return;
    pPainter->save();
    QFont oFont = pPainter->font();
    if (oFont.pointSizeF() > 0.0)
        oFont.setPointSizeF(oFont.pointSizeF() * g_dScaleFontShare);
    pPainter->setFont(oFont);
    const QFontMetricsF metrics(oFont, pPainter->device());
    const double dDirection = quietDirection();
    const bool bAlongX = std::fmod(dDirection, 180.0) == 90.0;
    double dTakenTo = 0.0;
    for (std::size_t i = 0; i < m_viGridRadii.size(); ++i) {
        const QString sCount = QString::number(static_cast<double>(i + 1) * m_iGridCircleDistance);
        QRectF oBox(0.0, 0.0, metrics.horizontalAdvance(sCount) + 4.0, metrics.ascent());
        const double dHalf = 0.5 * std::hypot(oBox.width(), oBox.height());
        oBox.moveCenter(pointAt(dDirection, m_viGridRadii[i]));
        if (m_bTickMarks) // beside the mark
            oBox.translate(bAlongX ? QPointF(0.0, 0.5 * oBox.height() + g_dTickHalfLength)
                                   : QPointF(0.5 * oBox.width() + g_dTickHalfLength, 0.0));
        // Circles close to each other, or to the rim, leave room for some labels only.
        if (m_viGridRadii[i] - dHalf < dTakenTo || m_viGridRadii[i] + dHalf > radius())
            continue;
        dTakenTo = m_viGridRadii[i] + dHalf;
        QColor oPlate = m_oBackgroundColor;
        oPlate.setAlpha(200);
        pPainter->fillRect(oBox, oPlate);
        pPainter->setPen(m_oLabelColor);
        pPainter->drawText(oBox, Qt::AlignCenter, sCount);
    }
    pPainter->restore();
}

// ---- means ----------------------------------------------------------------------------------------------------------

QPen QRosePlotWidget::meanPen(bool bAxis) const
{
    const QColor oColor = readableColor(bAxis ? g_oAxisColor : g_oMeanColor, m_oBackgroundColor, m_oLabelColor);
    return {oColor, g_dMeanWidth, bAxis ? Qt::DashLine : Qt::SolidLine, Qt::FlatCap};
}

void QRosePlotWidget::drawVector(QPainter* pPainter, double dDirection, double dLength, int iExtraLength)
{
    double dReach = radius() + iExtraLength;
    if (m_bMeanLength && iExtraLength != 0)
        dReach = std::round(radius() * dLength);
    const QPointF oTip = pointAt(dDirection, dReach);
    pPainter->drawLine(QPointF(centre()), oTip);
    if (iExtraLength != 0)
        drawArrow(pPainter, oTip);
}

void QRosePlotWidget::drawMeans(QPainter* pPainter)
{
    if (!m_bMeanDirection)
        return;
    const QPen halo(m_oBackgroundColor, g_dHaloWidth, Qt::SolidLine, Qt::FlatCap);
    const CircularMean& axis = m_means.m_oAxis;
    if (!m_bUnidirectional && !isMissing(axis.m_dDirection)) {
        const double dReach = m_bMeanLength ? std::round(radius() * axis.m_dResultantLength) : radius();
        for (const QPen& pen : {halo, meanPen(true)}) {
            pPainter->setPen(pen);
            pPainter->drawLine(pointAt(axis.m_dDirection, dReach), pointAt(axis.m_dDirection + 180.0, dReach));
        }
    }
    const CircularMean& mean = m_means.m_oDirection;
    if (isMissing(mean.m_dDirection))
        return;
    for (const QPen& pen : {halo, meanPen(false)}) {
        pPainter->setPen(pen);
        drawVector(pPainter, mean.m_dDirection, mean.m_dResultantLength, g_iVectorOverhang);
    }
}

// ---- what sticks to the view ----------------------------------------------------------------------------------------

QStringList QRosePlotWidget::cornerLines() const
{
    if (m_bins.m_iRecords == 0)
        return {};
    QStringList lLines{tr("n = %1").arg(m_bins.m_iRecords), tr("max = %1").arg(maximum(), 0, 'f', 0)};
    if (m_bins.m_iUncovered > 0)
        lLines << tr("outside = %1").arg(m_bins.m_iUncovered);
    return lLines;
}

QRosePlotWidget::Caption QRosePlotWidget::meanCaption(const QPainter& painter) const
{
    if (!m_bMeanDirection || m_bins.m_iRecords == 0)
        return {};
    const auto line = [](const QString& sName, const CircularMean& mean) {
        return isMissing(mean.m_dDirection) ? sName + QStringLiteral(" ---")
                                            : tr("%1 %2°, R = %3")
                                                  .arg(sName)
                                                  .arg(mean.m_dDirection, 0, 'f', 1)
                                                  .arg(mean.m_dResultantLength, 0, 'f', 2);
    };
    QStringList lLines{line(tr("mean"), m_means.m_oDirection)};
    if (!m_bUnidirectional)
        lLines << line(tr("axis"), m_means.m_oAxis);
    const QFontMetricsF metrics(cornerFont(painter), painter.device());
    double dWidth = 0.0;
    for (const QString& sLine : lLines)
        dWidth = std::max(dWidth, metrics.horizontalAdvance(sLine));
    const QSizeF oSize(std::ceil(dWidth) + g_dSampleLength + g_dSampleGap,
                       metrics.lineSpacing() * static_cast<double>(lLines.size()));
    const double dView = pixmapRect().width();
    QRectF oBox(QPointF(dView - g_dCaptionMargin - oSize.width(), g_dCaptionTop), oSize);
    // On narrow charts the title has the first line for itself, where the circle leaves room for a second one.
    const QRectF oBelow = oBox.translated(0.0, metrics.lineSpacing());
    if (g_dCaptionMargin + metrics.horizontalAdvance(headerTitle()) + g_dSampleGap > oBox.left() && !covers(oBelow))
        oBox = oBelow;
    return {covers(oBox) || oBox.width() > dView ? QRectF() : oBox, lLines};
}

double QRosePlotWidget::titleLimit(const QPainter& painter) const
{
    const QRectF oMeans = meanCaption(painter).m_oBox;
    const double dLimit = QPolarPlotWidget::titleLimit(painter);
    const bool bBeside = !oMeans.isEmpty() && oMeans.top() <= g_dCaptionTop;
    return bBeside ? std::min(dLimit, oMeans.left() - g_dSampleGap) : dLimit;
}

std::vector<QRectF> QRosePlotWidget::visibleBoxes(const QPainter& painter) const
{
    std::vector<QRectF> voBoxes = QPolarPlotWidget::visibleBoxes(painter);
    voBoxes.push_back(meanCaption(painter).m_oBox);
    return voBoxes;
}

void QRosePlotWidget::drawMeanCaption(QPainter& painter) const
{
    const Caption means = meanCaption(painter);
    if (means.m_oBox.isEmpty())
        return;
    painter.save();
    painter.setFont(cornerFont(painter));
    const double dLine = means.m_oBox.height() / static_cast<double>(means.m_lLines.size());
    for (qsizetype i = 0; i < means.m_lLines.size(); ++i) {
        QRectF oLine(means.m_oBox.left(), means.m_oBox.top() + static_cast<double>(i) * dLine, means.m_oBox.width(),
                     dLine);
        const QPointF oEnd(oLine.left() + g_dSampleLength, oLine.center().y());
        painter.setPen(meanPen(i == 1));
        painter.drawLine(QPointF(oLine.left(), oEnd.y()), oEnd);
        if (i == 0) {
            painter.drawLine(oEnd, oEnd + QPointF(-7.0, -4.0));
            painter.drawLine(oEnd, oEnd + QPointF(-7.0, 4.0));
        }
        oLine.setLeft(oEnd.x() + g_dSampleGap);
        painter.setPen(m_oLabelColor);
        painter.drawText(oLine, Qt::AlignLeft | Qt::AlignVCenter, means.m_lLines[i]);
    }
    painter.restore();
}

void QRosePlotWidget::drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea)
{
    QPolarPlotWidget::drawVisibleFrame(painter, oVisibleArea);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_oLabelColor);
    painter.fillRect(meanCaption(painter).m_oBox, m_oBackgroundColor); // a magnified chart may lie below
    drawMeanCaption(painter);
    painter.setPen(m_oLabelColor);
    if (m_bins.m_iRecords == 0)
        painter.drawText(QRectF(QPointF(0, 0), QSizeF(oVisibleArea.size())), Qt::AlignCenter | Qt::TextWordWrap,
                         m_sMessage);
    painter.restore();
}

} // namespace gkBase
