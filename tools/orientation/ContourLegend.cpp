#include "ContourLegend.h"

#include "ContourLegendGeometry.h"
#include "MissingValue.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dBandWidth = 24.0;
constexpr double g_dTick = 4.0;
constexpr double g_dGap = 4.0;
/// Height of a band in a picture, against that of a line, and the bounds of all bands together in lines.
constexpr double g_dBandHeight = 1.0;
constexpr double g_dFewestLines = 6.0;
constexpr double g_dMostLines = 20.0;
/// Width of the text in a picture, in small letters.
constexpr double g_dTextWidth = 30.0;
constexpr double g_dClosestLines = 4.0; ///< pixels
/// Levels that differ from the largest node by less share of it end the map.
constexpr double g_dSameLevel = 1e-9;

/// As the labels in the map.
QString percentText(double dPercent)
{
    return QString::number(dPercent, 'f', 2);
}

} // namespace

ContourLegend::ContourLegend(QWidget* pqParent)
    : QWidget(pqParent)
{
    setObjectName(QStringLiteral("m_pqContourLegend"));
    setAccessibleName(tr("Contour Legend"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    hide();
}

void ContourLegend::setLevels(const std::vector<Level>& vLevels, const ContourLegendInfo& info)
{
    m_vLevels = vLevels;
    m_info = info;
    setAccessibleDescription(explanation());
    setToolTip(explanation());
    setVisible(!isEmpty());
    updateGeometry();
    update();
}

QString ContourLegend::explanation() const
{
    if (isEmpty())
        return {};
    QString sText = m_info.m_bWeighted ? tr("Per cent of the bias weights of N = %1 records").arg(m_info.m_iRecords)
                                       : tr("Per cent of N = %1 records").arg(m_info.m_iRecords);
    sText += tr(", at the %1 × %2 nodes of a grid over the net. Each record counts at the four corners of its cell")
                 .arg(m_info.m_iColumns)
                 .arg(m_info.m_iRows);
    // The ends of a diameter are the same line on these nets only.
    sText += m_info.m_eLayout == NetLayout::Tangent ? tr(".") : tr(", and near the rim on the opposite side too.");
    return sText;
}

// ---- drawing
// ---------------------------------------------------------------------------------------------------------

QSizeF ContourLegend::pictureSize() const
{
    if (isEmpty())
        return {0.0, 0.0};
    const QFontMetricsF metrics(font());
    const double dWidth = g_dTextWidth * metrics.averageCharWidth();
    const QRectF oText = metrics.boundingRect(QRectF(0.0, 0.0, dWidth, 1e5), Qt::TextWordWrap, explanation());
    const double dLines =
        std::clamp(g_dBandHeight * static_cast<double>(m_vLevels.size()), g_dFewestLines, g_dMostLines);
    // A line for "%", half a line above and below the bands for their outer numbers.
    return {std::ceil(dWidth), std::ceil((dLines + 2.0) * metrics.height() + g_dGap + oText.height())};
}

void ContourLegend::paint(QPainter& painter, const QRectF& oTarget, const QColor& oTextColor) const
{
    const QSizeF oSize = pictureSize();
    if (oSize.isEmpty() || oTarget.isEmpty())
        return;
    const double dScale = std::min({1.0, oTarget.width() / oSize.width(), oTarget.height() / oSize.height()});
    painter.save();
    painter.translate(oTarget.topLeft());
    painter.scale(dScale, dScale);
    painter.setFont(font());
    draw(painter, oSize, oTextColor);
    painter.restore();
}

void ContourLegend::draw(QPainter& painter, const QSizeF& oSize, const QColor& oTextColor) const
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    const double dLine = metrics.height();
    const QRectF oText = metrics.boundingRect(QRectF(0.0, 0.0, oSize.width(), 1e5), Qt::TextWordWrap, explanation());
    const double dBottom = oSize.height() - oText.height() - g_dGap - dLine / 2.0;
    const QRectF oArea(0.5, 1.5 * dLine, g_dBandWidth, std::max(dBottom - 1.5 * dLine, dLine));

    // A map whose highest level is its largest node ends there; otherwise a last band reaches from that level up.
    const double dLast = m_vLevels.back().m_dPercent;
    const bool bMaximum = !isMissing(m_info.m_dMaximum);
    const bool bEndsAtLast = bMaximum && m_info.m_dMaximum - dLast <= g_dSameLevel * m_info.m_dMaximum;
    const std::size_t iBands = m_vLevels.size() - (bEndsAtLast && m_vLevels.size() > 1 ? 1 : 0);
    const auto drawNumber = [&](double dY, double dPercent) {
        painter.setPen(oTextColor);
        painter.drawLine(QPointF(oArea.right(), dY), QPointF(oArea.right() + g_dTick, dY));
        const QRectF oBox(oArea.right() + g_dTick + g_dGap, dY - dLine / 2.0, oSize.width() - oArea.right(), dLine);
        painter.drawText(oBox, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, percentText(dPercent));
    };
    const std::vector<ContourLegendBand> vBands = contourLegendBands(iBands, oArea, dLine, bMaximum);
    painter.setPen(Qt::NoPen);
    for (std::size_t i = 0; m_info.m_bFilled && i < iBands; ++i) {
        // To whole pixels, so that no line of the ground shows between two bands.
        const QRectF& oBox = vBands[i].m_oBox;
        const double dTop = std::round(oBox.top());
        painter.fillRect(QRectF(oBox.left(), dTop, oBox.width(), std::round(oBox.bottom()) - dTop),
                         m_vLevels[i].m_oColor);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(oTextColor);
    painter.drawRect(oArea);
    for (std::size_t i = 0; i < iBands; ++i) {
        const double dY = vBands[i].m_oBox.bottom();
        // Lines closer than these would fill the legend with their colour.
        if (!m_info.m_bFilled && i > 0 && (vBands[i].m_bNumber || vBands[i].m_oBox.height() >= g_dClosestLines))
            painter.drawLine(QPointF(oArea.left(), dY), QPointF(oArea.right(), dY));
        if (vBands[i].m_bNumber)
            drawNumber(dY, m_vLevels[i].m_dPercent);
    }
    if (bMaximum)
        drawNumber(oArea.top(), m_info.m_dMaximum);
    painter.setPen(oTextColor);
    painter.drawText(QRectF(0.0, 0.0, oSize.width(), dLine), Qt::AlignLeft | Qt::AlignVCenter, tr("Density [%]"));
    painter.drawText(QRectF(0.0, oSize.height() - oText.height(), oSize.width(), oText.height()),
                     Qt::TextWordWrap | Qt::TextDontClip, explanation());
}

// ---- widget
// ----------------------------------------------------------------------------------------------------------

QSize ContourLegend::sizeHint() const
{
    return pictureSize().toSize();
}

QSize ContourLegend::minimumSizeHint() const
{
    return isEmpty() ? QSize(0, 0) : QSize(sizeHint().width() / 2, sizeHint().height() / 2);
}

void ContourLegend::paintEvent(QPaintEvent*)
{
    if (isEmpty())
        return;
    QPainter painter(this);
    paint(painter, rect(), palette().color(foregroundRole()));
}

} // namespace gkBase
