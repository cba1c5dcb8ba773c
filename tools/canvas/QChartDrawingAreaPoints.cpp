// The points of a chart's model: which of the eight looks they have, and what is handed to the point painter.

#include "MissingValue.h"
#include "QChartDrawingArea.h"
#include "QRelationshipItemModel.h"
#include "ReadableColor.h"
#include "SymbolGeometry.h"

#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr int g_iPointPen = 2;

std::vector<QColor> colorsOf(const RelationshipClasses& classes)
{
    std::vector<QColor> voColors(static_cast<std::size_t>(classes.highestId() + 1));
    for (int iClass = 0; iClass <= classes.highestId(); ++iClass) {
        voColors[static_cast<std::size_t>(iClass)] = classes.color(iClass);
    }
    return voColors;
}

} // namespace

// ---- model ----------------------------------------------------------------------------------------------------------

void QChartDrawingArea::setModel(QRelationshipItemModel* pModel)
{
    m_pModel = pModel;
    m_voPointPixels.clear();
    scheduleRedraw();
}

QRelationshipItemModel* QChartDrawingArea::model() const
{
    return m_pModel;
}

void QChartDrawingArea::transformPoints(std::span<const double> vdX, std::span<const double> vdY,
                                        std::vector<QPointF>& voPixels)
{
    const std::size_t iCount = std::min(vdX.size(), vdY.size());
    voPixels.resize(iCount);
    for (std::size_t i = 0; i < iCount; ++i) {
        const bool bValid = std::isfinite(vdX[i]) && std::isfinite(vdY[i]);
        voPixels[i] = bValid ? transformInPixelPoint(QPointF(vdX[i], vdY[i])) : QPointF(g_dEmptyCell, g_dEmptyCell);
    }
}

const std::vector<QPointF>& QChartDrawingArea::pointPixels()
{
    if (!m_pModel) {
        m_voPointPixels.clear();
    } else if (m_bNeedsRedraw || m_bPointsMoved || m_oPointChart != chartSize() ||
               m_iPointRevision != m_pModel->pointsRevision() || m_voPointPixels.size() != m_pModel->x().size()) {
        transformPoints(m_pModel->x(), m_pModel->y(), m_voPointPixels);
        m_iPointRevision = m_pModel->pointsRevision();
        m_oPointChart = chartSize();
        m_bPointsMoved = false;
    }
    return m_voPointPixels;
}

// ---- what a variant draws with --------------------------------------------------------------------------------------

void QChartDrawingArea::setPointPen(QPainter* pPainter)
{
    const QColor oColor = readableColor(m_oPointFillColor, m_oBackgroundColor, m_oLabelColor);
    const bool bPixel = m_pModel && m_pModel->pointStyle() == Pixel;
    pPainter->setPen(QPen(oColor, bPixel ? m_pModel->pointPixelSize() : g_iPointPen, Qt::SolidLine, Qt::SquareCap));
    pPainter->setBrush(m_pModel && m_pModel->outLinePointStyle() ? m_oBackgroundColor : oColor);
}

void QChartDrawingArea::drawPoint(QPainter* pPainter, const QPointF& oCentre)
{
    if (!m_pModel) {
        return;
    }
    if (m_pModel->pointStyle() == Pixel) {
        pPainter->drawPoint(symbolCentre(oCentre));
    } else {
        pPainter->drawPath(symbolPath(m_pModel->pointStyle(), oCentre, m_pModel->pointPixelSize()));
    }
}

PointBatch QChartDrawingArea::pointBatch()
{
    PointBatch batch;
    batch.m_voPixels = pointPixels();
    batch.m_vbSelected = m_pModel->selectionMask();
    batch.m_oLook.m_iStyle = m_pModel->pointStyle();
    batch.m_oLook.m_oColor = readableColor(m_oPointFillColor, m_oBackgroundColor, m_oLabelColor);
    batch.m_oLook.m_iSize = m_pModel->pointPixelSize();
    batch.m_bHollow = m_pModel->outLinePointStyle();
    batch.m_oBackground = m_oBackgroundColor;
    batch.m_oHalo = m_oLabelColor;
    return batch;
}

void QChartDrawingArea::colorPoints(PointBatch& batch, const RelationshipClasses& classes) const
{
    batch.m_viColors = classes.ids();
    batch.m_voColors = colorsOf(classes);
}

void QChartDrawingArea::drawTadPoles(QPainter* pPainter, PointBatch& batch)
{
    const std::size_t iCount = batch.m_voPixels.size();
    std::vector<double> vdAzimuths(iCount);
    std::vector<unsigned char> vbOpen(iCount);
    for (std::size_t i = 0; i < iCount; ++i) {
        vdAzimuths[i] = m_pModel->azimuthTadPole(static_cast<int>(i));
        vbOpen[i] = m_pModel->tadPoleIsOpen(static_cast<int>(i)) ? 1 : 0;
    }
    batch.m_bTadPoles = true;
    batch.m_vdAzimuths = vdAzimuths;
    batch.m_vbOpenHeads = vbOpen;
    m_oPointPainter.draw(pPainter, batch);
}

// ---- the eight variants ---------------------------------------------------------------------------------------------

void QChartDrawingArea::drawPoints(QPainter* pPainter)
{
    if (!pPainter || !m_pModel || m_pModel->numberOfPoints() == 0 || !m_pModel->drawSymbols()) {
        return;
    }
    const bool bColors = m_pModel->colorAttributeIsOn();
    const bool bSymbols = m_pModel->symbolAttributeIsOn();
    if (!bColors && !bSymbols) {
        m_pModel->tadpoleAttributeIsOn() ? drawPointsWith_tadpoles(pPainter) : drawPlainPoints(pPainter);
    } else if (m_pModel->cellType() == QMetaType::QColor) {
        bSymbols ? drawPointsWithTypeColorAttributeAndSymbol(pPainter) : drawPointsWithTypeColorAttribute(pPainter);
    } else if (bColors) {
        bSymbols ? drawPointsWith_symbol_and_color_attribute(pPainter) : drawPointsWith_color_attribute(pPainter);
    } else {
        symbolColorOnly() ? drawPointsWith_symbol_attribute1(pPainter) : drawPointsWith_symbol_attribute2(pPainter);
    }
}

void QChartDrawingArea::drawPlainPoints(QPainter* pPainter)
{
    PointBatch batch = pointBatch();
    batch.m_oLook.m_iPenWidth = g_iPointPen;
    m_oPointPainter.draw(pPainter, batch);
}

void QChartDrawingArea::drawPointsWith_tadpoles(QPainter* pPainter)
{
    PointBatch batch = pointBatch();
    drawTadPoles(pPainter, batch);
}

void QChartDrawingArea::drawPointsWith_color_attribute(QPainter* pPainter)
{
    PointBatch batch = pointBatch();
    colorPoints(batch, m_pModel->colorClasses());
    if (m_pModel->tadpoleAttributeIsOn()) {
        drawTadPoles(pPainter, batch);
    } else {
        m_oPointPainter.draw(pPainter, batch);
    }
}

void QChartDrawingArea::drawPointsWithTypeColorAttribute(QPainter* pPainter)
{
    // The classes of stored colours are these colours, one class each.
    PointBatch batch = pointBatch();
    colorPoints(batch, m_pModel->colorClasses());
    m_oPointPainter.draw(pPainter, batch);
}

void QChartDrawingArea::drawPointsWithTypeColorAttributeAndSymbol(QPainter* pPainter)
{
    drawPointsWith_symbol_and_color_attribute(pPainter);
}

void QChartDrawingArea::drawPointsWith_symbol_attribute1(QPainter* pPainter)
{
    PointBatch batch = pointBatch();
    colorPoints(batch, m_pModel->symbolClasses());
    batch.m_bStyleDecidesFill = true;
    m_oPointPainter.draw(pPainter, batch);
}

void QChartDrawingArea::drawPointsWith_symbol_attribute2(QPainter* pPainter)
{
    PointBatch batch = pointBatch();
    colorPoints(batch, m_pModel->symbolClasses());
    batch.m_viStyles = m_pModel->symbolClasses().ids();
    m_oPointPainter.draw(pPainter, batch);
}

void QChartDrawingArea::drawPointsWith_symbol_and_color_attribute(QPainter* pPainter)
{
    PointBatch batch = pointBatch();
    colorPoints(batch, m_pModel->colorClasses());
    batch.m_viStyles = m_pModel->symbolClasses().ids();
    batch.m_bStyleDecidesFill = true;
    m_oPointPainter.draw(pPainter, batch);
}

} // namespace gkBase
