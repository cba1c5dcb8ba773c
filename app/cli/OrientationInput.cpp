#include "OrientationInput.h"

#include "CommandText.h"

#include <gkBase/AngleUnits.h>
#include <gkBase/MatrixDataStrike.h>
#include <gkBase/UnitManager.h>

namespace gkHost {

void addOrientationOptions(QCommandLineParser& parser)
{
    parser.addOptions({{QStringLiteral("dip"), text("The dip of planes, or plunge of lines."), QStringLiteral("NAME")},
                       {QStringLiteral("azimuth"), text("Their dip azimuth, or azimuth."), QStringLiteral("NAME")},
                       {QStringLiteral("lines"), text("They are lines, not planes.")}});
}

OrientationInput loadedOrientations(CommandInput& input, std::optional<CommandResult>& oError)
{
    const QString sDip = QStringLiteral("dip");
    const QString sAzimuth = QStringLiteral("azimuth");
    if (!oError) {
        oError = input.require({sDip, sAzimuth});
    }
    if (!oError) {
        oError = input.load();
    }
    if (oError) {
        return {};
    }
    const std::vector<gkBase::MatrixData*> vpAngles =
        input.numericAttributes({input.value(sDip), input.value(sAzimuth)}, oError);
    if (!oError) {
        requireDipAzimuth(input, *vpAngles[1], oError);
    }
    if (oError) {
        return {};
    }
    OrientationInput orientations;
    orientations.m_eType =
        input.isSet(QStringLiteral("lines")) ? gkBase::OrientationType::Lines : gkBase::OrientationType::Planes;
    orientations.m_poAngle = vpAngles[0];
    orientations.m_poAzimuth = vpAngles[1];
    orientations.m_vdAngles = anglesInDegrees(input, *vpAngles[0], oError);
    orientations.m_vdAzimuths = anglesInDegrees(input, *vpAngles[1], oError);
    return orientations;
}

void requireAngles(const CommandInput& input, const gkBase::MatrixData& attribute, std::optional<CommandResult>& oError)
{
    if (!oError && gkBase::isOtherThanAngle(attribute)) {
        oError =
            CommandResult::badInput(text("%1: \"%2\" is measured in %3 and holds no angles")
                                        .arg(input.filePath(), attribute.name(), attribute.unitManager()->modelUnit()));
    }
}

void requireDipAzimuth(const CommandInput& input, const gkBase::MatrixData& attribute,
                       std::optional<CommandResult>& oError)
{
    const auto* poStrike = dynamic_cast<const gkBase::MatrixDataStrike*>(&attribute);
    if (!oError && poStrike && poStrike->azimuth()) {
        oError = CommandResult::badInput(text("%1: \"%2\" is a strike; the dip azimuth that belongs to it is \"%3\"")
                                             .arg(input.filePath(), attribute.name(), poStrike->azimuth()->name()));
    }
}

std::vector<double> anglesInDegrees(const CommandInput& input, const gkBase::MatrixData& attribute,
                                    std::optional<CommandResult>& oError)
{
    requireAngles(input, attribute, oError);
    return gkBase::isOtherThanAngle(attribute) ? std::vector<double>() : gkBase::numbersInDegrees(attribute);
}

boost::shared_ptr<gkBase::UnitManager> unitInDegrees(const gkBase::MatrixData& attribute)
{
    return gkBase::degreesPerUnit(attribute) == 1.0 ? attribute.unitManager() : gkBase::degreeUnit();
}

QCommandLineOption projectionOption()
{
    return {QStringLiteral("projection"), text("equal-area or equal-angle."), QStringLiteral("NAME")};
}

gkBase::NetLayout projectionLayout(const CommandInput& input, std::optional<CommandResult>& oError)
{
    const int i = input.choice(QStringLiteral("projection"),
                               {QStringLiteral("equal-area"), QStringLiteral("equal-angle")}, oError);
    return i == 1 ? gkBase::NetLayout::EqualAngle : gkBase::NetLayout::EqualArea;
}

} // namespace gkHost
