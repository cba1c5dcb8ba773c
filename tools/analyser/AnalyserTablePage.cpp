#include "AnalyserTablePage.h"

#include "QVertexItemModel.h"
#include "QVertexMinMaxItemModel.h"
#include "QVertexMinMaxModelTableView.h"
#include "QVertexModelTableView.h"
#include "RowRuns.h"

#include <QFrame>
#include <QHeaderView>
#include <QVBoxLayout>

#include <algorithm>

namespace gkBase {

AnalyserTablePage::AnalyserTablePage(MatrixData* poRoot, bool bRowsCanBeExtended, QWidget* pqParent)
    : QWidget(pqParent)
    , m_pModel(new QVertexItemModel(this, poRoot, -1))
    , m_pSummaryModel(new QVertexMinMaxItemModel(this, poRoot, -1))
    , m_pqTable(new QVertexModelTableView(this))
    , m_pqSummaryTable(new QVertexMinMaxModelTableView(this))
{
    m_pModel->setRowsCanBeExtended(bRowsCanBeExtended);
    m_pqTable->setModel(m_pModel);
    m_pqTable->setAccessibleName(tr("Attribute table"));
    m_pqTable->setContextMenuPolicy(Qt::CustomContextMenu);
    m_pqSummaryTable->setModel(m_pSummaryModel);
    m_pqSummaryTable->setAccessibleName(tr("Summary of the attributes"));
    m_pqSummaryTable->setContextMenuPolicy(Qt::CustomContextMenu);

    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->setSpacing(2);
    m_pqSummaryFrame = newFrame("VertexMinMaxTableFrame", m_pqSummaryTable);
    m_pqSummaryFrame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    pqLayout->addWidget(m_pqSummaryFrame);
    pqLayout->addWidget(newFrame("VertexTableFrame", m_pqTable), 1);

    connectTables();
    updateModels();
}

QFrame* AnalyserTablePage::newFrame(const char* pName, QWidget* pqContent)
{
    auto* pqFrame = new QFrame(this);
    pqFrame->setObjectName(QLatin1String(pName));
    auto* pqLayout = new QVBoxLayout(pqFrame);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->addWidget(pqContent);
    return pqFrame;
}

void AnalyserTablePage::connectTables()
{
    QVertexModelTableView* const tables[] = {m_pqTable, m_pqSummaryTable};
    for (int i = 0; i < 2; ++i) {
        QVertexModelTableView* pqTable = tables[i];
        QVertexModelTableView* pqOther = tables[1 - i];
        connect(pqTable, &QVertexModelTableView::sectionResized, pqOther, &QVertexModelTableView::slotSectionResized);
        // The other table first forgets what it had selected and then selects the same column.
        connect(pqTable, &QVertexModelTableView::sectionClicked, pqOther, [pqOther] { pqOther->clearSelection(); });
        connect(pqTable, &QVertexModelTableView::sectionClicked, pqOther, &QVertexModelTableView::slotSectionClicked);
        connect(pqTable, &QAbstractItemView::clicked, pqOther, [pqOther] { pqOther->clearSelection(); });
        connect(pqTable, &QAbstractItemView::clicked, this, &AnalyserTablePage::tableClicked);
        connect(pqTable, &QWidget::customContextMenuRequested, this, [this, pqTable](const QPoint& oPos) {
            emit contextMenuRequested(pqTable->viewport()->mapToGlobal(oPos));
        });
    }
    connect(m_pqTable, &QVertexModelTableView::sliderMoved, m_pqSummaryTable,
            &QVertexMinMaxModelTableView::slotSliderMoved);
    connect(m_pModel, &QAbstractItemModel::modelReset, this, &AnalyserTablePage::alignRowLabels);
    connect(m_pSummaryModel, &QAbstractItemModel::modelReset, this, &AnalyserTablePage::alignRowLabels);
}

void AnalyserTablePage::alignRowLabels()
{
    // Each view fixes the width that its own labels need.
    const int iWidth =
        std::max(m_pqTable->verticalHeader()->minimumWidth(), m_pqSummaryTable->verticalHeader()->minimumWidth());
    m_pqTable->verticalHeader()->setFixedWidth(iWidth);
    m_pqSummaryTable->verticalHeader()->setFixedWidth(iWidth);
}

void AnalyserTablePage::setDataRoot(MatrixData* poRoot)
{
    m_pModel->setDataRoot(poRoot);
    m_pSummaryModel->setDataRoot(poRoot);
    updateModels();
}

void AnalyserTablePage::updateModels()
{
    m_pModel->updateModel(m_pModel->filterStepSize(), {});
    m_pSummaryModel->updateModel(-1, {});
    alignRowLabels();
}

void AnalyserTablePage::clearSelection()
{
    m_pqTable->clearSelection();
    m_pqSummaryTable->clearSelection();
}

void AnalyserTablePage::scrollToSelectedRows()
{
    const RowRuns vRows = m_pqTable->selectedCells().fullRows();
    if (vRows.empty())
        return;
    const int iFirst = std::max(m_pqTable->rowAt(0), 0);
    const int iLast = m_pqTable->rowAt(m_pqTable->viewport()->height() - 1);
    const RowRun seen{iFirst, iLast < 0 ? m_pModel->rowCount() - 1 : iLast};
    if (intersectedRuns(vRows, {seen}).empty())
        m_pqTable->scrollTo(m_pModel->index(vRows.front().iFirst, std::max(m_pqTable->columnAt(0), 0)),
                            QAbstractItemView::PositionAtTop);
}

void AnalyserTablePage::setSummaryVisible(bool bVisible)
{
    m_pqSummaryFrame->setVisible(bVisible);
}

} // namespace gkBase
