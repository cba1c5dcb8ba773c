#pragma once

#include "CircularStatistics.h"
#include "gkBaseCoreExport.h"

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

/// How directions are counted into the sectors of a rose.
struct RoseSettings
{
    double m_dSectorSize = 20.0;   ///< degrees; 1 when it is not above 0, 360 at most
    double m_dStart = 0.0;         ///< azimuth where the first sector begins
    bool m_bBidirectional = false; ///< every record counts at its azimuth and at the opposite one
    int m_iSectors = 0;            ///< 0: all that the circle holds, 100000 at most
};

/// Directions counted in equal sectors, which follow each other clockwise from the start. Where they do not fill the
/// circle they leave the rest of it uncovered.
struct GKBASECORE_EXPORT RoseBins
{
    double m_dSectorSize = 20.0;
    bool m_bBidirectional = false;
    double m_dStart = 0.0;
    int m_iClasses = 0;                 ///< 0 for a rose without classes
    std::vector<double> m_vdCounts;     ///< one per sector: records, or the sum of their weights
    std::vector<double> m_vdClassCount; ///< m_iClasses numbers per sector; records of no class are in none
    std::size_t m_iRecords = 0;         ///< records used
    std::size_t m_iMissing = 0;         ///< records taken that lack an azimuth or a weight of at least 0
    std::size_t m_iUncovered = 0;       ///< directions in no sector; a bidirectional record has two directions
    double m_dWeight = 0.0;             ///< sum of the weights of the records used
    double m_dUncoveredWeight = 0.0;    ///< sum of the weights of the directions in no sector

    /// Of all directions, of which bidirectional records have two; shares of sectors and rest add up to 100. 0 without
    /// records.
    double percent(double dCount) const
    {
        const double dDirections = m_bBidirectional ? 2.0 * m_dWeight : m_dWeight;
        return dDirections > 0.0 ? 100.0 * dCount / dDirections : 0.0;
    }

    int sectors() const { return static_cast<int>(m_vdCounts.size()); }
    double sectorStart(int iSector) const { return m_dStart + static_cast<double>(iSector) * m_dSectorSize; }
    double classCount(int iSector, int iClass) const
    {
        return m_vdClassCount[static_cast<std::size_t>(iSector) * static_cast<std::size_t>(m_iClasses) +
                              static_cast<std::size_t>(iClass)];
    }
    /// The sector of an azimuth, −1 for one in the uncovered rest or a missing one.
    int sectorAt(double dAzimuth) const;
    /// The largest count of a sector; 0 without records.
    double maximum() const;
};

/// Counts azimuths (degrees, any turn) into sectors, each with the azimuth where it begins and without the one where
/// it ends. The counts add up to m_dWeight, twice that for bidirectional records, less m_dUncoveredWeight.
/// The mask says which records are taken, all when it is empty; weights as recordWeight(). viClasses gives
/// the class of every record, 0 … iClasses − 1; any other number, or none, is no class.
GKBASECORE_EXPORT RoseBins roseBins(std::span<const double> vdAzimuth, const RoseSettings& oSettings,
                                    std::span<const unsigned char> vbMask = {}, std::span<const double> vdWeights = {},
                                    std::span<const int> viClasses = {}, int iClasses = 0);

/// One byte per record, 1 where its azimuth lies in the sector; where bBidirectional is true, also where the opposite
/// one does. No mask is asked: records that were not counted are found as well.
GKBASECORE_EXPORT std::vector<unsigned char> sectorRecords(std::span<const double> vdAzimuth, const RoseBins& oBins,
                                                           int iSector, bool bBidirectional);

/// circularMeans() of the records that the mask takes, all when it is empty.
GKBASECORE_EXPORT CircularMeans roseMeans(std::span<const double> vdAzimuth,
                                          std::span<const unsigned char> vbMask = {});

/// How counts become distances from the centre of a rose of radius 1.
struct GKBASECORE_EXPORT RoseScale
{
    double m_dMaximum = 0.0;    ///< the count that reaches the rim
    bool m_bEqualArea = true;   ///< by the square root: the area of a petal, not its length, goes with the count
    double m_dZeroCircle = 0.0; ///< radius of the count 0, in per cent of the rose: brought to 0 … 100

    /// Zero circle + (1 − zero circle) · count / maximum, or the square root of that share. Shares are brought to
    /// 0 … 1; the zero circle where the maximum is not above 0.
    double radius(double dCount) const;
    /// As above with a zero circle of 0, for circles that stand for sectors.
    double vectorRadius(double dCount) const;
    /// The radii of the circles at the counts distance, 2 · distance, … below the maximum. None for a distance below
    /// 1 or a maximum not above 0.
    std::vector<double> gridRadii(double dDistance) const;
};

} // namespace gkBase
