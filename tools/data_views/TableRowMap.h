#pragma once

#include "RowRuns.h"
#include "gkBaseToolsExport.h"

#include <QString>

#include <vector>

namespace gkBase {

/// Which sheet row stands behind a table row: all rows, every n-th one, those of a list, or every n-th of a list.
///
/// The numbering is odd in places and kept, because saved row numbers and undo names follow it: a thinned table shows
/// the first record and then records s, 2s, 3s … counted from 1 (with step 1 the first record comes twice), and a
/// list without thinning is labelled like the whole table.
struct GKBASETOOLS_EXPORT TableRowMap
{
    int m_iStep = -1;               ///< thinning step, −1: none
    int m_iRowOffSet = 0;           ///< summary rows at the top
    std::vector<int> m_viSheetRows; ///< the rows to show, empty: all

    /// Below 1 counts as no thinning.
    void setStep(int iStep) { m_iStep = iStep < 1 ? -1 : iStep; }
    /// True when table rows are sheet rows.
    bool isPlain() const { return m_iStep < 0 && m_viSheetRows.empty(); }

    /// Past the end of a list: its last entry.
    int sheetRow(int iTableRow) const;
    /// The row label: "Minimum", "Mean" and "Maximum" for the first three rows of a table that is not thinned,
    /// otherwise a number.
    QString label(int iTableRow) const;

    /// The table rows below iRowCount whose record has a true flag; flags past iCount are false.
    RowRuns tableRowsOfRecords(const bool* pbFlags, int iCount, int iRowCount) const;
    /// The records behind table rows, rising, each once; summary rows are left out.
    std::vector<int> recordsOfTableRows(const RowRuns& vTableRows) const;
    /// First table row that shows a record rather than a summary.
    int firstDataRow(int iRowCount) const;
};

} // namespace gkBase
