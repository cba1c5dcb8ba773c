#pragma once

#include "PointStyle.h"
#include "gkBaseToolsExport.h"

#include <QLineF>
#include <QList>
#include <QPainterPath>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QString>

#include <optional>

namespace gkBase {

/// What a symbol is filled with when it is drawn in a colour.
enum class SymbolFill
{
    None,        ///< lines or a single point
    Colour,      ///< the given colour
    Background,  ///< the chart's background: hollow
    PainterBrush ///< whatever brush the painter has
};

/// Unknown values are read as Circle everywhere in this header.
GKBASETOOLS_EXPORT bool isPointStyle(int iStyle);
GKBASETOOLS_EXPORT SymbolFill symbolFill(int iStyle);
/// The name that is offered to the user; the same for every language, since files keep it.
GKBASETOOLS_EXPORT QString pointStyleName(int iStyle);
/// The order in which combo boxes offer the styles; bAll adds the seven variants that differ in their fill only.
GKBASETOOLS_EXPORT QList<PointStyle> offeredPointStyles(bool bAll);

/// The centre on whole pixels (halves go to the right and down); what lies too far away for integers is brought
/// nearer, still far beyond any picture.
GKBASETOOLS_EXPORT QPoint symbolCentre(const QPointF& oCentre);

/// The square (x − s, y − s)–(x + s, y + s) around the rounded centre; a negative size counts as 0.
GKBASETOOLS_EXPORT QRectF symbolSquare(const QPointF& oCentre, int iSize);
/// Outline of the symbols with corners (square, triangles, diamond, crosses with broad arms); empty for circles, the
/// line cross and the pixel. Sizes in pixels, y downwards.
GKBASETOOLS_EXPORT QPolygonF symbolPolygon(int iStyle, const QPointF& oCentre, int iSize);
/// The whole symbol as a path: a closed outline, or two open lines for the cross. Empty for the pixel, which is a
/// point and has no outline.
GKBASETOOLS_EXPORT QPainterPath symbolPath(int iStyle, const QPointF& oCentre, int iSize);
/// A regular polygon on the circle of radius iSize whose first corner lies straight above the centre, further corners
/// clockwise on the screen. Empty below three corners.
GKBASETOOLS_EXPORT QPolygonF regularPolygon(const QPointF& oCentre, int iSize, int iCorners);

/// The tail of a tadpole with a head of radius iSize: along the azimuth (degrees, clockwise from straight up), from the
/// head's rim to 2s + 10 pixels from the centre. None when the azimuth is missing (99999.0 or NaN) or when an end has
/// a co-ordinate below zero, that is, outside the picture on the left or at the top.
GKBASETOOLS_EXPORT std::optional<QLineF> tadpoleTail(const QPointF& oCentre, double dAzimuthDeg, int iSize);

} // namespace gkBase
