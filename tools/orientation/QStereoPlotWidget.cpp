// Settings, projection and layout of the stereonet.

#include "QStereoPlotWidget.h"

#include "Fingerprint.h"
#include "MissingValue.h"
#include "QRelationshipItemModel.h"
#include "ReadableColor.h"
#include "StrikeText.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace gkBase {

QStereoPlotWidget::QStereoPlotWidget(QWidget* pqParent, const QString& sName)
    : QPolarPlotWidget(pqParent, sName)
{
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setShowPointsCount(true);
    QStereoPlotWidget::setSettings(StereoNetSettings());
}

QStereoPlotWidget::~QStereoPlotWidget() = default;

// ---- settings -------------------------------------------------------------------------------------------------------

void QStereoPlotWidget::setSettings(const StereoNetSettings& settings)
{
    m_settings = settings;
    setEqualAreaScaling(settings.m_bEqualArea);
    setAnnotationLabelAsAngle(settings.m_bAnglesAtRim);
    setAnnotationLabelAsDirectionOn(settings.m_bDirectionsAtRim);
    showCircleFrame(settings.m_bCircleFrame);
    setPointFillColor(settings.m_oPointColor);
    setClusterPoleCentroidsOn(settings.m_bPoleCentroids);
    setClusterAzimuthCentroidsOn(settings.m_bAzimuthCentroids);
}

void QStereoPlotWidget::setSecondModel(QRelationshipItemModel* pModel)
{
    m_oSecond.m_pModel = pModel;
    scheduleRedraw();
}

void QStereoPlotWidget::setLineationModel(QRelationshipItemModel* pModel)
{
    m_oLineation.m_pModel = pModel;
    scheduleRedraw();
}

QRelationshipItemModel* QStereoPlotWidget::secondModel() const
{
    return m_oSecond.m_pModel;
}

QRelationshipItemModel* QStereoPlotWidget::lineationModel() const
{
    return m_oLineation.m_pModel;
}

void QStereoPlotWidget::setAverageOrientation(const double& dAzimuth, const bool& bShow, const bool& bAxial)
{
    m_dAverageOrientation = dAzimuth;
    m_bShowAverageOrientation = bShow && !isMissing(dAzimuth);
    m_bAxialAverageOrientation = bAxial;
    scheduleRedraw();
}

void QStereoPlotWidget::setMouseMode(MouseMode eMode)
{
    if (m_eMouseMode != eMode) {
        giveUpGesture();
        m_eMouseMode = eMode;
    }
}

// ---- projection -----------------------------------------------------------------------------------------------------

NetProjection QStereoPlotWidget::projection() const
{
    return NetProjection(equalAreaScaling() ? NetLayout::EqualArea : NetLayout::EqualAngle);
}

double QStereoPlotWidget::equalAreaRadius(double dPlunge) const
{
    return radius() * NetProjection(NetLayout::EqualArea).lineRadius(dPlunge);
}

double QStereoPlotWidget::equalAngleRadius(double dPlunge) const
{
    return radius() * NetProjection(NetLayout::EqualAngle).lineRadius(dPlunge);
}

double QStereoPlotWidget::equalAngleCenterPoleDistance(double dDip) const
{
    return radius() * projection().poleRadius(dDip);
}

QPointF QStereoPlotWidget::poleInPixel(const QPointF& oPlane) const
{
    const NetPoint oPixel = netFrame().toPixel(projection().pole(oPlane.x(), oPlane.y()));
    return {oPixel.m_dX, oPixel.m_dY};
}

QPointF QStereoPlotWidget::dipDirectionInPixel(const QPointF& oLine) const
{
    const NetPoint oPixel = netFrame().toPixel(projection().line(oLine.x(), oLine.y()));
    return {oPixel.m_dX, oPixel.m_dY};
}

QPointF QStereoPlotWidget::transformInPixelPoint(const QPointF& oPoint)
{
    if (m_settings.m_iProjectionTarget != 0 && m_settings.m_iProjectionTarget != 1) {
        return {0.0, 0.0};
    }
    return polesAreShown() ? poleInPixel(oPoint) : dipDirectionInPixel(oPoint);
}

void QStereoPlotWidget::transformPoints(std::span<const double> vdX, std::span<const double> vdY,
                                        std::vector<QPointF>& voPixels)
{
    if (model() && vdX.data() == model()->x().data() && vdX.size() == model()->x().size()) {
        netPointsInPixels(netFrame(), m_oRecords.update(model(), projection(), polesAreShown()), voPixels);
        return;
    }
    std::vector<NetPoint> vPoints(std::min(vdX.size(), vdY.size()));
    (polesAreShown() ? projectPoles : projectLines)(projection(), vdX, vdY, vPoints);
    netPointsInPixels(netFrame(), vPoints, voPixels);
}

QPointF QStereoPlotWidget::transformInDataPoint(const QPointF& oPixel) const
{
    const NetPoint oPoint = netFrame().toNet(oPixel.x(), oPixel.y());
    if (radius() <= 0 || !isOnNet(oPoint)) {
        return {g_dMissingValue, g_dMissingValue};
    }
    if (polesAreShown()) {
        const PlaneOrientation oPlane = projection().poleAt(oPoint);
        return {oPlane.m_dDip, oPlane.m_dDipAzimuth};
    }
    const LineOrientation oLine = projection().lineAt(oPoint);
    return {oLine.m_dPlunge, oLine.m_dAzimuth};
}

double QStereoPlotWidget::transformInAzimuth(const QPointF& oPixel) const
{
    return netAzimuth(netFrame().toNet(oPixel.x(), oPixel.y()));
}

void QStereoPlotWidget::generateDipAndDipAzimuth(const QPointF& oPixel, double& dDip, double& dDipAzimuth) const
{
    dDip = 0.0;
    dDipAzimuth = 0.0;
    const NetPoint oPoint = netFrame().toNet(oPixel.x(), oPixel.y());
    if (isOnNet(oPoint)) {
        const PlaneOrientation oPlane = projection().poleAt(oPoint);
        dDip = oPlane.m_dDip;
        dDipAzimuth = oPlane.m_dDipAzimuth;
    }
}

QString QStereoPlotWidget::dipDirection(const double& dStrike)
{
    const std::string_view sWord = gkBase::dipDirection(dStrike);
    return QString::fromLatin1(sWord.data(), static_cast<qsizetype>(sWord.size()));
}

QString QStereoPlotWidget::transformInStrikeDipConvention(const double& dDipAzimuth, double& dStrike)
{
    dStrike = rightHandStrike(dDipAzimuth);
    return dipDirection(dStrike);
}

bool QStereoPlotWidget::polesAreShown(const QRelationshipItemModel& model) const
{
    return m_settings.m_iProjectionTarget == 0 && !model.linesAreShown();
}

bool QStereoPlotWidget::polesAreShown() const
{
    return model() ? polesAreShown(*model()) : m_settings.m_iProjectionTarget == 0;
}

bool QStereoPlotWidget::isOnDisc(const QPointF& oPixel) const
{
    return radius() > 0 && isOnNet(netFrame().toNet(oPixel.x(), oPixel.y()));
}

bool QStereoPlotWidget::colorAttributeIsOn()
{
    return model() && model()->colorAttributeIsOn();
}

bool QStereoPlotWidget::symbolAttributeIsOn()
{
    return model() && model()->symbolAttributeIsOn();
}

// ---- layout ---------------------------------------------------------------------------------------------------------

void QStereoPlotWidget::layoutChart()
{
    QPolarPlotWidget::layoutChart();
    layOutNet();
    layOutLayer(m_oSecond, m_oSecond.m_pModel && polesAreShown(*m_oSecond.m_pModel));
    layOutLayer(m_oLineation, false);
    layOutContours();
    layOutResults();
}

quint64 QStereoPlotWidget::netKey() const
{
    const NetFrame oFrame = netFrame();
    const NetProjection oProjection = projection();
    const std::array<double, 5> adNumbers{oFrame.m_dCentreX, oFrame.m_dCentreY, oFrame.m_dRadius,
                                          static_cast<double>(oProjection.layout()), oProjection.maximumAngle()};
    Fingerprint print;
    print.add(std::span<const double>(adNumbers));
    return print.value() | 1U;
}

NetPaths QStereoPlotWidget::netPaths() const
{
    return stereoNetPaths(projection(), netFrame(), m_settings.m_bFineNet, m_settings.m_bCoarseNet);
}

void QStereoPlotWidget::layOutNet()
{
    Fingerprint print;
    print.add(netKey());
    print.add(m_settings.m_bFineNet ? 1U : 0U);
    print.add(m_settings.m_bCoarseNet ? 1U : 0U);
    const quint64 iKey = print.value() | 1U;
    if (iKey != m_iNetKey) {
        m_iNetKey = iKey;
        m_oNet = netPaths();
    }
}

void QStereoPlotWidget::layOutLayer(Layer& layer, bool bPoles)
{
    netPointsInPixels(netFrame(), layer.m_oRecords.update(layer.m_pModel, projection(), bPoles), layer.m_voPixels);
}

void QStereoPlotWidget::layOutResults()
{
    m_vResults.clear();
    if (!model()) {
        return;
    }
    for (const StereoResultItem& item : stereoResults(*model(), m_settings)) {
        ResultShape shape{item, pointOf(item), {}};
        if (item.m_eKind == StereoResultItem::Kind::GreatCircle) {
            shape.m_oPath = greatCirclePath(projection(), netFrame(), item.m_oOrientation.x(), item.m_oOrientation.y());
            // On tangent nets the dip point may lie beyond the rim, and so may all of the circle.
            if (std::isnan(shape.m_oPoint.x()) && !shape.m_oPath.isEmpty()) {
                shape.m_oPoint = shape.m_oPath.pointAtPercent(0.5);
            }
        } else if (item.m_eKind == StereoResultItem::Kind::SmallCircle) {
            const LineOrientation oAxis{item.m_oOrientation.x(), item.m_oOrientation.y()};
            shape.m_oPath = smallCirclePath(projection(), netFrame(), oAxis, item.m_dAngle);
            // The label stands at the circle: the middle of it belongs to the mean.
            shape.m_oPoint =
                shape.m_oPath.isEmpty() ? QPointF(g_dEmptyCell, g_dEmptyCell) : QPointF(shape.m_oPath.elementAt(0));
        }
        m_vResults.push_back(std::move(shape));
    }
}

QPointF QStereoPlotWidget::pointOf(const StereoResultItem& item) const
{
    const QPointF oPixel = item.m_eKind == StereoResultItem::Kind::Pole ? poleInPixel(item.m_oOrientation)
                                                                        : dipDirectionInPixel(item.m_oOrientation);
    return isOnDisc(oPixel) ? oPixel : QPointF(g_dEmptyCell, g_dEmptyCell);
}

QColor QStereoPlotWidget::readable(const QColor& oColor) const
{
    return oColor.isValid() ? readableColor(oColor, m_oBackgroundColor, m_oLabelColor) : m_oLabelColor;
}

} // namespace gkBase
