#include "RoseChartSettings.h"

#include "StoredNumber.h"

#include <QSettings>
#include <QVariant>

#include <type_traits>

namespace gkBase {

namespace {

const QString g_sNone = QStringLiteral("None");

void keep(const QVariant& qValue, bool& bMember)
{
    bMember = qValue.toBool();
}

void keep(const QVariant& qValue, QByteArray& oMember)
{
    oMember = qValue.toByteArray();
}

void keep(const QVariant& qValue, int& iMember)
{
    bool bNumber = false;
    const int iValue = qValue.toInt(&bNumber);
    if (bNumber)
        iMember = iValue;
}

void keep(const QVariant& qValue, double& dMember)
{
    dMember = numberFromSettings(qValue.toString(), dMember);
}

/// Calls what(key, member) for every member that is stored as it is; reading and writing cannot forget one then.
template <typename Settings, typename What>
void forEachMember(Settings& settings, What what)
{
    what("splitter_sizes/side_panel_splitter", settings.m_oSidePanelSplitter);
    what("splitter_sizes/legend_splitter", settings.m_oLegendSplitter);
    what("display/rose_plot_selected_data_set", settings.m_iSelectedDataSet);
    what("display/rose_plot_interval_size", settings.m_iSectorSize);
    what("display/show_mean_direction", settings.m_bMeanDirection);
    what("display/show_mean_length", settings.m_bMeanLength);
    what("color_map_settings/color_map_min_range", settings.m_oColorMap.m_dMin);
    what("color_map_settings/color_map_max_range", settings.m_oColorMap.m_dMax);
    what("color_map_settings/color_map_interval_size", settings.m_oColorMap.m_dInterval);
    what("display_settings/scaling_interval_size", settings.m_iGridCircleDistance);
    what("display_settings/scaling_circles", settings.m_bCircles);
    what("display_settings/scaling_tickmarks", settings.m_bTickMarks);
    what("display_settings/scaling_off", settings.m_bScalingOff);
    what("display_settings/scaling_circle_frame", settings.m_bCircleFrame);
    what("display_settings/zero_circle_size", settings.m_iZeroCircleSize);
    what("display_settings/font_size", settings.m_dFontSize);
}

/// The same for choices of two, which have a key for either: what(key of true, key of false, member).
template <typename Settings, typename What>
void forEachChoice(Settings& settings, What what)
{
    what("display/show_direction_as_rose_plot", "display/show_direction_as_unit_vectors", settings.m_bRosePlot);
    what("display/scaling_area", "display/scaling_linear", settings.m_bAreaScaling);
    what("display/data_type_unidirectional", "display/data_type_bidirectional", settings.m_bUnidirectional);
    what("color_map_settings/color_map_red_blue", "color_map_settings/color_map_blue_red",
         settings.m_oColorMap.m_bRedToBlue);
    what("display_settings/background_black", "display_settings/background_white", settings.m_bBlackBackground);
}

constexpr const char* g_apAnnotationKeys[] = {
    "display_settings/annotation_angles", "display_settings/annotation_directions", "display_settings/annotation_off"};
constexpr const char* g_pClassifiedByKey = "display/classified_by_attribute";

bool isWithin(double dValue, double dMin, double dMax)
{
    return dValue >= dMin && dValue <= dMax;
}

} // namespace

void RoseChartSettings::read(const QSettings& settings)
{
    const RoseChartSettings before = *this;
    const auto value = [&settings](const char* pKey) { return settings.value(QLatin1String(pKey)); };
    forEachMember(*this, [&value](const char* pKey, auto& member) {
        if (const QVariant qValue = value(pKey); qValue.isValid())
            keep(qValue, member);
    });
    forEachChoice(*this, [&value](const char* pTrueKey, const char* pFalseKey, bool& bMember) {
        const QVariant qTrue = value(pTrueKey);
        const QVariant qFalse = value(pFalseKey);
        if (qTrue.isValid())
            bMember = qTrue.toBool();
        else if (qFalse.isValid())
            bMember = !qFalse.toBool();
    });
    for (int i = 0; i < 3; ++i) {
        if (value(g_apAnnotationKeys[i]).toBool())
            m_eAnnotation = static_cast<Annotation>(i);
    }
    if (const QVariant qName = value(g_pClassifiedByKey); qName.isValid())
        m_sClassifiedBy = qName.toString() == g_sNone ? QString() : qName.toString();

    if (!isWithin(m_iSectorSize, 1, s_iLargestSector))
        m_iSectorSize = before.m_iSectorSize;
    if (m_iGridCircleDistance < 0)
        m_iGridCircleDistance = before.m_iGridCircleDistance;
    if (!isWithin(m_iZeroCircleSize, 0, 100))
        m_iZeroCircleSize = before.m_iZeroCircleSize;
    if (!isWithin(m_dFontSize, 0.0, 1000.0))
        m_dFontSize = before.m_dFontSize;
}

void RoseChartSettings::write(QSettings& settings) const
{
    forEachMember(*this, [&settings]<typename Member>(const char* pKey, const Member& member) {
        if constexpr (std::is_same_v<Member, double>)
            settings.setValue(QLatin1String(pKey), storedNumber(member));
        else
            settings.setValue(QLatin1String(pKey), member);
    });
    forEachChoice(*this, [&settings](const char* pTrueKey, const char* pFalseKey, bool bMember) {
        settings.setValue(QLatin1String(pTrueKey), bMember);
        settings.setValue(QLatin1String(pFalseKey), !bMember);
    });
    for (int i = 0; i < 3; ++i)
        settings.setValue(QLatin1String(g_apAnnotationKeys[i]), m_eAnnotation == static_cast<Annotation>(i));
    settings.setValue(QLatin1String(g_pClassifiedByKey), m_sClassifiedBy.isEmpty() ? g_sNone : m_sClassifiedBy);
}

} // namespace gkBase
