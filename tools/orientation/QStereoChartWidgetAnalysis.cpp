// Rotations, clusters and bias weights of the stereonet panel.

#include "AttributeChooser.h"
#include "ColumnNumbers.h"
#include "MatrixData.h"
#include "OrientationText.h"
#include "QStereoChartWidget.h"
#include "QStereoPlotWidget.h"
#include "Rotation.h"
#include "StereoBiasPage.h"
#include "StereoClusterPage.h"
#include "StereoRotationPage.h"

#include <QApplication>
#include <QScopeGuard>

#include <algorithm>

namespace gkBase {

namespace {

/// Name of the attribute of bias weights: data, the same in every language.
constexpr char g_biasAttribute[] = "Bias Weights";
constexpr char g_clusterPrefix[] = "StereoPlot_";

/// The attribute holds the cluster of each record, and nothing where a record has none.
bool holdsClusters(const MatrixData& attribute, std::span<const int> viIDs)
{
    if (attribute.recordCount() != static_cast<int>(viIDs.size()) || !isNumericAttribute(&attribute))
        return false;
    const ColumnNumbers numbers(attribute.column(0));
    const std::span<const double> vdCells = numbers.cells();
    return std::equal(viIDs.begin(), viIDs.end(), vdCells.begin(), vdCells.end(),
                      [](int iID, double dCell) { return iID < 0 ? isMissing(dCell) : dCell == iID; });
}

} // namespace

// ---- rotations ------------------------------------------------------------------------------------------------------

void QStereoChartWidget::rotateDataToCenterPole()
{
    QRelationshipItemModel& model = *relationshipItemModel();
    const bool bLines = model.linesAreShown();
    const bool bPrincipal = m_pqRotationPage->principalToCenter();
    model.updateOrientationResults();
    const QPointF oMean = bLines ? (bPrincipal ? model.meanPrincipalDipDirection() : model.meanResultantDipDirection())
                                 : (bPrincipal ? model.meanPrincipalPlane() : model.meanResultantPole());
    if (isMissing(oMean.x()) || isMissing(oMean.y())) {
        m_pqRotationPage->showProblem(tr("The records have no mean direction"));
        return;
    }
    const Rotation oRotation =
        bLines ? rotationToVertical({oMean.x(), oMean.y()}) : rotationToHorizontal({oMean.x(), oMean.y()});
    const QString sMean = bLines ? lineText({oMean.x(), oMean.y()}) : planeText({oMean.x(), oMean.y()}, convention());
    const int iFormer = model.numberOfRotations();
    model.rotateDataToMeanPole(oMean, true, nullptr);
    if (model.numberOfRotations() == iFormer) {
        m_pqRotationPage->showProblem(tr("The mean is at the center already"));
        return;
    }
    rotateFurtherLayers(oRotation, tr("mean %1 to the center").arg(sMean));
}

void QStereoChartWidget::rotateDataAboutRotationAxis()
{
    QRelationshipItemModel& model = *relationshipItemModel();
    const LineOrientation oAxis{m_pqRotationPage->axisPlunge(), m_pqRotationPage->axisAzimuth()};
    const double dAngle = m_pqRotationPage->angle();
    const int iFormer = model.numberOfRotations();
    model.rotateDataAboutRotationAxis(nullptr, {oAxis.m_dPlunge, oAxis.m_dAzimuth}, dAngle, true);
    if (model.numberOfRotations() == iFormer) {
        m_pqRotationPage->showProblem(tr("An angle of 0 turns nothing"));
        return;
    }
    rotateFurtherLayers(Rotation(oAxis, dAngle), tr("about %1 by %2°").arg(lineText(oAxis), angleText(dAngle)));
}

/// All data sets stand in one frame: the others follow the first one.
void QStereoChartWidget::rotateFurtherLayers(const Rotation& oRotation, const QString& sText)
{
    const LineOrientation& oAxis = oRotation.axis();
    for (const LayerIndex eLayer : {Second, Lineations}) {
        QRelationshipItemModel& model = *layer(eLayer).m_pModel;
        if (model.numberOfPoints() > 0)
            model.rotateDataAboutRotationAxis(nullptr, {oAxis.m_dPlunge, oAxis.m_dAzimuth}, oRotation.angle(), false);
    }
    m_vRotations.push_back(oRotation);
    m_lRotations << sText;
    rotationsChanged();
}

void QStereoChartWidget::undoRotation()
{
    if (m_vRotations.empty())
        return;
    for (const Layer& oLayer : m_aLayers)
        oLayer.m_pModel->undoRotation();
    m_vRotations.pop_back();
    m_lRotations.removeLast();
    rotationsChanged();
}

void QStereoChartWidget::undoAllRotations()
{
    for (const Layer& oLayer : m_aLayers)
        oLayer.m_pModel->undoAllRotations();
    m_vRotations.clear();
    m_lRotations.clear();
    rotationsChanged();
}

void QStereoChartWidget::rotationsChanged()
{
    const QRelationshipItemModel& model = *relationshipItemModel();
    m_pqRotationPage->showRotations(model.numberOfValidPoints() > 0, m_lRotations);
    m_pqClusterPage->showClusters(model, convention());
    updateObservationStatistics();
    updateChart();
}

// ---- clusters -------------------------------------------------------------------------------------------------------

QString QStereoChartWidget::clusterName() const
{
    const MatrixData* poDataSet = nodeAngle() ? nodeAngle()->owner() : nullptr;
    QString sName = QLatin1String(g_clusterPrefix);
    if (poDataSet)
        sName += poDataSet->name() + QLatin1Char('_');
    return nodeAngle() ? sName + nodeAngle()->name() : sName;
}

void QStereoChartWidget::slotApplyClusterGeneration()
{
    if (!applyClusters(m_pqClusterPage->numberOfClusters()))
        m_pqClusterPage->showProblem(tr("There are no records to cluster"));
}

bool QStereoChartWidget::applyClusters(int iClusters)
{
    if (m_bReadNeeded)
        updateStereoChart();
    QRelationshipItemModel& model = *relationshipItemModel();
    const QString sName = clusterName();
    {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        const auto restoreCursor = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
        if (!model.buildClusters_KML_ForStereoProjection(sName, iClusters))
            return false;
    }
    m_iHighlightedCluster = -1;
    colorByClusters(sName);
    m_pqClusterPage->showClusters(model, convention());
    pagesAreStale();
    fillVisiblePage();
    updateChart();
    return true;
}

/// The clusters that the owner keeps as an attribute, or a copy of them, colour the points.
void QStereoChartWidget::colorByClusters(const QString& sName)
{
    QRelationshipItemModel& model = *relationshipItemModel();
    emit createClusterAttribute(sName, &model);
    if (MatrixData* poKept = attributeOfClusters(sName)) {
        setClassAttribute(true, poKept);
        m_poClusters.reset();
        fillChoosers();
        // The same attribute may hold other values now.
        model.refresh();
        showClasses();
        return;
    }
    auto poClusters = std::make_unique<MatrixData>(sName, 0, 1, QMetaType::Int);
    const std::span<const int> viIDs = model.clusterIDs();
    MatrixColumn column(QMetaType::Int, static_cast<int>(viIDs.size()));
    for (int i = 0; i < column.size(); ++i) {
        const int iCluster = viIDs[static_cast<std::size_t>(i)];
        if (iCluster >= 0)
            column.setValue(i, iCluster);
    }
    poClusters->setColumn(0, std::move(column));
    setClassAttribute(true, poClusters.get());
    m_poClusters = std::move(poClusters);
    fillChoosers();
}

MatrixData* QStereoChartWidget::attributeOfClusters(const QString& sName) const
{
    if (!m_poRoot)
        return nullptr;
    const std::span<const int> viIDs = relationshipItemModel()->clusterIDs();
    const std::vector<MatrixData*> vpLeafs = m_poRoot->leafs();
    const auto it = std::find_if(vpLeafs.begin(), vpLeafs.end(), [&](const MatrixData* poLeaf) {
        return poLeaf->name().startsWith(sName) && holdsClusters(*poLeaf, viIDs);
    });
    return it == vpLeafs.end() ? nullptr : *it;
}

// ---- bias -----------------------------------------------------------------------------------------------------------

void QStereoChartWidget::applyScanLine()
{
    QRelationshipItemModel& model = *relationshipItemModel();
    model.setScanline(m_pqBiasPage->plunge(), m_pqBiasPage->azimuth(), m_pqBiasPage->limitAngle());
    model.setBiasCorrectionOn(m_pqBiasPage->weightsAreOn() && !model.linesAreShown());
}

void QStereoChartWidget::slotScanLineChanged()
{
    m_oSettings = settings();
    applyScanLine();
    updateObservationStatistics();
    updateChart();
}

void QStereoChartWidget::slotApplyCreateBiasWeightAttribute()
{
    QRelationshipItemModel& model = *relationshipItemModel();
    if (m_bReadNeeded)
        updateStereoChart();
    if (model.linesAreShown())
        return;
    slotScanLineChanged();
    model.setBiasAttributeName(QLatin1String(g_biasAttribute));
    emit createBiasWeightAttribute(model.biasAttributeName(), &model);
}

} // namespace gkBase
