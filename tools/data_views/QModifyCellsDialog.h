#pragma once

#include "CellModification.h"
#include "CellRuns.h"
#include "QVertexItemModel.h"
#include "gkBaseToolsExport.h"

#include <QDialog>
#include <QPointer>

#include <vector>

class QLabel;
class QPushButton;
class QScrollArea;
class QTimer;
class QVBoxLayout;

namespace gkBase {

class QValueChangeOnOffWidget;

/// The non-modal dialog "Modify Cell(s)": changes the selected cells of the attribute table, each attribute in its own
/// way, as one undo record. While input is made it tells how many cells change and what becomes of the first of them.
///
/// The owner hands over the selected cells whenever they change. Values are display values.
class GKBASETOOLS_EXPORT QModifyCellsDialog : public QDialog
{
    Q_OBJECT
public:
    using ModifyMethod = CellModification::Method;

    explicit QModifyCellsDialog(QWidget* pqParent = nullptr);
    ~QModifyCellsDialog() override;

    /// The cells to change, in a model that is not owned. There is one row per attribute with data cells among them;
    /// attributes that were there before keep their input. With no attribute switched on, that of iCurrentColumn (or
    /// the first) is.
    void setCells(QVertexItemModel* pqModel, const CellRuns& oCells, int iCurrentColumn = -1);

    /// The input for a table column; null when none of its cells is to be changed.
    QValueChangeOnOffWidget* valueChange(int iColumn) const;
    /// The changes that are switched on.
    QVertexItemModel::ColumnChanges changes() const;
    /// Enabled while the changes that are switched on can be applied.
    QPushButton* acceptButton() const { return m_pqAcceptButton; }

signals:
    void cellsModified();

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    struct Row
    {
        int m_iColumn = -1;
        int m_iNodeId = -1; ///< the attribute, recognized after columns have moved
        QValueChangeOnOffWidget* m_pqWidget = nullptr;
        bool m_bPreviewed = false;
        CellChange m_oPreviewed;
        int m_iChangedCells = 0;
    };

    void createLayout();
    void connectModel(QVertexItemModel* pqModel);
    void slotModelAboutToBeReset();
    std::vector<int> columnsWithCells() const;
    void updateRows();
    Row takeRow(std::vector<Row>& vRows, int iColumn);
    void fillRows();
    void placeRows();
    void chainFocus();
    /// Makes room for the rows, up to a height from which on they scroll.
    void fitRows();
    void slotInput(QValueChangeOnOffWidget* pqWidget);
    void schedulePreview(bool bAllRows);
    void updatePreview();
    void previewRow(Row& oRow);
    QString rowPreview(const Row& oRow, const ChangedCells& oChanged) const;
    QString exampleText(int iColumn, const ChangedCells& oChanged) const;
    void showState();
    void modify();

    QPointer<QVertexItemModel> m_pqModel;
    CellRuns m_oCells; ///< data cells
    std::vector<Row> m_vRows;
    CellChange m_oLastChange; ///< last input, for rows that come
    bool m_bModified = false; ///< no input since the cells were changed
    int m_iModifiedCells = 0;

    QScrollArea* m_pqScrollArea;
    QVBoxLayout* m_pqRowsLayout = nullptr;
    QLabel* m_pqStateLabel;
    QPushButton* m_pqAcceptButton;
    QPushButton* m_pqCloseButton;
    QTimer* m_pqPreviewTimer;
};

} // namespace gkBase
