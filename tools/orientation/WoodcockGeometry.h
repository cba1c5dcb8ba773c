#pragma once

#include "gkBaseToolsExport.h"

#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <optional>
#include <vector>

namespace gkBase {

/// A pixel of the Woodcock diagram that is known at its two reference sizes, small at 383 and large at 634 pixels,
/// in a picture of any size: linear in width and height.
GKBASETOOLS_EXPORT QPointF woodcockReferencePixel(const QSizeF& oSize, const QPointF& oSmall, const QPointF& oLarge);

/// The axes of a Woodcock diagram in pixels: x = ln(S2/S3), y = ln(S1/S2), both from 0 to 5.
struct GKBASETOOLS_EXPORT WoodcockAxes
{
    static constexpr double s_dEnd = 5.0; ///< value at the ends of the axes

    QPointF m_oOrigin;
    QPointF m_oX5; ///< (5, 0)
    QPointF m_oY5; ///< (0, 5)

    explicit WoodcockAxes(const QSizeF& oSize);

    /// Values to pixels; beyond 5 the axes go on.
    QPointF pixel(double dX, double dY) const;
    /// Pixels to values.
    QPointF values(const QPointF& oPixel) const;
    /// The square between the axes.
    QRectF area() const { return QRectF(QPointF(m_oOrigin.x(), m_oY5.y()), QPointF(m_oX5.x(), m_oOrigin.y())); }
};

/// A line of equal K = y / x or C = x + y within the axes.
struct WoodcockLine
{
    double m_dValue = 0.0; ///< K or C
    QLineF m_oLine;        ///< values
};

GKBASETOOLS_EXPORT std::vector<WoodcockLine> woodcockLinesOfK(); ///< 0.2, 0.5, 1, 2, 5, from the origin
GKBASETOOLS_EXPORT std::vector<WoodcockLine> woodcockLinesOfC(); ///< 2, 4, 6, 8, from the x axis up

/// Where a pixel outside the picture is marked: the point at which the line from the origin to it leaves the area, so
/// that the mark keeps its K. Nothing for pixels inside, and for an empty area.
GKBASETOOLS_EXPORT std::optional<QPointF> woodcockEdgeMark(const QRectF& oArea, const QPointF& oOrigin,
                                                           const QPointF& oPixel);

} // namespace gkBase
