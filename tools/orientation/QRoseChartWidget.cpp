#include "QRoseChartWidget.h"

#include "AngleUnits.h"
#include "AttributeChooser.h"
#include "ChartDisplayPage.h"
#include "ClassLegends.h"
#include "LegendSplitter.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MetafileClipboard.h"
#include "MissingValue.h"
#include "PolarChartFrame.h"
#include "QRelationshipItemModel.h"
#include "QRosePlotWidget.h"
#include "RoseColorPage.h"
#include "RoseDirectionGroup.h"
#include "RoseDisplayPage.h"
#include "RoseResultGroup.h"
#include "UnitManager.h"

#include <QApplication>
#include <QClipboard>
#include <QPointF>
#include <QSettings>
#include <QSplitter>

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace gkBase {

namespace {

/// The attributes that hold directions, by their names and units.
std::unordered_set<int> directionIDs(const MatrixData* poRoot)
{
    QList<QString> lNames;
    QList<int> liIds;
    QList<QColor> lColors;
    if (poRoot)
        poRoot->getDataSetSelectionBoxItems(lNames, liIds, lColors, MatrixData::Direction, false);
    return {liIds.cbegin(), liIds.cend()};
}

} // namespace

// ---- root and choosers ----------------------------------------------------------------------------------------------

void QRoseChartWidget::setDataRoot(MatrixData* poRoot)
{
    if (poRoot != m_poRoot) {
        if (m_poRoot)
            m_poRoot->notifier()->disconnect(this);
        m_poRoot = poRoot;
        m_pModel->setDataRoot(poRoot);
        m_viSelectedRecords.clear();
        setColorAttribute(nullptr);
        setDataSet(nullptr);
        if (m_poRoot) {
            MatrixDataNotifier* pqNotifier = m_poRoot->notifier();
            connect(pqNotifier, &MatrixDataNotifier::nodeAboutToBeRemoved, this,
                    &QRoseChartWidget::slotNodeAboutToBeRemoved);
            connect(pqNotifier, &MatrixDataNotifier::rootAboutToBeDestroyed, this,
                    &QRoseChartWidget::slotRootAboutToBeDestroyed);
        }
    }
    fillChoosers(nullptr);
    if (takeWantedDirection())
        updateRoseChartData();
}

void QRoseChartWidget::updateDataSetSelectionBox()
{
    fillChoosers(nullptr);
    // Owners may fill a root that was empty when it was given. Values are read when the panel is next brought up to
    // date.
    takeWantedDirection();
}

void QRoseChartWidget::updateColorAttributeDataSetSelectionBox()
{
    fillChoosers(nullptr);
}

/// A node that is about to leave is not offered any more.
void QRoseChartWidget::fillChoosers(const MatrixData* poLeaving)
{
    const std::vector<AttributeEntry> vEntries = attributeEntries(m_poRoot, poLeaving);
    const std::unordered_set<int> iDirections = directionIDs(m_poRoot);
    const MatrixData* poDirection = currentSelectedDataSet();
    m_pqDirectionGroup->chooser()->setEntries(vEntries, [&](const AttributeEntry& entry) {
        // An owner may show numbers that are not known as directions.
        return entry.m_poNode == poDirection || iDirections.contains(entry.m_poNode->globalID());
    });
    m_pqDirectionGroup->chooser()->choose(poDirection);
    const int iRecords = numberOfRecords();
    m_pqColorPage->chooser()->setEntries(
        vEntries, [iRecords](const AttributeEntry& entry) { return iRecords < 0 || entry.m_iRecords == iRecords; });
    m_pqColorPage->chooser()->choose(currentColorSelectedDataSet());
}

int QRoseChartWidget::numberOfRecords() const
{
    return dataSetRecords(currentSelectedDataSet());
}

MatrixData* QRoseChartWidget::directionAttribute(MatrixData* poData) const
{
    if (!poData)
        return nullptr;
    if (poData->isAttribute())
        return poData;
    if (MatrixData* poAzimuth = poData->azimuthAttribute())
        return poAzimuth;
    const std::unordered_set<int> iDirections = directionIDs(m_poRoot);
    for (MatrixData* poLeaf : poData->leafs()) {
        if (iDirections.contains(poLeaf->globalID()))
            return poLeaf;
    }
    return nullptr;
}

void QRoseChartWidget::setDataSet(MatrixData* poData)
{
    chooseDataSet(poData);
    updateRoseChartData();
}

void QRoseChartWidget::chooseDataSet(MatrixData* poData)
{
    MatrixData* poDirection = directionAttribute(poData);
    if (poDirection)
        m_oWantedEntry.reset();
    if (m_poDirection == poDirection)
        return;
    const int iFormerRecords = numberOfRecords();
    m_poDirection = MatrixDataPointer(poDirection);
    m_bCountNeeded = true;
    // What belongs to other records says nothing about these directions.
    if (numberOfRecords() != iFormerRecords)
        m_pModel->setColorAttribute(nullptr);
    fillChoosers(nullptr);
}

QString QRoseChartWidget::currentSelectedDataSetName() const
{
    return m_poDirection ? m_pqDirectionGroup->chooser()->currentText() : QString();
}

MatrixData* QRoseChartWidget::currentColorSelectedDataSet() const
{
    return m_pModel->colorAttribute();
}

QString QRoseChartWidget::currentColorSelectedDataSetName() const
{
    return m_pqColorPage->chooser()->currentText();
}

void QRoseChartWidget::setColorAttribute(MatrixData* poAttribute)
{
    if (poAttribute)
        m_oWantedColor.reset();
    if (poAttribute == m_pModel->colorAttribute())
        return;
    // The bounds of a colour map belong to the attribute that they were made for.
    m_pModel->setColorMap(g_dMissingValue, g_dMissingValue, g_dMissingValue, m_pqColorPage->colorMap().m_bRedToBlue);
    const bool bFits = poAttribute && poAttribute->isAttribute() &&
                       (numberOfRecords() < 0 || dataSetRecords(poAttribute) == numberOfRecords());
    m_pModel->setColorAttribute(bFits ? poAttribute : nullptr);
    m_pqColorPage->chooser()->choose(m_pModel->colorAttribute());
    initializeNewRoseChartData();
}

void QRoseChartWidget::slotResetDisplayColorAttribute()
{
    m_oWantedColor.reset();
    setColorAttribute(m_poRoot ? m_poRoot->nodeFromID(m_pqColorPage->chooser()->chosenID()) : nullptr);
}

void QRoseChartWidget::slotDirectionChosen(int iGlobalID)
{
    chooseDataSet(m_poRoot ? m_poRoot->nodeFromID(iGlobalID) : nullptr);
    emit dataSetSelected();
    // An owner reads again on the signal, with the rows that it knows; once is enough.
    if (m_bCountNeeded)
        updateRoseChartData();
}

/// Chooses what the settings name, which may not have been there when they were read. Reads nothing.
bool QRoseChartWidget::takeWantedDirection()
{
    const AttributeChooser* pqChooser = m_pqDirectionGroup->chooser();
    if (!m_poRoot || !m_oWantedEntry || *m_oWantedEntry < 0 || *m_oWantedEntry >= pqChooser->count())
        return false;
    chooseDataSet(m_poRoot->nodeFromID(pqChooser->itemData(*m_oWantedEntry).toInt()));
    return true;
}

void QRoseChartWidget::takeWantedColor()
{
    if (!m_oWantedColor || !m_poDirection)
        return;
    for (const AttributeEntry& entry : attributeEntries(m_poRoot)) {
        if (entry.m_poNode->name() == *m_oWantedColor && entry.m_iRecords == numberOfRecords()) {
            const RelationshipClasses::ColorMap map = m_oWantedColorMap;
            setColorAttribute(entry.m_poNode);
            m_pqColorPage->setColorMap(map);
            updateRoseChartClassification();
            return;
        }
    }
}

void QRoseChartWidget::slotNodeAboutToBeRemoved(MatrixData* poBranch)
{
    if (MatrixDataNotifier::contains(poBranch, currentColorSelectedDataSet()))
        setColorAttribute(nullptr);
    if (MatrixDataNotifier::contains(poBranch, currentSelectedDataSet()))
        setDataSet(nullptr);
    // The choosers must not offer what goes; they are filled again when the owner asks.
    fillChoosers(poBranch);
}

void QRoseChartWidget::slotRootAboutToBeDestroyed()
{
    m_poRoot = nullptr;
    m_pModel->setDataRoot(nullptr);
    m_viSelectedRecords.clear();
    setColorAttribute(nullptr);
    setDataSet(nullptr);
    fillChoosers(nullptr);
}

void QRoseChartWidget::slotDisplayUnitChanged(const QString& sCategory)
{
    const MatrixData* poColor = currentColorSelectedDataSet();
    if (poColor && poColor->unitCategory() == sCategory)
        updateRoseChartData();
}

// ---- counting -------------------------------------------------------------------------------------------------------

QString QRoseChartWidget::problem() const
{
    if (!m_poDirection)
        return tr("Select an attribute of directions");
    if (!isNumericAttribute(currentSelectedDataSet()))
        return tr("\"%1\" does not hold numbers").arg(m_poDirection->name());
    if (isOtherThanAngle(*currentSelectedDataSet()))
        return tr("\"%1\" is measured in %2 and holds no angles")
            .arg(m_poDirection->name(), m_poDirection->unitManager()->modelUnit());
    return m_viSelectedRecords.empty() ? tr("No record has a direction") : tr("No selected record has a direction");
}

/// The means depend on the records alone; sectors and classes may change a hundred times while they stay.
bool QRoseChartWidget::readData()
{
    MatrixData* poDirection = currentSelectedDataSet();
    if (!isNumericAttribute(poDirection) || isOtherThanAngle(*poDirection))
        poDirection = nullptr;
    if (!m_pqPlot->setDirectionData(poDirection, m_viSelectedRecords))
        return false;
    m_means = roseMeans(m_pModel->x(), m_pqPlot->takenMask());
    return true;
}

void QRoseChartWidget::updateRoseChartData()
{
    const bool bOtherData = readData();
    if (bOtherData || m_bCountNeeded || m_pModel->revision() != m_iCountedRevision)
        initializeNewRoseChartData();
    takeWantedColor();
}

void QRoseChartWidget::initializeNewRoseChartData()
{
    readData();
    m_bCountNeeded = false;
    m_iCountedRevision = m_pModel->revision();
    const RoseChartSettings wanted = settings();
    const bool bClassified = m_pModel->colorAttributeIsOn();
    const std::span<const int> viClasses = bClassified ? m_pModel->colorClasses().ids() : std::span<const int>();
    const int iClasses = bClassified ? m_pModel->colorClasses().highestId() + 1 : 0;
    const RoseBins bins =
        roseBins(m_pModel->x(), {static_cast<double>(wanted.m_iSectorSize), 0.0, !wanted.m_bUnidirectional},
                 m_pqPlot->takenMask(), {}, viClasses, iClasses);
    m_pqPlot->setRoseData(bins, m_means);
    m_pqPlot->setMessage(problem());
    m_pqDisplaySettingsPage->setGridCircleDistance(m_pqPlot->getGridCircleDistance(),
                                                   static_cast<int>(std::ceil(m_pqPlot->maximum())));
    m_pqResultGroup->showResults(bins, m_means, wanted.m_bUnidirectional);
    m_pqFrame->setTitle(currentSelectedDataSetName());
    updateColorLegend();
    updateRoseChart();
}

void QRoseChartWidget::updateRoseChartIntervals(int)
{
    initializeNewRoseChartData();
}

void QRoseChartWidget::slotDataTypeChanged()
{
    initializeNewRoseChartData();
}

void QRoseChartWidget::updateRoseChartClassification()
{
    const RelationshipClasses::ColorMap map = m_pqColorPage->colorMap();
    m_pModel->setColorMap(map.m_dMin, map.m_dMax, map.m_dInterval, map.m_bRedToBlue);
    initializeNewRoseChartData();
}

/// Blue and red shall stand for the least and the greatest value of the whole attribute.
void QRoseChartWidget::resetDisplayColorAttribute()
{
    const MatrixData* poColor = currentColorSelectedDataSet();
    if (!poColor)
        return;
    RelationshipClasses::ColorMap map = m_pqColorPage->colorMap();
    poColor->getMinMax(map.m_dMin, map.m_dMax);
    m_pqColorPage->setColorMap(map);
    updateRoseChartClassification();
}

void QRoseChartWidget::updateColorLegend()
{
    m_pqLegends->setClasses(*m_pModel);
    const MatrixData* poColor = currentColorSelectedDataSet();
    const bool bOwnTitle = !m_sLegendTitle.isEmpty() || !poColor;
    m_pqLegends->setColorTitle(bOwnTitle ? m_sLegendTitle : tr("Colour Legend: %1").arg(poColor->name()));
    m_pqLegendSplitter->setLegendsVisible(!m_pqLegends->isEmpty());
    m_pqColorPage->setColorAttribute(m_pModel->colorAttribute(), m_pModel->colorClasses().isBanded());
}

// ---- selection ------------------------------------------------------------------------------------------------------

bool QRoseChartWidget::setSelectedRows(const std::vector<int>& viRecords)
{
    if (viRecords == m_viSelectedRecords)
        return false;
    m_pqLegends->clearSelection();
    m_viSelectedRecords = viRecords;
    updateRoseChartData();
    return true;
}

void QRoseChartWidget::slotPointsSelected(bool* pbSelection, int iLength)
{
    std::vector<int> viRecords;
    for (int i = 0; i < iLength; ++i) {
        if (pbSelection[i])
            viRecords.push_back(i);
    }
    setSelectedRows(viRecords);
    emit dataPointsSelection(pbSelection, iLength);
}

void QRoseChartWidget::slotLegendSelection()
{
    const std::vector<unsigned char> vbMask = m_pqLegends->selectedRecords(*m_pModel);
    QVector<bool> vbSelection(vbMask.cbegin(), vbMask.cend());
    std::vector<int> viRecords;
    for (std::size_t i = 0; i < vbMask.size(); ++i) {
        if (vbMask[i])
            viRecords.push_back(static_cast<int>(i));
    }
    // Not by setSelectedRows(), neither here nor by an owner who answers with these rows: the legend stays as it is.
    m_viSelectedRecords = viRecords;
    updateRoseChartData();
    emit dataPointsSelection(vbSelection.data(), static_cast<int>(vbSelection.size()));
}

void QRoseChartWidget::slotCursorMoved()
{
    const QPointF oPosition = m_pqPlot->mousePickingPos();
    m_pqFrame->setCursorText(isMissing(oPosition.x()) ? QString() : m_pqPlot->sectorText(oPosition));
}

// ---- looks ----------------------------------------------------------------------------------------------------------

void QRoseChartWidget::updateRoseChart()
{
    const RoseChartSettings wanted = settings();
    m_pqPlot->showDirectionAsRosePlot(wanted.m_bRosePlot);
    m_pqPlot->setEqualAreaScaling(wanted.m_bAreaScaling);
    m_pqPlot->setUnidirectional(wanted.m_bUnidirectional);
    m_pqPlot->showResultantMeanDirection(wanted.m_bMeanDirection);
    m_pqPlot->showResultantMeanLength(wanted.m_bMeanLength);
    m_pqPlot->setGridCircleDistance(wanted.m_iGridCircleDistance);
    m_pqPlot->showGridCircles(wanted.m_bCircles && !wanted.m_bScalingOff);
    m_pqPlot->showTickMarks(wanted.m_bTickMarks && !wanted.m_bScalingOff);
    m_pqPlot->setZeroCircleSize(wanted.m_iZeroCircleSize);
    m_pqPlot->setAnnotationLabelAsAngle(wanted.m_eAnnotation == RoseChartSettings::Annotation::Angles);
    m_pqPlot->setAnnotationLabelAsDirectionOn(wanted.m_eAnnotation == RoseChartSettings::Annotation::Directions);
    m_pqPlot->showCircleFrame(wanted.m_bCircleFrame);
    m_pqPlot->scheduleRedraw();
}

void QRoseChartWidget::setSectorSize(int iDegrees)
{
    RoseChartSettings wanted = settings();
    wanted.m_iSectorSize = std::clamp(iDegrees, 1, RoseChartSettings::s_iLargestSector);
    m_pqDirectionGroup->setSettings(wanted);
    initializeNewRoseChartData();
}

void QRoseChartWidget::setBidirectional(bool bOn)
{
    RoseChartSettings wanted = settings();
    wanted.m_bUnidirectional = !bOn;
    m_pqDirectionGroup->setSettings(wanted);
    initializeNewRoseChartData();
}

void QRoseChartWidget::setEqualAreaScaling(bool bOn)
{
    RoseChartSettings wanted = settings();
    wanted.m_bAreaScaling = bOn;
    m_pqDirectionGroup->setSettings(wanted);
    updateRoseChart();
}

void QRoseChartWidget::setBlackBackground(bool bBlack)
{
    m_pqDisplayPage->setBlackBackground(bBlack);
}

void QRoseChartWidget::setLegendTitle(const QString& sTitle)
{
    m_sLegendTitle = sTitle;
    updateColorLegend();
}

void QRoseChartWidget::showToolBox(bool bShow)
{
    m_pqSideBar->setVisible(bShow);
}

RoseChartSettings QRoseChartWidget::settings() const
{
    RoseChartSettings settings;
    settings.m_oSidePanelSplitter = m_pqSidePanelSplitter->saveState();
    settings.m_oLegendSplitter = m_pqLegendSplitter->saveState();
    m_pqDirectionGroup->writeTo(settings);
    m_pqResultGroup->writeTo(settings);
    m_pqDisplaySettingsPage->writeTo(settings);
    const MatrixData* poColor = currentColorSelectedDataSet();
    settings.m_sClassifiedBy = m_oWantedColor ? *m_oWantedColor : poColor ? poColor->name() : QString();
    settings.m_oColorMap = m_oWantedColor ? m_oWantedColorMap : m_pqColorPage->colorMap();
    if (m_oWantedEntry)
        settings.m_iSelectedDataSet = *m_oWantedEntry;
    settings.m_bBlackBackground = m_pqDisplayPage->blackBackground();
    settings.m_dFontSize = m_pqDisplayPage->settings().m_dFontSize;
    return settings;
}

void QRoseChartWidget::setSettings(const RoseChartSettings& settings)
{
    if (!settings.m_oSidePanelSplitter.isEmpty())
        m_pqSidePanelSplitter->restoreState(settings.m_oSidePanelSplitter);
    if (!settings.m_oLegendSplitter.isEmpty())
        m_pqLegendSplitter->restore(settings.m_oLegendSplitter);
    m_pqDirectionGroup->setSettings(settings);
    m_pqResultGroup->setSettings(settings);
    ChartDisplaySettings display = m_pqDisplayPage->settings();
    display.m_bBlackBackground = settings.m_bBlackBackground;
    display.m_dFontSize = settings.m_dFontSize;
    m_pqDisplayPage->setSettings(display);
    RelationshipClasses::ColorMap map;
    map.m_bRedToBlue = settings.m_oColorMap.m_bRedToBlue;
    m_pqColorPage->setColorMap(map);
    if (settings.m_iSelectedDataSet >= 0)
        m_oWantedEntry = settings.m_iSelectedDataSet;
    if (!settings.m_sClassifiedBy.isEmpty()) {
        m_oWantedColor = settings.m_sClassifiedBy;
        m_oWantedColorMap = settings.m_oColorMap;
    }
    updateRoseChartClassification();
    if (takeWantedDirection())
        updateRoseChartData();
    takeWantedColor();
    // Counting has chosen a distance that suits the counts; another one is for a rose that is yet to come.
    RoseChartSettings shown = settings;
    if (m_pqPlot->maximum() > 0.0)
        shown.m_iGridCircleDistance = m_pqPlot->getGridCircleDistance();
    m_pqDisplaySettingsPage->setSettings(shown);
    updateRoseChart();
}

void QRoseChartWidget::readSettings(const QString& sGroup)
{
    QSettings stored;
    stored.beginGroup(sGroup);
    RoseChartSettings wanted;
    wanted.read(stored);
    setSettings(wanted);
}

void QRoseChartWidget::writeSettings(const QString& sGroup) const
{
    QSettings stored;
    stored.beginGroup(sGroup);
    settings().write(stored);
}

// ---- pictures -------------------------------------------------------------------------------------------------------

void QRoseChartWidget::copyToClipboard()
{
    QApplication::clipboard()->setPixmap(
        m_pqLegends->withChart(m_pqFrame->grabChart(), m_pqPlot->backgroundColor(), m_pqPlot->labelColor()));
}

void QRoseChartWidget::copyEWMFToClipboard()
{
    const QSize oSize = m_pqFrame->pictureSize() + QSize(static_cast<int>(std::ceil(m_pqLegends->widthBeside())), 0);
    copyMetafileToClipboard(ChartExporter::metafile(oSize, picture()), this);
}

void QRoseChartWidget::renderTo(QPainter& painter, const QRectF& oTarget)
{
    if (m_bCountNeeded)
        updateRoseChartData();
    m_pqFrame->renderTo(painter, m_pqLegends->paintBeside(painter, oTarget, m_pqPlot->labelColor()));
}

ChartPicture QRoseChartWidget::picture()
{
    return {m_pqPlot->backgroundColor(), m_pqPlot->headerTitle(),
            [this](QPainter& painter, const QRectF& oRect) { renderTo(painter, oRect); }};
}

bool QRoseChartWidget::exportChart(const QString& sPath, const QSize& oSize, QString* psError)
{
    return ChartExporter::write(sPath, oSize, picture(), psError);
}

} // namespace gkBase
