#pragma once

#include "MissingValue.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace gkBase {

/// A closed outline prepared for very many inside tests, as a lasso over a chart needs them. The bounding box is cut
/// into cells of a pixel; a cell that no edge comes near lies wholly inside or outside, and only points in the others
/// are tested against the edges of their row. The answer is that of pointInPolygon() for every point.
///
/// Built in time linear in the number of cells and edge rows. Outlines too large for a cell per pixel get larger
/// cells, so that a mask never takes more than some 70 MB, a lasso on a screen a few.
class GKBASECORE_EXPORT PolygonMask
{
public:
    /// Holds no point.
    PolygonMask() = default;
    /// The corners in pixels, closed by itself. Corners with a missing number are left out; fewer than three hold no
    /// point. The numbers are copied.
    PolygonMask(std::span<const double> vdX, std::span<const double> vdY);

    /// True for a point inside by the even-odd rule of pointInPolygon(), edges and crossing outlines included.
    bool contains(double dX, double dY) const
    {
        const double dColumn = (dX - m_dLeft) * m_dCellsPerPixel;
        const double dRow = (dY - m_dTop) * m_dCellsPerPixel;
        if (!(dColumn >= 0.0 && dRow >= 0.0 && dColumn < m_dColumns && dRow < m_dRows)) {
            return false;
        }
        const auto iRow = static_cast<std::size_t>(dRow);
        switch (m_vCells[iRow * m_iColumns + static_cast<std::size_t>(dColumn)]) {
        case Cell::Outside:
            return false;
        case Cell::Inside:
            return !isMissing(dX) && !isMissing(dY);
        default:
            return isInside(iRow, dX, dY);
        }
    }

private:
    enum class Cell : std::uint8_t
    {
        Unknown,
        Outside,
        Inside,
        Border
    };
    struct Edge
    {
        double m_dX1;
        double m_dY1;
        double m_dX2;
        double m_dY2;
    };

    void makeEdges(std::span<const double> vdX, std::span<const double> vdY);
    void layOutCells();
    void listEdgesOfRows();
    void markBorder(const Edge& oEdge);
    void fillCells();
    std::size_t rowOf(double dY) const { return static_cast<std::size_t>((dY - m_dTop) * m_dCellsPerPixel); }
    bool isInside(std::size_t iRow, double dX, double dY) const;

    double m_dLeft = 0.0;
    double m_dTop = 0.0;
    double m_dCellsPerPixel = 0.0;
    double m_dColumns = 0.0; ///< as doubles too: the bounds of every test
    double m_dRows = 0.0;
    std::size_t m_iColumns = 0;
    std::size_t m_iRows = 0;
    std::vector<Cell> m_vCells; ///< row after row
    std::vector<Edge> m_vEdges;
    std::vector<std::size_t> m_viRowBegin; ///< per row and one more: where its edges begin in m_viRowEdges
    std::vector<std::uint32_t> m_viRowEdges;
};

} // namespace gkBase
