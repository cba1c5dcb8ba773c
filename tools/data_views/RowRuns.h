#pragma once

#include "gkBaseToolsExport.h"

#include <vector>

namespace gkBase {

/// Consecutive rows iFirst … iLast, both included.
struct RowRun
{
    int iFirst = 0;
    int iLast = -1;

    int size() const { return iLast - iFirst + 1; }
    bool operator==(const RowRun&) const = default;
};

/// A set of rows as rising runs that neither overlap nor touch. Every other row of a million costs 4 MB this way and
/// one run costs 8 bytes; all operations below are linear in the number of runs.
using RowRuns = std::vector<RowRun>;

/// The runs of true flags, moved down by iShift rows. Null or a length below 1: no run.
GKBASETOOLS_EXPORT RowRuns runsOfFlags(const bool* pbFlags, int iCount, int iShift = 0);
/// The runs of rising row numbers (repeated numbers count once).
GKBASETOOLS_EXPORT RowRuns runsOfRows(const std::vector<int>& viRisingRows);
/// Any runs brought into the form that RowRuns promises: sorted, joined, empty ones dropped.
GKBASETOOLS_EXPORT RowRuns normalizedRuns(RowRuns vRuns);
/// The rows of 0 … iRowCount − 1 that are in no run.
GKBASETOOLS_EXPORT RowRuns complementOfRuns(const RowRuns& vRuns, int iRowCount);
GKBASETOOLS_EXPORT RowRuns unitedRuns(const RowRuns& vA, const RowRuns& vB);
GKBASETOOLS_EXPORT RowRuns intersectedRuns(const RowRuns& vA, const RowRuns& vB);
/// The rows that are in exactly one of both.
GKBASETOOLS_EXPORT RowRuns toggledRuns(const RowRuns& vA, const RowRuns& vB);
/// Rows in all runs together.
GKBASETOOLS_EXPORT int countOfRuns(const RowRuns& vRuns);
/// Logarithmic in the number of runs.
GKBASETOOLS_EXPORT bool runsContain(const RowRuns& vRuns, int iRow);
/// Every row, rising.
GKBASETOOLS_EXPORT std::vector<int> rowsOfRuns(const RowRuns& vRuns);

} // namespace gkBase
