#include "PointInPolygon.h"

#include "MissingValue.h"

#include <algorithm>
#include <cstddef>

namespace gkBase {

namespace {

/// True when a ray from the point to the right crosses the edge. Worked out from the lower end of the edge whatever
/// the order of its ends, so that polygons on both sides agree.
bool crossesRay(double dX1, double dY1, double dX2, double dY2, double dX, double dY)
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

} // namespace

bool pointInPolygon(std::span<const double> vdX, std::span<const double> vdY, double dX, double dY)
{
    const std::size_t iPairs = std::min(vdX.size(), vdY.size());
    if (isMissing(dX) || isMissing(dY)) {
        return false;
    }
    std::size_t iFirst = iPairs;
    std::size_t iLast = iPairs;
    int iCorners = 0;
    bool bInside = false;
    for (std::size_t i = 0; i < iPairs; ++i) {
        if (isMissing(vdX[i]) || isMissing(vdY[i])) {
            continue;
        }
        if (iCorners++ == 0) {
            iFirst = i;
        } else if (crossesRay(vdX[iLast], vdY[iLast], vdX[i], vdY[i], dX, dY)) {
            bInside = !bInside;
        }
        iLast = i;
    }
    if (iCorners < 3) {
        return false;
    }
    return crossesRay(vdX[iLast], vdY[iLast], vdX[iFirst], vdY[iFirst], dX, dY) != bInside;
}

} // namespace gkBase
