#include "QProbabilityPlot.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace gkBase {

namespace {

constexpr int g_iSymbolSize = 3;
/// Thinner than the points, so that they are seen on both sides.
constexpr double g_dLineWidth = 2.0;
constexpr double g_dBoxDistance = 8.0;
constexpr double g_dBoxPadding = 5.0;
/// Grey levels, of 255, by which points differ from the background at least.
constexpr int g_iSmallestContrast = 60;

} // namespace

QProbabilityPlot::QProbabilityPlot(QWidget* pqParent, const QString& sName)
    : QHistogramPlotWidget(pqParent, sName)
{
}

void QProbabilityPlot::setValues(std::vector<double> vdSorted)
{
    m_vdSorted = std::move(vdSorted);
    m_oFit = normalProbabilityFit(m_vdSorted);
    scheduleRedraw();
}

void QProbabilityPlot::setSymbolColor(const QColor& oColor)
{
    m_oSymbolColor = oColor;
    scheduleRedraw();
}

void QProbabilityPlot::setResultLines(const QStringList& lLines)
{
    m_lResultLines = lLines;
    update();
}

// ---- drawing --------------------------------------------------------------------------------------------------------

void QProbabilityPlot::layoutChart()
{
    QHistogramPlotWidget::layoutChart();
    m_vPoints = probabilityPoints(m_vdSorted, map());
    m_oLine = fitLine(m_oFit, map());
}

void QProbabilityPlot::drawHistogram(QPainter* pPainter)
{
    std::vector<QPointF> vPixels;
    vPixels.reserve(m_vPoints.size());
    for (const ProbabilityPoint& point : m_vPoints)
        vPixels.push_back(point.m_oPixel);
    const bool bSeen = std::abs(qGray(m_oSymbolColor.rgb()) - qGray(m_oBackgroundColor.rgb())) >= g_iSmallestContrast;
    const QColor oColor = bSeen ? m_oSymbolColor : m_oLabelColor;
    m_oSprites.drawSymbols(pPainter, vPixels, {Circle, oColor, oColor, g_iSymbolSize});
}

void QProbabilityPlot::drawStatisticMeasures(QPainter* pPainter)
{
    if (m_oLine.isNull())
        return;
    pPainter->setRenderHint(QPainter::Antialiasing, true);
    pPainter->setPen(QPen(m_oLabelColor, g_dLineWidth, Qt::SolidLine, Qt::FlatCap));
    pPainter->drawLine(m_oLine);
}

void QProbabilityPlot::drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea)
{
    if (m_vdSorted.empty()) {
        drawNoValues(painter, oVisibleArea);
        return;
    }
    const QFontMetricsF metrics(painter.font(), painter.device());
    double dWidth = 0.0;
    for (const QString& sLine : std::as_const(m_lResultLines))
        dWidth = std::max(dWidth, metrics.horizontalAdvance(sLine));
    const double dHeight = metrics.lineSpacing() * static_cast<double>(m_lResultLines.size());
    const QRectF oBox = freeCorner(
        QSizeF(std::ceil(dWidth + 2.0 * g_dBoxPadding), std::ceil(dHeight + 2.0 * g_dBoxPadding)), oVisibleArea);
    // A chart with no more room than for the box is better seen without it.
    if (m_lResultLines.isEmpty() || !QRectF(QPointF(0, 0), oVisibleArea.size()).contains(oBox))
        return;
    painter.setPen(QPen(m_oLabelColor, 1.0));
    painter.setBrush(m_oBackgroundColor);
    painter.drawRect(oBox);
    painter.drawText(oBox.adjusted(g_dBoxPadding, g_dBoxPadding, 0.0, 0.0), Qt::AlignLeft | Qt::AlignTop,
                     m_lResultLines.join(QLatin1Char('\n')));
}

/// The curve rises from the lower left to the upper right; the other corner with fewer points in it is free.
QRectF QProbabilityPlot::freeCorner(const QSizeF& oBox, const QRect& oVisibleArea) const
{
    const QRectF oUpper(QPointF(g_dBoxDistance, g_dBoxDistance), oBox);
    const QRectF oLower(QPointF(oVisibleArea.width() - 1.0 - g_dBoxDistance - oBox.width(),
                                oVisibleArea.height() - 1.0 - g_dBoxDistance - oBox.height()),
                        oBox);
    const auto covered = [this, &oVisibleArea](const QRectF& oCorner) {
        const QRectF oOnChart = oCorner.translated(oVisibleArea.topLeft());
        return std::count_if(m_vPoints.begin(), m_vPoints.end(),
                             [&oOnChart](const ProbabilityPoint& point) { return oOnChart.contains(point.m_oPixel); });
    };
    return covered(oLower) <= covered(oUpper) ? oLower : oUpper;
}

// ---- mouse ----------------------------------------------------------------------------------------------------------

int QProbabilityPlot::intervalAt(const QPointF& oPixel) const
{
    const ProbabilityPoint* pPoint = probabilityPointAt(m_vPoints, oPixel);
    return pPoint ? static_cast<int>(pPoint - m_vPoints.data()) : -1;
}

QString QProbabilityPlot::intervalToolTip(int iInterval) const
{
    if (iInterval < 0 || iInterval >= static_cast<int>(m_vPoints.size()))
        return {};
    const std::size_t iRank = m_vPoints[static_cast<std::size_t>(iInterval)].m_iRank;
    const double dValue = m_vdSorted[iRank];
    const QString sValue = m_fnValueText ? m_fnValueText(dValue) : QString::number(dValue, 'g', 6);
    const QString sPercent = QString::number(100.0 * plottingPosition(iRank, m_vdSorted.size()), 'g', 4);
    return tr("%1\n%2 % of the values").arg(sValue, sPercent);
}

} // namespace gkBase
