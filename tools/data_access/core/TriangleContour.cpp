#include "TriangleContour.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace gkBase {

namespace {

bool operator==(const ContourPoint& first, const ContourPoint& second)
{
    return first.m_dX == second.m_dX && first.m_dY == second.m_dY;
}

bool isFinite(const TriangleCorner (&aCorners)[3])
{
    return std::all_of(std::begin(aCorners), std::end(aCorners), [](const TriangleCorner& oCorner) {
        return std::isfinite(oCorner.m_dX) && std::isfinite(oCorner.m_dY) && std::isfinite(oCorner.m_dValue);
    });
}

/// Where an edge has the level. Worked out from its lower end whatever the order of the ends, so that the triangles
/// on both sides get the same bits.
ContourPoint crossing(const TriangleCorner& oFirst, const TriangleCorner& oSecond, double dLevel)
{
    const bool bRising = oFirst.m_dValue < oSecond.m_dValue;
    const TriangleCorner& oLow = bRising ? oFirst : oSecond;
    const TriangleCorner& oHigh = bRising ? oSecond : oFirst;
    const double dRise = 0.5 * oHigh.m_dValue - 0.5 * oLow.m_dValue;
    const double dShare = std::clamp((0.5 * dLevel - 0.5 * oLow.m_dValue) / dRise, 0.0, 1.0);
    return {std::lerp(oLow.m_dX, oHigh.m_dX, dShare), std::lerp(oLow.m_dY, oHigh.m_dY, dShare)};
}

bool isBetween(double dLevel, double dFirst, double dSecond)
{
    return (dFirst < dLevel && dLevel < dSecond) || (dSecond < dLevel && dLevel < dFirst);
}

} // namespace

int triangleIsoline(const TriangleCorner (&aCorners)[3], double dLevel, ContourPoint (&aPoints)[2])
{
    if (!isFinite(aCorners) || !std::isfinite(dLevel)) {
        return 0;
    }
    int iCount = 0;
    for (int i = 0; i < 3; ++i) {
        const TriangleCorner& oFrom = aCorners[i];
        const TriangleCorner& oTo = aCorners[(i + 1) % 3];
        // Exactly two edges, or none, lead from below the level to it or above.
        if ((oFrom.m_dValue >= dLevel) != (oTo.m_dValue >= dLevel)) {
            aPoints[iCount++] = crossing(oFrom, oTo, dLevel);
        }
    }
    return iCount == 2 && !(aPoints[0] == aPoints[1]) ? 2 : 0;
}

int triangleBand(const TriangleCorner (&aCorners)[3], double dLower, double dUpper, ContourPoint (&aPoints)[6])
{
    if (!isFinite(aCorners) || std::isnan(dLower) || std::isnan(dUpper) || dLower >= dUpper) {
        return 0;
    }
    const auto [dMin, dMax] = std::minmax({aCorners[0].m_dValue, aCorners[1].m_dValue, aCorners[2].m_dValue});
    if (dMax < dLower || dMin >= dUpper) {
        return 0;
    }
    int iCount = 0;
    const auto append = [&](const ContourPoint& oPoint) {
        if (iCount == 0 || !(aPoints[iCount - 1] == oPoint)) {
            aPoints[iCount++] = oPoint;
        }
    };
    for (int i = 0; i < 3; ++i) {
        const TriangleCorner& oFrom = aCorners[i];
        const TriangleCorner& oTo = aCorners[(i + 1) % 3];
        if (oFrom.m_dValue >= dLower && oFrom.m_dValue <= dUpper) {
            append({oFrom.m_dX, oFrom.m_dY});
        }
        const bool bRising = oFrom.m_dValue < oTo.m_dValue;
        for (const double dLevel : {bRising ? dLower : dUpper, bRising ? dUpper : dLower}) {
            if (isBetween(dLevel, oFrom.m_dValue, oTo.m_dValue)) {
                append(crossing(oFrom, oTo, dLevel));
            }
        }
    }
    if (iCount > 1 && aPoints[iCount - 1] == aPoints[0]) {
        --iCount;
    }
    return iCount >= 3 ? iCount : 0;
}

} // namespace gkBase
