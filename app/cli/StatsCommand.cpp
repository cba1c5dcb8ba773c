#include "StatsCommand.h"

#include "AttributeStatistics.h"
#include "CommandInput.h"
#include "CommandText.h"
#include "RegressionReport.h"

#include <gkBase/MissingValue.h>

#include <QJsonDocument>
#include <QJsonObject>

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
    if (!oError && (input.isSet(QStringLiteral("attribute")) || input.isSet(QStringLiteral("interval")))) {
        oError = CommandResult::badUsage(text("--x and --y go without --attribute and --interval"));
    }
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

} // namespace

CommandResult runStatsCommand(const QStringList& lArguments)
{
    CommandInput input;
    input.parser().setApplicationDescription(
        text("Prints the statistics of an attribute, or the regression of one on another, in model units."));
    input.parser().addOptions(
        {{QStringLiteral("attribute"), text("The attribute."), QStringLiteral("NAME")},
         {QStringLiteral("interval"), text("Class size; chosen when absent."), QStringLiteral("X")},
         {QStringLiteral("x"), text("The attribute that explains, instead of --attribute."), QStringLiteral("NAME")},
         {QStringLiteral("y"), text("The attribute that depends on it."), QStringLiteral("NAME")},
         {QStringLiteral("json"), text("Print JSON.")}});
    if (const auto oResult = input.parse(lArguments)) {
        return *oResult;
    }
    const bool bRegression = input.isSet(QStringLiteral("x")) || input.isSet(QStringLiteral("y"));
    return bRegression ? regressionResult(input) : attributeResult(input);
}

} // namespace gkHost
