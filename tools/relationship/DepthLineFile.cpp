#include "DepthLineFile.h"

#include "DepthLineField.h"
#include "MatrixData.h"

#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextStream>

namespace gkBase {

namespace {

constexpr int g_iFieldWidth = 30;
constexpr int g_iHeadLines = 2;
constexpr int g_iSmallestParts = 8; ///< an empty one before the first field, and seven items

QString fileName(const QString& sName)
{
    static const QRegularExpression blank(QStringLiteral("\\s"));
    return QString(sName).replace(blank, QStringLiteral("_"));
}

void addLine(const QStringList& lParts, DepthLineField& oField)
{
    bool bType = false;
    const int iType = lParts[3].toInt(&bType);
    if (bType && (iType < DepthLineField::CrestalPlane || iType > DepthLineField::Fault))
        return;
    oField.insertHorizontalLine(
        lParts[2].toDouble(), lParts[1].toDouble(), lParts[7], MatrixData::colorFromHexaString(lParts[4]),
        static_cast<DepthLineField::DataType>(iType), QPointF(lParts[5].toDouble(), lParts[6].toDouble()));
}

} // namespace

QByteArray depthLineFileText(const DepthLineField& oField)
{
    QByteArray sText;
    QTextStream stream(&sText);
    stream << "Brennick, Structural SCAT Interpretation 4DKastor2008 v1.0\n";
    stream.setFieldWidth(g_iFieldWidth);
    stream.setFieldAlignment(QTextStream::AlignRight);
    stream << "X"
           << "Depth"
           << "Types"
           << "Colors"
           << "Dip"
           << "Azimuth"
           << "Names"
           << "\n";
    for (const DepthLineField::Line& line : oField.lines()) {
        const QColor oColor = line.m_oColor.isValid() ? line.m_oColor : QColor(Qt::black);
        stream << line.m_dX << line.m_dDepth << static_cast<int>(line.m_eType) << MatrixData::colorHexaString(oColor)
               << line.m_oOrientation.x() << line.m_oOrientation.y() << fileName(line.m_sName) << "\n";
    }
    stream.flush();
    return sText;
}

void readDepthLineFileText(const QByteArray& sText, DepthLineField& oField)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    const QStringList lLines = QString::fromUtf8(sText).split(QLatin1Char('\n'));
    for (int i = g_iHeadLines; i < lLines.size() && !lLines[i].isEmpty(); ++i) {
        const QStringList lParts = lLines[i].split(blanks);
        if (lParts.size() >= g_iSmallestParts)
            addLine(lParts, oField);
    }
}

bool writeDepthLineFile(const DepthLineField& oField, const QString& sPath, QString* psError)
{
    const QByteArray sText = depthLineFileText(oField);
    QSaveFile file(sPath);
    if (file.open(QIODevice::WriteOnly) && file.write(sText) == sText.size() && file.commit())
        return true;
    if (psError)
        *psError = QStringLiteral("%1: %2").arg(sPath, file.errorString());
    return false;
}

bool readDepthLineFile(const QString& sPath, DepthLineField& oField, QString* psError)
{
    QFile file(sPath);
    if (file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        readDepthLineFileText(file.readAll(), oField);
        return true;
    }
    if (psError)
        *psError = QStringLiteral("%1: %2").arg(sPath, file.errorString());
    return false;
}

} // namespace gkBase
