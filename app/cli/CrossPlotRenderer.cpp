#include "CrossPlotRenderer.h"

#include "ChartOptions.h"
#include "CommandText.h"

#include <gkBase/QCrossPlotWidget.h>

namespace gkHost {

namespace {

void addCrossPlotOptions(QCommandLineParser& parser)
{
    parser.addOptions(
        {{QStringLiteral("x"), text("The attribute along the horizontal axis."), QStringLiteral("NAME")},
         {QStringLiteral("y"), text("The attribute along the vertical axis."), QStringLiteral("NAME")},
         {QStringLiteral("color-by"), text("The attribute that colours the points."), QStringLiteral("NAME")},
         {QStringLiteral("symbol-by"), text("The attribute that gives the symbols."), QStringLiteral("NAME")},
         {QStringLiteral("regression"), text("Draw the line of the regression of y over x.")}});
}

std::optional<CommandResult> renderCrossPlot(CommandInput& input, const QString& sPath, const QSize& oSize)
{
    std::optional<CommandResult> oError = input.require(QStringList{QStringLiteral("x"), QStringLiteral("y")});
    const bool bBlack = blackBackground(input, oError);
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
    panel.setBlackBackground(bBlack);
    return exported(panel, sPath, oSize);
}

} // namespace

ChartRenderer crossPlotRenderer()
{
    return {QStringLiteral("crossplot"), addCrossPlotOptions, renderCrossPlot};
}

} // namespace gkHost
