#pragma once

#include "CommandInput.h"

#include <gkBase/StereoNetSettings.h>

#include <optional>

namespace gkBase {
class QStereoChartWidget;
} // namespace gkBase

namespace gkHost {

/// Adds what stereonet and tangent diagram have in common: --contours, --grid, --planes, --no-points, --net
/// and --color-by.
void addNetOptions(QCommandLineParser& parser);

/// What these options say; a message when something is wrong.
gkBase::StereoNetSettings netSettings(const CommandInput& input, std::optional<CommandResult>& oError);

/// Loads the file and shows the orientations that --dip and --azimuth name in a panel, coloured as --color-by says. A
/// message, that of an earlier error first, when something is wrong.
std::optional<CommandResult> showOrientations(gkBase::QStereoChartWidget& panel, CommandInput& input,
                                              gkBase::StereoNetSettings settings, std::optional<CommandResult> oError);

} // namespace gkHost
