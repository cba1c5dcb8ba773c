#include "ScatTrackLimits.h"

#include "MissingValue.h"

#include <algorithm>
#include <array>

namespace gkBase {

namespace {

constexpr std::array<double, 6> g_adRound = {10.0, 20.0, 30.0, 40.0, 60.0, g_dSteepestApparentDip};
constexpr double g_dMargin = 1.03; ///< so that no frame cuts the symbol of the steepest dip

} // namespace

ScatTrackLimits apparentDipLimits(double dSteepest)
{
    const auto limit = std::lower_bound(g_adRound.begin(), g_adRound.end(), g_dMargin * dSteepest);
    const double dEnd = limit == g_adRound.end() ? g_adRound.back() : *limit;
    return {-dEnd, dEnd};
}

ScatTrackLimits chosenTrackLimits(const ScatTrackLimits& suitable, double dMinimum, double dMaximum, bool bApparentDips)
{
    ScatTrackLimits chosen = suitable;
    if (!isMissing(dMinimum))
        chosen.m_dMinimum = dMinimum;
    if (!isMissing(dMaximum))
        chosen.m_dMaximum = dMaximum;
    if (bApparentDips) {
        chosen.m_dMinimum = std::max(chosen.m_dMinimum, -g_dSteepestApparentDip);
        chosen.m_dMaximum = std::min(chosen.m_dMaximum, g_dSteepestApparentDip);
    }
    return chosen.m_dMinimum < chosen.m_dMaximum ? chosen : suitable;
}

} // namespace gkBase
