// The drawing of points, labels and grid that all charts share.

#include "MissingValue.h"
#include "PainterState.h"
#include "QChartDrawingArea.h"
#include "SymbolGeometry.h"

#include <QComboBox>
#include <QFontMetricsF>
#include <QIcon>
#include <QPainter>
#include <QPen>

namespace gkBase {

namespace {

/// Half the width of the symbols in combo boxes and legends.
constexpr int g_iIconSymbolSize = 5;
constexpr double g_dLabelGap = 6.0;
constexpr int g_iCentroidSize = 7;
constexpr int g_iResultPointSize = 5;

/// What fills a style whose inside is drawn in oFill on a background; invalid for none.
QColor fillOf(int iStyle, const QColor& oFill, const QColor& oBackground)
{
    switch (symbolFill(iStyle)) {
    case SymbolFill::None:
        return {};
    case SymbolFill::Background:
        return oBackground;
    default:
        return oFill;
    }
}

} // namespace

// ---- shapes in the current pen and brush ---------------------------------------------------------------------------

void QChartDrawingArea::drawCircle(QPainter* pPainter, const QPointF& oCentre, int iSize)
{
    pPainter->drawEllipse(symbolSquare(oCentre, iSize));
}

void QChartDrawingArea::drawCross(QPainter* pPainter, const QPointF& oCentre, int iSize)
{
    pPainter->drawPath(symbolPath(Cross, oCentre, iSize));
}

void QChartDrawingArea::drawRectangle(QPainter* pPainter, const QPointF& oCentre, int iSize)
{
    pPainter->drawRect(symbolSquare(oCentre, iSize));
}

void QChartDrawingArea::drawTriangle(QPainter* pPainter, const QPointF& oCentre, int iSize)
{
    pPainter->drawPolygon(symbolPolygon(Triangle1, oCentre, iSize));
}

void QChartDrawingArea::drawTriangle2(QPainter* pPainter, const QPointF& oCentre, int iSize)
{
    pPainter->drawPolygon(symbolPolygon(Triangle2, oCentre, iSize));
}

void QChartDrawingArea::drawDiamond(QPainter* pPainter, const QPointF& oCentre, int iSize)
{
    pPainter->drawPolygon(symbolPolygon(Diamond, oCentre, iSize));
}

void QChartDrawingArea::drawBigCross(QPainter* pPainter, const QPointF& oCentre, int iSize)
{
    pPainter->drawPolygon(symbolPolygon(BigCross1, oCentre, iSize));
}

void QChartDrawingArea::drawBigCross45(QPainter* pPainter, const QPointF& oCentre, int iSize)
{
    pPainter->drawPolygon(symbolPolygon(BigCross2, oCentre, iSize));
}

void QChartDrawingArea::drawPolygon(QPainter* pPainter, const QPointF& oCentre, int iSize, int iCorners)
{
    pPainter->drawPolygon(regularPolygon(oCentre, iSize, iCorners));
}

// ---- symbols in given colours --------------------------------------------------------------------------------------

void QChartDrawingArea::drawOneSymbol(QPainter* pPainter, const QPointF& oCentre, PointStyle eStyle,
                                      const QColor& oColor, int iSize)
{
    SymbolLook look{eStyle, oColor, fillOf(eStyle, oColor, m_oBackgroundColor), iSize};
    if (symbolFill(eStyle) == SymbolFill::PainterBrush)
        look.m_oFill = pPainter->brush().style() == Qt::NoBrush ? QColor() : pPainter->brush().color();
    drawSymbol(pPainter, oCentre, look);
}

void QChartDrawingArea::drawSymbols(QPainter* pPainter, const QPointF& oCentre, PointStyle eStyle, const QColor& oColor,
                                    bool bFilled, const QColor& oFillColor, int iSize)
{
    const QColor oInside = bFilled ? oFillColor : m_oBackgroundColor;
    m_oSprites.drawSymbols(pPainter, {&oCentre, 1},
                           {eStyle, oColor, fillOf(eStyle, oInside, m_oBackgroundColor), iSize});
}

void QChartDrawingArea::drawDefaultSymbols(QPainter* pPainter, const QPointF& oCentre, PointStyle eStyle,
                                           const QColor& oColor, bool bFilled, const QColor& oFillColor, int iSize)
{
    m_oSprites.drawSymbols(pPainter, {&oCentre, 1}, {eStyle, oColor, bFilled ? oFillColor : m_oBackgroundColor, iSize});
}

void QChartDrawingArea::drawTadPole(QPainter* pPainter, const QPointF& oCentre, double dAzimuthDeg,
                                    const QColor& oColor, int iSize)
{
    drawColorFilledTadPole(pPainter, oCentre, dAzimuthDeg, oColor, oColor, iSize);
}

void QChartDrawingArea::drawColorFilledTadPole(QPainter* pPainter, const QPointF& oCentre, double dAzimuthDeg,
                                               const QColor& oOutline, const QColor& oFillColor, int iSize)
{
    if (isMissing(dAzimuthDeg))
        return;
    // The tail is computed, not rotated: the painter's transformation is the chart's and stays.
    const PainterState state(pPainter);
    pPainter->setPen(QPen(oOutline, 1.0));
    pPainter->setBrush(oFillColor);
    drawCircle(pPainter, oCentre, iSize);
    if (const std::optional<QLineF> tail = tadpoleTail(oCentre, dAzimuthDeg, iSize)) {
        pPainter->setPen(QPen(oFillColor, 1.0));
        pPainter->drawLine(*tail);
    }
}

void QChartDrawingArea::drawCentroids(QPainter* pPainter, const QPolygonF& oCentres, const QColor& oColor)
{
    const PainterState state(pPainter);
    pPainter->setPen(QPen(m_oLabelColor, 1.0));
    for (const QPointF& oCentre : oCentres) {
        pPainter->setBrush(m_oBackgroundColor);
        drawCircle(pPainter, oCentre, g_iCentroidSize + 2);
        pPainter->setBrush(oColor);
        drawBigCross(pPainter, oCentre, g_iCentroidSize);
    }
}

void QChartDrawingArea::drawResultPoint(QPainter* pPainter, const QPointF& oCentre, const QColor& oColor,
                                        const QString& sLabel)
{
    const PainterState state(pPainter);
    pPainter->setPen(QPen(m_oLabelColor, 1.0));
    pPainter->setBrush(m_oBackgroundColor);
    drawRectangle(pPainter, oCentre, g_iResultPointSize + 2);
    pPainter->setBrush(oColor);
    drawRectangle(pPainter, oCentre, g_iResultPointSize);
    drawLabel(pPainter, oCentre + QPointF(g_iResultPointSize, 0.0), sLabel);
}

// ---- labels and grid -----------------------------------------------------------------------------------------------

void QChartDrawingArea::drawLabel(QPainter* pPainter, const QPointF& oPosition, const QString& sText)
{
    drawLabel2(pPainter, oPosition, sText, m_oLabelColor);
}

void QChartDrawingArea::drawLabel2(QPainter* pPainter, const QPointF& oPosition, const QString& sText,
                                   const QColor& oColor)
{
    if (sText.isEmpty())
        return;
    const PainterState state(pPainter);
    const QFontMetricsF metrics(pPainter->font(), pPainter->device());
    pPainter->setPen(oColor);
    // To the right of the point, with the middle of small letters at its height.
    pPainter->drawText(oPosition + QPointF(g_dLabelGap, metrics.xHeight() / 2.0), sText);
}

void QChartDrawingArea::drawGrid(QPainter* pPainter)
{
    const int iColumns = gridColumns();
    const int iRows = gridRows();
    if (iColumns <= 0 || iRows <= 0)
        return;
    const PainterState state(pPainter);
    pPainter->setPen(QPen(m_oGridColor, 1.0));
    pPainter->setBrush(Qt::NoBrush);
    pPainter->drawRect(m_oPlotRect);
    // A single line stands at the left or upper edge, where the first of many does.
    for (int i = 0; i < iColumns; ++i) {
        const double dX = m_oPlotRect.left() + (iColumns > 1 ? i * m_oPlotRect.width() / (iColumns - 1) : 0.0);
        pPainter->drawLine(QPointF(dX, m_oPlotRect.top()), QPointF(dX, m_oPlotRect.bottom()));
    }
    for (int j = 0; j < iRows; ++j) {
        const double dY = m_oPlotRect.top() + (iRows > 1 ? j * m_oPlotRect.height() / (iRows - 1) : 0.0);
        pPainter->drawLine(QPointF(m_oPlotRect.left(), dY), QPointF(m_oPlotRect.right(), dY));
    }
}

// ---- pictures of symbols -------------------------------------------------------------------------------------------

void QChartDrawingArea::initializePointSytleComboBox(QComboBox* pqComboBox, bool bAll)
{
    if (!pqComboBox)
        return;
    pqComboBox->clear();
    for (const PointStyle eStyle : offeredPointStyles(bAll))
        pqComboBox->addItem(QIcon(symbolPixmap(eStyle)), pointStyleName(eStyle), static_cast<int>(eStyle));
}

QPixmap QChartDrawingArea::symbolPixmap(PointStyle eStyle) const
{
    return getSymbolPixmap(eStyle, m_oPointFillColor);
}

QPixmap QChartDrawingArea::getSymbolPixmap(PointStyle eStyle, const QColor& oColor) const
{
    SymbolSpriteCache sprites;
    return sprites.sprite({eStyle, oColor, fillOf(eStyle, oColor, m_oBackgroundColor), g_iIconSymbolSize},
                          devicePixelRatioF());
}

QPixmap QChartDrawingArea::getSymbolPixmap(int& iStyle, const QColor& oColor, bool bFilled) const
{
    if (!isPointStyle(iStyle))
        iStyle = Circle;
    if (bFilled)
        return getSymbolPixmap(static_cast<PointStyle>(iStyle), oColor);
    SymbolSpriteCache sprites;
    return sprites.sprite({iStyle, oColor, m_oBackgroundColor, g_iIconSymbolSize}, devicePixelRatioF());
}

} // namespace gkBase
