#pragma once

#include "gkBaseToolsExport.h"

#include <QString>

class QSettings;

namespace gkBase {

/// What the user chose about the looks of a chart, whatever it shows.
struct GKBASETOOLS_EXPORT ChartDisplaySettings
{
    bool m_bGrid = true;
    bool m_bBlackBackground = false;
    double m_dFontSize = 0.0; ///< points; 0 is that of the panel

    bool operator==(const ChartDisplaySettings&) const = default;

    /// From the settings' present group; what is not there, or makes no sense, stays as it is.
    void read(const QSettings& settings);
    void write(QSettings& settings) const;
};

} // namespace gkBase
