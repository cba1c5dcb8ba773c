#pragma once

#include "Command.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <optional>

namespace gkBase {
class MatrixColumn;
class MatrixData;
class UnitManager;
} // namespace gkBase

namespace gkHost {

/// Appends an attribute of that unit; a name that is taken gets a number.
void appendAttribute(gkBase::MatrixData& dataSet, QString sName, const boost::shared_ptr<gkBase::UnitManager>& poUnit,
                     gkBase::MatrixColumn column);

/// Writes all data sets of a root as CSV; a message when that fails.
std::optional<CommandResult> writeCsv(const gkBase::MatrixData& root, const QString& sPath);

} // namespace gkHost
