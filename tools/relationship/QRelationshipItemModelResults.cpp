// What QRelationshipItemModel computes from its points: regression, intervals, decimation, clusters.

#include "Decimation.h"
#include "IntervalBins.h"
#include "KMeansClusters.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "QRelationshipItemModel.h"
#include "Regression.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

const QPointF g_oOrientationNotSet(-1.0, -1.0);

/// Per bin the record whose depth is nearest to the bin's centre, −1 without records.
std::vector<int> nearestRecords(std::span<const int> viBins, const IntervalBins& oBins, std::span<const double> vdDepth)
{
    std::vector<int> viRecords(static_cast<std::size_t>(oBins.count()), -1);
    std::vector<double> vdDistances(viRecords.size(), 0.0);
    for (std::size_t i = 0; i < viBins.size(); ++i) {
        if (viBins[i] < 0)
            continue;
        const auto iBin = static_cast<std::size_t>(viBins[i]);
        const double dDistance = std::abs(vdDepth[i] - oBins.centre(viBins[i]));
        if (viRecords[iBin] < 0 || dDistance < vdDistances[iBin]) {
            viRecords[iBin] = static_cast<int>(i);
            vdDistances[iBin] = dDistance;
        }
    }
    return viRecords;
}

} // namespace

void QRelationshipItemModel::calculateRegressionLine(double& dSlope, double& dIntercept, double& dCorrelation) const
{
    // Only the cross plot restricts its line to the selection.
    const RegressionLine oLine =
        chartRegression(m_vdX, m_vdY, m_eDisplayType == CrossPlotDisplay ? partMask() : decltype(partMask())());
    dSlope = oLine.m_dSlope;
    dIntercept = oLine.m_dIntercept;
    dCorrelation = oLine.m_dCorrelation;
}

// ---- lines at depths
// -------------------------------------------------------------------------------------------------

DepthLineField* QRelationshipItemModel::intervalFilter() const
{
    return &m_pLines->m_oIntervalFilter;
}

DepthLineField* QRelationshipItemModel::structuralTops() const
{
    return m_pLines->m_iActive < 0 ? nullptr : m_pLines->m_vScenarios[static_cast<std::size_t>(activeScenario())].get();
}

const std::vector<std::unique_ptr<DepthLineField>>& QRelationshipItemModel::structuralTopsScenarios() const
{
    return m_pLines->m_vScenarios;
}

int QRelationshipItemModel::activeScenario() const
{
    return m_pLines->m_iActive;
}

void QRelationshipItemModel::setActiveScenario(int iScenario)
{
    if (iScenario < 0 || iScenario >= static_cast<int>(m_pLines->m_vScenarios.size()))
        return;
    m_pLines->m_iActive = iScenario;
    changed();
}

void QRelationshipItemModel::addStructuralTopsSenario(const QString& sName)
{
    m_pLines->m_vScenarios.push_back(std::make_unique<DepthLineField>(sName));
    setActiveScenario(static_cast<int>(m_pLines->m_vScenarios.size()) - 1);
}

void QRelationshipItemModel::activateStructuralTopsSenario(const QString& sName)
{
    const auto& vScenarios = m_pLines->m_vScenarios;
    const auto it = std::find_if(vScenarios.begin(), vScenarios.end(),
                                 [&sName](const auto& pScenario) { return pScenario->name() == sName; });
    if (it != vScenarios.end())
        setActiveScenario(static_cast<int>(it - vScenarios.begin()));
}

void QRelationshipItemModel::eraseActiveStructuralTopsSenario()
{
    if (m_pLines->m_iActive < 0)
        return;
    m_pLines->m_vScenarios.erase(m_pLines->m_vScenarios.begin() + m_pLines->m_iActive);
    m_pLines->m_iActive = m_pLines->m_vScenarios.empty() ? -1 : std::max(0, m_pLines->m_iActive - 1);
    changed();
}

void QRelationshipItemModel::shareLines(const QRelationshipItemModel& other)
{
    m_pLines = other.m_pLines;
    changed();
}

void QRelationshipItemModel::setIntervalLines(const std::vector<double>& vdDepths)
{
    DepthLineField& filter = m_pLines->m_oIntervalFilter;
    filter.clearAll();
    for (const double dDepth : vdDepths)
        filter.insertHorizontalLine(dDepth, 0.0, QStringLiteral("Name"), Qt::red, DepthLineField::IntervalBoundary,
                                    g_oOrientationNotSet);
    changed();
}

void QRelationshipItemModel::generateAquidistantIntervalFilter(const double& dSize, const double& dMin,
                                                               const double& dMax)
{
    const std::vector<double> vdDepths = equalIntervals(dSize, dMin, dMax);
    if (!vdDepths.empty())
        setIntervalLines(vdDepths);
}

void QRelationshipItemModel::generateNumberOfIntervalFilter(const int& n, const double& dMin, const double& dMax)
{
    const std::vector<double> vdDepths = numberOfIntervals(n, dMin, dMax);
    if (!vdDepths.empty())
        setIntervalLines(vdDepths);
}

void QRelationshipItemModel::insertIntervalBoundary(const double& dDepth, const double& dTolerance)
{
    const int iLine = m_pLines->m_oIntervalFilter.insertHorizontalLine(dDepth, 0.0, QStringLiteral("Boundary"), Qt::red,
                                                                       DepthLineField::IntervalBoundary,
                                                                       g_oOrientationNotSet, -1, dTolerance);
    if (iLine < 0)
        return;
    changed();
    emit manuellBinInserted(true);
}

bool QRelationshipItemModel::eraseIntervalBoundary(const QPointF& oPosition, const double& dTolerance)
{
    if (!m_pLines->m_oIntervalFilter.eraseHorizontalLines(oPosition, dTolerance))
        return false;
    changed();
    emit manuellBinInserted(false);
    return true;
}

void QRelationshipItemModel::deleteIntervalBoundaries()
{
    m_pLines->m_oIntervalFilter.clearAll();
    changed();
}

// ---- decimation
// ------------------------------------------------------------------------------------------------------

void QRelationshipItemModel::generateDataDecimation()
{
    const IntervalBins oBins(m_pLines->m_oIntervalFilter.sortedDepths(DepthLineField::IntervalBoundary));
    const int iBins = oBins.count();
    m_vdDecimationBoundaries.assign(oBins.boundaries().begin(), oBins.boundaries().end());
    m_viDecimationBins = binsOfRecords(m_vdY, oBins, partMask());
    // A cell is invalid in x and y together: what is in a bin has a value.
    const std::vector<std::size_t> viCounts = binCounts(m_viDecimationBins, iBins);
    m_viDecimationRows = nearestRecords(m_viDecimationBins, oBins, m_vdY);

    m_poDecimationCount = std::make_unique<MatrixData>(QStringLiteral("Count"), iBins, 1, QMetaType::Int, 0);
    if (m_poDataRoot)
        m_poDecimationCount->setRegistry(m_poDataRoot->registry());
    m_poDecimationCount->setUnitManager(QStringLiteral("dimensionless"));
    for (int i = 0; i < iBins; ++i)
        m_poDecimationCount->setValue(i, 0, static_cast<int>(viCounts[static_cast<std::size_t>(i)]));

    m_voDecimationAngles.clear();
    const bool bOrientations = tadpoleAttributeIsOn();
    m_poDecimation = std::make_unique<MatrixDataArray>(QStringLiteral("Decimation"), iBins, bOrientations ? 3 : 2,
                                                       QMetaType::Double);
    if (bOrientations)
        averageOrientations(m_viDecimationBins, iBins);
    const std::vector<double> vdMeans =
        bOrientations ? std::vector<double>() : binMeans(m_viDecimationBins, iBins, m_vdX);
    for (int i = 0; i < iBins; ++i) {
        m_poDecimation->setCell(i, 0, oBins.centre(i));
        if (!bOrientations)
            m_poDecimation->setCell(i, 1, vdMeans[static_cast<std::size_t>(i)]);
    }
    m_poDecimation->valuesChanged();
    changed();
}

void QRelationshipItemModel::averageOrientations(std::span<const int> viBins, int iBins)
{
    const std::vector<BinOrientation> vMeans = binMeanPlanes(viBins, iBins, m_vdX, m_vdTadPoles);
    for (int i = 0; i < iBins; ++i) {
        const BinOrientation& oMean = vMeans[static_cast<std::size_t>(i)];
        m_voDecimationAngles.emplace_back(oMean.m_dDip, oMean.m_dAzimuth);
        m_poDecimation->setCell(i, 1, oMean.m_dDip);
        m_poDecimation->setCell(i, 2, oMean.m_dAzimuth);
    }
}

int QRelationshipItemModel::decimationBin(int iRecord) const
{
    return iRecord >= 0 && iRecord < static_cast<int>(m_viDecimationBins.size())
               ? m_viDecimationBins[static_cast<std::size_t>(iRecord)]
               : -1;
}

// ---- clusters
// --------------------------------------------------------------------------------------------------------

bool QRelationshipItemModel::buildClusters_KML(const QString& sAttributeName, int k)
{
    std::vector<std::span<const double>> vColumns = {m_vdX, m_vdY};
    if (m_poThird)
        vColumns.emplace_back(m_vdThird);
    KMeansClusters clusters = kMeansClusters(vColumns, k, partMask());
    if (clusters.m_iK == 0)
        return false;

    MatrixDataArray* poCentroids = findClusterCentroids(sAttributeName);
    poCentroids->reserve(clusters.m_iK, clusters.m_iDimension);
    std::copy(clusters.m_vdCentroids.begin(), clusters.m_vdCentroids.end(), poCentroids->cells().begin());
    poCentroids->valuesChanged();
    m_sClusterAttributeName = sAttributeName;
    m_viClusters = std::move(clusters.m_viClusterOfPoint);
    m_viClusterSizes = std::move(clusters.m_viSizes);
    m_dClusterDistortion = clusters.m_dDistortion;
    changed();
    return true;
}

MatrixDataArray* QRelationshipItemModel::findClusterCentroids(const QString& sAttributeName)
{
    std::unique_ptr<MatrixDataArray>& poCentroids = m_centroids[sAttributeName];
    if (!poCentroids)
        poCentroids = std::make_unique<MatrixDataArray>(sAttributeName, 0, m_poThird ? 3 : 2, QMetaType::Double);
    return poCentroids.get();
}

MatrixDataArray* QRelationshipItemModel::clusterCentroids() const
{
    const auto it = m_centroids.find(m_sClusterAttributeName);
    return it == m_centroids.end() ? nullptr : it->second.get();
}

int QRelationshipItemModel::clusterID(int iRecord) const
{
    return iRecord >= 0 && iRecord < static_cast<int>(m_viClusters.size())
               ? m_viClusters[static_cast<std::size_t>(iRecord)]
               : -1;
}

void QRelationshipItemModel::clearClusters()
{
    m_centroids.clear();
    m_viClusters.clear();
    m_viClusterSizes.clear();
    m_dClusterDistortion = 0.0;
    changed();
}

} // namespace gkBase
