// Lines at depths over four linked tracks of 1e5 records: a step of a drag, a pick, and a redraw of everything.

#include "WidgetBenchmark.h"

#include <gkBase/DepthLineField.h>
#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QDepthTrackPlot.h>
#include <gkBase/QRelationshipItemModel.h>

#include <QImage>

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

constexpr double g_dDepth = 1000.0;
constexpr double g_dLength = 2000.0;

std::unique_ptr<MatrixData> column(const QString& sName, std::vector<double> vdValues)
{
    auto poNode = std::make_unique<MatrixData>(sName, 0, 1, QMetaType::Double);
    poNode->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
    return poNode;
}

/// Four tracks of tadpoles side by side, each with a model and a scenario of its own, as an interpreter sees them.
struct Tracks
{
    Tracks(int iRecords, int iLines, DepthLineField::DomainType eDomains)
    {
        const auto iCount = static_cast<std::size_t>(iRecords);
        std::mt19937 generator(5);
        std::normal_distribution<double> noise(0.0, 4.0);
        std::vector<double> vdDepth(iCount);
        std::vector<double> vdAzimuth(iCount);
        std::array<std::vector<double>, 4> vdTracks;
        for (std::size_t i = 0; i < iCount; ++i) {
            vdDepth[i] = g_dDepth + g_dLength * static_cast<double>(i) / static_cast<double>(iCount);
            vdAzimuth[i] = std::fmod(static_cast<double>(i) * 0.01, 360.0);
            for (std::size_t t = 0; t < vdTracks.size(); ++t)
                vdTracks[t].push_back(40.0 * std::sin(vdDepth[i] * 0.01 + static_cast<double>(t)) + noise(generator));
        }
        m_poDepth = column(QStringLiteral("Depth"), std::move(vdDepth));
        m_poAzimuth = column(QStringLiteral("Dip Azimuth"), std::move(vdAzimuth));
        for (std::size_t t = 0; t < m_plots.size(); ++t) {
            m_poTracks[t] = column(QString::number(t), std::move(vdTracks[t]));
            m_models[t].takeNewDataSet(m_poTracks[t].get(), m_poDepth.get());
            m_models[t].setTadPoleAzimuthDataNode(m_poAzimuth.get());
            m_models[t].setPointPixelSize(3);
            m_models[t].addStructuralTopsSenario(QStringLiteral("Scenario_0"));
            fill(*m_models[t].structuralTops(), iLines, eDomains);
            m_plots[t].resize(250, 700);
            m_plots[t].setModel(&m_models[t]);
            m_plots[t].setRange({-60.0, 0.0}, {60.0, 0.0});
            m_plots[t].setDepthRange(g_dDepth, g_dDepth + g_dLength);
            m_plots[t].setDataCreationType(QCrossPlot::StructuralTopCreation);
            m_plots[t].setLineOrientationPosition([](const QPointF& oOrientation) { return oOrientation.x(); });
        }
        show();
    }

    static void fill(DepthLineField& field, int iLines, DepthLineField::DomainType eDomains)
    {
        for (int i = 0; i < iLines; ++i) {
            field.insertHorizontalLine(g_dDepth + g_dLength * (i + 0.5) / iLines, 0.0, QStringLiteral("Line_%1").arg(i),
                                       QColor::fromHsv(i * 37 % 360, 200, 200),
                                       static_cast<DepthLineField::DataType>(i % 5), QPointF(30.0, i * 7 % 360));
        }
        field.setSelected(iLines / 2, true);
        field.setDomainType(eDomains);
    }
    void show()
    {
        for (QDepthTrackPlot& plot : m_plots)
            plot.render(&m_oScreen);
    }

    std::unique_ptr<MatrixData> m_poDepth;
    std::unique_ptr<MatrixData> m_poAzimuth;
    std::array<std::unique_ptr<MatrixData>, 4> m_poTracks;
    std::array<QRelationshipItemModel, 4> m_models;
    std::array<QDepthTrackPlot, 4> m_plots;
    QImage m_oScreen{250, 700, QImage::Format_RGB32};
};

void moveLine(benchmark::State& state)
{
    Tracks tracks(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                  static_cast<DepthLineField::DomainType>(state.range(2)));
    double dStep = 3.0;
    for (auto _ : state) {
        dStep = -dStep;
        for (std::size_t t = 0; t < tracks.m_plots.size(); ++t) {
            tracks.m_models[t].structuralTops()->moveSelectedLines({0.0, dStep});
            tracks.m_plots[t].updateLines();
        }
        tracks.show();
    }
}
BENCHMARK(moveLine)
    ->ArgsProduct({{100000}, {20, 200}, {DepthLineField::NoDomains, DepthLineField::AllLineDomains}})
    ->ArgNames({"records", "lines", "domains"})
    ->Unit(benchmark::kMillisecond);

/// Another line is picked in all tracks.
void pickLine(benchmark::State& state)
{
    Tracks tracks(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), DepthLineField::NoDomains);
    int iLine = 0;
    for (auto _ : state) {
        iLine = (iLine + 1) % static_cast<int>(state.range(1));
        for (std::size_t t = 0; t < tracks.m_plots.size(); ++t) {
            tracks.m_models[t].structuralTops()->deselectAll();
            tracks.m_models[t].structuralTops()->setSelected(iLine, true);
            tracks.m_plots[t].updateLines();
        }
        tracks.show();
    }
}
BENCHMARK(pickLine)->Args({100000, 200})->ArgNames({"records", "lines"})->Unit(benchmark::kMillisecond);

/// New limits: points, lines and labels are laid out and drawn again.
void redrawTracks(benchmark::State& state)
{
    Tracks tracks(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), DepthLineField::NoDomains);
    double dMove = 0.0;
    for (auto _ : state) {
        dMove = dMove == 0.0 ? 1.0 : 0.0;
        for (QDepthTrackPlot& plot : tracks.m_plots)
            plot.setDepthRange(g_dDepth + dMove, g_dDepth + g_dLength);
        tracks.show();
    }
}
BENCHMARK(redrawTracks)->Args({100000, 200})->ArgNames({"records", "lines"})->Unit(benchmark::kMillisecond);

} // namespace

int main(int iArguments, char** ppcArguments)
{
    return runWidgetBenchmarks(iArguments, ppcArguments);
}
