#pragma once

#include "ScaleMap.h"
#include "gkBaseQtExport.h"

#include <qnamespace.h>

namespace gkBase {

/// Where the values of an axis lie on its chart picture: the whole picture of n pixels is the plotting area, the range
/// runs from the centre of its first pixel (0) to that of its last one (n − 1). Values rise to the right, and upwards
/// on a vertical axis; an inverted axis turns that round (depth grows downwards).
class GKBASEQT_EXPORT AxisScale
{
public:
    AxisScale() = default;
    /// dMin and dMax may come in either order. iChartLength is the length of the chart picture along the axis.
    AxisScale(double dMin, double dMax, int iChartLength, Qt::Orientation orientation, bool bInverted = false);

    /// False for a range without width or with bounds that are not finite, and for a chart shorter than two pixels.
    bool isValid() const { return m_oMap.isValid(); }
    double minValue() const { return m_dMin; }
    double maxValue() const { return m_dMax; }
    int chartLength() const { return m_iChartLength; }
    const ScaleMap& map() const { return m_oMap; }

    double toPixel(double dValue) const { return m_oMap.toPixel(dValue); }
    double toData(double dPixel) const { return m_oMap.toData(dPixel); }
    /// The pixel of the chart picture that holds the value: truncated like every chart co-ordinate, but a position that
    /// lies a rounding error below a whole pixel belongs to that pixel.
    int toPixelIndex(double dValue) const;

private:
    double m_dMin = 0.0;
    double m_dMax = 0.0;
    int m_iChartLength = 0;
    ScaleMap m_oMap;
};

} // namespace gkBase
