#include "DepthTrackGeometry.h"

#include "MatrixDataArray.h"
#include "QRelationshipItemModel.h"
#include "SeriesThinning.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace gkBase {

namespace {

/// Points of one stretch of a curve.
constexpr qsizetype g_iPiecePoints = 256;
/// Painters count pixels in 16 bits and a fraction; a line that leaves a track by this much is horizontal anyway.
constexpr double g_dFarOff = 25000.0;

class PieceBuilder
{
public:
    void add(const QPointF& oPoint)
    {
        m_oLine.append(oPoint);
        if (m_oLine.size() == g_iPiecePoints) {
            close();
            m_oLine.append(oPoint);
            m_bContinued = true;
        }
    }
    void close()
    {
        if (m_oLine.size() == 1 && !m_bContinued)
            m_oLine.append(m_oLine.first());
        if (m_oLine.size() > 1) {
            const auto byRow = [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); };
            const auto [top, bottom] = std::minmax_element(m_oLine.cbegin(), m_oLine.cend(), byRow);
            const double dTop = top->y();
            const double dBottom = bottom->y();
            m_vPieces.push_back({std::move(m_oLine), dTop, dBottom});
        }
        m_oLine = QPolygonF();
        m_bContinued = false;
    }
    std::vector<DepthTrackPiece> take()
    {
        close();
        return std::move(m_vPieces);
    }

private:
    std::vector<DepthTrackPiece> m_vPieces;
    QPolygonF m_oLine;
    bool m_bContinued = false; ///< the line begins with the last point of the stretch before
};

/// The values that lie at most so far outside of the picture.
std::pair<double, double> drawableValues(const ScaleMap& map)
{
    const double dFar = g_dFarOff / std::max(std::abs(map.pixelsPerUnit()), std::numeric_limits<double>::min());
    return {std::min(map.data0(), map.data1()) - dFar, std::max(map.data0(), map.data1()) + dFar};
}

bool goesRoundTheOtherSide(double dFrom, double dTo, double dFullTurn)
{
    return !isMissing(dFullTurn) && std::abs(dTo - dFrom) > dFullTurn / 2.0; // never for a missing value
}

/// The records that take part, in their order, with an empty sample wherever the line is broken.
struct LineSamples
{
    LineSamples(const QRelationshipItemModel& model, double dFullTurn)
    {
        std::vector<unsigned char> vbTakesPart(model.x().size(), 0);
        for (int i = 0; i < model.numberOfTableRows(); ++i) {
            if (const int iRecord = model.tableRow(i); iRecord >= 0)
                vbTakesPart[static_cast<std::size_t>(iRecord)] = 1;
        }
        m_vdX.reserve(vbTakesPart.size());
        m_vdY.reserve(vbTakesPart.size());
        for (std::size_t i = 0; i < vbTakesPart.size(); ++i) {
            if (vbTakesPart[i] == 0)
                continue;
            if (!m_vdX.empty() && goesRoundTheOtherSide(m_vdX.back(), model.x()[i], dFullTurn))
                add(g_dEmptyCell, g_dEmptyCell);
            add(model.x()[i], model.y()[i]);
        }
    }
    void add(double dX, double dY)
    {
        m_vdX.push_back(dX);
        m_vdY.push_back(dY);
    }

    std::vector<double> m_vdX;
    std::vector<double> m_vdY;
};

/// The lines that keep their labels: all, or as many as fit, without those that lie closest below another.
std::vector<std::size_t> labelledLines(std::span<const double> vdY, std::size_t iRoom)
{
    std::vector<std::size_t> viLines(vdY.size());
    std::iota(viLines.begin(), viLines.end(), std::size_t{0});
    if (viLines.size() <= iRoom)
        return viLines;
    const auto gapAbove = [vdY](std::size_t i) {
        return i == 0 ? std::numeric_limits<double>::infinity() : vdY[i] - vdY[i - 1];
    };
    const auto iKept = static_cast<std::ptrdiff_t>(iRoom);
    std::nth_element(viLines.begin(), viLines.begin() + iKept, viLines.end(), [&](std::size_t i, std::size_t j) {
        return gapAbove(i) != gapAbove(j) ? gapAbove(i) > gapAbove(j) : i < j;
    });
    viLines.resize(iRoom);
    std::sort(viLines.begin(), viLines.end());
    return viLines;
}

/// Labels that touch each other: they stand together where their mean distance from their lines is least.
struct LabelGroup
{
    double m_dOffset = 0.0; ///< top of the first label
    std::size_t m_iCount = 0;
};

} // namespace

DepthTrackMap depthTrackMap(const DepthTrackLimits& limits, double dFrom, double dTo, const QSize& oChart)
{
    return {ScaleMap(limits.m_dLeft, limits.m_dRight, 0.0, oChart.width() - 1.0),
            ScaleMap(dFrom, dTo, 0.0, oChart.height() - 1.0)};
}

std::vector<DepthTrackPiece> depthTrackPieces(std::span<const std::size_t> viSamples, std::span<const double> vdValues,
                                              std::span<const double> vdDepths, const DepthTrackMap& map)
{
    const std::pair<double, double> values = drawableValues(map.m_oX);
    const std::pair<double, double> depths = drawableValues(map.m_oY);
    PieceBuilder builder;
    for (const std::size_t i : viSamples) {
        if (i == g_iSeriesGap) {
            builder.close();
            continue;
        }
        const QPointF oPoint = map.toPixel(std::clamp(vdValues[i], values.first, values.second),
                                           std::clamp(vdDepths[i], depths.first, depths.second));
        builder.add(oPoint);
    }
    return builder.take();
}

std::vector<DepthTrackPiece> depthTrackLine(const QRelationshipItemModel& model, const DepthTrackMap& map, int iRows,
                                            double dFullTurn)
{
    const auto pieces = [&](std::span<const double> vdX, std::span<const double> vdY) {
        return depthTrackPieces(thinSeries(vdY, vdX, map.m_oY.data0(), map.m_oY.data1(), iRows), vdX, vdY, map);
    };
    if (isMissing(dFullTurn) && model.numberOfTableRows() == model.numberOfPoints())
        return pieces(model.x(), model.y());
    const LineSamples samples(model, dFullTurn);
    return pieces(samples.m_vdX, samples.m_vdY);
}

std::vector<DepthBin> decimatedBins(const QRelationshipItemModel& model, bool bBinAverage)
{
    const MatrixDataArray* poData = model.decimationData();
    const std::vector<double>& vdBounds = model.decimationBoundaries();
    std::vector<DepthBin> vBins;
    for (int i = 0; poData && i < poData->arrayRows(); ++i) {
        const auto n = static_cast<std::size_t>(i);
        DepthBin bin{vdBounds[n], vdBounds[n + 1], g_dMissingValue, g_dMissingValue};
        const int iRecord = model.decimationTableRows()[n];
        if (bBinAverage) {
            bin.m_dValue = poData->cell(i, 1);
            bin.m_dAzimuth = poData->cell(i, 2); // of orientations only, else missing
        } else if (iRecord >= 0) {
            bin.m_dValue = model.x()[static_cast<std::size_t>(iRecord)];
            bin.m_dAzimuth = model.azimuthTadPole(iRecord);
        }
        vBins.push_back(bin);
    }
    return vBins;
}

std::vector<DepthBinBar> depthBinBars(std::span<const DepthBin> vBins, const DepthTrackMap& map)
{
    std::vector<DepthBinBar> vBars;
    vBars.reserve(vBins.size());
    for (std::size_t i = 0; i < vBins.size(); ++i) {
        if (isMissing(vBins[i].m_dValue))
            continue;
        const double dX = std::clamp(map.m_oX.toPixel(vBins[i].m_dValue), 0.0, std::max(0.0, map.m_oX.pixel1()));
        const double dTop = map.m_oY.toPixel(vBins[i].m_dFrom);
        const double dBottom = map.m_oY.toPixel(vBins[i].m_dTo);
        vBars.push_back({QRectF(QPointF(0.0, dTop), QPointF(dX, dBottom)).normalized(), QLineF(dX, dTop, dX, dBottom),
                         static_cast<int>(i)});
    }
    return vBars;
}

std::vector<DepthLineLabel> placeDepthLabels(std::span<const double> vdY, double dHeight, double dLength)
{
    if (!(dHeight > 0.0) || !(dLength >= dHeight))
        return {};
    const std::vector<std::size_t> viLines = labelledLines(vdY, static_cast<std::size_t>(dLength / dHeight));
    // Labels as high as wanted, one under the other: with the heights above taken off, their places must not fall,
    // which is the monotone regression of the wanted places (Barlow, Bartholomew, Bremner, Brunk 1972).
    std::vector<LabelGroup> vGroups;
    double dAbove = 0.0;
    for (const std::size_t iLine : viLines) {
        LabelGroup group{vdY[iLine] - dHeight / 2.0 - dAbove, 1};
        while (!vGroups.empty() && vGroups.back().m_dOffset > group.m_dOffset) {
            const LabelGroup& upper = vGroups.back();
            const auto dCount = static_cast<double>(upper.m_iCount + group.m_iCount);
            group.m_dOffset = (upper.m_dOffset * static_cast<double>(upper.m_iCount) +
                               group.m_dOffset * static_cast<double>(group.m_iCount)) /
                              dCount;
            group.m_iCount += upper.m_iCount;
            vGroups.pop_back();
        }
        vGroups.push_back(group);
        dAbove += dHeight;
    }
    std::vector<DepthLineLabel> vLabels;
    vLabels.reserve(viLines.size());
    const double dLast = dLength - dAbove; // where the first label stands when the last one touches the end
    for (const LabelGroup& group : vGroups) {
        for (std::size_t i = 0; i < group.m_iCount; ++i) {
            const std::size_t iLabel = vLabels.size();
            vLabels.push_back({viLines[iLabel], vdY[viLines[iLabel]],
                               std::clamp(group.m_dOffset, 0.0, dLast) + static_cast<double>(iLabel) * dHeight});
        }
    }
    return vLabels;
}

} // namespace gkBase
