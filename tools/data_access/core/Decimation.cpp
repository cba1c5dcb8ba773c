#include "Decimation.h"

#include "Angles.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace gkBase {

namespace {

/// Below this share of their number unit vectors cancel out but for the rounding of their sines and cosines.
constexpr double g_dSmallestLength = 1e-13;

std::size_t sizeOf(int nBins)
{
    return nBins > 0 ? static_cast<std::size_t>(nBins) : 0;
}

/// Calls fn(bin, record) for the records of a bin.
template <typename Function>
void forEachBinned(std::span<const int> viBins, int nBins, std::size_t iRecords, Function&& fn)
{
    iRecords = std::min(iRecords, viBins.size());
    for (std::size_t i = 0; i < iRecords; ++i) {
        if (viBins[i] >= 0 && viBins[i] < nBins) {
            fn(static_cast<std::size_t>(viBins[i]), i);
        }
    }
}

struct PoleSum
{
    double m_dNorth = 0.0;
    double m_dEast = 0.0;
    double m_dDown = 0.0;
    std::size_t m_iCount = 0;

    /// The pole of a plane dips 90 − dip towards azimuth + 180.
    void add(double dDip, double dAzimuth)
    {
        const double dSineDip = std::sin(radians(dDip));
        const double dDown = std::cos(radians(dDip));
        const double dTowardsPole = dDown < 0.0 ? dSineDip : -dSineDip; // an overturned plane has its lower end here
        m_dNorth += dTowardsPole * std::cos(radians(dAzimuth));
        m_dEast += dTowardsPole * std::sin(radians(dAzimuth));
        m_dDown += std::abs(dDown);
        ++m_iCount;
    }

    BinOrientation orientation() const
    {
        BinOrientation oOrientation;
        oOrientation.m_iCount = m_iCount;
        const double dHorizontal = std::hypot(m_dNorth, m_dEast);
        const double dLength = std::hypot(dHorizontal, m_dDown);
        const auto dCount = static_cast<double>(m_iCount);
        if (m_iCount == 0 || dLength < g_dSmallestLength * dCount) {
            return oOrientation;
        }
        oOrientation.m_dResultantLength = std::min(dLength / dCount, 1.0);
        oOrientation.m_dDip = std::min(degrees(std::atan2(dHorizontal, m_dDown)), 90.0);
        const bool bHorizontal = dHorizontal < g_dSmallestLength * dCount;
        oOrientation.m_dAzimuth = bHorizontal ? 0.0 : wrapAngle(degrees(std::atan2(-m_dEast, -m_dNorth)), 360.0);
        return oOrientation;
    }
};

} // namespace

std::vector<int> binsOfRecords(std::span<const double> vdDepth, const IntervalBins& oBins,
                               std::span<const unsigned char> vbMask)
{
    std::vector<int> viBins(vdDepth.size(), -1);
    int iLast = -1;
    for (std::size_t i = 0; i < vdDepth.size(); ++i) {
        if (isTaken(vbMask, i)) {
            iLast = oBins.binOf(vdDepth[i], iLast);
            viBins[i] = iLast;
        }
    }
    return viBins;
}

std::vector<std::size_t> binCounts(std::span<const int> viBins, int nBins)
{
    std::vector<std::size_t> viCounts(sizeOf(nBins), 0);
    forEachBinned(viBins, nBins, viBins.size(), [&](std::size_t iBin, std::size_t) { ++viCounts[iBin]; });
    return viCounts;
}

std::vector<std::size_t> binCounts(std::span<const int> viBins, int nBins, std::span<const double> vdValues)
{
    std::vector<std::size_t> viCounts(sizeOf(nBins), 0);
    forEachBinned(viBins, nBins, vdValues.size(),
                  [&](std::size_t iBin, std::size_t i) { viCounts[iBin] += isMissing(vdValues[i]) ? 0 : 1; });
    return viCounts;
}

std::vector<double> binMeans(std::span<const int> viBins, int nBins, std::span<const double> vdValues)
{
    // Sums of differences from the first value: the mean of equal values is that value.
    struct Sum
    {
        double m_dFirst = g_dMissingValue;
        double m_dDifferences = 0.0;
        std::size_t m_iCount = 0;
    };
    std::vector<Sum> vSums(sizeOf(nBins));
    forEachBinned(viBins, nBins, vdValues.size(), [&](std::size_t iBin, std::size_t i) {
        if (!isMissing(vdValues[i])) {
            Sum& oSum = vSums[iBin];
            if (oSum.m_iCount++ == 0) {
                oSum.m_dFirst = vdValues[i];
            }
            oSum.m_dDifferences += vdValues[i] - oSum.m_dFirst;
        }
    });
    std::vector<double> vdMeans;
    vdMeans.reserve(vSums.size());
    for (const Sum& oSum : vSums) {
        const auto dCount = static_cast<double>(std::max<std::size_t>(oSum.m_iCount, 1));
        const double dMean = oSum.m_dFirst + oSum.m_dDifferences / dCount;
        vdMeans.push_back(std::isfinite(dMean) ? dMean : g_dMissingValue);
    }
    return vdMeans;
}

std::vector<BinOrientation> binMeanPlanes(std::span<const int> viBins, int nBins, std::span<const double> vdDip,
                                          std::span<const double> vdAzimuth)
{
    std::vector<PoleSum> vSums(sizeOf(nBins));
    forEachBinned(viBins, nBins, std::min(vdDip.size(), vdAzimuth.size()), [&](std::size_t iBin, std::size_t i) {
        if (!isMissing(vdDip[i]) && !isMissing(vdAzimuth[i])) {
            vSums[iBin].add(vdDip[i], vdAzimuth[i]);
        }
    });
    std::vector<BinOrientation> vOrientations;
    vOrientations.reserve(vSums.size());
    for (const PoleSum& oSum : vSums) {
        vOrientations.push_back(oSum.orientation());
    }
    return vOrientations;
}

std::vector<CircularMean> binMeanDirections(std::span<const int> viBins, int nBins, std::span<const double> vdAzimuth)
{
    // The records bin after bin: each bin's azimuths are one stretch of the list.
    std::vector<std::size_t> viEnds = binCounts(viBins, nBins, vdAzimuth);
    std::size_t iTotal = 0;
    for (std::size_t& iEnd : viEnds) {
        const std::size_t iCount = iEnd;
        iEnd = iTotal;
        iTotal += iCount;
    }
    std::vector<int> viRecords(iTotal);
    forEachBinned(viBins, nBins, vdAzimuth.size(), [&](std::size_t iBin, std::size_t i) {
        if (!isMissing(vdAzimuth[i])) {
            viRecords[viEnds[iBin]++] = static_cast<int>(i);
        }
    });
    std::vector<CircularMean> vMeans;
    vMeans.reserve(viEnds.size());
    std::size_t iBegin = 0;
    for (const std::size_t iEnd : viEnds) {
        const std::span<const int> viOfBin = std::span<const int>(viRecords).subspan(iBegin, iEnd - iBegin);
        // An empty list would stand for all records.
        vMeans.push_back(viOfBin.empty() ? CircularMean() : circularMean(RecordValues(vdAzimuth, viOfBin)));
        iBegin = iEnd;
    }
    return vMeans;
}

} // namespace gkBase
