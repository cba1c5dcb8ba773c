#pragma once

#include "MatrixData.h"

#include <QPointF>

#include <span>
#include <vector>

namespace gkBase {

/// A dense two-dimensional array of doubles (QMetaType::Double) or points (QMetaType::QPointF): density grids,
/// cluster centroids, decimation results, the points of a relationship. Row-major; row offset 0.
class GKBASEQT_EXPORT MatrixDataArray : public MatrixData
{
public:
    MatrixDataArray(const QString& sName, int iRows, int iColumns, QMetaType::Type eType, int iRowOffSet = 0);
    MatrixDataArray(const MatrixDataArray& other, bool bDeep = true);
    MatrixDataArray& operator=(const MatrixDataArray& other) = default;
    MatrixData* clone() const override;

    QMetaType::Type cellType() const { return m_eCellType; }
    int arrayRows() const { return m_iRows; }
    int arrayColumns() const { return m_iColumns; }
    /// Resizes to rows × columns with every cell 0 (points: (0, 0)).
    void reserve(int iRows, int iColumns);
    /// Adds w to a cell of a double array; nothing out of range.
    void addValue(int iRow, int iColumn, double w);

    double cell(int iRow, int iColumn) const;              ///< 99999.0 out of range
    void setCell(int iRow, int iColumn, double dValue);
    QPointF point(int iRow, int iColumn = 0) const;        ///< (99999.0, 99999.0) out of range
    void setPoint(int iRow, int iColumn, const QPointF& oPoint);
    std::span<double> cells() { return m_vdCells; }
    std::span<const double> cells() const { return m_vdCells; }
    std::span<const QPointF> points() const { return m_vPoints; }

    /// The contour interval of a density grid; 99999.0 = automatic.
    double intervalSize() const { return m_dIntervalSize; }
    void setIntervalSize(double dInterval) { m_dIntervalSize = dInterval; }
    /// Expand the colour map to the whole value range.
    bool expandColormap() const { return m_bExpandColormap; }
    void setExpandColormap(bool bExpand) { m_bExpandColormap = bExpand; }

private:
    QMetaType::Type m_eCellType;
    int m_iRows = 0;
    int m_iColumns = 0;
    std::vector<double> m_vdCells;
    std::vector<QPointF> m_vPoints;
    double m_dIntervalSize = 99999.0;
    bool m_bExpandColormap = false;
};

} // namespace gkBase
