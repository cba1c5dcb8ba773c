#include "AxisPainter.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr int g_iMajorTick = 6;
constexpr int g_iMinorTick = 3;
constexpr int g_iLabelDistance = 3; ///< between tick and label
constexpr int g_iTitleDistance = 4; ///< between label and title
constexpr int g_iRim = 2;           ///< outside of the outermost text

/// Frame of reference of the drawing: a runs along the axis from the area's left or top end, d is the distance from
/// the area's side outwards. Everything below is written once for the four sides.
class AxisFrame
{
public:
    AxisFrame(const QRect& visibleArea, AxisStyle::Side side)
        : m_oArea(visibleArea)
        , m_side(side)
    {
    }

    int length() const { return isVertical() ? m_oArea.height() : m_oArea.width(); }

    QLineF line(double dAlong0, double dAway0, double dAlong1, double dAway1) const
    {
        return {point(dAlong0, dAway0), point(dAlong1, dAway1)};
    }
    /// The rectangle of dLength along and dDepth away from the axis that starts at (dAlong, dAway).
    QRectF box(double dAlong, double dAway, double dLength, double dDepth) const
    {
        return QRectF(point(dAlong, dAway), point(dAlong + dLength, dAway + dDepth)).normalized();
    }

private:
    bool isVertical() const { return m_side == AxisStyle::Side::Left || m_side == AxisStyle::Side::Right; }
    /// The first pixel outside of the area has the distance 0.
    QPointF point(double dAlong, double dAway) const
    {
        switch (m_side) {
        case AxisStyle::Side::Left:
            return {m_oArea.left() - 1 - dAway, m_oArea.top() + dAlong};
        case AxisStyle::Side::Right:
            return {m_oArea.left() + m_oArea.width() + dAway, m_oArea.top() + dAlong};
        case AxisStyle::Side::Top:
            return {m_oArea.left() + dAlong, m_oArea.top() - 1 - dAway};
        case AxisStyle::Side::Bottom:
            break;
        }
        return {m_oArea.left() + dAlong, m_oArea.top() + m_oArea.height() + dAway};
    }

    QRect m_oArea;
    AxisStyle::Side m_side;
};

class PainterGuard
{
public:
    explicit PainterGuard(QPainter& painter)
        : m_painter(painter)
    {
        m_painter.save();
    }
    ~PainterGuard() { m_painter.restore(); }
    Q_DISABLE_COPY_MOVE(PainterGuard)

private:
    QPainter& m_painter;
};

/// Depth of the band of labels: the longest label where they run across the axis, else a line of text.
double labelDepth(const AxisTicks& oTicks, const AxisStyle& oStyle)
{
    const QFontMetricsF metrics(oStyle.m_oFont);
    if (!oStyle.labelsRunAcross())
        return metrics.height();
    double dLongest = 0.0;
    for (const QString& sLabel : oTicks.m_lLabels)
        dLongest = std::max(dLongest, metrics.horizontalAdvance(sLabel));
    return dLongest;
}

/// Text in a box, turned to read upwards where asked for; rotation about the box's centre.
void drawText(QPainter& painter, const QRectF& box, const QString& sText, bool bUpright, int iAlignment)
{
    const int iFlags = iAlignment | Qt::TextSingleLine | Qt::TextDontClip;
    if (!bUpright) {
        painter.drawText(box, iFlags, sText);
        return;
    }
    const PainterGuard guard(painter);
    painter.translate(box.center());
    painter.rotate(-90.0);
    painter.drawText(QRectF(-box.height() / 2, -box.width() / 2, box.height(), box.width()), iFlags, sText);
}

void drawTicks(QPainter& painter, const AxisFrame& frame, const AxisScale& oScale, const QList<double>& vValues,
               int iOffset, int iTickLength)
{
    QList<QLineF> vLines;
    for (const double dValue : vValues) {
        const int iAlong = oScale.toPixelIndex(dValue) - iOffset;
        if (iAlong >= 0 && iAlong < frame.length())
            vLines.append(frame.line(iAlong, 0, iAlong, iTickLength));
    }
    painter.drawLines(vLines);
}

/// Labels stand close to their ticks: flush with the side of the band that faces the axis, or the outer side where the
/// label is turned upwards on a horizontal axis.
int labelAlignment(const AxisStyle& oStyle)
{
    if (!oStyle.labelsRunAcross())
        return Qt::AlignCenter;
    const bool bEnd = oStyle.m_side == AxisStyle::Side::Left || oStyle.m_side == AxisStyle::Side::Bottom;
    return (bEnd ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

void drawLabels(QPainter& painter, const AxisFrame& frame, const AxisScale& oScale, const AxisTicks& oTicks,
                int iOffset, const AxisStyle& oStyle, double dDepth)
{
    const QList<AxisLabelPlace> vPlaces = placeLabels(oScale, oTicks, labelExtent(oStyle), iOffset, frame.length());
    for (const AxisLabelPlace& oPlace : vPlaces) {
        const QRectF box = frame.box(oPlace.m_dStart, g_iMajorTick + g_iLabelDistance, oPlace.m_dLength, dDepth);
        drawText(painter, box, oTicks.m_lLabels[oPlace.m_iTick], oStyle.m_bUprightLabels, labelAlignment(oStyle));
    }
}

void drawTitle(QPainter& painter, const AxisFrame& frame, const AxisStyle& oStyle, double dLabelDepth)
{
    const QFontMetricsF metrics(oStyle.m_oFont);
    const QString sTitle = metrics.elidedText(oStyle.m_sTitle, Qt::ElideRight, frame.length());
    const double dAway = g_iMajorTick + g_iLabelDistance + dLabelDepth + g_iTitleDistance;
    drawText(painter, frame.box(0, dAway, frame.length(), metrics.height()), sTitle, oStyle.isVertical(),
             Qt::AlignCenter);
}

} // namespace

LabelExtent labelExtent(const AxisStyle& oStyle)
{
    const QFontMetricsF metrics(oStyle.m_oFont);
    if (oStyle.labelsRunAcross())
        return [dHeight = metrics.height()](const QString&) { return dHeight; };
    return [metrics](const QString& sLabel) { return metrics.horizontalAdvance(sLabel); };
}

double labelGap(const AxisStyle& oStyle)
{
    const QFontMetricsF metrics(oStyle.m_oFont);
    return oStyle.labelsRunAcross() ? metrics.height() / 2 : 2 * metrics.averageCharWidth();
}

double tickSpacing(const AxisStyle& oStyle)
{
    return 1.75 * QFontMetricsF(oStyle.m_oFont).height();
}

int axisThickness(const AxisTicks& oTicks, const AxisStyle& oStyle)
{
    double dThickness = g_iMajorTick + g_iLabelDistance + labelDepth(oTicks, oStyle) + g_iRim;
    if (!oStyle.m_sTitle.isEmpty())
        dThickness += g_iTitleDistance + QFontMetricsF(oStyle.m_oFont).height();
    return static_cast<int>(std::ceil(dThickness));
}

void drawAxis(QPainter& painter, const QRect& visibleArea, const AxisScale& oScale, const AxisTicks& oTicks,
              int iOffset, const AxisStyle& oStyle)
{
    if (visibleArea.width() < 0 || visibleArea.height() < 0)
        return;
    const AxisFrame frame(visibleArea, oStyle.m_side);
    if (frame.length() == 0)
        return;

    const PainterGuard guard(painter);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setFont(oStyle.m_oFont);
    painter.setPen(QPen(oStyle.m_oColor, 1));
    painter.drawLine(frame.line(0, 0, frame.length() - 1, 0));
    drawTicks(painter, frame, oScale, oTicks.m_vMajor, iOffset, g_iMajorTick);
    drawTicks(painter, frame, oScale, oTicks.m_vMinor, iOffset, g_iMinorTick);

    const double dDepth = labelDepth(oTicks, oStyle);
    drawLabels(painter, frame, oScale, oTicks, iOffset, oStyle, dDepth);
    if (!oStyle.m_sTitle.isEmpty())
        drawTitle(painter, frame, oStyle, dDepth);
}

} // namespace gkBase
