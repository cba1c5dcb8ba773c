#include "Rotation.h"

#include "VectorRegisters.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// A rotation by its axis times the sine, and by the cosine, of half the angle (Hamilton 1844).
struct Quaternion
{
    gdfVertex m_oAxis;
    double m_dCosine;
};

Quaternion unitQuaternion(const Rotation& oRotation)
{
    const LineOrientation& oAxis = oRotation.axis();
    if (isMissing(oAxis.m_dPlunge) || isMissing(oAxis.m_dAzimuth) || isMissing(oRotation.angle())) {
        return {{}, 1.0};
    }
    const auto [dSine, dCosine] = sineCosine(0.5 * oRotation.angle());
    return {lineVector(oAxis.m_dPlunge, oAxis.m_dAzimuth) * dSine, dCosine};
}

} // namespace

Rotation::Rotation(const LineOrientation& oAxis, double dAngle)
    : m_oAxis(oAxis)
    , m_dAngle(dAngle)
    , m_aoRows{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}
{
    if (isMissing(oAxis.m_dPlunge) || isMissing(oAxis.m_dAzimuth) || isMissing(dAngle)) {
        return;
    }
    // The matrix of Rodrigues' formula.
    const gdfVertex oUnit = lineVector(oAxis.m_dPlunge, oAxis.m_dAzimuth);
    const double dX = oUnit.x();
    const double dY = oUnit.y();
    const double dZ = oUnit.z();
    const auto [dSine, dCosine] = sineCosine(dAngle);
    const double dHalfSine = sineCosine(0.5 * dAngle).m_dSine;
    const double dVersine = 2.0 * dHalfSine * dHalfSine;
    m_aoRows[0].set(dCosine + dVersine * dX * dX, dVersine * dX * dY - dSine * dZ, dVersine * dX * dZ + dSine * dY);
    m_aoRows[1].set(dVersine * dY * dX + dSine * dZ, dCosine + dVersine * dY * dY, dVersine * dY * dZ - dSine * dX);
    m_aoRows[2].set(dVersine * dZ * dX - dSine * dY, dVersine * dZ * dY + dSine * dX, dCosine + dVersine * dZ * dZ);
}

Rotation Rotation::then(const Rotation& oNext) const
{
    const auto [oAxis, dCosine] = unitQuaternion(*this);
    const auto [oNextAxis, dNextCosine] = unitQuaternion(oNext);
    const gdfVertex oProduct = oAxis * dNextCosine + oNextAxis * dCosine + (oNextAxis ^ oAxis);
    const double dSine = oProduct.length();
    if (!(dSine > 0.0)) {
        return {{90.0, 0.0}, 0.0};
    }
    const LineOrientation oLine = lineOf(oProduct);
    const double dAngle = 2.0 * degrees(std::atan2(dSine, dNextCosine * dCosine - oNextAxis.dot(oAxis)));
    return {oLine, oProduct.dot(lineVector(oLine.m_dPlunge, oLine.m_dAzimuth)) < 0.0 ? -dAngle : dAngle};
}

gdfVertex Rotation::apply(const gdfVertex& oVector) const
{
    return {m_aoRows[0].dot(oVector), m_aoRows[1].dot(oVector), m_aoRows[2].dot(oVector)};
}

LineOrientation Rotation::apply(const LineOrientation& oLine) const
{
    if (isMissing(oLine.m_dPlunge) || isMissing(oLine.m_dAzimuth)) {
        return g_oMissingLine;
    }
    return lineOf(apply(lineVector(oLine.m_dPlunge, oLine.m_dAzimuth)));
}

PlaneOrientation Rotation::apply(const PlaneOrientation& oPlane) const
{
    if (isMissing(oPlane.m_dDip) || isMissing(oPlane.m_dDipAzimuth)) {
        return g_oMissingPlane;
    }
    return planeOfPole(apply(poleVector(oPlane.m_dDip, oPlane.m_dDipAzimuth)));
}

Rotation rotationToHorizontal(const PlaneOrientation& oMeanPlane)
{
    if (isMissing(oMeanPlane.m_dDip) || isMissing(oMeanPlane.m_dDipAzimuth)) {
        return {g_oMissingLine, g_dMissingValue};
    }
    return {{0.0, wrapAngle(oMeanPlane.m_dDipAzimuth - 90.0, 360.0)}, 360.0 - oMeanPlane.m_dDip};
}

Rotation rotationToVertical(const LineOrientation& oMeanLine)
{
    return rotationToHorizontal(planeOfPole(oMeanLine));
}

void rotateOrientations(OrientationType eType, const Rotation& oRotation, std::span<const double> vdAngles,
                        std::span<const double> vdAzimuths, std::span<double> vdRotatedAngles,
                        std::span<double> vdRotatedAzimuths)
{
    const std::size_t iRecords =
        std::min({vdAngles.size(), vdAzimuths.size(), vdRotatedAngles.size(), vdRotatedAzimuths.size()});
    clearVectorRegisters();
    for (std::size_t i = 0; i < iRecords; ++i) {
        if (isMissing(vdAngles[i]) || isMissing(vdAzimuths[i])) {
            vdRotatedAngles[i] = g_dEmptyCell;
            vdRotatedAzimuths[i] = g_dEmptyCell;
        } else if (eType == OrientationType::Planes) {
            const PlaneOrientation oPlane = oRotation.apply(PlaneOrientation{vdAngles[i], vdAzimuths[i]});
            vdRotatedAngles[i] = oPlane.m_dDip;
            vdRotatedAzimuths[i] = oPlane.m_dDipAzimuth;
        } else {
            const LineOrientation oLine = oRotation.apply(LineOrientation{vdAngles[i], vdAzimuths[i]});
            vdRotatedAngles[i] = oLine.m_dPlunge;
            vdRotatedAzimuths[i] = oLine.m_dAzimuth;
        }
    }
}

} // namespace gkBase
