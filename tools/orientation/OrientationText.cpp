#include "OrientationText.h"

#include "MissingValue.h"
#include "StrikeText.h"

#include <QCoreApplication>

namespace gkBase {

namespace {

constexpr double g_dFullCircle = 360.0;
constexpr int g_iAzimuthDigits = 3;

QString translated(const char* pText)
{
    return QCoreApplication::translate("OrientationText", pText);
}

} // namespace

QString undefinedText()
{
    return QStringLiteral("---");
}

QString angleText(double dAngle, int iDecimals)
{
    return isMissing(dAngle) ? undefinedText() : QString::number(dAngle, 'f', iDecimals);
}

QString azimuthText(double dAzimuth, int iDecimals)
{
    if (isMissing(dAzimuth))
        return undefinedText();
    QString sAzimuth = QString::number(dAzimuth, 'f', iDecimals);
    if (sAzimuth.toDouble() >= g_dFullCircle)
        sAzimuth = QString::number(0.0, 'f', iDecimals);
    return sAzimuth.rightJustified(g_iAzimuthDigits + (iDecimals > 0 ? iDecimals + 1 : 0), QLatin1Char('0'));
}

QString planeText(const PlaneOrientation& oPlane, OrientationConvention eConvention, int iDecimals)
{
    if (isMissing(oPlane.m_dDip) || isMissing(oPlane.m_dDipAzimuth))
        return undefinedText();
    const QString sDip = angleText(oPlane.m_dDip, iDecimals);
    if (eConvention == OrientationConvention::DipAzimuth)
        return sDip + QLatin1Char('/') + azimuthText(oPlane.m_dDipAzimuth, iDecimals);
    const double dStrike = rightHandStrike(oPlane.m_dDipAzimuth);
    const QString sStrikeDip = azimuthText(dStrike, iDecimals) + QLatin1Char('/') + sDip;
    if (eConvention == OrientationConvention::StrikeDip)
        return sStrikeDip;
    const std::string_view sSense = dipDirection(dStrike);
    return sStrikeDip + QLatin1Char('/') + QLatin1String(sSense.data(), static_cast<qsizetype>(sSense.size()));
}

QString lineText(const LineOrientation& oLine, int iDecimals)
{
    if (isMissing(oLine.m_dPlunge) || isMissing(oLine.m_dAzimuth))
        return undefinedText();
    return angleText(oLine.m_dPlunge, iDecimals) + QLatin1Char('/') + azimuthText(oLine.m_dAzimuth, iDecimals);
}

QString planeHeader(OrientationConvention eConvention)
{
    switch (eConvention) {
    case OrientationConvention::DipAzimuth:
        return translated(QT_TRANSLATE_NOOP("OrientationText", "Dip/Dip Azimuth"));
    case OrientationConvention::StrikeDip:
        return translated(QT_TRANSLATE_NOOP("OrientationText", "Strike/Dip"));
    case OrientationConvention::StrikeDipSense:
        return translated(QT_TRANSLATE_NOOP("OrientationText", "Strike/Dip/Sense"));
    }
    return {};
}

QString lineHeader()
{
    return translated(QT_TRANSLATE_NOOP("OrientationText", "Plunge/Azimuth"));
}

} // namespace gkBase
