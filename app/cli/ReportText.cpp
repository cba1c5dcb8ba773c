#include "ReportText.h"

#include <gkBase/MissingValue.h>
#include <gkBase/OrientationText.h>

namespace gkHost {

namespace {

constexpr int g_iNameWidth = 22;
constexpr int g_iDigits = 10;

} // namespace

QJsonValue numberToJson(double dValue)
{
    return gkBase::isMissing(dValue) ? QJsonValue(QJsonValue::Null) : QJsonValue(dValue);
}

QString shownNumber(double dValue)
{
    return gkBase::isMissing(dValue) ? gkBase::undefinedText() : QString::number(dValue, 'g', g_iDigits);
}

ReportText::ReportText(const QString& sTitle)
    : m_sText(sTitle + QLatin1Char('\n'))
{
}

void ReportText::addHeading(const QString& sHeading)
{
    m_sText += sHeading + QLatin1Char('\n');
}

void ReportText::addLine(const QString& sName, const QString& sValue)
{
    addRow(sName.leftJustified(g_iNameWidth) + QLatin1Char(' ') + sValue);
}

void ReportText::addNote(const QString& sNote)
{
    addRow(QLatin1String("! ") + sNote);
}

void ReportText::addRow(const QString& sRow)
{
    m_sText += QLatin1String("  ") + sRow + QLatin1Char('\n');
}

} // namespace gkHost
