#pragma once

#include "ImportReport.h"
#include "ImportTable.h"

#include <vector>

namespace gkHost {

/// Links strikes to the azimuths that stand beside them in the table: a strike column that is its azimuth − 90
/// (modulo 360, to 0.01 degrees) in every row and empty in the same rows becomes the linked strike of the first such
/// azimuth. One that disagrees with all of them keeps its own numbers. Both go into the report. The columns hold
/// doubles, in degrees.
void linkAgreeingStrikes(ImportTable& table, const std::vector<int>& viStrikes, const std::vector<int>& viAzimuths,
                         ImportReport& report);

} // namespace gkHost
