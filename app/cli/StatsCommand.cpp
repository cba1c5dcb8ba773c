#include "StatsCommand.h"

#include "AttributeStatistics.h"
#include "CommandInput.h"
#include "CommandText.h"
#include "DirectionReport.h"
#include "OrientationInput.h"
#include "OrientationReport.h"
#include "RegressionReport.h"
#include "SectorOption.h"

#include <gkBase/MissingValue.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <array>

namespace gkHost {

namespace {

/// The report as JSON or as text.
template <typename Report>
CommandResult printed(const CommandInput& input, const Report& report)
{
    if (input.isSet(QStringLiteral("json"))) {
        return CommandResult::ok(QString::fromUtf8(QJsonDocument(report.toJson()).toJson()));
    }
    return CommandResult::ok(report.toText());
}

CommandResult attributeResult(CommandInput& input)
{
    std::optional<CommandResult> oError = input.require(QStringLiteral("attribute"));
    const double dInterval = input.positiveNumber(QStringLiteral("interval"), oError).value_or(gkBase::g_dMissingValue);
    if (!oError) {
        oError = input.load();
    }
    if (oError) {
        return *oError;
    }
    const gkBase::MatrixData* poAttribute = input.numericAttribute(input.value(QStringLiteral("attribute")), oError);
    return poAttribute ? printed(input, attributeStatistics(*poAttribute, dInterval)) : *oError;
}

CommandResult regressionResult(CommandInput& input)
{
    std::optional<CommandResult> oError = input.require({QStringLiteral("x"), QStringLiteral("y")});
    if (!oError) {
        oError = input.load();
    }
    if (oError) {
        return *oError;
    }
    const std::vector<gkBase::MatrixData*> vpAttributes =
        input.numericAttributes({input.value(QStringLiteral("x")), input.value(QStringLiteral("y"))}, oError);
    return oError ? *oError : printed(input, regressionReport(*vpAttributes[0], *vpAttributes[1]));
}

CommandResult orientationResult(CommandInput& input)
{
    std::optional<CommandResult> oError;
    const OrientationInput orientations = loadedOrientations(input, oError);
    return oError ? *oError : printed(input, orientationReport(orientations));
}

CommandResult directionResult(CommandInput& input)
{
    std::optional<CommandResult> oError = input.require(QStringLiteral("direction"));
    const int iSectorSize = sectorSize(input, oError);
    if (!oError) {
        oError = input.load();
    }
    if (oError) {
        return *oError;
    }
    const gkBase::MatrixData* poDirection = input.numericAttribute(input.value(QStringLiteral("direction")), oError);
    if (!poDirection) {
        return *oError;
    }
    const std::vector<double> vdAzimuths = anglesInDegrees(input, *poDirection, oError);
    return oError ? *oError
                  : printed(input, directionReport(poDirection->name(), vdAzimuths, iSectorSize,
                                                   input.isSet(QStringLiteral("axial"))));
}

/// One of the things of which there are statistics, with the options that name it.
struct Subject
{
    QStringList m_lOptions;
    CommandResult (*m_fnRun)(CommandInput&);
};

const std::array<Subject, 4>& subjects()
{
    static const std::array<Subject, 4> theSubjects = {
        {{{QStringLiteral("attribute"), QStringLiteral("interval")}, attributeResult},
         {{QStringLiteral("x"), QStringLiteral("y")}, regressionResult},
         {{QStringLiteral("dip"), QStringLiteral("azimuth"), QStringLiteral("lines")}, orientationResult},
         {{QStringLiteral("direction"), QStringLiteral("sector"), QStringLiteral("axial")}, directionResult}}};
    return theSubjects;
}

/// The first option of a subject that was given; empty without any.
QString givenOption(const CommandInput& input, const Subject& subject)
{
    for (const QString& sOption : subject.m_lOptions) {
        if (input.isSet(sOption)) {
            return sOption;
        }
    }
    return {};
}

/// Runs the subject whose options were given; a message when they belong to none or to two.
CommandResult subjectResult(CommandInput& input)
{
    const Subject* pSubject = nullptr;
    QString sOption;
    for (const Subject& subject : subjects()) {
        const QString sOther = givenOption(input, subject);
        if (!sOther.isEmpty() && pSubject) {
            return CommandResult::badUsage(text("--%1 does not go with --%2").arg(sOther, sOption));
        }
        if (!sOther.isEmpty()) {
            pSubject = &subject;
            sOption = sOther;
        }
    }
    return pSubject
               ? pSubject->m_fnRun(input)
               : CommandResult::badUsage(text("give --attribute, --x with --y, --dip with --azimuth, or --direction"));
}

} // namespace

CommandResult runStatsCommand(const QStringList& lArguments)
{
    CommandInput input;
    input.parser().setApplicationDescription(
        text("Prints statistics: of an attribute, of the regression of one attribute on another (both in model units), "
             "of planes or lines, or of directions (in degrees)."));
    input.parser().addOptions(
        {{QStringLiteral("attribute"), text("The attribute."), QStringLiteral("NAME")},
         {QStringLiteral("interval"), text("Class size; chosen when absent."), QStringLiteral("X")},
         {QStringLiteral("x"), text("The attribute that explains, instead of --attribute."), QStringLiteral("NAME")},
         {QStringLiteral("y"), text("The attribute that depends on it."), QStringLiteral("NAME")}});
    addOrientationOptions(input.parser());
    input.parser().addOptions({{QStringLiteral("direction"), text("An attribute of azimuths."), QStringLiteral("NAME")},
                               sectorOption(),
                               {QStringLiteral("axial"), text("The directions are axes: opposite ones are the same.")},
                               {QStringLiteral("json"), text("Print JSON.")}});
    if (const auto oResult = input.parse(lArguments)) {
        return *oResult;
    }
    return subjectResult(input);
}

} // namespace gkHost
