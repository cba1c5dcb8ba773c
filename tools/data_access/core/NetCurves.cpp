#include "NetCurves.h"

#include "Angles.h"
#include "SineCosine.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace gkBase {

namespace {

/// Number of equal steps of at most dStep degrees over a span.
int stepsOver(double dSpan, double dStep)
{
    const double dUsable = isMissing(dStep) ? g_dCurveStep : std::clamp(dStep, 0.05, 45.0);
    return std::max(1, static_cast<int>(std::ceil(std::abs(dSpan) / dUsable - 1e-9)));
}

/// Calls fn at both ends of the range and at equal steps between.
template <typename Function>
void sample(double dFrom, double dTo, double dStep, Function&& fn)
{
    const int iSteps = stepsOver(dTo - dFrom, dStep);
    for (int i = 0; i <= iSteps; ++i) {
        fn(i == iSteps ? dTo : dFrom + (dTo - dFrom) * i / iSteps);
    }
}

/// Curves bend and stretch towards the rim of the tangent net, where they take this share of the step.
constexpr double g_dTangentShare = 0.2;

NetPoint pointAt(double dRadius, double dAzimuth)
{
    const SineCosine oAzimuth = sineCosine(dAzimuth);
    return {dRadius * oAzimuth.m_dSine, dRadius * oAzimuth.m_dCosine};
}

/// On the tangent net a line in the plane lies at tan(dip) · cos(azimuth − dip azimuth) / tan(maximum angle): a circle
/// with the dip point and the centre as the ends of a diameter.
std::vector<NetPolyline> tangentGreatCircle(const NetProjection& oProjection, double dDip, double dDipAzimuth,
                                            double dStep)
{
    const double dDiameter = oProjection.lineRadius(dDip);
    dStep *= g_dTangentShare;
    std::vector<NetPolyline> vPieces;
    const auto addPiece = [&](double dFrom, double dTo) {
        NetPolyline vPoints;
        sample(dFrom, dTo, dStep, [&](double dFromDip) {
            const double dRadius = std::min(1.0, dDiameter * sineCosine(90.0 - dFromDip).m_dSine);
            vPoints.push_back(pointAt(std::max(0.0, dRadius), dDipAzimuth + dFromDip));
        });
        vPieces.push_back(std::move(vPoints));
    };
    if (dDiameter <= 1.0) {
        addPiece(-90.0, 90.0);
    } else {
        const double dRim = acosDegrees(1.0 / dDiameter);
        addPiece(-90.0, -dRim);
        addPiece(dRim, 90.0);
    }
    return vPieces;
}

/// A cone about an axis, seen from below: the steepest line of the plane normal to the axis is at turn 0.
class Cone
{
public:
    Cone(double dPlunge, double dAzimuth, double dAngle)
        : m_oPlunge(sineCosine(dPlunge))
        , m_oAzimuth(sineCosine(dAzimuth))
        , m_oAngle(sineCosine(dAngle))
    {
    }

    /// The point of the line at this turn, 0 … 360 degrees about the axis.
    NetPoint pointAt(const NetProjection& oProjection, double dTurn, bool bUpwards, bool bOnRim) const
    {
        const SineCosine oTurn = sineCosine(dTurn);
        const double dDown = bOnRim ? 0.0 : downAt(oTurn);
        const double dAlong = m_oPlunge.m_dCosine * m_oAngle.m_dCosine -
                              m_oPlunge.m_dSine * m_oAngle.m_dSine * oTurn.m_dCosine; // along the axis' azimuth
        const double dAcross = m_oAngle.m_dSine * oTurn.m_dSine;
        const double dNorth = dAlong * m_oAzimuth.m_dCosine - dAcross * m_oAzimuth.m_dSine;
        const double dEast = dAlong * m_oAzimuth.m_dSine + dAcross * m_oAzimuth.m_dCosine;
        // Lines of a piece may touch the horizontal; rounding must not throw them to the other side of the net.
        const double dSign = bUpwards ? -1.0 : 1.0;
        return oProjection.vector(dSign * dNorth, dSign * dEast, std::max(0.0, dSign * dDown));
    }

    /// Half of the turns at which the lines point downwards: 0 for none, 180 for all.
    double downwardTurn() const
    {
        const double dMiddle = m_oPlunge.m_dSine * m_oAngle.m_dCosine;
        const double dSwing = m_oPlunge.m_dCosine * std::abs(m_oAngle.m_dSine);
        constexpr double dRounding = 1e-12;
        if (dMiddle >= dSwing - dRounding && dMiddle > -dRounding) {
            return 180.0;
        }
        return -dMiddle >= dSwing - dRounding ? 0.0 : acosDegrees(-dMiddle / dSwing);
    }

private:
    double downAt(const SineCosine& oTurn) const
    {
        return m_oPlunge.m_dSine * m_oAngle.m_dCosine + m_oPlunge.m_dCosine * m_oAngle.m_dSine * oTurn.m_dCosine;
    }

    SineCosine m_oPlunge;
    SineCosine m_oAzimuth;
    SineCosine m_oAngle;
};

NetPoint between(const NetPoint& oFrom, const NetPoint& oTo, double dShare)
{
    return {std::lerp(oFrom.m_dX, oTo.m_dX, dShare), std::lerp(oFrom.m_dY, oTo.m_dY, dShare)};
}

} // namespace

std::vector<NetPolyline> greatCircle(const NetProjection& oProjection, double dDip, double dDipAzimuth, double dStep)
{
    if (isMissing(dDip) || isMissing(dDipAzimuth)) {
        return {};
    }
    const double dStrike = dDipAzimuth - 90.0;
    const bool bTangent = oProjection.layout() == NetLayout::Tangent;
    if (std::abs(90.0 - dDip) < g_dPlaneTolerance) {
        return {{pointAt(1.0, dStrike), pointAt(1.0, dStrike + 180.0)}};
    }
    if (std::abs(dDip) < g_dPlaneTolerance) {
        NetPolyline vRim;
        sample(0.0, 360.0, dStep, [&](double dTurn) { vRim.push_back(pointAt(1.0, dStrike + dTurn)); });
        return bTangent ? std::vector<NetPolyline>() : std::vector<NetPolyline>{std::move(vRim)};
    }
    if (bTangent) {
        return tangentGreatCircle(oProjection, dDip, dDipAzimuth, dStep);
    }
    const SineCosine oDip = sineCosine(dDip);
    const SineCosine oAzimuth = sineCosine(dDipAzimuth);
    NetPolyline vPoints;
    vPoints.reserve(static_cast<std::size_t>(stepsOver(180.0, dStep)) + 1);
    sample(0.0, 180.0, dStep, [&](double dPitch) {
        // Along the strike by the cosine of the pitch and down the dip by its sine: no angle needs to be worked out.
        const SineCosine oPitch = sineCosine(dPitch);
        const double dAlongDip = oPitch.m_dSine * oDip.m_dCosine;
        vPoints.push_back(oProjection.vector(oPitch.m_dCosine * oAzimuth.m_dSine + dAlongDip * oAzimuth.m_dCosine,
                                             dAlongDip * oAzimuth.m_dSine - oPitch.m_dCosine * oAzimuth.m_dCosine,
                                             oPitch.m_dSine * oDip.m_dSine));
    });
    return {std::move(vPoints)};
}

NetCircle greatCircleArc(double dDip, double dDipAzimuth)
{
    if (isMissing(dDip) || isMissing(dDipAzimuth) || std::abs(90.0 - dDip) < g_dPlaneTolerance) {
        return {{g_dEmptyCell, g_dEmptyCell}, g_dEmptyCell};
    }
    const SineCosine oDip = sineCosine(dDip);
    return {pointAt(-oDip.m_dSine / oDip.m_dCosine, dDipAzimuth), 1.0 / oDip.m_dCosine};
}

std::vector<NetPolyline> smallCircle(const NetProjection& oProjection, double dPlunge, double dAzimuth, double dAngle,
                                     double dStep)
{
    if (isMissing(dPlunge) || isMissing(dAzimuth) || isMissing(dAngle)) {
        return {};
    }
    const Cone oCone(dPlunge, dAzimuth, dAngle);
    const double dDownward = oCone.downwardTurn();
    const bool bSplit = dDownward > 0.0 && dDownward < 180.0;
    const bool bTangent = oProjection.layout() == NetLayout::Tangent;
    const double dTurnStep = bTangent ? g_dTangentShare * dStep : dStep;
    std::vector<NetPolyline> vPieces;
    const auto addPiece = [&](double dFrom, double dTo, bool bUpwards) {
        NetPolyline vPoints;
        sample(dFrom, dTo, dTurnStep, [&](double dTurn) {
            vPoints.push_back(oCone.pointAt(oProjection, dTurn, bUpwards, bSplit && (dTurn == dFrom || dTurn == dTo)));
        });
        if (bTangent) {
            std::vector<NetPolyline> vClipped = clippedToNet(vPoints);
            std::move(vClipped.begin(), vClipped.end(), std::back_inserter(vPieces));
        } else {
            vPieces.push_back(std::move(vPoints));
        }
    };
    if (dDownward > 0.0) {
        addPiece(-dDownward, dDownward, false);
    }
    if (dDownward < 180.0) {
        addPiece(dDownward, 360.0 - dDownward, true);
    }
    return vPieces;
}

bool circleCrossings(const NetPoint& oFrom, const NetPoint& oTo, double dRadius, double& dEnter, double& dLeave)
{
    const double dX = oTo.m_dX - oFrom.m_dX;
    const double dY = oTo.m_dY - oFrom.m_dY;
    const double dA = dX * dX + dY * dY;
    const double dHalfB = oFrom.m_dX * dX + oFrom.m_dY * dY;
    const double dC = oFrom.m_dX * oFrom.m_dX + oFrom.m_dY * oFrom.m_dY - dRadius * dRadius;
    const double dDiscriminant = dHalfB * dHalfB - dA * dC;
    if (!(dA > 0.0) || !(dDiscriminant > 0.0)) {
        return false;
    }
    const double dRoot = std::sqrt(dDiscriminant);
    dEnter = (-dHalfB - dRoot) / dA;
    dLeave = (-dHalfB + dRoot) / dA;
    return true;
}

std::vector<NetPolyline> clippedToNet(std::span<const NetPoint> vLine)
{
    std::vector<NetPolyline> vPieces;
    bool bOpen = false; // the last piece goes on at the next segment
    for (std::size_t i = 1; i < vLine.size(); ++i) {
        const NetPoint& oFrom = vLine[i - 1];
        const NetPoint& oTo = vLine[i];
        const bool bFromOn = isOnNet(oFrom);
        const bool bToOn = isOnNet(oTo);
        double dEnter = 0.0;
        double dLeave = 1.0;
        if (!(bFromOn && bToOn)) {
            if (!circleCrossings(oFrom, oTo, 1.0, dEnter, dLeave)) {
                bOpen = false;
                continue;
            }
            dEnter = bFromOn ? 0.0 : dEnter;
            dLeave = bToOn ? 1.0 : dLeave;
        }
        if (!(dEnter >= 0.0 && dLeave <= 1.0 && dEnter < dLeave)) {
            bOpen = false;
            continue;
        }
        if (!bOpen) {
            vPieces.push_back({bFromOn ? oFrom : between(oFrom, oTo, dEnter)});
        }
        vPieces.back().push_back(bToOn ? oTo : between(oFrom, oTo, dLeave));
        bOpen = bToOn;
    }
    return vPieces;
}

} // namespace gkBase
