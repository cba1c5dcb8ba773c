// What the stereonet draws.

#include "DevicePixels.h"
#include "Fingerprint.h"
#include "LabelPlacement.h"
#include "MatrixDataArray.h"
#include "MissingValue.h"
#include "PainterState.h"
#include "QRelationshipItemModel.h"
#include "QStereoPlotWidget.h"
#include "StereoLabels.h"

#include <QPainter>
#include <QPen>

#include <algorithm>
#include <array>
#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dFineNetPen = 0.5; // thin, so that what lies under and over it can be seen
constexpr double g_dCoarseNetPen = 1.0;
constexpr double g_dCentreCross = 4.0;
constexpr double g_dCentreCrossPen = 3.0;
constexpr double g_dHalo = 2.0; ///< added to the width of result planes
constexpr int g_iHaloAlpha = 150;
constexpr int g_iPoleSize = 4;
constexpr int g_iLineSize = 2; ///< fits into the open circle
constexpr int g_iOpenCircleSize = 5;
constexpr double g_dResultExtent = 7.0; ///< half the side of the framed square of a result
constexpr double g_dSmallCone = 80.0;   ///< pixels across
constexpr double g_dCentroidExtent = 10.0;
constexpr double g_dSmallestPlunge = 0.005;
constexpr double g_dContourLabelDistance = 50.0;

QRectF around(const QPointF& oPoint, double dHalf)
{
    return {oPoint.x() - dHalf, oPoint.y() - dHalf, 2.0 * dHalf, 2.0 * dHalf};
}

bool isPoint(const QPointF& oPoint)
{
    return std::isfinite(oPoint.x()) && std::isfinite(oPoint.y());
}

} // namespace

void QStereoPlotWidget::drawChart(QPainter& painter)
{
    if (radius() <= 0) {
        return;
    }
    const PainterState state(&painter);
    painter.setRenderHint(QPainter::Antialiasing);
    {
        const PainterState clipped(&painter);
        painter.setClipPath(clipPath(), Qt::IntersectClip);
        drawContour(&painter);
    }
    drawNet(&painter);
    {
        const PainterState clipped(&painter);
        painter.setClipPath(clipPath(), Qt::IntersectClip);
        drawCyclographicTraces(&painter);
        drawLayers(&painter);
    }
    // Labels of contours lie under the results, but leave room for those and their labels.
    LabelPlacement placement(m_oPlotRect);
    blockResults(placement);
    const std::vector<QRectF> voResultLabels = placeResultLabels(painter, placement);
    drawContourLabels(&painter, placement);
    drawAverageOrientation(&painter);
    drawMeanOrientation(&painter);
    drawResultLabels(&painter, voResultLabels);
    if (clusterPoleCentroidsOn()) {
        drawPoleCentroids(&painter);
    }
    if (clusterAzimuthCentroidsOn()) {
        drawAzimuthCentroids(&painter);
    }
    QPolarPlotWidget::drawChart(painter);
}

void QStereoPlotWidget::drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea)
{
    {
        const PainterState state(&painter);
        painter.translate(-oVisibleArea.topLeft());
        painter.setRenderHint(QPainter::Antialiasing);
        drawFoldAxis(&painter);
    }
    QPolarPlotWidget::drawVisibleFrame(painter, oVisibleArea);
}

QStringList QStereoPlotWidget::cornerLines() const
{
    if (!m_settings.m_bHemisphereLabel) {
        return {};
    }
    const NetProjection oProjection = projection();
    switch (oProjection.layout()) {
    case NetLayout::EqualArea:
        return {tr("Equal area"), tr("lower hemisphere")};
    case NetLayout::EqualAngle:
        return {tr("Equal angle"), tr("lower hemisphere")};
    case NetLayout::Tangent:
        return {tr("Tangents, rim %1°").arg(oProjection.maximumAngle(), 0, 'g', 3)};
    }
    return {};
}

// ---- contours -------------------------------------------------------------------------------------------------------

void QStereoPlotWidget::drawContourShapes(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_settings.m_bContourFill) {
        for (std::size_t i = 0; i < m_vContourPaths.size() && i < m_vLevels.size(); ++i) {
            painter.fillPath(m_vContourPaths[i].m_oArea, m_vLevels[i].m_oColor);
        }
    }
    if (m_settings.m_bContourLines) {
        painter.setPen(QPen(m_oLabelColor, 1.0));
        painter.setBrush(Qt::NoBrush);
        for (const ContourPath& path : m_vContourPaths) {
            painter.drawPath(path.m_oLines);
        }
    }
}

void QStereoPlotWidget::updateContourPicture(const PointTarget& target)
{
    Fingerprint print;
    print.add(m_iPathSerial);
    print.add((m_settings.m_bContourFill ? 2U : 0U) | (m_settings.m_bContourLines ? 1U : 0U));
    print.add(std::uint64_t{m_oLabelColor.rgba()});
    const std::array<double, 7> adTarget{target.m_dScale,
                                         target.m_oOffset.x(),
                                         target.m_oOffset.y(),
                                         static_cast<double>(target.m_oRect.left()),
                                         static_cast<double>(target.m_oRect.top()),
                                         static_cast<double>(target.m_oRect.width()),
                                         static_cast<double>(target.m_oRect.height())};
    print.add(std::span<const double>(adTarget));
    const quint64 iKey = print.value() | 1U;
    if (iKey == m_iContourPictureKey) {
        return;
    }
    m_iContourPictureKey = iKey;
    m_oContourPictureTopLeft = target.m_oRect.topLeft();
    m_oContourPicture = QImage(target.m_oRect.size(), QImage::Format_ARGB32_Premultiplied);
    m_oContourPicture.fill(Qt::transparent);
    QPainter painter(&m_oContourPicture);
    painter.translate(target.m_oOffset - m_oContourPictureTopLeft);
    painter.scale(target.m_dScale, target.m_dScale);
    drawContourShapes(painter);
}

void QStereoPlotWidget::drawContour(QPainter* pPainter)
{
    const PainterState state(pPainter);
    const PointTarget target = deviceTarget(*pPainter);
    const bool bShown = m_settings.m_bContourFill || m_settings.m_bContourLines;
    if (bShown && !m_vContourPaths.empty() && canWritePixels(*pPainter) && isMostOfDevice(target.m_oRect, *pPainter)) {
        updateContourPicture(target);
        drawDevicePicture(pPainter, m_oContourPicture, m_oContourPictureTopLeft);
    } else {
        drawContourShapes(*pPainter);
    }
}

void QStereoPlotWidget::drawContourLabels(QPainter* pPainter, LabelPlacement& placement)
{
    if (!m_settings.m_bContourLabels) {
        return;
    }
    const PainterState state(pPainter);
    updateContourLabels(*pPainter, placement);
    for (const PlacedText& label : m_vContourLabels) {
        drawLabelBox(*pPainter, label.m_oBox, label.m_sText, m_oLabelColor, m_oBackgroundColor);
    }
}

void QStereoPlotWidget::updateContourLabels(const QPainter& painter, LabelPlacement& placement)
{
    const QSizeF oSample = labelBoxSize(painter, QStringLiteral("0123456789.%"));
    std::vector<double> vdLayout{oSample.width(), oSample.height()};
    for (const QRectF& oBox : placement.taken()) {
        vdLayout.insert(vdLayout.end(), {oBox.left(), oBox.top(), oBox.right(), oBox.bottom()});
    }
    Fingerprint print;
    print.add(m_iPathSerial);
    print.add(std::span<const double>(vdLayout));
    const quint64 iKey = print.value() | 1U;
    if (iKey == m_iContourLabelKey) {
        return;
    }
    m_iContourLabelKey = iKey;
    m_vContourLabels.clear();
    // A label without room lets the next segment of its line try.
    PlacedText label;
    QSizeF oSize;
    double dLevel = g_dMissingValue;
    contourLabels(m_vContours, g_dContourLabelDistance / radius(), [&](const ContourLabel& candidate) {
        if (candidate.m_dLevel != dLevel) {
            dLevel = candidate.m_dLevel;
            label.m_sText = QString::number(dLevel, 'f', 2) + QLatin1Char('%');
            oSize = labelBoxSize(painter, label.m_sText);
        }
        const NetPoint oPixel = netFrame().toPixel(candidate.m_oPoint);
        label.m_oBox = {QPointF(oPixel.m_dX - oSize.width() / 2.0, oPixel.m_dY - oSize.height() / 2.0), oSize};
        const bool bFits = isInsideNet(netFrame(), label.m_oBox) && !placement.place(std::array{label.m_oBox}).isNull();
        if (bFits) {
            m_vContourLabels.push_back(label);
        }
        return bFits;
    });
}

// ---- net ------------------------------------------------------------------------------------------------------------

void QStereoPlotWidget::drawNetLines(QPainter* pPainter)
{
    const PainterState state(pPainter);
    const QPen oFinePen(readable(m_settings.m_oFineNetColor), g_dFineNetPen);
    const QPen oCoarsePen(m_oLabelColor, g_dCoarseNetPen);
    pPainter->setBrush(Qt::NoBrush);
    pPainter->setPen(oFinePen);
    pPainter->drawPath(m_oNet.m_oFine);
    pPainter->setPen(oCoarsePen);
    pPainter->drawPath(m_oNet.m_oCoarse);
    pPainter->setPen(m_settings.m_bCoarseNet ? oCoarsePen : oFinePen);
    pPainter->drawPath(m_oNet.m_oAxes);
}

void QStereoPlotWidget::drawNet(QPainter* pPainter)
{
    drawNetLines(pPainter);
    const PainterState state(pPainter);
    pPainter->setPen(QPen(readable(Qt::darkGreen), g_dCentreCrossPen));
    const QPointF oCentre = centre();
    pPainter->drawLine(oCentre - QPointF(g_dCentreCross, 0.0), oCentre + QPointF(g_dCentreCross, 0.0));
    pPainter->drawLine(oCentre - QPointF(0.0, g_dCentreCross), oCentre + QPointF(0.0, g_dCentreCross));
}

// ---- data -----------------------------------------------------------------------------------------------------------

void QStereoPlotWidget::drawCyclographicTrace(QPainter* pPainter, const double& dDip, const double& dDipAzimuth,
                                              bool bDiameter)
{
    const bool bArc =
        projection().layout() == NetLayout::EqualAngle && dDip >= g_dPlaneTolerance && dDip <= 90.0 - g_dPlaneTolerance;
    if (bArc) {
        drawEqualAngleCyclographicTrace(pPainter, dDip, dDipAzimuth, bDiameter);
    } else {
        drawEqualAreaCyclographicTrace(pPainter, dDip, dDipAzimuth, bDiameter);
    }
}

void QStereoPlotWidget::drawEqualAngleCyclographicTrace(QPainter* pPainter, const double& dDip,
                                                        const double& dDipAzimuth, bool bDiameter)
{
    const PainterState state(pPainter);
    pPainter->setBrush(Qt::NoBrush);
    drawSector(pointAt(dDipAzimuth, equalAngleRadius(dDip)), pointAt(dDipAzimuth - 90.0, radius()),
               pointAt(dDipAzimuth + 90.0, radius()), pPainter, false);
    if (bDiameter) {
        drawVerticalDiameter(pPainter);
    }
}

void QStereoPlotWidget::drawEqualAreaCyclographicTrace(QPainter* pPainter, const double& dDip,
                                                       const double& dDipAzimuth, bool bDiameter)
{
    const PainterState state(pPainter);
    pPainter->setBrush(Qt::NoBrush);
    pPainter->drawPath(greatCirclePath(projection(), netFrame(), dDip, dDipAzimuth));
    if (bDiameter) {
        drawVerticalDiameter(pPainter);
    }
}

void QStereoPlotWidget::drawVerticalDiameter(QPainter* pPainter)
{
    pPainter->setPen(QPen(m_oLabelColor, 1.0));
    pPainter->drawLine(pointAt(0.0, radius()), pointAt(180.0, radius()));
}

void QStereoPlotWidget::drawGreatCirclesOf(QPainter* pPainter, const QRelationshipItemModel& model,
                                           const QColor& oColor, GreatCirclePainter& curves)
{
    if (model.linesAreShown()) {
        return;
    }
    GreatCircleBatch batch;
    batch.m_vdDips = model.x();
    batch.m_vdDipAzimuths = model.y();
    if (model.numberOfSelectedPoints() > 0) {
        batch.m_vbSelected = model.selectionMask();
    }
    batch.m_oColor = readable(oColor);
    batch.m_oProjection = projection();
    batch.m_oFrame = netFrame();
    if (model.colorAttributeIsOn()) {
        const RelationshipClasses& classes = model.colorClasses();
        batch.m_viColors = classes.ids();
        for (int iClass = 0; iClass <= classes.highestId(); ++iClass) {
            batch.m_voColors.push_back(classes.color(iClass));
        }
    }
    curves.draw(pPainter, batch);
}

void QStereoPlotWidget::drawCyclographicTraces(QPainter* pPainter)
{
    if (!m_settings.m_bGreatCircles) {
        return;
    }
    if (m_oSecond.m_pModel && m_settings.m_bSecondPoints) {
        drawGreatCirclesOf(pPainter, *m_oSecond.m_pModel, m_settings.m_oSecondPointColor, m_oSecond.m_oGreatCircles);
    }
    if (model()) {
        drawGreatCirclesOf(pPainter, *model(), m_settings.m_oPointColor, m_oGreatCircles);
    }
}

void QStereoPlotWidget::drawLayer(QPainter* pPainter, Layer& layer, const QColor& oColor)
{
    drawPointsOf(pPainter, {layer.m_pModel, layer.m_voPixels, oColor, &layer.m_oPainter});
}

void QStereoPlotWidget::drawLayers(QPainter* pPainter)
{
    if (m_settings.m_bPoints) {
        drawPoints(pPainter);
    }
    if (m_settings.m_bSecondPoints) {
        drawLayer(pPainter, m_oSecond, m_settings.m_oSecondPointColor);
    }
    if (m_settings.m_bLineationPoints) {
        drawLayer(pPainter, m_oLineation, m_settings.m_oLineationColor);
    }
}

void QStereoPlotWidget::drawPole(QPainter* pPainter, const QPointF& oPlane)
{
    const QPointF oPixel = poleInPixel(oPlane);
    if (isOnDisc(oPixel)) {
        drawCircle(pPainter, oPixel, g_iPoleSize);
    }
}

void QStereoPlotWidget::drawDipDirection(QPainter* pPainter, const QPointF& oLine)
{
    // A zero plunge is treated as no value.
    const QPointF oPixel = dipDirectionInPixel(oLine);
    if (std::abs(oLine.x()) >= g_dSmallestPlunge && isOnDisc(oPixel)) {
        drawCircle(pPainter, oPixel, g_iLineSize);
    }
}

void QStereoPlotWidget::drawDipDirection(QPainter* pPainter, const QPointF& oLine, PointStyle eStyle, bool bHighlight)
{
    const QPointF oPixel = dipDirectionInPixel(oLine);
    if (std::abs(oLine.x()) >= g_dSmallestPlunge && isOnDisc(oPixel)) {
        drawOneSymbol(pPainter, oPixel, eStyle, bHighlight ? m_oHighlightColor : m_oLineColor, g_iPoleSize);
    }
}

void QStereoPlotWidget::drawDipDirectionAsBigCircle(QPainter* pPainter, const QPointF& oLine)
{
    const QPointF oPixel = dipDirectionInPixel(oLine);
    if (isOnDisc(oPixel)) {
        const PainterState state(pPainter);
        pPainter->setBrush(Qt::NoBrush);
        drawCircle(pPainter, oPixel, g_iOpenCircleSize);
    }
}

// ---- results --------------------------------------------------------------------------------------------------------

void QStereoPlotWidget::drawFoldAxis(QPainter*) {}

void QStereoPlotWidget::drawAverageOrientation(QPainter* pPainter)
{
    if (!m_bShowAverageOrientation) {
        return;
    }
    const PainterState state(pPainter);
    pPainter->setPen(QPen(readable(m_oLineColor), linePixelSize()));
    const auto drawDirection = [&](double dAzimuth) {
        pPainter->drawLine(QPointF(centre()), pointAt(dAzimuth, radius()));
        drawArrow(pPainter, pointAt(dAzimuth, radius()));
    };
    drawDirection(m_dAverageOrientation);
    if (m_bAxialAverageOrientation) {
        drawDirection(m_dAverageOrientation + 180.0);
    }
}

void QStereoPlotWidget::drawMeanOrientation(QPainter* pPainter)
{
    const PainterState state(pPainter);
    pPainter->setBrush(Qt::NoBrush);
    for (const ResultShape& shape : m_vResults) {
        if (shape.m_oItem.isCircle()) {
            const int iWidth = std::max(shape.m_oItem.m_oStyle.m_iWidth, 1);
            QColor oHalo = m_oBackgroundColor;
            oHalo.setAlpha(g_iHaloAlpha);
            pPainter->setPen(QPen(oHalo, iWidth + g_dHalo, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
            pPainter->drawPath(shape.m_oPath);
            pPainter->setPen(
                QPen(readable(shape.m_oItem.m_oStyle.m_oColor), iWidth, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
            pPainter->drawPath(shape.m_oPath);
        }
    }
    for (const ResultShape& shape : m_vResults) {
        if (!shape.m_oItem.isCircle() && isPoint(shape.m_oPoint)) {
            drawResultPoint(pPainter, shape.m_oPoint, readable(shape.m_oItem.m_oStyle.m_oColor), QString());
        }
    }
}

void QStereoPlotWidget::blockResults(LabelPlacement& placement) const
{
    for (const ResultShape& shape : m_vResults) {
        if (!shape.m_oItem.isCircle() && isPoint(shape.m_oPoint)) {
            placement.block(around(shape.m_oPoint, g_dResultExtent));
        }
    }
    for (const bool bPoles : {true, false}) {
        if (bPoles ? clusterPoleCentroidsOn() : clusterAzimuthCentroidsOn()) {
            for (const QPointF& oCentroid : centroids(bPoles && model() && !model()->linesAreShown())) {
                placement.block(around(oCentroid, g_dCentroidExtent));
            }
        }
    }
}

std::vector<QRectF> QStereoPlotWidget::placeResultLabels(const QPainter& painter, LabelPlacement& placement) const
{
    std::vector<QRectF> voBoxes(m_vResults.size());
    for (std::size_t i = 0; m_settings.m_bResultLabels && i < m_vResults.size(); ++i) {
        const ResultShape& shape = m_vResults[i];
        if (isPoint(shape.m_oPoint)) {
            const bool bCircle = shape.m_oItem.isCircle();
            const double dExtent = bCircle ? shape.m_oItem.m_oStyle.m_iWidth / 2.0 : g_dResultExtent;
            QRectF oAnchor = around(shape.m_oPoint, dExtent);
            // The label of a small cone stands beside all of it.
            const QRectF oCircle = shape.m_oPath.boundingRect();
            if (shape.m_oItem.m_eKind == StereoResultItem::Kind::SmallCircle &&
                std::max(oCircle.width(), oCircle.height()) < g_dSmallCone) {
                oAnchor = oCircle.adjusted(-dExtent, -dExtent, dExtent, dExtent);
            }
            voBoxes[i] = placeOnNet(placement, netFrame(), oAnchor, labelBoxSize(painter, shape.m_oItem.m_sLabel));
        }
    }
    return voBoxes;
}

void QStereoPlotWidget::drawResultLabels(QPainter* pPainter, const std::vector<QRectF>& voBoxes)
{
    const PainterState state(pPainter);
    for (std::size_t i = 0; i < voBoxes.size(); ++i) {
        if (!voBoxes[i].isNull()) {
            const StereoResultItem& item = m_vResults[i].m_oItem;
            const QColor oColor = readable(item.m_oStyle.m_oColor);
            drawLabelLeader(*pPainter, voBoxes[i], m_vResults[i].m_oPoint, oColor);
            drawLabelBox(*pPainter, voBoxes[i], item.m_sLabel, oColor, m_oBackgroundColor);
        }
    }
}

QPolygonF QStereoPlotWidget::centroids(bool bPoles) const
{
    QPolygonF oPixels;
    const MatrixDataArray* poCentroids = model() ? model()->clusterCentroids() : nullptr;
    for (int iRow = 0; poCentroids && iRow < poCentroids->arrayRows(); ++iRow) {
        const QPointF oCentroid(poCentroids->cell(iRow, 0), poCentroids->cell(iRow, 1));
        const QPointF oPixel = bPoles ? poleInPixel(oCentroid) : dipDirectionInPixel(oCentroid);
        if (isOnDisc(oPixel)) {
            oPixels << oPixel;
        }
    }
    return oPixels;
}

void QStereoPlotWidget::drawPoleCentroids(QPainter* pPainter)
{
    // Lines have no poles: what stands for the records are their own centroids.
    const bool bPoles = model() && !model()->linesAreShown();
    drawCentroids(pPainter, centroids(bPoles), readable(m_oLineColor));
}

void QStereoPlotWidget::drawAzimuthCentroids(QPainter* pPainter)
{
    drawCentroids(pPainter, centroids(false), readable(m_settings.m_oLineationColor));
}

// ---- the plane under the cursor -------------------------------------------------------------------------------------

void QStereoPlotWidget::drawDipDirectionConstruction(QPainter* pPainter, const QPointF& oPlane)
{
    const PainterState state(pPainter);
    const QColor oColor = pPainter->pen().color();
    pPainter->setPen(QPen(oColor, 1.0, Qt::DashLine));
    pPainter->drawLine(QPointF(centre()), pointAt(oPlane.y(), radius()));
    pPainter->setPen(oColor);
    drawArrow(pPainter, pointAt(oPlane.y(), radius()));
    pPainter->setBrush(oColor);
    drawDipDirection(pPainter, oPlane);
    const QString sText = tr("Dip Azimuth") + QStringLiteral(" %1°").arg(oPlane.y(), 0, 'f', 1);
    LabelPlacement placement(m_oPlotRect);
    const QRectF oBox =
        placeOnNet(placement, netFrame(), around(pointAt(oPlane.y(), radius()), 0.0), labelBoxSize(*pPainter, sText));
    if (!oBox.isNull()) {
        drawLabelBox(*pPainter, oBox, sText, oColor, m_oBackgroundColor);
    }
}

void QStereoPlotWidget::drawPick(QPainter& painter)
{
    double dDip = 0.0;
    double dDipAzimuth = 0.0;
    generateDipAndDipAzimuth(chartPixel(mousePickingPos()), dDip, dDipAzimuth);
    const QPointF oPlane(dDip, dDipAzimuth);
    const PainterState state(&painter);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor oColor = readable(m_oLineColor);
    painter.setPen(QPen(oColor, linePixelSize()));
    drawCyclographicTrace(&painter, dDip, dDipAzimuth, false);
    painter.setPen(QPen(oColor, 1.0));
    painter.setBrush(oColor);
    drawPole(&painter, oPlane);
    drawDipDirectionAsBigCircle(&painter, oPlane);
    drawDipDirectionConstruction(&painter, oPlane);
}

} // namespace gkBase
