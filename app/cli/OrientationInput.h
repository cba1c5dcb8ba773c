#pragma once

#include "CommandInput.h"

#include <gkBase/DirectionCosines.h>
#include <gkBase/NetProjection.h>
#include <gkBase/UnitManager.h>

#include <optional>
#include <vector>

namespace gkHost {

/// The orientations that --dip and --azimuth name: dip and dip azimuth of planes, or with --lines plunge and azimuth.
struct OrientationInput
{
    gkBase::OrientationType m_eType = gkBase::OrientationType::Planes;
    gkBase::MatrixData* m_poAngle = nullptr;
    gkBase::MatrixData* m_poAzimuth = nullptr;
    /// Degrees, whatever the units of the attributes; NaN where missing.
    std::vector<double> m_vdAngles;
    std::vector<double> m_vdAzimuths;

    bool isPlanes() const { return m_eType == gkBase::OrientationType::Planes; }
    /// Records whose angle is no dip from 0 to 90, or no plunge from −90 to 90. They count, as overturned.
    std::size_t recordsOutOfRange() const;
};

/// Adds --dip, --azimuth and --lines.
void addOrientationOptions(QCommandLineParser& parser);

/// Loads the file and finds the orientations; a message, that of an earlier error first, when something is wrong.
OrientationInput loadedOrientations(CommandInput& input, std::optional<CommandResult>& oError);

/// The angles of an attribute in degrees, NaN where missing; values without a unit are degrees. A message for a unit
/// of something else.
std::vector<double> anglesInDegrees(const CommandInput& input, const gkBase::MatrixData& attribute,
                                    std::optional<CommandResult>& oError);

/// The unit of an attribute, or degrees for one of angles in another unit.
boost::shared_ptr<gkBase::UnitManager> unitInDegrees(const gkBase::MatrixData& attribute);

/// Turns attributes themselves to degrees, for charts, which read nothing else. vdDegrees: anglesInDegrees().
void convertToDegrees(gkBase::MatrixData& attribute, const std::vector<double>& vdDegrees);
void convertToDegrees(const OrientationInput& orientations);

/// --projection equal-area|equal-angle, and what it says.
QCommandLineOption projectionOption();
gkBase::NetLayout projectionLayout(const CommandInput& input, std::optional<CommandResult>& oError);

} // namespace gkHost
