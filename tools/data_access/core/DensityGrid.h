#pragma once

#include "NetProjection.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

/// Records counted at the nodes of a grid over the square around the net, whose corners are (±1, ±1).
struct GKBASECORE_EXPORT DensityGrid
{
    static constexpr int s_iMaximumNodes = 2000; ///< in a row or a column

    int m_iColumns = 0;             ///< nodes from west to east
    int m_iRows = 0;                ///< nodes from north to south
    std::vector<double> m_vdCounts; ///< row by row from the north, each from the west
    std::size_t m_iRecords = 0;     ///< records taken: N
    std::size_t m_iMissing = 0;     ///< records taken that lack an angle or a weight of at least 0; not in N
    std::size_t m_iOutside = 0; ///< records in N that plot outside the square: on a tangent net, or angles out of range
    double m_dWeight = 0.0;     ///< sum of the weights of the N records; N without weights

    bool isEmpty() const { return m_vdCounts.empty(); }
    double x(int iColumn) const { return static_cast<double>(2 * iColumn - (m_iColumns - 1)) / (m_iColumns - 1); }
    double y(int iRow) const { return static_cast<double>(m_iRows - 1 - 2 * iRow) / (m_iRows - 1); }
    std::size_t index(int iColumn, int iRow) const
    {
        return static_cast<std::size_t>(iRow) * static_cast<std::size_t>(m_iColumns) +
               static_cast<std::size_t>(iColumn);
    }
    double count(int iColumn, int iRow) const { return m_vdCounts[index(iColumn, iRow)]; }
    /// Factor from counts to per cent of N (of the sum of the weights, where there are any); 0 without records.
    double percentFactor() const { return m_dWeight > 0.0 ? 100.0 / m_dWeight : 0.0; }
    /// The counts in per cent; empty without records.
    std::vector<double> percentages() const;
    /// True for a node whose distance from the rim is at most 0.4 of the diagonal of a cell.
    bool isOnRim(int iColumn, int iRow) const;
};

/// Counts records at the nodes: each adds its weight, 1 without weights, to the four corners of its cell. A cell holds
/// its western and northern sides, the last ones all of their sides, so that every record on the net counts. The sum
/// over the nodes is 4 · m_dWeight when none plots outside. The edge rule is not applied.
///
/// Planes count by their poles. Records go up to the end of the shorter column; the mask says which of them are taken,
/// all when it is empty. Weights as recordWeight(). Grid sizes outside 2 … s_iMaximumNodes give an empty grid.
GKBASECORE_EXPORT DensityGrid countOnNet(const NetProjection& oProjection, OrientationType eRecords,
                                         std::span<const double> vdAngle, std::span<const double> vdAzimuth,
                                         int iColumns, int iRows, std::span<const unsigned char> vbMask = {},
                                         std::span<const double> vdWeights = {});

/// Lets records near the rim count on both sides of the net: of each two rim nodes that lie opposite each other, both
/// get the sum of their counts (3 and 1 become 4 and 4). Every pair is taken once.
GKBASECORE_EXPORT void applyEdgeRule(DensityGrid& oGrid);

/// Counts after the edge rule: countOnNet() and applyEdgeRule(). A tangent net goes without that rule: the two ends of
/// its diameters are different lines.
GKBASECORE_EXPORT DensityGrid densityGrid(const NetProjection& oProjection, OrientationType eRecords,
                                          std::span<const double> vdAngle, std::span<const double> vdAzimuth,
                                          int iColumns, int iRows, std::span<const unsigned char> vbMask = {},
                                          std::span<const double> vdWeights = {});

} // namespace gkBase
