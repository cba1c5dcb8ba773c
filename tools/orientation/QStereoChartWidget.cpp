#include "QStereoChartWidget.h"

#include "BiasWeights.h"
#include "ChartDisplayPage.h"
#include "ClassLegends.h"
#include "ClusterShape.h"
#include "ContourLegend.h"
#include "ElidedLabel.h"
#include "LegendSplitter.h"
#include "MatrixData.h"
#include "MatrixDataArray.h"
#include "OrientationReport.h"
#include "PolarChartFrame.h"
#include "QDataStatisticSummary.h"
#include "QStereoPlotWidget.h"
#include "StereoAnnotationPage.h"
#include "StereoBiasPage.h"
#include "StereoClusterPage.h"
#include "StereoContourPage.h"
#include "StereoDataGroup.h"
#include "StereoNetPage.h"
#include "StereoPointPage.h"
#include "StereoResultPage.h"
#include "StereoRotationPage.h"
#include "StereoStatisticsPage.h"
#include "StereoWoodcockPage.h"

#include <QComboBox>
#include <QScrollArea>
#include <QSettings>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace gkBase {

namespace {

/// Some of the records do not count, because others are selected.
bool onlySomeCount(const QRelationshipItemModel& model)
{
    return model.numberOfUsedPoints() < model.numberOfValidPoints();
}

} // namespace

// ---- what follows from the records ----------------------------------------------------------------------------------

void QStereoChartWidget::updateChart()
{
    m_pqPlot->scheduleRedraw();
    scheduleContourLegend();
}

void QStereoChartWidget::updateObservationStatistics()
{
    QRelationshipItemModel& model = *relationshipItemModel();
    model.updateOrientationResults();
    if (m_oSettings.m_oNet.result(StereoResult::SuggestedSectionPlane).m_bShow)
        calculateSuggestedSectionOrientation();
    const std::span<const unsigned char> vbMask = model.usedMask();
    m_pqBiasPage->showEffectiveCount(static_cast<std::size_t>(model.numberOfUsedPoints()),
                                     effectiveCount(model.appliedWeights(), vbMask));
    pagesAreStale();
    fillVisiblePage();
    resultsUpdated();
}

/// The section is that of records whose mean was turned to the centre of the net; they are turned in a copy.
void QStereoChartWidget::calculateSuggestedSectionOrientation()
{
    QRelationshipItemModel& model = *relationshipItemModel();
    const bool bPoles = !model.linesAreShown();
    const QPointF oMean = bPoles ? model.meanResultantPole() : model.meanResultantDipDirection();
    if (isMissing(oMean.x()))
        return;
    MatrixDataArray copy(*model.data());
    model.rotateDataToMeanPole(oMean, true, &copy);
    model.calculateSuggestedSectionOrientation(bPoles, model.partSelection(), &copy);
}

std::vector<OrientationStatistics> QStereoChartWidget::statistics() const
{
    const QRelationshipItemModel& model = *relationshipItemModel();
    if (model.numberOfUsedPoints() == 0)
        return {};
    std::vector<OrientationStatistics> vStatistics;
    if (!model.linesAreShown())
        vStatistics.push_back(model.orientationStatistics(true, model.partSelection()));
    vStatistics.push_back(model.orientationStatistics(false, model.partSelection()));
    return vStatistics;
}

LineOrientation QStereoChartWidget::foldAxis() const
{
    const QPointF oGirdle = relationshipItemModel()->LdirectionPlane();
    return poleOfPlane({oGirdle.x(), oGirdle.y()});
}

void QStereoChartWidget::settingsRestored(const StereoChartSettings& /*settings*/) {}

void QStereoChartWidget::resultsUpdated() {}

// ---- pages ----------------------------------------------------------------------------------------------------------

void QStereoChartWidget::pagesAreStale()
{
    m_bStatisticsStale = true;
    m_bWoodcockStale = true;
    m_bReportStale = true;
}

/// A page out of sight costs nothing, however often the selection changes.
void QStereoChartWidget::fillVisiblePage()
{
    const QWidget* pqPage = m_pqTabs->currentWidget();
    if (pqPage == m_pqStatisticsPage && std::exchange(m_bStatisticsStale, false))
        fillStatisticsPage();
    else if (pqPage == m_pqWoodcockPage && std::exchange(m_bWoodcockStale, false))
        calculateWoodcockParameterForClusters();
    else if (pqPage == m_pqReport && std::exchange(m_bReportStale, false))
        fillReportPage();
}

QString QStereoChartWidget::noStatisticsReason() const
{
    return relationshipItemModel()->numberOfValidPoints() == 0
               ? tr("There are no records")
               : tr("No record is selected: a click on the net takes all");
}

QString QStereoChartWidget::statisticsTitle() const
{
    const QRelationshipItemModel& model = *relationshipItemModel();
    const MatrixData* poDataSet = nodeAngle() ? nodeAngle()->owner() : nullptr;
    QString sName = poDataSet ? poDataSet->name() : QString();
    const int iTaken = model.numberOfUsedPoints();
    if (iTaken == model.numberOfValidPoints())
        return sName;
    return tr("%1: %2 of %3 records").arg(sName).arg(iTaken).arg(model.numberOfValidPoints());
}

void QStereoChartWidget::fillStatisticsPage()
{
    const std::vector<OrientationStatistics> vStatistics = statistics();
    if (vStatistics.empty())
        m_pqStatisticsPage->showNothing(noStatisticsReason());
    else
        m_pqStatisticsPage->showStatistics(statisticsTitle(), vStatistics,
                                           !relationshipItemModel()->appliedWeights().empty(), convention());
}

std::vector<ClusterShape> QStereoChartWidget::clusterShapes() const
{
    const QRelationshipItemModel& model = *relationshipItemModel();
    const bool bPoles = !model.linesAreShown();
    std::vector<ClusterShape> vShapes;
    if (const OrientationStatistics all = model.orientationStatistics(bPoles, model.partSelection());
        all.m_oSums.m_iCount > 0)
        vShapes.push_back({onlySomeCount(model) ? tr("Selected") : tr("All"), all.m_oSums.m_iCount, all.m_oWoodcock,
                           Qt::black, PointStyle::Diamond});
    const std::span<const std::size_t> viSizes = model.clusterSizes();
    const std::vector<QColor> voColors = StereoClusterPage::clusterColors(model);
    for (std::size_t i = 0; i < viSizes.size(); ++i) {
        WoodcockParameters parameters;
        model.calculateWoodcockParameterForOneSubSet(static_cast<int>(i), parameters.m_dK, parameters.m_dC,
                                                     parameters.m_dLnS1S2, parameters.m_dLnS2S3, bPoles);
        vShapes.push_back({QString::number(i), viSizes[i], parameters,
                           i < voColors.size() && voColors[i].isValid() ? voColors[i] : QColor(Qt::darkGray),
                           PointStyle::Circle});
    }
    return vShapes;
}

void QStereoChartWidget::calculateWoodcockParameterForClusters()
{
    const std::vector<ClusterShape> vShapes = clusterShapes();
    if (vShapes.empty())
        m_pqWoodcockPage->showNothing(noStatisticsReason());
    else
        m_pqWoodcockPage->showShapes(vShapes);
    const int iFirstCluster = static_cast<int>(vShapes.size() - relationshipItemModel()->clusterSizes().size());
    m_pqWoodcockPage->setCurrentShape(m_iHighlightedCluster < 0 ? -1 : iFirstCluster + m_iHighlightedCluster);
}

void QStereoChartWidget::fillReportPage()
{
    const QRelationshipItemModel& model = *relationshipItemModel();
    OrientationReportData report;
    const MatrixData* poDataSet = nodeAngle() ? nodeAngle()->owner() : nullptr;
    report.m_sName = poDataSet ? poDataSet->name() : QString();
    report.m_bPlanes = !model.linesAreShown();
    report.m_bSelectionOnly = onlySomeCount(model);
    report.m_vStatistics = statistics();
    if (report.m_vStatistics.empty())
        report.m_sNoStatistics = noStatisticsReason();
    report.m_bWeighted = !model.appliedWeights().empty();
    report.m_oScanLine = model.scanLine();
    report.m_vRotations = m_vRotations;
    if (!model.clusterSizes().empty())
        report.m_vClusters = clusterShapes();
    report.m_eConvention = convention();
    showOrientationReport(*m_pqReport, report);
}

// ---- legends --------------------------------------------------------------------------------------------------------

void QStereoChartWidget::showClasses()
{
    const QRelationshipItemModel& model = *relationshipItemModel();
    m_pqLegends->setClasses(model);
    m_pqPointPage->setColorAttribute(model.colorAttribute(), model.colorClasses().isBanded());
    showLegends();
}

/// The levels are those of the picture that is drawn next: they are asked for after all that leads to it is done.
void QStereoChartWidget::scheduleContourLegend()
{
    if (std::exchange(m_bContourLegendPending, true))
        return;
    QTimer::singleShot(0, this, &QStereoChartWidget::updateContourLegend);
}

void QStereoChartWidget::updateContourLegend()
{
    m_bContourLegendPending = false;
    const StereoNetSettings& net = m_oSettings.m_oNet;
    const bool bContours = net.m_bContourLines || net.m_bContourFill || net.m_bContourLabels;
    if (!m_bShowLegends || !m_oSettings.m_bContourLegend || !bContours) {
        m_pqContourLegend->setLevels({}, {});
        showLegends();
        return;
    }
    const DensityGrid& grid = m_pqPlot->density();
    ContourLegendInfo info;
    info.m_iRecords = grid.m_iRecords;
    info.m_iColumns = grid.m_iColumns;
    info.m_iRows = grid.m_iRows;
    info.m_bWeighted = !relationshipItemModel()->appliedWeights().empty();
    info.m_eLayout = m_pqPlot->projection().layout();
    info.m_bFilled = net.m_bContourFill;
    if (!grid.isEmpty())
        info.m_dMaximum = *std::max_element(grid.m_vdCounts.begin(), grid.m_vdCounts.end()) * grid.percentFactor();
    m_pqContourLegend->setLevels(m_pqPlot->contourLevels(), info);
    showLegends();
}

void QStereoChartWidget::showLegends()
{
    m_pqContourScrollArea->setVisible(!m_pqContourLegend->isEmpty());
    m_pqLegendSplitter->setLegendsVisible(!m_pqLegends->isEmpty() || !m_pqContourLegend->isEmpty());
}

// ---- looks ----------------------------------------------------------------------------------------------------------

void QStereoChartWidget::setBlackBackground(bool bBlack)
{
    m_pqDisplayPage->setBlackBackground(bBlack);
}

void QStereoChartWidget::setShowLegends(bool bShow)
{
    m_bShowLegends = bShow;
    slotLooksChanged();
}

OrientationConvention QStereoChartWidget::convention() const
{
    return static_cast<OrientationConvention>(m_pqConventionComboBox->currentIndex());
}

StereoChartSettings QStereoChartWidget::settings() const
{
    StereoChartSettings settings = m_oSettings;
    settings.m_oDisplay = m_pqDisplayPage->settings();
    settings.m_eConvention = convention();
    settings.m_bPickMode = m_pqPickBtn->isChecked();
    m_pqDataGroup->writeTo(settings);
    m_pqNetPage->writeTo(settings.m_oNet);
    m_pqPointPage->writeTo(settings);
    m_pqContourPage->writeTo(settings);
    m_pqResultPage->writeTo(settings.m_oNet);
    m_pqAnnotationPage->writeTo(settings.m_oNet);
    m_pqRotationPage->writeTo(settings);
    m_pqClusterPage->writeTo(settings);
    m_pqBiasPage->writeTo(settings);
    return settings;
}

void QStereoChartWidget::setSettings(const StereoChartSettings& settings)
{
    m_oSettings = settings;
    m_pqDisplayPage->setSettings(settings.m_oDisplay);
    m_pqConventionComboBox->setCurrentIndex(static_cast<int>(settings.m_eConvention));
    (settings.m_bPickMode ? m_pqPickBtn : m_pqSelectBtn)->setChecked(true);
    m_pqDataGroup->setSettings(settings);
    m_pqNetPage->setSettings(settings.m_oNet);
    m_pqPointPage->setSettings(settings);
    m_pqContourPage->setSettings(settings);
    m_pqResultPage->setSettings(settings.m_oNet);
    m_pqAnnotationPage->setSettings(settings.m_oNet);
    m_pqRotationPage->setSettings(settings);
    m_pqClusterPage->setSettings(settings);
    m_pqBiasPage->setSettings(settings);
    settingsRestored(settings);

    QRelationshipItemModel& model = *relationshipItemModel();
    slotMouseModeChosen(settings.m_bPickMode);
    model.setPartSelection(settings.m_bSelectedOnly);
    applyScanLine();
    slotColorMapChanged();
    slotLooksChanged();
    if (model.numberOfPoints() > 0 && linesWanted() != model.linesAreShown())
        slotRecordsChosen();
    else
        slotConventionChosen();
}

void QStereoChartWidget::setSettings(const StereoNetSettings& net)
{
    StereoChartSettings wanted = settings();
    wanted.m_oNet = net;
    setSettings(wanted);
}

void QStereoChartWidget::setMaximumAngle(double dAngle)
{
    m_oSettings.m_oNet.m_dMaximumAngle = dAngle;
    slotLooksChanged();
}

namespace {

constexpr char g_sideSplitterKey[] = "splitter_sizes/side_panel_splitter";
constexpr char g_legendSplitterKey[] = "splitter_sizes/legend_splitter";

} // namespace

void QStereoChartWidget::readSettings(const QString& sGroup)
{
    QSettings stored;
    stored.beginGroup(sGroup);
    StereoChartSettings wanted = settings();
    wanted.read(stored);
    setSettings(wanted);
    m_oWanted = StereoChartChoice::read(stored);
    takeWanted();
    if (m_poRoot && m_bReadNeeded)
        updateStereoChart();
    m_pqSplitter->restoreState(stored.value(QLatin1String(g_sideSplitterKey)).toByteArray());
    m_pqLegendSplitter->restore(stored.value(QLatin1String(g_legendSplitterKey)).toByteArray());
}

void QStereoChartWidget::writeSettings(const QString& sGroup) const
{
    QSettings stored;
    stored.beginGroup(sGroup);
    settings().write(stored);
    choice().write(stored);
    stored.setValue(QLatin1String(g_sideSplitterKey), m_pqSplitter->saveState());
    stored.setValue(QLatin1String(g_legendSplitterKey), m_pqLegendSplitter->saveState());
}

void QStereoChartWidget::slotLooksChanged()
{
    m_oSettings = settings();
    m_pqPlot->setSettings(m_oSettings.m_oNet);
    for (const Layer& oLayer : m_aLayers) {
        oLayer.m_pModel->setPointStyle(m_oSettings.m_ePointStyle);
        oLayer.m_pModel->setPointPixelSize(m_oSettings.m_iPointSize);
        oLayer.m_pModel->setOutLinePointStyle(m_oSettings.m_bHollow);
    }
    m_pqLegends->setWanted(m_bShowLegends && m_oSettings.m_bColorLegend, m_bShowLegends && m_oSettings.m_bSymbolLegend);
    showLegends();
    updateChart();
}

/// A result that is switched on may not be computed yet.
void QStereoChartWidget::slotResultsChanged()
{
    const auto sectionIsShown = [this] {
        return m_oSettings.m_oNet.result(StereoResult::SuggestedSectionPlane).m_bShow;
    };
    const bool bSectionWasShown = sectionIsShown();
    slotLooksChanged();
    if (!bSectionWasShown && sectionIsShown())
        calculateSuggestedSectionOrientation();
}

void QStereoChartWidget::slotColorMapChanged()
{
    m_oSettings = settings();
    const RelationshipClasses::ColorMap map = m_pqPointPage->colorMap();
    relationshipItemModel()->setColorMap(map.m_dMin, map.m_dMax, map.m_dInterval, map.m_bRedToBlue);
    showClasses();
    updateChart();
}

void QStereoChartWidget::slotSelectedOnlyToggled()
{
    m_oSettings = settings();
    relationshipItemModel()->setPartSelection(m_oSettings.m_bSelectedOnly);
    updateObservationStatistics();
    updateChart();
}

void QStereoChartWidget::slotConventionChosen()
{
    m_oSettings = settings();
    m_pqClusterPage->showClusters(*relationshipItemModel(), convention());
    updateObservationStatistics();
}

void QStereoChartWidget::slotMouseModeChosen(bool bPick)
{
    m_oSettings.m_bPickMode = bPick;
    m_pqPlot->setMouseMode(bPick ? QStereoPlotWidget::MouseMode::Pick : QStereoPlotWidget::MouseMode::Select);
}

void QStereoChartWidget::showMessage(const QString& sMessage)
{
    m_pqMessageLabel->setText(sMessage);
    m_pqMessageLabel->setVisible(!sMessage.isEmpty());
}

} // namespace gkBase
