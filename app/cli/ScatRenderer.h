#pragma once

#include "ChartRenderer.h"

namespace gkHost {

/// Dip, azimuth, transverse and longitudinal dip of a well, with the lines of a scenario.
ChartRenderer scatRenderer();

} // namespace gkHost
