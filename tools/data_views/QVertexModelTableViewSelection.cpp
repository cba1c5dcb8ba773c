// The row selection of the program: between flags, runs of cells and the selection model of the view.

#include "MatrixData.h"
#include "QVertexItemModel.h"
#include "QVertexModelTableView.h"

#include <QEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace gkBase {

namespace {

/// A selection of more ranges than these is kept outside the selection model: every repaint and every click there costs
/// time that grows with the ranges, in places with their square.
constexpr int g_iMirroredRanges = 2000;

} // namespace

CellRuns QVertexModelTableView::selectedCells() const
{
    if (m_bUnmirrored)
        return m_oUnmirrored;
    const int iColumns = model() ? model()->columnCount() : 0;
    return selectionModel() ? CellRuns::ofSelection(selectionModel()->selection(), iColumns) : CellRuns(iColumns);
}

std::vector<int> QVertexModelTableView::selectedRecords() const
{
    const QVertexItemModel* pqModel = vertexModel();
    return pqModel ? pqModel->rowMap().recordsOfTableRows(selectedCells().fullRows()) : std::vector<int>();
}

void QVertexModelTableView::selectedRows(std::vector<int>& viRows, int iRowOffSet) const
{
    viRows = selectedRecords();
    const int iShift = (vertexModel() ? vertexModel()->rowOffSet() : 0) - iRowOffSet;
    for (int& iRow : viRows)
        iRow += iShift;
}

int QVertexModelTableView::selectedRowCount() const
{
    const QVertexItemModel* pqModel = vertexModel();
    if (!pqModel)
        return 0;
    if (!pqModel->rowMap().isPlain())
        return static_cast<int>(selectedRecords().size());
    const CellRuns oRows = CellRuns::ofRows(selectedCells().fullRows(), 1).fromRow(pqModel->rowOffSet());
    return countOfRuns(oRows.column(0));
}

QMetaType::Type QVertexModelTableView::firstSelectedCellType() const
{
    const CellRuns oCells = selectedCells();
    for (int iColumn = 0; vertexModel() && iColumn < oCells.columnCount(); ++iColumn)
        if (!oCells.column(iColumn).empty())
            return vertexModel()->getNode(iColumn)->type();
    return QMetaType::UnknownType;
}

QModelIndexList QVertexModelTableView::sortedSelectedIndexes() const
{
    QModelIndexList lIndexes;
    const CellRuns oCells = selectedCells();
    for (int iColumn = 0; iColumn < oCells.columnCount(); ++iColumn)
        for (const RowRun& oRun : oCells.column(iColumn))
            for (int iRow = oRun.iFirst; iRow <= oRun.iLast; ++iRow)
                lIndexes.append(model()->index(iRow, iColumn));
    return lIndexes;
}

bool QVertexModelTableView::hasSelectedCells() const
{
    return m_bUnmirrored || (selectionModel() && selectionModel()->hasSelection());
}

void QVertexModelTableView::applySelection(const CellRuns& oCells)
{
    if (!selectionModel())
        return;
    {
        const QScopedValueRollback<bool> oSelecting(m_bSelecting, true);
        // First to nothing, then in one go: replacing a big selection by another is quadratic.
        selectionModel()->clearSelection();
        m_bUnmirrored = oCells.rangeCount() > g_iMirroredRanges;
        m_oUnmirrored = m_bUnmirrored ? oCells : CellRuns();
        if (!m_bUnmirrored)
            selectionModel()->select(oCells.toSelection(*model()), QItemSelectionModel::Select);
    }
    viewport()->update();
    emit selectedCellsChanged();
}

void QVertexModelTableView::setSelectedCells(const CellRuns& oCells)
{
    applySelection(oCells);
}

void QVertexModelTableView::clearSelection()
{
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectItems);
    m_bSelectionRectangle = false;
    applySelection(CellRuns());
}

void QVertexModelTableView::setRowSelection(bool* pvRowsSelected, int iNumbOfRows)
{
    const QVertexItemModel* pqModel = vertexModel();
    if (!pqModel)
        return;
    setSelectionMode(MultiSelection);
    setSelectionBehavior(SelectRows);
    RowRuns vRows = pqModel->rowMap().tableRowsOfRecords(pvRowsSelected, iNumbOfRows, pqModel->rowCount());
    if (vRows.empty())
        return;
    const CellRuns oRows = CellRuns::ofRows(std::move(vRows), pqModel->columnCount());
    const CellRuns oBefore = selectedCells();
    applySelection(oBefore.isEmpty() ? oRows : oBefore.united(oRows));
}

void QVertexModelTableView::setNewRowSelection(bool* pvRowsSelected, int iNumbOfRows)
{
    applySelection(CellRuns());
    setRowSelection(pvRowsSelected, iNumbOfRows);
}

void QVertexModelTableView::selectTableRow(int iRow)
{
    const QVertexItemModel* pqModel = vertexModel();
    if (!pqModel || iRow < 0 || pqModel->rowOffSet() + iRow >= pqModel->rowCount())
        return;
    const int iTableRow = pqModel->rowOffSet() + iRow;
    applySelection(selectedCells().united(CellRuns::ofRows(RowRuns{{iTableRow, iTableRow}}, pqModel->columnCount())));
}

void QVertexModelTableView::selectInverse()
{
    if (!model())
        return;
    applySelection(selectedCells().complement(model()->rowCount()));
    emit selectionChangedByUser();
}

void QVertexModelTableView::selectAll()
{
    if (!model())
        return;
    applySelection(CellRuns(model()->columnCount()).complement(model()->rowCount()));
    emit tableItemSelected();
    emit selectionChangedByUser();
}

void QVertexModelTableView::selectColumnCells(int iFrom, int iTo, bool bKeepPreviousSelection)
{
    if (!model() || model()->rowCount() == 0)
        return;
    CellRuns oCells(model()->columnCount());
    for (int iColumn = std::min(iFrom, iTo); iColumn <= std::max(iFrom, iTo); ++iColumn)
        oCells.setColumn(iColumn, RowRuns{{0, model()->rowCount() - 1}});
    applySelection(bKeepPreviousSelection ? selectedCells().united(oCells) : oCells);
}

void QVertexModelTableView::selectCells(const QString& sValue1, const QString& sValue2, CellCondition::Method eMethod,
                                        bool bIsRowSelection, bool bKeepPreviousSelection, int iColumn)
{
    const QVertexItemModel* pqModel = vertexModel();
    if (!pqModel)
        return;
    CellRuns oCells = pqModel->cellsSatisfying(CellCondition(eMethod, sValue1, sValue2), iColumn);
    if (bIsRowSelection)
        oCells = CellRuns::ofRows(oCells.touchedRows(), pqModel->columnCount());
    applySelection(bKeepPreviousSelection ? selectedCells().united(oCells) : oCells);
}

void QVertexModelTableView::slotSectionClicked(int iLogicalIndex)
{
    selectColumnCells(iLogicalIndex, iLogicalIndex, false);
}

// ---- the user's selections ------------------------------------------------------------------------------------------

void QVertexModelTableView::selectionChanged(const QItemSelection& oSelected, const QItemSelection& oDeselected)
{
    QTableView::selectionChanged(oSelected, oDeselected);
    if (m_bSelecting)
        return;
    if (m_bUnmirrored)
        toggleUnmirrored(oSelected);
    m_bSelectionRectangle = true;
    if (m_bVertexSelection)
        slotVertexSelected();
    if (!oSelected.isEmpty())
        emit tableItemSelected();
    emit selectedCellsChanged();
    emit selectionChangedByUser();
}

void QVertexModelTableView::toggleUnmirrored(const QItemSelection& oSelected)
{
    const CellRuns oClicked = CellRuns::ofSelection(oSelected, model()->columnCount());
    if (oClicked.isEmpty())
        return;
    if (selectionMode() == MultiSelection && !oClicked.fullRows().empty()) {
        applySelection(m_oUnmirrored.toggled(oClicked));
        return;
    }
    // A new selection replaces the old one, as it does in the selection model.
    m_bUnmirrored = false;
    m_oUnmirrored = CellRuns();
    viewport()->update();
}

QItemSelectionModel::SelectionFlags QVertexModelTableView::selectionCommand(const QModelIndex& index,
                                                                            const QEvent* pEvent) const
{
    // A press toggles one row of a selection that stands outside the selection model; dragging on would toggle the
    // rows under it again with every move.
    if (m_bUnmirrored && pEvent && pEvent->type() == QEvent::MouseMove)
        return QItemSelectionModel::NoUpdate;
    return QTableView::selectionCommand(index, pEvent);
}

void QVertexModelTableView::slotVertexSelected()
{
    if (!m_bVertexSelection)
        return;
    emit verteciesSelected(selectedRecords());
}

void QVertexModelTableView::slotDeselectVertecies()
{
    emit verteciesSelected(std::vector<int>());
}

void QVertexModelTableView::slotVertexSelection(bool bChecked)
{
    m_bVertexSelection = bChecked;
    if (bChecked)
        slotVertexSelected();
    else
        slotDeselectVertecies();
}

// ---- resets ---------------------------------------------------------------------------------------------------------

void QVertexModelTableView::resetEmpty()
{
    clearSelection();
    // Setting no current cell closes an open editor too.
    if (selectionModel())
        selectionModel()->clearCurrentIndex();
}

void QVertexModelTableView::slotModelAboutToBeReset()
{
    const QVertexItemModel* pqModel = vertexModel();
    m_vRowsBeforeReset = selectedCells().fullRows();
    m_iRowsBeforeReset = model()->rowCount();
    m_vpColumnsBeforeReset.clear();
    for (int iColumn = 0; pqModel && iColumn < pqModel->columnCount(); ++iColumn)
        m_vpColumnsBeforeReset.push_back(pqModel->getNode(iColumn));
}

void QVertexModelTableView::slotModelReset()
{
    m_bUnmirrored = false;
    m_oUnmirrored = CellRuns();
    updateMetrics();
    // Rows stay selected when the same rows are still shown: a column came or went, or values were pasted.
    const QVertexItemModel* pqModel = vertexModel();
    bool bSameRows = pqModel && model()->rowCount() == m_iRowsBeforeReset && !m_vRowsBeforeReset.empty();
    bool bCommon = false;
    for (int iColumn = 0; bSameRows && iColumn < pqModel->columnCount() && !bCommon; ++iColumn)
        bCommon = std::find(m_vpColumnsBeforeReset.begin(), m_vpColumnsBeforeReset.end(), pqModel->getNode(iColumn)) !=
                  m_vpColumnsBeforeReset.end();
    if (bSameRows && bCommon)
        applySelection(CellRuns::ofRows(m_vRowsBeforeReset, pqModel->columnCount()));
    else
        emit selectedCellsChanged();
    m_vRowsBeforeReset.clear();
    m_vpColumnsBeforeReset.clear();
}

} // namespace gkBase
