#include "StereonetRenderer.h"

#include "ChartOptions.h"
#include "CommandText.h"
#include "NetOptions.h"
#include "OrientationInput.h"

#include <gkBase/QStereoChartWidget.h>

namespace gkHost {

namespace {

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

void addStereonetOptions(QCommandLineParser& parser)
{
    addOrientationOptions(parser);
    parser.addOption(projectionOption());
    addNetOptions(parser);
    parser.addOptions({{QStringLiteral("results"),
                        text("Results with their labels: %1. L of planes is the fold axis.")
                            .arg(resultNames().join(QLatin1String(", "))),
                        QStringLiteral("A,B")}});
}

std::optional<CommandResult> renderStereonet(CommandInput& input, const QString& sPath, const QSize& oSize)
{
    std::optional<CommandResult> oError;
    gkBase::StereoNetSettings settings = netSettings(input, oError);
    showResults(input, settings, oError);
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
