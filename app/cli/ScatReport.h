#pragma once

#include <gkBase/SummaryStatistics.h>
#include <gkBase/TransverseDipEvents.h>

#include <QString>

#include <vector>

namespace gkHost {

struct ScatInput;

/// What the apparent dips in the directions T and L tell about a fold.
struct ScatReport
{
    const ScatInput& m_scat;              ///< not owned
    std::vector<double> m_vdTransverse;   ///< apparent dips, one per record; all missing without T
    std::vector<double> m_vdLongitudinal; ///< the same towards L
    gkBase::SummaryStatistics m_oTransverse;
    gkBase::SummaryStatistics m_oLongitudinal;
    gkBase::TransverseDipEvents m_oEvents;

    /// One line: the number of planes, T and L, what T is by both rules, null what is undefined, and the depths of
    /// crests and inflections in the unit of the depths, empty arrays without any.
    QString toJson() const;
    QString toText() const;
};

/// The planes must outlive the report.
ScatReport scatReport(const ScatInput& scat);

} // namespace gkHost
