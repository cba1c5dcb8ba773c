#include "QTreeItemModel.h"

#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MatrixDataRestore.h"
#include "MatrixDataStrike.h"
#include "QTreeItemModelChange.h"
#include "UnitManager.h"

#include <QColor>
#include <QIcon>
#include <QMimeData>
#include <QPixmap>

#include <algorithm>

namespace gkBase {

namespace {

constexpr int s_iColorIconSize = 10;

QIcon colorIcon(const QColor& oColor)
{
    QPixmap pixmap(s_iColorIconSize, s_iColorIconSize);
    pixmap.fill(oColor);
    return QIcon(pixmap);
}

} // namespace

QTreeItemModel::QTreeItemModel(QObject* pqParent, MatrixData* poRoot)
    : QAbstractItemModel(pqParent)
    , m_poDataRoot(poRoot)
{
    connectRoot();
}

QTreeItemModel::~QTreeItemModel() = default;

void QTreeItemModel::setDataRoot(MatrixData* poRoot)
{
    const TreeReset oReset(*this);
    m_poDataRoot = poRoot;
    connectRoot();
}

void QTreeItemModel::updateModel()
{
    const TreeReset oReset(*this);
}

void QTreeItemModel::setModified(bool bModified)
{
    m_bModified = bModified;
    emit dataModified(m_bModified);
}

MatrixData* QTreeItemModel::nodeFromIndex(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<MatrixData*>(index.internalPointer()) : m_poDataRoot;
}

QModelIndex QTreeItemModel::indexFromNode(const MatrixData* poNode) const
{
    if (!poNode || !m_poDataRoot)
        return QModelIndex();
    const MatrixData* poOwner = poNode->owner();
    if (poOwner && m_poDataRoot->indexOfChild(poOwner) < 0)
        return QModelIndex();
    const int iRow = (poOwner ? poOwner : m_poDataRoot)->indexOfChild(poNode);
    return iRow < 0 ? QModelIndex() : createIndex(iRow, 0, poNode);
}

// ---- structure ------------------------------------------------------------------------------------------------------

QModelIndex QTreeItemModel::index(int iRow, int iColumn, const QModelIndex& parent) const
{
    const MatrixData* poParent = nodeFromIndex(parent);
    if (!poParent || iRow < 0 || iColumn < 0 || iRow >= poParent->childCount())
        return QModelIndex();
    return createIndex(iRow, iColumn, poParent->child(iRow));
}

// The index of a data set carries here the row of the child that was asked for, not its own row among the data sets.
// Hosts depend on that; whoever needs the data set's own row takes indexFromNode().
QModelIndex QTreeItemModel::parent(const QModelIndex& index) const
{
    const MatrixData* poNode = index.isValid() ? nodeFromIndex(index) : nullptr;
    if (!poNode || poNode == m_poDataRoot || !poNode->owner())
        return QModelIndex();
    return createIndex(poNode->owner()->indexOfChild(poNode), 0, poNode->owner());
}

int QTreeItemModel::rowCount(const QModelIndex& parent) const
{
    const MatrixData* poParent = nodeFromIndex(parent);
    return poParent ? poParent->childCount() : 0;
}

int QTreeItemModel::columnCount(const QModelIndex&) const
{
    return 1;
}

// ---- contents -------------------------------------------------------------------------------------------------------

QVariant QTreeItemModel::data(const QModelIndex& index, int iRole) const
{
    const MatrixData* poNode = index.isValid() ? nodeFromIndex(index) : nullptr;
    if (!poNode)
        return QVariant();
    switch (iRole) {
    case Qt::DisplayRole: {
        const int iCount = poNode->childCount() > 0 ? poNode->childCount() : poNode->rowCount() - poNode->rowOffSet();
        return QString(poNode->name() + u'(' + QString::number(iCount) + u')');
    }
    case Qt::EditRole:
        return poNode->name();
    case Qt::CheckStateRole:
        return static_cast<int>(poNode->isSelected() ? Qt::Checked : Qt::Unchecked);
    case Qt::DecorationRole:
        return poNode->owner() ? QVariant(colorIcon(poNode->color())) : QVariant();
    case Qt::ToolTipRole: {
        const QString sUnit = poNode->unitManager()->getDisplayUnitName();
        return sUnit.isEmpty() ? QVariant() : QVariant(sUnit);
    }
    default:
        return QVariant();
    }
}

bool QTreeItemModel::setData(const QModelIndex& index, const QVariant& qValue, int iRole)
{
    MatrixData* poNode = index.isValid() ? nodeFromIndex(index) : nullptr;
    if (!poNode || !m_poDataRoot)
        return false;
    if (iRole == Qt::EditRole)
        return renameNode(index, poNode, qValue.toString());
    bool bOk = false;
    const int iState = qValue.toInt(&bOk);
    if (iRole != Qt::CheckStateRole || !bOk)
        return false;
    {
        const OwnChange oChange(*this);
        poNode->setSelected(iState == static_cast<int>(Qt::Checked), false);
    }
    // The far corner makes views repaint all of the tree: a data set and its attributes are switched together.
    emit dataChanged(index, createIndex(poNode->childCount(), index.column(), nullptr));
    emit treeItemSelected(index);
    return true;
}

bool QTreeItemModel::renameNode(const QModelIndex& index, MatrixData* poNode, const QString& sName)
{
    if (sName.isEmpty() || sName == poNode->name())
        return false;
    QString sUniqueName = sName;
    m_poDataRoot->createUniqueName(sUniqueName, poNode);
    {
        const OwnChange oChange(*this);
        auto poRestore = std::make_unique<MatrixDataRestore>(poNode, QStringLiteral("Change Attribute Name"), false);
        poRestore->storeName(poNode);
        m_poDataRoot->appendUndoAction(poRestore.release(), true);
        poNode->setName(sUniqueName);
    }
    emit dataChanged(index, index);
    emit treeItemNameChanged(poNode);
    setModified(true);
    return true;
}

QVariant QTreeItemModel::headerData(int iSection, Qt::Orientation eOrientation, int iRole) const
{
    if (iSection == 0 && eOrientation == Qt::Horizontal && iRole == Qt::DisplayRole)
        return tr("Tree View");
    return QVariant();
}

Qt::ItemFlags QTreeItemModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags eFlags = QAbstractItemModel::flags(index) | Qt::ItemIsEditable | Qt::ItemIsUserCheckable;
    eFlags |= Qt::ItemIsDropEnabled;
    if (index.isValid())
        eFlags |= Qt::ItemIsDragEnabled;
    return eFlags;
}

std::vector<MatrixData*> QTreeItemModel::attributesOf(const QList<QModelIndex>& lIndexes) const
{
    std::vector<MatrixData*> vpAttributes;
    for (const QModelIndex& index : lIndexes) {
        MatrixData* poNode = nodeFromIndex(index);
        if (poNode && poNode->owner())
            vpAttributes.push_back(poNode);
    }
    return vpAttributes;
}

// ---- edits ----------------------------------------------------------------------------------------------------------

void QTreeItemModel::changeAttributeColor(const QList<QModelIndex>& lIndexes, const QColor& oColor)
{
    if (!m_poDataRoot || !oColor.isValid() || lIndexes.isEmpty())
        return;
    {
        const OwnChange oChange(*this);
        for (const QModelIndex& index : lIndexes) {
            MatrixData* poNode = nodeFromIndex(index);
            if (!poNode)
                continue;
            auto poRestore =
                std::make_unique<MatrixDataRestore>(poNode, "Change Attribute Color: " + poNode->name(), false);
            poRestore->storeColor(poNode);
            // false: the colours of all these attributes join the edit before them in one undo step, so that undoing
            // that edit gives the old colours back as well.
            m_poDataRoot->appendUndoAction(poRestore.release(), false);
            poNode->setColor(oColor);
        }
    }
    setModified(true);
}

void QTreeItemModel::deleteSelectedRows(const QList<QModelIndex>& lIndexes)
{
    const TreeReset oReset(*this);
    if (!m_poDataRoot)
        return;
    for (MatrixData* poNode : deletableNodes(lIndexes)) {
        m_poDataRoot->appendUndoAction(new MatrixDataRestore(poNode, "Delete Attribute: " + poNode->name(), true),
                                       true);
        m_poDataRoot->removeChild(poNode); // the record just appended keeps the node
    }
}

std::set<MatrixData*> QTreeItemModel::deletableNodes(const QList<QModelIndex>& lIndexes) const
{
    std::set<MatrixData*> vpNodes;
    for (MatrixData* poNode : attributesOf(lIndexes)) {
        if (poNode->isVertex())
            continue;
        vpNodes.insert(poNode);
        if (poNode->name() != QLatin1String("azimuth"))
            continue;
        // Only the first strike of the tree is looked at, whether it belongs to this azimuth or to another one.
        for (MatrixData* poLeaf : m_poDataRoot->leafs()) {
            if (const auto* poStrike = dynamic_cast<MatrixDataStrike*>(poLeaf)) {
                if (poStrike->azimuth() == poNode)
                    vpNodes.insert(poLeaf);
                break;
            }
        }
    }
    return vpNodes;
}

QMimeData* QTreeItemModel::getHTML_MimeData(const QList<QModelIndex>& lIndexes) const
{
    auto pqMimeData = std::make_unique<QMimeData>();
    MatrixData::setHTML_MimeData(pqMimeData.get(), attributesOf(lIndexes), {});
    return pqMimeData.release();
}

// ---- changes from elsewhere -----------------------------------------------------------------------------------------

void QTreeItemModel::connectRoot()
{
    for (const QMetaObject::Connection& oConnection : std::as_const(m_lRootConnections))
        disconnect(oConnection);
    m_lRootConnections.clear();
    if (!m_poDataRoot)
        return;
    const MatrixDataNotifier* pqNotifier = m_poDataRoot->notifier();
    m_lRootConnections = {
        connect(pqNotifier, &MatrixDataNotifier::nodeAboutToBeRemoved, this, &QTreeItemModel::slotNodeAboutToBeRemoved),
        connect(pqNotifier, &MatrixDataNotifier::structureChanged, this, &QTreeItemModel::slotStructureChanged),
        connect(pqNotifier, &MatrixDataNotifier::attributesChanged, this, &QTreeItemModel::slotAttributesChanged),
        connect(pqNotifier, &MatrixDataNotifier::valuesChanged, this, &QTreeItemModel::slotValuesChanged),
        connect(pqNotifier, &MatrixDataNotifier::rootAboutToBeDestroyed, this,
                &QTreeItemModel::slotRootAboutToBeDestroyed)};
}

void QTreeItemModel::dropPersistentIndexes()
{
    const QModelIndexList lIndexes = persistentIndexList();
    changePersistentIndexList(lIndexes, QModelIndexList(lIndexes.size()));
}

// The reset stays open until structureChanged() tells that the node is out; no index may outlive it.
void QTreeItemModel::slotNodeAboutToBeRemoved(MatrixData*)
{
    if (m_iOwnChanges > 0 || m_bResetting)
        return;
    m_bResetting = true;
    beginResetModel();
    dropPersistentIndexes();
}

void QTreeItemModel::slotStructureChanged()
{
    if (m_iOwnChanges > 0)
        return;
    if (!m_bResetting)
        beginResetModel();
    m_bResetting = false;
    endResetModel();
}

void QTreeItemModel::slotAttributesChanged(MatrixData* poNode)
{
    if (m_iOwnChanges > 0 || m_bResetting || !poNode)
        return;
    for (const MatrixData* poShown :
         {static_cast<const MatrixData*>(poNode), static_cast<const MatrixData*>(poNode->owner())}) {
        const QModelIndex index = indexFromNode(poShown);
        if (index.isValid())
            emit dataChanged(index, index);
    }
}

// Writing cell by cell announces every cell; the counts are shown once, when control is back in the event loop.
void QTreeItemModel::slotValuesChanged()
{
    if (m_bRefreshPending)
        return;
    m_bRefreshPending = true;
    QMetaObject::invokeMethod(this, &QTreeItemModel::refreshCounts, Qt::QueuedConnection);
}

void QTreeItemModel::refreshCounts()
{
    m_bRefreshPending = false;
    if (m_bResetting)
        return;
    for (int iDataSet = 0; iDataSet < rowCount(); ++iDataSet) {
        const QModelIndex dataSet = index(iDataSet, 0);
        for (int i = 0; i < rowCount(dataSet); ++i) {
            const QModelIndex attribute = index(i, 0, dataSet);
            emit dataChanged(attribute, attribute, {Qt::DisplayRole, Qt::ToolTipRole});
        }
    }
}

void QTreeItemModel::slotRootAboutToBeDestroyed()
{
    const TreeReset oReset(*this);
    m_poDataRoot = nullptr;
    m_lRootConnections.clear();
}

} // namespace gkBase
