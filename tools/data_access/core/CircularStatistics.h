#pragma once

#include "MissingValue.h"
#include "RecordValues.h"
#include "gkBaseCoreExport.h"

#include <cstddef>

namespace gkBase {

/// Mean direction of angles in degrees.
struct CircularMean
{
    std::size_t m_iCount = 0;
    double m_dDirection = g_dMissingValue; ///< [0, 360), axial [0, 180); 99999.0 without values or a direction
    double m_dResultantLength = 0.0;       ///< mean resultant length, 0 … 1
};

/// Mean direction and mean resultant length from the sum of the unit vectors (Mardia and Jupp 2000, section 2.2).
/// Directions that cancel out to within rounding have length 0 and no mean direction.
GKBASECORE_EXPORT CircularMean circularMean(const RecordValues& oDegrees);

/// The same for axes, whose directions d and d + 180 are equal, by doubling the angles (Mardia and Jupp 2000,
/// section 1.1); the length is that of the doubled angles.
GKBASECORE_EXPORT CircularMean axialMean(const RecordValues& oDegrees);

/// Both means of the same angles.
struct CircularMeans
{
    CircularMean m_oDirection; ///< as circularMean()
    CircularMean m_oAxis;      ///< as axialMean()
};

/// circularMean() and axialMean() in one pass.
GKBASECORE_EXPORT CircularMeans circularMeans(const RecordValues& oDegrees);

} // namespace gkBase
