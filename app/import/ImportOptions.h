#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace gkHost {

/// Called with the bytes done and the bytes to do while a file is read; false cancels.
using ImportProgress = std::function<bool(qint64 iDone, qint64 iTotal)>;

/// How the bytes of a file become text.
enum class TextEncoding
{
    Automatic,
    Utf8,
    Windows1252,
    Utf16LittleEndian,
    Utf16BigEndian
};

/// What the user decided about a file. Everything that is left open is detected and written into the report.
struct ImportOptions
{
    TextEncoding m_eEncoding = TextEncoding::Automatic;
    /// ',' ';' '\t' '|' or ' ' (runs of blanks and tabs).
    std::optional<char> m_oDelimiter;
    /// '.' or ','.
    std::optional<char> m_oDecimalMark;
    std::optional<bool> m_oHeaderLine;
    std::optional<bool> m_oUnitsLine;
    /// Further texts that mark an empty cell in any column, compared without regard to case.
    QStringList m_lMissingTexts;
    /// Further numbers that mark an empty cell of a number column.
    std::vector<double> m_vdMissingNumbers;
    /// Repeated values such as -999.25 that stand far below the others are read as empty cells.
    bool m_bDetectMissingNumbers = true;
};

} // namespace gkHost
