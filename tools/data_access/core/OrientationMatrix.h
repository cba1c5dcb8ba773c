#pragma once

#include "DirectionCosines.h"
#include "RecordMask.h"
#include "gdfVertex.h"
#include "gkBaseCoreExport.h"

#include <array>
#include <cstddef>
#include <span>

namespace gkBase {

/// Sums over the unit vectors of orientation records (x north, y east, z down) that all statistics start from.
struct OrientationSums
{
    std::size_t m_iCount = 0;             ///< records taken
    std::size_t m_iMissing = 0;           ///< records of the mask that an empty angle, or a weight, leaves out
    std::size_t m_iOutOfRange = 0;        ///< of the records taken: dips not from 0 to 90, plunges not from −90 to 90
    gdfVertex m_oResultant;               ///< sum of the unit vectors
    std::array<double, 6> m_adProducts{}; ///< sums of the products xx, xy, xz, yy, yz, zz; the trace is m_iCount
    double m_dEffectiveCount = 0.0;       ///< (Σw)² / Σw² of the weights; m_iCount without weights

    /// Element of the symmetric orientation matrix, rows and columns 0 … 2.
    double matrix(int iRow, int iColumn) const
    {
        constexpr std::size_t aaiPlaces[3][3] = {{0, 1, 2}, {1, 3, 4}, {2, 4, 5}};
        return m_adProducts[aaiPlaces[iRow][iColumn]];
    }
};

/// Sums of the records vdAngles, vdAzimuths in degrees: (dip, dip azimuth) of planes, of which the poles are taken, or
/// (plunge, azimuth) of lines. Every record is an axis and enters with its lower end, so that overturned planes (dips
/// above 90) and upward lines (negative plunges) count as the same plane or line.
///
/// Weights count in proportion only: the sums are scaled so that the weights of the records taken add up to their
/// number, and equal weights change nothing. An empty span weighs all alike; a weight that is missing or negative
/// leaves its record out, as does the lack of one. Where all weights are 0 no record is taken. Records lie where both
/// columns have values (NaN and 99999.0 are none). Added up in blocks, so that millions of coplanar records still have
/// an eigenvalue of 0 but for the rounding of their own components. Linear in the number of records, nothing is
/// allocated.
GKBASECORE_EXPORT OrientationSums orientationSums(OrientationType eType, std::span<const double> vdAngles,
                                                  std::span<const double> vdAzimuths,
                                                  std::span<const unsigned char> vbMask = {},
                                                  std::span<const double> vdWeights = {});

} // namespace gkBase
