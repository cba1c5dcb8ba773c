#include "CsvOutput.h"

#include "CommandText.h"

#include <gkBase/MatrixData.h>
#include <gkBase/UnitManager.h>

#include <memory>

namespace gkHost {

void appendAttribute(gkBase::MatrixData& dataSet, QString sName, const boost::shared_ptr<gkBase::UnitManager>& poUnit,
                     gkBase::MatrixColumn column)
{
    dataSet.createUniqueName(sName);
    auto poAttribute = std::make_unique<gkBase::MatrixData>(sName, 0, 1);
    poAttribute->setUnitManager(poUnit);
    poAttribute->setColumn(0, std::move(column));
    dataSet.appendChild(poAttribute.release(), true);
}

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
