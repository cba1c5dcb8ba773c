#pragma once

#include "CellChange.h"
#include "CellCondition.h"
#include "CellModification.h"
#include "CellRuns.h"
#include "TableRowMap.h"
#include "gkBaseToolsExport.h"

#include <QAbstractItemModel>
#include <QVariant>

#include <map>
#include <utility>
#include <vector>

class QMimeData;

namespace gkBase {

class MatrixData;
struct CellBlock;

/// The checked attributes of a data-set tree as a table: one column per attribute, one row per sheet row, optionally
/// thinned to every n-th row or restricted to a list of rows (TableRowMap tells which). Values are shown and edited
/// in display units and stored in model units; every edit is one undo record of the root.
///
/// The root is not owned. The model follows it: removed attributes leave the table before they go, changed values
/// repaint their column, and only a changed number of rows or columns resets the model.
class GKBASETOOLS_EXPORT QVertexItemModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    using ColumnChanges = std::map<int, CellChange>; ///< by table column

    QVertexItemModel(QObject* pqParent, MatrixData* poRoot, int iFilterStepSize);
    ~QVertexItemModel() override;

    using QObject::parent;
    QModelIndex index(int iRow, int iColumn, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int iRole = Qt::DisplayRole) const override;
    QVariant headerData(int iSection, Qt::Orientation eOrientation, int iRole = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Row numbers in undo names count from 1, as the row labels do. A text that equals the one that the editor
    /// showed changes nothing, so that committing an untouched editor does not round the stored value.
    bool setData(const QModelIndex& index, const QVariant& qValue, int iRole = Qt::EditRole) override;

    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& lIndexes) const override;
    bool canDropMimeData(const QMimeData* pMimeData, Qt::DropAction eAction, int iRow, int iColumn,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* pMimeData, Qt::DropAction eAction, int iRow, int iColumn,
                      const QModelIndex& parent) override;
    /// Copies only: moving cells out of a table would clear them.
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

    MatrixData* dataRoot() const { return m_poDataRoot; }
    /// Not owned; null empties the table. All rows are shown again.
    void setDataRoot(MatrixData* poRoot);
    int filterStepSize() const { return m_oRowMap.m_iStep; }
    /// Takes effect with the next updateModel().
    void setFilterStepSize(int iFilterStepSize) { m_iNextFilterStepSize = iFilterStepSize; }
    bool modified() const { return m_bModified; }
    /// Emits dataModified() with the value.
    void setModified(bool bModified);
    /// Whether edits are recorded; they are at first.
    void enableUndoRedo(bool bEnable) { m_bUndoRedo = bEnable; }
    bool isUndoRedoEnabled() const { return m_bUndoRedo; }
    bool rowsCanBeExtended() const { return m_bRowsCanBeExtended; }
    /// Whether pasting and Enter in the last row may append rows; they may not at first.
    void setRowsCanBeExtended(bool bExtend) { m_bRowsCanBeExtended = bExtend; }
    int rowOffSet() const { return m_oRowMap.m_iRowOffSet; }
    /// Null when out of range.
    MatrixData* getNode(int iColumn) const;
    /// The column's node, the root for an invalid index.
    MatrixData* nodeFromIndex(const QModelIndex& index) const;
    /// The sheet row behind a table row.
    int row(const QModelIndex& index) const { return m_oRowMap.sheetRow(index.row()); }
    const TableRowMap& rowMap() const { return m_oRowMap; }
    /// The largest number that a row label shows.
    int largestRowNumber() const;
    /// Appends one empty row to every column of the tree, as one undo record.
    void extendRows();

    /// Smallest and largest shown value of all numeric columns, in display units, summary rows left out; both 99999.0
    /// without values.
    void getMinMaxRange(double& dMin, double& dMax) const;
    /// The range of the rows' sums: positive values of a row add up to its upper end, negative ones to its lower end,
    /// and 0 always lies inside. Both 99999.0 without values.
    void getStackedMinMaxRange(double& dMin, double& dMax) const;

    /// Changes data cells of every column as one undo record; the operand is a display value. Arithmetic leaves
    /// missing cells and columns without numbers alone. False when no cell changed.
    bool modifySelectedCells(const QList<QModelIndex>& lIndexes, const QVariant& qOperand,
                             CellModification::Method eMethod);
    bool modifySelectedCells(const CellRuns& oCells, const QVariant& qOperand, CellModification::Method eMethod);
    /// Changes data cells, each column in its own way, as one undo record; cells of columns without a change stay.
    virtual bool modifySelectedCells(const CellRuns& oCells, const ColumnChanges& oChanges);
    /// What modifySelectedCells() would write to a column: nothing for one that is read-only or out of range.
    ChangedCells changedCells(const CellRuns& oCells, int iColumn, const CellChange& oChange) const;
    /// Fills the missing cells of each run of cells between the values at its ends or beside it.
    bool interpolate(const QList<QModelIndex>& lIndexes);

    /// False for summary rows and for a condition that the column's type does not know.
    bool isCellConditionSatisfied(const QModelIndex& index, const CellCondition& oCondition) const;
    /// The data cells that satisfy a condition, column by column in one pass; of one column, or of all for −1.
    CellRuns cellsSatisfying(const CellCondition& oCondition, int iOnlyColumn = -1) const;

    /// Pastes "text/plain" from a table row and column rightwards and downwards, as one undo record. Cells of summary
    /// rows, of read-only columns and outside the table are left out; rows past the end are appended when rows can be
    /// extended. False when nothing was written.
    virtual bool setMimeData(const QMimeData& oMimeData, int iRow, int iColumn);
    /// Text, HTML and drag form of the cells. Rows and columns without a cell are left out; cells between that are not
    /// in the set are empty. The caller owns the result; null for no cell.
    QMimeData* mimeDataForCopy(const QList<QModelIndex>& lIndexes) const;
    QMimeData* mimeDataForCopy(const CellRuns& oCells) const;
    /// An HTML table of all columns and the given records (none: all). The caller owns the result.
    QMimeData* getHTML_MimeData(const std::vector<int>& viRecords) const;

public slots:
    /// Rows are sheet rows to show, in this order; empty: all. A step below 1: no thinning.
    void updateModel(int iFilterStepSize, std::vector<int> liSelectedRows);
    void changeColumnHeaderName(gkBase::MatrixData* poNode);

signals:
    void dataModified(bool bModified);

protected:
    /// Rows of the table for the current columns and row map.
    virtual int wantedRowCount() const;
    void rebuildColumns();
    /// The cell as text for copies.
    virtual QString exactText(int iRow, int iColumn) const;
    /// What a cell of a sheet row shows, or its editor with Qt::EditRole; empty for colours and flags.
    static QVariant cellText(const MatrixData& oNode, int iSheetRow, int iRole);

private slots:
    void slotUpdate();

private:
    struct BlockWrite;
    using RecordsOfNode = std::pair<MatrixData*, const std::vector<int>*>;

    void connectRoot();
    void slotNodeAboutToBeRemoved(MatrixData* poBranch);
    void slotValuesChanged(MatrixData* poNode);
    void slotAttributesChanged(MatrixData* poNode);
    void slotTreeChanged();
    void slotRootAboutToBeDestroyed();
    void resetColumns();
    void emitColumnChanged(int iColumn);

    std::vector<MatrixData*> shownColumns() const;
    QVariant background(const MatrixData& oNode, const QModelIndex& index) const;
    bool isWritable(int iTableRow, int iColumn) const;
    QString undoPlace(const QModelIndex& index) const;
    bool setEditedText(const QModelIndex& index, MatrixData* poNode, const QVariant& qValue);
    bool setCheckState(const QModelIndex& index, MatrixData* poNode, const QVariant& qValue);
    void writeCell(const QModelIndex& index, MatrixData* poNode, const QVariant& qValue, const QString& sUndoName);

    void addTargets(BlockWrite& oBlock, int iRows, int iColumns, int iRow, int iColumn) const;
    void storeRecords(const QString& sUndoName, const std::vector<RecordsOfNode>& vRecords, bool bRowCounts);
    bool applyBlock(BlockWrite& oBlock);
    bool writeRectangle(BlockWrite& oBlock);
    bool writeCellBlock(const CellBlock& oCells, int iRow, int iColumn);
    static void writeChange(MatrixData& oNode, const ChangedCells& oChanged);
    CellBlock cellBlock(const CellRuns& oCells, const std::vector<int>& viRows,
                        const std::vector<int>& viColumns) const;
    bool dropTarget(int iRow, int iColumn, const QModelIndex& parent, QModelIndex& target) const;

    MatrixData* m_poDataRoot = nullptr; ///< not owned
    bool m_bModified = false;
    std::vector<MatrixData*> m_vpColumns; ///< not owned
    int m_iRowCount = 0;
    TableRowMap m_oRowMap;
    int m_iNextFilterStepSize = -1;
    bool m_bUndoRedo = true;
    bool m_bRowsCanBeExtended = false;
    MatrixData* m_poEdited = nullptr; ///< whose change this model announces itself
    bool m_bResetFollows = false;     ///< changes of the tree need no signals of their own
};

} // namespace gkBase
