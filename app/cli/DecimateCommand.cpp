#include "DecimateCommand.h"

#include "CommandInput.h"
#include "CommandText.h"
#include "CsvOutput.h"
#include "DepthDecimation.h"

#include <gkBase/MissingValue.h>

#include <QFileInfo>

namespace gkHost {

namespace {

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        text("Averages attributes in intervals of depth and writes one record per interval as CSV: its centre, the "
             "number of records and the means; of a dip and an azimuth the mean direction. All in model units."));
    parser.addOptions(
        {{QStringLiteral("depth"), text("The depth attribute."), QStringLiteral("NAME")},
         {QStringLiteral("step"), text("Size of the intervals."), QStringLiteral("X")},
         {QStringLiteral("bins"), text("Number of intervals."), QStringLiteral("N")},
         {QStringLiteral("from"), text("Where they begin; the least depth when absent."), QStringLiteral("A")},
         {QStringLiteral("to"), text("Where they end; the greatest depth when absent."), QStringLiteral("B")},
         {QStringLiteral("columns"), text("The attributes to average."), QStringLiteral("A,B")},
         {QStringLiteral("out"), text("The CSV file to write."), QStringLiteral("PATH")}});
}

/// What --step, --bins, --from and --to say.
struct Intervals
{
    std::optional<double> m_oStep;
    std::optional<int> m_oBins;
    std::optional<double> m_oFrom;
    std::optional<double> m_oTo;
};

Intervals intervalsOf(const CommandInput& input, std::optional<CommandResult>& oError)
{
    Intervals intervals;
    intervals.m_oStep = input.positiveNumber(QStringLiteral("step"), oError);
    intervals.m_oBins = input.wholeNumber(QStringLiteral("bins"), oError);
    intervals.m_oFrom = input.number(QStringLiteral("from"), oError);
    intervals.m_oTo = input.number(QStringLiteral("to"), oError);
    if (!oError && input.isSet(QStringLiteral("step")) == input.isSet(QStringLiteral("bins"))) {
        oError = CommandResult::badUsage(text("give either --step or --bins"));
    }
    if (!oError && intervals.m_oFrom && intervals.m_oTo && *intervals.m_oFrom >= *intervals.m_oTo) {
        oError = CommandResult::badUsage(text("--from must be less than --to"));
    }
    return intervals;
}

/// The bins over the range that the arguments or the depths give. oError gets a message when there are none, or more
/// than an interval filter has lines for.
gkBase::IntervalBins binsOf(const Intervals& intervals, const gkBase::MatrixData& depth, const QString& sFile,
                            std::optional<CommandResult>& oError)
{
    double dMin = 0.0;
    double dMax = 0.0;
    depth.getMinMax(dMin, dMax);
    dMin = intervals.m_oFrom.value_or(dMin);
    dMax = intervals.m_oTo.value_or(dMax);
    if (gkBase::isMissing(dMin) || gkBase::isMissing(dMax) || dMin >= dMax) {
        oError = CommandResult::badInput(
            text("%1: the attribute \"%2\" has no range of depths to cut into intervals").arg(sFile, depth.name()));
        return {};
    }
    const double dBins = intervals.m_oBins ? *intervals.m_oBins : (dMax - dMin) / *intervals.m_oStep;
    if (dBins > gkBase::g_iMaximumIntervalLines - 1) {
        oError =
            CommandResult::badUsage(text("these are more than %1 intervals").arg(gkBase::g_iMaximumIntervalLines - 1));
        return {};
    }
    return gkBase::IntervalBins(intervals.m_oBins ? gkBase::numberOfIntervals(*intervals.m_oBins, dMin, dMax)
                                                  : gkBase::equalIntervals(*intervals.m_oStep, dMin, dMax));
}

} // namespace

CommandResult runDecimateCommand(const QStringList& lArguments)
{
    CommandInput input;
    addOptions(input.parser());
    if (const auto oResult = input.parse(lArguments)) {
        return *oResult;
    }
    std::optional<CommandResult> oError =
        input.require({QStringLiteral("depth"), QStringLiteral("columns"), QStringLiteral("out")});
    const QStringList lColumns = input.names(QStringLiteral("columns"));
    if (!oError && lColumns.isEmpty()) {
        oError = CommandResult::badUsage(text("--columns: give at least one attribute"));
    }
    const Intervals intervals = intervalsOf(input, oError);
    if (!oError) {
        oError = input.load();
    }
    if (oError) {
        return *oError;
    }
    std::vector<gkBase::MatrixData*> vpColumns =
        input.numericAttributes(QStringList{input.value(QStringLiteral("depth"))} + lColumns, oError);
    if (oError) {
        return *oError;
    }
    const gkBase::MatrixData* poDepth = vpColumns.front();
    vpColumns.erase(vpColumns.begin());
    const gkBase::IntervalBins oBins = binsOf(intervals, *poDepth, input.filePath(), oError);
    if (oError) {
        return *oError;
    }
    const QString sOut = input.value(QStringLiteral("out"));
    gkBase::MatrixData root(QStringLiteral("Data"));
    root.setRegistry(input.root().registry());
    root.appendChild(decimatedDataSet(QFileInfo(sOut).completeBaseName(), *poDepth, oBins, vpColumns).release(), false);
    return writeCsv(root, sOut).value_or(CommandResult::ok());
}

} // namespace gkHost
