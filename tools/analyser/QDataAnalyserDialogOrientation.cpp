// The orientation charts of QDataAnalyserDialog, and the attributes that come from them.

#include "AnalyserChartPages.h"
#include "DerivedAttributes.h"
#include "QDataAnalyserDialog.h"
#include "QRelationshipItemModel.h"
#include "QStereoChartWidget.h"
#include "QVertexModelTableView.h"

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

void QDataAnalyserDialog::updateStereoChartData()
{
    if (!m_pqStereoChart)
        return;
    m_pCharts->unmark(AnalyserChartPages::StereoPlot);
    if (!m_pqStereoChart->nodeAngle() && m_pCharts->isUnused(AnalyserChartPages::StereoPlot))
        m_pqStereoChart->setDataSet(firstOrientations());
    m_pCharts->noteShown(AnalyserChartPages::StereoPlot, m_pqStereoChart->nodeAngle());
    m_pqStereoChart->updateStereoChart();
    m_pqStereoChart->setSelectedRows(vertexTable()->selectedRecords());
}

void QDataAnalyserDialog::createRotatedAttributes()
{
    QRelationshipItemModel* pModel = m_pqStereoChart ? m_pqStereoChart->relationshipItemModel() : nullptr;
    if (!m_poDataRoot || !pModel)
        return;
    const MatrixData* poDip = addRotatedAttributes(*m_poDataRoot, *pModel);
    // The chart shows the attribute that was just written: its values are the turned ones now.
    if (poDip && poDip == pModel->nodeX())
        pModel->undoAllRotations();
    showDerived(poDip != nullptr);
}

void QDataAnalyserDialog::createBiasWeightAttribute(const QString& sName, QRelationshipItemModel* pModel)
{
    showDerived(m_poDataRoot && pModel && addBiasWeightAttribute(*m_poDataRoot, sName, *pModel));
}

} // namespace gkBase
