#include "StatsCommand.h"

#include "AttributeStatistics.h"
#include "CommandInput.h"

#include <gkBase/MissingValue.h>

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

namespace gkHost {

CommandResult runStatsCommand(const QStringList& lArguments)
{
    CommandInput input;
    const auto text = [](const char* pText) { return QCoreApplication::translate("CommandLine", pText); };
    input.parser().setApplicationDescription(text("Prints the statistics of an attribute, in model units."));
    input.parser().addOptions(
        {{QStringLiteral("attribute"), text("The attribute."), QStringLiteral("NAME")},
         {QStringLiteral("interval"), text("Class size; chosen when absent."), QStringLiteral("X")},
         {QStringLiteral("json"), text("Print JSON.")}});
    if (const auto oResult = input.parse(lArguments))
        return *oResult;

    std::optional<CommandResult> oError = input.require(QStringLiteral("attribute"));
    const double dInterval = input.positiveNumber(QStringLiteral("interval"), oError).value_or(gkBase::g_dMissingValue);
    if (!oError)
        oError = input.load();
    if (oError)
        return *oError;
    const gkBase::MatrixData* poAttribute = input.numericAttribute(input.value(QStringLiteral("attribute")), oError);
    if (!poAttribute)
        return *oError;

    const AttributeStatistics statistics = attributeStatistics(*poAttribute, dInterval);
    if (input.isSet(QStringLiteral("json")))
        return CommandResult::ok(QString::fromUtf8(QJsonDocument(statistics.toJson()).toJson()));
    return CommandResult::ok(statistics.toText());
}

} // namespace gkHost
