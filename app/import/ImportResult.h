#pragma once

#include "ImportReport.h"
#include "ImportTable.h"

#include <QString>

#include <vector>

namespace gkHost {

/// What an importer made of a file. With an error or after a cancel there are no tables.
struct ImportResult
{
    std::vector<ImportTable> m_vTables;
    ImportReport m_oReport;
    QString m_sError; ///< one message with file, line and reason
    bool m_bCancelled = false;

    bool isOk() const { return m_sError.isEmpty() && !m_bCancelled; }
};

} // namespace gkHost
