#pragma once

#include "CrossPlotGeometry.h"

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QVector>

#include <span>
#include <vector>

class QPainter;

namespace gkBase {

class LabelPlacement;

/// Colours and widths of what a cross plot draws beside its points.
struct CrossPlotStyle
{
    QColor m_oBackground;
    QColor m_oLabel;
    QColor m_oLine;
    QColor m_oGrid;
    int m_iLineWidth = 2; ///< of the regression line, pixels
};

void drawCrossPlotGrid(QPainter& painter, std::span<const int> viVertical, std::span<const int> viHorizontal,
                       const QRectF& oPlot, const CrossPlotStyle& style);
void drawCrossPlotDomains(QPainter& painter, std::span<const CrossPlotDomain> vDomains);
/// Thin lines that lie under the data.
void drawCrossPlotBoundaries(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, const QRectF& oPlot,
                             const CrossPlotStyle& style);
/// Lines with a halo of the background, so that they stand out from points of any colour.
void drawCrossPlotDepthLines(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, const QRectF& oPlot,
                             const CrossPlotStyle& style);
void drawCrossPlotRegression(QPainter& painter, const QLineF& oLine, const CrossPlotStyle& style);
void drawCrossPlotRange(QPainter& painter, const CrossPlotRange& oRange, const CrossPlotMap& oMap, const QRectF& oPlot,
                        const CrossPlotStyle& style);

/// Everything below sticks to the visible part: painter and placement are in its co-ordinates, oVisible in chart
/// pixels. What is drawn first takes its place first.

/// The names of the lines at the right edge; of names that would cover each other the selected line's stays, otherwise
/// the upper one's.
void drawCrossPlotLabels(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, const QRect& oVisible,
                         LabelPlacement& placement, const CrossPlotStyle& style);
/// A framed text in the corner that lies farthest from the line.
void drawCrossPlotText(QPainter& painter, const QString& sText, const QLineF& oLine, const QRect& oVisible,
                       LabelPlacement& placement, const CrossPlotStyle& style);
/// What the lines of the range stand for, at their upper and right ends.
void drawCrossPlotRangeLabels(QPainter& painter, const CrossPlotRange& oRange, const CrossPlotMap& oMap,
                              const QRect& oVisible, LabelPlacement& placement, const CrossPlotStyle& style);
void drawCrossPlotMessage(QPainter& painter, const QString& sMessage, const QRect& oVisible,
                          const CrossPlotStyle& style);
void drawCrossPlotCursorLine(QPainter& painter, double dY, const QRect& oVisible, const CrossPlotStyle& style);
/// The outline of a selection while it is drawn, in widget pixels, with its text.
void drawCrossPlotLasso(QPainter& painter, const QVector<QPointF>& voOutline, const QString& sText,
                        const QRect& oVisible, const CrossPlotStyle& style);

} // namespace gkBase
