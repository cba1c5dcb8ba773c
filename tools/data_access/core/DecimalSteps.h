#pragma once

#include "gkBaseCoreExport.h"

namespace gkBase {

/// Number dIndex (whole, counted from 0) of a series that begins at dStart and grows by dStep: dStart + dIndex · dStep,
/// and where that misses a decimal number of at most 15 digits by rounding only, the double nearest to that number. So
/// the third step of 0.1 from 0 is the double that is read from "0.3" (the sum alone is the one above it), and 0.3
/// counts in the class that is called "0.3 – 0.4". Not finite where the product is not.
GKBASECORE_EXPORT double decimalStep(double dStart, double dStep, double dIndex);

} // namespace gkBase
