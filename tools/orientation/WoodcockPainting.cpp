#include "WoodcockPainting.h"

#include "WoodcockGeometry.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Height of the letters against the smaller side of the picture, and its bounds in pixels.
constexpr double g_dTextShare = 0.031;
constexpr double g_dSmallestText = 7.0;
constexpr double g_dLargestText = 40.0;
/// Labels of C stand on their lines where these have this K, between the lines of 1 and 2.
constexpr double g_dKOfLabels = 1.45;

class Diagram
{
    Q_DECLARE_TR_FUNCTIONS(gkBase::WoodcockPainting)

public:
    Diagram(QPainter& painter, const QSizeF& oSize, const WoodcockStyle& style)
        : m_painter(painter)
        , m_oSize(oSize)
        , m_oAxes(oSize)
        , m_style(style)
    {
        QFont oFont = painter.font();
        oFont.setPixelSize(qRound(
            std::clamp(g_dTextShare * std::min(oSize.width(), oSize.height()), g_dSmallestText, g_dLargestText)));
        painter.setFont(oFont);
        m_dEm = oFont.pixelSize();
    }

    void draw()
    {
        drawLines();
        drawAxes();
        drawLabelsOfK();
        drawLabelsOfC();
        drawWords();
        drawTitles();
    }

private:
    void drawLines();
    void drawAxes();
    void drawLabelsOfK();
    void drawLabelsOfC();
    void drawWords();
    void drawTitles();
    QLineF pixels(const QLineF& oValues) const
    {
        return {m_oAxes.pixel(oValues.x1(), oValues.y1()), m_oAxes.pixel(oValues.x2(), oValues.y2())};
    }
    /// A text about a point, turned by degrees clockwise; bOnLine clears the ground under it.
    void drawCentred(const QPointF& oCentre, const QString& sText, double dAngle, bool bOnLine);
    /// A text in a box whose edge or corner is the point.
    void drawBeside(const QPointF& oPoint, const QString& sText, Qt::Alignment eSide);

    QPainter& m_painter;
    const QSizeF m_oSize;
    const WoodcockAxes m_oAxes;
    const WoodcockStyle& m_style;
    double m_dEm = 0.0; ///< height of the letters
};

void Diagram::drawCentred(const QPointF& oCentre, const QString& sText, double dAngle, bool bOnLine)
{
    const QFontMetricsF metrics(m_painter.font(), m_painter.device());
    const QSizeF oText(metrics.horizontalAdvance(sText) + 0.5 * m_dEm, metrics.height());
    const QRectF oBox(QPointF(-oText.width() / 2.0, -oText.height() / 2.0), oText);
    m_painter.save();
    m_painter.translate(oCentre);
    m_painter.rotate(dAngle);
    if (bOnLine)
        m_painter.fillRect(oBox, m_style.m_oBackground);
    m_painter.setPen(m_style.m_oLabel);
    m_painter.drawText(oBox, Qt::AlignCenter | Qt::TextDontClip, sText);
    m_painter.restore();
}

void Diagram::drawBeside(const QPointF& oPoint, const QString& sText, Qt::Alignment eSide)
{
    const QFontMetricsF metrics(m_painter.font(), m_painter.device());
    QRectF oBox(QPointF(0.0, 0.0), QSizeF(metrics.horizontalAdvance(sText), metrics.height()));
    oBox.moveCenter(oPoint);
    const double dGap = 0.35 * m_dEm;
    if (eSide & Qt::AlignLeft)
        oBox.moveRight(oPoint.x() - dGap);
    if (eSide & Qt::AlignRight)
        oBox.moveLeft(oPoint.x() + dGap);
    if (eSide & Qt::AlignTop)
        oBox.moveBottom(oPoint.y() - dGap);
    if (eSide & Qt::AlignBottom)
        oBox.moveTop(oPoint.y() + dGap);
    m_painter.setPen(m_style.m_oLabel);
    m_painter.drawText(oBox, Qt::AlignCenter | Qt::TextDontClip, sText);
}

void Diagram::drawLines()
{
    const double dWidth = std::max(1.0, 0.08 * m_dEm);
    m_painter.setPen(QPen(m_style.m_oGrid, dWidth, Qt::DashLine));
    for (const WoodcockLine& line : woodcockLinesOfC())
        m_painter.drawLine(pixels(line.m_oLine));
    for (const WoodcockLine& line : woodcockLinesOfK()) {
        // K = 1 parts clusters from girdles.
        const bool bDivide = line.m_dValue == 1.0;
        m_painter.setPen(QPen(bDivide ? m_style.m_oLabel : m_style.m_oGrid, dWidth));
        m_painter.drawLine(pixels(line.m_oLine));
    }
}

void Diagram::drawAxes()
{
    m_painter.setPen(QPen(m_style.m_oLabel, std::max(1.0, 0.12 * m_dEm), Qt::SolidLine, Qt::SquareCap));
    m_painter.drawLine(m_oAxes.m_oOrigin, m_oAxes.m_oX5);
    m_painter.drawLine(m_oAxes.m_oOrigin, m_oAxes.m_oY5);
    const double dTick = 0.4 * m_dEm;
    for (int i = 0; i <= static_cast<int>(WoodcockAxes::s_dEnd); ++i) {
        const QPointF oX = m_oAxes.pixel(i, 0.0);
        const QPointF oY = m_oAxes.pixel(0.0, i);
        m_painter.setPen(QPen(m_style.m_oLabel, std::max(1.0, 0.12 * m_dEm)));
        m_painter.drawLine(oX, oX + QPointF(0.0, dTick));
        m_painter.drawLine(oY, oY - QPointF(dTick, 0.0));
        drawBeside(oX + QPointF(0.0, dTick), QString::number(i), Qt::AlignBottom);
        drawBeside(oY - QPointF(dTick, 0.0), QString::number(i), Qt::AlignLeft);
    }
}

void Diagram::drawLabelsOfK()
{
    for (const WoodcockLine& line : woodcockLinesOfK()) {
        Qt::Alignment eSide = line.m_dValue >= 1.0 ? Qt::AlignTop : Qt::AlignRight;
        if (line.m_dValue == 1.0)
            eSide |= Qt::AlignRight;
        const QPointF oEnd = m_oAxes.pixel(line.m_oLine.x2(), line.m_oLine.y2());
        drawBeside(oEnd, tr("K = %1").arg(line.m_dValue), eSide);
    }
}

void Diagram::drawLabelsOfC()
{
    for (const WoodcockLine& line : woodcockLinesOfC()) {
        const double dX = line.m_dValue / (1.0 + g_dKOfLabels);
        const QLineF oLine = pixels(line.m_oLine);
        const double dAngle = std::atan2(std::abs(oLine.dy()), std::abs(oLine.dx())) * 45.0 / std::atan(1.0);
        drawCentred(m_oAxes.pixel(dX, line.m_dValue - dX), tr("C = %1").arg(line.m_dValue), dAngle, true);
    }
}

void Diagram::drawWords()
{
    const QFont oFont = m_painter.font();
    QFont oBold = oFont;
    oBold.setBold(true);
    m_painter.setFont(oBold);
    // Between the lines K = 2 and 5, and K = 0.2 and 0.5, where these leave room.
    drawCentred(m_oAxes.pixel(1.66, 4.74), tr("CLUSTERS"), 0.0, true);
    drawCentred(m_oAxes.pixel(4.2, 1.43), tr("GIRDLES"), 0.0, true);
    m_painter.setFont(oFont);
}

void Diagram::drawTitles()
{
    const double dHalf = WoodcockAxes::s_dEnd / 2.0;
    const double dX = (m_oAxes.m_oOrigin.x() - 1.6 * m_dEm) / 2.0;
    const double dBottom = m_oAxes.m_oOrigin.y() + 1.8 * m_dEm;
    drawCentred({m_oAxes.pixel(dHalf, 0.0).x(), (dBottom + m_oSize.height()) / 2.0}, tr("ln(S2/S3)"), 0.0, false);
    drawCentred({dX, m_oAxes.pixel(0.0, dHalf).y()}, tr("ln(S1/S2)"), -90.0, false);
}

} // namespace

void drawWoodcockDiagram(QPainter& painter, const QSizeF& oSize, const WoodcockStyle& style)
{
    if (oSize.isEmpty())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    Diagram(painter, oSize, style).draw();
    painter.restore();
}

} // namespace gkBase
