#pragma once

#include <gkBase/OrientationStatistics.h>

#include <QJsonObject>
#include <QString>

namespace gkHost {

struct OrientationInput;

/// What the stats command prints about planes or lines. Angles in degrees.
struct OrientationReport
{
    QString m_sAngle;   ///< name of the dip or plunge
    QString m_sAzimuth; ///< name of the azimuth
    gkBase::OrientationStatistics m_oStatistics;

    /// Undefined values are null, so are axes of equal eigenvalues; the kappa of records that coincide is the word
    /// "unbounded".
    QJsonObject toJson() const;
    /// The statistics as the panel lists them.
    QString toText() const;
};

OrientationReport orientationReport(const OrientationInput& orientations);

} // namespace gkHost
