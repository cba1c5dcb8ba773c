#include "CrossPlotSettings.h"

#include <QSettings>
#include <QVariant>

#include <type_traits>

namespace gkBase {

namespace {

/// Calls what(key, member) for every member; reading and writing cannot forget one of them then.
template <typename Settings, typename What>
void forEachMember(Settings& settings, What what)
{
    what("point_style", settings.m_ePointStyle);
    what("point_size", settings.m_iPointSize);
    what("hollow_points", settings.m_bHollow);
    what("color_legend", settings.m_bColorLegend);
    what("symbol_legend", settings.m_bSymbolLegend);
    what("red_to_blue", settings.m_bRedToBlue);
    what("regression_line", settings.m_bRegressionLine);
    what("regression_of_selection", settings.m_bRegressionOfSelection);
    what("range_of_90_percent", settings.m_b90PercentRange);
    what("clusters", settings.m_iClusters);
    what("clusters_of_selection", settings.m_bClustersOfSelection);
    what("centroids", settings.m_bCentroids);
}

bool isWithin(int iValue, int iMin, int iMax)
{
    return iValue >= iMin && iValue <= iMax;
}

} // namespace

void CrossPlotSettings::read(const QSettings& settings)
{
    const CrossPlotSettings before = *this;
    m_oDisplay.read(settings);
    forEachMember(*this, [&settings]<typename Member>(const char* pKey, Member& member) {
        const QVariant qValue = settings.value(QLatin1String(pKey));
        if (!qValue.isValid())
            return;
        if constexpr (std::is_same_v<Member, bool>)
            member = qValue.toBool();
        else
            member = static_cast<Member>(qValue.toInt());
    });
    if (!isWithin(m_ePointStyle, PointStyle::Circle, PointStyle::BigCross4))
        m_ePointStyle = before.m_ePointStyle;
    if (!isWithin(m_iPointSize, 1, s_iLargestPointSize))
        m_iPointSize = before.m_iPointSize;
    if (!isWithin(m_iClusters, 1, s_iMostClusters))
        m_iClusters = before.m_iClusters;
}

void CrossPlotSettings::write(QSettings& settings) const
{
    m_oDisplay.write(settings);
    forEachMember(*this, [&settings]<typename Member>(const char* pKey, const Member& member) {
        if constexpr (std::is_same_v<Member, bool>)
            settings.setValue(QLatin1String(pKey), member);
        else
            settings.setValue(QLatin1String(pKey), static_cast<int>(member));
    });
}

} // namespace gkBase
