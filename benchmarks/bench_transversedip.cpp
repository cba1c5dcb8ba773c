#include "Angles.h"
#include "ApparentDip.h"
#include "TransverseDipEvents.h"
#include "TransverseDirection.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

/// A well through folds about the axis 10/220, all 2000 records long, with noise of 3 degrees.
struct FoldedWell
{
    explicit FoldedWell(std::size_t iCount)
        : m_vdDepths(iCount)
        , m_vdDips(iCount)
        , m_vdDipAzimuths(iCount)
    {
        std::mt19937_64 oRandom(9);
        std::normal_distribution<double> oNoise(0.0, 3.0);
        const double dAlong = std::tan(radians(10.0));
        for (std::size_t i = 0; i < iCount; ++i) {
            const double dLimb = 35.0 * std::sin(2.0 * g_dPi * static_cast<double>(i) / 2000.0) + oNoise(oRandom);
            const double dAcross = std::tan(radians(dLimb));
            m_vdDepths[i] = 1000.0 + 0.1 * static_cast<double>(i);
            m_vdDips[i] = degrees(std::atan(std::hypot(dAcross, dAlong)));
            m_vdDipAzimuths[i] = wrapAzimuth(220.0 + degrees(std::atan2(dAcross, dAlong)));
        }
    }

    std::vector<double> m_vdDepths;
    std::vector<double> m_vdDips;
    std::vector<double> m_vdDipAzimuths;
};

void transverseDirection(benchmark::State& state, decltype(directionsByTangentLine)& fnRule)
{
    const FoldedWell oWell(static_cast<std::size_t>(state.range(0)));
    TransverseDirections oDirections;
    for (auto _ : state) {
        oDirections = fnRule(oWell.m_vdDips, oWell.m_vdDipAzimuths, {});
    }
    if (!(axialDifference(oDirections.m_dTransverse, 310.0) < 5.0)) {
        state.SkipWithError("wrong direction");
    }
}
BENCHMARK_CAPTURE(transverseDirection, tangentLine, directionsByTangentLine)
    ->Arg(100000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(transverseDirection, rootMeanSquare, directionsByRootMeanSquare)
    ->Arg(100000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);

void events(benchmark::State& state)
{
    const FoldedWell oWell(static_cast<std::size_t>(state.range(0)));
    std::vector<double> vdTransverse(oWell.m_vdDips.size());
    apparentDips(oWell.m_vdDips, oWell.m_vdDipAzimuths, 310.0, vdTransverse);
    TransverseDipEvents oEvents;
    for (auto _ : state) {
        oEvents = transverseDipEvents(oWell.m_vdDepths, vdTransverse);
    }
    if (oEvents.m_vdInflections.size() != oWell.m_vdDips.size() / 1000) {
        state.SkipWithError("wrong number of inflections");
    }
}
BENCHMARK(events)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
