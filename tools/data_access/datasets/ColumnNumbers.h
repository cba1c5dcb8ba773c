#pragma once

#include "MatrixColumn.h"
#include "RecordValues.h"

#include <span>
#include <vector>

namespace gkBase {

/// The cells of a column as doubles for the numeric functions: the column's own memory when it holds doubles, else
/// a converted copy. The column must outlive it unchanged.
class ColumnNumbers
{
public:
    explicit ColumnNumbers(const MatrixColumn& column)
        : m_vdCopy(column.type() == QMetaType::Double ? std::vector<double>() : column.numbers())
        , m_vdCells(column.type() == QMetaType::Double ? column.doubles() : std::span<const double>(m_vdCopy))
    {
    }
    ColumnNumbers(const ColumnNumbers&) = delete;
    ColumnNumbers& operator=(const ColumnNumbers&) = delete;

    /// May hold 99999.0 as well as NaN for missing cells.
    std::span<const double> cells() const { return m_vdCells; }
    /// The given records; all for an empty list.
    RecordValues values(std::span<const int> viRecords = {}) const { return RecordValues(m_vdCells, viRecords); }

private:
    std::vector<double> m_vdCopy;
    std::span<const double> m_vdCells;
};

} // namespace gkBase
