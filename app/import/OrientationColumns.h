#pragma once

#include "ImportReport.h"
#include "ImportTable.h"
#include "OrientationRecognizer.h"

#include <QString>

namespace gkHost {

/// Numbers in degrees, or without a unit.
bool isAngleColumn(const ImportColumn& column);

/// The names of a proposal's columns.
QString describeColumns(const ImportTable& table, const OrientationProposal& proposal);
/// Why a proposal cannot be applied to a table; empty when it can.
QString reasonAgainst(const ImportTable& table, const OrientationProposal& proposal);

/// Applies a proposal about number columns, respectively about a text column. The proposal must fit the table.
void markNumbers(ImportTable& table, const OrientationProposal& proposal, ImportReport& report);
void convertTexts(ImportTable& table, const OrientationProposal& proposal, ImportReport& report);

} // namespace gkHost
