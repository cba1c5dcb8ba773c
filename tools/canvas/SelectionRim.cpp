#include "SelectionRim.h"

#include <QRgb>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace gkBase {

namespace {

/// One byte per pixel.
struct Plane
{
    int m_iWidth = 0;
    int m_iHeight = 0;
    std::vector<std::uint8_t> m_vBytes;

    std::uint8_t* line(int y) { return m_vBytes.data() + static_cast<std::ptrdiff_t>(y) * m_iWidth; }
    const std::uint8_t* line(int y) const { return m_vBytes.data() + static_cast<std::ptrdiff_t>(y) * m_iWidth; }
};

Plane alphaOf(const QImage& oPicture)
{
    Plane plane{oPicture.width(), oPicture.height(), {}};
    plane.m_vBytes.resize(static_cast<std::size_t>(plane.m_iWidth) * static_cast<std::size_t>(plane.m_iHeight));
    for (int y = 0; y < plane.m_iHeight; ++y) {
        const QRgb* pPixels = reinterpret_cast<const QRgb*>(oPicture.constScanLine(y));
        std::transform(pPixels, pPixels + plane.m_iWidth, plane.line(y),
                       [](QRgb oPixel) { return static_cast<std::uint8_t>(oPixel >> 24); });
    }
    return plane;
}

/// Each byte becomes the largest of itself and its neighbours; with bCorners of all eight, otherwise of four.
Plane grown(const Plane& plane, bool bCorners)
{
    Plane larger = plane;
    std::vector<std::uint8_t> vRow(static_cast<std::size_t>(plane.m_iWidth));
    for (int y = 0; y < plane.m_iHeight; ++y) {
        const std::uint8_t* pThis = plane.line(y);
        const std::uint8_t* pAbove = plane.line(std::max(y - 1, 0));
        const std::uint8_t* pBelow = plane.line(std::min(y + 1, plane.m_iHeight - 1));
        std::uint8_t* pLarger = larger.line(y);
        for (int x = 0; x < plane.m_iWidth; ++x) {
            pLarger[x] = std::max({pThis[x], pAbove[x], pBelow[x]});
        }
        std::copy_n(bCorners ? pLarger : pThis, plane.m_iWidth, vRow.data());
        for (int x = 1; x + 1 < plane.m_iWidth; ++x) {
            pLarger[x] =
                std::max({pLarger[x], vRow[static_cast<std::size_t>(x) - 1], vRow[static_cast<std::size_t>(x) + 1]});
        }
    }
    return larger;
}

Plane grown(Plane plane, int iPixels)
{
    // Corners at every second step: between a square and a rhomb, nearly round.
    for (int i = 0; i < iPixels; ++i) {
        plane = grown(plane, i % 2 == 0);
    }
    return plane;
}

/// The colour where iBelow of it is to be seen under iAbove of something else.
QRgb shown(QRgb oPremultiplied, int iAlpha, int iAbove)
{
    const unsigned iShare = static_cast<unsigned>(iAlpha * (255 - iAbove) + 127) / 255U;
    const auto part = [&](int iChannel) { return static_cast<int>((iChannel * iShare + 127U) / 255U); };
    return qRgba(part(qRed(oPremultiplied)), part(qGreen(oPremultiplied)), part(qBlue(oPremultiplied)),
                 part(qAlpha(oPremultiplied)));
}

} // namespace

void drawSelectionRim(QImage& oPicture, const QColor& oEdge, const QColor& oHalo, int iPixels)
{
    const Plane edge = grown(alphaOf(oPicture), iPixels);
    const Plane halo = grown(edge, iPixels);
    const QRgb oEdgePixel = qPremultiply(oEdge.rgba());
    const QRgb oHaloPixel = qPremultiply(oHalo.rgba());
    for (int y = 0; y < oPicture.height(); ++y) {
        QRgb* pPixels = reinterpret_cast<QRgb*>(oPicture.scanLine(y));
        const std::uint8_t* pEdge = edge.line(y);
        const std::uint8_t* pHalo = halo.line(y);
        for (int x = 0; x < oPicture.width(); ++x) {
            if (pHalo[x] == 0 || qAlpha(pPixels[x]) == 255) {
                continue;
            }
            pPixels[x] += shown(oEdgePixel, pEdge[x], qAlpha(pPixels[x]));
            pPixels[x] += shown(oHaloPixel, pHalo[x], qAlpha(pPixels[x]));
        }
    }
}

} // namespace gkBase
