#include "ChartDisplaySettings.h"

#include <QSettings>

namespace gkBase {

namespace {

constexpr char g_grid[] = "grid";
constexpr char g_blackBackground[] = "black_background";
constexpr char g_fontSize[] = "font_size";
constexpr double g_dLargestFont = 100.0;

} // namespace

void ChartDisplaySettings::read(const QSettings& settings)
{
    m_bGrid = settings.value(QLatin1String(g_grid), m_bGrid).toBool();
    m_bBlackBackground = settings.value(QLatin1String(g_blackBackground), m_bBlackBackground).toBool();
    const double dFontSize = settings.value(QLatin1String(g_fontSize), m_dFontSize).toDouble();
    if (dFontSize >= 0.0 && dFontSize <= g_dLargestFont)
        m_dFontSize = dFontSize;
}

void ChartDisplaySettings::write(QSettings& settings) const
{
    settings.setValue(QLatin1String(g_grid), m_bGrid);
    settings.setValue(QLatin1String(g_blackBackground), m_bBlackBackground);
    settings.setValue(QLatin1String(g_fontSize), m_dFontSize);
}

} // namespace gkBase
