#pragma once

#include "ChartDisplaySettings.h"
#include "OrientationText.h"
#include "PointStyle.h"
#include "StereoNetSettings.h"
#include "gkBaseToolsExport.h"

class QSettings;

namespace gkBase {

/// What the user chose in the stereonet panel apart from the attributes.
struct GKBASETOOLS_EXPORT StereoChartSettings
{
    static constexpr int s_iLargestPointSize = 20; ///< pixels, half the symbol's width
    static constexpr int s_iWidestResult = 10;     ///< pixels, of great circles
    static constexpr int s_iMostClusters = 20;

    /// What the records of the first data set are.
    enum class Records
    {
        Automatic, ///< lines when the angle is named a plunge or the azimuth a trend, else planes
        Planes,
        Lines
    };

    ChartDisplaySettings m_oDisplay;
    StereoNetSettings m_oNet;
    Records m_eRecords = Records::Automatic;
    OrientationConvention m_eConvention = OrientationConvention::DipAzimuth;
    bool m_bSelectedOnly = true; ///< statistics and contours of the selected records only
    bool m_bPickMode = false;    ///< the mouse shows the plane under the cursor instead of selecting

    PointStyle m_ePointStyle = PointStyle::Circle;
    int m_iPointSize = 3;
    bool m_bHollow = false;
    bool m_bClassesRedToBlue = false;
    bool m_bColorLegend = true;
    bool m_bSymbolLegend = true;
    bool m_bContourLegend = true;

    bool m_bPrincipalToCenter = false; ///< the principal mean is turned to the centre, else the resultant
    double m_dAxisPlunge = 0.0;        ///< of rotations, degrees as all angles here
    double m_dAxisAzimuth = 0.0;
    double m_dRotationAngle = 0.0;

    int m_iClusters = 3;

    bool m_bWeights = false;     ///< statistics and contours are weighed against the sampling bias
    double m_dScanPlunge = 90.0; ///< a vertical well at first
    double m_dScanAzimuth = 0.0;
    double m_dLimitAngle = 80.0;

    bool operator==(const StereoChartSettings&) const = default;

    /// From the settings' present group; what is not there, or makes no sense, stays as it is.
    void read(const QSettings& settings);
    void write(QSettings& settings) const;
};

} // namespace gkBase
