#include "DirectionMarks.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QPen>

#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dWidth = 2.0;
constexpr double g_dHalo = 4.0;
constexpr double g_dPadding = 3.0;

} // namespace

void drawDirectionLines(QPainter& painter, std::span<const DirectionLine> vLines, const QColor& oLabel,
                        const QColor& oBackground)
{
    // All halos lie below all lines, so that none hides the other where T and L are close.
    painter.setPen(QPen(oBackground, g_dHalo, Qt::SolidLine, Qt::FlatCap));
    for (const DirectionLine& line : vLines)
        painter.drawLine(line.m_oLine);
    for (const DirectionLine& line : vLines) {
        painter.setPen(QPen(oLabel, g_dWidth, line.m_bTransverse ? Qt::SolidLine : Qt::DashLine, Qt::FlatCap));
        painter.drawLine(line.m_oLine);
    }
}

QString directionName(bool bTransverse)
{
    return bTransverse ? QCoreApplication::translate("DirectionMarks", "T", "direction of most change")
                       : QCoreApplication::translate("DirectionMarks", "L", "direction of least change");
}

QSizeF directionLabelSize(const QPainter& painter, const QString& sText)
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    return {std::ceil(metrics.horizontalAdvance(sText) + 2.0 * g_dPadding), std::ceil(metrics.height() + 2.0)};
}

void drawDirectionLabel(QPainter& painter, const QRectF& oBox, const QString& sText, const QColor& oLabel,
                        const QColor& oBackground)
{
    // The rim sets it off from bars and lines of its own colour.
    painter.setPen(QPen(oBackground, 1.0));
    painter.setBrush(oLabel);
    painter.drawRect(oBox);
    painter.setPen(oBackground);
    painter.drawText(oBox, Qt::AlignCenter, sText);
}

} // namespace gkBase
