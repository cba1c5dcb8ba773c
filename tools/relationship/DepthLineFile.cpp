#include "DepthLineFile.h"

#include "DepthLineField.h"
#include "FileCommit.h"
#include "MatrixData.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStringDecoder>
#include <QTextStream>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr int g_iFieldWidth = 30;
constexpr int g_iHeadLines = 2;
constexpr int g_iSmallestParts = 8; ///< an empty one before the first field, and seven items

QString nameInFile(QString sName)
{
    // QChar, because a regular expression's "\s" leaves no-break spaces.
    std::replace_if(
        sName.begin(), sName.end(), [](QChar oChar) { return oChar.isSpace(); }, QLatin1Char('_'));
    return sName;
}

double number(const QString& sText)
{
    const double dValue = sText.toDouble();
    return std::isfinite(dValue) ? dValue : 0.0;
}

void addLine(const QStringList& lParts, DepthLineField& oField)
{
    const int iType = lParts[3].toInt();
    if (iType < DepthLineField::CrestalPlane || iType > DepthLineField::Fault)
        return;
    oField.insertHorizontalLine(
        lParts[2].toDouble(), number(lParts[1]), lParts[7], MatrixData::colorFromHexaString(lParts[4]),
        static_cast<DepthLineField::DataType>(iType), QPointF(number(lParts[5]), number(lParts[6])));
}

QString decoded(const QByteArray& sText)
{
    QStringDecoder fromUtf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString sDecoded = fromUtf8(sText);
    return fromUtf8.hasError() ? QString::fromLatin1(sText) : sDecoded;
}

bool writeWhole(QIODevice& oDevice, const QByteArray& sText)
{
    // A disk that fills up takes a part and gives the reason with the next call only.
    qint64 iWritten = 0;
    while (iWritten < sText.size()) {
        const qint64 iPart = oDevice.write(sText.constData() + iWritten, sText.size() - iWritten);
        if (iPart <= 0)
            return false;
        iWritten += iPart;
    }
    return true;
}

/// Why the file could not be replaced; empty when it was.
QString replaceFile(const QString& sPath, const QByteArray& sText)
{
    const QFileInfo info(sPath);
    if (sPath.isEmpty())
        return DepthLineField::tr("there is no file name");
    if (info.isDir())
        return DepthLineField::tr("it is a folder");
    if (info.exists() && !info.isFile()) // a device would be replaced by a file
        return DepthLineField::tr("it is no ordinary file");
    if (!info.dir().exists())
        return DepthLineField::tr("its folder does not exist");
    QSaveFile file(sPath);
    const bool bDone =
        file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && writeWhole(file, sText) && commitWhole(file);
    return bDone ? QString() : file.errorString();
}

/// Why the file could not be read; empty when it was.
QString readFile(const QString& sPath, QByteArray& sText)
{
    if (sPath.isEmpty())
        return DepthLineField::tr("there is no file name");
    QFile file(sPath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return file.errorString();
    sText = file.readAll();
    return file.error() == QFileDevice::NoError ? QString() : file.errorString();
}

} // namespace

QByteArray depthLineFileText(const DepthLineField& oField)
{
    QByteArray sText;
    QTextStream stream(&sText);
    stream << "Brennick, Structural SCAT Interpretation 4DKastor2008 v1.0\n";
    stream.setFieldWidth(g_iFieldWidth);
    stream.setFieldAlignment(QTextStream::AlignRight);
    for (const char* pTitle : {"X", "Depth", "Types", "Colors", "Dip", "Azimuth", "Names", "\n"})
        stream << pTitle;
    for (const DepthLineField::Line& line : oField.lines()) {
        const QColor oColor = line.m_oColor.isValid() ? line.m_oColor : QColor(Qt::black);
        stream << line.m_dX << line.m_dDepth << static_cast<int>(line.m_eType) << MatrixData::colorHexaString(oColor)
               << line.m_oOrientation.x() << line.m_oOrientation.y() << nameInFile(line.m_sName) << "\n";
    }
    stream.flush();
    return sText;
}

void readDepthLineFileText(const QByteArray& sText, DepthLineField& oField)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    const QStringList lLines = decoded(sText).split(QLatin1Char('\n'));
    for (int i = g_iHeadLines; i < lLines.size() && !lLines[i].isEmpty(); ++i) {
        const QStringList lParts = lLines[i].split(blanks);
        // Only the count decides: the parts of a line without a blank in front that has one behind are one off.
        if (lParts.size() >= g_iSmallestParts)
            addLine(lParts, oField);
    }
}

QStringList depthLineNamesNotReadBack(const DepthLineField& oField)
{
    QStringList lNames;
    for (const DepthLineField::Line& line : oField.lines()) {
        DepthLineField written;
        written.setLines({line});
        const QByteArray sText = depthLineFileText(written);
        DepthLineField back;
        readDepthLineFileText(sText, back);
        if (depthLineFileText(back) != sText)
            lNames << line.m_sName;
    }
    return lNames;
}

bool writeDepthLineFile(const DepthLineField& oField, const QString& sPath, QString* psError)
{
    const QString sReason = replaceFile(sPath, depthLineFileText(oField));
    if (psError && !sReason.isEmpty())
        *psError = DepthLineField::tr("The scenario cannot be written to \"%1\": %2.").arg(sPath, sReason);
    return sReason.isEmpty();
}

bool readDepthLineFile(const QString& sPath, DepthLineField& oField, QString* psError)
{
    QByteArray sText;
    const QString sReason = readFile(sPath, sText);
    if (sReason.isEmpty())
        readDepthLineFileText(sText, oField);
    else if (psError)
        *psError = DepthLineField::tr("The scenario cannot be read from \"%1\": %2.").arg(sPath, sReason);
    return sReason.isEmpty();
}

} // namespace gkBase
