#include "LineInPlane.h"

#include "Angles.h"

#include <array>
#include <cmath>

namespace gkBase {

LineOrientation lineInPlane(double dDip, double dDipAzimuth, double dPitch)
{
    if (isMissing(dDip) || isMissing(dDipAzimuth) || isMissing(dPitch)) {
        return {g_dMissingValue, g_dMissingValue};
    }
    // Below this the horizontal part of the line is rounding noise.
    constexpr double dVertical = 1e-12;
    const double dDipRad = radians(dDip);
    const double dPitchRad = radians(dPitch);
    const double dAlongStrike = std::cos(dPitchRad);
    const double dAlongDip = std::sin(dPitchRad) * std::cos(dDipRad);
    const double dDown = std::sin(dPitchRad) * std::sin(dDipRad);
    const double dHorizontal = std::hypot(dAlongStrike, dAlongDip);
    if (dHorizontal < dVertical) {
        return {90.0, wrapAngle(dDipAzimuth, 360.0)};
    }
    double dPlunge = degrees(std::atan2(dDown, dHorizontal));
    double dAzimuth = dDipAzimuth - 90.0 + degrees(std::atan2(dAlongDip, dAlongStrike));
    // sin 180° is not quite 0 in doubles; a plunge of rounding noise must not turn the line round.
    if (dPlunge < -dVertical) {
        dPlunge = -dPlunge;
        dAzimuth += 180.0;
    }
    return {std::abs(dPlunge), wrapAngle(dAzimuth, 360.0)};
}

LineOrientation lineInPlane(double dDip, double dDipAzimuth, double dPitch, double dFromAzimuth)
{
    if (isMissing(dDipAzimuth) || isMissing(dFromAzimuth)) {
        return lineInPlane(dDip, dDipAzimuth, dPitch);
    }
    const double dStrike = dDipAzimuth - 90.0;
    constexpr double dTie = 1e-9;
    const bool bOtherEnd = angularDifference(dFromAzimuth, dStrike) > 90.0 + dTie;
    return lineInPlane(dDip, dDipAzimuth, bOtherEnd ? 180.0 - dPitch : dPitch);
}

std::optional<double> compassAzimuth(std::string_view sDirection)
{
    constexpr std::array<std::string_view, 16> asDirections{"N", "NNE", "NE", "ENE", "E", "ESE", "SE", "SSE",
                                                            "S", "SSW", "SW", "WSW", "W", "WNW", "NW", "NNW"};
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!sDirection.empty() && isBlank(sDirection.front())) {
        sDirection.remove_prefix(1);
    }
    while (!sDirection.empty() && isBlank(sDirection.back())) {
        sDirection.remove_suffix(1);
    }
    const auto toUpper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    for (std::size_t i = 0; i < asDirections.size(); ++i) {
        const auto sCandidate = asDirections[i];
        if (std::equal(sCandidate.begin(), sCandidate.end(), sDirection.begin(), sDirection.end(),
                       [&](char cCandidate, char c) { return cCandidate == toUpper(c); })) {
            return 22.5 * static_cast<double>(i);
        }
    }
    return std::nullopt;
}

} // namespace gkBase
