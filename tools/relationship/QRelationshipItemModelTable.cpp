// QRelationshipItemModel as a table of points.

#include "MatrixData.h"
#include "MissingValue.h"
#include "QRelationshipItemModel.h"

namespace gkBase {

namespace {

QVariant shown(double dValue)
{
    return isMissing(dValue) ? QVariant() : QVariant(dValue);
}

QString nameOf(const MatrixData* poAttribute, const QString& sFallback)
{
    return poAttribute ? poAttribute->name() : sFallback;
}

} // namespace

QModelIndex QRelationshipItemModel::index(int iRow, int iColumn, const QModelIndex& oParent) const
{
    return hasIndex(iRow, iColumn, oParent) ? createIndex(iRow, iColumn) : QModelIndex();
}

QModelIndex QRelationshipItemModel::parent(const QModelIndex&) const
{
    return {};
}

int QRelationshipItemModel::rowCount(const QModelIndex& oParent) const
{
    return oParent.isValid() ? 0 : numberOfPoints();
}

int QRelationshipItemModel::columnCount(const QModelIndex& oParent) const
{
    return oParent.isValid() ? 0 : NumberOfColumns;
}

QVariant QRelationshipItemModel::data(const QModelIndex& oIndex, int iRole) const
{
    if (!checkIndex(oIndex, CheckIndexOption::IndexIsValid))
        return {};
    if (oIndex.column() == SelectedColumn) {
        if (iRole == Qt::CheckStateRole)
            return isSelected(oIndex.row()) ? Qt::Checked : Qt::Unchecked;
        return iRole == Qt::EditRole ? QVariant(isSelected(oIndex.row())) : QVariant();
    }
    return iRole == Qt::DisplayRole || iRole == Qt::EditRole ? cellText(oIndex.row(), oIndex.column()) : QVariant();
}

QVariant QRelationshipItemModel::cellText(int iRecord, int iColumn) const
{
    const auto i = static_cast<std::size_t>(iRecord);
    switch (iColumn) {
    case XColumn:
        return shown(m_vdX[i]);
    case YColumn:
        return shown(m_vdY[i]);
    case ThirdColumn:
        return i < m_vdThird.size() ? shown(m_vdThird[i]) : QVariant();
    case ColorClassColumn:
        return colorAttributeIsOn() ? m_oColorClasses.names().value(m_oColorClasses.id(iRecord)) : QVariant();
    case SymbolClassColumn:
        return symbolAttributeIsOn() ? m_oSymbolClasses.names().value(m_oSymbolClasses.id(iRecord)) : QVariant();
    case ClusterColumn:
        return clusterID(iRecord) < 0 ? QVariant() : QVariant(clusterID(iRecord));
    default:
        return {};
    }
}

QVariant QRelationshipItemModel::headerData(int iSection, Qt::Orientation eOrientation, int iRole) const
{
    if (iRole != Qt::DisplayRole)
        return {};
    if (eOrientation == Qt::Vertical)
        return iSection + 1;
    switch (iSection) {
    case XColumn:
        return nameOf(m_oX.get(), tr("x"));
    case YColumn:
        return nameOf(m_oY.get(), tr("y"));
    case ThirdColumn:
        return nameOf(m_oThird.get(), tr("Third"));
    case ColorClassColumn:
        return nameOf(m_oColor.get(), tr("Colour"));
    case SymbolClassColumn:
        return nameOf(m_oSymbol.get(), tr("Symbol"));
    case ClusterColumn:
        return m_sClusterAttributeName.isEmpty() ? tr("Cluster") : m_sClusterAttributeName;
    case SelectedColumn:
        return tr("Selected");
    default:
        return {};
    }
}

bool QRelationshipItemModel::setData(const QModelIndex& oIndex, const QVariant& qValue, int iRole)
{
    if (!checkIndex(oIndex, CheckIndexOption::IndexIsValid) || oIndex.column() != SelectedColumn ||
        (iRole != Qt::CheckStateRole && iRole != Qt::EditRole))
        return false;
    setSelected(oIndex.row(), iRole == Qt::CheckStateRole ? qValue.toInt() == Qt::Checked : qValue.toBool());
    return true;
}

Qt::ItemFlags QRelationshipItemModel::flags(const QModelIndex& oIndex) const
{
    const Qt::ItemFlags eFlags = QAbstractItemModel::flags(oIndex);
    return oIndex.isValid() && oIndex.column() == SelectedColumn ? eFlags | Qt::ItemIsUserCheckable : eFlags;
}

} // namespace gkBase
