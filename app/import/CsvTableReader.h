#pragma once

#include "ColumnCollector.h"
#include "CsvDialect.h"
#include "DelimitedScanner.h"
#include "ImportOptions.h"
#include "ImportResult.h"
#include "TextReading.h"
#include "TextSource.h"

#include <QStringList>

#include <functional>
#include <optional>

namespace gkHost {

/// Reads one table of delimited text whose form has to be found out. Used once per file.
class CsvTableReader
{
public:
    CsvTableReader(const TextSource& source, const ImportOptions& options, const ImportProgress& progress,
                   ImportResult& result);

    /// Fills the result: a table named sTableName, or an error.
    void read(const QString& sTableName);

private:
    using RowHandler = std::function<void(const std::vector<RawCell>& vCells, qint64 iLine)>;

    bool skipLeadingComments();
    /// Header and units lines, names, units. False with the error set when a quote is open.
    bool readNames();
    void takeHeader(const std::vector<RawCell>& vCells, qint64 iLine);
    void useCommentAsHeader();
    void nameColumns(qint64 iLine);
    /// Calls the handler for every row that becomes a record; the second time nothing is reported again.
    bool forEachRow(bool bReport, qint64 iDoneBefore, const RowHandler& handler);
    bool isCommentRow(const std::vector<RawCell>& vCells) const;
    bool checkLength(const std::vector<RawCell>& vCells, bool bReport);
    bool collect(ColumnCollector& collector, ImportTable& table);
    void finish(ColumnCollector& collector, ImportTable& table);
    void reportDialect();
    void fail(qint64 iLine, const QString& sReason);
    int expectedRows() const;
    std::string_view cellText(const RawCell& cell) const { return trimmed(cell.m_sText); }

    const TextSource& m_oSource;
    ImportOptions m_oOptions;
    const ImportProgress& m_oProgress;
    ImportResult& m_oResult;
    MissingMarks m_oMarks;
    CsvDialect m_oDialect;
    std::optional<DelimitedScanner> m_oScanner;
    qint64 m_iBodyPosition = 0; ///< behind the leading comments
    qint64 m_iBodyLine = 1;
    qint64 m_iRowsPosition = 0; ///< behind header and units
    qint64 m_iRowsLine = 1;
    QString m_sLastComment;
    qint64 m_iComments = 0;
    qint64 m_iEmptyLines = 0;
    qint64 m_iHeaderLine = 0; ///< 0: none
    qint64 m_iUnitsLine = 0;
    QStringList m_lNames;
    QStringList m_lUnits;
};

} // namespace gkHost
