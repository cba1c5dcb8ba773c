#pragma once

#include <QColor>
#include <QImage>

namespace gkBase {

/// Draws a rim around everything that a premultiplied picture holds, below it: first an edge, around that a halo, each
/// iPixels wide. What lies close together gets one rim around it. Costs a few passes over the picture, however much it
/// holds.
void drawSelectionRim(QImage& oPicture, const QColor& oEdge, const QColor& oHalo, int iPixels);

} // namespace gkBase
