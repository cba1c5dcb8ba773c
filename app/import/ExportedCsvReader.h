#pragma once

#include "DelimitedScanner.h"
#include "ImportOptions.h"
#include "ImportResult.h"
#include "TextSource.h"

#include <QMetaType>

#include <string_view>
#include <vector>

namespace gkHost {

/// Reads the form that this program exports (docs/csv-format.md): one or more data sets with their names, types,
/// units and strike links. Every cell comes back bit for bit.
class ExportedCsvReader
{
public:
    ExportedCsvReader(const TextSource& source, const ImportProgress& progress, ImportResult& result);

    /// The file begins as the exported form does.
    static bool recognises(std::string_view sBytes);

    /// sTableName is the name of a data set that the file does not name.
    void read(const QString& sTableName);

private:
    struct Column
    {
        QMetaType::Type m_eType = QMetaType::Double;
        bool m_bStrike = false;
        int m_iAzimuth = -1;
        bool m_bHasValues = false;
        std::vector<double> m_vdNumbers;
        gkBase::MatrixColumn m_oValues;
    };

    bool atTagLine() const;
    bool atColorRow(const std::vector<Column>& vColumns) const;
    std::string_view takeTagLine();
    bool startsDataSet(std::string_view sRest) const;
    /// Types, header and rows of one data set, up to the next one.
    bool readBlock(ImportTable& table);
    bool readTypes(std::string_view sLine, std::vector<Column>& vColumns);
    bool readHeader(ImportTable& table, std::size_t iColumns);
    bool readRows(ImportTable& table, std::vector<Column>& vColumns);
    void addRow(std::vector<Column>& vColumns);
    /// False when the text does not fit the column's type; the cell is then empty.
    bool addCell(Column& column, const RawCell& cell);
    static void addMissing(Column& column);
    void finish(ImportTable& table, std::vector<Column>& vColumns);
    bool fail(const QString& sReason);

    const TextSource& m_oSource;
    const ImportProgress& m_oProgress;
    ImportResult& m_oResult;
    DelimitedScanner m_oScanner;
    std::vector<RawCell> m_vCells;
};

} // namespace gkHost
