#pragma once

#include <utility>

namespace gkBase {

/// True when a ray from the point to the right crosses the edge. Worked out from the lower end of the edge whatever
/// the order of its ends, so that polygons on both sides agree.
inline bool crossesRay(double dX1, double dY1, double dX2, double dY2, double dX, double dY)
{
    if ((dY1 > dY) == (dY2 > dY)) {
        return false;
    }
    if (dY1 > dY2) {
        std::swap(dX1, dX2);
        std::swap(dY1, dY2);
    }
    return dX < dX1 + (dX2 - dX1) * ((dY - dY1) / (dY2 - dY1));
}

} // namespace gkBase
