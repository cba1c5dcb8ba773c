#include "CrossPlotPainting.h"

#include "LabelPlacement.h"
#include "PainterState.h"
#include "PointSelection.h"
#include "ReadableColor.h"
#include "SymbolGeometry.h"

#include <QFont>
#include <QFontMetricsF>
#include <QList>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <optional>

namespace gkBase {

namespace {

constexpr double g_dHalo = 2.0; ///< added to a line's width
/// What lies under a halo stays in sight, so that curves do not seem to have gaps.
constexpr int g_iHaloAlpha = 150;
constexpr double g_dPadding = 3.0;
constexpr double g_dStripe = 4.0;
constexpr double g_dMargin = 6.0;
constexpr int g_iBoxAlpha = 225;
constexpr double g_dBroader = 2.0; ///< what faults exceed other lines by
constexpr double g_dHoverBand = 8.0;
constexpr int g_iHoverAlpha = 70;
constexpr int g_iHandleFont = 9; ///< pixels
constexpr int g_iDarkGray = 140;
constexpr double g_dMarkPen = 2.0;
constexpr double g_dLabelShare = 0.7; ///< of the width, for the longest name

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

/// Dashes and gaps in pixels; empty for a solid line.
QList<qreal> dashesOf(DepthLineField::DataType eType)
{
    switch (eType) {
    case DepthLineField::CrestalPlane:
        return {14.0, 5.0};
    case DepthLineField::AxialPlane:
        return {9.0, 4.0, 2.0, 4.0};
    case DepthLineField::InflectionPlane:
        return {3.0, 3.0};
    case DepthLineField::AverageOrientation:
        return {1.0, 2.0};
    default:
        return {};
    }
}

QPen linePen(const CrossPlotDepthLine& line, const QColor& oColor)
{
    const double dWidth = line.m_iWidth + (line.m_eType == DepthLineField::Fault ? g_dBroader : 0.0);
    QPen pen(oColor, dWidth, Qt::SolidLine, Qt::FlatCap);
    QList<qreal> vdDashes = dashesOf(line.m_eType);
    if (!vdDashes.isEmpty()) {
        for (qreal& dLength : vdDashes) {
            dLength /= dWidth; // pens count in their widths
        }
        pen.setDashPattern(vdDashes);
    }
    return pen;
}

/// Black or white, whichever is easier to read on the colour.
QColor inkOn(const QColor& oColor)
{
    return qGray(oColor.rgb()) < g_iDarkGray ? Qt::white : Qt::black;
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

void drawCrossPlotDepthLines(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, int iHovered,
                             const QRect& oVisible, const CrossPlotStyle& style)
{
    const PainterState state(&painter);
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const CrossPlotDepthLine& line : vLines) {
        const double dY = line.m_dY - oVisible.top();
        if (dY < -1.0 || dY > oVisible.height()) {
            continue;
        }
        const QLineF oLine(0.0, dY, oVisible.width(), dY);
        const QPen pen = linePen(line, readableColor(line.m_oColor, style.m_oBackground, style.m_oLabel));
        if (line.m_iLine == iHovered) {
            QColor oBand = style.m_oLabel;
            oBand.setAlpha(g_iHoverAlpha);
            painter.setPen(QPen(oBand, pen.widthF() + g_dHoverBand, Qt::SolidLine, Qt::FlatCap));
            painter.drawLine(oLine);
        }
        if (line.m_bSelected) {
            painter.setPen(QPen(style.m_oLabel, pen.widthF() + 2.0 * g_dHalo, Qt::SolidLine, Qt::FlatCap));
            painter.drawLine(oLine);
        }
        drawLineWithHalo(painter, oLine, pen, style);
    }
}

void drawCrossPlotHandles(QPainter& painter, std::span<const CrossPlotLineHandle> vHandles,
                          std::span<const CrossPlotDepthLine> vLines, int iHovered, LabelPlacement& placement,
                          const CrossPlotStyle& style)
{
    const PainterState state(&painter);
    painter.setRenderHint(QPainter::Antialiasing, false);
    QFont font = painter.font();
    font.setPixelSize(g_iHandleFont);
    font.setBold(true);
    painter.setFont(font);
    for (const CrossPlotLineHandle& handle : vHandles) {
        const CrossPlotDepthLine& line = vLines[handle.m_iShape];
        const QColor oColor = readableColor(line.m_oColor, style.m_oBackground, style.m_oLabel);
        const bool bFilled = line.m_bSelected || line.m_iLine == iHovered;
        const QRectF& oRect = handle.m_oRect;
        placement.block(oRect);
        // A rim of the background parts it from its neighbours, a further one marks what is selected.
        painter.fillRect(oRect.adjusted(-1.0, -1.0, 1.0, 1.0), line.m_bSelected ? style.m_oLabel : style.m_oBackground);
        painter.fillRect(oRect, oColor);
        if (!bFilled) {
            painter.fillRect(oRect.adjusted(1.0, 1.0, -1.0, -1.0), style.m_oBackground);
        }
        painter.setPen(bFilled ? inkOn(oColor) : style.m_oLabel);
        painter.drawText(oRect, Qt::AlignCenter | Qt::TextDontClip, lineTypeLetter(line.m_eType));
    }
}

void drawCrossPlotOrientationMarks(QPainter& painter, std::span<const CrossPlotOrientationMark> vMarks,
                                   LabelPlacement& placement, const CrossPlotStyle& style)
{
    const PainterState state(&painter);
    painter.setRenderHint(QPainter::Antialiasing, true);
    constexpr int iRadius = CrossPlotOrientationMark::s_iRadius;
    for (const CrossPlotOrientationMark& mark : vMarks) {
        const std::optional<QLineF> oTail = tadpoleTail(mark.m_oCentre, mark.m_dAzimuth, iRadius);
        // Background below, so that it stands out from points.
        for (const bool bGround : {true, false}) {
            const double dHalo = bGround ? g_dHalo : 0.0;
            painter.setPen(QPen(bGround ? style.m_oBackground : style.m_oLabel, g_dMarkPen + dHalo));
            painter.setBrush(mark.m_bBeyond || bGround ? style.m_oBackground : mark.m_oColor);
            if (oTail) {
                painter.drawLine(*oTail);
            }
            painter.drawEllipse(mark.m_oCentre, iRadius, iRadius);
        }
        placement.block(QRectF(mark.m_oCentre, QSizeF()).adjusted(-iRadius, -iRadius, iRadius, iRadius));
    }
}

void drawCrossPlotOrientationLabels(QPainter& painter, std::span<const CrossPlotOrientationMark> vMarks,
                                    LabelPlacement& placement, const CrossPlotStyle& style)
{
    constexpr double dReach = CrossPlotOrientationMark::s_iRadius + g_dPadding;
    for (const CrossPlotOrientationMark& mark : vMarks) {
        if (mark.m_sLabel.isEmpty()) {
            continue;
        }
        const QRectF oAnchor = QRectF(mark.m_oCentre, QSizeF()).adjusted(-dReach, -dReach, dReach, dReach);
        const QRectF oBox = placement.place(oAnchor, boxSize(painter, mark.m_sLabel));
        if (!oBox.isNull()) {
            drawBox(painter, oBox, mark.m_sLabel, QColor(), style);
        }
    }
}

void drawCrossPlotLabels(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, int iHovered,
                         const QRect& oVisible, LabelPlacement& placement, const CrossPlotStyle& style)
{
    std::vector<std::size_t> viOrder(vLines.size());
    std::iota(viOrder.begin(), viOrder.end(), std::size_t{0});
    const auto rest = std::stable_partition(viOrder.begin(), viOrder.end(),
                                            [&](std::size_t i) { return vLines[i].m_iLine == iHovered; });
    std::stable_partition(rest, viOrder.end(), [&vLines](std::size_t i) { return vLines[i].m_bSelected; });
    const QFontMetricsF metrics(painter.font(), painter.device());
    const double dWidest = oVisible.width() * g_dLabelShare;
    for (const std::size_t i : viOrder) {
        const CrossPlotDepthLine& line = vLines[i];
        const double dY = line.m_dY - oVisible.top();
        if (line.m_sLabel.isEmpty() || dY < 0.0 || dY >= oVisible.height()) {
            continue;
        }
        const QString sLabel = metrics.elidedText(line.m_sLabel, Qt::ElideRight, dWidest);
        const QSizeF oSize = boxSize(painter, sLabel) + QSizeF(g_dStripe, 0.0);
        const double dX = oVisible.width() - oSize.width() - g_dMargin;
        // Above the line, or below it where there is no room.
        const std::array<QRectF, 2> voBoxes{QRectF(QPointF(dX, dY - 2.0 - oSize.height()), oSize),
                                            QRectF(QPointF(dX, dY + 2.0), oSize)};
        const QRectF oBox = placement.place(voBoxes);
        if (!oBox.isNull()) {
            // The stripe tells which of two lines beside a label is meant.
            drawBox(painter, oBox.adjusted(g_dStripe, 0.0, 0.0, 0.0), sLabel,
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
