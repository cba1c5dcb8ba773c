#include "PointPainter.h"

#include "DevicePixels.h"
#include "MissingValue.h"
#include "SymbolGeometry.h"

#include <QPainter>
#include <QPen>

namespace gkBase {

namespace {

void drawPoint(QPainter* pPainter, const PointBatch& batch, std::size_t i, const SymbolLook& look)
{
    if (!batch.m_bTadPoles) {
        drawSymbol(pPainter, batch.m_voPixels[i], look);
        return;
    }
    if (i >= batch.m_vdAzimuths.size() || isMissing(batch.m_vdAzimuths[i])) {
        return;
    }
    drawSymbol(pPainter, batch.m_voPixels[i], look);
    if (const std::optional<QLineF> tail = tadpoleTail(batch.m_voPixels[i], batch.m_vdAzimuths[i], look.m_iSize)) {
        pPainter->setPen(QPen(look.m_oColor, look.m_iPenWidth));
        pPainter->drawLine(*tail);
    }
}

using LookOf = SymbolLook (*)(const PointBatch&, const SymbolLook&);

/// The part of the painter's area on which a point may stand to be seen. Without a clip all that has integer pixels.
QRectF shownArea(const QPainter& painter, const PointBatch& batch)
{
    constexpr double dFarthest = 1 << 24;
    // Symbols reach less than twice their size past their centre, tails and rims by some pixels more.
    const double dReach = 2.0 * batch.m_oLook.m_iSize + 32.0;
    const QRectF oArea = painter.hasClipping() ? painter.clipBoundingRect()
                                               : QRectF(-dFarthest, -dFarthest, 2.0 * dFarthest, 2.0 * dFarthest);
    return oArea.adjusted(-dReach, -dReach, dReach, dReach);
}

/// Every point as an outline; selected ones in the look of the function, or with null the others.
void drawOutlines(QPainter* pPainter, const PointBatch& batch, LookOf lookOf)
{
    const QRectF oShown = shownArea(*pPainter, batch);
    for (std::size_t i = 0; i < batch.m_voPixels.size(); ++i) {
        const QPointF& oPoint = batch.m_voPixels[i];
        // Written so that NaN fails.
        const bool bShown = oPoint.x() >= oShown.left() && oPoint.x() <= oShown.right() && oPoint.y() >= oShown.top() &&
                            oPoint.y() <= oShown.bottom();
        if (bShown && batch.isSelected(i) == (lookOf != nullptr)) {
            drawPoint(pPainter, batch, i, lookOf ? lookOf(batch, batch.look(i)) : batch.look(i));
        }
    }
}

/// Unselected points, above them halos, edges and symbols of the selected ones.
void drawOutlines(QPainter* pPainter, const PointBatch& batch)
{
    pPainter->save();
    drawOutlines(pPainter, batch, nullptr);
    if (batch.hasSelection()) {
        drawOutlines(pPainter, batch, [](const PointBatch& b, const SymbolLook& look) { return b.haloLook(look); });
        drawOutlines(pPainter, batch, [](const PointBatch& b, const SymbolLook& look) { return b.edgeLook(look); });
        drawOutlines(pPainter, batch,
                     [](const PointBatch&, const SymbolLook& look) { return PointBatch::selectedLook(look); });
    }
    pPainter->restore();
}

} // namespace

void PointPainter::draw(QPainter* pPainter, const PointBatch& batch)
{
    if (!pPainter || !pPainter->isActive() || batch.m_voPixels.empty()) {
        return;
    }
    if (canWritePixels(*pPainter)) {
        drawPixels(pPainter, batch);
    } else {
        drawOutlines(pPainter, batch);
    }
}

void PointPainter::updateKept(const PointBatch& batch, const PointTarget& target)
{
    const std::uint64_t iFingerprint = batch.fingerprint();
    if (!m_oKept.isNull() && m_oKeptTarget == target && m_iKeptFingerprint == iFingerprint) {
        return;
    }
    m_oKept = QImage(); // freed before the new one is taken
    PointLayer layer(batch, target, m_stencils);
    layer.write(PointLayer::Part::AllPoints);
    m_oKept = layer.picture();
    m_oKeptTopLeft = layer.topLeft();
    m_oKeptTarget = target;
    m_iKeptFingerprint = iFingerprint;
}

void PointPainter::drawPixels(QPainter* pPainter, const PointBatch& batch)
{
    const PointTarget target = deviceTarget(*pPainter);
    if (target.m_oRect.isEmpty()) {
        return;
    }
    if (isMostOfDevice(target.m_oRect, *pPainter)) {
        updateKept(batch, target);
        drawDevicePicture(pPainter, m_oKept, m_oKeptTopLeft);
    } else {
        PointLayer layer(batch, target, m_stencils);
        layer.write(PointLayer::Part::AllPoints);
        drawDevicePicture(pPainter, layer.picture(), layer.topLeft());
    }
    if (batch.hasSelection()) {
        PointLayer layer(batch, target, m_stencils);
        layer.write(PointLayer::Part::Selected);
        layer.writeRim();
        drawDevicePicture(pPainter, layer.picture(), layer.topLeft());
    }
}

} // namespace gkBase
