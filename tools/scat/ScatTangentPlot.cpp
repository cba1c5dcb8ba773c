#include "ScatTangentPlot.h"

#include "DirectionMarks.h"
#include "LabelPlacement.h"
#include "PainterState.h"
#include "StereoLabels.h"

#include <QFont>
#include <QPainter>
#include <QPen>

#include <cmath>
#include <cstddef>
#include <vector>

namespace gkBase {

namespace {

constexpr double g_dLabelDistance = 3.0; ///< from the rim, inwards
constexpr int g_iLabelledRadius = 120;   ///< of the smallest diagram in which the axis is named
constexpr int g_iDipStep = 10;
constexpr double g_dDipsAzimuth = 15.0; ///< between the lines of the net
constexpr double g_dDipFont = 0.8;

} // namespace

ScatTangentPlot::ScatTangentPlot(QWidget* pqParent)
    : QTangentPlotWidget(pqParent, tr("Tangent Diagram"))
{
    setShowPointsCount(false);
}

void ScatTangentPlot::setDirections(double dT, double dL)
{
    m_adDirections = {dT, dL};
    update();
}

// ---- net ------------------------------------------------------------------------------------------------------------

void ScatTangentPlot::drawNet(QPainter* pPainter)
{
    const PainterState state(pPainter);
    const NetPaths paths = netPaths();
    pPainter->setBrush(Qt::NoBrush);
    pPainter->setPen(QPen(m_oGridColor, 1.0));
    pPainter->drawPath(paths.m_oCoarse);
    pPainter->drawPath(paths.m_oAxes);
    drawDips(*pPainter);
}

void ScatTangentPlot::drawDips(QPainter& painter) const
{
    QFont oFont = painter.font();
    if (oFont.pointSizeF() > 0.0) {
        oFont.setPointSizeF(g_dDipFont * oFont.pointSizeF());
    }
    painter.setFont(oFont);
    // From the rim inwards, as long as the circles leave room.
    LabelPlacement placement(m_oPlotRect);
    const int iSteepest = static_cast<int>(std::ceil(maximumAngle() / g_iDipStep)) - 1;
    for (int iDip = iSteepest * g_iDipStep; iDip > 0; iDip -= g_iDipStep) {
        const QString sDip = QString::number(iDip);
        QRectF oBox(QPointF(), labelBoxSize(painter, sDip));
        oBox.moveCenter(pointAt(g_dDipsAzimuth, tangentRadius(iDip)));
        if (isInsideNet(netFrame(), oBox) && !placement.place(std::array{oBox}).isNull()) {
            drawLabelBox(painter, oBox, sDip, m_oLabelColor, m_oBackgroundColor);
        }
    }
}

// ---- directions -----------------------------------------------------------------------------------------------------

QLineF ScatTangentPlot::directionLine(double dDirection) const
{
    return {pointAt(dDirection + 180.0, radius()), pointAt(dDirection, radius())};
}

std::array<QRectF, 2> ScatTangentPlot::labelBoxes(const QPainter& painter) const
{
    // Inside the rim at the end that the direction names, or as near to it as the other name lets it.
    std::array<QRectF, 2> aoBoxes;
    LabelPlacement placement(m_oPlotRect);
    for (std::size_t i = 0; i < m_adDirections.size(); ++i) {
        if (isMissing(m_adDirections[i])) {
            continue;
        }
        const QSizeF oSize = directionLabelSize(painter, directionName(i == 0));
        const double dReach = std::hypot(oSize.width(), oSize.height());
        std::vector<QRectF> voBoxes;
        for (int iStep = 0; iStep < 3; ++iStep) {
            QRectF oBox(QPointF(), oSize);
            oBox.moveCenter(pointAt(m_adDirections[i], radius() - g_dLabelDistance - (0.5 + 1.2 * iStep) * dReach));
            voBoxes.push_back(oBox);
        }
        aoBoxes[i] = placement.place(voBoxes);
    }
    return aoBoxes;
}

void ScatTangentPlot::blockFoldAxisLabel(LabelPlacement& placement, const QPainter& painter) const
{
    for (const QRectF& oBox : labelBoxes(painter)) {
        if (!oBox.isNull()) {
            placement.block(oBox);
        }
    }
}

QString ScatTangentPlot::foldAxisText() const
{
    return radius() < g_iLabelledRadius ? QString() : QTangentPlotWidget::foldAxisText();
}

void ScatTangentPlot::drawFoldAxis(QPainter* pPainter)
{
    if (radius() > 0) {
        const PainterState state(pPainter);
        std::vector<DirectionLine> vLines;
        for (std::size_t i = 0; i < m_adDirections.size(); ++i) {
            if (!isMissing(m_adDirections[i])) {
                vLines.push_back({directionLine(m_adDirections[i]), i == 0});
            }
        }
        drawDirectionLines(*pPainter, vLines, m_oLabelColor, m_oBackgroundColor);
    }
    QTangentPlotWidget::drawFoldAxis(pPainter);
    if (radius() > 0) {
        const PainterState state(pPainter);
        const std::array<QRectF, 2> aoBoxes = labelBoxes(*pPainter);
        for (std::size_t i = 0; i < aoBoxes.size(); ++i) {
            if (!aoBoxes[i].isNull()) {
                drawDirectionLabel(*pPainter, aoBoxes[i], directionName(i == 0), m_oLabelColor, m_oBackgroundColor);
            }
        }
    }
}

} // namespace gkBase
