#pragma once

#include "gkBaseQtExport.h"

#include <QObject>

namespace gkBase {

class MatrixData;

/// Announces the changes of one data-set tree. Get it from MatrixData::notifier(); it lives as long as the root.
///
/// Whoever keeps a pointer to a node drops it in nodeAboutToBeRemoved() (which names the top of a removed branch;
/// MatrixDataNotifier::contains() tells whether a node lies in it) and in rootAboutToBeDestroyed().
class GKBASEQT_EXPORT MatrixDataNotifier : public QObject
{
    Q_OBJECT
public:
    MatrixDataNotifier() = default;

    /// True when poNode is poBranch or lies below it. False for null.
    static bool contains(const MatrixData* poBranch, const MatrixData* poNode);

signals:
    void nodeAboutToBeRemoved(gkBase::MatrixData* poBranch);
    /// Children were inserted, removed or moved below poParent.
    void structureChanged(gkBase::MatrixData* poParent);
    /// Values, row count, type or unit of an attribute changed.
    void valuesChanged(gkBase::MatrixData* poNode);
    /// Name, colour or flags of a node changed.
    void attributesChanged(gkBase::MatrixData* poNode);
    /// The undo or redo list changed: undo texts and the modified mark may differ.
    void undoStateChanged();
    /// An undo or redo step was applied as a whole; the fine signals of its parts came before.
    void undoApplied();
    void rootAboutToBeDestroyed();
};

} // namespace gkBase
