#pragma once

#include "RelationshipClasses.h"
#include "gkBaseToolsExport.h"

#include <QByteArray>
#include <QString>

class QSettings;

namespace gkBase {

/// What the user chose in the rose panel.
struct GKBASETOOLS_EXPORT RoseChartSettings
{
    static constexpr int s_iLargestSector = 360; ///< degrees

    /// The labels at the rim.
    enum class Annotation
    {
        Angles,
        Directions,
        Off
    };

    QByteArray m_oSidePanelSplitter; ///< states; empty for none
    QByteArray m_oLegendSplitter;

    int m_iSelectedDataSet = -1; ///< entry of the chooser of directions
    int m_iSectorSize = 20;      ///< degrees
    bool m_bRosePlot = true;     ///< else unit vectors
    bool m_bAreaScaling = true;  ///< else linear
    bool m_bUnidirectional = true;
    QString m_sClassifiedBy; ///< name of the colour attribute; empty for none, stored as "None"

    RelationshipClasses::ColorMap m_oColorMap; ///< in model units of the attribute; stored as "---" where not set

    bool m_bBlackBackground = false;
    Annotation m_eAnnotation = Annotation::Angles;
    int m_iGridCircleDistance = 5; ///< counts
    bool m_bCircles = true;
    bool m_bTickMarks = false;
    bool m_bScalingOff = false; ///< neither circles nor tick marks
    bool m_bCircleFrame = true;
    int m_iZeroCircleSize = 0; ///< per cent of the radius
    double m_dFontSize = 0.0;  ///< points; 0 is that of the panel

    bool m_bMeanDirection = true;
    bool m_bMeanLength = false;

    bool operator==(const RoseChartSettings&) const = default;

    /// From the settings' present group; what is not there, or makes no sense, stays as it is.
    void read(const QSettings& settings);
    void write(QSettings& settings) const;
};

} // namespace gkBase
