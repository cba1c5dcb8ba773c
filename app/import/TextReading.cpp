#include "TextReading.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace gkHost {

namespace {

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool isWholeNumberText(std::string_view sDigits)
{
    return !sDigits.empty() && std::all_of(sDigits.begin(), sDigits.end(), isDigit);
}

bool isOneOf(std::string_view sCell, std::initializer_list<std::string_view> marks)
{
    return std::any_of(marks.begin(), marks.end(), [&](std::string_view sMark) { return equalsNoCase(sCell, sMark); });
}

/// from_chars over the whole text; it knows neither a leading plus nor blanks.
bool toDouble(std::string_view sText, double& dValue)
{
    const char* const pEnd = sText.data() + sText.size();
    const auto [p, eError] = std::from_chars(sText.data(), pEnd, dValue);
    return eError == std::errc() && p == pEnd;
}

} // namespace

std::string_view trimmed(std::string_view sText)
{
    while (!sText.empty() && isBlank(sText.front())) {
        sText.remove_prefix(1);
    }
    while (!sText.empty() && isBlank(sText.back())) {
        sText.remove_suffix(1);
    }
    return sText;
}

bool equalsNoCase(std::string_view sLeft, std::string_view sRight)
{
    return sLeft.size() == sRight.size() &&
           std::equal(sLeft.begin(), sLeft.end(), sRight.begin(), [](char a, char b) { return lower(a) == lower(b); });
}

std::string toLower(std::string_view sText)
{
    std::string sLower(sText);
    std::transform(sLower.begin(), sLower.end(), sLower.begin(), lower);
    return sLower;
}

NumberKind parseNumber(std::string_view sCell, char cDecimalMark, double& dValue)
{
    std::string_view sDigits = sCell;
    if (!sDigits.empty() && (sDigits.front() == '-' || sDigits.front() == '+')) {
        sDigits.remove_prefix(1);
    }
    if (sDigits.empty() || sDigits.front() == '-' || sDigits.front() == '+') {
        return NumberKind::None;
    }
    const std::string_view sNumber = sCell.front() == '+' ? sDigits : sCell;
    std::array<char, 64> vcBuffer;
    if (cDecimalMark == ',') {
        if (sNumber.size() > vcBuffer.size() || sNumber.find('.') != std::string_view::npos) {
            return NumberKind::None;
        }
        std::replace_copy(sNumber.begin(), sNumber.end(), vcBuffer.begin(), ',', '.');
        if (!toDouble({vcBuffer.data(), sNumber.size()}, dValue)) {
            return NumberKind::None;
        }
    } else if (!toDouble(sNumber, dValue)) {
        return NumberKind::None;
    }
    if (dValue != std::trunc(dValue) || !isWholeNumberText(sDigits)) {
        return NumberKind::Real;
    }
    if (sDigits.front() == '0' && sDigits.size() > 1) {
        return NumberKind::LeadingZero;
    }
    if (sDigits.size() > 15) {
        return NumberKind::None;
    }
    const bool bFits =
        dValue >= std::numeric_limits<std::int32_t>::min() && dValue <= std::numeric_limits<std::int32_t>::max();
    return bFits && !(dValue == 0 && sCell.front() == '-') ? NumberKind::Whole : NumberKind::Real;
}

MissingMarks::MissingMarks(const QStringList& lFurther)
{
    for (const QString& sMark : lFurther) {
        m_vsFurther.push_back(sMark.trimmed().toStdString());
    }
}

bool MissingMarks::isFurther(std::string_view sCell) const
{
    return std::any_of(m_vsFurther.begin(), m_vsFurther.end(),
                       [&](const std::string& sMark) { return equalsNoCase(sCell, sMark); });
}

bool MissingMarks::isMissingText(std::string_view sCell) const
{
    return sCell.empty() || isOneOf(sCell, {"na", "n/a", "#n/a", "nan", "null"}) || isFurther(sCell);
}

bool MissingMarks::isMissingNumber(std::string_view sCell) const
{
    return isMissingText(sCell) || sCell.find_first_not_of('-') == std::string_view::npos ||
           isOneOf(sCell, {"(null)", "none", "-nan", "nan(ind)", "-nan(ind)", "#n/d", "n.a.", "1.#qnan", "-1.#qnan",
                           "1.#ind", "-1.#ind", "#value!", "#div/0!"});
}

bool isColorText(std::string_view sCell)
{
    return sCell.size() == 7 && sCell.front() == '#' &&
           sCell.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string_view::npos;
}

} // namespace gkHost
