// The stereonet at a million records: full redraws, a new selection, the gesture that makes it, great circles.

#include "EvenValues.h"
#include "WidgetBenchmark.h"

#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/QStereoPlotWidget.h>

#include <QImage>
#include <QMouseEvent>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

using namespace gkBase;

namespace {

constexpr int g_iSide = 1000;

std::unique_ptr<MatrixData> node(std::vector<double> vdValues)
{
    auto poData = std::make_unique<MatrixData>(QStringLiteral("values"), 0, 1, QMetaType::Double);
    poData->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
    return poData;
}

enum Spread
{
    Even,     ///< over the hemisphere
    TwoGroups ///< of normal scatter
};

struct Net
{
    explicit Net(int iRecords, Spread eSpread = Even)
        : m_net(nullptr, QStringLiteral("Stereonet"))
        , m_oScreen(g_iSide, g_iSide, QImage::Format_RGB32)
    {
        std::vector<double> vdDips = evenValues(iRecords, 0.0, 1.0, 5);
        std::vector<double> vdAzimuths = evenValues(iRecords, 0.0, 360.0, 6);
        if (eSpread == Even) {
            for (double& dDip : vdDips)
                dDip = std::acos(dDip) * 180.0 / std::numbers::pi;
        } else {
            std::mt19937 generator(7);
            std::normal_distribution<double> normal(0.0, 10.0);
            for (std::size_t i = 0; i < vdDips.size(); ++i) {
                vdDips[i] = std::clamp(60.0 + normal(generator), 0.0, 90.0);
                vdAzimuths[i] = std::fmod((i % 2 == 0 ? 460.0 : 650.0) + normal(generator), 360.0);
            }
        }
        m_poDips = node(std::move(vdDips));
        m_poAzimuths = node(std::move(vdAzimuths));
        m_model.takeNewDataSet(-1, QRelationshipItemModel::OrientationDisplay, m_poDips.get(), m_poAzimuths.get(),
                               nullptr, nullptr, false, {});
        m_net.resize(g_iSide, g_iSide);
        m_net.setModel(&m_model);
        m_settings.m_iNodes = 100;
    }
    void show()
    {
        m_net.setSettings(m_settings);
        m_net.scheduleRedraw();
        m_net.render(&m_oScreen);
    }
    /// Nothing that was kept serves: half a turn of every record, exactly.
    void turn() { m_model.rotateDataAboutRotationAxis(nullptr, {90.0, 0.0}, 180.0, false); }
    void send(QEvent::Type eType, const QPointF& oPosition)
    {
        QMouseEvent event(eType, oPosition, oPosition, eType == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_net, &event);
    }

    std::unique_ptr<MatrixData> m_poDips;
    std::unique_ptr<MatrixData> m_poAzimuths;
    QRelationshipItemModel m_model;
    QStereoPlotWidget m_net;
    StereoNetSettings m_settings;
    QImage m_oScreen;
};

/// Points, filled contours with lines and labels, and both nets, of records that were never shown before.
void redrawStereonet(benchmark::State& state)
{
    Net net(1000000, static_cast<Spread>(state.range(0)));
    net.m_settings.m_bContourFill = true;
    net.m_settings.m_bContourColorFill = true;
    net.m_settings.m_bContourLines = true;
    net.m_settings.m_bContourLabels = true;
    net.m_settings.m_bCoarseNet = true;
    net.m_settings.m_bFineNet = true;
    net.show();
    for (auto _ : state) {
        state.PauseTiming();
        net.turn();
        state.ResumeTiming();
        net.show();
    }
    if (net.m_net.density().m_iRecords != 1000000)
        state.SkipWithError("records are lost");
}
BENCHMARK(redrawStereonet)->Arg(Even)->Arg(TwoGroups)->Unit(benchmark::kMillisecond);

/// state.range(0): selected records. Contours of all records stay.
void showNewSelectionOnNet(benchmark::State& state)
{
    Net net(1000000);
    net.m_settings.m_bContourFill = true;
    net.show();
    std::size_t iFirst = 0;
    std::vector<unsigned char> vbMask(1000000);
    for (auto _ : state) {
        std::fill(vbMask.begin(), vbMask.end(), 0);
        std::fill_n(vbMask.begin() + static_cast<std::ptrdiff_t>(++iFirst), state.range(0), 1);
        net.m_model.selectPoints(vbMask, false);
        net.show();
    }
    if (net.m_model.numberOfSelectedPoints() != state.range(0))
        state.SkipWithError("the selection is lost");
}
BENCHMARK(showNewSelectionOnNet)->Arg(100)->Arg(100000)->Unit(benchmark::kMillisecond);

/// A lasso of 200 corners over a third of the net, from press to release, without the picture of the selection.
void lassoOnNet(benchmark::State& state)
{
    Net net(1000000);
    net.show();
    for (auto _ : state) {
        net.send(QEvent::MouseButtonPress, QPointF(730.0, 500.0));
        for (int i = 1; i < 200; ++i) {
            const double dAngle = i * 2.0 * std::numbers::pi / 200.0;
            net.send(QEvent::MouseMove, QPointF(std::round(500.0 + 230.0 * std::cos(dAngle)),
                                                std::round(500.0 + 230.0 * std::sin(dAngle))));
        }
        net.send(QEvent::MouseButtonRelease, QPointF(730.0, 500.0));
    }
    state.counters["selected"] = net.m_model.numberOfSelectedPoints();
}
BENCHMARK(lassoOnNet)->Unit(benchmark::kMillisecond);

/// Great circles of every record, none of which was shown before.
void redrawGreatCircles(benchmark::State& state)
{
    Net net(static_cast<int>(state.range(0)), static_cast<Spread>(state.range(1)));
    net.m_settings.m_bGreatCircles = true;
    net.m_settings.m_bPoints = false;
    net.show();
    for (auto _ : state) {
        state.PauseTiming();
        net.turn();
        state.ResumeTiming();
        net.show();
    }
}
BENCHMARK(redrawGreatCircles)
    ->ArgNames({"records", "spread"})
    ->Args({500, Even})
    ->Args({100000, Even})
    ->Args({100000, TwoGroups})
    ->Args({1000000, TwoGroups})
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int iArguments, char** ppcArguments)
{
    return runWidgetBenchmarks(iArguments, ppcArguments);
}
