// The dialogs of the analyser that select and modify cells of the table.

#include "MatrixData.h"
#include "QDataAnalyserDialog.h"
#include "QModifyCellsDialog.h"
#include "QSelectCellsDialog.h"
#include "QVertexItemModel.h"
#include "QVertexModelTableView.h"

#include <QApplication>
#include <QPushButton>

#include <algorithm>

namespace gkBase {

namespace {

/// Shows the wait cursor while it lives.
class WaitCursor
{
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace

void QDataAnalyserDialog::showSelectValueCellsDlg()
{
    if (!m_pqTablePage)
        return;
    if (!m_pqSelectCellsDialog) {
        m_pqSelectCellsDialog = new QSelectCellsDialog(this);
        m_pqSelectCellsDialog->setWindowTitle(tr("Select Cell(s)"));
        connect(m_pqSelectCellsDialog->acceptButton(), &QPushButton::clicked, this,
                &QDataAnalyserDialog::accept_SelectValueCellsDlg);
        connect(m_pqSelectCellsDialog, &QSelectCellsDialog::clearSelection, this,
                &QDataAnalyserDialog::accept_ClearSelection);
        connect(vertexItemModel(), &QAbstractItemModel::modelReset, m_pqSelectCellsDialog,
                [this] { fillSelectCellsDialog(); });
        // Other names and units: a value means what its label says.
        connect(vertexItemModel(), &QAbstractItemModel::headerDataChanged, m_pqSelectCellsDialog,
                [this] { fillSelectCellsDialog(); });
        connect(vertexTable()->selectionModel(), &QItemSelectionModel::currentColumnChanged, m_pqSelectCellsDialog,
                [this] { fillSelectCellsDialog(); });
    }
    fillSelectCellsDialog();
    m_pqSelectCellsDialog->show();
    m_pqSelectCellsDialog->raise();
    m_pqSelectCellsDialog->activateWindow();
}

int QDataAnalyserDialog::selectCellsColumn() const
{
    return std::max(vertexTable()->currentIndex().column(), 0);
}

void QDataAnalyserDialog::fillSelectCellsDialog()
{
    const QVertexItemModel* pModel = vertexItemModel();
    QStringList lNames;
    for (int i = 0; i < pModel->columnCount(); ++i)
        lNames << pModel->headerData(i, Qt::Horizontal).toString();
    m_pqSelectCellsDialog->setColumns(lNames);

    const MatrixData* poNode = pModel->getNode(selectCellsColumn());
    if (poNode)
        m_pqSelectCellsDialog->setAttribute(poNode->name(), poNode->type(), poNode->unitManager());
}

void QDataAnalyserDialog::accept_SelectValueCellsDlg()
{
    if (!m_pqSelectCellsDialog)
        return;
    const WaitCursor waitCursor;
    markSelectionChanged();
    QVertexModelTableView* pqTable = vertexTable();
    pqTable->turnOffSelectionRectangle();
    const QSelectCellsDialog& dialog = *m_pqSelectCellsDialog;
    if (dialog.isColumnSelection())
        pqTable->selectColumnCells(dialog.columnFrom(), dialog.columnTo(), dialog.keepPreviousSelection());
    else
        pqTable->selectCells(dialog.value1(), dialog.value2(), dialog.method(), dialog.isRowSelection(),
                             dialog.keepPreviousSelection(), selectCellsColumn());
    checkResetChartsUpdateNeeded();
}

void QDataAnalyserDialog::showModifyCellsDlg()
{
    if (!m_pqTablePage)
        return;
    if (!m_pqModifyCellsDialog) {
        m_pqModifyCellsDialog = new QModifyCellsDialog(this);
        connect(vertexTable(), &QVertexModelTableView::selectedCellsChanged, m_pqModifyCellsDialog, [this] {
            if (m_pqModifyCellsDialog->isVisible())
                fillModifyCellsDialog();
        });
    }
    fillModifyCellsDialog();
    m_pqModifyCellsDialog->show();
    m_pqModifyCellsDialog->raise();
    m_pqModifyCellsDialog->activateWindow();
}

void QDataAnalyserDialog::fillModifyCellsDialog()
{
    m_pqModifyCellsDialog->setCells(vertexItemModel(), vertexTable()->selectedCells(),
                                    vertexTable()->currentIndex().column());
}

} // namespace gkBase
