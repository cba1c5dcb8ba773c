#include "CsvOutput.h"

#include <gkBase/MatrixData.h>

#include <QCoreApplication>

namespace gkHost {

std::optional<CommandResult> writeCsv(const gkBase::MatrixData& root, const QString& sPath)
{
    bool bOk = false;
    root.writeCSV(sPath, &bOk);
    if (bOk) {
        return std::nullopt;
    }
    return CommandResult::badInput(QCoreApplication::translate("CommandLine", "%1: cannot be written").arg(sPath));
}

} // namespace gkHost
