// What is selected in QDataAnalyserDialog: the rows of the table, which charts and hosts follow.

#include "AnalyserChartPages.h"
#include "AnalyserTablePage.h"
#include "QAttributeTreeView.h"
#include "QDataAnalyserDialog.h"
#include "QVertexItemModel.h"
#include "QVertexModelTableView.h"
#include "WellDataSets.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace gkBase {

namespace {

/// Whether a record number means the same place in both: derived data sets have the records of their well, other wells
/// of the same length have not.
bool haveSameRecords(MatrixData& left, MatrixData& right)
{
    if (&left == &right)
        return true;
    if (recordsOf(left) != recordsOf(right))
        return false;
    WellFinder finder;
    const MatrixData* poWell = finder.wellOf(left);
    return poWell && finder.wellOf(right) == poWell;
}

} // namespace

void QDataAnalyserDialog::markSelectionChanged()
{
    m_oGesture.reset();
    m_oGestureData.reset();
    m_iRowsInCharts = vertexTable()->selectedRowCount();
    m_pCharts->markAll(AnalyserChartPages::Need::Selection);
    scheduleSelectionCheck();
}

void QDataAnalyserDialog::checkResetChartsUpdateNeeded()
{
    if (vertexTable()->selectedRowCount() != m_iRowsInCharts)
        markSelectionChanged();
}

void QDataAnalyserDialog::setNewRowSelectionFromGraphicalSelection(bool* pvFlags, int iCount)
{
    selectRecordsOf(dataSetOfLength(iCount), pvFlags, iCount);
}

void QDataAnalyserDialog::selectRecordsOf(MatrixData* poDataSet, bool* pvFlags, int iCount)
{
    if (!m_pqTablePage)
        return;
    vertexTable()->setNewRowSelection(pvFlags, iCount);
    m_pqTablePage->scrollToSelectedRows();
    markSelectionChanged();
    m_oGestureData = MatrixDataPointer(poDataSet);
    Gesture gesture{{}, vertexTable()->selectedRecords()};
    for (int i = 0; i < iCount; ++i)
        if (pvFlags[i])
            gesture.m_viRecords.push_back(i);
    if (gesture.m_viRecords != gesture.m_viInTable)
        m_oGesture = std::move(gesture);
}

std::vector<int> QDataAnalyserDialog::selectedRecords() const
{
    if (!m_pqTablePage)
        return {};
    std::vector<int> viInTable = vertexTable()->selectedRecords();
    return m_oGesture && m_oGesture->m_viInTable == viInTable ? m_oGesture->m_viRecords : viInTable;
}

MatrixData* QDataAnalyserDialog::currentDataSet() const
{
    const MatrixData* poAttribute = nullptr;
    if (m_pqTablePage && vertexItemModel()->columnCount() > 0)
        poAttribute = vertexItemModel()->getNode(std::max(vertexTable()->currentIndex().column(), 0));
    else if (m_poDataRoot)
        poAttribute = m_poDataRoot->getFirstChildWithData();
    return poAttribute ? poAttribute->owner() : nullptr;
}

MatrixData* QDataAnalyserDialog::dataSetOfLength(int iRecords) const
{
    MatrixData* poCurrent = currentDataSet();
    if (poCurrent && recordsOf(*poCurrent) == iRecords)
        return poCurrent;
    for (int i = 0; m_pqTablePage && i < vertexItemModel()->columnCount(); ++i) {
        const MatrixData* poAttribute = vertexItemModel()->getNode(i);
        if (poAttribute && poAttribute->recordCount() == iRecords)
            return poAttribute->owner();
    }
    return nullptr;
}

bool QDataAnalyserDialog::showsRecordsOf(MatrixData& dataSet) const
{
    const MatrixData* poKnown = nullptr; // columns of one data set stand side by side
    for (int i = 0; m_pqTablePage && i < vertexItemModel()->columnCount(); ++i) {
        const MatrixData* poAttribute = vertexItemModel()->getNode(i);
        MatrixData* poOwner = poAttribute ? poAttribute->owner() : nullptr;
        if (poOwner && poOwner != poKnown && haveSameRecords(*poOwner, dataSet))
            return true;
        poKnown = poOwner;
    }
    return false;
}

bool QDataAnalyserDialog::selectsRecordsOf(MatrixData& dataSet) const
{
    MatrixData* poSelected = m_oGestureData ? m_oGestureData->get() : currentDataSet();
    return poSelected && haveSameRecords(*poSelected, dataSet);
}

void QDataAnalyserDialog::scheduleSelectionCheck()
{
    if (std::exchange(m_bSelectionCheckPending, true))
        return;
    QTimer::singleShot(0, this, &QDataAnalyserDialog::announceSelection);
}

void QDataAnalyserDialog::announceSelection()
{
    m_bSelectionCheckPending = false;
    std::vector<int> viRecords = selectedRecords();
    if (viRecords == m_viAnnounced)
        return;
    m_viAnnounced = std::move(viRecords);
    emit selectionChanged();
}

void QDataAnalyserDialog::selectInverse()
{
    if (!m_pqTablePage)
        return;
    vertexTable()->selectInverse();
    markSelectionChanged();
}

void QDataAnalyserDialog::clearAllSelections()
{
    if (!m_pqTablePage)
        return;
    m_pqTreeView->clearSelection();
    accept_ClearSelection();
}

void QDataAnalyserDialog::accept_ClearSelection()
{
    m_pqTablePage->clearSelection();
    if (m_oGesture)
        markSelectionChanged();
    checkResetChartsUpdateNeeded();
}

} // namespace gkBase
