#include "ReadableColor.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Lines and points stand out from the background from this ratio of luminances on (WCAG 2.1, success
/// criterion 1.4.11).
constexpr double g_dReadableContrast = 3.0;

double linearChannel(double dChannel)
{
    return dChannel <= 0.04045 ? dChannel / 12.92 : std::pow((dChannel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& oColor)
{
    return 0.2126 * linearChannel(oColor.redF()) + 0.7152 * linearChannel(oColor.greenF()) +
           0.0722 * linearChannel(oColor.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double dA = luminance(a) + 0.05;
    const double dB = luminance(b) + 0.05;
    return std::max(dA, dB) / std::min(dA, dB);
}

QColor mixed(const QColor& a, const QColor& b, double dShareOfB)
{
    const auto mix = [dShareOfB](int iA, int iB) { return qRound(iA + (iB - iA) * dShareOfB); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()), a.alpha()};
}

} // namespace

QColor readableColor(const QColor& oColor, const QColor& oBackground, const QColor& oLabel)
{
    constexpr int iSteps = 10;
    for (int i = 0; i < iSteps; ++i) {
        const QColor oMixed = mixed(oColor, oLabel, static_cast<double>(i) / iSteps);
        if (contrast(oMixed, oBackground) >= g_dReadableContrast) {
            return oMixed;
        }
    }
    return oLabel;
}

} // namespace gkBase
