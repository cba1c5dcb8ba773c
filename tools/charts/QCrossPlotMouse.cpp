// Gestures of the cross plot: buttons and keys, selection by an outline, context menu, tool tips.

#include "MatrixData.h"
#include "MissingValue.h"
#include "QCrossPlot.h"
#include "QRelationshipItemModel.h"
#include "UnitText.h"

#include <QAction>
#include <QColorDialog>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPointer>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace gkBase {

namespace {

constexpr int g_iLongNudge = 10; ///< pixels

} // namespace

QPointF QCrossPlot::chartPixel(const QPointF& oPosition) const
{
    return oPosition + pixmapRect().topLeft();
}

// ---- buttons --------------------------------------------------------------------------------------------------------

void QCrossPlot::mousePressEvent(QMouseEvent* pEvent)
{
    // A second button does not disturb the gesture of the first, unless that one's release went elsewhere.
    const bool bSecond = m_eButton != Qt::NoButton && m_eButton != pEvent->button() && (pEvent->buttons() & m_eButton);
    if (bSecond) {
        return;
    }
    if (pEvent->button() == Qt::RightButton) {
        pickForMenu(pEvent->position(), pEvent->modifiers() == Qt::ControlModifier);
        return;
    }
    if (gestureIsUnderWay()) {
        giveUpGesture();
    }
    endLineGesture(false); // of a key that is held
    m_eButton = pEvent->button();
    if (m_oSelectionGesture.begin(model(), pEvent->modifiers())) {
        scheduleRedraw();
    }
    setMousePickingPos(pEvent->position());
    const int iLine = lineAt(pEvent->position());
    if (m_iDataCreationType == IntervalBoundaryRemoval) {
        removeBoundary(pEvent->position());
    } else if (iLine >= 0 || pressPicksLines()) {
        pressOnLines(pEvent->position(), iLine, m_oSelectionGesture.isAdding());
    } else {
        m_vSelectionPath = {pEvent->position()};
    }
    update();
}

void QCrossPlot::mouseMoveEvent(QMouseEvent* pEvent)
{
    // The release went elsewhere, to a dialog or menu that opened meanwhile.
    if (m_eButton != Qt::NoButton && !(pEvent->buttons() & m_eButton)) {
        giveUpGesture();
    }
    const QPointF oPosition = pEvent->position();
    setMousePickingPos(oPosition);
    if (oPosition.x() != g_dMissingValue && !m_vSelectionPath.isEmpty() &&
        oPosition.toPoint() != m_vSelectionPath.last().toPoint()) {
        m_vSelectionPath << oPosition;
        update();
    }
    emit cursorPos(transformInDataPoint(chartPixel(oPosition)));
    if (m_bMovingTops) {
        dragLines(oPosition);
    } else if (pEvent->buttons() == Qt::NoButton) {
        setHoveredLine(lineAt(oPosition));
    }
}

void QCrossPlot::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() != m_eButton) {
        return;
    }
    // With Ctrl lines are added to the picked ones, which all stay.
    endLineGesture(!pEvent->modifiers().testFlag(Qt::ControlModifier));
    endGesture();
}

void QCrossPlot::endGesture()
{
    m_eButton = Qt::NoButton;
    if (!m_vSelectionPath.isEmpty()) {
        selectOutline();
    } else if (m_oSelectionGesture.hasCleared()) {
        tellSelection();
    }
    m_oSelectionGesture.end();
}

void QCrossPlot::leaveEvent(QEvent* pEvent)
{
    setMousePickingPos(QPointF(g_dMissingValue, g_dMissingValue));
    emit cursorPos(mousePickingPos());
    if (!gestureIsUnderWay()) {
        setHoveredLine(-1);
    }
    emit crossPlotLeaveEvent(pEvent);
    QChartDrawingArea::leaveEvent(pEvent);
}

// ---- selection ------------------------------------------------------------------------------------------------------

void QCrossPlot::selectOutline()
{
    const QVector<QPointF> voOutline = std::exchange(m_vSelectionPath, {});
    update();
    if (!model()) {
        return;
    }
    const int iReach = std::max(m_iPickingPixels, model()->pointPixelSize());
    m_oSelectionGesture.select(model(), pointsInOutline(pointPixels(), voOutline, pixmapRect().topLeft(), iReach));
    tellSelection();
}

void QCrossPlot::cancelOutline()
{
    m_vSelectionPath.clear();
    m_oSelectionGesture.giveUp(model());
    m_eButton = Qt::NoButton;
    scheduleRedraw();
}

void QCrossPlot::giveUpGesture()
{
    if (!m_vSelectionPath.isEmpty()) {
        cancelOutline();
    } else {
        endLineGesture(false);
        endGesture();
    }
}

void QCrossPlot::tellSelection()
{
    scheduleRedraw();
    if (model()) {
        emit dataPointsSelection(model()->selection(), model()->numberOfPoints());
    }
}

void QCrossPlot::removeBoundary(const QPointF& oPosition)
{
    const QPointF oData = transformInDataPoint(chartPixel(oPosition));
    if (model() && model()->eraseIntervalBoundary(oData, pickingEpsY())) {
        scheduleRedraw();
        emit intervalBoundariesChanged();
    }
}

// ---- keys and menu --------------------------------------------------------------------------------------------------

void QCrossPlot::keyPressEvent(QKeyEvent* pEvent)
{
    const bool bLines = structuralTops() && structuralTops()->isSomethingSelected();
    const bool bUpOrDown = pEvent->key() == Qt::Key_Up || pEvent->key() == Qt::Key_Down;
    if (pEvent->key() == Qt::Key_Escape && !m_vSelectionPath.isEmpty()) {
        cancelOutline();
    } else if (pEvent->key() == Qt::Key_Escape && m_bMovingTops) {
        cancelLineGesture();
    } else if (bUpOrDown && pEvent->modifiers().testFlag(Qt::AltModifier) && bLines && m_bTopsMovable) {
        const int iPixels = pEvent->modifiers().testFlag(Qt::ShiftModifier) ? g_iLongNudge : 1;
        nudgeLines(pEvent->key() == Qt::Key_Up ? -iPixels : iPixels);
    } else if (pEvent->key() == Qt::Key_Delete && bLines) {
        slotDeleteSelected();
    } else {
        QChartDrawingArea::keyPressEvent(pEvent);
    }
}

void QCrossPlot::keyReleaseEvent(QKeyEvent* pEvent)
{
    if (!pEvent->isAutoRepeat() && !gestureIsUnderWay()) {
        endLineGesture(false);
    }
    QChartDrawingArea::keyReleaseEvent(pEvent);
}

void QCrossPlot::focusOutEvent(QFocusEvent* pEvent)
{
    if (!gestureIsUnderWay()) {
        endLineGesture(false); // the key is released elsewhere
    }
    QChartDrawingArea::focusOutEvent(pEvent);
}

void QCrossPlot::contextMenuEvent(QContextMenuEvent* pEvent)
{
    if (gestureIsUnderWay() && pEvent->reason() == QContextMenuEvent::Mouse) {
        return;
    }
    QChartDrawingArea::contextMenuEvent(pEvent);
}

void QCrossPlot::addToContextMenuEvent(QMenu* pqMenu)
{
    if (!pqMenu || !structuralTops() || !structuralTops()->isSomethingSelected()) {
        return;
    }
    pqMenu->addSeparator();
    pqMenu->addActions({m_pqRenameAction, m_pqColorAction, m_pqOrientationAction, m_pqDeleteAction});
}

void QCrossPlot::copyWEMFToClipboard()
{
    if (isSignalConnected(QMetaMethod::fromSignal(&QCrossPlot::signalCopyWEMFToClipboard))) {
        emit signalCopyWEMFToClipboard();
    } else {
        QChartDrawingArea::copyWEMFToClipboard();
    }
}

void QCrossPlot::slotDeleteSelected()
{
    emit sendDeleteSelectedUpdate();
}

void QCrossPlot::slotRenameSelected()
{
    const auto text = [](const char* pText) { return QCoreApplication::translate("QCrossPlotWidget", pText); };
    bool bAccepted = false;
    const QPointer<QCrossPlot> pqThis(this);
    const QString sName =
        QInputDialog::getText(this, text("Rename"), text("New Name"), QLineEdit::Normal, text("Horizon"), &bAccepted);
    if (pqThis && bAccepted) {
        emit sendScatUpdate(sName);
    }
}

void QCrossPlot::slotModifySelectedColor()
{
    QColor oPresent(Qt::red);
    if (const DepthLineField* pTops = structuralTops(); pTops && pTops->isSomethingSelected()) {
        oPresent = pTops->lineColors()[static_cast<std::size_t>(pTops->selectedLines().front())];
    }
    const QPointer<QCrossPlot> pqThis(this);
    const QColor oColor = QColorDialog::getColor(oPresent, this);
    if (pqThis && oColor.isValid()) {
        emit sendScatUpdate(oColor);
    }
}

// ---- tool tips ------------------------------------------------------------------------------------------------------

QString QCrossPlot::pointToolTip(int iRecord) const
{
    if (!model() || !model()->isValid(iRecord)) {
        return {};
    }
    const auto i = static_cast<std::size_t>(iRecord);
    const auto valueLine = [](const MatrixData* poNode, double dValue) {
        return poNode ? QStringLiteral("%1: %2").arg(poNode->name(), displayText(poNode, dValue)) : QString();
    };
    QStringList lLines{valueLine(model()->nodeX(), model()->x()[i]), valueLine(model()->nodeY(), model()->y()[i])};
    if (model()->colorAttributeIsOn() && model()->colorAttribute()) {
        lLines << QStringLiteral("%1: %2").arg(model()->colorAttribute()->name(),
                                               model()->getColorName(model()->colorClasses().id(iRecord)));
    }
    if (model()->symbolAttributeIsOn() && model()->symbolAttribute()) {
        const RelationshipClasses& classes = model()->symbolClasses();
        lLines << QStringLiteral("%1: %2").arg(model()->symbolAttribute()->name(),
                                               classes.names().value(classes.id(iRecord)).toString());
    }
    // Records are counted from 1, as in the table.
    lLines << tr("Record %1").arg(iRecord + 1);
    lLines.removeAll(QString());
    return lLines.join(QLatin1Char('\n'));
}

bool QCrossPlot::event(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::ToolTip) {
        return QChartDrawingArea::event(pEvent);
    }
    const auto* pHelp = static_cast<QHelpEvent*>(pEvent);
    const int iReach = std::max(m_iPickingPixels, model() ? model()->pointPixelSize() : 0);
    const int iLine = gestureIsUnderWay() ? -1 : lineAt(pHelp->pos());
    const QString sText = iLine >= 0 ? lineToolTip(iLine) : pointToolTip(recordAt(chartPixel(pHelp->pos()), iReach));
    // Names and units come from files; the tip shows them as they are.
    QToolTip::showText(pHelp->globalPos(), sText.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")),
                       this);
    return true;
}

} // namespace gkBase
