#include "SymbolSpriteCache.h"

#include "SymbolGeometry.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <vector>

namespace gkBase {

namespace {

bool canCopyPixels(const QPainter& painter)
{
    return painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Raster &&
           painter.worldTransform().type() <= QTransform::TxTranslate;
}

QRect reachableRect(const QPainter& painter, int iReach)
{
    const QRectF oDevice(0, 0, painter.device()->width(), painter.device()->height());
    QRectF oRect = painter.worldTransform().inverted().mapRect(oDevice);
    if (painter.hasClipping())
        oRect &= painter.clipBoundingRect();
    return oRect.toAlignedRect().adjusted(-iReach, -iReach, iReach, iReach);
}

} // namespace

int symbolReach(const SymbolLook& look)
{
    // Turned crosses reach past their size, outlines by half their pen, and antialiasing by a pixel more.
    const QRectF oBox = symbolPath(look.m_iStyle, QPointF(0, 0), look.m_iSize).boundingRect();
    const double dReach = std::max({-oBox.left(), oBox.right(), -oBox.top(), oBox.bottom(), look.m_iSize / 2.0});
    return static_cast<int>(std::ceil(dReach) + std::ceil((look.m_iPenWidth + 1) / 2.0)) + 1;
}

void drawSymbol(QPainter* pPainter, const QPointF& oCentre, const SymbolLook& look)
{
    pPainter->save();
    if (look.m_iStyle == Pixel) {
        pPainter->setPen(QPen(look.m_oColor, std::max(1, look.m_iSize), Qt::SolidLine, Qt::SquareCap));
        pPainter->drawPoint(symbolCentre(oCentre));
    } else {
        pPainter->setPen(QPen(look.m_oColor, look.m_iPenWidth));
        pPainter->setBrush(look.m_oFill.isValid() ? QBrush(look.m_oFill) : QBrush(Qt::NoBrush));
        pPainter->drawPath(symbolPath(look.m_iStyle, oCentre, look.m_iSize));
    }
    pPainter->restore();
}

const QPixmap& SymbolSpriteCache::sprite(const SymbolLook& look, qreal dDevicePixelRatio)
{
    const Key key{look.m_iStyle,
                  look.m_oColor.rgba(),
                  look.m_oFill.isValid(),
                  look.m_oFill.rgba(),
                  look.m_iSize,
                  look.m_iPenWidth,
                  static_cast<int>(std::lround(dDevicePixelRatio * 100))};
    QPixmap& oSprite = m_sprites[key];
    if (!oSprite.isNull())
        return oSprite;
    const int iReach = symbolReach(look);
    const int iSide = 2 * iReach + 1;
    oSprite = QPixmap(QSizeF(iSide * dDevicePixelRatio, iSide * dDevicePixelRatio).toSize());
    oSprite.setDevicePixelRatio(dDevicePixelRatio);
    oSprite.fill(Qt::transparent);
    QPainter painter(&oSprite);
    painter.setRenderHint(QPainter::Antialiasing, look.m_iStyle != Pixel);
    // The middle of the middle pixel: antialiased lines of one pixel stay sharp.
    const double dMiddle = iReach + (look.m_iStyle == Pixel ? 0.0 : 0.5);
    painter.translate(dMiddle, dMiddle);
    drawSymbol(&painter, QPointF(0, 0), look);
    return oSprite;
}

void SymbolSpriteCache::drawSymbols(QPainter* pPainter, std::span<const QPointF> points, const SymbolLook& look)
{
    if (!canCopyPixels(*pPainter)) {
        for (const QPointF& oPoint : points) {
            if (std::isfinite(oPoint.x()) && std::isfinite(oPoint.y()))
                drawSymbol(pPainter, oPoint, look);
        }
        return;
    }
    const QPixmap& oSprite = sprite(look, pPainter->device()->devicePixelRatioF());
    const int iReach = symbolReach(look);
    const QRect oReachable = reachableRect(*pPainter, iReach);
    if (oReachable.isEmpty())
        return;
    // The same picture twice at one pixel shows nothing new.
    const bool bDense = points.size() > 1000;
    std::vector<bool> vTaken(bDense ? static_cast<std::size_t>(oReachable.width()) * oReachable.height() : 0);
    for (const QPointF& oPoint : points) {
        // Written so that NaN fails, before anything is converted to an integer.
        if (!(oPoint.x() >= oReachable.left() && oPoint.x() <= oReachable.right() && oPoint.y() >= oReachable.top() &&
              oPoint.y() <= oReachable.bottom()))
            continue;
        const QPoint oPixel = symbolCentre(oPoint);
        if (bDense) {
            const std::size_t iCell =
                static_cast<std::size_t>(std::min(oPixel.y(), oReachable.bottom()) - oReachable.top()) *
                    static_cast<std::size_t>(oReachable.width()) +
                static_cast<std::size_t>(std::min(oPixel.x(), oReachable.right()) - oReachable.left());
            if (vTaken[iCell])
                continue;
            vTaken[iCell] = true;
        }
        pPainter->drawPixmap(oPixel - QPoint(iReach, iReach), oSprite);
    }
}

} // namespace gkBase
