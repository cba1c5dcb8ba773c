#pragma once

#include "gkBaseQtExport.h"

#include <QColor>
#include <QMetaType>
#include <QString>
#include <QVariant>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace gkBase {

/// One column of values of one type, stored contiguously, with a missing mark per cell.
///
/// Types: QMetaType::Double (8 bytes a cell, empty = NaN), Int, Bool, QString (an integer code into a table of the
/// distinct texts) and QColor (opaque RGB). Any other type is taken as QString. Indexes are cells of this column
/// (records, when the column belongs to an attribute); an index out of range reads as missing and writes nothing.
class GKBASEQT_EXPORT MatrixColumn
{
public:
    explicit MatrixColumn(QMetaType::Type eType = QMetaType::Double, int iSize = 0);

    QMetaType::Type type() const { return m_eType; }
    int size() const;
    /// Grows with missing cells or drops the cells at the end.
    void resize(int iSize);
    void reserve(int iSize);
    void clear() { resize(0); }

    bool isMissing(int i) const;
    void setMissing(int i);

    /// Invalid for a missing cell; a double cell that holds 99999.0 is returned as it is.
    QVariant value(int i) const;
    /// Converts to the column's type; an invalid variant, NaN, or a value that cannot be converted to a colour
    /// clears the cell. Text that is not a number becomes 0 in a numeric column, as QVariant converts it.
    void setValue(int i, const QVariant& qValue);
    void appendValue(const QVariant& qValue);
    void insertValue(int i, const QVariant& qValue);

    /// Double, int and bool as a number, other types and missing cells as NaN; 99999.0 is NaN here as well, since
    /// statistics, ranges and charts read it as missing.
    double number(int i) const;
    /// number() of every cell. Without a copy for double columns that hold no 99999.0: see doubles().
    std::vector<double> numbers() const;

    /// The raw cells of a double column (NaN = empty; 99999.0 is kept); empty for any other type.
    std::span<const double> doubles() const;
    std::span<double> mutableDoubles();
    /// The raw cells of an int column; ask isMissing() per cell. Empty for any other type.
    std::span<const std::int32_t> ints() const;

    /// Text cells: the code of cell i in texts(), −1 when missing. Empty for any other type.
    std::span<const std::int32_t> textCodes() const;
    /// The distinct texts, in order of first appearance (may hold texts that no cell uses any more).
    const std::vector<QString>& texts() const;
    QString text(int i) const;
    void setText(int i, const QString& sText);
    void appendText(const QString& sText);
    void appendDouble(double dValue);

    /// Invalid colour for a missing cell or a column of another type.
    QColor color(int i) const;

    /// Same type, same size, same cells. Missing cells are equal to each other.
    bool operator==(const MatrixColumn& other) const;

    /// Heap memory that the cells take, in bytes.
    std::size_t memoryUsage() const;

    /// Takes a whole column of doubles without a copy; the column becomes a double column.
    static MatrixColumn fromDoubles(std::vector<double> vdValues);

private:
    QMetaType::Type m_eType;
};

} // namespace gkBase
