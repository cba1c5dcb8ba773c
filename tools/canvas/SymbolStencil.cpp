#include "SymbolStencil.h"

#include "SymbolGeometry.h"

#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr QRgb g_oOutlineMark = 0xffff0000;
constexpr QRgb g_oInsideMark = 0xff0000ff;

/// a · b / 255, rounded, for all four bytes of a colour at once.
QRgb scaled(QRgb oColor, unsigned iFactor)
{
    unsigned iOdd = (oColor & 0xff00ff) * iFactor;
    unsigned iEven = ((oColor >> 8) & 0xff00ff) * iFactor;
    iOdd = ((iOdd + ((iOdd >> 8) & 0xff00ff) + 0x800080) >> 8) & 0xff00ff;
    iEven = (iEven + ((iEven >> 8) & 0xff00ff) + 0x800080) & 0xff00ff00;
    return iOdd | iEven;
}

QImage emptyPicture(int iReach)
{
    QImage oPicture(2 * iReach + 1, 2 * iReach + 1, QImage::Format_ARGB32_Premultiplied);
    oPicture.fill(Qt::transparent);
    return oPicture;
}

} // namespace

SymbolStencil::SymbolStencil(const QImage& oPicture, int iCentreX, int iCentreY)
{
    const QImage oPixels = oPicture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < oPixels.height(); ++y) {
        const QRgb* pLine = reinterpret_cast<const QRgb*>(oPixels.constScanLine(y));
        for (int x = 0; x < oPixels.width();) {
            const int iFirst = x;
            while (x < oPixels.width() && pLine[x] == pLine[iFirst]) {
                ++x;
            }
            const int iAlpha = qAlpha(pLine[iFirst]);
            if (iAlpha == 0) {
                continue;
            }
            const int iOutline = std::min(qRed(pLine[iFirst]), iAlpha);
            m_vRuns.push_back({static_cast<std::int16_t>(iFirst - iCentreX), static_cast<std::int16_t>(y - iCentreY),
                               static_cast<std::int16_t>(x - iFirst), static_cast<std::uint8_t>(iOutline),
                               static_cast<std::uint8_t>(iAlpha - iOutline)});
            m_iReach = std::max({m_iReach, iCentreX - iFirst, x - 1 - iCentreX, std::abs(y - iCentreY)});
        }
    }
}

SymbolStencil SymbolStencil::ofSymbol(SymbolSpriteCache& sprites, const SymbolLook& look, qreal dDevicePixelRatio)
{
    SymbolLook marked = look;
    marked.m_oColor = QColor::fromRgb(g_oOutlineMark);
    marked.m_oFill = look.m_oFill.isValid() ? QColor::fromRgb(g_oInsideMark) : QColor();
    // The sprite's corner falls on the device pixel that its logical place is rounded to.
    const int iCentre = static_cast<int>(std::lround(symbolReach(look) * dDevicePixelRatio));
    return {sprites.sprite(marked, dDevicePixelRatio).toImage(), iCentre, iCentre};
}

SymbolStencil SymbolStencil::ofTail(double dAzimuthDeg, int iSize, int iPenWidth, qreal dDevicePixelRatio)
{
    // Far enough from the upper left corner that the tail is not cut.
    const QPointF oFar(10000.0, 10000.0);
    const std::optional<QLineF> tail = tadpoleTail(oFar, dAzimuthDeg, iSize);
    if (!tail) {
        return {};
    }
    const double dLength = std::hypot(tail->x2() - oFar.x(), tail->y2() - oFar.y()) + iPenWidth + 1.0;
    const int iReach = static_cast<int>(std::ceil(dLength * dDevicePixelRatio));
    QImage oPicture = emptyPicture(iReach);
    QPainter painter(&oPicture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(iReach + dDevicePixelRatio / 2.0, iReach + dDevicePixelRatio / 2.0);
    painter.scale(dDevicePixelRatio, dDevicePixelRatio);
    painter.setPen(QPen(QColor::fromRgb(g_oOutlineMark), iPenWidth));
    painter.drawLine(tail->translated(-oFar));
    painter.end();
    return {oPicture, iReach, iReach};
}

void SymbolStencil::colorRuns(QRgb oOutline, QRgb oInside, std::vector<QRgb>& vColors) const
{
    const QRgb oOutlinePixel = qPremultiply(oOutline);
    const QRgb oInsidePixel = qPremultiply(oInside);
    vColors.resize(m_vRuns.size());
    std::transform(m_vRuns.begin(), m_vRuns.end(), vColors.begin(), [&](const Run& run) {
        return scaled(oOutlinePixel, run.m_iOutline) + scaled(oInsidePixel, run.m_iInside);
    });
}

template <typename ColorOfRun>
void SymbolStencil::writeRunsBelow(QRgb* pCentre, std::ptrdiff_t iStride, ColorOfRun colorOfRun) const
{
    for (std::size_t i = 0; i < m_vRuns.size(); ++i) {
        const Run& run = m_vRuns[i];
        QRgb* const pRun = pCentre + run.m_iY * iStride + run.m_iX;
        for (int x = 0; x < run.m_iLength; ++x) {
            const unsigned iAlpha = pRun[x] >> 24;
            if (iAlpha == 0) {
                pRun[x] = colorOfRun(i);
            } else if (iAlpha != 255) {
                pRun[x] += scaled(colorOfRun(i), 255 - iAlpha);
            }
        }
    }
}

void SymbolStencil::writeBelow(QRgb* pPixels, std::ptrdiff_t iStride, int iX, int iY,
                               std::span<const QRgb> vColors) const
{
    writeRunsBelow(pPixels + iY * iStride + iX, iStride, [vColors](std::size_t i) { return vColors[i]; });
}

void SymbolStencil::writeBelow(QRgb* pPixels, std::ptrdiff_t iStride, int iX, int iY, QRgb oOutline) const
{
    writeRunsBelow(pPixels + iY * iStride + iX, iStride,
                   [this, oOutline](std::size_t i) { return scaled(oOutline, m_vRuns[i].m_iOutline); });
}

} // namespace gkBase
