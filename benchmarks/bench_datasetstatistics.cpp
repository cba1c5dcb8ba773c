#include "MatrixData.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

std::unique_ptr<MatrixData> normalAttribute(int iRecords)
{
    std::mt19937_64 oRandom(1);
    std::normal_distribution<double> oNormal(120.0, 25.0);
    std::vector<double> vdValues(static_cast<std::size_t>(iRecords));
    for (double& dValue : vdValues) {
        dValue = oNormal(oRandom);
    }
    auto poAttribute = std::make_unique<MatrixData>("a", 0, 1, QMetaType::Double);
    poAttribute->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
    return poAttribute;
}

std::vector<int> everyRecord(int iRecords)
{
    std::vector<int> viRecords(static_cast<std::size_t>(iRecords));
    for (int i = 0; i < iRecords; ++i) {
        viRecords[static_cast<std::size_t>(i)] = i;
    }
    return viRecords;
}

/// All numbers that a histogram panel shows: heights, percentiles, standard deviation. The first argument is the
/// interval (0: automatic), the second tells whether the records come as a list.
void histogram(benchmark::State& state)
{
    const int iRecords = 1000000;
    const auto poAttribute = normalAttribute(iRecords);
    const std::vector<int> viRecords = state.range(1) ? everyRecord(iRecords) : std::vector<int>();
    double dMedian = 0.0;
    double dDeviation = 0.0;
    for (auto _ : state) {
        double dInterval = static_cast<double>(state.range(0));
        const std::unique_ptr<MatrixData> poTable(
            poAttribute->newFrequencyData(dInterval, MatrixData::Frequency, viRecords, nullptr, true));
        const std::unique_ptr<MatrixData> poCurve(poAttribute->newFrequencyData(
            dInterval, MatrixData::CumulativeRelativeFrequency, viRecords, nullptr, true));
        poCurve->reduceToAveraged(0, 1);
        for (const double dPercent : {10.0, 50.0, 90.0}) {
            benchmark::DoNotOptimize(poCurve->getInterpolationValue(dPercent, 0, 1));
        }
        dMedian = poCurve->getInterpolationValue(50.0, 0, 1);
        dDeviation = poAttribute->standardDeviation(viRecords);
    }
    if (std::abs(dMedian - 120.0) > 1.0 || std::abs(dDeviation - 25.0) > 1.0) {
        state.SkipWithError("wrong statistics");
    }
}
BENCHMARK(histogram)
    ->ArgNames({"interval", "list"})
    ->Args({0, 0})
    ->Args({2, 0})
    ->Args({2, 1})
    ->Unit(benchmark::kMillisecond);

void roseSectors(benchmark::State& state)
{
    const auto poAttribute = normalAttribute(1000000);
    double dLargest = 0.0;
    for (auto _ : state) {
        const std::unique_ptr<MatrixData> poTable(
            poAttribute->newFrequencyData(10.0, 36, 0.0, MatrixData::Frequency, {}, nullptr, nullptr, nullptr, false));
        dLargest = poTable->maximumOfColumn(0);
    }
    if (!(dLargest > 0.0)) {
        state.SkipWithError("no counts");
    }
}
BENCHMARK(roseSectors)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
