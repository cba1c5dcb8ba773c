// The charts of points in QDataAnalyserDialog, and the attributes and markers that come from them.

#include "AnalyserChartPages.h"
#include "DerivedAttributes.h"
#include "MarkerVisibility.h"
#include "QCrossPlotWidget.h"
#include "QDataAnalyserDialog.h"
#include "QDepthPlotWidget.h"
#include "QMarkerVisibilityDlg.h"
#include "QRelationshipItemModel.h"
#include "QTRNBarChartWidget.h"
#include "QVertexModelTableView.h"
#include "WellMarkers.h"

#include <QTimer>

namespace gkBase {

namespace {

int numericAttributes(const MatrixData& dataSet)
{
    int iCount = 0;
    for (int i = 0; i < dataSet.childCount(); ++i)
        iCount += dataSet.child(i)->isAttribute() && dataSet.child(i)->column().isNumeric() ? 1 : 0;
    return iCount;
}

} // namespace

MatrixData* QDataAnalyserDialog::firstDataSet(bool bWithDepth) const
{
    MatrixData* poFirst = nullptr;
    for (int i = 0; m_poDataRoot && i < m_poDataRoot->childCount(); ++i) {
        MatrixData* poDataSet = m_poDataRoot->child(i);
        if (numericAttributes(*poDataSet) < 2)
            continue;
        if (!bWithDepth || poDataSet->depthAttribute())
            return poDataSet;
        if (!poFirst)
            poFirst = poDataSet;
    }
    return poFirst;
}

void QDataAnalyserDialog::updateBarChart()
{
    if (!m_pqBarChart)
        return;
    m_pCharts->unmark(AnalyserChartPages::BarChart);
    const bool bRebuilt = m_pqBarChart->setSelectedRows(selectedRecords());
    if (!m_pqBarChart->currentSelectedDataSet() && m_pCharts->isUnused(AnalyserChartPages::BarChart)) {
        const MatrixData* poAttribute = m_poDataRoot ? m_poDataRoot->getFirstChildWithData() : nullptr;
        m_pqBarChart->setDataSet(poAttribute ? poAttribute->owner() : nullptr);
    } else if (!bRebuilt) {
        m_pqBarChart->updateBarChart();
    }
    m_pCharts->noteShown(AnalyserChartPages::BarChart, m_pqBarChart->currentSelectedDataSet());
}

void QDataAnalyserDialog::updateRelationshipData()
{
    if (!m_pqCrossPlot)
        return;
    m_pCharts->unmark(AnalyserChartPages::CrossPlot);
    const auto showsAttribute = [this] { return m_pqCrossPlot->nodeX() || m_pqCrossPlot->nodeY(); };
    if (!showsAttribute() && m_pCharts->isUnused(AnalyserChartPages::CrossPlot))
        m_pqCrossPlot->setDataSet(firstDataSet(false));
    m_pCharts->noteShown(AnalyserChartPages::CrossPlot, showsAttribute());
    m_pqCrossPlot->updateCrossPlot();
    m_pqCrossPlot->setSelectedRows(selectedRecords());
}

void QDataAnalyserDialog::updateDepthPlotData()
{
    if (!m_pqDepthPlot)
        return;
    m_pCharts->unmark(AnalyserChartPages::DepthPlot);
    if (!m_pqDepthPlot->currentSelectedDataSet() && m_pCharts->isUnused(AnalyserChartPages::DepthPlot))
        m_pqDepthPlot->setDataSet(firstDataSet(true));
    m_pCharts->noteShown(AnalyserChartPages::DepthPlot, m_pqDepthPlot->currentSelectedDataSet());
    m_pqDepthPlot->updateDepthPlot();
    m_pqDepthPlot->setSelectedRows(selectedRecords());
}

void QDataAnalyserDialog::setCurrentSymbolItem(int iGlobalID)
{
    if (m_pqCrossPlot)
        m_pqCrossPlot->setCurrentSymbolItem(iGlobalID);
}

void QDataAnalyserDialog::setCurrentColorItem(int iGlobalID)
{
    if (m_pqCrossPlot)
        m_pqCrossPlot->setCurrentColorItem(iGlobalID);
}

// ---- attributes made from the charts' results ----------------------------------------------------------------------

bool QDataAnalyserDialog::showDerived(bool bAdded)
{
    if (bAdded) {
        updateAllViews();
        emit dataModified(true);
    }
    return bAdded;
}

void QDataAnalyserDialog::createClusterAttribute(const QString& sName, QRelationshipItemModel* pModel)
{
    const MatrixData* poClusters =
        m_poDataRoot && pModel ? addClusterAttribute(*m_poDataRoot, sName, *pModel) : nullptr;
    showDerived(poClusters != nullptr);
    // The stereonet finds the attribute of its clusters itself.
    if (poClusters && m_pqCrossPlot && pModel == m_pqCrossPlot->relationshipItemModel())
        setCurrentColorItem(poClusters->globalID());
}

void QDataAnalyserDialog::createDataDecimationAttribute(QRelationshipItemModel* pModel, bool bBinAverage, bool bReplace,
                                                        MatrixData* poOriginal)
{
    if (!m_poDataRoot || !pModel)
        return;
    // The tracks that one click decimates make one undo step.
    const bool bNewStep = !m_bDecimating;
    const MatrixData* poAdded =
        addDecimationAttributes(*m_poDataRoot, *pModel, bBinAverage, bReplace && bNewStep, poOriginal, bNewStep);
    if (!poAdded)
        return;
    if (bNewStep) {
        m_bDecimating = true;
        QTimer::singleShot(0, this, [this] { m_bDecimating = false; });
    }
    showDerived(true);
}

// ---- markers -------------------------------------------------------------------------------------------------------

bool QDataAnalyserDialog::hasMarkerVisibility() const
{
    return gkBase::hasMarkerVisibility(m_poDataRoot);
}

void QDataAnalyserDialog::setMarkerVisibility(bool bAll, bool bScat, bool bDecimated, bool bTops, bool bFaults,
                                              bool bVisible)
{
    if (!hasMarkerVisibility())
        return;
    // All of them follow the default of "$V" alone; the boxes of the depth plot stay.
    const auto isMeant = [bAll](bool bKind) { return !bAll && bKind; };
    if (isMeant(bScat))
        switchInDepthPlot(MarkerKind::Scat, QString(), bVisible);
    if (isMeant(bDecimated))
        switchInDepthPlot(MarkerKind::Decimated, QString(), bVisible);
    if (isMeant(bTops)) {
        switchInDepthPlot(MarkerKind::Type, QStringLiteral("Top"), bVisible);
        switchInDepthPlot(MarkerKind::Top, QString(), bVisible);
    }
    if (isMeant(bFaults))
        switchInDepthPlot(MarkerKind::Type, QStringLiteral("Fault"), bVisible);
    if (gkBase::setMarkerVisibility(*m_poDataRoot, {bAll, bScat, bDecimated, bTops, bFaults, bVisible}))
        emit dataModified(true);
    m_pCharts->mark(AnalyserChartPages::DepthPlot);
}

void QDataAnalyserDialog::showMarkerVisibilityDlg(QWidget* pqParent)
{
    if (!hasMarkerVisibility())
        return;
    auto* pqDialog =
        new QMarkerVisibilityDlg(QString(), !areMarkersHidden(*m_poDataRoot), pqParent ? pqParent : window());
    pqDialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(pqDialog, &QDialog::accepted, this, [this, pqDialog] {
        setMarkerVisibility(pqDialog->allMarkers(), pqDialog->scatMarkers(), pqDialog->decimatedDipAzimuthMarkers(),
                            pqDialog->topMarkers(), pqDialog->faultMarkers(), pqDialog->visibilityValue());
    });
    pqDialog->open();
}

bool QDataAnalyserDialog::createWellMarkers(const DepthLineField& lines, const MatrixData& depth)
{
    return showDerived(m_poDataRoot && gkBase::createWellMarkers(*m_poDataRoot, lines, depth));
}

bool QDataAnalyserDialog::deleteWellMarkers(const MatrixData& depth)
{
    return showDerived(m_poDataRoot && gkBase::deleteWellMarkers(*m_poDataRoot, depth));
}

void QDataAnalyserDialog::setAllScatMarkersVisibility(bool bVisible)
{
    changeMarkers(MarkerKind::Scat, QString(), bVisible);
}

void QDataAnalyserDialog::setAllDecimatedDipAzimuthMarkersVisibility(bool bVisible)
{
    changeMarkers(MarkerKind::Decimated, QString(), bVisible);
}

void QDataAnalyserDialog::setAllTypeMarkersVisibility(const QString& sType, bool bVisible)
{
    changeMarkers(MarkerKind::Type, sType, bVisible);
}

void QDataAnalyserDialog::setAllTopMarkersVisibility(bool bVisible)
{
    changeMarkers(MarkerKind::Top, QString(), bVisible);
}

void QDataAnalyserDialog::changeMarkers(MarkerKind eKind, const QString& sType, bool bVisible)
{
    switchInDepthPlot(eKind, sType, bVisible);
    if (m_poDataRoot && setMarkersVisible(*m_poDataRoot, eKind, sType, bVisible))
        emit dataModified(true);
}

void QDataAnalyserDialog::switchInDepthPlot(MarkerKind eKind, const QString& sType, bool bVisible)
{
    // Undo brings "$V" back and not these boxes: they go off only where "$V" cannot hide.
    if (!m_pqDepthPlot || (!bVisible && m_poDataRoot && canMarkersBeHidden(*m_poDataRoot, eKind, sType)))
        return;
    switch (eKind) {
    case MarkerKind::Scat:
        m_pqDepthPlot->setAllScatMarkersVisibility(bVisible);
        break;
    case MarkerKind::Decimated:
        m_pqDepthPlot->setAllDecimatedDipAzimuthMarkersVisibility(bVisible);
        break;
    case MarkerKind::Type:
        m_pqDepthPlot->setAllTypeMarkersVisibility(sType, bVisible);
        break;
    case MarkerKind::Top:
        m_pqDepthPlot->setAllTopMarkersVisibility(bVisible);
        break;
    }
}

} // namespace gkBase
