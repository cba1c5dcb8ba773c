// The stereonet panel at a million planes: another selection with its statistics, rotations, weights.

#include "EvenValues.h"
#include "WidgetBenchmark.h"

#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/QStereoChartWidget.h>
#include <gkBase/UnitManager.h>

#include <QTabWidget>

#include <benchmark/benchmark.h>
#include <boost/make_shared.hpp>

#include <memory>
#include <numeric>
#include <utility>
#include <vector>

using namespace gkBase;

namespace {

constexpr int g_iRecords = 1000000;

enum Tab
{
    PlotTab,
    StatisticsTab
};

struct Panel
{
    explicit Panel(int iTab)
        : m_root(QStringLiteral("root"))
    {
        auto* poSet = new MatrixData(QStringLiteral("Joints"));
        m_root.appendChild(poSet, false);
        poSet->appendChild(newAngles(QStringLiteral("Dip"), evenValues(g_iRecords, 20.0, 60.0, 5)), true);
        poSet->appendChild(newAngles(QStringLiteral("Dip Azimuth"), evenValues(g_iRecords, 80.0, 140.0, 6)), true);
        m_panel.setDataRoot(&m_root);
        m_panel.setDataSet(poSet);
        m_panel.findChild<QTabWidget*>(QStringLiteral("m_pqTabs"))->setCurrentIndex(iTab);
        m_viSelected.resize(g_iRecords / 2);
        std::iota(m_viSelected.begin(), m_viSelected.end(), 0);
    }
    static MatrixData* newAngles(const QString& sName, std::vector<double> vdValues)
    {
        auto* poNode = new MatrixData(sName, 0, 1, QMetaType::Double);
        poNode->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
        poNode->setUnitManager(boost::make_shared<UnitManager>(QStringLiteral("orientation"), QStringLiteral("deg")));
        return poNode;
    }

    MatrixData m_root;
    QStereoChartWidget m_panel;
    std::vector<int> m_viSelected;
};

/// Half of the records, then all of them, with the results of the net and, in sight, the page of statistics.
void selectInStereoPanel(benchmark::State& state)
{
    Panel panel(static_cast<int>(state.range(0)));
    bool bHalf = false;
    for (auto _ : state) {
        bHalf = !bHalf;
        panel.m_panel.setSelectedRows(bHalf ? panel.m_viSelected : std::vector<int>());
    }
    if (panel.m_panel.statistics().front().m_oSums.m_iCount != static_cast<std::size_t>(bHalf ? 500000 : g_iRecords))
        state.SkipWithError("records are lost");
}
BENCHMARK(selectInStereoPanel)->Arg(PlotTab)->Arg(StatisticsTab)->Unit(benchmark::kMillisecond);

/// The mean to the centre and back, both with statistics.
void rotateInStereoPanel(benchmark::State& state)
{
    Panel panel(StatisticsTab);
    for (auto _ : state) {
        panel.m_panel.rotateDataToCenterPole();
        panel.m_panel.undoRotation();
    }
    if (panel.m_panel.relationshipItemModel()->isRotated())
        state.SkipWithError("the records are still turned");
}
BENCHMARK(rotateInStereoPanel)->Unit(benchmark::kMillisecond);

/// Another scan line, with the weights and the statistics that follow from it.
void weighInStereoPanel(benchmark::State& state)
{
    Panel panel(StatisticsTab);
    StereoChartSettings settings = panel.m_panel.settings();
    settings.m_bWeights = true;
    for (auto _ : state) {
        settings.m_dScanPlunge = settings.m_dScanPlunge > 45.0 ? 30.0 : 60.0;
        panel.m_panel.setSettings(settings);
    }
    if (panel.m_panel.relationshipItemModel()->appliedWeights().size() != static_cast<std::size_t>(g_iRecords))
        state.SkipWithError("the records are not weighed");
}
BENCHMARK(weighInStereoPanel)->Unit(benchmark::kMillisecond);

} // namespace

int main(int iArguments, char** ppcArguments)
{
    return runWidgetBenchmarks(iArguments, ppcArguments);
}
