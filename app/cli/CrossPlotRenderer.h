#pragma once

#include "ChartRenderer.h"

namespace gkHost {

/// One attribute against another.
ChartRenderer crossPlotRenderer();

} // namespace gkHost
