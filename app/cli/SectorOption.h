#pragma once

#include "CommandInput.h"

#include <optional>

namespace gkHost {

/// --sector, the size of the sectors of a rose in whole degrees.
QCommandLineOption sectorOption();
/// What it says, 1 to 360; 20 when it is absent, and with a message.
int sectorSize(const CommandInput& input, std::optional<CommandResult>& oError);

} // namespace gkHost
