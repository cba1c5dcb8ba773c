#include "RosePetals.h"

#include "Angles.h"
#include "SineCosine.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Appends an arc; dSize below 0 runs counter-clockwise.
void appendArc(std::vector<NetPoint>& vPoints, double dRadius, double dStart, double dSize, int iSteps)
{
    for (int i = 0; i <= iSteps; ++i) {
        const SineCosine oAzimuth = sineCosine(dStart + dSize * i / iSteps);
        vPoints.push_back({dRadius * oAzimuth.m_dSine, dRadius * oAzimuth.m_dCosine});
    }
}

/// Adds the bands of a sector from the centre outwards.
class BandStack
{
public:
    BandStack(std::vector<RosePetal>& vPetals, const RoseScale& oScale)
        : m_vPetals(vPetals)
        , m_oScale(oScale)
    {
    }

    void add(RosePetal oPetal)
    {
        const double dCount = m_dCount + oPetal.m_dCount;
        oPetal.m_dInner = m_dRadius;
        oPetal.m_dOuter = m_oScale.radius(dCount);
        if (oPetal.m_dOuter > oPetal.m_dInner) {
            m_vPetals.push_back(oPetal);
            m_dRadius = oPetal.m_dOuter;
        }
        m_dCount = dCount;
    }

private:
    std::vector<RosePetal>& m_vPetals;
    const RoseScale& m_oScale;
    double m_dCount = 0.0;
    double m_dRadius = 0.0;
};

} // namespace

std::vector<RosePetal> rosePetals(const RoseBins& oBins, const RoseScale& oScale)
{
    std::vector<RosePetal> vPetals;
    for (int iSector = 0; iSector < oBins.sectors(); ++iSector) {
        const double dTotal = oBins.m_vdCounts[static_cast<std::size_t>(iSector)];
        BandStack oBands(vPetals, oScale);
        const auto band = [&](int iClass, double dCount) {
            return RosePetal{iSector, iClass, dCount, oBins.sectorStart(iSector), oBins.m_dSectorSize, 0.0, 0.0};
        };
        double dUnclassed = dTotal;
        for (int iClass = 0; iClass < oBins.m_iClasses; ++iClass) {
            dUnclassed -= oBins.classCount(iSector, iClass);
        }
        // Sums of weights leave rounding behind, which is no band.
        if (dTotal == 0.0 || dUnclassed > 1e-12 * dTotal) {
            oBands.add(band(-1, std::max(0.0, dUnclassed)));
        }
        for (int iClass = 0; iClass < oBins.m_iClasses; ++iClass) {
            const double dCount = oBins.classCount(iSector, iClass);
            if (dCount > 0.0) {
                oBands.add(band(iClass, dCount));
            }
        }
    }
    return vPetals;
}

std::vector<NetPoint> petalOutline(const RosePetal& oPetal, double dStep)
{
    std::vector<NetPoint> vPoints;
    const double dUsable = std::isfinite(dStep) ? std::clamp(dStep, 0.05, 45.0) : 2.0;
    const int iSteps = std::max(1, static_cast<int>(std::ceil(oPetal.m_dSize / dUsable - 1e-9)));
    appendArc(vPoints, oPetal.m_dOuter, oPetal.m_dStart, oPetal.m_dSize, iSteps);
    if (oPetal.m_dInner > 0.0) {
        appendArc(vPoints, oPetal.m_dInner, oPetal.m_dStart + oPetal.m_dSize, -oPetal.m_dSize, iSteps);
    } else if (oPetal.m_dSize < 360.0) {
        vPoints.push_back({0.0, 0.0});
    } else {
        vPoints.pop_back();
    }
    return vPoints;
}

int petalAt(std::span<const RosePetal> vPetals, NetPoint oPoint)
{
    const double dRadius = std::hypot(oPoint.m_dX, oPoint.m_dY);
    const double dAzimuth = netAzimuth(oPoint);
    const auto it = std::find_if(vPetals.begin(), vPetals.end(), [&](const RosePetal& oPetal) {
        return dRadius >= oPetal.m_dInner && dRadius < oPetal.m_dOuter &&
               wrapAngle(dAzimuth - oPetal.m_dStart, 360.0) < oPetal.m_dSize;
    });
    return it == vPetals.end() ? -1 : static_cast<int>(it - vPetals.begin());
}

} // namespace gkBase
