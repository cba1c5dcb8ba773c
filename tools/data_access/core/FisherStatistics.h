#pragma once

#include "MissingValue.h"
#include "OrientationMatrix.h"
#include "gkBaseCoreExport.h"

#include <cstddef>

namespace gkBase {

/// Statistics of the mean direction of unit vectors (Fisher 1953; Fisher, Lewis and Embleton 1987). 99999.0 marks what
/// is undefined.
struct FisherStatistics
{
    std::size_t m_iCount = 0;
    double m_dResultantLength = g_dMissingValue;     ///< R; undefined without records
    double m_dMeanResultantLength = g_dMissingValue; ///< R̄ = R / N, 0 … 1; undefined without records
    double m_dSphericalVariance = g_dMissingValue;   ///< 1 − R̄; undefined without records
    /// κ = (N − 1) / (N − R). 99999.0 without records, and as "unbounded" where the records coincide.
    double m_dKappa = g_dMissingValue;
    bool m_bKappaUnbounded = false; ///< N − R is below 0.0005: tells an unbounded κ from an undefined one
    /// Half the opening angle in degrees of the cone that holds the mean with a confidence of 95 %, 0 … 180. Undefined
    /// below two records and where the records scatter too much for a cone.
    double m_dAlpha95 = g_dMissingValue;
    /// The direction of the resultant, of planes that of their poles. Undefined without records, or when they cancel.
    LineOrientation m_oMeanLine = g_oMissingLine;
    /// The plane with this pole: the mean plane of planes.
    PlaneOrientation m_oMeanPlane = g_oMissingPlane;
};

/// cos α95 = 1 − (20^(1/(N − 1)) − 1) · (N − R) / R, with 20 = 1 / 0.05 (Fisher 1953), evaluated so that small cones
/// keep their digits.
GKBASECORE_EXPORT FisherStatistics fisherStatistics(const OrientationSums& oSums);

} // namespace gkBase
