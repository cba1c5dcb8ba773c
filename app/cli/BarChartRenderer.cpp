#include "BarChartRenderer.h"

#include "ChartOptions.h"
#include "CommandText.h"

#include <gkBase/QTRNBarChartWidget.h>

namespace gkHost {

namespace {

void addBarChartOptions(QCommandLineParser& parser)
{
    parser.addOptions(
        {{QStringLiteral("attribute"), text("The attribute whose classes are counted."), QStringLiteral("NAME")},
         {QStringLiteral("interval"), text("Class size of numbers in model units; chosen when absent."),
          QStringLiteral("X")},
         {QStringLiteral("type"), text("count or percent."), QStringLiteral("TYPE")},
         {QStringLiteral("sort"), text("name, value or count."), QStringLiteral("ORDER")},
         {QStringLiteral("no-missing"), text("No bar for records without a value.")}});
}

std::optional<CommandResult> renderBarChart(CommandInput& input, const QString& sPath, const QSize& oSize)
{
    std::optional<CommandResult> oError = input.require(QStringLiteral("attribute"));
    const auto oInterval = input.positiveNumber(QStringLiteral("interval"), oError);
    const int iType =
        input.choice(QStringLiteral("type"), {QStringLiteral("count"), QStringLiteral("percent")}, oError);
    const int iOrder = input.choice(QStringLiteral("sort"),
                                    {QStringLiteral("name"), QStringLiteral("value"), QStringLiteral("count")}, oError);
    const bool bBlack = blackBackground(input, oError);
    gkBase::MatrixData* poAttribute = loadedAttribute(input, oInterval.has_value(), oError);
    if (!poAttribute)
        return oError;

    gkBase::QTRNBarChartWidget panel;
    panel.setDataRoot(&input.root());
    panel.setDataSet(poAttribute);
    if (oInterval)
        panel.setIntervalSize(*oInterval);
    panel.setPercent(iType == 1);
    panel.setOrder(static_cast<gkBase::BarDiagramClasses::Order>(iOrder));
    panel.setShowMissing(!input.isSet(QStringLiteral("no-missing")));
    panel.setBlackBackground(bBlack);
    return exported(panel, sPath, oSize);
}

} // namespace

ChartRenderer barChartRenderer()
{
    return {QStringLiteral("barchart"), addBarChartOptions, renderBarChart};
}

} // namespace gkHost
