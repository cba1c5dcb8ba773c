#include "CellCondition.h"

#include "MissingValue.h"
#include "UnitManager.h"

#include <QColor>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

namespace gkBase {

namespace {

constexpr int s_iDefaultPrecision = 2;
constexpr int s_iMaxPrecision = 15;
constexpr double s_dInfinity = std::numeric_limits<double>::infinity();

bool isNumeric(QMetaType::Type eType)
{
    return eType == QMetaType::Double || eType == QMetaType::Int;
}

struct TypedNumber
{
    double m_dValue;
    int m_iDecimals; ///< written behind the point, less the exponent
};

std::optional<TypedNumber> typedNumber(const QString& sText)
{
    // One comma is a decimal point, as in the cells.
    QString sNumber = sText.trimmed();
    if (sNumber.count(u',') == 1 && !sNumber.contains(u'.'))
        sNumber.replace(u',', u'.');
    bool bOk = false;
    const double dValue = sNumber.toDouble(&bOk);
    if (!bOk || !std::isfinite(dValue))
        return std::nullopt;
    const qsizetype iExponent = sNumber.indexOf(u'e', 0, Qt::CaseInsensitive);
    const QString sMantissa = sNumber.left(iExponent < 0 ? sNumber.size() : iExponent);
    const qsizetype iPoint = sMantissa.indexOf(u'.');
    int iDecimals = iPoint < 0 ? 0 : static_cast<int>(sMantissa.size() - iPoint - 1);
    if (iExponent >= 0)
        iDecimals -= sNumber.mid(iExponent + 1).toInt();
    return TypedNumber{dValue, iDecimals};
}

std::optional<bool> typedFlag(const QString& sText)
{
    const QString sFlag = sText.trimmed();
    if (sFlag.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 || sFlag == QLatin1String("1"))
        return true;
    if (sFlag.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0 || sFlag == QLatin1String("0"))
        return false;
    return std::nullopt;
}

int shownPrecision(const UnitManager* poUnit)
{
    return std::clamp(poUnit ? poUnit->precision() : s_iDefaultPrecision, 0, s_iMaxPrecision);
}

/// A closed range of model values, or all values but those.
struct NumberRange
{
    double m_dLower = -s_dInfinity;
    double m_dUpper = s_dInfinity;
    bool m_bInverted = false;

    bool contains(double dValue) const
    {
        return !isMissing(dValue) && (dValue >= m_dLower && dValue <= m_dUpper) != m_bInverted;
    }
};

/// The model values that the shown range becomes; a unit may turn the order round (velocity and slowness).
NumberRange modelRange(double dShownLower, double dShownUpper, const UnitManager* poUnit, double dProbeStep)
{
    if (!poUnit)
        return {dShownLower, dShownUpper};
    const auto fnToModel = [poUnit](double dShown) { return poUnit->convertDisplayToModel(dShown); };
    const bool bLowerOpen = std::isinf(dShownLower);
    const bool bUpperOpen = std::isinf(dShownUpper);
    const double dProbe = bLowerOpen ? dShownUpper - dProbeStep : dShownLower;
    const bool bReversed = fnToModel(dProbe + dProbeStep) < fnToModel(dProbe);
    const double dFirst = bLowerOpen ? (bReversed ? s_dInfinity : -s_dInfinity) : fnToModel(dShownLower);
    const double dSecond = bUpperOpen ? (bReversed ? -s_dInfinity : s_dInfinity) : fnToModel(dShownUpper);
    return {std::min(dFirst, dSecond), std::max(dFirst, dSecond)};
}

/// The condition as a range of model values. The values have been checked.
NumberRange numberRange(const CellCondition& condition, const UnitManager* poUnit)
{
    const int iPrecision = shownPrecision(poUnit);
    const auto fnHalfUnit = [iPrecision](const TypedNumber& number) {
        return 0.5 * std::pow(10.0, -std::max(iPrecision, number.m_iDecimals));
    };
    const TypedNumber first = typedNumber(condition.value1()).value_or(TypedNumber{0.0, 0});
    const double dHalf = fnHalfUnit(first);
    const double dLower = first.m_dValue - dHalf;
    const double dUpper = first.m_dValue + dHalf;
    NumberRange range;
    switch (condition.method()) {
    case CellCondition::Equal:
    case CellCondition::NotEqual:
        range = modelRange(dLower, dUpper, poUnit, dHalf);
        range.m_bInverted = condition.method() == CellCondition::NotEqual;
        break;
    case CellCondition::Less:
        range = modelRange(dLower, s_dInfinity, poUnit, dHalf);
        range.m_bInverted = true;
        break;
    case CellCondition::Greater:
        range = modelRange(-s_dInfinity, dUpper, poUnit, dHalf);
        range.m_bInverted = true;
        break;
    case CellCondition::Between:
    case CellCondition::Outside: {
        const TypedNumber second = typedNumber(condition.value2()).value_or(first);
        const double dHalf2 = fnHalfUnit(second);
        range = modelRange(std::min(dLower, second.m_dValue - dHalf2), std::max(dUpper, second.m_dValue + dHalf2),
                           poUnit, dHalf);
        range.m_bInverted = condition.method() == CellCondition::Outside;
        break;
    }
    case CellCondition::Empty:
    case CellCondition::Contains:
        break;
    }
    return range;
}

/// Shows model values: a straight line where the unit is one, which spares a conversion per cell.
class NumberText
{
public:
    explicit NumberText(const UnitManager* poUnit)
        : m_poUnit(poUnit)
        , m_iPrecision(shownPrecision(poUnit))
    {
        if (!poUnit)
            return;
        m_dOffset = poUnit->convertModelToDisplay(0.0);
        m_dFactor = poUnit->convertModelToDisplay(1.0) - m_dOffset;
        m_bLinear = true;
        for (const double dProbe : {-3.0, 0.25, 1000.0}) {
            const double dShown = poUnit->convertModelToDisplay(dProbe);
            const double dLine = m_dFactor * dProbe + m_dOffset;
            if (!(std::abs(dShown - dLine) <= 1e-12 * (std::abs(dShown) + std::abs(m_dOffset))))
                m_bLinear = false;
        }
    }

    /// Whole numbers of an integer column have no decimals. The text is valid until the next call.
    std::string_view text(double dModel, bool bInteger)
    {
        const double dShown =
            m_bLinear || !m_poUnit ? m_dFactor * dModel + m_dOffset : m_poUnit->convertModelToDisplay(dModel);
        const int iPrecision = bInteger && dShown == std::nearbyint(dShown) ? 0 : m_iPrecision;
        const auto result = std::to_chars(m_cBuffer.data(), m_cBuffer.data() + m_cBuffer.size(), dShown,
                                          std::chars_format::fixed, iPrecision);
        if (result.ec != std::errc())
            return {};
        return {m_cBuffer.data(), static_cast<std::size_t>(result.ptr - m_cBuffer.data())};
    }

private:
    const UnitManager* m_poUnit;
    int m_iPrecision;
    bool m_bLinear = false;
    double m_dFactor = 1.0;
    double m_dOffset = 0.0;
    std::array<char, 352> m_cBuffer; ///< the largest double has 309 digits before the point
};

template <typename Predicate>
int flagWhere(std::span<bool> vbFlags, int iCells, Predicate satisfies)
{
    const int iSize = static_cast<int>(vbFlags.size());
    const int iTested = std::min(iCells, iSize);
    int iCount = 0;
    for (int i = 0; i < iTested; ++i) {
        const bool bFlag = satisfies(i);
        vbFlags[static_cast<std::size_t>(i)] = bFlag;
        iCount += bFlag ? 1 : 0;
    }
    std::fill(vbFlags.begin() + static_cast<std::ptrdiff_t>(iTested), vbFlags.end(), false);
    return iCount;
}

int flagNumbers(const CellCondition& condition, const MatrixColumn& column, const UnitManager* poUnit,
                std::span<bool> vbFlags)
{
    const bool bInteger = column.type() == QMetaType::Int;
    const std::span<const double> vdCells = column.doubles();
    const auto fnNumber = [&](int i) { return bInteger ? column.number(i) : vdCells[static_cast<std::size_t>(i)]; };
    if (condition.method() == CellCondition::Contains) {
        const std::string sPart = condition.value1().trimmed().toStdString();
        NumberText shown(poUnit);
        return flagWhere(vbFlags, column.size(), [&](int i) {
            const double dCell = fnNumber(i);
            return !isMissing(dCell) && shown.text(dCell, bInteger).find(sPart) != std::string_view::npos;
        });
    }
    const NumberRange range = numberRange(condition, poUnit);
    return flagWhere(vbFlags, column.size(), [&](int i) { return range.contains(fnNumber(i)); });
}

bool textSatisfies(const CellCondition& condition, const QString& sText)
{
    const QString sFirst = std::min(condition.value1(), condition.value2());
    const QString sLast = std::max(condition.value1(), condition.value2());
    if (sText.isEmpty())
        return false;
    switch (condition.method()) {
    case CellCondition::Equal:
        return sText == condition.value1();
    case CellCondition::NotEqual:
        return sText != condition.value1();
    case CellCondition::Less:
        return sText < condition.value1();
    case CellCondition::Greater:
        return sText > condition.value1();
    case CellCondition::Between:
        return sText >= sFirst && sText <= sLast;
    case CellCondition::Outside:
        return sText < sFirst || sText > sLast;
    case CellCondition::Contains:
        return sText.contains(condition.value1(), Qt::CaseInsensitive);
    case CellCondition::Empty:
        break;
    }
    return false;
}

/// Each distinct text is tested once.
int flagTexts(const CellCondition& condition, const MatrixColumn& column, std::span<bool> vbFlags)
{
    const std::vector<QString>& vsTexts = column.texts();
    std::vector<char> vcSatisfied(vsTexts.size());
    std::transform(vsTexts.begin(), vsTexts.end(), vcSatisfied.begin(),
                   [&](const QString& sText) -> char { return textSatisfies(condition, sText) ? 1 : 0; });
    const std::span<const std::int32_t> viCodes = column.textCodes();
    return flagWhere(vbFlags, static_cast<int>(viCodes.size()), [&](int i) {
        const std::int32_t iCode = viCodes[static_cast<std::size_t>(i)];
        return iCode >= 0 && vcSatisfied[static_cast<std::size_t>(iCode)] != 0;
    });
}

std::string hexText(QRgb uRgb)
{
    static constexpr char s_cDigits[] = "0123456789abcdef";
    std::string sText = "#000000";
    for (std::size_t i = 6; i > 0; --i, uRgb >>= 4)
        sText[i] = s_cDigits[uRgb & 0xF];
    return sText;
}

int flagColors(const CellCondition& condition, const MatrixColumn& column, std::span<bool> vbFlags)
{
    if (condition.method() == CellCondition::Contains) {
        const std::string sPart = condition.value1().trimmed().toLower().toStdString();
        return flagWhere(vbFlags, column.size(), [&](int i) {
            return !column.isMissing(i) && hexText(column.color(i).rgb()).find(sPart) != std::string::npos;
        });
    }
    const QRgb uWanted = QColor(condition.value1().trimmed()).rgb() & RGB_MASK;
    const bool bEqual = condition.method() == CellCondition::Equal;
    return flagWhere(vbFlags, column.size(), [&](int i) {
        return !column.isMissing(i) && ((column.color(i).rgb() & RGB_MASK) == uWanted) == bEqual;
    });
}

int flagFlags(const CellCondition& condition, const MatrixColumn& column, std::span<bool> vbFlags)
{
    bool bFalse = false;
    bool bTrue = false;
    if (condition.method() == CellCondition::Contains) {
        const QString sPart = condition.value1().trimmed();
        bFalse = QLatin1String("false").contains(sPart, Qt::CaseInsensitive);
        bTrue = QLatin1String("true").contains(sPart, Qt::CaseInsensitive);
    } else {
        const bool bEqual = condition.method() == CellCondition::Equal;
        bTrue = typedFlag(condition.value1()).value_or(false) == bEqual;
        bFalse = !bTrue;
    }
    return flagWhere(vbFlags, column.size(),
                     [&](int i) { return !column.isMissing(i) && (column.number(i) != 0.0 ? bTrue : bFalse); });
}

int flagEmpty(const MatrixColumn& column, std::span<bool> vbFlags)
{
    const QMetaType::Type eType = column.type();
    const std::span<const double> vdCells = column.doubles();
    // Cells past the end of the column are missing as well, so that every flag is tested.
    return flagWhere(vbFlags, static_cast<int>(vbFlags.size()), [&](int i) {
        if (i >= column.size())
            return true;
        if (eType == QMetaType::Double)
            return isMissing(vdCells[static_cast<std::size_t>(i)]);
        if (eType == QMetaType::Int)
            return isMissing(column.number(i));
        return column.isMissing(i) || (eType == QMetaType::QString && column.text(i).isEmpty());
    });
}

} // namespace

CellCondition::CellCondition(Method eMethod, const QString& sValue1, const QString& sValue2)
    : m_eMethod(eMethod)
    , m_sValue1(sValue1)
    , m_sValue2(sValue2)
{
}

int CellCondition::valueCount(Method eMethod)
{
    switch (eMethod) {
    case Empty:
        return 0;
    case Between:
    case Outside:
        return 2;
    default:
        return 1;
    }
}

bool CellCondition::isApplicable(Method eMethod, QMetaType::Type eType)
{
    if (eType != QMetaType::QColor && eType != QMetaType::Bool)
        return true;
    return eMethod == Equal || eMethod == NotEqual || eMethod == Contains || eMethod == Empty;
}

bool CellCondition::isValidValue(Method eMethod, QMetaType::Type eType, const QString& sValue)
{
    if (!isApplicable(eMethod, eType))
        return false;
    if (valueCount(eMethod) == 0)
        return true;
    if (isNumeric(eType) && eMethod != Contains)
        return typedNumber(sValue).has_value();
    if (eType == QMetaType::QColor && eMethod != Contains)
        return QColor::isValidColor(sValue.trimmed());
    if (eType == QMetaType::Bool && eMethod != Contains)
        return typedFlag(sValue).has_value();
    return eType == QMetaType::QString ? !sValue.isEmpty() : !sValue.trimmed().isEmpty();
}

bool CellCondition::isValid(QMetaType::Type eType) const
{
    return isValidValue(m_eMethod, eType, m_sValue1) &&
           (valueCount(m_eMethod) < 2 || isValidValue(m_eMethod, eType, m_sValue2));
}

int CellCondition::flagCells(const MatrixColumn& column, const UnitManager* poUnit, std::span<bool> vbFlags) const
{
    const QMetaType::Type eType = column.type();
    if (!isValid(eType)) {
        std::fill(vbFlags.begin(), vbFlags.end(), false);
        return 0;
    }
    if (m_eMethod == Empty)
        return flagEmpty(column, vbFlags);
    if (isNumeric(eType))
        return flagNumbers(*this, column, poUnit, vbFlags);
    if (eType == QMetaType::QColor)
        return flagColors(*this, column, vbFlags);
    if (eType == QMetaType::Bool)
        return flagFlags(*this, column, vbFlags);
    return flagTexts(*this, column, vbFlags);
}

} // namespace gkBase
