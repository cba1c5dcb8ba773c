#pragma once

#include "ChartDisplaySettings.h"
#include "DepthTrack.h"
#include "gkBaseToolsExport.h"

#include <QString>
#include <QStringList>

#include <map>

class QSettings;

namespace gkBase {

/// Which kinds of markers a depth plot shows.
struct DepthMarkerSwitches
{
    bool m_bTops = true; ///< tops and horizons
    bool m_bFaults = true;
    bool m_bScat = true;      ///< structural planes of the dipmeter window
    bool m_bDecimated = true; ///< tadpoles of decimated dips

    bool operator==(const DepthMarkerSwitches&) const = default;
};

/// What the user chose in the depth plot and the next program start shows again. Looks of tracks are kept under the
/// names of their attributes.
struct GKBASETOOLS_EXPORT DepthPlotSettings
{
    ChartDisplaySettings m_oDisplay;
    DepthMarkerSwitches m_oMarkers;
    bool m_bMarkerLabels = true;
    bool m_bBinAverage = true;
    bool m_bReplace = true;
    QStringList m_lTracks; ///< of the data set that was shown last
    std::map<QString, DepthTrackStyle> m_styles;

    bool operator==(const DepthPlotSettings&) const = default;

    /// sGroup ends in "/" or not. What is absent or senseless keeps its default.
    static DepthPlotSettings load(QSettings& settings, const QString& sGroup);
    void save(QSettings& settings, const QString& sGroup) const;
};

} // namespace gkBase
