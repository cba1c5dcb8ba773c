#include "PointLayer.h"

#include "MissingValue.h"
#include "SelectionRim.h"
#include "SymbolGeometry.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr int g_iStyles = BigCross4 + 1;
/// Symbols of more classes are coloured point by point.
constexpr int g_iMaxPreparedClasses = 2048;
/// From here on it pays to ask whether a pixel has been written.
constexpr std::size_t g_iDense = 1000;
/// Tails end this far from the head's centre, plus twice its size.
constexpr int g_iTailPastHead = 10;

/// Pixels around a point that its symbol may touch, in any style and selected or not.
int largestReach(const PointBatch& batch)
{
    int iReach = 0;
    for (int iStyle = 0; iStyle < g_iStyles; ++iStyle) {
        const SymbolLook halo = batch.haloLook(batch.look(iStyle, 0, false));
        iReach = std::max(iReach, symbolReach(halo));
    }
    return batch.m_bTadPoles ? std::max(iReach, 2 * batch.m_oLook.m_iSize + g_iTailPastHead + 8) : iReach;
}

/// Nearest device pixel; halves go to the right and down.
int devicePixel(double dPosition)
{
    return static_cast<int>(std::floor(dPosition + 0.5));
}

} // namespace

PointLayer::PointLayer(const PointBatch& batch, const PointTarget& target, SymbolStencilCache& stencils)
    : m_batch(batch)
    , m_target(target)
    , m_stencils(stencils)
    , m_iClasses(std::max(1, static_cast<int>(batch.m_voColors.size())))
{
    const int iReach = largestReach(batch);
    const int iDeviceReach = static_cast<int>(std::ceil(iReach * target.m_dScale)) + 1;
    const QRectF oTarget(target.m_oRect);
    const QRectF oChart((oTarget.topLeft() - target.m_oOffset) / target.m_dScale, oTarget.size() / target.m_dScale);
    m_oCells = oChart.toAlignedRect().adjusted(-iReach, -iReach, iReach, iReach);
    // Symbols on the outermost cells still find room.
    m_oRect = target.m_oRect.adjusted(-2 * iDeviceReach, -2 * iDeviceReach, 2 * iDeviceReach, 2 * iDeviceReach);
    m_oPicture = QImage(m_oRect.size(), QImage::Format_ARGB32_Premultiplied);
    m_oPicture.fill(Qt::transparent);
    m_pPixels = reinterpret_cast<QRgb*>(m_oPicture.bits());
    m_iStride = m_oPicture.bytesPerLine() / static_cast<std::ptrdiff_t>(sizeof(QRgb));
}

SymbolLook PointLayer::lookOf(int iStyle, int iColorClass, bool bOpen) const
{
    const SymbolLook look = m_batch.look(iStyle, iColorClass, bOpen);
    return m_ePart == Part::Selected ? PointBatch::selectedLook(look) : look;
}

void PointLayer::prepare(Part ePart)
{
    m_ePart = ePart;
    m_symbols.clear();
    if (m_iClasses <= g_iMaxPreparedClasses) {
        m_symbols.resize(static_cast<std::size_t>(m_iClasses) * g_iStyles * 2);
    }
    m_tails.fill(nullptr);
    m_oTailLook = lookOf(Circle, 0, false);
    // Tails that share a head differ, so that every tadpole is written.
    const bool bDense = m_batch.m_voPixels.size() > g_iDense && !m_batch.m_bTadPoles;
    m_vTaken.assign(
        bDense ? static_cast<std::size_t>(m_oCells.width()) * static_cast<std::size_t>(m_oCells.height()) : 0, 0);
}

void PointLayer::makeSymbol(Symbol& symbol, int iStyle, int iColorClass, bool bOpen)
{
    const SymbolLook look = lookOf(iStyle, iColorClass, bOpen);
    symbol.m_pStencil = &m_stencils.symbol(look, m_target.m_dScale);
    symbol.m_pStencil->colorRuns(look.m_oColor.rgba(), look.m_oFill.rgba(), symbol.m_vColors);
    symbol.m_oTail = qPremultiply(look.m_oColor.rgba());
}

const PointLayer::Symbol& PointLayer::symbol(int iStyle, int iColorClass, bool bOpen)
{
    if (m_symbols.empty()) {
        makeSymbol(m_oOneSymbol, iStyle, iColorClass, bOpen);
        return m_oOneSymbol;
    }
    const int iClass = iColorClass >= 0 && iColorClass < m_iClasses ? iColorClass : 0;
    Symbol& symbol = m_symbols[(static_cast<std::size_t>(iClass) * g_iStyles + static_cast<std::size_t>(iStyle)) * 2 +
                               (bOpen ? 1 : 0)];
    if (!symbol.m_pStencil) {
        makeSymbol(symbol, iStyle, iClass, bOpen);
    }
    return symbol;
}

bool PointLayer::takesCell(const QPoint& oPixel, int iStyle)
{
    if (m_vTaken.empty()) {
        return true;
    }
    const std::size_t iCell =
        static_cast<std::size_t>(oPixel.y() - m_oCells.top()) * static_cast<std::size_t>(m_oCells.width()) +
        static_cast<std::size_t>(oPixel.x() - m_oCells.left());
    const auto iBit = static_cast<std::uint16_t>(1U << iStyle);
    if (m_vTaken[iCell] & iBit) {
        return false;
    }
    m_vTaken[iCell] |= iBit;
    return true;
}

bool PointLayer::tailIsCut(std::size_t i, const QPoint& oPixel) const
{
    const int iLength = 2 * m_batch.m_oLook.m_iSize + g_iTailPastHead;
    return (oPixel.x() < iLength || oPixel.y() < iLength) &&
           !tadpoleTail(oPixel, m_batch.m_vdAzimuths[i], m_batch.m_oLook.m_iSize);
}

void PointLayer::writeTail(std::size_t i, const QPoint& oPixel, const QPoint& oCentre, const Symbol& symbol)
{
    if (tailIsCut(i, oPixel)) {
        return;
    }
    const int iStep = SymbolStencilCache::tailStep(m_batch.m_vdAzimuths[i]);
    const SymbolStencil*& pTail = m_tails[static_cast<std::size_t>(iStep)];
    if (!pTail) {
        pTail = &m_stencils.tail(iStep, m_oTailLook, m_target.m_dScale);
    }
    pTail->writeBelow(m_pPixels, m_iStride, oCentre.x(), oCentre.y(), symbol.m_oTail);
}

void PointLayer::writePoint(std::size_t i)
{
    const QPointF& oPoint = m_batch.m_voPixels[i];
    // Written so that NaN fails, before anything is converted to an integer.
    if (!(oPoint.x() >= m_oCells.left() && oPoint.x() <= m_oCells.right() && oPoint.y() >= m_oCells.top() &&
          oPoint.y() <= m_oCells.bottom())) {
        return;
    }
    if (m_batch.m_bTadPoles && (i >= m_batch.m_vdAzimuths.size() || isMissing(m_batch.m_vdAzimuths[i]))) {
        return;
    }
    const QPoint oPixel = symbolCentre(oPoint);
    const int iStyle = m_batch.style(i);
    if (!takesCell(oPixel, iStyle)) {
        return;
    }
    const QPoint oCentre(devicePixel(oPixel.x() * m_target.m_dScale + m_target.m_oOffset.x()) - m_oRect.left(),
                         devicePixel(oPixel.y() * m_target.m_dScale + m_target.m_oOffset.y()) - m_oRect.top());
    const Symbol& drawn = symbol(iStyle, m_batch.colorClass(i), m_batch.isOpen(i));
    if (m_batch.m_bTadPoles) {
        writeTail(i, oPixel, oCentre, drawn);
    }
    drawn.m_pStencil->writeBelow(m_pPixels, m_iStride, oCentre.x(), oCentre.y(), drawn.m_vColors);
}

void PointLayer::write(Part ePart)
{
    prepare(ePart);
    for (std::size_t i = m_batch.m_voPixels.size(); i-- > 0;) {
        if (ePart == Part::AllPoints || m_batch.isSelected(i)) {
            writePoint(i);
        }
    }
}

void PointLayer::writeRim()
{
    drawSelectionRim(m_oPicture, m_batch.m_oBackground, m_batch.m_oHalo,
                     std::max(1, static_cast<int>(std::lround(m_target.m_dScale))));
    m_pPixels = reinterpret_cast<QRgb*>(m_oPicture.bits());
}

} // namespace gkBase
