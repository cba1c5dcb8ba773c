#include "ScatRenderer.h"

#include "ChartOptions.h"
#include "CommandText.h"
#include "ScatInput.h"

#include <gkBase/DepthLineField.h>
#include <gkBase/QScatDepthPlotWidget.h>

namespace gkHost {

namespace {

void addScatChartOptions(QCommandLineParser& parser)
{
    addScatOptions(parser);
    parser.addOption(
        {QStringLiteral("scenario"), text("A file of interpreted lines to show."), QStringLiteral("FILE")});
}

std::optional<CommandResult> renderScat(CommandInput& input, const QString& sPath, const QSize& oSize)
{
    std::optional<CommandResult> oError;
    const bool bBlack = blackBackground(input, oError);
    const ScatInput scat = loadedScatInput(input, oError);
    if (oError) {
        return oError;
    }
    if (gkBase::isMissing(scat.m_dTransverse)) {
        return CommandResult::badInput(text("%1: the planes do not tell T; give it with --t").arg(input.filePath()));
    }
    gkBase::QScatDepthPlotWidget panel;
    panel.setDataRoot(&input.root());
    panel.setAttributes(scat.m_poDepth, scat.m_poDip, scat.m_poAzimuth);
    panel.setDirections(scat.m_dTransverse, scat.m_dLongitudinal);
    panel.setBlackBackground(bBlack);
    if (!input.isSet(QStringLiteral("scenario"))) {
        return exported(panel, sPath, oSize);
    }
    const QString sScenario = input.value(QStringLiteral("scenario"));
    QString sError;
    if (!panel.importScenario(sScenario, &sError)) {
        return CommandResult::badInput(sError);
    }
    if (auto oFailure = exported(panel, sPath, oSize)) {
        return oFailure;
    }
    if (panel.structuralTops() && panel.structuralTops()->count() > 0) {
        return std::nullopt;
    }
    return CommandResult::warned(text("warning: %1 holds no line of a scenario").arg(sScenario));
}

} // namespace

ChartRenderer scatRenderer()
{
    return {QStringLiteral("scat"), addScatChartOptions, renderScat};
}

} // namespace gkHost
