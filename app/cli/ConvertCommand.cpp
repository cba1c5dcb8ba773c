#include "ConvertCommand.h"

#include "CommandInput.h"
#include "CommandText.h"
#include "CsvOutput.h"

namespace gkHost {

CommandResult runConvertCommand(const QStringList& lArguments)
{
    CommandInput input;
    input.parser().setApplicationDescription(text("Writes all data sets of a file as CSV with full precision."));
    input.parser().addOptions(
        {{QStringLiteral("out"), text("The CSV file to write."), QStringLiteral("PATH")},
         {QStringLiteral("report"), text("Write the import report here."), QStringLiteral("PATH")}});
    if (const auto oResult = input.parse(lArguments))
        return *oResult;

    std::optional<CommandResult> oError = input.require(QStringLiteral("out"));
    if (!oError)
        oError = input.load();
    if (oError)
        return *oError;

    QString sError;
    if (input.isSet(QStringLiteral("report")) && !input.report().save(input.value(QStringLiteral("report")), &sError))
        return CommandResult::badInput(sError);
    return writeCsv(input.root(), input.value(QStringLiteral("out"))).value_or(CommandResult::ok());
}

} // namespace gkHost
