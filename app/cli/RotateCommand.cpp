#include "RotateCommand.h"

#include "CommandText.h"
#include "CsvOutput.h"
#include "OrientationInput.h"

#include <gkBase/MissingValue.h>
#include <gkBase/OrientationText.h>
#include <gkBase/Rotation.h>

#include <algorithm>

namespace gkHost {

namespace {

constexpr double g_dSteepest = 90.0;

/// --axis PLUNGE/AZIMUTH.
gkBase::LineOrientation rotationAxis(const CommandInput& input, std::optional<CommandResult>& oError)
{
    const QStringList lParts = input.value(QStringLiteral("axis")).split(QLatin1Char('/'));
    bool bPlunge = false;
    bool bAzimuth = false;
    const gkBase::LineOrientation oAxis{lParts.value(0).toDouble(&bPlunge), lParts.value(1).toDouble(&bAzimuth)};
    const bool bOk = lParts.size() == 2 && bPlunge && bAzimuth && !gkBase::isMissing(oAxis.m_dAzimuth) &&
                     std::abs(oAxis.m_dPlunge) <= g_dSteepest;
    if (!bOk && !oError) {
        oError =
            CommandResult::badUsage(text("--axis: \"%1\" is no PLUNGE/AZIMUTH in degrees; write for example 12/340")
                                        .arg(input.value(QStringLiteral("axis"))));
    }
    return oAxis;
}

/// An attribute beside those of the input, with the unit of its angles unless they were turned to degrees.
void appendAngles(gkBase::MatrixData& dataSet, const QString& sName, const gkBase::MatrixData& source,
                  std::vector<double> vdAngles)
{
    appendAttribute(dataSet, sName, unitInDegrees(source), gkBase::MatrixColumn::fromDoubles(std::move(vdAngles)));
}

/// Appends the rotated orientations; returns how many records were turned.
std::size_t appendRotated(const OrientationInput& orientations, const gkBase::Rotation& rotation)
{
    const std::size_t iRecords = std::min(orientations.m_vdAngles.size(), orientations.m_vdAzimuths.size());
    std::vector<double> vdAngles(iRecords);
    std::vector<double> vdAzimuths(iRecords);
    gkBase::rotateOrientations(orientations.m_eType, rotation, orientations.m_vdAngles, orientations.m_vdAzimuths,
                               vdAngles, vdAzimuths);
    const auto iMissing = static_cast<std::size_t>(std::count_if(vdAngles.begin(), vdAngles.end(), gkBase::isMissing));
    gkBase::MatrixData& dataSet = *orientations.m_poAngle->parentNode();
    appendAngles(dataSet, QStringLiteral("Rotated:Dip"), *orientations.m_poAngle, std::move(vdAngles));
    appendAngles(dataSet, QStringLiteral("Rotated:Dip Azimuth"), *orientations.m_poAzimuth, std::move(vdAzimuths));
    return iRecords - iMissing;
}

} // namespace

CommandResult runRotateCommand(const QStringList& lArguments)
{
    CommandInput input;
    input.parser().setApplicationDescription(
        text("Turns planes (by their poles) or lines about an axis, clockwise as seen along it downwards, and writes "
             "all attributes with \"Rotated:Dip\" and \"Rotated:Dip Azimuth\" as CSV."));
    addOrientationOptions(input.parser());
    input.parser().addOptions(
        {{QStringLiteral("axis"), text("The axis, in degrees."), QStringLiteral("PLUNGE/AZIMUTH")},
         {QStringLiteral("angle"), text("The angle, in degrees."), QStringLiteral("A")},
         {QStringLiteral("out"), text("The CSV file to write."), QStringLiteral("PATH")}});
    if (const auto oResult = input.parse(lArguments)) {
        return *oResult;
    }
    std::optional<CommandResult> oError =
        input.require({QStringLiteral("axis"), QStringLiteral("angle"), QStringLiteral("out")});
    const gkBase::LineOrientation oAxis = rotationAxis(input, oError);
    const double dAngle = input.number(QStringLiteral("angle"), oError).value_or(0.0);
    const OrientationInput orientations = loadedOrientations(input, oError);
    if (oError) {
        return *oError;
    }
    const std::size_t iTurned = appendRotated(orientations, gkBase::Rotation(oAxis, dAngle));
    if (const auto oFailure = writeCsv(input.root(), input.value(QStringLiteral("out")))) {
        return *oFailure;
    }
    return CommandResult::ok(text("%1 of %2 records turned about %3 by %4 degrees\n")
                                 .arg(iTurned)
                                 .arg(orientations.m_vdAngles.size())
                                 .arg(gkBase::lineText(oAxis))
                                 .arg(dAngle));
}

} // namespace gkHost
