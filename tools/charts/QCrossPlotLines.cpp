// Gestures of the cross plot on structural tops: which line a press picks, moves, the hovered line.

#include "MatrixData.h"
#include "MissingValue.h"
#include "QCrossPlot.h"
#include "QRelationshipItemModel.h"
#include "UnitText.h"

#include <QMetaMethod>

#include <algorithm>
#include <cmath>
#include <utility>

namespace gkBase {

namespace {

/// A press that moves less is a click.
constexpr double g_dDragPixels = 3.0;

} // namespace

// ---- which line -----------------------------------------------------------------------------------------------------

bool QCrossPlot::pressPicksHandles() const
{
    const bool bOutlines = m_iDataCreationType == NoCreation || m_iDataCreationType == OrientationCreation;
    return pressPicksLines() || (m_bTopsMovable && bOutlines);
}

std::vector<CrossPlotLineHandle> QCrossPlot::currentHandles()
{
    layOutTops(); // the owner of the lines may have changed them since
    return crossPlotLineHandles(m_vLines, orientationMarks(pixmapRect()), pixmapRect());
}

std::vector<std::pair<int, QRectF>> QCrossPlot::lineHandles()
{
    std::vector<std::pair<int, QRectF>> vHandles;
    for (const CrossPlotLineHandle& handle : currentHandles()) {
        vHandles.emplace_back(m_vLines[handle.m_iShape].m_iLine, handle.m_oRect);
    }
    return vHandles;
}

int QCrossPlot::handleAt(const QPointF& oPosition)
{
    const int iShape = lineHandleAt(currentHandles(), oPosition);
    return iShape < 0 ? -1 : m_vLines[static_cast<std::size_t>(iShape)].m_iLine;
}

int QCrossPlot::nearLine(const QPointF& oPosition)
{
    const DepthLineField* pTops = structuralTops();
    return pTops ? nearestShownLine(*pTops, transformInDataPoint(chartPixel(oPosition)).y(), pickingEpsY()) : -1;
}

double QCrossPlot::rowOfLine(int iLine)
{
    const double dDepth = structuralTops()->lineDepths()[static_cast<std::size_t>(iLine)];
    return transformInPixelPoint({0.0, dDepth}).y() - pixmapRect().top();
}

int QCrossPlot::lineAt(const QPointF& oPosition)
{
    const DepthLineField* pTops = structuralTops();
    if (!pTops || pTops->count() == 0 || !pressPicksHandles()) {
        return -1;
    }
    const int iLine = handleAt(oPosition);
    return iLine < 0 && pressPicksLines() ? nearLine(oPosition) : iLine;
}

bool QCrossPlot::isPicked(int iLine) const
{
    return structuralTops() && structuralTops()->isSelected(iLine);
}

void QCrossPlot::setHoveredLine(int iLine)
{
    if (iLine == m_iHoveredLine) {
        return;
    }
    if (m_iHoveredLine < 0) {
        m_oCursorBesideLines = cursor();
    }
    m_iHoveredLine = iLine;
    if (iLine < 0) {
        setCursor(m_oCursorBesideLines);
    } else {
        setCursor(m_bTopsMovable ? Qt::SizeVerCursor : Qt::PointingHandCursor);
    }
    update();
}

QString QCrossPlot::lineToolTip(int iLine) const
{
    const DepthLineField* pTops = structuralTops();
    if (!pTops || iLine < 0 || iLine >= pTops->count()) {
        return {};
    }
    const auto i = static_cast<std::size_t>(iLine);
    const MatrixData* poDepth = model()->nodeY();
    QStringList lLines{DepthLineField::type(pTops->lineTypes()[i]), pTops->lineNames()[i]};
    lLines << QStringLiteral("%1: %2").arg(poDepth ? poDepth->name() : tr("Depth"),
                                           displayText(poDepth, pTops->lineDepths()[i]));
    if (const QString sOrientation = lineOrientationText(pTops->lineOrientations()[i]); !sOrientation.isEmpty()) {
        lLines << tr("Dip/Azimuth: %1").arg(sOrientation);
    }
    lLines.removeAll(QString());
    return lLines.join(QLatin1Char('\n'));
}

// ---- picking --------------------------------------------------------------------------------------------------------

void QCrossPlot::pressOnLines(const QPointF& oPosition, int iLine, bool bAdd)
{
    // Told before the pick: who hears of a selection of points may unpick all lines.
    if (m_oSelectionGesture.hasCleared()) {
        tellSelection();
    }
    m_oSelectionGesture.end();
    m_iOnlyLine = -1;
    m_bTopsMoved = false;
    m_dPressRow = oPosition.y();
    m_dGrabbedRow = iLine < 0 ? 0.0 : rowOfLine(iLine) - m_dPressRow;
    m_oPressed = transformInDataPoint(chartPixel(oPosition));
    m_oLastMove = m_oPressed;
    if (iLine < 0) {
        if (!bAdd && !isSignalConnected(QMetaMethod::fromSignal(&QCrossPlot::sendScatPickPos))) {
            pick({}, false);
        }
        emit sendInsertScatUpdate(m_oPressed);
        // The new line follows the mouse, but no other that is still picked.
        const DepthLineField* pTops = structuralTops();
        const std::vector<int> viPicked = pTops ? pTops->selectedLines() : std::vector<int>();
        m_bMovingTops = m_bTopsMovable && viPicked.size() == 1 && viPicked.front() == nearLine(oPosition);
        return;
    }
    if (isPicked(iLine)) {
        // All picked ones are dragged; a click picks this one alone.
        m_iOnlyLine = bAdd ? -1 : iLine;
        pick(structuralTops()->selectedLines(), bAdd);
    } else {
        pick({iLine}, bAdd);
    }
    m_bMovingTops = m_bTopsMovable;
}

void QCrossPlot::pickForMenu(const QPointF& oPosition, bool bAdd)
{
    const int iHandle = handleAt(oPosition);
    const int iLine = iHandle < 0 ? nearLine(oPosition) : iHandle;
    if (iLine >= 0 && !isPicked(iLine)) {
        pick({iLine}, bAdd);
    }
}

void QCrossPlot::pick(const std::vector<int>& viLines, bool bAdd)
{
    if (isSignalConnected(QMetaMethod::fromSignal(&QCrossPlot::sendScatPickPos))) {
        emit sendScatPickPos(viLines);
        return;
    }
    if (DepthLineField* pTops = structuralTops()) {
        if (!bAdd) {
            pTops->deselectAll();
        }
        pTops->setSelected(viLines);
        updateLines();
    }
}

// ---- moving ---------------------------------------------------------------------------------------------------------

void QCrossPlot::dragLines(const QPointF& oPosition)
{
    if (!m_bTopsMoved && std::abs(oPosition.y() - m_dPressRow) < g_dDragPixels) {
        return;
    }
    // The line that is held stays in sight, wherever the mouse goes.
    const double dRow = std::clamp(oPosition.y() + m_dGrabbedRow, 0.0, std::max(0.0, height() - 1.0)) - m_dGrabbedRow;
    const QPointF oData = transformInDataPoint(chartPixel({oPosition.x(), dRow}));
    // The step since the last move, so that lines keep their distances.
    const QPointF oStep = oData - m_oLastMove;
    DepthLineField* pTops = structuralTops();
    if (!pTops || !pTops->isSomethingSelected() || oStep.y() == 0.0) {
        return;
    }
    if (!std::exchange(m_bTopsMoved, true)) {
        m_pBeforeMove = std::make_unique<DepthLineField>(*pTops);
    }
    m_oLastMove = oData;
    shiftLines(oStep);
}

void QCrossPlot::shiftLines(const QPointF& oStep)
{
    if (isSignalConnected(QMetaMethod::fromSignal(&QCrossPlot::sendMoveSelectedUpdate))) {
        emit sendMoveSelectedUpdate(oStep);
    } else if (DepthLineField* pTops = structuralTops()) {
        pTops->moveSelectedLines(oStep);
        updateLines();
    }
}

void QCrossPlot::nudgeLines(int iPixels)
{
    const CrossPlotScale oY = map().m_oY;
    if (gestureIsUnderWay() || !oY.hasLength()) {
        return;
    }
    m_bTopsMoved = true;
    shiftLines({0.0, oY.toValue(iPixels) - oY.toValue(0.0)});
}

void QCrossPlot::endLineGesture(bool bReleased)
{
    m_bMovingTops = false;
    m_pBeforeMove.reset();
    const int iOnlyLine = std::exchange(m_iOnlyLine, -1);
    if (std::exchange(m_bTopsMoved, false)) {
        emit sendMoveSelectedUpdateStop();
    } else if (bReleased && isPicked(iOnlyLine) && structuralTops()->selectedLines().size() > 1) {
        pick({iOnlyLine}, false);
    }
}

void QCrossPlot::cancelLineGesture()
{
    m_eButton = Qt::NoButton;
    m_bMovingTops = false;
    m_iOnlyLine = -1;
    const std::unique_ptr<DepthLineField> pBefore = std::move(m_pBeforeMove);
    if (!std::exchange(m_bTopsMoved, false)) {
        return;
    }
    const bool bReceiverMoves = isSignalConnected(QMetaMethod::fromSignal(&QCrossPlot::sendMoveSelectedUpdate));
    if (!bReceiverMoves && structuralTops() && pBefore) {
        *structuralTops() = *pBefore;
        updateLines();
    }
    if (isSignalConnected(QMetaMethod::fromSignal(&QCrossPlot::sendMoveSelectedCancel))) {
        emit sendMoveSelectedCancel();
    } else if (bReceiverMoves) {
        emit sendMoveSelectedUpdate(m_oPressed - m_oLastMove);
        emit sendMoveSelectedUpdateStop();
    }
}

} // namespace gkBase
