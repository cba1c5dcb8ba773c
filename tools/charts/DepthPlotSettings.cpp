#include "DepthPlotSettings.h"

#include <QSettings>

#include <algorithm>

namespace gkBase {

namespace {

constexpr int g_iMaximumLineWidth = 10;
constexpr int g_iMaximumPointSize = 20;

/// QSettings takes "a//b" for another key than "a/b".
QString trimmedGroup(QString sGroup)
{
    while (sGroup.endsWith(QLatin1Char('/')))
        sGroup.chop(1);
    return sGroup;
}

bool flag(const QSettings& settings, const char* pKey, bool bDefault)
{
    return settings.value(QLatin1String(pKey), bDefault).toBool();
}

double number(const QSettings& settings, const char* pKey, double dDefault)
{
    bool bOk = false;
    const double dValue = settings.value(QLatin1String(pKey), dDefault).toDouble(&bOk);
    return bOk && !isMissing(dValue) ? dValue : dDefault;
}

/// Empty for the colour that is chosen when none is given.
QString colorName(const QColor& oColor)
{
    return oColor.isValid() ? oColor.name() : QString();
}

DepthTrackStyle loadStyle(const QSettings& settings)
{
    DepthTrackStyle style;
    style.m_bLine = flag(settings, "line", style.m_bLine);
    style.m_bPoints = flag(settings, "points", style.m_bPoints);
    style.m_iLineWidth =
        std::clamp(settings.value(QStringLiteral("line_width"), style.m_iLineWidth).toInt(), 1, g_iMaximumLineWidth);
    style.m_iPointSize =
        std::clamp(settings.value(QStringLiteral("point_size"), style.m_iPointSize).toInt(), 1, g_iMaximumPointSize);
    style.m_oColor = QColor(settings.value(QStringLiteral("color")).toString());
    style.m_oPointColor = QColor(settings.value(QStringLiteral("point_color")).toString());
    style.m_bAutomaticLimits = flag(settings, "automatic_limits", style.m_bAutomaticLimits);
    style.m_dMinimum = number(settings, "minimum", style.m_dMinimum);
    style.m_dMaximum = number(settings, "maximum", style.m_dMaximum);
    style.m_bReversed = flag(settings, "reversed", style.m_bReversed);
    return style;
}

void saveStyle(QSettings& settings, const DepthTrackStyle& style)
{
    settings.setValue(QStringLiteral("line"), style.m_bLine);
    settings.setValue(QStringLiteral("points"), style.m_bPoints);
    settings.setValue(QStringLiteral("line_width"), style.m_iLineWidth);
    settings.setValue(QStringLiteral("point_size"), style.m_iPointSize);
    settings.setValue(QStringLiteral("color"), colorName(style.m_oColor));
    settings.setValue(QStringLiteral("point_color"), colorName(style.m_oPointColor));
    settings.setValue(QStringLiteral("automatic_limits"), style.m_bAutomaticLimits);
    settings.setValue(QStringLiteral("minimum"), style.m_dMinimum);
    settings.setValue(QStringLiteral("maximum"), style.m_dMaximum);
    settings.setValue(QStringLiteral("reversed"), style.m_bReversed);
}

} // namespace

DepthPlotSettings DepthPlotSettings::load(QSettings& settings, const QString& sGroup)
{
    DepthPlotSettings result;
    settings.beginGroup(trimmedGroup(sGroup));
    result.m_oDisplay.read(settings);
    result.m_oMarkers.m_bTops = flag(settings, "tops", true);
    result.m_oMarkers.m_bFaults = flag(settings, "faults", true);
    result.m_oMarkers.m_bScat = flag(settings, "scat", true);
    result.m_oMarkers.m_bDecimated = flag(settings, "decimated", true);
    result.m_bMarkerLabels = flag(settings, "marker_labels", result.m_bMarkerLabels);
    result.m_bBinAverage = flag(settings, "bin_average", result.m_bBinAverage);
    result.m_bReplace = flag(settings, "replace", result.m_bReplace);
    result.m_lTracks = settings.value(QStringLiteral("tracks")).toStringList();
    const int iStyles = settings.beginReadArray(QStringLiteral("styles"));
    for (int i = 0; i < iStyles; ++i) {
        settings.setArrayIndex(i);
        const QString sName = settings.value(QStringLiteral("attribute")).toString();
        if (!sName.isEmpty())
            result.m_styles[sName] = loadStyle(settings);
    }
    settings.endArray();
    settings.endGroup();
    return result;
}

void DepthPlotSettings::save(QSettings& settings, const QString& sGroup) const
{
    settings.beginGroup(trimmedGroup(sGroup));
    m_oDisplay.write(settings);
    settings.setValue(QStringLiteral("tops"), m_oMarkers.m_bTops);
    settings.setValue(QStringLiteral("faults"), m_oMarkers.m_bFaults);
    settings.setValue(QStringLiteral("scat"), m_oMarkers.m_bScat);
    settings.setValue(QStringLiteral("decimated"), m_oMarkers.m_bDecimated);
    settings.setValue(QStringLiteral("marker_labels"), m_bMarkerLabels);
    settings.setValue(QStringLiteral("bin_average"), m_bBinAverage);
    settings.setValue(QStringLiteral("replace"), m_bReplace);
    settings.setValue(QStringLiteral("tracks"), m_lTracks);
    settings.remove(QStringLiteral("styles"));
    settings.beginWriteArray(QStringLiteral("styles"), static_cast<int>(m_styles.size()));
    int i = 0;
    for (const auto& [sName, style] : m_styles) {
        settings.setArrayIndex(i++);
        settings.setValue(QStringLiteral("attribute"), sName);
        saveStyle(settings, style);
    }
    settings.endArray();
    settings.endGroup();
}

} // namespace gkBase
