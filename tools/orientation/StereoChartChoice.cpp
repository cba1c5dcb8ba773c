#include "StereoChartChoice.h"

#include "MissingValue.h"
#include "StoredNumber.h"

#include <QSettings>
#include <QVariant>

#include <type_traits>

namespace gkBase {

namespace {

/// Calls what(key, member) for every member; reading and writing cannot forget one of them then.
template <typename Choice, typename What>
void forEachMember(Choice& choice, What what)
{
    what("display/data_set", choice.m_sDataSet);
    what("display/angle_attribute", choice.m_sAngle);
    what("display/azimuth_attribute", choice.m_sAzimuth);
    what("display/second_data_set", choice.m_sSecondDataSet);
    what("display/lineation_data_set", choice.m_sLineations);
    what("points/color_attribute", choice.m_sColorAttribute);
    what("points/symbol_attribute", choice.m_sSymbolAttribute);
    what("color_map_settings/color_map_min_range", choice.m_oColorMap.m_dMin);
    what("color_map_settings/color_map_max_range", choice.m_oColorMap.m_dMax);
    what("color_map_settings/color_map_interval_size", choice.m_oColorMap.m_dInterval);
}

} // namespace

void StereoChartChoice::forgetOrientations()
{
    m_sDataSet.clear();
    m_sAngle.clear();
    m_sAzimuth.clear();
}

StereoChartChoice StereoChartChoice::read(const QSettings& settings)
{
    StereoChartChoice choice;
    forEachMember(choice, [&settings]<typename Member>(const char* pKey, Member& member) {
        const QString sText = settings.value(QLatin1String(pKey)).toString();
        if constexpr (std::is_same_v<Member, double>)
            member = numberFromSettings(sText, g_dMissingValue);
        else
            member = sText;
    });
    return choice;
}

void StereoChartChoice::write(QSettings& settings) const
{
    forEachMember(*this, [&settings]<typename Member>(const char* pKey, const Member& member) {
        if constexpr (std::is_same_v<Member, double>)
            settings.setValue(QLatin1String(pKey), storedNumber(member));
        else
            settings.setValue(QLatin1String(pKey), member);
    });
}

} // namespace gkBase
