#include "QScatDepthPlotWidget.h"

#include "AngleUnits.h"
#include "Angles.h"
#include "ApparentDip.h"
#include "AttributeChooser.h"
#include "ChartDisplayPage.h"
#include "DepthTrack.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MetafileClipboard.h"
#include "QDepthTrackArea.h"
#include "QRelationshipItemModel.h"
#include "ScatDirectionFinder.h"
#include "ScatDirectionGroup.h"
#include "ScatScenarios.h"
#include "TransverseDirection.h"

#include <QApplication>
#include <QClipboard>
#include <QPainter>
#include <QSettings>
#include <QTabWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace gkBase {

namespace {

constexpr QLatin1String g_transverseDip("Transverse Dip");
constexpr QLatin1String g_longitudinalDip("Longitudinal Dip");
/// Of the points until the user chooses others; readable on white and black.
constexpr QRgb g_transverseColor = 0xff2878b4;
constexpr QRgb g_longitudinalColor = 0xff9a5fb5;

/// The largest magnitude of the values, in degrees; 0 without any.
double steepestDip(const MatrixData* poDips)
{
    double dMin = g_dMissingValue;
    double dMax = g_dMissingValue;
    if (poDips)
        poDips->getMinMax(dMin, dMax);
    return isMissing(dMin) || isMissing(dMax) ? 0.0 : std::max(-dMin, dMax) * degreesPerUnit(*poDips);
}

} // namespace

// ---- data -----------------------------------------------------------------------------------------------------------

void QScatDepthPlotWidget::setDataRoot(MatrixData* poRoot)
{
    if (m_poRoot == poRoot)
        return;
    setAttributes(nullptr, nullptr, nullptr);
    followRoot(poRoot);
}

void QScatDepthPlotWidget::followRoot(MatrixData* poRoot)
{
    if (m_poRoot == poRoot)
        return;
    if (m_poRoot)
        m_poRoot->notifier()->disconnect(this);
    m_poRoot = MatrixDataPointer(poRoot);
    if (!poRoot)
        return;
    using Panel = QScatDepthPlotWidget;
    const MatrixDataNotifier* pqNotifier = poRoot->notifier();
    connect(pqNotifier, &MatrixDataNotifier::nodeAboutToBeRemoved, this, &Panel::slotNodeAboutToBeRemoved);
    connect(pqNotifier, &MatrixDataNotifier::rootAboutToBeDestroyed, this, &Panel::slotRootAboutToBeDestroyed);
    connect(pqNotifier, &MatrixDataNotifier::valuesChanged, this, &Panel::slotValuesChanged);
    connect(pqNotifier, &MatrixDataNotifier::attributesChanged, this, [this](const MatrixData* poNode) {
        if (m_poDepth == poNode || m_poDip == poNode || m_poAzimuth == poNode)
            slotUpdateDiagrams();
        else if (m_poDepth && m_poDepth->parentNode() == poNode)
            showMessage(); // the name of the well
    });
}

void QScatDepthPlotWidget::setDataSet(MatrixData* poDataSetOrAttribute)
{
    const MatrixData* poDataSet = poDataSetOrAttribute && poDataSetOrAttribute->isAttribute()
                                      ? poDataSetOrAttribute->parentNode()
                                      : poDataSetOrAttribute;
    if (!poDataSet)
        setAttributes(nullptr, nullptr, nullptr);
    else
        setAttributes(poDataSet->depthAttribute(), poDataSet->dipAttribute(), poDataSet->azimuthAttribute());
}

void QScatDepthPlotWidget::setAttributes(MatrixData* poDepth, MatrixData* poDip, MatrixData* poAzimuth)
{
    if (m_poDepth == poDepth && m_poDip == poDip && m_poAzimuth == poAzimuth) {
        slotUpdateChartData();
        return;
    }
    const auto pointer = [](MatrixData* poNode) {
        return MatrixDataPointer(isNumericAttribute(poNode) ? poNode : nullptr);
    };
    m_poDepth = pointer(poDepth);
    m_poDip = pointer(poDip);
    m_poAzimuth = pointer(poAzimuth);
    if (m_poDepth)
        followRoot(m_poDepth->root());
    m_viTableRows.clear();
    initializeDataSet();
}

bool QScatDepthPlotWidget::hasData() const
{
    return m_poDepth && m_poDip && m_poAzimuth;
}

int QScatDepthPlotWidget::numberOfRecords() const
{
    int iRecords = 0;
    for (const MatrixDataPointer& poNode : {m_poDepth, m_poDip, m_poAzimuth}) {
        if (poNode)
            iRecords = std::max({iRecords, poNode->recordCount(), dataSetRecords(poNode.get())});
    }
    return iRecords;
}

void QScatDepthPlotWidget::initializeDataSet()
{
    setDataCreationType();
    m_pqArea->setTableRows({});
    m_pqArea->setDepth(m_poDepth.get(), numberOfRecords());
    m_pqDirectionGroup->setAngles(m_poDip.get());
    if (hasData() && transverseDirection() == 0.0 && longitudinalDirection() == 0.0)
        proposeDirections();
    rotateBoth();
    applySampling();
    slotUpdateDiagrams();
    showMessage();
}

void QScatDepthPlotWidget::showMessage()
{
    const MatrixData* poAny = m_poDepth ? m_poDepth.get() : m_poDip ? m_poDip.get() : m_poAzimuth.get();
    double dMin = 0.0;
    double dMax = 0.0;
    m_pqArea->dataRange(dMin, dMax);
    QString sMessage;
    if (!poAny)
        sMessage = tr("Select a data set with depth, dip and azimuth.");
    else if (!m_poDepth)
        sMessage = tr("This data set has no depth.");
    else if (!hasData())
        sMessage = tr("This data set has no dip and azimuth.");
    else if (isMissing(dMin))
        sMessage = tr("The depth has no values.");
    m_pqArea->setMessage(sMessage);
    const MatrixData* poDataSet = poAny ? poAny->parentNode() : nullptr;
    m_pqArea->setTitle(tr("SCAT Dipmeter"), poDataSet ? poDataSet->name() : QString());
}

void QScatDepthPlotWidget::setTableRows(const std::vector<int>& viRecords)
{
    if (viRecords == m_viTableRows)
        return;
    m_viTableRows = viRecords;
    applySampling();
}

void QScatDepthPlotWidget::slotUpdateChartData()
{
    rotateBoth();
    m_pqArea->refresh(numberOfRecords());
    applySampling();
    slotUpdateDiagrams();
    showMessage();
}

void QScatDepthPlotWidget::slotValuesChanged(MatrixData* poNode)
{
    if (poNode && (m_poDepth == poNode || m_poDip == poNode || m_poAzimuth == poNode))
        slotUpdateChartData();
}

void QScatDepthPlotWidget::slotNodeAboutToBeRemoved(MatrixData* poBranch)
{
    const auto leaves = [poBranch](const MatrixDataPointer& poNode) {
        return MatrixDataNotifier::contains(poBranch, poNode.get());
    };
    if (leaves(m_poDepth) || leaves(m_poDip) || leaves(m_poAzimuth))
        setAttributes(nullptr, nullptr, nullptr);
}

void QScatDepthPlotWidget::slotRootAboutToBeDestroyed()
{
    setAttributes(nullptr, nullptr, nullptr);
    m_poRoot = MatrixDataPointer();
}

// ---- directions -----------------------------------------------------------------------------------------------------

void QScatDepthPlotWidget::rotateDipData(const QString& sName, std::unique_ptr<MatrixData>& poTarget,
                                         const double& dDirection)
{
    const MatrixData* poDip = m_poDip.get();
    const MatrixData* poAzimuth = m_poAzimuth.get();
    if (!poDip || !poAzimuth) {
        poTarget.reset();
        return;
    }
    if (!poTarget || poTarget->recordCount() != poDip->recordCount()) {
        poTarget = std::make_unique<MatrixData>(sName, poDip->recordCount(), 1, QMetaType::Double);
        poTarget->setColor(QColor::fromRgb(sName == g_transverseDip ? g_transverseColor : g_longitudinalColor));
    }
    poTarget->setUnitManager(poDip->unitManager());
    const std::vector<double> vdDips = numbersInDegrees(*poDip);
    std::vector<double> vdApparentDips(vdDips.size(), g_dEmptyCell);
    apparentDips(vdDips, numbersInDegrees(*poAzimuth), dDirection, vdApparentDips);
    const double dUnit = degreesPerUnit(*poDip);
    for (double& dDip : vdApparentDips)
        dDip /= dUnit;
    poTarget->setColumn(0, MatrixColumn::fromDoubles(std::move(vdApparentDips)));
}

void QScatDepthPlotWidget::rotateBoth()
{
    rotateDipData(g_transverseDip, m_poTransverseDip, transverseDirection());
    rotateDipData(g_longitudinalDip, m_poLongitudinalDip, longitudinalDirection());
    showApparentDips();
}

void QScatDepthPlotWidget::slotRotateInTDirection(double dT)
{
    m_pqDirectionGroup->setTransverse(dT);
    rotateDipData(g_transverseDip, m_poTransverseDip, transverseDirection());
    showApparentDips();
}

void QScatDepthPlotWidget::slotRotateInLDirection(double dL)
{
    m_pqDirectionGroup->setLongitudinal(dL);
    rotateDipData(g_longitudinalDip, m_poLongitudinalDip, longitudinalDirection());
    showApparentDips();
}

/// Both tracks end at the same dip, so that they can be compared.
void QScatDepthPlotWidget::showApparentDips()
{
    m_apparentDipLimits =
        apparentDipLimits(std::max(steepestDip(m_poTransverseDip.get()), steepestDip(m_poLongitudinalDip.get())));
    const std::pair<double, double> directions(transverseDirection(), longitudinalDirection());
    m_pqDirectionFinder->setDirections(directions.first, directions.second);
    refillTrack(TransverseDipTrack);
    refillTrack(LongitudinalDipTrack);
    showTrackSettings();
    if (std::exchange(m_announcedDirections, directions) != directions)
        emit directionsChanged(directions.first, directions.second);
}

void QScatDepthPlotWidget::proposeDirections()
{
    const std::vector<double> vdDips = numbersInDegrees(*m_poDip.get());
    const std::vector<double> vdAzimuths = numbersInDegrees(*m_poAzimuth.get());
    TransverseDirections directions = directionsByTangentLine(vdDips, vdAzimuths);
    if (isMissing(directions.m_dTransverse))
        directions = directionsByRootMeanSquare(vdDips, vdAzimuths);
    if (isMissing(directions.m_dTransverse))
        return;
    m_pqDirectionGroup->setTransverse(directions.m_dTransverse);
    m_pqDirectionGroup->setLongitudinal(directions.m_dLongitudinal);
}

void QScatDepthPlotWidget::updateTandLdirection(const double& dT, const double& dL)
{
    if (takesProposals())
        setDirections(dT, dL);
}

bool QScatDepthPlotWidget::takesProposals() const
{
    const bool bNone = transverseDirection() == 0.0 && longitudinalDirection() == 0.0;
    return !m_pqDirectionGroup->isKept() || bNone;
}

void QScatDepthPlotWidget::setDirections(double dT, double dL)
{
    if (isMissing(dT) && isMissing(dL))
        return;
    m_pqDirectionGroup->setTransverse(dT);
    m_pqDirectionGroup->setLongitudinal(dL);
    rotateBoth();
}

double QScatDepthPlotWidget::transverseDirection() const
{
    return m_pqDirectionGroup->transverse();
}

double QScatDepthPlotWidget::longitudinalDirection() const
{
    return m_pqDirectionGroup->longitudinal();
}

void QScatDepthPlotWidget::enableTandLeditBoxes()
{
    m_pqDirectionGroup->setEditsEnabled(!m_pqDirectionGroup->isKept());
}

// ---- settings, pictures ---------------------------------------------------------------------------------------------

void QScatDepthPlotWidget::setBlackBackground(bool bBlack)
{
    m_pqDisplayPage->setBlackBackground(bBlack);
}

void QScatDepthPlotWidget::setMercatorScaling(bool bOn)
{
    m_bMercatorScaling = bOn;
    refillTrack(AzimuthTrack);
    showTrackSettings();
}

void QScatDepthPlotWidget::hideTab(const QString& sName)
{
    for (int i = 0; i < m_pqTabs->count(); ++i) {
        if (m_pqTabs->widget(i)->objectName() == sName)
            m_pqTabs->setTabVisible(i, false);
    }
}

void QScatDepthPlotWidget::readSettings()
{
    QSettings settings;
    m_settings = ScatSettings::load(settings);
    applySettings();
}

void QScatDepthPlotWidget::writeSettings() const
{
    QSettings settings;
    m_settings.save(settings);
}

void QScatDepthPlotWidget::copyToClipboard()
{
    QApplication::clipboard()->setPixmap(m_pqArea->grabChart());
}

void QScatDepthPlotWidget::copyEWMFToClipboard()
{
    copyMetafileToClipboard(ChartExporter::metafile(m_pqArea->size(), picture()), this);
}

void QScatDepthPlotWidget::renderTo(QPainter& painter, const QRectF& oTarget)
{
    m_pqArea->renderTo(painter, oTarget);
}

ChartPicture QScatDepthPlotWidget::picture()
{
    return {m_pqArea->backgroundColor(), m_pqArea->title(),
            [this](QPainter& painter, const QRectF& oRect) { renderTo(painter, oRect); }};
}

bool QScatDepthPlotWidget::exportChart(const QString& sPath, const QSize& oSize, QString* psError)
{
    return ChartExporter::write(sPath, oSize, picture(), psError);
}

} // namespace gkBase
