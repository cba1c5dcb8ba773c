#pragma once

#include "MatrixDataPointer.h"
#include "MissingValue.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QString>

namespace gkBase {

class MatrixData;

/// How a track of a depth plot is drawn. Limits are in model units.
struct DepthTrackStyle
{
    bool m_bLine = true;
    bool m_bPoints = false;
    int m_iLineWidth = 1;           ///< pixels
    int m_iPointSize = 2;           ///< half the symbol's width in pixels
    QColor m_oColor;                ///< invalid: the attribute's own
    QColor m_oPointColor;           ///< invalid: that of the line
    bool m_bAutomaticLimits = true; ///< "nice" limits around all values
    double m_dMinimum = 0.0;        ///< used unless automatic
    double m_dMaximum = 1.0;
    bool m_bReversed = false; ///< the larger limit stands at the left

    bool operator==(const DepthTrackStyle&) const = default;
};

/// The values at the left and right edge of a track, in model units; never equal.
struct DepthTrackLimits
{
    double m_dLeft = 0.0;
    double m_dRight = 1.0;

    bool operator==(const DepthTrackLimits&) const = default;
};

/// One track: a curve of an attribute over depth, or tadpoles. The nodes are not owned; a track whose node was
/// destroyed is empty.
struct GKBASETOOLS_EXPORT DepthTrack
{
    enum Kind
    {
        Curve,
        Tadpoles
    };

    Kind m_eKind = Curve;
    MatrixDataPointer m_poValues;  ///< the curve, or the dip of the tadpoles
    MatrixDataPointer m_poAzimuth; ///< dip azimuth of the tadpoles
    MatrixDataPointer m_poQuality; ///< tadpoles below the minimum have open heads; null: all are filled
    double m_dMinimumQuality = 0.0;
    bool m_bDirections = false; ///< the values are azimuths, although the data set has another one
    DepthTrackStyle m_oStyle;
    /// Stands in the header in place of the attributes' names; the track is then read without its azimuth.
    QString m_sTitle;
    QString m_sNote; ///< stands beside the unit in the header

    static DepthTrack curve(MatrixData* poValues);
    static DepthTrack tadpoles(MatrixData* poDip, MatrixData* poAzimuth);

    /// True when one of the track's nodes lies in a branch that is about to be removed.
    bool uses(const MatrixData* poBranch) const;
    /// As headers show it: the title, the attribute's name, or dip and azimuth; empty without an attribute.
    QString name() const;
    QString unitTag() const;
    /// The style's colour or, when that is invalid, the attribute's.
    QColor color() const;
    QColor pointColor() const;
    /// A whole turn in the attribute's unit when the values are azimuths, of which the greatest is next to the least;
    /// otherwise 99999.0.
    double fullTurn() const;
    /// A value in the attribute's display unit without the tag; empty when missing.
    QString displayText(double dValue) const;
    /// Automatic limits: 0 … 90 for tadpoles, 0 … 360 for the azimuth of a data set, otherwise the attribute's range
    /// widened to round numbers in display units.
    DepthTrackLimits limits() const;
};

} // namespace gkBase
