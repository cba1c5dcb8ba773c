#include "TransverseDirection.h"

#include "Angles.h"
#include "ApparentDip.h"
#include "SineCosine.h"
#include "VectorRegisters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace gkBase {

namespace {

constexpr double g_dFlat = 1e-9; ///< degrees: apparent dips up to this are 0

/// A plane, or planes that are nearly alike, by the tangents of their apparent dips towards north and east.
struct TangentPoint
{
    double m_dNorth;
    double m_dEast;
    double m_dWeight;
};

TangentPoint tangentPoint(double dDip, double dDipAzimuth, double dWeight)
{
    const SineCosine oAzimuth = sineCosine(dDipAzimuth);
    const double dTangent = std::tan(radians(dDip));
    return {dTangent * oAzimuth.m_dCosine, dTangent * oAzimuth.m_dSine, dWeight};
}

/// Planes gathered by dip and strike, so that a scan of all directions costs the same for any number of them. A plane
/// and the one that dips as steeply to the other side have the same squares of apparent dips and share a cell.
class PlaneCells
{
public:
    void add(double dDip, double dDipAzimuth)
    {
        const double dPositive = wrapAngle(dDip, 180.0);
        const double dInclination = std::min(dPositive, 180.0 - dPositive);
        const double dAxis = wrapAngle(dDipAzimuth, 180.0);
        const auto iRow = std::min(static_cast<std::size_t>(dInclination / s_dSize), s_iRows - 1);
        const auto iColumn = std::min(static_cast<std::size_t>(dAxis / s_dSize), s_iColumns - 1);
        Cell& cell = m_vCells[iRow * s_iColumns + iColumn];
        cell.m_dCount += 1.0;
        cell.m_dInclinations += dInclination;
        cell.m_dAxes += dAxis;
    }

    /// The means of the cells that hold planes.
    std::vector<TangentPoint> points() const
    {
        std::vector<TangentPoint> vPoints;
        for (const Cell& cell : m_vCells) {
            if (cell.m_dCount > 0.0) {
                vPoints.push_back(
                    tangentPoint(cell.m_dInclinations / cell.m_dCount, cell.m_dAxes / cell.m_dCount, cell.m_dCount));
            }
        }
        return vPoints;
    }

private:
    static constexpr double s_dSize = 2.0;
    static constexpr std::size_t s_iRows = 45;
    static constexpr std::size_t s_iColumns = 90;

    struct Cell
    {
        double m_dCount = 0.0;
        double m_dInclinations = 0.0;
        double m_dAxes = 0.0;
    };
    std::vector<Cell> m_vCells = std::vector<Cell>(s_iRows * s_iColumns);
};

constexpr double g_dScanStep = 2.0; // degrees between the directions that are looked at first

/// Sum of the squared apparent dips, radians, towards a direction, and how it changes with the direction.
struct SquareSum
{
    double m_dSum = 0.0;
    double m_dSlope = 0.0;
    double m_dCurvature = 0.0;
};

double sumOfSquares(const std::vector<TangentPoint>& vPoints, double dDirection)
{
    const SineCosine oTowards = sineCosine(dDirection);
    double dSum = 0.0;
    for (const TangentPoint& point : vPoints) {
        const double dDip = std::atan(point.m_dNorth * oTowards.m_dCosine + point.m_dEast * oTowards.m_dSine);
        dSum += point.m_dWeight * dDip * dDip;
    }
    return dSum;
}

SquareSum squareSum(const std::vector<TangentPoint>& vPoints, double dDirection)
{
    const SineCosine oTowards = sineCosine(dDirection);
    SquareSum oSum;
    for (const TangentPoint& point : vPoints) {
        const double dTangent = point.m_dNorth * oTowards.m_dCosine + point.m_dEast * oTowards.m_dSine;
        const double dTurned = point.m_dEast * oTowards.m_dCosine - point.m_dNorth * oTowards.m_dSine;
        const double dDip = std::atan(dTangent);
        const double dScale = 1.0 / (1.0 + dTangent * dTangent);
        const double dSlope = dTurned * dScale; // of the apparent dip
        oSum.m_dSum += point.m_dWeight * dDip * dDip;
        oSum.m_dSlope += point.m_dWeight * 2.0 * dDip * dSlope;
        oSum.m_dCurvature +=
            point.m_dWeight * 2.0 * (dSlope * dSlope - dDip * dTangent * (dScale + 2.0 * dSlope * dSlope));
    }
    return oSum;
}

/// The direction of the largest sum of squares within a step of the scan from dDirection: Newton's method for the zero
/// of the slope, halving the range where that leads astray. Missing where the sum does not depend on the direction.
double maximumNear(const std::vector<TangentPoint>& vPoints, double dDirection)
{
    constexpr double dPrecision = 1e-6; // the error after a last step of this size is far smaller
    constexpr double dNoise = 1e-9;
    constexpr int iMost = 40;
    double dLow = dDirection - g_dScanStep;
    double dHigh = dDirection + g_dScanStep;
    for (int i = 0; i < iMost; ++i) {
        const SquareSum oSum = squareSum(vPoints, dDirection);
        if (std::abs(oSum.m_dSlope) <= dNoise * oSum.m_dSum && std::abs(oSum.m_dCurvature) <= dNoise * oSum.m_dSum) {
            return g_dMissingValue;
        }
        (oSum.m_dSlope > 0.0 ? dLow : dHigh) = dDirection;
        const double dNewton = dDirection - degrees(oSum.m_dSlope / oSum.m_dCurvature);
        const bool bTrusted = oSum.m_dCurvature < 0.0 && dNewton >= dLow && dNewton <= dHigh;
        const double dNext = bTrusted ? dNewton : 0.5 * (dLow + dHigh);
        const double dStep = std::abs(dNext - dDirection);
        dDirection = dNext;
        if (dStep < dPrecision) {
            break;
        }
    }
    return dDirection;
}

/// The direction of a scan from 0 to 180 with the largest sum of squares.
double bestOfScan(const std::vector<TangentPoint>& vPoints)
{
    constexpr double dRounding = 1e-12;
    double dBest = 0.0;
    double dLargest = -1.0;
    const int iSteps = static_cast<int>(180.0 / g_dScanStep);
    for (int i = 0; i < iSteps; ++i) {
        const double dDirection = i * g_dScanStep;
        const double dSum = sumOfSquares(vPoints, dDirection);
        if (dSum > dLargest * (1.0 + dRounding)) {
            dLargest = dSum;
            dBest = dDirection;
        }
    }
    return dBest;
}

/// 1 for a plane that dips towards the direction, −1 for one that dips away, 0 where the apparent dip is 0.
int sideOf(double dDip, double dDipAzimuth, double dDirection)
{
    // Of planes that are neither level nor vertical nor strike along the direction the azimuth tells; the product of
    // tangent and cosine is far from the noise then.
    constexpr double dClear = 0.01;
    const double dAside = angularDifference(dDirection, dDipAzimuth) - 90.0;
    if (dDip > dClear && dDip < 90.0 - dClear && std::abs(dAside) > dClear) {
        return dAside < 0.0 ? 1 : -1;
    }
    const double dApparent = apparentDip(dDip, dDipAzimuth, dDirection);
    return (dApparent > g_dFlat ? 1 : 0) - (dApparent < -g_dFlat ? 1 : 0);
}

/// Calls fn(dip, dip azimuth) for the planes of the mask; tells how many there were, and how many miss an angle.
template <typename Function>
TransverseDirections forEachPlane(std::span<const double> vdDips, std::span<const double> vdDipAzimuths,
                                  std::span<const unsigned char> vbMask, Function&& fn)
{
    TransverseDirections oCounts;
    const std::size_t iRecords = std::min(vdDips.size(), vdDipAzimuths.size());
    clearVectorRegisters();
    for (std::size_t i = 0; i < iRecords; ++i) {
        if (!isTaken(vbMask, i)) {
            continue;
        }
        if (isMissing(vdDips[i]) || isMissing(vdDipAzimuths[i])) {
            ++oCounts.m_iMissing;
        } else {
            ++oCounts.m_iCount;
            fn(vdDips[i], vdDipAzimuths[i]);
        }
    }
    return oCounts;
}

} // namespace

TransverseDirections directionsByTangentLine(std::span<const double> vdDips, std::span<const double> vdDipAzimuths,
                                             std::span<const unsigned char> vbMask)
{
    constexpr double dSteepest = 85.0;
    return directionsOfFit(tangentFit(vdDips, vdDipAzimuths, dSteepest, vbMask), vdDips, vdDipAzimuths, vbMask);
}

TransverseDirections directionsOfFit(const TangentFit& oFit, std::span<const double> vdDips,
                                     std::span<const double> vdDipAzimuths, std::span<const unsigned char> vbMask)
{
    TransverseDirections oDirections;
    oDirections.m_iCount = oFit.m_iCount + oFit.m_iTooSteep;
    oDirections.m_iMissing = oFit.m_iMissing;
    if (!isMissing(oFit.m_dTransverse)) {
        oDirections.m_dTransverse = positiveSide(oFit.m_dTransverse, vdDips, vdDipAzimuths, vbMask);
        oDirections.m_dLongitudinal = positiveSide(oFit.m_dTransverse + 90.0, vdDips, vdDipAzimuths, vbMask);
    }
    return oDirections;
}

TransverseDirections directionsByRootMeanSquare(std::span<const double> vdDips, std::span<const double> vdDipAzimuths,
                                                std::span<const unsigned char> vbMask)
{
    PlaneCells cells;
    std::vector<TangentPoint> vPlanes;
    vPlanes.reserve(std::min(vdDips.size(), vdDipAzimuths.size()));
    TransverseDirections oDirections =
        forEachPlane(vdDips, vdDipAzimuths, vbMask, [&](double dDip, double dDipAzimuth) {
            cells.add(dDip, dDipAzimuth);
            vPlanes.push_back(tangentPoint(dDip, dDipAzimuth, 1.0));
        });
    if (oDirections.m_iCount < 2) {
        return oDirections;
    }
    // The cells lead so close to the maximum of the planes that one or two passes over these remain.
    const std::vector<TangentPoint> vCells = cells.points();
    const double dOfCells = maximumNear(vCells, bestOfScan(vCells));
    const double dTransverse = isMissing(dOfCells) ? g_dMissingValue : maximumNear(vPlanes, dOfCells);
    if (!isMissing(dTransverse)) {
        oDirections.m_dTransverse = positiveSide(dTransverse, vdDips, vdDipAzimuths, vbMask);
        oDirections.m_dLongitudinal = positiveSide(dTransverse + 90.0, vdDips, vdDipAzimuths, vbMask);
    }
    return oDirections;
}

double positiveSide(double dDirection, std::span<const double> vdDips, std::span<const double> vdDipAzimuths,
                    std::span<const unsigned char> vbMask)
{
    if (isMissing(dDirection)) {
        return g_dMissingValue;
    }
    std::ptrdiff_t iBalance = 0; // planes that dip towards the direction, less those that dip away
    forEachPlane(vdDips, vdDipAzimuths, vbMask,
                 [&](double dDip, double dDipAzimuth) { iBalance += sideOf(dDip, dDipAzimuth, dDirection); });
    double dSum = 0.0;
    if (iBalance == 0) {
        const TransverseDirections oCounts =
            forEachPlane(vdDips, vdDipAzimuths, vbMask,
                         [&](double dDip, double dDipAzimuth) { dSum += apparentDip(dDip, dDipAzimuth, dDirection); });
        if (std::abs(dSum) <= g_dFlat * static_cast<double>(oCounts.m_iCount)) {
            return wrapAngle(dDirection, 180.0);
        }
    }
    const bool bAway = iBalance == 0 ? dSum < 0.0 : iBalance < 0;
    return wrapAngle(bAway ? dDirection + 180.0 : dDirection, 360.0);
}

} // namespace gkBase
