#include "DataFile.h"

#include "FileImporter.h"
#include "ImportResult.h"

#include <gkBase/MatrixData.h>

namespace gkHost {

DataFile::DataFile() = default;
DataFile::DataFile(DataFile&&) noexcept = default;
DataFile& DataFile::operator=(DataFile&&) noexcept = default;
DataFile::~DataFile() = default;

DataFile dataFileFrom(ImportResult&& result, const gkBase::UnitRegistry& registry, const OrientationChoice& fnChoice)
{
    DataFile file;
    file.m_sError = result.m_sError;
    if (result.isOk()) {
        for (ImportTable& table : result.m_vTables) {
            std::vector<OrientationProposal> vProposals = OrientationRecognizer::propose(table);
            if (fnChoice && !vProposals.empty())
                vProposals = fnChoice(table, vProposals);
            OrientationRecognizer::applyOrientation(table, vProposals, result.m_oReport);
            file.m_vDataSets.push_back(toDataSet(std::move(table), registry));
        }
    }
    file.m_oReport = std::move(result.m_oReport);
    return file;
}

DataFile readDataFile(const QString& sPath, const gkBase::UnitRegistry& registry, const ImportOptions& options)
{
    return dataFileFrom(FileImporter::readFile(sPath, options), registry);
}

} // namespace gkHost
