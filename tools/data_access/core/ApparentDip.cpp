#include "ApparentDip.h"

#include "Angles.h"
#include "VectorRegisters.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

double apparentDip(double dDip, double dDipAzimuth, double dDirection)
{
    if (isMissing(dDip) || isMissing(dDipAzimuth) || isMissing(dDirection)) {
        return g_dEmptyCell;
    }
    // The cosine of 90 degrees is not quite 0 in doubles; along the strike of a vertical plane that would give 45.
    constexpr double dNoise = 1e-15;
    const double dTowards = std::cos(radians(dDirection - dDipAzimuth));
    if (std::abs(dTowards) < dNoise) {
        return 0.0;
    }
    return degrees(std::atan(std::tan(radians(dDip)) * dTowards));
}

void apparentDips(std::span<const double> vdDips, std::span<const double> vdDipAzimuths, double dDirection,
                  std::span<double> vdApparentDips)
{
    const std::size_t iRecords = std::min({vdDips.size(), vdDipAzimuths.size(), vdApparentDips.size()});
    clearVectorRegisters();
    for (std::size_t i = 0; i < iRecords; ++i) {
        vdApparentDips[i] = apparentDip(vdDips[i], vdDipAzimuths[i], dDirection);
    }
}

} // namespace gkBase
