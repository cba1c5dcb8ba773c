#pragma once

#include <cstddef>
#include <span>
#include <vector>

/// The kc-tree of the filtering algorithm (Kanungo, Mount, Netanyahu, Piatko, Silverman, Wu 2002, IEEE PAMI 24(7),
/// 881-892): a kd-tree whose nodes know the bounding box, number, sum and sum of squares of their points, so that a
/// stage of Lloyd's iteration can hand whole nodes to a centre.
///
/// Sums are held as the mean and the sum of squares about the mean: the same knowledge, without the loss of digits
/// that plain squares suffer far from the origin.
class KMtree
{
public:
    /// Coordinates point after point; points with one that is not finite are left out.
    KMtree(int iDim, std::span<const double> vdCoordinates);

    std::size_t pointCount() const { return m_viOriginal.size(); }
    /// A point in tree order, and its number in the block that the tree was built from.
    const double* point(std::size_t i) const { return m_vdPoints.data() + i * m_iDim; }
    int originalIndex(std::size_t i) const { return m_viOriginal[i]; }

    /// Assigns every point to the nearest of the centres (one after another, at least one) and returns the sum of
    /// the squared distances, with the sum of the coordinates and the number of points of each centre.
    double pass(std::span<const double> vdCenters, std::span<double> vdSums, std::span<std::size_t> viCounts) const;
    /// The nearest centre and its squared distance for each point, written at the original numbers. Either may be
    /// null.
    void assign(std::span<const double> vdCenters, int* piCenters, double* pdSquaredDistances) const;
    /// Number of distinct points, counted up to iLimit.
    int distinctPoints(int iLimit) const;

private:
    struct Node
    {
        std::size_t m_iBegin = 0; ///< points of the node in tree order
        std::size_t m_iEnd = 0;
        std::size_t m_iRight = 0; ///< the right child; the left one follows its parent. 0: a leaf
        double m_dScatter = 0.0;  ///< sum of squared distances to the node's mean
    };
    template <typename Visitor>
    class Filter;

    std::size_t build(std::size_t iBegin, std::size_t iEnd, int iDepth);
    void fitBox(std::size_t iNode);
    std::size_t split(std::size_t iNode);
    template <typename Predicate>
    std::size_t partition(std::size_t iBegin, std::size_t iEnd, Predicate goesLeft);
    void summarizeLeaf(std::size_t iNode);
    void summarizeInner(std::size_t iNode);
    template <typename Visitor>
    void filter(std::span<const double> vdCenters, Visitor& oVisitor) const;

    const double* low(std::size_t iNode) const { return m_vdBoxes.data() + iNode * 3 * m_iDim; }
    const double* high(std::size_t iNode) const { return low(iNode) + m_iDim; }
    const double* mean(std::size_t iNode) const { return high(iNode) + m_iDim; }

    std::size_t m_iDim;
    std::vector<double> m_vdPoints; ///< coordinates in tree order
    std::vector<int> m_viOriginal;
    std::vector<Node> m_vNodes;
    std::vector<double> m_vdBoxes;   ///< per node: low corner, high corner, mean
    std::vector<double> m_vdScratch; ///< one coordinate of a node's points while a median is sought
    int m_iDepth = 0;
};
