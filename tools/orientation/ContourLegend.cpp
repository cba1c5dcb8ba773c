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
/// Bounds of the height of all bands together, in lines of text.
constexpr double g_dFewestLines = 6.0;
constexpr double g_dMostLines = 20.0;
/// A line for the title, half a line above and below the bands for their outer numbers.
constexpr double g_dLinesAround = 2.0;
/// Width of the explanation: as it is best read, and the least, in small letters.
constexpr double g_dTextWidth = 30.0;
constexpr double g_dNarrowTextWidth = 14.0;
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
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
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

// ---- layout --------------------------------------------------------------------------------------------------------

double ContourLegend::textHeight(const QFontMetricsF& metrics, double dWidth) const
{
    return metrics.boundingRect(QRectF(0.0, 0.0, dWidth, 1e5), Qt::TextWordWrap, explanation()).height();
}

QString ContourLegend::title() const
{
    return tr("Density [%]");
}

double ContourLegend::bandsWidth(const QFontMetricsF& metrics) const
{
    const double dLargest = isMissing(m_info.m_dMaximum) ? m_vLevels.back().m_dPercent : m_info.m_dMaximum;
    const double dNumbers = g_dBandWidth + g_dTick + g_dGap + metrics.horizontalAdvance(percentText(dLargest));
    return std::max(dNumbers, metrics.horizontalAdvance(title())) + 2.0 * g_dGap;
}

double ContourLegend::mostBandsHeight(const QFontMetricsF& metrics) const
{
    const auto dLevels = static_cast<double>(m_vLevels.size());
    return (std::clamp(dLevels, g_dFewestLines, g_dMostLines) + g_dLinesAround) * metrics.height();
}

ContourLegend::Arrangement ContourLegend::arrangementFor(const QSizeF& oRoom) const
{
    const QFontMetricsF metrics(font());
    const double dNarrow = g_dNarrowTextWidth * metrics.averageCharWidth();
    const double dWide = g_dTextWidth * metrics.averageCharWidth();
    const double dBands = bandsWidth(metrics);
    const double dLeast = (g_dFewestLines + g_dLinesAround) * metrics.height();
    const double dMost = mostBandsHeight(metrics);
    const auto arrangement = [&oRoom](double dWidth, double dHeight, bool bBeside) {
        const QSizeF oSize(std::ceil(dWidth), std::ceil(dHeight));
        return Arrangement{oSize, std::min({1.0, oRoom.width() / oSize.width(), oRoom.height() / oSize.height()}),
                           bBeside};
    };
    const double dLeastWidth = std::max(dNarrow, dBands);
    const double dWidth = std::clamp(oRoom.width(), dLeastWidth, std::max(dLeastWidth, dWide));
    const double dText = g_dGap + textHeight(metrics, dWidth);
    const Arrangement below =
        arrangement(dWidth, std::clamp(oRoom.height() - dText, dLeast, std::max(dLeast, dMost)) + dText, false);
    const double dTextWidth = std::clamp(oRoom.width() - dBands, dNarrow, dWide);
    const double dLeastBeside = std::max(dLeast, textHeight(metrics, dTextWidth));
    const Arrangement beside =
        arrangement(dBands + dTextWidth, std::clamp(oRoom.height(), dLeastBeside, std::max(dLeastBeside, dMost)), true);
    return beside.m_dScale > below.m_dScale ? beside : below;
}

QSizeF ContourLegend::pictureSize() const
{
    constexpr double dPlenty = 1e4;
    return isEmpty() ? QSizeF(0.0, 0.0) : arrangementFor({dPlenty, dPlenty}).m_oSize;
}

// ---- drawing -------------------------------------------------------------------------------------------------------

void ContourLegend::paint(QPainter& painter, const QRectF& oTarget, const QColor& oTextColor) const
{
    if (isEmpty() || oTarget.isEmpty())
        return;
    const Arrangement arrangement = arrangementFor(oTarget.size());
    painter.save();
    painter.translate(oTarget.topLeft());
    painter.scale(arrangement.m_dScale, arrangement.m_dScale);
    painter.setFont(font());
    const QFontMetricsF metrics(font());
    QRectF oBands(QPointF(0.0, 0.0), arrangement.m_oSize);
    QRectF oText = oBands;
    if (arrangement.m_bBeside) {
        oBands.setWidth(bandsWidth(metrics));
        oBands.setHeight(std::min(oBands.height(), mostBandsHeight(metrics)));
        oText.setLeft(oBands.right());
    } else {
        oText.setTop(oText.bottom() - textHeight(metrics, oText.width()));
        oBands.setBottom(oText.top() - g_dGap);
    }
    drawBands(painter, oBands, oTextColor);
    painter.setPen(oTextColor);
    painter.drawText(oText, Qt::TextWordWrap | Qt::TextDontClip, explanation());
    painter.restore();
}

void ContourLegend::drawBands(QPainter& painter, const QRectF& oRoom, const QColor& oTextColor) const
{
    const double dLine = QFontMetricsF(font()).height();
    const QRectF oArea(oRoom.left() + 0.5, oRoom.top() + 1.5 * dLine, g_dBandWidth,
                       oRoom.height() - g_dLinesAround * dLine);
    // A map whose highest level is its largest node ends there; otherwise a last band reaches from that level up.
    const double dLast = m_vLevels.back().m_dPercent;
    const bool bMaximum = !isMissing(m_info.m_dMaximum);
    const bool bEndsAtLast = bMaximum && m_info.m_dMaximum - dLast <= g_dSameLevel * m_info.m_dMaximum;
    const std::size_t iBands = m_vLevels.size() - (bEndsAtLast && m_vLevels.size() > 1 ? 1 : 0);
    const auto drawNumber = [&](double dY, double dPercent) {
        painter.setPen(oTextColor);
        painter.drawLine(QPointF(oArea.right(), dY), QPointF(oArea.right() + g_dTick, dY));
        const QRectF oBox(oArea.right() + g_dTick + g_dGap, dY - dLine / 2.0, oRoom.width() - oArea.right(), dLine);
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
    painter.drawText(QRectF(oRoom.topLeft(), QSizeF(oRoom.width(), dLine)), Qt::AlignLeft | Qt::AlignVCenter, title());
}

// ---- widget --------------------------------------------------------------------------------------------------------

QSize ContourLegend::sizeHint() const
{
    return pictureSize().toSize();
}

QSize ContourLegend::minimumSizeHint() const
{
    // As narrow, or as low, as the two arrangements become without being made smaller.
    const QFontMetricsF metrics(font());
    return isEmpty() ? QSize(0, 0)
                     : QSizeF(std::max(g_dNarrowTextWidth * metrics.averageCharWidth(), bandsWidth(metrics)),
                              (g_dFewestLines + g_dLinesAround) * metrics.height())
                           .toSize();
}

int ContourLegend::heightForWidth(int iWidth) const
{
    if (isEmpty())
        return 0;
    const QFontMetricsF metrics(font());
    const double dNarrow = g_dNarrowTextWidth * metrics.averageCharWidth();
    const double dBands = bandsWidth(metrics);
    const double dLeast = (g_dFewestLines + g_dLinesAround) * metrics.height();
    double dHeight = dLeast + g_dGap + textHeight(metrics, std::max({dNarrow, dBands, static_cast<double>(iWidth)}));
    if (iWidth >= dBands + dNarrow)
        dHeight = std::min(dHeight, std::max(dLeast, textHeight(metrics, iWidth - dBands)));
    return static_cast<int>(std::ceil(dHeight));
}

void ContourLegend::paintEvent(QPaintEvent*)
{
    if (isEmpty())
        return;
    QPainter painter(this);
    paint(painter, rect(), palette().color(foregroundRole()));
}

} // namespace gkBase
