#pragma once

#include "gkBaseToolsExport.h"

#include <QMetaType>
#include <QString>

/// What the dialog that changes a block of cells can do to each of them.
namespace gkBase::CellModification {

enum Method
{
    Set,
    Add,
    Subtract,
    Multiply,
    Divide,
    Interpolate,
    Clear
};
inline constexpr int g_iMethods = 7;

/// Set, Interpolate and Clear work on every kind of cell or need no operand; the others calculate.
bool GKBASETOOLS_EXPORT isArithmetic(Method eMethod);
/// False for Interpolate and Clear.
bool GKBASETOOLS_EXPORT needsOperand(Method eMethod);
/// Every type can be set and cleared; only numbers (double, int) calculate and interpolate.
bool GKBASETOOLS_EXPORT isApplicable(Method eMethod, QMetaType::Type eType);
/// dOld changed by dOperand, both in display units. NaN when the result is not a finite number (a division by zero, a
/// missing operand), for a missing dOld, and for the methods that do not calculate.
double GKBASETOOLS_EXPORT calculate(Method eMethod, double dOld, double dOperand);
/// "set", "add", … as undo names print it.
QString GKBASETOOLS_EXPORT name(Method eMethod);

} // namespace gkBase::CellModification
