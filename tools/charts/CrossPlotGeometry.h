#pragma once

#include "DepthLineField.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QLineF>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QString>

#include <span>
#include <vector>

namespace gkBase {

/// One direction of a cartesian chart: values to pixels from 0 to the last one. A direction without length, in values
/// or pixels, maps everything to 0.
struct GKBASETOOLS_EXPORT CrossPlotScale
{
    double m_dFirst = 0.0;     ///< the value at pixel 0
    double m_dLastPixel = 0.0; ///< 0 without length
    double m_dLength = 1.0;    ///< of the values, negative where they fall; never 0

    CrossPlotScale() = default;
    CrossPlotScale(double dFirst, double dLast, int iPixels);

    bool hasLength() const { return m_dLastPixel > 0.0; }
    /// NaN for a value that is not finite.
    double toPixel(double dValue) const { return (dValue - m_dFirst) * m_dLastPixel / m_dLength; }
    double toValue(double dPixel) const
    {
        return hasLength() ? m_dFirst + dPixel * m_dLength / m_dLastPixel : m_dFirst;
    }
    /// Values per pixel, not negative.
    double valuesPerPixel() const;
};

/// Chart units to pixels of the whole chart, which is all plotted area. A and B are the corners of the range; with
/// bUpwards A.y lies at the bottom, otherwise at the top.
struct GKBASETOOLS_EXPORT CrossPlotMap
{
    CrossPlotScale m_oX;
    CrossPlotScale m_oY;

    CrossPlotMap() = default;
    CrossPlotMap(const QPointF& oA, const QPointF& oB, bool bUpwards, const QSize& oChart);

    QPointF toPixel(const QPointF& oPoint) const { return {m_oX.toPixel(oPoint.x()), m_oY.toPixel(oPoint.y())}; }
    QPointF toData(const QPointF& oPixel) const { return {m_oX.toValue(oPixel.x()), m_oY.toValue(oPixel.y())}; }
    void toPixels(std::span<const double> vdX, std::span<const double> vdY, std::vector<QPointF>& voPixels) const;
};

/// The 5 and 95 per cent quantiles of x and y.
struct CrossPlotRange
{
    double m_dX5 = 0.0;
    double m_dX95 = 0.0;
    double m_dY5 = 0.0;
    double m_dY95 = 0.0;
};

/// The part of the line y = slope · x + intercept that crosses the area of the whole chart; a null line without one.
GKBASETOOLS_EXPORT QLineF crossPlotLine(const CrossPlotMap& oMap, double dSlope, double dIntercept);

/// A line of a DepthLineField across the chart.
struct CrossPlotDepthLine
{
    double m_dY = 0.0; ///< chart pixels
    QColor m_oColor;
    int m_iWidth = 1;
    bool m_bSelected = false;
    bool m_bDashed = false; ///< structural planes; horizons, faults and boundaries are solid
    bool m_bDotted = false; ///< average orientations
    QString m_sLabel;       ///< empty: none
};

/// A coloured band between two lines.
struct CrossPlotDomain
{
    QRectF m_oRect;  ///< chart pixels, as wide as the chart
    QColor m_oColor; ///< with its transparency
};

/// The lines that the field's flags show, from the top of the chart downwards. Those outside the chart are left out,
/// and of unselected ones without a label on one pixel row all but one.
GKBASETOOLS_EXPORT std::vector<CrossPlotDepthLine> crossPlotDepthLines(const DepthLineField& oField,
                                                                       const CrossPlotMap& oMap, const QSize& oChart);
/// Bands between neighbouring lines of the field's domain type, in the colour of the shallower line.
GKBASETOOLS_EXPORT std::vector<CrossPlotDomain> crossPlotDomains(const DepthLineField& oField, const CrossPlotMap& oMap,
                                                                 const QSize& oChart);

} // namespace gkBase
