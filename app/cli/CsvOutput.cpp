#include "CsvOutput.h"

#include "CommandText.h"

#include <gkBase/MatrixData.h>

namespace gkHost {

std::optional<CommandResult> writeCsv(const gkBase::MatrixData& root, const QString& sPath)
{
    bool bOk = false;
    root.writeCSV(sPath, &bOk);
    if (bOk) {
        return std::nullopt;
    }
    return CommandResult::badInput(text("%1: cannot be written").arg(sPath));
}

} // namespace gkHost
