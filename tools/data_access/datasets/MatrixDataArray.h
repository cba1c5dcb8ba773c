#pragma once

#include "MatrixData.h"

#include <QPointF>

#include <span>
#include <vector>

namespace gkBase {

/// A dense two-dimensional array of doubles (QMetaType::Double) or points (QMetaType::QPointF): density grids,
/// cluster centroids, decimation results, the points of a relationship. Row-major; row offset 0 unless given.
///
/// The cells are not columns: column() makes a copy of one on demand, setColumn() and the row functions of a node do
/// nothing, and undo keeps an array with MatrixDataRestore::storeContents(). An array has no children.
class GKBASEQT_EXPORT MatrixDataArray : public MatrixData
{
public:
    MatrixDataArray(const QString& sName, int iRows, int iColumns, QMetaType::Type eType, int iRowOffSet = 0);
    MatrixDataArray(const MatrixDataArray& other, bool bDeep = true);
    MatrixDataArray& operator=(const MatrixDataArray& other);
    MatrixData* clone() const override;

    QMetaType::Type cellType() const { return m_eCellType; }
    int arrayRows() const { return m_iRows; }
    int arrayColumns() const { return m_iColumns; }
    /// Resizes to rows × columns with every cell 0 (points: (0, 0)). Negative numbers count as 0.
    void reserve(int iRows, int iColumns);
    /// Adds w to a cell of a double array; nothing out of range.
    void addValue(int iRow, int iColumn, double w);

    double cell(int iRow, int iColumn) const; ///< 99999.0 out of range and in an array of points
    void setCell(int iRow, int iColumn, double dValue);
    QPointF point(int iRow, int iColumn = 0) const; ///< (99999.0, 99999.0) out of range and in an array of doubles
    void setPoint(int iRow, int iColumn, const QPointF& oPoint);
    /// All cells, row by row. Call valuesChanged() after writing.
    std::span<double> cells() { return m_vdCells; }
    std::span<const double> cells() const { return m_vdCells; }
    std::span<const QPointF> points() const { return m_vPoints; }

    /// The contour interval of a density grid; 99999.0 = automatic.
    double intervalSize() const { return m_dIntervalSize; }
    void setIntervalSize(double dInterval) { m_dIntervalSize = dInterval; }
    /// Expand the colour map to the whole value range.
    bool expandColormap() const { return m_bExpandColormap; }
    void setExpandColormap(bool bExpand) { m_bExpandColormap = bExpand; }

    int columnCount() const override { return m_iColumns; }
    int recordCount() const override { return m_iRows; }
    bool isDerived() const override { return true; }
    const MatrixColumn& column(int iColumn = 0) const override;
    MatrixColumn& mutableColumn(int iColumn = 0) override;
    std::size_t memoryUsage() const override;

protected:
    bool writeDerived(int iRecord, int iColumn, const QVariant& qValue) override;
    MatrixData* storageNode() override { return nullptr; }
    QVariant cellValue(int iRecord, int iColumn) const override;
    double cellNumber(int iRecord, int iColumn) const override;
    bool hasEqualExtras(const MatrixData& other) const override;
    StreamKind streamKind() const override { return StreamKind::Array; }
    void writeExtras(QDataStream& stream, int iRecords) const override;
    bool readExtras(QDataStream& stream) override;
    void swapContents(MatrixData& other) override;

private:
    bool isPoints() const { return m_eCellType == QMetaType::QPointF; }
    bool contains(int iRow, int iColumn) const
    {
        return iRow >= 0 && iRow < m_iRows && iColumn >= 0 && iColumn < m_iColumns;
    }
    std::size_t index(int iRow, int iColumn) const
    {
        return static_cast<std::size_t>(iRow) * static_cast<std::size_t>(m_iColumns) +
               static_cast<std::size_t>(iColumn);
    }
    void copyCells(const MatrixDataArray& other);

    QMetaType::Type m_eCellType;
    int m_iRows = 0;
    int m_iColumns = 0;
    std::vector<double> m_vdCells;
    std::vector<QPointF> m_vPoints;
    double m_dIntervalSize = 99999.0;
    bool m_bExpandColormap = false;
    mutable std::vector<MatrixColumn> m_vColumnCopies; ///< for column(); made for m_iCopiesRevision
    mutable std::vector<bool> m_vbColumnCopied;
    mutable quint64 m_iCopiesRevision = 0;
};

} // namespace gkBase
