#include "ScatCommand.h"

#include "CommandText.h"
#include "CsvOutput.h"
#include "OrientationInput.h"
#include "ScatInput.h"
#include "ScatReport.h"

#include <QFileInfo>

namespace gkHost {

namespace {

/// Depth, dip, azimuth and the apparent dips of all records as a data set.
std::optional<CommandResult> writeApparentDips(CommandInput& input, const ScatReport& report)
{
    const QString sOut = input.value(QStringLiteral("out"));
    gkBase::MatrixData root(QStringLiteral("Data"));
    root.setRegistry(input.root().registry());
    auto poDataSet = std::make_unique<gkBase::MatrixData>(QFileInfo(sOut).completeBaseName());
    for (const gkBase::MatrixData* poAttribute :
         {report.m_scat.m_poDepth, report.m_scat.m_poDip, report.m_scat.m_poAzimuth}) {
        appendAttribute(*poDataSet, poAttribute->name(), poAttribute->unitManager(), poAttribute->column());
    }
    const auto appendDips = [&](const QString& sName, const std::vector<double>& vdDips) {
        appendAttribute(*poDataSet, sName, unitInDegrees(*report.m_scat.m_poDip),
                        gkBase::MatrixColumn::fromDoubles(vdDips));
    };
    appendDips(QStringLiteral("Transverse Dip"), report.m_vdTransverse);
    appendDips(QStringLiteral("Longitudinal Dip"), report.m_vdLongitudinal);
    root.appendChild(poDataSet.release(), false);
    return writeCsv(root, sOut);
}

} // namespace

CommandResult runScatCommand(const QStringList& lArguments)
{
    CommandInput input;
    input.parser().setApplicationDescription(
        text("Finds the directions T and L in which the dips along a well change most and least, and the depths where "
             "the transverse dips, the apparent dips towards T, plainly change their sign (crests) or are extreme "
             "(inflections); in model units of the depth. Writes both apparent dips as CSV."));
    addScatOptions(input.parser());
    input.parser().addOptions({{QStringLiteral("json"), text("Print JSON.")},
                               {QStringLiteral("out"), text("The CSV file to write."), QStringLiteral("PATH")}});
    if (const auto oResult = input.parse(lArguments)) {
        return *oResult;
    }
    std::optional<CommandResult> oError;
    if (input.isSet(QStringLiteral("out"))) {
        oError = input.require(QStringLiteral("out"));
    }
    const ScatInput scat = loadedScatInput(input, oError);
    if (oError) {
        return *oError;
    }
    const ScatReport report = scatReport(scat);
    if (input.isSet(QStringLiteral("out"))) {
        if (const auto oFailure = writeApparentDips(input, report)) {
            return *oFailure;
        }
    }
    return CommandResult::ok(input.isSet(QStringLiteral("json")) ? report.toJson() : report.toText());
}

} // namespace gkHost
