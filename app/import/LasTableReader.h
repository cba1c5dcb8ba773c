#pragma once

#include "ColumnCollector.h"
#include "ImportOptions.h"
#include "ImportResult.h"
#include "LasRows.h"
#include "LasSections.h"
#include "TextSource.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace gkHost {

/// What the header of a well log says about its data.
struct LasHeader
{
    double m_dVersion = 2.0;
    bool m_bWrapped = false;
    char m_cDelimiter = 0; ///< 0: not given
    std::optional<double> m_odNull;
    QString m_sNullText; ///< a NULL that is no number
    std::optional<double> m_odStart;
    std::optional<double> m_odStop;
    QString m_sWell; ///< empty: not given
};

/// Reads one data section with the curves that its definition names.
class LasTableReader
{
public:
    LasTableReader(const TextSource& source, const LasHeader& header, const ImportOptions& options,
                   const ImportProgress& progress, ImportResult& result);

    /// Appends a table to the result. pDefinition may be null: the columns are then named by the title line or
    /// counted. False after an error or a cancel.
    bool read(const LasSection& data, const LasSection* pDefinition, const QString& sTableName);

private:
    void nameCurves(const LasSection& data, const LasSection* pDefinition);
    void nameFurtherColumns(const LasSection& data, int iColumns);
    QString freeName(const QString& sWanted, qint64 iLine);
    std::vector<ColumnCollector::Rules> rules(const LasDataForm& form) const;
    bool collect(const LasSection& data, const LasDataForm& form, ColumnCollector& collector, LineMap& lines);
    /// The cell without quotes; a number with the other decimal mark is written with this one.
    std::string_view cleanCell(std::string_view sCell, char cDecimalMark, qint64 iLine, bool bReport);
    void emptyNulls(ColumnCollector& collector);
    void reportForm(const LasDataForm& form);
    void remarkIndex(const ImportTable& table);
    bool progress(const LasRows& rows, qint64 iPass);

    const TextSource& m_oSource;
    const LasHeader& m_oHeader;
    const ImportOptions& m_oOptions;
    const ImportProgress& m_oProgress;
    ImportResult& m_oResult;
    MissingMarks m_oMarks;
    std::vector<ImportColumn> m_vCurves;
    std::vector<QString> m_vsFormats;
    std::string m_sBuffer; ///< of cleanCell()
};

} // namespace gkHost
