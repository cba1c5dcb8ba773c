#include "PolygonMask.h"

#include "EdgeCrossing.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dMaximumCells = 4.0e6;
constexpr double g_dMaximumRowEdges = 1.6e7;
/// Cells finer than this share of the coordinates would be of the size of their rounding.
constexpr double g_dFinestCell = 1e-9;
/// Cells that an edge comes this near to (in cells) count as border: far more than the exact test can be off by.
constexpr double g_dMargin = 1e-3;

} // namespace

PolygonMask::PolygonMask(std::span<const double> vdX, std::span<const double> vdY)
{
    makeEdges(vdX, vdY);
    if (m_vEdges.size() < 3) {
        m_vEdges.clear();
        return;
    }
    layOutCells();
    listEdgesOfRows();
    for (const Edge& oEdge : m_vEdges) {
        markBorder(oEdge);
    }
    fillCells();
}

void PolygonMask::makeEdges(std::span<const double> vdX, std::span<const double> vdY)
{
    const std::size_t iPairs = std::min(vdX.size(), vdY.size());
    m_vEdges.reserve(iPairs);
    for (std::size_t i = 0; i < iPairs; ++i) {
        if (isMissing(vdX[i]) || isMissing(vdY[i])) {
            continue;
        }
        if (!m_vEdges.empty()) {
            m_vEdges.back().m_dX2 = vdX[i];
            m_vEdges.back().m_dY2 = vdY[i];
        }
        m_vEdges.push_back({vdX[i], vdY[i], 0.0, 0.0});
    }
    if (!m_vEdges.empty()) {
        m_vEdges.back().m_dX2 = m_vEdges.front().m_dX1;
        m_vEdges.back().m_dY2 = m_vEdges.front().m_dY1;
    }
}

/// The cells cover the bounding box with a cell to spare on every side.
void PolygonMask::layOutCells()
{
    double dRight = m_dLeft = m_vEdges.front().m_dX1;
    double dBottom = m_dTop = m_vEdges.front().m_dY1;
    for (const Edge& oEdge : m_vEdges) {
        m_dLeft = std::min(m_dLeft, oEdge.m_dX1);
        dRight = std::max(dRight, oEdge.m_dX1);
        m_dTop = std::min(m_dTop, oEdge.m_dY1);
        dBottom = std::max(dBottom, oEdge.m_dY1);
    }
    const double dWidth = dRight - m_dLeft;
    const double dHeight = dBottom - m_dTop;
    const double dFarthest = std::max({std::abs(m_dLeft), std::abs(dRight), std::abs(m_dTop), std::abs(dBottom)});
    // Both sides also one by one: a long thin box has few cells in its area, but one more all around.
    double dCell = std::max({1.0, g_dFinestCell * dFarthest, std::sqrt(dWidth / g_dMaximumCells) * std::sqrt(dHeight),
                             8.0 * dWidth / g_dMaximumCells, 8.0 * dHeight / g_dMaximumCells});
    dCell = std::max(dCell, static_cast<double>(m_vEdges.size()) / g_dMaximumRowEdges * dHeight);
    m_dCellsPerPixel = 1.0 / dCell;
    m_dLeft -= dCell;
    m_dTop -= dCell;
    m_dColumns = std::floor((dRight - m_dLeft) * m_dCellsPerPixel) + 2.0;
    m_dRows = std::floor((dBottom - m_dTop) * m_dCellsPerPixel) + 2.0;
    if (!std::isfinite(m_dColumns) || !std::isfinite(m_dRows)) {
        // Corners around the largest doubles: their distances are no numbers, and no chart has them.
        m_vEdges.clear();
        m_dColumns = m_dRows = 0.0;
    }
    m_iColumns = static_cast<std::size_t>(m_dColumns);
    m_iRows = static_cast<std::size_t>(m_dRows);
    m_vCells.assign(m_iColumns * m_iRows, Cell::Unknown);
}

/// For every row the edges that reach into it, by counting them first. The row of a number never falls when the
/// number rises, so that an edge on both sides of a point is in the list of the point's row.
void PolygonMask::listEdgesOfRows()
{
    m_viRowBegin.assign(m_iRows + 2, 0);
    const auto forEachRow = [this](const Edge& oEdge, auto&& fn) {
        const std::size_t iLast = rowOf(std::max(oEdge.m_dY1, oEdge.m_dY2));
        for (std::size_t iRow = rowOf(std::min(oEdge.m_dY1, oEdge.m_dY2)); iRow <= iLast; ++iRow) {
            fn(iRow);
        }
    };
    for (const Edge& oEdge : m_vEdges) {
        forEachRow(oEdge, [this](std::size_t iRow) { ++m_viRowBegin[iRow + 2]; });
    }
    for (std::size_t iRow = 2; iRow < m_viRowBegin.size(); ++iRow) {
        m_viRowBegin[iRow] += m_viRowBegin[iRow - 1];
    }
    // One ahead while the lists are filled: afterwards row i begins at entry i.
    m_viRowEdges.resize(m_viRowBegin.back());
    for (std::size_t i = 0; i < m_vEdges.size(); ++i) {
        forEachRow(m_vEdges[i], [this, i](std::size_t iRow) {
            m_viRowEdges[m_viRowBegin[iRow + 1]++] = static_cast<std::uint32_t>(i);
        });
    }
}

/// Marks the cells that the edge touches or comes near to.
void PolygonMask::markBorder(const Edge& oEdge)
{
    double dX1 = (oEdge.m_dX1 - m_dLeft) * m_dCellsPerPixel;
    double dY1 = (oEdge.m_dY1 - m_dTop) * m_dCellsPerPixel;
    double dX2 = (oEdge.m_dX2 - m_dLeft) * m_dCellsPerPixel;
    double dY2 = (oEdge.m_dY2 - m_dTop) * m_dCellsPerPixel;
    if (dY1 > dY2) {
        std::swap(dX1, dX2);
        std::swap(dY1, dY2);
    }
    const double dSlope = dY2 > dY1 ? (dX2 - dX1) / (dY2 - dY1) : 0.0;
    const auto xAt = [&](double dY) { return dY <= dY1 ? dX1 : dY >= dY2 ? dX2 : dX1 + dSlope * (dY - dY1); };
    const auto iLastRow = static_cast<std::size_t>(dY2 + g_dMargin);
    for (auto iRow = static_cast<std::size_t>(dY1 - g_dMargin); iRow <= iLastRow; ++iRow) {
        const auto dRow = static_cast<double>(iRow);
        const double dUpper = xAt(dRow - g_dMargin);
        const double dLower = dY2 > dY1 ? xAt(dRow + 1.0 + g_dMargin) : dX2;
        const double dFirst = dY2 > dY1 ? std::min(dUpper, dLower) : std::min(dX1, dX2);
        const double dLast = dY2 > dY1 ? std::max(dUpper, dLower) : std::max(dX1, dX2);
        const auto iFirst = static_cast<std::size_t>(dFirst - g_dMargin);
        const auto iEnd = static_cast<std::size_t>(dLast + g_dMargin) + 1;
        std::fill(m_vCells.begin() + static_cast<std::ptrdiff_t>(iRow * m_iColumns + iFirst),
                  m_vCells.begin() + static_cast<std::ptrdiff_t>(iRow * m_iColumns + iEnd), Cell::Border);
    }
}

/// Neighbouring cells that no edge comes near lie on the same side: a run of them along a row takes the side of any
/// such cell above it, and only a run with none is tested.
void PolygonMask::fillCells()
{
    for (std::size_t iRow = 0; iRow < m_iRows; ++iRow) {
        Cell* pRow = m_vCells.data() + iRow * m_iColumns;
        for (std::size_t iBegin = 0; iBegin < m_iColumns;) {
            if (pRow[iBegin] == Cell::Border) {
                ++iBegin;
                continue;
            }
            Cell eSide = Cell::Unknown;
            std::size_t iEnd = iBegin;
            for (; iEnd < m_iColumns && pRow[iEnd] != Cell::Border; ++iEnd) {
                if (iRow > 0 && eSide == Cell::Unknown && pRow[iEnd - m_iColumns] != Cell::Border) {
                    eSide = pRow[iEnd - m_iColumns];
                }
            }
            if (eSide == Cell::Unknown) {
                const double dX = m_dLeft + (static_cast<double>(iBegin) + 0.5) / m_dCellsPerPixel;
                const double dY = m_dTop + (static_cast<double>(iRow) + 0.5) / m_dCellsPerPixel;
                eSide = isInside(iRow, dX, dY) ? Cell::Inside : Cell::Outside;
            }
            std::fill(pRow + iBegin, pRow + iEnd, eSide);
            iBegin = iEnd;
        }
    }
}

bool PolygonMask::isInside(std::size_t iRow, double dX, double dY) const
{
    if (isMissing(dX) || isMissing(dY)) {
        return false;
    }
    bool bInside = false;
    for (std::size_t i = m_viRowBegin[iRow]; i < m_viRowBegin[iRow + 1]; ++i) {
        const Edge& oEdge = m_vEdges[m_viRowEdges[i]];
        if (crossesRay(oEdge.m_dX1, oEdge.m_dY1, oEdge.m_dX2, oEdge.m_dY2, dX, dY)) {
            bInside = !bInside;
        }
    }
    return bInside;
}

} // namespace gkBase
