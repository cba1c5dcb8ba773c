#pragma once

#include "CommandInput.h"

#include <gkBase/DirectionCosines.h>
#include <gkBase/NetProjection.h>

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
};

/// Adds --dip, --azimuth and --lines.
void addOrientationOptions(QCommandLineParser& parser);

/// Loads the file and finds the orientations; a message, that of an earlier error first, when something is wrong.
OrientationInput loadedOrientations(CommandInput& input, std::optional<CommandResult>& oError);

/// A message, unless there is one already, for an attribute in a unit of something else than angles.
void requireAngles(const CommandInput& input, const gkBase::MatrixData& attribute,
                   std::optional<CommandResult>& oError);

/// The same for a strike, which is 90 degrees off; the dip azimuth that belongs to one is an attribute too.
void requireDipAzimuth(const CommandInput& input, const gkBase::MatrixData& attribute,
                       std::optional<CommandResult>& oError);

/// The angles of an attribute in degrees, NaN where missing; values without a unit are degrees. A message as above.
std::vector<double> anglesInDegrees(const CommandInput& input, const gkBase::MatrixData& attribute,
                                    std::optional<CommandResult>& oError);

/// The unit of results in degrees that come from an attribute: its own one, unless that is another one than degrees.
boost::shared_ptr<gkBase::UnitManager> unitInDegrees(const gkBase::MatrixData& attribute);

/// --projection equal-area|equal-angle, and what it says.
QCommandLineOption projectionOption();
gkBase::NetLayout projectionLayout(const CommandInput& input, std::optional<CommandResult>& oError);

} // namespace gkHost
