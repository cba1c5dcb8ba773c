#include "StereoOptions.h"

#include "ChartOptions.h"
#include "CommandText.h"
#include "OrientationInput.h"

#include <gkBase/QStereoChartWidget.h>

namespace gkHost {

namespace {

/// Nodes of the grid each way: the four cells about a node cover about 1 % of the net, the counting area that most
/// published contour diagrams have.
constexpr int g_iNodes = 25;

/// A word of --results and what it shows of planes and of lines.
struct ResultWord
{
    const char* m_pWord;
    std::vector<gkBase::StereoResult> m_vOfPlanes;
    std::vector<gkBase::StereoResult> m_vOfLines;
};

const std::vector<ResultWord>& resultWords()
{
    using Result = gkBase::StereoResult;
    static const std::vector<ResultWord> vWords = {
        {"mean", {Result::MeanResultantPole, Result::MeanResultantPlane}, {Result::MeanResultantAzimuth}},
        {"principal", {Result::MeanPrincipalPole, Result::MeanPrincipalPlane}, {Result::MeanPrincipalAzimuth}},
        {"girdle", {Result::BestFitGirdle}, {Result::BestFitGirdle}},
        {"T", {Result::TPole}, {Result::TAzimuth}},
        {"L", {Result::LPole}, {Result::LAzimuth}},
        {"section", {Result::SuggestedSectionPlane}, {Result::SuggestedSectionPlane}},
    };
    return vWords;
}

QStringList resultNames()
{
    QStringList lNames;
    for (const ResultWord& word : resultWords()) {
        lNames << QLatin1String(word.m_pWord);
    }
    return lNames;
}

void showResults(const CommandInput& input, gkBase::StereoNetSettings& settings, std::optional<CommandResult>& oError)
{
    const QString sResults = QStringLiteral("results");
    const QStringList lNames = resultNames();
    for (const QString& sName : input.names(sResults)) {
        const qsizetype i = lNames.indexOf(sName);
        if (i < 0) {
            oError = CommandResult::badUsage(
                text("--results: \"%1\" is none of %2").arg(sName, lNames.join(QLatin1String(", "))));
            return;
        }
        const ResultWord& word = resultWords()[static_cast<std::size_t>(i)];
        const bool bLines = input.isSet(QStringLiteral("lines"));
        for (const gkBase::StereoResult eResult : bLines ? word.m_vOfLines : word.m_vOfPlanes) {
            settings.result(eResult).m_bShow = true;
        }
    }
}

/// --grid N, which goes with --contours only.
int gridNodes(const CommandInput& input, std::optional<CommandResult>& oError)
{
    constexpr int iFewest = gkBase::StereoNetSettings::s_iFewestNodes;
    constexpr int iMost = gkBase::StereoNetSettings::s_iMostNodes;
    const int iNodes = input.wholeNumber(QStringLiteral("grid"), oError).value_or(g_iNodes);
    if (!oError && (iNodes < iFewest || iNodes > iMost)) {
        oError = CommandResult::badUsage(text("--grid: %1 is not from %2 to %3").arg(iNodes).arg(iFewest).arg(iMost));
    }
    return iNodes;
}

} // namespace

void addStereoOptions(QCommandLineParser& parser)
{
    parser.addOptions(
        {{QStringLiteral("contours"), text("Densities in per cent of the records, with a legend.")},
         {QStringLiteral("grid"), text("Nodes of their grid each way; 25 when absent."), QStringLiteral("N")},
         {QStringLiteral("planes"), text("Great circles of the planes.")},
         {QStringLiteral("no-points"), text("No points.")},
         {QStringLiteral("net"), text("The 10 degrees net.")},
         {QStringLiteral("results"),
          text("Results with their labels: %1. L of planes is the fold axis.")
              .arg(resultNames().join(QLatin1String(", "))),
          QStringLiteral("A,B")},
         {QStringLiteral("color-by"), text("The attribute that colours the points."), QStringLiteral("NAME")}});
}

gkBase::StereoNetSettings stereoSettings(const CommandInput& input, std::optional<CommandResult>& oError)
{
    gkBase::StereoNetSettings settings;
    settings.m_iProjectionTarget = input.isSet(QStringLiteral("lines")) ? 1 : 0;
    const bool bContours = input.isSet(QStringLiteral("contours"));
    settings.m_bContourLines = bContours;
    settings.m_bContourFill = bContours;
    settings.m_bContourColorFill = bContours;
    if (bContours) {
        settings.m_oPointColor = Qt::black; // seen on all colours of the map but the lowest, where few points lie
    }
    settings.m_iNodes = gridNodes(input, oError);
    settings.m_bGreatCircles = input.isSet(QStringLiteral("planes"));
    settings.m_bPoints = !input.isSet(QStringLiteral("no-points"));
    settings.m_bCoarseNet = input.isSet(QStringLiteral("net"));
    showResults(input, settings, oError);
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
    convertToDegrees(orientations);
    panel.setDataRoot(&input.root());
    panel.setAttributes(orientations.m_poAngle, orientations.m_poAzimuth, !orientations.isPlanes());
    panel.setColorAttribute(poColor);
    panel.setSettings(settings);
    panel.setBlackBackground(bBlack);
    return std::nullopt;
}

} // namespace gkHost
