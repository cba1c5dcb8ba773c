#pragma once

#include "gkBaseCoreExport.h"

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

class KMdata;

/// k centres over the points of a KMdata, moved by the filtering algorithm (Kanungo et al. 2002). Copies share the
/// points, which must outlive them.
class GKBASECORE_EXPORT KMfilterCenters
{
public:
    /// The first centres are spread over the points by a fixed seed. k is cut down to the number of distinct points,
    /// and is 0 when there are none or k is below 1. dDamp in (0, 1] is the share of the way to its centroid that a
    /// centre moves at a stage (1 for any other number). The data's tree is used; data without one have no centres.
    KMfilterCenters(int k, const KMdata& oData, double dDamp = 1.0);

    int centerCount() const { return m_iCenters; }
    int dim() const;
    int pointCount() const;
    const KMdata& data() const { return *m_poData; }

    /// The coordinates of centre i. Call computeDistortion() after writing.
    double* operator[](int i) { return m_vdCenters.data() + offset(i); }
    const double* operator[](int i) const { return m_vdCenters.data() + offset(i); }

    /// Total squared distance of the points to their nearest centres; also refreshes the counts and centroids that
    /// moveToCentroids() uses. 0 without centres.
    double computeDistortion();
    /// The result of the last computeDistortion().
    double distortion() const { return m_dDistortion; }
    /// Points of centre i at the last computeDistortion().
    int clusterSize(int i) const { return static_cast<int>(m_viCounts[static_cast<std::size_t>(i)]); }

    /// Moves every centre towards the centroid of its points as computeDistortion() left them. A centre without
    /// points goes to the point that lies farthest from its own centre.
    void moveToCentroids();
    /// Draws new centres among the points, far ones with the greater probability (k-means++, Arthur and
    /// Vassilvitskii 2007); a large set is represented by a sample.
    void drawCenters(std::mt19937_64& oRandom);
    /// Puts one centre on one of the points, both drawn evenly. Call computeDistortion() afterwards.
    void swapCenter(std::mt19937_64& oRandom);

    /// Cluster (0 … k − 1) and squared distance of each point of the data; −1 and 99999.0 for points with a
    /// coordinate that is not finite, and for all without centres. Arrays of pointCount(); either may be null.
    void getAssignments(int* piClusterOfPoint, double* pdSquaredDistance) const;

private:
    std::size_t offset(int i) const { return static_cast<std::size_t>(i) * static_cast<std::size_t>(dim()); }
    void fillEmptyClusters();

    const KMdata* m_poData; ///< not owned
    int m_iCenters = 0;
    double m_dDamp;
    double m_dDistortion = 0.0;
    std::vector<double> m_vdCenters;
    std::vector<double> m_vdSums;
    std::vector<std::size_t> m_viCounts;
};
