#pragma once

#include "Command.h"

#include <QStringList>

namespace gkHost {

/// "convert FILE --out PATH.csv [--report PATH]": writes every attribute with full precision.
CommandResult runConvertCommand(const QStringList& lArguments);

} // namespace gkHost
