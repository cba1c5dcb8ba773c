#pragma once

#include "AxisTicks.h"

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

namespace gkBase {

/// The look of an axis, apart from its values.
struct AxisStyle
{
    /// The side of the chart on which the axis stands.
    enum class Side
    {
        Left,
        Right,
        Top,
        Bottom
    };

    Side m_side = Side::Bottom;
    bool m_bUprightLabels = false; ///< labels read upwards
    QString m_sTitle;              ///< as shown; empty for none
    QFont m_oFont;
    QColor m_oColor;

    bool isVertical() const { return m_side == Side::Left || m_side == Side::Right; }
    /// Labels run across the axis: their height, not their width, lies along it.
    bool labelsRunAcross() const { return isVertical() != m_bUprightLabels; }
};

/// Length of a label along the axis, for a painter or widget with the style's font.
LabelExtent labelExtent(const AxisStyle& oStyle);
/// Pixels that the labels of two ticks keep free between them, along the axis.
double labelGap(const AxisStyle& oStyle);
/// Pixels that should lie between two major ticks, so that a grid through them does not crowd the chart.
double tickSpacing(const AxisStyle& oStyle);
/// Pixels between the chart's side and the outer rim of the axis with these labels.
int axisThickness(const AxisTicks& oTicks, const AxisStyle& oStyle);

/// Draws the axis outside of the chart's visible area, with its line on the area's side. The scale belongs to the whole
/// chart picture, of which iOffset pixels lie before the area.
void drawAxis(QPainter& painter, const QRect& visibleArea, const AxisScale& oScale, const AxisTicks& oTicks,
              int iOffset, const AxisStyle& oStyle);

} // namespace gkBase
