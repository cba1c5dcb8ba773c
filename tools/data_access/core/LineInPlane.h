#pragma once

#include "gkBaseCoreExport.h"

#include <optional>
#include <string_view>

namespace gkBase {

/// A line by plunge (0 … 90 degrees below the horizontal) and azimuth ([0, 360)).
struct LineOrientation
{
    double m_dPlunge;
    double m_dAzimuth;
};

/// The line in the plane (dip, dip azimuth) at a pitch, all in degrees: 0 … 180, measured in the plane from the
/// strike by the right-hand rule (dip azimuth − 90) downwards. From spherical trigonometry: sin plunge =
/// sin pitch · sin dip, azimuth = strike + atan2(sin pitch · cos dip, cos pitch). A vertical line has the dip
/// azimuth. An upward line (pitch beyond 180) is turned to its lower end. Missing angles give (99999.0, 99999.0).
GKBASECORE_EXPORT LineOrientation lineInPlane(double dDip, double dDipAzimuth, double dPitch);

/// As above with a pitch of 0 … 90 measured downwards from the strike end that lies nearer to dFromAzimuth; the
/// right-hand strike where both are equally near.
GKBASECORE_EXPORT LineOrientation lineInPlane(double dDip, double dDipAzimuth, double dPitch, double dFromAzimuth);

/// The azimuth of a compass direction of one to three letters ("N", "ne", "SSW"), blanks around it ignored;
/// nothing for any other text.
GKBASECORE_EXPORT std::optional<double> compassAzimuth(std::string_view sDirection);

} // namespace gkBase
