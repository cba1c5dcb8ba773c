// Changing many cells of the attribute table at once, as one undo record.

#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "QVertexItemModel.h"

#include <algorithm>
#include <cstddef>

namespace gkBase {

namespace {

/// "add 5" when all columns change in the same way, otherwise how many of them do.
QString changeText(const QVertexItemModel::ColumnChanges& oChanges)
{
    const CellChange& oFirst = oChanges.begin()->second;
    if (!std::all_of(oChanges.begin(), oChanges.end(), [&](const auto& oEntry) { return oEntry.second == oFirst; }))
        return QVertexItemModel::tr("%1 columns").arg(oChanges.size());
    QString sText = CellModification::name(oFirst.method());
    const QString sOperand = oFirst.operand().toString();
    if (CellModification::needsOperand(oFirst.method()) && !sOperand.isEmpty())
        sText += u' ' + sOperand;
    return sText;
}

} // namespace

bool QVertexItemModel::modifySelectedCells(const QList<QModelIndex>& lIndexes, const QVariant& qOperand,
                                           CellModification::Method eMethod)
{
    return modifySelectedCells(CellRuns::ofIndexes(lIndexes, columnCount()), qOperand, eMethod);
}

bool QVertexItemModel::modifySelectedCells(const CellRuns& oCells, const QVariant& qOperand,
                                           CellModification::Method eMethod)
{
    ColumnChanges oChanges;
    for (int iColumn = 0; iColumn < columnCount(); ++iColumn)
        if (!oCells.column(iColumn).empty())
            oChanges.emplace(iColumn, CellChange(eMethod, qOperand));
    return modifySelectedCells(oCells, oChanges);
}

bool QVertexItemModel::interpolate(const QList<QModelIndex>& lIndexes)
{
    return modifySelectedCells(lIndexes, QVariant(), CellModification::Interpolate);
}

ChangedCells QVertexItemModel::changedCells(const CellRuns& oCells, int iColumn, const CellChange& oChange) const
{
    const MatrixData* poNode = getNode(iColumn);
    if (!poNode || !poNode->isEditable() || oCells.column(iColumn).empty())
        return ChangedCells();
    return oChange.changedCells(*poNode, m_oRowMap.recordsOfTableRows(oCells.column(iColumn)));
}

bool QVertexItemModel::modifySelectedCells(const CellRuns& oCells, const ColumnChanges& oChanges)
{
    std::vector<std::pair<MatrixData*, ChangedCells>> vChanged;
    ColumnChanges oEffective;
    for (const auto& [iColumn, oChange] : oChanges) {
        ChangedCells oChanged = changedCells(oCells, iColumn, oChange);
        if (oChanged.m_viRecords.empty())
            continue;
        vChanged.emplace_back(getNode(iColumn), std::move(oChanged));
        oEffective.emplace(iColumn, oChange);
    }
    if (vChanged.empty())
        return false;

    std::vector<RecordsOfNode> vRecords;
    bool bExtends = false;
    for (const auto& [poNode, oChanged] : vChanged) {
        vRecords.emplace_back(poNode, &oChanged.m_viRecords);
        bExtends |= oChanged.m_viRecords.back() >= poNode->recordCount();
    }
    storeRecords(QStringLiteral("Modify Cell(s): %1: column=%2").arg(changeText(oEffective), vRecords[0].first->name()),
                 vRecords, bExtends);
    {
        const MatrixDataNotifier::Batch oBatch(m_poDataRoot);
        for (const auto& [poNode, oChanged] : vChanged)
            writeChange(*poNode, oChanged);
    }
    setModified(true);
    return true;
}

void QVertexItemModel::writeChange(MatrixData& oNode, const ChangedCells& oChanged)
{
    const std::vector<int>& viRecords = oChanged.m_viRecords;
    if (oNode.isDerived()) {
        for (std::size_t i = 0; i < viRecords.size(); ++i)
            oNode.setValue(viRecords[i] + oNode.rowOffSet(), 0, oChanged.value(static_cast<int>(i)));
        return;
    }
    MatrixColumn& oCells = oNode.mutableColumn();
    if (viRecords.back() >= oCells.size())
        oCells.resize(viRecords.back() + 1);
    if (oChanged.hasOneValue()) {
        const QVariant qValue = oChanged.value(0);
        for (const int iRecord : viRecords)
            oCells.setValue(iRecord, qValue);
    } else {
        MatrixColumn oValues = oChanged.m_oValues;
        for (std::size_t i = 0; i < viRecords.size(); ++i)
            oCells.swapCell(viRecords[i], oValues, static_cast<int>(i));
    }
    oNode.valuesChanged();
}

} // namespace gkBase
