#include "QTRNBarChartWidget.h"

#include "AttributeChooser.h"
#include "BarChartFrame.h"
#include "ChartDisplayPage.h"
#include "ChartExporter.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MissingValue.h"
#include "QBarDiagramWidget.h"
#include "QDoubleSpinBoxWithSlider.h"
#include "UnitManager.h"
#include "UnitText.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPixmap>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr int g_iIntervalSteps = 200;
/// Room above the tallest bar for its number, as a share of its height.
constexpr double g_dHeadroom = 0.06;

} // namespace

// ---- what is shown --------------------------------------------------------------------------------------------------

void QTRNBarChartWidget::setDataRoot(MatrixData* poRoot)
{
    if (poRoot != m_poRoot) {
        if (m_poRoot)
            m_poRoot->notifier()->disconnect(this);
        m_poRoot = poRoot;
        m_viSelectedRecords.clear();
        m_viClickedIds.clear();
        m_viClickedRecords.clear();
        if (m_poRoot) {
            MatrixDataNotifier* pqNotifier = m_poRoot->notifier();
            connect(pqNotifier, &MatrixDataNotifier::nodeAboutToBeRemoved, this,
                    &QTRNBarChartWidget::slotNodeAboutToBeRemoved);
            connect(pqNotifier, &MatrixDataNotifier::rootAboutToBeDestroyed, this,
                    &QTRNBarChartWidget::slotRootAboutToBeDestroyed);
        }
        setDataSet(nullptr);
    }
    updateDataSetSelectionBox();
}

void QTRNBarChartWidget::setDataSet(MatrixData* poData)
{
    chooseDataSet(poData);
    updateBarChart();
}

void QTRNBarChartWidget::chooseDataSet(MatrixData* poData)
{
    const std::vector<MatrixData*> vpAttributes = poData ? poData->leafs() : std::vector<MatrixData*>();
    const auto itClasses = std::find_if(vpAttributes.begin(), vpAttributes.end(), [](const MatrixData* poAttribute) {
        return !BarDiagramClasses::takesInterval(*poAttribute) && poAttribute->recordCount() > 0;
    });
    m_poData = itClasses != vpAttributes.end() ? *itClasses : vpAttributes.empty() ? nullptr : vpAttributes.front();
    m_bDefaultInterval = true;
    m_pqBarChartDataSetComboBox->choose(m_poData);
}

bool QTRNBarChartWidget::setSelectedRows(const std::vector<int>& viRecords)
{
    if (!m_viClickedIds.empty() && viRecords == m_viClickedRecords)
        return false;
    const bool bHadClicked = !m_viClickedIds.empty();
    m_viClickedIds.clear();
    m_viClickedRecords.clear();
    if (viRecords == m_viSelectedRecords) {
        if (bHadClicked)
            m_pqPlot->setSelectedIds({});
        return false;
    }
    m_viSelectedRecords = viRecords;
    updateBarChart();
    return true;
}

void QTRNBarChartWidget::setPercent(bool bPercent)
{
    m_pqBarChartTypeComboBox->setCurrentIndex(bPercent ? 1 : 0);
    arrangeBars();
}

void QTRNBarChartWidget::setOrder(BarDiagramClasses::Order eOrder)
{
    m_pqOrderComboBox->setCurrentIndex(eOrder);
    arrangeBars();
}

void QTRNBarChartWidget::setShowMissing(bool bShow)
{
    m_pqShowMissing->setChecked(bShow);
}

void QTRNBarChartWidget::setIntervalSize(double dIntervalSize)
{
    m_dInterval = dIntervalSize > 0.0 ? dIntervalSize : 0.0;
    m_bDefaultInterval = false;
    initialiseIntervalControl();
    updateBarChart();
}

void QTRNBarChartWidget::updateDataSetSelectionBox()
{
    offerAttributes(nullptr);
}

/// The chooser must not offer a branch that goes.
void QTRNBarChartWidget::offerAttributes(const MatrixData* poLeaving)
{
    m_pqBarChartDataSetComboBox->setEntries(attributeEntries(m_poRoot, poLeaving),
                                            [](const AttributeEntry&) { return true; });
    m_pqBarChartDataSetComboBox->choose(m_poData);
}

void QTRNBarChartWidget::slotAttributeChosen(int iGlobalID)
{
    chooseDataSet(m_poRoot ? m_poRoot->nodeFromID(iGlobalID) : nullptr);
    emit dataSetSelected();
    // An owner counts again on the signal, with the rows that it knows; once is enough.
    if (m_bDefaultInterval)
        updateBarChart();
}

void QTRNBarChartWidget::slotNodeAboutToBeRemoved(MatrixData* poBranch)
{
    if (MatrixDataNotifier::contains(poBranch, m_poData))
        setDataSet(nullptr);
    offerAttributes(poBranch);
}

void QTRNBarChartWidget::slotRootAboutToBeDestroyed()
{
    m_poRoot = nullptr;
    m_viClickedIds.clear();
    m_viClickedRecords.clear();
    m_viSelectedRecords.clear();
    setDataSet(nullptr);
    updateDataSetSelectionBox();
}

void QTRNBarChartWidget::slotDisplayUnitChanged(const QString& sCategory)
{
    if (!m_poData || m_poData->unitCategory() != sCategory)
        return;
    initialiseIntervalControl();
    updateBarChart();
}

void QTRNBarChartWidget::setChartFrameEnabled(bool bEnabled)
{
    m_pqFrame->setChartEnabled(bEnabled);
}

// ---- classes and counts ---------------------------------------------------------------------------------------------

void QTRNBarChartWidget::updateBarChart()
{
    if (m_bDefaultInterval) {
        m_bDefaultInterval = false;
        m_dInterval = m_poData ? BarDiagramClasses::suggestedInterval(*m_poData) : 0.0;
        initialiseIntervalControl();
    }
    // What was selected by bars that are no more is a selection like any other for the new ones.
    if (m_pClasses->classify(m_poData, m_dInterval) && !m_viClickedIds.empty()) {
        m_viSelectedRecords = m_viClickedRecords;
        m_viClickedIds.clear();
        m_viClickedRecords.clear();
    }
    m_pClasses->count(m_viSelectedRecords);
    m_pqPlot->setAttributeColor(m_poData ? m_poData->color() : QColor(Qt::darkBlue));
    showTitles();
    arrangeBars();
}

void QTRNBarChartWidget::arrangeBars()
{
    const auto eOrder = static_cast<BarDiagramClasses::Order>(m_pqOrderComboBox->currentIndex());
    m_pClasses->arrange(eOrder, m_pqShowMissing->isChecked());
    m_pqPlot->setPercent(m_pqBarChartTypeComboBox->currentIndex() == 1);
    m_pqFrame->leftAxis()->setTitle(m_pqPlot->isPercent() ? tr("Per cent") : tr("Count"));
    m_pqFrame->leftAxis()->setWholeNumbers(!m_pqPlot->isPercent());
    m_pqPlot->setSelectedIds(m_viClickedIds);
    m_pqFrame->classesChanged();
    updateHeightRange();
    showStatistics();
}

void QTRNBarChartWidget::updateHeightRange()
{
    double dTallest = m_pClasses->maximumCount();
    if (m_pqPlot->isPercent() && m_pClasses->total() > 0)
        dTallest = 100.0 * dTallest / m_pClasses->total();
    double dBottom = 0.0;
    double dTop = dTallest > 0.0 ? dTallest * (1.0 + g_dHeadroom) : 1.0;
    m_pqFrame->leftAxis()->fitNiceRange(dBottom, dTop);
    m_pqPlot->setTop(dTop);
    m_pqFrame->leftAxis()->setRange(0.0, dTop);
}

void QTRNBarChartWidget::showTitles()
{
    const QString sName = m_poData ? m_poData->name() : QString();
    const bool bUnit = m_poData && BarDiagramClasses::takesInterval(*m_poData);
    const QString sUnit = bUnit ? m_poData->unitManager()->getDisplayUnitTag() : QString();
    m_pqFrame->setClassTitle(sUnit.isEmpty() ? sName : QStringLiteral("%1 [%2]").arg(sName, sUnit));
    const MatrixData* poDataSet = m_poData ? m_poData->owner() : nullptr;
    m_pqFrame->setTitle(poDataSet ? poDataSet->name() : sName);
}

void QTRNBarChartWidget::showStatistics()
{
    const bool bMissingShown = m_pqShowMissing->isChecked() && m_pClasses->missingCount() > 0;
    m_pqNumberOfRecordsLabel->setText(QString::number(m_pClasses->total()));
    m_pqNumberOfClassesLabel->setText(QString::number(m_pClasses->barCount() - (bMissingShown ? 1 : 0)));
    m_pqMissingLabel->setText(QString::number(m_pClasses->missingCount()));
}

void QTRNBarChartWidget::initialiseIntervalControl()
{
    double dMin = 0.0;
    double dMax = 0.0;
    const bool bTakesInterval = m_poData && BarDiagramClasses::takesInterval(*m_poData);
    if (bTakesInterval)
        m_poData->getMinMax(dMin, dMax);
    const double dRange = (dMax - dMin) * displayScale(m_poData);
    const QSignalBlocker boxBlocker(m_pqIntervalCheckBox);
    const QSignalBlocker spinBlocker(m_pqIntervalSizeSpinBox);
    m_pqIntervalCheckBox->setEnabled(dRange > 0.0);
    m_pqIntervalCheckBox->setChecked(m_dInterval > 0.0);
    m_pqIntervalSizeSpinBox->setEnabled(dRange > 0.0 && m_dInterval > 0.0);
    m_pqIntervalSizeSpinBox->setDecimals(dRange >= 1.0 ? 2 : 4);
    m_pqIntervalSizeSpinBox->initialise(dRange / BarDiagramClasses::s_iMostIntervals, dRange, g_iIntervalSteps);
    m_pqIntervalSizeSpinBox->setValue(m_dInterval > 0.0 ? m_dInterval * displayScale(m_poData) : dRange / 20.0);
    const QString sUnit = bTakesInterval ? m_poData->unitManager()->getDisplayUnitTag() : QString();
    m_pqIntervalSizeSpinBox->setSuffix(sUnit.isEmpty() ? QString() : QLatin1Char(' ') + sUnit);
}

void QTRNBarChartWidget::slotIntervalChanged()
{
    const bool bIntervals = m_pqIntervalCheckBox->isChecked();
    m_pqIntervalSizeSpinBox->setEnabled(bIntervals);
    m_dInterval = bIntervals ? m_pqIntervalSizeSpinBox->getValue() / displayScale(m_poData) : 0.0;
    updateBarChart();
}

// ---- selection ------------------------------------------------------------------------------------------------------

int QTRNBarChartWidget::recordCount() const
{
    int iRecords = m_poData ? m_poData->recordCount() : 0;
    const MatrixData* poDataSet = m_poData ? m_poData->owner() : nullptr;
    for (int i = 0; poDataSet && i < poDataSet->childCount(); ++i)
        iRecords = std::max(iRecords, poDataSet->child(i)->recordCount());
    return iRecords;
}

void QTRNBarChartWidget::slotBarClicked(int iBar, bool bAdd)
{
    if (!m_poData)
        return;
    std::vector<int> viIds = bAdd ? m_viClickedIds : std::vector<int>();
    if (iBar >= 0 && iBar < m_pClasses->barCount()) {
        const int iId = m_pClasses->bars()[static_cast<std::size_t>(iBar)].m_iId;
        const auto it = std::find(viIds.begin(), viIds.end(), iId);
        if (it == viIds.end())
            viIds.push_back(iId);
        else
            viIds.erase(it);
    } else if (bAdd) {
        return; // a slip beside the bars does not throw the selection away
    }
    selectClasses(viIds);
}

void QTRNBarChartWidget::selectClasses(const std::vector<int>& viIds)
{
    m_viClickedIds = viIds;
    m_viClickedRecords = m_pClasses->recordsOf(viIds);
    m_pqPlot->setSelectedIds(viIds);
    const int iRecords = recordCount();
    const auto pbFlags = std::make_unique<bool[]>(static_cast<std::size_t>(std::max(1, iRecords)));
    for (const int iRecord : m_viClickedRecords)
        if (iRecord < iRecords) // the data set may be shorter by now
            pbFlags[static_cast<std::size_t>(iRecord)] = true;
    emit dataPointsSelection(pbFlags.get(), iRecords);
}

// ---- display settings -----------------------------------------------------------------------------------------------

void QTRNBarChartWidget::updateDiagramSettings()
{
    m_pqPlot->setColorByClass(m_pqColorByClass->isChecked());
    m_pqPlot->setShowValues(m_pqShowValues->isChecked());
}

void QTRNBarChartWidget::setBlackBackground(bool bBlack)
{
    m_pqDisplayPage->setBlackBackground(bBlack);
}

void QTRNBarChartWidget::updateCursorPosLabel(QPointF oPosition)
{
    const bool bInside = !isMissing(oPosition.x());
    const QString sBar = bInside ? m_pqPlot->barText(static_cast<int>(std::floor(oPosition.x()))) : QString();
    m_pqFrame->setCursorText(sBar.isEmpty() ? QStringLiteral("---") : sBar);
}

// ---- pictures -------------------------------------------------------------------------------------------------------

void QTRNBarChartWidget::copyToClipboard()
{
    QApplication::clipboard()->setPixmap(m_pqFrame->grabChart());
}

void QTRNBarChartWidget::copyEWMFToClipboard()
{
    m_pqFrame->copyMetafileToClipboard();
}

void QTRNBarChartWidget::renderTo(QPainter& painter, const QRectF& oTarget)
{
    m_pqFrame->renderTo(painter, oTarget);
}

ChartPicture QTRNBarChartWidget::picture()
{
    return {m_pqPlot->backgroundColor(), m_pqPlot->headerTitle(),
            [this](QPainter& painter, const QRectF& oRect) { renderTo(painter, oRect); }};
}

bool QTRNBarChartWidget::exportChart(const QString& sPath, const QSize& oSize, QString* psError)
{
    return ChartExporter::write(sPath, oSize, picture(), psError);
}

} // namespace gkBase
