#pragma once

#include <gkBase/IntervalBins.h>

#include <QString>

#include <memory>
#include <vector>

namespace gkBase {
class MatrixData;
}

namespace gkHost {

/// One record per bin of depth: an attribute of the bins' centres, "Count" (records of the bin that enter at least one
/// mean) and the mean of each column under its own name, all in model units; empty cells where a bin has no mean.
///
/// A dip and an azimuth among the columns become the mean plane, a plunge and an azimuth the mean line, an azimuth or
/// strike alone its circular mean; all other columns are averaged as numbers. The result has no registry.
std::unique_ptr<gkBase::MatrixData> decimatedDataSet(const QString& sName, const gkBase::MatrixData& depth,
                                                     const gkBase::IntervalBins& oBins,
                                                     const std::vector<gkBase::MatrixData*>& vpColumns);

} // namespace gkHost
