#include "Decimation.h"
#include "EvenValues.h"
#include "KMeansClusters.h"
#include "NormalProbability.h"
#include "PointInPolygon.h"
#include "PolygonMask.h"
#include "Regression.h"
#include "SeriesThinning.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

/// Depths of a log: a sample every 5 cm (below 99999, which would be a missing depth).
std::vector<double> logDepths(int iCount)
{
    std::vector<double> vdDepths(static_cast<std::size_t>(iCount));
    for (std::size_t i = 0; i < vdDepths.size(); ++i) {
        vdDepths[i] = 500.0 + 0.05 * static_cast<double>(i);
    }
    return vdDepths;
}

/// 0: the rule of the charts, 1: least squares.
void regression(benchmark::State& state)
{
    const auto iCount = static_cast<int>(state.range(0));
    const std::vector<double> vdX = evenValues(iCount, 0.0, 100.0, 1);
    std::vector<double> vdY = evenValues(iCount, -1.0, 1.0, 2);
    std::transform(vdX.begin(), vdX.end(), vdY.begin(), vdY.begin(), [](double x, double e) { return 3.0 * x + e; });
    RegressionLine oLine;
    for (auto _ : state) {
        oLine = state.range(1) == 0 ? chartRegression(vdX, vdY) : leastSquares(vdX, vdY);
    }
    if (std::abs(oLine.m_dSlope - 3.0) > 0.1) {
        state.SkipWithError("wrong slope");
    }
}
BENCHMARK(regression)
    ->ArgNames({"points", "rule"})
    ->Args({1000000, 0})
    ->Args({1000000, 1})
    ->Unit(benchmark::kMillisecond);

/// From columns with the kc-tree to the ids of the records. 0: eight clouds; 1: points spread evenly.
void clusters(benchmark::State& state)
{
    const auto iCount = static_cast<int>(state.range(0));
    std::vector<std::vector<double>> vvdColumns;
    for (unsigned d = 0; d < 3; ++d) {
        std::vector<double> vdColumn = evenValues(iCount, 0.0, 10.0, d + 1);
        for (std::size_t i = 0; i < vdColumn.size() && state.range(1) == 0; ++i) {
            vdColumn[i] = 0.3 * vdColumn[i] + static_cast<double>(6 * (((i % 8) >> d) & 1));
        }
        vvdColumns.push_back(std::move(vdColumn));
    }
    KMeansClusters oClusters;
    for (auto _ : state) {
        oClusters = kMeansClusters({vvdColumns[0], vvdColumns[1], vvdColumns[2]}, 8);
    }
    if (oClusters.m_iK != 8) {
        state.SkipWithError("wrong number of clusters");
    }
    state.counters["mean distortion"] = oClusters.m_dDistortion / iCount;
}
BENCHMARK(clusters)
    ->ArgNames({"points", "even"})
    ->Args({100000, 0})
    ->Args({1000000, 0})
    ->Args({1000000, 1})
    ->Unit(benchmark::kMillisecond);

/// Mean planes, counts and means of a value. Depths of a log, or in any order.
void decimation(benchmark::State& state)
{
    const auto iCount = static_cast<int>(state.range(0));
    std::vector<double> vdDepths = logDepths(iCount);
    if (state.range(2) != 0) {
        std::shuffle(vdDepths.begin(), vdDepths.end(), std::mt19937(4));
    }
    const std::vector<double> vdDips = evenValues(iCount, 0.0, 90.0, 1);
    const std::vector<double> vdAzimuths = evenValues(iCount, 0.0, 360.0, 2);
    const auto iBins = static_cast<int>(state.range(1));
    const auto [itLeast, itGreatest] = std::minmax_element(vdDepths.begin(), vdDepths.end());
    std::size_t iCounted = 0;
    for (auto _ : state) {
        const IntervalBins oBins(numberOfIntervals(iBins, *itLeast, *itGreatest));
        const std::vector<int> viBins = binsOfRecords(vdDepths, oBins);
        const std::vector<BinOrientation> vPlanes = binMeanPlanes(viBins, oBins.count(), vdDips, vdAzimuths);
        benchmark::DoNotOptimize(binMeans(viBins, oBins.count(), vdDips).data());
        iCounted = 0;
        for (const BinOrientation& oPlane : vPlanes) {
            iCounted += oPlane.m_iCount;
        }
    }
    if (iCounted != vdDepths.size()) {
        state.SkipWithError("records lost");
    }
}
BENCHMARK(decimation)
    ->ArgNames({"records", "bins", "shuffled"})
    ->Args({1000000, 100, 0})
    ->Args({1000000, 99999, 0})
    ->Args({1000000, 100, 1})
    ->Args({1000000, 99999, 1})
    ->Unit(benchmark::kMillisecond);

/// Drawing up the mask and testing every point of a window of 1600 × 1000 pixels. Wide: around most points.
void lasso(benchmark::State& state)
{
    const auto iPoints = static_cast<int>(state.range(0));
    const std::vector<double> vdX = evenValues(iPoints, 0.0, 1600.0, 1);
    const std::vector<double> vdY = evenValues(iPoints, 0.0, 1000.0, 2);
    const std::vector<double> vdRadius = evenValues(static_cast<int>(state.range(1)), 0.8, 1.0, 3);
    std::vector<double> vdCornerX;
    std::vector<double> vdCornerY;
    for (std::size_t i = 0; i < vdRadius.size(); ++i) {
        const double dAngle = 6.283185307179586 * static_cast<double>(i) / static_cast<double>(vdRadius.size());
        vdCornerX.push_back(800.0 + 800.0 * vdRadius[i] * std::cos(dAngle));
        vdCornerY.push_back(500.0 + 500.0 * vdRadius[i] * std::sin(dAngle));
    }
    std::vector<unsigned char> vbInside(vdX.size());
    for (auto _ : state) {
        const PolygonMask oMask(vdCornerX, vdCornerY);
        for (std::size_t i = 0; i < vdX.size(); ++i) {
            vbInside[i] = oMask.contains(vdX[i], vdY[i]);
        }
        benchmark::DoNotOptimize(vbInside.data());
    }
    for (std::size_t i = 0; i < vdX.size(); i += 997) {
        if ((vbInside[i] != 0) != pointInPolygon(vdCornerX, vdCornerY, vdX[i], vdY[i])) {
            state.SkipWithError("not the points inside");
            return;
        }
    }
}
BENCHMARK(lasso)
    ->ArgNames({"points", "corners"})
    ->Args({1000000, 200})
    ->Args({1000000, 5000})
    ->Args({1000, 200})
    ->Unit(benchmark::kMillisecond);

void thinning(benchmark::State& state)
{
    const auto iCount = static_cast<int>(state.range(0));
    const std::vector<double> vdDepths = logDepths(iCount);
    const std::vector<double> vdValues = evenValues(iCount, 0.0, 150.0, 1);
    std::size_t iKept = 0;
    for (auto _ : state) {
        iKept = thinSeries(vdDepths, vdValues, vdDepths.front(), vdDepths.back(), 1000).size();
    }
    if (iKept < 2000 || iKept > 4000) {
        state.SkipWithError("wrong number of samples");
    }
}
BENCHMARK(thinning)->Arg(1000000)->Unit(benchmark::kMillisecond);

void normalPaper(benchmark::State& state)
{
    std::vector<double> vdValues = evenValues(static_cast<int>(state.range(0)), 0.0, 1.0, 1);
    std::sort(vdValues.begin(), vdValues.end());
    NormalFit oFit;
    for (auto _ : state) {
        oFit = normalProbabilityFit(vdValues);
    }
    if (std::abs(oFit.m_dMean - 0.5) > 0.01) {
        state.SkipWithError("wrong mean");
    }
}
BENCHMARK(normalPaper)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
