#include "StereonetRenderer.h"

#include "ChartOptions.h"
#include "CommandText.h"
#include "OrientationInput.h"
#include "StereoOptions.h"

#include <gkBase/QStereoChartWidget.h>

namespace gkHost {

namespace {

void addStereonetOptions(QCommandLineParser& parser)
{
    addOrientationOptions(parser);
    parser.addOption(projectionOption());
    addStereoOptions(parser);
}

std::optional<CommandResult> renderStereonet(CommandInput& input, const QString& sPath, const QSize& oSize)
{
    std::optional<CommandResult> oError;
    gkBase::StereoNetSettings settings = stereoSettings(input, oError);
    settings.m_bEqualArea = projectionLayout(input, oError) == gkBase::NetLayout::EqualArea;
    gkBase::QStereoChartWidget panel;
    oError = showOrientations(panel, input, settings, oError);
    return oError ? oError : exported(panel, sPath, oSize);
}

} // namespace

ChartRenderer stereonetRenderer()
{
    return {QStringLiteral("stereonet"), addStereonetOptions, renderStereonet};
}

} // namespace gkHost
