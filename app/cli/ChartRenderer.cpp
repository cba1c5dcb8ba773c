#include "ChartRenderer.h"

#include <gkBase/MissingValue.h>
#include <gkBase/QHistogramChartWidget.h>

#include <QCoreApplication>

namespace gkHost {

namespace {

QString text(const char* pText)
{
    return QCoreApplication::translate("CommandLine", pText);
}

/// The index of the word that an option holds among its choices; −1 with a message for any other word.
int choice(const CommandInput& input, const QString& sOption, const QStringList& lChoices,
           std::optional<CommandResult>& oError)
{
    if (!input.isSet(sOption))
        return 0;
    const qsizetype i = lChoices.indexOf(input.value(sOption));
    if (i < 0)
        oError = CommandResult::badUsage(
            text("--%1: \"%2\" is none of %3").arg(sOption, input.value(sOption), lChoices.join(QLatin1String(", "))));
    return static_cast<int>(i);
}

void addHistogramOptions(QCommandLineParser& parser)
{
    parser.addOptions(
        {{QStringLiteral("attribute"), text("The attribute that is counted."), QStringLiteral("NAME")},
         {QStringLiteral("interval"), text("Class size in model units; chosen when absent."), QStringLiteral("X")},
         {QStringLiteral("type"), text("frequency, relative or cumulative."), QStringLiteral("TYPE")}});
}

std::optional<CommandResult> renderHistogram(CommandInput& input, const QString& sPath, const QSize& oSize)
{
    std::optional<CommandResult> oError = input.require(QStringLiteral("attribute"));
    const auto oInterval = input.positiveNumber(QStringLiteral("interval"), oError);
    const int iType =
        choice(input, QStringLiteral("type"),
               {QStringLiteral("frequency"), QStringLiteral("relative"), QStringLiteral("cumulative")}, oError);
    const int iBackground =
        choice(input, QStringLiteral("background"), {QStringLiteral("white"), QStringLiteral("black")}, oError);
    if (!oError)
        oError = input.load();
    if (oError)
        return oError;
    gkBase::MatrixData* poAttribute = input.numericAttribute(input.value(QStringLiteral("attribute")), oError);
    if (!poAttribute)
        return oError;

    gkBase::QHistogramChartWidget panel;
    panel.setDataRoot(&input.root());
    panel.setHistogramType(iType);
    panel.setDataSet(poAttribute);
    if (oInterval)
        panel.setIntervalSize(*oInterval);
    panel.setBlackBackground(iBackground == 1);
    QString sError;
    if (!panel.exportChart(sPath, oSize, &sError))
        return CommandResult::badInput(sError);
    return std::nullopt;
}

} // namespace

const std::vector<ChartRenderer>& chartRenderers()
{
    static const std::vector<ChartRenderer> vRenderers = {
        {QStringLiteral("histogram"), addHistogramOptions, renderHistogram},
    };
    return vRenderers;
}

} // namespace gkHost
