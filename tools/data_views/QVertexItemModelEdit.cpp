// Editing of the attribute table: single cells, blocks, paste and drop, each as one undo record.

#include "CellBlock.h"
#include "CellText.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MatrixDataRestore.h"
#include "QVertexItemModel.h"

#include <QMimeData>
#include <QScopedValueRollback>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace gkBase {

/// Records of some columns that are about to be overwritten.
struct QVertexItemModel::BlockWrite
{
    struct Column
    {
        MatrixData* m_poNode = nullptr;
        int m_iSource = 0;            ///< column of the block that is written here
        std::vector<int> m_viRecords; ///< rising
        std::vector<int> m_viSources; ///< row of the block for each record; empty when the values do not come from one
    };
    using ValueOf = std::function<QVariant(const Column&, std::size_t)>;

    QString m_sUndoName;
    std::vector<Column> m_vColumns;
    ValueOf m_valueOf;
};

// ---- one cell -------------------------------------------------------------------------------------------------------

bool QVertexItemModel::setData(const QModelIndex& index, const QVariant& qValue, int iRole)
{
    if (!index.isValid() || index.row() >= m_iRowCount || !isWritable(index.row(), index.column()))
        return false;
    MatrixData* poNode = getNode(index.column());
    if (iRole == Qt::EditRole)
        return setEditedText(index, poNode, qValue);
    if (iRole == Qt::CheckStateRole && poNode->type() == QMetaType::Bool)
        return setCheckState(index, poNode, qValue);
    return false;
}

QString QVertexItemModel::undoPlace(const QModelIndex& index) const
{
    const int iRecord = row(index) - rowOffSet();
    return QStringLiteral("row=%1, column=%2").arg(QString::number(iRecord + 1), getNode(index.column())->name());
}

bool QVertexItemModel::setEditedText(const QModelIndex& index, MatrixData* poNode, const QVariant& qValue)
{
    const QVariant qOld = poNode->value(row(index), 0);
    const QString sText = qValue.toString();
    if (sText.isEmpty()) {
        if (!qOld.isValid())
            return true;
        const QString sShown = CellText::shown(*poNode, qOld);
        const QString sOld = sShown.isEmpty() ? CellText::exact(*poNode, qOld) : sShown;
        writeCell(index, poNode, QVariant(), QStringLiteral("Clear Cell: value=%1, ").arg(sOld) + undoPlace(index));
        return true;
    }
    if (poNode->type() == QMetaType::QColor) {
        const QVariant qColor = CellText::toValue(*poNode, qValue);
        if (!qColor.isValid())
            return false;
        if (qColor != qOld)
            writeCell(index, poNode, qColor, QStringLiteral("Edit Color Cell: ") + undoPlace(index));
        return true;
    }
    // The text of an untouched editor has fewer digits than the value.
    if (qValue.typeId() == QMetaType::QString && qOld.isValid() && sText == CellText::edited(*poNode, qOld))
        return true;
    writeCell(index, poNode, CellText::toValue(*poNode, qValue),
              QStringLiteral("Edit Cell: value=%1, ").arg(sText) + undoPlace(index));
    return true;
}

bool QVertexItemModel::setCheckState(const QModelIndex& index, MatrixData* poNode, const QVariant& qValue)
{
    writeCell(index, poNode, qValue.toInt() == Qt::Checked, QStringLiteral("Check State Changed: ") + undoPlace(index));
    return true;
}

void QVertexItemModel::writeCell(const QModelIndex& index, MatrixData* poNode, const QVariant& qValue,
                                 const QString& sUndoName)
{
    const int iSheetRow = row(index);
    if (m_bUndoRedo) {
        auto poRecord = std::make_unique<MatrixDataRestore>(poNode, sUndoName);
        if (iSheetRow >= poNode->rowCount())
            poRecord->storeRowCount(poNode);
        poRecord->dataStore(iSheetRow, poNode->value(iSheetRow, 0));
        m_poDataRoot->appendUndoAction(poRecord.release(), true);
    }
    {
        const QScopedValueRollback<MatrixData*> oEdited(m_poEdited, poNode);
        poNode->setValue(iSheetRow, 0, qValue);
    }
    emit dataChanged(index, index);
    if (m_oRowMap.isPlain() && rowOffSet() > 0) // the column's summary has changed with the cell
        emit dataChanged(index.siblingAtRow(0), index.siblingAtRow(rowOffSet() - 1));
    setModified(true);
}

// ---- blocks ---------------------------------------------------------------------------------------------------------

void QVertexItemModel::storeRecords(const QString& sUndoName, const std::vector<RecordsOfNode>& vRecords,
                                    bool bRowCounts)
{
    if (!m_bUndoRedo || vRecords.empty())
        return;
    auto poRecord = std::make_unique<MatrixDataRestore>(vRecords.front().first, sUndoName);
    if (bRowCounts)
        poRecord->storeRowCount(m_poDataRoot);
    for (const auto& [poNode, pviRecords] : vRecords) {
        const auto itNew = std::lower_bound(pviRecords->begin(), pviRecords->end(), poNode->recordCount());
        if (itNew == pviRecords->end())
            poRecord->storeRecords(poNode, 0, *pviRecords);
        else
            poRecord->storeRecords(poNode, 0, std::vector<int>(pviRecords->begin(), itNew));
    }
    m_poDataRoot->appendUndoAction(poRecord.release(), true);
}

bool QVertexItemModel::applyBlock(BlockWrite& oBlock)
{
    std::erase_if(oBlock.m_vColumns, [](const BlockWrite::Column& oColumn) { return oColumn.m_viRecords.empty(); });
    if (oBlock.m_vColumns.empty())
        return false;
    std::vector<RecordsOfNode> vRecords;
    for (const BlockWrite::Column& oColumn : oBlock.m_vColumns)
        vRecords.emplace_back(oColumn.m_poNode, &oColumn.m_viRecords);
    // Columns of a data set get equal lengths again, which undo takes back too.
    storeRecords(oBlock.m_sUndoName, vRecords, true);
    const MatrixDataNotifier::Batch oBatch(m_poDataRoot);
    for (const BlockWrite::Column& oColumn : oBlock.m_vColumns) {
        MatrixData* poNode = oColumn.m_poNode;
        if (poNode->isDerived()) {
            for (std::size_t i = 0; i < oColumn.m_viRecords.size(); ++i)
                poNode->setValue(oColumn.m_viRecords[i] + poNode->rowOffSet(), 0, oBlock.m_valueOf(oColumn, i));
            continue;
        }
        MatrixColumn& oCells = poNode->mutableColumn();
        if (oColumn.m_viRecords.back() >= oCells.size())
            oCells.resize(oColumn.m_viRecords.back() + 1);
        for (std::size_t i = 0; i < oColumn.m_viRecords.size(); ++i)
            oCells.setValue(oColumn.m_viRecords[i], oBlock.m_valueOf(oColumn, i));
        poNode->valuesChanged();
    }
    return true;
}

void QVertexItemModel::addTargets(BlockWrite& oBlock, int iRows, int iColumns, int iRow, int iColumn) const
{
    // Rows past the end can only be appended where table rows are sheet rows.
    const bool bExtend = m_bRowsCanBeExtended && m_oRowMap.isPlain();
    const int iEnd = bExtend ? iRow + iRows : std::min(iRow + iRows, m_iRowCount);
    for (int iSource = 0; iSource < iColumns; ++iSource) {
        MatrixData* poNode = getNode(iColumn + iSource);
        if (!poNode || !poNode->isEditable())
            continue;
        std::vector<std::pair<int, int>> vTargets; // record, row of the block
        for (int iTarget = std::max(iRow, 0); iTarget < iEnd; ++iTarget)
            if (isWritable(iTarget, iColumn + iSource))
                vTargets.emplace_back(m_oRowMap.sheetRow(iTarget) - rowOffSet(), iTarget - iRow);
        if (!m_oRowMap.isPlain()) {
            // A record that is shown twice takes the first of its values.
            std::stable_sort(vTargets.begin(), vTargets.end(),
                             [](const auto& a, const auto& b) { return a.first < b.first; });
            vTargets.erase(std::unique(vTargets.begin(), vTargets.end(),
                                       [](const auto& a, const auto& b) { return a.first == b.first; }),
                           vTargets.end());
        }
        BlockWrite::Column oColumn;
        oColumn.m_poNode = poNode;
        oColumn.m_iSource = iSource;
        for (const auto& [iRecord, iSourceRow] : vTargets) {
            oColumn.m_viRecords.push_back(iRecord);
            oColumn.m_viSources.push_back(iSourceRow);
        }
        oBlock.m_vColumns.push_back(std::move(oColumn));
    }
}

bool QVertexItemModel::writeRectangle(BlockWrite& oBlock)
{
    {
        const QScopedValueRollback<bool> oResetFollows(m_bResetFollows, true);
        if (!applyBlock(oBlock))
            return false;
        m_poDataRoot->checkValidRowCount();
    }
    resetColumns();
    setModified(true);
    return true;
}

bool QVertexItemModel::setMimeData(const QMimeData& oMimeData, int iRow, int iColumn)
{
    const MatrixData* poFirst = getNode(iColumn);
    if (!poFirst || !oMimeData.hasFormat(QStringLiteral("text/plain")))
        return false;
    const std::vector<QStringList> vLines = CellText::parse(oMimeData.text());
    qsizetype iWidest = 0;
    for (const QStringList& lCells : vLines)
        iWidest = std::max(iWidest, lCells.size());

    BlockWrite oBlock;
    oBlock.m_sUndoName =
        QStringLiteral("Paste: rows=%1, column=%2").arg(QString::number(vLines.size()), poFirst->name());
    addTargets(oBlock, static_cast<int>(vLines.size()), static_cast<int>(iWidest), iRow, iColumn);
    for (BlockWrite::Column& oColumn : oBlock.m_vColumns) {
        // A line that is shorter than the others leaves the cells behind its end alone.
        std::size_t iKept = 0;
        for (std::size_t i = 0; i < oColumn.m_viRecords.size(); ++i) {
            if (vLines[static_cast<std::size_t>(oColumn.m_viSources[i])].size() <= oColumn.m_iSource)
                continue;
            oColumn.m_viRecords[iKept] = oColumn.m_viRecords[i];
            oColumn.m_viSources[iKept++] = oColumn.m_viSources[i];
        }
        oColumn.m_viRecords.resize(iKept);
        oColumn.m_viSources.resize(iKept);
    }
    oBlock.m_valueOf = [&vLines](const BlockWrite::Column& oColumn, std::size_t i) {
        const QStringList& lCells = vLines[static_cast<std::size_t>(oColumn.m_viSources[i])];
        return CellText::toValue(*oColumn.m_poNode, lCells[oColumn.m_iSource]);
    };
    return writeRectangle(oBlock);
}

bool QVertexItemModel::writeCellBlock(const CellBlock& oCells, int iRow, int iColumn)
{
    const MatrixData* poFirst = getNode(iColumn);
    if (!poFirst)
        return false;
    BlockWrite oBlock;
    oBlock.m_sUndoName =
        QStringLiteral("Drag/Drop: rows=%1, column=%2").arg(QString::number(oCells.m_iRows), poFirst->name());
    addTargets(oBlock, oCells.m_iRows, static_cast<int>(oCells.m_vColumns.size()), iRow, iColumn);
    oBlock.m_valueOf = [&oCells](const BlockWrite::Column& oColumn, std::size_t i) {
        return oCells.valueFor(*oColumn.m_poNode, oColumn.m_viSources[i], oColumn.m_iSource);
    };
    return writeRectangle(oBlock);
}

void QVertexItemModel::extendRows()
{
    if (!m_poDataRoot)
        return;
    if (m_bUndoRedo) {
        auto poRecord = std::make_unique<MatrixDataRestore>(m_poDataRoot, QStringLiteral("Extend Rows: rows=1"));
        poRecord->storeRowCount(m_poDataRoot);
        m_poDataRoot->appendUndoAction(poRecord.release(), true);
    }
    {
        const QScopedValueRollback<bool> oResetFollows(m_bResetFollows, true);
        m_poDataRoot->appendOneRowForEachColumn();
    }
    const int iRowCount = wantedRowCount();
    if (iRowCount > m_iRowCount) {
        beginInsertRows(QModelIndex(), m_iRowCount, iRowCount - 1);
        m_iRowCount = iRowCount;
        endInsertRows();
    }
    setModified(true);
}

} // namespace gkBase
