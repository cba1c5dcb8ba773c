#include "PointPainter.h"

#include "DevicePixels.h"
#include "MissingValue.h"
#include "SymbolGeometry.h"

#include <QPainter>
#include <QPen>

#include <algorithm>
#include <span>
#include <tuple>
#include <vector>

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

std::vector<std::size_t> shownPoints(const QPainter& painter, const PointBatch& batch)
{
    const QRectF oShown = shownArea(painter, batch);
    std::vector<std::size_t> viPoints;
    for (std::size_t i = 0; i < batch.m_voPixels.size(); ++i) {
        const QPointF& oPoint = batch.m_voPixels[i];
        // Written so that NaN fails.
        if (oPoint.x() >= oShown.left() && oPoint.x() <= oShown.right() && oPoint.y() >= oShown.top() &&
            oPoint.y() <= oShown.bottom()) {
            viPoints.push_back(i);
        }
    }
    return viPoints;
}

/// Of points whose symbols cover each other exactly the last. Symbols stand on whole pixels: those of one style on one
/// pixel do.
void removeCovered(const PointBatch& batch, std::vector<std::size_t>& viPoints)
{
    struct Place
    {
        QPoint m_oPixel;
        int m_iStyle;
        bool m_bSelected;
        std::size_t m_iPoint;

        auto key() const { return std::tuple(m_oPixel.y(), m_oPixel.x(), m_iStyle, m_bSelected); }
    };
    std::vector<Place> vPlaces;
    vPlaces.reserve(viPoints.size());
    for (const std::size_t i : viPoints) {
        vPlaces.push_back({symbolCentre(batch.m_voPixels[i]), batch.style(i), batch.isSelected(i), i});
    }
    std::sort(vPlaces.begin(), vPlaces.end(), [](const Place& a, const Place& b) {
        return std::tuple_cat(a.key(), std::tuple(a.m_iPoint)) < std::tuple_cat(b.key(), std::tuple(b.m_iPoint));
    });
    viPoints.clear();
    for (std::size_t i = 0; i < vPlaces.size(); ++i) {
        if (i + 1 == vPlaces.size() || vPlaces[i].key() != vPlaces[i + 1].key()) {
            viPoints.push_back(vPlaces[i].m_iPoint);
        }
    }
    std::sort(viPoints.begin(), viPoints.end());
}

/// These points as outlines; selected ones in the look of the function, or with null the others.
void drawOutlines(QPainter* pPainter, const PointBatch& batch, std::span<const std::size_t> viPoints, LookOf lookOf)
{
    for (const std::size_t i : viPoints) {
        if (batch.isSelected(i) == (lookOf != nullptr)) {
            drawPoint(pPainter, batch, i, lookOf ? lookOf(batch, batch.look(i)) : batch.look(i));
        }
    }
}

/// Unselected points, above them halos, edges and symbols of the selected ones.
void drawOutlines(QPainter* pPainter, const PointBatch& batch)
{
    pPainter->save();
    std::vector<std::size_t> viPoints = shownPoints(*pPainter, batch);
    // Tails point anywhere: the heads do not tell whether tadpoles cover each other.
    if (viPoints.size() > PointPainter::s_iMostOutlines && !batch.m_bTadPoles) {
        removeCovered(batch, viPoints);
    }
    drawOutlines(pPainter, batch, viPoints, nullptr);
    if (batch.hasSelection()) {
        drawOutlines(pPainter, batch, viPoints,
                     [](const PointBatch& b, const SymbolLook& look) { return b.haloLook(look); });
        drawOutlines(pPainter, batch, viPoints,
                     [](const PointBatch& b, const SymbolLook& look) { return b.edgeLook(look); });
        drawOutlines(pPainter, batch, viPoints,
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
