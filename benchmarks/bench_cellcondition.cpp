#include "CellCondition.h"
#include "MatrixColumn.h"
#include "UnitManager.h"

#include <benchmark/benchmark.h>

#include <memory>

using namespace gkBase;

namespace {

constexpr int s_iCells = 1'000'000;

void flag(benchmark::State& state, const CellCondition& condition, const MatrixColumn& column,
          const UnitManager* poUnit)
{
    const std::unique_ptr<bool[]> pbFlags(new bool[s_iCells]);
    int iCount = 0;
    for (auto _ : state) {
        iCount = condition.flagCells(column, poUnit, {pbFlags.get(), s_iCells});
        benchmark::DoNotOptimize(iCount);
    }
    if (iCount <= 0 || iCount >= s_iCells)
        state.SkipWithError("the condition divides nothing");
}

MatrixColumn numbers()
{
    std::vector<double> vdValues(s_iCells);
    for (int i = 0; i < s_iCells; ++i)
        vdValues[static_cast<std::size_t>(i)] = (i * 7919LL % s_iCells) * 0.001;
    return MatrixColumn::fromDoubles(std::move(vdValues));
}

void flagNumbersBetween(benchmark::State& state)
{
    const UnitManager oUnit(QStringLiteral("length"), QStringLiteral("m"));
    flag(state, CellCondition(CellCondition::Between, QStringLiteral("100"), QStringLiteral("500")), numbers(), &oUnit);
}
BENCHMARK(flagNumbersBetween)->Unit(benchmark::kMillisecond);

void flagNumbersContaining(benchmark::State& state)
{
    const UnitManager oUnit(QStringLiteral("length"), QStringLiteral("m"));
    flag(state, CellCondition(CellCondition::Contains, QStringLiteral("12")), numbers(), &oUnit);
}
BENCHMARK(flagNumbersContaining)->Unit(benchmark::kMillisecond);

void flagTextsContaining(benchmark::State& state)
{
    MatrixColumn column(QMetaType::QString);
    for (int i = 0; i < s_iCells; ++i)
        column.appendText(i % 3 == 0 ? QStringLiteral("sandstone") : QStringLiteral("clay"));
    flag(state, CellCondition(CellCondition::Contains, QStringLiteral("SAND")), column, nullptr);
}
BENCHMARK(flagTextsContaining)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
