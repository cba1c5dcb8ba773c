#pragma once

#include "NetCurves.h"
#include "PointLayer.h"
#include "gkBaseToolsExport.h"

#include <QImage>
#include <QPoint>

#include <cstdint>
#include <span>
#include <vector>

namespace gkBase {

/// A transparent picture into which thin curves on a net are written from the top one downwards, so that each pixel is
/// coloured once. Only the disc of the net takes colour.
class GKBASETOOLS_EXPORT CurveRaster
{
public:
    /// The part of a device to write into, and the net in the pixels of the chart.
    CurveRaster(const PointTarget& target, const NetFrame& oFrame);

    /// Below what was written before, so many device pixels wide, one at least. The colour is premultiplied.
    void write(std::span<const NetPolyline> vLines, QRgb oColor, double dWidth = 1.0);
    /// Nothing that is written from now on would be seen.
    bool isFull() const { return m_iFree == 0; }

    const QImage& picture() const { return m_oPicture; }
    /// The device pixel of the picture's upper left corner.
    QPoint topLeft() const { return m_oRect.topLeft(); }

private:
    void freeDisc();
    bool tilesAreFull(int iLeft, int iTop, int iRight, int iBottom) const;
    void writeSegment(double dX1, double dY1, double dX2, double dY2, QRgb oColor, double dWidth);
    void writePixel(int iX, int iY, QRgb oColor);

    QRect m_oRect;
    double m_dCentreX; ///< of the net, in pixels of the picture
    double m_dCentreY;
    double m_dRadius;
    QImage m_oPicture;
    QRgb* m_pPixels = nullptr;
    qsizetype m_iStride = 0;            ///< pixels from row to row
    std::vector<std::uint8_t> m_vbFree; ///< pixels of the disc without colour
    std::size_t m_iFree = 0;
    int m_iTileColumns = 0;
    std::vector<std::uint16_t> m_viTileFree; ///< how many of a tile are free: full ones are not looked at again
};

} // namespace gkBase
