// What the mouse points at and selects on the tracks of the dipmeter window.

#include "MatrixData.h"
#include "MissingValue.h"
#include "QDepthTrackArea.h"
#include "QDepthTrackPlot.h"
#include "QRelationshipItemModel.h"
#include "QScatDepthPlotWidget.h"
#include "ScatDirectionFinder.h"
#include "ScatScenarios.h"
#include "UnitText.h"

#include <QGuiApplication>
#include <QLabel>

#include <algorithm>

namespace gkBase {

namespace {

constexpr int g_iDecimals = 1;

} // namespace

// ---- cursor ---------------------------------------------------------------------------------------------------------

/// The headers tell the values of the record that is next to the cursor, the label where the cursor itself is.
void QScatDepthPlotWidget::updateCursorPosLabel(QPointF oPosition, MatrixData* poValues)
{
    if (!poValues || isMissing(oPosition.x()) || isMissing(oPosition.y())) {
        m_pqCursorPosLabel->setText(tr("Cursor: ---"));
        return;
    }
    m_pqCursorPosLabel->setText(tr("Cursor: %1 %2, %3 %4")
                                    .arg(poValues->name(), displayText(poValues, oPosition.x(), g_iDecimals),
                                         m_poDepth ? m_poDepth->name() : QString(),
                                         displayText(m_poDepth.get(), oPosition.y())));
}

void QScatDepthPlotWidget::updateCursorPosLabelDip(QPointF oPosition)
{
    updateCursorPosLabel(oPosition, values(DipTrack));
}

void QScatDepthPlotWidget::updateCursorPosLabelAzimuth(QPointF oPosition)
{
    updateCursorPosLabel(oPosition, values(AzimuthTrack));
}

void QScatDepthPlotWidget::updateCursorPosLabelTransverseDip(QPointF oPosition)
{
    updateCursorPosLabel(oPosition, values(TransverseDipTrack));
}

void QScatDepthPlotWidget::updateCursorPosLabelLongitudinalDip(QPointF oPosition)
{
    updateCursorPosLabel(oPosition, values(LongitudinalDipTrack));
}

void QScatDepthPlotWidget::updateCursorPos(int iTrack)
{
    QDepthTrackPlot* pqPlot = plot(iTrack);
    const QPointF oPixel = pqPlot->mousePickingPos();
    if (pqPlot->underMouse() && !isMissing(oPixel.x()))
        updateCursorPosLabel(pqPlot->transformInDataPoint(oPixel + pqPlot->pixmapRect().topLeft()), values(iTrack));
}

void QScatDepthPlotWidget::updateCursorPosFromDipPlot()
{
    updateCursorPos(DipTrack);
}

void QScatDepthPlotWidget::updateCursorPosFromAzimuthPlot()
{
    updateCursorPos(AzimuthTrack);
}

void QScatDepthPlotWidget::updateCursorPosFromTransverseDipPlot()
{
    updateCursorPos(TransverseDipTrack);
}

void QScatDepthPlotWidget::updateCursorPosFromLongitudinalDipPlot()
{
    updateCursorPos(LongitudinalDipTrack);
}

void QScatDepthPlotWidget::slotCrossPlotLeaveEvent(QEvent*)
{
    updateCursorPosLabel({g_dMissingValue, g_dMissingValue}, nullptr);
}

// ---- selection ------------------------------------------------------------------------------------------------------

void QScatDepthPlotWidget::setSelectedRecords(const std::vector<int>& viRecords)
{
    m_pqArea->setSelectedRecords(viRecords);
    m_pqDirectionFinder->setSelectedRecords(viRecords);
}

std::vector<int> QScatDepthPlotWidget::selectedRecords() const
{
    return m_pqArea->selectedRecords();
}

void QScatDepthPlotWidget::slotUpdateSelection(bool* pbSelection, int iLength)
{
    std::vector<int> viRecords;
    for (int i = 0; pbSelection && i < std::min(iLength, numberOfRecords()); ++i) {
        if (pbSelection[i])
            viRecords.push_back(i);
    }
    setSelectedRecords(viRecords);
}

void QScatDepthPlotWidget::clearSelection()
{
    QRelationshipItemModel* pModel = m_pqArea->model(DipTrack);
    if (selectedRecords().empty())
        return;
    setSelectedRecords({});
    emit dataPointsSelection(pModel->selection(), pModel->numberOfPoints());
}

void QScatDepthPlotWidget::updateSelectionFrom(int iTrack, bool* pbSelection, int iLength)
{
    if (!hasData() || !pbSelection)
        return;
    selectingOn(iTrack);
    m_pqDirectionFinder->setSelectedRecords(selectedRecords());
    if (std::any_of(pbSelection, pbSelection + iLength, [](bool bSelected) { return bSelected; }))
        emit dataPointsSelection(pbSelection, iLength);
}

void QScatDepthPlotWidget::selectingOn(int iTrack)
{
    if (!m_bOrientationMode)
        m_pScenarios->deselectAll();
    std::vector<int> viActive = m_viActiveTracks;
    if (!QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier))
        viActive.clear();
    viActive.push_back(iTrack);
    setActiveTracks(viActive);
}

void QScatDepthPlotWidget::slotUpdateSelectionFromFinder(bool* pbSelection, int iLength)
{
    if (!hasData() || !pbSelection)
        return;
    if (!m_bOrientationMode)
        m_pScenarios->deselectAll();
    slotUpdateSelection(pbSelection, iLength);
    emit dataPointsSelection(pbSelection, iLength);
}

void QScatDepthPlotWidget::slotUpdateSelectionFromDipPlot(bool* pbSelection, int iLength)
{
    updateSelectionFrom(DipTrack, pbSelection, iLength);
}

void QScatDepthPlotWidget::slotUpdateSelectionFromAzimuthPlot(bool* pbSelection, int iLength)
{
    updateSelectionFrom(AzimuthTrack, pbSelection, iLength);
}

void QScatDepthPlotWidget::slotUpdateSelectionFromTransverseDipPlot(bool* pbSelection, int iLength)
{
    updateSelectionFrom(TransverseDipTrack, pbSelection, iLength);
}

void QScatDepthPlotWidget::slotUpdateSelectionFromLongitudinalDipPlot(bool* pbSelection, int iLength)
{
    updateSelectionFrom(LongitudinalDipTrack, pbSelection, iLength);
}

} // namespace gkBase
