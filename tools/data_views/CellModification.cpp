#include "CellModification.h"

#include "MissingValue.h"

#include <QCoreApplication>

#include <cmath>

namespace gkBase::CellModification {

bool isArithmetic(Method eMethod)
{
    return eMethod == Add || eMethod == Subtract || eMethod == Multiply || eMethod == Divide;
}

bool needsOperand(Method eMethod)
{
    return eMethod == Set || isArithmetic(eMethod);
}

bool isApplicable(Method eMethod, QMetaType::Type eType)
{
    return eMethod == Set || eMethod == Clear || eType == QMetaType::Double || eType == QMetaType::Int;
}

double calculate(Method eMethod, double dOld, double dOperand)
{
    // An operand of 99999 is a number like any other; only cells use it as a mark.
    if (isMissing(dOld) || std::isnan(dOperand))
        return g_dEmptyCell;
    double dNew = g_dEmptyCell;
    switch (eMethod) {
    case Add:
        dNew = dOld + dOperand;
        break;
    case Subtract:
        dNew = dOld - dOperand;
        break;
    case Multiply:
        dNew = dOld * dOperand;
        break;
    case Divide:
        dNew = dOld / dOperand;
        break;
    case Set:
    case Interpolate:
    case Clear:
        break;
    }
    return std::isfinite(dNew) ? dNew : g_dEmptyCell;
}

QString name(Method eMethod)
{
    const auto text = [](const char* szText) { return QCoreApplication::translate("QVertexItemModel", szText); };
    switch (eMethod) {
    case Set:
        return text("set");
    case Add:
        return text("add");
    case Subtract:
        return text("subtract");
    case Multiply:
        return text("multiply");
    case Divide:
        return text("divide");
    case Interpolate:
        return text("interpolate");
    case Clear:
        return text("clear");
    }
    return {};
}

} // namespace gkBase::CellModification
