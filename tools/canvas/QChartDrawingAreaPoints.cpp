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

std::span<const unsigned char> QChartDrawingArea::openPoints() const
{
    return {};
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
    batch.m_voPixels = m_pOther ? m_pOther->m_voPixels : std::span<const QPointF>(pointPixels());
    batch.m_vbSelected = drawnModel()->selectionMask();
    batch.m_vbOpen = m_pOther ? std::span<const unsigned char>() : openPoints();
    batch.m_oLook.m_iStyle = drawnModel()->pointStyle();
    batch.m_oLook.m_oColor =
        readableColor(m_pOther ? m_pOther->m_oColor : m_oPointFillColor, m_oBackgroundColor, m_oLabelColor);
    batch.m_oLook.m_iSize = drawnModel()->pointPixelSize();
    batch.m_bHollow = drawnModel()->outLinePointStyle();
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
    const QRelationshipItemModel* pModel = drawnModel();
    const std::size_t iCount = batch.m_voPixels.size();
    std::vector<double> vdAzimuths(iCount);
    std::vector<unsigned char> vbOpen(iCount);
    for (std::size_t i = 0; i < iCount; ++i) {
        vdAzimuths[i] = pModel->azimuthTadPole(static_cast<int>(i));
        vbOpen[i] = batch.isOpen(i) || pModel->tadPoleIsOpen(static_cast<int>(i)) ? 1 : 0;
    }
    batch.m_bTadPoles = true;
    batch.m_vdAzimuths = vdAzimuths;
    batch.m_vbOpen = vbOpen;
    drawBatch(pPainter, batch);
}

// ---- the eight variants ---------------------------------------------------------------------------------------------

void QChartDrawingArea::drawPoints(QPainter* pPainter)
{
    const QRelationshipItemModel* pModel = drawnModel();
    if (!pPainter || !pModel || pModel->numberOfPoints() == 0 || !pModel->drawSymbols()) {
        return;
    }
    const bool bColors = pModel->colorAttributeIsOn();
    const bool bSymbols = pModel->symbolAttributeIsOn();
    if (!bColors && !bSymbols) {
        drawnModel()->tadpoleAttributeIsOn() ? drawPointsWith_tadpoles(pPainter) : drawPlainPoints(pPainter);
    } else if (drawnModel()->cellType() == QMetaType::QColor) {
        bSymbols ? drawPointsWithTypeColorAttributeAndSymbol(pPainter) : drawPointsWithTypeColorAttribute(pPainter);
    } else if (bColors) {
        bSymbols ? drawPointsWith_symbol_and_color_attribute(pPainter) : drawPointsWith_color_attribute(pPainter);
    } else {
        symbolColorOnly() ? drawPointsWith_symbol_attribute1(pPainter) : drawPointsWith_symbol_attribute2(pPainter);
    }
}

void QChartDrawingArea::drawPointsOf(QPainter* pPainter, const OtherPoints& other)
{
    if (!other.m_pModel || !other.m_pPainter) {
        return;
    }
    m_pOther = &other;
    drawPoints(pPainter);
    m_pOther = nullptr;
}

void QChartDrawingArea::drawBatch(QPainter* pPainter, const PointBatch& batch)
{
    (m_pOther ? *m_pOther->m_pPainter : m_oPointPainter).draw(pPainter, batch);
}

void QChartDrawingArea::drawPlainPoints(QPainter* pPainter)
{
    PointBatch batch = pointBatch();
    batch.m_oLook.m_iPenWidth = g_iPointPen;
    drawBatch(pPainter, batch);
}

void QChartDrawingArea::drawPointsWith_tadpoles(QPainter* pPainter)
{
    PointBatch batch = pointBatch();
    drawTadPoles(pPainter, batch);
}

void QChartDrawingArea::drawPointsWith_color_attribute(QPainter* pPainter)
{
    PointBatch batch = pointBatch();
    colorPoints(batch, drawnModel()->colorClasses());
    if (drawnModel()->tadpoleAttributeIsOn()) {
        drawTadPoles(pPainter, batch);
    } else {
        drawBatch(pPainter, batch);
    }
}

void QChartDrawingArea::drawPointsWithTypeColorAttribute(QPainter* pPainter)
{
    // The classes of stored colours are these colours, one class each.
    PointBatch batch = pointBatch();
    colorPoints(batch, drawnModel()->colorClasses());
    drawBatch(pPainter, batch);
}

void QChartDrawingArea::drawPointsWithTypeColorAttributeAndSymbol(QPainter* pPainter)
{
    drawPointsWith_symbol_and_color_attribute(pPainter);
}

void QChartDrawingArea::drawPointsWith_symbol_attribute1(QPainter* pPainter)
{
    PointBatch batch = pointBatch();
    colorPoints(batch, drawnModel()->symbolClasses());
    batch.m_bStyleDecidesFill = true;
    drawBatch(pPainter, batch);
}

void QChartDrawingArea::drawPointsWith_symbol_attribute2(QPainter* pPainter)
{
    PointBatch batch = pointBatch();
    colorPoints(batch, drawnModel()->symbolClasses());
    batch.m_viStyles = drawnModel()->symbolClasses().ids();
    drawBatch(pPainter, batch);
}

void QChartDrawingArea::drawPointsWith_symbol_and_color_attribute(QPainter* pPainter)
{
    PointBatch batch = pointBatch();
    colorPoints(batch, drawnModel()->colorClasses());
    batch.m_viStyles = drawnModel()->symbolClasses().ids();
    batch.m_bStyleDecidesFill = true;
    drawBatch(pPainter, batch);
}

} // namespace gkBase
