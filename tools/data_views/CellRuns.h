#pragma once

#include "RowRuns.h"
#include "gkBaseToolsExport.h"

#include <QItemSelection>
#include <QModelIndex>

#include <memory>
#include <vector>

namespace gkBase {

/// A set of table cells: for each column the runs of its rows (table rows). Columns with the same rows share them, so
/// that whole rows cost as much in twenty columns as in one.
class GKBASETOOLS_EXPORT CellRuns
{
public:
    /// No cell of a table with iColumns columns.
    explicit CellRuns(int iColumns = 0);
    /// Whole rows.
    static CellRuns ofRows(RowRuns vRows, int iColumns);
    /// Columns outside 0 … iColumns − 1 are left out.
    static CellRuns ofIndexes(const QModelIndexList& lIndexes, int iColumns);
    static CellRuns ofSelection(const QItemSelection& oSelection, int iColumns);

    int columnCount() const { return static_cast<int>(m_vpColumns.size()); }
    /// Empty for a column out of range.
    const RowRuns& column(int iColumn) const;
    void setColumn(int iColumn, RowRuns vRows);

    bool isEmpty() const;
    bool contains(int iRow, int iColumn) const { return runsContain(column(iColumn), iRow); }
    qint64 cellCount() const;
    /// Rows of which every column is in the set.
    RowRuns fullRows() const;
    /// Rows of which any column is in the set.
    RowRuns touchedRows() const;
    /// The cells of a table with iRowCount rows that are not in the set.
    CellRuns complement(int iRowCount) const;
    CellRuns united(const CellRuns& other) const;
    CellRuns toggled(const CellRuns& other) const;
    /// The part at or below a row.
    CellRuns fromRow(int iFirstRow) const;

    /// Number of ranges that toSelection() makes.
    int rangeCount() const;
    /// One range per run; neighbouring columns with the same rows share their ranges.
    QItemSelection toSelection(const QAbstractItemModel& oModel) const;

private:
    using SharedRuns = std::shared_ptr<const RowRuns>;

    /// First column after iColumn whose rows differ from those of iColumn.
    int endOfEqualColumns(int iColumn) const;
    template <typename Function>
    CellRuns combined(const CellRuns& other, Function combine) const;

    std::vector<SharedRuns> m_vpColumns; ///< null: no row
};

} // namespace gkBase
