#include "ScatFoldCurve.h"

#include "Angles.h"
#include "MissingValue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace gkBase {

namespace {

constexpr double g_dFullTurn = 360.0;

/// The end of a piece on one side of the plot, and the beginning of the next one on the other.
void crossNorth(std::vector<QPolygonF>& vPieces, const QPointF& oFrom, const QPointF& oTo)
{
    const bool bForwards = oFrom.x() > oTo.x(); // over 360 to 0
    const double dTo = oTo.x() + (bForwards ? g_dFullTurn : -g_dFullTurn);
    const double dEdge = bForwards ? g_dFullTurn : 0.0;
    const double dShare = (dEdge - oFrom.x()) / (dTo - oFrom.x());
    const double dDip = oFrom.y() + dShare * (oTo.y() - oFrom.y());
    vPieces.back() << QPointF(dEdge, dDip);
    vPieces.push_back({QPointF(g_dFullTurn - dEdge, dDip)});
}

} // namespace

std::vector<QPolygonF> cylindricalFoldCurve(const LineOrientation& oAxis)
{
    if (isMissing(oAxis.m_dPlunge) || isMissing(oAxis.m_dAzimuth)) {
        return {};
    }
    // The plane that dips along the axis, turned about it: the curve by the angle of that turn has no pole.
    constexpr int iQuarter = 90;
    const double dSine = std::sin(radians(oAxis.m_dPlunge));
    const double dCosine = std::cos(radians(oAxis.m_dPlunge));
    std::vector<QPolygonF> vPieces(1);
    for (int iTurn = -iQuarter; iTurn <= iQuarter; ++iTurn) {
        const double dAcross = std::sin(radians(iTurn));
        const double dAlong = std::cos(radians(iTurn));
        const double dDip = degrees(std::atan2(std::hypot(dSine * dAlong, dAcross), dCosine * dAlong));
        const double dFromAxis = degrees(std::atan2(dAcross, dSine * dAlong));
        const QPointF oPoint(wrapAngle(oAxis.m_dAzimuth + dFromAxis, g_dFullTurn), dDip);
        QPolygonF& piece = vPieces.back();
        if (!piece.isEmpty() && std::abs(piece.back().x() - oPoint.x()) > g_dFullTurn / 2.0) {
            crossNorth(vPieces, QPointF(piece.back()), oPoint);
        }
        vPieces.back() << oPoint;
    }
    return vPieces;
}

double tangentRimAngle(std::span<const double> vdDips)
{
    constexpr std::array adAngles{30.0, 45.0, 50.0, 55.0, 60.0, 65.0, 70.0, 75.0, 80.0};
    constexpr double dSteepest = 85.0;
    constexpr double dUsual = 60.0;
    constexpr double dShare = 0.99;
    std::array<std::size_t, adAngles.size()> aiWithin{};
    std::size_t iDips = 0;
    for (const double dDip : vdDips) {
        if (!isMissing(dDip) && dDip >= 0.0 && dDip <= 90.0) {
            ++iDips;
            for (std::size_t i = 0; i < adAngles.size(); ++i) {
                aiWithin[i] += dDip <= adAngles[i] ? 1 : 0;
            }
        }
    }
    if (iDips == 0) {
        return dUsual;
    }
    for (std::size_t i = 0; i < adAngles.size(); ++i) {
        if (static_cast<double>(aiWithin[i]) >= dShare * static_cast<double>(iDips)) {
            return adAngles[i];
        }
    }
    return dSteepest;
}

} // namespace gkBase
