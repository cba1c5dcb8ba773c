#pragma once

#include "NetProjection.h"
#include "gkBaseToolsExport.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

class QColor;
class QPainter;
class QString;

namespace gkBase {

class LabelPlacement;

/// True for a box that lies wholly within the rim of the net, in pixels.
GKBASETOOLS_EXPORT bool isInsideNet(const NetFrame& oFrame, const QRectF& oBox);

/// A place for the label of something that takes oAnchor: beside it or, when all of that is taken, a little farther
/// away; inside the rim if possible. A null rectangle for none.
GKBASETOOLS_EXPORT QRectF placeOnNet(LabelPlacement& placement, const NetFrame& oFrame, const QRectF& oAnchor,
                                     const QSizeF& oSize);

/// The size of the box of a label in the painter's font.
QSizeF labelBoxSize(const QPainter& painter, const QString& sText);
/// A text on a ground of the background's colour that lets a little of the chart through.
void drawLabelBox(QPainter& painter, const QRectF& oBox, const QString& sText, const QColor& oColor,
                  const QColor& oBackground);
/// The line from a label to what it belongs to; nothing when they are near each other.
void drawLabelLeader(QPainter& painter, const QRectF& oBox, const QPointF& oPoint, const QColor& oColor);

} // namespace gkBase
