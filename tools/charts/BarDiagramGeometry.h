#pragma once

#include "BarDiagramClasses.h"
#include "HistogramGeometry.h"
#include "gkBaseToolsExport.h"

#include <QFontMetricsF>
#include <QString>

#include <span>
#include <vector>

namespace gkBase {

/// The part of a bar chart that is seen along its bars: bar i covers i … i + 1.
struct BarWindow
{
    double m_dFirst = 0.0;
    double m_dCount = 1.0; ///< bars in the width of the chart

    bool operator==(const BarWindow&) const = default;
};

/// A class's name as written below its bar.
struct BarLabel
{
    int m_iBar = -1;
    double m_dCentre = 0.0; ///< along the axis, in chart pixels
    QString m_sText;        ///< elided to its room
};

/// The names that are seen, left to right, none upon another.
struct BarLabels
{
    std::vector<BarLabel> m_vLabels;
    bool m_bUpright = false; ///< reading upwards
    double m_dDepth = 0.0;   ///< room that the names of all bars need below the axis, seen or not
};

/// All bars in the width, but none narrower than dSmallestPitch pixels (gaps included) at zoom 1; the rest is scrolled
/// to. A first bar out of range is moved inside. Without bars: one empty place.
GKBASETOOLS_EXPORT BarWindow barWindow(int iBars, int iWidth, double dSmallestPitch, double dZoom, double dFirst);

/// Bars of the heights that the map shows, with gaps between them where there is room, at least a pixel wide. Where
/// several share a pixel the tallest is kept, so that there are never more bars than pixels. No bar for a height that
/// is not above 0.
GKBASETOOLS_EXPORT std::vector<HistogramBar> diagramBars(std::span<const double> vdHeights, const HistogramMap& map);

/// The bar at a chart pixel, −1 where there is none. Very low bars are found a few pixels above them as well.
GKBASETOOLS_EXPORT int diagramBarAt(const std::vector<HistogramBar>& vBars, const QPointF& oPixel);

/// Pixels of the widest name. Looks at the names with the most characters only.
GKBASETOOLS_EXPORT double widestName(const std::vector<BarClass>& vBars, const QFontMetricsF& metrics);

/// Names along an axis of iWidth pixels that shows the window: side by side where they fit, else upwards and not deeper
/// than dMostDepth; where even lines of text do not fit beside each other, every n-th. dWidest is widestName().
GKBASETOOLS_EXPORT BarLabels barLabels(const std::vector<BarClass>& vBars, const BarWindow& window, int iWidth,
                                       const QFontMetricsF& metrics, double dWidest, double dMostDepth);

} // namespace gkBase
