#include "WoodcockParameters.h"

#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dZero = 5e-17;
/// A mean resultant length from which a distribution has one mode.
constexpr double g_dUnimodal = 0.9;
/// Shares that differ by less are equal.
constexpr double g_dEqualShares = 0.005;

double logRatio(double dNumerator, double dDenominator)
{
    return std::abs(dDenominator) > g_dZero ? std::log(dNumerator / dDenominator) : 0.0;
}

bool areDefined(double dE1, double dE2, double dE3)
{
    return !isMissing(dE1) && !isMissing(dE2) && !isMissing(dE3) && dE1 + dE2 + dE3 > 0.0;
}

bool isUniform(double dE1, double dE2, double dE3)
{
    constexpr double dSmallest = 0.005;
    constexpr double dTolerance = 0.05;
    return dE1 > dSmallest && dE2 > dSmallest && std::abs(1.0 - dE2 / dE1) < dTolerance &&
           std::abs(1.0 - dE3 / dE2) < dTolerance;
}

ShapeClassification clusterClassification(double dShare1, double dShare2, double dMeanResultantLength)
{
    if (dMeanResultantLength >= g_dUnimodal) {
        return {"1. clustered unimodal\n", true};
    }
    const bool bBipolar = std::abs(dShare1 - dShare2) < g_dEqualShares;
    return {bBipolar ? "1. clustered bipolar\n" : "1. clustered bimodal\n", false};
}

ShapeClassification girdleClassification(double dShare2, double dShare3, double dMeanResultantLength)
{
    const bool bUnimodal = dMeanResultantLength >= g_dUnimodal;
    // The line about clusters is dropped here, and the last letter is missing: readers of the report know this text.
    if (std::abs(dShare2 - dShare3) < g_dEqualShares) {
        return {"2. symmetrical girdle patter", bUnimodal};
    }
    return {std::string(bUnimodal ? "1. clustered unimodal\n" : "1. clustered multi modal\n") + "2. girdle pattern",
            bUnimodal};
}

} // namespace

WoodcockParameters woodcockParameters(double dE1, double dE2, double dE3)
{
    WoodcockParameters oResult;
    if (!areDefined(dE1, dE2, dE3)) {
        return oResult;
    }
    oResult.m_dLnS1S2 = logRatio(dE3, dE2);
    oResult.m_dLnS2S3 = logRatio(dE2, dE1);
    oResult.m_dK = std::abs(oResult.m_dLnS2S3) > g_dZero ? oResult.m_dLnS1S2 / oResult.m_dLnS2S3 : 0.0;
    oResult.m_dC = logRatio(dE3, dE1);
    return oResult;
}

WoodcockParameters woodcockParameters(const PrincipalAxes& oAxes)
{
    return oAxes.isDefined() ? woodcockParameters(oAxes.m_adValues[0], oAxes.m_adValues[1], oAxes.m_adValues[2])
                             : WoodcockParameters();
}

ShapeClassification mardiaClassification(double dE1, double dE2, double dE3, double dMeanResultantLength)
{
    if (!areDefined(dE1, dE2, dE3)) {
        return {};
    }
    if (isUniform(dE1, dE2, dE3)) {
        return {"is uniform distributed", false};
    }
    const double dSum = dE1 + dE2 + dE3;
    const double dShare1 = dE1 / dSum;
    const double dShare2 = dE2 / dSum;
    const double dShare3 = dE3 / dSum;
    if (dShare1 < 0.2 && dShare2 < 0.2 && dShare3 > 0.6) {
        return clusterClassification(dShare1, dShare2, dMeanResultantLength);
    }
    if (dShare1 < 0.1 && dShare2 > 0.3 && dShare3 > 0.3) {
        return girdleClassification(dShare2, dShare3, dMeanResultantLength);
    }
    return {"Orientation classification indeterminate", false};
}

ShapeClassification mardiaClassification(const PrincipalAxes& oAxes, double dMeanResultantLength)
{
    return oAxes.isDefined() ? mardiaClassification(oAxes.m_adValues[0], oAxes.m_adValues[1], oAxes.m_adValues[2],
                                                    dMeanResultantLength)
                             : ShapeClassification();
}

} // namespace gkBase
