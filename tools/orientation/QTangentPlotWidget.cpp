#include "QTangentPlotWidget.h"

#include "Angles.h"
#include "LabelPlacement.h"
#include "MissingValue.h"
#include "OrientationText.h"
#include "QRelationshipItemModel.h"
#include "RecordMask.h"
#include "StereoLabels.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <span>

namespace gkBase {

namespace {

constexpr double g_dAxisPen = 2.0;
constexpr int g_iAxisSymbol = 6;
constexpr double g_dAxisReach = 10.0; ///< pixels from the symbol that still take hold of it

} // namespace

QTangentPlotWidget::QTangentPlotWidget(QWidget* pqParent, const QString& sName)
    : QStereoPlotWidget(pqParent, sName)
{
}

QTangentPlotWidget::~QTangentPlotWidget() = default;

// ---- projection -----------------------------------------------------------------------------------------------------

NetProjection QTangentPlotWidget::projection() const
{
    return NetProjection(NetLayout::Tangent, settings().m_dMaximumAngle);
}

int QTangentPlotWidget::pointsBeyondRim() const
{
    if (!model())
        return 0;
    const bool bPoles = polesAreShown();
    const double dLimit = maximumAngle() + NetProjection::s_dRimTolerance;
    const std::span<const double> vdAngles = model()->x();
    const std::span<const unsigned char> vbTaken = model()->takenMask();
    int iBeyond = 0;
    for (std::size_t i = 0; i < vdAngles.size(); ++i)
        if (isTaken(vbTaken, i) && (bPoles ? 90.0 - vdAngles[i] : vdAngles[i]) > dLimit) // not for NaN
            ++iBeyond;
    return iBeyond;
}

QString QTangentPlotWidget::pointsText() const
{
    const int iBeyond = pointsBeyondRim();
    const QString sPoints = QStereoPlotWidget::pointsText();
    return iBeyond == 0 ? sPoints : tr("%1 (%2 beyond %3°)").arg(sPoints).arg(iBeyond).arg(maximumAngle());
}

double QTangentPlotWidget::tangentRadius(double dAngle) const
{
    return radius() * projection().lineRadius(dAngle);
}

QPointF QTangentPlotWidget::tangentPlotPointInPixel(const QPointF& oLine) const
{
    return dipDirectionInPixel(oLine);
}

QPointF QTangentPlotWidget::transformInDataPoint(const QPointF& oPixel) const
{
    const LineOrientation oLine = projection().lineAt(netFrame().toNet(oPixel.x(), oPixel.y()));
    return {oLine.m_dPlunge, oLine.m_dAzimuth};
}

NetPaths QTangentPlotWidget::netPaths() const
{
    return tangentNetPaths(projection(), netFrame(), settings().m_bFineNet, settings().m_bCoarseNet);
}

void QTangentPlotWidget::drawNet(QPainter* pPainter)
{
    drawNetLines(pPainter);
}

// ---- fold axis ------------------------------------------------------------------------------------------------------

void QTangentPlotWidget::setFoldAxis(double dPlunge, double dAzimuth)
{
    if (!isMissing(dPlunge) && !isMissing(dAzimuth)) {
        m_dPlunge = std::clamp(dPlunge, 0.0, 90.0);
        m_dAzimuth = wrapAngle(dAzimuth, 360.0);
        update();
    }
}

void QTangentPlotWidget::setShowFoldAxis(bool bShow)
{
    m_bShowFoldAxis = bShow;
    m_bDragging = false;
    update();
}

void QTangentPlotWidget::setFoldAxisMovable(bool bMovable)
{
    m_bMovable = bMovable;
    m_bDragging = false;
}

QPointF QTangentPlotWidget::foldAxisPixel() const
{
    const NetPoint oPixel = netFrame().toPixel(pulledOntoNet(projection().line(m_dPlunge, m_dAzimuth)));
    return {oPixel.m_dX, oPixel.m_dY};
}

QPainterPath QTangentPlotWidget::foldPath() const
{
    if (polesAreShown()) {
        const PlaneOrientation oAcross = planeOfPole(LineOrientation{m_dPlunge, m_dAzimuth});
        return greatCirclePath(projection(), netFrame(), oAcross.m_dDip, oAcross.m_dDipAzimuth);
    }
    // The line through the axis across its azimuth, as far as the rim.
    const double dDistance = tangentRadius(m_dPlunge);
    QPainterPath oPath;
    if (dDistance < radius()) {
        const double dHalf = std::sqrt(radius() * static_cast<double>(radius()) - dDistance * dDistance);
        const QPointF oAlong = pointAt(m_dAzimuth + 90.0, dHalf) - QPointF(centre());
        oPath.moveTo(pointAt(m_dAzimuth, dDistance) - oAlong);
        oPath.lineTo(pointAt(m_dAzimuth, dDistance) + oAlong);
    }
    return oPath;
}

void QTangentPlotWidget::drawFoldAxis(QPainter* pPainter)
{
    if (!m_bShowFoldAxis || radius() <= 0) {
        return;
    }
    const QColor oColor = readable(m_oLineColor);
    pPainter->save();
    pPainter->setClipPath(clipPath(), Qt::IntersectClip);
    pPainter->setBrush(Qt::NoBrush);
    pPainter->setPen(QPen(oColor, g_dAxisPen, Qt::DashLine));
    pPainter->drawPath(foldPath());
    pPainter->setPen(QPen(oColor, 1.0));
    pPainter->drawLine(QPointF(centre()), pointAt(m_dAzimuth, radius()));
    drawArrow(pPainter, pointAt(m_dAzimuth, radius()));
    pPainter->restore();

    const QPointF oSymbol = foldAxisPixel();
    pPainter->setPen(QPen(oColor, g_dAxisPen));
    pPainter->setBrush(m_oBackgroundColor);
    drawDiamond(pPainter, oSymbol, g_iAxisSymbol);
    const QString sText = foldAxisText();
    if (sText.isEmpty()) {
        return;
    }
    LabelPlacement placement(m_oPlotRect);
    blockFoldAxisLabel(placement, *pPainter);
    const QRectF oAnchor(oSymbol - QPointF(g_iAxisSymbol, g_iAxisSymbol), 2.0 * QSizeF(g_iAxisSymbol, g_iAxisSymbol));
    const QRectF oBox = placeOnNet(placement, netFrame(), oAnchor, labelBoxSize(*pPainter, sText));
    if (!oBox.isNull()) {
        drawLabelBox(*pPainter, oBox, sText, oColor, m_oBackgroundColor);
    }
}

QString QTangentPlotWidget::foldAxisText() const
{
    const QString sAxis = lineText({m_dPlunge, m_dAzimuth});
    return m_dPlunge > maximumAngle() ? tr("Fold Axis %1 (beyond the rim)").arg(sAxis) : tr("Fold Axis %1").arg(sAxis);
}

void QTangentPlotWidget::blockFoldAxisLabel(LabelPlacement&, const QPainter&) const {}

// ---- mouse ----------------------------------------------------------------------------------------------------------

bool QTangentPlotWidget::isOnFoldAxis(const QPointF& oPosition) const
{
    const QPointF oDistance = chartPixel(oPosition) - foldAxisPixel();
    return m_bShowFoldAxis && m_bMovable && std::hypot(oDistance.x(), oDistance.y()) <= g_dAxisReach;
}

void QTangentPlotWidget::dragFoldAxis(const QPointF& oPosition)
{
    const QPointF oPixel = chartPixel(oPosition);
    const NetPoint oPoint = pulledOntoNet(netFrame().toNet(oPixel.x(), oPixel.y()));
    const LineOrientation oAxis = projection().lineAt(oPoint);
    // At the centre every azimuth is right: the last one stays.
    const bool bCentre = std::hypot(oPoint.m_dX, oPoint.m_dY) * radius() < 0.5;
    setFoldAxis(oAxis.m_dPlunge, bCentre ? m_dAzimuth : oAxis.m_dAzimuth);
    emit foldAxisMoved(foldAxis());
}

void QTangentPlotWidget::mousePressEvent(QMouseEvent* pEvent)
{
    // Another button does not disturb the drag.
    if (m_bDragging && (pEvent->buttons() & Qt::LeftButton) && pEvent->button() != Qt::LeftButton) {
        return;
    }
    if (pEvent->button() == Qt::LeftButton && pEvent->buttons() == Qt::LeftButton && isOnFoldAxis(pEvent->position())) {
        m_bDragging = true;
        m_oAxisBefore = foldAxis();
        setCursor(Qt::ClosedHandCursor);
        return;
    }
    QStereoPlotWidget::mousePressEvent(pEvent);
}

void QTangentPlotWidget::mouseMoveEvent(QMouseEvent* pEvent)
{
    if (m_bDragging && (pEvent->buttons() & Qt::LeftButton)) {
        dragFoldAxis(pEvent->position());
        emit cursorPos(cursorValue(pEvent->position()));
        return;
    }
    m_bDragging = false;
    setCursor(pEvent->buttons() == Qt::NoButton && isOnFoldAxis(pEvent->position()) ? Qt::OpenHandCursor
                                                                                    : Qt::CrossCursor);
    QStereoPlotWidget::mouseMoveEvent(pEvent);
}

void QTangentPlotWidget::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (m_bDragging && pEvent->button() == Qt::LeftButton) {
        m_bDragging = false;
        setCursor(Qt::OpenHandCursor);
        return;
    }
    QStereoPlotWidget::mouseReleaseEvent(pEvent);
}

void QTangentPlotWidget::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape && m_bDragging) {
        m_bDragging = false;
        setCursor(Qt::CrossCursor);
        setFoldAxis(m_oAxisBefore.x(), m_oAxisBefore.y());
        emit foldAxisMoved(foldAxis());
    } else {
        QStereoPlotWidget::keyPressEvent(pEvent);
    }
}

} // namespace gkBase
