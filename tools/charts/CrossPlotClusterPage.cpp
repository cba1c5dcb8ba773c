#include "CrossPlotClusterPage.h"

#include "AttributeChooser.h"
#include "MatrixDataArray.h"
#include "QRelationshipItemModel.h"
#include "UnitText.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

namespace gkBase {

namespace {

constexpr int g_iTableRowsInSight = 5;

QTableWidgetItem* newCell(const QString& sText)
{
    auto* pqItem = new QTableWidgetItem(sText);
    pqItem->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return pqItem;
}

/// Name and unit in two lines, which keeps the columns of numbers narrow.
QString headerOf(const MatrixData* poAxis)
{
    if (!poAxis)
        return {};
    const QString sUnit = displayUnit(poAxis);
    return sUnit.isEmpty() ? poAxis->name() : poAxis->name() + QStringLiteral("\n[%1]").arg(sUnit);
}

} // namespace

CrossPlotClusterPage::CrossPlotClusterPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqNumberSpinBox(new QSpinBox)
    , m_pqThirdChooser(new AttributeChooser(tr("Third Dimension"), true))
    , m_pqSelectedOnlyCheckBox(new QCheckBox(tr("Selected Points Only")))
    , m_pqNameEdit(new QLineEdit)
    , m_pqApplyBtn(new QPushButton(tr("Apply")))
    , m_pqCentroidsCheckBox(new QCheckBox(tr("Show Centroids")))
    , m_pqTable(new QTableWidget)
    , m_pqResultLabel(new QLabel)
{
    createControls();
    setSettings({});
    connect(m_pqApplyBtn, &QPushButton::clicked, this, &CrossPlotClusterPage::applyWanted);
    connect(m_pqCentroidsCheckBox, &QCheckBox::clicked, this, &CrossPlotClusterPage::centroidsToggled);
}

void CrossPlotClusterPage::createControls()
{
    m_pqNumberSpinBox->setObjectName(QStringLiteral("m_pqNumberOfClustersSpinBox"));
    m_pqNumberSpinBox->setAccessibleName(tr("Number of Clusters"));
    m_pqNumberSpinBox->setRange(1, CrossPlotSettings::s_iMostClusters);
    m_pqThirdChooser->setObjectName(QStringLiteral("m_pqThirdChooser"));
    m_pqThirdChooser->setToolTip(tr("Makes clusters in space; points without a value of it are left out"));
    m_pqSelectedOnlyCheckBox->setObjectName(QStringLiteral("m_pqClustersOfSelectionCheckBox"));
    m_pqNameEdit->setObjectName(QStringLiteral("m_pqClusterNameEdit"));
    m_pqNameEdit->setAccessibleName(tr("Name"));
    m_pqNameEdit->setText(tr("Clusters"));
    m_pqNameEdit->setToolTip(tr("Name of the attribute that gets the cluster numbers"));
    m_pqApplyBtn->setObjectName(QStringLiteral("m_pqApplyClustersBtn"));
    m_pqApplyBtn->setToolTip(tr("Find the clusters by k-means. The axes count in their own units: "
                                "an attribute with larger numbers weighs more"));
    m_pqCentroidsCheckBox->setObjectName(QStringLiteral("m_pqCentroidsCheckBox"));
    m_pqTable->setObjectName(QStringLiteral("m_pqClusterTable"));
    m_pqTable->setAccessibleName(tr("Clusters"));
    m_pqTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pqTable->verticalHeader()->hide();
    m_pqTable->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_pqTable->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_pqTable->setMinimumHeight(m_pqTable->verticalHeader()->defaultSectionSize() * g_iTableRowsInSight);
    m_pqResultLabel->setTextFormat(Qt::PlainText);
    m_pqResultLabel->setWordWrap(true);
    m_pqResultLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_pqResultLabel->setObjectName(QStringLiteral("m_pqClusterResultLabel"));

    auto* pqForm = new QFormLayout;
    pqForm->addRow(tr("Clusters"), m_pqNumberSpinBox);
    pqForm->addRow(tr("Third"), m_pqThirdChooser);
    pqForm->addRow(tr("Name"), m_pqNameEdit);
    pqForm->addRow(m_pqSelectedOnlyCheckBox);
    pqForm->addRow(m_pqCentroidsCheckBox);
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addLayout(pqForm);
    pqLayout->addWidget(m_pqApplyBtn);
    pqLayout->addWidget(m_pqTable, 1);
    pqLayout->addWidget(m_pqResultLabel);
}

int CrossPlotClusterPage::numberOfClusters() const
{
    return m_pqNumberSpinBox->value();
}

void CrossPlotClusterPage::setNumberOfClusters(int iClusters)
{
    m_pqNumberSpinBox->setValue(iClusters);
}

QString CrossPlotClusterPage::clusterName() const
{
    const QString sName = m_pqNameEdit->text().trimmed();
    return sName.isEmpty() ? tr("Clusters") : sName;
}

void CrossPlotClusterPage::setClusterName(const QString& sName)
{
    m_pqNameEdit->setText(sName);
}

bool CrossPlotClusterPage::selectedOnly() const
{
    return m_pqSelectedOnlyCheckBox->isChecked();
}

void CrossPlotClusterPage::writeTo(CrossPlotSettings& settings) const
{
    settings.m_iClusters = numberOfClusters();
    settings.m_bClustersOfSelection = selectedOnly();
    settings.m_bCentroids = m_pqCentroidsCheckBox->isChecked();
}

void CrossPlotClusterPage::setSettings(const CrossPlotSettings& settings)
{
    m_pqNumberSpinBox->setValue(settings.m_iClusters);
    m_pqSelectedOnlyCheckBox->setChecked(settings.m_bClustersOfSelection);
    m_pqCentroidsCheckBox->setChecked(settings.m_bCentroids);
}

void CrossPlotClusterPage::setApplicable(bool bApplicable)
{
    m_pqApplyBtn->setEnabled(bApplicable);
}

void CrossPlotClusterPage::showProblem(const QString& sProblem)
{
    m_pqResultLabel->setText(sProblem);
}

void CrossPlotClusterPage::showClusters(const QRelationshipItemModel& model)
{
    m_pqTable->setRowCount(0);
    m_pqTable->setVisible(model.clusterCentroids() != nullptr);
    m_pqResultLabel->clear();
    if (!model.clusterCentroids())
        return;
    fillTable(model);
    const QString sDistortion = QString::number(model.clusterDistortion(), 'g', 6);
    m_pqResultLabel->setText(tr("Distortion (total of squared distances): %1").arg(sDistortion));
}

void CrossPlotClusterPage::fillTable(const QRelationshipItemModel& model)
{
    const MatrixDataArray& centroids = *model.clusterCentroids();
    const std::vector<const MatrixData*> vpAxes = {model.nodeX(), model.nodeY(), model.thirdDimAttribute()};
    const int iAxes = centroids.arrayColumns();
    QStringList lHeaders = {tr("Cluster"), tr("Points")};
    for (int iAxis = 0; iAxis < iAxes; ++iAxis) {
        const MatrixData* poAxis = vpAxes[static_cast<std::size_t>(iAxis)];
        lHeaders << headerOf(poAxis);
    }
    m_pqTable->setColumnCount(static_cast<int>(lHeaders.size()));
    m_pqTable->setHorizontalHeaderLabels(lHeaders);
    m_pqTable->setRowCount(centroids.arrayRows());
    const std::span<const std::size_t> viSizes = model.clusterSizes();
    for (int iCluster = 0; iCluster < centroids.arrayRows(); ++iCluster) {
        const auto i = static_cast<std::size_t>(iCluster);
        m_pqTable->setItem(iCluster, 0, newCell(QString::number(iCluster)));
        m_pqTable->setItem(iCluster, 1, newCell(i < viSizes.size() ? QString::number(viSizes[i]) : QString()));
        for (int iAxis = 0; iAxis < iAxes; ++iAxis) {
            const MatrixData* poAxis = vpAxes[static_cast<std::size_t>(iAxis)];
            m_pqTable->setItem(iCluster, 2 + iAxis, newCell(displayNumber(poAxis, centroids.cell(iCluster, iAxis))));
        }
    }
}

} // namespace gkBase
