#pragma once

#include "Command.h"

#include <QStringList>

namespace gkHost {

/// "cluster FILE --columns A,B[,C] --k N --out PATH.csv [--json]": k-means clusters, written as a further attribute.
CommandResult runClusterCommand(const QStringList& lArguments);

} // namespace gkHost
