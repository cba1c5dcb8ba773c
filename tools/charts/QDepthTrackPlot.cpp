#include "QDepthTrackPlot.h"

#include "AngleUnits.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "PointBatch.h"
#include "QRelationshipItemModel.h"
#include "ReadableColor.h"
#include "SymbolGeometry.h"
#include "UnitManager.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace gkBase {

namespace {

/// Lines with more points are drawn without smoothing: they fill their pixels anyway.
constexpr std::size_t g_iSmoothPieces = 64;
constexpr int g_iVectorRowsPerPixel = 4;
constexpr int g_iBoundaryReach = 5; ///< pixels
constexpr int g_iWheelUnitsPerStep = 120;
constexpr double g_dPanShare = 0.1; ///< of the view, for a key or a notch
constexpr int g_iBarOpacity = 60;
constexpr double g_dSteepGap = 2.0; ///< pixels between the side of the track and the symbols of steep records
constexpr int g_iLargerTadpole = 3; ///< pixels that decimated tadpoles exceed the others by
constexpr double g_dLeaderFlat = 6.0;
constexpr double g_dLeaderEnd = 16.0;
constexpr double g_dLabelGap = 3.0;
constexpr QRgb g_oLargeHead = 0xffff8800;
constexpr double g_dLargeTail = 2.0; ///< pen width

/// Pictures of pixels need no more than a row's worth of samples.
bool isVectorDevice(const QPainter& painter)
{
    return painter.paintEngine() && painter.paintEngine()->type() != QPaintEngine::Raster;
}

/// The rows that a painter can show.
std::pair<double, double> clippedRows(const QPainter& painter, const QRectF& oPlot)
{
    const QRectF oClip = painter.hasClipping() ? painter.clipBoundingRect() : oPlot;
    return {oClip.top(), oClip.bottom()};
}

Qt::PenStyle markerPen(DepthMarker::Kind eKind)
{
    switch (eKind) {
    case DepthMarker::Fault:
        return Qt::DashLine;
    case DepthMarker::Scat:
        return Qt::DashDotLine;
    default:
        return Qt::SolidLine;
    }
}

} // namespace

QDepthTrackPlot::QDepthTrackPlot(QWidget* pqParent, const QString& sName)
    : QCrossPlot(pqParent, sName)
    , m_dSteepLimit(g_dMissingValue)
{
    setOrientationFlag(0); // depth grows downwards
    setMouseTracking(true);
}

QColor QDepthTrackPlot::markerColor(DepthMarker::Kind eKind, bool bOnBlack)
{
    switch (eKind) {
    case DepthMarker::Top:
        return bOnBlack ? QColor(120, 180, 255) : QColor(0, 70, 170);
    case DepthMarker::Horizon:
        return bOnBlack ? QColor(110, 220, 130) : QColor(0, 120, 50);
    case DepthMarker::Fault:
        return bOnBlack ? QColor(255, 120, 110) : QColor(190, 20, 20);
    case DepthMarker::Scat:
        break;
    }
    return bOnBlack ? QColor(215, 160, 255) : QColor(120, 30, 160);
}

// ---- what is shown --------------------------------------------------------------------------------------------------

void QDepthTrackPlot::setTrack(const DepthTrack& track)
{
    m_oTrack = track;
    const DepthTrackLimits limits = track.limits();
    setRange({limits.m_dLeft, m_dFrom}, {limits.m_dRight, m_dTo});
    setPointFillColor(track.color());
    scheduleRedraw();
}

void QDepthTrackPlot::setDepthRange(double dFrom, double dTo)
{
    m_dFrom = dFrom;
    m_dTo = dTo;
    setRange({rangeA().x(), dFrom}, {rangeB().x(), dTo});
}

void QDepthTrackPlot::setDecimation(std::vector<DepthBin> vBins)
{
    if (vBins == m_vBins)
        return;
    m_vBins = std::move(vBins);
    scheduleRedraw();
}

void QDepthTrackPlot::setMarkers(std::shared_ptr<const DepthMarkers> pMarkers)
{
    m_pMarkers = std::move(pMarkers);
    scheduleRedraw();
}

void QDepthTrackPlot::setShowMarkerLabels(bool bShow)
{
    m_bShowMarkerLabels = bShow;
    scheduleRedraw();
}

void QDepthTrackPlot::setSteepLimit(double dDegrees)
{
    m_dSteepLimit = dDegrees;
    scheduleRedraw();
}

void QDepthTrackPlot::setZeroLine(bool bShow)
{
    m_bZeroLine = bShow;
    scheduleRedraw();
}

void QDepthTrackPlot::setBoundaryEditing(bool bEditing)
{
    m_bBoundaryEditing = bEditing;
}

void QDepthTrackPlot::zoom(double dZoom)
{
    zoomY(dZoom);
}

// ---- layout ---------------------------------------------------------------------------------------------------------

DepthTrackMap QDepthTrackPlot::map() const
{
    return depthTrackMap({rangeA().x(), rangeB().x()}, m_dFrom, m_dTo, chartSize());
}

void QDepthTrackPlot::transformPoints(std::span<const double> vdX, std::span<const double> vdY,
                                      std::vector<QPointF>& voPixels)
{
    QCrossPlot::transformPoints(vdX, vdY, voPixels);
    const bool bLimited = !isMissing(m_dSteepLimit);
    m_vbSteep.resize(bLimited ? voPixels.size() : 0);
    if (!bLimited)
        return;
    const double dLast = chartSize().width() - 1.0;
    const double dInset = std::min(dLast / 2.0, (model() ? model()->pointPixelSize() : 0) + g_dSteepGap);
    for (std::size_t i = 0; i < voPixels.size(); ++i) {
        m_vbSteep[i] = std::abs(vdX[i]) > m_dSteepLimit ? 1 : 0;
        if (m_vbSteep[i] != 0)
            voPixels[i].setX(voPixels[i].x() < dLast / 2.0 ? dInset : dLast - dInset);
    }
}

QDepthTrackPlot::LineKey QDepthTrackPlot::lineKey() const
{
    const QRelationshipItemModel* pModel = model();
    return {pModel,
            pModel ? pModel->pointsRevision() : 0,
            pModel && m_oTrack.m_oStyle.m_bLine && m_oTrack.m_eKind == DepthTrack::Curve,
            m_oTrack.fullTurn(),
            chartSize(),
            rangeA(),
            rangeB()};
}

std::vector<DepthTrackPiece> QDepthTrackPlot::thinnedLine(int iRowsPerPixel) const
{
    if (!lineKey().m_bLine)
        return {};
    return depthTrackLine(*model(), map(), chartSize().height() * iRowsPerPixel, m_oTrack.fullTurn());
}

void QDepthTrackPlot::layoutChart()
{
    QCrossPlot::layoutChart();
    // Selections and boundaries draw the chart again but leave the curve as it is.
    const LineKey key = lineKey();
    if (key != std::exchange(m_oLineKey, key))
        m_vPieces = thinnedLine(1);
    m_vBars = depthBinBars(m_vBins, map());
}

// ---- drawing --------------------------------------------------------------------------------------------------------

void QDepthTrackPlot::drawUnderPoints(QPainter& painter)
{
    if (m_oTrack.m_eKind == DepthTrack::Curve)
        drawDecimation(painter);
    drawZeroLine(painter);
    drawLine(painter);
}

void QDepthTrackPlot::drawOverPoints(QPainter& painter)
{
    drawSteepSamples(painter);
    drawSelectedSamples(painter);
    if (m_oTrack.m_eKind == DepthTrack::Tadpoles)
        drawDecimatedTadpoles(painter);
    drawMarkerLines(painter);
}

void QDepthTrackPlot::drawZeroLine(QPainter& painter) const
{
    const double dX = std::floor(map().m_oX.toPixel(0.0)) + 0.5;
    if (!m_bZeroLine || !(dX > m_oPlotRect.left() && dX < m_oPlotRect.right()))
        return;
    const auto [dTop, dBottom] = clippedRows(painter, m_oPlotRect);
    painter.setPen(QPen(labelColor(), 1.0));
    painter.drawLine(QPointF(dX, dTop), QPointF(dX, dBottom));
}

void QDepthTrackPlot::drawLine(QPainter& painter)
{
    const bool bVector = isVectorDevice(painter);
    const std::vector<DepthTrackPiece> vExact =
        bVector ? thinnedLine(g_iVectorRowsPerPixel) : std::vector<DepthTrackPiece>();
    const std::vector<DepthTrackPiece>& vPieces = bVector ? vExact : m_vPieces;
    if (vPieces.empty())
        return;
    const auto [dTop, dBottom] = clippedRows(painter, m_oPlotRect);
    const double dMargin = m_oTrack.m_oStyle.m_iLineWidth + 1.0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, bVector || vPieces.size() <= g_iSmoothPieces);
    const QColor oColor = readableColor(m_oTrack.color(), backgroundColor(), labelColor());
    painter.setPen(QPen(oColor, m_oTrack.m_oStyle.m_iLineWidth, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    for (const DepthTrackPiece& piece : vPieces) {
        if (piece.m_dBottom >= dTop - dMargin && piece.m_dTop <= dBottom + dMargin)
            painter.drawPolyline(piece.m_oLine);
    }
    painter.restore();
}

void QDepthTrackPlot::drawDecimation(QPainter& painter)
{
    const auto [dTop, dBottom] = clippedRows(painter, m_oPlotRect);
    QColor oFill = m_oTrack.color();
    oFill.setAlpha(g_iBarOpacity);
    painter.save();
    for (const DepthBinBar& bar : m_vBars) {
        if (bar.m_oBar.bottom() < dTop || bar.m_oBar.top() > dBottom)
            continue;
        painter.fillRect(bar.m_oBar, oFill);
        painter.setPen(QPen(labelColor(), 2.0, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(bar.m_oEdge);
    }
    painter.restore();
}

void QDepthTrackPlot::drawSteepSamples(QPainter& painter)
{
    // The line leaves the track where they are; drawn symbols stand at the sides anyway.
    if (!model() || model()->drawSymbols() || isMissing(m_dSteepLimit))
        return;
    const std::vector<QPointF>& voPixels = pointPixels();
    std::vector<QPointF> voSteep;
    for (std::size_t i = 0; i < m_vbSteep.size(); ++i) {
        if (m_vbSteep[i] != 0)
            voSteep.push_back(voPixels[i]);
    }
    const QColor oColor = readableColor(m_oTrack.color(), backgroundColor(), labelColor());
    m_oSprites.drawSymbols(&painter, voSteep,
                           {PointStyle::Circle, oColor, backgroundColor(), model()->pointPixelSize()});
}

void QDepthTrackPlot::drawSelectedSamples(QPainter& painter)
{
    const QRelationshipItemModel* pModel = model();
    // Where points are drawn, the cross plot marks the selected ones.
    if (!pModel || pModel->drawSymbols() || pModel->numberOfSelectedPoints() == 0)
        return;
    const auto [dTop, dBottom] = clippedRows(painter, m_oPlotRect);
    const std::vector<QPointF>& voPixels = pointPixels();
    const std::span<const unsigned char> vbSelected = pModel->selectionMask();
    const double dMargin = m_oTrack.m_oStyle.m_iPointSize + 1.0;
    std::vector<QPointF> voPoints;
    for (std::size_t i = 0; i < vbSelected.size(); ++i) {
        if (vbSelected[i] != 0 && voPixels[i].y() >= dTop - dMargin && voPixels[i].y() <= dBottom + dMargin)
            voPoints.push_back(voPixels[i]);
    }
    const QColor oColor = QColor::fromRgb(PointBatch::s_oSelectionColor);
    m_oSprites.drawSymbols(&painter, voPoints, {PointStyle::Circle, oColor, oColor, m_oTrack.m_oStyle.m_iPointSize});
}

void QDepthTrackPlot::drawDecimatedTadpoles(QPainter& painter)
{
    const std::pair<double, double> oRows = clippedRows(painter, m_oPlotRect);
    const DepthTrackMap oMap = map();
    const int iSize = m_oTrack.m_oStyle.m_iPointSize + g_iLargerTadpole;
    const double dReach = 3.0 * iSize + 10.0;
    const auto draw = [&](double dDip, double dDepth, double dAzimuth) {
        const QPointF oCentre = oMap.toPixel(dDip, dDepth);
        if (oCentre.y() < oRows.first - dReach || oCentre.y() > oRows.second + dReach)
            return;
        if (const std::optional<QLineF> oTail = tadpoleTail(oCentre, dAzimuth, iSize))
            painter.drawLine(*oTail);
        painter.drawEllipse(oCentre, iSize, iSize);
    };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(labelColor(), g_dLargeTail));
    painter.setBrush(QColor::fromRgb(g_oLargeHead));
    for (const DepthBin& bin : m_vBins) {
        if (!isMissing(bin.m_dValue) && !isMissing(bin.m_dAzimuth))
            draw(bin.m_dValue, bin.m_dFrom * 0.5 + bin.m_dTo * 0.5, bin.m_dAzimuth);
    }
    if (m_pMarkers) {
        for (const DepthTadpole& tadpole : m_pMarkers->m_vTadpoles)
            draw(tadpole.m_dDip, tadpole.m_dDepth, tadpole.m_dAzimuth);
    }
    painter.restore();
}

void QDepthTrackPlot::drawMarkerLines(QPainter& painter)
{
    if (!m_pMarkers || m_bShowMarkerLabels) // leaders lead to the labels
        return;
    const auto [dTop, dBottom] = clippedRows(painter, m_oPlotRect);
    const DepthTrackMap oMap = map();
    double dLastRow = -1.0;
    for (const DepthMarker& marker : m_pMarkers->m_vLines) {
        const double dRow = std::floor(oMap.m_oY.toPixel(marker.m_dDepth) + 0.5);
        if (dRow < dTop - 1.0 || dRow > dBottom + 1.0 || dRow == dLastRow)
            continue;
        dLastRow = dRow;
        painter.setPen(QPen(markerColor(marker.m_eKind, isOnBlack()), 1.0, markerPen(marker.m_eKind)));
        painter.drawLine(QPointF(m_oPlotRect.left(), dRow), QPointF(m_oPlotRect.right(), dRow));
    }
}

void QDepthTrackPlot::drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea)
{
    QCrossPlot::drawVisibleFrame(painter, oVisibleArea);
    if (m_bShowMarkerLabels && m_pMarkers)
        drawMarkerLabels(painter, oVisibleArea);
}

void QDepthTrackPlot::drawMarkerLabels(QPainter& painter, const QRect& oVisibleArea)
{
    const DepthTrackMap oMap = map();
    std::vector<double> vdRows;
    std::vector<std::size_t> viMarkers;
    for (std::size_t i = 0; i < m_pMarkers->m_vLines.size(); ++i) {
        const double dRow = oMap.m_oY.toPixel(m_pMarkers->m_vLines[i].m_dDepth) - oVisibleArea.top();
        if (dRow < 0.0 || dRow > oVisibleArea.height())
            continue;
        vdRows.push_back(dRow);
        viMarkers.push_back(i);
    }
    const QFontMetricsF metrics(painter.font(), painter.device());
    const double dWidth = oVisibleArea.width() - g_dLeaderEnd - 2.0 * g_dLabelGap;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    for (const DepthLineLabel& label : placeDepthLabels(vdRows, metrics.height(), oVisibleArea.height())) {
        const DepthMarker& marker = m_pMarkers->m_vLines[viMarkers[label.m_iLine]];
        const double dCentre = label.m_dTop + metrics.height() / 2.0;
        painter.setPen(QPen(markerColor(marker.m_eKind, isOnBlack()), 1.0));
        painter.drawLine(QPointF(0.0, label.m_dLineY), QPointF(g_dLeaderFlat, label.m_dLineY));
        painter.drawLine(QPointF(g_dLeaderFlat, label.m_dLineY), QPointF(g_dLeaderEnd, dCentre));
        const QRectF oText(g_dLeaderEnd + g_dLabelGap, label.m_dTop, dWidth, metrics.height());
        painter.setPen(labelColor());
        painter.drawText(oText, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         metrics.elidedText(marker.m_sName, Qt::ElideRight, dWidth));
    }
    painter.restore();
}

QString QDepthTrackPlot::pointToolTip(int iRecord) const
{
    const QRelationshipItemModel* pModel = model();
    if (!pModel || !pModel->isValid(iRecord) || !pModel->nodeY())
        return {};
    const auto i = static_cast<std::size_t>(iRecord);
    const auto line = [](const QString& sName, const QString& sValue, const QString& sUnit) {
        return QStringLiteral("%1: %2 %3").arg(sName, sValue, sUnit).trimmed();
    };
    const DepthTrack depth = DepthTrack::curve(pModel->nodeY());
    QString sText =
        line(depth.name(), depth.displayText(pModel->y()[i]), depth.unitTag()) + QLatin1Char('\n') +
        line(DepthTrack::curve(pModel->nodeX()).name(), m_oTrack.displayText(pModel->x()[i]), m_oTrack.unitTag());
    if (const MatrixData* poAzimuth = m_oTrack.m_poAzimuth.get()) {
        const DepthTrack azimuth = DepthTrack::curve(m_oTrack.m_poAzimuth.get());
        const double dDegrees = pModel->azimuthTadPole(iRecord);
        const double dAzimuth = isMissing(dDegrees) ? dDegrees : dDegrees / degreesPerUnit(*poAzimuth);
        sText += QLatin1Char('\n') + line(poAzimuth->name(), azimuth.displayText(dAzimuth), azimuth.unitTag());
    }
    return sText;
}

// ---- mouse and keys -------------------------------------------------------------------------------------------------

void QDepthTrackPlot::wheelEvent(QWheelEvent* pEvent)
{
    const int iDelta = pEvent->angleDelta().y() != 0 ? pEvent->angleDelta().y() : pEvent->angleDelta().x();
    pEvent->accept();
    // An outline stands in pixels of the widget, and would no longer lie where it was drawn.
    if (!m_vSelectionPath.isEmpty())
        return;
    if (pEvent->modifiers().testFlag(Qt::ShiftModifier)) {
        emit panAsked(static_cast<int>(-iDelta * height() * g_dPanShare / g_iWheelUnitsPerStep));
        return;
    }
    const double dZoom = ChartViewport::wheelZoom(zoomFactor(), iDelta);
    if (dZoom != zoomFactor())
        emit zoomAsked(dZoom, pEvent->position().y());
}

void QDepthTrackPlot::mousePressEvent(QMouseEvent* pEvent)
{
    if (m_bPanning)
        return;
    if (pEvent->button() == Qt::MiddleButton) {
        if (gestureIsUnderWay())
            return;
        m_bPanning = true;
        m_dPanRow = pEvent->position().y();
        m_oCursorBesidePan = cursor();
        setCursor(Qt::ClosedHandCursor);
        return;
    }
    if (m_bBoundaryEditing && pEvent->button() == Qt::LeftButton) {
        const QPointF oPixel = pEvent->position() + pixmapRect().topLeft();
        const double dDepth = transformInDataPoint(oPixel).y();
        const double dReach = transformInDataPoint(oPixel + QPointF(0.0, g_iBoundaryReach)).y();
        emit boundaryPressed(dDepth, std::abs(dReach - dDepth));
        return;
    }
    QCrossPlot::mousePressEvent(pEvent);
}

void QDepthTrackPlot::mouseMoveEvent(QMouseEvent* pEvent)
{
    if (m_bPanning) {
        const auto iPixels = static_cast<int>(std::round(m_dPanRow - pEvent->position().y()));
        m_dPanRow -= iPixels;
        if (iPixels != 0)
            emit panAsked(iPixels);
        return;
    }
    QCrossPlot::mouseMoveEvent(pEvent);
}

void QDepthTrackPlot::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (m_bPanning && pEvent->button() == Qt::MiddleButton) {
        m_bPanning = false;
        setCursor(m_oCursorBesidePan);
        return;
    }
    if (m_bBoundaryEditing && pEvent->button() == Qt::LeftButton)
        return;
    QCrossPlot::mouseReleaseEvent(pEvent);
}

void QDepthTrackPlot::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->modifiers().testFlag(Qt::AltModifier))
        return QCrossPlot::keyPressEvent(pEvent);
    const auto iStep = static_cast<int>(height() * g_dPanShare);
    const double dCentre = height() / 2.0;
    switch (pEvent->key()) {
    case Qt::Key_Up:
        return emit panAsked(-iStep);
    case Qt::Key_Down:
        return emit panAsked(iStep);
    case Qt::Key_PageUp:
        return emit panAsked(-height());
    case Qt::Key_PageDown:
        return emit panAsked(height());
    case Qt::Key_Home:
        return emit panAsked(-chartSize().height());
    case Qt::Key_End:
        return emit panAsked(chartSize().height());
    case Qt::Key_Plus:
        return emit zoomAsked(std::min(zoomFactor() * 1.5, ChartViewport::s_dMaxZoom), dCentre);
    case Qt::Key_Minus:
        return emit zoomAsked(std::max(zoomFactor() / 1.5, ChartViewport::s_dMinZoom), dCentre);
    default:
        QCrossPlot::keyPressEvent(pEvent);
    }
}

} // namespace gkBase
