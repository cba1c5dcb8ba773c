// How long a new selection takes until suggestions and diagram show it.

#include "WidgetBenchmark.h"

#include <gkBase/Angles.h>
#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/ScatDirectionFinder.h>

#include <QTabWidget>

#include <cmath>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

/// Planes of folds about the axis 10/220 with noise of 3 degrees, in a tree.
struct FoldedPlanes
{
    explicit FoldedPlanes(int iCount)
    {
        std::mt19937_64 oRandom(9);
        std::normal_distribution<double> oNoise(0.0, 3.0);
        std::vector<double> vdDips;
        std::vector<double> vdAzimuths;
        for (int i = 0; i < iCount; ++i) {
            const double dAcross = std::tan(radians(35.0 * std::sin(2.0 * g_dPi * i / 2000.0) + oNoise(oRandom)));
            const double dAlong = std::tan(radians(10.0 + oNoise(oRandom)));
            vdDips.push_back(degrees(std::atan(std::hypot(dAcross, dAlong))));
            vdAzimuths.push_back(wrapAzimuth(220.0 + degrees(std::atan2(dAcross, dAlong))));
        }
        auto* poWell = new MatrixData(QStringLiteral("Well"));
        m_oRoot.appendChild(poWell, false);
        for (MatrixData* poNode : {m_poDip, m_poAzimuth})
            poWell->appendChild(poNode, true);
        m_poDip->setColumn(0, MatrixColumn::fromDoubles(vdDips));
        m_poAzimuth->setColumn(0, MatrixColumn::fromDoubles(vdAzimuths));
    }

    MatrixData m_oRoot{QStringLiteral("root")};
    MatrixData* m_poDip = new MatrixData(QStringLiteral("dip"), 0, 1, QMetaType::Double);
    MatrixData* m_poAzimuth = new MatrixData(QStringLiteral("azimuth"), 0, 1, QMetaType::Double);
};

/// range: records, selected records of a hundred, page.
void newSelection(benchmark::State& state)
{
    const int iRecords = static_cast<int>(state.range(0));
    const int iShare = static_cast<int>(state.range(1));
    FoldedPlanes planes(iRecords);
    ScatDirectionFinder finder;
    finder.resize(340, 420);
    finder.setData(iRecords, planes.m_poDip, planes.m_poAzimuth, {});
    finder.setDirections(310.0, 220.0);
    finder.show();
    finder.findChild<QTabWidget*>()->setCurrentIndex(static_cast<int>(state.range(2)));
    QApplication::processEvents();
    std::vector<std::vector<int>> vviSelections(2);
    for (int i = 0; i < iRecords; ++i)
        if (i % 100 < iShare)
            for (int iSelection : {0, 1})
                vviSelections[static_cast<std::size_t>(iSelection)].push_back((i + 7 * iSelection) % iRecords);
    std::size_t iNext = 0;
    for (auto _ : state) {
        finder.setSelectedRecords(vviSelections[iNext++ % 2]);
        QApplication::processEvents();
        benchmark::DoNotOptimize(finder.grab());
    }
    if (!(axialDifference(finder.lineSuggestion().m_dTransverse, 310.0) < 5.0))
        state.SkipWithError("wrong direction");
}
BENCHMARK(newSelection)
    ->ArgsProduct({{100000, 1000000}, {1, 50, 99}, {0, 1, 2}})
    ->ArgNames({"records", "selectedPerCent", "page"})
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return runWidgetBenchmarks(argc, argv);
}
