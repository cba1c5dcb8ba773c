#include "PointInPolygon.h"

#include "EdgeCrossing.h"
#include "MissingValue.h"

#include <algorithm>
#include <cstddef>

namespace gkBase {

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
