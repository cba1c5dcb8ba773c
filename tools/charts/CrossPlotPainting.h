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
class SymbolSpriteCache;

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
void drawCrossPlotBoundaries(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, const QRectF& oPlot);
void drawCrossPlotRegression(QPainter& painter, const QLineF& oLine, const CrossPlotStyle& style);
void drawCrossPlotRange(QPainter& painter, const CrossPlotRange& oRange, const CrossPlotMap& oMap, const QRectF& oPlot,
                        const CrossPlotStyle& style);

/// Everything below sticks to the visible part: painter and placement are in its co-ordinates, oVisible in chart
/// pixels. What is drawn first takes its place first.

/// Lines with a halo of the background, so that they stand out from points of any colour. Their types are told apart by
/// dashes and width: crestal planes have long dashes, axial planes dashes and dots, inflection planes short dashes,
/// horizons are solid and faults solid and broad. Selected lines lie between edges of the label's colour, and the
/// hovered one (its number in the field, −1 for none) on a pale band.
void drawCrossPlotDepthLines(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, int iHovered,
                             const QRect& oVisible, const CrossPlotStyle& style);
/// The grips with the letters of their types: hollow ones, and filled ones of selected and hovered lines.
void drawCrossPlotHandles(QPainter& painter, std::span<const CrossPlotLineHandle> vHandles,
                          std::span<const CrossPlotDepthLine> vLines, int iHovered, LabelPlacement& placement,
                          const CrossPlotStyle& style);
/// Large tadpoles, open where they stand at the chart's side in place of one beyond it.
void drawCrossPlotOrientationMarks(QPainter& painter, std::span<const CrossPlotOrientationMark> vMarks,
                                   SymbolSpriteCache& sprites, LabelPlacement& placement, const CrossPlotStyle& style);
/// Their texts, where there is room.
void drawCrossPlotOrientationLabels(QPainter& painter, std::span<const CrossPlotOrientationMark> vMarks,
                                    LabelPlacement& placement, const CrossPlotStyle& style);
/// The names of the lines at the right edge; of names that would cover each other the hovered and the selected lines'
/// stay, otherwise the upper one's.
void drawCrossPlotLabels(QPainter& painter, std::span<const CrossPlotDepthLine> vLines, int iHovered,
                         const QRect& oVisible, LabelPlacement& placement, const CrossPlotStyle& style);
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
