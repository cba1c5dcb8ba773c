#pragma once

#include "gkBaseToolsExport.h"

namespace gkBase {

/// The ends of a track's axis in degrees.
struct ScatTrackLimits
{
    double m_dMinimum = 0.0;
    double m_dMaximum = 90.0;

    bool operator==(const ScatTrackLimits&) const = default;
};

/// Apparent dips steeper than this, in degrees, stand as open marks at the frames of their tracks; the axes end here.
constexpr double g_dSteepestApparentDip = 80.0;

/// Round limits, the same to both sides of 0, for apparent dips up to this magnitude, in degrees, with room for the
/// symbol of the steepest; never beyond g_dSteepestApparentDip.
GKBASETOOLS_EXPORT ScatTrackLimits apparentDipLimits(double dSteepest);

/// The limits that suit the track with the ends that the user chose; a missing one (99999.0) leaves the suitable end.
/// Ends that make no axis, because they were chosen for several tracks, leave both. With bApparentDips the axis ends at
/// g_dSteepestApparentDip.
GKBASETOOLS_EXPORT ScatTrackLimits chosenTrackLimits(const ScatTrackLimits& suitable, double dMinimum, double dMaximum,
                                                     bool bApparentDips);

} // namespace gkBase
