#pragma once

#include "SymbolSpriteCache.h"
#include "SymbolStencil.h"
#include "gkBaseToolsExport.h"

#include <map>
#include <tuple>

namespace gkBase {

/// The stencils in use, each made once. References stay valid until clear().
class GKBASETOOLS_EXPORT SymbolStencilCache
{
public:
    /// The look's colours do not matter.
    const SymbolStencil& symbol(const SymbolLook& look, qreal dDevicePixelRatio);
    /// Tails come in steps of half a degree, which moves the end of a tail by less than a quarter pixel.
    static constexpr int s_iTailSteps = 720;
    /// The step nearest to an azimuth in degrees, which is not missing.
    static int tailStep(double dAzimuthDeg);
    /// The tail at a head of the look's size.
    const SymbolStencil& tail(int iStep, const SymbolLook& look, qreal dDevicePixelRatio);
    void clear();

private:
    std::map<std::tuple<int, bool, int, int, int>, SymbolStencil> m_symbols; ///< style, filled, size, pen, DPR × 100
    std::map<std::tuple<int, int, int, int>, SymbolStencil> m_tails;         ///< step, size, pen, DPR × 100
    SymbolSpriteCache m_oSprites;
};

} // namespace gkBase
