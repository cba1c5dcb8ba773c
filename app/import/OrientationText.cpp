#include "OrientationText.h"

#include <cmath>
#include <vector>

namespace gkHost {

namespace {

/// A compass letter, or a number.
struct Token
{
    char m_cLetter = 0;
    double m_dNumber = 0;
    int m_iDigits = 0;
};
using Tokens = std::vector<Token>;

bool isSeparator(QChar c)
{
    return c.isSpace() || QStringLiteral("/-,;:°º\u2032\u2019'").contains(c);
}

/// None when the text holds anything but compass letters, numbers and separators.
std::optional<Tokens> tokens(const QString& sText)
{
    Tokens vTokens;
    for (qsizetype i = 0; i < sText.size();) {
        const QChar c = sText[i].toUpper();
        if (QStringLiteral("NSEW").contains(c)) {
            vTokens.push_back({c.toLatin1(), 0, 0});
            ++i;
        } else if (c.isDigit()) {
            const qsizetype iStart = i;
            while (i < sText.size() && sText[i].isDigit()) {
                ++i;
            }
            const int iDigits = static_cast<int>(i - iStart);
            if (i + 1 < sText.size() && sText[i] == u'.' && sText[i + 1].isDigit()) {
                for (++i; i < sText.size() && sText[i].isDigit(); ++i) {
                }
            }
            vTokens.push_back({0, sText.mid(iStart, i - iStart).toDouble(), iDigits});
        } else if (isSeparator(c)) {
            ++i;
        } else {
            return std::nullopt;
        }
    }
    return vTokens;
}

bool isLetter(const Tokens& vTokens, std::size_t i, char cFirst, char cSecond)
{
    return i < vTokens.size() && (vTokens[i].m_cLetter == cFirst || vTokens[i].m_cLetter == cSecond);
}

bool isNumber(const Tokens& vTokens, std::size_t i)
{
    return i < vTokens.size() && vTokens[i].m_cLetter == 0;
}

double quadrantAzimuth(char cFrom, double dAngle, char cTo)
{
    const double dAzimuth =
        cFrom == 'N' ? (cTo == 'E' ? dAngle : 360 - dAngle) : (cTo == 'E' ? 180 - dAngle : 180 + dAngle);
    return dAzimuth >= 360 ? dAzimuth - 360 : dAzimuth;
}

double letterAzimuth(char cLetter)
{
    return cLetter == 'N' ? 0 : cLetter == 'E' ? 90 : cLetter == 'S' ? 180 : 270;
}

/// "N30E", "NE", "N": moves i behind what it read.
std::optional<double> direction(const Tokens& vTokens, std::size_t& i)
{
    if (isLetter(vTokens, i, 'N', 'S')) {
        const char cFrom = vTokens[i].m_cLetter;
        if (isNumber(vTokens, i + 1) && isLetter(vTokens, i + 2, 'E', 'W') && vTokens[i + 1].m_dNumber <= 90) {
            i += 3;
            return quadrantAzimuth(cFrom, vTokens[i - 2].m_dNumber, vTokens[i - 1].m_cLetter);
        }
        if (isLetter(vTokens, i + 1, 'E', 'W')) {
            i += 2;
            return quadrantAzimuth(cFrom, 45, vTokens[i - 1].m_cLetter);
        }
    }
    if (isNumber(vTokens, i) || i >= vTokens.size()) {
        return std::nullopt;
    }
    return letterAzimuth(vTokens[i++].m_cLetter);
}

/// As a direction, and also both ends ("N-S", "E-W") or an azimuth in numbers.
std::optional<double> strike(const Tokens& vTokens, std::size_t& i)
{
    if (isNumber(vTokens, i)) {
        const double dStrike = vTokens[i++].m_dNumber;
        return dStrike <= 360 ? std::optional(std::fmod(dStrike, 360)) : std::nullopt;
    }
    const bool bNorthSouth = isLetter(vTokens, i, 'N', 'S') && isLetter(vTokens, i + 1, 'N', 'S');
    const bool bEastWest = isLetter(vTokens, i, 'E', 'W') && isLetter(vTokens, i + 1, 'E', 'W');
    if ((bNorthSouth || bEastWest) && vTokens[i].m_cLetter != vTokens[i + 1].m_cLetter) {
        i += 2;
        return bNorthSouth ? 0 : 90;
    }
    return direction(vTokens, i);
}

double angularDistance(double dFirst, double dSecond)
{
    return std::abs(std::remainder(dFirst - dSecond, 360));
}

/// Of the two azimuths across the strike the one nearer to the letters; none when they point along the strike.
std::optional<double> dipAzimuth(double dStrike, double dLetters)
{
    const double dRight = std::fmod(dStrike + 90, 360);
    const double dLeft = std::fmod(dStrike + 270, 360);
    const double dDifference = angularDistance(dRight, dLetters) - angularDistance(dLeft, dLetters);
    if (std::abs(dDifference) < 1e-9) {
        return std::nullopt;
    }
    return dDifference < 0 ? dRight : dLeft;
}

} // namespace

std::optional<AngleAndAzimuth> quadrantPlane(const QString& sText)
{
    const std::optional<Tokens> ovTokens = tokens(sText);
    std::size_t i = 0;
    const std::optional<double> odStrike = ovTokens ? strike(*ovTokens, i) : std::nullopt;
    if (!odStrike) {
        return std::nullopt;
    }
    const Tokens& vTokens = *ovTokens;
    std::optional<double> odDip;
    if (isNumber(vTokens, i)) {
        odDip = vTokens[i++].m_dNumber;
    }
    const bool bLetters = i < vTokens.size();
    const std::optional<double> odLetters = bLetters ? direction(vTokens, i) : std::nullopt;
    if (!odDip && isNumber(vTokens, i)) {
        odDip = vTokens[i++].m_dNumber;
    }
    if (!odDip || *odDip > 90 || i != vTokens.size() || (bLetters && !odLetters)) {
        return std::nullopt;
    }
    if (!bLetters) {
        const bool bNoSide = *odDip == 0 || *odDip == 90;
        // "045/90" holds no letter at all: that is a pair of numbers, not a quadrant.
        return bNoSide && vTokens.front().m_cLetter != 0
                   ? std::optional(AngleAndAzimuth{*odDip, std::fmod(*odStrike + 90, 360)})
                   : std::nullopt;
    }
    const std::optional<double> odAzimuth = dipAzimuth(*odStrike, *odLetters);
    return odAzimuth ? std::optional(AngleAndAzimuth{*odDip, *odAzimuth}) : std::nullopt;
}

std::optional<Direction> quadrantDirection(const QString& sText)
{
    const std::optional<Tokens> ovTokens = tokens(sText);
    if (!ovTokens || ovTokens->empty()) {
        return std::nullopt;
    }
    const Tokens& vTokens = *ovTokens;
    Direction result;
    std::size_t i = 0;
    if (isNumber(vTokens, i)) {
        result.m_odPlunge = vTokens[i++].m_dNumber;
    }
    const std::size_t iLetters = i;
    const std::optional<double> odAzimuth = direction(vTokens, i);
    if (!odAzimuth) {
        return std::nullopt;
    }
    result.m_dAzimuth = *odAzimuth;
    result.m_bWithNumber = i - iLetters == 3;
    if (!result.m_odPlunge && isNumber(vTokens, i)) {
        result.m_odPlunge = vTokens[i++].m_dNumber;
    }
    if (i != vTokens.size() || result.m_odPlunge.value_or(0) > 90) {
        return std::nullopt;
    }
    return result;
}

std::optional<AnglePair> anglePair(const QString& sText)
{
    if (sText.contains(u'-')) { // dates and ranges
        return std::nullopt;
    }
    const std::optional<Tokens> ovTokens = tokens(sText);
    if (!ovTokens || ovTokens->size() != 2 || !isNumber(*ovTokens, 0) || !isNumber(*ovTokens, 1)) {
        return std::nullopt;
    }
    const Token& first = (*ovTokens)[0];
    const Token& second = (*ovTokens)[1];
    return AnglePair{first.m_dNumber, second.m_dNumber, first.m_iDigits, second.m_iDigits};
}

} // namespace gkHost
