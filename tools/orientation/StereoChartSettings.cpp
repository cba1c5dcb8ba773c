#include "StereoChartSettings.h"

#include "BiasWeights.h"
#include "MissingValue.h"

#include <QSettings>
#include <QVariant>

#include <type_traits>

namespace gkBase {

namespace {

constexpr double g_dLargestPlunge = 90.0;
constexpr double g_dFullCircle = 360.0;

/// Calls what(key, member) for every member; reading and writing cannot forget one of them then.
template <typename Settings, typename What>
void forEachNetMember(Settings& net, What what)
{
    what("net/equal_area", net.m_bEqualArea);
    what("net/projection_target", net.m_iProjectionTarget);
    what("net/maximum_angle", net.m_dMaximumAngle);
    what("net/coarse_net", net.m_bCoarseNet);
    what("net/fine_net", net.m_bFineNet);
    what("net/fine_net_color", net.m_oFineNetColor);
    what("net/great_circles", net.m_bGreatCircles);
    what("points/points", net.m_bPoints);
    what("points/second_points", net.m_bSecondPoints);
    what("points/lineation_points", net.m_bLineationPoints);
    what("points/point_color", net.m_oPointColor);
    what("points/second_point_color", net.m_oSecondPointColor);
    what("points/lineation_color", net.m_oLineationColor);
    what("contours/lines", net.m_bContourLines);
    what("contours/fill", net.m_bContourFill);
    what("contours/fill_lowest_band", net.m_bFillLowestBand);
    what("contours/color_fill", net.m_bContourColorFill);
    what("contours/labels", net.m_bContourLabels);
    what("contours/red_to_blue", net.m_bRedToBlue);
    what("contours/nodes", net.m_iNodes);
    what("contours/interval", net.m_dInterval);
    what("results/labels", net.m_bResultLabels);
    what("results/pole_centroids", net.m_bPoleCentroids);
    what("results/azimuth_centroids", net.m_bAzimuthCentroids);
    what("display_settings/annotation_angles", net.m_bAnglesAtRim);
    what("display_settings/annotation_directions", net.m_bDirectionsAtRim);
    what("display_settings/circle_frame", net.m_bCircleFrame);
    what("display_settings/hemisphere_label", net.m_bHemisphereLabel);
}

template <typename Settings, typename What>
void forEachPanelMember(Settings& panel, What what)
{
    what("display/records", panel.m_eRecords);
    what("display/convention", panel.m_eConvention);
    what("display/selected_only", panel.m_bSelectedOnly);
    what("display/pick_mode", panel.m_bPickMode);
    what("points/style", panel.m_ePointStyle);
    what("points/size", panel.m_iPointSize);
    what("points/hollow", panel.m_bHollow);
    what("points/red_to_blue", panel.m_bClassesRedToBlue);
    what("points/color_legend", panel.m_bColorLegend);
    what("points/symbol_legend", panel.m_bSymbolLegend);
    what("contours/legend", panel.m_bContourLegend);
    what("rotation/principal_to_center", panel.m_bPrincipalToCenter);
    what("rotation/axis_plunge", panel.m_dAxisPlunge);
    what("rotation/axis_azimuth", panel.m_dAxisAzimuth);
    what("rotation/angle", panel.m_dRotationAngle);
    what("clusters/number", panel.m_iClusters);
    what("bias/weights", panel.m_bWeights);
    what("bias/plunge", panel.m_dScanPlunge);
    what("bias/azimuth", panel.m_dScanAzimuth);
    what("bias/limit_angle", panel.m_dLimitAngle);
}

/// Calls what(key, member) for what belongs to each result; the keys hold the name of the result.
template <typename Settings, typename What>
void forEachResultMember(Settings& net, What what)
{
    for (std::size_t i = 0; i < g_iStereoResults; ++i) {
        const auto eResult = static_cast<StereoResult>(i);
        const QString sName = eResult == StereoResult::ConfidenceCone ? QStringLiteral("alpha95")
                                                                      : QLatin1String(stereoResultName(eResult));
        const QByteArray key = "results/" + sName.toLower().replace(QLatin1Char(' '), QLatin1Char('_')).toLatin1();
        what((key + "_show").constData(), net.m_aResults[i].m_bShow);
        what((key + "_color").constData(), net.m_aResults[i].m_oColor);
        what((key + "_width").constData(), net.m_aResults[i].m_iWidth);
    }
}

template <typename Settings, typename What>
void forEachMember(Settings& settings, What what)
{
    forEachNetMember(settings.m_oNet, what);
    forEachResultMember(settings.m_oNet, what);
    forEachPanelMember(settings, what);
}

/// A colour as text ("#rrggbb", empty for an invalid one), a number or a flag; what the text says nothing about stays.
template <typename Member>
void readMember(const QSettings& settings, const char* pKey, Member& member)
{
    const QVariant qValue = settings.value(QLatin1String(pKey));
    if (!qValue.isValid())
        return;
    if constexpr (std::is_same_v<Member, QColor>) {
        const QString sColor = qValue.toString();
        if (sColor.isEmpty() || QColor(sColor).isValid())
            member = sColor.isEmpty() ? QColor() : QColor(sColor);
    } else if constexpr (std::is_same_v<Member, bool>) {
        member = qValue.toBool();
    } else if constexpr (std::is_same_v<Member, double>) {
        bool bNumber = false;
        const double dValue = qValue.toDouble(&bNumber);
        if (bNumber)
            member = dValue;
    } else {
        bool bNumber = false;
        const int iValue = qValue.toInt(&bNumber);
        if (bNumber)
            member = static_cast<Member>(iValue);
    }
}

/// Takes the former value back for one that is not within the bounds.
template <typename Number>
void keepWithin(Number& value, const Number& before, const Number& least, const Number& largest)
{
    if (!(value >= least && value <= largest))
        value = before;
}

void keepValid(QColor& oColor, const QColor& oBefore)
{
    if (!oColor.isValid())
        oColor = oBefore;
}

void checkNet(StereoNetSettings& net, const StereoNetSettings& before)
{
    keepWithin(net.m_iProjectionTarget, before.m_iProjectionTarget, 0, 1);
    keepWithin(net.m_dMaximumAngle, before.m_dMaximumAngle, 10.0, 85.0);
    keepWithin(net.m_iNodes, before.m_iNodes, StereoNetSettings::s_iFewestNodes, StereoNetSettings::s_iMostNodes);
    if (net.m_dInterval != g_dMissingValue && !(net.m_dInterval > 0.0 && net.m_dInterval <= 100.0))
        net.m_dInterval = before.m_dInterval;
    keepValid(net.m_oFineNetColor, before.m_oFineNetColor);
    keepValid(net.m_oPointColor, before.m_oPointColor);
    keepValid(net.m_oSecondPointColor, before.m_oSecondPointColor);
    keepValid(net.m_oLineationColor, before.m_oLineationColor);
    for (std::size_t i = 0; i < g_iStereoResults; ++i)
        keepWithin(net.m_aResults[i].m_iWidth, before.m_aResults[i].m_iWidth, 1, StereoChartSettings::s_iWidestResult);
}

} // namespace

void StereoChartSettings::read(const QSettings& settings)
{
    const StereoChartSettings before = *this;
    m_oDisplay.read(settings);
    forEachMember(*this, [&settings](const char* pKey, auto& member) { readMember(settings, pKey, member); });
    checkNet(m_oNet, before.m_oNet);
    keepWithin(m_eRecords, before.m_eRecords, Records::Automatic, Records::Lines);
    keepWithin(m_eConvention, before.m_eConvention, OrientationConvention::DipAzimuth,
               OrientationConvention::StrikeDipSense);
    keepWithin(m_ePointStyle, before.m_ePointStyle, PointStyle::Circle, PointStyle::BigCross4);
    keepWithin(m_iPointSize, before.m_iPointSize, 1, s_iLargestPointSize);
    keepWithin(m_iClusters, before.m_iClusters, 1, s_iMostClusters);
    keepWithin(m_dAxisPlunge, before.m_dAxisPlunge, 0.0, g_dLargestPlunge);
    keepWithin(m_dAxisAzimuth, before.m_dAxisAzimuth, 0.0, g_dFullCircle);
    keepWithin(m_dRotationAngle, before.m_dRotationAngle, -g_dFullCircle, g_dFullCircle);
    keepWithin(m_dScanPlunge, before.m_dScanPlunge, 0.0, g_dLargestPlunge);
    keepWithin(m_dScanAzimuth, before.m_dScanAzimuth, 0.0, g_dFullCircle);
    keepWithin(m_dLimitAngle, before.m_dLimitAngle, 0.0, ScanLine::s_dLargestLimitAngle);
}

void StereoChartSettings::write(QSettings& settings) const
{
    m_oDisplay.write(settings);
    forEachMember(*this, [&settings]<typename Member>(const char* pKey, const Member& member) {
        if constexpr (std::is_same_v<Member, QColor>)
            settings.setValue(QLatin1String(pKey), member.isValid() ? member.name() : QString());
        else if constexpr (std::is_enum_v<Member>)
            settings.setValue(QLatin1String(pKey), static_cast<int>(member));
        else
            settings.setValue(QLatin1String(pKey), member);
    });
}

} // namespace gkBase
