#pragma once

#include "MatrixColumn.h"
#include "gkBaseToolsExport.h"

#include <QMetaType>
#include <QString>

#include <span>

namespace gkBase {

class UnitManager;

/// A condition on the cells of a column, as a user types it: a method and one or two values in display units.
///
/// The values are read by the type of the column that is tested:
/// - double and int: a number with a decimal point or comma. A cell is compared as it is shown: it equals a value when
/// both
///   round to the same shown number, that is within half a unit of the last decimal (the unit's precision, or the
///   decimals typed when these are more). "less" and "greater" leave such equal cells out, "between" has both
///   limits in it and takes them in either order, "outside" is what "between" leaves.
/// - text: equal, less, greater, between and outside compare exactly, by code point; contains ignores case.
/// - colour: "#rrggbb" or a colour name; only equal, not equal, contains (in "#rrggbb") and empty.
/// - bool: "true" or "false" (1 or 0), in any case; only equal, not equal, contains and empty.
///
/// A missing cell satisfies "empty" and nothing else, not even "not equal"; a text cell without characters counts as
/// missing. "contains" looks into the text that the table shows.
class GKBASETOOLS_EXPORT CellCondition
{
public:
    enum Method
    {
        Equal = 0,
        NotEqual,
        Less,
        Greater,
        Between,
        Outside,
        Empty,
        Contains
    };
    static constexpr int s_iMethods = 8;

    CellCondition() = default;
    explicit CellCondition(Method eMethod, const QString& sValue1 = QString(), const QString& sValue2 = QString());

    Method method() const { return m_eMethod; }
    QString value1() const { return m_sValue1; }
    QString value2() const { return m_sValue2; }

    /// Number of values that a method needs: 0, 1 or 2.
    static int valueCount(Method eMethod);
    /// False for an order of colours or flags.
    static bool isApplicable(Method eMethod, QMetaType::Type eType);
    /// True when sValue can be read as a value of that type for the method.
    static bool isValidValue(Method eMethod, QMetaType::Type eType, const QString& sValue);
    /// True when the method applies to the type and all values that it needs can be read as that type.
    bool isValid(QMetaType::Type eType) const;

    /// Sets flag i to whether cell i satisfies the condition, for every flag (cells past the end of the
    /// column are missing), and returns the number of true ones. poUnit (may be null: values are shown as stored, with
    /// two decimals) converts and rounds numbers. A condition that is not valid for the column's type flags nothing.
    /// Linear, no allocation per cell.
    int flagCells(const MatrixColumn& column, const UnitManager* poUnit, std::span<bool> vbFlags) const;

private:
    Method m_eMethod = Equal;
    QString m_sValue1;
    QString m_sValue2;
};

} // namespace gkBase
