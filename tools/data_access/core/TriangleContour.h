#pragma once

#include "gkBaseCoreExport.h"

namespace gkBase {

/// A corner of a triangle with the value of a surface there.
struct TriangleCorner
{
    double m_dX;
    double m_dY;
    double m_dValue;
};

struct ContourPoint
{
    double m_dX;
    double m_dY;
};

/// The segment on which the plane through the corner values has the level: returns 2, or 0 when it misses the
/// triangle or shrinks to a point. A corner at the level counts as above it, so that an edge at the level belongs to
/// the triangle below. Triangles that share an edge get bit-identical points on it, and segments join to lines.
GKBASECORE_EXPORT int triangleIsoline(const TriangleCorner (&aCorners)[3], double dLevel, ContourPoint (&aPoints)[2]);

/// The part of the triangle with lower <= value < upper as a polygon in the triangle's sense of rotation: returns
/// the number of points, 3 to 5, or 0 when the band misses the triangle or only touches it. A level triangle belongs
/// to the band that begins at its value. Neighbours and neighbouring bands share bit-identical points.
GKBASECORE_EXPORT int triangleBand(const TriangleCorner (&aCorners)[3], double dLower, double dUpper,
                                   ContourPoint (&aPoints)[6]);

} // namespace gkBase
