#pragma once

#include "Command.h"

#include <QStringList>

namespace gkHost {

/// "stats FILE --attribute NAME [--interval X] [--json]": summary, percentiles and classes of an attribute;
/// "stats FILE --x NAME --y NAME [--json]": the regression of y on x.
CommandResult runStatsCommand(const QStringList& lArguments);

} // namespace gkHost
