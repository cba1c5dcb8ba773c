// The orientation charts of QDataAnalyserDialog, and the attributes that come from them.

#include "AnalyserChartPages.h"
#include "DerivedAttributes.h"
#include "MissingValue.h"
#include "QDataAnalyserDialog.h"
#include "QHistogramChartWidget.h"
#include "QRelationshipItemModel.h"
#include "QRoseChartWidget.h"
#include "QStereoChartWidget.h"
#include "QTangentChartWidget.h"
#include "QVertexModelTableView.h"

#include <algorithm>

namespace gkBase {

MatrixData* QDataAnalyserDialog::firstOrientations() const
{
    for (int i = 0; m_poDataRoot && i < m_poDataRoot->childCount(); ++i) {
        MatrixData* poDataSet = m_poDataRoot->child(i);
        if (poDataSet->dipAttribute() && poDataSet->azimuthAttribute())
            return poDataSet;
    }
    return nullptr;
}

MatrixData* QDataAnalyserDialog::firstDirection() const
{
    if (const MatrixData* poDataSet = firstOrientations())
        return poDataSet->azimuthAttribute();
    if (!m_poDataRoot)
        return nullptr;
    QList<QString> lNames;
    QList<int> liIds;
    QList<QColor> lColors;
    m_poDataRoot->getDataSetSelectionBoxItems(lNames, liIds, lColors, MatrixData::Direction, false);
    return liIds.isEmpty() ? nullptr : m_poDataRoot->nodeFromID(liIds.constFirst());
}

void QDataAnalyserDialog::hideShowOrientationWindows()
{
    const bool bOrientations = m_poDataRoot && m_poDataRoot->hasOrientationData();
    setTabShown(QStringLiteral("ROSEPLOT"), firstDirection() != nullptr);
    setTabShown(QStringLiteral("STEREOPLOT"), bOrientations);
    setTabShown(QStringLiteral("TANGENTPLOT"), bOrientations);
}

void QDataAnalyserDialog::updateRoseChartData()
{
    if (!m_pqRoseChart)
        return;
    m_pCharts->unmark(AnalyserChartPages::RosePlot);
    const bool bRebuilt = m_pqRoseChart->setSelectedRows(selectedRecords());
    if (!m_pqRoseChart->currentSelectedDataSet() && m_pCharts->isUnused(AnalyserChartPages::RosePlot))
        m_pqRoseChart->setDataSet(firstDirection());
    else if (!bRebuilt)
        m_pqRoseChart->updateRoseChartData();
    m_pCharts->noteShown(AnalyserChartPages::RosePlot, m_pqRoseChart->currentSelectedDataSet());
}

void QDataAnalyserDialog::updateOrientationChart(int iChart, QStereoChartWidget* pqPanel)
{
    if (!pqPanel)
        return;
    const auto eChart = static_cast<AnalyserChartPages::Chart>(iChart);
    m_pCharts->unmark(eChart);
    if (!pqPanel->nodeAngle() && m_pCharts->isUnused(eChart))
        pqPanel->setDataSet(firstOrientations());
    m_pCharts->noteShown(eChart, pqPanel->nodeAngle());
    pqPanel->updateStereoChart();
    pqPanel->setSelectedRows(selectedRecords());
}

void QDataAnalyserDialog::updateStereoChartData()
{
    updateOrientationChart(AnalyserChartPages::StereoPlot, m_pqStereoChart);
}

void QDataAnalyserDialog::updateTangentChartData()
{
    updateOrientationChart(AnalyserChartPages::TangentPlot, m_pqTangentChart);
}

void QDataAnalyserDialog::setTandLdirection(const QObject* pSource, const MatrixData* poAzimuth, double dT, double dL)
{
    std::erase_if(m_vDirections, [pSource](const Directions& directions) { return directions.m_pSource == pSource; });
    if (poAzimuth)
        m_vDirections.push_back({pSource, poAzimuth->globalID(), dT, dL});
    showTandLdirection();
}

void QDataAnalyserDialog::showTandLdirection()
{
    const MatrixData* poShown = m_pqHistogramChart ? m_pqHistogramChart->currentSelectedDataSet() : nullptr;
    if (!poShown)
        return;
    const auto it = std::find_if(m_vDirections.rbegin(), m_vDirections.rend(), [poShown](const Directions& directions) {
        return directions.m_iAzimuth == poShown->globalID();
    });
    if (it == m_vDirections.rend())
        m_pqHistogramChart->setTandLdirection(g_dMissingValue, g_dMissingValue);
    else
        m_pqHistogramChart->setTandLdirection(it->m_dT, it->m_dL);
}

void QDataAnalyserDialog::createRotatedAttributes()
{
    createRotatedAttributesOf(m_pqStereoChart);
}

void QDataAnalyserDialog::createRotatedAttributesOf(QStereoChartWidget* pqPanel)
{
    if (!m_poDataRoot || !pqPanel)
        return;
    const MatrixData* poDip = addRotatedAttributes(*m_poDataRoot, *pqPanel->relationshipItemModel());
    // The chart shows the attribute that was just written: its values are the turned ones now.
    if (poDip && poDip == pqPanel->nodeAngle())
        pqPanel->undoAllRotations();
    showDerived(poDip != nullptr);
}

void QDataAnalyserDialog::createBiasWeightAttribute(const QString& sName, QRelationshipItemModel* pModel)
{
    showDerived(m_poDataRoot && pModel && addBiasWeightAttribute(*m_poDataRoot, sName, *pModel));
}

} // namespace gkBase
