#include "StereoLabels.h"

#include "LabelPlacement.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace gkBase {

namespace {

constexpr double g_dPadding = 3.0;
constexpr int g_iGroundAlpha = 215;
constexpr double g_dLongestWithoutLeader = 8.0;
constexpr std::array<double, 4> g_adDistances{3.0, 16.0, 34.0, 60.0}; ///< of a label from its anchor
constexpr int g_iDirections = 12;

/// Boxes around the anchor at a distance: right, left, then the directions between.
void addBoxes(std::vector<QRectF>& voBoxes, const QRectF& oAnchor, const QSizeF& oSize, double dDistance)
{
    const double dHalfWidth = (oAnchor.width() + oSize.width()) / 2.0 + dDistance;
    const double dHalfHeight = (oAnchor.height() + oSize.height()) / 2.0 + dDistance;
    for (int i = 0; i < g_iDirections; ++i) {
        // 0, 180, 30, 210, …
        const double dAngle = ((i / 2) * 30 + (i % 2) * 180) * std::numbers::pi / 180.0;
        const double dCosine = std::cos(dAngle);
        const double dSine = std::sin(dAngle);
        // On the outline of the box in which the centres of touching labels lie.
        const double dScale = 1.0 / std::max(std::abs(dCosine) / dHalfWidth, std::abs(dSine) / dHalfHeight);
        QRectF oBox(QPointF(), oSize);
        oBox.moveCenter(oAnchor.center() + dScale * QPointF(dCosine, dSine));
        voBoxes.push_back(oBox);
    }
}

} // namespace

bool isInsideNet(const NetFrame& oFrame, const QRectF& oBox)
{
    const double dX = std::max(std::abs(oBox.left() - oFrame.m_dCentreX), std::abs(oBox.right() - oFrame.m_dCentreX));
    const double dY = std::max(std::abs(oBox.top() - oFrame.m_dCentreY), std::abs(oBox.bottom() - oFrame.m_dCentreY));
    return std::hypot(dX, dY) <= oFrame.m_dRadius;
}

QRectF placeOnNet(LabelPlacement& placement, const NetFrame& oFrame, const QRectF& oAnchor, const QSizeF& oSize)
{
    std::vector<QRectF> voBoxes;
    for (const double dDistance : g_adDistances) {
        addBoxes(voBoxes, oAnchor, oSize, dDistance);
    }
    std::stable_partition(voBoxes.begin(), voBoxes.end(),
                          [&oFrame](const QRectF& oBox) { return isInsideNet(oFrame, oBox); });
    return placement.place(voBoxes);
}

QSizeF labelBoxSize(const QPainter& painter, const QString& sText)
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    return {std::ceil(metrics.horizontalAdvance(sText)) + 2.0 * g_dPadding, std::ceil(metrics.height())};
}

void drawLabelBox(QPainter& painter, const QRectF& oBox, const QString& sText, const QColor& oColor,
                  const QColor& oBackground)
{
    QColor oGround = oBackground;
    oGround.setAlpha(g_iGroundAlpha);
    painter.fillRect(oBox, oGround);
    painter.setPen(oColor);
    painter.drawText(oBox, Qt::AlignCenter, sText);
}

void drawLabelLeader(QPainter& painter, const QRectF& oBox, const QPointF& oPoint, const QColor& oColor)
{
    const QPointF oEnd(std::clamp(oPoint.x(), oBox.left(), oBox.right()),
                       std::clamp(oPoint.y(), oBox.top(), oBox.bottom()));
    const QPointF oLine = oEnd - oPoint;
    if (std::hypot(oLine.x(), oLine.y()) > g_dLongestWithoutLeader) {
        painter.setPen(QPen(oColor, 1.0));
        painter.drawLine(oPoint, oEnd);
    }
}

} // namespace gkBase
