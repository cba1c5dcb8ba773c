#pragma once

#include "PointLayer.h"

#include <QImage>
#include <QPoint>
#include <QRect>

class QPainter;

namespace gkBase {

/// For what writes its own pixels instead of asking the painter for figures.

/// True for screens and images on which nothing is turned or scaled.
bool canWritePixels(const QPainter& painter);

/// The part of the painter's device that its clip leaves.
PointTarget deviceTarget(const QPainter& painter);

/// False for the strips that come in when a chart is panned, which shall not push out pictures that are kept.
bool isMostOfDevice(const QRect& oRect, const QPainter& painter);

/// Draws a picture with its upper left corner on a device pixel, pixel by pixel.
void drawDevicePicture(QPainter* pPainter, const QImage& oPicture, const QPoint& oDevicePixel);

} // namespace gkBase
