#include "DensityGrid.h"
#include "MissingValue.h"
#include "ReferenceData.h"

#include <QTest>

#include <cmath>
#include <numeric>
#include <random>

using namespace gkBase;

using Doubles = std::vector<double>;

namespace {

struct Planes
{
    Doubles m_vdDip;
    Doubles m_vdAzimuth;
};

Planes randomPlanes(int iCount)
{
    std::mt19937 oRandom(5);
    std::uniform_real_distribution<double> oShare(0.0, 1.0);
    Planes oPlanes;
    for (int i = 0; i < iCount; ++i) {
        oPlanes.m_vdDip.push_back(i % 10 == 0 ? 90.0 : 90.0 * oShare(oRandom));
        oPlanes.m_vdAzimuth.push_back(i % 7 == 0 ? 90.0 * (i % 4) : 360.0 * oShare(oRandom));
    }
    return oPlanes;
}

double sum(const DensityGrid& oGrid)
{
    return std::accumulate(oGrid.m_vdCounts.begin(), oGrid.m_vdCounts.end(), 0.0);
}

} // namespace

class tst_Density : public QObject
{
    Q_OBJECT
private slots:
    void everyRecordCountsFourTimes_data();
    void everyRecordCountsFourTimes();
    void edgeRule();
    void masksAndWeights();
    void referenceCounts_data();
    void referenceCounts();
};

void tst_Density::everyRecordCountsFourTimes_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::newRow("equal area") << 0 << 20 << 20;
    QTest::newRow("equal angle, nodes on the axes") << 1 << 21 << 11;
    QTest::newRow("one cell") << 0 << 2 << 2;
    QTest::newRow("fine") << 1 << 200 << 7;
}

void tst_Density::everyRecordCountsFourTimes()
{
    QFETCH(int, layout);
    QFETCH(int, columns);
    QFETCH(int, rows);
    const NetProjection oProjection(static_cast<NetLayout>(layout));
    const Planes oPlanes = randomPlanes(500);
    for (const OrientationType eRecords : {OrientationType::Planes, OrientationType::Lines}) {
        DensityGrid oGrid = countOnNet(oProjection, eRecords, oPlanes.m_vdDip, oPlanes.m_vdAzimuth, columns, rows);
        QCOMPARE(oGrid.m_iRecords, std::size_t(500));
        QCOMPARE(oGrid.m_iOutside, std::size_t(0));
        QCOMPARE(sum(oGrid), 2000.0);
        // Both nodes of a rim pair gain the count of the other.
        double dRim = 0.0;
        for (int iRow = 0; iRow < rows; ++iRow) {
            for (int iColumn = 0; iColumn < columns; ++iColumn) {
                const bool bCentre = 2 * iRow == rows - 1 && 2 * iColumn == columns - 1;
                dRim += oGrid.isOnRim(iColumn, iRow) && !bCentre ? oGrid.count(iColumn, iRow) : 0.0;
            }
        }
        applyEdgeRule(oGrid);
        QCOMPARE(sum(oGrid), 2000.0 + dRim);
    }
    // All around the rim, and on its four corners of the compass.
    Doubles vdAzimuth(36);
    std::generate(vdAzimuth.begin(), vdAzimuth.end(), [i = 0]() mutable { return 10.0 * i++; });
    const Doubles vdUpright(36, 90.0);
    QCOMPARE(sum(countOnNet(oProjection, OrientationType::Planes, vdUpright, vdAzimuth, columns, rows)), 144.0);
}

void tst_Density::edgeRule()
{
    DensityGrid oGrid = countOnNet(NetProjection(), OrientationType::Lines, {}, {}, 11, 11);
    QVERIFY(oGrid.isOnRim(0, 5) && oGrid.isOnRim(10, 5) && !oGrid.isOnRim(5, 5) && !oGrid.isOnRim(0, 0));
    oGrid.m_vdCounts[oGrid.index(0, 5)] = 3.0;
    oGrid.m_vdCounts[oGrid.index(10, 5)] = 1.0;
    oGrid.m_vdCounts[oGrid.index(5, 5)] = 7.0;
    applyEdgeRule(oGrid);
    QCOMPARE(oGrid.count(0, 5), 4.0);
    QCOMPARE(oGrid.count(10, 5), 4.0);
    QCOMPARE(sum(oGrid), 15.0);
    QVERIFY(oGrid.percentages().empty()); // per cent of no records
    QVERIFY(countOnNet(NetProjection(), OrientationType::Lines, {}, {}, 1, 11).isEmpty());
}

void tst_Density::masksAndWeights()
{
    const Doubles vdDip{10, 20, g_dEmptyCell, 40, 50, 60};
    const Doubles vdAzimuth{0, 70, 140, g_dMissingValue, 210, 280};
    const Doubles vdWeights{1.5, 2.5, 1, 1, -1};
    const std::vector<unsigned char> vbMask{1, 0, 1, 1, 1, 1};
    const NetProjection oProjection;
    const auto count = [&](std::span<const unsigned char> vbTaken, std::span<const double> vdGiven) {
        return countOnNet(oProjection, OrientationType::Planes, vdDip, vdAzimuth, 15, 15, vbTaken, vdGiven);
    };
    const DensityGrid oAll = count({}, {});
    QCOMPARE(oAll.m_iRecords, std::size_t(4));
    QCOMPARE(oAll.m_iMissing, std::size_t(2));
    const DensityGrid oMasked = count(vbMask, {});
    QCOMPARE(oMasked.m_iRecords, std::size_t(3));
    QCOMPARE(sum(oMasked), 12.0);
    const DensityGrid oWeighted = count({}, vdWeights); // a weight below 0, and one that is not there
    QCOMPARE(oWeighted.m_iRecords, std::size_t(2));
    QCOMPARE(sum(oWeighted), 4.0 * 4.0);
    const Doubles vdPercent = oWeighted.percentages();
    QCOMPARE(std::accumulate(vdPercent.begin(), vdPercent.end(), 0.0), 400.0);
    // A gentle dip is a steep pole, which lies outside a tangent net but is one of N.
    const DensityGrid oTangent =
        countOnNet(NetProjection(NetLayout::Tangent), OrientationType::Planes, vdDip, vdAzimuth, 15, 15);
    QCOMPARE(oTangent.m_iOutside, std::size_t(2));
    QCOMPARE(oTangent.m_iRecords, std::size_t(4));
}

void tst_Density::referenceCounts_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("shapes_a") << "shapes_a";
    QTest::newRow("published_orient_a") << "published_orient_a";
}

void tst_Density::referenceCounts()
{
    GK_REQUIRE_REFERENCE();
    QFETCH(QString, file);
    const QJsonObject sets = gkTest::referenceValues(file)["sets"].toObject();
    int iGrids = 0;
    for (const QString& sSet : sets.keys()) {
        auto columns = gkTest::referenceColumns(file, "set", sSet);
        for (const bool bPlanes : {true, false}) {
            const QJsonObject values = sets[sSet].toObject()[bPlanes ? "as_planes" : "as_lines"].toObject();
            for (const auto& value : values["density"].toArray()) {
                const QJsonObject density = value.toObject();
                const NetProjection oProjection(density["net"] == "equal_area" ? NetLayout::EqualArea
                                                                               : NetLayout::EqualAngle);
                DensityGrid oGrid =
                    countOnNet(oProjection, bPlanes ? OrientationType::Planes : OrientationType::Lines,
                               columns["angle"], columns["azimuth"], density["nx"].toInt(), density["ny"].toInt());
                for (const char* szCounts : {"counts_before_edge_rule", "counts_after_edge_rule"}) {
                    Doubles vdExpected;
                    for (const auto& row : density[szCounts].toArray()) {
                        const Doubles vdRow = gkTest::toDoubles(row.toArray());
                        vdExpected.insert(vdExpected.end(), vdRow.begin(), vdRow.end());
                    }
                    QVERIFY2(oGrid.m_vdCounts == vdExpected, qPrintable(sSet));
                    applyEdgeRule(oGrid);
                }
                ++iGrids;
            }
        }
    }
    QVERIFY(iGrids > 5);
}

QTEST_APPLESS_MAIN(tst_Density)
#include "tst_density.moc"
