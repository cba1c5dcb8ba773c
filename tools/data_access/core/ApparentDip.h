#pragma once

#include "gkBaseCoreExport.h"

#include <span>

namespace gkBase {

/// The dip of a plane as seen in a vertical section along a direction, in degrees: atan(tan dip · cos(direction − dip
/// azimuth)), positive where the plane dips towards the direction, negative where it dips away. Vertical planes give
/// ±90, and 0 when the direction is their strike: a cosine within 1e-12 of 0 counts as 0. NaN when a number is missing.
GKBASECORE_EXPORT double apparentDip(double dDip, double dDipAzimuth, double dDirection);

/// The apparent dips of records; NaN, an empty cell, where an angle is missing. The result may be one of the columns;
/// the shortest span counts.
GKBASECORE_EXPORT void apparentDips(std::span<const double> vdDips, std::span<const double> vdDipAzimuths,
                                    double dDirection, std::span<double> vdApparentDips);

} // namespace gkBase
