#pragma once

#include "RelationshipClasses.h"
#include "gkBaseToolsExport.h"

#include <QString>

class QSettings;

namespace gkBase {

/// What a stereonet panel shows, by name: data sets and attributes outlive a session by their names only. Empty for
/// none.
struct GKBASETOOLS_EXPORT StereoChartChoice
{
    QString m_sDataSet; ///< that of the angle
    QString m_sAngle;
    QString m_sAzimuth;
    QString m_sSecondDataSet;
    QString m_sLineations; ///< a data set
    QString m_sColorAttribute;
    QString m_sSymbolAttribute;
    /// Range and interval in model units of the colour attribute; stored as "---" where not set.
    RelationshipClasses::ColorMap m_oColorMap;

    /// Nothing is wanted of the first data set any more.
    void forgetOrientations();

    /// From the settings' present group; what is not there is none.
    static StereoChartChoice read(const QSettings& settings);
    void write(QSettings& settings) const;
};

} // namespace gkBase
