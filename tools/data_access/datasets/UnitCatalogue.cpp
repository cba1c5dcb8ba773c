#include "UnitCatalogue.h"

#include <QHash>

#include <vector>

namespace gkBase {

namespace {

struct Row
{
    const char* kind;
    const char* tag;
    const char* name;
    const char* expression;
    int precision;
    const char* spellings; ///< in lower case, normalised, separated by ';'
};

// The first unit of each kind is the default model unit of its category.
constexpr Row aRows[] = {
    {"orientation", "°", "degree", "degree", 1, "deg;degs;degree;degrees;dega;dg;deg.;arc_degree"},
    {"orientation", "rad", "radian", "radian", 4, "rad;radian;radians;rads"},
    {"orientation", "gon", "gon", "0.9 degree", 1, "gon;grad;gradian;gradians;gons"},

    {"fraction", "v/v", "fraction", "1", 4,
     "v/v;frac;fraction;m3/m3;ft3/ft3;cm3/cm3;vol/vol;dec;decimal;v/v_decimal;cfcf;k/k;w/w"},
    {"fraction", "%", "percent", "0.01", 2, "%;pct;percent;per cent;prct;perc"},
    {"fraction", "p.u.", "porosity unit", "0.01", 2, "pu;p.u.;p.u;porosity unit;porosity units"},
    {"fraction", "ppm", "part per million", "1e-6", 1, "ppm;parts per million"},

    {"length", "m", "metre", "m", 2, "m;metre;metres;meter;meters;mtr;mtrs;mts"},
    {"length", "ft", "foot", "international_foot", 2, "ft;f;feet;foot;ft.;'"},
    {"length", "km", "kilometre", "km", 4, "km;kilometre;kilometres;kilometer;kilometers;kms"},
    {"length", "cm", "centimetre", "cm", 1, "cm;centimetre;centimetres;centimeter;centimeters"},
    {"length", "mm", "millimetre", "mm", 1, "mm;millimetre;millimetres;millimeter;millimeters"},
    {"length", "µm", "micrometre", "um", 1, "um;micron;microns;micrometre;micrometer"},
    {"length", "in", "inch", "international_inch", 2, "in;inch;inches;ins;in.;\""},
    {"length", "yd", "yard", "international_yard", 2, "yd;yds;yard;yards"},
    {"length", "mi", "mile", "international_mile", 4, "mi;mile;miles"},
    {"length", "ftUS", "US survey foot", "US_survey_foot", 2,
     "ftus;usft;us_ft;us ft;ussft;us survey foot;us survey feet;us_survey_foot;survey foot;survey feet"},

    {"time", "s", "second", "s", 3, "s;sec;secs;second;seconds"},
    {"time", "ms", "millisecond", "ms", 2, "ms;msec;msecs;millisecond;milliseconds"},
    {"time", "µs", "microsecond", "us", 2, "us;usec;usecs;microsecond;microseconds;mics"},
    {"time", "min", "minute", "minute", 2, "min;mins;minute;minutes"},
    {"time", "h", "hour", "hour", 3, "h;hr;hrs;hour;hours"},
    {"time", "d", "day", "day", 3, "d;day;days"},
    {"time", "yr", "year", "365.25 day", 3, "yr;yrs;year;years"},

    {"temperature", "°C", "degree Celsius", "degC", 1,
     "degc;deg c;celsius;degree celsius;degrees celsius;deg_c;degreec;c deg"},
    {"temperature", "°F", "degree Fahrenheit", "degF", 1,
     "degf;deg f;fahrenheit;degree fahrenheit;degrees fahrenheit;deg_f;degreef;f deg"},
    {"temperature", "K", "kelvin", "K", 1, "k;kelvin;degk;deg k;kelvins"},

    {"pressure", "kPa", "kilopascal", "kPa", 1, "kpa;kpaa;kpag;kilopascal;kilopascals"},
    {"pressure", "Pa", "pascal", "Pa", 0, "pa;pascal;pascals"},
    {"pressure", "MPa", "megapascal", "MPa", 3, "mpa;megapascal;megapascals"},
    {"pressure", "GPa", "gigapascal", "GPa", 3, "gpa;gigapascal;gigapascals"},
    {"pressure", "psi", "pound per square inch", "psi", 1, "psi;psia;psig;lbf/in2;lb/in2"},
    {"pressure", "bar", "bar", "bar", 2, "bar;bars;bara;barg"},
    {"pressure", "atm", "standard atmosphere", "atm", 3, "atm;atmosphere;atmospheres"},

    {"density", "g/cm³", "gram per cubic centimetre", "g/cm3", 3,
     "g/cm3;g/cc;g/c3;gm/cc;gm/cm3;gcc;g/ml;gram/cm3;g.cm-3;g/cm^3"},
    {"density", "kg/m³", "kilogram per cubic metre", "kg/m3", 1, "kg/m3;k/m3;kgm3;kg/m^3;kg.m-3"},
    {"density", "lb/ft³", "pound per cubic foot", "lb/ft3", 2, "lb/ft3;lbm/ft3;lb/f3;pcf;lb/ft^3;lb/cuft"},
    {"density", "lb/gal", "pound per gallon", "lb/US_liquid_gallon", 2, "lb/gal;lbm/gal;ppg;lb/g"},

    {"velocity", "m/s", "metre per second", "m/s", 1, "m/s;m/sec;mps;m.s-1;metre/second;meter/second"},
    {"velocity", "ft/s", "foot per second", "international_foot/s", 1, "ft/s;f/s;ft/sec;fps;feet/second"},
    {"velocity", "km/s", "kilometre per second", "km/s", 3, "km/s;km/sec"},
    {"velocity", "m/h", "metre per hour", "m/hour", 2, "m/h;m/hr;m/hour"},
    {"velocity", "ft/h", "foot per hour", "international_foot/hour", 2, "ft/h;ft/hr;f/hr;f/h;ft/hour"},
    {"velocity", "m/min", "metre per minute", "m/minute", 2, "m/min"},
    {"velocity", "ft/min", "foot per minute", "international_foot/minute", 2, "ft/min;f/min"},

    {"slowness", "µs/ft", "microsecond per foot", "us/international_foot", 1,
     "us/ft;us/f;usec/ft;usec/f;us/feet;microsec/ft;mics/ft;us.ft-1"},
    {"slowness", "µs/m", "microsecond per metre", "us/m", 1, "us/m;usec/m;microsec/m;mics/m;us.m-1"},
    {"slowness", "s/m", "second per metre", "s/m", 7, "s/m;sec/m"},
    {"slowness", "ms/m", "millisecond per metre", "ms/m", 4, "ms/m;msec/m"},

    {"resistivity", "Ω·m", "ohm metre", "ohm.m", 3,
     "ohmm;ohm.m;ohm-m;ohm m;ohm*m;ohm_m;ohms-m;ohms.m;ohm-metre;ohm-meter;ohmm2/m;ohm.m2/m;ohm/m2/m"},
    {"resistivity", "kΩ·m", "kiloohm metre", "kohm.m", 4, "kohmm;kohm.m;kohm-m;kohm m;kohm*m"},

    {"conductivity", "mS/m", "millisiemens per metre", "mS/m", 2, "mmho/m;mmo/m;mmho"},
    {"conductivity", "S/m", "siemens per metre", "S/m", 4, "mho/m;siemens/m"},

    {"gamma ray", "API", "API gamma ray unit", "", 1, "api;gapi;api units;api unit;apiu;g.api;gr api"},

    {"electric potential", "mV", "millivolt", "mV", 2, "mv;millivolt;millivolts;mvolt"},
    {"electric potential", "V", "volt", "V", 4, "volt;volts;v"},

    // Known by name only: a text such as "md" must not be read as a thousandth of a day.
    {"", "mD", "millidarcy", "", 3, "md;millidarcy;millidarcies;mdarcy"},
    {"", "b/e", "barn per electron", "", 3, "b/e;barns/electron;barn/electron;b/elec"},
    {"", "c.u.", "capture unit", "", 2, "cu;c.u.;c.u"},
    {"", "cps", "count per second", "", 1, "cps;c/s;counts/s"},
    {"", "API-N", "API neutron unit", "", 1, "napi;api-n;n.api"},
};

/// Texts whose case decides, compared as they stand before the lower-case list. The second text is a spelling of
/// that list; an empty one leaves the text to the conversion library.
constexpr const char* aCaseSensitive[][2] = {{"mS/m", "mmho/m"}, {"MS/M", "mmho/m"}, {"S/m", "mho/m"},
                                             {"mPa", ""},        {"mS", ""},         {"Mm", ""}};

class Catalogue
{
public:
    Catalogue()
    {
        m_vEntries.reserve(std::size(aRows));
        for (const Row& row : aRows) {
            m_vEntries.push_back({QString::fromUtf8(row.kind), QString::fromUtf8(row.tag), QString::fromUtf8(row.name),
                                  QString::fromUtf8(row.expression), row.precision});
            const QStringList lSpellings = QString::fromUtf8(row.spellings).split(u';');
            for (const QString& sSpelling : lSpellings)
                m_bySpelling.insert(sSpelling, &m_vEntries.back());
        }
        for (const UnitEntry& entry : m_vEntries) // a tag is always a spelling of its own unit
            if (const QString sTag = UnitCatalogue::normalised(entry.sTag); !m_bySpelling.contains(sTag.toLower()))
                m_bySpelling.insert(sTag.toLower(), &entry);
        for (const auto& aPair : aCaseSensitive)
            m_byCase.insert(QString::fromLatin1(aPair[0]), m_bySpelling.value(QString::fromLatin1(aPair[1]), nullptr));
    }

    const std::vector<UnitEntry>& entries() const { return m_vEntries; }

    const UnitEntry* find(const QString& sNormalised) const
    {
        if (const auto it = m_byCase.constFind(sNormalised); it != m_byCase.cend())
            return it.value();
        return m_bySpelling.value(sNormalised.toLower(), nullptr);
    }

private:
    std::vector<UnitEntry> m_vEntries;
    QHash<QString, const UnitEntry*> m_bySpelling;
    QHash<QString, const UnitEntry*> m_byCase;
};

const Catalogue& catalogue()
{
    static const Catalogue theCatalogue;
    return theCatalogue;
}

} // namespace

const UnitEntry* UnitCatalogue::find(const QString& sText)
{
    return catalogue().find(normalised(sText));
}

QString UnitCatalogue::normalised(const QString& sText)
{
    QString sResult;
    sResult.reserve(sText.size());
    const QString sSimplified = sText.simplified();
    for (const QChar c : sSimplified) {
        switch (c.unicode()) {
        case 0x00b5: // micro sign
        case 0x03bc: // Greek mu
            sResult += u'u';
            break;
        case 0x00b0: // degree sign
        case 0x00ba: // ordinal sign, typed for it
            sResult += QStringLiteral("deg");
            break;
        case 0x00b2:
            sResult += u'2';
            break;
        case 0x00b3:
            sResult += u'3';
            break;
        case 0x03a9: // Greek omega
        case 0x2126: // ohm sign
            sResult += QStringLiteral("ohm");
            break;
        case 0x00b7: // middle dot
        case 0x22c5: // dot operator
            sResult += u'.';
            break;
        default:
            sResult += c;
        }
    }
    return sResult.replace(QStringLiteral(" /"), QStringLiteral("/"))
        .replace(QStringLiteral("/ "), QStringLiteral("/"));
}

QStringList UnitCatalogue::tagsOfKind(const QString& sKind)
{
    QStringList lTags;
    for (const UnitEntry& entry : catalogue().entries())
        if (!sKind.isEmpty() && entry.sKind == sKind)
            lTags << entry.sTag;
    return lTags;
}

QStringList UnitCatalogue::kinds()
{
    QStringList lKinds;
    for (const UnitEntry& entry : catalogue().entries())
        if (!entry.sKind.isEmpty() && !lKinds.contains(entry.sKind))
            lKinds << entry.sKind;
    return lKinds;
}

QStringList UnitCatalogue::categories()
{
    return QStringList{QStringLiteral("dimensionless"), QStringLiteral("depth")} + kinds();
}

QString UnitCatalogue::kindOfCategory(const QString& sCategory)
{
    return sCategory == QLatin1String("depth") ? QStringLiteral("length") : sCategory;
}

QString UnitCatalogue::defaultUnit(const QString& sCategory)
{
    const QStringList lTags = tagsOfKind(kindOfCategory(sCategory));
    return lTags.isEmpty() ? QString() : lTags.first();
}

} // namespace gkBase
