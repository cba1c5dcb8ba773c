#include "DepthPlotRenderer.h"

#include "ChartOptions.h"
#include "CommandText.h"

#include <gkBase/QDepthPlotWidget.h>

namespace gkHost {

namespace {

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
    const bool bBlack = blackBackground(input, oError);
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
    panel.setBlackBackground(bBlack);
    return exported(panel, sPath, oSize);
}

} // namespace

ChartRenderer depthPlotRenderer()
{
    return {QStringLiteral("depthplot"), addDepthPlotOptions, renderDepthPlot};
}

} // namespace gkHost
