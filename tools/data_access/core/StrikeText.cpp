#include "StrikeText.h"

#include "Angles.h"

#include <array>
#include <cmath>

namespace gkBase {

std::string_view compassOctant(double dAzimuth)
{
    constexpr std::array<std::string_view, 8> asOctants{"N", "NE", "E", "SE", "S", "SW", "W", "NW"};
    if (isMissing(dAzimuth)) {
        return {};
    }
    const double dOctant = std::ceil((wrapAngle(dAzimuth, 360.0) - 22.5) / 45.0);
    return asOctants[static_cast<std::size_t>(dOctant) % asOctants.size()];
}

std::string_view dipDirection(double dStrike)
{
    return isMissing(dStrike) ? std::string_view() : compassOctant(dStrike + 90.0);
}

double rightHandStrike(double dDipAzimuth)
{
    return isMissing(dDipAzimuth) ? g_dMissingValue : wrapAngle(dDipAzimuth - 90.0, 360.0);
}

} // namespace gkBase
