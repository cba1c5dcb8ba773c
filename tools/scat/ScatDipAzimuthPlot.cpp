#include "ScatDipAzimuthPlot.h"

#include "Angles.h"
#include "DirectionMarks.h"
#include "HistogramGeometry.h"
#include "OrientationText.h"
#include "PainterState.h"
#include "QRelationshipItemModel.h"
#include "ReadableColor.h"
#include "ScatFoldCurve.h"

#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dCurvePen = 2.0;
constexpr double g_dLabelGap = 3.0;

} // namespace

ScatDipAzimuthPlot::ScatDipAzimuthPlot(QWidget* pqParent)
    : QCrossPlot(pqParent, tr("Dip-Azimuth Plot"))
{
    setRange({0.0, 0.0}, {360.0, 90.0});
}

void ScatDipAzimuthPlot::setDirections(double dT, double dL)
{
    m_dT = dT;
    m_dL = dL;
    update();
}

void ScatDipAzimuthPlot::setFoldAxis(const LineOrientation& oAxis)
{
    m_vFoldCurve = cylindricalFoldCurve(oAxis);
    update();
}

// ---- chart units ----------------------------------------------------------------------------------------------------

QPointF ScatDipAzimuthPlot::transformInPixelPoint(const QPointF& oPoint)
{
    return QCrossPlot::transformInPixelPoint(oPoint.transposed());
}

void ScatDipAzimuthPlot::transformPoints(std::span<const double> vdDips, std::span<const double> vdAzimuths,
                                         std::vector<QPointF>& voPixels)
{
    QCrossPlot::transformPoints(vdAzimuths, vdDips, voPixels);
}

CrossPlotMap ScatDipAzimuthPlot::axesMap() const
{
    return {rangeA(), rangeB(), orientationFlag() == 1, chartSize()};
}

// ---- marks and curve ------------------------------------------------------------------------------------------------

std::vector<ScatDipAzimuthPlot::Mark> ScatDipAzimuthPlot::marks() const
{
    constexpr double dFullTurn = 360.0;
    const CrossPlotMap oMap = axesMap();
    std::vector<Mark> vMarks;
    const auto add = [&](double dAzimuth, const QString& sName, bool bTransverse) {
        const double dX = oMap.m_oX.toPixel(wrapAngle(dAzimuth, dFullTurn));
        vMarks.push_back({dX, sName, bTransverse});
    };
    if (!isMissing(m_dT)) {
        add(m_dT, directionName(true), true);
        add(m_dT + dFullTurn / 2.0, tr("T+180"), true);
    }
    if (!isMissing(m_dL)) {
        add(m_dL, directionName(false), false);
    }
    std::stable_sort(vMarks.begin(), vMarks.end(),
                     [](const Mark& first, const Mark& second) { return first.m_dX < second.m_dX; });
    return vMarks;
}

void ScatDipAzimuthPlot::drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea)
{
    {
        const PainterState state(&painter);
        painter.translate(-oVisibleArea.topLeft());
        painter.setRenderHint(QPainter::Antialiasing);
        drawFoldCurve(painter);
        std::vector<DirectionLine> vLines;
        const std::vector<Mark> vMarks = marks();
        for (const Mark& mark : vMarks) {
            const double dX = std::round(mark.m_dX);
            vLines.push_back({QLineF(dX, m_oPlotRect.bottom(), dX, m_oPlotRect.top()), mark.m_bTransverse});
        }
        painter.setRenderHint(QPainter::Antialiasing, false);
        drawDirectionLines(painter, vLines, m_oLabelColor, m_oBackgroundColor);
        drawMarkLabels(painter, vMarks, oVisibleArea);
    }
    QCrossPlot::drawVisibleFrame(painter, oVisibleArea);
}

void ScatDipAzimuthPlot::drawFoldCurve(QPainter& painter) const
{
    const CrossPlotMap oMap = axesMap();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(readableColor(m_oLineColor, m_oBackgroundColor, m_oLabelColor), g_dCurvePen, Qt::DashLine));
    for (const QPolygonF& piece : m_vFoldCurve) {
        QPolygonF pixels;
        pixels.reserve(piece.size());
        for (const QPointF& oPoint : piece) {
            pixels << oMap.toPixel(oPoint);
        }
        painter.drawPolyline(pixels);
    }
}

void ScatDipAzimuthPlot::drawMarkLabels(QPainter& painter, const std::vector<Mark>& vMarks,
                                        const QRect& oVisibleArea) const
{
    QList<double> vdCentres;
    QList<double> vdWidths;
    std::vector<const Mark*> vpShown;
    for (const Mark& mark : vMarks) {
        if (mark.m_dX >= oVisibleArea.left() && mark.m_dX <= oVisibleArea.right() + 1.0) {
            vpShown.push_back(&mark);
            vdWidths << directionLabelSize(painter, mark.m_sName).width();
            const double dHalf = vdWidths.last() / 2.0;
            vdCentres << std::max(oVisibleArea.left() + dHalf, std::min(mark.m_dX, oVisibleArea.right() - dHalf));
        }
    }
    const QList<int> viRows = labelRows(vdCentres, vdWidths, g_dLabelGap);
    for (qsizetype i = 0; i < viRows.size(); ++i) {
        const Mark& mark = *vpShown[static_cast<std::size_t>(i)];
        const QSizeF oSize = directionLabelSize(painter, mark.m_sName);
        const QPointF oCorner(std::floor(vdCentres[i] - oSize.width() / 2.0),
                              oVisibleArea.top() + g_dLabelGap + viRows[i] * (oSize.height() + g_dLabelGap));
        drawDirectionLabel(painter, {oCorner, oSize}, mark.m_sName, m_oLabelColor, m_oBackgroundColor);
    }
}

QString ScatDipAzimuthPlot::pointToolTip(int iRecord) const
{
    if (!model() || !model()->isValid(iRecord)) {
        return {};
    }
    const auto i = static_cast<std::size_t>(iRecord);
    const QString sPlane = planeText({model()->x()[i], model()->y()[i]}, OrientationConvention::DipAzimuth);
    // Records are counted from 1, as in the table.
    return tr("Dip/dip azimuth %1°\nRecord %2").arg(sPlane).arg(iRecord + 1);
}

} // namespace gkBase
