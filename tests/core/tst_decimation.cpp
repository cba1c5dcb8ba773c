#include "Decimation.h"
#include "ReferenceData.h"
#include "SeriesThinning.h"

#include <QTest>

#include <algorithm>
#include <numeric>
#include <random>

using namespace gkBase;

using Doubles = std::vector<double>;

namespace {

Doubles randomDepths(int iCount, unsigned iSeed)
{
    std::mt19937 oRandom(iSeed);
    Doubles vdDepths;
    for (int i = 0; i < iCount; ++i) {
        const bool bMissing = oRandom() % 50 == 0;
        vdDepths.push_back(bMissing ? g_dEmptyCell : double(oRandom() % 4000) / 16.0 - 20.0);
    }
    return vdDepths;
}

} // namespace

class tst_Decimation : public QObject
{
    Q_OBJECT
private slots:
    void equalLines_data();
    void equalLines();
    void binsPartitionTheRecords_data();
    void binsPartitionTheRecords();
    void referenceWell();
    void meanPlaneOfABin_data();
    void meanPlaneOfABin();
    void thinnedSeriesCoversTheSamePixels_data();
    void thinnedSeriesCoversTheSamePixels();
};

void tst_Decimation::equalLines_data()
{
    QTest::addColumn<double>("size");
    QTest::addColumn<double>("max");
    QTest::addColumn<Doubles>("lines"); // from 0 on
    QTest::newRow("closing line beyond the maximum") << 3.0 << 10.0 << Doubles{0, 3, 6, 9, 12};
    QTest::newRow("closing line at the maximum") << 5.0 << 10.0 << Doubles{0, 5, 10};
    QTest::newRow("larger than the range") << 50.0 << 10.0 << Doubles{0, 50};
    QTest::newRow("ten tenths are one") << 0.5 / 10 << 0.3
                                        << Doubles{0, 0.05, 0.1, 0.15000000000000002, 0.2, 0.25, 0.3};
    QTest::newRow("sevenths reach two point one") << 0.7 << 2.1 << Doubles{0, 0.7, 1.4, 2.1};
    QTest::newRow("no size") << 0.0 << 10.0 << Doubles{};
    QTest::newRow("negative size") << -1.0 << 10.0 << Doubles{};
    QTest::newRow("missing size") << g_dEmptyCell << 10.0 << Doubles{};
    QTest::newRow("empty range") << 1.0 << 0.0 << Doubles{};
    QTest::newRow("missing maximum") << 1.0 << g_dMissingValue << Doubles{};
}

void tst_Decimation::equalLines()
{
    QFETCH(double, size);
    QFETCH(double, max);
    QTEST(equalIntervals(size, 0.0, max), "lines");
    QCOMPARE(equalIntervals(1e-9, 0.0, 1.0).size(), size_t(g_iMaximumIntervalLines));
    QVERIFY(equalIntervals(1e-9, 1e9, 1e9 + 1.0).empty()); // would never get on
    const Doubles vdCut = numberOfIntervals(7, -1.0, 0.1);
    QCOMPARE(vdCut.size(), size_t(8));
    QCOMPARE(vdCut.back(), 0.1);
    QVERIFY(numberOfIntervals(0, 0.0, 1.0).empty());
    QCOMPARE(numberOfIntervals(2000000, 0.0, 1.0).size(), size_t(g_iMaximumIntervalLines));
}

void tst_Decimation::binsPartitionTheRecords_data()
{
    QTest::addColumn<Doubles>("boundaries");
    QTest::newRow("equal") << equalIntervals(12.5, 0.0, 200.0);
    QTest::newRow("tenths") << equalIntervals(0.1, 0.0, 210.0);
    QTest::newRow("uneven, unsorted, repeated, missing") << Doubles{40, 3, g_dMissingValue, 40, -2, 190, 55.5, 41, 60};
    QTest::newRow("one boundary") << Doubles{40};
}

void tst_Decimation::binsPartitionTheRecords()
{
    QFETCH(Doubles, boundaries);
    const IntervalBins oBins(boundaries);
    const Doubles vdDepths = randomDepths(5000, 3);
    std::vector<unsigned char> vbMask(vdDepths.size());
    std::generate(vbMask.begin(), vbMask.end(), [n = 0]() mutable { return n++ % 3 != 0; });
    const std::vector<int> viBins = binsOfRecords(vdDepths, oBins, vbMask);
    size_t iInside = 0;
    for (size_t i = 0; i < vdDepths.size(); ++i) {
        int iExpected = -1; // by looking at every bin
        for (int iBin = 0; iBin < oBins.count(); ++iBin) {
            const bool bLastEdge = iBin == oBins.count() - 1 && vdDepths[i] == oBins.upper(iBin);
            if ((vdDepths[i] >= oBins.lower(iBin) && vdDepths[i] < oBins.upper(iBin)) || bLastEdge) {
                QCOMPARE(iExpected, -1);
                iExpected = iBin;
            }
        }
        QCOMPARE(oBins.binOf(vdDepths[i]), iExpected);
        QCOMPARE(viBins[i], vbMask[i] ? iExpected : -1);
        iInside += viBins[i] >= 0;
    }
    for (int iBin = 0; iBin < oBins.count(); ++iBin) {
        QCOMPARE(oBins.binOf(oBins.lower(iBin)), iBin);
    }
    const auto viCounts = binCounts(viBins, oBins.count());
    QCOMPARE(std::accumulate(viCounts.begin(), viCounts.end(), size_t(0)), iInside);
    // The means of the bins, weighted, are the mean of all.
    const Doubles vdMeans = binMeans(viBins, oBins.count(), vdDepths);
    double dWeighted = 0.0;
    double dSum = 0.0;
    for (size_t i = 0; i < vdMeans.size(); ++i) {
        QCOMPARE(vdMeans[i] == g_dMissingValue, viCounts[i] == 0);
        dWeighted += viCounts[i] ? vdMeans[i] * double(viCounts[i]) : 0.0;
    }
    for (size_t i = 0; i < vdDepths.size(); ++i) {
        dSum += viBins[i] >= 0 ? vdDepths[i] : 0.0;
    }
    GK_COMPARE_CLOSE(dWeighted, dSum, 1e-11);
}

void tst_Decimation::referenceWell()
{
    GK_REQUIRE_REFERENCE();
    const auto columns = gkTest::referenceColumns("fold_well_a");
    const QJsonObject filter = gkTest::referenceValues("fold_well_a")["interval_filter"].toObject();
    QJsonArray filters = filter["by_size"].toArray();
    const qsizetype iBySize = filters.size();
    for (const auto& byNumber : filter["by_number"].toArray()) {
        filters.append(byNumber);
    }
    QVERIFY(iBySize > 0);
    for (const auto& value : filters) {
        const QJsonObject expected = value.toObject();
        const double dMin = filter["min"].toDouble();
        const double dMax = filter["max"].toDouble();
        const Doubles vdLines = expected.contains("size") ? equalIntervals(expected["size"].toDouble(), dMin, dMax)
                                                          : numberOfIntervals(expected["number"].toInt(), dMin, dMax);
        const IntervalBins oBins(vdLines);
        const QJsonObject decimated = expected["decimated"].toObject();
        const Doubles vdCentres = gkTest::toDoubles(decimated["depth"].toArray());
        QCOMPARE(size_t(oBins.count()), vdCentres.size());
        const auto viBins = binsOfRecords(columns["depth"], oBins);
        const auto vPlanes = binMeanPlanes(viBins, oBins.count(), columns["dip"], columns["dip_azimuth"]);
        const auto vLines = binMeanLines(viBins, oBins.count(), columns["dip"], columns["dip_azimuth"]);
        const auto viGamma = binCounts(viBins, oBins.count(), columns["gamma_ray"]);
        const auto vdGamma = binMeans(viBins, oBins.count(), columns["gamma_ray"]);
        for (int iBin = 0; iBin < oBins.count(); ++iBin) {
            const auto i = static_cast<size_t>(iBin);
            GK_COMPARE_CLOSE(oBins.centre(iBin), vdCentres[i], 1e-11);
            QCOMPARE(int(vPlanes[i].m_iCount), decimated["count"].toArray()[iBin].toInt());
            const QJsonArray plane = decimated["mean_plane_dip_dipazimuth"].toArray()[iBin].toArray();
            GK_COMPARE_CLOSE(vPlanes[i].m_dDip, plane[0].toDouble(), 1e-9);
            GK_COMPARE_CLOSE(vPlanes[i].m_dAzimuth, plane[1].toDouble(), 1e-9);
            const QJsonArray line = decimated["mean_line_plunge_azimuth"].toArray()[iBin].toArray();
            GK_COMPARE_CLOSE(vLines[i].m_dDip, line[0].toDouble(), 1e-9);
            GK_COMPARE_CLOSE(vLines[i].m_dAzimuth, line[1].toDouble(), 1e-9);
            QCOMPARE(int(viGamma[i]), decimated["gamma_ray_count"].toArray()[iBin].toInt());
            GK_COMPARE_CLOSE(vdGamma[i], decimated["gamma_ray_mean"].toArray()[iBin].toDouble(), 1e-9);
        }
    }
}

void tst_Decimation::meanPlaneOfABin_data()
{
    QTest::addColumn<Doubles>("dips");
    QTest::addColumn<Doubles>("azimuths");
    QTest::addColumn<Doubles>("mean"); // dip, azimuth, count
    QTest::newRow("one plane") << Doubles{30} << Doubles{350} << Doubles{30, 350, 1};
    QTest::newRow("across north") << Doubles{40, 40} << Doubles{350, 10} << Doubles{39.568687, 0, 2};
    QTest::newRow("opposite limbs are flat") << Doubles{45, 45} << Doubles{90, 270} << Doubles{0, 0, 2};
    QTest::newRow("vertical planes that cancel")
        << Doubles{90, 90} << Doubles{90, 270} << Doubles{g_dMissingValue, g_dMissingValue, 2};
    QTest::newRow("overturned plane") << Doubles{100} << Doubles{90} << Doubles{80, 270, 1};
    QTest::newRow("an angle missing") << Doubles{30, 60, g_dEmptyCell} << Doubles{350, g_dMissingValue, 20}
                                      << Doubles{30, 350, 1};
    QTest::newRow("nothing") << Doubles{} << Doubles{} << Doubles{g_dMissingValue, g_dMissingValue, 0};
}

void tst_Decimation::meanPlaneOfABin()
{
    QFETCH(Doubles, dips);
    QFETCH(Doubles, azimuths);
    QFETCH(Doubles, mean);
    const std::vector<int> viBins(dips.size(), 1); // bin 0 stays empty
    const auto vPlanes = binMeanPlanes(viBins, 2, dips, azimuths);
    QCOMPARE(vPlanes[0].m_dDip, g_dMissingValue);
    GK_COMPARE_CLOSE(vPlanes[1].m_dDip, mean[0], 1e-6);
    QVERIFY(gkTest::isClose(std::remainder(vPlanes[1].m_dAzimuth - mean[1], 360.0), 0.0, 1e-6));
    QCOMPARE(double(vPlanes[1].m_iCount), mean[2]);
    const auto vDirections = binMeanDirections(viBins, 2, azimuths);
    QCOMPARE(vDirections[0].m_iCount, size_t(0));
    QCOMPARE(vDirections[1].m_dDirection, circularMean(azimuths).m_dDirection);
}

void tst_Decimation::thinnedSeriesCoversTheSamePixels_data()
{
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<bool>("sorted");
    QTest::newRow("all") << 0.0 << 1000.0 << true;
    QTest::newRow("depth upwards") << 1000.0 << 0.0 << true;
    QTest::newRow("part") << 333.3 << 345.0 << true;
    QTest::newRow("unsorted") << 100.0 << 900.0 << false;
}

void tst_Decimation::thinnedSeriesCoversTheSamePixels()
{
    QFETCH(double, from);
    QFETCH(double, to);
    QFETCH(bool, sorted);
    const int iPixels = 97;
    std::mt19937 oRandom(5);
    Doubles vdPosition;
    Doubles vdValue;
    for (int i = 0; i < 20000; ++i) {
        vdPosition.push_back(sorted ? i * 0.05 : double(oRandom() % 1000));
        vdValue.push_back(oRandom() % 3000 == 0 ? g_dMissingValue : double(oRandom() % 500));
    }
    // Per row of the picture the reach of the line's samples, and of how many runs it consists.
    const auto reachOf = [&](const std::vector<size_t>& viSamples) {
        std::vector<std::pair<double, double>> vReach(size_t(iPixels), {1e9, -1e9});
        for (const size_t i : viSamples) {
            const double dRow = i == g_iSeriesGap ? -1.0 : (vdPosition[i] - from) * iPixels / (to - from);
            if (i != g_iSeriesGap && !isMissing(vdValue[i]) && dRow >= 0.0 && dRow <= iPixels) {
                auto& [dLeast, dGreatest] = vReach[std::min(size_t(dRow), size_t(iPixels - 1))];
                dLeast = std::min(dLeast, vdValue[i]);
                dGreatest = std::max(dGreatest, vdValue[i]);
            }
        }
        return vReach;
    };
    std::vector<size_t> viAll(vdPosition.size());
    std::iota(viAll.begin(), viAll.end(), size_t(0));
    const auto viThinned = thinSeries(vdPosition, vdValue, from, to, iPixels);
    QVERIFY(reachOf(viThinned) == reachOf(viAll));
    QVERIFY(!sorted || viThinned.size() < 500);
    size_t iPrevious = 0;
    for (size_t i = 0; i < viThinned.size(); ++i) {
        if (viThinned[i] == g_iSeriesGap) {
            QVERIFY(i > 0 && i + 1 < viThinned.size() && viThinned[i + 1] != g_iSeriesGap);
            continue;
        }
        QVERIFY(i == 0 || viThinned[i] > iPrevious);
        const auto itBegin = vdValue.begin() + std::ptrdiff_t(iPrevious);
        const bool bBroken = std::any_of(itBegin, vdValue.begin() + std::ptrdiff_t(viThinned[i]), isMissing);
        QCOMPARE(i > 0 && viThinned[i - 1] == g_iSeriesGap, i > 0 && bBroken);
        iPrevious = viThinned[i];
    }
    QVERIFY(thinSeries(vdPosition, vdValue, from, from, iPixels).empty());
    QVERIFY(thinSeries(vdPosition, vdValue, from, to, 0).empty());
}

QTEST_APPLESS_MAIN(tst_Decimation)
#include "tst_decimation.moc"
