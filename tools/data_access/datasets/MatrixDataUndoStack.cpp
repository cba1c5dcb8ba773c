#include "MatrixDataUndoStack.h"

namespace gkBase {

void MatrixDataUndoStack::append(std::unique_ptr<MatrixDataRestore> poRecord, bool bNewStep)
{
    m_vRecords.erase(m_vRecords.begin() + static_cast<std::ptrdiff_t>(m_nApplied), m_vRecords.end());
    m_vRecords.push_back({std::move(poRecord), bNewStep || m_vRecords.empty(), ++m_iLastState});
    m_nApplied = m_vRecords.size();
}

MatrixDataRestore* MatrixDataUndoStack::record(int i) const
{
    return i >= 0 && i < size() ? m_vRecords[static_cast<std::size_t>(i)].m_poRecord.get() : nullptr;
}

std::size_t MatrixDataUndoStack::stepBegin() const
{
    std::size_t n = m_nApplied;
    while (n > 0 && !m_vRecords[--n].m_bNewStep) {
    }
    return n;
}

QString MatrixDataUndoStack::undoText() const
{
    return canUndo() ? m_vRecords[stepBegin()].m_poRecord->name() : QString();
}

QString MatrixDataUndoStack::redoText() const
{
    return canRedo() ? m_vRecords[m_nApplied].m_poRecord->name() : QString();
}

bool MatrixDataUndoStack::undo()
{
    if (!canUndo())
        return false;
    m_bBusy = true;
    const std::size_t nBegin = stepBegin();
    while (m_nApplied > nBegin)
        m_vRecords[--m_nApplied].m_poRecord->undo();
    m_bBusy = false;
    return true;
}

bool MatrixDataUndoStack::redo()
{
    if (!canRedo())
        return false;
    m_bBusy = true;
    do {
        m_vRecords[m_nApplied++].m_poRecord->redo();
    } while (m_nApplied < m_vRecords.size() && !m_vRecords[m_nApplied].m_bNewStep);
    m_bBusy = false;
    return true;
}

void MatrixDataUndoStack::clear()
{
    m_iBaseState = state();
    m_nApplied = 0;
    m_vRecords.clear();
}

bool MatrixDataUndoStack::adopt(std::unique_ptr<MatrixData>& poNode, MatrixData* poParent, int iIndex)
{
    for (std::size_t n = m_nApplied; n-- > 0;)
        if (m_vRecords[n].m_poRecord->adopt(poNode, poParent, iIndex))
            return true;
    return false;
}

} // namespace gkBase
