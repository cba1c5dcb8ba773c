#pragma once

#include "LineInPlane.h"
#include "gkBaseToolsExport.h"

#include <QPolygonF>

#include <span>
#include <vector>

namespace gkBase {

/// Where the planes of a cylindrical fold lie in the plot of dip (y, 0 … 90) against dip azimuth (x, 0 … 360), both in
/// degrees: tan dip = tan plunge / cos(azimuth − azimuth of the axis), within 90 degrees of the axis (Bengtson 1980).
/// Of a horizontal axis these are the planes that dip across it, and level ones of any azimuth. In pieces, which end
/// where the curve leaves the plot on one side and comes back on the other; nothing for a missing axis.
GKBASETOOLS_EXPORT std::vector<QPolygonF> cylindricalFoldCurve(const LineOrientation& oAxis);

/// The angle for the rim of a tangent diagram: the smallest of 30, 45, 50, 55 … 85 degrees that holds 99 of 100 dips,
/// leaving missing and overturned ones aside; 85 when none does, 60 without dips. Linear in the number of records.
GKBASETOOLS_EXPORT double tangentRimAngle(std::span<const double> vdDips);

} // namespace gkBase
