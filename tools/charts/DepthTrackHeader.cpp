#include "DepthTrackHeader.h"

#include "ReadableColor.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dMargin = 3.0;
constexpr int g_iTextRows = 3;
/// Room for the track's line below the limits.
constexpr double g_dLineRoom = 8.0;
constexpr double g_dDot = 2.0;

QFont boldFont(QFont oFont)
{
    oFont.setBold(true);
    return oFont;
}

void drawElided(QPainter& painter, const QRectF& oRect, int iFlags, const QString& sText)
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    painter.drawText(oRect, iFlags | Qt::AlignVCenter, metrics.elidedText(sText, Qt::ElideRight, oRect.width()));
}

/// The two limits; where both do not fit, each gets half of the room.
void drawLimits(QPainter& painter, const QRectF& oRow, const DepthTrackHeaderContent& content)
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    const double dHalf = (oRow.width() - g_dMargin) / 2.0;
    const double dLeft = metrics.horizontalAdvance(content.m_sLeft);
    const double dRight = metrics.horizontalAdvance(content.m_sRight);
    double dShare = dHalf;
    if (dLeft + dRight <= 2.0 * dHalf)
        dShare = dLeft > dHalf ? dLeft : 2.0 * dHalf - std::max(dRight, dHalf);
    drawElided(painter, QRectF(oRow.left(), oRow.top(), std::ceil(dShare), oRow.height()), Qt::AlignLeft,
               content.m_sLeft);
    drawElided(painter,
               QRectF(oRow.right() - std::ceil(2.0 * dHalf - dShare), oRow.top(), std::ceil(2.0 * dHalf - dShare),
                      oRow.height()),
               Qt::AlignRight, content.m_sRight);
}

/// The unit; a read-out or a note comes with it where there is room for both, alone elsewhere, and at last without
/// blanks.
QString secondRow(const DepthTrackHeaderContent& content, const QPainter& painter, double dWidth)
{
    if (content.m_sValue.isEmpty() && content.m_sNote.isEmpty())
        return content.m_sUnit;
    const bool bNote = content.m_sValue.isEmpty();
    const QString sShort = bNote ? content.m_sNote : content.m_sValue;
    const QString sLong =
        bNote ? content.m_sUnit + QLatin1String("  ") + sShort : sShort + QLatin1Char(' ') + content.m_sUnit;
    const QFontMetricsF metrics(painter.font(), painter.device());
    if (metrics.horizontalAdvance(sLong) <= dWidth)
        return sLong.trimmed();
    return metrics.horizontalAdvance(sShort) <= dWidth ? sShort : QString(sShort).remove(QLatin1Char(' '));
}

/// The colours are those that the track draws on black, which comes with light texts, or on white.
void drawSample(QPainter& painter, const QRectF& oRow, const DepthTrackHeaderContent& content, const QColor& oTextColor)
{
    const QColor oBackground = oTextColor.lightnessF() > 0.5 ? Qt::black : Qt::white;
    const double dY = std::floor(oRow.center().y()) + 0.5;
    if (content.m_bLine) {
        painter.setPen(QPen(readableColor(content.m_oColor, oBackground, oTextColor), content.m_iLineWidth + 1.0));
        painter.drawLine(QPointF(oRow.left(), dY), QPointF(oRow.right(), dY));
    }
    if (content.m_bPoints) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(readableColor(content.m_oPointColor, oBackground, oTextColor));
        for (const double dShare : {0.1, 0.3, 0.5, 0.7, 0.9})
            painter.drawEllipse(QPointF(oRow.left() + dShare * oRow.width(), dY), g_dDot, g_dDot);
    }
}

} // namespace

DepthTrackHeaderContent depthTrackHeaderContent(const DepthTrack& track)
{
    if (!track.m_poValues)
        return {};
    const DepthTrackLimits limits = track.limits();
    const bool bTadpoles = track.m_eKind == DepthTrack::Tadpoles;
    return {track.name(),
            track.unitTag(),
            track.displayText(limits.m_dLeft),
            track.displayText(limits.m_dRight),
            QString(),
            track.color(),
            track.pointColor(),
            track.m_oStyle.m_bLine && !bTadpoles,
            track.m_oStyle.m_bPoints || bTadpoles,
            track.m_oStyle.m_iLineWidth,
            track.m_sNote};
}

int depthTrackHeaderHeight(const QFontMetricsF& metrics)
{
    return static_cast<int>(std::ceil(g_iTextRows * metrics.height() + g_dLineRoom + 2.0 * g_dMargin));
}

void drawDepthTrackHeader(QPainter& painter, const QRectF& oRect, const DepthTrackHeaderContent& content,
                          const QFont& oFont, const QColor& oTextColor)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(oTextColor, 1.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(oRect.adjusted(0.5, 0.5, -0.5, -0.5));
    const QRectF oInner = oRect.adjusted(g_dMargin, g_dMargin, -g_dMargin, -g_dMargin);
    const double dRow = QFontMetricsF(oFont, painter.device()).height();
    const auto row = [&oInner, dRow](int i) {
        return QRectF(oInner.left(), oInner.top() + i * dRow, oInner.width(), dRow);
    };
    painter.setFont(boldFont(oFont));
    drawElided(painter, row(0), Qt::AlignHCenter, content.m_sName);
    painter.setFont(content.m_sValue.isEmpty() ? oFont : boldFont(oFont));
    drawElided(painter, row(1), Qt::AlignHCenter, secondRow(content, painter, oInner.width()));
    painter.setFont(oFont);
    drawLimits(painter, row(2), content);
    drawSample(painter, QRectF(oInner.left(), row(g_iTextRows).top(), oInner.width(), g_dLineRoom), content,
               oTextColor);
    painter.restore();
}

DepthTrackHeader::DepthTrackHeader(QWidget* pqParent)
    : QWidget(pqParent)
{
}

void DepthTrackHeader::setContent(const DepthTrackHeaderContent& content)
{
    if (content == m_content)
        return;
    m_content = content;
    const QString sUnit = content.m_sUnit.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(content.m_sUnit);
    const QString sText = content.m_sName + sUnit;
    setToolTip(sText.toHtmlEscaped());
    setAccessibleName(tr("Track %1").arg(sText));
    update();
}

void DepthTrackHeader::setValue(const QString& sValue)
{
    if (sValue == m_content.m_sValue)
        return;
    m_content.m_sValue = sValue;
    update();
}

void DepthTrackHeader::setTextColor(const QColor& oColor)
{
    m_oTextColor = oColor;
    update();
}

void DepthTrackHeader::setCurrent(bool bCurrent)
{
    m_bCurrent = bCurrent;
    setAccessibleDescription(bCurrent ? tr("Active") : QString());
    update();
}

int DepthTrackHeader::heightForTexts() const
{
    return depthTrackHeaderHeight(QFontMetricsF(font(), this));
}

void DepthTrackHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawDepthTrackHeader(painter, rect(), m_content, font(), m_oTextColor);
    if (m_bCurrent) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
        painter.drawRect(QRectF(rect()).adjusted(1.0, 1.0, -1.0, -1.0));
    }
}

void DepthTrackHeader::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::LeftButton && rect().contains(pEvent->position().toPoint()))
        emit clicked();
}

} // namespace gkBase
