#pragma once

#include "ChartRenderer.h"

namespace gkHost {

/// Shapes of sets of planes or lines by the ratios of their eigenvalues.
ChartRenderer woodcockRenderer();

} // namespace gkHost
