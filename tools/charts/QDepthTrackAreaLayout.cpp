// Where the parts of a row of tracks stand, on the screen and in pictures.

#include "AxisCopy.h"
#include "AxisTicks.h"
#include "DepthTrackHeader.h"
#include "ElidedLabel.h"
#include "MatrixData.h"
#include "QCartesianAxisWidget.h"
#include "QDepthTrackArea.h"
#include "QDepthTrackPlot.h"
#include "ScaleMap.h"
#include "UnitManager.h"

#include <QFontMetricsF>
#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr int g_iMargin = 6;
constexpr int g_iSpacing = 2;
constexpr int g_iTitleGap = 4;
/// A narrower track has no room for two limits; a row that would need one is scrolled.
constexpr int g_iLettersOfTrack = 9;
constexpr int g_iGridColumns = 5;
constexpr double g_dSmallestColumn = 14.0; ///< pixels between grid lines
constexpr int g_iMarkersMeasured = 500;    ///< names that decide about the width of their column
constexpr int g_iMarkerColumnLetters = 18;
constexpr double g_dMarkerLeader = 24.0;
constexpr QLatin1String g_widestDepth("00000.00 m");
constexpr double g_dRightAngle = 90.0;
constexpr double g_dAngleColumns = 3.0; ///< of 0 … 90 degrees

} // namespace

struct QDepthTrackArea::Places
{
    QRect m_oTitle;
    QRect m_oDepthHeader;
    QRect m_oAxis;
    QRect m_oMarkerColumn; ///< of no width without markers
    QRect m_oTracks;       ///< headers and plots of all tracks
    int m_iHeader = 0;     ///< height of the headers
    int m_iTrackWidth = 0; ///< with the gap to the next one
};

int QDepthTrackArea::markerColumnWidth() const
{
    if (!m_bMarkerLabels || !m_pMarkers || m_pMarkers->m_vLines.empty())
        return 0;
    const QFontMetricsF metrics(m_oChartFont, this);
    double dWidest = 0.0;
    const std::size_t iNames = std::min<std::size_t>(m_pMarkers->m_vLines.size(), g_iMarkersMeasured);
    for (std::size_t i = 0; i < iNames; ++i)
        dWidest = std::max(dWidest, metrics.horizontalAdvance(m_pMarkers->m_vLines[i].m_sName));
    const double dMost = g_iMarkerColumnLetters * metrics.averageCharWidth();
    return static_cast<int>(std::ceil(std::min(dWidest, dMost) + g_dMarkerLeader));
}

QDepthTrackArea::Places QDepthTrackArea::places(const QRect& oRect) const
{
    const QFontMetricsF metrics(m_oChartFont, this);
    Places result;
    const QRect oInner = oRect.adjusted(g_iMargin, g_iMargin, -g_iMargin, -g_iMargin);
    const int iTitle = m_pqTitle->text().isEmpty()
                           ? 0
                           : static_cast<int>(std::ceil(QFontMetricsF(m_pqTitle->font(), this).height())) + g_iTitleGap;
    result.m_oTitle = QRect(oInner.left(), oInner.top(), oInner.width(), iTitle);
    result.m_iHeader = depthTrackHeaderHeight(metrics);
    const int iTop = oInner.top() + iTitle;
    const int iPlots = iTop + result.m_iHeader + g_iSpacing;
    const int iPlotHeight = std::max(0, oInner.bottom() + 1 - iPlots);
    const int iDepth = std::max(m_pqAxis->thickness(),
                                static_cast<int>(std::ceil(metrics.horizontalAdvance(g_widestDepth))) + 2 * g_iMargin);
    result.m_oDepthHeader = QRect(oInner.left(), iTop, iDepth, result.m_iHeader);
    result.m_oAxis = QRect(oInner.left(), iPlots, iDepth, iPlotHeight);
    int iLeft = oInner.left() + iDepth;
    const int iMarkers = markerColumnWidth();
    result.m_oMarkerColumn = QRect(iLeft, iPlots, iMarkers, iPlotHeight);
    iLeft += iMarkers > 0 ? iMarkers + g_iSpacing : 0;
    result.m_oTracks = QRect(iLeft, iTop, std::max(0, oInner.right() + 1 - iLeft), oInner.bottom() + 1 - iTop);
    if (!m_vViews.empty())
        result.m_iTrackWidth = result.m_oTracks.width() / numberOfTracks();
    return result;
}

void QDepthTrackArea::layoutTracks()
{
    const QFontMetricsF metrics(m_oChartFont, this);
    const int iSmallest = static_cast<int>(std::ceil(g_iLettersOfTrack * metrics.averageCharWidth()));
    const int iBar = m_pqVerticalScrollBar->sizeHint().width();
    const int iWidth = std::max(0, width() - iBar - g_iSpacing);
    Places place = places({0, 0, iWidth, height()});
    const bool bScrolled = place.m_iTrackWidth < iSmallest && !m_vViews.empty();
    const int iBottomBar = bScrolled ? m_pqHorizontalScrollBar->sizeHint().height() + g_iSpacing : 0;
    const QRect oFrame(0, 0, iWidth, std::max(0, height() - iBottomBar));
    place = places(oFrame);
    place.m_iTrackWidth = std::max(place.m_iTrackWidth, iSmallest);

    m_pqFrame->setGeometry(oFrame);
    m_pqTitle->setGeometry(place.m_oTitle);
    m_pqDepthHeader->setGeometry(place.m_oDepthHeader);
    m_pqAxis->setGeometry(place.m_oAxis);
    m_pqMessage->setGeometry(place.m_oTracks.adjusted(0, place.m_iHeader, 0, 0));
    // Hidden or not, its height is that of the tracks.
    m_pqMarkerColumn->setGeometry(place.m_oMarkerColumn);
    m_pqMarkerColumn->setVisible(place.m_oMarkerColumn.width() > 0);
    m_pqViewport->setGeometry(place.m_oTracks);
    m_pqVerticalScrollBar->setGeometry(width() - iBar, 0, iBar, oFrame.height());
    m_pqHorizontalScrollBar->setGeometry(0, height() - iBottomBar + g_iSpacing, iWidth,
                                         std::max(0, iBottomBar - g_iSpacing));
    m_pqHorizontalScrollBar->setVisible(bScrolled);
    const int iContent = place.m_iTrackWidth * numberOfTracks();
    m_pqHorizontalScrollBar->setRange(0, bScrolled ? std::max(0, iContent - place.m_oTracks.width()) : 0);
    m_pqHorizontalScrollBar->setPageStep(std::max(1, place.m_oTracks.width()));
    m_pqHorizontalScrollBar->setSingleStep(std::max(1, place.m_iTrackWidth / 4));
    m_pqContent->setGeometry(-m_pqHorizontalScrollBar->value(), 0, iContent, place.m_oTracks.height());
    for (int i = 0; i < numberOfTracks(); ++i) {
        const View& view = m_vViews[static_cast<std::size_t>(i)];
        const int iTrack = place.m_iTrackWidth - g_iSpacing;
        view.m_pqHeader->setGeometry(i * place.m_iTrackWidth, 0, iTrack, place.m_iHeader);
        view.m_pqPlot->setGeometry(i * place.m_iTrackWidth, place.m_iHeader + g_iSpacing, iTrack,
                                   place.m_oAxis.height());
        view.m_pqPlot->verticalGridLinesChanged(gridColumns(view.m_oTrack, iTrack));
    }
    syncDepth();
}

QList<int> QDepthTrackArea::gridColumns(const DepthTrack& track, int iWidth) const
{
    QList<int> viColumns;
    const MatrixData* poValues = track.m_poValues.get();
    if (!poValues)
        return viColumns;
    const boost::shared_ptr<UnitManager> poUnit = poValues->unitManager();
    const DepthTrackLimits limits = track.limits();
    const double dLeft = poUnit->convertModelToDisplay(limits.m_dLeft);
    const double dRight = poUnit->convertModelToDisplay(limits.m_dRight);
    const int iMost = std::clamp(static_cast<int>(iWidth / g_dSmallestColumn), 1, g_iGridColumns);
    const double dMin = std::min(dLeft, dRight);
    const double dMax = std::max(dLeft, dRight);
    const ScaleMap oMap(dLeft, dRight, 0.0, iWidth - 1.0);
    // Apparent dips are read to both sides of 0.
    if (dMin == -dMax) {
        for (const double dTick : {dMin, dMin / 2.0, 0.0, dMax / 2.0, dMax})
            viColumns.append(static_cast<int>(std::lround(oMap.toPixel(dTick))));
        return viColumns;
    }
    // Dips and azimuths are read in parts of a right angle.
    if (dMin == 0.0 && std::fmod(dMax, g_dRightAngle) == 0.0) {
        const double dStep = dMax > g_dRightAngle ? g_dRightAngle : g_dRightAngle / g_dAngleColumns;
        for (double dTick = 0.0; dTick <= dMax && poUnit->category() == QLatin1String("orientation"); dTick += dStep)
            viColumns.append(static_cast<int>(std::lround(oMap.toPixel(dTick))));
    }
    if (!viColumns.isEmpty())
        return viColumns;
    for (const double dTick : axisTicks(dMin, dMax, niceStep(dMin, dMax, iMost)).m_vMajor)
        viColumns.append(static_cast<int>(std::lround(oMap.toPixel(dTick))));
    std::sort(viColumns.begin(), viColumns.end());
    return viColumns;
}

// ---- pictures -------------------------------------------------------------------------------------------------------

void QDepthTrackArea::renderTrack(QPainter& painter, const View& view, const QRect& oRect, int iHeader,
                                  const QList<int>& viGridRows) const
{
    DepthTrackHeaderContent content = view.m_pqHeader->content();
    content.m_sValue.clear(); // the cursor is no part of a picture
    drawDepthTrackHeader(painter, QRectF(oRect.left(), oRect.top(), oRect.width(), iHeader), content, m_oChartFont,
                         labelColor());
    const QRect oPlot = oRect.adjusted(0, iHeader + g_iSpacing, 0, 0);
    view.m_pqPlot->renderWithGrid(painter, oPlot, gridColumns(view.m_oTrack, oPlot.width()), viGridRows);
}

void QDepthTrackArea::renderTo(QPainter& painter, const QRectF& oTarget)
{
    const Places place = places(oTarget.toRect());
    if (place.m_oAxis.height() < 2 || place.m_oTracks.width() < 2)
        return;
    painter.save();
    painter.fillRect(oTarget, backgroundColor());
    painter.setPen(labelColor());
    painter.setFont(m_pqTitle->font());
    const QFontMetricsF titleMetrics(m_pqTitle->font(), painter.device());
    painter.drawText(place.m_oTitle, Qt::AlignHCenter | Qt::AlignTop,
                     titleMetrics.elidedText(m_pqTitle->text(), Qt::ElideRight, place.m_oTitle.width()));
    painter.setFont(m_oChartFont);
    if (!m_pqMessage->text().isEmpty()) {
        painter.drawText(place.m_oTracks, Qt::AlignCenter | Qt::TextWordWrap, m_pqMessage->text());
        painter.restore();
        return;
    }
    DepthTrackHeaderContent depthContent = m_pqDepthHeader->content();
    depthContent.m_sValue.clear();
    drawDepthTrackHeader(painter, place.m_oDepthHeader, depthContent, m_oChartFont, labelColor());
    const auto pqAxis = axisOfLength(*m_pqAxis, place.m_oAxis.height());
    pqAxis->setAxisColor(labelColor());
    if (place.m_oMarkerColumn.width() > 0)
        m_pqMarkerColumn->renderWithGrid(painter, place.m_oMarkerColumn, {}, pqAxis->gridLines());
    for (int i = 0; i < numberOfTracks() && place.m_iTrackWidth > g_iSpacing + 1; ++i) {
        const QRect oTrack(place.m_oTracks.left() + i * place.m_iTrackWidth, place.m_oTracks.top(),
                           place.m_iTrackWidth - g_iSpacing, place.m_oTracks.height());
        renderTrack(painter, m_vViews[static_cast<std::size_t>(i)], oTrack, place.m_iHeader, pqAxis->gridLines());
    }
    // The axis line stands at the left edge of what is right of it.
    pqAxis->drawAxis(painter, QRect(place.m_oAxis.right() + 1, place.m_oAxis.top(), 1, place.m_oAxis.height()));
    painter.restore();
}

} // namespace gkBase
