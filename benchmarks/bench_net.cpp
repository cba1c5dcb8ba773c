#include "DensityContours.h"
#include "EvenValues.h"
#include "NetLines.h"
#include "RoseBins.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

void projection(benchmark::State& state)
{
    const auto iCount = static_cast<int>(state.range(0));
    const NetProjection oProjection(static_cast<NetLayout>(state.range(1)));
    const std::vector<double> vdDip = evenValues(iCount, 0.0, 90.0, 1);
    const std::vector<double> vdAzimuth = evenValues(iCount, 0.0, 360.0, 2);
    std::vector<NetPoint> vPoints(vdDip.size());
    for (auto _ : state) {
        projectPoles(oProjection, vdDip, vdAzimuth, vPoints);
        benchmark::DoNotOptimize(vPoints.data());
    }
}
BENCHMARK(projection)
    ->ArgNames({"records", "layout"})
    ->Args({1000000, 0})
    ->Args({1000000, 1})
    ->Args({1000000, 2})
    ->Unit(benchmark::kMillisecond);

void densityCounting(benchmark::State& state)
{
    const auto iCount = static_cast<int>(state.range(0));
    const auto iNodes = static_cast<int>(state.range(2));
    const NetProjection oProjection(static_cast<NetLayout>(state.range(1)));
    const std::vector<double> vdDip = evenValues(iCount, 0.0, 90.0, 1);
    const std::vector<double> vdAzimuth = evenValues(iCount, 0.0, 360.0, 2);
    DensityGrid oGrid;
    for (auto _ : state) {
        oGrid = densityGrid(oProjection, OrientationType::Planes, vdDip, vdAzimuth, iNodes, iNodes);
    }
    if (oGrid.m_iRecords != vdDip.size() || oGrid.m_iOutside != 0) {
        state.SkipWithError("records lost");
    }
}
BENCHMARK(densityCounting)
    ->ArgNames({"records", "layout", "nodes"})
    ->Args({1000, 0, 20})
    ->Args({100000, 0, 100})
    ->Args({1000000, 0, 20})
    ->Args({1000000, 0, 100})
    ->Args({1000000, 1, 100})
    ->Unit(benchmark::kMillisecond);

void contours(benchmark::State& state)
{
    const auto iCount = static_cast<int>(state.range(0));
    const auto iNodes = static_cast<int>(state.range(1));
    const std::vector<double> vdDip = evenValues(iCount, 0.0, 90.0, 1);
    const std::vector<double> vdAzimuth = evenValues(iCount, 0.0, 360.0, 2);
    const DensityGrid oGrid = densityGrid(NetProjection(), OrientationType::Planes, vdDip, vdAzimuth, iNodes, iNodes);
    std::size_t iPoints = 0;
    std::size_t iLabels = 0;
    for (auto _ : state) {
        const std::vector<DensityContour> vContours = densityContours(oGrid, contourLevels(oGrid));
        iLabels = contourLabels(vContours, 50.0 / 160.0).size();
        iPoints = 0;
        for (const DensityContour& oContour : vContours) {
            for (const NetPolyline& vOutline : oContour.m_vOutlines) {
                iPoints += vOutline.size();
            }
        }
    }
    state.counters["points"] = static_cast<double>(iPoints);
    state.counters["labels"] = static_cast<double>(iLabels);
}
BENCHMARK(contours)
    ->ArgNames({"records", "nodes"})
    ->Args({500, 20})
    ->Args({10000, 100})
    ->Args({100000, 100})
    ->Args({1000000, 100})
    ->Unit(benchmark::kMillisecond);

void greatCircles(benchmark::State& state)
{
    const NetProjection oProjection(static_cast<NetLayout>(state.range(1)));
    const auto iCount = static_cast<int>(state.range(0));
    const std::vector<double> vdDip = evenValues(iCount, 0.0, 90.0, 1);
    const std::vector<double> vdAzimuth = evenValues(iCount, 0.0, 360.0, 2);
    for (auto _ : state) {
        for (std::size_t i = 0; i < vdDip.size(); ++i) {
            benchmark::DoNotOptimize(greatCircle(oProjection, vdDip[i], vdAzimuth[i]).size());
        }
    }
}
BENCHMARK(greatCircles)
    ->ArgNames({"planes", "layout"})
    ->Args({100000, 0})
    ->Args({100000, 1})
    ->Unit(benchmark::kMillisecond);

void nets(benchmark::State& state)
{
    const NetProjection oProjection(static_cast<NetLayout>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(netLines(oProjection, g_iFineNetStep).m_vSmallCircles.size());
    }
}
BENCHMARK(nets)->ArgName("layout")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// classes: number of classes, 0 without; the means are worked out as well.
void rose(benchmark::State& state)
{
    const auto iCount = static_cast<int>(state.range(0));
    const auto iClasses = static_cast<int>(state.range(1));
    const std::vector<double> vdAzimuth = evenValues(iCount, 0.0, 360.0, 2);
    std::vector<int> viClasses(iClasses > 0 ? vdAzimuth.size() : 0);
    std::generate(viClasses.begin(), viClasses.end(), [i = 0, iClasses]() mutable { return i++ % iClasses; });
    RoseBins oBins;
    for (auto _ : state) {
        oBins = roseBins(vdAzimuth, {10, 0.0, state.range(2) != 0}, {}, {}, viClasses, iClasses);
        const CircularMeans oMeans = roseMeans(vdAzimuth);
        benchmark::DoNotOptimize(oMeans.m_oAxis.m_dDirection);
    }
    if (oBins.m_iRecords != vdAzimuth.size()) {
        state.SkipWithError("records lost");
    }
}
BENCHMARK(rose)
    ->ArgNames({"records", "classes", "bidirectional"})
    ->Args({1000, 0, 0})
    ->Args({1000000, 0, 0})
    ->Args({1000000, 0, 1})
    ->Args({1000000, 20, 1})
    ->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
