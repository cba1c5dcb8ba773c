#include "DensityGrid.h"

#include "MissingValue.h"
#include "RecordMask.h"
#include "RecordWeight.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace gkBase {

namespace {

/// Gathers the records taken in small blocks, which are projected together, and counts them by cell.
class CellCounter
{
public:
    CellCounter(const NetProjection& oProjection, OrientationType eRecords, int iColumns, int iRows)
        : m_oProjection(oProjection)
        , m_eRecords(eRecords)
        , m_iCellColumns(iColumns - 1)
        , m_iCellRows(iRows - 1)
        , m_vdCells(static_cast<std::size_t>(m_iCellColumns) * static_cast<std::size_t>(m_iCellRows), 0.0)
    {
    }

    void add(double dAngle, double dAzimuth, double dWeight)
    {
        m_adAngle[m_iBuffered] = dAngle;
        m_adAzimuth[m_iBuffered] = dAzimuth;
        m_adWeight[m_iBuffered] = dWeight;
        if (++m_iBuffered == s_iBlock) {
            flush();
        }
    }

    void flush()
    {
        const auto fnProject = m_eRecords == OrientationType::Planes ? projectPoles : projectLines;
        fnProject(m_oProjection, {m_adAngle.data(), m_iBuffered}, m_adAzimuth, m_aPoints);
        for (std::size_t i = 0; i < m_iBuffered; ++i) {
            const int iColumn = cellOf(m_aPoints[i].m_dX, m_iCellColumns);
            const int iRow = cellOf(-m_aPoints[i].m_dY, m_iCellRows);
            if (iColumn < 0 || iRow < 0) {
                ++m_iOutside;
            } else {
                m_vdCells[static_cast<std::size_t>(iRow) * static_cast<std::size_t>(m_iCellColumns) +
                          static_cast<std::size_t>(iColumn)] += m_adWeight[i];
            }
        }
        m_iBuffered = 0;
    }

    std::size_t outside() const { return m_iOutside; }

    /// Spreads the cells to their corners.
    void addTo(DensityGrid& oGrid) const
    {
        auto pdCell = m_vdCells.begin();
        for (int iRow = 0; iRow < m_iCellRows; ++iRow) {
            for (int iColumn = 0; iColumn < m_iCellColumns; ++iColumn, ++pdCell) {
                oGrid.m_vdCounts[oGrid.index(iColumn, iRow)] += *pdCell;
                oGrid.m_vdCounts[oGrid.index(iColumn + 1, iRow)] += *pdCell;
                oGrid.m_vdCounts[oGrid.index(iColumn + 1, iRow + 1)] += *pdCell;
                oGrid.m_vdCounts[oGrid.index(iColumn, iRow + 1)] += *pdCell;
            }
        }
    }

private:
    /// The cell along one side of the square; −1 outside.
    static int cellOf(double dPosition, int iCells)
    {
        constexpr double dEnd = 1.0 + NetProjection::s_dRimTolerance;
        if (!(dPosition >= -dEnd && dPosition <= dEnd)) {
            return -1;
        }
        const int iCell = static_cast<int>((dPosition + 1.0) * 0.5 * iCells);
        return std::min(iCell, iCells - 1);
    }

    static constexpr std::size_t s_iBlock = 512;
    const NetProjection& m_oProjection;
    OrientationType m_eRecords;
    int m_iCellColumns;
    int m_iCellRows;
    std::vector<double> m_vdCells;
    std::size_t m_iOutside = 0;
    std::size_t m_iBuffered = 0;
    std::array<double, s_iBlock> m_adAngle;
    std::array<double, s_iBlock> m_adAzimuth;
    std::array<double, s_iBlock> m_adWeight;
    std::array<NetPoint, s_iBlock> m_aPoints;
};

bool isGridSize(int iNodes)
{
    return iNodes >= 2 && iNodes <= DensityGrid::s_iMaximumNodes;
}

} // namespace

std::vector<double> DensityGrid::percentages() const
{
    if (!(m_dWeight > 0.0)) {
        return {};
    }
    std::vector<double> vdPercent(m_vdCounts.size());
    std::transform(m_vdCounts.begin(), m_vdCounts.end(), vdPercent.begin(),
                   [dFactor = percentFactor()](double dCount) { return dCount * dFactor; });
    return vdPercent;
}

bool DensityGrid::isOnRim(int iColumn, int iRow) const
{
    const double dDiagonal = std::hypot(2.0 / (m_iColumns - 1), 2.0 / (m_iRows - 1));
    return std::abs(std::hypot(x(iColumn), y(iRow)) - 1.0) <= 0.4 * dDiagonal;
}

DensityGrid countOnNet(const NetProjection& oProjection, OrientationType eRecords, std::span<const double> vdAngle,
                       std::span<const double> vdAzimuth, int iColumns, int iRows,
                       std::span<const unsigned char> vbMask, std::span<const double> vdWeights)
{
    DensityGrid oGrid;
    if (!isGridSize(iColumns) || !isGridSize(iRows)) {
        return oGrid;
    }
    oGrid.m_iColumns = iColumns;
    oGrid.m_iRows = iRows;
    oGrid.m_vdCounts.assign(static_cast<std::size_t>(iColumns) * static_cast<std::size_t>(iRows), 0.0);
    CellCounter oCounter(oProjection, eRecords, iColumns, iRows);
    const std::size_t iCount = std::min(vdAngle.size(), vdAzimuth.size());
    for (std::size_t i = 0; i < iCount; ++i) {
        if (!isTaken(vbMask, i)) {
            continue;
        }
        const double dWeight = recordWeight(vdWeights, i);
        if (isMissing(vdAngle[i]) || isMissing(vdAzimuth[i]) || std::isnan(dWeight)) {
            ++oGrid.m_iMissing;
            continue;
        }
        ++oGrid.m_iRecords;
        oGrid.m_dWeight += dWeight;
        oCounter.add(vdAngle[i], vdAzimuth[i], dWeight);
    }
    oCounter.flush();
    oGrid.m_iOutside = oCounter.outside();
    oCounter.addTo(oGrid);
    return oGrid;
}

void applyEdgeRule(DensityGrid& oGrid)
{
    const std::size_t iLast = oGrid.m_vdCounts.size();
    for (int iRow = 0; iRow < oGrid.m_iRows; ++iRow) {
        for (int iColumn = 0; iColumn < oGrid.m_iColumns; ++iColumn) {
            const std::size_t iNode = oGrid.index(iColumn, iRow);
            // The node opposite stands as far from the end as this one from the beginning.
            const std::size_t iOpposite = iLast - 1 - iNode;
            if (iNode >= iOpposite) {
                return;
            }
            if (oGrid.isOnRim(iColumn, iRow)) {
                const double dSum = oGrid.m_vdCounts[iNode] + oGrid.m_vdCounts[iOpposite];
                oGrid.m_vdCounts[iNode] = dSum;
                oGrid.m_vdCounts[iOpposite] = dSum;
            }
        }
    }
}

DensityGrid densityGrid(const NetProjection& oProjection, OrientationType eRecords, std::span<const double> vdAngle,
                        std::span<const double> vdAzimuth, int iColumns, int iRows,
                        std::span<const unsigned char> vbMask, std::span<const double> vdWeights)
{
    DensityGrid oGrid = countOnNet(oProjection, eRecords, vdAngle, vdAzimuth, iColumns, iRows, vbMask, vdWeights);
    if (oProjection.layout() != NetLayout::Tangent) {
        applyEdgeRule(oGrid);
    }
    return oGrid;
}

} // namespace gkBase
