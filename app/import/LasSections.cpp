#include "LasSections.h"

#include "TextReading.h"

#include <algorithm>

namespace gkHost {

namespace {

LasSectionKind kindOf(const QString& sWord)
{
    if (sWord.contains(QStringLiteral("_definition"))) {
        return LasSectionKind::Curves;
    }
    if (sWord.contains(QStringLiteral("_data"))) {
        return LasSectionKind::Data;
    }
    if (sWord.contains(QStringLiteral("_parameter"))) {
        return LasSectionKind::Parameters;
    }
    switch (sWord.isEmpty() ? u' ' : sWord[0].unicode()) {
    case u'v':
        return LasSectionKind::Version;
    case u'w':
        return LasSectionKind::Well;
    case u'c':
        return LasSectionKind::Curves;
    case u'p':
        return LasSectionKind::Parameters;
    case u'o':
        return LasSectionKind::Other;
    case u'a':
        return LasSectionKind::Data;
    default:
        return LasSectionKind::Unknown;
    }
}

LasSection startSection(const QString& sTitle, qint64 iLine)
{
    LasSection section;
    section.m_iLine = iLine;
    section.m_sTitle = sTitle.trimmed();
    const qsizetype iBar = section.m_sTitle.indexOf(u'|');
    const QString sName = section.m_sTitle.left(iBar < 0 ? section.m_sTitle.size() : iBar).simplified().toLower();
    section.m_sWord = sName.section(u' ', 0, 0);
    const qsizetype iIndex = section.m_sWord.indexOf(u'[');
    if (iIndex >= 0) {
        section.m_sIndex = section.m_sWord.mid(iIndex);
        section.m_sWord = section.m_sWord.left(iIndex);
    }
    if (iBar >= 0) {
        section.m_sAssociation = section.m_sTitle.mid(iBar + 1).simplified().toLower().section(u'[', 0, 0);
    }
    section.m_eKind = kindOf(section.m_sWord);
    return section;
}

void readItems(const TextSource& source, LasSection& section)
{
    const bool bCurve = section.m_eKind == LasSectionKind::Curves;
    LineReader reader(section.m_sBody, section.m_iLine + 1);
    std::string_view sLine;
    while (reader.next(sLine)) {
        const std::string_view sText = trimmed(sLine);
        if (!sText.empty() && sText.front() != '#') {
            section.m_vItems.push_back(parseLasItem(source.text(sText), reader.line(), bCurve));
        }
    }
}

} // namespace

QString LasSection::group() const
{
    for (const char* pcEnding : {"_definition", "_data", "_parameter"}) {
        const qsizetype i = m_sWord.indexOf(QLatin1String(pcEnding));
        if (i >= 0) {
            return m_sWord.left(i) + m_sWord.mid(i + static_cast<qsizetype>(qstrlen(pcEnding)));
        }
    }
    return QString();
}

bool LineReader::next(std::string_view& sLine)
{
    if (m_sRest.empty()) {
        return false;
    }
    std::size_t iEnd = 0;
    while (iEnd < m_sRest.size() && m_sRest[iEnd] != '\n' && m_sRest[iEnd] != '\r') {
        ++iEnd;
    }
    sLine = m_sRest.substr(0, iEnd);
    const std::string_view sEnd = m_sRest.substr(iEnd, 2);
    m_sRest.remove_prefix(iEnd + (sEnd == "\r\n" ? 2 : std::min<std::size_t>(sEnd.size(), 1)));
    ++m_iNext;
    return true;
}

std::vector<LasSection> lasSections(const TextSource& source)
{
    std::vector<LasSection> vSections;
    const std::string_view sBytes = source.bytes();
    LineReader reader(sBytes, 1);
    std::string_view sLine;
    const char* pBody = nullptr;
    const auto closeSection = [&](const char* pEnd) {
        if (!vSections.empty()) {
            vSections.back().m_sBody = {pBody, static_cast<std::size_t>(pEnd - pBody)};
        }
    };
    while (reader.next(sLine)) {
        const std::size_t i = sLine.find_first_not_of(" \t");
        if (i != std::string_view::npos && sLine[i] == '~') {
            closeSection(sLine.data());
            vSections.push_back(startSection(source.text(sLine.substr(i + 1)), reader.line()));
            pBody = sBytes.data() + (sBytes.size() - reader.remaining());
        }
    }
    closeSection(sBytes.data() + sBytes.size());
    for (LasSection& section : vSections) {
        if (section.m_eKind != LasSectionKind::Data && section.m_eKind != LasSectionKind::Other) {
            readItems(source, section);
        }
    }
    return vSections;
}

} // namespace gkHost
