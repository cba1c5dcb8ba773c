// Gestures on the stereonet: selection by a lasso or a click, the plane under the cursor, tool tips.

#include "MatrixData.h"
#include "MissingValue.h"
#include "QRelationshipItemModel.h"
#include "QStereoPlotWidget.h"
#include "UnitText.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStringList>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace gkBase {

namespace {

constexpr int g_iReach = 5; ///< pixels from a click to a point

/// A record and those that cannot be told from it: equal orientations are one symbol. None for −1.
std::vector<unsigned char> pointsOnPixelOf(std::span<const QPointF> voPixels, int iRecord)
{
    constexpr double dSame = 0.5;
    std::vector<unsigned char> vbMask(voPixels.size());
    if (iRecord >= 0) {
        const QPointF oPixel = voPixels[static_cast<std::size_t>(iRecord)];
        std::transform(voPixels.begin(), voPixels.end(), vbMask.begin(), [&oPixel](const QPointF& o) {
            // False for NaN.
            return std::abs(o.x() - oPixel.x()) <= dSame && std::abs(o.y() - oPixel.y()) <= dSame ? 1 : 0;
        });
    }
    return vbMask;
}

} // namespace

void QStereoPlotWidget::paintEvent(QPaintEvent* pEvent)
{
    QPolarPlotWidget::paintEvent(pEvent);
    if (m_bPicking) {
        QPainter painter(this);
        painter.translate(-pixmapRect().topLeft());
        drawPick(painter);
    } else if (!m_vSelectionPath.isEmpty()) {
        QPainter painter(this);
        drawSelectionOutline(painter, m_vSelectionPath, m_oBackgroundColor, m_oLabelColor);
    }
}

void QStereoPlotWidget::setMousePickingPos(QMouseEvent* pEvent)
{
    const QPointF oPixel = chartPixel(pEvent->position());
    const NetPoint oOnNet = netFrame().toPixel(pulledOntoNet(netFrame().toNet(oPixel.x(), oPixel.y())));
    setMousePickingPos(QPointF(oOnNet.m_dX, oOnNet.m_dY) - pixmapRect().topLeft());
}

QPointF QStereoPlotWidget::cursorValue(const QPointF& oPosition) const
{
    const QPointF oPixel = chartPixel(oPosition);
    return isOnDisc(oPixel) ? transformInDataPoint(oPixel) : QPointF(g_dMissingValue, g_dMissingValue);
}

// ---- buttons --------------------------------------------------------------------------------------------------------

void QStereoPlotWidget::mousePressEvent(QMouseEvent* pEvent)
{
    // A second button does not disturb the gesture of the first, unless that one's release went elsewhere.
    const bool bSecond = m_eButton != Qt::NoButton && m_eButton != pEvent->button() && (pEvent->buttons() & m_eButton);
    if (pEvent->button() == Qt::RightButton || bSecond) {
        return;
    }
    m_eButton = pEvent->button();
    setMousePickingPos(pEvent);
    if (m_eMouseMode == MouseMode::Pick) {
        m_bPicking = true;
    } else if (recordsAreSeen()) {
        m_vSelectionPath = {pEvent->position()};
        if (m_oSelectionGesture.begin(model(), pEvent->modifiers())) {
            scheduleRedraw();
            emit clearSelection();
        }
    }
    update();
}

void QStereoPlotWidget::mouseMoveEvent(QMouseEvent* pEvent)
{
    // The release went elsewhere, to a dialog or menu that opened meanwhile.
    if (m_eButton != Qt::NoButton && !(pEvent->buttons() & m_eButton)) {
        giveUpGesture();
    }
    if (m_bPicking) {
        setMousePickingPos(pEvent);
        update();
    } else if (!m_vSelectionPath.isEmpty() && pEvent->position().toPoint() != m_vSelectionPath.last().toPoint()) {
        m_vSelectionPath << pEvent->position();
        update();
    }
    emit cursorPos(cursorValue(pEvent->position()));
}

void QStereoPlotWidget::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() != m_eButton) {
        return;
    }
    m_eButton = Qt::NoButton;
    if (std::exchange(m_bPicking, false)) {
        update();
    } else if (!m_vSelectionPath.isEmpty()) {
        selectOutline();
    }
    m_oSelectionGesture.end();
}

void QStereoPlotWidget::leaveEvent(QEvent* pEvent)
{
    emit cursorPos(QPointF(g_dMissingValue, g_dMissingValue));
    QPolarPlotWidget::leaveEvent(pEvent);
}

void QStereoPlotWidget::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape && m_eButton != Qt::NoButton) {
        giveUpGesture();
    } else {
        QPolarPlotWidget::keyPressEvent(pEvent);
    }
}

// ---- selection ------------------------------------------------------------------------------------------------------

bool QStereoPlotWidget::recordsAreSeen() const
{
    return model() && ((m_settings.m_bPoints && model()->drawSymbols()) ||
                       (m_settings.m_bGreatCircles && !model()->linesAreShown()));
}

int QStereoPlotWidget::recordAt(const QPointF& oPixel)
{
    return model() ? nearestPoint(pointPixels(), oPixel, std::max(g_iReach, model()->pointPixelSize())) : -1;
}

void QStereoPlotWidget::selectOutline()
{
    const QVector<QPointF> voOutline = std::exchange(m_vSelectionPath, {});
    update();
    if (!model()) {
        return;
    }
    const std::vector<QPointF>& voPixels = pointPixels();
    const QPointF oOffset = pixmapRect().topLeft();
    if (distinctCorners(voOutline) < 3) {
        const int iRecord = recordAt(voOutline.last() + oOffset);
        m_oSelectionGesture.select(model(), pointsOnPixelOf(voPixels, iRecord));
    } else {
        m_oSelectionGesture.select(model(), pointsInOutline(voPixels, voOutline, oOffset, g_iReach));
    }
    tellSelection();
}

void QStereoPlotWidget::giveUpGesture()
{
    m_eButton = Qt::NoButton;
    m_bPicking = false;
    if (!m_vSelectionPath.isEmpty()) {
        m_vSelectionPath.clear();
        const bool bCleared = m_oSelectionGesture.hasCleared();
        m_oSelectionGesture.giveUp(model());
        // Who heard that the selection was cleared hears that it is back.
        if (bCleared) {
            tellSelection();
        }
    }
    update();
}

void QStereoPlotWidget::tellSelection()
{
    scheduleRedraw();
    if (model()) {
        emit dataPointsSelection(model()->selection(), model()->numberOfPoints());
    }
}

// ---- tool tips ------------------------------------------------------------------------------------------------------

QString QStereoPlotWidget::pointToolTip(int iRecord) const
{
    if (!model() || !model()->isValid(iRecord)) {
        return {};
    }
    const auto i = static_cast<std::size_t>(iRecord);
    QStringList lLines;
    // Named as the attributes that the rotated orientations are written to.
    const QString sPrefix = model()->isRotated() ? QStringLiteral("Rotated:") : QString();
    const auto addValue = [&](const MatrixData* poNode, double dValue) {
        if (poNode) {
            lLines << QStringLiteral("%1%2: %3").arg(sPrefix, poNode->name(), displayText(poNode, dValue));
        }
    };
    addValue(model()->nodeX(), model()->x()[i]);
    addValue(model()->nodeY(), model()->y()[i]);
    if (model()->colorAttributeIsOn() && model()->colorAttribute()) {
        lLines << QStringLiteral("%1: %2").arg(model()->colorAttribute()->name(),
                                               model()->getColorName(model()->colorClasses().id(iRecord)));
    }
    // Records are counted from 1, as in the table.
    lLines << tr("Record %1").arg(iRecord + 1);
    return lLines.join(QLatin1Char('\n'));
}

bool QStereoPlotWidget::event(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::ToolTip) {
        return QPolarPlotWidget::event(pEvent);
    }
    const auto* pHelp = static_cast<QHelpEvent*>(pEvent);
    const bool bTip = recordsAreSeen() && m_eButton == Qt::NoButton;
    const QString sText = bTip ? pointToolTip(recordAt(chartPixel(pHelp->pos()))) : QString();
    // Names and units come from files; the tip shows them as they are.
    QToolTip::showText(pHelp->globalPos(), sText.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")),
                       this);
    return true;
}

} // namespace gkBase
