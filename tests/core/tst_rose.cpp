#include "MissingValue.h"
#include "ReferenceData.h"
#include "RosePetals.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

using namespace gkBase;

using Doubles = std::vector<double>;

namespace {

Doubles randomAzimuths(int iCount)
{
    std::mt19937 oRandom(3);
    Doubles vdAzimuth;
    for (int i = 0; i < iCount; ++i) {
        vdAzimuth.push_back(i % 50 == 0 ? g_dEmptyCell : double(oRandom() % 1440) - 360.0);
    }
    return vdAzimuth;
}

double sum(const Doubles& vdValues)
{
    return std::accumulate(vdValues.begin(), vdValues.end(), 0.0);
}

} // namespace

class tst_Rose : public QObject
{
    Q_OBJECT
private slots:
    void countsAddUp_data();
    void countsAddUp();
    void boundaries();
    void classesAndWeights();
    void recordsOfSectors();
    void scale();
    void petals_data();
    void petals();
    void referenceSectors();
};

void tst_Rose::countsAddUp_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<double>("start");
    QTest::addColumn<int>("sectors");
    QTest::newRow("20") << 20 << 0.0 << 18;
    QTest::newRow("a rest of 3 degrees") << 7 << 0.0 << 51;
    QTest::newRow("one large sector") << 200 << -10.0 << 1;
    QTest::newRow("whole circle") << 360 << 77.7 << 1;
    QTest::newRow("too small") << 0 << 0.0 << 360;
    QTest::newRow("too large") << 1000 << 0.0 << 1;
}

void tst_Rose::countsAddUp()
{
    QFETCH(int, size);
    QFETCH(double, start);
    QFETCH(int, sectors);
    const Doubles vdAzimuth = randomAzimuths(2000);
    for (const bool bBidirectional : {false, true}) {
        const RoseBins oBins = roseBins(vdAzimuth, {double(size), start, bBidirectional});
        QCOMPARE(oBins.sectors(), sectors);
        QCOMPARE(oBins.m_iRecords, std::size_t(1960));
        QCOMPARE(oBins.m_iMissing, std::size_t(40));
        QCOMPARE(sum(oBins.m_vdCounts) + double(oBins.m_iUncovered), bBidirectional ? 3920.0 : 1960.0);
        QCOMPARE(oBins.m_iUncovered > 0, 360 % int(oBins.m_dSectorSize) != 0);
        if (bBidirectional && 180 % int(oBins.m_dSectorSize) == 0) { // opposite sectors are equal
            for (int i = 0; i < sectors / 2; ++i) {
                QCOMPARE(oBins.m_vdCounts[std::size_t(i)], oBins.m_vdCounts[std::size_t(i + sectors / 2)]);
            }
        }
    }
}

void tst_Rose::boundaries()
{
    const Doubles vdAzimuth{0.0, 20.0, 19.999, 360.0, -0.001, 379.999, 356.9, 357.0};
    QCOMPARE(roseBins(vdAzimuth, {20, 0.0, false}).m_vdCounts.front(), 4.0); // 0, 19.999, 360, 379.999
    const RoseBins oRest = roseBins(vdAzimuth, {7, 0.0, false});
    QCOMPARE(oRest.m_iUncovered, std::size_t(2)); // -0.001 and 357
    QCOMPARE(oRest.m_vdCounts.back(), 1.0);
    QCOMPARE(roseBins(vdAzimuth, {20, 350.0, false}).m_vdCounts.front(), 5.0);
    QCOMPARE(roseBins({}, {}).maximum(), 0.0);
    // Sectors that are no whole degrees, and fewer than the circle holds.
    QCOMPARE(roseBins(vdAzimuth, {0.1, 0.0, false}).sectors(), 3600);
    const RoseBins oHalf = roseBins(vdAzimuth, {22.5, 0.0, true, 8});
    QCOMPARE(oHalf.m_vdCounts, (Doubles{5, 0, 0, 0, 0, 0, 0, 3}));
    QCOMPARE(oHalf.m_iUncovered, std::size_t(8));
    QCOMPARE(oHalf.percent(5.0), 31.25);
}

void tst_Rose::classesAndWeights()
{
    const Doubles vdAzimuth{10, 12, 14, 95, g_dEmptyCell, 100};
    const Doubles vdWeights{1, 2, 4, 8, 16, 32};
    const std::vector<int> viClasses{0, 1, -1, 1, 1, 7};
    const std::vector<unsigned char> vbMask{1, 1, 1, 1, 1, 0};
    const RoseBins oBins = roseBins(vdAzimuth, {90, 0.0, false}, vbMask, vdWeights, viClasses, 2);
    QCOMPARE(oBins.m_vdCounts, (Doubles{7, 8, 0, 0}));
    QCOMPARE(oBins.m_vdClassCount, (Doubles{1, 2, 0, 8, 0, 0, 0, 0}));
    QCOMPARE(oBins.m_dWeight, 15.0);
    QCOMPARE(oBins.maximum(), 8.0);
    const RoseBins oShort = roseBins(vdAzimuth, {90, 0.0, false}, {}, std::span(vdWeights).first(2));
    QCOMPARE(oShort.m_iMissing, std::size_t(4)); // no weight, or no azimuth
    QCOMPARE(sum(oShort.m_vdCounts), 3.0);
    const CircularMeans oMeans = roseMeans(vdAzimuth, vbMask);
    QCOMPARE(oMeans.m_oDirection.m_iCount, std::size_t(4));
    QCOMPARE(oMeans.m_oAxis.m_iCount, std::size_t(4));
}

void tst_Rose::recordsOfSectors()
{
    const Doubles vdAzimuth = randomAzimuths(2000);
    for (const bool bBidirectional : {false, true}) {
        const RoseBins oBins = roseBins(vdAzimuth, {7, 13.0, bBidirectional});
        for (int iSector = 0; iSector < oBins.sectors(); ++iSector) {
            const auto vbMask = sectorRecords(vdAzimuth, oBins, iSector, bBidirectional);
            QCOMPARE(double(std::count(vbMask.begin(), vbMask.end(), 1)), oBins.m_vdCounts[std::size_t(iSector)]);
        }
        const auto vbNone = sectorRecords(vdAzimuth, oBins, oBins.sectors(), bBidirectional);
        QCOMPARE(std::count(vbNone.begin(), vbNone.end(), 1), 0);
    }
}

void tst_Rose::scale()
{
    const RoseScale oArea{10.0, true, 0.0};
    QCOMPARE(oArea.radius(2.5), 0.5);
    QCOMPARE(RoseScale({10.0, false, 50.0}).radius(5.0), 0.75);
    QCOMPARE(RoseScale({10.0, false, 50.0}).vectorRadius(5.0), 0.5);
    QCOMPARE(RoseScale({0.0, true, 30.0}).radius(0.0), 0.3);
    QCOMPARE(oArea.gridRadii(5.0).size(), std::size_t(1)); // the circle at 10 would lie on the rim
    QCOMPARE(RoseScale({3.0, false, 0.0}).gridRadii(1.0).size(), std::size_t(2));
    QVERIFY(oArea.gridRadii(0.0).empty() && RoseScale().gridRadii(5.0).empty());
}

void tst_Rose::petals_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("classes");
    QTest::addColumn<double>("zeroCircle");
    QTest::newRow("plain") << 20 << 0 << 0.0;
    QTest::newRow("classes") << 20 << 3 << 0.0;
    QTest::newRow("classes about a zero circle") << 50 << 3 << 30.0;
    QTest::newRow("whole circle") << 360 << 3 << 0.0;
}

void tst_Rose::petals()
{
    QFETCH(int, size);
    QFETCH(int, classes);
    QFETCH(double, zeroCircle);
    const Doubles vdAzimuth = randomAzimuths(300);
    std::vector<int> viClasses(300);
    std::generate(viClasses.begin(), viClasses.end(), [i = 0]() mutable { return i++ * 7 % 5; }); // 3, 4: no class
    const RoseBins oBins = roseBins(vdAzimuth, {double(size), 15.0, false}, {}, {}, viClasses, classes);
    const std::vector<RosePetal> vPetals = rosePetals(oBins, {oBins.maximum(), true, zeroCircle});
    double dCount = 0.0;
    for (std::size_t i = 0; i < vPetals.size(); ++i) {
        const RosePetal& oPetal = vPetals[i];
        dCount += oPetal.m_dCount;
        // With area scaling and no zero circle a band covers the share of its records.
        const std::vector<NetPoint> vOutline = petalOutline(oPetal, 0.1);
        double dTwice = 0.0;
        for (std::size_t k = 0; k < vOutline.size(); ++k) {
            const NetPoint& oNext = vOutline[(k + 1) % vOutline.size()];
            dTwice -= vOutline[k].m_dX * oNext.m_dY - oNext.m_dX * vOutline[k].m_dY;
        }
        if (zeroCircle == 0.0) {
            const double dSector = 3.141592653589793 * size / 360.0;
            QVERIFY(std::abs(0.5 * dTwice - dSector * oPetal.m_dCount / oBins.maximum()) < 1e-5);
        }
        const double dMiddle = (oPetal.m_dStart + 0.5 * oPetal.m_dSize) * 3.141592653589793 / 180.0;
        const double dRadius = 0.5 * (oPetal.m_dInner + oPetal.m_dOuter);
        QCOMPARE(petalAt(vPetals, {dRadius * std::sin(dMiddle), dRadius * std::cos(dMiddle)}), int(i));
    }
    QCOMPARE(dCount, sum(oBins.m_vdCounts));
    QCOMPARE(petalAt(vPetals, {2.0, 0.0}), -1);
    QVERIFY(rosePetals(roseBins({}, {}), RoseScale()).empty());
    QCOMPARE(rosePetals(roseBins({}, {}), {0.0, true, 50.0}).front().m_dOuter, 0.5);
}

void tst_Rose::referenceSectors()
{
    GK_REQUIRE_REFERENCE();
    const QJsonObject sets = gkTest::referenceValues("rose_a")["sets"].toObject();
    int iRoses = 0;
    for (const QString& sSet : sets.keys()) {
        const Doubles vdAzimuth = gkTest::referenceColumns("rose_a", "set", sSet)["azimuth"];
        const QJsonObject expected = sets[sSet].toObject();
        for (const auto& value : expected["sectors"].toArray()) {
            const QJsonObject sectors = value.toObject();
            for (const bool bBidirectional : {false, true}) {
                const RoseBins oBins = roseBins(vdAzimuth, {sectors["size"].toDouble(), 0.0, bBidirectional});
                QCOMPARE(oBins.m_vdCounts,
                         gkTest::toDoubles(sectors[bBidirectional ? "bidirectional" : "unidirectional"].toArray()));
                if (!bBidirectional) {
                    QCOMPARE(int(oBins.m_iUncovered), sectors["points_outside_all_sectors"].toInt());
                }
                ++iRoses;
            }
        }
        const CircularMeans oMeans = roseMeans(vdAzimuth);
        GK_COMPARE_CLOSE(oMeans.m_oDirection.m_dDirection, expected["mean_direction"].toDouble(), 1e-9);
        GK_COMPARE_CLOSE(oMeans.m_oDirection.m_dResultantLength, expected["normalized_length"].toDouble(), 1e-9);
        GK_COMPARE_CLOSE(oMeans.m_oAxis.m_dDirection, expected["axial_mean_doubled_angles"].toDouble(), 1e-9);
        GK_COMPARE_CLOSE(oMeans.m_oAxis.m_dResultantLength, expected["axial_length_doubled_angles"].toDouble(), 1e-9);
    }
    QVERIFY(iRoses > 50);
}

QTEST_APPLESS_MAIN(tst_Rose)
#include "tst_rose.moc"
