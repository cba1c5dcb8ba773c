#include "NetOptions.h"

#include "ChartOptions.h"
#include "CommandText.h"
#include "OrientationInput.h"

#include <gkBase/QStereoChartWidget.h>

namespace gkHost {

namespace {

/// --grid N, which goes with --contours only.
int gridNodes(const CommandInput& input, std::optional<CommandResult>& oError)
{
    constexpr int iFewest = gkBase::StereoNetSettings::s_iFewestNodes;
    constexpr int iMost = gkBase::StereoNetSettings::s_iMostNodes;
    const int iNodes =
        input.wholeNumber(QStringLiteral("grid"), oError).value_or(gkBase::StereoNetSettings::s_iDefaultNodes);
    if (!oError && (iNodes < iFewest || iNodes > iMost)) {
        oError = CommandResult::badUsage(text("--grid: %1 is not from %2 to %3").arg(iNodes).arg(iFewest).arg(iMost));
    }
    return iNodes;
}

} // namespace

void addNetOptions(QCommandLineParser& parser)
{
    parser.addOptions(
        {{QStringLiteral("contours"), text("Densities in per cent of the records, with a legend.")},
         {QStringLiteral("grid"),
          text("Nodes of their grid each way; %1 when absent.").arg(gkBase::StereoNetSettings::s_iDefaultNodes),
          QStringLiteral("N")},
         {QStringLiteral("planes"), text("Great circles of the planes.")},
         {QStringLiteral("no-points"), text("No points.")},
         {QStringLiteral("net"), text("The 10 degrees net.")},
         {QStringLiteral("color-by"), text("The attribute that colours the points."), QStringLiteral("NAME")}});
}

gkBase::StereoNetSettings netSettings(const CommandInput& input, std::optional<CommandResult>& oError)
{
    gkBase::StereoNetSettings settings;
    settings.m_iProjectionTarget = input.isSet(QStringLiteral("lines")) ? 1 : 0;
    const bool bContours = input.isSet(QStringLiteral("contours"));
    settings.m_bContourLines = bContours;
    settings.m_bContourFill = bContours;
    settings.m_bContourColorFill = bContours;
    settings.m_iNodes = gridNodes(input, oError);
    settings.m_bPoints = !input.isSet(QStringLiteral("no-points"));
    settings.m_bCoarseNet = input.isSet(QStringLiteral("net"));
    settings.m_bGreatCircles = input.isSet(QStringLiteral("planes"));
    if (!oError && settings.m_bGreatCircles && settings.m_iProjectionTarget == 1) {
        oError = CommandResult::badUsage(text("--planes does not go with --lines"));
    }
    return settings;
}

std::optional<CommandResult> showOrientations(gkBase::QStereoChartWidget& panel, CommandInput& input,
                                              gkBase::StereoNetSettings settings, std::optional<CommandResult> oError)
{
    const bool bBlack = blackBackground(input, oError);
    const OrientationInput orientations = loadedOrientations(input, oError);
    gkBase::MatrixData* poColor =
        oError ? nullptr : classAttribute(input, QStringLiteral("color-by"), *orientations.m_poAngle, oError);
    if (oError) {
        return oError;
    }
    if (settings.m_bContourFill) {
        // Seen on the background and on the colours of the map.
        settings.m_oPointColor = bBlack ? Qt::white : Qt::black;
    }
    panel.setDataRoot(&input.root());
    panel.setAttributes(orientations.m_poAngle, orientations.m_poAzimuth, !orientations.isPlanes());
    panel.setColorAttribute(poColor);
    panel.setSettings(settings);
    panel.setBlackBackground(bBlack);
    return std::nullopt;
}

} // namespace gkHost
