#include "UnitWords.h"

#include <QSet>

#include <algorithm>

namespace gkHost {

namespace {

/// In lower case.
const QSet<QString>& unitWords()
{
    static const QSet<QString> lWords = {
        u"m"_qs,      u"ft"_qs,       u"f"_qs,       u"feet"_qs,  u"foot"_qs,   u"km"_qs,      u"cm"_qs,
        u"mm"_qs,     u"in"_qs,       u"inch"_qs,    u"metre"_qs, u"meter"_qs,  u"metres"_qs,  u"meters"_qs,
        u"µm"_qs,     u"um"_qs,       u"yd"_qs,      u"mi"_qs,    u"deg"_qs,    u"degree"_qs,  u"degrees"_qs,
        u"°"_qs,      u"rad"_qs,      u"gon"_qs,     u"grad"_qs,  u"dega"_qs,   u"%"_qs,       u"v/v"_qs,
        u"frac"_qs,   u"fraction"_qs, u"pu"_qs,      u"ppm"_qs,   u"ppb"_qs,    u"wt%"_qs,     u"vol%"_qs,
        u"ppt"_qs,    u"m3/m3"_qs,    u"ft3/ft3"_qs, u"cfcf"_qs,  u"dec"_qs,    u"g/cm3"_qs,   u"g/cc"_qs,
        u"g/c3"_qs,   u"gm/cc"_qs,    u"kg/m3"_qs,   u"k/m3"_qs,  u"g/cm³"_qs,  u"kg/m³"_qs,   u"t/m3"_qs,
        u"us/ft"_qs,  u"us/f"_qs,     u"us/m"_qs,    u"µs/ft"_qs, u"µs/m"_qs,   u"usec/ft"_qs, u"m/s"_qs,
        u"ft/s"_qs,   u"km/s"_qs,     u"m/min"_qs,   u"m/h"_qs,   u"m/hr"_qs,   u"ft/h"_qs,    u"ft/hr"_qs,
        u"ft/min"_qs, u"ohm"_qs,      u"ohmm"_qs,    u"ohm.m"_qs, u"ohm-m"_qs,  u"ohm*m"_qs,   u"ωm"_qs,
        u"ms/m"_qs,   u"s/m"_qs,      u"mmho/m"_qs,  u"api"_qs,   u"gapi"_qs,   u"cps"_qs,     u"cpm"_qs,
        u"mv"_qs,     u"v"_qs,        u"hz"_qs,      u"b/e"_qs,   u"barn/e"_qs, u"s"_qs,       u"sec"_qs,
        u"ms"_qs,     u"min"_qs,      u"h"_qs,       u"hr"_qs,    u"hour"_qs,   u"hours"_qs,   u"d"_qs,
        u"day"_qs,    u"a"_qs,        u"yr"_qs,      u"ka"_qs,    u"ma"_qs,     u"ga"_qs,      u"degc"_qs,
        u"degf"_qs,   u"°c"_qs,       u"°f"_qs,      u"c"_qs,     u"k"_qs,      u"kelvin"_qs,  u"pa"_qs,
        u"kpa"_qs,    u"mpa"_qs,      u"gpa"_qs,     u"bar"_qs,   u"psi"_qs,    u"psia"_qs,    u"psig"_qs,
        u"atm"_qs,    u"g"_qs,        u"kg"_qs,      u"mg"_qs,    u"t"_qs,      u"lb"_qs,      u"n"_qs,
        u"kn"_qs,     u"klb"_qs,      u"klbf"_qs,    u"mg/l"_qs,  u"g/t"_qs,    u"md"_qs,      u"nt"_qs,
        u"mgal"_qs,   u"db"_qs,       u"m2"_qs,      u"m3"_qs,    u"1/m"_qs,    u"m-1"_qs,     u"1/km"_qs,
        u"rpm"_qs};
    return lWords;
}

bool isNoUnit(const QString& sLower)
{
    return sLower.isEmpty() || sLower == u"-" || sLower == u"--" || sLower == u"none" || sLower == u"unitless" ||
           sLower == u"n/a" || sLower == u"na";
}

bool isIndex(const QString& sText)
{
    return std::all_of(sText.begin(), sText.end(), [](QChar c) { return c.isDigit() || c == u',' || c == u' '; });
}

} // namespace

bool isUnitWord(const QString& sText)
{
    return unitWords().contains(sText.trimmed().toLower());
}

QString bareUnit(const QString& sUnit)
{
    QString sBare = sUnit.trimmed();
    const bool bBrackets = sBare.startsWith(u'[') && sBare.endsWith(u']');
    const bool bParentheses = sBare.startsWith(u'(') && sBare.endsWith(u')');
    if (sBare.size() > 1 && (bBrackets || bParentheses)) {
        sBare = sBare.mid(1, sBare.size() - 2).trimmed();
    }
    return isNoUnit(sBare.toLower()) ? QString() : sBare;
}

NameAndUnit splitNameAndUnit(const QString& sHeader)
{
    const QString sText = sHeader.trimmed();
    const bool bBracket = sText.endsWith(u']');
    const qsizetype iOpen = bBracket ? sText.lastIndexOf(u'[') : sText.endsWith(u')') ? sText.lastIndexOf(u'(') : -1;
    if (iOpen <= 0) {
        return {sText, QString()};
    }
    const QString sInside = sText.mid(iOpen + 1, sText.size() - iOpen - 2).trimmed();
    const bool bUnit = bBracket ? !isIndex(sInside) || sInside.isEmpty() : isUnitWord(sInside);
    return bUnit ? NameAndUnit{sText.left(iOpen).trimmed(), bareUnit(sInside)} : NameAndUnit{sText, QString()};
}

} // namespace gkHost
