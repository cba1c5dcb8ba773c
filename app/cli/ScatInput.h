#pragma once

#include "CommandInput.h"

#include <gkBase/TransverseDirection.h>

#include <optional>
#include <vector>

namespace gkHost {

/// Bedding planes along a well, as --depth, --dip and --azimuth name them, and the directions of their transverse and
/// longitudinal dips.
struct ScatInput
{
    gkBase::MatrixData* m_poDepth = nullptr;
    gkBase::MatrixData* m_poDip = nullptr;
    gkBase::MatrixData* m_poAzimuth = nullptr;
    /// Degrees, whatever the units of the attributes; NaN where missing.
    std::vector<double> m_vdDips;
    std::vector<double> m_vdAzimuths;

    gkBase::TransverseDirections m_oByTangentLine;
    gkBase::TransverseDirections m_oByRootMeanSquare;
    /// What --t and --l say. Without both T is that of the line, and where there is none that of the root mean square;
    /// without one of them it is across the other, on its positive side. Missing where the planes do not tell T.
    double m_dTransverse = gkBase::g_dMissingValue;
    double m_dLongitudinal = gkBase::g_dMissingValue;
};

/// Adds --depth, --dip, --azimuth, --t and --l.
void addScatOptions(QCommandLineParser& parser);

/// Loads the file and finds the planes and directions; a message, that of an earlier error first, when something is
/// wrong.
ScatInput loadedScatInput(CommandInput& input, std::optional<CommandResult>& oError);

} // namespace gkHost
