#pragma once

#include "DirectionCosines.h"
#include "MissingValue.h"
#include "RecordMask.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

/// A borehole or traverse along which planes were counted.
struct ScanLine
{
    static constexpr double s_dLargestLimitAngle = 89.9; ///< degrees

    double m_dPlunge = g_dMissingValue;
    double m_dAzimuth = g_dMissingValue;
    /// Largest angle between pole and line, 0 … s_dLargestLimitAngle, that is corrected: it bounds the weights.
    double m_dLimitAngle = 80.0;

    bool operator==(const ScanLine&) const = default;
};

/// The weight, not scaled yet, that makes up for the planes a scan line misses because they run along it:
/// 1 / max(|cos δ|, cos δmax) with δ between pole and line (Terzaghi 1965). Lines are taken as poles. 1 for a missing
/// line; with a missing limit angle that of 80 degrees holds. NaN for a missing angle.
GKBASECORE_EXPORT double biasWeight(OrientationType eType, double dAngle, double dAzimuth, const ScanLine& oScanLine);

/// biasWeight() of every record, scaled to add up to the number of records weighted. NaN for records outside the mask
/// or with a missing angle.
GKBASECORE_EXPORT std::vector<double> biasWeights(OrientationType eType, std::span<const double> vdAngles,
                                                  std::span<const double> vdAzimuths, const ScanLine& oScanLine,
                                                  std::span<const unsigned char> vbMask = {});

/// The number of equally weighted records that are worth as much: (Σw)² / Σw² of the weights in the mask that are
/// neither missing nor negative (Kish 1965); 0 without any.
GKBASECORE_EXPORT double effectiveCount(std::span<const double> vdWeights, std::span<const unsigned char> vbMask = {});

} // namespace gkBase
