#include "ImportTable.h"

#include <gkBase/MatrixData.h>
#include <gkBase/MatrixDataCsv.h>
#include <gkBase/MatrixDataStrike.h>
#include <gkBase/UnitRegistry.h>

#include <QSet>

#include <algorithm>

namespace gkHost {

using gkBase::MatrixData;
using gkBase::MatrixDataStrike;
using gkBase::UnitRegistry;

int ImportTable::rowCount() const
{
    int iRows = 0;
    for (const ImportColumn& column : m_vColumns) {
        iRows = std::max(iRows, column.m_oValues.size());
    }
    return iRows;
}

int ImportTable::indexOf(const QString& sName) const
{
    const auto it = std::find_if(m_vColumns.begin(), m_vColumns.end(),
                                 [&](const ImportColumn& column) { return column.m_sName == sName; });
    return it == m_vColumns.end() ? -1 : static_cast<int>(it - m_vColumns.begin());
}

QString ImportTable::uniqueName(const QString& sName) const
{
    QSet<QString> lTaken;
    for (const ImportColumn& column : m_vColumns) {
        lTaken.insert(column.m_sName);
    }
    QString sUnique = sName;
    for (int i = 1; lTaken.contains(sUnique); ++i) {
        sUnique = sName + '_' + QString::number(i);
    }
    return sUnique;
}

std::unique_ptr<MatrixData> toDataSet(ImportTable&& table, const UnitRegistry& registry)
{
    auto poDataSet = std::make_unique<MatrixData>(table.m_sName);
    std::vector<MatrixData*> vpNodes;
    for (ImportColumn& column : table.m_vColumns) {
        std::unique_ptr<MatrixData> poNode;
        if (column.m_iStrikeOf != -1) {
            poNode = std::make_unique<MatrixDataStrike>(column.m_sName, nullptr);
        } else {
            poNode = std::make_unique<MatrixData>(column.m_sName, 0, 1, column.m_oValues.type());
            poNode->setColumn(0, std::move(column.m_oValues));
        }
        const gkBase::MatrixDataCsv::Header oHeader{column.m_sName, column.m_sUnit, column.m_sCategory};
        poNode->setUnitManager(gkBase::MatrixDataCsv::headerUnit(oHeader, registry));
        poNode->setColor(column.m_oColor.isValid() ? column.m_oColor : MatrixData::getDefaultColor(vpNodes.empty()));
        vpNodes.push_back(poNode.get());
        poDataSet->appendChild(poNode.release(), true);
    }
    for (std::size_t i = 0; i < vpNodes.size(); ++i) {
        const int iAzimuth = table.m_vColumns[i].m_iStrikeOf;
        if (iAzimuth >= 0 && iAzimuth < static_cast<int>(vpNodes.size())) {
            static_cast<MatrixDataStrike*>(vpNodes[i])->setAzimuth(vpNodes[iAzimuth]);
        }
        vpNodes[i]->setSelected(i < g_iSelectedAttributes);
    }
    return poDataSet;
}

} // namespace gkHost
