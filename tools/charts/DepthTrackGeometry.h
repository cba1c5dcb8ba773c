#pragma once

#include "DepthTrack.h"
#include "MissingValue.h"
#include "ScaleMap.h"
#include "gkBaseToolsExport.h"

#include <QLineF>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QSize>

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

class QRelationshipItemModel;

/// Values and depths to pixels of a track whose whole picture is the plotting area.
struct DepthTrackMap
{
    ScaleMap m_oX;
    ScaleMap m_oY;

    QPointF toPixel(double dValue, double dDepth) const { return {m_oX.toPixel(dValue), m_oY.toPixel(dDepth)}; }
};

/// The left limit lies on the first column of pixels, dFrom on the first row.
GKBASETOOLS_EXPORT DepthTrackMap depthTrackMap(const DepthTrackLimits& limits, double dFrom, double dTo,
                                               const QSize& oChart);

/// A stretch of a curve in pixels, with the rows that it covers.
struct DepthTrackPiece
{
    QPolygonF m_oLine;
    double m_dTop = 0.0;
    double m_dBottom = 0.0;
};

/// The line through the samples that thinSeries() left over, broken where it says so, in stretches of a few hundred
/// points that meet in a common point, so that a painter can skip those it does not see. A sample alone between two
/// gaps is a line of no length. Points very far outside the picture are drawn near, where they look the same.
GKBASETOOLS_EXPORT std::vector<DepthTrackPiece> depthTrackPieces(std::span<const std::size_t> viSamples,
                                                                 std::span<const double> vdValues,
                                                                 std::span<const double> vdDepths,
                                                                 const DepthTrackMap& map);

/// The line through the records of a model that take part, in their order, as a picture of iRows rows shows it. It is
/// broken where a value is missing; records that do not take part leave no gap. Of directions dFullTurn is a whole turn
/// in the attribute's unit: where neighbours differ by more than half of it the way between them leads round the other
/// side, and the line is broken. 99999.0: the values are no directions.
GKBASETOOLS_EXPORT std::vector<DepthTrackPiece> depthTrackLine(const QRelationshipItemModel& model,
                                                               const DepthTrackMap& map, int iRows,
                                                               double dFullTurn = g_dMissingValue);

/// One decimated value between two depths; an empty bin has the value 99999.0. Tadpoles have an azimuth as well.
struct DepthBin
{
    double m_dFrom = 0.0;
    double m_dTo = 0.0;
    double m_dValue = g_dMissingValue;
    double m_dAzimuth = g_dMissingValue;

    bool operator==(const DepthBin&) const = default;
};

/// The last decimation of a model: the averages of its bins, or the values of the records nearest to their centres.
/// Empty without one.
GKBASETOOLS_EXPORT std::vector<DepthBin> decimatedBins(const QRelationshipItemModel& model, bool bBinAverage);

/// The bar of a bin from the left edge of the track to its value, and the line at the value.
struct DepthBinBar
{
    QRectF m_oBar;
    QLineF m_oEdge;
    int m_iBin = -1;
};

/// Bars of the bins that hold a value, in their order. Values outside the limits end at the track's edge.
GKBASETOOLS_EXPORT std::vector<DepthBinBar> depthBinBars(std::span<const DepthBin> vBins, const DepthTrackMap& map);

/// Where the label of a horizontal line stands: the top of a box of the common height.
struct DepthLineLabel
{
    std::size_t m_iLine = 0;
    double m_dLineY = 0.0;
    double m_dTop = 0.0;
};

/// Labels of height dHeight for lines at vdY (rising, in pixels of the visible area of height dLength), each as near
/// to its line as it can stand without touching another or leaving the area. When there is no room for all, those go
/// that lie closest below the line before them. Linear but for choosing these.
GKBASETOOLS_EXPORT std::vector<DepthLineLabel> placeDepthLabels(std::span<const double> vdY, double dHeight,
                                                                double dLength);

} // namespace gkBase
