#include "StereoWoodcockPage.h"

#include "MissingValue.h"
#include "OrientationText.h"
#include "QWoodcockHelpWidget.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace gkBase {

namespace {

enum Column
{
    NameColumn,
    CountColumn,
    LnS1S2Column,
    LnS2S3Column,
    KColumn,
    CColumn,
    Columns
};

constexpr int g_iDecimals = 2;
constexpr int g_iSmallestDiagram = 200;
constexpr int g_iRowsInSight = 5;

QTableWidgetItem* newCell(const QString& sText, const QString& sToolTip)
{
    auto* pqItem = new QTableWidgetItem(sText);
    pqItem->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    pqItem->setToolTip(sToolTip.toHtmlEscaped());
    return pqItem;
}

} // namespace

StereoWoodcockPage::StereoWoodcockPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqDiagram(new QWoodcockHelpWidget)
    , m_pqTable(new QTableWidget)
    , m_pqReasonLabel(new QLabel)
    , m_pqCopyBtn(new QPushButton(tr("Copy Table")))
{
    createControls();
    connect(m_pqTable, &QTableWidget::itemSelectionChanged, this, &StereoWoodcockPage::slotRowSelected);
    connect(m_pqDiagram, &QWoodcockHelpWidget::pointClicked, this, &StereoWoodcockPage::slotPointClicked);
    connect(m_pqCopyBtn, &QPushButton::clicked, this, &StereoWoodcockPage::copyToClipboard);
    showNothing(tr("No orientations are shown."));
}

void StereoWoodcockPage::createControls()
{
    m_pqDiagram->setObjectName(QStringLiteral("m_pqWoodcockDiagram"));
    m_pqDiagram->setMinimumSize(g_iSmallestDiagram, g_iSmallestDiagram);
    m_pqTable->setObjectName(QStringLiteral("m_pqWoodcockTable"));
    m_pqTable->setAccessibleName(tr("Shapes of Clusters"));
    m_pqTable->setColumnCount(Columns);
    m_pqTable->setHorizontalHeaderLabels(
        {tr("Cluster"), tr("n"), tr("ln(S1/\nS2)"), tr("ln(S2/\nS3)"), tr("K"), tr("C")});
    const QString asToolTips[Columns] = {tr("Subset of the records"),
                                         tr("Number of records"),
                                         tr("Largest to middle eigenvalue"),
                                         tr("Middle to smallest eigenvalue"),
                                         tr("Shape: above 1 a cluster, below 1 a girdle"),
                                         tr("Strength ln(S1/S3) of the preferred orientation")};
    for (int i = 0; i < Columns; ++i)
        m_pqTable->horizontalHeaderItem(i)->setToolTip(asToolTips[i]);
    m_pqTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pqTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pqTable->setSelectionMode(QAbstractItemView::SingleSelection);
    m_pqTable->setTabKeyNavigation(false);
    m_pqTable->verticalHeader()->hide();
    m_pqTable->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_pqTable->horizontalHeader()->setMinimumSectionSize(20);
    m_pqTable->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_pqTable->horizontalHeader()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    m_pqTable->setMinimumHeight(m_pqTable->verticalHeader()->defaultSectionSize() * g_iRowsInSight);
    m_pqReasonLabel->setObjectName(QStringLiteral("m_pqWoodcockReasonLabel"));
    m_pqReasonLabel->setTextFormat(Qt::PlainText);
    m_pqReasonLabel->setWordWrap(true);
    m_pqCopyBtn->setObjectName(QStringLiteral("m_pqCopyWoodcockBtn"));
    m_pqCopyBtn->setAccessibleName(tr("Copy Table of Shapes"));
    m_pqCopyBtn->setToolTip(tr("Copy the table, separated by tabs; the menu of the diagram copies the picture"));

    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(m_pqDiagram);
    pqLayout->addWidget(m_pqReasonLabel);
    pqLayout->addWidget(m_pqTable, 1);
    pqLayout->addWidget(m_pqCopyBtn, 0, Qt::AlignLeft);
}

// ---- contents ------------------------------------------------------------------------------------------------------

void StereoWoodcockPage::showNothing(const QString& sReason)
{
    showShapes({});
    m_pqReasonLabel->setText(sReason);
    m_pqReasonLabel->setVisible(!sReason.isEmpty());
}

void StereoWoodcockPage::showShapes(std::span<const ClusterShape> vShapes)
{
    const int iCurrent = currentShape();
    const QString sCurrent = iCurrent < 0 ? QString() : m_vShapes[static_cast<std::size_t>(iCurrent)].m_sName;
    m_vShapes.assign(vShapes.begin(), vShapes.end());
    m_pqDiagram->resetPoints();
    for (const ClusterShape& shape : m_vShapes) {
        // An unbounded ratio has no place in the diagram: the 0 that stands for it would make a girdle uniform.
        const bool bDrawn = shapeIsDefined(shape);
        m_pqDiagram->addPoint(bDrawn ? shape.m_oParameters.m_dLnS2S3 : g_dMissingValue,
                              bDrawn ? shape.m_oParameters.m_dLnS1S2 : g_dMissingValue, shape.m_iSymbol, shape.m_oColor,
                              shape.m_sName);
    }
    m_pqReasonLabel->hide();
    m_pqCopyBtn->setEnabled(!m_vShapes.empty());
    fillTable();
    const auto it = std::find_if(m_vShapes.begin(), m_vShapes.end(),
                                 [&sCurrent](const ClusterShape& shape) { return shape.m_sName == sCurrent; });
    setCurrentShape(iCurrent < 0 || it == m_vShapes.end() ? -1 : static_cast<int>(it - m_vShapes.begin()));
}

void StereoWoodcockPage::fillTable()
{
    const QSignalBlocker blocker(m_pqTable);
    m_pqTable->setRowCount(0);
    m_pqTable->setRowCount(static_cast<int>(m_vShapes.size()));
    int iRow = 0;
    for (const ClusterShape& shape : m_vShapes) {
        auto* pqName = new QTableWidgetItem(shape.m_sName);
        int iSymbol = shape.m_iSymbol;
        pqName->setIcon(QIcon(m_pqDiagram->getSymbolPixmap(iSymbol, shape.m_oColor, true)));
        m_pqTable->setItem(iRow, NameColumn, pqName);
        m_pqTable->setItem(iRow, CountColumn, newCell(QString::number(shape.m_iCount), {}));
        const ShapeTexts texts = shapeTexts(shape, g_iDecimals);
        m_pqTable->setItem(iRow, LnS1S2Column, newCell(texts.m_sLnS1S2, texts.m_sReason));
        m_pqTable->setItem(iRow, LnS2S3Column, newCell(texts.m_sLnS2S3, texts.m_sReason));
        m_pqTable->setItem(iRow, KColumn, newCell(texts.m_sK, texts.m_sReason));
        m_pqTable->setItem(iRow, CColumn, newCell(texts.m_sC, texts.m_sReason));
        ++iRow;
    }
}

// ---- the current shape ---------------------------------------------------------------------------------------------

int StereoWoodcockPage::currentShape() const
{
    const QList<QTableWidgetItem*> lpqSelected = m_pqTable->selectedItems();
    return lpqSelected.isEmpty() ? -1 : lpqSelected.first()->row();
}

void StereoWoodcockPage::setCurrentShape(int iShape)
{
    const QSignalBlocker blocker(m_pqTable);
    if (iShape < 0 || iShape >= m_pqTable->rowCount())
        m_pqTable->clearSelection();
    else
        m_pqTable->selectRow(iShape);
    highlight(currentShape());
}

void StereoWoodcockPage::highlight(int iShape)
{
    const ClusterShape* pShape = iShape < 0 ? nullptr : &m_vShapes[static_cast<std::size_t>(iShape)];
    if (pShape && shapeIsDefined(*pShape))
        m_pqDiagram->setCurrentPoint(pShape->m_oParameters.m_dLnS2S3, pShape->m_oParameters.m_dLnS1S2);
    else
        m_pqDiagram->clearCurrentPoint();
}

void StereoWoodcockPage::slotRowSelected()
{
    highlight(currentShape());
    emit shapeChosen(currentShape());
}

void StereoWoodcockPage::slotPointClicked(int iPoint)
{
    if (iPoint == currentShape())
        return;
    setCurrentShape(iPoint);
    emit shapeChosen(iPoint);
}

// ---- copies --------------------------------------------------------------------------------------------------------

QString StereoWoodcockPage::text() const
{
    if (m_vShapes.empty())
        return {};
    QString sText = QStringLiteral("%1\t%2\tln(S1/S2)\tln(S2/S3)\tK\tC\n").arg(tr("Cluster"), tr("n"));
    for (int iRow = 0; iRow < m_pqTable->rowCount(); ++iRow) {
        for (int iColumn = 0; iColumn < Columns; ++iColumn) {
            sText += m_pqTable->item(iRow, iColumn)->text();
            sText += QLatin1Char(iColumn + 1 < Columns ? '\t' : '\n');
        }
    }
    return sText;
}

void StereoWoodcockPage::copyToClipboard()
{
    QApplication::clipboard()->setText(text());
}

} // namespace gkBase
