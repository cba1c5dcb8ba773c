// What QRelationshipItemModel computes from its points: regression, intervals, decimation, clusters.

#include "AngleUnits.h"
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

/// Whether an attribute holds azimuths or strikes, which go round the circle.
bool isDirection(const MatrixData* poAttribute)
{
    const MatrixData* poDataSet = poAttribute ? poAttribute->owner() : nullptr;
    if (!poDataSet)
        return false;
    QList<QString> lNames;
    QList<int> liDirections;
    QList<QColor> lColors;
    poDataSet->getDataSetSelectionBoxItems(lNames, liDirections, lColors, MatrixData::Direction, false);
    return liDirections.contains(poAttribute->globalID());
}

/// The x of points at depths as angles: means are taken in degrees and shown on the axis in model units.
class AnglesOfX
{
public:
    AnglesOfX(const MatrixData* poAttribute, std::span<const double> vdX)
        : m_dDegrees(poAttribute ? degreesPerUnit(*poAttribute) : 1.0)
        , m_vdX(vdX)
    {
        if (m_dDegrees == 1.0)
            return;
        m_vdConverted.assign(vdX.begin(), vdX.end());
        convertToDegrees(*poAttribute, m_vdConverted);
        m_vdX = m_vdConverted;
    }
    AnglesOfX(const AnglesOfX&) = delete;
    AnglesOfX& operator=(const AnglesOfX&) = delete;

    std::span<const double> inDegrees() const { return m_vdX; }
    double stored(double dDegrees) const { return isMissing(dDegrees) ? dDegrees : dDegrees / m_dDegrees; }

private:
    double m_dDegrees;
    std::vector<double> m_vdConverted;
    std::span<const double> m_vdX;
};

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
}

void QRelationshipItemModel::shareLines(const QRelationshipItemModel& other)
{
    m_pLines = other.m_pLines;
}

void QRelationshipItemModel::setIntervalLines(const std::vector<double>& vdDepths)
{
    DepthLineField& filter = m_pLines->m_oIntervalFilter;
    filter.clearAll();
    for (const double dDepth : vdDepths)
        filter.insertHorizontalLine(dDepth, 0.0, QStringLiteral("Name"), Qt::red, DepthLineField::IntervalBoundary,
                                    g_oOrientationNotSet);
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
    emit manuellBinInserted(true);
}

bool QRelationshipItemModel::eraseIntervalBoundary(const QPointF& oPosition, const double& dTolerance)
{
    DepthLineField& filter = m_pLines->m_oIntervalFilter;
    const std::vector<int> viLines = filter.pickHorizontalLines(oPosition, dTolerance);
    if (viLines.empty())
        return false;
    const double dNearest = filter.lineDepths()[static_cast<std::size_t>(viLines.front())];
    filter.eraseHorizontalLines(QPointF(oPosition.x(), dNearest), 0.0);
    emit manuellBinInserted(false);
    return true;
}

void QRelationshipItemModel::deleteIntervalBoundaries()
{
    m_pLines->m_oIntervalFilter.clearAll();
}

void QRelationshipItemModel::generateDataDecimation()
{
    const IntervalBins oBins(m_pLines->m_oIntervalFilter.sortedDepths(DepthLineField::IntervalBoundary));
    const int iBins = oBins.count();
    m_vdDecimationBoundaries.assign(oBins.boundaries().begin(), oBins.boundaries().end());
    m_viDecimationBins = binsOfRecords(m_vdY, oBins, partMask());
    m_viDecimationRows = nearestRecords(m_viDecimationBins, oBins, m_vdY);
    countBins(iBins);

    m_voDecimationAngles.clear();
    const bool bOrientations = tadpoleAttributeIsOn();
    m_poDecimation = std::make_unique<MatrixDataArray>(QStringLiteral("Decimation"), iBins, bOrientations ? 3 : 2,
                                                       QMetaType::Double);
    for (int i = 0; i < iBins; ++i)
        m_poDecimation->setCell(i, 0, oBins.centre(i));
    if (bOrientations)
        averageOrientations(m_viDecimationBins, iBins);
    else
        averageValues(m_viDecimationBins, iBins);
    m_poDecimation->valuesChanged();
}

void QRelationshipItemModel::countBins(int iBins)
{
    // A cell is invalid in x and y together: what is in a bin is a point.
    const std::vector<std::size_t> viCounts = binCounts(m_viDecimationBins, iBins);
    MatrixColumn oCounts(QMetaType::Int);
    oCounts.reserve(iBins);
    for (const std::size_t iCount : viCounts)
        oCounts.appendValue(static_cast<int>(iCount));
    m_poDecimationCount = std::make_unique<MatrixData>(QStringLiteral("Count"), 0, 1, QMetaType::Int, 0);
    m_poDecimationCount->setColumn(0, std::move(oCounts));
    if (m_poDataRoot)
        m_poDecimationCount->setRegistry(m_poDataRoot->registry());
    m_poDecimationCount->setUnitManager(QStringLiteral("dimensionless"));
}

void QRelationshipItemModel::averageValues(std::span<const int> viBins, int iBins)
{
    std::vector<double> vdMeans;
    if (isDirection(nodeX())) {
        const AnglesOfX angles(nodeX(), m_vdX);
        for (const CircularMean& oMean : binMeanDirections(viBins, iBins, angles.inDegrees()))
            vdMeans.push_back(angles.stored(oMean.m_dDirection));
    } else {
        vdMeans = binMeans(viBins, iBins, m_vdX);
    }
    for (int i = 0; i < iBins; ++i)
        m_poDecimation->setCell(i, 1, vdMeans[static_cast<std::size_t>(i)]);
}

void QRelationshipItemModel::averageOrientations(std::span<const int> viBins, int iBins)
{
    const AnglesOfX angles(nodeX(), m_vdX);
    const std::vector<BinOrientation> vMeans = binMeanPlanes(viBins, iBins, angles.inDegrees(), m_vdTadPoles);
    for (int i = 0; i < iBins; ++i) {
        const BinOrientation& oMean = vMeans[static_cast<std::size_t>(i)];
        m_voDecimationAngles.emplace_back(oMean.m_dDip, oMean.m_dAzimuth);
        m_poDecimation->setCell(i, 1, angles.stored(oMean.m_dDip));
        m_poDecimation->setCell(i, 2, oMean.m_dAzimuth);
    }
}

int QRelationshipItemModel::decimationBin(int iRecord) const
{
    return iRecord >= 0 && iRecord < static_cast<int>(m_viDecimationBins.size())
               ? m_viDecimationBins[static_cast<std::size_t>(iRecord)]
               : -1;
}

bool QRelationshipItemModel::buildClusters_KML(const QString& sAttributeName, int k)
{
    std::vector<std::span<const double>> vColumns = {m_vdX, m_vdY};
    if (m_oThird)
        vColumns.emplace_back(m_vdThird);
    KMeansClusters found = kMeansClusters(vColumns, k, partMask());
    if (found.m_iK == 0)
        return false;

    storeClusters(sAttributeName, std::move(found));
    return true;
}

void QRelationshipItemModel::storeClusters(const QString& sAttributeName, KMeansClusters found)
{
    MatrixDataArray* poCentroids = findClusterCentroids(sAttributeName);
    poCentroids->reserve(found.m_iK, found.m_iDimension);
    std::copy(found.m_vdCentroids.begin(), found.m_vdCentroids.end(), poCentroids->cells().begin());
    poCentroids->valuesChanged();
    Clusters& clusters = m_clusters[sAttributeName];
    clusters.m_viIDs = std::move(found.m_viClusterOfPoint);
    clusters.m_viSizes = std::move(found.m_viSizes);
    clusters.m_dDistortion = found.m_dDistortion;
    setClusterAttributeName(sAttributeName);
}

MatrixDataArray* QRelationshipItemModel::findClusterCentroids(const QString& sAttributeName)
{
    std::unique_ptr<MatrixDataArray>& poCentroids = m_clusters[sAttributeName].m_poCentroids;
    if (!poCentroids)
        poCentroids = std::make_unique<MatrixDataArray>(sAttributeName, 0, m_oThird ? 3 : 2, QMetaType::Double);
    return poCentroids.get();
}

void QRelationshipItemModel::setClusterAttributeName(const QString& sName)
{
    m_sClusterAttributeName = sName;
    const auto it = m_clusters.find(sName);
    m_pClusters = it == m_clusters.end() ? nullptr : &it->second;
    columnChanged(ClusterColumn);
}

MatrixDataArray* QRelationshipItemModel::clusterCentroids() const
{
    return m_pClusters ? m_pClusters->m_poCentroids.get() : nullptr;
}

std::span<const int> QRelationshipItemModel::clusterIDs() const
{
    return m_pClusters ? std::span<const int>(m_pClusters->m_viIDs) : std::span<const int>();
}

int QRelationshipItemModel::clusterID(int iRecord) const
{
    const std::span<const int> viIDs = clusterIDs();
    return iRecord >= 0 && iRecord < static_cast<int>(viIDs.size()) ? viIDs[static_cast<std::size_t>(iRecord)] : -1;
}

std::span<const std::size_t> QRelationshipItemModel::clusterSizes() const
{
    return m_pClusters ? std::span<const std::size_t>(m_pClusters->m_viSizes) : std::span<const std::size_t>();
}

double QRelationshipItemModel::clusterDistortion() const
{
    return m_pClusters ? m_pClusters->m_dDistortion : 0.0;
}

void QRelationshipItemModel::clearClusters()
{
    if (m_clusters.empty())
        return;
    m_clusters.clear();
    m_pClusters = nullptr;
    columnChanged(ClusterColumn);
}

void QRelationshipItemModel::clearResults()
{
    m_clusters.clear();
    m_pClusters = nullptr;
    m_poDecimation.reset();
    m_poDecimationCount.reset();
    m_viDecimationRows.clear();
    m_voDecimationAngles.clear();
    m_viDecimationBins.clear();
    m_vdDecimationBoundaries.clear();
    m_oPoleResults = {};
    m_oLineResults = {};
}

} // namespace gkBase
