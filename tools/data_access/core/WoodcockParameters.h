#pragma once

#include "MissingValue.h"
#include "PrincipalAxes.h"
#include "gkBaseCoreExport.h"

#include <string>

namespace gkBase {

/// Shape of a distribution of axes by the ratios of its eigenvalues S1 ≥ S2 ≥ S3 (Woodcock 1977). All are 99999.0
/// without records.
struct WoodcockParameters
{
    double m_dLnS1S2 = g_dMissingValue; ///< ln(S1/S2); 0 when S2 is 0
    double m_dLnS2S3 = g_dMissingValue; ///< ln(S2/S3); 0 when S3 is 0
    double m_dK = g_dMissingValue; ///< ln(S1/S2) / ln(S2/S3): above 1 a cluster, below 1 a girdle; 0 without a divisor
    double m_dC = g_dMissingValue; ///< ln(S1/S3), the strength; 0 when S3 is 0
};

/// Ratios of e1 ≤ e2 ≤ e3. Eigenvalues and logarithms up to 5e-17 count as 0, so that coplanar records have
/// ln(S2/S3), C and K of 0 instead of unbounded ones.
GKBASECORE_EXPORT WoodcockParameters woodcockParameters(double dE1, double dE2, double dE3);
GKBASECORE_EXPORT WoodcockParameters woodcockParameters(const PrincipalAxes& oAxes);

/// A distribution of axes in words.
struct ShapeClassification
{
    std::string m_sText; ///< one or two lines; empty without records
    bool m_bUnimodal = false;
};

/// Classification after Mardia (1972) by e1 ≤ e2 ≤ e3, their shares and the mean resultant length. The texts are those
/// of the report and go to files: they are not translated.
GKBASECORE_EXPORT ShapeClassification mardiaClassification(double dE1, double dE2, double dE3,
                                                           double dMeanResultantLength);
GKBASECORE_EXPORT ShapeClassification mardiaClassification(const PrincipalAxes& oAxes, double dMeanResultantLength);

} // namespace gkBase
