#pragma once

#include "gkBaseToolsExport.h"

#include <QString>

namespace gkBase {

class MatrixData;

/// Display units per model unit of an attribute, for differences such as interval sizes. 1 for null and for units that
/// do not convert.
GKBASETOOLS_EXPORT double displayScale(const MatrixData* poAttribute);

/// A model value in display units. iDecimals −1 takes the unit's own. "---" for a missing value and for null.
GKBASETOOLS_EXPORT QString displayNumber(const MatrixData* poAttribute, double dValue, int iDecimals = -1);

/// The sign of the display unit; empty for null and for values without a unit.
GKBASETOOLS_EXPORT QString displayUnit(const MatrixData* poAttribute);

/// displayNumber() with the unit's sign ("12.50 ft"); a missing value has none.
GKBASETOOLS_EXPORT QString displayText(const MatrixData* poAttribute, double dValue, int iDecimals = -1);

} // namespace gkBase
