#include "PrincipalAxes.h"

#include "mgcEigenD.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

void setAxis(PrincipalAxes& oAxes, std::size_t iAxis, const gdfVertex& oVector)
{
    oAxes.m_aoVectors[iAxis] = lowerHemisphere(oVector);
    oAxes.m_aoLines[iAxis] = lineOf(oVector);
    oAxes.m_aoPlanes[iAxis] = planeOfPole(oVector);
}

} // namespace

PrincipalAxes principalAxes(const OrientationSums& oSums)
{
    PrincipalAxes oResult;
    if (oSums.m_iCount == 0) {
        return oResult;
    }
    double aadMatrix[3][3];
    double* apdRows[3];
    for (int iRow = 0; iRow < 3; ++iRow) {
        apdRows[iRow] = aadMatrix[iRow];
        for (int iColumn = 0; iColumn < 3; ++iColumn) {
            aadMatrix[iRow][iColumn] = oSums.matrix(iRow, iColumn);
        }
    }
    mgcEigenD oEigen(3);
    oEigen.Matrix(apdRows);
    oEigen.IncrSortEigenStuff3();
    if (!oEigen.isSolved()) {
        return oResult;
    }
    oResult.m_iCount = oSums.m_iCount;
    for (int i = 0; i < 3; ++i) {
        oResult.m_adValues[static_cast<std::size_t>(i)] = std::max(oEigen.value(i), 0.0);
        setAxis(oResult, static_cast<std::size_t>(i), {oEigen.vector(0, i), oEigen.vector(1, i), oEigen.vector(2, i)});
    }
    return oResult;
}

PrincipalAxes rotatedAxes(const PrincipalAxes& oAxes, const Rotation& oRotation)
{
    PrincipalAxes oResult = oAxes;
    if (oAxes.isDefined()) {
        for (std::size_t i = 0; i < oResult.m_aoVectors.size(); ++i) {
            setAxis(oResult, i, oRotation.apply(oAxes.m_aoVectors[i]));
        }
    }
    return oResult;
}

double eigenvalueShare(const PrincipalAxes& oAxes, int iAxis)
{
    if (!oAxes.isDefined() || iAxis < 0 || iAxis > 2) {
        return g_dMissingValue;
    }
    const auto& adValues = oAxes.m_adValues;
    return adValues[static_cast<std::size_t>(iAxis)] / (adValues[0] + adValues[1] + adValues[2]);
}

bool areEigenvaluesEqual(const PrincipalAxes& oAxes, int iFirst, int iSecond)
{
    constexpr double dEqualShares = 1e-9;
    const double dFirst = eigenvalueShare(oAxes, iFirst);
    const double dSecond = eigenvalueShare(oAxes, iSecond);
    return !isMissing(dFirst) && !isMissing(dSecond) && std::abs(dFirst - dSecond) <= dEqualShares;
}

bool isAxisSettled(const PrincipalAxes& oAxes, int iAxis)
{
    return !isMissing(eigenvalueShare(oAxes, iAxis)) && !areEigenvaluesEqual(oAxes, iAxis, (iAxis + 1) % 3) &&
           !areEigenvaluesEqual(oAxes, iAxis, (iAxis + 2) % 3);
}

bool doesVectorMeanMislead(const PrincipalAxes& oAxes, double dMeanResultantLength)
{
    constexpr double dTooLow = 0.8;
    return oAxes.isDefined() && !isMissing(dMeanResultantLength) &&
           dMeanResultantLength < dTooLow * std::sqrt(eigenvalueShare(oAxes, 2));
}

} // namespace gkBase
