#include "GreatCirclePainter.h"

#include "CurveRaster.h"
#include "DevicePixels.h"
#include "DirectionCosines.h"
#include "Fingerprint.h"
#include "MissingValue.h"
#include "NetPaths.h"
#include "PointBatch.h"
#include "TakenPixels.h"

#include <QPainter>
#include <QPen>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dSelectedPen = 2.0;

enum class Part
{
    All, ///< as if none were selected
    Selected
};

bool belongs(const GreatCircleBatch& batch, Part ePart, std::size_t i)
{
    return (ePart == Part::All || batch.isSelected(i)) && !isMissing(batch.m_vdDips[i]) &&
           !isMissing(batch.m_vdDipAzimuths[i]);
}

QColor colorOf(const GreatCircleBatch& batch, Part ePart, std::size_t i)
{
    return ePart == Part::Selected ? QColor::fromRgb(PointBatch::s_oSelectionColor) : batch.color(i);
}

/// Of the planes of a part, counted up to one more than the most.
std::size_t numberOf(const GreatCircleBatch& batch, Part ePart)
{
    std::size_t iCount = 0;
    for (std::size_t i = 0; i < batch.size() && iCount <= GreatCirclePainter::s_iMostOutlines; ++i) {
        iCount += belongs(batch, ePart, i) ? 1 : 0;
    }
    return iCount;
}

std::uint64_t fingerprint(const GreatCircleBatch& batch, const PointTarget& target)
{
    Fingerprint print;
    print.add(batch.m_vdDips);
    print.add(batch.m_vdDipAzimuths);
    print.add(batch.m_viColors);
    for (const QColor& oColor : batch.m_voColors) {
        print.add(oColor.rgba());
    }
    print.add(batch.m_oColor.rgba());
    const double adNumbers[] = {batch.m_oFrame.m_dCentreX,
                                batch.m_oFrame.m_dCentreY,
                                batch.m_oFrame.m_dRadius,
                                static_cast<double>(batch.m_oProjection.layout()),
                                batch.m_oProjection.maximumAngle(),
                                target.m_dScale,
                                target.m_oOffset.x(),
                                target.m_oOffset.y(),
                                static_cast<double>(target.m_oRect.left()),
                                static_cast<double>(target.m_oRect.top()),
                                static_cast<double>(target.m_oRect.width()),
                                static_cast<double>(target.m_oRect.height())};
    print.add(std::span<const double>(adNumbers));
    return print.value();
}

/// What of the sphere a part of the device shows, as a cap around its middle. A great circle crosses a cap only when
/// its pole lies at 90 degrees from the middle, to within the radius of the cap.
class SeenCap
{
public:
    SeenCap(const NetProjection& oProjection, const NetFrame& oFrame, const PointTarget& target)
    {
        const QRectF oRect(target.m_oRect);
        const auto directionAt = [&](const QPointF& oPixel) {
            const QPointF oChart = (oPixel - target.m_oOffset) / target.m_dScale;
            const LineOrientation oLine = oProjection.lineAt(pulledOntoNet(oFrame.toNet(oChart.x(), oChart.y())));
            return lineVector(oLine.m_dPlunge, oLine.m_dAzimuth);
        };
        constexpr int iSteps = 16;
        constexpr double dMargin = 1.0; // degrees, for what the steps leave out
        m_oMiddle = directionAt(oRect.center());
        double dRadius = 0.0;
        for (int i = 0; i <= iSteps; ++i) {
            const QPointF oStep(oRect.width() * i / iSteps, oRect.height() * i / iSteps);
            for (const QPointF& oPixel :
                 {QPointF(oRect.left() + oStep.x(), oRect.top()), QPointF(oRect.left() + oStep.x(), oRect.bottom()),
                  QPointF(oRect.left(), oRect.top() + oStep.y()), QPointF(oRect.right(), oRect.top() + oStep.y())}) {
                dRadius = std::max(dRadius, angleBetweenAxes(m_oMiddle, directionAt(oPixel)));
            }
        }
        // Large parts show so much that nothing is gained.
        m_bAll = dRadius > 45.0;
        m_dSine = sineCosine(std::min(dRadius + dMargin, 90.0)).m_dSine;
    }
    bool isCrossedBy(double dDip, double dDipAzimuth) const
    {
        return m_bAll || std::abs(m_oMiddle.dot(poleVector(dDip, dDipAzimuth))) <= m_dSine;
    }

private:
    gdfVertex m_oMiddle;
    double m_dSine = 1.0;
    bool m_bAll = true;
};

/// The places at which great circles stand on a net. Circles that share a pixel there lie less than about a pixel from
/// each other everywhere. On a stereonet it is the pole. Poles of a tangent net may lie beyond any bounds: there it is
/// the far end of the circle's diameter through the centre, which beyond the rim goes from 1 / distance to 0 as the
/// place goes from one radius to two.
class CirclePlaces
{
public:
    CirclePlaces(const NetProjection& oProjection, double dRadius)
        : m_oProjection(oProjection)
        , m_taken(dRadius, isTangent() ? 2.0 : 1.0)
    {
    }
    /// True for the first circle at its place.
    bool take(double dDip, double dDipAzimuth)
    {
        if (!isTangent()) {
            return m_taken.take(m_oProjection.pole(dDip, dDipAzimuth));
        }
        const double dDiameter = m_oProjection.lineRadius(dDip);
        const double dDistance = dDiameter <= 1.0 ? dDiameter : 2.0 - 1.0 / dDiameter;
        const SineCosine oAzimuth = sineCosine(dDipAzimuth);
        return m_taken.take({dDistance * oAzimuth.m_dSine, dDistance * oAzimuth.m_dCosine});
    }

private:
    bool isTangent() const { return m_oProjection.layout() == NetLayout::Tangent; }

    NetProjection m_oProjection;
    TakenPixels m_taken;
};

CurveRaster raster(const GreatCircleBatch& batch, const PointTarget& target, Part ePart)
{
    CurveRaster curves(target, batch.m_oFrame);
    CirclePlaces places(batch.m_oProjection, batch.m_oFrame.m_dRadius * target.m_dScale);
    const SeenCap cap(batch.m_oProjection, batch.m_oFrame, target);
    const double dStep = curveStep(batch.m_oFrame);
    const double dWidth = ePart == Part::Selected ? g_dSelectedPen * target.m_dScale : 1.0;
    for (std::size_t i = batch.size(); i-- > 0 && !curves.isFull();) {
        if (belongs(batch, ePart, i) && cap.isCrossedBy(batch.m_vdDips[i], batch.m_vdDipAzimuths[i]) &&
            places.take(batch.m_vdDips[i], batch.m_vdDipAzimuths[i])) {
            curves.write(greatCircle(batch.m_oProjection, batch.m_vdDips[i], batch.m_vdDipAzimuths[i], dStep),
                         qPremultiply(colorOf(batch, ePart, i).rgba()), dWidth);
        }
    }
    return curves;
}

/// Curves as the painter strokes them; on vector devices one for each place.
void drawOutlines(QPainter* pPainter, const GreatCircleBatch& batch, Part ePart)
{
    std::vector<std::size_t> viPlanes;
    CirclePlaces places(batch.m_oProjection, batch.m_oFrame.m_dRadius);
    for (std::size_t i = batch.size(); i-- > 0;) {
        if (belongs(batch, ePart, i) && places.take(batch.m_vdDips[i], batch.m_vdDipAzimuths[i])) {
            viPlanes.push_back(i);
        }
    }
    pPainter->save();
    pPainter->setRenderHint(QPainter::Antialiasing);
    pPainter->setBrush(Qt::NoBrush);
    for (auto it = viPlanes.rbegin(); it != viPlanes.rend(); ++it) {
        pPainter->setPen(QPen(colorOf(batch, ePart, *it), ePart == Part::Selected ? g_dSelectedPen : 1.0));
        pPainter->drawPath(
            greatCirclePath(batch.m_oProjection, batch.m_oFrame, batch.m_vdDips[*it], batch.m_vdDipAzimuths[*it]));
    }
    pPainter->restore();
}

} // namespace

QColor GreatCircleBatch::color(std::size_t i) const
{
    const std::size_t iClass = i < m_viColors.size() ? static_cast<std::size_t>(m_viColors[i]) : m_voColors.size();
    return iClass < m_voColors.size() ? m_voColors[iClass] : m_oColor;
}

void GreatCirclePainter::draw(QPainter* pPainter, const GreatCircleBatch& batch)
{
    if (!pPainter || !pPainter->isActive() || batch.size() == 0 || batch.m_oFrame.m_dRadius <= 0.0) {
        return;
    }
    const PointTarget target = deviceTarget(*pPainter);
    const auto drawsOutlines = [&](Part ePart) {
        return !canWritePixels(*pPainter) || numberOf(batch, ePart) <= s_iMostOutlines;
    };
    if (drawsOutlines(Part::All)) {
        m_oKept = QImage();
        drawOutlines(pPainter, batch, Part::All);
    } else if (isMostOfDevice(target.m_oRect, *pPainter)) {
        const std::uint64_t iFingerprint = fingerprint(batch, target);
        if (m_oKept.isNull() || m_iKeptFingerprint != iFingerprint) {
            const CurveRaster curves = raster(batch, target, Part::All);
            m_oKept = curves.picture();
            m_oKeptTopLeft = curves.topLeft();
            m_iKeptFingerprint = iFingerprint;
        }
        drawDevicePicture(pPainter, m_oKept, m_oKeptTopLeft);
    } else {
        const CurveRaster curves = raster(batch, target, Part::All);
        drawDevicePicture(pPainter, curves.picture(), curves.topLeft());
    }
    if (batch.m_vbSelected.empty()) {
        return;
    }
    if (drawsOutlines(Part::Selected)) {
        drawOutlines(pPainter, batch, Part::Selected);
    } else {
        const CurveRaster curves = raster(batch, target, Part::Selected);
        drawDevicePicture(pPainter, curves.picture(), curves.topLeft());
    }
}

} // namespace gkBase
