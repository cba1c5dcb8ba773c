#include "OrientationStatistics.h"

#include "MissingValue.h"
#include "Rotation.h"

namespace gkBase {

namespace {

/// Brings the resultant mean to the centre of the net.
Rotation rotationToCentre(OrientationType eType, const FisherStatistics& oFisher)
{
    return eType == OrientationType::Planes ? rotationToHorizontal(oFisher.m_oMeanPlane)
                                            : rotationToVertical(oFisher.m_oMeanLine);
}

} // namespace

OrientationStatistics orientationStatistics(OrientationType eType, const OrientationSums& oSums)
{
    OrientationStatistics oResult;
    oResult.m_eType = eType;
    oResult.m_oSums = oSums;
    oResult.m_oFisher = fisherStatistics(oSums);
    oResult.m_oAxes = principalAxes(oSums);
    oResult.m_oWoodcock = woodcockParameters(oResult.m_oAxes);
    oResult.m_oShape = mardiaClassification(oResult.m_oAxes, oResult.m_oFisher.m_dMeanResultantLength);
    oResult.m_bMeanMisleads = doesVectorMeanMislead(oResult.m_oAxes, oResult.m_oFisher.m_dMeanResultantLength);
    if (!isMissing(oResult.m_oFisher.m_oMeanLine.m_dPlunge)) {
        const PrincipalAxes oRotated = rotatedAxes(oResult.m_oAxes, rotationToCentre(eType, oResult.m_oFisher));
        oResult.m_oSectionPlane = oRotated.sectionPlane();
        oResult.m_oSectionPole = oRotated.sectionPole();
    }
    return oResult;
}

OrientationStatistics orientationStatistics(OrientationType eType, std::span<const double> vdAngles,
                                            std::span<const double> vdAzimuths, std::span<const unsigned char> vbMask,
                                            std::span<const double> vdWeights)
{
    return orientationStatistics(eType, orientationSums(eType, vdAngles, vdAzimuths, vbMask, vdWeights));
}

} // namespace gkBase
