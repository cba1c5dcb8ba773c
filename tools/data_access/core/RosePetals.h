#pragma once

#include "NetProjection.h"
#include "RoseBins.h"
#include "gkBaseCoreExport.h"

#include <span>
#include <vector>

namespace gkBase {

/// A petal of a rose of radius 1, or the band of one class in it.
struct RosePetal
{
    int m_iSector = 0;
    int m_iClass = -1;     ///< −1: the whole petal, or its records of no class
    double m_dCount = 0.0; ///< records, or the sum of their weights
    double m_dStart = 0.0; ///< azimuth where it begins, degrees
    double m_dSize = 0.0;  ///< degrees clockwise from there
    double m_dInner = 0.0; ///< radii; a band that begins at the centre has inner radius 0, whatever the zero circle
    double m_dOuter = 0.0;
};

/// The petals, sector by sector from the first. With classes a petal is cut into bands from the centre outwards:
/// records of no class, then the first class, the last class outermost; bands without records are left out. A sector
/// without records is a petal as large as the zero circle, and is left out when that has no radius.
GKBASECORE_EXPORT std::vector<RosePetal> rosePetals(const RoseBins& oBins, const RoseScale& oScale);

/// The corners of a petal (x east, y north, first point not repeated): a pie from the centre or a piece of a ring, or a
/// disc for 360 degrees, its arcs in steps of at most dStep degrees. A ring of 360 degrees is closed by a seam.
GKBASECORE_EXPORT std::vector<NetPoint> petalOutline(const RosePetal& oPetal, double dStep = 2.0);

/// The petal, or band, at a position; −1 where there is none. Sides belong to the petal that begins there, the inner
/// radius to the band outside it.
GKBASECORE_EXPORT int petalAt(std::span<const RosePetal> vPetals, NetPoint oPoint);

} // namespace gkBase
