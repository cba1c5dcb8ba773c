#include "TextSource.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace gkHost {

namespace {

QString tr(const char* pcText)
{
    return QCoreApplication::translate("TextSource", pcText);
}

/// Characters of the bytes 0x80 … 0x9f in Windows-1252; 0 where it has none.
constexpr std::array<char16_t, 32> g_vcWindows1252 = {0x20ac, 0,      0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021,
                                                      0x02c6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017d, 0,
                                                      0,      0x2018, 0x2019, 0x201c, 0x201d, 0x2022, 0x2013, 0x2014,
                                                      0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0,      0x017e, 0x0178};

QString fromWindows1252(std::string_view sBytes)
{
    QString sText(static_cast<qsizetype>(sBytes.size()), Qt::Uninitialized);
    std::transform(sBytes.begin(), sBytes.end(), sText.data(), [](char cByte) {
        const auto iByte = static_cast<unsigned char>(cByte);
        const char16_t c = iByte >= 0x80 && iByte < 0xa0 ? g_vcWindows1252[iByte - 0x80] : 0;
        return QChar(c != 0 ? c : char16_t(iByte));
    });
    return sText;
}

/// UTF-16 without a byte order mark shows by zero bytes at every second place of its ASCII characters.
TextEncoding guessUtf16(std::string_view sBytes)
{
    const std::size_t iEnd = std::min<std::size_t>(sBytes.size(), 4096) & ~std::size_t(1);
    std::array<std::size_t, 2> viZeros = {0, 0};
    for (std::size_t i = 0; i < iEnd; ++i) {
        viZeros[i % 2] += sBytes[i] == '\0' ? 1 : 0;
    }
    const auto mostly = [iEnd](std::size_t iZeros, std::size_t iOthers) {
        return iZeros * 4 > iEnd && iOthers * 50 < iEnd;
    };
    if (mostly(viZeros[1], viZeros[0])) {
        return TextEncoding::Utf16LittleEndian;
    }
    return mostly(viZeros[0], viZeros[1]) ? TextEncoding::Utf16BigEndian : TextEncoding::Automatic;
}

/// Length of the well-formed sequence at p, 0 when it is none.
int utf8Length(const unsigned char* p, const unsigned char* pEnd)
{
    const auto follows = [p, pEnd](int i) { return p + i < pEnd && (p[i] & 0xc0) == 0x80; };
    if (p[0] < 0x80) {
        return 1;
    }
    if (p[0] >= 0xc2 && p[0] <= 0xdf) {
        return follows(1) ? 2 : 0;
    }
    if ((p[0] & 0xf0) == 0xe0) {
        const bool bOk = follows(1) && follows(2) && !(p[0] == 0xe0 && p[1] < 0xa0) && !(p[0] == 0xed && p[1] > 0x9f);
        return bOk ? 3 : 0;
    }
    if (p[0] >= 0xf0 && p[0] <= 0xf4) {
        const bool bOk =
            follows(1) && follows(2) && follows(3) && !(p[0] == 0xf0 && p[1] < 0x90) && !(p[0] == 0xf4 && p[1] > 0x8f);
        return bOk ? 4 : 0;
    }
    return 0;
}

} // namespace

bool isUtf8(std::string_view sBytes)
{
    const auto* p = reinterpret_cast<const unsigned char*>(sBytes.data());
    const unsigned char* const pEnd = p + sBytes.size();
    while (p != pEnd) {
        std::uint64_t iBlock = 0;
        while (pEnd - p >= 8 && (std::memcpy(&iBlock, p, 8), (iBlock & 0x8080808080808080u) == 0)) {
            p += 8;
        }
        if (p == pEnd) {
            break;
        }
        const int iLength = utf8Length(p, pEnd);
        if (iLength == 0) {
            return false;
        }
        p += iLength;
    }
    return true;
}

bool TextSource::fail(const QString& sReason)
{
    m_sError = tr("%1: %2").arg(m_sFile, sReason);
    m_sBytes = {};
    return false;
}

bool TextSource::openFile(const QString& sPath, TextEncoding eEncoding)
{
    m_sFile = sPath;
    const QFileInfo info(sPath);
    if (!info.exists()) {
        return fail(tr("there is no such file."));
    }
    if (info.isDir()) {
        return fail(tr("this is a folder, not a file."));
    }
    m_poFile = std::make_unique<QFile>(sPath);
    if (!m_poFile->open(QIODevice::ReadOnly)) {
        return fail(tr("the file cannot be read (%1).").arg(m_poFile->errorString()));
    }
    const qint64 iSize = m_poFile->size();
    if (const uchar* p = iSize > 0 ? m_poFile->map(0, iSize) : nullptr) {
        m_sBytes = {reinterpret_cast<const char*>(p), static_cast<std::size_t>(iSize)};
    } else {
        m_qOwnBytes = m_poFile->readAll();
        m_sBytes = {m_qOwnBytes.constData(), static_cast<std::size_t>(m_qOwnBytes.size())};
    }
    return prepare(eEncoding);
}

bool TextSource::openBytes(const QByteArray& qBytes, const QString& sFile, TextEncoding eEncoding)
{
    m_sFile = sFile;
    m_qOwnBytes = qBytes;
    m_sBytes = {m_qOwnBytes.constData(), static_cast<std::size_t>(m_qOwnBytes.size())};
    return prepare(eEncoding);
}

bool TextSource::prepare(TextEncoding eEncoding)
{
    if (m_sBytes.empty()) {
        return fail(tr("the file is empty."));
    }
    const bool bUtf8Mark = m_sBytes.starts_with("\xef\xbb\xbf");
    if (eEncoding != TextEncoding::Automatic) {
        m_eEncoding = eEncoding;
    } else if (bUtf8Mark) {
        m_eEncoding = TextEncoding::Utf8;
    } else if (m_sBytes.starts_with("\xff\xfe")) {
        m_eEncoding = TextEncoding::Utf16LittleEndian;
    } else if (m_sBytes.starts_with("\xfe\xff")) {
        m_eEncoding = TextEncoding::Utf16BigEndian;
    } else {
        m_eEncoding = guessUtf16(m_sBytes);
    }
    if (m_eEncoding == TextEncoding::Utf16LittleEndian || m_eEncoding == TextEncoding::Utf16BigEndian) {
        decodeUtf16();
    } else if (bUtf8Mark) {
        m_sBytes.remove_prefix(3);
    }
    if (const std::size_t iZero = m_sBytes.find('\0'); iZero != std::string_view::npos) {
        const auto iLine =
            std::count(m_sBytes.begin(), m_sBytes.begin() + static_cast<std::ptrdiff_t>(iZero), '\n') + 1;
        return fail(tr("line %1 holds a zero byte; this is not a text file.").arg(iLine));
    }
    if (m_eEncoding == TextEncoding::Automatic) {
        m_eEncoding = isUtf8(m_sBytes) ? TextEncoding::Utf8 : TextEncoding::Windows1252;
    } else if (m_eEncoding == TextEncoding::Utf8) {
        m_bInvalid = m_bInvalid || !isUtf8(m_sBytes);
    }
    const bool bBlank = m_sBytes.find_first_not_of(" \t\r\n") == std::string_view::npos;
    return bBlank ? fail(tr("the file is empty.")) : true;
}

void TextSource::decodeUtf16()
{
    QStringDecoder decoder(m_eEncoding == TextEncoding::Utf16LittleEndian ? QStringConverter::Utf16LE
                                                                          : QStringConverter::Utf16BE);
    const std::string_view sSource = m_sBytes;
    QByteArray qUtf8;
    qUtf8.reserve(static_cast<qsizetype>(sSource.size() / 2 + sSource.size() / 8));
    constexpr std::size_t iBlock = 1 << 20; // decoded piecewise, so that no UTF-16 copy of the whole file is made
    for (std::size_t i = 0; i < sSource.size(); i += iBlock) {
        const std::string_view sPart = sSource.substr(i, iBlock);
        const QString sText = decoder.decode(QByteArrayView(sPart.data(), static_cast<qsizetype>(sPart.size())));
        qUtf8 += sText.toUtf8();
    }
    m_bInvalid = decoder.hasError() || sSource.size() % 2 != 0;
    m_qOwnBytes = qUtf8;
    m_sBytes = {m_qOwnBytes.constData(), static_cast<std::size_t>(m_qOwnBytes.size())};
    if (m_sBytes.starts_with("\xef\xbb\xbf")) {
        m_sBytes.remove_prefix(3);
    }
}

QString TextSource::text(std::string_view sBytes) const
{
    if (m_eEncoding == TextEncoding::Windows1252) {
        return fromWindows1252(sBytes);
    }
    return QString::fromUtf8(sBytes.data(), static_cast<qsizetype>(sBytes.size()));
}

QString TextSource::encodingName() const
{
    switch (m_eEncoding) {
    case TextEncoding::Windows1252:
        return QStringLiteral("Windows-1252");
    case TextEncoding::Utf16LittleEndian:
        return QStringLiteral("UTF-16 LE");
    case TextEncoding::Utf16BigEndian:
        return QStringLiteral("UTF-16 BE");
    case TextEncoding::Automatic:
    case TextEncoding::Utf8:
        break;
    }
    return QStringLiteral("UTF-8");
}

} // namespace gkHost
