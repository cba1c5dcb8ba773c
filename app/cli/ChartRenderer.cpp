#include "ChartRenderer.h"

#include <gkBase/MissingValue.h>
#include <gkBase/QCrossPlotWidget.h>
#include <gkBase/QDepthPlotWidget.h>
#include <gkBase/QHistogramChartWidget.h>
#include <gkBase/QTRNBarChartWidget.h>

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

/// 0 for white, 1 for black.
int background(const CommandInput& input, std::optional<CommandResult>& oError)
{
    return choice(input, QStringLiteral("background"), {QStringLiteral("white"), QStringLiteral("black")}, oError);
}

/// Loads the file and finds --attribute, of numbers if need be; null with a message, that of an earlier error first.
gkBase::MatrixData* loadedAttribute(CommandInput& input, bool bNumeric, std::optional<CommandResult>& oError)
{
    if (!oError)
        oError = input.load();
    if (oError)
        return nullptr;
    const QString sName = input.value(QStringLiteral("attribute"));
    return bNumeric ? input.numericAttribute(sName, oError) : input.attribute(sName, oError);
}

template <typename Panel>
std::optional<CommandResult> exported(Panel& panel, const QString& sPath, const QSize& oSize)
{
    QString sError;
    if (!panel.exportChart(sPath, oSize, &sError))
        return CommandResult::badInput(sError);
    return std::nullopt;
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
    const int iBackground = background(input, oError);
    gkBase::MatrixData* poAttribute = loadedAttribute(input, true, oError);
    if (!poAttribute)
        return oError;

    gkBase::QHistogramChartWidget panel;
    panel.setDataRoot(&input.root());
    panel.setHistogramType(iType);
    panel.setDataSet(poAttribute);
    if (oInterval)
        panel.setIntervalSize(*oInterval);
    panel.setBlackBackground(iBackground == 1);
    return exported(panel, sPath, oSize);
}

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
        choice(input, QStringLiteral("type"), {QStringLiteral("count"), QStringLiteral("percent")}, oError);
    const int iOrder = choice(input, QStringLiteral("sort"),
                              {QStringLiteral("name"), QStringLiteral("value"), QStringLiteral("count")}, oError);
    const int iBackground = background(input, oError);
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
    panel.setBlackBackground(iBackground == 1);
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
    const int iBackground = background(input, oError);
    gkBase::MatrixData* poAttribute = loadedAttribute(input, true, oError);
    if (!poAttribute)
        return oError;

    gkBase::QHistogramChartWidget panel;
    panel.setDataRoot(&input.root());
    panel.setHistogramType(gkBase::QHistogramChartWidget::s_iNormalProbability);
    panel.setDataSet(poAttribute);
    panel.setBlackBackground(iBackground == 1);
    return exported(panel, sPath, oSize);
}

void addDepthPlotOptions(QCommandLineParser& parser)
{
    parser.addOptions(
        {{QStringLiteral("depth"), text("The depth."), QStringLiteral("NAME")},
         {QStringLiteral("tracks"), text("Attributes for curves, from left to right."), QStringLiteral("A,B,…")},
         {QStringLiteral("tadpoles"), text("Dip and azimuth of a tadpole track."), QStringLiteral("DIP,AZIMUTH")}});
}

std::optional<CommandResult> renderDepthPlot(CommandInput& input, const QString& sPath, const QSize& oSize)
{
    std::optional<CommandResult> oError = input.require(QStringLiteral("depth"));
    const int iBackground = background(input, oError);
    const QStringList lTracks = input.names(QStringLiteral("tracks"));
    const QStringList lTadpoles = input.names(QStringLiteral("tadpoles"));
    if (!oError && lTracks.isEmpty() && lTadpoles.isEmpty())
        oError = CommandResult::badUsage(text("--tracks or --tadpoles must be given"));
    if (!oError && !lTadpoles.isEmpty() && lTadpoles.size() != 2)
        oError = CommandResult::badUsage(text("--tadpoles takes a dip and an azimuth"));
    if (!oError)
        oError = input.load();
    if (oError)
        return oError;
    const std::vector<gkBase::MatrixData*> vpAttributes =
        input.numericAttributes(QStringList{input.value(QStringLiteral("depth"))} + lTadpoles + lTracks, oError);
    if (vpAttributes.empty())
        return oError;

    const auto vpTracks = vpAttributes.begin() + 1 + lTadpoles.size();
    gkBase::QDepthPlotWidget panel;
    panel.setDataRoot(&input.root());
    panel.chooseDataSet(vpAttributes.front());
    panel.setDepthAttribute(vpAttributes.front());
    panel.setTracks({vpTracks, vpAttributes.end()});
    if (!lTadpoles.isEmpty())
        panel.setTadpoles(vpAttributes[1], vpAttributes[2]);
    panel.setBlackBackground(iBackground == 1);
    return exported(panel, sPath, oSize);
}

void addCrossPlotOptions(QCommandLineParser& parser)
{
    parser.addOptions(
        {{QStringLiteral("x"), text("The attribute along the horizontal axis."), QStringLiteral("NAME")},
         {QStringLiteral("y"), text("The attribute along the vertical axis."), QStringLiteral("NAME")},
         {QStringLiteral("color-by"), text("The attribute that colours the points."), QStringLiteral("NAME")},
         {QStringLiteral("symbol-by"), text("The attribute that gives the symbols."), QStringLiteral("NAME")},
         {QStringLiteral("regression"), text("Draw the line of the regression of y over x.")}});
}

/// The attribute that an option names, for as many records as the points have; null when it is absent, and with a
/// message.
gkBase::MatrixData* classAttribute(const CommandInput& input, const QString& sOption, const gkBase::MatrixData& points,
                                   std::optional<CommandResult>& oError)
{
    if (oError || !input.isSet(sOption))
        return nullptr;
    const QString sName = input.value(sOption);
    // The same name in several data sets means the one that the points are from.
    const QString sBesidePoints = points.owner()->name() + QLatin1String(": ") + sName;
    std::optional<CommandResult> oNotThere;
    gkBase::MatrixData* poAttribute = input.attribute(sBesidePoints, oNotThere);
    if (!poAttribute)
        poAttribute = input.attribute(sName, oError);
    if (!poAttribute || poAttribute->recordCount() == points.recordCount())
        return poAttribute;
    oError = CommandResult::badInput(text("%1: \"%2\" and \"%3\" belong to data sets of different length")
                                         .arg(input.filePath(), points.name(), sName));
    return nullptr;
}

std::optional<CommandResult> renderCrossPlot(CommandInput& input, const QString& sPath, const QSize& oSize)
{
    std::optional<CommandResult> oError = input.require(QStringList{QStringLiteral("x"), QStringLiteral("y")});
    const int iBackground = background(input, oError);
    if (!oError)
        oError = input.load();
    if (oError)
        return oError;
    const std::vector<gkBase::MatrixData*> vpAxes =
        input.numericAttributes({input.value(QStringLiteral("x")), input.value(QStringLiteral("y"))}, oError);
    if (vpAxes.empty())
        return oError;
    gkBase::MatrixData* poColor = classAttribute(input, QStringLiteral("color-by"), *vpAxes[0], oError);
    gkBase::MatrixData* poSymbol = classAttribute(input, QStringLiteral("symbol-by"), *vpAxes[0], oError);
    if (oError)
        return oError;

    gkBase::QCrossPlotWidget panel;
    panel.setDataRoot(&input.root());
    panel.setAttributes(vpAxes[0], vpAxes[1]);
    panel.setColorAttribute(poColor);
    panel.setSymbolAttribute(poSymbol);
    panel.setShowRegressionLine(input.isSet(QStringLiteral("regression")));
    panel.setBlackBackground(iBackground == 1);
    return exported(panel, sPath, oSize);
}

} // namespace

const std::vector<ChartRenderer>& chartRenderers()
{
    static const std::vector<ChartRenderer> vRenderers = {
        {QStringLiteral("histogram"), addHistogramOptions, renderHistogram},
        {QStringLiteral("barchart"), addBarChartOptions, renderBarChart},
        {QStringLiteral("probability"), addProbabilityOptions, renderProbability},
        {QStringLiteral("crossplot"), addCrossPlotOptions, renderCrossPlot},
        {QStringLiteral("depthplot"), addDepthPlotOptions, renderDepthPlot},
    };
    return vRenderers;
}

} // namespace gkHost
