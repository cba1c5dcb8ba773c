#include "AxisScale.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

AxisScale::AxisScale(double dMin, double dMax, int iChartLength, Qt::Orientation orientation, bool bInverted)
    : m_dMin(std::min(dMin, dMax))
    , m_dMax(std::max(dMin, dMax))
    , m_iChartLength(std::max(iChartLength, 0))
{
    const double dLast = std::max(m_iChartLength - 1, 0);
    const bool bMinFirst = (orientation == Qt::Horizontal) != bInverted;
    m_oMap = bMinFirst ? ScaleMap(m_dMin, m_dMax, 0.0, dLast) : ScaleMap(m_dMin, m_dMax, dLast, 0.0);
}

int AxisScale::toPixelIndex(double dValue) const
{
    constexpr double dRoundingError = 1e-6;
    const double dPixel = toPixel(dValue);
    if (!std::isfinite(dPixel))
        return 0;
    return static_cast<int>(std::clamp(dPixel + dRoundingError, 0.0, std::max(m_iChartLength - 1.0, 0.0)));
}

} // namespace gkBase
