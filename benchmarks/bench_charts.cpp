// Histogram, bar chart and probability plot at a million records, and redrawing and panning of a zoomed canvas.

#include "WidgetBenchmark.h"

#include <gkBase/BarDiagramClasses.h>
#include <gkBase/EMFDevice.h>
#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/PointStyle.h>
#include <gkBase/ProbabilityPlotGeometry.h>
#include <gkBase/QBarDiagramWidget.h>
#include <gkBase/QHistogramItemModel.h>
#include <gkBase/QHistogramPlotWidget.h>
#include <gkBase/QProbabilityPlot.h>
#include <gkBase/SymbolSpriteCache.h>

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <algorithm>
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

/// A million texts of which state.range(0) differ.
std::unique_ptr<MatrixData> texts(std::int64_t iDistinct)
{
    MatrixColumn column(QMetaType::QString);
    for (int i = 0; i < 1000000; ++i)
        column.appendText(QStringLiteral("class %1").arg(i * 7919LL % iDistinct));
    auto poData = std::make_unique<MatrixData>(QStringLiteral("texts"), 0, 1, QMetaType::QString);
    poData->setColumn(0, std::move(column));
    return poData;
}

void countBars(benchmark::State& state, const MatrixData& data, double dInterval)
{
    std::vector<int> viRecords(500000);
    for (std::size_t i = 0; i < viRecords.size(); ++i)
        viRecords[i] = static_cast<int>(2 * i);
    int iTotal = 0;
    for (auto _ : state) {
        BarDiagramClasses classes;
        classes.classify(&data, dInterval);
        classes.count(viRecords);
        classes.arrange(BarDiagramClasses::NameOrder, true);
        iTotal = classes.total();
    }
    if (iTotal != 500000)
        state.SkipWithError("records are missing");
}

void newBarsOfTexts(benchmark::State& state)
{
    countBars(state, *texts(state.range(0)), 0.0);
}
BENCHMARK(newBarsOfTexts)->Arg(12)->Arg(500)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

/// state.range(0): 0 distinct numbers, 1 intervals.
void newBarsOfNumbers(benchmark::State& state)
{
    countBars(state, *normalValues(1000000), state.range(0) == 1 ? 50.0 : 0.0);
}
BENCHMARK(newBarsOfNumbers)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

/// Another selection of records, with the classes as they are.
void recountBars(benchmark::State& state)
{
    const std::unique_ptr<MatrixData> poData = texts(500);
    BarDiagramClasses classes;
    classes.classify(poData.get(), 0.0);
    for (auto _ : state) {
        classes.classify(poData.get(), 0.0);
        classes.count({});
        classes.arrange(BarDiagramClasses::CountOrder, true);
        if (classes.total() != 1000000)
            state.SkipWithError("records are missing");
    }
}
BENCHMARK(recountBars)->Unit(benchmark::kMillisecond);

void scrollBars(benchmark::State& state)
{
    const std::unique_ptr<MatrixData> poData = texts(state.range(0));
    const auto pClasses = std::make_shared<BarDiagramClasses>();
    pClasses->classify(poData.get(), 0.0);
    pClasses->count({});
    pClasses->arrange(BarDiagramClasses::ValueOrder, true);
    QBarDiagramWidget plot;
    plot.resize(1920, 1080);
    plot.setClasses(pClasses);
    plot.setTop(pClasses->maximumCount());
    QImage oScreen(plot.size(), QImage::Format_RGB32);
    int iFirst = 0;
    for (auto _ : state) {
        plot.setFirstBar(++iFirst % 300);
        plot.render(&oScreen);
    }
}
BENCHMARK(scrollBars)->Arg(500)->Arg(1000000)->Unit(benchmark::kMillisecond);

/// Sorting, fit, layout and paint of another selection.
void newProbabilityPlot(benchmark::State& state)
{
    const std::unique_ptr<MatrixData> poData = normalValues(1000000);
    const std::vector<double> vdValues = poData->column(0).numbers();
    QProbabilityPlot plot;
    plot.resize(1920, 1080);
    QImage oScreen(plot.size(), QImage::Format_RGB32);
    for (auto _ : state) {
        std::vector<double> vdSorted = vdValues;
        std::sort(vdSorted.begin(), vdSorted.end());
        plot.setValues(std::move(vdSorted));
        plot.setBoundaries({800.0, -5.0}, {2200.0, 5.0});
        plot.render(&oScreen);
    }
    if (plot.points().size() < 500)
        state.SkipWithError("points are missing");
}
BENCHMARK(newProbabilityPlot)->Unit(benchmark::kMillisecond);

/// state.range(0): zoom.
void redrawProbabilityPlot(benchmark::State& state)
{
    std::vector<double> vdSorted = normalValues(1000000)->column(0).numbers();
    std::sort(vdSorted.begin(), vdSorted.end());
    QProbabilityPlot plot;
    plot.resize(1920, 1080);
    plot.setValues(std::move(vdSorted));
    plot.setBoundaries({800.0, -5.0}, {2200.0, 5.0});
    plot.zoom(static_cast<double>(state.range(0)));
    QImage oScreen(plot.size(), QImage::Format_RGB32);
    for (auto _ : state) {
        plot.redraw();
        plot.render(&oScreen);
    }
    state.counters["points"] = static_cast<double>(plot.points().size());
}
BENCHMARK(redrawProbabilityPlot)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond);

std::vector<QPointF> evenPoints(std::int64_t iPoints)
{
    std::mt19937 generator(5);
    std::uniform_real_distribution<double> distribution(0.0, 1000.0);
    std::vector<QPointF> vPoints(static_cast<std::size_t>(iPoints));
    for (QPointF& oPoint : vPoints)
        oPoint = QPointF(distribution(generator), distribution(generator));
    return vPoints;
}

void drawSymbols(benchmark::State& state)
{
    const std::vector<QPointF> vPoints = evenPoints(state.range(0));
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

/// Symbols as outlines in an enhanced metafile; none is left out.
void writeMetafile(benchmark::State& state)
{
    const std::vector<QPointF> vPoints = evenPoints(state.range(0));
    SymbolSpriteCache sprites;
    qsizetype iBytes = 0;
    for (auto _ : state) {
        EMFDevice device;
        device.setBoundingRect(QRect(0, 0, 1000, 1000));
        QPainter painter(&device);
        sprites.drawSymbols(&painter, vPoints, {static_cast<int>(state.range(1)), Qt::darkBlue, Qt::darkBlue, 3});
        painter.end();
        iBytes = device.metafile().size();
    }
    state.counters["bytes a symbol"] = static_cast<double>(iBytes) / static_cast<double>(vPoints.size());
}
BENCHMARK(writeMetafile)
    ->ArgNames({"symbols", "style"})
    ->Args({1000000, Circle})
    ->Args({1000000, BigCross1})
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int iArguments, char** ppcArguments)
{
    return runWidgetBenchmarks(iArguments, ppcArguments);
}
