#pragma once

#include "ChartDisplaySettings.h"
#include "DepthLineField.h"
#include "MissingValue.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QString>

#include <array>

class QSettings;

namespace gkBase {

/// How one track of the dipmeter window shows records and lines.
struct GKBASETOOLS_EXPORT ScatTrackSettings
{
    enum Data
    {
        Points = 0,
        Line = 1,
        PointsAndLine = 2
    };

    static constexpr int s_iMostSampling = 100;

    ChartDisplaySettings m_oDisplay; ///< background and font are the same in all tracks
    bool m_bTadpoles = false;
    Data m_eData = Points;
    QColor m_oLineColor; ///< invalid: the attribute's
    QColor m_oPointColor;
    double m_dMinimum = g_dMissingValue; ///< limits in degrees; 99999.0: those that suit the track
    double m_dMaximum = g_dMissingValue;
    int m_iVertexSampling = 1; ///< every n-th record takes part, in all tracks

    bool m_bStructuralPlanes = true;
    bool m_bStructuralPlaneLabels = true;
    bool m_bHorizons = true;
    bool m_bHorizonLabels = true;
    bool m_bFaults = true;
    bool m_bFaultLabels = true;
    bool m_bAverageOrientations = true;
    bool m_bAverageOrientationLabels = true;
    DepthLineField::DomainType m_eDomains = DepthLineField::NoDomains;
    int m_iTransparency = 70; ///< of domains, per cent

    bool operator==(const ScatTrackSettings&) const = default;

    /// A tail on a point leaves no room for a line: whoever asks for one of them gets it, and the other one goes.
    void setTadpoles(bool bOn);
    void setData(Data eData);
    /// Sets how the lines of a scenario are shown in this track.
    void applyTo(DepthLineField& oField) const;

    /// From the settings' present group; what is not there, or makes no sense, stays as it is.
    void read(const QSettings& settings);
    void write(QSettings& settings) const;
};

/// What the user chose in the dipmeter window and the next program start shows again.
struct GKBASETOOLS_EXPORT ScatSettings
{
    /// Dip, azimuth, transverse dip, longitudinal dip.
    std::array<ScatTrackSettings, 4> m_aTracks;
    QString m_sDirectory; ///< of the scenario file that was read or written last

    ScatSettings();
    bool operator==(const ScatSettings&) const = default;

    static ScatSettings load(QSettings& settings);
    void save(QSettings& settings) const;
};

} // namespace gkBase
