#include "KMtree.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace {
/// Points of a leaf: below this, looking at each point is cheaper than descending.
constexpr std::size_t g_iLeafSize = 12;
/// A cut through the middle of the box that leaves less than 1/16 of the points on one side would make the tree deep.
constexpr std::size_t g_iWorstBalance = 16;
} // namespace

/// Walks the tree with a set of candidate centres and drops those that lie farther than another one from the whole
/// box of a node (Kanungo et al. 2002, figure 1). The visitor is told which centre owns a node, or a single point.
template <typename Visitor>
class KMtree::Filter
{
public:
    Filter(const KMtree& oTree, std::span<const double> vdCenters, Visitor& oVisitor)
        : m_oTree(oTree)
        , m_iDim(oTree.m_iDim)
        , m_pdCenters(vdCenters.data())
        , m_oVisitor(oVisitor)
    {
    }

    /// Behind the iCount candidates there is room for as many on every level below this node.
    void visit(std::size_t iNode, int* piCandidates, std::size_t iCount)
    {
        const Node& oNode = m_oTree.m_vNodes[iNode];
        if (iCount > 1) {
            int* piKept = piCandidates + iCount;
            iCount = keepNear(iNode, piCandidates, iCount, piKept);
            piCandidates = piKept;
        }
        if (iCount == 1) {
            m_oVisitor.node(iNode, piCandidates[0]);
        } else if (oNode.m_iRight == 0) {
            for (std::size_t i = oNode.m_iBegin; i < oNode.m_iEnd; ++i) {
                visitPoint(i, piCandidates, iCount);
            }
        } else {
            visit(iNode + 1, piCandidates, iCount);
            visit(oNode.m_iRight, piCandidates, iCount);
        }
    }

private:
    const double* center(int i) const { return m_pdCenters + static_cast<std::size_t>(i) * m_iDim; }

    std::size_t keepNear(std::size_t iNode, const int* piCandidates, std::size_t iCount, int* piKept) const
    {
        const double* pdLow = m_oTree.low(iNode);
        const double* pdHigh = m_oTree.high(iNode);
        int iNearest = piCandidates[0];
        double dNearest = std::numeric_limits<double>::infinity();
        for (std::size_t i = 0; i < iCount; ++i) {
            double dDistance = 0.0;
            for (std::size_t d = 0; d < m_iDim; ++d) {
                const double dDifference = 0.5 * pdLow[d] + 0.5 * pdHigh[d] - center(piCandidates[i])[d];
                dDistance += dDifference * dDifference;
            }
            if (dDistance < dNearest) {
                dNearest = dDistance;
                iNearest = piCandidates[i];
            }
        }
        std::size_t iKept = 0;
        for (std::size_t i = 0; i < iCount; ++i) {
            if (piCandidates[i] == iNearest || !isFarther(center(piCandidates[i]), center(iNearest), pdLow, pdHigh)) {
                piKept[iKept++] = piCandidates[i];
            }
        }
        return iKept;
    }

    /// True when no point of the box is nearer to pdOther than to pdNearest: the corner that lies farthest in the
    /// direction from the one to the other decides.
    bool isFarther(const double* pdOther, const double* pdNearest, const double* pdLow, const double* pdHigh) const
    {
        double dSquare = 0.0;
        double dReach = 0.0;
        for (std::size_t d = 0; d < m_iDim; ++d) {
            const double dStep = pdOther[d] - pdNearest[d];
            dSquare += dStep * dStep;
            dReach += dStep * ((dStep > 0.0 ? pdHigh[d] : pdLow[d]) - pdNearest[d]);
        }
        return dSquare >= 2.0 * dReach;
    }

    void visitPoint(std::size_t iPoint, const int* piCandidates, std::size_t iCount)
    {
        const double* pdPoint = m_oTree.point(iPoint);
        int iNearest = piCandidates[0];
        double dNearest = std::numeric_limits<double>::infinity();
        for (std::size_t i = 0; i < iCount; ++i) {
            const double* pdCenter = center(piCandidates[i]);
            double dDistance = 0.0;
            for (std::size_t d = 0; d < m_iDim; ++d) {
                dDistance += (pdPoint[d] - pdCenter[d]) * (pdPoint[d] - pdCenter[d]);
            }
            if (dDistance < dNearest) {
                dNearest = dDistance;
                iNearest = piCandidates[i];
            }
        }
        m_oVisitor.point(iPoint, iNearest, dNearest);
    }

    const KMtree& m_oTree;
    const std::size_t m_iDim;
    const double* m_pdCenters;
    Visitor& m_oVisitor;
};

template <typename Visitor>
void KMtree::filter(std::span<const double> vdCenters, Visitor& oVisitor) const
{
    const std::size_t iCenters = vdCenters.size() / m_iDim;
    if (m_vNodes.empty() || iCenters == 0) {
        return;
    }
    std::vector<int> viCandidates(iCenters * (static_cast<std::size_t>(m_iDepth) + 3));
    for (std::size_t i = 0; i < iCenters; ++i) {
        viCandidates[i] = static_cast<int>(i);
    }
    Filter<Visitor>(*this, vdCenters, oVisitor).visit(0, viCandidates.data(), iCenters);
}

KMtree::KMtree(int iDim, std::span<const double> vdCoordinates)
    : m_iDim(static_cast<std::size_t>(iDim))
{
    const std::size_t iPoints = vdCoordinates.size() / m_iDim;
    m_vdPoints.reserve(vdCoordinates.size());
    m_viOriginal.reserve(iPoints);
    for (std::size_t i = 0; i < iPoints; ++i) {
        const auto vdPoint = vdCoordinates.subspan(i * m_iDim, m_iDim);
        if (std::all_of(vdPoint.begin(), vdPoint.end(), [](double dValue) { return std::isfinite(dValue); })) {
            m_vdPoints.insert(m_vdPoints.end(), vdPoint.begin(), vdPoint.end());
            m_viOriginal.push_back(static_cast<int>(i));
        }
    }
    if (!m_viOriginal.empty()) {
        m_vNodes.reserve(4 * m_viOriginal.size() / g_iLeafSize + 1);
        m_vdBoxes.reserve(m_vNodes.capacity() * 3 * m_iDim);
        build(0, m_viOriginal.size(), 0);
        m_vdScratch = {};
    }
}

std::size_t KMtree::build(std::size_t iBegin, std::size_t iEnd, int iDepth)
{
    const std::size_t iNode = m_vNodes.size();
    m_vNodes.push_back({iBegin, iEnd, 0, 0.0});
    m_vdBoxes.resize(m_vdBoxes.size() + 3 * m_iDim);
    m_iDepth = std::max(m_iDepth, iDepth);
    fitBox(iNode);
    const std::size_t iMiddle = iEnd - iBegin > g_iLeafSize ? split(iNode) : iBegin;
    if (iMiddle == iBegin) {
        summarizeLeaf(iNode);
        return iNode;
    }
    build(iBegin, iMiddle, iDepth + 1);
    const std::size_t iRight = build(iMiddle, iEnd, iDepth + 1);
    m_vNodes[iNode].m_iRight = iRight;
    summarizeInner(iNode);
    return iNode;
}

void KMtree::fitBox(std::size_t iNode)
{
    const Node& oNode = m_vNodes[iNode];
    double* pdLow = m_vdBoxes.data() + iNode * 3 * m_iDim;
    double* pdHigh = pdLow + m_iDim;
    std::copy_n(point(oNode.m_iBegin), m_iDim, pdLow);
    std::copy_n(point(oNode.m_iBegin), m_iDim, pdHigh);
    for (std::size_t i = oNode.m_iBegin + 1; i < oNode.m_iEnd; ++i) {
        const double* pdPoint = point(i);
        for (std::size_t d = 0; d < m_iDim; ++d) {
            pdLow[d] = std::min(pdLow[d], pdPoint[d]);
            pdHigh[d] = std::max(pdHigh[d], pdPoint[d]);
        }
    }
}

/// Cuts the widest side of the node's box and returns where its right part begins; the begin of the node when all
/// its points are equal.
std::size_t KMtree::split(std::size_t iNode)
{
    const Node& oNode = m_vNodes[iNode];
    std::size_t iCut = 0;
    for (std::size_t d = 1; d < m_iDim; ++d) {
        if (high(iNode)[d] - low(iNode)[d] > high(iNode)[iCut] - low(iNode)[iCut]) {
            iCut = d;
        }
    }
    const double dLow = low(iNode)[iCut];
    const double dHigh = high(iNode)[iCut];
    if (!(dHigh > dLow)) {
        return oNode.m_iBegin;
    }
    const double dCenter = 0.5 * dLow + 0.5 * dHigh;
    const auto isBelowCenter = [=](const double* pdPoint) { return pdPoint[iCut] < dCenter; };
    const std::size_t iMiddle = partition(oNode.m_iBegin, oNode.m_iEnd, isBelowCenter);
    const std::size_t iCount = oNode.m_iEnd - oNode.m_iBegin;
    const std::size_t iSmaller = std::min(iMiddle - oNode.m_iBegin, oNode.m_iEnd - iMiddle);
    if (iSmaller * g_iWorstBalance >= iCount) {
        return iMiddle;
    }
    m_vdScratch.resize(iCount);
    for (std::size_t i = 0; i < iCount; ++i) {
        m_vdScratch[i] = point(oNode.m_iBegin + i)[iCut];
    }
    const auto itMedian = m_vdScratch.begin() + static_cast<std::ptrdiff_t>(iCount / 2);
    std::nth_element(m_vdScratch.begin(), itMedian, m_vdScratch.end());
    const double dMedian = *itMedian;
    if (dMedian > dLow) {
        return partition(oNode.m_iBegin, oNode.m_iEnd, [=](const double* pdPoint) { return pdPoint[iCut] < dMedian; });
    }
    return partition(oNode.m_iBegin, oNode.m_iEnd, [=](const double* pdPoint) { return pdPoint[iCut] <= dLow; });
}

template <typename Predicate>
std::size_t KMtree::partition(std::size_t iBegin, std::size_t iEnd, Predicate goesLeft)
{
    while (true) {
        while (iBegin < iEnd && goesLeft(point(iBegin))) {
            ++iBegin;
        }
        while (iBegin < iEnd && !goesLeft(point(iEnd - 1))) {
            --iEnd;
        }
        if (iBegin == iEnd) {
            return iBegin;
        }
        double* pdLeft = m_vdPoints.data() + iBegin * m_iDim;
        std::swap_ranges(pdLeft, pdLeft + m_iDim, m_vdPoints.data() + (iEnd - 1) * m_iDim);
        std::swap(m_viOriginal[iBegin], m_viOriginal[iEnd - 1]);
    }
}

void KMtree::summarizeLeaf(std::size_t iNode)
{
    Node& oNode = m_vNodes[iNode];
    double* pdMean = m_vdBoxes.data() + (iNode * 3 + 2) * m_iDim;
    const auto dCount = static_cast<double>(oNode.m_iEnd - oNode.m_iBegin);
    for (std::size_t d = 0; d < m_iDim; ++d) {
        double dSum = 0.0;
        for (std::size_t i = oNode.m_iBegin; i < oNode.m_iEnd; ++i) {
            dSum += point(i)[d] - low(iNode)[d];
        }
        pdMean[d] = low(iNode)[d] + dSum / dCount;
        for (std::size_t i = oNode.m_iBegin; i < oNode.m_iEnd; ++i) {
            oNode.m_dScatter += (point(i)[d] - pdMean[d]) * (point(i)[d] - pdMean[d]);
        }
    }
}

/// Joins the means and scatters of the two children (Chan, Golub, LeVeque 1983).
void KMtree::summarizeInner(std::size_t iNode)
{
    Node& oNode = m_vNodes[iNode];
    const Node& oLeft = m_vNodes[iNode + 1];
    const Node& oRight = m_vNodes[oNode.m_iRight];
    const auto dLeft = static_cast<double>(oLeft.m_iEnd - oLeft.m_iBegin);
    const auto dRight = static_cast<double>(oRight.m_iEnd - oRight.m_iBegin);
    double* pdMean = m_vdBoxes.data() + (iNode * 3 + 2) * m_iDim;
    oNode.m_dScatter = oLeft.m_dScatter + oRight.m_dScatter;
    for (std::size_t d = 0; d < m_iDim; ++d) {
        const double dStep = mean(oNode.m_iRight)[d] - mean(iNode + 1)[d];
        pdMean[d] = mean(iNode + 1)[d] + dStep * (dRight / (dLeft + dRight));
        oNode.m_dScatter += dStep * dStep * dLeft * (dRight / (dLeft + dRight));
    }
}

double KMtree::pass(std::span<const double> vdCenters, std::span<double> vdSums, std::span<std::size_t> viCounts) const
{
    struct Collector
    {
        const KMtree& m_oTree;
        std::span<const double> m_vdCenters;
        std::span<double> m_vdSums;
        std::span<std::size_t> m_viCounts;
        double m_dDistortion = 0.0;

        void node(std::size_t iNode, int iCenter)
        {
            const std::size_t iDim = m_oTree.m_iDim;
            const Node& oNode = m_oTree.m_vNodes[iNode];
            const std::size_t iCount = oNode.m_iEnd - oNode.m_iBegin;
            const std::size_t iOffset = static_cast<std::size_t>(iCenter) * iDim;
            double dSquare = 0.0;
            for (std::size_t d = 0; d < iDim; ++d) {
                const double dMean = m_oTree.mean(iNode)[d];
                m_vdSums[iOffset + d] += static_cast<double>(iCount) * dMean;
                dSquare += (dMean - m_vdCenters[iOffset + d]) * (dMean - m_vdCenters[iOffset + d]);
            }
            m_viCounts[static_cast<std::size_t>(iCenter)] += iCount;
            m_dDistortion += oNode.m_dScatter + static_cast<double>(iCount) * dSquare;
        }
        void point(std::size_t iPoint, int iCenter, double dSquaredDistance)
        {
            const std::size_t iDim = m_oTree.m_iDim;
            for (std::size_t d = 0; d < iDim; ++d) {
                m_vdSums[static_cast<std::size_t>(iCenter) * iDim + d] += m_oTree.point(iPoint)[d];
            }
            ++m_viCounts[static_cast<std::size_t>(iCenter)];
            m_dDistortion += dSquaredDistance;
        }
    };
    std::fill(vdSums.begin(), vdSums.end(), 0.0);
    std::fill(viCounts.begin(), viCounts.end(), 0);
    Collector oCollector{*this, vdCenters, vdSums, viCounts};
    filter(vdCenters, oCollector);
    return oCollector.m_dDistortion;
}

void KMtree::assign(std::span<const double> vdCenters, int* piCenters, double* pdSquaredDistances) const
{
    struct Writer
    {
        const KMtree& m_oTree;
        std::span<const double> m_vdCenters;
        int* m_piCenters;
        double* m_pdSquaredDistances;

        void node(std::size_t iNode, int iCenter)
        {
            const Node& oNode = m_oTree.m_vNodes[iNode];
            const double* pdCenter = m_vdCenters.data() + static_cast<std::size_t>(iCenter) * m_oTree.m_iDim;
            for (std::size_t i = oNode.m_iBegin; i < oNode.m_iEnd; ++i) {
                double dSquare = 0.0;
                for (std::size_t d = 0; d < m_oTree.m_iDim; ++d) {
                    const double dDifference = m_oTree.point(i)[d] - pdCenter[d];
                    dSquare += dDifference * dDifference;
                }
                point(i, iCenter, dSquare);
            }
        }
        void point(std::size_t iPoint, int iCenter, double dSquaredDistance)
        {
            const auto iOriginal = static_cast<std::size_t>(m_oTree.originalIndex(iPoint));
            if (m_piCenters) {
                m_piCenters[iOriginal] = iCenter;
            }
            if (m_pdSquaredDistances) {
                m_pdSquaredDistances[iOriginal] = dSquaredDistance;
            }
        }
    };
    Writer oWriter{*this, vdCenters, piCenters, pdSquaredDistances};
    filter(vdCenters, oWriter);
}

int KMtree::distinctPoints(int iLimit) const
{
    const auto isLess = [this](const double* pdFirst, const double* pdSecond) {
        return std::lexicographical_compare(pdFirst, pdFirst + m_iDim, pdSecond, pdSecond + m_iDim);
    };
    std::set<const double*, decltype(isLess)> distinct(isLess);
    for (std::size_t i = 0; i < pointCount() && static_cast<int>(distinct.size()) < iLimit; ++i) {
        distinct.insert(point(i));
    }
    return static_cast<int>(distinct.size());
}
