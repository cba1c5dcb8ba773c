#pragma once

#include "DepthLineField.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QLineF>
#include <QList>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QString>

#include <cstddef>
#include <functional>
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
    int m_iLine = -1; ///< its number in the field
    DepthLineField::DataType m_eType = DepthLineField::IntervalBoundary;
    double m_dY = 0.0;                     ///< chart pixels
    QPointF m_oOrientation = {-1.0, -1.0}; ///< dip and azimuth
    QColor m_oColor;
    int m_iWidth = 1;
    bool m_bSelected = false;
    QString m_sLabel; ///< empty: none
};

/// The grip of a line, at the left of what is visible. Grips of lines that are near each other step to the right.
struct CrossPlotLineHandle
{
    static constexpr double s_dSize = 11.0; ///< pixels

    std::size_t m_iShape = 0; ///< of the lines that it was laid out for
    QRectF m_oRect;           ///< pixels of the visible part
};

/// The orientation of a line as a large tadpole on it.
struct CrossPlotOrientationMark
{
    static constexpr int s_iRadius = 6; ///< of the head, pixels

    QPointF m_oCentre; ///< pixels of the visible part
    double m_dAzimuth = 0.0;
    bool m_bBeyond = false;   ///< its place lies beyond the chart's side, where it stands now
    bool m_bSelected = false; ///< its line is
    QColor m_oColor;
    QString m_sLabel; ///< empty: none
};

/// A coloured band between two lines.
struct CrossPlotDomain
{
    QRectF m_oRect;  ///< chart pixels, as wide as the chart
    QColor m_oColor; ///< with its transparency

    bool operator==(const CrossPlotDomain&) const = default;
};

/// The lines that the field's flags show, from the top of the chart downwards; those outside the chart are left out,
/// and of interval boundaries on one pixel row all but one.
GKBASETOOLS_EXPORT std::vector<CrossPlotDepthLine> crossPlotDepthLines(const DepthLineField& oField,
                                                                       const CrossPlotMap& oMap, const QSize& oChart);
/// The line that a press at a depth picks: of the shown ones within the tolerance the nearest, of equally near ones the
/// last inserted, which is drawn on top. −1 for none.
GKBASETOOLS_EXPORT int nearestShownLine(const DepthLineField& oField, double dDepth, double dTolerance);
/// Planes are told apart by one letter (C, A, I), as are horizons (H) and faults (F).
GKBASETOOLS_EXPORT QString lineTypeLetter(DepthLineField::DataType eType);
/// The grips of the lines that are in sight, in the order of drawing: those of selected lines lie on top. As long as
/// there is room to the right, none covers another or a mark; where there is none they overlap as little as can be.
GKBASETOOLS_EXPORT std::vector<CrossPlotLineHandle>
crossPlotLineHandles(std::span<const CrossPlotDepthLine> vLines, std::span<const CrossPlotOrientationMark> vMarks,
                     const QRect& oVisible);
/// The shape whose grip lies at the position (pixels of the visible part), of several the uppermost; −1 for none.
GKBASETOOLS_EXPORT int lineHandleAt(std::span<const CrossPlotLineHandle> vHandles, const QPointF& oPosition);
/// The marks of the lines that are in sight and have an orientation, when the field shows them. position gives their x
/// in chart units, NaN for none; an empty function gives no marks.
GKBASETOOLS_EXPORT std::vector<CrossPlotOrientationMark>
crossPlotOrientationMarks(const DepthLineField& oField, std::span<const CrossPlotDepthLine> vLines,
                          const std::function<double(const QPointF& oDipAndAzimuth)>& position,
                          const CrossPlotScale& oX, const QRect& oVisible);
/// "30/090"; empty for an orientation that is not set.
GKBASETOOLS_EXPORT QString lineOrientationText(const QPointF& oDipAndAzimuth);
/// Bands between neighbouring lines of the field's domain type, in the colour of the shallower line.
GKBASETOOLS_EXPORT std::vector<CrossPlotDomain> crossPlotDomains(const DepthLineField& oField, const CrossPlotMap& oMap,
                                                                 const QSize& oChart);

} // namespace gkBase
