#pragma once

#include "RecordMask.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>

namespace gkBase {

/// y = slope · x + intercept through points, with the correlation of x and y (−1 … 1).
struct RegressionLine
{
    double m_dSlope = 0.0; ///< 99999.0 when the chart's rule finds that the line is not a function
    double m_dIntercept = 0.0;
    double m_dCorrelation = 0.0;
    std::size_t m_iPoints = 0; ///< points taken: both numbers present, and in the mask
    bool m_bIsFunction = true; ///< false when all x are equal
};

/// The line that the point charts draw. It differs from least squares on purpose: the means are the sums divided by
/// the number of points plus one, and the sums of products about these means are divided by the number of points.
/// y = 2x + 1 at x = 0, 1, 2, 3 gives slope 2.044776, intercept 0.746269, correlation 0.996687.
///
/// Fewer than four points taken give zeros. When every x lies within 5e-7 of the x of the first point taken, the
/// slope is 99999.0 and the line is not a function. A spread of x below 5e-6 gives slope and correlation 0, a constant
/// y correlation 0; a slope or intercept below 5e-6 in magnitude is 0. No member is ever NaN. The columns may differ
/// in length; the shorter one counts. Linear in the number of points.
GKBASECORE_EXPORT RegressionLine chartRegression(std::span<const double> vdX, std::span<const double> vdY,
                                                 std::span<const unsigned char> vbMask = {});

/// The ordinary least-squares line of y on x and Pearson's r, in two passes about the first point and the means, so
/// that coordinates far from zero keep their digits (Chan, Golub, LeVeque 1983). What is undefined is 0: all members
/// without points, the slope of equal x (and then m_bIsFunction is false), the correlation of a constant.
GKBASECORE_EXPORT RegressionLine leastSquares(std::span<const double> vdX, std::span<const double> vdY,
                                              std::span<const unsigned char> vbMask = {});

} // namespace gkBase
