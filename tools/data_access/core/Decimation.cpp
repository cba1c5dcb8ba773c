#include "Decimation.h"

#include "Angles.h"
#include "VectorRegisters.h"

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

/// Sum of unit vectors, each turned to the lower hemisphere.
struct VectorSum
{
    double m_dNorth = 0.0;
    double m_dEast = 0.0;
    double m_dDown = 0.0;
    std::size_t m_iCount = 0;

    /// The vector (dHorizontal towards dAzimuth, dDown).
    void add(double dHorizontal, double dDown, double dAzimuth)
    {
        const double dLower = dDown < 0.0 ? -dHorizontal : dHorizontal;
        m_dNorth += dLower * std::cos(radians(dAzimuth));
        m_dEast += dLower * std::sin(radians(dAzimuth));
        m_dDown += std::abs(dDown);
        ++m_iCount;
    }
};

/// The line along the resultant, or the plane whose pole it is.
BinOrientation orientationOf(const VectorSum& oSum, bool bLine)
{
    BinOrientation oMean;
    oMean.m_iCount = oSum.m_iCount;
    const double dHorizontal = std::hypot(oSum.m_dNorth, oSum.m_dEast);
    const double dLength = std::hypot(dHorizontal, oSum.m_dDown);
    const double dNothing = g_dSmallestLength * static_cast<double>(oSum.m_iCount);
    if (oSum.m_iCount == 0 || dLength < dNothing) {
        return oMean;
    }
    oMean.m_dResultantLength = std::min(dLength / static_cast<double>(oSum.m_iCount), 1.0);
    oMean.m_dDip = degrees(bLine ? std::atan2(oSum.m_dDown, dHorizontal) : std::atan2(dHorizontal, oSum.m_dDown));
    // A plane dips away from the trend of its pole.
    const double dAzimuth = std::atan2(oSum.m_dEast, oSum.m_dNorth) + (bLine ? 0.0 : g_dPi);
    oMean.m_dAzimuth = dHorizontal < dNothing ? 0.0 : wrapAngle(degrees(dAzimuth), 360.0);
    return oMean;
}

/// Means of the records with both angles; addTo(sum, first angle, azimuth) adds one.
template <typename Function>
std::vector<BinOrientation> binMeanOrientations(std::span<const int> viBins, int nBins, std::span<const double> vdAngle,
                                                std::span<const double> vdAzimuth, bool bLines, Function&& addTo)
{
    std::vector<VectorSum> vSums(sizeOf(nBins));
    clearVectorRegisters();
    forEachBinned(viBins, nBins, std::min(vdAngle.size(), vdAzimuth.size()), [&](std::size_t iBin, std::size_t i) {
        if (!isMissing(vdAngle[i]) && !isMissing(vdAzimuth[i])) {
            addTo(vSums[iBin], radians(vdAngle[i]), vdAzimuth[i]);
        }
    });
    std::vector<BinOrientation> vMeans;
    vMeans.reserve(vSums.size());
    for (const VectorSum& oSum : vSums) {
        vMeans.push_back(orientationOf(oSum, bLines));
    }
    return vMeans;
}

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
    // The pole plunges 90 − dip away from the dip azimuth.
    return binMeanOrientations(
        viBins, nBins, vdDip, vdAzimuth, false,
        [](VectorSum& oSum, double dDip, double dAzimuth) { oSum.add(-std::sin(dDip), std::cos(dDip), dAzimuth); });
}

std::vector<BinOrientation> binMeanLines(std::span<const int> viBins, int nBins, std::span<const double> vdPlunge,
                                         std::span<const double> vdAzimuth)
{
    return binMeanOrientations(viBins, nBins, vdPlunge, vdAzimuth, true,
                               [](VectorSum& oSum, double dPlunge, double dAzimuth) {
                                   oSum.add(std::cos(dPlunge), std::sin(dPlunge), dAzimuth);
                               });
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
