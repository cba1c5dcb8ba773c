#pragma once

#include "AxisTicks.h"
#include "HistogramGeometry.h"
#include "NormalProbability.h"
#include "gkBaseToolsExport.h"

#include <QLineF>
#include <QPointF>

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

/// A point of a probability plot in chart pixels, and which of the sorted values it is.
struct ProbabilityPoint
{
    QPointF m_oPixel;
    std::size_t m_iRank = 0;
};

/// Half the height of the plot in standard normal quantiles: what shows all plotting positions of that many values,
/// but at least 0.1 to 99.9 per cent.
GKBASETOOLS_EXPORT double quantileRange(std::size_t iCount);

/// The probability axis between −dRange and dRange: its values are normal quantiles, its labels per cent without the
/// sign.
GKBASETOOLS_EXPORT AxisTicks probabilityTicks(double dRange);

/// The values (rising, none missing) over the normal quantiles of their plotting positions. Of the values on one pixel
/// the first is kept, and of all the first and the last; costs one quantile for every few pixels of the curve, not one
/// for every value.
GKBASETOOLS_EXPORT std::vector<ProbabilityPoint> probabilityPoints(std::span<const double> vdSorted,
                                                                   const HistogramMap& map);

/// The line of the fit as far as it lies in the chart, in chart pixels (not every device clips); null without a fit.
/// Equal values give an upright line.
GKBASETOOLS_EXPORT QLineF fitLine(const NormalFit& fit, const HistogramMap& map);

/// The point within a few pixels of a chart pixel that is nearest to it; null for none.
GKBASETOOLS_EXPORT const ProbabilityPoint* probabilityPointAt(const std::vector<ProbabilityPoint>& vPoints,
                                                              const QPointF& oPixel);

} // namespace gkBase
