#pragma once

#include "PointBatch.h"
#include "SymbolStencilCache.h"
#include "gkBaseToolsExport.h"

#include <QImage>
#include <QPoint>
#include <QPointF>
#include <QRect>

#include <array>
#include <cstdint>
#include <vector>

namespace gkBase {

/// Where points stand on a device (pixel = point · scale + offset), and the part of it that is painted.
struct PointTarget
{
    double m_dScale = 1.0;
    QPointF m_oOffset;
    QRect m_oRect;

    bool operator==(const PointTarget&) const = default;
};

/// A transparent picture into which the points of a batch are written from the top one downwards, so that each pixel
/// is coloured once. Points of one style on one pixel are written once, in the look of the last record.
class GKBASETOOLS_EXPORT PointLayer
{
public:
    enum class Part
    {
        AllPoints, ///< as if none were selected
        Selected
    };

    /// The stencils are used while the layer lives.
    PointLayer(const PointBatch& batch, const PointTarget& target, SymbolStencilCache& stencils);

    /// Writes below what was written before.
    void write(Part ePart);
    /// Edge and halo around what was written.
    void writeRim();
    const QImage& picture() const { return m_oPicture; }
    /// The device pixel of the picture's upper left corner.
    QPoint topLeft() const { return m_oRect.topLeft(); }

private:
    /// A stencil in the colours of one look.
    struct Symbol
    {
        const SymbolStencil* m_pStencil = nullptr;
        std::vector<QRgb> m_vColors;
        QRgb m_oTail = 0; ///< premultiplied
    };

    SymbolLook lookOf(int iStyle, int iColorClass, bool bOpen) const;
    void prepare(Part ePart);
    const Symbol& symbol(int iStyle, int iColorClass, bool bOpen);
    void makeSymbol(Symbol& symbol, int iStyle, int iColorClass, bool bOpen);
    void writePoint(std::size_t i);
    bool takesCell(const QPoint& oPixel, int iStyle);
    void writeTail(std::size_t i, const QPoint& oPixel, const QPoint& oCentre, const Symbol& symbol);
    bool tailIsCut(std::size_t i, const QPoint& oPixel) const;

    const PointBatch& m_batch;
    PointTarget m_target;
    SymbolStencilCache& m_stencils;
    Part m_ePart = Part::AllPoints;
    QRect m_oRect;  ///< of the picture, on the device: the target with room for whole symbols around it
    QRect m_oCells; ///< pixels of the chart on which a symbol may stand that reaches into the target
    QImage m_oPicture;
    QRgb* m_pPixels = nullptr;
    std::ptrdiff_t m_iStride = 0;
    int m_iClasses = 1;
    std::vector<std::uint16_t> m_vTaken; ///< per cell the styles that stand there; empty when all points are written
    std::vector<Symbol> m_symbols;       ///< by class, style and open head; empty with too many classes
    Symbol m_oOneSymbol;                 ///< with too many classes: the last one used
    SymbolLook m_oTailLook;
    std::array<const SymbolStencil*, SymbolStencilCache::s_iTailSteps> m_tails{};
};

} // namespace gkBase
