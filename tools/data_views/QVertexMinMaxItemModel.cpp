#include "QVertexMinMaxItemModel.h"

#include "CellText.h"
#include "MatrixData.h"
#include "MatrixDataRestore.h"
#include "UnitManager.h"
#include "UnitRegistry.h"

#include <QBrush>
#include <QColor>

#include <memory>

namespace gkBase {

namespace {

const UnitRegistry& registryOf(const MatrixData& oNode)
{
    const UnitRegistry* poRegistry = oNode.registry();
    return poRegistry ? *poRegistry : UnitRegistry::standard();
}

} // namespace

QVertexMinMaxItemModel::QVertexMinMaxItemModel(QObject* pqParent, MatrixData* poRoot, int iFilterStepSize)
    : QVertexItemModel(pqParent, poRoot, iFilterStepSize)
{
    rebuildColumns(); // with the five rows of this class
}

int QVertexMinMaxItemModel::wantedRowCount() const
{
    return RowCount;
}

void QVertexMinMaxItemModel::setNumberOfUneditable(int iRows)
{
    if (m_iNumberOfUneditable == iRows)
        return;
    m_iNumberOfUneditable = iRows;
    if (columnCount() > 0)
        emit dataChanged(index(0, 0), index(RowCount - 1, columnCount() - 1));
}

QVariant QVertexMinMaxItemModel::data(const QModelIndex& index, int iRole) const
{
    const MatrixData* poNode = index.isValid() ? getNode(index.column()) : nullptr;
    if (!poNode)
        return QVariant();
    switch (iRole) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        if (index.row() == Unit)
            return poNode->unitManager()->getDisplayUnitName();
        if (index.row() == UnitCategory)
            return poNode->unitCategory();
        return index.row() < poNode->rowOffSet() ? cellText(*poNode, index.row(), iRole) : QVariant();
    case Qt::TextAlignmentRole:
        return int((index.row() >= Unit ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    case Qt::BackgroundRole: {
        static const QVariant qGrey = QBrush(QColor(230, 230, 230));
        static const QVariant qWhite = QBrush(QColor(255, 255, 255));
        return index.row() < m_iNumberOfUneditable ? qGrey : qWhite;
    }
    case Qt::ForegroundRole:
        return QVertexItemModel::data(index, iRole);
    default:
        return QVariant();
    }
}

QVariant QVertexMinMaxItemModel::headerData(int iSection, Qt::Orientation eOrientation, int iRole) const
{
    if (eOrientation == Qt::Vertical) {
        const QStringList lNames{tr("Minimum"), tr("Mean"), tr("Maximum"), tr("Unit"), tr("Unit Category")};
        return iRole == Qt::DisplayRole ? QVariant(lNames.value(iSection)) : QVariant();
    }
    const MatrixData* poNode = getNode(iSection);
    if (iRole == Qt::DecorationRole && poNode && poNode->color().isValid())
        return poNode->color();
    if (iRole == Qt::ToolTipRole && poNode && poNode->owner())
        return poNode->owner()->name().toHtmlEscaped();
    return QVertexItemModel::headerData(iSection, eOrientation, iRole);
}

Qt::ItemFlags QVertexMinMaxItemModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    Qt::ItemFlags eFlags = QAbstractItemModel::flags(index) | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
    if (index.row() >= m_iNumberOfUneditable)
        eFlags |= Qt::ItemIsEditable;
    return eFlags;
}

bool QVertexMinMaxItemModel::setData(const QModelIndex& index, const QVariant& qValue, int iRole)
{
    MatrixData* poNode = index.isValid() ? getNode(index.column()) : nullptr;
    if (!poNode || iRole != Qt::EditRole || index.row() < m_iNumberOfUneditable)
        return false;
    const QString sText = qValue.toString();
    if (index.row() == UnitCategory)
        return setUnitCategory(index, poNode, sText);
    // Every view hears of the new display unit from the display unit manager.
    return index.row() == Unit && !sText.isEmpty() && poNode->unitManager()->displayUnit(sText);
}

bool QVertexMinMaxItemModel::setUnitCategory(const QModelIndex& index, MatrixData* poNode, const QString& sCategory)
{
    const UnitRegistry& oRegistry = registryOf(*poNode);
    const bool bDimensionless = sCategory == QLatin1String("dimensionless");
    if (!bDimensionless && oRegistry.find_category(sCategory) == oRegistry.categories_end())
        return false;
    if (sCategory == poNode->unitCategory())
        return true;
    if (isUndoRedoEnabled()) {
        auto poRecord = std::make_unique<MatrixDataRestore>(
            poNode, QStringLiteral("Change Unit Category: value=%1, column=%2").arg(sCategory, poNode->name()));
        poRecord->storeUnit(poNode);
        dataRoot()->appendUndoAction(poRecord.release(), true);
    }
    if (bDimensionless && oRegistry.find_category(sCategory) == oRegistry.categories_end())
        poNode->setUnitManager(UnitRegistry::dimensionless());
    else
        poNode->setUnitManager(sCategory);
    emit unitCategoryChanged();
    emit dataChanged(index, index);
    setModified(true);
    return true;
}

bool QVertexMinMaxItemModel::canDropMimeData(const QMimeData* /*pMimeData*/, Qt::DropAction /*eAction*/, int /*iRow*/,
                                             int /*iColumn*/, const QModelIndex& /*parent*/) const
{
    return false;
}

bool QVertexMinMaxItemModel::dropMimeData(const QMimeData* /*pMimeData*/, Qt::DropAction /*eAction*/, int /*iRow*/,
                                          int /*iColumn*/, const QModelIndex& /*parent*/)
{
    return false;
}

bool QVertexMinMaxItemModel::modifySelectedCells(const CellRuns& /*oCells*/, const ColumnChanges& /*oChanges*/)
{
    return false;
}

bool QVertexMinMaxItemModel::setMimeData(const QMimeData& /*oMimeData*/, int /*iRow*/, int /*iColumn*/)
{
    return false;
}

QStringList QVertexMinMaxItemModel::choices(const QModelIndex& index) const
{
    const MatrixData* poNode = index.isValid() ? getNode(index.column()) : nullptr;
    if (!poNode)
        return {};
    if (index.row() == Unit)
        return poNode->unitManager()->possibleDisplayUnits();
    QStringList lCategories;
    if (index.row() == UnitCategory) {
        const UnitRegistry& oRegistry = registryOf(*poNode);
        for (auto it = oRegistry.categories_begin(); it != oRegistry.categories_end(); ++it)
            lCategories << it->first;
    }
    return lCategories;
}

QString QVertexMinMaxItemModel::currentChoice(const QModelIndex& index) const
{
    const MatrixData* poNode = index.isValid() ? getNode(index.column()) : nullptr;
    if (!poNode)
        return {};
    return index.row() == Unit ? poNode->unitManager()->getDisplayUnitTag() : poNode->unitCategory();
}

QString QVertexMinMaxItemModel::exactText(int iRow, int iColumn) const
{
    const MatrixData* poNode = getNode(iColumn);
    if (!poNode || iRow >= Unit || iRow >= poNode->rowOffSet())
        return data(index(iRow, iColumn), Qt::DisplayRole).toString();
    return CellText::exact(*poNode, poNode->value(iRow, 0));
}

} // namespace gkBase
