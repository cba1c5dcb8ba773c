// What the attribute table gives to clipboard and drags, and takes from drops.

#include "CellBlock.h"
#include "CellText.h"
#include "MatrixData.h"
#include "QVertexItemModel.h"
#include "UnitManager.h"

#include <QMimeData>

#include <cstddef>

namespace gkBase {

QStringList QVertexItemModel::mimeTypes() const
{
    return {CellBlock::mimeType()};
}

QMimeData* QVertexItemModel::mimeData(const QModelIndexList& lIndexes) const
{
    return mimeDataForCopy(lIndexes);
}

QMimeData* QVertexItemModel::mimeDataForCopy(const QList<QModelIndex>& lIndexes) const
{
    return mimeDataForCopy(CellRuns::ofIndexes(lIndexes, columnCount()));
}

QMimeData* QVertexItemModel::mimeDataForCopy(const CellRuns& oCells) const
{
    const std::vector<int> viRows = rowsOfRuns(oCells.touchedRows());
    std::vector<int> viColumns;
    for (int iColumn = 0; iColumn < columnCount(); ++iColumn)
        if (!oCells.column(iColumn).empty())
            viColumns.push_back(iColumn);
    if (viRows.empty() || viColumns.empty())
        return nullptr;

    QString sText;
    QString sHtml = QStringLiteral("<table>");
    for (const int iRow : viRows) {
        sHtml += QStringLiteral("<tr>");
        for (const int iColumn : viColumns) {
            QString sCell = oCells.contains(iRow, iColumn) ? exactText(iRow, iColumn) : QString();
            sHtml += QStringLiteral("<td>") + sCell.toHtmlEscaped();
            // A tab or line end inside a text would begin another cell.
            sText += sCell.replace(u'\t', u' ').replace(u'\n', u' ').remove(u'\r') + u'\t';
        }
        sText.back() = u'\n';
    }
    auto* pMimeData = new QMimeData;
    pMimeData->setText(sText);
    pMimeData->setHtml(sHtml + QStringLiteral("</table>"));
    pMimeData->setData(CellBlock::mimeType(), cellBlock(oCells, viRows, viColumns).toBytes());
    return pMimeData;
}

CellBlock QVertexItemModel::cellBlock(const CellRuns& oCells, const std::vector<int>& viRows,
                                      const std::vector<int>& viColumns) const
{
    CellBlock oBlock;
    oBlock.m_iRows = static_cast<int>(viRows.size());
    for (const int iColumn : viColumns) {
        const MatrixData* poNode = getNode(iColumn);
        const auto poUnits = poNode->unitManager();
        CellBlock::Column oColumn;
        oColumn.m_sCategory = poUnits->category();
        oColumn.m_sModelUnit = poUnits->modelUnit();
        oColumn.m_oValues = MatrixColumn(poNode->type(), oBlock.m_iRows);
        for (int i = 0; i < oBlock.m_iRows; ++i) {
            const int iRow = viRows[static_cast<std::size_t>(i)];
            if (oCells.contains(iRow, iColumn))
                oColumn.m_oValues.setValue(i, poNode->value(m_oRowMap.sheetRow(iRow), 0));
        }
        oBlock.m_vColumns.push_back(std::move(oColumn));
    }
    return oBlock;
}

QString QVertexItemModel::exactText(int iRow, int iColumn) const
{
    const MatrixData* poNode = getNode(iColumn);
    return poNode ? CellText::exact(*poNode, poNode->value(m_oRowMap.sheetRow(iRow), 0)) : QString();
}

QMimeData* QVertexItemModel::getHTML_MimeData(const std::vector<int>& viRecords) const
{
    auto* pMimeData = new QMimeData;
    MatrixData::setHTML_MimeData(pMimeData, m_vpColumns, viRecords);
    return pMimeData;
}

// ---- drops ----------------------------------------------------------------------------------------------------------

bool QVertexItemModel::dropTarget(int iRow, int iColumn, const QModelIndex& parent, QModelIndex& target) const
{
    // A drop onto a cell names it as the parent; a drop between cells names row and column.
    target = parent.isValid() ? parent : index(iRow, iColumn);
    return target.isValid() && isWritable(target.row(), target.column());
}

bool QVertexItemModel::canDropMimeData(const QMimeData* pMimeData, Qt::DropAction eAction, int iRow, int iColumn,
                                       const QModelIndex& parent) const
{
    QModelIndex target;
    return pMimeData && eAction == Qt::CopyAction && pMimeData->hasFormat(CellBlock::mimeType()) &&
           dropTarget(iRow, iColumn, parent, target);
}

bool QVertexItemModel::dropMimeData(const QMimeData* pMimeData, Qt::DropAction eAction, int iRow, int iColumn,
                                    const QModelIndex& parent)
{
    QModelIndex target;
    if (!canDropMimeData(pMimeData, eAction, iRow, iColumn, parent) || !dropTarget(iRow, iColumn, parent, target))
        return false;
    const auto oBlock = CellBlock::fromBytes(pMimeData->data(CellBlock::mimeType()));
    return oBlock && writeCellBlock(*oBlock, target.row(), target.column());
}

} // namespace gkBase
