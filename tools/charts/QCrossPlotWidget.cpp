#include "QCrossPlotWidget.h"

#include "ChartDisplayPage.h"
#include "ChartExporter.h"
#include "ChartFrame.h"
#include "ClassLegends.h"
#include "CrossPlotAttributeGroup.h"
#include "CrossPlotClusterPage.h"
#include "CrossPlotPointPage.h"
#include "MatrixData.h"
#include "MetafileClipboard.h"
#include "QCartesianAxisWidget.h"
#include "QCrossPlot.h"
#include "QLegendListView.h"
#include "QRelationshipItemModel.h"
#include "UnitManager.h"
#include "UnitText.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QSettings>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Half of the range of an axis whose values are all equal, as a share of the value.
constexpr double g_dShareOfEqualValues = 0.05;
/// Room between the outermost points and the ends of an axis, as a share of the range of the values.
constexpr double g_dShareOfRoom = 0.02;
constexpr double g_dFullCircle = 360.0;

bool isAzimuth(const MatrixData* poNode)
{
    return poNode && poNode->owner() && poNode->owner()->azimuthAttribute() == poNode;
}

/// Ends of an axis with all values, and room for their symbols, between them; an axis of azimuths ends with the circle.
void widen(double& dMin, double& dMax, const QCartesianAxisWidget& oAxis, const MatrixData* poNode)
{
    if (!(dMin < dMax)) {
        const double dHalf = dMin == 0.0 ? 1.0 : std::abs(dMin) * g_dShareOfEqualValues;
        dMin -= dHalf;
        dMax += dHalf;
        return;
    }
    const double dLow = dMin;
    const double dHigh = dMax;
    const double dRoom = (dMax - dMin) * g_dShareOfRoom;
    oAxis.fitNiceRange(dMin, dMax);
    if (isAzimuth(poNode) && dLow >= 0.0 && dHigh <= g_dFullCircle) {
        dMax = std::min(dMax, g_dFullCircle);
        return;
    }
    dMin = std::min(dMin, dLow - dRoom);
    dMax = std::max(dMax, dHigh + dRoom);
}

/// The wanted ends of an axis where there are some; as they are when the wanted ones leave no axis.
void takeWanted(double& dMin, double& dMax, double dWantedMin, double dWantedMax)
{
    const double dFrom = isMissing(dWantedMin) ? dMin : dWantedMin;
    const double dTo = isMissing(dWantedMax) ? dMax : dWantedMax;
    if (dFrom < dTo) {
        dMin = dFrom;
        dMax = dTo;
    }
}

} // namespace

// ---- points and axes ------------------------------------------------------------------------------------------------

void QCrossPlotWidget::updateCrossPlot()
{
    const bool bOtherAttributes = m_bReadNeeded;
    const quint64 iRevision = m_pModel->revision();
    readPoints();
    showAxes();
    if (!bOtherAttributes && m_pModel->revision() == iRevision)
        return;
    showClasses();
    m_pqClusterPage->showClusters(*m_pModel);
    m_pqClusterPage->setApplicable(m_pModel->numberOfValidPoints() > 0);
    m_pqPlot->scheduleRedraw();
}

void QCrossPlotWidget::readPoints()
{
    m_bReadNeeded = false;
    QString sMessage = problem();
    const bool bUsable = sMessage.isEmpty();
    const int iFormerRecords = m_pModel->numberOfPoints();
    m_pModel->takeNewDataSet(-1, QRelationshipItemModel::CrossPlotDisplay, bUsable ? nodeX() : nullptr,
                             bUsable ? nodeY() : nullptr, {});
    if (bUsable && m_pModel->numberOfValidPoints() == 0)
        sMessage = tr("No record has a value of both attributes");
    if (sMessage != m_pqPlot->message())
        m_pqPlot->setMessage(sMessage);
    // The model forgets the selection with the number of records.
    if (m_pModel->numberOfPoints() != iFormerRecords)
        m_pModel->setSelectedRecords(m_viSelectedRecords);
}

QString QCrossPlotWidget::problem() const
{
    for (const MatrixData* poNode : {nodeX(), nodeY()}) {
        if (!poNode)
            return tr("Select two attributes of numbers");
        if (!isNumericAttribute(poNode))
            return tr("\"%1\" does not hold numbers").arg(poNode->name());
    }
    return {};
}

void QCrossPlotWidget::showAxes()
{
    const auto showAxis = [](QCartesianAxisWidget* pqAxis, const MatrixData* poNode) {
        pqAxis->setTitle(poNode ? poNode->name() : QString());
        pqAxis->setUnitManager(poNode ? poNode->unitManager() : boost::shared_ptr<UnitManager>());
    };
    showAxis(m_pqFrame->bottomAxis(), nodeX());
    showAxis(m_pqFrame->leftAxis(), nodeY());
    m_pqAxesPage->setUnits(m_pqFrame->bottomAxis()->unitManager(), m_pqFrame->leftAxis()->unitManager());
    const MatrixData* poDataSet = nodeX() ? nodeX()->owner() : nullptr;
    m_pqFrame->setTitle(poDataSet ? poDataSet->name() : QString());
    showLimits();
}

CrossPlotLimits QCrossPlotWidget::automaticLimits() const
{
    if (m_pModel->numberOfValidPoints() == 0)
        return {0.0, 1.0, 0.0, 1.0};
    const QRectF oBox = m_pModel->boundingBox();
    CrossPlotLimits limits{oBox.left(), oBox.right(), oBox.top(), oBox.bottom()};
    widen(limits.m_dXMin, limits.m_dXMax, *m_pqFrame->bottomAxis(), nodeX());
    widen(limits.m_dYMin, limits.m_dYMax, *m_pqFrame->leftAxis(), nodeY());
    return limits;
}

void QCrossPlotWidget::showLimits()
{
    CrossPlotLimits shown = automaticLimits();
    takeWanted(shown.m_dXMin, shown.m_dXMax, m_oLimits.m_dXMin, m_oLimits.m_dXMax);
    takeWanted(shown.m_dYMin, shown.m_dYMax, m_oLimits.m_dYMin, m_oLimits.m_dYMax);
    m_pqFrame->bottomAxis()->setRange(shown.m_dXMin, shown.m_dXMax);
    m_pqFrame->leftAxis()->setRange(shown.m_dYMin, shown.m_dYMax);
    m_pModel->setMinMaxRanges(shown.m_dXMin, shown.m_dXMax, shown.m_dYMin, shown.m_dYMax);
    const QPointF oA(shown.m_dXMin, shown.m_dYMin);
    const QPointF oB(shown.m_dXMax, shown.m_dYMax);
    if (oA != m_pqPlot->rangeA() || oB != m_pqPlot->rangeB())
        m_pqPlot->setRange(oA, oB);
    m_pqAxesPage->setLimits(shown, m_oLimits == CrossPlotLimits());
}

void QCrossPlotWidget::setLimits(const CrossPlotLimits& limits)
{
    m_oLimits = limits;
    showLimits();
}

void QCrossPlotWidget::swapAxes()
{
    const CrossPlotLimits limits{m_oLimits.m_dYMin, m_oLimits.m_dYMax, m_oLimits.m_dXMin, m_oLimits.m_dXMax};
    chooseAttributes(nodeY(), nodeX());
    m_oLimits = limits;
    updateCrossPlot();
}

void QCrossPlotWidget::showClasses()
{
    m_pqLegends->setClasses(*m_pModel);
    m_pqPointPage->setColorAttribute(m_pModel->colorAttribute(), m_pModel->colorClasses().isBanded());
}

void QCrossPlotWidget::updateCursorPosLabel(QPointF oPosition)
{
    const bool bInside = nodeX() && nodeY() && !isMissing(oPosition.x());
    const QString sPosition =
        bInside
            ? QStringLiteral("(%1, %2)").arg(displayText(nodeX(), oPosition.x()), displayText(nodeY(), oPosition.y()))
            : QStringLiteral("(-----,-----)");
    m_pqFrame->setCursorText(tr("(x,y):") + sPosition);
}

// ---- selection ------------------------------------------------------------------------------------------------------

bool QCrossPlotWidget::setSelectedRows(const std::vector<int>& viRecords)
{
    m_viSelectedRecords = viRecords;
    if (!m_pModel->setSelectedRecords(viRecords))
        return false;
    m_pqLegends->clearSelection();
    m_pqPlot->scheduleRedraw();
    return true;
}

int QCrossPlotWidget::numberOfSelectedRows() const
{
    return m_pModel->numberOfSelectedPoints();
}

void QCrossPlotWidget::slotPointsSelected(bool* pbSelection, int iLength)
{
    m_pqLegends->clearSelection();
    m_viSelectedRecords = m_pModel->selectedRecords();
    emit dataPointsSelection(pbSelection, iLength);
}

void QCrossPlotWidget::slotLegendSelection()
{
    m_pModel->selectPoints(m_pqLegends->selectedRecords(*m_pModel), false);
    m_viSelectedRecords = m_pModel->selectedRecords();
    m_pqPlot->scheduleRedraw();
    emit dataPointsSelection(m_pModel->selection(), m_pModel->numberOfPoints());
}

// ---- looks ----------------------------------------------------------------------------------------------------------

void QCrossPlotWidget::setBlackBackground(bool bBlack)
{
    m_pqDisplayPage->setBlackBackground(bBlack);
}

void QCrossPlotWidget::setShowRegressionLine(bool bShow)
{
    m_pqRegressionCheckBox->setChecked(bShow);
    slotStatisticsChanged();
}

CrossPlotSettings QCrossPlotWidget::settings() const
{
    CrossPlotSettings settings;
    settings.m_oDisplay = m_pqDisplayPage->settings();
    m_pqPointPage->writeTo(settings);
    m_pqClusterPage->writeTo(settings);
    settings.m_bRegressionLine = m_pqRegressionCheckBox->isChecked();
    settings.m_bRegressionOfSelection = m_pqRegressionOfSelectionCheckBox->isChecked();
    settings.m_b90PercentRange = m_pq90PercentCheckBox->isChecked();
    return settings;
}

void QCrossPlotWidget::setSettings(const CrossPlotSettings& settings)
{
    m_pqDisplayPage->setSettings(settings.m_oDisplay);
    m_pqPointPage->setSettings(settings);
    m_pqClusterPage->setSettings(settings);
    m_pqRegressionCheckBox->setChecked(settings.m_bRegressionLine);
    m_pqRegressionOfSelectionCheckBox->setChecked(settings.m_bRegressionOfSelection);
    m_pq90PercentCheckBox->setChecked(settings.m_b90PercentRange);
    slotLooksChanged();
    slotColorMapChanged();
    slotStatisticsChanged();
}

void QCrossPlotWidget::readSettings(const QString& sGroup)
{
    QSettings stored;
    stored.beginGroup(sGroup);
    CrossPlotSettings settings = this->settings();
    settings.read(stored);
    setSettings(settings);
}

void QCrossPlotWidget::writeSettings(const QString& sGroup) const
{
    QSettings stored;
    stored.beginGroup(sGroup);
    settings().write(stored);
}

void QCrossPlotWidget::slotLooksChanged()
{
    const CrossPlotSettings wanted = settings();
    m_pModel->setPointStyle(wanted.m_ePointStyle);
    m_pModel->setPointPixelSize(wanted.m_iPointSize);
    m_pModel->setOutLinePointStyle(wanted.m_bHollow);
    m_pqLegends->setWanted(wanted.m_bColorLegend, wanted.m_bSymbolLegend);
    m_pqPlot->setClusterPoleCentroidsOn(wanted.m_bCentroids);
    m_pqPlot->scheduleRedraw();
}

void QCrossPlotWidget::slotColorMapChanged()
{
    const RelationshipClasses::ColorMap map = m_pqPointPage->colorMap();
    m_pModel->setColorMap(map.m_dMin, map.m_dMax, map.m_dInterval, map.m_bRedToBlue);
    showClasses();
    m_pqPlot->scheduleRedraw();
}

void QCrossPlotWidget::slotStatisticsChanged()
{
    m_pqRegressionOfSelectionCheckBox->setEnabled(m_pqRegressionCheckBox->isChecked());
    m_pModel->setPartSelection(m_pqRegressionOfSelectionCheckBox->isChecked());
    m_pqPlot->setShowRegressionLine(m_pqRegressionCheckBox->isChecked());
    m_pqPlot->setShow90PercentRange(m_pq90PercentCheckBox->isChecked());
    m_pqPlot->scheduleRedraw();
}

// ---- pictures -------------------------------------------------------------------------------------------------------

void QCrossPlotWidget::copyToClipboard()
{
    QApplication::clipboard()->setPixmap(
        m_pqLegends->withChart(m_pqFrame->grabChart(), m_pqPlot->backgroundColor(), m_pqPlot->labelColor()));
}

void QCrossPlotWidget::copyEWMFToClipboard()
{
    const QSize oSize = m_pqFrame->pictureSize() + QSize(static_cast<int>(std::ceil(m_pqLegends->widthBeside())), 0);
    copyMetafileToClipboard(ChartExporter::metafile(oSize, picture()), this);
}

void QCrossPlotWidget::copyColorLegend()
{
    if (m_pModel->colorAttributeIsOn())
        QApplication::clipboard()->setPixmap(m_pqLegends->colorView()->wholeLegend());
}

void QCrossPlotWidget::copySymbolLegend()
{
    if (m_pModel->symbolAttributeIsOn())
        QApplication::clipboard()->setPixmap(m_pqLegends->symbolView()->wholeLegend());
}

void QCrossPlotWidget::renderTo(QPainter& painter, const QRectF& oTarget)
{
    m_pqFrame->renderTo(painter, m_pqLegends->paintBeside(painter, oTarget, m_pqPlot->labelColor()));
}

ChartPicture QCrossPlotWidget::picture()
{
    return {m_pqPlot->backgroundColor(), m_pqPlot->headerTitle(),
            [this](QPainter& painter, const QRectF& oRect) { renderTo(painter, oRect); }};
}

bool QCrossPlotWidget::exportChart(const QString& sPath, const QSize& oSize, QString* psError)
{
    return ChartExporter::write(sPath, oSize, picture(), psError);
}

} // namespace gkBase
