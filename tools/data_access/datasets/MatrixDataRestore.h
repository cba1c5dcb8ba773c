#pragma once

#include "MatrixData.h"
#include "MatrixDataPointer.h"
#include "gkBaseQtExport.h"

#include <QString>
#include <QVariant>

#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace gkBase {

/// An undo record: everything that is needed to take one edit back, and to apply it again.
///
/// Make it before the edit, feed it with what the edit will overwrite, append it to the root with
/// MatrixData::appendUndoAction(), then apply the edit. Undoing and redoing exchange the stored state with the
/// current one, so that a record costs what it overwrote, once.
///
/// Cells are kept in typed blocks (a block of doubles costs 8 bytes a cell and 4 for its row). Cells of a derived
/// attribute (strike) are kept as the cells that they are computed from; those of an array with storeContents() only. A
/// node that was destroyed without a record is left out when its records are applied.
class GKBASEQT_EXPORT MatrixDataRestore
{
public:
    /// A record about poNode with a readable name, shown in the Edit menu. bRemoval announces that poNode will be
    /// taken out of the tree with MatrixData::removeChild(): the record then keeps it alive.
    MatrixDataRestore(MatrixData* poNode, const QString& sName, bool bRemoval = false);
    ~MatrixDataRestore();
    MatrixDataRestore(const MatrixDataRestore&) = delete;
    MatrixDataRestore& operator=(const MatrixDataRestore&) = delete;

    QString name() const { return m_sName; }
    void setName(const QString& sName) { m_sName = sName; }
    /// Null once the node is destroyed.
    MatrixData* node() const { return m_poNode.get(); }
    bool isRemoval() const { return m_bRemoval; }

    /// The old value of a sheet row of the record's node, column 0.
    void dataStore(int iRow, const QVariant& qOldValue);
    /// The old value of a cell of any node of the tree. A row past the end means that the edit will extend the
    /// column: storeRowCount() of the data set is taken as well.
    void dataStore(MatrixData* poNode, int iRow, int iColumn, const QVariant& qOldValue);
    /// The current cells of the given records of a column, taken at once (rising record numbers).
    void storeRecords(MatrixData* poNode, int iColumn, const std::vector<int>& viRecords);
    /// A copy of a whole column as it is now, with its length; a column that does not exist yet is taken out by undo.
    void storeColumn(MatrixData* poNode, int iColumn);
    /// The current length of every column of a node and of the attributes below it: undoing drops rows that the
    /// edit appends.
    void storeRowCount(MatrixData* poNode);
    /// The current name; undoing gives it back.
    void storeName(MatrixData* poNode);
    void storeColor(MatrixData* poNode);
    /// The current unit manager (category and unit).
    void storeUnit(MatrixData* poNode);
    /// Everything a node holds (values, name, type, unit, colour, flags) before it is replaced as a whole, with
    /// copies of its children.
    void storeContents(MatrixData* poNode);
    /// The node was just put into the tree: undoing takes it out and keeps it.
    void storeInsertion(MatrixData* poNode);

    /// Cells, names, … that the record holds; 0 for one that changes nothing.
    int size() const;
    /// Heap memory of the record, in bytes.
    std::size_t memoryUsage() const;

private:
    friend class MatrixDataUndoStack;
    struct Entry;
    struct CellsEntry;
    struct ColumnEntry;
    struct LengthEntry;
    struct NameEntry;
    struct ColorEntry;
    struct UnitEntry;
    struct ContentsEntry;
    struct BranchEntry;

    void undo();
    void redo();
    /// Called when a node is removed: true when this record announced the removal and took the node.
    bool adopt(std::unique_ptr<MatrixData>& poNode, MatrixData* poParent, int iIndex);
    CellsEntry& cellsEntry(MatrixData* poNode, int iColumn);
    void addEntry(std::unique_ptr<Entry> poEntry);

    MatrixDataPointer m_poNode; ///< not owned while it stands in the tree
    QString m_sName;
    bool m_bRemoval;
    bool m_bAdopted = false;
    std::vector<std::unique_ptr<Entry>> m_vEntries;
    /// Blocks that still take cells; emptied by entries of other kinds, so that the order of the edits is kept.
    std::map<std::pair<const MatrixData*, int>, CellsEntry*> m_openCells;
    std::set<const MatrixData*> m_lengthsOf; ///< only compared: whose row counts were taken
};

} // namespace gkBase
