#include "ScatInput.h"

#include "CommandText.h"
#include "OrientationInput.h"

#include <gkBase/Angles.h>

namespace gkHost {

namespace {

/// Fills in T and L; each of them given or not.
void setDirections(ScatInput& scat, std::optional<double> oTransverse, std::optional<double> oLongitudinal)
{
    const auto across = [&scat](double dDirection) {
        return gkBase::positiveSide(dDirection + 90.0, scat.m_vdDips, scat.m_vdAzimuths);
    };
    scat.m_oByTangentLine = gkBase::directionsByTangentLine(scat.m_vdDips, scat.m_vdAzimuths);
    scat.m_oByRootMeanSquare = gkBase::directionsByRootMeanSquare(scat.m_vdDips, scat.m_vdAzimuths);
    if (oTransverse || oLongitudinal) {
        scat.m_dTransverse = oTransverse ? gkBase::wrapAngle(*oTransverse, 360.0) : across(*oLongitudinal);
        scat.m_dLongitudinal = oLongitudinal ? gkBase::wrapAngle(*oLongitudinal, 360.0) : across(*oTransverse);
        return;
    }
    const bool bLine = !gkBase::isMissing(scat.m_oByTangentLine.m_dTransverse);
    const gkBase::TransverseDirections& oFound = bLine ? scat.m_oByTangentLine : scat.m_oByRootMeanSquare;
    scat.m_dTransverse = oFound.m_dTransverse;
    scat.m_dLongitudinal = oFound.m_dLongitudinal;
}

} // namespace

void addScatOptions(QCommandLineParser& parser)
{
    parser.addOptions({{QStringLiteral("depth"), text("The depth along the well."), QStringLiteral("NAME")},
                       {QStringLiteral("dip"), text("The dip of the planes."), QStringLiteral("NAME")},
                       {QStringLiteral("azimuth"), text("Their dip azimuth."), QStringLiteral("NAME")},
                       {QStringLiteral("t"),
                        text("The direction of the transverse dips, in degrees; found from the planes when "
                             "absent."),
                        QStringLiteral("DEG")},
                       {QStringLiteral("l"), text("The direction of the longitudinal dips; across T when absent."),
                        QStringLiteral("DEG")}});
}

ScatInput loadedScatInput(CommandInput& input, std::optional<CommandResult>& oError)
{
    const QStringList lOptions{QStringLiteral("depth"), QStringLiteral("dip"), QStringLiteral("azimuth")};
    if (!oError) {
        oError = input.require(lOptions);
    }
    const std::optional<double> oTransverse = input.number(QStringLiteral("t"), oError);
    const std::optional<double> oLongitudinal = input.number(QStringLiteral("l"), oError);
    if (!oError) {
        oError = input.load();
    }
    if (oError) {
        return {};
    }
    const std::vector<gkBase::MatrixData*> vpAttributes =
        input.numericAttributes({input.value(lOptions[0]), input.value(lOptions[1]), input.value(lOptions[2])}, oError);
    if (!oError) {
        requireDipAzimuth(input, *vpAttributes[2], oError);
    }
    if (oError) {
        return {};
    }
    ScatInput scat;
    scat.m_poDepth = vpAttributes[0];
    scat.m_poDip = vpAttributes[1];
    scat.m_poAzimuth = vpAttributes[2];
    scat.m_vdDips = anglesInDegrees(input, *scat.m_poDip, oError);
    scat.m_vdAzimuths = anglesInDegrees(input, *scat.m_poAzimuth, oError);
    setDirections(scat, oTransverse, oLongitudinal);
    return scat;
}

} // namespace gkHost
