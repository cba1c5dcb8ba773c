#pragma once

#include "ImportOptions.h"
#include "ImportReport.h"

#include <QStringList>

#include <vector>

namespace gkHost {

/// Empties the cells whose numbers mark a missing value, and reports what it did.
///
/// Declared numbers (from the options or a file's header) are emptied wherever they stand. Of the usual marks (-999,
/// -999.25, -9999, …) one is emptied in a column when detection is on, it stands there or in the file more than once,
/// it is the column's smallest value, and it lies clearly below the rest: the rest is not negative, or the gap is wider
/// than half of the rest's range and a quarter of the mark. vpColumns holds null for columns without numbers; lNames
/// has a name for each.
void emptyMissingNumbers(const std::vector<std::vector<double>*>& vpColumns, const QStringList& lNames,
                         const std::vector<double>& vdDeclared, bool bDetect, ImportReport& report);

} // namespace gkHost
