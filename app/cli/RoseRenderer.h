#pragma once

#include "ChartRenderer.h"

namespace gkHost {

/// Directions counted in sectors.
ChartRenderer roseRenderer();

} // namespace gkHost
