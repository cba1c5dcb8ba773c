#include "CrossPlotPainting.h"

#include "LabelPlacement.h"
#include "PointSelection.h"
#include "ReadableColor.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace gkBase {

namespace {

constexpr double g_dHalo = 2.0; ///< added to a line's width
/// What lies under a halo stays in sight, so that curves do not seem to have gaps.
constexpr int g_iHaloAlpha = 150;
constexpr double g_dPadding = 3.0;
constexpr double g_dStripe = 4.0;
constexpr double g_dMargin = 6.0;
constexpr int g_iBoxAlpha = 225;

void drawLineWithHalo(QPainter& painter, const QLineF& oLine, const QPen& pen, const CrossPlotStyle& style)
{
    QColor oHalo = style.m_oBackground;
    oHalo.setAlpha(g_iHaloAlpha);
    painter.setPen(QPen(oHalo, pen.widthF() + g_dHalo, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(oLine);
    painter.setPen(pen);
    painter.drawLine(oLine);
}

/// A text on a ground of the background's colour.
void drawBox(QPainter& painter, const QRectF& oBox, const QString& sText, const QColor& oFrame,
             const CrossPlotStyle& style)
{
    QColor oGround = style.m_oBackground;
    oGround.setAlpha(g_iBoxAlpha);
    painter.setPen(oFrame.isValid() ? QPen(oFrame, 1.0) : QPen(Qt::NoPen));
    painter.setBrush(oGround);
    painter.drawRect(oBox);
    painter.setPen(style.m_oLabel);
    painter.drawText(oBox.adjusted(g_dPadding, 0.0, -g_dPadding, 0.0), Qt::AlignLeft | Qt::AlignVCenter, sText);
}

QSizeF boxSize(const QPainter& painter, const QString& sText)
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    const QSizeF oText = metrics.size(0, sText);
    return {std::ceil(oText.width()) + 2.0 * g_dPadding, std::ceil(oText.height())};
}

Qt::PenStyle penStyle(const CrossPlotDepthLine& line)
{
    if (line.m_bDotted) {
        return Qt::DotLine;
    }
    return line.m_bDashed ? Qt::DashLine : Qt::SolidLine;
}

double distanceToLine(const QPointF& oPoint, const QLineF& oLine)
{
    const double dLength = oLine.length();
    const QPointF oAlong = oLine.p2() - oLine.p1();
    const QPointF oTo = oPoint - oLine.p1();
    return dLength > 0.0 ? std::abs(oAlong.x() * oTo.y() - oAlong.y() * oTo.x()) / dLength : 0.0;
}

} // namespace

void drawCrossPlotGrid(QPainter& painter, std::span<const int> viVertical, std::span<const int> viHorizontal,
                       const QRectF& oPlot, const CrossPlotStyle& style)
{
    painter.setPen(QPen(style.m_oGrid, 1.0, Qt::DotLine));
    for (const int iX : viVertical) {
        painter.drawLine(QPointF(iX, oPlot.top()), QPointF(iX, oPlot.bottom()));
    }
    for (const int iY : viHorizontal) {
        painter.drawLine(QPointF(oPlot.left(), iY), QPointF(oPlot.right(), iY));
    }
}

void drawCrossPlotDomains(QPainter& painter, std::span<const CrossPlotDomain> vDomains)
{
    for (const CrossPlotDomain& domain : vDomains) {
        painter.fillRect(domain.m_oRect, domain.m_oColor);
    }
}

void drawCrossPlotBoundaries(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, const QRectF& oPlot,
                             const CrossPlotStyle& style)
{
    for (const CrossPlotDepthLine& line : vLines) {
        painter.setPen(QPen(readableColor(line.m_oColor, style.m_oBackground, style.m_oLabel), 1.0));
        painter.drawLine(QPointF(oPlot.left(), line.m_dY), QPointF(oPlot.right(), line.m_dY));
    }
}

void drawCrossPlotDepthLines(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, const QRectF& oPlot,
                             const CrossPlotStyle& style)
{
    for (const CrossPlotDepthLine& line : vLines) {
        const QLineF oLine(oPlot.left(), line.m_dY, oPlot.right(), line.m_dY);
        const QColor oColor = readableColor(line.m_oColor, style.m_oBackground, style.m_oLabel);
        if (line.m_bSelected) {
            // Broad, and with an edge of the label colour.
            painter.setPen(QPen(style.m_oLabel, line.m_iWidth + 2.0 * g_dHalo, Qt::SolidLine, Qt::FlatCap));
            painter.drawLine(oLine);
        }
        drawLineWithHalo(painter, oLine, QPen(oColor, line.m_iWidth, penStyle(line), Qt::FlatCap), style);
    }
}

void drawCrossPlotRegression(QPainter& painter, const QLineF& oLine, const CrossPlotStyle& style)
{
    if (oLine.isNull()) {
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor oColor = readableColor(style.m_oLine, style.m_oBackground, style.m_oLabel);
    drawLineWithHalo(painter, oLine, QPen(oColor, style.m_iLineWidth, Qt::SolidLine, Qt::FlatCap), style);
    painter.restore();
}

void drawCrossPlotRange(QPainter& painter, const CrossPlotRange& oRange, const CrossPlotMap& oMap, const QRectF& oPlot,
                        const CrossPlotStyle& style)
{
    const QPen pen(style.m_oLabel, 1.0, Qt::DashLine, Qt::FlatCap);
    for (const double dX : {oRange.m_dX5, oRange.m_dX95}) {
        const double dPixel = oMap.m_oX.toPixel(dX);
        if (dPixel >= oPlot.left() && dPixel <= oPlot.right()) {
            drawLineWithHalo(painter, QLineF(dPixel, oPlot.top(), dPixel, oPlot.bottom()), pen, style);
        }
    }
    for (const double dY : {oRange.m_dY5, oRange.m_dY95}) {
        const double dPixel = oMap.m_oY.toPixel(dY);
        if (dPixel >= oPlot.top() && dPixel <= oPlot.bottom()) {
            drawLineWithHalo(painter, QLineF(oPlot.left(), dPixel, oPlot.right(), dPixel), pen, style);
        }
    }
}

void drawCrossPlotLabels(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, const QRect& oVisible,
                         LabelPlacement& placement, const CrossPlotStyle& style)
{
    std::vector<std::size_t> viOrder(vLines.size());
    std::iota(viOrder.begin(), viOrder.end(), std::size_t{0});
    std::stable_partition(viOrder.begin(), viOrder.end(), [&vLines](std::size_t i) { return vLines[i].m_bSelected; });
    for (const std::size_t i : viOrder) {
        const CrossPlotDepthLine& line = vLines[i];
        const double dY = line.m_dY - oVisible.top();
        if (line.m_sLabel.isEmpty() || dY < 0.0 || dY >= oVisible.height()) {
            continue;
        }
        const QSizeF oSize = boxSize(painter, line.m_sLabel) + QSizeF(g_dStripe, 0.0);
        const double dX = oVisible.width() - oSize.width() - g_dMargin;
        // Above the line, or below it where there is no room.
        const std::array<QRectF, 2> voBoxes{QRectF(QPointF(dX, dY - 2.0 - oSize.height()), oSize),
                                            QRectF(QPointF(dX, dY + 2.0), oSize)};
        const QRectF oBox = placement.place(voBoxes);
        if (!oBox.isNull()) {
            // The stripe tells which of two lines beside a label is meant.
            drawBox(painter, oBox.adjusted(g_dStripe, 0.0, 0.0, 0.0), line.m_sLabel,
                    line.m_bSelected ? style.m_oLabel : QColor(), style);
            painter.fillRect(QRectF(oBox.topLeft(), QSizeF(g_dStripe, oBox.height())),
                             readableColor(line.m_oColor, style.m_oBackground, style.m_oLabel));
        }
    }
}

void drawCrossPlotText(QPainter& painter, const QString& sText, const QLineF& oLine, const QRect& oVisible,
                       LabelPlacement& placement, const CrossPlotStyle& style)
{
    const QSizeF oSize = boxSize(painter, sText);
    const QLineF oSeen = oLine.translated(-oVisible.topLeft());
    const double dRight = oVisible.width() - g_dMargin - oSize.width();
    const double dBottom = oVisible.height() - g_dMargin - oSize.height();
    QRectF oBest;
    double dFarthest = -1.0;
    for (const QPointF& oCorner : {QPointF(g_dMargin, g_dMargin), QPointF(dRight, g_dMargin),
                                   QPointF(g_dMargin, dBottom), QPointF(dRight, dBottom)}) {
        const QRectF oBox(oCorner, oSize);
        const double dDistance = distanceToLine(oBox.center(), oSeen);
        if (dDistance > dFarthest + 1.0) {
            dFarthest = dDistance;
            oBest = oBox;
        }
    }
    placement.block(oBest);
    drawBox(painter, oBest, sText, style.m_oGrid, style);
}

void drawCrossPlotRangeLabels(QPainter& painter, const CrossPlotRange& oRange, const CrossPlotMap& oMap,
                              const QRect& oVisible, LabelPlacement& placement, const CrossPlotStyle& style)
{
    const auto label = [&](const QString& sText, const QPointF& oEnd, bool bVertical) {
        const QSizeF oSize = boxSize(painter, sText);
        const QPointF oInside = oEnd - oVisible.topLeft();
        const double dLeft = oInside.x() - oSize.width() - 2.0;
        // On one side of the line, or on the other where that is taken.
        const std::array<QRectF, 2> voBoxes{
            QRectF(bVertical ? oInside + QPointF(2.0, 2.0) : QPointF(dLeft, oInside.y() - oSize.height() - 2.0), oSize),
            QRectF(QPointF(dLeft, oInside.y() + 2.0), oSize)};
        const QRectF oBox = placement.place(voBoxes);
        if (!oBox.isNull()) {
            drawBox(painter, oBox, sText, QColor(), style);
        }
    };
    const QString s5 = QStringLiteral("5 %");
    const QString s95 = QStringLiteral("95 %");
    label(s5, QPointF(oMap.m_oX.toPixel(oRange.m_dX5), oVisible.top()), true);
    label(s95, QPointF(oMap.m_oX.toPixel(oRange.m_dX95), oVisible.top()), true);
    label(s5, QPointF(oVisible.right(), oMap.m_oY.toPixel(oRange.m_dY5)), false);
    label(s95, QPointF(oVisible.right(), oMap.m_oY.toPixel(oRange.m_dY95)), false);
}

void drawCrossPlotMessage(QPainter& painter, const QString& sMessage, const QRect& oVisible,
                          const CrossPlotStyle& style)
{
    painter.setPen(style.m_oLabel);
    painter.drawText(QRectF(QPointF(0, 0), QSizeF(oVisible.size())).adjusted(g_dMargin, 0.0, -g_dMargin, 0.0),
                     Qt::AlignCenter | Qt::TextWordWrap, sMessage);
}

void drawCrossPlotCursorLine(QPainter& painter, double dY, const QRect& oVisible, const CrossPlotStyle& style)
{
    const double dSeen = dY - oVisible.top();
    if (dSeen >= 0.0 && dSeen < oVisible.height()) {
        painter.setPen(QPen(style.m_oLabel, 1.0, Qt::DashLine));
        painter.drawLine(QPointF(0.0, dSeen), QPointF(oVisible.width(), dSeen));
    }
}

void drawCrossPlotLasso(QPainter& painter, const QVector<QPointF>& voOutline, const QString& sText,
                        const QRect& oVisible, const CrossPlotStyle& style)
{
    drawSelectionOutline(painter, voOutline, style.m_oBackground, style.m_oLabel);
    const QSizeF oSize = boxSize(painter, sText);
    drawBox(painter, QRectF(QPointF(std::floor((oVisible.width() - oSize.width()) / 2.0), g_dMargin), oSize), sText,
            style.m_oGrid, style);
}

} // namespace gkBase
