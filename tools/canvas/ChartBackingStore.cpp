#include "ChartBackingStore.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr qint64 g_iBytesPerPixel = 4;
/// A tile is at most twice as wide and as high as the view.
constexpr double g_dMaxTileFactor = 2.0;

bool isWhole(qreal dValue)
{
    return dValue == std::floor(dValue);
}

/// Start of a stretch of iLength that has the view in its middle and lies inside 0 … iChart.
int tileStart(int iViewStart, int iViewLength, int iLength, int iChart)
{
    const int iCentred = iViewStart - (iLength - iViewLength) / 2;
    return std::clamp(iCentred, 0, std::max(0, iChart - iLength));
}

} // namespace

qint64 ChartBackingStore::bytes(const QSize& oSize, qreal dDevicePixelRatio)
{
    const double dPixels = std::ceil(oSize.width() * dDevicePixelRatio) * std::ceil(oSize.height() * dDevicePixelRatio);
    return static_cast<qint64>(dPixels) * g_iBytesPerPixel;
}

QRect ChartBackingStore::coverageFor(const QSize& oChart, const QRect& oVisible, qreal dDevicePixelRatio,
                                     qint64 iBudget)
{
    if (oChart.isEmpty() || oVisible.isEmpty())
        return {};
    if (bytes(oChart, dDevicePixelRatio) <= iBudget)
        return {QPoint(0, 0), oChart};
    const double dViewBytes = static_cast<double>(bytes(oVisible.size(), dDevicePixelRatio));
    const double dFactor = std::clamp(std::sqrt(static_cast<double>(iBudget) / dViewBytes), 1.0, g_dMaxTileFactor);
    const int iWidth = std::min(oChart.width(), static_cast<int>(oVisible.width() * dFactor));
    const int iHeight = std::min(oChart.height(), static_cast<int>(oVisible.height() * dFactor));
    return {tileStart(oVisible.left(), oVisible.width(), iWidth, oChart.width()),
            tileStart(oVisible.top(), oVisible.height(), iHeight, oChart.height()), iWidth, iHeight};
}

QRegion ChartBackingStore::reset(const QSize& oChart, const QRect& oVisible, qreal dDevicePixelRatio)
{
    m_oChart = oChart;
    m_dDevicePixelRatio = dDevicePixelRatio;
    allocate(coverageFor(oChart, oVisible, dDevicePixelRatio, m_iBudget));
    return m_oCoverage;
}

void ChartBackingStore::allocate(const QRect& oCoverage)
{
    const QSize oPixels(static_cast<int>(std::ceil(oCoverage.width() * m_dDevicePixelRatio)),
                        static_cast<int>(std::ceil(oCoverage.height() * m_dDevicePixelRatio)));
    m_oCoverage = oCoverage;
    if (m_oPixmap.size() != oPixels) {
        m_oPixmap = QPixmap(); // frees the old pixels before the new ones are taken
        if (!oPixels.isEmpty())
            m_oPixmap = QPixmap(oPixels);
    }
    m_oPixmap.setDevicePixelRatio(m_dDevicePixelRatio);
}

bool ChartBackingStore::covers(const QRect& oVisible) const
{
    const QRect oNeeded = oVisible & QRect(QPoint(0, 0), m_oChart);
    return oNeeded.isEmpty() || m_oCoverage.contains(oNeeded);
}

QRegion ChartBackingStore::moveTo(const QRect& oVisible)
{
    if (covers(oVisible))
        return {};
    const QRect oOld = m_oCoverage;
    const QRect oNew = coverageFor(m_oChart, oVisible, m_dDevicePixelRatio, m_iBudget);
    allocate(oNew);
    // At a fractional pixel ratio the kept pixels would not fall on whole device pixels.
    if (oNew.size() != oOld.size() || !isWhole(m_dDevicePixelRatio) || !oOld.intersects(oNew))
        return oNew;
    const QPoint oShift = (oOld.topLeft() - oNew.topLeft()) * static_cast<int>(m_dDevicePixelRatio);
    m_oPixmap.scroll(oShift.x(), oShift.y(), m_oPixmap.rect());
    return QRegion(oNew) - QRegion(oOld);
}

} // namespace gkBase
