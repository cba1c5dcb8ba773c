#pragma once

#include "Command.h"

#include <QStringList>

namespace gkHost {

/// "decimate FILE --depth NAME (--step X | --bins N) [--from A --to B] --columns A,B --out PATH.csv": the means of
/// attributes in intervals of depth.
CommandResult runDecimateCommand(const QStringList& lArguments);

} // namespace gkHost
