#include "HistogramRenderer.h"

#include "ChartOptions.h"
#include "CommandText.h"

#include <gkBase/QHistogramChartWidget.h>

namespace gkHost {

namespace {

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
        input.choice(QStringLiteral("type"),
                     {QStringLiteral("frequency"), QStringLiteral("relative"), QStringLiteral("cumulative")}, oError);
    const bool bBlack = blackBackground(input, oError);
    gkBase::MatrixData* poAttribute = loadedAttribute(input, true, oError);
    if (!poAttribute)
        return oError;

    gkBase::QHistogramChartWidget panel;
    panel.setDataRoot(&input.root());
    panel.setHistogramType(iType);
    panel.setDataSet(poAttribute);
    if (oInterval)
        panel.setIntervalSize(*oInterval);
    panel.setBlackBackground(bBlack);
    return exported(panel, sPath, oSize);
}

void addProbabilityOptions(QCommandLineParser& parser)
{
    parser.addOption(
        {QStringLiteral("attribute"), text("The attribute whose values are plotted."), QStringLiteral("NAME")});
}

std::optional<CommandResult> renderProbability(CommandInput& input, const QString& sPath, const QSize& oSize)
{
    std::optional<CommandResult> oError = input.require(QStringLiteral("attribute"));
    const bool bBlack = blackBackground(input, oError);
    gkBase::MatrixData* poAttribute = loadedAttribute(input, true, oError);
    if (!poAttribute)
        return oError;

    gkBase::QHistogramChartWidget panel;
    panel.setDataRoot(&input.root());
    panel.setHistogramType(gkBase::QHistogramChartWidget::s_iNormalProbability);
    panel.setDataSet(poAttribute);
    panel.setBlackBackground(bBlack);
    return exported(panel, sPath, oSize);
}

} // namespace

ChartRenderer histogramRenderer()
{
    return {QStringLiteral("histogram"), addHistogramOptions, renderHistogram};
}

ChartRenderer probabilityRenderer()
{
    return {QStringLiteral("probability"), addProbabilityOptions, renderProbability};
}

} // namespace gkHost
