// Which data sets and attributes the stereonet panel shows, and which of their records are selected.

#include "AngleUnits.h"
#include "ClassLegends.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "PolarChartFrame.h"
#include "QStereoChartWidget.h"
#include "QStereoPlotWidget.h"
#include "StereoBiasPage.h"
#include "StereoClusterPage.h"
#include "StereoDataGroup.h"
#include "StereoNetPage.h"
#include "StereoPointPage.h"
#include "StereoResultPage.h"
#include "StereoRotationPage.h"
#include "StereoWoodcockPage.h"
#include "UnitManager.h"

#include <algorithm>
#include <numeric>
#include <unordered_set>
#include <utility>

namespace gkBase {

namespace {

std::vector<AttributeEntry> orientationDataSets(const MatrixData* poRoot)
{
    std::vector<AttributeEntry> vEntries;
    if (!poRoot)
        return vEntries;
    QList<QString> lNames;
    QList<int> liIDs;
    QList<QColor> lColors;
    poRoot->getDataSetSelectionBoxItems(lNames, liIDs, lColors, MatrixData::DipAndAzimuth, false);
    for (qsizetype i = 0; i < liIDs.size(); ++i) {
        if (MatrixData* poDataSet = poRoot->nodeFromID(liIDs.at(i)))
            vEntries.push_back({poDataSet, lNames.at(i), dataSetRecords(poDataSet->dipAttribute())});
    }
    return vEntries;
}

/// The attributes are those of lines by their names: a plunge, or an angle with a trend.
bool areOfLines(const MatrixData* poAngle, const MatrixData* poAzimuth)
{
    const auto isNamed = [](const MatrixData* poNode, const char* pWord) {
        return poNode && poNode->name().contains(QLatin1String(pWord), Qt::CaseInsensitive);
    };
    return isNamed(poAngle, "plunge") || isNamed(poAzimuth, "trend");
}

MatrixData* dataSetOf(const MatrixData* poAttribute)
{
    return poAttribute ? poAttribute->owner() : nullptr;
}

/// All that can be chosen and lies in a branch: its attributes and data sets.
std::unordered_set<int> identifiers(MatrixData* poBranch)
{
    std::unordered_set<int> iGlobalIDs{poBranch->globalID()};
    for (const MatrixData* poLeaf : poBranch->leafs()) {
        iGlobalIDs.insert(poLeaf->globalID());
        if (const MatrixData* poOwner = poLeaf->owner(); MatrixDataNotifier::contains(poBranch, poOwner))
            iGlobalIDs.insert(poOwner->globalID());
    }
    return iGlobalIDs;
}

} // namespace

// ---- root and choosers ----------------------------------------------------------------------------------------------

void QStereoChartWidget::setDataRoot(MatrixData* poRoot)
{
    if (poRoot != m_poRoot) {
        if (m_poRoot)
            m_poRoot->notifier()->disconnect(this);
        slotRootAboutToBeDestroyed();
        m_poRoot = poRoot;
        for (const Layer& oLayer : m_aLayers)
            oLayer.m_pModel->setDataRoot(poRoot);
        if (m_poRoot) {
            const MatrixDataNotifier* pqNotifier = m_poRoot->notifier();
            connect(pqNotifier, &MatrixDataNotifier::nodeAboutToBeRemoved, this,
                    &QStereoChartWidget::slotNodeAboutToBeRemoved);
            connect(pqNotifier, &MatrixDataNotifier::rootAboutToBeDestroyed, this,
                    &QStereoChartWidget::slotRootAboutToBeDestroyed);
        }
    }
    updateDataSetSelectionBox();
}

void QStereoChartWidget::updateDataSetSelectionBox()
{
    fillChoosers();
    const bool bNewChoice = !nodeAngle();
    takeWanted();
    if (bNewChoice && nodeAngle() && isVisible())
        updateStereoChart();
}

void QStereoChartWidget::fillChoosers()
{
    std::vector<AttributeEntry> vEntries = attributeEntries(m_poRoot);
    const int iRecords = dataSetRecords(nodeAngle() ? nodeAngle() : nodeAzimuth());
    m_pqDataGroup->setDataSets(orientationDataSets(m_poRoot));
    m_pqDataGroup->setAttributes(vEntries, iRecords);
    if (m_poClusters)
        vEntries.push_back({m_poClusters.get(), m_poClusters->name(), m_poClusters->recordCount()});
    m_pqPointPage->setEntries(vEntries, iRecords);
    showChosen();
}

void QStereoChartWidget::showChosen()
{
    m_pqDataGroup->choose(StereoRole::DataSet, dataSetOf(nodeAngle()));
    m_pqDataGroup->choose(StereoRole::Angle, nodeAngle());
    m_pqDataGroup->choose(StereoRole::Azimuth, nodeAzimuth());
    using Records = StereoChartSettings::Records;
    m_pqDataGroup->showAutomatic(!nodeAngle()                             ? Records::Automatic
                                 : areOfLines(nodeAngle(), nodeAzimuth()) ? Records::Lines
                                                                          : Records::Planes);
    m_pqDataGroup->choose(StereoRole::SecondDataSet, dataSetOf(layer(Second).m_poAngle.get()));
    m_pqDataGroup->choose(StereoRole::Lineations, dataSetOf(layer(Lineations).m_poAngle.get()));
    m_pqPointPage->chooseColor(relationshipItemModel()->colorAttribute());
    m_pqPointPage->chooseSymbol(relationshipItemModel()->symbolAttribute());
}

MatrixData* QStereoChartWidget::node(int iGlobalID) const
{
    if (m_poClusters && m_poClusters->globalID() == iGlobalID)
        return m_poClusters.get();
    return m_poRoot ? m_poRoot->nodeFromID(iGlobalID) : nullptr;
}

void QStereoChartWidget::slotNodeChosen(StereoRole eRole, int iGlobalID)
{
    MatrixData* poNode = node(iGlobalID);
    switch (eRole) {
    case StereoRole::DataSet:
        chooseDataSet(poNode);
        break;
    case StereoRole::Angle:
        // As many records do not make one data set: the azimuths of another one belong to other records.
        if (dataSetOf(poNode) && dataSetOf(poNode) == dataSetOf(nodeAzimuth()))
            chooseAttributes(poNode, nodeAzimuth());
        else
            chooseAttributes(poNode, dataSetOf(poNode) ? dataSetOf(poNode)->azimuthAttribute() : nullptr);
        break;
    case StereoRole::Azimuth:
        chooseAttributes(nodeAngle(), poNode);
        break;
    case StereoRole::SecondDataSet:
        setSecondDataSet(poNode);
        return;
    case StereoRole::Lineations:
        setLineationDataSet(poNode);
        return;
    }
    emit dataSetSelected();
    // An owner reads again on the signal, with the rows that it knows; once is enough.
    if (m_bReadNeeded)
        updateStereoChart();
}

// ---- attributes -----------------------------------------------------------------------------------------------------

void QStereoChartWidget::setDataSet(MatrixData* poData)
{
    chooseDataSet(poData);
    updateStereoChart();
}

void QStereoChartWidget::chooseDataSet(MatrixData* poData)
{
    const MatrixData* poDataSet = poData && poData->isAttribute() ? poData->owner() : poData;
    chooseAttributes(poDataSet ? poDataSet->dipAttribute() : nullptr,
                     poDataSet ? poDataSet->azimuthAttribute() : nullptr);
}

void QStereoChartWidget::setAttributes(MatrixData* poAngle, MatrixData* poAzimuth, bool bLines)
{
    chooseAttributes(poAngle, poAzimuth);
    if (linesWanted() != bLines) {
        using Records = StereoChartSettings::Records;
        StereoChartSettings wanted = settings();
        wanted.m_eRecords = areOfLines(poAngle, poAzimuth) == bLines ? Records::Automatic
                            : bLines                                 ? Records::Lines
                                                                     : Records::Planes;
        m_pqDataGroup->setSettings(wanted);
        m_bReadNeeded = true;
    }
    updateStereoChart();
}

void QStereoChartWidget::chooseAttributes(MatrixData* poAngle, MatrixData* poAzimuth)
{
    Layer& first = layer(First);
    if (poAngle || poAzimuth)
        m_oWanted.forgetOrientations();
    if (nodeAngle() == poAngle && nodeAzimuth() == poAzimuth)
        return;
    const int iFormerRecords = dataSetRecords(nodeAngle() ? nodeAngle() : nodeAzimuth());
    first.m_poAngle = MatrixDataPointer(poAngle);
    first.m_poAzimuth = MatrixDataPointer(poAzimuth);
    m_bReadNeeded = true;
    first.m_pModel->clearClusters();
    if (dataSetRecords(poAngle ? poAngle : poAzimuth) != iFormerRecords) {
        // What belongs to other records says nothing about these points.
        setClassAttribute(true, nullptr);
        setClassAttribute(false, nullptr);
        m_poClusters.reset();
        fillChoosers();
        takeWantedClasses();
    }
    showChosen();
}

void QStereoChartWidget::setSecondDataSet(MatrixData* poDataSet)
{
    m_oWanted.m_sSecondDataSet.clear();
    chooseFurtherDataSet(Second, poDataSet);
}

void QStereoChartWidget::setLineationDataSet(MatrixData* poDataSet)
{
    m_oWanted.m_sLineations.clear();
    chooseFurtherDataSet(Lineations, poDataSet);
}

void QStereoChartWidget::chooseFurtherDataSet(LayerIndex eLayer, MatrixData* poDataSet)
{
    assignFurtherDataSet(eLayer, poDataSet);
    readFurtherLayer(eLayer);
    showChosen();
    showWhatApplies();
    updateChart();
}

/// Reads nothing.
void QStereoChartWidget::assignFurtherDataSet(LayerIndex eLayer, MatrixData* poDataSet)
{
    Layer& further = layer(eLayer);
    further.m_poAngle = MatrixDataPointer(poDataSet ? poDataSet->dipAttribute() : nullptr);
    further.m_poAzimuth = MatrixDataPointer(poDataSet ? poDataSet->azimuthAttribute() : nullptr);
}

void QStereoChartWidget::setColorAttribute(MatrixData* poAttribute)
{
    m_oWanted.m_sColorAttribute.clear();
    setClassAttribute(true, poAttribute);
}

void QStereoChartWidget::setSymbolAttribute(MatrixData* poAttribute)
{
    m_oWanted.m_sSymbolAttribute.clear();
    setClassAttribute(false, poAttribute);
}

void QStereoChartWidget::setClassAttribute(bool bColor, MatrixData* poAttribute)
{
    QRelationshipItemModel& model = *relationshipItemModel();
    if (poAttribute == (bColor ? model.colorAttribute() : model.symbolAttribute()))
        return;
    if (bColor) {
        // The bounds of a colour map belong to the attribute that they were made for.
        model.setColorMap(g_dMissingValue, g_dMissingValue, g_dMissingValue, m_pqPointPage->colorMap().m_bRedToBlue);
        model.setColorAttribute(poAttribute);
    } else {
        model.setSymbolAttribute(poAttribute);
    }
    showChosen();
    showClasses();
    m_pqClusterPage->showClusters(model, convention());
    m_bWoodcockStale = true;
    fillVisiblePage();
    m_pqPlot->scheduleRedraw();
}

// ---- reading --------------------------------------------------------------------------------------------------------

bool QStereoChartWidget::linesWanted() const
{
    using Records = StereoChartSettings::Records;
    const Records eRecords = m_pqDataGroup->records();
    return eRecords == Records::Automatic ? areOfLines(nodeAngle(), nodeAzimuth()) : eRecords == Records::Lines;
}

void QStereoChartWidget::slotRecordsChosen()
{
    if (linesWanted() == relationshipItemModel()->linesAreShown())
        return;
    relationshipItemModel()->clearClusters();
    m_bReadNeeded = true;
    updateStereoChart();
}

QString QStereoChartWidget::problem() const
{
    for (const MatrixData* poNode : {nodeAngle(), nodeAzimuth()}) {
        if (!poNode)
            return tr("Select a data set with a dip and an azimuth");
        if (!isNumericAttribute(poNode))
            return tr("\"%1\" does not hold numbers").arg(poNode->name());
        if (isOtherThanAngle(*poNode))
            return tr("\"%1\" is measured in %2 and holds no angles")
                .arg(poNode->name(), poNode->unitManager()->modelUnit());
    }
    return {};
}

void QStereoChartWidget::updateStereoChart()
{
    const auto revisions = [this] {
        return std::accumulate(m_aLayers.begin(), m_aLayers.end(), quint64(0),
                               [](quint64 iSum, const Layer& oLayer) { return iSum + oLayer.m_pModel->revision(); });
    };
    const bool bOtherAttributes = m_bReadNeeded;
    const quint64 iRevision = revisions();
    readPoints();
    readFurtherLayer(Second);
    readFurtherLayer(Lineations);
    if (!bOtherAttributes && revisions() == iRevision)
        return;
    const QRelationshipItemModel& model = *relationshipItemModel();
    slotLooksChanged();
    showWhatApplies();
    applyScanLine();
    m_pqClusterPage->setApplicable(model.numberOfValidPoints() > 0);
    m_pqClusterPage->showClusters(model, convention());
    m_pqRotationPage->showRotations(model.numberOfValidPoints() > 0, m_lRotations);
    showClasses();
    // What stands there was said of other records.
    updateCursorPosLabel({g_dMissingValue, g_dMissingValue});
    updateObservationStatistics();
    updateChart();
}

/// Lines have neither poles nor great circles, and no scan line misses them as it misses planes.
void QStereoChartWidget::showWhatApplies()
{
    const bool bLines = relationshipItemModel()->linesAreShown();
    const bool bSecondPlanes = secondModel()->numberOfPoints() > 0 && !secondModel()->linesAreShown();
    m_pqNetPage->setPlanes(!bLines || bSecondPlanes);
    m_pqResultPage->setLines(bLines);
    m_pqBiasPage->setLines(bLines);
}

void QStereoChartWidget::readPoints()
{
    m_bReadNeeded = false;
    QString sMessage = problem();
    const bool bUsable = sMessage.isEmpty();
    QRelationshipItemModel& model = *relationshipItemModel();
    const int iFormerRecords = model.numberOfPoints();
    const quint64 iPoints = model.pointsRevision();
    model.takeNewDataSet(-1, QRelationshipItemModel::OrientationDisplay, bUsable ? nodeAngle() : nullptr,
                         bUsable ? nodeAzimuth() : nullptr, model.colorAttribute(), model.symbolAttribute(),
                         linesWanted(), {});
    if (model.pointsRevision() != iPoints)
        model.setEmptySelectionTakesAll(true);
    if (bUsable && model.numberOfValidPoints() == 0)
        sMessage = tr("No record has an angle and an azimuth");
    showMessage(sMessage);
    // The model forgets the selection with the number of records, and the rotations with the attributes.
    if (model.numberOfPoints() != iFormerRecords) {
        model.setSelectedRecords(m_viSelectedRecords);
        selectInFurtherLayers();
    }
    if (!model.isRotated() && !m_vRotations.empty()) {
        m_vRotations.clear();
        m_lRotations.clear();
        for (const LayerIndex eLayer : {Second, Lineations})
            layer(eLayer).m_pModel->undoAllRotations();
    }
    const MatrixData* poDataSet = dataSetOf(nodeAngle());
    m_pqFrame->setTitle(poDataSet ? poDataSet->name() : QString());
}

void QStereoChartWidget::readFurtherLayer(LayerIndex eLayer)
{
    const Layer& further = layer(eLayer);
    QRelationshipItemModel& model = *further.m_pModel;
    MatrixData* poAngle = further.m_poAngle.get();
    MatrixData* poAzimuth = further.m_poAzimuth.get();
    const bool bUsable = isNumericAttribute(poAngle) && isNumericAttribute(poAzimuth);
    const quint64 iPoints = model.pointsRevision();
    model.takeNewDataSet(-1, QRelationshipItemModel::OrientationDisplay, bUsable ? poAngle : nullptr,
                         bUsable ? poAzimuth : nullptr, nullptr, nullptr,
                         eLayer == Lineations || areOfLines(poAngle, poAzimuth), {});
    if (model.pointsRevision() == iPoints)
        return;
    // All data sets stand in one frame: what came later is turned as the others were.
    for (auto i = static_cast<std::size_t>(model.numberOfRotations()); i < m_vRotations.size(); ++i) {
        const Rotation& oRotation = m_vRotations[i];
        model.rotateDataAboutRotationAxis(nullptr, {oRotation.axis().m_dPlunge, oRotation.axis().m_dAzimuth},
                                          oRotation.angle(), false);
    }
    selectInFurtherLayers();
}

// ---- selection ------------------------------------------------------------------------------------------------------

bool QStereoChartWidget::setSelectedRows(const std::vector<int>& viRecords)
{
    QRelationshipItemModel& model = *relationshipItemModel();
    m_viSelectedRecords = viRecords;
    const bool bFromNone = !viRecords.empty() && !model.emptySelectionTakesAll();
    if (bFromNone)
        model.setEmptySelectionTakesAll(true);
    if (!model.setSelectedRecords(viRecords) && !bFromNone)
        return false;
    m_iHighlightedCluster = -1;
    selectInFurtherLayers();
    m_pqLegends->clearSelection();
    // What is not read yet has no statistics that are worth the time.
    if (!m_bReadNeeded)
        updateObservationStatistics();
    updateChart();
    return true;
}

/// Rows of the table are records of all data sets of that length.
void QStereoChartWidget::selectInFurtherLayers()
{
    for (const LayerIndex eLayer : {Second, Lineations}) {
        QRelationshipItemModel& model = *layer(eLayer).m_pModel;
        const bool bSameRows = model.numberOfPoints() == relationshipItemModel()->numberOfPoints();
        model.setSelectedRecords(bSameRows ? m_viSelectedRecords : std::vector<int>());
    }
}

int QStereoChartWidget::numberOfSelectedRows() const
{
    return relationshipItemModel()->numberOfSelectedPoints();
}

/// Without a point in it, a gesture that found some selected leaves none; the next one lets all records count again.
void QStereoChartWidget::slotPointsSelected(bool* pbSelection, int iLength)
{
    QRelationshipItemModel& model = *relationshipItemModel();
    m_pqLegends->clearSelection();
    m_iHighlightedCluster = -1;
    m_viSelectedRecords = model.selectedRecords();
    const bool bCleared = std::exchange(m_bClearedByGesture, false);
    model.setEmptySelectionTakesAll(!m_viSelectedRecords.empty() || !bCleared);
    selectInFurtherLayers();
    updateObservationStatistics();
    updateChart();
    emit dataPointsSelection(pbSelection, iLength);
}

/// A press on the net cleared the selection: no record counts until some are selected or others are read. What the
/// gesture selects is told at its end.
void QStereoChartWidget::slotSelectionCleared()
{
    m_bClearedByGesture = true;
    relationshipItemModel()->setEmptySelectionTakesAll(false);
    updateChart();
}

void QStereoChartWidget::slotLegendSelection()
{
    m_iHighlightedCluster = -1;
    selectByControls(m_pqLegends->selectedRecords(*relationshipItemModel()), false);
}

void QStereoChartWidget::slotClusterClicked(int iCluster, bool bAdd)
{
    const std::span<const int> viIDs = relationshipItemModel()->clusterIDs();
    std::vector<unsigned char> vbMembers(viIDs.size());
    std::transform(viIDs.begin(), viIDs.end(), vbMembers.begin(),
                   [iCluster](int iID) { return static_cast<unsigned char>(iID == iCluster); });
    m_pqLegends->clearSelection();
    m_iHighlightedCluster = iCluster;
    selectByControls(vbMembers, bAdd);
}

/// The shapes are that of the records that count, if there are any, and those of the clusters.
void QStereoChartWidget::slotShapeChosen(int iShape)
{
    const auto iClusters = static_cast<int>(relationshipItemModel()->clusterSizes().size());
    const int iCluster = iShape - (m_pqWoodcockPage->numberOfShapes() - iClusters);
    m_iHighlightedCluster = -1;
    if (iShape >= 0 && iCluster >= 0)
        slotClusterClicked(iCluster, false);
}

/// Selects records as a gesture on the net does.
void QStereoChartWidget::selectByControls(std::span<const unsigned char> vbMask, bool bAdd)
{
    QRelationshipItemModel& model = *relationshipItemModel();
    model.selectPoints(vbMask, bAdd);
    m_viSelectedRecords = model.selectedRecords();
    model.setEmptySelectionTakesAll(true);
    selectInFurtherLayers();
    updateObservationStatistics();
    updateChart();
    emit dataPointsSelection(model.selection(), model.numberOfPoints());
}

// ---- what goes ------------------------------------------------------------------------------------------------------

void QStereoChartWidget::slotNodeAboutToBeRemoved(MatrixData* poBranch)
{
    const auto goes = [poBranch](const MatrixData* poNode) {
        return poNode && MatrixDataNotifier::contains(poBranch, poNode);
    };
    if (goes(relationshipItemModel()->colorAttribute()))
        setClassAttribute(true, nullptr);
    if (goes(relationshipItemModel()->symbolAttribute()))
        setClassAttribute(false, nullptr);
    for (const LayerIndex eLayer : {Second, Lineations}) {
        if (goes(layer(eLayer).m_poAngle.get()) || goes(layer(eLayer).m_poAzimuth.get()))
            chooseFurtherDataSet(eLayer, nullptr);
    }
    const bool bPointsGo = goes(nodeAngle()) || goes(nodeAzimuth());
    if (bPointsGo)
        chooseAttributes(goes(nodeAngle()) ? nullptr : nodeAngle(), goes(nodeAzimuth()) ? nullptr : nodeAzimuth());
    const std::unordered_set<int> iGlobalIDs = identifiers(poBranch);
    m_pqDataGroup->removeEntries(iGlobalIDs);
    m_pqPointPage->removeEntries(iGlobalIDs);
    if (bPointsGo)
        updateStereoChart();
}

void QStereoChartWidget::slotRootAboutToBeDestroyed()
{
    m_poRoot = nullptr;
    for (const Layer& oLayer : m_aLayers)
        oLayer.m_pModel->setDataRoot(nullptr);
    m_viSelectedRecords.clear();
    setClassAttribute(true, nullptr);
    setClassAttribute(false, nullptr);
    m_poClusters.reset();
    for (const LayerIndex eLayer : {Second, Lineations})
        chooseFurtherDataSet(eLayer, nullptr);
    chooseAttributes(nullptr, nullptr);
    updateStereoChart();
    updateDataSetSelectionBox();
}

} // namespace gkBase
