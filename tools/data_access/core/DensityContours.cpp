#include "DensityContours.h"

#include "TriangleContour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace gkBase {

namespace {

constexpr int g_iNone = -1;

/// Where a link of an outline begins and ends. Every edge of a triangle that an isoline crosses, and every node on
/// the side of the square, is a joint; outlines pass it at most once per level.
struct Link
{
    int m_iFrom;
    int m_iTo;
    NetPoint m_oFrom;
    NetPoint m_oTo;
};

/// Numbers the edges of the triangles of a grid: the sides of the cells and the four spokes from each cell's centre.
/// Behind them come the nodes.
class Joints
{
public:
    explicit Joints(const DensityGrid& oGrid)
        : m_iColumns(oGrid.m_iColumns)
        , m_iVertical((oGrid.m_iColumns - 1) * oGrid.m_iRows)
        , m_iSpokes(m_iVertical + oGrid.m_iColumns * (oGrid.m_iRows - 1))
        , m_iNodes(m_iSpokes + 4 * (oGrid.m_iColumns - 1) * (oGrid.m_iRows - 1))
        , m_iCount(m_iNodes + oGrid.m_iColumns * oGrid.m_iRows)
    {
    }

    /// Side iSide of a cell: 0 south, 1 east, 2 north, 3 west.
    int side(int iColumn, int iRow, int iSide) const
    {
        switch (iSide) {
        case 0:
            return (iRow + 1) * (m_iColumns - 1) + iColumn;
        case 1:
            return m_iVertical + iRow * m_iColumns + iColumn + 1;
        case 2:
            return iRow * (m_iColumns - 1) + iColumn;
        default:
            return m_iVertical + iRow * m_iColumns + iColumn;
        }
    }
    int spoke(int iColumn, int iRow, int iCorner) const
    {
        return m_iSpokes + 4 * (iRow * (m_iColumns - 1) + iColumn) + iCorner;
    }
    int node(int iColumn, int iRow) const { return m_iNodes + iRow * m_iColumns + iColumn; }
    std::size_t count() const { return static_cast<std::size_t>(m_iCount); }

private:
    int m_iColumns;
    int m_iVertical;
    int m_iSpokes;
    int m_iNodes;
    int m_iCount;
};

/// Finds the segments of all levels, triangle by triangle.
class SegmentFinder
{
public:
    SegmentFinder(const DensityGrid& oGrid, std::span<const double> vdLevels)
        : m_oGrid(oGrid)
        , m_vdPercent(oGrid.percentages())
        , m_vdLevels(vdLevels)
        , m_oJoints(oGrid)
        , m_vLinks(vdLevels.size())
    {
        for (int iRow = 0; iRow + 1 < oGrid.m_iRows; ++iRow) {
            for (int iColumn = 0; iColumn + 1 < oGrid.m_iColumns; ++iColumn) {
                addCell(iColumn, iRow);
            }
        }
    }

    const Joints& joints() const { return m_oJoints; }
    const std::vector<Link>& links(std::size_t iLevel) const { return m_vLinks[iLevel]; }

    /// The pieces of the sides of the square at or above a level, counter-clockwise, area on the left.
    std::vector<Link> borderLinks(double dLevel) const
    {
        std::vector<Link> vLinks;
        const int iLastColumn = m_oGrid.m_iColumns - 1;
        const int iLastRow = m_oGrid.m_iRows - 1;
        for (int i = 0; i < iLastColumn; ++i) {
            addBorderEdge(vLinks, dLevel, i, iLastRow, i + 1, iLastRow, m_oJoints.side(i, iLastRow - 1, 0));
            addBorderEdge(vLinks, dLevel, i + 1, 0, i, 0, m_oJoints.side(i, 0, 2));
        }
        for (int i = 0; i < iLastRow; ++i) {
            addBorderEdge(vLinks, dLevel, iLastColumn, i + 1, iLastColumn, i, m_oJoints.side(iLastColumn - 1, i, 1));
            addBorderEdge(vLinks, dLevel, 0, i, 0, i + 1, m_oJoints.side(0, i, 3));
        }
        return vLinks;
    }

private:
    TriangleCorner corner(int iColumn, int iRow) const
    {
        return {m_oGrid.x(iColumn), m_oGrid.y(iRow), m_vdPercent[m_oGrid.index(iColumn, iRow)]};
    }

    void addCell(int iColumn, int iRow)
    {
        // South-west, south-east, north-east, north-west: counter-clockwise.
        const std::array<TriangleCorner, 4> aCorners{corner(iColumn, iRow + 1), corner(iColumn + 1, iRow + 1),
                                                     corner(iColumn + 1, iRow), corner(iColumn, iRow)};
        const double dMin =
            std::min({aCorners[0].m_dValue, aCorners[1].m_dValue, aCorners[2].m_dValue, aCorners[3].m_dValue});
        const double dMax =
            std::max({aCorners[0].m_dValue, aCorners[1].m_dValue, aCorners[2].m_dValue, aCorners[3].m_dValue});
        // An isoline parts corners below its level from those at or above it.
        const auto itFirst = std::upper_bound(m_vdLevels.begin(), m_vdLevels.end(), dMin);
        const auto itLast = std::upper_bound(itFirst, m_vdLevels.end(), dMax);
        if (itFirst == itLast) {
            return;
        }
        const TriangleCorner oCentre{
            0.5 * (aCorners[0].m_dX + aCorners[2].m_dX), 0.5 * (aCorners[0].m_dY + aCorners[2].m_dY),
            0.25 * (aCorners[0].m_dValue + aCorners[1].m_dValue + aCorners[2].m_dValue + aCorners[3].m_dValue)};
        for (int i = 0; i < 4; ++i) {
            const int iNext = (i + 1) % 4;
            const TriangleCorner aTriangle[3] = {aCorners[static_cast<std::size_t>(i)],
                                                 aCorners[static_cast<std::size_t>(iNext)], oCentre};
            const int aiEdges[3] = {m_oJoints.side(iColumn, iRow, i), m_oJoints.spoke(iColumn, iRow, iNext),
                                    m_oJoints.spoke(iColumn, iRow, i)};
            for (auto it = itFirst; it != itLast; ++it) {
                addSegment(static_cast<std::size_t>(it - m_vdLevels.begin()), *it, aTriangle, aiEdges);
            }
        }
    }

    /// The isoline runs from the edge that falls below the level, seen counter-clockwise, to the one that rises.
    void addSegment(std::size_t iLevel, double dLevel, const TriangleCorner (&aTriangle)[3], const int (&aiEdges)[3])
    {
        int iFalling = g_iNone;
        int iRising = g_iNone;
        for (int i = 0; i < 3; ++i) {
            const bool bFrom = aTriangle[i].m_dValue >= dLevel;
            if (bFrom != (aTriangle[(i + 1) % 3].m_dValue >= dLevel)) {
                (bFrom ? iFalling : iRising) = i;
            }
        }
        if (iFalling == g_iNone) {
            return;
        }
        ContourPoint aPoints[2];
        Link oLink{aiEdges[iFalling], aiEdges[iRising], {}, {}};
        if (triangleIsoline(aTriangle, dLevel, aPoints) == 2) {
            // Its points come in the order of the edges.
            const ContourPoint& oFrom = aPoints[iFalling < iRising ? 0 : 1];
            const ContourPoint& oTo = aPoints[iFalling < iRising ? 1 : 0];
            oLink.m_oFrom = {oFrom.m_dX, oFrom.m_dY};
            oLink.m_oTo = {oTo.m_dX, oTo.m_dY};
        } else {
            // Shrunk to the corner that the two edges share; the line still passes through it.
            const TriangleCorner& oShared = aTriangle[iRising == (iFalling + 1) % 3 ? iRising : iFalling];
            oLink.m_oFrom = {oShared.m_dX, oShared.m_dY};
            oLink.m_oTo = oLink.m_oFrom;
        }
        m_vLinks[iLevel].push_back(oLink);
    }

    void addBorderEdge(std::vector<Link>& vLinks, double dLevel, int iFromColumn, int iFromRow, int iToColumn,
                       int iToRow, int iEdge) const
    {
        const TriangleCorner oFrom = corner(iFromColumn, iFromRow);
        const TriangleCorner oTo = corner(iToColumn, iToRow);
        const NetPoint oFromPoint{oFrom.m_dX, oFrom.m_dY};
        const NetPoint oToPoint{oTo.m_dX, oTo.m_dY};
        const bool bFrom = oFrom.m_dValue >= dLevel;
        const bool bTo = oTo.m_dValue >= dLevel;
        const int iFromNode = m_oJoints.node(iFromColumn, iFromRow);
        const int iToNode = m_oJoints.node(iToColumn, iToRow);
        // The crossing's own position is that of the isoline which begins or ends there.
        if (bFrom && bTo) {
            vLinks.push_back({iFromNode, iToNode, oFromPoint, oToPoint});
        } else if (bFrom) {
            vLinks.push_back({iFromNode, iEdge, oFromPoint, oFromPoint});
        } else if (bTo) {
            vLinks.push_back({iEdge, iToNode, oToPoint, oToPoint});
        }
    }

    const DensityGrid& m_oGrid;
    std::vector<double> m_vdPercent;
    std::span<const double> m_vdLevels;
    Joints m_oJoints;
    std::vector<std::vector<Link>> m_vLinks; ///< by level
};

/// Joins links to lines: every joint has at most one link that leaves it and one that reaches it.
class LineJoiner
{
public:
    explicit LineJoiner(std::size_t iJoints)
        : m_viLeaving(iJoints, g_iNone)
        , m_vbReached(iJoints, 0)
    {
    }

    std::vector<NetPolyline> join(std::span<const Link> vLinks)
    {
        for (std::size_t i = 0; i < vLinks.size(); ++i) {
            m_viLeaving[static_cast<std::size_t>(vLinks[i].m_iFrom)] = static_cast<int>(i);
            m_vbReached[static_cast<std::size_t>(vLinks[i].m_iTo)] = 1;
        }
        std::vector<NetPolyline> vLines;
        for (const bool bOpenOnes : {true, false}) {
            for (const Link& oLink : vLinks) {
                const auto iFrom = static_cast<std::size_t>(oLink.m_iFrom);
                if (m_viLeaving[iFrom] != g_iNone && (!bOpenOnes || m_vbReached[iFrom] == 0)) {
                    addLine(vLines, vLinks, iFrom);
                }
            }
        }
        for (const Link& oLink : vLinks) {
            m_vbReached[static_cast<std::size_t>(oLink.m_iTo)] = 0;
        }
        return vLines;
    }

private:
    /// Follows the links from a joint and takes them out.
    void addLine(std::vector<NetPolyline>& vLines, std::span<const Link> vLinks, std::size_t iJoint)
    {
        NetPolyline vPoints;
        const auto append = [&vPoints](const NetPoint& oPoint) {
            if (vPoints.empty() || vPoints.back().m_dX != oPoint.m_dX || vPoints.back().m_dY != oPoint.m_dY) {
                vPoints.push_back(oPoint);
            }
        };
        while (m_viLeaving[iJoint] != g_iNone) {
            const Link& oLink = vLinks[static_cast<std::size_t>(m_viLeaving[iJoint])];
            m_viLeaving[iJoint] = g_iNone;
            append(oLink.m_oFrom);
            append(oLink.m_oTo);
            iJoint = static_cast<std::size_t>(oLink.m_iTo);
        }
        if (vPoints.size() > 1) {
            vLines.push_back(std::move(vPoints));
        }
    }

    std::vector<int> m_viLeaving;
    std::vector<unsigned char> m_vbReached;
};

/// Buckets over the square around the net for points that keep a distance.
class SpacedPoints
{
public:
    explicit SpacedPoints(double dDistance)
        : m_dDistance(dDistance)
        , m_iSide(std::clamp(static_cast<int>(std::ceil(2.0 / dDistance)), 1, 200))
        , m_vBuckets(static_cast<std::size_t>(m_iSide) * static_cast<std::size_t>(m_iSide))
    {
    }

    /// No kept point lies within the distance.
    bool isFree(const NetPoint& oPoint)
    {
        const int iX = bucketOf(oPoint.m_dX);
        const int iY = bucketOf(oPoint.m_dY);
        const int iReach = static_cast<int>(std::ceil(m_dDistance * 0.5 * m_iSide));
        for (int y = std::max(0, iY - iReach); y <= std::min(m_iSide - 1, iY + iReach); ++y) {
            for (int x = std::max(0, iX - iReach); x <= std::min(m_iSide - 1, iX + iReach); ++x) {
                for (const NetPoint& oKept : bucket(x, y)) {
                    if (std::hypot(oKept.m_dX - oPoint.m_dX, oKept.m_dY - oPoint.m_dY) <= m_dDistance) {
                        return false;
                    }
                }
            }
        }
        return true;
    }
    void keep(const NetPoint& oPoint) { bucket(bucketOf(oPoint.m_dX), bucketOf(oPoint.m_dY)).push_back(oPoint); }

private:
    int bucketOf(double dPosition) const
    {
        return std::clamp(static_cast<int>((dPosition + 1.0) * 0.5 * m_iSide), 0, m_iSide - 1);
    }
    std::vector<NetPoint>& bucket(int iX, int iY)
    {
        return m_vBuckets[static_cast<std::size_t>(iY) * static_cast<std::size_t>(m_iSide) +
                          static_cast<std::size_t>(iX)];
    }

    double m_dDistance;
    int m_iSide;
    std::vector<std::vector<NetPoint>> m_vBuckets;
};

} // namespace

std::vector<double> contourLevels(double dMinimum, double dMaximum, double dInterval)
{
    if (isMissing(dMinimum) || isMissing(dMaximum) || !(dMinimum < dMaximum)) {
        return {};
    }
    std::vector<double> vdLevels;
    if (dInterval == g_dMissingValue) {
        constexpr int iLast = g_iAutomaticContourLevels - 1;
        for (int i = 0; i < iLast; ++i) {
            vdLevels.push_back(dMinimum + i * (dMaximum - dMinimum) / iLast);
        }
        vdLevels.push_back(dMaximum);
        return vdLevels;
    }
    // A level that misses the maximum by rounding only lies on it.
    const double dSteps = (dMaximum - dMinimum) / dInterval * (1.0 + 1e-12);
    if (isMissing(dInterval) || !(dInterval > 0.0) || !(dSteps < g_iMostContourLevels)) {
        return {};
    }
    for (int i = 0; i <= static_cast<int>(dSteps); ++i) {
        vdLevels.push_back(std::min(dMinimum + i * dInterval, dMaximum));
    }
    return vdLevels;
}

std::vector<double> contourLevels(const DensityGrid& oGrid, double dInterval)
{
    if (oGrid.isEmpty() || !(oGrid.m_dWeight > 0.0)) {
        return {};
    }
    const auto [itMin, itMax] = std::minmax_element(oGrid.m_vdCounts.begin(), oGrid.m_vdCounts.end());
    return contourLevels(*itMin * oGrid.percentFactor(), *itMax * oGrid.percentFactor(), dInterval);
}

std::vector<DensityContour> densityContours(const DensityGrid& oGrid, std::span<const double> vdLevels)
{
    std::vector<DensityContour> vContours;
    if (oGrid.isEmpty() || !(oGrid.m_dWeight > 0.0) || vdLevels.empty()) {
        return vContours;
    }
    const SegmentFinder oFinder(oGrid, vdLevels);
    LineJoiner oJoiner(oFinder.joints().count());
    for (std::size_t i = 0; i < vdLevels.size(); ++i) {
        DensityContour oContour;
        oContour.m_dLevel = vdLevels[i];
        for (const NetPolyline& vLine : oJoiner.join(oFinder.links(i))) {
            std::vector<NetPolyline> vPieces = clippedToNet(vLine);
            std::move(vPieces.begin(), vPieces.end(), std::back_inserter(oContour.m_vLines));
        }
        std::vector<Link> vLinks = oFinder.borderLinks(vdLevels[i]);
        vLinks.insert(vLinks.end(), oFinder.links(i).begin(), oFinder.links(i).end());
        oContour.m_vOutlines = oJoiner.join(vLinks);
        for (NetPolyline& vOutline : oContour.m_vOutlines) {
            const NetPoint& oFirst = vOutline.front();
            if (oFirst.m_dX == vOutline.back().m_dX && oFirst.m_dY == vOutline.back().m_dY) {
                vOutline.pop_back();
            }
        }
        std::erase_if(oContour.m_vOutlines, [](const NetPolyline& vOutline) { return vOutline.size() < 3; });
        vContours.push_back(std::move(oContour));
    }
    return vContours;
}

std::vector<ContourLabel> contourLabels(std::span<const DensityContour> vContours, double dDistance,
                                        const std::function<bool(const ContourLabel&)>& fnFits)
{
    std::vector<ContourLabel> vLabels;
    if (!(dDistance > 0.0) || !std::isfinite(dDistance)) {
        return vLabels;
    }
    SpacedPoints oKept(dDistance);
    for (std::size_t iContour = vContours.size(); iContour-- > 0;) {
        const DensityContour& oContour = vContours[iContour];
        for (const NetPolyline& vLine : oContour.m_vLines) {
            for (std::size_t i = 1; i < vLine.size(); ++i) {
                const NetPoint oMiddle{0.5 * (vLine[i - 1].m_dX + vLine[i].m_dX),
                                       0.5 * (vLine[i - 1].m_dY + vLine[i].m_dY)};
                const ContourLabel oLabel{oMiddle, oContour.m_dLevel};
                if (oKept.isFree(oMiddle) && (!fnFits || fnFits(oLabel))) {
                    oKept.keep(oMiddle);
                    vLabels.push_back(oLabel);
                }
            }
        }
    }
    return vLabels;
}

} // namespace gkBase
