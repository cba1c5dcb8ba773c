#include "NetPaths.h"

#include "Angles.h"
#include "MissingValue.h"
#include "NetLines.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace gkBase {

namespace {

QPointF pixel(const NetFrame& oFrame, NetPoint oPoint)
{
    const NetPoint oPixel = oFrame.toPixel(oPoint);
    return {oPixel.m_dX, oPixel.m_dY};
}

double lengthOf(NetPoint oPoint)
{
    return std::hypot(oPoint.m_dX, oPoint.m_dY);
}

/// Where a line from a to b crosses the circle, as fractions of the line; rising, only those strictly between.
std::vector<double> crossings(NetPoint a, NetPoint b, double dRadius)
{
    std::vector<double> vdFractions;
    double dEnter = 0.0;
    double dLeave = 0.0;
    if (circleCrossings(a, b, dRadius, dEnter, dLeave)) {
        for (const double dFraction : {dEnter, dLeave}) {
            if (dFraction > 0.0 && dFraction < 1.0) {
                vdFractions.push_back(dFraction);
            }
        }
    }
    return vdFractions;
}

void addCircle(QPainterPath& oPath, const NetFrame& oFrame, double dPixels)
{
    oPath.addEllipse(QPointF(oFrame.m_dCentreX, oFrame.m_dCentreY), dPixels, dPixels);
}

/// From one distance from the centre to another, in pixels.
void addRadialLine(QPainterPath& oPath, const NetFrame& oFrame, double dAzimuth, double dFrom, double dTo)
{
    const SineCosine oAzimuth = sineCosine(dAzimuth);
    const auto at = [&](double dDistance) {
        return QPointF(oFrame.m_dCentreX + dDistance * oAzimuth.m_dSine,
                       oFrame.m_dCentreY - dDistance * oAzimuth.m_dCosine);
    };
    oPath.moveTo(at(dFrom));
    oPath.lineTo(at(dTo));
}

} // namespace

double curveStep(const NetFrame& oFrame)
{
    constexpr double dSagitta = 0.25; // pixels
    return std::min(g_dCurveStep, degrees(std::sqrt(8.0 * dSagitta / std::max(oFrame.m_dRadius, 1.0))));
}

void addToPath(QPainterPath& oPath, const NetFrame& oFrame, std::span<const NetPolyline> vLines)
{
    for (const NetPolyline& line : vLines) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            i == 0 ? oPath.moveTo(pixel(oFrame, line[i])) : oPath.lineTo(pixel(oFrame, line[i]));
        }
    }
}

QPainterPath greatCirclePath(const NetProjection& oProjection, const NetFrame& oFrame, double dDip, double dDipAzimuth)
{
    QPainterPath oPath;
    if (std::abs(dDip) < g_dPlaneTolerance && !isMissing(dDipAzimuth) && oProjection.layout() != NetLayout::Tangent) {
        addCircle(oPath, oFrame, std::max(oFrame.m_dRadius - 1.0, 0.0)); // the frame of the net would cover it
        return oPath;
    }
    addToPath(oPath, oFrame, greatCircle(oProjection, dDip, dDipAzimuth, curveStep(oFrame)));
    return oPath;
}

QPainterPath smallCirclePath(const NetProjection& oProjection, const NetFrame& oFrame, const LineOrientation& oAxis,
                             double dAngle)
{
    QPainterPath oPath;
    addToPath(oPath, oFrame, smallCircle(oProjection, oAxis.m_dPlunge, oAxis.m_dAzimuth, dAngle, curveStep(oFrame)));
    return oPath;
}

std::vector<NetPolyline> outsideRadius(std::span<const NetPolyline> vLines, double dRadius)
{
    std::vector<NetPolyline> vPieces;
    for (const NetPolyline& line : vLines) {
        NetPolyline piece;
        const auto finish = [&] {
            if (piece.size() > 1) {
                vPieces.push_back(piece);
            }
            piece.clear();
        };
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (i > 0) {
                bool bOutside = lengthOf(line[i - 1]) >= dRadius;
                for (const double dFraction : crossings(line[i - 1], line[i], dRadius)) {
                    piece.push_back({std::lerp(line[i - 1].m_dX, line[i].m_dX, dFraction),
                                     std::lerp(line[i - 1].m_dY, line[i].m_dY, dFraction)});
                    if (std::exchange(bOutside, !bOutside)) {
                        finish();
                    }
                }
            }
            if (lengthOf(line[i]) >= dRadius) {
                piece.push_back(line[i]);
            } else {
                finish();
            }
        }
        finish();
    }
    return vPieces;
}

NetPolyline areaOnNet(const NetPolyline& outline)
{
    constexpr double dLongestStep = 0.05; // of lines that are bent onto the rim, in radii
    NetPolyline area;
    area.reserve(outline.size());
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const NetPoint oFrom = outline[i];
        const NetPoint oTo = outline[i + 1 < outline.size() ? i + 1 : 0];
        area.push_back(pulledOntoNet(oFrom));
        if (lengthOf(oFrom) <= 1.0 && lengthOf(oTo) <= 1.0) {
            continue; // a disc has no dents: all between them lies inside
        }
        const auto at = [&](double dFraction) {
            return NetPoint{std::lerp(oFrom.m_dX, oTo.m_dX, dFraction), std::lerp(oFrom.m_dY, oTo.m_dY, dFraction)};
        };
        const double dLength = std::hypot(oTo.m_dX - oFrom.m_dX, oTo.m_dY - oFrom.m_dY);
        std::vector<double> vdFractions = crossings(oFrom, oTo, 1.0);
        for (double dFraction = dLongestStep; dFraction < dLength; dFraction += dLongestStep) {
            vdFractions.push_back(dFraction / dLength);
        }
        std::sort(vdFractions.begin(), vdFractions.end());
        for (const double dFraction : vdFractions) {
            area.push_back(pulledOntoNet(at(dFraction)));
        }
    }
    return area;
}

NetPaths stereoNetPaths(const NetProjection& oProjection, const NetFrame& oFrame, bool bFine, bool bCoarse)
{
    NetPaths paths;
    // A curve that touches the disc stays whole.
    const double dTouch = 0.5 / std::max(oFrame.m_dRadius, 1.0);
    if (bFine) {
        const NetLines lines = netLines(oProjection, g_iFineNetStep, curveStep(oFrame));
        const double dCleared = clearedNetCentre(oProjection, true) - dTouch;
        addToPath(paths.m_oFine, oFrame, outsideRadius(lines.m_vGreatCircles, dCleared));
        addToPath(paths.m_oFine, oFrame, lines.m_vSmallCircles);
    }
    if (bCoarse) {
        const NetLines lines = netLines(oProjection, g_iCoarseNetStep, curveStep(oFrame));
        const double dCleared = clearedNetCentre(oProjection, false);
        addToPath(paths.m_oCoarse, oFrame, outsideRadius(lines.m_vGreatCircles, dCleared));
        addToPath(paths.m_oCoarse, oFrame, outsideRadius(lines.m_vSmallCircles, dCleared));
        addCircle(paths.m_oCoarse, oFrame, dCleared * oFrame.m_dRadius);
    }
    if (bFine || bCoarse) {
        addRadialLine(paths.m_oAxes, oFrame, 0.0, -oFrame.m_dRadius, oFrame.m_dRadius);
        addRadialLine(paths.m_oAxes, oFrame, 90.0, -oFrame.m_dRadius, oFrame.m_dRadius);
    }
    return paths;
}

NetPaths tangentNetPaths(const NetProjection& oProjection, const NetFrame& oFrame, bool bFine, bool bCoarse,
                         double dExtra)
{
    NetPaths paths;
    if (!bFine && !bCoarse) {
        return paths;
    }
    // Circles have whole numbers of pixels, cut off.
    const auto pixels = [&](double dRadius) { return std::trunc(dRadius * oFrame.m_dRadius); };
    const double dFineCentre = pixels(clearedNetCentre(oProjection, true));
    const double dCoarseCentre = pixels(clearedNetCentre(oProjection, false));
    const double dRim = oFrame.m_dRadius;
    if (bFine) {
        const NetLines lines = netLines(oProjection, g_iFineNetStep);
        for (const double dRadius : lines.m_vdRadii) {
            if (pixels(dRadius) >= dFineCentre) {
                addCircle(paths.m_oFine, oFrame, pixels(dRadius));
            }
        }
        for (const double dAzimuth : lines.m_vdAzimuths) {
            addRadialLine(paths.m_oFine, oFrame, dAzimuth, std::min(dFineCentre, dRim), dRim);
        }
    }
    const NetLines lines = netLines(oProjection, g_iCoarseNetStep);
    for (const double dRadius : lines.m_vdRadii) {
        if (bCoarse) {
            addCircle(paths.m_oCoarse, oFrame, pixels(dRadius));
        }
    }
    for (const double dAzimuth : lines.m_vdAzimuths) {
        const bool bThird = std::fmod(dAzimuth, 3.0 * g_iCoarseNetStep) == 0.0;
        addRadialLine(paths.m_oAxes, oFrame, dAzimuth, bThird ? 0.0 : std::min(dCoarseCentre, dRim), dRim + dExtra);
    }
    // The edges of the cleared discs of 10 and 5 degrees.
    if (!bCoarse && dCoarseCentre < dRim) {
        addCircle(paths.m_oAxes, oFrame, dCoarseCentre);
    }
    addCircle(paths.m_oAxes, oFrame, pixels(oProjection.lineRadius(5.0)));
    return paths;
}

} // namespace gkBase
