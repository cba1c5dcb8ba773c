#include "OrientationNames.h"

#include <QStringList>

#include <algorithm>
#include <initializer_list>

namespace gkHost {

namespace {

/// The words of a name in lower case: parted by anything but letters and digits, and where a capital follows a small
/// letter.
QStringList words(const QString& sName)
{
    QString sSpaced;
    for (qsizetype i = 0; i < sName.size(); ++i) {
        const QChar c = sName[i];
        if (i > 0 && c.isUpper() && sName[i - 1].isLower()) {
            sSpaced += u' ';
        }
        sSpaced += c.isLetterOrNumber() ? c.toLower() : QChar(u' ');
    }
    return sSpaced.split(u' ', Qt::SkipEmptyParts);
}

/// Takes the words out of the list; false when none of them is there.
bool take(QStringList& lWords, std::initializer_list<const char*> names)
{
    bool bFound = false;
    for (const char* pcName : names) {
        bFound = lWords.removeAll(QLatin1String(pcName)) > 0 || bFound;
    }
    return bFound;
}

AngleRole takeRole(QStringList& lWords)
{
    if (take(lWords, {"quality", "error", "err", "std", "sd", "grade", "class", "flag", "type", "id", "method", "sigma",
                      "set", "mean", "count", "correction"})) {
        return AngleRole::None;
    }
    if (take(lWords, {"strike", "strk"})) {
        take(lWords, {"rhr", "rh", "right", "hand", "rule", "angle"});
        return AngleRole::Strike;
    }
    if (take(lWords, {"dipazimuth", "dipdir", "dipdirection", "dipaz", "dipazi", "dipazm", "dipazim", "dd", "daz",
                      "dazi", "dpaz"})) {
        return AngleRole::DipAzimuth;
    }
    const bool bDip = take(lWords, {"dip", "dips", "dipangle", "truedip"});
    const bool bPlunge = take(lWords, {"plunge", "plg", "plunges"});
    const bool bAzimuth = take(lWords, {"azimuth", "azi", "azim", "az", "azm", "direction", "dir", "dirn", "bearing"});
    const bool bTrend = take(lWords, {"trend", "trd", "trends"});
    const bool bAngle = take(lWords, {"angle"});
    if (bTrend || (bPlunge && bAzimuth)) {
        return AngleRole::Trend;
    }
    if (bPlunge) {
        return AngleRole::Plunge;
    }
    if (bAzimuth) {
        return bDip ? AngleRole::DipAzimuth : AngleRole::Azimuth;
    }
    return bDip ? AngleRole::Dip : bAngle ? AngleRole::Angle : AngleRole::None;
}

} // namespace

AngleName angleName(const QString& sName)
{
    QStringList lWords = words(sName);
    take(lWords, {"deg", "degree", "degrees", "true"});
    AngleName result;
    result.m_eRole = takeRole(lWords);
    result.m_sGroup = lWords.join(u' ');
    return result;
}

} // namespace gkHost
