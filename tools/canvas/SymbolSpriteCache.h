#pragma once

#include "gkBaseToolsExport.h"

#include <QColor>
#include <QPixmap>
#include <QPointF>
#include <QRgb>

#include <map>
#include <span>
#include <tuple>

class QPainter;

namespace gkBase {

/// How one symbol looks. An invalid fill colour leaves it unfilled.
struct SymbolLook
{
    int m_iStyle = 0;
    QColor m_oColor;
    QColor m_oFill;
    int m_iSize = 3;     ///< half the symbol's width in pixels; pen width for the pixel style
    int m_iPenWidth = 1; ///< of the outline, in pixels; the pixel style has none
};

/// Distance in pixels from the centre to the farthest pixel that the symbol may touch, its outline included.
GKBASETOOLS_EXPORT int symbolReach(const SymbolLook& look);

/// Small pictures of the symbols in use, so that charts of a million points copy pictures instead of stroking paths.
/// Each is drawn once for its style, colours, size and device pixel ratio.
class GKBASETOOLS_EXPORT SymbolSpriteCache
{
public:
    /// A picture with the symbol in its middle; its logical size is odd, so that the centre is a whole pixel.
    const QPixmap& sprite(const SymbolLook& look, qreal dDevicePixelRatio);
    int size() const { return static_cast<int>(m_sprites.size()); }
    void clear() { m_sprites.clear(); }

    /// Draws the symbol at every point, first point lowest. On screens and images from sprites, and once per pixel
    /// where many points share one; on vector devices (SVG, PDF, EMF) as outlines. Points with NaN are left out. Points
    /// outside the painter's clip cost next to nothing.
    void drawSymbols(QPainter* pPainter, std::span<const QPointF> points, const SymbolLook& look);

private:
    using Key = std::tuple<int, QRgb, bool, QRgb, int, int, int>; ///< …, size, pen, DPR × 100

    std::map<Key, QPixmap> m_sprites;
};

/// Strokes and fills one symbol as outlines, whatever the device. Leaves pen and brush of the painter as they were.
GKBASETOOLS_EXPORT void drawSymbol(QPainter* pPainter, const QPointF& oCentre, const SymbolLook& look);

} // namespace gkBase
