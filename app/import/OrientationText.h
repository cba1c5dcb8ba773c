#pragma once

#include <QString>

#include <optional>

namespace gkHost {

/// A dip (or plunge) and its azimuth, in degrees.
struct AngleAndAzimuth
{
    double m_dAngle = 0;
    double m_dAzimuth = 0;
};

/// A strike with a dip and the quadrant or compass letter it dips to: "N30E/45NW", "N-S 60 E", "045 30 SE". The dip
/// azimuth is the one of strike ± 90 on the side of the letters; none when the letters point along the strike. The
/// letters may be left out for dips of 0 and 90, where the right-hand rule decides. The angle is in [0, 90].
std::optional<AngleAndAzimuth> quadrantPlane(const QString& sText);

struct Direction
{
    double m_dAzimuth = 0;
    std::optional<double> m_odPlunge;
    bool m_bWithNumber = false; ///< "S45W" rather than "SW"
};

/// "S45W", "SW", "N", alone or with a plunge in front or behind: "30 S45W", "S45W/30".
std::optional<Direction> quadrantDirection(const QString& sText);

/// Two numbers parted by a slash, a comma or blanks: "045/30".
struct AnglePair
{
    double m_dFirst = 0;
    double m_dSecond = 0;
    int m_iFirstDigits = 0; ///< digits before the decimal point
    int m_iSecondDigits = 0;
};
std::optional<AnglePair> anglePair(const QString& sText);

} // namespace gkHost
