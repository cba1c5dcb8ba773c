#pragma once

#include <QLineF>
#include <QSizeF>
#include <QString>

#include <span>

class QColor;
class QPainter;
class QRectF;

namespace gkBase {

/// How the T and L directions of a dipmeter analysis look in every chart: T is a continuous line, L a dashed one, both
/// with a halo of the background; their names stand in inverted boxes.
struct DirectionLine
{
    QLineF m_oLine;
    bool m_bTransverse = false; ///< T, else L
};

void drawDirectionLines(QPainter& painter, std::span<const DirectionLine> vLines, const QColor& oLabel,
                        const QColor& oBackground);
/// "T" or "L".
QString directionName(bool bTransverse);
/// The size of the box of a name in the painter's font.
QSizeF directionLabelSize(const QPainter& painter, const QString& sText);
void drawDirectionLabel(QPainter& painter, const QRectF& oBox, const QString& sText, const QColor& oLabel,
                        const QColor& oBackground);

} // namespace gkBase
