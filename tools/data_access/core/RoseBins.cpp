#include "RoseBins.h"

#include "Angles.h"
#include "RecordMask.h"
#include "RecordWeight.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr int g_iMostSectors = 100000;

/// The sector of an azimuth counted from the start, the number of sectors or more for one in the uncovered rest.
std::size_t sectorOf(double dFromStart, const RoseBins& oBins)
{
    // The quotient may round to the next sector; the limits themselves decide.
    const double dSize = oBins.m_dSectorSize;
    auto iSector = static_cast<std::size_t>(std::min(dFromStart / dSize, static_cast<double>(oBins.m_vdCounts.size())));
    if (static_cast<double>(iSector) * dSize > dFromStart) {
        --iSector;
    } else if (static_cast<double>(iSector + 1) * dSize <= dFromStart) {
        ++iSector;
    }
    return iSector;
}

/// Brings an azimuth to [0, 360); the usual ones are there already.
double fromStart(double dAzimuth, double dStart)
{
    const double dDifference = dAzimuth - dStart;
    return dDifference >= 0.0 && dDifference < 360.0 ? dDifference : wrapAngle(dDifference, 360.0);
}

double opposite(double dFromStart)
{
    return dFromStart < 180.0 ? dFromStart + 180.0 : dFromStart - 180.0;
}

class RoseCounter
{
public:
    RoseCounter(RoseBins& oBins, std::span<const int> viClasses)
        : m_oBins(oBins)
        , m_viClasses(viClasses)
    {
    }

    void add(std::size_t iRecord, double dFromStart, double dWeight)
    {
        const std::size_t iSector = sectorOf(dFromStart, m_oBins);
        if (iSector >= m_oBins.m_vdCounts.size()) {
            ++m_oBins.m_iUncovered;
            m_oBins.m_dUncoveredWeight += dWeight;
            return;
        }
        m_oBins.m_vdCounts[iSector] += dWeight;
        const int iClass = iRecord < m_viClasses.size() ? m_viClasses[iRecord] : -1;
        if (iClass >= 0 && iClass < m_oBins.m_iClasses) {
            const std::size_t iFirst = iSector * static_cast<std::size_t>(m_oBins.m_iClasses);
            m_oBins.m_vdClassCount[iFirst + static_cast<std::size_t>(iClass)] += dWeight;
        }
    }

private:
    RoseBins& m_oBins;
    std::span<const int> m_viClasses;
};

int numberOfSectors(int iWanted, double dSize)
{
    if (iWanted > 0) {
        return std::min(iWanted, g_iMostSectors);
    }
    auto iSectors = static_cast<int>(std::min(360.0 / dSize, static_cast<double>(g_iMostSectors)));
    // As many as end within the circle, whatever the quotient was rounded to.
    if (iSectors < g_iMostSectors && (iSectors + 1) * dSize <= 360.0) {
        ++iSectors;
    }
    return iSectors;
}

RoseBins emptyBins(const RoseSettings& oSettings, int iClasses)
{
    RoseBins oBins;
    oBins.m_dSectorSize = oSettings.m_dSectorSize > 0.0 ? std::min(oSettings.m_dSectorSize, 360.0) : 1.0;
    oBins.m_bBidirectional = oSettings.m_bBidirectional;
    oBins.m_dStart = isMissing(oSettings.m_dStart) ? 0.0 : wrapAzimuth(oSettings.m_dStart);
    oBins.m_iClasses = std::max(0, iClasses);
    const auto iSectors = static_cast<std::size_t>(numberOfSectors(oSettings.m_iSectors, oBins.m_dSectorSize));
    oBins.m_vdCounts.assign(iSectors, 0.0);
    oBins.m_vdClassCount.assign(iSectors * static_cast<std::size_t>(oBins.m_iClasses), 0.0);
    return oBins;
}

} // namespace

int RoseBins::sectorAt(double dAzimuth) const
{
    if (isMissing(dAzimuth)) {
        return -1;
    }
    const std::size_t iSector = sectorOf(fromStart(dAzimuth, m_dStart), *this);
    return iSector < m_vdCounts.size() ? static_cast<int>(iSector) : -1;
}

double RoseBins::maximum() const
{
    return m_vdCounts.empty() ? 0.0 : *std::max_element(m_vdCounts.begin(), m_vdCounts.end());
}

RoseBins roseBins(std::span<const double> vdAzimuth, const RoseSettings& oSettings,
                  std::span<const unsigned char> vbMask, std::span<const double> vdWeights,
                  std::span<const int> viClasses, int iClasses)
{
    RoseBins oBins = emptyBins(oSettings, iClasses);
    RoseCounter oCounter(oBins, viClasses);
    for (std::size_t i = 0; i < vdAzimuth.size(); ++i) {
        if (!isTaken(vbMask, i)) {
            continue;
        }
        const double dWeight = recordWeight(vdWeights, i);
        if (isMissing(vdAzimuth[i]) || std::isnan(dWeight)) {
            ++oBins.m_iMissing;
            continue;
        }
        ++oBins.m_iRecords;
        oBins.m_dWeight += dWeight;
        const double dFromStart = fromStart(vdAzimuth[i], oBins.m_dStart);
        oCounter.add(i, dFromStart, dWeight);
        if (oSettings.m_bBidirectional) {
            oCounter.add(i, opposite(dFromStart), dWeight);
        }
    }
    return oBins;
}

std::vector<unsigned char> sectorRecords(std::span<const double> vdAzimuth, const RoseBins& oBins, int iSector,
                                         bool bBidirectional)
{
    std::vector<unsigned char> vbMask(vdAzimuth.size(), 0);
    if (iSector < 0 || iSector >= oBins.sectors()) {
        return vbMask;
    }
    const auto iWanted = static_cast<std::size_t>(iSector);
    for (std::size_t i = 0; i < vdAzimuth.size(); ++i) {
        if (!isMissing(vdAzimuth[i])) {
            const double dFromStart = fromStart(vdAzimuth[i], oBins.m_dStart);
            vbMask[i] = sectorOf(dFromStart, oBins) == iWanted ||
                        (bBidirectional && sectorOf(opposite(dFromStart), oBins) == iWanted);
        }
    }
    return vbMask;
}

CircularMeans roseMeans(std::span<const double> vdAzimuth, std::span<const unsigned char> vbMask)
{
    if (vbMask.empty()) {
        return circularMeans(vdAzimuth);
    }
    std::vector<double> vdTaken;
    vdTaken.reserve(vdAzimuth.size());
    for (std::size_t i = 0; i < vdAzimuth.size(); ++i) {
        if (isTaken(vbMask, i)) {
            vdTaken.push_back(vdAzimuth[i]);
        }
    }
    return circularMeans(vdTaken);
}

double RoseScale::radius(double dCount) const
{
    const double dZero = std::clamp(m_dZeroCircle / 100.0, 0.0, 1.0);
    return dZero + (1.0 - dZero) * vectorRadius(dCount);
}

double RoseScale::vectorRadius(double dCount) const
{
    if (!(m_dMaximum > 0.0)) {
        return 0.0;
    }
    const double dShare = std::clamp(dCount / m_dMaximum, 0.0, 1.0);
    return m_bEqualArea ? std::sqrt(dShare) : dShare;
}

std::vector<double> RoseScale::gridRadii(double dDistance) const
{
    std::vector<double> vdRadii;
    if (!(dDistance >= 1.0) || !(m_dMaximum > 0.0)) {
        return vdRadii;
    }
    // More circles than this are a filled disc on any screen.
    constexpr int iMostCircles = 10000;
    for (int k = 1; k <= iMostCircles && k * dDistance < m_dMaximum; ++k) {
        vdRadii.push_back(radius(k * dDistance));
    }
    return vdRadii;
}

} // namespace gkBase
