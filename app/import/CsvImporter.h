#pragma once

#include "ImportOptions.h"
#include "ImportResult.h"

#include <QByteArray>

namespace gkHost {

/// Reads delimited text: comma, semicolon, tab, pipe or blanks between the cells.
///
/// A file with "# data set:" lines, as this program exports it, gives back the same data sets. Any other file gives
/// one table. Its column types follow from all rows: a column holds numbers only when every cell is a number or
/// empty; otherwise its cells keep the text that the file writes. Whole numbers with leading zeros ("007") are text,
/// except in columns named after an angle. Thread-safe: no state, no widgets.
class CsvImporter
{
public:
    static ImportResult readFile(const QString& sPath, const ImportOptions& options = {},
                                 const ImportProgress& progress = {});
    /// The same for bytes in memory; sFile is the name for messages and the table.
    static ImportResult readBytes(const QByteArray& qBytes, const QString& sFile, const ImportOptions& options = {},
                                  const ImportProgress& progress = {});
};

} // namespace gkHost
