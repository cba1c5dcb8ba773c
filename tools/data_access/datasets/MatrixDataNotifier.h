#pragma once

#include "MatrixData.h" // complete, so that the signals can be queued and recorded
#include "MatrixDataPointer.h"
#include "gkBaseQtExport.h"

#include <QObject>
#include <QPointer>

#include <unordered_set>
#include <vector>

namespace gkBase {

/// Announces the changes of one data-set tree. Get it from MatrixData::notifier(); it lives as long as the root.
///
/// Whoever keeps a pointer to a node drops it in nodeAboutToBeRemoved() (which names the top of a removed branch;
/// MatrixDataNotifier::contains() tells whether a node lies in it) and in rootAboutToBeDestroyed(), or keeps a
/// MatrixDataPointer.
class GKBASEQT_EXPORT MatrixDataNotifier : public QObject
{
    Q_OBJECT
public:
    /// While one lives, valuesChanged() and attributesChanged() wait, and come once for each node at the end. The
    /// other signals come at once. Batches may be nested.
    class GKBASEQT_EXPORT Batch
    {
    public:
        /// poNode is any node of the tree; null does nothing.
        explicit Batch(MatrixData* poNode);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        QPointer<MatrixDataNotifier> m_pqNotifier;
    };

    MatrixDataNotifier() = default;

    /// True when poNode is poBranch or lies below it. False for null.
    static bool contains(const MatrixData* poBranch, const MatrixData* poNode);

    /// Emits the signal, or keeps it for the end of the batch.
    void announceValues(MatrixData* poNode);
    void announceAttributes(MatrixData* poNode);

signals:
    void nodeAboutToBeRemoved(gkBase::MatrixData* poBranch);
    /// Children were inserted, removed or moved below poParent.
    void structureChanged(gkBase::MatrixData* poParent);
    /// Values, row count, type or unit of an attribute changed.
    void valuesChanged(gkBase::MatrixData* poNode);
    /// Name, colour or flags of a node changed, or the selection flags of attributes below it.
    void attributesChanged(gkBase::MatrixData* poNode);
    /// The undo or redo list changed: undo texts and the modified mark may differ.
    void undoStateChanged();
    /// An undo or redo step was applied as a whole; the fine signals of its parts came before.
    void undoApplied();
    void rootAboutToBeDestroyed();

private:
    /// The nodes of one waiting signal, each once, in order.
    class Pending
    {
    public:
        void add(MatrixData* poNode);
        std::vector<MatrixDataPointer> take();

    private:
        std::vector<MatrixDataPointer> m_vNodes;
        std::unordered_set<const MatrixData*> m_known;
    };

    void endBatch();

    int m_iBatchDepth = 0;
    Pending m_oValues;
    Pending m_oAttributes;
};

} // namespace gkBase
