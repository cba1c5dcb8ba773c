#pragma once

#include "CellCondition.h"
#include "CellRuns.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QMetaType>
#include <QTableView>

#include <functional>
#include <vector>

class QMimeData;

namespace gkBase {

class MatrixData;
class QVertexItemDelegate;
class QVertexItemModel;

/// The attribute table, and the place where the row selection of the program lives.
///
/// A row is selected when all of its cells are. Small selections stand in the view's selection model; one of very many
/// ranges (every other row of a million) is kept as runs by the view and painted by the delegate, because a selection
/// model gets slow with the number of its ranges. selectedCells(), selectedRows(), selectedRecords() and
/// selectedRowCount() tell the selection in both cases; ask them and not the selection model.
///
/// Rows handed over by setRowSelection() switch the view to multi-selection of rows: clicks then add and remove rows
/// until clearSelection(), Esc included, returns to the usual selection of cells.
class GKBASETOOLS_EXPORT QVertexModelTableView : public QTableView
{
    Q_OBJECT
public:
    /// Asks for a colour, starting with the given one; an invalid answer means that the user cancelled.
    using ColorChooser = std::function<QColor(const QColor& oInitial, QWidget* pqParent)>;

    explicit QVertexModelTableView(QWidget* pqParent = nullptr);
    ~QVertexModelTableView() override;

    void setModel(QAbstractItemModel* pqModel) override;
    /// The model of this view; null when it is none of that class.
    QVertexItemModel* vertexModel() const;
    /// Colour cells open QColorDialog at first.
    void setColorChooser(ColorChooser chooser) { m_chooseColor = std::move(chooser); }

    // ---- selection
    CellRuns selectedCells() const;
    /// The selected data rows less rowOffset, rising: sheet rows with 0, records with the row offset. Summary rows do
    /// not count.
    void selectedRows(std::vector<int>& viRows, int iRowOffSet) const;
    std::vector<int> selectedRecords() const;
    int selectedRowCount() const;
    /// Cheaper than asking for the cells.
    bool hasSelectedCells() const;
    /// Selects the table row rowOffSet() + iRow besides those that are selected.
    void selectTableRow(int iRow);
    void setSelectedCells(const CellRuns& oCells);
    /// All cells of the columns iFrom … iTo (counted from 0, either order); bKeepPreviousSelection adds to the
    /// selection.
    void selectColumnCells(int iFrom, int iTo, bool bKeepPreviousSelection);
    /// The data cells of a column (−1: of all shown ones) that satisfy a condition (display values as typed);
    /// bIsRowSelection: the rows that hold such a cell. bKeepPreviousSelection adds them to the selection.
    void selectCells(const QString& sValue1, const QString& sValue2, CellCondition::Method eMethod,
                     bool bIsRowSelection, bool bKeepPreviousSelection, int iColumn = -1);
    /// Column type of the first selected cell (by column, then row); UnknownType without a selection.
    QMetaType::Type firstSelectedCellType() const;
    /// By column, then row. Makes one index per cell: for small selections.
    QModelIndexList sortedSelectedIndexes() const;
    bool isSelectionRectangleOn() const { return m_bSelectionRectangle; }
    void selectAll() override;

    void setVertexHighlightOn(bool bOn);
    bool isVertexHighlightOn() const { return m_bVertexHighlight; }
    bool isVertexSelectionOn() const { return m_bVertexSelection; }

    // ---- cells
    /// The selected cells for the clipboard; the caller owns the result, null without a selection.
    QMimeData* getSelectedData() const;
    /// Pastes at the top left selected cell (or the current one), moved down to the first data row when it lies above.
    /// Selected rows stay selected.
    bool setMimeData(const QMimeData& oMimeData);
    /// Clears the selected data cells as one undo record.
    bool clearSelectedCells();
    /// Appends one empty row when the model allows it.
    bool extendRows();

    // ---- look
    /// Drops selection, current cell and open editor, for a table that is about to be filled anew.
    virtual void resetEmpty();
    void resizeColumnsToHeaderContents();
    /// −1: wide enough for a number of ten digits.
    void setAllColumnWidth(int iWidth = -1);
    void setRowsHidden(int iFirstRow, int iLastRow, bool bHidden);

public slots:
    void updateView();
    void slotSectionResized(int iLogicalIndex, int iOldSize, int iNewSize);
    void slotSectionClicked(int iLogicalIndex);
    void selectInverse();
    void slotVertexSelected();
    void slotDeselectVertecies();
    void slotVertexSelection(bool bChecked);
    void turnOffSelectionRectangle();
    /// One flag per record; the flags are read before this returns and not kept. Thinned tables select the shown rows
    /// whose record is flagged.
    void setRowSelection(bool* pvRowsSelected, int iNumbOfRows);
    void setNewRowSelection(bool* pvRowsSelected, int iNumbOfRows);
    /// Nothing selected, and back to the usual selection of cells. Replaces the base class's slot.
    void clearSelection();

signals:
    void sliderMoved(int iIndex);
    void sectionResized(int iLogicalIndex, int iOldSize, int iNewSize);
    void sectionClicked(int iLogicalIndex);
    void verteciesSelected(std::vector<int> liVertecies);
    /// The user selected something.
    void tableItemSelected();
    /// The user changed the selection here (mouse, keys, selectInverse()). Not sent for selections that the program
    /// sets.
    void selectionChangedByUser();
    /// Other cells are selected, whoever did it.
    void selectedCellsChanged();

protected:
    void selectionChanged(const QItemSelection& oSelected, const QItemSelection& oDeselected) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* pEvent = nullptr) const override;
    bool edit(const QModelIndex& index, EditTrigger eTrigger, QEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void startDrag(Qt::DropActions eSupportedActions) override;
    void changeEvent(QEvent* pEvent) override;
    bool eventFilter(QObject* pqObject, QEvent* pEvent) override;
    /// Row heights and the width of the row labels from the font.
    virtual void updateMetrics();

private slots:
    void slotVerticalScrollBarChanged(int iValue);
    void slotSetNextInColumn(QWidget* pqRect);

private:
    void connectHeaders();
    void slotModelAboutToBeReset();
    void slotModelReset();
    void applySelection(const CellRuns& oCells);
    void toggleUnmirrored(const QItemSelection& oSelected);
    void copyToClipboard() const;
    void pasteFromClipboard();
    bool chooseColor(const QModelIndex& index);
    bool isColorCell(const QModelIndex& index) const;
    void moveDown();
    void paintSelectionRectangle();
    QString headerToolTip(int iColumn) const;

    QVertexItemDelegate* m_pqDelegate;
    ColorChooser m_chooseColor;
    bool m_bSelectionRectangle = false;
    bool m_bVertexSelection = false;
    bool m_bVertexHighlight = false;
    bool m_bSelecting = false;  ///< the selection is being set by the program
    bool m_bUnmirrored = false; ///< the selection is m_oUnmirrored, the selection model is empty
    CellRuns m_oUnmirrored;
    // What was selected before a reset of the model, to be selected again when the rows are still the same.
    RowRuns m_vRowsBeforeReset;
    std::vector<MatrixData*> m_vpColumnsBeforeReset; ///< compared only
    int m_iRowsBeforeReset = 0;
};

} // namespace gkBase
