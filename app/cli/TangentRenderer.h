#pragma once

#include "ChartRenderer.h"

namespace gkHost {

/// Planes by the tangent of their dip, with a fold axis.
ChartRenderer tangentRenderer();

} // namespace gkHost
