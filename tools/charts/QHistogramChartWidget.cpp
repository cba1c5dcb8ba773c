#include "QHistogramChartWidget.h"

#include "AttributeChooser.h"
#include "ChartDisplayPage.h"
#include "ChartExporter.h"
#include "ChartFrame.h"
#include "ChartFrameStack.h"
#include "DisplayUnitManager.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MissingValue.h"
#include "ProbabilityPlotFrame.h"
#include "QDoubleSpinBoxWithSlider.h"
#include "QHistogramItemModel.h"
#include "QHistogramPlotWidget.h"
#include "UnitText.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dFullCircle = 360.0;
constexpr double g_dHalfCircle = 180.0;
constexpr int g_iStatisticDecimals = 3;
constexpr int g_iIntervalSteps = 200;
/// Ranges below this are fixed by the canvas (HistogramGeometry), not widened by the axis.
constexpr double g_dSmallestRange = 5e-7;

QString dashes()
{
    return QStringLiteral("---");
}

} // namespace

// ---- what is shown -------------------------------------------------------------------------------------------------

void QHistogramChartWidget::setDataRoot(MatrixData* poRoot)
{
    if (poRoot != m_poRoot) {
        if (m_poRoot)
            m_poRoot->notifier()->disconnect(this);
        m_poData = nullptr;
        m_viSelectedRecords.clear();
        m_poRoot = poRoot;
        m_pModel->setDataRoot(poRoot);
        if (m_poRoot) {
            MatrixDataNotifier* pqNotifier = m_poRoot->notifier();
            connect(pqNotifier, &MatrixDataNotifier::nodeAboutToBeRemoved, this,
                    &QHistogramChartWidget::slotNodeAboutToBeRemoved);
            connect(pqNotifier, &MatrixDataNotifier::rootAboutToBeDestroyed, this,
                    &QHistogramChartWidget::slotRootAboutToBeDestroyed);
        }
        updateHistogramWithDefaultIntervals();
    }
    updateDataSetSelectionBox();
}

MatrixData* QHistogramChartWidget::numericAttribute(MatrixData* poData) const
{
    if (!poData)
        return nullptr;
    for (MatrixData* poLeaf : poData->leafs()) {
        if (isNumericAttribute(poLeaf))
            return poLeaf;
    }
    return nullptr;
}

void QHistogramChartWidget::setDataSet(MatrixData* poData)
{
    chooseDataSet(poData);
    updateHistogram();
}

void QHistogramChartWidget::chooseDataSet(MatrixData* poData)
{
    m_poData = numericAttribute(poData);
    const MatrixData* poOwner = m_poData ? m_poData->owner() : nullptr;
    m_bAzimuthScaling = poOwner && poOwner->azimuthAttribute() == m_poData;
    m_bDefaultIntervals = true;
    showChooserEntry();
}

void QHistogramChartWidget::setCurrentDataSet(int iGlobalID)
{
    setDataSet(m_poRoot ? m_poRoot->nodeFromID(iGlobalID) : nullptr);
}

bool QHistogramChartWidget::setSelectedRows(const std::vector<int>& viRecords)
{
    if (viRecords == m_viSelectedRecords)
        return false;
    m_viSelectedRecords = viRecords;
    updateHistogram();
    return true;
}

void QHistogramChartWidget::setHistogramType(int iType)
{
    if (iType < 0 || iType >= m_pqHistogramTypeComboBox->count())
        return;
    m_pqHistogramTypeComboBox->setCurrentIndex(iType);
    updateHistogram();
}

void QHistogramChartWidget::setIntervalSize(double dIntervalSize)
{
    m_pModel->setIntervalSize(dIntervalSize);
    updateHistogram();
    const QSignalBlocker blocker(m_pqIntervalSizeSpinBox);
    m_pqIntervalSizeSpinBox->setValue(m_pModel->intervalSize() * displayScale(m_poData));
}

void QHistogramChartWidget::updateDataSetSelectionBox()
{
    QList<QString> lNames;
    QList<int> liIds;
    QList<QColor> lColors;
    if (m_poRoot)
        m_poRoot->getDataSetSelectionBoxItems(lNames, liIds, lColors, MatrixData::NumericAttribute, false);
    const QSignalBlocker blocker(m_pqHistogramDataSetComboBox);
    m_pqHistogramDataSetComboBox->clear();
    for (qsizetype i = 0; i < liIds.size(); ++i)
        m_pqHistogramDataSetComboBox->addItem(colorSwatch(*m_pqHistogramDataSetComboBox, lColors.value(i)),
                                              lNames.value(i), liIds[i]);
    showChooserEntry();
}

void QHistogramChartWidget::showChooserEntry()
{
    const QSignalBlocker blocker(m_pqHistogramDataSetComboBox);
    const int iEntry = m_poData ? m_pqHistogramDataSetComboBox->findData(m_poData->globalID()) : -1;
    m_pqHistogramDataSetComboBox->setCurrentIndex(iEntry);
}

void QHistogramChartWidget::slotDataSetActivated(int iEntry)
{
    const int iGlobalID = m_pqHistogramDataSetComboBox->itemData(iEntry).toInt();
    chooseDataSet(m_poRoot ? m_poRoot->nodeFromID(iGlobalID) : nullptr);
    emit dataSetSelected();
    // An owner counts again on the signal, with the rows that it knows; once is enough.
    if (m_bDefaultIntervals)
        updateHistogram();
}

void QHistogramChartWidget::slotNodeAboutToBeRemoved(MatrixData* poBranch)
{
    if (MatrixDataNotifier::contains(poBranch, m_poData))
        setDataSet(nullptr);
    // The chooser must not offer what goes; it is filled again when the owner asks.
    const QSignalBlocker blocker(m_pqHistogramDataSetComboBox);
    for (const MatrixData* poLeaf : poBranch->leafs()) {
        const int iEntry = m_pqHistogramDataSetComboBox->findData(poLeaf->globalID());
        if (iEntry >= 0)
            m_pqHistogramDataSetComboBox->removeItem(iEntry);
    }
    showChooserEntry();
}

void QHistogramChartWidget::slotRootAboutToBeDestroyed()
{
    m_poRoot = nullptr;
    m_pModel->setDataRoot(nullptr);
    m_viSelectedRecords.clear();
    setDataSet(nullptr);
    updateDataSetSelectionBox();
}

void QHistogramChartWidget::slotDisplayUnitChanged(const QString& sCategory)
{
    if (!m_poData || m_poData->unitCategory() != sCategory)
        return;
    initialiseIntervalControl();
    updateHistogram();
}

void QHistogramChartWidget::setAzimuthScaling(bool bOn)
{
    m_bAzimuthScaling = bOn;
    updateHistogram();
}

void QHistogramChartWidget::setMercatorScaling(bool bOn)
{
    m_bMercatorScaling = bOn;
    updateHistogram();
}

void QHistogramChartWidget::setTandLdirection(const double& dT, const double& dL)
{
    m_dT = dT;
    m_dL = dL;
    markDirections();
}

void QHistogramChartWidget::markDirections()
{
    if (m_bAzimuthScaling)
        m_pqPlot->setTandLdirection(m_dT, m_dL);
    else
        m_pqPlot->setTandLdirection(g_dMissingValue, g_dMissingValue);
}

void QHistogramChartWidget::setChartFrameEnabled(bool bEnabled)
{
    m_pqFrames->setChartEnabled(bEnabled);
}

// ---- rebuilding ----------------------------------------------------------------------------------------------------

void QHistogramChartWidget::updateHistogram()
{
    if (m_bInitialising)
        return;
    if (m_bDefaultIntervals) {
        updateHistogramWithDefaultIntervals();
        return;
    }
    m_pModel->takeNewDataSet(m_poData, m_pqHistogramTypeComboBox->currentIndex(), m_viSelectedRecords);
    initializeNewHistogramChart();
    updateProbabilityPlot();
    m_pqDisplayPage->applyZoom();
}

bool QHistogramChartWidget::showsProbability() const
{
    return m_pqHistogramTypeComboBox->currentIndex() == s_iNormalProbability;
}

/// The values are sorted only while they are seen.
void QHistogramChartWidget::updateProbabilityPlot()
{
    const bool bShown = showsProbability();
    m_pqProbabilityFrame->showAttribute(bShown ? m_poData : nullptr, m_viSelectedRecords);
    m_pqFrames->setCurrentWidget(bShown ? static_cast<ChartFrame*>(m_pqProbabilityFrame) : m_pqFrame);
    for (QCheckBox* pqBox : {m_pqP10CheckBox, m_pqP50CheckBox, m_pqP90CheckBox})
        pqBox->setEnabled(!bShown);
    m_pqIntervalSizeSpinBox->setEnabled(!bShown && m_pqIntervalSizeSpinBox->maximum() > 0.0);
}

void QHistogramChartWidget::updateHistogramWithDefaultIntervals()
{
    m_bDefaultIntervals = false;
    m_pModel->setIntervalSize(g_dMissingValue);
    updateHistogram();
    initialiseIntervalControl();
}

void QHistogramChartWidget::updateHistogramIntervals(double dIntervalSize)
{
    if (m_bInitialising)
        return;
    m_pModel->setIntervalSize(dIntervalSize / displayScale(m_poData));
    updateHistogram();
}

void QHistogramChartWidget::initialiseIntervalControl()
{
    double dMin = 0.0;
    double dMax = 0.0;
    if (m_poData)
        m_poData->getMinMax(dMin, dMax);
    const double dRange = (dMax - dMin) * displayScale(m_poData);
    const QSignalBlocker blocker(m_pqIntervalSizeSpinBox);
    m_pqIntervalSizeSpinBox->setDecimals(dRange >= 1.0 ? 2 : 4);
    m_pqIntervalSizeSpinBox->initialise(dRange / 1000.0, dRange / 3.0, g_iIntervalSteps);
    m_pqIntervalSizeSpinBox->setValue(m_pModel->intervalSize() * displayScale(m_poData));
    const QString sUnit = m_poData ? m_poData->unitManager()->getDisplayUnitTag() : QString();
    m_pqIntervalSizeSpinBox->setSuffix(sUnit.isEmpty() ? QString() : QLatin1Char(' ') + sUnit);
    m_pqIntervalSizeSpinBox->setEnabled(dRange > 0.0 && !showsProbability());
}

void QHistogramChartWidget::initializeNewHistogramChart()
{
    const bool bFrequency = m_pModel->histogramType() == MatrixData::Frequency;
    const QString sType = m_pqHistogramTypeComboBox->currentText();
    const QString sName = m_poData ? m_poData->name() : QString();
    m_pqFrame->leftAxis()->setTitle(bFrequency ? sType : sType + QLatin1Char('%'));
    m_pqFrame->leftAxis()->setWholeNumbers(bFrequency);
    m_pqFrame->bottomAxis()->setTitle(sName);
    m_pqFrame->bottomAxis()->setUnitManager(m_poData ? m_poData->unitManager() : boost::shared_ptr<UnitManager>());
    const MatrixData* poDataSet = m_poData ? m_poData->owner() : nullptr;
    m_pqFrame->setTitle(poDataSet ? poDataSet->name() : sName);
    showStatistics();
    updateDataBoundaries();
    updateDiagramSettings();
}

void QHistogramChartWidget::showStatistics()
{
    const bool bEmpty = m_pModel->numberOfPoints() == 0;
    const HistogramPercentiles percentiles = m_pModel->percentiles();
    m_pqNumberOfPointsLabel->setText(bEmpty ? dashes() : QString::number(m_pModel->numberOfPoints()));
    m_pqStandardDeviationLabel->setText(shownDifference(m_pModel->standardDeviation()));
    m_pqP10Label->setText(displayText(m_poData, percentiles.m_dP10, g_iStatisticDecimals));
    m_pqP50Label->setText(displayText(m_poData, percentiles.m_dP50, g_iStatisticDecimals));
    m_pqP90Label->setText(displayText(m_poData, percentiles.m_dP90, g_iStatisticDecimals));
    m_pqPlot->setStatisticPoints(percentiles.m_dP10, percentiles.m_dP50, percentiles.m_dP90,
                                 m_pqDisplayPage->blackBackground() ? Qt::black : Qt::white);
}

void QHistogramChartWidget::updateDataBoundaries()
{
    QPointF oLowerLeft(0.0, 0.0);
    QPointF oUpperRight(1.0, 1.0);
    const int iRows = m_pModel->rowCount();
    if (iRows > 0) {
        double dMin = m_pModel->min();
        double dMax = dMin + (iRows + 1) * m_pModel->intervalSize();
        if (m_bAzimuthScaling)
            dMax = m_bMercatorScaling ? g_dHalfCircle : g_dFullCircle;
        else if (dMax - dMin >= g_dSmallestRange)
            m_pqFrame->bottomAxis()->fitNiceRange(dMin, dMax);
        oLowerLeft = QPointF(dMin, 0.0);
        oUpperRight = QPointF(dMax, m_pModel->maximumHeight());
    }
    m_pqPlot->setBoundaries(oLowerLeft, oUpperRight);
    markDirections();
    // The canvas widens ranges that cannot be drawn; the axes show what it shows.
    const HistogramBoundaries shown = m_pqPlot->boundaries();
    m_pqFrame->bottomAxis()->setRange(shown.m_oLowerLeft.x(), shown.m_oUpperRight.x());
    m_pqFrame->leftAxis()->setRange(shown.m_oLowerLeft.y(), shown.m_oUpperRight.y());
}

QString QHistogramChartWidget::shownDifference(double dDifference) const
{
    if (!m_poData || isMissing(dDifference))
        return dashes();
    const QString sNumber = QString::number(dDifference * displayScale(m_poData), 'f', g_iStatisticDecimals);
    return (sNumber + QLatin1Char(' ') + m_poData->unitManager()->getDisplayUnitTag()).trimmed();
}

// ---- display settings ----------------------------------------------------------------------------------------------

void QHistogramChartWidget::updateDiagramSettings()
{
    m_pqPlot->setShowP10(m_pqP10CheckBox->isChecked());
    m_pqPlot->setShowP50(m_pqP50CheckBox->isChecked());
    m_pqPlot->setShowP90(m_pqP90CheckBox->isChecked());
}

void QHistogramChartWidget::setBlackBackground(bool bBlack)
{
    m_pqDisplayPage->setBlackBackground(bBlack);
}

void QHistogramChartWidget::updateCursorPosLabel(QPointF oPosition)
{
    if (!m_poData || isMissing(oPosition.x())) {
        m_pqFrame->setCursorText(tr("(x,y):") + QStringLiteral("(-----,-----)"));
        return;
    }
    const boost::shared_ptr<UnitManager> poUnit = m_poData->unitManager();
    const QString sX = QString::number(poUnit->convertModelToDisplay(oPosition.x()), 'f', poUnit->precision());
    const QString sUnit = poUnit->getDisplayUnitTag();
    m_pqFrame->setCursorText(
        tr("(x,y):") + QStringLiteral("(%1, %2)")
                           .arg((sX + QLatin1Char(' ') + sUnit).trimmed(), QString::number(oPosition.y(), 'f', 2)));
}

// ---- pictures
// ---------------------------------------------------------------------------------------------------------------

void QHistogramChartWidget::copyToClipboard()
{
    QApplication::clipboard()->setPixmap(m_pqFrames->currentFrame()->grabChart());
}

void QHistogramChartWidget::copyEWMFToClipboard()
{
    m_pqFrames->currentFrame()->copyMetafileToClipboard();
}

void QHistogramChartWidget::renderTo(QPainter& painter, const QRectF& oTarget)
{
    m_pqFrames->currentFrame()->renderTo(painter, oTarget);
}

ChartPicture QHistogramChartWidget::picture()
{
    return {m_pqPlot->backgroundColor(), m_pqFrames->currentFrame()->canvas()->headerTitle(),
            [this](QPainter& painter, const QRectF& oRect) { renderTo(painter, oRect); }};
}

bool QHistogramChartWidget::exportChart(const QString& sPath, const QSize& oSize, QString* psError)
{
    return ChartExporter::write(sPath, oSize, picture(), psError);
}

} // namespace gkBase
