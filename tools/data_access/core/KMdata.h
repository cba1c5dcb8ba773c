#pragma once

#include "gkBaseCoreExport.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

class KMtree;

/// The points of a k-means clustering: coordinates in one block, and the kc-tree over them.
///
///     KMdata oData(3, iPoints);
///     oData[0][2] = dZ;
///     oData.buildKcTree();
///
/// Points with a coordinate that is not finite may stand in the block; they belong to no cluster.
class GKBASECORE_EXPORT KMdata
{
public:
    /// iPoints points at the origin. A dimension or number below 1 gives no points.
    KMdata(int iDim, int iPoints);
    ~KMdata();
    KMdata(const KMdata&) = delete;
    KMdata& operator=(const KMdata&) = delete;

    int dim() const { return m_iDim; }
    int pointCount() const { return m_iPoints; }
    /// The coordinates of a point. Writing drops nothing: call buildKcTree() after the last change.
    double* operator[](int iPoint) { return m_vdCoordinates.data() + offset(iPoint); }
    const double* operator[](int iPoint) const { return m_vdCoordinates.data() + offset(iPoint); }
    /// All coordinates, point after point.
    std::span<const double> coordinates() const { return m_vdCoordinates; }

    /// Builds the tree over the points as they are now, n log n; replaces an older one.
    void buildKcTree();
    /// Null until buildKcTree().
    const KMtree* kcTree() const { return m_poTree.get(); }

private:
    std::size_t offset(int iPoint) const { return static_cast<std::size_t>(iPoint) * static_cast<std::size_t>(m_iDim); }

    int m_iDim;
    int m_iPoints;
    std::vector<double> m_vdCoordinates;
    std::unique_ptr<KMtree> m_poTree;
};
