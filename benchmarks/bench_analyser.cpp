// One selection in the analyser with a million records: from a chart to the table and the charts that are seen.

#include "MatrixData.h"
#include "QCrossPlotWidget.h"
#include "QDataAnalyserDialog.h"
#include "QDepthPlotWidget.h"
#include "QHistogramChartWidget.h"
#include "QVertexModelTableView.h"
#include "TabWidgetWithFloatingTabs.h"
#include "UnitRegistry.h"
#include "WidgetBenchmark.h"

#include <QMainWindow>

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

constexpr int s_iRecords = 1'000'000;

std::unique_ptr<MatrixData> newWell()
{
    auto poRoot = std::make_unique<MatrixData>(QStringLiteral("Root"));
    auto* poWell = new MatrixData(QStringLiteral("Well"));
    poRoot->appendChild(poWell, false);
    std::mt19937 random(7);
    std::normal_distribution<double> normal(50.0, 12.0);
    for (const char* pName : {"Depth", "GR", "RHOB", "NPHI"}) {
        std::vector<double> vdValues(s_iRecords);
        for (int i = 0; i < s_iRecords; ++i)
            vdValues[static_cast<std::size_t>(i)] =
                QLatin1String(pName) == QLatin1String("Depth") ? i * 0.1 : normal(random);
        auto* poAttribute = new MatrixData(QLatin1String(pName), 0, 1);
        poAttribute->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
        poWell->appendChild(poAttribute, true);
        poAttribute->setSelected(true);
    }
    return poRoot;
}

/// The analyser with two charts torn off beside the table; all three are seen.
class Workplace
{
public:
    Workplace()
        : m_poRoot(newWell())
    {
        m_pqDialog = new QDataAnalyserDialog(&m_window);
        m_window.setCentralWidget(m_pqDialog);
        m_pqDialog->initialize(QStringLiteral("Well"), nullptr, Qt::Horizontal, false, true, true, 1);
        m_pqDialog->setRegistry(&m_registry);
        m_pqDialog->changeDataRoot(m_poRoot.get());
        m_window.resize(1400, 900);
        m_window.show();
    }
    ~Workplace() { m_pqDialog->changeDataRoot(nullptr); }

    void tearOff(QWidget* pqPage)
    {
        TabWidgetWithFloatingTabs* pqTabs = m_pqDialog->tabWidget();
        pqTabs->slotTabBarMoved(pqTabs->indexOf(pqPage));
        pqPage->window()->resize(1000, 800);
        settle();
    }

    QDataAnalyserDialog& dialog() { return *m_pqDialog; }
    /// Until every page has painted.
    void settle()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }

private:
    UnitRegistry m_registry;
    std::unique_ptr<MatrixData> m_poRoot;
    QMainWindow m_window;
    QDataAnalyserDialog* m_pqDialog;
};

/// Every tenth record, shifted at each turn so that all of them change.
void selectionSeenEverywhere(benchmark::State& state)
{
    Workplace workplace;
    QDataAnalyserDialog& dialog = workplace.dialog();
    workplace.tearOff(dialog.crossPlot());
    workplace.tearOff(state.range(0) == 0 ? static_cast<QWidget*>(dialog.histogramChart()) : dialog.depthPlot());
    const std::unique_ptr<bool[]> pbFlags(new bool[s_iRecords]);
    int iShift = 0;
    for (auto _ : state) {
        ++iShift;
        for (int i = 0; i < s_iRecords; ++i)
            pbFlags[static_cast<std::size_t>(i)] = (i + iShift) % 10 == 0;
        dialog.setNewRowSelectionFromGraphicalSelection(pbFlags.get(), s_iRecords);
        workplace.settle();
    }
    if (dialog.crossPlot()->numberOfSelectedRows() != dialog.vertexTable()->selectedRowCount())
        state.SkipWithError("the charts do not show the selection");
    state.SetLabel(state.range(0) == 0 ? "table, cross plot, histogram" : "table, cross plot, depth plot");
}

BENCHMARK(selectionSeenEverywhere)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int iArguments, char** ppcArguments)
{
    return runWidgetBenchmarks(iArguments, ppcArguments);
}
