#include "KMfilterCenters.h"

#include "KMdata.h"
#include "KMtree.h"
#include "MissingValue.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr std::uint64_t g_iSeed = 881892;
/// Points that stand for the whole set when centres are drawn: enough for every cluster that matters.
constexpr std::size_t g_iSampleSize = 2000;
constexpr std::size_t g_iSamplePerCenter = 100;

/// A number in [0, 1), the same on every machine (the distributions of the standard library are not).
double uniform(std::mt19937_64& oRandom)
{
    return static_cast<double>(oRandom() >> 11) * 0x1.0p-53;
}

double squaredDistance(const double* pdFirst, const double* pdSecond, std::size_t iDim)
{
    double dSum = 0.0;
    for (std::size_t d = 0; d < iDim; ++d) {
        const double dDifference = pdFirst[d] - pdSecond[d];
        dSum += dDifference * dDifference;
    }
    return dSum;
}

/// Tree positions of the points that stand for the set: all of them, or a random sample.
std::vector<std::size_t> samplePoints(std::size_t iPoints, std::size_t iSampleSize, std::mt19937_64& oRandom)
{
    std::vector<std::size_t> viSample(std::min(iPoints, iSampleSize));
    for (std::size_t i = 0; i < viSample.size(); ++i) {
        viSample[i] = iPoints <= iSampleSize ? i : static_cast<std::size_t>(uniform(oRandom) * double(iPoints));
    }
    return viSample;
}

/// An index drawn with a probability proportional to its weight; any when all weights are 0.
std::size_t drawByWeight(const std::vector<double>& vdWeights, std::mt19937_64& oRandom)
{
    double dTotal = 0.0;
    for (const double dWeight : vdWeights) {
        dTotal += dWeight;
    }
    const double dUniform = uniform(oRandom);
    if (!(dTotal > 0.0) || !std::isfinite(dTotal)) {
        return static_cast<std::size_t>(dUniform * double(vdWeights.size()));
    }
    double dRest = dUniform * dTotal;
    std::size_t iDrawn = 0;
    for (std::size_t i = 0; i < vdWeights.size(); ++i) {
        if (vdWeights[i] > 0.0) {
            iDrawn = i;
            if (dRest < vdWeights[i]) {
                break;
            }
            dRest -= vdWeights[i];
        }
    }
    return iDrawn;
}
} // namespace

KMfilterCenters::KMfilterCenters(int k, const KMdata& oData, double dDamp)
    : m_poData(&oData)
    , m_dDamp(dDamp > 0.0 && dDamp <= 1.0 ? dDamp : 1.0)
{
    if (k < 1 || !oData.kcTree()) {
        return;
    }
    m_iCenters = oData.kcTree()->distinctPoints(k);
    m_viCounts.assign(static_cast<std::size_t>(m_iCenters), 0);
    m_vdCenters.assign(offset(m_iCenters), 0.0);
    m_vdSums.assign(offset(m_iCenters), 0.0);
    std::mt19937_64 oRandom(g_iSeed);
    drawCenters(oRandom);
}

int KMfilterCenters::dim() const
{
    return m_poData->dim();
}

int KMfilterCenters::pointCount() const
{
    return m_poData->pointCount();
}

double KMfilterCenters::computeDistortion()
{
    if (m_iCenters < 1) {
        return 0.0;
    }
    m_dDistortion = m_poData->kcTree()->pass(m_vdCenters, m_vdSums, m_viCounts);
    return m_dDistortion;
}

void KMfilterCenters::moveToCentroids()
{
    if (m_iCenters < 1) {
        return;
    }
    if (std::all_of(m_viCounts.begin(), m_viCounts.end(), [](std::size_t iCount) { return iCount == 0; })) {
        computeDistortion();
    }
    bool bEmpty = false;
    for (int i = 0; i < m_iCenters; ++i) {
        const auto dCount = static_cast<double>(m_viCounts[static_cast<std::size_t>(i)]);
        bEmpty = bEmpty || dCount == 0.0;
        for (std::size_t d = offset(i); dCount > 0.0 && d < offset(i + 1); ++d) {
            const double dCentroid = m_vdSums[d] / dCount;
            m_vdCenters[d] = m_dDamp == 1.0 ? dCentroid : m_vdCenters[d] + m_dDamp * (dCentroid - m_vdCenters[d]);
        }
    }
    if (bEmpty) {
        fillEmptyClusters();
    }
}

void KMfilterCenters::fillEmptyClusters()
{
    const KMtree& oTree = *m_poData->kcTree();
    const auto iDim = static_cast<std::size_t>(dim());
    std::vector<double> vdDistances(static_cast<std::size_t>(pointCount()), 0.0);
    oTree.assign(m_vdCenters, nullptr, vdDistances.data());
    for (int i = 0; i < m_iCenters; ++i) {
        if (m_viCounts[static_cast<std::size_t>(i)] > 0) {
            continue;
        }
        const auto itFarthest = std::max_element(vdDistances.begin(), vdDistances.end());
        const auto iFarthest = static_cast<int>(itFarthest - vdDistances.begin());
        std::copy_n((*m_poData)[iFarthest], iDim, m_vdCenters.begin() + static_cast<std::ptrdiff_t>(offset(i)));
        for (std::size_t iPoint = 0; iPoint < oTree.pointCount(); ++iPoint) {
            double& dDistance = vdDistances[static_cast<std::size_t>(oTree.originalIndex(iPoint))];
            dDistance = std::min(dDistance, squaredDistance(oTree.point(iPoint), (*this)[i], iDim));
        }
    }
}

void KMfilterCenters::drawCenters(std::mt19937_64& oRandom)
{
    if (m_iCenters < 1) {
        return;
    }
    const KMtree& oTree = *m_poData->kcTree();
    const auto iDim = static_cast<std::size_t>(dim());
    const std::size_t iWanted = std::max(g_iSampleSize, g_iSamplePerCenter * static_cast<std::size_t>(m_iCenters));
    const std::vector<std::size_t> viSample = samplePoints(oTree.pointCount(), iWanted, oRandom);
    // Squared distance of each sample point to the nearest centre so far; the first centre is drawn evenly.
    std::vector<double> vdWeights(viSample.size(), 1.0);
    for (int i = 0; i < m_iCenters; ++i) {
        const double* pdDrawn = oTree.point(viSample[drawByWeight(vdWeights, oRandom)]);
        std::copy_n(pdDrawn, iDim, m_vdCenters.begin() + static_cast<std::ptrdiff_t>(offset(i)));
        for (std::size_t iPoint = 0; iPoint < viSample.size(); ++iPoint) {
            const double dDistance = squaredDistance(oTree.point(viSample[iPoint]), pdDrawn, iDim);
            vdWeights[iPoint] = i == 0 ? dDistance : std::min(vdWeights[iPoint], dDistance);
        }
    }
    std::fill(m_viCounts.begin(), m_viCounts.end(), 0);
}

void KMfilterCenters::swapCenter(std::mt19937_64& oRandom)
{
    if (m_iCenters < 1) {
        return;
    }
    const KMtree& oTree = *m_poData->kcTree();
    const auto iCenter = static_cast<int>(uniform(oRandom) * m_iCenters);
    const auto iPoint = static_cast<std::size_t>(uniform(oRandom) * static_cast<double>(oTree.pointCount()));
    std::copy_n(oTree.point(iPoint), static_cast<std::size_t>(dim()), (*this)[iCenter]);
}

void KMfilterCenters::getAssignments(int* piClusterOfPoint, double* pdSquaredDistance) const
{
    if (piClusterOfPoint) {
        std::fill_n(piClusterOfPoint, pointCount(), -1);
    }
    if (pdSquaredDistance) {
        std::fill_n(pdSquaredDistance, pointCount(), gkBase::g_dMissingValue);
    }
    if (m_iCenters > 0) {
        m_poData->kcTree()->assign(m_vdCenters, piClusterOfPoint, pdSquaredDistance);
    }
}
