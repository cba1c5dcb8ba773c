#pragma once

#include <cmath>

namespace gkBase {

/// Linear map of a data interval onto a pixel interval and back. Either interval may run downwards, so that an axis
/// with rising values upwards is a map whose first pixel is the larger one. A value type without any state besides
/// its four numbers.
class ScaleMap
{
public:
    ScaleMap() = default;
    /// dData0 lands on dPixel0 and dData1 on dPixel1.
    ScaleMap(double dData0, double dData1, double dPixel0, double dPixel1)
        : m_dData0(dData0)
        , m_dData1(dData1)
        , m_dPixel0(dPixel0)
        , m_dPixel1(dPixel1)
    {
    }

    /// False when one of the intervals has no width or a bound is not finite; both directions then give the middle of
    /// their target interval.
    bool isValid() const { return spans(m_dData0, m_dData1) && spans(m_dPixel0, m_dPixel1); }

    /// NaN stays NaN; values outside the interval continue the line.
    double toPixel(double dData) const
    {
        return isValid() ? mapped(dData, m_dData0, m_dData1, m_dPixel0, m_dPixel1) : (m_dPixel0 + m_dPixel1) / 2;
    }
    double toData(double dPixel) const
    {
        return isValid() ? mapped(dPixel, m_dPixel0, m_dPixel1, m_dData0, m_dData1) : m_dData0 / 2 + m_dData1 / 2;
    }
    /// Pixels per data unit, signed; 0 for an invalid map.
    double pixelsPerUnit() const { return isValid() ? (m_dPixel1 - m_dPixel0) / (m_dData1 - m_dData0) : 0.0; }

    double data0() const { return m_dData0; }
    double data1() const { return m_dData1; }
    double pixel0() const { return m_dPixel0; }
    double pixel1() const { return m_dPixel1; }

private:
    static bool spans(double dFrom, double dTo) { return std::isfinite(dTo - dFrom) && dTo != dFrom; }
    /// The weighted mean of both ends is exact at both, which an offset plus a factor is not.
    static double mapped(double dValue, double dFrom0, double dFrom1, double dTo0, double dTo1)
    {
        const double dFraction = (dValue - dFrom0) / (dFrom1 - dFrom0);
        return dTo0 * (1.0 - dFraction) + dTo1 * dFraction;
    }

    double m_dData0 = 0.0;
    double m_dData1 = 0.0;
    double m_dPixel0 = 0.0;
    double m_dPixel1 = 0.0;
};

} // namespace gkBase
