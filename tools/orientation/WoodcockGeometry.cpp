#include "WoodcockGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace gkBase {

namespace {

/// The two sizes for which the picture's pixels were fixed.
constexpr double g_dSmallSize = 383.0;
constexpr double g_dLargeSize = 634.0;

double between(double dSize, double dSmall, double dLarge)
{
    return dSmall + (dSize - g_dSmallSize) * (dLarge - dSmall) / (g_dLargeSize - g_dSmallSize);
}

/// Factor at which a ray from dFrom along dStep reaches the bound on its side; infinite along the bounds.
double reach(double dFrom, double dStep, double dLow, double dHigh)
{
    if (dStep == 0.0)
        return std::numeric_limits<double>::infinity();
    return ((dStep > 0.0 ? dHigh : dLow) - dFrom) / dStep;
}

} // namespace

QPointF woodcockReferencePixel(const QSizeF& oSize, const QPointF& oSmall, const QPointF& oLarge)
{
    return {between(oSize.width(), oSmall.x(), oLarge.x()), between(oSize.height(), oSmall.y(), oLarge.y())};
}

WoodcockAxes::WoodcockAxes(const QSizeF& oSize)
    : m_oOrigin(woodcockReferencePixel(oSize, {60, 338}, {100, 561}))
    , m_oX5(woodcockReferencePixel(oSize, {330, 338}, {546, 561}))
    , m_oY5(woodcockReferencePixel(oSize, {60, 68}, {100, 113}))
{
}

QPointF WoodcockAxes::pixel(double dX, double dY) const
{
    return {dX / s_dEnd * m_oX5.x() - (dX - s_dEnd) / s_dEnd * m_oOrigin.x(),
            dY / s_dEnd * m_oY5.y() - (dY - s_dEnd) / s_dEnd * m_oOrigin.y()};
}

QPointF WoodcockAxes::values(const QPointF& oPixel) const
{
    return {(oPixel.x() - m_oOrigin.x()) / (m_oX5.x() - m_oOrigin.x()) * s_dEnd,
            (oPixel.y() - m_oOrigin.y()) / (m_oY5.y() - m_oOrigin.y()) * s_dEnd};
}

std::vector<WoodcockLine> woodcockLinesOfK()
{
    constexpr double dEnd = WoodcockAxes::s_dEnd;
    constexpr std::array adRatios{0.2, 0.5, 1.0, 2.0, 5.0};
    std::vector<WoodcockLine> vLines;
    vLines.reserve(adRatios.size());
    for (const double dK : adRatios)
        vLines.push_back({dK, {QPointF(0.0, 0.0), QPointF(std::min(dEnd, dEnd / dK), std::min(dEnd, dEnd * dK))}});
    return vLines;
}

std::vector<WoodcockLine> woodcockLinesOfC()
{
    constexpr double dEnd = WoodcockAxes::s_dEnd;
    constexpr std::array adStrengths{2.0, 4.0, 6.0, 8.0};
    std::vector<WoodcockLine> vLines;
    vLines.reserve(adStrengths.size());
    for (const double dC : adStrengths) {
        const double dFar = std::min(dC, dEnd);
        vLines.push_back({dC, {QPointF(dFar, dC - dFar), QPointF(dC - dFar, dFar)}});
    }
    return vLines;
}

std::optional<QPointF> woodcockEdgeMark(const QRectF& oArea, const QPointF& oOrigin, const QPointF& oPixel)
{
    if (oArea.isEmpty() || oArea.contains(oPixel))
        return {};
    const QPointF oStep = oPixel - oOrigin;
    const double dFactor = std::min(reach(oOrigin.x(), oStep.x(), oArea.left(), oArea.right()),
                                    reach(oOrigin.y(), oStep.y(), oArea.top(), oArea.bottom()));
    const QPointF oMark = oOrigin + oStep * dFactor;
    // Rounding, or an origin outside a tiny picture, must not lead out of the area.
    return QPointF(std::clamp(oMark.x(), oArea.left(), oArea.right()),
                   std::clamp(oMark.y(), oArea.top(), oArea.bottom()));
}

} // namespace gkBase
