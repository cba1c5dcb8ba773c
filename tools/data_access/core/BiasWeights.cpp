#include "BiasWeights.h"

#include "RecordWeight.h"
#include "VectorRegisters.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

double smallestCosine(double dLimitAngle)
{
    const double dLimit = isMissing(dLimitAngle) ? ScanLine().m_dLimitAngle : dLimitAngle;
    return std::cos(radians(std::clamp(dLimit, 0.0, ScanLine::s_dLargestLimitAngle)));
}

/// The formula with what it needs of the scan line.
struct Weigher
{
    explicit Weigher(const ScanLine& oScanLine)
    {
        if (!isMissing(oScanLine.m_dPlunge) && !isMissing(oScanLine.m_dAzimuth)) {
            m_oLine = lineVector(oScanLine.m_dPlunge, oScanLine.m_dAzimuth);
            m_dSmallest = smallestCosine(oScanLine.m_dLimitAngle);
        }
    }

    double weight(OrientationType eType, double dAngle, double dAzimuth) const
    {
        return 1.0 / std::max(std::abs(orientationVector(eType, dAngle, dAzimuth).dot(m_oLine)), m_dSmallest);
    }

    gdfVertex m_oLine;
    double m_dSmallest = 1.0;
};

} // namespace

double biasWeight(OrientationType eType, double dAngle, double dAzimuth, const ScanLine& oScanLine)
{
    return isMissing(dAngle) || isMissing(dAzimuth) ? g_dEmptyCell : Weigher(oScanLine).weight(eType, dAngle, dAzimuth);
}

std::vector<double> biasWeights(OrientationType eType, std::span<const double> vdAngles,
                                std::span<const double> vdAzimuths, const ScanLine& oScanLine,
                                std::span<const unsigned char> vbMask)
{
    const std::size_t iRecords = std::min(vdAngles.size(), vdAzimuths.size());
    std::vector<double> vdWeights(iRecords, g_dEmptyCell);
    const Weigher oWeigher(oScanLine);
    double dSum = 0.0;
    std::size_t iCount = 0;
    clearVectorRegisters();
    for (std::size_t i = 0; i < iRecords; ++i) {
        if (!isTaken(vbMask, i) || isMissing(vdAngles[i]) || isMissing(vdAzimuths[i])) {
            continue;
        }
        vdWeights[i] = oWeigher.weight(eType, vdAngles[i], vdAzimuths[i]);
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
