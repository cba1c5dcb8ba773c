#include "Regression.h"

#include "MissingValue.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr std::size_t g_iFewestPoints = 4;
constexpr double g_dEqualX = 5e-7;
/// Spreads, slopes and intercepts below this count as 0.
constexpr double g_dNegligible = 5e-6;

struct PointSums
{
    std::size_t m_iPoints = 0;
    double m_dX = 0.0;
    double m_dY = 0.0;
};

struct ProductSums
{
    double m_dXX = 0.0;
    double m_dXY = 0.0;
    double m_dYY = 0.0;
};

template <typename Function>
void forEachPoint(std::span<const double> vdX, std::span<const double> vdY, std::span<const unsigned char> vbMask,
                  Function&& fn)
{
    const std::size_t iRecords = std::min(vdX.size(), vdY.size());
    for (std::size_t i = 0; i < iRecords; ++i) {
        if (isTaken(vbMask, i) && !isMissing(vdX[i]) && !isMissing(vdY[i])) {
            fn(vdX[i], vdY[i]);
        }
    }
}

double finiteOr0(double dValue)
{
    return std::isfinite(dValue) ? dValue : 0.0;
}

/// Correlations that rounding pushed out of their range, and those of a constant (0 / 0).
double correlationOf(double dXY, double dSpreadX, double dSpreadY)
{
    return std::clamp(finiteOr0(dXY / (dSpreadX * dSpreadY)), -1.0, 1.0);
}

double withoutNegligible(double dValue)
{
    return std::abs(dValue) < g_dNegligible ? 0.0 : finiteOr0(dValue);
}

} // namespace

RegressionLine chartRegression(std::span<const double> vdX, std::span<const double> vdY,
                               std::span<const unsigned char> vbMask)
{
    PointSums oSums;
    double dFirstX = 0.0;
    bool bEqualX = true;
    bool bEqualY = true;
    double dFirstY = 0.0;
    forEachPoint(vdX, vdY, vbMask, [&](double dX, double dY) {
        if (oSums.m_iPoints++ == 0) {
            dFirstX = dX;
            dFirstY = dY;
        }
        bEqualX = bEqualX && std::abs(dX - dFirstX) <= g_dEqualX;
        bEqualY = bEqualY && dY == dFirstY;
        oSums.m_dX += dX;
        oSums.m_dY += dY;
    });
    RegressionLine oLine;
    oLine.m_iPoints = oSums.m_iPoints;
    if (oSums.m_iPoints < g_iFewestPoints) {
        return oLine;
    }
    if (bEqualX) {
        oLine.m_dSlope = g_dMissingValue;
        oLine.m_bIsFunction = false;
        return oLine;
    }
    const auto dPoints = static_cast<double>(oSums.m_iPoints);
    // The point too many in the means is deliberate: the line of the charts has always been this one.
    const double dMeanX = oSums.m_dX / (dPoints + 1.0);
    const double dMeanY = oSums.m_dY / (dPoints + 1.0);
    ProductSums oProducts;
    forEachPoint(vdX, vdY, vbMask, [&](double dX, double dY) {
        oProducts.m_dXX += (dX - dMeanX) * (dX - dMeanX);
        oProducts.m_dXY += (dX - dMeanX) * (dY - dMeanY);
        oProducts.m_dYY += (dY - dMeanY) * (dY - dMeanY);
    });
    const double dSpreadX = std::sqrt(oProducts.m_dXX / dPoints);
    const double dSpreadY = std::sqrt(oProducts.m_dYY / dPoints);
    if (dSpreadX >= g_dNegligible) {
        oLine.m_dSlope = finiteOr0(oProducts.m_dXY / dPoints / (dSpreadX * dSpreadX));
        oLine.m_dCorrelation = bEqualY ? 0.0 : correlationOf(oProducts.m_dXY / dPoints, dSpreadX, dSpreadY);
    }
    oLine.m_dIntercept = withoutNegligible(dMeanY - oLine.m_dSlope * dMeanX);
    oLine.m_dSlope = withoutNegligible(oLine.m_dSlope);
    return oLine;
}

RegressionLine leastSquares(std::span<const double> vdX, std::span<const double> vdY,
                            std::span<const unsigned char> vbMask)
{
    // Differences from the first point are exact zeros for equal numbers, and small beside large offsets.
    PointSums oSums;
    double dFirstX = 0.0;
    double dFirstY = 0.0;
    forEachPoint(vdX, vdY, vbMask, [&](double dX, double dY) {
        if (oSums.m_iPoints++ == 0) {
            dFirstX = dX;
            dFirstY = dY;
        }
        oSums.m_dX += dX - dFirstX;
        oSums.m_dY += dY - dFirstY;
    });
    RegressionLine oLine;
    oLine.m_iPoints = oSums.m_iPoints;
    if (oSums.m_iPoints == 0) {
        return oLine;
    }
    const double dMeanX = oSums.m_dX / static_cast<double>(oSums.m_iPoints);
    const double dMeanY = oSums.m_dY / static_cast<double>(oSums.m_iPoints);
    ProductSums oProducts;
    forEachPoint(vdX, vdY, vbMask, [&](double dX, double dY) {
        const double dStepX = dX - dFirstX - dMeanX;
        const double dStepY = dY - dFirstY - dMeanY;
        oProducts.m_dXX += dStepX * dStepX;
        oProducts.m_dXY += dStepX * dStepY;
        oProducts.m_dYY += dStepY * dStepY;
    });
    oLine.m_bIsFunction = oProducts.m_dXX > 0.0;
    if (oLine.m_bIsFunction) {
        oLine.m_dSlope = finiteOr0(oProducts.m_dXY / oProducts.m_dXX);
        oLine.m_dCorrelation = correlationOf(oProducts.m_dXY, std::sqrt(oProducts.m_dXX), std::sqrt(oProducts.m_dYY));
        oLine.m_dIntercept = finiteOr0(dFirstY + dMeanY - oLine.m_dSlope * (dFirstX + dMeanX));
    }
    return oLine;
}

} // namespace gkBase
