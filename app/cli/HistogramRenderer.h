#pragma once

#include "ChartRenderer.h"

namespace gkHost {

/// Classes of an attribute and what they hold.
ChartRenderer histogramRenderer();

/// Its values against those of a normal distribution.
ChartRenderer probabilityRenderer();

} // namespace gkHost
