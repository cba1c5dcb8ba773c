// The model behind the point charts at a million records.

#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/RelationshipClasses.h>

#include <QString>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace gkBase;

namespace {

constexpr int g_iRecords = 1000000;

/// A root with one data set of attributes: a depth, two numbers, and one attribute for every kind of class.
class Well
{
public:
    Well()
        : m_poRoot(std::make_unique<MatrixData>(QStringLiteral("root")))
        , m_poSet(new MatrixData(QStringLiteral("Well")))
    {
        m_poRoot->appendChild(m_poSet, false);
        std::mt19937 generator(11);
        std::normal_distribution<double> normal(50.0, 12.0);
        std::uniform_real_distribution<double> angle(0.0, 360.0);
        m_poDepth = numbers(QStringLiteral("Depth"), [](int i) { return 1000.0 + 0.002 * i; });
        m_poX = numbers(QStringLiteral("X"), [&](int) { return normal(generator); });
        m_poY = numbers(QStringLiteral("Y"), [&](int) { return normal(generator); });
        m_poAzimuth = numbers(QStringLiteral("Azimuth"), [&](int) { return angle(generator); });
        m_poIds = numbers(QStringLiteral("Cluster"), [&](int) { return std::floor(angle(generator) / 45.0); });
        m_poCounts = attribute(QStringLiteral("Count"), QMetaType::Int,
                               [&](MatrixColumn& oColumn, int i) { oColumn.setValue(i, int(generator() % 12)); });
        m_poCodes = attribute(QStringLiteral("Code"), QMetaType::Int,
                              [&](MatrixColumn& oColumn, int i) { oColumn.setValue(i, int(generator() >> 1)); });
        m_poTexts = attribute(QStringLiteral("Rock"), QMetaType::QString, [&](MatrixColumn& oColumn, int i) {
            oColumn.setText(i, QStringLiteral("rock %1").arg(generator() % 20));
        });
        m_poColors = attribute(QStringLiteral("Colour"), QMetaType::QColor, [&](MatrixColumn& oColumn, int i) {
            oColumn.setValue(i, QColor::fromHsv(static_cast<int>(generator() % 24) * 15, 200, 200));
        });
    }

    std::unique_ptr<MatrixData> m_poRoot;
    MatrixData* m_poSet;
    MatrixData* m_poDepth;
    MatrixData* m_poX;
    MatrixData* m_poY;
    MatrixData* m_poAzimuth;
    MatrixData* m_poIds;
    MatrixData* m_poCounts;
    MatrixData* m_poCodes;
    MatrixData* m_poTexts;
    MatrixData* m_poColors;

private:
    template <typename Value>
    MatrixData* numbers(const QString& sName, Value value)
    {
        std::vector<double> vdValues(g_iRecords);
        for (int i = 0; i < g_iRecords; ++i)
            vdValues[static_cast<std::size_t>(i)] = value(i);
        return add(sName, MatrixColumn::fromDoubles(std::move(vdValues)));
    }

    template <typename Fill>
    MatrixData* attribute(const QString& sName, QMetaType::Type eType, Fill fill)
    {
        MatrixColumn oColumn(eType, g_iRecords);
        for (int i = 0; i < g_iRecords; ++i)
            fill(oColumn, i);
        return add(sName, std::move(oColumn));
    }

    MatrixData* add(const QString& sName, MatrixColumn oColumn)
    {
        auto* poAttribute = new MatrixData(sName, 0, 1, oColumn.type());
        poAttribute->setColumn(0, std::move(oColumn));
        m_poSet->appendChild(poAttribute, true);
        return poAttribute;
    }
};

Well& well()
{
    static Well theWell;
    return theWell;
}

/// Two attributes with colours and symbols; 0: others than before each time, 1: the same ones, unchanged.
void takeNewDataSet(benchmark::State& state)
{
    QRelationshipItemModel model;
    model.setColorAttribute(well().m_poX);
    model.setSymbolAttribute(well().m_poTexts);
    bool bOther = false;
    for (auto _ : state) {
        bOther = state.range(0) == 0 && !bOther;
        model.takeNewDataSet(-1, QRelationshipItemModel::CrossPlotDisplay, bOther ? well().m_poY : well().m_poX,
                             bOther ? well().m_poX : well().m_poY, {});
    }
    if (model.numberOfValidPoints() != g_iRecords)
        state.SkipWithError("points lost");
}
BENCHMARK(takeNewDataSet)->ArgName("same")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// After an edit of one cell of an axis.
void refreshAfterEdit(benchmark::State& state)
{
    QRelationshipItemModel model;
    model.takeNewDataSet(-1, QRelationshipItemModel::CrossPlotDisplay, well().m_poX, well().m_poY, {});
    model.setColorAttribute(well().m_poTexts);
    for (auto _ : state) {
        well().m_poX->valuesChanged();
        model.refresh();
    }
}
BENCHMARK(refreshAfterEdit)->Unit(benchmark::kMillisecond);

void buildClasses(benchmark::State& state)
{
    const MatrixData* aAttributes[] = {well().m_poTexts, well().m_poCounts, well().m_poCodes,
                                       well().m_poIds,   well().m_poX,      well().m_poColors};
    const MatrixData* poAttribute = aAttributes[state.range(0)];
    std::size_t iIds = 0;
    for (auto _ : state) {
        const RelationshipClasses classes(poAttribute, {});
        iIds = classes.ids().size();
    }
    if (iIds != static_cast<std::size_t>(g_iRecords))
        state.SkipWithError("records lost");
    state.SetLabel(poAttribute->name().toStdString());
}
BENCHMARK(buildClasses)->DenseRange(0, 5)->Unit(benchmark::kMillisecond);

/// Every other record, in turn with none.
void setSelectedRecords(benchmark::State& state)
{
    QRelationshipItemModel model;
    model.takeNewDataSet(-1, QRelationshipItemModel::CrossPlotDisplay, well().m_poX, well().m_poY, {});
    std::vector<int> viRecords;
    for (int i = 0; i < g_iRecords; i += 2)
        viRecords.push_back(i);
    for (auto _ : state) {
        model.setSelectedRecords(viRecords);
        if (model.numberOfSelectedPoints() != g_iRecords / 2)
            state.SkipWithError("wrong selection");
        model.setSelectedRecords({});
    }
}
BENCHMARK(setSelectedRecords)->Unit(benchmark::kMillisecond);

/// One record after another.
void setSelectedOneByOne(benchmark::State& state)
{
    QRelationshipItemModel model;
    model.takeNewDataSet(-1, QRelationshipItemModel::CrossPlotDisplay, well().m_poX, well().m_poY, {});
    bool bSelected = false;
    for (auto _ : state) {
        bSelected = !bSelected;
        for (int i = 0; i < g_iRecords; ++i)
            model.setSelected(i, bSelected);
    }
    if (model.numberOfSelectedPoints() != (bSelected ? g_iRecords : 0))
        state.SkipWithError("wrong selection");
}
BENCHMARK(setSelectedOneByOne)->Unit(benchmark::kMillisecond);

void decimation(benchmark::State& state)
{
    QRelationshipItemModel model;
    model.takeNewDataSet(-1, QRelationshipItemModel::DepthDisplay, well().m_poX, well().m_poDepth, {});
    if (state.range(1) != 0)
        model.setTadPoleAzimuthDataNode(well().m_poAzimuth);
    for (auto _ : state) {
        model.generateNumberOfIntervalFilter(static_cast<int>(state.range(0)), 1000.0, 3000.0);
        model.generateDataDecimation();
    }
    if (model.decimationData()->recordCount() != state.range(0))
        state.SkipWithError("wrong number of bins");
}
BENCHMARK(decimation)
    ->ArgNames({"bins", "planes"})
    ->Args({100, 0})
    ->Args({99999, 0})
    ->Args({100, 1})
    ->Args({99999, 1})
    ->Unit(benchmark::kMillisecond);

void clusters(benchmark::State& state)
{
    QRelationshipItemModel model;
    model.takeNewDataSet(-1, QRelationshipItemModel::CrossPlotDisplay, well().m_poX, well().m_poY, {});
    model.setThirdDimAttribute(well().m_poDepth);
    for (auto _ : state)
        model.buildClusters_KML(QStringLiteral("Cluster"), 8);
    if (model.clusterSizes().size() != 8)
        state.SkipWithError("wrong number of clusters");
}
BENCHMARK(clusters)->Unit(benchmark::kMillisecond);

/// Planes of five sets, one of them on both sides of the rim.
class Planes
{
public:
    Planes()
        : m_poRoot(std::make_unique<MatrixData>(QStringLiteral("root")))
    {
        constexpr double aadSets[5][2] = {{15.0, 40.0}, {45.0, 120.0}, {70.0, 200.0}, {88.0, 300.0}, {60.0, 350.0}};
        std::mt19937 generator(12);
        std::normal_distribution<double> spread(0.0, 9.0);
        std::vector<double> vdDips(g_iRecords);
        std::vector<double> vdAzimuths(g_iRecords);
        for (std::size_t i = 0; i < vdDips.size(); ++i) {
            vdDips[i] = std::abs(aadSets[i % 5][0] + spread(generator));
            vdAzimuths[i] = std::fmod(aadSets[i % 5][1] + spread(generator) + 360.0, 360.0);
        }
        m_poDip = add(QStringLiteral("Dip"), std::move(vdDips));
        m_poAzimuth = add(QStringLiteral("Azimuth"), std::move(vdAzimuths));
    }

    void show(QRelationshipItemModel& model) const
    {
        model.takeNewDataSet(-1, QRelationshipItemModel::OrientationDisplay, m_poDip, m_poAzimuth, nullptr, nullptr,
                             false, {});
    }

private:
    MatrixData* add(const QString& sName, std::vector<double> vdValues)
    {
        auto* poAttribute = new MatrixData(sName, 0, 1, QMetaType::Double);
        poAttribute->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
        m_poRoot->appendChild(poAttribute, true);
        return poAttribute;
    }

    std::unique_ptr<MatrixData> m_poRoot;
    MatrixData* m_poDip;
    MatrixData* m_poAzimuth;
};

const Planes& planes()
{
    static const Planes thePlanes;
    return thePlanes;
}

/// Fisher statistics, eigenvalues and eigenvectors of the selection after another scan line was set: plain, or with the
/// weights.
void orientationStatistics(benchmark::State& state)
{
    QRelationshipItemModel model;
    planes().show(model);
    model.setBiasCorrectionOn(state.range(0) != 0);
    double dAzimuth = 0.0;
    double dKappa = 0.0;
    for (auto _ : state) {
        dAzimuth = 1.0 - dAzimuth; // sums are kept until something changes that they depend on
        model.setScanline(60.0, dAzimuth, 80.0);
        dKappa = model.orientationStatistics(true, true).m_oFisher.m_dKappa;
    }
    if (!(dKappa > 1.0 && dKappa < 10.0))
        state.SkipWithError("wrong statistics");
}
BENCHMARK(orientationStatistics)->ArgName("weights")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// The tenth rotation and its undo.
void rotateAndUndo(benchmark::State& state)
{
    QRelationshipItemModel model;
    planes().show(model);
    for (int i = 0; i < 9; ++i)
        model.rotateDataAboutRotationAxis(nullptr, {10.0 * i, 30.0}, 20.0, false);
    for (auto _ : state) {
        model.rotateDataAboutRotationAxis(nullptr, {20.0, 110.0}, 35.0, false);
        model.undoRotation();
    }
    if (model.numberOfRotations() != 9)
        state.SkipWithError("rotations lost");
}
BENCHMARK(rotateAndUndo)->Unit(benchmark::kMillisecond);

void clustersOfAxes(benchmark::State& state)
{
    QRelationshipItemModel model;
    planes().show(model);
    for (auto _ : state)
        model.buildClusters_KML_ForStereoProjection(QStringLiteral("Sets"), static_cast<int>(state.range(0)));
    if (model.clusterSizes().size() != static_cast<std::size_t>(state.range(0)))
        state.SkipWithError("wrong number of clusters");
}
BENCHMARK(clustersOfAxes)->Arg(2)->Arg(5)->Arg(10)->Unit(benchmark::kMillisecond);

void regressionLine(benchmark::State& state)
{
    QRelationshipItemModel model;
    model.takeNewDataSet(-1, QRelationshipItemModel::CrossPlotDisplay, well().m_poX, well().m_poY, {});
    double dSlope = 0.0;
    double dIntercept = 0.0;
    double dCorrelation = 0.0;
    for (auto _ : state)
        model.calculateRegressionLine(dSlope, dIntercept, dCorrelation);
    if (!(std::abs(dCorrelation) < 0.01))
        state.SkipWithError("the columns are independent");
}
BENCHMARK(regressionLine)->Unit(benchmark::kMillisecond);

/// Moving one of many picked lines, as a drag does at each step.
void moveLines(benchmark::State& state)
{
    DepthLineField lines;
    const auto iLines = static_cast<int>(state.range(0));
    for (int i = 0; i < iLines; ++i)
        lines.insertHorizontalLine(i, 0.0, QString(), Qt::red, DepthLineField::Horizon);
    lines.setSelected(iLines / 2, true);
    for (auto _ : state) {
        lines.moveSelectedLines({0.0, 0.25});
        benchmark::DoNotOptimize(lines.pickHorizontalLines({0.0, 0.5 * iLines}, 1.0).data());
    }
}
BENCHMARK(moveLines)->Arg(100000)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
