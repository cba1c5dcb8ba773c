#include "ChartViewport.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Keeps programmatic zooms of any size inside what integer pixels can count.
constexpr double g_dMaxChartSide = 1 << 24;
/// A wheel reports eighths of a degree and turns 15 degrees per notch.
constexpr int g_iWheelUnitsPerDegree = 8;
constexpr int g_iDegreesPerStep = 15;
constexpr double g_dZoomPerStep = 0.1;
/// Zooms per unit that a wheel can tell apart.
constexpr double g_dZoomGrain = 1e6;

/// Halves go up for negative numbers too, so that a view stays in place when the chart shrinks below it.
int rounded(double dValue)
{
    return static_cast<int>(std::floor(dValue + 0.5));
}

int magnified(int iLength, double dZoom)
{
    return rounded(std::min(iLength * dZoom, g_dMaxChartSide));
}

int offsetOf(int iChart, int iView, double dPercent)
{
    return rounded((static_cast<double>(iChart) - iView) * dPercent / 100.0);
}

/// The percentage that offsetOf() turns into the offset; what it was when all of the chart is seen.
double percentOf(int iOffset, int iChart, int iView, double dPercent)
{
    return iChart > iView ? std::clamp(iOffset * 100.0 / (static_cast<double>(iChart) - iView), 0.0, 100.0) : dPercent;
}

} // namespace

void ChartViewport::setViewSize(const QSize& oSize)
{
    m_oViewSize = oSize.expandedTo(QSize(0, 0));
}

bool ChartViewport::setZoom(double dZoom, bool bHeightOnly)
{
    if (!std::isfinite(dZoom) || dZoom <= 0.0)
        return false;
    m_dZoom = dZoom;
    m_bHeightOnly = bHeightOnly;
    return true;
}

void ChartViewport::setPercentX(int iPercent)
{
    m_dPercentX = std::clamp(iPercent, 0, 100);
}

void ChartViewport::setPercentY(int iPercent)
{
    m_dPercentY = std::clamp(iPercent, 0, 100);
}

int ChartViewport::percentX() const
{
    return rounded(m_dPercentX);
}

int ChartViewport::percentY() const
{
    return rounded(m_dPercentY);
}

void ChartViewport::setOffset(const QPoint& oOffset)
{
    const QSize oChart = chartSize();
    m_dPercentX = percentOf(oOffset.x(), oChart.width(), m_oViewSize.width(), m_dPercentX);
    m_dPercentY = percentOf(oOffset.y(), oChart.height(), m_oViewSize.height(), m_dPercentY);
}

QSize ChartViewport::chartSize() const
{
    const int iWidth = m_bHeightOnly ? m_oViewSize.width() : magnified(m_oViewSize.width(), m_dZoom);
    return {iWidth, magnified(m_oViewSize.height(), m_dZoom)};
}

QPoint ChartViewport::offset() const
{
    if (m_dZoom == 1.0)
        return {0, 0};
    const QSize oChart = chartSize();
    return {offsetOf(oChart.width(), m_oViewSize.width(), m_dPercentX),
            offsetOf(oChart.height(), m_oViewSize.height(), m_dPercentY)};
}

double ChartViewport::wheelZoom(double dZoom, int iDelta)
{
    // Two truncating divisions: a turn below one notch changes nothing.
    const int iSteps = iDelta / g_iWheelUnitsPerDegree / g_iDegreesPerStep;
    if (iSteps == 0)
        return dZoom;
    // Tenths have no exact sum: without rounding, as many notches back as forth would end beside 1.
    const double dNew = std::round((dZoom + iSteps * g_dZoomPerStep) * g_dZoomGrain) / g_dZoomGrain;
    return std::clamp(dNew, s_dMinZoom, s_dMaxZoom);
}

} // namespace gkBase
