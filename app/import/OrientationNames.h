#pragma once

#include <QString>

namespace gkHost {

/// What the name of a column says about the angles in it.
enum class AngleRole
{
    None,
    Dip,
    DipAzimuth,
    Strike,
    Plunge,
    Trend,
    Azimuth,
    Angle
};

struct AngleName
{
    AngleRole m_eRole = AngleRole::None;
    QString m_sGroup; ///< the other words of the name: "fault_dip" and "fault_azimuth" belong together
};

/// Reads names such as "Dip", "dip_azimuth", "DipDir", "strike (RHR)", "line plunge". None for names that speak about
/// an angle's quality, error or class.
AngleName angleName(const QString& sName);

} // namespace gkHost
