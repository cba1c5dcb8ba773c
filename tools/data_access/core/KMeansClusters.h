#pragma once

#include "RecordMask.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>
#include <vector>

class KMterm;

namespace gkBase {

/// Clusters of records by some of their numbers.
struct KMeansClusters
{
    int m_iK = 0;                        ///< clusters found, numbered from 0; 0 when nothing could be clustered
    int m_iDimension = 0;                ///< columns of the centroids
    std::vector<int> m_viClusterOfPoint; ///< per record; −1 for one left out. Empty with m_iK 0
    std::vector<double> m_vdCentroids;   ///< m_iK rows of m_iDimension numbers, one after another
    std::vector<std::size_t> m_viSizes;  ///< records of each cluster
    double m_dDistortion = 0.0;          ///< total of the squared distances of the records to their centroids

    /// A coordinate of the centroid of a cluster.
    double centroid(int iCluster, int iCoordinate) const
    {
        return m_vdCentroids[static_cast<std::size_t>(iCluster) * static_cast<std::size_t>(m_iDimension) +
                             static_cast<std::size_t>(iCoordinate)];
    }
};

/// The termination rule of every k-means search of the library: 100 stages, runs of at most 3 of them.
GKBASECORE_EXPORT const KMterm& kMeansTerm();

/// Clusters the records by k-means with Lloyd's iteration and many starts (KMlocalLloyds). The coordinates are taken
/// as they are: axes with large numbers weigh more. Two columns are clustered in three dimensions with a third
/// coordinate of 0. Records with a missing coordinate or outside the mask are left out; the shortest column counts.
/// k is cut down to the number of distinct points. k below 1, no points, or less than two columns give an empty
/// result. The same input gives the same clusters on every run.
GKBASECORE_EXPORT KMeansClusters kMeansClusters(const std::vector<std::span<const double>>& vColumns, int k,
                                                std::span<const unsigned char> vbMask = {});

} // namespace gkBase
