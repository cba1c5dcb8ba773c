#pragma once

#include <gkBase/RoseBins.h>

#include <QJsonObject>
#include <QString>

#include <vector>

namespace gkHost {

/// What the stats command prints about one attribute of directions: their mean, and their counts in equal sectors from
/// north on. Angles in degrees.
struct DirectionReport
{
    QString m_sDirection;
    bool m_bAxial = false; ///< axes: each record counts at its azimuth and at the opposite one
    gkBase::CircularMean m_oMean;
    gkBase::RoseBins m_oBins;

    /// Undefined values are null.
    QJsonObject toJson() const;
    /// Undefined values are "---".
    QString toText() const;
};

/// The azimuths in degrees; a sector size from 1 to 360.
DirectionReport directionReport(const QString& sName, const std::vector<double>& vdAzimuths, int iSectorSize,
                                bool bAxial);

} // namespace gkHost
