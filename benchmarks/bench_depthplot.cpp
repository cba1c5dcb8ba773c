// A depth plot of a million samples: one track, a panel of tracks, a selection.

#include "WidgetBenchmark.h"

#include <gkBase/DepthMarkers.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QDepthPlotWidget.h>
#include <gkBase/QDepthTrackArea.h>
#include <gkBase/QDepthTrackPlot.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/UnitManager.h>

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

constexpr int g_iTracks = 4;

/// A well of noisy curves, with the plot at the size of a full-HD window.
struct Well
{
    explicit Well(int iRecords)
    {
        auto* poSet = new MatrixData(QStringLiteral("Well"));
        m_root.appendChild(poSet, false);
        std::mt19937 generator(11);
        std::normal_distribution<double> noise;
        for (int iAttribute = 0; iAttribute <= g_iTracks; ++iAttribute) {
            std::vector<double> vdValues(static_cast<std::size_t>(iRecords));
            for (std::size_t i = 0; i < vdValues.size(); ++i)
                vdValues[i] = iAttribute == 0 ? 1000.0 + static_cast<double>(i) * 0.001 : 50.0 + 8.0 * noise(generator);
            auto* poNode = new MatrixData(iAttribute == 0 ? QStringLiteral("Depth") : QString::number(iAttribute), 0, 1,
                                          QMetaType::Double);
            poNode->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
            poSet->appendChild(poNode, true);
        }
        m_panel.resize(1600, 1000);
        m_panel.setDataRoot(&m_root);
        m_panel.setDataSet(poSet);
        m_panel.setDepthAttribute(poSet->child(0));
        m_panel.grab();
    }

    MatrixData m_root{QStringLiteral("root")};
    QDepthPlotWidget m_panel;
};

void redrawDepthTrack(benchmark::State& state)
{
    Well well(static_cast<int>(state.range(0)));
    QDepthTrackPlot* pqPlot = well.m_panel.trackArea()->plot(0);
    pqPlot->zoomY(static_cast<double>(state.range(1)));
    double dMove = 0.0;
    for (auto _ : state) {
        dMove = dMove == 0.0 ? 1e-6 : 0.0; // another range thins the line again
        pqPlot->setDepthRange(well.m_panel.trackArea()->depthFrom() + dMove, well.m_panel.trackArea()->depthTo());
        pqPlot->updateChart();
    }
    if (pqPlot->pieces().empty())
        state.SkipWithError("nothing drawn");
}
BENCHMARK(redrawDepthTrack)
    ->ArgsProduct({{1000, 100000, 1000000}, {1, 20}})
    ->ArgNames({"samples", "zoom"})
    ->Unit(benchmark::kMillisecond);

void redrawDepthTrackWithPoints(benchmark::State& state)
{
    Well well(static_cast<int>(state.range(0)));
    DepthTrack track = well.m_panel.depthTracks()[0];
    track.m_oStyle.m_bPoints = true;
    well.m_panel.trackArea()->setTrack(0, track);
    QDepthTrackPlot* pqPlot = well.m_panel.trackArea()->plot(0);
    for (auto _ : state)
        pqPlot->updateChart();
}
BENCHMARK(redrawDepthTrackWithPoints)->Arg(1000000)->ArgName("samples")->Unit(benchmark::kMillisecond);

/// A tenth of the records is marked in all tracks and shown.
void selectInDepthTracks(benchmark::State& state)
{
    Well well(static_cast<int>(state.range(0)));
    std::vector<int> viRecords;
    QImage oScreen(1600, 1000, QImage::Format_RGB32);
    int iFirst = 0;
    for (auto _ : state) {
        iFirst ^= 1;
        viRecords.clear();
        for (int i = iFirst; i < state.range(0) / 10; ++i)
            viRecords.push_back(i);
        well.m_panel.updateDepthPlot();
        well.m_panel.setSelectedRows(viRecords);
        well.m_panel.render(&oScreen);
    }
}
BENCHMARK(selectInDepthTracks)->Arg(1000000)->ArgName("samples")->Unit(benchmark::kMillisecond);

void panDepthTracks(benchmark::State& state)
{
    Well well(static_cast<int>(state.range(0)));
    well.m_panel.trackArea()->setZoom(10.0);
    QImage oScreen(1600, 1000, QImage::Format_RGB32);
    int iRow = 4000;
    for (auto _ : state) {
        iRow = iRow < 5000 ? iRow + 3 : 4000;
        well.m_panel.trackArea()->panToRow(iRow);
        well.m_panel.trackArea()->plot(0)->render(&oScreen);
    }
}
BENCHMARK(panDepthTracks)->Arg(1000000)->ArgName("samples")->Unit(benchmark::kMillisecond);

void decimateDepthTracks(benchmark::State& state)
{
    Well well(static_cast<int>(state.range(0)));
    int iIntervals = 1000;
    for (auto _ : state) {
        iIntervals = iIntervals == 1000 ? 1001 : 1000;
        well.m_panel.generateNumberOfIntervals(iIntervals);
    }
}
BENCHMARK(decimateDepthTracks)->Arg(1000000)->ArgName("samples")->Unit(benchmark::kMillisecond);

} // namespace

int main(int iArguments, char** ppcArguments)
{
    return runWidgetBenchmarks(iArguments, ppcArguments);
}
