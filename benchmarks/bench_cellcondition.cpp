#include "CellChange.h"
#include "CellCondition.h"
#include "MatrixColumn.h"
#include "MatrixData.h"
#include "QVertexItemModel.h"
#include "QVertexModelTableView.h"
#include "UnitManager.h"
#include "WidgetBenchmark.h"

#include <benchmark/benchmark.h>

#include <boost/make_shared.hpp>

#include <memory>
#include <vector>

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

/// A table of one million rows in which the rows of a condition are selected, then modified.
struct ModifiedTable
{
    ModifiedTable()
        : m_poRoot(std::make_unique<MatrixData>(QStringLiteral("Root")))
    {
        auto* poDataSet = new MatrixData(QStringLiteral("Wells"));
        m_poRoot->appendChild(poDataSet, false);
        for (const char* szName : {"A", "B"}) {
            auto* poAttribute = new MatrixData(QString::fromLatin1(szName), 0, 1);
            poAttribute->setColumn(0, numbers());
            poAttribute->setUnitManager(boost::make_shared<UnitManager>(QStringLiteral("length"), QStringLiteral("m")));
            poDataSet->appendChild(poAttribute, true);
            poAttribute->setSelected(true);
        }
    }

    std::unique_ptr<MatrixData> m_poRoot;
};

void selectCellsByCondition(benchmark::State& state)
{
    const ModifiedTable table;
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    QVertexModelTableView view;
    view.setModel(&model);
    view.resize(1200, 800);
    view.show();
    for (auto _ : state) {
        view.selectCells(QStringLiteral("500"), QString(), CellCondition::Less, true, false, 0);
        benchmark::DoNotOptimize(view.grab());
    }
    // Values that are shown as 500.00 are not less than 500.
    if (view.selectedRowCount() != s_iCells / 2 - 5)
        state.SkipWithError("wrong rows are selected");
}
BENCHMARK(selectCellsByCondition)->Unit(benchmark::kMillisecond);

/// What the dialog works out after each key for one attribute.
void previewChange(benchmark::State& state)
{
    const ModifiedTable table;
    const QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    const CellRuns cells = CellRuns::ofRows({{3, s_iCells + 2}}, 2);
    const CellChange change(static_cast<CellChange::Method>(state.range(0)), 2.5);
    std::size_t iChanged = 0;
    for (auto _ : state)
        iChanged = model.changedCells(cells, 0, change).m_viRecords.size();
    if (iChanged < s_iCells - 1)
        state.SkipWithError("cells stay as they are");
}
BENCHMARK(previewChange)->Arg(CellModification::Set)->Arg(CellModification::Add)->Unit(benchmark::kMillisecond);

void modifyCells(benchmark::State& state)
{
    const ModifiedTable table;
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    CellRuns cells(2);
    cells.setColumn(0, {{3, s_iCells + 2}});
    for (auto _ : state) {
        if (!model.modifySelectedCells(cells, 2.5, CellModification::Add))
            state.SkipWithError("nothing was modified");
        state.PauseTiming();
        table.m_poRoot->undo();
        state.ResumeTiming();
    }
}
BENCHMARK(modifyCells)->Unit(benchmark::kMillisecond);

} // namespace

int main(int iArguments, char** ppcArguments)
{
    return runWidgetBenchmarks(iArguments, ppcArguments);
}
