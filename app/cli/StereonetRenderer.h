#pragma once

#include "ChartRenderer.h"

namespace gkHost {

/// Planes or lines on the net.
ChartRenderer stereonetRenderer();

} // namespace gkHost
