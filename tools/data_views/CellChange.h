#pragma once

#include "CellModification.h"
#include "MatrixColumn.h"
#include "gkBaseToolsExport.h"

#include <QMetaType>
#include <QString>
#include <QVariant>

#include <vector>

namespace gkBase {

class MatrixData;

/// Cells of an attribute that get another value, and these values.
struct ChangedCells
{
    std::vector<int> m_viRecords; ///< rising
    MatrixColumn m_oValues;       ///< one cell for each record, or a single one for all; of the attribute's type

    bool hasOneValue() const { return m_oValues.size() == 1; }
    /// The new value of m_viRecords[i], in model units.
    QVariant value(int i) const { return m_oValues.value(hasOneValue() ? 0 : i); }
};

/// A change of the cells of an attribute, as a user types it: a method and an operand in display units.
///
/// - Set writes the operand: a number, "true" or "false", a colour or a text by the attribute's type.
/// - Add, Subtract, Multiply and Divide calculate in display units. Missing cells stay missing, cells of integer
///   columns are rounded, and a cell whose result would be no number stays as it is.
/// - Interpolate fills the missing cells of each run of consecutive records between the values at its ends or beside
///   it.
/// - Clear empties cells.
class GKBASETOOLS_EXPORT CellChange
{
public:
    using Method = CellModification::Method;

    CellChange() = default;
    explicit CellChange(Method eMethod, const QVariant& qOperand = QVariant());

    Method method() const { return m_eMethod; }
    QVariant operand() const { return m_qOperand; }
    bool operator==(const CellChange&) const = default;

    /// What is wrong with the change for attributes of that type, in words for the user; empty for nothing.
    QString error(QMetaType::Type eType) const;

    /// The cells among the given records (rising) whose value the change would alter. Records past the end of the
    /// column are taken by Set only, which makes the column longer. An operand with an error is read as setting a
    /// cell reads it (0 for a text that is no number), arithmetic with it changes nothing. Linear; numbers without
    /// an allocation per cell.
    ChangedCells changedCells(const MatrixData& oAttribute, const std::vector<int>& viRecords) const;

private:
    ChangedCells calculated(const MatrixData& oAttribute, const std::vector<int>& viRecords) const;
    ChangedCells written(const MatrixData& oAttribute, const QVariant& qValue, const std::vector<int>& viRecords) const;

    Method m_eMethod = CellModification::Set;
    QVariant m_qOperand;
};

} // namespace gkBase
