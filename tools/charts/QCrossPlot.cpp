#include "QCrossPlot.h"

#include "CrossPlotPainting.h"
#include "Fingerprint.h"
#include "LabelPlacement.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "QCartesianAxisWidget.h"
#include "QRelationshipItemModel.h"
#include "ReadableColor.h"
#include "SummaryStatistics.h"
#include "UnitManager.h"

#include <QAction>
#include <QBitmap>
#include <QCoreApplication>
#include <QCursor>
#include <QFile>
#include <QPainter>

#include <array>
#include <cmath>
#include <utility>

namespace gkBase {

namespace {

/// Digits of slope, intercept and correlation.
constexpr int g_iRegressionDigits = 5;

QCursor crossCursor()
{
    const QString sCursor = QStringLiteral(":/gkBaseQt/Resources/CrossCursor.bmp");
    const QString sMask = QStringLiteral(":/gkBaseQt/Resources/CrossCursorMask.bmp");
    if (QFile::exists(sCursor) && QFile::exists(sMask)) {
        return {QBitmap(sCursor), QBitmap(sMask)};
    }
    return Qt::CrossCursor;
}

/// Display value = model value · factor + offset.
std::pair<double, double> displayLine(const MatrixData* poNode)
{
    const boost::shared_ptr<UnitManager> poUnit = poNode ? poNode->unitManager() : boost::shared_ptr<UnitManager>();
    if (!poUnit) {
        return {1.0, 0.0};
    }
    // At 0 the offset has no rounding, which would show as an intercept of 1e-12.
    const double dOffset = poUnit->convertModelToDisplay(0.0);
    return {poUnit->convertModelToDisplay(1.0) - dOffset, dOffset};
}

/// Model units; NaN where a number is missing.
QPointF centroid(const MatrixDataArray& centroids, int iRow)
{
    const double dX = centroids.cell(iRow, 0);
    const double dY = centroids.cell(iRow, 1);
    return isMissing(dX) || isMissing(dY) ? QPointF(g_dEmptyCell, g_dEmptyCell) : QPointF(dX, dY);
}

QString digits(double dValue)
{
    return QString::number(dValue, 'g', g_iRegressionDigits);
}

} // namespace

QCrossPlot::QCrossPlot(QWidget* pqParent, const QString& sName)
    : QChartDrawingArea(pqParent, sName.isEmpty() ? tr("Cross Plot") : sName)
    , m_dCursorY(g_dMissingValue)
{
    setMouseTracking(true);
    setCursor(crossCursor());
    createActions();
}

QCrossPlot::~QCrossPlot() = default;

void QCrossPlot::createActions()
{
    const auto action = [this](const char* pText) {
        return new QAction(QCoreApplication::translate("QCrossPlotWidget", pText), this);
    };
    m_pqRenameAction = action(QT_TRANSLATE_NOOP("QCrossPlotWidget", "Rename..."));
    m_pqColorAction = action(QT_TRANSLATE_NOOP("QCrossPlotWidget", "Modify Colour..."));
    m_pqOrientationAction = action(QT_TRANSLATE_NOOP("QCrossPlotWidget", "Modify Orientation"));
    m_pqDeleteAction = action(QT_TRANSLATE_NOOP("QCrossPlotWidget", "Delete"));
    connect(m_pqRenameAction, &QAction::triggered, this, &QCrossPlot::slotRenameSelected);
    connect(m_pqColorAction, &QAction::triggered, this, &QCrossPlot::slotModifySelectedColor);
    connect(m_pqOrientationAction, &QAction::triggered, this, &QCrossPlot::sendModifySelectedOrientation);
    connect(m_pqDeleteAction, &QAction::triggered, this, &QCrossPlot::slotDeleteSelected);
}

// ---- settings -------------------------------------------------------------------------------------------------------

void QCrossPlot::setRange(const QPointF& oA, const QPointF& oB)
{
    m_oA = oA;
    m_oB = oB;
    scheduleRedraw();
}

void QCrossPlot::setOrientationFlag(int iFlag)
{
    m_iOrientation = iFlag;
    scheduleRedraw();
}

void QCrossPlot::setDataCreationType(int iType)
{
    m_iDataCreationType = iType;
}

double QCrossPlot::pickingEpsY() const
{
    return m_iPickingPixels * map().m_oY.valuesPerPixel();
}

void QCrossPlot::setPickingPixels(int iPixels)
{
    m_iPickingPixels = std::max(iPixels, 0);
}

void QCrossPlot::setLineOrientationPosition(std::function<double(const QPointF& oDipAndAzimuth)> position)
{
    m_linePosition = std::move(position);
    update();
}

void QCrossPlot::setShowRegressionLine(bool bShow)
{
    m_bShowRegression = bShow;
    scheduleRedraw();
}

void QCrossPlot::setShow90PercentRange(bool bShow)
{
    m_bShow90PercentRange = bShow;
    scheduleRedraw();
}

void QCrossPlot::setAxes(QCartesianAxisWidget* pqLeft, QCartesianAxisWidget* pqBottom)
{
    m_pqLeftAxis = pqLeft;
    m_pqBottomAxis = pqBottom;
}

void QCrossPlot::setMessage(const QString& sMessage)
{
    m_sMessage = sMessage;
    update();
}

void QCrossPlot::setCursorLine(double dY)
{
    m_dCursorY = dY;
    update();
}

bool QCrossPlot::colorAttributeIsOn()
{
    return model() && model()->colorAttributeIsOn();
}

bool QCrossPlot::symbolAttributeIsOn()
{
    return model() && model()->symbolAttributeIsOn();
}

void QCrossPlot::verticalGridLinesChanged(QList<int> viPositions)
{
    m_viVerticalGridLines = std::move(viPositions);
    scheduleRedraw();
}

void QCrossPlot::horizontalGridLinesChanged(QList<int> viPositions)
{
    m_viHorizontalGridLines = std::move(viPositions);
    scheduleRedraw();
}

DepthLineField* QCrossPlot::structuralTops() const
{
    return model() ? model()->structuralTops() : nullptr;
}

// ---- layout ---------------------------------------------------------------------------------------------------------

CrossPlotMap QCrossPlot::map() const
{
    return {m_oA, m_oB, m_iOrientation == 1, chartSize()};
}

QPointF QCrossPlot::transformInPixelPoint(const QPointF& oPoint)
{
    return map().toPixel(oPoint);
}

void QCrossPlot::transformPoints(std::span<const double> vdX, std::span<const double> vdY,
                                 std::vector<QPointF>& voPixels)
{
    map().toPixels(vdX, vdY, voPixels);
}

QPointF QCrossPlot::transformInDataPoint(const QPointF& oPixel) const
{
    return map().toData(oPixel);
}

int QCrossPlot::recordAt(const QPointF& oPixel, double dDistance)
{
    return nearestPoint(pointPixels(), oPixel, dDistance);
}

void QCrossPlot::layoutChart()
{
    m_oPlotRect = QRectF(QPointF(0, 0), QSizeF(chartSize() - QSize(1, 1)));
    layOutBoundaries();
    layOutTops();
    layOutRegression();
    layOutRange();
}

std::vector<CrossPlotDepthLine> QCrossPlot::readableLines(const DepthLineField& field) const
{
    std::vector<CrossPlotDepthLine> vLines = crossPlotDepthLines(field, map(), chartSize());
    for (CrossPlotDepthLine& line : vLines) {
        line.m_oColor = readableColor(line.m_oColor, m_oBackgroundColor, m_oLabelColor);
    }
    return vLines;
}

void QCrossPlot::layOutBoundaries()
{
    const DepthLineField* pBoundaries = model() ? model()->intervalFilter() : nullptr;
    m_vBoundaries = pBoundaries ? readableLines(*pBoundaries) : std::vector<CrossPlotDepthLine>();
}

void QCrossPlot::layOutTops()
{
    m_vLines.clear();
    m_vDomains.clear();
    if (const DepthLineField* pTops = structuralTops()) {
        m_vLines = readableLines(*pTops);
        m_vDomains = crossPlotDomains(*pTops, map(), chartSize());
    }
}

void QCrossPlot::updateLines()
{
    const std::vector<CrossPlotDomain> vDomains = std::exchange(m_vDomains, {});
    layOutTops();
    // Domains lie under the points, lines over everything.
    vDomains == m_vDomains ? update() : scheduleRedraw();
    if (m_iHoveredLine >= 0 && !gestureIsUnderWay()) {
        setHoveredLine(lineAt(mousePickingPos()));
    }
}

void QCrossPlot::layOutRegression()
{
    m_oRegression = QLineF();
    m_sRegression.clear();
    if (!m_bShowRegression || !model() || model()->numberOfValidPoints() == 0) {
        return;
    }
    double dSlope = 0.0;
    double dIntercept = 0.0;
    double dCorrelation = 0.0;
    model()->calculateRegressionLine(dSlope, dIntercept, dCorrelation);
    if (dSlope == g_dMissingValue) {
        m_sRegression = QCoreApplication::translate("QCrossPlotWidget", "The regression is not a function");
        return;
    }
    m_oRegression = crossPlotLine(map(), dSlope, dIntercept);
    // Shown in the units of the axes.
    const auto [dXFactor, dXOffset] = displayLine(model()->nodeX());
    const auto [dYFactor, dYOffset] = displayLine(model()->nodeY());
    const double dShownSlope = dSlope * dYFactor / dXFactor;
    const double dShownIntercept = dIntercept * dYFactor + dYOffset - dShownSlope * dXOffset;
    m_sRegression = QStringLiteral("y=%1x%2%3\n R=%4")
                        .arg(digits(dShownSlope), dShownIntercept < 0.0 ? QString() : QStringLiteral("+"),
                             digits(dShownIntercept), digits(dCorrelation));
}

void QCrossPlot::layOutRange()
{
    if (!m_bShow90PercentRange || !model() || model()->numberOfValidPoints() == 0) {
        m_iRangeKey = 0;
        return;
    }
    Fingerprint print;
    print.add(model()->x());
    print.add(model()->y());
    if (std::exchange(m_iRangeKey, print.value() | 1U) == m_iRangeKey) {
        return;
    }
    constexpr std::array vdPercents{5.0, 95.0};
    const std::vector<double> vdX = quantiles(RecordValues(model()->x()), vdPercents);
    const std::vector<double> vdY = quantiles(RecordValues(model()->y()), vdPercents);
    m_oRange = {vdX[0], vdX[1], vdY[0], vdY[1]};
}

// ---- drawing --------------------------------------------------------------------------------------------------------

CrossPlotStyle QCrossPlot::style() const
{
    return {m_oBackgroundColor, m_oLabelColor, m_oLineColor, m_oGridColor, linePixelSize()};
}

void QCrossPlot::drawChart(QPainter& painter)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    drawCrossPlotDomains(painter, m_vDomains);
    if (gridIsOn()) {
        drawCrossPlotGrid(painter, m_viVerticalGridLines, m_viHorizontalGridLines, m_oPlotRect, style());
    }
    drawCrossPlotBoundaries(painter, m_vBoundaries, m_oPlotRect);
    drawUnderPoints(painter);
    drawPoints(&painter);
    if (m_iRangeKey != 0) {
        drawCrossPlotRange(painter, m_oRange, map(), m_oPlotRect, style());
    }
    drawCrossPlotRegression(painter, m_oRegression, style());
    drawCentroidsOfClusters(painter);
    drawOverPoints(painter);
    painter.setPen(QPen(m_oGridColor, 1.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(m_oPlotRect);
    painter.restore();
}

void QCrossPlot::drawCentroidsOfClusters(QPainter& painter)
{
    const MatrixDataArray* poCentroids = model() ? model()->clusterCentroids() : nullptr;
    if (!poCentroids || !clusterPoleCentroidsOn()) {
        return;
    }
    QPolygonF centroids;
    for (int iRow = 0; iRow < poCentroids->arrayRows(); ++iRow) {
        const QPointF oPixel = transformInPixelPoint(centroid(*poCentroids, iRow));
        if (std::isfinite(oPixel.x()) && std::isfinite(oPixel.y())) {
            centroids << oPixel;
        }
    }
    drawCentroids(&painter, centroids, readableColor(m_oLineColor, m_oBackgroundColor, m_oLabelColor));
}

void QCrossPlot::drawUnderPoints(QPainter&) {}

void QCrossPlot::drawOverPoints(QPainter&) {}

void QCrossPlot::drawAxis(QPainter& painter, QRect oVisibleArea)
{
    if (m_pqLeftAxis) {
        m_pqLeftAxis->drawAxis(painter, oVisibleArea);
    }
    if (m_pqBottomAxis) {
        m_pqBottomAxis->drawAxis(painter, oVisibleArea);
    }
}

void QCrossPlot::drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea)
{
    LabelPlacement placement(QRectF(QPointF(0, 0), QSizeF(oVisibleArea.size())));
    if (!m_sRegression.isEmpty()) {
        drawCrossPlotText(painter, m_sRegression, m_oRegression, oVisibleArea, placement, style());
    }
    drawLines(painter, oVisibleArea, placement);
    if (m_iRangeKey != 0) {
        drawCrossPlotRangeLabels(painter, m_oRange, map(), oVisibleArea, placement, style());
    }
    if (!isMissing(m_dCursorY)) {
        drawCrossPlotCursorLine(painter, map().m_oY.toPixel(m_dCursorY), oVisibleArea, style());
    }
    if (!m_sMessage.isEmpty()) {
        drawCrossPlotMessage(painter, m_sMessage, oVisibleArea, style());
    }
    if (!m_vSelectionPath.isEmpty()) {
        drawCrossPlotLasso(painter, m_vSelectionPath, QCoreApplication::translate("QCrossPlotWidget", "Select an Area"),
                           oVisibleArea, style());
    }
}

std::vector<CrossPlotOrientationMark> QCrossPlot::orientationMarks(const QRect& oVisibleArea) const
{
    const DepthLineField* pTops = structuralTops();
    return pTops ? crossPlotOrientationMarks(*pTops, m_vLines, m_linePosition, map().m_oX, oVisibleArea)
                 : std::vector<CrossPlotOrientationMark>();
}

void QCrossPlot::drawLines(QPainter& painter, const QRect& oVisibleArea, LabelPlacement& placement)
{
    if (m_vLines.empty()) {
        return;
    }
    const std::vector<CrossPlotOrientationMark> vMarks = orientationMarks(oVisibleArea);
    drawCrossPlotDepthLines(painter, m_vLines, m_iHoveredLine, oVisibleArea, style());
    drawCrossPlotOrientationMarks(painter, vMarks, m_oSprites, placement, style());
    drawCrossPlotHandles(painter, crossPlotLineHandles(m_vLines, vMarks, oVisibleArea), m_vLines, m_iHoveredLine,
                         placement, style());
    drawCrossPlotLabels(painter, m_vLines, m_iHoveredLine, oVisibleArea, placement, style());
    drawCrossPlotOrientationLabels(painter, vMarks, placement, style());
}

void QCrossPlot::renderWithGrid(QPainter& painter, const QRect& oTarget, const QList<int>& viVertical,
                                const QList<int>& viHorizontal)
{
    const QList<int> viOwnVertical = std::exchange(m_viVerticalGridLines, viVertical);
    const QList<int> viOwnHorizontal = std::exchange(m_viHorizontalGridLines, viHorizontal);
    const double dOwnCursorY = std::exchange(m_dCursorY, g_dMissingValue);
    const QVector<QPointF> voOwnPath = std::exchange(m_vSelectionPath, {});
    const int iOwnHoveredLine = std::exchange(m_iHoveredLine, -1);
    renderTo(painter, oTarget);
    m_viVerticalGridLines = viOwnVertical;
    m_viHorizontalGridLines = viOwnHorizontal;
    m_dCursorY = dOwnCursorY;
    m_vSelectionPath = voOwnPath;
    m_iHoveredLine = iOwnHoveredLine;
}

} // namespace gkBase
