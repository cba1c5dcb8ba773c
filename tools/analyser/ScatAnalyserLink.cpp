#include "ScatAnalyserLink.h"

#include "AngleUnits.h"
#include "DepthLineField.h"
#include "DepthMarkers.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "OrientationStatistics.h"
#include "QDataAnalyserDialog.h"
#include "QDepthPlotWidget.h"
#include "QScatDepthPlotWidget.h"
#include "QVertexItemModel.h"
#include "TransverseDirection.h"
#include "WellMarkers.h"

#include <algorithm>

namespace gkBase {

ScatAnalyserLink::ScatAnalyserLink(QDataAnalyserDialog* pqAnalyser, QScatDepthPlotWidget* pqPanel, QObject* pqParent)
    : QObject(pqParent)
    , m_pqAnalyser(pqAnalyser)
    , m_pqPanel(pqPanel)
{
    if (!pqPanel)
        return;
    connect(pqPanel, &QScatDepthPlotWidget::dataPointsSelection, this, &ScatAnalyserLink::sendSelection);
    connect(pqPanel, &QScatDepthPlotWidget::createWellMarkers, this, &ScatAnalyserLink::createMarkers);
    connect(pqPanel, &QScatDepthPlotWidget::deleteWellMarkers, this, &ScatAnalyserLink::deleteMarkers);
    connect(pqPanel, &QScatDepthPlotWidget::directionsChanged, this, &ScatAnalyserLink::sendDirections);
    if (pqAnalyser)
        connect(pqAnalyser, &QDataAnalyserDialog::selectionChanged, this, &ScatAnalyserLink::slotAnalyserSelects);
    if (pqAnalyser && pqAnalyser->vertexItemModel())
        connect(pqAnalyser->vertexItemModel(), &QAbstractItemModel::modelReset, this, &ScatAnalyserLink::takeTableRows);
    takeSelection();
}

ScatAnalyserLink::~ScatAnalyserLink()
{
    if (m_pqAnalyser)
        m_pqAnalyser->setTandLdirection(this, nullptr, 0.0, 0.0);
}

MatrixData* ScatAnalyserLink::dataSet() const
{
    const MatrixData* poDip = m_pqPanel ? m_pqPanel->dipAttribute() : nullptr;
    return poDip ? poDip->owner() : nullptr;
}

QDataAnalyserDialog* ScatAnalyserLink::analyserOf(const MatrixData& node) const
{
    return m_pqAnalyser && m_pqAnalyser->dataRoot() == node.root() ? m_pqAnalyser.data() : nullptr;
}

// ---- selection -----------------------------------------------------------------------------------------------------

void ScatAnalyserLink::sendSelection(bool* pbSelected, int iLength)
{
    MatrixData* poDataSet = dataSet();
    if (!poDataSet || !pbSelected)
        return;
    std::vector<int> viRecords;
    for (int i = 0; i < iLength; ++i)
        if (pbSelected[i])
            viRecords.push_back(i);
    QDataAnalyserDialog* pqAnalyser = analyserOf(*poDataSet);
    const auto isSelected = [&] {
        return pqAnalyser->selectedRecords() == viRecords && pqAnalyser->selectsRecordsOf(*poDataSet);
    };
    if (pqAnalyser && pqAnalyser->showsRecordsOf(*poDataSet) && !isSelected())
        pqAnalyser->selectRecordsOf(poDataSet, pbSelected, iLength);
    sendOrientations(viRecords);
}

void ScatAnalyserLink::slotAnalyserSelects()
{
    MatrixData* poDataSet = dataSet();
    const QDataAnalyserDialog* pqAnalyser = poDataSet ? analyserOf(*poDataSet) : nullptr;
    if (!pqAnalyser)
        return;
    const std::vector<int> viRecords = pqAnalyser->selectedRecords();
    if (viRecords == m_pqPanel->selectedRecords())
        return;
    // Nothing selected is nothing of all that the table shows.
    if (viRecords.empty() ? pqAnalyser->showsRecordsOf(*poDataSet) : pqAnalyser->selectsRecordsOf(*poDataSet))
        takeSelection();
}

void ScatAnalyserLink::takeSelection()
{
    MatrixData* poDataSet = dataSet();
    if (!poDataSet)
        return;
    const QDataAnalyserDialog* pqAnalyser = analyserOf(*poDataSet);
    std::vector<int> viRecords;
    if (pqAnalyser && pqAnalyser->selectsRecordsOf(*poDataSet))
        viRecords = pqAnalyser->selectedRecords();
    std::erase_if(viRecords, [this](int iRecord) { return iRecord >= m_pqPanel->numberOfRecords(); });
    takeTableRows();
    sendDirections();
    m_pqPanel->setSelectedRecords(viRecords);
    sendOrientations(viRecords);
}

void ScatAnalyserLink::takeTableRows()
{
    MatrixData* poDataSet = dataSet();
    if (!poDataSet)
        return;
    const QDataAnalyserDialog* pqAnalyser = analyserOf(*poDataSet);
    const QVertexItemModel* pTable = pqAnalyser ? pqAnalyser->vertexItemModel() : nullptr;
    m_viTableRows.clear();
    if (pTable && !pTable->rowMap().isPlain() && pqAnalyser->showsRecordsOf(*poDataSet))
        m_viTableRows = pTable->rowMap().recordsOfTableRows({{0, pTable->rowCount() - 1}});
    std::erase_if(m_viTableRows, [this](int iRecord) { return iRecord >= m_pqPanel->numberOfRecords(); });
    m_pqPanel->setTableRows(m_viTableRows);
}

void ScatAnalyserLink::sendDirections()
{
    const MatrixData* poAzimuth = m_pqPanel->azimuthAttribute();
    QDataAnalyserDialog* pqAnalyser = poAzimuth ? analyserOf(*poAzimuth) : nullptr;
    if (pqAnalyser)
        pqAnalyser->setTandLdirection(this, poAzimuth, m_pqPanel->transverseDirection(),
                                      m_pqPanel->longitudinalDirection());
}

void ScatAnalyserLink::sendOrientations(const std::vector<int>& viRecords)
{
    const MatrixData* poDip = m_pqPanel->dipAttribute();
    const MatrixData* poAzimuth = m_pqPanel->azimuthAttribute();
    if (!poDip || !poAzimuth)
        return;
    // What orients a line says nothing about the fold, and without records nothing is said about the line.
    const bool bLines = m_pqPanel->isOrientationMode();
    if (bLines ? viRecords.empty() : !m_pqPanel->takesProposals())
        return;
    const std::vector<double> vdDips = numbersInDegrees(*poDip);
    const std::vector<double> vdAzimuths = numbersInDegrees(*poAzimuth);
    const std::vector<int>& viMeant = viRecords.empty() ? m_viTableRows : viRecords;
    std::vector<unsigned char> vbMask(viMeant.empty() ? 0 : vdDips.size(), 0);
    for (const int iRecord : viMeant)
        if (static_cast<std::size_t>(iRecord) < vbMask.size())
            vbMask[static_cast<std::size_t>(iRecord)] = 1;

    const auto statistics = [&] { return orientationStatistics(OrientationType::Planes, vdDips, vdAzimuths, vbMask); };
    if (bLines) {
        sendMeanOrientation(statistics());
        return;
    }
    TransverseDirections directions = directionsByTangentLine(vdDips, vdAzimuths, vbMask);
    if (isMissing(directions.m_dTransverse)) {
        const PrincipalAxes oAxes = statistics().m_oAxes;
        if (!isAxisSettled(oAxes, 0) || !isAxisSettled(oAxes, 1))
            return; // records that leave the directions open say nothing about the fold
        directions.m_dTransverse = positiveSide(oAxes.transverse().m_dAzimuth, vdDips, vdAzimuths, vbMask);
        directions.m_dLongitudinal = positiveSide(oAxes.longitudinal().m_dAzimuth, vdDips, vdAzimuths, vbMask);
    }
    m_pqPanel->updateTandLdirection(directions.m_dTransverse, directions.m_dLongitudinal);
}

void ScatAnalyserLink::sendMeanOrientation(const OrientationStatistics& statistics)
{
    const PlaneOrientation& oMean =
        statistics.m_bMeanMisleads ? statistics.m_oAxes.meanPlane() : statistics.m_oFisher.m_oMeanPlane;
    if (!isMissing(oMean.m_dDip))
        m_pqPanel->updateMeanOrientation(QPointF(oMean.m_dDip, oMean.m_dDipAzimuth));
}

// ---- markers -------------------------------------------------------------------------------------------------------

void ScatAnalyserLink::createMarkers()
{
    MatrixData* poDepth = m_pqPanel->depthAttribute();
    const DepthLineField* pLines = m_pqPanel->structuralTops();
    if (!poDepth || !pLines) {
        emit markersReported(tr("There are no lines that could become markers."));
        return;
    }
    if (!poDepth->parentNode()) {
        emit markersReported(tr("These depths belong to no well that could have markers."));
        return;
    }
    QDataAnalyserDialog* pqAnalyser = analyserOf(*poDepth);
    const bool bChanged = pqAnalyser ? pqAnalyser->createWellMarkers(*pLines, *poDepth)
                                     : gkBase::createWellMarkers(*poDepth->root(), *pLines, *poDepth);
    const QDepthPlotWidget* pqPlot = pqAnalyser ? pqAnalyser->depthPlot() : nullptr;
    const DepthMarkerSwitches switches = pqPlot ? pqPlot->markerVisibility() : DepthMarkerSwitches();
    const auto [iLines, iShown] = shownWellMarkers(*poDepth->root(), *pLines, *poDepth, switches);
    const QString sMarkers = bChanged ? tr("The lines are markers of the well now")
                                      : tr("The markers of the well agree with the lines already");
    const QString sShown =
        iShown == iLines ? tr("its depth plot shows them")
                         : tr("marker visibility hides %1 of %2 on its depth plot").arg(iLines - iShown).arg(iLines);
    emit markersReported(iLines == 0 ? tr("The well has no markers that come from lines now.")
                                     : tr("%1; %2.").arg(sMarkers, sShown));
}

void ScatAnalyserLink::deleteMarkers()
{
    MatrixData* poDepth = m_pqPanel->depthAttribute();
    if (!poDepth)
        return;
    QDataAnalyserDialog* pqAnalyser = analyserOf(*poDepth);
    const bool bChanged =
        pqAnalyser ? pqAnalyser->deleteWellMarkers(*poDepth) : gkBase::deleteWellMarkers(*poDepth->root(), *poDepth);
    emit markersReported(bChanged ? tr("The markers that came from lines were deleted.")
                                  : tr("The well has no markers that came from lines."));
}

} // namespace gkBase
