#pragma once

#include "gkBaseToolsExport.h"

#include <QWidget>

class QFrame;

namespace gkBase {

class MatrixData;
class QVertexItemModel;
class QVertexMinMaxItemModel;
class QVertexMinMaxModelTableView;
class QVertexModelTableView;

/// The table page of the analyser: the five summary rows above the attribute table, in step with each other in column
/// widths, horizontal position and column selection.
class GKBASETOOLS_EXPORT AnalyserTablePage : public QWidget
{
    Q_OBJECT
public:
    /// poRoot is not owned and may be null. bRowsCanBeExtended lets pasting and Enter append rows.
    AnalyserTablePage(MatrixData* poRoot, bool bRowsCanBeExtended, QWidget* pqParent);

    QVertexModelTableView* table() const { return m_pqTable; }
    QVertexMinMaxModelTableView* summaryTable() const { return m_pqSummaryTable; }
    QVertexItemModel* model() const { return m_pModel; }
    QVertexMinMaxItemModel* summaryModel() const { return m_pSummaryModel; }

    void setDataRoot(MatrixData* poRoot);
    /// Reads the checked attributes again; selected rows stay selected.
    void updateModels();
    void clearSelection();
    /// Brings the first selected row to the top of the table while none is seen.
    void scrollToSelectedRows();
    void setSummaryVisible(bool bVisible);

signals:
    /// A cell of one of the tables was clicked.
    void tableClicked();
    /// The user pressed the right mouse button on a table or its menu key; the position is global.
    void contextMenuRequested(const QPoint& oGlobalPos);

private:
    QFrame* newFrame(const char* pName, QWidget* pqContent);
    void connectTables();
    void alignRowLabels();

    QVertexItemModel* m_pModel;
    QVertexMinMaxItemModel* m_pSummaryModel;
    QVertexModelTableView* m_pqTable;
    QVertexMinMaxModelTableView* m_pqSummaryTable;
    QFrame* m_pqSummaryFrame;
};

} // namespace gkBase
