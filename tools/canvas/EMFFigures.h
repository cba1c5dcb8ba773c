#pragma once

#include <QPainterPath>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>

#include <optional>
#include <vector>

namespace gkBase {

/// One subpath in the units of EMFRecordWriter.
struct EMFFigure
{
    /// Corners; of a curved figure its start and three points per Bézier curve, straight sides included. A closed
    /// figure of corners does not repeat the first one.
    std::vector<QPoint> m_vPoints;
    bool m_bCurved = false;
    bool m_bClosed = false; ///< ends where it starts
};

/// Pixels to units, rounded. Positions too far away for readers' arithmetic are moved to where it still holds.
QPoint emfUnits(const QPointF& oPixels);
/// The corners of a rectangle in units, its right and bottom edges where they are drawn.
QRect emfUnits(const QRectF& oPixels);

/// The subpaths of a path in pixels; those of fewer than two points are left out.
std::vector<EMFFigure> emfFigures(const QPainterPath& path);

/// The rectangle of a path that consists of one whole ellipse along the axes, as QPainterPath::addEllipse() makes it.
std::optional<QRectF> ellipseRect(const QPainterPath& path);

} // namespace gkBase
