#pragma once

#include "ImportOptions.h"
#include "ImportReport.h"
#include "LasSections.h"
#include "TextReading.h"

#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace gkHost {

/// How the rows of a data section are written.
struct LasDataForm
{
    char m_cDelimiter = ' ';
    char m_cDecimalMark = '.';
    bool m_bWrapped = false;
    int m_iColumns = 0;    ///< cells of a record: the curves, or more when the lines have more
    int m_iUsualCells = 0; ///< cells of most lines
};

/// Splits one line of a data section. Blanks part cells in runs; quotes (single or double) hide them.
void splitLasLine(std::string_view sLine, char cDelimiter, std::vector<std::string_view>& vCells);

/// Finds the form from the first lines of a section. cDeclared is the header's delimiter or 0, bWrapped its wrap
/// flag; the lines overrule both when they do not fit the number of curves.
LasDataForm detectLasForm(const LasSection& section, int iCurves, char cDeclared, bool bWrapped,
                          const ImportOptions& options);

/// Turns the lines of a data section into records: joins wrapped lines, parts numbers that ran together, and rejects
/// what is no record. Going through the section twice gives the same records.
class LasRows
{
public:
    /// report may be null: then nothing is told.
    LasRows(const LasSection& section, const LasDataForm& form, ImportReport* pReport);

    /// The next record with exactly form.m_iColumns cells (missing ones empty); false at the end.
    bool next(std::vector<std::string_view>& vCells);
    /// The line on which the last record began.
    qint64 line() const { return m_iRecordLine; }
    std::size_t remaining() const { return m_oLines.remaining(); }

private:
    bool nextLine();
    bool nextWrapped(std::vector<std::string_view>& vCells);
    bool fitLine(std::vector<std::string_view>& vCells);
    bool splitAtColumns(std::vector<std::string_view>& vCells) const;
    bool placeAtColumns(std::vector<std::string_view>& vCells) const;
    bool splitAtSigns(std::vector<std::string_view>& vCells) const;
    void learnColumns(const std::vector<std::string_view>& vLines);
    void tellRepair(const QString& sText);
    void tellRejected(const QString& sText);

    LasDataForm m_oForm;
    LineReader m_oLines;
    ImportReport* m_pReport; ///< not owned
    std::string_view m_sLine;
    qint64 m_iRecordLine = 0;
    std::vector<std::string_view> m_vTokens; ///< of the current line
    bool m_bPending = false;                 ///< the current line begins the next record
    bool m_bNumbers = false;                 ///< most lines hold a number: one without is no record
    std::vector<std::size_t> m_viEnds;       ///< where the columns end; empty when lines differ
};

} // namespace gkHost
