#pragma once

#include "gkBaseToolsExport.h"

#include <QColor>
#include <QString>

#include <array>
#include <cstddef>

namespace gkBase {

/// The results that a stereonet can show, in the order in which they are listed: points, planes, then the cone.
enum class StereoResult
{
    MeanResultantPole,
    MeanPrincipalPole,
    TPole,
    LPole,
    MeanResultantAzimuth,
    MeanPrincipalAzimuth,
    TAzimuth,
    LAzimuth,
    MeanPrincipalPlane,
    MeanResultantPlane,
    SuggestedSectionPlane,
    BestFitGirdle,
    ConfidenceCone ///< α95 about the mean resultant
};
inline constexpr std::size_t g_iStereoResults = 13;

/// The label of a result, in English and UTF-8; shown through tr() in the context "StereoResult".
GKBASETOOLS_EXPORT const char* stereoResultName(StereoResult eResult);
/// True for results that are drawn as great or small circles.
inline constexpr bool isStereoCircle(StereoResult eResult)
{
    return eResult >= StereoResult::MeanPrincipalPlane;
}

/// Whether and how a result is shown.
struct StereoResultStyle
{
    bool m_bShow = false;
    QColor m_oColor;  ///< invalid: the label colour of the chart
    int m_iWidth = 2; ///< of circles, pixels

    bool operator==(const StereoResultStyle&) const = default;
};

/// What the user chose about a stereonet.
struct GKBASETOOLS_EXPORT StereoNetSettings
{
    static constexpr int s_iFewestNodes = 5;
    static constexpr int s_iMostNodes = 500;
    /// The four cells about a node cover about 1 % of the net, the counting area that most published contour diagrams
    /// have.
    static constexpr int s_iDefaultNodes = 25;

    bool m_bEqualArea = true;      ///< else equal-angle
    int m_iProjectionTarget = 0;   ///< 0: poles of planes, 1: lines (of planes: dip lines)
    double m_dMaximumAngle = 60.0; ///< of tangent diagrams: the angle on the rim, degrees

    bool m_bCoarseNet = false;
    bool m_bFineNet = false;
    QColor m_oFineNetColor{170, 170, 170};

    bool m_bGreatCircles = false;
    bool m_bPoints = true;
    bool m_bSecondPoints = true;
    bool m_bLineationPoints = true;
    QColor m_oPointColor{Qt::red};
    QColor m_oSecondPointColor{Qt::blue};
    QColor m_oLineationColor{Qt::darkMagenta};

    bool m_bContourLines = false;
    bool m_bContourFill = false;      ///< bands are filled
    bool m_bContourColorFill = false; ///< with the colours of the map, else in grays
    /// The band from the smallest density up, which is most of a net, has its colour too; else that of the background.
    bool m_bFillLowestBand = false;
    bool m_bContourLabels = false;
    bool m_bRedToBlue = false;      ///< the colour map begins with red
    int m_iNodes = s_iDefaultNodes; ///< of the grid, each way
    double m_dInterval = 99999.0;   ///< per cent; 99999.0: automatic

    bool m_bResultLabels = true;
    std::array<StereoResultStyle, g_iStereoResults> m_aResults{};
    bool m_bPoleCentroids = true;
    bool m_bAzimuthCentroids = false;

    bool m_bAnglesAtRim = true;      ///< degrees every 10°
    bool m_bDirectionsAtRim = false; ///< compass words
    bool m_bCircleFrame = true;
    bool m_bHemisphereLabel = true; ///< projection and hemisphere in a corner

    StereoResultStyle& result(StereoResult eResult) { return m_aResults[static_cast<std::size_t>(eResult)]; }
    const StereoResultStyle& result(StereoResult eResult) const
    {
        return m_aResults[static_cast<std::size_t>(eResult)];
    }

    bool operator==(const StereoNetSettings&) const = default;
};

} // namespace gkBase
