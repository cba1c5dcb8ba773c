#pragma once

#include "gkBaseCoreExport.h"

#include <string_view>

namespace gkBase {

/// The compass word of an azimuth in degrees: "N", "NE", … "NW". A word holds the 45 degrees about its direction, the
/// upper limit included: 22.5 is "N". Empty for a missing azimuth.
GKBASECORE_EXPORT std::string_view compassOctant(double dAzimuth);

/// The compass word of the side to which a plane of this right-hand strike dips: that of strike + 90.
GKBASECORE_EXPORT std::string_view dipDirection(double dStrike);

/// The strike by the right-hand rule: dip azimuth − 90 brought to [0, 360). 99999.0 for a missing azimuth.
GKBASECORE_EXPORT double rightHandStrike(double dDipAzimuth);

} // namespace gkBase
