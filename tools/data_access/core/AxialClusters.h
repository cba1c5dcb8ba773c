#pragma once

#include "DirectionCosines.h"
#include "KMeansClusters.h"
#include "RecordMask.h"
#include "gkBaseCoreExport.h"

#include <span>

namespace gkBase {

/// Clusters orientations by k-means of axes, so that a set on both sides of the rim of the net stays one cluster:
/// (dip, dip azimuth) of planes, of which the poles are taken, or (plunge, azimuth) of lines, in degrees.
///
/// An axis with the direction cosines u is the point u·uᵀ − I/3 in the five dimensions of the symmetric matrices
/// without trace. There u and −u are one point, and the squared distance of two axes is the squared sine of the angle
/// between them; the distortion is a sum of these. (Veronese-Whitney embedding; Bhattacharya and Patrangenaru 2005,
/// Annals of Statistics 33, 1225-1259.)
///
/// The centroids are rows of two angles: the principal axis of each cluster, of planes as dip and dip azimuth. The
/// largest cluster has the number 0; among equal ones that of the first record comes first. Otherwise as
/// kMeansClusters(): records with a missing angle or outside the mask have the cluster −1, k is cut down to the
/// distinct axes, the same input gives the same clusters.
GKBASECORE_EXPORT KMeansClusters axialClusters(OrientationType eType, std::span<const double> vdAngles,
                                               std::span<const double> vdAzimuths, int k,
                                               std::span<const unsigned char> vbMask = {});

} // namespace gkBase
