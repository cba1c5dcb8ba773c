#include "SymbolStencilCache.h"

#include "Angles.h"

#include <cmath>

namespace gkBase {

namespace {

int percent(qreal dFactor)
{
    return static_cast<int>(std::lround(dFactor * 100.0));
}

} // namespace

const SymbolStencil& SymbolStencilCache::symbol(const SymbolLook& look, qreal dDevicePixelRatio)
{
    const auto [it, bNew] = m_symbols.try_emplace(
        {look.m_iStyle, look.m_oFill.isValid(), look.m_iSize, look.m_iPenWidth, percent(dDevicePixelRatio)});
    if (bNew) {
        it->second = SymbolStencil::ofSymbol(m_oSprites, look, dDevicePixelRatio);
    }
    return it->second;
}

int SymbolStencilCache::tailStep(double dAzimuthDeg)
{
    return static_cast<int>(std::lround(wrapAngle(dAzimuthDeg, 360.0) * s_iTailSteps / 360.0)) % s_iTailSteps;
}

const SymbolStencil& SymbolStencilCache::tail(int iStep, const SymbolLook& look, qreal dDevicePixelRatio)
{
    const auto [it, bNew] = m_tails.try_emplace({iStep, look.m_iSize, look.m_iPenWidth, percent(dDevicePixelRatio)});
    if (bNew) {
        it->second =
            SymbolStencil::ofTail(iStep * 360.0 / s_iTailSteps, look.m_iSize, look.m_iPenWidth, dDevicePixelRatio);
    }
    return it->second;
}

void SymbolStencilCache::clear()
{
    m_symbols.clear();
    m_tails.clear();
    m_oSprites.clear();
}

} // namespace gkBase
