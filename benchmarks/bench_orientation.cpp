#include "ApparentDip.h"
#include "BiasWeights.h"
#include "FisherStatistics.h"
#include "OrientationMatrix.h"
#include "PrincipalAxes.h"
#include "Rotation.h"
#include "TangentFit.h"
#include "WoodcockParameters.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

/// Planes of a fold with scatter, dips up to 80.
struct Planes
{
    explicit Planes(std::size_t iCount)
        : m_vdDips(iCount)
        , m_vdDipAzimuths(iCount)
    {
        std::mt19937_64 oRandom(5);
        std::normal_distribution<double> oScatter(0.0, 8.0);
        std::uniform_real_distribution<double> oLimb(-50.0, 50.0);
        for (std::size_t i = 0; i < iCount; ++i) {
            const double dLimb = oLimb(oRandom);
            m_vdDips[i] = std::clamp(std::abs(dLimb) + oScatter(oRandom), 0.0, 80.0);
            m_vdDipAzimuths[i] = wrapAzimuth((dLimb > 0.0 ? 70.0 : 250.0) + oScatter(oRandom));
        }
    }

    std::vector<double> m_vdDips;
    std::vector<double> m_vdDipAzimuths;
};

/// Everything that a panel shows of its records.
void statistics(benchmark::State& state)
{
    const Planes oPlanes(static_cast<std::size_t>(state.range(0)));
    std::vector<double> vdWeights;
    if (state.range(1) != 0) {
        vdWeights = biasWeights(OrientationType::Planes, oPlanes.m_vdDips, oPlanes.m_vdDipAzimuths, {90.0, 0.0, 80.0});
    }
    double dKappa = 0.0;
    double dC = 0.0;
    for (auto _ : state) {
        const OrientationSums oSums =
            orientationSums(OrientationType::Planes, oPlanes.m_vdDips, oPlanes.m_vdDipAzimuths, {}, vdWeights);
        const FisherStatistics oFisher = fisherStatistics(oSums);
        const PrincipalAxes oAxes = principalAxes(oSums);
        dKappa = oFisher.m_dKappa;
        dC = woodcockParameters(oAxes).m_dC;
        benchmark::DoNotOptimize(mardiaClassification(oAxes, oFisher.m_dMeanResultantLength));
    }
    if (!(dKappa > 1.0 && dC > 0.0)) {
        state.SkipWithError("wrong statistics");
    }
}
BENCHMARK(statistics)
    ->ArgNames({"records", "weights"})
    ->ArgsProduct({{1000, 100000, 1000000}, {0}})
    ->Args({1000000, 1})
    ->Unit(benchmark::kMillisecond);

void weights(benchmark::State& state)
{
    const Planes oPlanes(static_cast<std::size_t>(state.range(0)));
    double dCount = 0.0;
    for (auto _ : state) {
        dCount = effectiveCount(
            biasWeights(OrientationType::Planes, oPlanes.m_vdDips, oPlanes.m_vdDipAzimuths, {90.0, 0.0, 80.0}));
    }
    if (!(dCount > 0.5 * static_cast<double>(state.range(0)))) {
        state.SkipWithError("wrong weights");
    }
}
BENCHMARK(weights)->Arg(1000000)->Unit(benchmark::kMillisecond);

void rotate(benchmark::State& state)
{
    const Planes oPlanes(static_cast<std::size_t>(state.range(0)));
    const Rotation oRotation({20.0, 110.0}, 35.0);
    Planes oRotated = oPlanes;
    for (auto _ : state) {
        rotateOrientations(OrientationType::Planes, oRotation, oPlanes.m_vdDips, oPlanes.m_vdDipAzimuths,
                           oRotated.m_vdDips, oRotated.m_vdDipAzimuths);
    }
    if (oRotated.m_vdDips.back() == oPlanes.m_vdDips.back()) {
        state.SkipWithError("nothing turned");
    }
}
BENCHMARK(rotate)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void apparent(benchmark::State& state)
{
    const Planes oPlanes(static_cast<std::size_t>(state.range(0)));
    std::vector<double> vdApparent(oPlanes.m_vdDips.size());
    for (auto _ : state) {
        apparentDips(oPlanes.m_vdDips, oPlanes.m_vdDipAzimuths, 70.0, vdApparent);
    }
    if (*std::max_element(vdApparent.begin(), vdApparent.end()) < 40.0) {
        state.SkipWithError("wrong dips");
    }
}
BENCHMARK(apparent)->Arg(1000000)->Unit(benchmark::kMillisecond);

void foldAxis(benchmark::State& state)
{
    const Planes oPlanes(static_cast<std::size_t>(state.range(0)));
    TangentFit oFit;
    for (auto _ : state) {
        oFit = tangentFit(oPlanes.m_vdDips, oPlanes.m_vdDipAzimuths);
    }
    if (!(axialDifference(oFit.m_dTransverse, 70.0) < 5.0)) {
        state.SkipWithError("wrong axis");
    }
}
BENCHMARK(foldAxis)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
