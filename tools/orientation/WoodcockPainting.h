#pragma once

#include <QColor>
#include <QSizeF>

class QPainter;

namespace gkBase {

/// Colours of a Woodcock diagram.
struct WoodcockStyle
{
    QColor m_oBackground;
    QColor m_oLabel;
    QColor m_oGrid;
};

/// Draws the diagram without points into (0, 0) … oSize: axes, lines of equal K and C, and their labels, whose size
/// follows that of the picture.
void drawWoodcockDiagram(QPainter& painter, const QSizeF& oSize, const WoodcockStyle& style);

} // namespace gkBase
