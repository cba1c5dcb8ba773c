#pragma once

#include "ImportReport.h"
#include "ImportTable.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace gkHost {

/// How the columns of a table write an orientation. Angles in degrees.
enum class OrientationConvention
{
    DipAndAzimuth,     ///< two numbers: dip, dip azimuth
    StrikeAndDip,      ///< two numbers: strike by the right-hand rule, dip
    PlungeAndTrend,    ///< two numbers: plunge, trend
    AzimuthOnly,       ///< one number: a direction
    QuadrantPlane,     ///< text: strike, dip and the quadrant it dips to, "N30E/45NW"
    QuadrantDirection, ///< text: a direction, "S45W", perhaps with a plunge, "30 S45W"
    StrikeDipText,     ///< text "045/30": strike by the right-hand rule / dip
    AzimuthDipText,    ///< text "045/30": dip azimuth / dip
    DipAzimuthText,    ///< text "30/045": dip / dip azimuth
    PlungeTrendText    ///< text "30/045": plunge / trend
};

/// One orientation that a table seems to hold, for the user to confirm, change or drop.
struct OrientationProposal
{
    OrientationConvention m_eConvention = OrientationConvention::DipAndAzimuth;
    int m_iAngleColumn = -1;     ///< dip or plunge; −1 for text and for AzimuthOnly
    int m_iDirectionColumn = -1; ///< azimuth, strike or trend, or the text column
    QString m_sReason;           ///< why it was proposed, for people
    /// The conventions that the same columns may follow as well, the proposed one first.
    std::vector<OrientationConvention> m_vAlternatives;
};

/// Finds orientations among the columns of a table and turns them into attributes that the charts know.
class OrientationRecognizer
{
public:
    /// By the names and the contents of the columns; an empty list when nothing looks like an orientation.
    static std::vector<OrientationProposal> propose(const ImportTable& table);

    /// Applies proposals in the order given. The columns get the category "orientation" and the unit degree. An
    /// azimuth of 360 becomes 0. Values out of range (dip below 0 or above 90, azimuth below 0 or above 360) are
    /// reported and stay. A strike is linked to a new column "azimuth" = strike + 90, or to the dip azimuth that stands
    /// beside it when both agree. Text keeps its column and adds
    /// "Dip" and "Dip Azimuth" ("Plunge" and "Trend"); text that cannot be read leaves the cell empty and is
    /// reported. A proposal whose columns do not exist or have the wrong type changes nothing and is reported.
    static void applyOrientation(ImportTable& table, const std::vector<OrientationProposal>& vProposals,
                                 ImportReport& report);

    /// Name of a convention for the confirmation dialog.
    static QString conventionName(OrientationConvention eConvention);
    /// The name says that the column holds angles (dip, strike, azimuth, trend, …).
    static bool isAngleName(const QString& sName);
};

} // namespace gkHost
