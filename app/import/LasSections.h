#pragma once

#include "LasItem.h"
#include "TextSource.h"

#include <QString>

#include <optional>
#include <string_view>
#include <vector>

namespace gkHost {

enum class LasSectionKind
{
    Version,
    Well,
    Curves,
    Parameters,
    Other,
    Data,
    Unknown
};

/// A part of the file that begins with a line "~NAME".
struct LasSection
{
    LasSectionKind m_eKind = LasSectionKind::Unknown;
    QString m_sTitle;              ///< the line behind the tilde
    QString m_sWord;               ///< its first word in lower case, without an index: "log_data"
    QString m_sAssociation;        ///< what stands behind the bar, in lower case: "log_definition"
    QString m_sIndex;              ///< of "Core_Data[1]"
    std::string_view m_sBody;      ///< the lines below the title
    qint64 m_iLine = 0;            ///< of the title
    std::vector<LasItem> m_vItems; ///< of header sections

    /// "Log" of "Log_Data", "Log_Definition" and "Log_Parameter"; empty for the sections of one letter.
    QString group() const;
};

/// Goes through lines of bytes that end with LF, CR LF or CR.
class LineReader
{
public:
    explicit LineReader(std::string_view sBytes, qint64 iFirstLine)
        : m_sRest(sBytes)
        , m_iNext(iFirstLine)
    {
    }
    bool next(std::string_view& sLine);
    qint64 line() const { return m_iNext - 1; }
    std::size_t remaining() const { return m_sRest.size(); }

private:
    std::string_view m_sRest;
    qint64 m_iNext;
};

/// The sections in the order of the file, with the items of the header sections. Which section is which follows from
/// the first letter, or from the endings _Definition, _Data and _Parameter.
std::vector<LasSection> lasSections(const TextSource& source);

} // namespace gkHost
