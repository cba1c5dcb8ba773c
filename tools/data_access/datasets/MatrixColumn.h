#pragma once

#include "gkBaseQtExport.h"

#include <QColor>
#include <QMetaType>
#include <QString>
#include <QVariant>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <variant>
#include <vector>

class QDataStream;

namespace gkBase {

class MatrixTextTable;

/// One column of values of one type, stored contiguously, with a missing mark per cell.
///
/// Types: QMetaType::Double (8 bytes a cell, empty = NaN), Int (4 bytes, and a bit once a cell is missing), Bool
/// (1 byte), QString (an integer code into a table of the distinct texts, which copies of the column share) and
/// QColor (4 bytes, opaque RGB). Any other type is taken as QString. Indexes are cells of this column (records, when
/// the column belongs to an attribute); an index out of range reads as missing and writes nothing.
class GKBASEQT_EXPORT MatrixColumn
{
public:
    explicit MatrixColumn(QMetaType::Type eType = QMetaType::Double, int iSize = 0);
    MatrixColumn(const MatrixColumn& other);
    MatrixColumn(MatrixColumn&& other) noexcept;
    MatrixColumn& operator=(const MatrixColumn& other);
    MatrixColumn& operator=(MatrixColumn&& other) noexcept;
    ~MatrixColumn();

    /// The type that a column of eType has: eType itself, or QString for a type that columns cannot hold.
    static QMetaType::Type columnType(QMetaType::Type eType);

    QMetaType::Type type() const { return m_eType; }
    /// True for double, int and bool.
    bool isNumeric() const;
    int size() const;
    /// Grows with missing cells or drops the cells at the end.
    void resize(int iSize);
    void reserve(int iSize);
    void clear() { resize(0); }

    /// True for an empty cell; a double cell that holds 99999.0 is not empty (number() reads it as missing).
    bool isMissing(int i) const;
    void setMissing(int i);

    /// Invalid for a missing cell; a double cell that holds 99999.0 is returned as it is.
    QVariant value(int i) const;
    /// Converts to the column's type; an invalid variant, NaN, a number beyond the range of an int column, or a value
    /// that cannot be converted to a colour clears the cell. Text that is not a number becomes 0 in a numeric column,
    /// as QVariant converts it.
    void setValue(int i, const QVariant& qValue);
    void appendValue(const QVariant& qValue);
    /// The cells from i on move down by one; i past the end fills with missing cells up to it.
    void insertValue(int i, const QVariant& qValue);

    /// Double, int and bool as a number, other types and missing cells as NaN; 99999.0 and infinity are NaN here as
    /// well, since statistics, ranges and charts read them as missing.
    double number(int i) const;
    /// number() of every cell. See doubles() for the cells without a copy.
    std::vector<double> numbers() const;

    /// The raw cells of a double column (NaN = empty; 99999.0 is kept); empty for any other type.
    std::span<const double> doubles() const;
    std::span<double> mutableDoubles();
    /// The raw cells of an int column; ask isMissing() per cell. Empty for any other type.
    std::span<const std::int32_t> ints() const;
    /// The raw cells of a bool column: 0, 1 or 2 (missing). Empty for any other type.
    std::span<const std::uint8_t> flags() const;
    /// The raw cells of a colour column, 0 = missing. Empty for any other type.
    std::span<const QRgb> colors() const;

    /// Text cells: the code of cell i in texts(), −1 when missing. Empty for any other type. Equal codes mean
    /// equal texts and the other way round.
    std::span<const std::int32_t> textCodes() const;
    /// The distinct texts, in order of first appearance (may hold texts that no cell uses any more).
    const std::vector<QString>& texts() const;
    QString text(int i) const;
    void setText(int i, const QString& sText);
    void appendText(const QString& sText);
    void appendDouble(double dValue);

    /// Invalid colour for a missing cell or a column of another type.
    QColor color(int i) const;

    /// The cells converted to another type: numbers to text and back; a text that is no number (for bool cells: nor
    /// true or false) becomes missing, and so does a number that an int cannot hold.
    MatrixColumn converted(QMetaType::Type eType) const;
    /// The cells iFirst … iFirst + iCount − 1 as a column of their own, clipped to what there is.
    MatrixColumn mid(int iFirst, int iCount) const;
    /// The given cells as a column of their own; a cell out of range is missing there.
    MatrixColumn gather(std::span<const std::int32_t> viCells) const;
    /// Appends the cells of a column of the same type (of another type: converted).
    void append(const MatrixColumn& other);
    /// Exchanges cell i with cell j of another column of the same type; nothing when one of them is out of range.
    void swapCell(int i, MatrixColumn& other, int j);
    /// The length without the missing cells at the end.
    int usedSize() const;

    /// Same type, same size, same cells bit for bit. Missing cells are equal to each other.
    bool operator==(const MatrixColumn& other) const;

    /// Heap memory that the cells take, in bytes (shared texts included).
    std::size_t memoryUsage() const;

    /// Writes the first iCells cells (−1: all) with their type. The caller fixes the stream's version.
    void write(QDataStream& stream, int iCells = -1) const;
    /// Reads what write() wrote; empty when the stream ends early or holds something else. Memory grows only with
    /// what arrives, whatever length the stream claims.
    static std::optional<MatrixColumn> read(QDataStream& stream);

    /// Takes a whole column of doubles without a copy; the column becomes a double column.
    static MatrixColumn fromDoubles(std::vector<double> vdValues);

private:
    struct IntCells
    {
        std::vector<std::int32_t> values;
        std::vector<bool> missing; ///< empty until a cell is missing
    };
    struct TextCells
    {
        std::vector<std::int32_t> codes;
        std::shared_ptr<MatrixTextTable> texts; ///< shared by copies, cloned before a text is added
    };
    using BoolCells = std::vector<std::uint8_t>;
    struct ColorCells
    {
        std::vector<QRgb> values;
    };

    bool inRange(int i) const { return i >= 0 && i < size(); }
    void setPresent(IntCells& cells, int i, std::int32_t iValue);
    std::int32_t codeOf(TextCells& cells, const QString& sText);
    void writeTexts(QDataStream& stream, int iCount) const;
    bool readTexts(QDataStream& stream, int iCount);

    QMetaType::Type m_eType;
    std::variant<std::vector<double>, IntCells, BoolCells, TextCells, ColorCells> m_cells;
};

} // namespace gkBase
