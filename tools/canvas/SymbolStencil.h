#pragma once

#include "SymbolSpriteCache.h"
#include "gkBaseToolsExport.h"

#include <QImage>
#include <QRgb>

#include <cstdint>
#include <span>
#include <vector>

namespace gkBase {

/// A symbol as runs of pixels that tell how much of them is outline and how much is inside, so that it can be written
/// into a picture in any two colours. Coordinates are device pixels around the symbol's centre.
class GKBASETOOLS_EXPORT SymbolStencil
{
public:
    struct Run
    {
        std::int16_t m_iX = 0;
        std::int16_t m_iY = 0;
        std::int16_t m_iLength = 0;
        std::uint8_t m_iOutline = 0; ///< 0 … 255, together with the inside at most 255
        std::uint8_t m_iInside = 0;
    };

    SymbolStencil() = default;
    /// From a picture whose outline is red and whose inside is blue, with the symbol's centre at that pixel.
    SymbolStencil(const QImage& oPicture, int iCentreX, int iCentreY);
    /// The symbol of a look, whose colours do not matter but for whether there is an inside.
    static SymbolStencil ofSymbol(SymbolSpriteCache& sprites, const SymbolLook& look, qreal dDevicePixelRatio);
    /// The tail of a tadpole with a head of that size, without its head.
    static SymbolStencil ofTail(double dAzimuthDeg, int iSize, int iPenWidth, qreal dDevicePixelRatio);

    bool isEmpty() const { return m_vRuns.empty(); }
    /// Pixels from the centre to the farthest run.
    int reach() const { return m_iReach; }
    /// The premultiplied colour of each run for these two colours.
    void colorRuns(QRgb oOutline, QRgb oInside, std::vector<QRgb>& vColors) const;

    /// Writes the symbol, in the colours of colorRuns(), below what the picture holds already: opaque pixels stay. The
    /// picture is premultiplied; the centre must be at least reach() inside of it.
    void writeBelow(QRgb* pPixels, std::ptrdiff_t iStride, int iX, int iY, std::span<const QRgb> vColors) const;
    /// The same for a symbol without inside, in the premultiplied colour of its outline.
    void writeBelow(QRgb* pPixels, std::ptrdiff_t iStride, int iX, int iY, QRgb oOutline) const;

private:
    template <typename ColorOfRun>
    void writeRunsBelow(QRgb* pCentre, std::ptrdiff_t iStride, ColorOfRun colorOfRun) const;

    std::vector<Run> m_vRuns;
    int m_iReach = 0;
};

} // namespace gkBase
