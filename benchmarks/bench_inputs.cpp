// The axis beside a chart: what a wheel step (new ticks) and a scroll step (a repaint) cost, by the length of the chart
// picture in pixels.

#include "AxisTicks.h"
#include "QCartesianAxisWidget.h"
#include "WidgetBenchmark.h"

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

namespace {

void tickChoice(benchmark::State& state)
{
    const auto labelExtent = [](const QString& sLabel) { return 7.0 * double(sLabel.size()); };
    const gkBase::AxisScale oScale(1234.5, 3456.7, static_cast<int>(state.range(0)), Qt::Horizontal);
    for (auto _ : state) {
        const gkBase::AxisTicks oTicks = gkBase::fittedAxisTicks(oScale, labelExtent, 12.0, 25.0);
        if (oTicks.m_vMajor.size() < 2)
            state.SkipWithError("no ticks");
    }
}
BENCHMARK(tickChoice)->Arg(1000)->Arg(20000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

void axisPainting(benchmark::State& state)
{
    QCartesianAxisWidget oAxis(QCartesianAxisWidget::Left, nullptr);
    oAxis.resize(80, 1000);
    oAxis.setTitle(QStringLiteral("Depth"));
    oAxis.setRange(1234.5, 3456.7);
    oAxis.setZoom(double(state.range(0)) / 1000.0);
    QImage image(200, 1000, QImage::Format_RGB32);
    int iOffset = 0;
    for (auto _ : state) {
        QPainter painter(&image);
        oAxis.setOffset(iOffset++ % 1000);
        oAxis.drawAxis(painter, QRect(100, 0, 100, 1000));
        benchmark::DoNotOptimize(image.constBits());
    }
}
BENCHMARK(axisPainting)->Arg(1000)->Arg(20000)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int iArguments, char** ppcArguments)
{
    return runWidgetBenchmarks(iArguments, ppcArguments);
}
