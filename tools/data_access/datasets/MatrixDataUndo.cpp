#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MatrixDataRange.h"
#include "MatrixDataUndoStack.h"

namespace gkBase {

MatrixDataUndoStack* MatrixData::existingUndoStack() const
{
    return root()->m_poUndoStack.get();
}

void MatrixData::appendUndoAction(MatrixDataRestore* poRecord, bool bNewStep)
{
    std::unique_ptr<MatrixDataRestore> poOwned(poRecord);
    if (!poOwned)
        return;
    MatrixData* poRoot = root();
    if (!poRoot->m_poUndoStack)
        poRoot->m_poUndoStack = std::make_unique<MatrixDataUndoStack>();
    if (poRoot->m_poUndoStack->isBusy())
        return;
    poRoot->m_poUndoStack->append(std::move(poOwned), bNewStep);
    if (MatrixDataNotifier* pqNotifier = existingNotifier())
        emit pqNotifier->undoStateChanged();
}

int MatrixData::sizeUndoActions() const
{
    const MatrixDataUndoStack* pStack = existingUndoStack();
    return pStack ? pStack->size() : 0;
}

MatrixDataRestore* MatrixData::undoAction(int i) const
{
    const MatrixDataUndoStack* pStack = existingUndoStack();
    return pStack ? pStack->record(i) : nullptr;
}

bool MatrixData::canUndo() const
{
    const MatrixDataUndoStack* pStack = existingUndoStack();
    return pStack && pStack->canUndo();
}

bool MatrixData::canRedo() const
{
    const MatrixDataUndoStack* pStack = existingUndoStack();
    return pStack && pStack->canRedo();
}

QString MatrixData::undoText() const
{
    const MatrixDataUndoStack* pStack = existingUndoStack();
    return pStack ? pStack->undoText() : QString();
}

QString MatrixData::redoText() const
{
    const MatrixDataUndoStack* pStack = existingUndoStack();
    return pStack ? pStack->redoText() : QString();
}

bool MatrixData::undo()
{
    return applyStep(&MatrixDataUndoStack::undo);
}

bool MatrixData::redo()
{
    return applyStep(&MatrixDataUndoStack::redo);
}

bool MatrixData::applyStep(bool (MatrixDataUndoStack::*pApply)())
{
    MatrixData* poRoot = root();
    MatrixDataUndoStack* pStack = poRoot->m_poUndoStack.get();
    if (!pStack || pStack->isBusy())
        return false;
    const MatrixDataPointer poAlive(poRoot); // a listener may destroy the tree
    bool bDone = false;
    {
        const MatrixDataNotifier::Batch batch(poRoot->m_poNotifier ? poRoot : nullptr);
        bDone = (pStack->*pApply)();
    }
    if (bDone && poAlive && poRoot->m_poNotifier) {
        emit poRoot->m_poNotifier->undoApplied();
        if (poAlive)
            emit poRoot->m_poNotifier->undoStateChanged();
    }
    return bDone;
}

int MatrixData::undoState() const
{
    const MatrixDataUndoStack* pStack = existingUndoStack();
    return pStack ? pStack->state() : 0;
}

void MatrixData::clearUndoActions()
{
    MatrixDataUndoStack* pStack = existingUndoStack();
    if (!pStack || pStack->isBusy())
        return;
    pStack->clear();
    if (MatrixDataNotifier* pqNotifier = existingNotifier())
        emit pqNotifier->undoStateChanged();
}

} // namespace gkBase
