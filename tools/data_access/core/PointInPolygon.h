#pragma once

#include "gkBaseCoreExport.h"

#include <span>

namespace gkBase {

/// Even-odd rule (Shimrat 1962). The polygon is closed by itself; corners with a missing number are left out. Points
/// on a left or lower edge lie inside, on a right or upper edge outside, so that of polygons that tile the plane
/// exactly one holds a point. False below three corners.
GKBASECORE_EXPORT bool pointInPolygon(std::span<const double> vdX, std::span<const double> vdY, double dX, double dY);

} // namespace gkBase
