#pragma once

#include "gkBaseToolsExport.h"

#include <QAbstractItemModel>
#include <QList>
#include <QMetaObject>
#include <QModelIndex>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <set>
#include <vector>

class QColor;
class QDataStream;
class QMimeData;

namespace gkBase {

class MatrixData;
class MatrixDataNotifier;

/// The data sets of a root and, below them, their attributes, as a Qt item model of one column.
///
/// A node with an owner is an attribute, a child of the root without one is a data set. An index carries the
/// MatrixData* of its node as internal pointer.
///
/// Every edit of data first puts an undo record on the list of the root. The model listens to the root's notifier:
/// changes of the tree from elsewhere (undo, derived attributes) reset it, and indexes of a node are invalid before
/// the node is gone.
class GKBASETOOLS_EXPORT QTreeItemModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    /// Asks whether the attribute poNode may be overwritten; true for Yes.
    using OverwriteQuestion = std::function<bool(const MatrixData* poNode)>;

    /// poRoot is not owned and may be null (an empty model).
    QTreeItemModel(QObject* pqParent, MatrixData* poRoot);
    ~QTreeItemModel() override;

    /// Replaces the root (not owned, may be null) and resets the model.
    void setDataRoot(MatrixData* poRoot);
    MatrixData* dataRoot() const { return m_poDataRoot; }
    /// Resets the model after changes of the tree.
    void updateModel();

    bool modified() const { return m_bModified; }
    /// Also emits dataModified() with the new value, changed or not.
    void setModified(bool bModified);

    /// The node of an index; the root for an invalid one.
    MatrixData* nodeFromIndex(const QModelIndex& index) const;
    /// The index of a data set or attribute by its place in the tree; invalid for any other node. Unlike parent(),
    /// it gives a data set with its own row.
    QModelIndex indexFromNode(const MatrixData* poNode) const;

    /// Inserts iCount empty attributes "New Inserted Item" before the child iRow of the data set parent. False when
    /// parent is no data set.
    bool insertNewRows(int iRow, int iCount, QModelIndex& parent);
    /// Deletes the attributes among the indexes, each with an undo record. Data sets and vertex coordinates stay.
    /// With an attribute "azimuth" goes the strike that is derived from it.
    void deleteSelectedRows(const QList<QModelIndex>& lIndexes);
    void changeAttributeColor(const QList<QModelIndex>& lIndexes, const QColor& oColor);
    /// An HTML table of the attributes among the indexes, all records. The caller owns it.
    QMimeData* getHTML_MimeData(const QList<QModelIndex>& lIndexes) const;

    /// Replaces the question box that a drop onto an attribute opens. An empty function goes back to the box.
    void setOverwriteQuestion(OverwriteQuestion fnQuestion);

    QModelIndex index(int iRow, int iColumn, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int iRole = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& qValue, int iRole = Qt::EditRole) override;
    QVariant headerData(int iSection, Qt::Orientation eOrientation, int iRole = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QStringList mimeTypes() const override;
    /// The attributes among the indexes as they are now, data sets left out. The caller owns it.
    QMimeData* mimeData(const QModelIndexList& lIndexes) const override;
    /// A payload that is broken anywhere is refused as a whole.
    bool dropMimeData(const QMimeData* pqData, Qt::DropAction eAction, int iRow, int iColumn,
                      const QModelIndex& parent) override;
    /// Only onto a node: the space below the tree takes no attributes.
    bool canDropMimeData(const QMimeData* pqData, Qt::DropAction eAction, int iRow, int iColumn,
                         const QModelIndex& parent) const override;
    Qt::DropActions supportedDropActions() const override;

signals:
    /// An attribute was switched in or out, or something was dropped onto the index.
    void treeItemSelected(const QModelIndex& index);
    void treeItemNameChanged(gkBase::MatrixData* poNode);
    void dataModified(bool bModified);
    /// A drop is done: views read the tree again.
    void updateView();

private:
    class OwnChange;
    class TreeReset;

    void connectRoot();
    bool renameNode(const QModelIndex& index, MatrixData* poNode, const QString& sName);
    std::set<MatrixData*> deletableNodes(const QList<QModelIndex>& lIndexes) const;
    std::vector<MatrixData*> attributesOf(const QList<QModelIndex>& lIndexes) const;
    bool dropOntoAttribute(MatrixData* poFirst, int iCount, QDataStream& stream);
    std::vector<int> askForTargets(MatrixData* poFirst, int iCount);
    bool overwriteAttributes(const std::vector<int>& viTargetIds, QDataStream& stream);
    bool createAttributes(MatrixData* poDataSet, int iRow, int iCount, QDataStream& stream);
    bool dropDataFromStream(MatrixData* poNode, QDataStream& stream, bool bMakeUniqueName);

    void dropPersistentIndexes();
    void slotNodeAboutToBeRemoved(MatrixData* poBranch);
    void slotStructureChanged();
    void slotAttributesChanged(MatrixData* poNode);
    void slotValuesChanged();
    void slotRootAboutToBeDestroyed();
    void refreshCounts();

    MatrixData* m_poDataRoot = nullptr; ///< not owned
    bool m_bModified = false;
    bool m_bResetting = false;      ///< between begin and end of a reset
    bool m_bRefreshPending = false; ///< refreshCounts() is in the event queue
    int m_iOwnChanges = 0;          ///< above 0 while the model itself changes the tree
    OverwriteQuestion m_fnOverwriteQuestion;
    QList<QMetaObject::Connection> m_lRootConnections;
};

} // namespace gkBase
