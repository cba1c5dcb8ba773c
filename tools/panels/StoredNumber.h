#pragma once

#include <QString>

namespace gkBase {

/// A number as text for the settings: 17 digits, "---" for 99999.0 and whatever else is missing.
QString storedNumber(double dValue);

/// The number of such a text; 99999.0 for "---", dOtherwise for a text that is neither.
double numberFromSettings(const QString& sText, double dOtherwise);

} // namespace gkBase
