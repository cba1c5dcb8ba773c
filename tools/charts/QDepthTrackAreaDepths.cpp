// The depths that a row of tracks shows: range, zoom and pan, and what the headers read at the cursor.

#include "DepthTrackHeader.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "QCartesianAxisWidget.h"
#include "QDepthTrackArea.h"
#include "QDepthTrackPlot.h"
#include "UnitText.h"

#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Room above and below the records, as a share of their range, so that symbols at the ends are seen whole.
constexpr double g_dRangeMargin = 0.01;
constexpr double g_dMarginOfOneDepth = 0.5;
/// How far beyond the records the cursor still reads the last one, as a share of the shown range.
constexpr double g_dReadOutReach = 0.01;

/// A model value in display units; whole numbers have no decimals, others the unit's unless they are given.
QString readOut(const MatrixData& node, double dValue, int iDecimals = -1)
{
    return displayNumber(&node, dValue, node.type() == QMetaType::Double ? iDecimals : 0);
}

} // namespace

// ---- depth range, zoom and pan --------------------------------------------------------------------------------------

void QDepthTrackArea::dataRange(double& dMin, double& dMax) const
{
    dMin = g_dMissingValue;
    dMax = g_dMissingValue;
    if (const MatrixData* poDepth = m_poDepth.get())
        poDepth->getMinMax(dMin, dMax);
}

void QDepthTrackArea::showWholeRange()
{
    double dMin = 0.0;
    double dMax = 0.0;
    dataRange(dMin, dMax);
    m_bWholeRange = true;
    if (isMissing(dMin) || isMissing(dMax)) {
        applyDepthRange(0.0, 1.0);
        return;
    }
    const double dMargin = dMin < dMax ? (dMax - dMin) * g_dRangeMargin : g_dMarginOfOneDepth;
    applyDepthRange(dMin - dMargin, dMax + dMargin);
}

void QDepthTrackArea::setDepthRange(double dFrom, double dTo)
{
    if (isMissing(dFrom) || isMissing(dTo) || dFrom == dTo)
        return;
    m_bWholeRange = false;
    applyDepthRange(dFrom, dTo);
}

void QDepthTrackArea::applyDepthRange(double dFrom, double dTo)
{
    m_dFrom = std::min(dFrom, dTo);
    m_dTo = std::max(dFrom, dTo);
    m_pqAxis->setRange(m_dFrom, m_dTo);
    for (QDepthTrackPlot* pqPlot : allPlots())
        pqPlot->setDepthRange(m_dFrom, m_dTo);
    syncDepth();
}

void QDepthTrackArea::setZoom(double dZoom)
{
    if (dZoom != m_dZoom)
        slotZoomAsked(dZoom, m_pqAxis->height() / 2.0);
}

void QDepthTrackArea::slotZoomAsked(double dZoom, double dRow)
{
    const double dShare = (m_pqMarkerColumn->pixmapRect().top() + dRow) / m_pqMarkerColumn->chartSize().height();
    m_dZoom = dZoom;
    for (QDepthTrackPlot* pqPlot : allPlots())
        pqPlot->zoomY(dZoom);
    panToRow(static_cast<int>(std::lround(dShare * m_pqMarkerColumn->chartSize().height() - dRow)));
    emit zoomChanged(dZoom);
}

void QDepthTrackArea::panToRow(int iRow)
{
    for (QDepthTrackPlot* pqPlot : allPlots())
        pqPlot->panTo({0, iRow});
    syncDepth();
}

int QDepthTrackArea::rowForCentre(double dDepth) const
{
    const double dRow = m_pqMarkerColumn->transformInPixelPoint({0.0, dDepth}).y();
    return static_cast<int>(std::lround(dRow - m_pqMarkerColumn->pixmapRect().height() / 2.0));
}

void QDepthTrackArea::syncDepth()
{
    // The column of the markers has the height of all tracks, whether it is shown or not.
    const QRect oVisible = m_pqMarkerColumn->pixmapRect();
    m_pqAxis->setZoom(m_dZoom);
    m_pqAxis->setOffset(oVisible.top());
    const QSignalBlocker blocker(m_pqVerticalScrollBar);
    m_pqVerticalScrollBar->setRange(0, std::max(0, m_pqMarkerColumn->chartSize().height() - oVisible.height()));
    m_pqVerticalScrollBar->setPageStep(oVisible.height());
    m_pqVerticalScrollBar->setSingleStep(std::max(1, oVisible.height() / 20));
    m_pqVerticalScrollBar->setValue(oVisible.top());
}

// ---- cursor ---------------------------------------------------------------------------------------------------------

void QDepthTrackArea::setCursor(double dDepth)
{
    for (QDepthTrackPlot* pqPlot : allPlots())
        pqPlot->setCursorLine(dDepth);
    showReadOuts(dDepth);
}

void QDepthTrackArea::showReadOuts(double dDepth)
{
    const bool bNone = isMissing(dDepth) || !m_poDepth;
    m_pqDepthHeader->setValue(bNone ? QString() : displayNumber(m_poDepth.get(), dDepth));
    if (!bNone && m_bOrderOutdated) {
        m_vdDepths = m_poDepth->column().numbers();
        m_oOrder = DepthOrder(m_vdDepths);
        m_bOrderOutdated = false;
    }
    const int iRecord = bNone ? -1 : m_oOrder.recordAt(m_vdDepths, dDepth, (m_dTo - m_dFrom) * g_dReadOutReach);
    const auto valueOf = [iRecord](const MatrixData& node, int iDecimals) {
        return readOut(node, iRecord >= 0 ? node.recordNumber(iRecord) : g_dMissingValue, iDecimals);
    };
    for (const View& view : m_vViews) {
        const MatrixData* poValues = view.m_oTrack.m_poValues.get();
        const MatrixData* poAzimuth = view.m_oTrack.m_sTitle.isEmpty() ? view.m_oTrack.m_poAzimuth.get() : nullptr;
        const int iDecimals = poAzimuth ? 0 : -1; // dip / azimuth is written in whole degrees
        QString sText;
        if (!bNone && poValues) {
            sText = valueOf(*poValues, iDecimals);
            if (poAzimuth && iRecord >= 0 && !isMissing(poValues->recordNumber(iRecord)))
                sText += QLatin1String(" / ") + valueOf(*poAzimuth, iDecimals);
        }
        view.m_pqHeader->setValue(sText);
    }
}

QStringList QDepthTrackArea::readOuts() const
{
    QStringList lTexts{m_pqDepthHeader->content().m_sValue};
    for (const View& view : m_vViews)
        lTexts << view.m_pqHeader->content().m_sValue;
    return lTexts;
}

} // namespace gkBase
