// Intervals, decimation and markers of the depth plot panel.

#include "AxisTicks.h"
#include "DepthDecimationPage.h"
#include "DepthIntervalPage.h"
#include "Fingerprint.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "QDepthPlotWidget.h"
#include "QDepthTrackArea.h"
#include "QRelationshipItemModel.h"
#include "UnitManager.h"
#include "UnitText.h"

#include <QApplication>
#include <QCheckBox>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

namespace gkBase {

namespace {

/// The proposed size gives at most so many intervals.
constexpr int g_iProposedIntervals = 20;

/// A number that differs when collectDepthMarkers() may give something else.
std::uint64_t markerKey(const MatrixData* poRoot, const MatrixData* poDepth, const DepthMarkerSwitches& switches)
{
    Fingerprint print;
    print.add(switches.m_bTops);
    print.add(switches.m_bFaults);
    print.add(switches.m_bScat);
    print.add(switches.m_bDecimated);
    print.add(poDepth ? static_cast<std::uint64_t>(poDepth->globalID()) + 1 : 0);
    if (!poRoot)
        return print.value();
    for (const MatrixData* poLeaf : poRoot->leafs()) {
        print.add(static_cast<std::uint64_t>(poLeaf->globalID()));
        print.add(poLeaf->revision());
        print.add(qHash(poLeaf->name()));
        print.add(static_cast<std::uint64_t>(poLeaf->defaultValue1().typeId()));
        print.add(poLeaf->defaultValue1().toBool());
        print.add(poLeaf->parentNode() ? qHash(poLeaf->parentNode()->name()) : 0); // which well it is of
    }
    return print.value();
}

} // namespace

// ---- interval filter and decimation ---------------------------------------------------------------------------------

bool QDepthPlotWidget::intervalRange(double& dMin, double& dMax) const
{
    m_pqArea->dataRange(dMin, dMax);
    if (isMissing(dMin) || isMissing(dMax))
        return false;
    dMin = std::max(dMin, m_pqArea->depthFrom());
    dMax = std::min(dMax, m_pqArea->depthTo());
    return dMin < dMax;
}

double QDepthPlotWidget::proposedIntervalSize() const
{
    double dMin = 0.0;
    double dMax = 0.0;
    if (!intervalRange(dMin, dMax))
        return g_dMissingValue;
    const double dScale = displayScale(m_poDepth.get());
    const NiceStep step = niceStep(dMin * dScale, dMax * dScale, g_iProposedIntervals);
    return step.isValid() ? step.value() / dScale : g_dMissingValue;
}

void QDepthPlotWidget::generateIntervals(double dSize)
{
    double dMin = 0.0;
    double dMax = 0.0;
    if (!intervalRange(dMin, dMax))
        return;
    m_pqArea->lines()->generateAquidistantIntervalFilter(dSize, dMin, dMax);
    intervalsChanged();
}

void QDepthPlotWidget::generateNumberOfIntervals(int n)
{
    double dMin = 0.0;
    double dMax = 0.0;
    if (!intervalRange(dMin, dMax))
        return;
    m_pqArea->lines()->generateNumberOfIntervalFilter(n, dMin, dMax);
    intervalsChanged();
}

void QDepthPlotWidget::deleteIntervals()
{
    m_pqArea->lines()->deleteIntervalBoundaries();
    intervalsChanged();
}

void QDepthPlotWidget::slotBoundaryPressed(double dDepth, double dTolerance)
{
    QRelationshipItemModel* pLines = m_pqArea->lines();
    if (!pLines->eraseIntervalBoundary(QPointF(0.0, dDepth), dTolerance))
        pLines->insertIntervalBoundary(dDepth, dTolerance);
    intervalsChanged();
}

void QDepthPlotWidget::intervalsChanged()
{
    const int iLines = m_pqArea->lines()->intervalFilter()->count();
    m_pqIntervalPage->setNumberOfIntervals(std::max(0, iLines - 1));
    m_pqArea->linesChanged();
    showDecimation();
}

void QDepthPlotWidget::decimate(int iTracks)
{
    const bool bSelectedOnly = m_pqDecimationPage->selectedOnly();
    Fingerprint print;
    print.add(std::span<const double>(m_pqArea->lines()->intervalFilter()->lineDepths()));
    print.add(bSelectedOnly);
    if (bSelectedOnly)
        print.add(std::span<const int>(m_viSelectedRecords));
    m_viDecimationKeys.resize(static_cast<std::size_t>(m_pqArea->numberOfTracks()));
    for (int i = 0; i < iTracks; ++i) {
        QRelationshipItemModel* pModel = m_pqArea->model(i);
        // Every new selection updates the plot; bins and points mostly stay.
        Fingerprint track = print;
        track.add(pModel->pointsRevision());
        track.add(reinterpret_cast<std::uintptr_t>(pModel));
        if (track.value() == std::exchange(m_viDecimationKeys[static_cast<std::size_t>(i)], track.value()) &&
            pModel->decimationData())
            continue;
        pModel->setPartSelection(bSelectedOnly);
        pModel->generateDataDecimation();
    }
}

void QDepthPlotWidget::showDecimation()
{
    const int iBins = m_pqArea->lines()->intervalFilter()->count() - 1;
    const bool bBins = iBins > 0 && m_pqArea->numberOfTracks() > 0;
    const bool bPreview = bBins && m_pqDecimationPage->preview();
    if (bBins)
        decimate(bPreview ? m_pqArea->numberOfTracks() : 1); // the first one counts the records
    for (int i = 0; i < m_pqArea->numberOfTracks(); ++i)
        m_pqArea->setDecimation(i, bPreview ? decimatedBins(*m_pqArea->model(i), m_pqDecimationPage->binAverage())
                                            : std::vector<DepthBin>());
    int iEmpty = 0;
    int iRecords = 0;
    const MatrixData* poCounts = bBins ? m_pqArea->model(0)->decimationCount() : nullptr;
    const int iCounts = poCounts ? poCounts->recordCount() : 0;
    for (int i = 0; i < iCounts; ++i) {
        const int iCount = poCounts->toInt(i, 0);
        iEmpty += iCount == 0 ? 1 : 0;
        iRecords += iCount;
    }
    m_pqDecimationPage->showCounts(iCounts, iEmpty, iRecords);
}

void QDepthPlotWidget::applyDecimation()
{
    if (m_pqArea->lines()->intervalFilter()->count() < 2)
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    decimate(m_pqArea->numberOfTracks());
    // The receiver changes the tree, and may change the tracks on the way.
    for (int i = 0; i < m_pqArea->numberOfTracks(); ++i) {
        QRelationshipItemModel* pModel = m_pqArea->model(i);
        if (pModel->nodeX() && pModel->decimationData())
            emit createDataDecimationAttribute(pModel, m_pqDecimationPage->binAverage(), m_pqDecimationPage->replaces(),
                                               pModel->nodeX());
    }
    QApplication::restoreOverrideCursor();
}

// ---- markers --------------------------------------------------------------------------------------------------------

void QDepthPlotWidget::showMarkers()
{
    // Every new selection updates the plot; the tree is searched only when it changed.
    const std::uint64_t iKey = markerKey(m_poRoot.get(), m_poDepth.get(), m_settings.m_oMarkers);
    if (iKey == std::exchange(m_iMarkerKey, iKey))
        return;
    m_pqArea->setMarkers(std::make_shared<const DepthMarkers>(
        collectDepthMarkers(m_poRoot.get(), m_poDepth.get(), m_settings.m_oMarkers)));
}

void QDepthPlotWidget::slotMarkersSwitched()
{
    const DepthMarkerSwitches switches{m_pqShowTops->isChecked(), m_pqShowFaults->isChecked(),
                                       m_pqShowScat->isChecked(), m_pqShowDecimated->isChecked()};
    if (switches == m_settings.m_oMarkers)
        return;
    m_settings.m_oMarkers = switches;
    showMarkers();
}

void QDepthPlotWidget::setAllScatMarkersVisibility(bool bVisible)
{
    m_pqShowScat->setChecked(bVisible);
}

void QDepthPlotWidget::setAllDecimatedDipAzimuthMarkersVisibility(bool bVisible)
{
    m_pqShowDecimated->setChecked(bVisible);
}

void QDepthPlotWidget::setAllTypeMarkersVisibility(const QString& sType, bool bVisible)
{
    if (sType == QLatin1String("Fault"))
        m_pqShowFaults->setChecked(bVisible);
    else if (sType == QLatin1String("Top"))
        m_pqShowTops->setChecked(bVisible);
}

void QDepthPlotWidget::setAllTopMarkersVisibility(bool bVisible)
{
    m_pqShowTops->setChecked(bVisible);
}

} // namespace gkBase
