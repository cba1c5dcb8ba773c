// Data sets: filling, reading and undoing columns, and what a cell costs in memory.

#include "MatrixData.h"
#include "MatrixDataRestore.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QVariant>

#include <cmath>
#include <memory>
#include <numeric>
#include <vector>

using namespace gkBase;

namespace {

std::unique_ptr<MatrixData> makeTree(int iRows, int iColumns)
{
    auto poRoot = std::make_unique<MatrixData>("root");
    auto* poWell = new MatrixData("well");
    poRoot->appendChild(poWell, false);
    for (int iColumn = 0; iColumn < iColumns; ++iColumn) {
        std::vector<double> vdCells(static_cast<size_t>(iRows));
        std::iota(vdCells.begin(), vdCells.end(), iColumn);
        auto* poAttribute = new MatrixData(QString("a%1").arg(iColumn), 0, 1);
        poAttribute->setColumn(0, MatrixColumn::fromDoubles(std::move(vdCells)));
        poAttribute->setSelected(true);
        poWell->appendChild(poAttribute, true);
    }
    return poRoot;
}

/// Resident memory of this process, in bytes.
double residentBytes()
{
    QFile file("/proc/self/statm");
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    return file.readAll().split(' ').value(1).toDouble() * 4096.0;
}

void fillTyped(benchmark::State& state)
{
    const int iRows = static_cast<int>(state.range(0));
    double dPerCell = 0.0;
    double dResidentPerCell = 0.0;
    for (auto _ : state) {
        const double dBefore = residentBytes();
        const auto poRoot = makeTree(iRows, 10);
        dResidentPerCell = (residentBytes() - dBefore) / (10.0 * iRows);
        dPerCell = static_cast<double>(poRoot->memoryUsage()) / (10.0 * iRows);
        benchmark::DoNotOptimize(poRoot.get());
    }
    state.counters["bytes_per_cell"] = dPerCell;
    state.counters["rss_per_cell"] = dResidentPerCell;
    state.SetItemsProcessed(state.iterations() * iRows * 10);
}
BENCHMARK(fillTyped)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void fillThroughVariants(benchmark::State& state)
{
    const int iRows = static_cast<int>(state.range(0));
    for (auto _ : state) {
        MatrixData oNode("a", iRows, 1);
        for (int i = 0; i < iRows; ++i)
            oNode.setValue(3 + i, 0, 0.5 * i);
        if (oNode.toDouble(3 + iRows - 1, 0) != 0.5 * (iRows - 1))
            state.SkipWithError("wrong cell");
    }
    state.SetItemsProcessed(state.iterations() * iRows);
}
BENCHMARK(fillThroughVariants)->Arg(1000000)->Unit(benchmark::kMillisecond);

void readTyped(benchmark::State& state)
{
    const auto poRoot = makeTree(static_cast<int>(state.range(0)), 10);
    double dSum = 0.0;
    for (auto _ : state) {
        dSum = 0.0;
        for (const MatrixData* poNode : poRoot->leafs())
            for (double d : poNode->column().doubles())
                dSum += d;
        benchmark::DoNotOptimize(dSum);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0) * 10);
}
BENCHMARK(readTyped)->Arg(1000000)->Unit(benchmark::kMillisecond);

void readCellByCell(benchmark::State& state)
{
    const auto poRoot = makeTree(static_cast<int>(state.range(0)), 1);
    const MatrixData* poNode = poRoot->getNode(0);
    for (auto _ : state) {
        double dSum = 0.0;
        for (int iRow = poNode->rowOffSet(); iRow < poNode->rowCount(); ++iRow)
            dSum += poNode->value(iRow, 0).toDouble();
        benchmark::DoNotOptimize(dSum);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(readCellByCell)->Arg(1000000)->Unit(benchmark::kMillisecond);

void undoRedoWholeColumn(benchmark::State& state)
{
    const auto poRoot = makeTree(static_cast<int>(state.range(0)), 1);
    MatrixData* poNode = poRoot->getNode(0);
    auto* poRecord = new MatrixDataRestore(poNode, "edit");
    poRecord->storeColumn(poNode, 0);
    poRoot->appendUndoAction(poRecord, true);
    for (double& d : poNode->mutableColumn().mutableDoubles())
        d = -1.0;
    poNode->valuesChanged();
    for (auto _ : state) {
        if (!poRoot->undo() || poNode->toDouble(4, 0) != 1.0 || !poRoot->redo())
            state.SkipWithError("not undone");
    }
}
BENCHMARK(undoRedoWholeColumn)->Arg(1000000)->Unit(benchmark::kMillisecond);

/// A paste over every cell: recorded cell by cell, then taken back and applied again.
void undoRedoSingleCells(benchmark::State& state)
{
    const int iRows = static_cast<int>(state.range(0));
    const auto poRoot = makeTree(iRows, 1);
    MatrixData* poNode = poRoot->getNode(0);
    auto* poRecord = new MatrixDataRestore(poNode, "paste");
    for (int iRow = 3; iRow < 3 + iRows; ++iRow)
        poRecord->dataStore(iRow, poNode->value(iRow, 0));
    poRoot->appendUndoAction(poRecord, true);
    std::vector<double> vdCells(static_cast<size_t>(iRows), -1.0);
    poNode->setColumn(0, MatrixColumn::fromDoubles(std::move(vdCells)));
    for (auto _ : state) {
        if (!poRoot->undo() || poNode->toDouble(4, 0) != 1.0 || !poRoot->redo())
            state.SkipWithError("not undone");
    }
    state.counters["bytes_per_cell"] = static_cast<double>(poRecord->memoryUsage()) / iRows;
}
BENCHMARK(undoRedoSingleCells)->Arg(1000000)->Unit(benchmark::kMillisecond);

/// What a table model asks when its columns are rebuilt.
void rebuildColumns(benchmark::State& state)
{
    const int iColumns = static_cast<int>(state.range(0));
    const auto poRoot = makeTree(10, iColumns);
    for (auto _ : state) {
        int iRows = poRoot->maxNumbOfSelectedRows(-1, 0) + poRoot->numberOfSelectedItems();
        for (int i = 0; i < iColumns; ++i)
            iRows += poRoot->getNode(i)->recordCount();
        benchmark::DoNotOptimize(iRows);
    }
}
BENCHMARK(rebuildColumns)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
