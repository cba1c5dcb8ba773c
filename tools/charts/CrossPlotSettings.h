#pragma once

#include "ChartDisplaySettings.h"
#include "PointStyle.h"
#include "gkBaseToolsExport.h"

#include <QString>

class QSettings;

namespace gkBase {

/// What the user chose in the cross plot panel apart from the attributes and what depends on them.
struct GKBASETOOLS_EXPORT CrossPlotSettings
{
    static constexpr int s_iLargestPointSize = 20; ///< pixels, half the symbol's width
    static constexpr int s_iMostClusters = 100;

    ChartDisplaySettings m_oDisplay;
    PointStyle m_ePointStyle = PointStyle::Circle;
    int m_iPointSize = 3;
    bool m_bHollow = false;
    bool m_bColorLegend = true;
    bool m_bSymbolLegend = true;
    bool m_bRedToBlue = false;
    bool m_bRegressionLine = false;
    bool m_bRegressionOfSelection = false;
    bool m_b90PercentRange = false;
    int m_iClusters = 3;
    bool m_bClustersOfSelection = false;
    bool m_bCentroids = true;

    bool operator==(const CrossPlotSettings&) const = default;

    /// From the settings' present group; what is not there, or makes no sense, stays as it is.
    void read(const QSettings& settings);
    void write(QSettings& settings) const;
};

} // namespace gkBase
