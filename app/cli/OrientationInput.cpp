#include "OrientationInput.h"

#include "CommandText.h"

#include <gkBase/MatrixDataStrike.h>
#include <gkBase/MissingValue.h>

#include <algorithm>

namespace gkHost {

namespace {

constexpr double g_dSteepest = 90.0;

boost::shared_ptr<gkBase::UnitManager> degreeManager()
{
    return gkBase::UnitRegistry::standard().find_category(QStringLiteral("orientation"))->second;
}

bool isAngle(const gkBase::UnitManager& unit)
{
    return unit.category() == QStringLiteral("orientation");
}

/// A text of a unit that nobody knows is not held against the values.
bool isOtherQuantity(const gkBase::UnitManager& unit)
{
    return !isAngle(unit) && unit.category() != gkBase::UnitRegistry::dimensionless()->category();
}

/// 1 for degrees and for values without a unit.
double degreesPerUnit(const gkBase::UnitManager& unit)
{
    return isAngle(unit) ? degreeManager()->convertFromModelOf(unit, 1.0) : 1.0;
}

/// Strikes are 90 degrees off. The dip azimuth that belongs to one is an attribute too.
std::optional<CommandResult> strikeForAzimuth(const CommandInput& input, const gkBase::MatrixData& attribute)
{
    const auto* poStrike = dynamic_cast<const gkBase::MatrixDataStrike*>(&attribute);
    if (!poStrike || !poStrike->azimuth()) {
        return std::nullopt;
    }
    return CommandResult::badInput(text("%1: \"%2\" is a strike; the dip azimuth that belongs to it is \"%3\"")
                                       .arg(input.filePath(), attribute.name(), poStrike->azimuth()->name()));
}

} // namespace

std::size_t OrientationInput::recordsOutOfRange() const
{
    const double dFlattest = isPlanes() ? 0.0 : -g_dSteepest;
    std::size_t iRecords = 0;
    for (std::size_t i = 0; i < std::min(m_vdAngles.size(), m_vdAzimuths.size()); ++i) {
        const bool bRecord = !gkBase::isMissing(m_vdAngles[i]) && !gkBase::isMissing(m_vdAzimuths[i]);
        iRecords += bRecord && (m_vdAngles[i] < dFlattest || m_vdAngles[i] > g_dSteepest);
    }
    return iRecords;
}

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
        oError = strikeForAzimuth(input, *vpAngles[1]);
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

std::vector<double> anglesInDegrees(const CommandInput& input, const gkBase::MatrixData& attribute,
                                    std::optional<CommandResult>& oError)
{
    const gkBase::UnitManager& unit = *attribute.unitManager();
    if (isOtherQuantity(unit)) {
        if (!oError) {
            oError = CommandResult::badInput(text("%1: \"%2\" is measured in %3 and holds no angles")
                                                 .arg(input.filePath(), attribute.name(), unit.modelUnit()));
        }
        return {};
    }
    std::vector<double> vdDegrees = attribute.column().numbers();
    const double dFactor = degreesPerUnit(unit);
    if (dFactor != 1.0) {
        for (double& dAngle : vdDegrees) {
            dAngle *= dFactor;
        }
    }
    return vdDegrees;
}

boost::shared_ptr<gkBase::UnitManager> unitInDegrees(const gkBase::MatrixData& attribute)
{
    return degreesPerUnit(*attribute.unitManager()) == 1.0 ? attribute.unitManager() : degreeManager();
}

void convertToDegrees(gkBase::MatrixData& attribute, const std::vector<double>& vdDegrees)
{
    if (degreesPerUnit(*attribute.unitManager()) == 1.0) {
        return;
    }
    attribute.setColumn(0, gkBase::MatrixColumn::fromDoubles(vdDegrees));
    attribute.setUnitManager(degreeManager());
}

void convertToDegrees(const OrientationInput& orientations)
{
    convertToDegrees(*orientations.m_poAngle, orientations.m_vdAngles);
    convertToDegrees(*orientations.m_poAzimuth, orientations.m_vdAzimuths);
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
