#pragma once

#include "ChartRenderer.h"

namespace gkHost {

/// A bar for every text, flag or colour, or class of numbers.
ChartRenderer barChartRenderer();

} // namespace gkHost
