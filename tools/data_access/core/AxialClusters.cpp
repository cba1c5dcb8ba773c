#include "AxialClusters.h"

#include "OrientationMatrix.h"
#include "PrincipalAxes.h"
#include "VectorRegisters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <vector>

namespace gkBase {

namespace {

constexpr std::size_t g_iDimension = 5;

using Embedding = std::array<std::vector<double>, g_iDimension>;

/// Coordinates of u·uᵀ − I/3 in an orthogonal basis, scaled so that distances are sines.
std::array<double, g_iDimension> embedded(const gdfVertex& oUnit)
{
    const double dX = oUnit.x();
    const double dY = oUnit.y();
    const double dZ = oUnit.z();
    const double dHalfOfRoot = 0.5 / std::sqrt(3.0);
    return {0.5 * (dX - dY) * (dX + dY), dX * dY, dX * dZ, dY * dZ, dHalfOfRoot * (3.0 * dZ * dZ - 1.0)};
}

Embedding embeddedRecords(OrientationType eType, std::span<const double> vdAngles, std::span<const double> vdAzimuths)
{
    const std::size_t iRecords = std::min(vdAngles.size(), vdAzimuths.size());
    Embedding vvdColumns;
    vvdColumns.fill(std::vector<double>(iRecords, g_dEmptyCell));
    clearVectorRegisters();
    for (std::size_t i = 0; i < iRecords; ++i) {
        if (isMissing(vdAngles[i]) || isMissing(vdAzimuths[i])) {
            continue;
        }
        const auto adPoint = embedded(orientationVector(eType, vdAngles[i], vdAzimuths[i]));
        for (std::size_t d = 0; d < g_iDimension; ++d) {
            vvdColumns[d][i] = adPoint[d];
        }
    }
    return vvdColumns;
}

/// Numbers the clusters by falling size.
void sortBySize(KMeansClusters& oClusters)
{
    const auto iClusters = static_cast<std::size_t>(oClusters.m_iK);
    std::vector<std::size_t> viFirst(iClusters, oClusters.m_viClusterOfPoint.size());
    for (std::size_t i = oClusters.m_viClusterOfPoint.size(); i-- > 0;) {
        if (oClusters.m_viClusterOfPoint[i] >= 0) {
            viFirst[static_cast<std::size_t>(oClusters.m_viClusterOfPoint[i])] = i;
        }
    }
    const std::vector<std::size_t> viSizes = oClusters.m_viSizes;
    std::vector<std::size_t> viOrder(iClusters);
    std::iota(viOrder.begin(), viOrder.end(), std::size_t{0});
    std::sort(viOrder.begin(), viOrder.end(), [&](std::size_t iLeft, std::size_t iRight) {
        return viSizes[iLeft] != viSizes[iRight] ? viSizes[iLeft] > viSizes[iRight] : viFirst[iLeft] < viFirst[iRight];
    });
    std::vector<int> viNumbers(iClusters);
    for (std::size_t i = 0; i < iClusters; ++i) {
        viNumbers[viOrder[i]] = static_cast<int>(i);
        oClusters.m_viSizes[i] = viSizes[viOrder[i]];
    }
    for (int& iCluster : oClusters.m_viClusterOfPoint) {
        if (iCluster >= 0) {
            iCluster = viNumbers[static_cast<std::size_t>(iCluster)];
        }
    }
}

void setPrincipalCentroids(KMeansClusters& oClusters, OrientationType eType, std::span<const double> vdAngles,
                           std::span<const double> vdAzimuths)
{
    oClusters.m_iDimension = 2;
    oClusters.m_vdCentroids.clear();
    std::vector<unsigned char> vbMembers(oClusters.m_viClusterOfPoint.size());
    for (int iCluster = 0; iCluster < oClusters.m_iK; ++iCluster) {
        std::transform(oClusters.m_viClusterOfPoint.begin(), oClusters.m_viClusterOfPoint.end(), vbMembers.begin(),
                       [iCluster](int iOther) { return static_cast<unsigned char>(iOther == iCluster); });
        const PrincipalAxes oAxes = principalAxes(orientationSums(eType, vdAngles, vdAzimuths, vbMembers));
        const bool bPlanes = eType == OrientationType::Planes;
        oClusters.m_vdCentroids.push_back(bPlanes ? oAxes.meanPlane().m_dDip : oAxes.meanLine().m_dPlunge);
        oClusters.m_vdCentroids.push_back(bPlanes ? oAxes.meanPlane().m_dDipAzimuth : oAxes.meanLine().m_dAzimuth);
    }
}

} // namespace

KMeansClusters axialClusters(OrientationType eType, std::span<const double> vdAngles,
                             std::span<const double> vdAzimuths, int k, std::span<const unsigned char> vbMask)
{
    if (k < 1) {
        return {};
    }
    KMeansClusters oClusters;
    {
        const Embedding vvdColumns = embeddedRecords(eType, vdAngles, vdAzimuths);
        oClusters = kMeansClusters({vvdColumns.begin(), vvdColumns.end()}, k, vbMask);
    }
    sortBySize(oClusters);
    setPrincipalCentroids(oClusters, eType, vdAngles, vdAzimuths);
    return oClusters;
}

} // namespace gkBase
