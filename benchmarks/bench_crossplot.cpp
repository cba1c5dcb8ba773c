// The cross plot at a million records: full redraws in every look, a new selection, the gesture that makes it, panning.

#include "WidgetBenchmark.h"

#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QCrossPlot.h>
#include <gkBase/QCrossPlotWidget.h>
#include <gkBase/QRelationshipItemModel.h>

#include <QImage>
#include <QMouseEvent>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

constexpr int g_iRecords = 1000000;
constexpr int g_iSide = 1000;

std::unique_ptr<MatrixData> node(std::vector<double> vdValues)
{
    auto poData = std::make_unique<MatrixData>(QStringLiteral("values"), 0, 1, QMetaType::Double);
    poData->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
    return poData;
}

enum Look
{
    Plain,
    Coloured,
    Symbols,
    Tadpoles
};

/// Points that fill most of the chart, so that nearly every pixel holds one.
struct Chart
{
    explicit Chart(Look eLook)
        : m_oScreen(g_iSide, g_iSide, QImage::Format_RGB32)
    {
        std::mt19937 generator(29);
        std::normal_distribution<double> normal(50.0, 18.0);
        std::vector<double> vdX(g_iRecords);
        std::vector<double> vdY(g_iRecords);
        std::vector<double> vdSum(g_iRecords);
        std::vector<double> vdClass(g_iRecords);
        for (std::size_t i = 0; i < vdX.size(); ++i) {
            vdX[i] = normal(generator);
            vdY[i] = normal(generator);
            vdSum[i] = vdX[i] + vdY[i];
            vdClass[i] = static_cast<double>(generator() % 8);
        }
        m_poX = node(std::move(vdX));
        m_poY = node(std::move(vdY));
        m_poSum = node(std::move(vdSum));
        m_poClass = node(std::move(vdClass));
        m_model.takeNewDataSet(m_poX.get(), m_poY.get());
        m_model.setColorAttribute(eLook == Coloured ? m_poSum.get() : nullptr);
        m_model.setSymbolAttribute(eLook == Symbols ? m_poClass.get() : nullptr);
        m_model.setTadPoleAzimuthDataNode(eLook == Tadpoles ? m_poSum.get() : nullptr);
        m_plot.resize(g_iSide, g_iSide);
        m_plot.setModel(&m_model);
        m_plot.setRange({0.0, 0.0}, {100.0, 100.0});
    }
    void show() { m_plot.render(&m_oScreen); }
    void send(QEvent::Type eType, const QPointF& oPosition)
    {
        QMouseEvent event(eType, oPosition, oPosition, eType == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_plot, &event);
    }

    std::unique_ptr<MatrixData> m_poX;
    std::unique_ptr<MatrixData> m_poY;
    std::unique_ptr<MatrixData> m_poSum;
    std::unique_ptr<MatrixData> m_poClass;
    QRelationshipItemModel m_model;
    QCrossPlot m_plot;
    QImage m_oScreen;
};

void redrawCrossPlot(benchmark::State& state)
{
    Chart chart(static_cast<Look>(state.range(0)));
    int iStep = 0;
    for (auto _ : state) {
        // Another range each time, so that nothing of the last picture serves.
        chart.m_plot.setRange({0.0, 0.0}, {100.0, 100.0 + 0.001 * ++iStep});
        chart.show();
    }
}
BENCHMARK(redrawCrossPlot)->Arg(Plain)->Arg(Coloured)->Arg(Symbols)->Arg(Tadpoles)->Unit(benchmark::kMillisecond);

/// state.range(0): selected points.
void showNewSelection(benchmark::State& state)
{
    Chart chart(Coloured);
    chart.show();
    std::size_t iFirst = 0;
    std::vector<unsigned char> vbMask(g_iRecords);
    for (auto _ : state) {
        std::fill(vbMask.begin(), vbMask.end(), 0);
        std::fill_n(vbMask.begin() + static_cast<std::ptrdiff_t>(++iFirst), state.range(0), 1);
        chart.m_model.selectPoints(vbMask, false);
        chart.m_plot.scheduleRedraw();
        chart.show();
    }
    if (chart.m_model.numberOfSelectedPoints() == 0)
        state.SkipWithError("nothing is selected");
}
BENCHMARK(showNewSelection)->Arg(100)->Arg(100000)->Unit(benchmark::kMillisecond);

/// A lasso of 200 corners over a third of the chart, from press to release; shown only when state.range(0) is 1.
void selectByOutline(benchmark::State& state)
{
    Chart chart(Plain);
    chart.show();
    for (auto _ : state) {
        chart.send(QEvent::MouseButtonPress, QPointF(830.0, 500.0));
        for (int i = 1; i < 200; ++i) {
            const double dAngle = i * 2.0 * M_PI / 200.0;
            chart.send(QEvent::MouseMove, QPointF(std::round(500.0 + 330.0 * std::cos(dAngle)),
                                                  std::round(500.0 + 330.0 * std::sin(dAngle))));
        }
        chart.send(QEvent::MouseButtonRelease, QPointF(830.0, 500.0));
        if (state.range(0) == 1)
            chart.show();
    }
    state.counters["selected"] = chart.m_model.numberOfSelectedPoints();
}
BENCHMARK(selectByOutline)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// state.range(0): zoom; one per cent per step.
void panCrossPlot(benchmark::State& state)
{
    Chart chart(Coloured);
    chart.m_plot.zoom(static_cast<double>(state.range(0)));
    chart.show();
    int iPercent = 50;
    for (auto _ : state) {
        iPercent = (iPercent + 1) % 101;
        chart.m_plot.xoffset(iPercent);
        chart.show();
    }
}
BENCHMARK(panCrossPlot)->Arg(2)->Arg(20)->Unit(benchmark::kMillisecond);

enum Refill
{
    OtherAxes,    ///< x and y change places
    EditedValue,  ///< one value of x changed
    NothingIsNew, ///< a selection made in the chart comes back from the table
};

/// The panel takes what its owner tells it; nothing is painted.
void refillPanel(benchmark::State& state)
{
    Chart chart(Plain);
    MatrixData root(QStringLiteral("root"));
    auto* poSet = new MatrixData(QStringLiteral("set"));
    root.appendChild(poSet, false);
    for (std::unique_ptr<MatrixData>* poNode : {&chart.m_poX, &chart.m_poY, &chart.m_poSum})
        poSet->appendChild((*poNode)->clone(), true);
    QCrossPlotWidget panel;
    panel.setDataRoot(&root);
    panel.setAttributes(poSet->child(0), poSet->child(1));
    panel.setColorAttribute(poSet->child(2));
    std::vector<int> viRecords(g_iRecords / 2);
    std::iota(viRecords.begin(), viRecords.end(), 0);
    panel.setSelectedRows(viRecords);
    for (auto _ : state) {
        if (state.range(0) == EditedValue)
            poSet->child(0)->setValue(poSet->child(0)->rowOffSet(), 50.0);
        if (state.range(0) == OtherAxes)
            panel.swapAxes();
        else
            panel.updateCrossPlot();
        panel.setSelectedRows(viRecords);
    }
    if (panel.numberOfSelectedRows() != g_iRecords / 2)
        state.SkipWithError("the selection is lost");
}
BENCHMARK(refillPanel)->Arg(OtherAxes)->Arg(EditedValue)->Arg(NothingIsNew)->Unit(benchmark::kMillisecond);

} // namespace

int main(int iArguments, char** ppcArguments)
{
    return runWidgetBenchmarks(iArguments, ppcArguments);
}
