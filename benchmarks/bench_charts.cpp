// The histogram at a million records, and redrawing and panning of a zoomed canvas.

#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/PointStyle.h>
#include <gkBase/QHistogramItemModel.h>
#include <gkBase/QHistogramPlotWidget.h>
#include <gkBase/SymbolSpriteCache.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

std::unique_ptr<MatrixData> normalValues(int iCount)
{
    std::mt19937 generator(17);
    std::normal_distribution<double> distribution(1500.0, 120.0);
    std::vector<double> vdValues(static_cast<std::size_t>(iCount));
    for (double& dValue : vdValues)
        dValue = distribution(generator);
    auto poData = std::make_unique<MatrixData>(QStringLiteral("values"), 0, 1, QMetaType::Double);
    poData->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
    return poData;
}

/// A canvas on an off-screen picture of a full-HD screen.
struct Canvas
{
    explicit Canvas(int iIntervals)
        : m_poData(normalValues(100000))
        , m_oScreen(1920, 1080, QImage::Format_RGB32)
    {
        double dMin = 0.0;
        double dMax = 0.0;
        m_poData->getMinMax(dMin, dMax);
        m_model.setIntervalSize((dMax - dMin) / iIntervals);
        m_model.takeNewDataSet(m_poData.get(), MatrixData::Frequency, {});
        m_plot.setHistogramItemModel(&m_model);
        m_plot.setBoundaries({dMin, 0.0}, {dMax, m_model.maximumHeight()});
        m_plot.resize(1920, 1080);
    }
    void show() { m_plot.render(&m_oScreen); }

    std::unique_ptr<MatrixData> m_poData;
    QHistogramItemModel m_model;
    QHistogramPlotWidget m_plot;
    QImage m_oScreen;
};

void rebuildHistogram(benchmark::State& state)
{
    const std::unique_ptr<MatrixData> poData = normalValues(static_cast<int>(state.range(0)));
    QHistogramItemModel model;
    for (auto _ : state) {
        model.setIntervalSize(10.0);
        model.takeNewDataSet(poData.get(), static_cast<int>(state.range(1)), {});
        if (model.numberOfPoints() != state.range(0))
            state.SkipWithError("points are missing");
    }
}
BENCHMARK(rebuildHistogram)
    ->Args({1000, 0})
    ->Args({100000, 0})
    ->Args({1000000, 0})
    ->Args({1000000, 2})
    ->Unit(benchmark::kMillisecond);

/// With an interval size that the data set has to choose.
void newHistogram(benchmark::State& state)
{
    const std::unique_ptr<MatrixData> poData = normalValues(static_cast<int>(state.range(0)));
    QHistogramItemModel model;
    for (auto _ : state) {
        model.setIntervalSize(99999.0);
        model.takeNewDataSet(poData.get(), MatrixData::Frequency, {});
        if (model.rowCount() == 0)
            state.SkipWithError("no intervals");
    }
}
BENCHMARK(newHistogram)->Arg(1000000)->Unit(benchmark::kMillisecond);

void redrawHistogram(benchmark::State& state)
{
    Canvas canvas(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        canvas.m_plot.redraw();
        canvas.show();
    }
}
BENCHMARK(redrawHistogram)->Arg(100)->Arg(10000)->Unit(benchmark::kMillisecond);

/// state.range(0): zoom; state.range(1): per cent per step.
void panHistogram(benchmark::State& state)
{
    Canvas canvas(1000);
    canvas.m_plot.zoom(static_cast<double>(state.range(0)));
    canvas.show();
    int iPercent = 50;
    for (auto _ : state) {
        iPercent = (iPercent + static_cast<int>(state.range(1))) % 101;
        canvas.m_plot.xoffset(iPercent);
        canvas.show();
    }
    if (canvas.m_plot.pixelMemory() > ChartBackingStore::s_iDefaultBudget)
        state.SkipWithError("too many pixels");
    state.counters["MB"] = static_cast<double>(canvas.m_plot.pixelMemory()) / 1e6;
}
BENCHMARK(panHistogram)
    ->Args({2, 1})  // everything is held
    ->Args({8, 0})  // inside the tile
    ->Args({8, 1})  // across tiles
    ->Args({20, 1}) // likewise
    ->Unit(benchmark::kMillisecond);

void drawSymbols(benchmark::State& state)
{
    std::mt19937 generator(5);
    std::uniform_real_distribution<double> distribution(0.0, 1000.0);
    std::vector<QPointF> vPoints(static_cast<std::size_t>(state.range(0)));
    for (QPointF& oPoint : vPoints)
        oPoint = QPointF(distribution(generator), distribution(generator));
    QImage oImage(1000, 1000, QImage::Format_ARGB32_Premultiplied);
    SymbolSpriteCache sprites;
    for (auto _ : state) {
        oImage.fill(Qt::white);
        QPainter painter(&oImage);
        sprites.drawSymbols(&painter, vPoints, {Circle, Qt::darkBlue, Qt::darkBlue, 3});
        benchmark::DoNotOptimize(oImage.constBits());
    }
}
BENCHMARK(drawSymbols)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
