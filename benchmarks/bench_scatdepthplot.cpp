// The dipmeter panel of 1400 x 900 pixels over 1e5 records and 200 lines, with all that stands beside the tracks: what
// a step of a drag, another T direction and another selection cost until everything is painted.

#include "WidgetBenchmark.h"

#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QScatDepthPlotWidget.h>
#include <gkBase/ScatScenarios.h>

#include <QCoreApplication>
#include <QImage>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

constexpr int g_iRecords = 100000;
constexpr int g_iLines = 200;
constexpr double g_dDepth = 1000.0;
constexpr double g_dLength = 2000.0;

MatrixData* addColumn(MatrixData& dataSet, const char* pName, std::vector<double> vdValues)
{
    auto* poNode = new MatrixData(QLatin1String(pName), 0, 1, QMetaType::Double);
    poNode->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
    dataSet.appendChild(poNode, true);
    return poNode;
}

/// The panel on the screen, with the lines of a scenario, one of them picked.
struct Panel
{
    Panel()
        : m_root(QStringLiteral("root"))
    {
        std::mt19937 generator(5);
        std::normal_distribution<double> noise(0.0, 2.0);
        std::vector<double> vdDepths;
        std::vector<double> vdDips;
        std::vector<double> vdAzimuths;
        for (int i = 0; i < g_iRecords; ++i) {
            vdDepths.push_back(g_dDepth + g_dLength * i / g_iRecords);
            const double dLimb = 40.0 * std::sin(vdDepths.back() * 0.01) + noise(generator);
            vdDips.push_back(std::abs(dLimb));
            vdAzimuths.push_back(dLimb < 0.0 ? 130.0 : 310.0);
        }
        auto* poWell = new MatrixData(QStringLiteral("Well"));
        m_root.appendChild(poWell, false);
        MatrixData* poDepth = addColumn(*poWell, "Depth", std::move(vdDepths));
        MatrixData* poDip = addColumn(*poWell, "Dip", std::move(vdDips));
        MatrixData* poAzimuth = addColumn(*poWell, "Dip Azimuth", std::move(vdAzimuths));
        m_panel.resize(1400, 900);
        m_panel.setDataRoot(&m_root);
        m_panel.setAttributes(poDepth, poDip, poAzimuth);
        for (int i = 0; i < g_iLines; ++i)
            m_panel.scenarios()->insert(static_cast<DepthLineField::DataType>(i % 5),
                                        {0.0, g_dDepth + g_dLength * (i + 0.5) / g_iLines},
                                        QStringLiteral("Line_%1").arg(i), QColor::fromHsv(i * 37 % 360, 200, 200), 0.0);
        m_panel.scenarios()->pick({g_iLines / 2}, false);
        m_panel.show();
        paint();
    }

    /// What is due, then the whole panel, although a screen would paint only what changed.
    void paint()
    {
        QCoreApplication::processEvents();
        m_panel.render(&m_screen);
    }

    MatrixData m_root;
    QScatDepthPlotWidget m_panel;
    QImage m_screen{1400, 900, QImage::Format_RGB32};
};

void moveLine(benchmark::State& state)
{
    Panel panel;
    double dStep = 3.0;
    for (auto _ : state) {
        dStep = -dStep;
        panel.m_panel.scenarios()->move({0.0, dStep});
        panel.paint();
    }
}
BENCHMARK(moveLine)->Unit(benchmark::kMillisecond);

void turnDirections(benchmark::State& state)
{
    Panel panel;
    double dT = 300.0;
    for (auto _ : state) {
        dT = 610.0 - dT;
        panel.m_panel.setDirections(dT, dT - 90.0);
        panel.paint();
    }
}
BENCHMARK(turnDirections)->Unit(benchmark::kMillisecond);

void selectTenth(benchmark::State& state)
{
    Panel panel;
    int iFirst = 0;
    for (auto _ : state) {
        iFirst = (iFirst + 1) % 10;
        std::vector<int> viRecords;
        for (int i = iFirst; i < g_iRecords; i += 10)
            viRecords.push_back(i);
        panel.m_panel.setSelectedRecords(viRecords);
        panel.paint();
    }
}
BENCHMARK(selectTenth)->Unit(benchmark::kMillisecond);

} // namespace

int main(int iArguments, char** ppcArguments)
{
    return runWidgetBenchmarks(iArguments, ppcArguments);
}
