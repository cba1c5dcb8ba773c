#include "TangentRenderer.h"

#include "ChartOptions.h"
#include "CommandText.h"
#include "NetOptions.h"
#include "OrientationInput.h"

#include <gkBase/MissingValue.h>
#include <gkBase/OrientationText.h>
#include <gkBase/QTangentChartWidget.h>

namespace gkHost {

namespace {

constexpr double g_dSmallestAngle = 10.0;
constexpr double g_dLargestAngle = 85.0;

void addTangentOptions(QCommandLineParser& parser)
{
    addOrientationOptions(parser);
    addNetOptions(parser);
    parser.addOptions(
        {{QStringLiteral("maximum-angle"), text("The dip at the rim, 10 to 85; 60 when absent."), QStringLiteral("A")},
         {QStringLiteral("fold-axis"), text("Show the fold axis that fits the planes, and print it.")}});
}

double maximumAngle(const CommandInput& input, std::optional<CommandResult>& oError)
{
    const double dAngle = input.positiveNumber(QStringLiteral("maximum-angle"), oError)
                              .value_or(gkBase::NetProjection::s_dDefaultMaximumAngle);
    if (!oError && (dAngle < g_dSmallestAngle || dAngle > g_dLargestAngle))
        oError = CommandResult::badUsage(
            text("--maximum-angle: %1 is not from %2 to %3").arg(dAngle).arg(g_dSmallestAngle).arg(g_dLargestAngle));
    return dAngle;
}

/// Shows the axis; tells what it is, or that there is none.
QString showFoldAxis(gkBase::QTangentChartWidget& panel)
{
    const gkBase::TangentFit oFit = panel.fit();
    if (gkBase::isMissing(oFit.m_oFoldAxis.m_dPlunge))
        return text("no fold axis fits %1 planes\n").arg(oFit.m_iCount);
    panel.setFoldAxisToFit();
    panel.slotShowFoldAxisToggled(true);
    return text("fold axis %1 (plunge/azimuth) fits %2 planes, %3 are too steep to count\n")
        .arg(gkBase::lineText(oFit.m_oFoldAxis))
        .arg(oFit.m_iCount)
        .arg(oFit.m_iTooSteep);
}

std::optional<CommandResult> renderTangent(CommandInput& input, const QString& sPath, const QSize& oSize)
{
    std::optional<CommandResult> oError;
    gkBase::StereoNetSettings settings = netSettings(input, oError);
    settings.m_iProjectionTarget = 1; // planes plot by their dips
    settings.m_dMaximumAngle = maximumAngle(input, oError);
    const bool bFoldAxis = input.isSet(QStringLiteral("fold-axis"));
    if (!oError && bFoldAxis && input.isSet(QStringLiteral("lines")))
        oError = CommandResult::badUsage(text("--fold-axis does not go with --lines"));
    gkBase::QTangentChartWidget panel;
    oError = showOrientations(panel, input, settings, oError);
    if (oError)
        return oError;
    const QString sAxis = bFoldAxis ? showFoldAxis(panel) : QString();
    return exported(panel, sPath, oSize).value_or(CommandResult::ok(sAxis));
}

} // namespace

ChartRenderer tangentRenderer()
{
    return {QStringLiteral("tangent"), addTangentOptions, renderTangent};
}

} // namespace gkHost
