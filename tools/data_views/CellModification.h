#pragma once

#include "gkBaseToolsExport.h"

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

/// Set, Interpolate and Clear work on every kind of cell or need no operand; the others calculate.
bool GKBASETOOLS_EXPORT isArithmetic(Method eMethod);
/// dOld changed by dOperand, both in display units. NaN when the result is not a finite number (a division by zero, a
/// missing operand), for a missing dOld, and for the methods that do not calculate.
double GKBASETOOLS_EXPORT calculate(Method eMethod, double dOld, double dOperand);
/// "set", "add", … as undo names print it.
QString GKBASETOOLS_EXPORT name(Method eMethod);

} // namespace gkBase::CellModification
