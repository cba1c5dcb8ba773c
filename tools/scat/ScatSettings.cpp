#include "ScatSettings.h"

#include "StoredNumber.h"

#include <QSettings>

#include <algorithm>

namespace gkBase {

namespace {

constexpr std::array<const char*, 4> g_apTrackGroups = {
    "scat_window/well_log_plots/dip_plot", "scat_window/well_log_plots/azimuth_plot",
    "scat_window/well_log_plots/transverse_dip_plot", "scat_window/well_log_plots/longitudinal_dip_plot"};
constexpr char g_directoryKey[] = "scat_window/last_trn_data_file_path/path";
constexpr int g_iMostPerCent = 100;

struct Flag
{
    const char* m_pKey;
    bool ScatTrackSettings::*m_pbFlag;
};

constexpr Flag g_aFlags[] = {
    {"tadpoles", &ScatTrackSettings::m_bTadpoles},
    {"structural_planes", &ScatTrackSettings::m_bStructuralPlanes},
    {"structural_plane_labels", &ScatTrackSettings::m_bStructuralPlaneLabels},
    {"horizons", &ScatTrackSettings::m_bHorizons},
    {"horizon_labels", &ScatTrackSettings::m_bHorizonLabels},
    {"faults", &ScatTrackSettings::m_bFaults},
    {"fault_labels", &ScatTrackSettings::m_bFaultLabels},
    {"average_orientations", &ScatTrackSettings::m_bAverageOrientations},
    {"average_orientation_labels", &ScatTrackSettings::m_bAverageOrientationLabels},
};

struct Color
{
    const char* m_pKey;
    QColor ScatTrackSettings::*m_poColor;
};

constexpr Color g_aColors[] = {{"line_color", &ScatTrackSettings::m_oLineColor},
                               {"point_color", &ScatTrackSettings::m_oPointColor}};

struct Number
{
    const char* m_pKey;
    double ScatTrackSettings::*m_pdNumber;
};

constexpr Number g_aNumbers[] = {{"horizontal_min", &ScatTrackSettings::m_dMinimum},
                                 {"horizontal_max", &ScatTrackSettings::m_dMaximum}};

/// A whole number from iLeast to iMost; anything else leaves iValue as it is.
void readNumber(const QSettings& settings, const char* pKey, int iLeast, int iMost, int& iValue)
{
    bool bOk = false;
    const int iRead = settings.value(QLatin1String(pKey)).toInt(&bOk);
    if (bOk && iRead >= iLeast && iRead <= iMost)
        iValue = iRead;
}

} // namespace

void ScatTrackSettings::setTadpoles(bool bOn)
{
    m_bTadpoles = bOn;
    if (bOn)
        m_eData = Points;
}

void ScatTrackSettings::setData(Data eData)
{
    m_eData = eData;
    m_bTadpoles = m_bTadpoles && eData == Points;
}

void ScatTrackSettings::applyTo(DepthLineField& oField) const
{
    oField.setShowStructuralPlanes(m_bStructuralPlanes);
    oField.setShowStructuralPlaneLabels(m_bStructuralPlaneLabels);
    oField.setShowHorizons(m_bHorizons);
    oField.setShowHorizonLables(m_bHorizonLabels);
    oField.setShowFaults(m_bFaults);
    oField.setShowFaultLabels(m_bFaultLabels);
    oField.setShowAverageOrientations(m_bAverageOrientations);
    oField.setShowAverageOrientationLabels(m_bAverageOrientationLabels);
    oField.setDomainType(m_eDomains);
    oField.setDomainTransparency(m_iTransparency);
}

void ScatTrackSettings::read(const QSettings& settings)
{
    m_oDisplay.read(settings);
    for (const Flag& flag : g_aFlags)
        this->*flag.m_pbFlag = settings.value(QLatin1String(flag.m_pKey), this->*flag.m_pbFlag).toBool();
    for (const Color& color : g_aColors) {
        if (settings.contains(QLatin1String(color.m_pKey)))
            this->*color.m_poColor = QColor(settings.value(QLatin1String(color.m_pKey)).toString());
    }
    for (const Number& number : g_aNumbers) {
        const QString sText = settings.value(QLatin1String(number.m_pKey)).toString();
        this->*number.m_pdNumber = numberFromSettings(sText, this->*number.m_pdNumber);
    }
    readNumber(settings, "vertex_sampling", 1, s_iMostSampling, m_iVertexSampling);
    readNumber(settings, "transparency", 0, g_iMostPerCent, m_iTransparency);
    int iData = m_eData;
    readNumber(settings, "data", Points, PointsAndLine, iData);
    setData(static_cast<Data>(iData));
    int iDomains = m_eDomains;
    readNumber(settings, "domains", DepthLineField::NoDomains, DepthLineField::AllLineDomains, iDomains);
    m_eDomains = static_cast<DepthLineField::DomainType>(iDomains);
}

void ScatTrackSettings::write(QSettings& settings) const
{
    m_oDisplay.write(settings);
    for (const Flag& flag : g_aFlags)
        settings.setValue(QLatin1String(flag.m_pKey), this->*flag.m_pbFlag);
    for (const Color& color : g_aColors) {
        const QColor& oColor = this->*color.m_poColor;
        settings.setValue(QLatin1String(color.m_pKey), oColor.isValid() ? oColor.name() : QString());
    }
    for (const Number& number : g_aNumbers)
        settings.setValue(QLatin1String(number.m_pKey), storedNumber(this->*number.m_pdNumber));
    settings.setValue(QStringLiteral("vertex_sampling"), m_iVertexSampling);
    settings.setValue(QStringLiteral("transparency"), m_iTransparency);
    settings.setValue(QStringLiteral("data"), static_cast<int>(m_eData));
    settings.setValue(QStringLiteral("domains"), static_cast<int>(m_eDomains));
}

ScatSettings::ScatSettings()
{
    m_aTracks.front().m_bTadpoles = true;
}

ScatSettings ScatSettings::load(QSettings& settings)
{
    ScatSettings result;
    result.m_sDirectory = settings.value(QLatin1String(g_directoryKey)).toString();
    for (std::size_t i = 0; i < result.m_aTracks.size(); ++i) {
        settings.beginGroup(QLatin1String(g_apTrackGroups[i]));
        result.m_aTracks[i].read(settings);
        settings.endGroup();
    }
    return result;
}

void ScatSettings::save(QSettings& settings) const
{
    settings.setValue(QLatin1String(g_directoryKey), m_sDirectory);
    for (std::size_t i = 0; i < m_aTracks.size(); ++i) {
        settings.beginGroup(QLatin1String(g_apTrackGroups[i]));
        m_aTracks[i].write(settings);
        settings.endGroup();
    }
}

} // namespace gkBase
