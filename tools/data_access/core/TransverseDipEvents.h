#pragma once

#include "MissingValue.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

/// Where the curve of transverse dips over depth shows crest and inflection planes.
struct TransverseDipEvents
{
    std::size_t m_iCount = 0;    ///< depths with a dip; dips at the same depth count once, by their mean
    double m_dNoise = 0.0;       ///< standard deviation of single dips about their neighbours, degrees; 0 if few
    std::size_t m_iWindow = 1;   ///< dips that each point of the smoothed curve comes from
    double m_dLeastChange = 0.0; ///< degrees by which the smoothed curve must fall off on both sides of an inflection
    std::vector<double> m_vdCrests;      ///< depths of crests and troughs, rising
    std::vector<double> m_vdInflections; ///< depths, rising
};

/// Finds crests and inflections in transverse dips (degrees) at depths of any unit, in any order; records without a
/// depth or dip are left out. In the manner of Bengtson (1981) a crest, or trough, is where the dip changes its sign,
/// and an inflection where it is extreme: its magnitude the largest of a limb, or the least of a terrace within one.
///
/// Smoothing: below 20 dips none. Otherwise a running median of 3, from 40 dips on of 5 (Tukey 1977), removes outliers;
/// then comes locally weighted linear regression on depth (Cleveland 1979) over as few neighbours as bring the noise of
/// the curve below its limit, at most 31 and a tenth of the dips. The noise of single dips is estimated from their
/// distances from the line through both neighbours (Gasser, Sroka and Jennen-Steinmetz 1986) by the median; curves
/// without noise are not smoothed by regression at all.
///
/// Plain is what exceeds H, the larger of 1.5 degrees and s (1 + √(2 ln n)) with the noise s of the smoothed curve,
/// which noise alone of n dips hardly ever does (Donoho and Johnstone 1994). A crest lies between dips beyond H on
/// both sides of 0, where the integral of the curve, which is the shape of the bed, has its extreme. An inflection
/// falls off by 2 H on both sides, so that none is an end of the well; it lies in the middle of the stretch that
/// differs from the extreme by noise only. n log n, linear when the depths rise.
GKBASECORE_EXPORT TransverseDipEvents transverseDipEvents(std::span<const double> vdDepths,
                                                          std::span<const double> vdTransverseDips);

} // namespace gkBase
