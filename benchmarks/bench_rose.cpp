// The rose diagram at a million records: a new sector size, a new selection, other data, full redraws.

#include "EvenValues.h"
#include "WidgetBenchmark.h"

#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QRoseChartWidget.h>
#include <gkBase/QRosePlotWidget.h>
#include <gkBase/UnitManager.h>

#include <QImage>

#include <benchmark/benchmark.h>

#include <boost/make_shared.hpp>

#include <memory>
#include <numeric>
#include <vector>

using namespace gkBase;

namespace {

constexpr int g_iRecords = 1000000;
constexpr int g_iSide = 1000;

/// A panel that shows a million directions, cut into 19 bands of another attribute if wanted.
struct Panel
{
    explicit Panel(bool bClassified)
    {
        auto* poSet = new MatrixData(QStringLiteral("set"));
        m_poRoot->appendChild(poSet, false);
        for (MatrixData** ppNode : {&m_poAzimuth, &m_poOther, &m_poValue}) {
            *ppNode = new MatrixData(QStringLiteral("azimuth"), 0, 1, QMetaType::Double);
            (*ppNode)->setColumn(0, MatrixColumn::fromDoubles(evenValues(g_iRecords, 0.0, 360.0, 2)));
            (*ppNode)->setUnitManager(
                boost::make_shared<UnitManager>(QStringLiteral("orientation"), QStringLiteral("deg")));
            poSet->appendChild(*ppNode, true);
        }
        m_panel.setDataRoot(m_poRoot.get());
        m_panel.setDataSet(m_poAzimuth);
        m_panel.setColorAttribute(bClassified ? m_poValue : nullptr);
    }
    double records() const { return static_cast<double>(m_panel.drawingArea()->bins().m_iRecords); }

    std::unique_ptr<MatrixData> m_poRoot = std::make_unique<MatrixData>(QStringLiteral("root"));
    MatrixData* m_poAzimuth = nullptr;
    MatrixData* m_poOther = nullptr;
    MatrixData* m_poValue = nullptr;
    QRoseChartWidget m_panel;
};

void check(benchmark::State& state, const Panel& panel, double dRecords)
{
    if (panel.records() != dRecords)
        state.SkipWithError("records lost");
}

void sectorSize(benchmark::State& state)
{
    Panel panel(state.range(0) != 0);
    int iSize = 5;
    for (auto _ : state) {
        panel.m_panel.setSectorSize(iSize);
        iSize = iSize % 30 + 1;
    }
    check(state, panel, g_iRecords);
}
BENCHMARK(sectorSize)->ArgName("classes")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// Other values in the same attribute: everything is read, counted and averaged again.
void rebuild(benchmark::State& state)
{
    Panel panel(state.range(0) != 0);
    for (auto _ : state) {
        panel.m_poAzimuth->valuesChanged();
        panel.m_panel.updateRoseChartData();
    }
    check(state, panel, g_iRecords);
}
BENCHMARK(rebuild)->ArgName("classes")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void selection(benchmark::State& state)
{
    Panel panel(false);
    std::vector<int> viRecords(g_iRecords / 2);
    std::iota(viRecords.begin(), viRecords.end(), 0);
    bool bOn = false;
    for (auto _ : state)
        panel.m_panel.setSelectedRows((bOn = !bOn) ? viRecords : std::vector<int>());
    panel.m_panel.setSelectedRows(viRecords);
    check(state, panel, g_iRecords / 2);
}
BENCHMARK(selection)->Unit(benchmark::kMillisecond);

void redraw(benchmark::State& state)
{
    Panel panel(true);
    panel.m_panel.setSectorSize(5);
    QRosePlotWidget* pqPlot = panel.m_panel.drawingArea();
    pqPlot->resize(g_iSide, g_iSide);
    QImage oScreen(g_iSide, g_iSide, QImage::Format_RGB32);
    for (auto _ : state) {
        pqPlot->scheduleRedraw();
        pqPlot->render(&oScreen);
    }
    check(state, panel, g_iRecords);
}
BENCHMARK(redraw)->Unit(benchmark::kMillisecond);

} // namespace

int main(int iArguments, char** ppcArguments)
{
    return runWidgetBenchmarks(iArguments, ppcArguments);
}
