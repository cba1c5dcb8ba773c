#include "ApparentDip.h"

#include "Angles.h"
#include "SineCosine.h"
#include "VectorRegisters.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

double apparentDip(double dDip, double dDipAzimuth, double dDirection)
{
    if (isMissing(dDip) || isMissing(dDipAzimuth) || isMissing(dDirection)) {
        return g_dEmptyCell;
    }
    // Along strike the apparent dip is 0, where tan 90° · cos 90° in doubles would give 45 degrees.
    constexpr double dNoise = 1e-12;
    const double dTowards = sineCosine(dDirection - dDipAzimuth).m_dCosine;
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
