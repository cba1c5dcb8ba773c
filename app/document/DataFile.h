#pragma once

#include "ImportOptions.h"
#include "ImportReport.h"
#include "OrientationRecognizer.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace gkBase {
class MatrixData;
class UnitRegistry;
} // namespace gkBase

namespace gkHost {

struct ImportResult;

/// What a file became: data sets ready for a document, and the report. With an error there are no data sets.
struct DataFile
{
    std::vector<std::unique_ptr<gkBase::MatrixData>> m_vDataSets;
    ImportReport m_oReport;
    QString m_sError; ///< one message with file, line and reason

    DataFile();
    DataFile(DataFile&&) noexcept;
    DataFile& operator=(DataFile&&) noexcept;
    ~DataFile();
    bool isOk() const { return m_sError.isEmpty(); }
};

/// Lets the user confirm, change or drop the orientations found in a table.
using OrientationChoice =
    std::function<std::vector<OrientationProposal>(const ImportTable&, const std::vector<OrientationProposal>&)>;

/// Turns what an importer read into data sets: orientations are recognised, fnChoice (empty: all as proposed) decides
/// about them, units come from the registry. For the GUI thread.
DataFile dataFileFrom(ImportResult&& result, const gkBase::UnitRegistry& registry,
                      const OrientationChoice& fnChoice = {});

/// Reads a file and turns it into data sets in one go, for the command line.
DataFile readDataFile(const QString& sPath, const gkBase::UnitRegistry& registry, const ImportOptions& options = {});

} // namespace gkHost
