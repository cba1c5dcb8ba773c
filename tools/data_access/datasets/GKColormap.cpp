#include "GKColormap.h"

#include "DecimalSteps.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double dMissing = 99999.0;
constexpr double dAutomaticSteps = 19.0;
constexpr double dMaximumLevels = 1000.0;
/// A rest of the range below this share of a step is rounding, not a step of its own.
constexpr double dStepTolerance = 1e-9;

QColor blend(const QColor& oFrom, const QColor& oTo, double dShare)
{
    const auto mix = [dShare](int iFrom, int iTo) {
        return static_cast<int>(std::lround(iFrom + dShare * (iTo - iFrom)));
    };
    return QColor(mix(oFrom.red(), oTo.red()), mix(oFrom.green(), oTo.green()), mix(oFrom.blue(), oTo.blue()));
}

/// Number of steps from minimum to maximum, the last one possibly shorter.
double stepCount(double dRange, double dInterval)
{
    return std::ceil(dRange / dInterval - dStepTolerance);
}

} // namespace

void GKColormap::fill_spectrum_color_list(double min, double max, double interval, bool bRedToBlue)
{
    m_levels.clear();
    if (!std::isfinite(min) || !std::isfinite(max) || !std::isfinite(max - min) || min == dMissing || max == dMissing)
        return;
    if (!(min < max)) {
        const QColor oColor = spectrumColor(bRedToBlue ? 1.0 : 0.0);
        insert(min, oColor, oColor);
        return;
    }
    const double dRange = max - min;
    if (!(interval > 0.0) || interval == dMissing || stepCount(dRange, interval) + 1.0 > dMaximumLevels)
        interval = dRange / dAutomaticSteps;
    const int iSteps = std::max(1, static_cast<int>(stepCount(dRange, interval)));
    QColor oLower;
    for (int i = 0; i <= iSteps; ++i) {
        const double dFraction = static_cast<double>(i) / iSteps;
        const QColor oUpper = spectrumColor(bRedToBlue ? 1.0 - dFraction : dFraction);
        insert(i < iSteps ? gkBase::decimalStep(min, interval, i) : max, i > 0 ? oLower : oUpper, oUpper);
        oLower = oUpper;
    }
}

QColor GKColormap::value_to_color(double dValue) const
{
    if (m_levels.empty() || std::isnan(dValue) || dValue == dMissing)
        return QColor();
    const const_iterator itAbove = m_levels.upper_bound(dValue);
    if (itAbove == m_levels.begin())
        return m_eInterpolation == Stepwise ? itAbove->second.first : itAbove->second.second;
    const const_iterator itBelow = std::prev(itAbove);
    const QColor& oBand = itBelow->second.second;
    if (m_eInterpolation == Stepwise || itAbove == m_levels.end())
        return oBand;
    const double dShare = (dValue - itBelow->first) / (itAbove->first - itBelow->first);
    return blend(oBand, itAbove->second.second, dShare);
}

QColor GKColormap::spectrumColor(double dFraction)
{
    constexpr double dBlueHue = 240.0 / 360.0;
    const double dClamped = std::isnan(dFraction) ? 0.0 : std::clamp(dFraction, 0.0, 1.0);
    return QColor::fromHsvF(static_cast<float>(dBlueHue * (1.0 - dClamped)), 1.0f, 1.0f).toRgb();
}
