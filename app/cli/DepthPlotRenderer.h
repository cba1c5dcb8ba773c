#pragma once

#include "ChartRenderer.h"

namespace gkHost {

/// Tracks of a well.
ChartRenderer depthPlotRenderer();

} // namespace gkHost
