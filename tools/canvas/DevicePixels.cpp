#include "DevicePixels.h"

#include <QPaintEngine>
#include <QPainter>

namespace gkBase {

namespace {

QRect deviceRect(const QPaintDevice& device)
{
    const double dRatio = device.devType() == QInternal::Widget ? device.devicePixelRatioF() : 1.0;
    return QRectF(0, 0, device.width() * dRatio, device.height() * dRatio).toAlignedRect();
}

} // namespace

bool canWritePixels(const QPainter& painter)
{
    return painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Raster &&
           painter.worldTransform().type() <= QTransform::TxTranslate;
}

PointTarget deviceTarget(const QPainter& painter)
{
    const QTransform oToDevice = painter.deviceTransform();
    PointTarget target{oToDevice.m11(), QPointF(oToDevice.dx(), oToDevice.dy()), deviceRect(*painter.device())};
    if (painter.hasClipping()) {
        target.m_oRect &= oToDevice.mapRect(painter.clipBoundingRect()).toAlignedRect();
    }
    return target;
}

bool isMostOfDevice(const QRect& oRect, const QPainter& painter)
{
    const auto area = [](const QRect& o) { return static_cast<double>(o.width()) * o.height(); };
    return 4.0 * area(oRect) >= area(deviceRect(*painter.device()));
}

void drawDevicePicture(QPainter* pPainter, const QImage& oPicture, const QPoint& oDevicePixel)
{
    pPainter->save();
    const double dRatio = pPainter->device()->devicePixelRatioF();
    pPainter->setWorldTransform(QTransform::fromScale(1.0 / dRatio, 1.0 / dRatio));
    pPainter->drawImage(pPainter->deviceTransform().inverted().map(QPointF(oDevicePixel)), oPicture);
    pPainter->restore();
}

} // namespace gkBase
