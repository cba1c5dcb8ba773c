#pragma once

#include "ImportOptions.h"
#include "ImportResult.h"

#include <QByteArray>

namespace gkHost {

/// Reads well logs in the LAS forms 1.2, 2.0 and 3.0 (Canadian Well Logging Society 1990, 1992, 2000).
///
/// Forms 1.2 and 2.0 give one table; 3.0 gives one per data section, the log first. The first curve keeps its order
/// and spacing whatever they are. Values equal to the header's NULL are empty. Curve columns hold doubles, or the
/// text of the file when one of their cells is no number. Thread-safe: no state, no widgets.
class LasImporter
{
public:
    static ImportResult readFile(const QString& sPath, const ImportOptions& options = {},
                                 const ImportProgress& progress = {});
    static ImportResult readBytes(const QByteArray& qBytes, const QString& sFile, const ImportOptions& options = {},
                                  const ImportProgress& progress = {});
};

} // namespace gkHost
