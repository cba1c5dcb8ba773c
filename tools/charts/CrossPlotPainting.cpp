#include "CrossPlotPainting.h"

#include "LabelPlacement.h"
#include "PainterState.h"
#include "PointSelection.h"
#include "ReadableColor.h"
#include "SymbolGeometry.h"
#include "SymbolSpriteCache.h"

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
constexpr double g_dRoomForHalo = 8.0;
constexpr double g_dPadding = 3.0;
constexpr double g_dStripe = 4.0;
constexpr double g_dMargin = 6.0;
constexpr int g_iBoxAlpha = 225;
constexpr int g_iNameAlpha = 150;    ///< of names of lines, which stand on the points of their depths
constexpr double g_dBroader = 2.0;   ///< what faults exceed other lines by
constexpr double g_dHoverBand = 4.0; ///< beyond the line, as the halo
constexpr int g_iHoverAlpha = 70;
constexpr int g_iOpaque = 255;
constexpr int g_iHandleFont = 9; ///< pixels
constexpr int g_iDarkGray = 140;
constexpr int g_iMarkPen = 2;
constexpr double g_dLabelShare = 0.7; ///< of the width, for the longest name
constexpr double g_dNameGap = 2.0;    ///< between a line and its name
constexpr double g_dNameStep = 16.0;  ///< pixels to the left, to the next place of a name

void drawLineWithHalo(QPainter& painter, const QLineF& oLine, const QPen& pen, const CrossPlotStyle& style)
{
    QColor oHalo = style.m_oBackground;
    oHalo.setAlpha(g_iHaloAlpha);
    painter.setPen(QPen(oHalo, pen.widthF() + g_dHalo, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(oLine);
    painter.setPen(pen);
    painter.drawLine(oLine);
}

void drawGround(QPainter& painter, const QRectF& oBox, const QColor& oFrame, const CrossPlotStyle& style,
                int iAlpha = g_iBoxAlpha)
{
    QColor oGround = style.m_oBackground;
    oGround.setAlpha(iAlpha);
    painter.setPen(oFrame.isValid() ? QPen(oFrame, 1.0) : QPen(Qt::NoPen));
    painter.setBrush(oGround);
    painter.drawRect(oBox);
    painter.setPen(style.m_oLabel);
}

/// A text on a ground of the background's colour.
void drawBox(QPainter& painter, const QRectF& oBox, const QString& sText, const QColor& oFrame,
             const CrossPlotStyle& style)
{
    drawGround(painter, oBox, oFrame, style);
    painter.drawText(oBox.adjusted(g_dPadding, 0.0, -g_dPadding, 0.0), Qt::AlignLeft | Qt::AlignVCenter, sText);
}

QSizeF boxSize(const QPainter& painter, const QString& sText)
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    const QSizeF oText = metrics.size(0, sText);
    return {std::ceil(oText.width()) + 2.0 * g_dPadding, std::ceil(oText.height())};
}

/// As drawBox() and boxSize() for the many names of lines, which have one row and need no layout.
void drawNameBox(QPainter& painter, const QRectF& oBox, const QString& sName, const QFontMetricsF& metrics,
                 const QColor& oFrame, const CrossPlotStyle& style)
{
    drawGround(painter, oBox, oFrame, style, oFrame.isValid() ? g_iBoxAlpha : g_iNameAlpha);
    painter.drawText(oBox.topLeft() + QPointF(g_dPadding, metrics.ascent()), sName);
}

QSizeF nameBoxSize(const QFontMetricsF& metrics, const QString& sName)
{
    return {std::ceil(metrics.horizontalAdvance(sName)) + 2.0 * g_dPadding, std::ceil(metrics.height())};
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

double lineWidth(const CrossPlotDepthLine& line)
{
    return line.m_iWidth + (line.m_eType == DepthLineField::Fault ? g_dBroader : 0.0);
}

/// Halos of lines side by side would hide the points between them. The lines come from top to bottom.
bool isAlone(std::span<const CrossPlotDepthLine> vLines, std::size_t i)
{
    return (i == 0 || vLines[i].m_dY - vLines[i - 1].m_dY > g_dRoomForHalo) &&
           (i + 1 == vLines.size() || vLines[i + 1].m_dY - vLines[i].m_dY > g_dRoomForHalo);
}

/// Black or white, whichever is easier to read on the colour.
QColor inkOn(const QColor& oColor)
{
    return qGray(oColor.rgb()) < g_iDarkGray ? Qt::white : Qt::black;
}

/// The box for a name at the right end of a line, above it, or below where there is no room; a null rectangle for none.
/// A name that is needed also goes further left, and where nothing is free it lies over what stands at the right end.
QRectF placeName(double dY, double dRight, const QSizeF& oSize, bool bNeeded, LabelPlacement& placement)
{
    const double dAbove = dY - g_dNameGap - oSize.height();
    const double dFirst = std::max(0.0, dRight - oSize.width());
    std::vector<QRectF> voBoxes;
    for (double dX = dFirst; dX >= (bNeeded ? 0.0 : dFirst); dX -= g_dNameStep) {
        voBoxes.emplace_back(QPointF(dX, dAbove), oSize);
        voBoxes.emplace_back(QPointF(dX, dY + g_dNameGap), oSize);
    }
    QRectF oBox = placement.place(voBoxes);
    if (oBox.isNull() && bNeeded) {
        oBox = voBoxes[dAbove >= 0.0 ? 0 : 1];
        placement.block(oBox);
    }
    return oBox;
}

double distanceToLine(const QPointF& oPoint, const QLineF& oLine)
{
    const double dLength = oLine.length();
    const QPointF oAlong = oLine.p2() - oLine.p1();
    const QPointF oTo = oPoint - oLine.p1();
    return dLength > 0.0 ? std::abs(oAlong.x() * oTo.y() - oAlong.y() * oTo.x()) / dLength : 0.0;
}

/// The marks of lines that are selected, or that are not, from top to bottom.
template <typename Draw>
void forMarks(std::span<const CrossPlotOrientationMark> vMarks, bool bSelected, const Draw& draw)
{
    for (const CrossPlotOrientationMark& mark : vMarks) {
        if (mark.m_bSelected == bSelected) {
            draw(mark);
        }
    }
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

void drawCrossPlotBoundaries(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, const QRectF& oPlot)
{
    for (const CrossPlotDepthLine& line : vLines) {
        painter.setPen(QPen(line.m_oColor, 1.0));
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
    for (std::size_t i = 0; i < vLines.size(); ++i) {
        const CrossPlotDepthLine& line = vLines[i];
        const double dY = line.m_dY - oVisible.top();
        if (dY < -1.0 || dY > oVisible.height()) {
            continue;
        }
        const double dWidth = lineWidth(line);
        const auto band = [&](double dBeyond, const QColor& oColor, int iAlpha) {
            QColor oFill = oColor;
            oFill.setAlpha(iAlpha);
            painter.fillRect(QRectF(0.0, dY - dWidth / 2.0 - dBeyond, oVisible.width(), dWidth + 2.0 * dBeyond), oFill);
        };
        if (line.m_iLine == iHovered) {
            band(g_dHoverBand, style.m_oLabel, g_iHoverAlpha);
        }
        if (line.m_bSelected) {
            band(g_dHalo, style.m_oLabel, g_iOpaque);
        }
        if (line.m_bSelected || isAlone(vLines, i)) {
            band(g_dHalo / 2.0, style.m_oBackground, line.m_bSelected ? g_iOpaque : g_iHaloAlpha);
        }
        QList<qreal> vdDashes = dashesOf(line.m_eType);
        if (vdDashes.isEmpty()) {
            band(0.0, line.m_oColor, g_iOpaque);
            continue;
        }
        for (qreal& dLength : vdDashes) {
            dLength /= dWidth; // pens count in their widths
        }
        QPen pen(line.m_oColor, dWidth, Qt::CustomDashLine, Qt::FlatCap);
        pen.setDashPattern(vdDashes);
        painter.setPen(pen);
        painter.drawLine(QPointF(0.0, dY), QPointF(oVisible.width(), dY));
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
    const QFontMetricsF metrics(font, painter.device());
    std::array<double, 7> vdWidths{}; // of the letters, measured once
    for (std::size_t i = 0; i < vdWidths.size(); ++i) {
        vdWidths[i] = metrics.horizontalAdvance(lineTypeLetter(static_cast<DepthLineField::DataType>(i)));
    }
    const double dBase = std::floor((CrossPlotLineHandle::s_dSize - metrics.capHeight()) / 2.0);
    for (const CrossPlotLineHandle& handle : vHandles) {
        const CrossPlotDepthLine& line = vLines[handle.m_iShape];
        const bool bFilled = line.m_bSelected || line.m_iLine == iHovered;
        const QRectF& oRect = handle.m_oRect;
        placement.block(oRect);
        // A rim of the background parts it from its neighbours, a further one marks what is selected.
        painter.fillRect(oRect.adjusted(-1.0, -1.0, 1.0, 1.0), line.m_bSelected ? style.m_oLabel : style.m_oBackground);
        painter.fillRect(oRect, line.m_oColor);
        if (!bFilled) {
            painter.fillRect(oRect.adjusted(1.0, 1.0, -1.0, -1.0), style.m_oBackground);
        }
        painter.setPen(bFilled ? inkOn(line.m_oColor) : style.m_oLabel);
        const double dLeft = oRect.center().x() - vdWidths[static_cast<std::size_t>(line.m_eType)] / 2.0;
        painter.drawText(QPointF(dLeft, oRect.bottom() - dBase), lineTypeLetter(line.m_eType));
    }
}

void drawCrossPlotOrientationMarks(QPainter& painter, std::span<const CrossPlotOrientationMark> vMarks,
                                   SymbolSpriteCache& sprites, LabelPlacement& placement, const CrossPlotStyle& style)
{
    const PainterState state(&painter);
    painter.setRenderHint(QPainter::Antialiasing, true);
    constexpr int iRadius = CrossPlotOrientationMark::s_iRadius;
    const auto draw = [&](const CrossPlotOrientationMark& mark) {
        if (const std::optional<QLineF> oTail = tadpoleTail(mark.m_oCentre, mark.m_dAzimuth, iRadius)) {
            painter.setPen(QPen(style.m_oLabel, g_iMarkPen));
            painter.drawLine(*oTail);
            placement.block(QRectF(oTail->p1(), oTail->p2()).normalized());
        }
        // A rim of the background parts it from points.
        SymbolLook look{Circle, style.m_oBackground, QColor(), iRadius, g_iMarkPen + 2};
        sprites.drawSymbols(&painter, {&mark.m_oCentre, 1}, look);
        look = {Circle, style.m_oLabel, mark.m_bBeyond ? style.m_oBackground : mark.m_oColor, iRadius, g_iMarkPen};
        sprites.drawSymbols(&painter, {&mark.m_oCentre, 1}, look);
        placement.block(QRectF(mark.m_oCentre, QSizeF()).adjusted(-iRadius, -iRadius, iRadius, iRadius));
    };
    forMarks(vMarks, false, draw);
    forMarks(vMarks, true, draw); // on top
}

void drawCrossPlotOrientationLabels(QPainter& painter, std::span<const CrossPlotOrientationMark> vMarks,
                                    LabelPlacement& placement, const CrossPlotStyle& style)
{
    constexpr double dReach = CrossPlotOrientationMark::s_iRadius + g_dPadding;
    const QFontMetricsF metrics(painter.font(), painter.device());
    const QSizeF oSize = nameBoxSize(metrics, QStringLiteral("00/000")); // digits are equally wide
    const auto draw = [&](const CrossPlotOrientationMark& mark) {
        if (mark.m_sLabel.isEmpty()) {
            return;
        }
        const QRectF oAnchor = QRectF(mark.m_oCentre, QSizeF()).adjusted(-dReach, -dReach, dReach, dReach);
        const QRectF oBox = placement.place(oAnchor, oSize);
        if (!oBox.isNull()) {
            drawNameBox(painter, oBox, mark.m_sLabel, metrics, QColor(), style);
        }
    };
    forMarks(vMarks, true, draw); // they have the first choice of places
    forMarks(vMarks, false, draw);
}

void drawCrossPlotLabels(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, int iHovered,
                         const QRect& oVisible, LabelPlacement& placement, const CrossPlotStyle& style)
{
    std::vector<std::size_t> viOrder(vLines.size());
    std::iota(viOrder.begin(), viOrder.end(), std::size_t{0});
    const auto rest = std::stable_partition(viOrder.begin(), viOrder.end(),
                                            [&](std::size_t i) { return vLines[i].m_iLine == iHovered; });
    std::stable_partition(rest, viOrder.end(), [&vLines](std::size_t i) { return vLines[i].m_bSelected; });
    const auto iPicked = std::count_if(vLines.begin(), vLines.end(), [](const auto& line) { return line.m_bSelected; });
    const QFontMetricsF metrics(painter.font(), painter.device());
    const double dHeight = std::ceil(metrics.height());
    const double dWidest = oVisible.width() * g_dLabelShare;
    const double dRight = oVisible.width() - g_dMargin;
    for (const std::size_t i : viOrder) {
        const CrossPlotDepthLine& line = vLines[i];
        const double dY = line.m_dY - oVisible.top();
        if (line.m_sLabel.isEmpty() || dY < 0.0 || dY >= oVisible.height()) {
            continue;
        }
        // Most of many names have no room; those are not measured.
        const bool bNeeded = line.m_iLine == iHovered || (line.m_bSelected && iPicked == 1);
        if (!bNeeded && !placement.isFree(QRectF(dRight - 1.0, dY - g_dNameGap - dHeight, 1.0, dHeight)) &&
            !placement.isFree(QRectF(dRight - 1.0, dY + g_dNameGap, 1.0, dHeight))) {
            continue;
        }
        QString sLabel = line.m_sLabel;
        QSizeF oSize = nameBoxSize(metrics, sLabel);
        if (oSize.width() > dWidest) {
            sLabel = metrics.elidedText(sLabel, Qt::ElideRight, dWidest - 2.0 * g_dPadding);
            oSize = nameBoxSize(metrics, sLabel);
        }
        oSize += QSizeF(g_dStripe, 0.0);
        const QRectF oBox = placeName(dY, dRight, oSize, bNeeded, placement);
        if (!oBox.isNull()) {
            // The stripe tells which of two lines beside a label is meant.
            drawNameBox(painter, oBox.adjusted(g_dStripe, 0.0, 0.0, 0.0), sLabel, metrics,
                        line.m_bSelected ? style.m_oLabel : QColor(), style);
            painter.fillRect(QRectF(oBox.topLeft(), QSizeF(g_dStripe, oBox.height())), line.m_oColor);
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
