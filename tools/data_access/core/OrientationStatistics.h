#pragma once

#include "DirectionCosines.h"
#include "FisherStatistics.h"
#include "OrientationMatrix.h"
#include "PrincipalAxes.h"
#include "WoodcockParameters.h"
#include "gkBaseCoreExport.h"

#include <span>

namespace gkBase {

/// Everything that is said about a set of orientation records: what a panel, a report and a file of results show.
struct OrientationStatistics
{
    OrientationType m_eType = OrientationType::Planes;
    OrientationSums m_oSums;
    FisherStatistics m_oFisher;
    PrincipalAxes m_oAxes;
    WoodcockParameters m_oWoodcock;
    ShapeClassification m_oShape;
    /// The suggested section: the plane whose pole is the middle eigenvector of the records after the mean was turned
    /// to the centre of the net, and that pole. Missing where the mean is undefined.
    PlaneOrientation m_oSectionPlane = g_oMissingPlane;
    LineOrientation m_oSectionPole = g_oMissingLine;
    bool m_bMeanMisleads = false; ///< doesVectorMeanMislead()
};

/// Statistics of sums that are at hand.
GKBASECORE_EXPORT OrientationStatistics orientationStatistics(OrientationType eType, const OrientationSums& oSums);

/// Statistics of the records; parameters as for orientationSums().
GKBASECORE_EXPORT OrientationStatistics orientationStatistics(OrientationType eType, std::span<const double> vdAngles,
                                                              std::span<const double> vdAzimuths,
                                                              std::span<const unsigned char> vbMask = {},
                                                              std::span<const double> vdWeights = {});

} // namespace gkBase
