#pragma once

#include "Command.h"

#include <optional>

namespace gkBase {
class MatrixData;
}

namespace gkHost {

/// Writes all data sets of a root as CSV; a message when that fails.
std::optional<CommandResult> writeCsv(const gkBase::MatrixData& root, const QString& sPath);

} // namespace gkHost
