#include "KMeansClusters.h"

#include "KMdata.h"
#include "KMfilterCenters.h"
#include "KMlocalLloyds.h"
#include "KMterm.h"
#include "MissingValue.h"

#include <algorithm>
#include <limits>

namespace gkBase {

namespace {

constexpr int g_iSmallestTreeDimension = 3;

using Columns = std::vector<std::span<const double>>;

/// Numbers of the records that have all coordinates.
std::vector<int> clusteredRecords(const Columns& vColumns, std::span<const unsigned char> vbMask)
{
    std::vector<int> viRecords;
    std::size_t iRecords = static_cast<std::size_t>(std::numeric_limits<int>::max());
    for (const auto& vdColumn : vColumns) {
        iRecords = std::min(iRecords, vdColumn.size());
    }
    viRecords.reserve(iRecords);
    for (std::size_t i = 0; i < iRecords; ++i) {
        if (isTaken(vbMask, i) && std::none_of(vColumns.begin(), vColumns.end(),
                                               [i](const auto& vdColumn) { return isMissing(vdColumn[i]); })) {
            viRecords.push_back(static_cast<int>(i));
        }
    }
    return viRecords;
}

KMeansClusters resultOf(const KMfilterCenters& oCenters, const std::vector<int>& viRecords, int iDimension,
                        std::size_t iRecords)
{
    KMeansClusters oClusters;
    oClusters.m_iK = oCenters.centerCount();
    oClusters.m_iDimension = iDimension;
    oClusters.m_dDistortion = oCenters.distortion();
    for (int i = 0; i < oClusters.m_iK; ++i) {
        oClusters.m_vdCentroids.insert(oClusters.m_vdCentroids.end(), oCenters[i], oCenters[i] + iDimension);
    }
    std::vector<int> viClusters(viRecords.size());
    oCenters.getAssignments(viClusters.data(), nullptr);
    oClusters.m_viClusterOfPoint.assign(iRecords, -1);
    oClusters.m_viSizes.assign(static_cast<std::size_t>(oClusters.m_iK), 0);
    for (std::size_t i = 0; i < viRecords.size(); ++i) {
        oClusters.m_viClusterOfPoint[static_cast<std::size_t>(viRecords[i])] = viClusters[i];
        ++oClusters.m_viSizes[static_cast<std::size_t>(viClusters[i])];
    }
    return oClusters;
}

} // namespace

const KMterm& kMeansTerm()
{
    static const KMterm oTerm(100.0, 0.0, 0.0, 0.0, 0.1, 0.1, 3, 0.5, 10, 0.95);
    return oTerm;
}

KMeansClusters kMeansClusters(const Columns& vColumns, int k, std::span<const unsigned char> vbMask)
{
    const int iDimension = static_cast<int>(vColumns.size());
    if (k < 1 || iDimension < 2) {
        return {};
    }
    const std::vector<int> viRecords = clusteredRecords(vColumns, vbMask);
    if (viRecords.empty()) {
        return {};
    }
    KMdata oData(std::max(iDimension, g_iSmallestTreeDimension), static_cast<int>(viRecords.size()));
    for (int i = 0; i < oData.pointCount(); ++i) {
        const auto iRecord = static_cast<std::size_t>(viRecords[static_cast<std::size_t>(i)]);
        for (std::size_t d = 0; d < vColumns.size(); ++d) {
            oData[i][d] = vColumns[d][iRecord];
        }
    }
    oData.buildKcTree();
    KMlocalLloyds oSearch(KMfilterCenters(k, oData, 1.0), kMeansTerm());
    const std::size_t iRecords =
        std::min_element(vColumns.begin(), vColumns.end(), [](const auto& vdFirst, const auto& vdSecond) {
            return vdFirst.size() < vdSecond.size();
        })->size();
    return resultOf(oSearch.execute(), viRecords, iDimension, iRecords);
}

} // namespace gkBase
