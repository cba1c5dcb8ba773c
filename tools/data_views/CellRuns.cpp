#include "CellRuns.h"

#include <QAbstractItemModel>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace gkBase {

CellRuns::CellRuns(int iColumns)
    : m_vpColumns(static_cast<std::size_t>(std::max(iColumns, 0)))
{
}

CellRuns CellRuns::ofRows(RowRuns vRows, int iColumns)
{
    CellRuns oCells(iColumns);
    if (!vRows.empty())
        std::fill(oCells.m_vpColumns.begin(), oCells.m_vpColumns.end(),
                  std::make_shared<const RowRuns>(std::move(vRows)));
    return oCells;
}

CellRuns CellRuns::ofIndexes(const QModelIndexList& lIndexes, int iColumns)
{
    std::vector<RowRuns> vColumns(static_cast<std::size_t>(std::max(iColumns, 0)));
    for (const QModelIndex& index : lIndexes)
        if (index.isValid() && index.column() < iColumns)
            vColumns[static_cast<std::size_t>(index.column())].push_back({index.row(), index.row()});
    CellRuns oCells(iColumns);
    for (int iColumn = 0; iColumn < oCells.columnCount(); ++iColumn)
        oCells.setColumn(iColumn, normalizedRuns(std::move(vColumns[static_cast<std::size_t>(iColumn)])));
    return oCells;
}

CellRuns CellRuns::ofSelection(const QItemSelection& oSelection, int iColumns)
{
    // Whole rows are gathered once for all columns; only other ranges go to their columns one by one.
    RowRuns vWhole;
    std::vector<RowRuns> vColumns(static_cast<std::size_t>(std::max(iColumns, 0)));
    for (const QItemSelectionRange& oRange : oSelection) {
        if (!oRange.isValid())
            continue;
        const RowRun oRun{oRange.top(), oRange.bottom()};
        if (oRange.left() == 0 && oRange.right() >= iColumns - 1) {
            vWhole.push_back(oRun);
            continue;
        }
        for (int iColumn = oRange.left(); iColumn <= std::min(oRange.right(), iColumns - 1); ++iColumn)
            vColumns[static_cast<std::size_t>(iColumn)].push_back(oRun);
    }
    CellRuns oCells = ofRows(normalizedRuns(std::move(vWhole)), iColumns);
    for (int iColumn = 0; iColumn < oCells.columnCount(); ++iColumn) {
        RowRuns& vRuns = vColumns[static_cast<std::size_t>(iColumn)];
        if (!vRuns.empty())
            oCells.setColumn(iColumn, unitedRuns(oCells.column(iColumn), normalizedRuns(std::move(vRuns))));
    }
    return oCells;
}

const RowRuns& CellRuns::column(int iColumn) const
{
    static const RowRuns vNone;
    if (iColumn < 0 || iColumn >= columnCount())
        return vNone;
    const SharedRuns& pRuns = m_vpColumns[static_cast<std::size_t>(iColumn)];
    return pRuns ? *pRuns : vNone;
}

void CellRuns::setColumn(int iColumn, RowRuns vRows)
{
    if (iColumn < 0 || iColumn >= columnCount())
        return;
    SharedRuns& pRuns = m_vpColumns[static_cast<std::size_t>(iColumn)];
    pRuns = vRows.empty() ? nullptr : std::make_shared<const RowRuns>(std::move(vRows));
}

bool CellRuns::isEmpty() const
{
    return std::all_of(m_vpColumns.begin(), m_vpColumns.end(), [](const SharedRuns& p) { return !p || p->empty(); });
}

qint64 CellRuns::cellCount() const
{
    qint64 iCount = 0;
    for (int iColumn = 0; iColumn < columnCount();) {
        const int iEnd = endOfEqualColumns(iColumn);
        iCount += qint64(countOfRuns(column(iColumn))) * (iEnd - iColumn);
        iColumn = iEnd;
    }
    return iCount;
}

RowRuns CellRuns::fullRows() const
{
    RowRuns vRows = column(0);
    for (int iColumn = endOfEqualColumns(0); iColumn < columnCount() && !vRows.empty();
         iColumn = endOfEqualColumns(iColumn))
        vRows = intersectedRuns(vRows, column(iColumn));
    return vRows;
}

RowRuns CellRuns::touchedRows() const
{
    RowRuns vRows = column(0);
    for (int iColumn = endOfEqualColumns(0); iColumn < columnCount(); iColumn = endOfEqualColumns(iColumn))
        vRows = unitedRuns(vRows, column(iColumn));
    return vRows;
}

CellRuns CellRuns::complement(int iRowCount) const
{
    const CellRuns oAll = ofRows(iRowCount > 0 ? RowRuns{{0, iRowCount - 1}} : RowRuns(), columnCount());
    return combined(oAll,
                    [iRowCount](const RowRuns& vRuns, const RowRuns&) { return complementOfRuns(vRuns, iRowCount); });
}

CellRuns CellRuns::united(const CellRuns& other) const
{
    return combined(other, unitedRuns);
}

CellRuns CellRuns::toggled(const CellRuns& other) const
{
    return combined(other, toggledRuns);
}

CellRuns CellRuns::fromRow(int iFirstRow) const
{
    return combined(CellRuns(columnCount()), [iFirstRow](const RowRuns& vRuns, const RowRuns&) {
        RowRuns vCut;
        for (const RowRun& oRun : vRuns)
            if (oRun.iLast >= iFirstRow)
                vCut.push_back({std::max(oRun.iFirst, iFirstRow), oRun.iLast});
        return vCut;
    });
}

int CellRuns::rangeCount() const
{
    std::size_t iCount = 0;
    for (int iColumn = 0; iColumn < columnCount(); iColumn = endOfEqualColumns(iColumn))
        iCount += column(iColumn).size();
    return static_cast<int>(iCount);
}

QItemSelection CellRuns::toSelection(const QAbstractItemModel& oModel) const
{
    QItemSelection oSelection;
    const int iRowCount = oModel.rowCount();
    const int iColumns = std::min(columnCount(), oModel.columnCount());
    oSelection.reserve(rangeCount());
    for (int iColumn = 0; iColumn < iColumns;) {
        const int iEnd = std::min(endOfEqualColumns(iColumn), iColumns);
        for (const RowRun& oRun : column(iColumn)) {
            const int iLast = std::min(oRun.iLast, iRowCount - 1);
            if (oRun.iFirst <= iLast)
                oSelection.append(
                    QItemSelectionRange(oModel.index(oRun.iFirst, iColumn), oModel.index(iLast, iEnd - 1)));
        }
        iColumn = iEnd;
    }
    return oSelection;
}

int CellRuns::endOfEqualColumns(int iColumn) const
{
    if (iColumn >= columnCount())
        return columnCount();
    const SharedRuns& pFirst = m_vpColumns[static_cast<std::size_t>(iColumn)];
    int iEnd = iColumn + 1;
    while (iEnd < columnCount()) {
        const SharedRuns& pNext = m_vpColumns[static_cast<std::size_t>(iEnd)];
        if (pNext != pFirst && !(pNext && pFirst && *pNext == *pFirst))
            break;
        ++iEnd;
    }
    return iEnd;
}

template <typename Function>
CellRuns CellRuns::combined(const CellRuns& other, Function combine) const
{
    CellRuns oResult(std::max(columnCount(), other.columnCount()));
    for (int iColumn = 0; iColumn < oResult.columnCount();) {
        // Columns that share their rows on both sides share the result.
        int iEnd = iColumn + 1;
        if (iColumn < columnCount() && iColumn < other.columnCount())
            iEnd = std::min(endOfEqualColumns(iColumn), other.endOfEqualColumns(iColumn));
        oResult.setColumn(iColumn, combine(column(iColumn), other.column(iColumn)));
        const SharedRuns pShared = oResult.m_vpColumns[static_cast<std::size_t>(iColumn)];
        std::fill(oResult.m_vpColumns.begin() + iColumn + 1, oResult.m_vpColumns.begin() + iEnd, pShared);
        iColumn = iEnd;
    }
    return oResult;
}

} // namespace gkBase
