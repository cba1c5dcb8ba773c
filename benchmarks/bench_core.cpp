#include "CircularStatistics.h"
#include "FrequencyClasses.h"
#include "KMdata.h"
#include "KMfilterCenters.h"
#include "KMlocalLloyds.h"
#include "KMterm.h"
#include "SummaryStatistics.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

std::vector<double> normalValues(int iCount)
{
    std::mt19937_64 oRandom(1);
    std::normal_distribution<double> oNormal(120.0, 25.0);
    std::vector<double> vdValues(static_cast<std::size_t>(iCount));
    for (double& dValue : vdValues) {
        dValue = oNormal(oRandom);
    }
    return vdValues;
}

/// Eight overlapping clouds, or points spread evenly (no clusters at all: the hard case for the tree).
void fillPoints(KMdata& oData, bool bEven)
{
    std::mt19937_64 oRandom(2);
    std::normal_distribution<double> oNormal(0.0, 1.0);
    std::uniform_real_distribution<double> oUniform(0.0, 10.0);
    for (int i = 0; i < oData.pointCount(); ++i) {
        for (int d = 0; d < oData.dim(); ++d) {
            oData[i][d] = bEven ? oUniform(oRandom) : 6.0 * (((i % 8) >> d) & 1) + oNormal(oRandom);
        }
    }
}

void kMeans(benchmark::State& state)
{
    const KMterm oTerm(100.0, 0.0, 0.0, 0.0, 0.1, 0.1, 3, 0.5, 10, 0.95);
    KMdata oData(3, static_cast<int>(state.range(0)));
    fillPoints(oData, state.range(1) != 0);
    double dDistortion = 0.0;
    for (auto _ : state) {
        oData.buildKcTree();
        KMlocalLloyds oLloyds(KMfilterCenters(8, oData, 1.0), oTerm);
        dDistortion = oLloyds.execute().distortion();
    }
    if (!(dDistortion > 0.0)) {
        state.SkipWithError("no clusters");
    }
    state.counters["mean distortion"] = dDistortion / static_cast<double>(state.range(0));
}
BENCHMARK(kMeans)
    ->ArgNames({"points", "even"})
    ->Args({1000, 0})
    ->Args({100000, 0})
    ->Args({1000000, 0})
    ->Args({1000000, 1})
    ->Unit(benchmark::kMillisecond);

void kcTree(benchmark::State& state)
{
    KMdata oData(3, static_cast<int>(state.range(0)));
    fillPoints(oData, true);
    for (auto _ : state) {
        oData.buildKcTree();
        benchmark::DoNotOptimize(oData.kcTree());
    }
}
BENCHMARK(kcTree)->Arg(1000000)->Unit(benchmark::kMillisecond);

/// What a histogram needs: range, classes and counts; an interval of 0 is chosen automatically.
void histogramClasses(benchmark::State& state)
{
    const std::vector<double> vdValues = normalValues(static_cast<int>(state.range(0)));
    std::size_t iCounted = 0;
    for (auto _ : state) {
        const FrequencyClasses oClasses = frequencyClasses(vdValues, static_cast<double>(state.range(1)));
        iCounted = 0;
        for (const std::size_t iCount : classCounts(vdValues, oClasses)) {
            iCounted += iCount;
        }
    }
    if (iCounted != vdValues.size()) {
        state.SkipWithError("values lost");
    }
}
BENCHMARK(histogramClasses)
    ->ArgNames({"values", "interval"})
    ->Args({1000000, 0})
    ->Args({1000000, 2})
    ->Unit(benchmark::kMillisecond);

void summary(benchmark::State& state)
{
    const std::vector<double> vdValues = normalValues(static_cast<int>(state.range(0)));
    SummaryStatistics oSummary;
    for (auto _ : state) {
        oSummary = summaryStatistics(vdValues);
    }
    if (std::abs(oSummary.m_dStandardDeviation - 25.0) > 1.0) {
        state.SkipWithError("wrong spread");
    }
}
BENCHMARK(summary)->Arg(1000000)->Unit(benchmark::kMillisecond);

void percentiles(benchmark::State& state)
{
    const std::vector<double> vdValues = normalValues(static_cast<int>(state.range(0)));
    const std::array<double, 3> adPercents{10.0, 50.0, 90.0};
    std::vector<double> vdQuantiles;
    for (auto _ : state) {
        vdQuantiles = quantiles(vdValues, adPercents);
    }
    if (std::abs(vdQuantiles[1] - 120.0) > 1.0) {
        state.SkipWithError("wrong median");
    }
}
BENCHMARK(percentiles)->Arg(1000000)->Unit(benchmark::kMillisecond);

void meanDirection(benchmark::State& state)
{
    const std::vector<double> vdValues = normalValues(static_cast<int>(state.range(0)));
    CircularMean oMean;
    for (auto _ : state) {
        oMean = circularMean(vdValues);
    }
    if (std::abs(oMean.m_dDirection - 120.0) > 1.0) {
        state.SkipWithError("wrong direction");
    }
}
BENCHMARK(meanDirection)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
