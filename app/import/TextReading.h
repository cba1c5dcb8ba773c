#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <string_view>
#include <vector>

namespace gkHost {

inline bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

inline bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view trimmed(std::string_view sText);

/// ASCII letters compared without case.
bool equalsNoCase(std::string_view sLeft, std::string_view sRight);
std::string toLower(std::string_view sText);

/// What a cell looks like as a number.
enum class NumberKind
{
    None,       ///< no number
    Whole,      ///< digits only, fits a 32-bit integer
    Real,       ///< any other number that a double holds to its precision
    LeadingZero ///< digits only, with a zero in front: a label rather than a number ("007")
};

/// Parses the whole of a cell without blanks around it. Accepts a sign, cDecimalMark ('.' or ','), an exponent,
/// "inf" and "nan". None for digits only beyond 15 places, which a double would round, and for values out of a
/// double's range.
NumberKind parseNumber(std::string_view sCell, char cDecimalMark, double& dValue);

/// The texts that mark an empty cell.
class MissingMarks
{
public:
    /// lFurther are marks besides the usual ones, for all columns.
    explicit MissingMarks(const QStringList& lFurther = {});

    /// In a column of numbers: empty, NA, N/A, #N/A, NaN, null, (null), none, dashes, 1.#QNAN and the further ones.
    bool isMissingNumber(std::string_view sCell) const;
    /// In a column of texts: empty, NA, N/A, #N/A, NaN, null and the further ones. A dash is a text.
    bool isMissingText(std::string_view sCell) const;

private:
    bool isFurther(std::string_view sCell) const;

    std::vector<std::string> m_vsFurther;
};

/// "#rrggbb" with six hexadecimal digits.
bool isColorText(std::string_view sCell);

} // namespace gkHost
