#pragma once

#include "ImportOptions.h"
#include "ImportResult.h"

#include <QStringList>

namespace gkHost {

/// Chooses the reader for a file: well logs by their name or first section, everything else as delimited text.
class FileImporter
{
public:
    static ImportResult readFile(const QString& sPath, const ImportOptions& options = {},
                                 const ImportProgress& progress = {});
    /// Filters for a file dialog, all readable files first.
    static QStringList nameFilters();
};

} // namespace gkHost
