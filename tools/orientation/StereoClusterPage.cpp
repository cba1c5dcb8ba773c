#include "StereoClusterPage.h"

#include "ChartPanelControls.h"
#include "MatrixData.h"
#include "MatrixDataArray.h"
#include "QIntSpinBoxWithSlider.h"
#include "QRelationshipItemModel.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace gkBase {

namespace {

constexpr int g_iTableRowsInSight = 5;
constexpr int g_iFirstClusters = 3;

enum ClusterTableColumn
{
    NumberColumn,
    CountColumn,
    MeanColumn,
    NumberOfTableColumns
};

QTableWidgetItem* newCell(const QString& sText)
{
    auto* pqItem = new QTableWidgetItem(sText);
    pqItem->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return pqItem;
}

} // namespace

StereoClusterPage::StereoClusterPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqNumberSpinBox(
          new QIntSpinBoxWithSlider(1, StereoChartSettings::s_iMostClusters, StereoChartSettings::s_iMostClusters - 1))
    , m_pqApplyBtn(new QPushButton(tr("Apply")))
    , m_pqPoleCentroidsCheckBox(newCheckBox(tr("Pole Centroids"), tr("Mark the centers of the clusters of poles"),
                                            "m_pqPoleCentroidsCheckBox"))
    , m_pqAzimuthCentroidsCheckBox(newCheckBox(tr("Azimuth Centroids"),
                                               tr("Mark the centers of the clusters as lines (of planes: dip lines)"),
                                               "m_pqAzimuthCentroidsCheckBox"))
    , m_pqTable(new QTableWidget)
    , m_pqResultLabel(new QLabel)
{
    m_pqNumberSpinBox->setObjectName(QStringLiteral("m_pqNumberOfClustersSpinBox"));
    m_pqNumberSpinBox->setControlName(tr("Number of Clusters"));
    m_pqNumberSpinBox->setToolTip(tr("Number of sets that the records are divided into"));
    m_pqNumberSpinBox->setValue(g_iFirstClusters);
    m_pqApplyBtn->setObjectName(QStringLiteral("m_pqApplyClustersBtn"));
    m_pqApplyBtn->setToolTip(tr("Find the clusters by k-means of axes, color the points by them and write them as an "
                                "attribute"));
    createTable();
    m_pqResultLabel->setTextFormat(Qt::PlainText);
    m_pqResultLabel->setWordWrap(true);
    m_pqResultLabel->setObjectName(QStringLiteral("m_pqClusterResultLabel"));

    auto* pqForm = new QFormLayout;
    pqForm->addRow(tr("Clusters"), m_pqNumberSpinBox);
    pqForm->addRow(m_pqPoleCentroidsCheckBox);
    pqForm->addRow(m_pqAzimuthCentroidsCheckBox);
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addLayout(pqForm);
    pqLayout->addWidget(m_pqApplyBtn);
    pqLayout->addWidget(m_pqTable, 1);
    pqLayout->addWidget(m_pqResultLabel);
    pqLayout->addStretch();
    setSettings({});
    setApplicable(false);

    connect(m_pqApplyBtn, &QPushButton::clicked, this, &StereoClusterPage::applyWanted);
    connect(m_pqTable, &QTableWidget::cellClicked, this, [this](int iCluster) {
        emit clusterClicked(iCluster, QGuiApplication::keyboardModifiers() & Qt::ControlModifier);
    });
    for (QCheckBox* pqBox : {m_pqPoleCentroidsCheckBox, m_pqAzimuthCentroidsCheckBox})
        connect(pqBox, &QCheckBox::clicked, this, &StereoClusterPage::centroidsToggled);
}

void StereoClusterPage::createTable()
{
    m_pqTable->setObjectName(QStringLiteral("m_pqClusterTable"));
    m_pqTable->setAccessibleName(tr("Clusters"));
    m_pqTable->setToolTip(tr("Mean orientations in degrees. Click a cluster to select its records; Ctrl adds them"));
    m_pqTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pqTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pqTable->setColumnCount(NumberOfTableColumns);
    m_pqTable->verticalHeader()->hide();
    m_pqTable->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_pqTable->horizontalHeader()->setStretchLastSection(true);
    m_pqTable->setMinimumHeight(m_pqTable->verticalHeader()->defaultSectionSize() * g_iTableRowsInSight);
    m_pqTable->hide();
}

int StereoClusterPage::numberOfClusters() const
{
    return m_pqNumberSpinBox->getValue();
}

void StereoClusterPage::writeTo(StereoChartSettings& settings) const
{
    settings.m_iClusters = numberOfClusters();
    settings.m_oNet.m_bPoleCentroids = m_pqPoleCentroidsCheckBox->isChecked();
    settings.m_oNet.m_bAzimuthCentroids = m_pqAzimuthCentroidsCheckBox->isChecked();
}

void StereoClusterPage::setSettings(const StereoChartSettings& settings)
{
    m_pqNumberSpinBox->setValue(settings.m_iClusters);
    m_pqPoleCentroidsCheckBox->setChecked(settings.m_oNet.m_bPoleCentroids);
    m_pqAzimuthCentroidsCheckBox->setChecked(settings.m_oNet.m_bAzimuthCentroids);
}

void StereoClusterPage::setApplicable(bool bApplicable)
{
    m_pqApplyBtn->setEnabled(bApplicable);
}

void StereoClusterPage::showProblem(const QString& sProblem)
{
    m_pqResultLabel->setText(sProblem);
}

void StereoClusterPage::showClusters(const QRelationshipItemModel& model, OrientationConvention eConvention)
{
    m_pqTable->setRowCount(0);
    m_pqTable->setVisible(model.clusterCentroids() != nullptr);
    m_pqResultLabel->clear();
    if (!model.clusterCentroids())
        return;
    fillTable(model, eConvention);
    m_pqResultLabel->setText(model.isRotated()
                                 ? tr("Clusters of the rotated records: %1").arg(model.clusterAttributeName())
                                 : tr("Attribute: %1").arg(model.clusterAttributeName()));
}

std::vector<QColor> StereoClusterPage::clusterColors(const QRelationshipItemModel& model)
{
    std::vector<QColor> voColors(model.clusterSizes().size());
    if (!model.colorAttribute() || !model.colorAttribute()->name().startsWith(model.clusterAttributeName()))
        return voColors;
    std::size_t iFound = 0;
    const std::span<const int> viIDs = model.clusterIDs();
    for (std::size_t i = 0; i < viIDs.size() && iFound < voColors.size(); ++i) {
        if (viIDs[i] < 0 || voColors[static_cast<std::size_t>(viIDs[i])].isValid())
            continue;
        model.getColor(static_cast<int>(i), voColors[static_cast<std::size_t>(viIDs[i])]);
        ++iFound;
    }
    return voColors;
}

void StereoClusterPage::fillTable(const QRelationshipItemModel& model, OrientationConvention eConvention)
{
    const MatrixDataArray& centroids = *model.clusterCentroids();
    const bool bLines = model.linesAreShown();
    m_pqTable->setHorizontalHeaderLabels(
        {tr("Cluster"), tr("Records"), bLines ? lineHeader() : planeHeader(eConvention)});
    m_pqTable->setRowCount(centroids.arrayRows());
    const std::span<const std::size_t> viSizes = model.clusterSizes();
    const std::vector<QColor> voColors = clusterColors(model);
    for (int iCluster = 0; iCluster < centroids.arrayRows(); ++iCluster) {
        const auto i = static_cast<std::size_t>(iCluster);
        QTableWidgetItem* pqNumber = newCell(QString::number(iCluster));
        if (i < voColors.size() && voColors[i].isValid())
            pqNumber->setData(Qt::DecorationRole, voColors[i]);
        const double dAngle = centroids.cell(iCluster, 0);
        const double dAzimuth = centroids.cell(iCluster, 1);
        m_pqTable->setItem(iCluster, NumberColumn, pqNumber);
        m_pqTable->setItem(iCluster, CountColumn,
                           newCell(i < viSizes.size() ? QString::number(viSizes[i]) : QString()));
        m_pqTable->setItem(iCluster, MeanColumn,
                           newCell(bLines ? lineText({dAngle, dAzimuth}) : planeText({dAngle, dAzimuth}, eConvention)));
    }
}

} // namespace gkBase
