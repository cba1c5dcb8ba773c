#pragma once

#include "ImportOptions.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <memory>
#include <string_view>

namespace gkHost {

/// The bytes of a text file in a form that byte parsers can read: every ASCII character is one byte. UTF-16 is
/// turned into UTF-8 once; Windows-1252 is decoded when a text is taken.
class TextSource
{
public:
    /// Maps the file. False with error() set when it is missing, a directory, unreadable, empty or binary.
    bool openFile(const QString& sPath, TextEncoding eEncoding);
    bool openBytes(const QByteArray& qBytes, const QString& sFile, TextEncoding eEncoding);

    QString error() const { return m_sError; }
    QString file() const { return m_sFile; }
    std::string_view bytes() const { return m_sBytes; }
    QString text(std::string_view sBytes) const;
    TextEncoding encoding() const { return m_eEncoding; }
    QString encodingName() const;
    /// The bytes did not all fit the encoding; the places show U+FFFD.
    bool hasInvalidBytes() const { return m_bInvalid; }

private:
    bool fail(const QString& sReason);
    bool prepare(TextEncoding eEncoding);
    void decodeUtf16();

    QString m_sFile;
    QString m_sError;
    std::unique_ptr<QFile> m_poFile; ///< keeps the mapping alive
    QByteArray m_qOwnBytes;
    std::string_view m_sBytes;
    TextEncoding m_eEncoding = TextEncoding::Utf8;
    bool m_bInvalid = false;
};

/// True when all bytes are well-formed UTF-8 (RFC 3629).
bool isUtf8(std::string_view sBytes);

} // namespace gkHost
