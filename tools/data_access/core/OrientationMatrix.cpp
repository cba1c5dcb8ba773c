#include "OrientationMatrix.h"

#include "RecordWeight.h"
#include "SineCosine.h"
#include "VectorRegisters.h"

#include <algorithm>
#include <utility>

namespace gkBase {

namespace {

/// Records per block: the rounding of sums grows with the length of a block, not with the number of records.
constexpr std::size_t g_iBlock = 512;
/// Dip or plunge of what is vertical, degrees.
constexpr double g_dSteepest = 90.0;

enum Sum
{
    SumX,
    SumY,
    SumZ,
    SumXX,
    SumXY,
    SumXZ,
    SumYY,
    SumYZ,
    SumZZ,
    SumWeight,
    SumWeightSquare,
    SumCount
};

using Sums = std::array<double, SumCount>;

/// Adds a unit vector given by its downward component and its horizontal length along the azimuth.
inline void addVector(Sums& adSums, double dHorizontal, double dDown, double dAzimuth, double dWeight)
{
    if (dDown < -g_dNoiseOfCosines) {
        dHorizontal = -dHorizontal;
        dDown = -dDown;
    }
    const SineCosine oAzimuth = sineCosine(dAzimuth);
    const double dNorth = dHorizontal * oAzimuth.m_dCosine;
    const double dEast = dHorizontal * oAzimuth.m_dSine;
    const double dWeightedNorth = dWeight * dNorth;
    const double dWeightedEast = dWeight * dEast;
    const double dWeightedDown = dWeight * dDown;
    adSums[SumX] += dWeightedNorth;
    adSums[SumY] += dWeightedEast;
    adSums[SumZ] += dWeightedDown;
    adSums[SumXX] += dWeightedNorth * dNorth;
    adSums[SumXY] += dWeightedNorth * dEast;
    adSums[SumXZ] += dWeightedNorth * dDown;
    adSums[SumYY] += dWeightedEast * dEast;
    adSums[SumYZ] += dWeightedEast * dDown;
    adSums[SumZZ] += dWeightedDown * dDown;
}

/// Adds a block to the totals and keeps what their rounding loses (Kahan 1965).
void addCompensated(Sums& adTotal, Sums& adLost, const Sums& adBlock)
{
    for (std::size_t i = 0; i < adTotal.size(); ++i) {
        const double dTerm = adBlock[i] - adLost[i];
        const double dSum = adTotal[i] + dTerm;
        adLost[i] = (dSum - adTotal[i]) - dTerm;
        adTotal[i] = dSum;
    }
}

struct Columns
{
    std::span<const double> m_vdAngles;
    std::span<const double> m_vdAzimuths;
    std::span<const unsigned char> m_vbMask;
    std::span<const double> m_vdWeights;

    std::size_t size() const { return std::min(m_vdAngles.size(), m_vdAzimuths.size()); }
};

/// Adds the records iFirst … iEnd − 1 to adSums and counts them.
template <bool bPlanes>
void addBlock(const Columns& oColumns, std::size_t iFirst, std::size_t iEnd, Sums& adSums, OrientationSums& oResult)
{
    constexpr double dFlattest = bPlanes ? 0.0 : -g_dSteepest;
    for (std::size_t i = iFirst; i < iEnd; ++i) {
        if (!isTaken(oColumns.m_vbMask, i)) {
            continue;
        }
        const double dWeight = recordWeight(oColumns.m_vdWeights, i);
        if (isMissing(oColumns.m_vdAngles[i]) || isMissing(oColumns.m_vdAzimuths[i]) || isMissing(dWeight)) {
            ++oResult.m_iMissing;
            continue;
        }
        const double dAngle = oColumns.m_vdAngles[i];
        const auto [dSine, dCosine] = sineCosine(dAngle);
        addVector(adSums, bPlanes ? -dSine : dCosine, bPlanes ? dCosine : dSine, oColumns.m_vdAzimuths[i], dWeight);
        adSums[SumWeight] += dWeight;
        adSums[SumWeightSquare] += dWeight * dWeight;
        ++oResult.m_iCount;
        oResult.m_iOutOfRange += static_cast<std::size_t>(dAngle < dFlattest) | (dAngle > g_dSteepest);
    }
}

} // namespace

OrientationSums orientationSums(OrientationType eType, std::span<const double> vdAngles,
                                std::span<const double> vdAzimuths, std::span<const unsigned char> vbMask,
                                std::span<const double> vdWeights)
{
    const Columns oColumns{vdAngles, vdAzimuths, vbMask, vdWeights};
    OrientationSums oResult;
    Sums adTotal{};
    Sums adLost{};
    clearVectorRegisters();
    for (std::size_t iFirst = 0; iFirst < oColumns.size(); iFirst += g_iBlock) {
        const std::size_t iEnd = std::min(iFirst + g_iBlock, oColumns.size());
        Sums adBlock{};
        if (eType == OrientationType::Planes) {
            addBlock<true>(oColumns, iFirst, iEnd, adBlock, oResult);
        } else {
            addBlock<false>(oColumns, iFirst, iEnd, adBlock, oResult);
        }
        addCompensated(adTotal, adLost, adBlock);
    }
    if (!(adTotal[SumWeight] > 0.0)) {
        oResult.m_iMissing += std::exchange(oResult.m_iCount, 0);
        oResult.m_iOutOfRange = 0;
        return oResult;
    }
    const double dScale = static_cast<double>(oResult.m_iCount) / adTotal[SumWeight];
    oResult.m_oResultant.set(dScale * adTotal[SumX], dScale * adTotal[SumY], dScale * adTotal[SumZ]);
    for (std::size_t i = 0; i < oResult.m_adProducts.size(); ++i) {
        oResult.m_adProducts[i] = dScale * adTotal[SumXX + i];
    }
    oResult.m_dEffectiveCount = adTotal[SumWeight] * adTotal[SumWeight] / adTotal[SumWeightSquare];
    return oResult;
}

} // namespace gkBase
