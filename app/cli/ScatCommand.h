#pragma once

#include "Command.h"

#include <QStringList>

namespace gkHost {

/// "scat FILE --depth NAME --dip NAME --azimuth NAME [--t DEG --l DEG] [--json] [--out PATH.csv]": the directions of
/// most and least change of dip down a well, where the transverse dips show crests and inflections, and both apparent
/// dips as CSV.
CommandResult runScatCommand(const QStringList& lArguments);

} // namespace gkHost
