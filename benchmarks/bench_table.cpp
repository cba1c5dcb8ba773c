// The attribute table with a million rows and twenty columns.

#include "MatrixData.h"
#include "QVertexItemModel.h"
#include "QVertexModelTableView.h"
#include "WidgetBenchmark.h"

#include <QScrollBar>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

using namespace gkBase;

namespace {

constexpr int s_iRows = 1'000'000;
constexpr int s_iColumns = 20;

MatrixData* table()
{
    static const std::unique_ptr<MatrixData> s_poRoot = [] {
        auto poRoot = std::make_unique<MatrixData>(QStringLiteral("Root"));
        auto* poDataSet = new MatrixData(QStringLiteral("Wells"));
        poRoot->appendChild(poDataSet, false);
        for (int iColumn = 0; iColumn < s_iColumns; ++iColumn) {
            std::vector<double> vdValues(s_iRows);
            for (int i = 0; i < s_iRows; ++i)
                vdValues[static_cast<std::size_t>(i)] = (i * 7919LL + iColumn) % s_iRows * 0.001;
            auto* poAttribute = new MatrixData(QStringLiteral("A%1").arg(iColumn), 0, 1);
            poAttribute->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
            poDataSet->appendChild(poAttribute, true);
            poAttribute->setSelected(true);
        }
        return poRoot;
    }();
    return s_poRoot.get();
}

struct Table
{
    QVertexItemModel m_oModel{nullptr, table(), -1};
    QVertexModelTableView m_oView;

    Table()
    {
        m_oView.setModel(&m_oModel);
        m_oView.resize(1200, 800);
    }
};

std::unique_ptr<bool[]> everySecond()
{
    std::unique_ptr<bool[]> pbFlags(new bool[s_iRows]);
    for (int i = 0; i < s_iRows; ++i)
        pbFlags[static_cast<std::size_t>(i)] = i % 2 == 0;
    return pbFlags;
}

void expectSelected(benchmark::State& state, const Table& oTable, int iCount)
{
    if (oTable.m_oView.selectedRowCount() != iCount)
        state.SkipWithError("wrong rows are selected");
}

/// Argument 1: with the summaries unknown, as after an import.
void openAndPaint(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        for (MatrixData* poAttribute : table()->leafs())
            if (state.range(0) == 1)
                poAttribute->valuesChanged();
        state.ResumeTiming();
        Table oTable;
        oTable.m_oView.show();
        benchmark::DoNotOptimize(oTable.m_oView.grab());
    }
}
BENCHMARK(openAndPaint)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void jumpToTheEnd(benchmark::State& state)
{
    Table oTable;
    oTable.m_oView.show();
    QScrollBar* pqBar = oTable.m_oView.verticalScrollBar();
    for (auto _ : state) {
        pqBar->setValue(0);
        pqBar->setValue(pqBar->maximum());
        benchmark::DoNotOptimize(oTable.m_oView.grab());
    }
    if (oTable.m_oView.rowAt(1) < s_iRows / 2)
        state.SkipWithError("the end is not in sight");
}
BENCHMARK(jumpToTheEnd)->Unit(benchmark::kMillisecond);

void setNewRowSelection(benchmark::State& state)
{
    Table oTable;
    const auto pbFlags = everySecond();
    for (auto _ : state)
        oTable.m_oView.setNewRowSelection(pbFlags.get(), s_iRows);
    expectSelected(state, oTable, s_iRows / 2);
}
BENCHMARK(setNewRowSelection)->Unit(benchmark::kMillisecond);

void selectInverse(benchmark::State& state)
{
    Table oTable;
    oTable.m_oView.setNewRowSelection(everySecond().get(), s_iRows);
    for (auto _ : state)
        oTable.m_oView.selectInverse();
    expectSelected(state, oTable, s_iRows / 2);
}
BENCHMARK(selectInverse)->Unit(benchmark::kMillisecond);

void selectedRecords(benchmark::State& state)
{
    Table oTable;
    oTable.m_oView.setNewRowSelection(everySecond().get(), s_iRows);
    for (auto _ : state)
        benchmark::DoNotOptimize(oTable.m_oView.selectedRecords());
    expectSelected(state, oTable, s_iRows / 2);
}
BENCHMARK(selectedRecords)->Unit(benchmark::kMillisecond);

void paintSelection(benchmark::State& state)
{
    Table oTable;
    oTable.m_oView.show();
    oTable.m_oView.setNewRowSelection(everySecond().get(), s_iRows);
    for (auto _ : state)
        benchmark::DoNotOptimize(oTable.m_oView.grab());
    expectSelected(state, oTable, s_iRows / 2);
}
BENCHMARK(paintSelection)->Unit(benchmark::kMillisecond);

} // namespace

int main(int iArguments, char** ppcArguments)
{
    return runWidgetBenchmarks(iArguments, ppcArguments);
}
