#pragma once

#include "Command.h"

#include <QStringList>

namespace gkHost {

/// Turns planes or lines about an axis and writes them as further attributes.
CommandResult runRotateCommand(const QStringList& lArguments);

} // namespace gkHost
