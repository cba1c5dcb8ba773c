#include "BiasWeights.h"

#include "RecordWeight.h"
#include "VectorRegisters.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dLargestLimit = 89.9;

double smallestCosine(double dLimitAngle)
{
    const double dLimit = isMissing(dLimitAngle) ? ScanLine().m_dLimitAngle : dLimitAngle;
    return std::cos(radians(std::clamp(dLimit, 0.0, g_dLargestLimit)));
}

} // namespace

std::vector<double> biasWeights(OrientationType eType, std::span<const double> vdAngles,
                                std::span<const double> vdAzimuths, const ScanLine& oScanLine,
                                std::span<const unsigned char> vbMask)
{
    const std::size_t iRecords = std::min(vdAngles.size(), vdAzimuths.size());
    std::vector<double> vdWeights(iRecords, g_dEmptyCell);
    const bool bKnownLine = !isMissing(oScanLine.m_dPlunge) && !isMissing(oScanLine.m_dAzimuth);
    const gdfVertex oLine = bKnownLine ? lineVector(oScanLine.m_dPlunge, oScanLine.m_dAzimuth) : gdfVertex();
    const double dSmallest = bKnownLine ? smallestCosine(oScanLine.m_dLimitAngle) : 1.0;
    double dSum = 0.0;
    std::size_t iCount = 0;
    clearVectorRegisters();
    for (std::size_t i = 0; i < iRecords; ++i) {
        if (!isTaken(vbMask, i) || isMissing(vdAngles[i]) || isMissing(vdAzimuths[i])) {
            continue;
        }
        const double dCosine = std::abs(orientationVector(eType, vdAngles[i], vdAzimuths[i]).dot(oLine));
        vdWeights[i] = 1.0 / std::max(dCosine, dSmallest);
        dSum += vdWeights[i];
        ++iCount;
    }
    if (iCount > 0) {
        const double dScale = static_cast<double>(iCount) / dSum;
        for (double& dWeight : vdWeights) {
            dWeight *= dScale;
        }
    }
    return vdWeights;
}

double effectiveCount(std::span<const double> vdWeights, std::span<const unsigned char> vbMask)
{
    double dSum = 0.0;
    double dSumOfSquares = 0.0;
    for (std::size_t i = 0; i < vdWeights.size(); ++i) {
        const double dWeight = recordWeight(vdWeights, i);
        if (isTaken(vbMask, i) && !isMissing(dWeight)) {
            dSum += dWeight;
            dSumOfSquares += dWeight * dWeight;
        }
    }
    return dSumOfSquares > 0.0 ? dSum * dSum / dSumOfSquares : 0.0;
}

} // namespace gkBase
