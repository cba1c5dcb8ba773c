#pragma once

#include "Command.h"

#include <QStringList>

namespace gkHost {

/// Counts planes by their poles, or lines, at the nodes of a grid over the net.
CommandResult runDensityCommand(const QStringList& lArguments);

} // namespace gkHost
