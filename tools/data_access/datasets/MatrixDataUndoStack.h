#pragma once

#include "MatrixDataRestore.h"

#include <QString>

#include <memory>
#include <vector>

namespace gkBase {

class MatrixData;

/// The undo and redo list of one tree. Records in the order of their edits; the first m_nApplied of them are applied
/// (undo list), the others are taken back (redo list). A step is a record that begins one with those that join it.
class MatrixDataUndoStack
{
public:
    /// Takes ownership and drops the redo list.
    void append(std::unique_ptr<MatrixDataRestore> poRecord, bool bNewStep);
    int size() const { return static_cast<int>(m_nApplied); }
    MatrixDataRestore* record(int i) const;
    bool canUndo() const { return m_nApplied > 0; }
    bool canRedo() const { return m_nApplied < m_vRecords.size(); }
    QString undoText() const;
    QString redoText() const;
    /// Take back, or apply again, one step; false when there is none.
    bool undo();
    bool redo();
    /// The number that the last applied record got; unique for each state.
    int state() const { return m_nApplied > 0 ? m_vRecords[m_nApplied - 1].m_iState : m_iBaseState; }
    void clear();
    /// Gives the removed node to the latest record that announced its removal; false when there is none.
    bool adopt(std::unique_ptr<MatrixData>& poNode, MatrixData* poParent, int iIndex);
    bool isBusy() const { return m_bBusy; }

private:
    struct Item
    {
        std::unique_ptr<MatrixDataRestore> m_poRecord;
        bool m_bNewStep;
        int m_iState;
    };

    std::size_t stepBegin() const;

    std::vector<Item> m_vRecords;
    std::size_t m_nApplied = 0;
    int m_iBaseState = 0;
    int m_iLastState = 0;
    bool m_bBusy = false; ///< an edit made by a listener during undo is not recorded
};

} // namespace gkBase
