#include "FrequencyClasses.h"
#include "ReferenceData.h"

#include <QTest>

#include <numeric>

using namespace gkBase;

class tst_FrequencyClasses : public QObject
{
    Q_OBJECT
private slots:
    void countsMatchReference();
    void leftEdgesBelongToTheirClass_data();
    void leftEdgesBelongToTheirClass();
    void lastClassIsClosed();
    void equalValues();
    void everyValueIsCountedOnce_data();
    void everyValueIsCountedOnce();
    void automaticInterval_data();
    void automaticInterval();
    void automaticIsForBadSizes();
    void cumulativeEndsAtHundred();
};

void tst_FrequencyClasses::countsMatchReference()
{
    GK_REQUIRE_REFERENCE();
    int iHistograms = 0;
    for (const QString& sFile : {QString("rock"), QString("clusters_a"), QString("fold_well_a")}) {
        const auto columns = gkTest::referenceColumns(sFile);
        const QJsonObject values = gkTest::referenceValues(sFile);
        const QJsonObject attributes = values.contains("attributes") ? values["attributes"].toObject() : values;
        for (const QString& sName : attributes.keys()) {
            for (const auto& histogram : attributes[sName].toObject()["histograms"].toArray()) {
                const QJsonObject expected = histogram.toObject();
                const FrequencyClasses oClasses =
                    frequencyClasses(columns[sName], expected["interval_size"].toDouble());
                const auto viCounts = classCounts(columns[sName], oClasses);
                const auto vdEdges = gkTest::toDoubles(expected["left_edges"].toArray());
                const auto vdCounts = gkTest::toDoubles(expected["frequency"].toArray());
                const auto vdCumulative = gkTest::toDoubles(expected["cumulative_percent"].toArray());
                QCOMPARE(std::size_t(oClasses.count()), vdCounts.size());
                QCOMPARE(std::vector<double>(viCounts.begin(), viCounts.end()), vdCounts);
                for (int i = 0; i < oClasses.count(); ++i) {
                    GK_COMPARE_CLOSE(oClasses.leftEdge(i), vdEdges[size_t(i)], 1e-12);
                    GK_COMPARE_CLOSE(cumulativePercent(viCounts)[size_t(i)], vdCumulative[size_t(i)], 1e-10);
                }
                ++iHistograms;
            }
        }
    }
    QCOMPARE(iHistograms, 10);
}

void tst_FrequencyClasses::leftEdgesBelongToTheirClass_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("interval");
    QTest::newRow("0.1 from 0.1") << 0.1 << 0.1;
    QTest::newRow("0.7 from -3.3") << -3.3 << 0.7;
    QTest::newRow("0.001 from 1000") << 1000.0 << 0.001;
    QTest::newRow("4.9 from 12.74") << 12.74 << 4.9;
    QTest::newRow("across zero") << -0.3 << 0.1;
}

void tst_FrequencyClasses::leftEdgesBelongToTheirClass()
{
    QFETCH(double, min);
    QFETCH(double, interval);
    const FrequencyClasses oClasses(min, min + 50.0 * interval, interval);
    QCOMPARE(oClasses.count(), 50);
    for (int i = 0; i < 50; ++i) {
        const double dEdge = min + i * interval;
        QCOMPARE(oClasses.classOf(dEdge), i);
        QCOMPARE(oClasses.classOf(dEdge + 0.999999 * interval), i);
        QCOMPARE(oClasses.classOf(std::nextafter(dEdge, -1e9)), i - 1);
    }
}

void tst_FrequencyClasses::lastClassIsClosed()
{
    const FrequencyClasses oClasses(0.0, 100.0, 10.0);
    QCOMPARE(oClasses.count(), 10);
    QCOMPARE(oClasses.classOf(100.0), 9);
    QCOMPARE(oClasses.classOf(90.0), 9);
    QCOMPARE(oClasses.classOf(std::nextafter(100.0, 200.0)), -1);
    QCOMPARE(oClasses.classOf(-0.001), -1);
    QCOMPARE(oClasses.classOf(g_dEmptyCell), -1);
    // One class of its own for a maximum that lies a little further.
    QCOMPARE(FrequencyClasses(0.0, 100.001, 10.0).count(), 11);
    // 7 · 0.1 is a little more, 3 · 0.1 from 0.1 a little less than the decimal number: no further class.
    QCOMPARE(FrequencyClasses(0.0, 0.7, 0.1).count(), 7);
    QCOMPARE(FrequencyClasses(-0.4, 0.3, 0.1).count(), 7);
    // An interval beyond the range: one class.
    const FrequencyClasses oWide(3.0, 4.0, 50.0);
    QCOMPARE(oWide.count(), 1);
    QCOMPARE(oWide.rightEdge(0), 53.0);
}

void tst_FrequencyClasses::equalValues()
{
    const std::vector<double> vdValues{7.5, g_dEmptyCell, 7.5, 7.5};
    for (const double dInterval : {2.0, g_dMissingValue}) {
        const FrequencyClasses oClasses = frequencyClasses(vdValues, dInterval);
        QCOMPARE(oClasses.count(), 1);
        QCOMPARE(oClasses.interval(), 0.0);
        QCOMPARE(oClasses.leftEdge(0), 7.5);
        QCOMPARE(oClasses.rightEdge(0), 7.5);
        QCOMPARE(classCounts(vdValues, oClasses)[0], std::size_t(3));
    }
    QCOMPARE(frequencyClasses(std::vector<double>{g_dMissingValue}, 1.0).count(), 0);
}

void tst_FrequencyClasses::everyValueIsCountedOnce_data()
{
    const double dHuge = std::numeric_limits<double>::max();
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<double>("interval");
    const QList<double> plain{0.0, 0.25, 1.0, 17.0, 100.0};
    QTest::newRow("plain") << plain << 3.0;
    QTest::newRow("far too small an interval") << plain << 1e-7;
    QTest::newRow("negative interval") << plain << -4.0;
    QTest::newRow("infinite interval") << plain << std::numeric_limits<double>::infinity();
    QTest::newRow("interval finer than the doubles") << QList<double>{1e15, 1e15 + 1.0, 1e15 + 2.0} << 1e-6;
    QTest::newRow("neighbouring doubles") << QList<double>{1.0, std::nextafter(1.0, 2.0)} << g_dMissingValue;
    QTest::newRow("smallest doubles") << QList<double>{0.0, 5e-324, 1e-323} << g_dMissingValue;
    QTest::newRow("whole range of the doubles") << QList<double>{-dHuge, 0.0, dHuge} << 1.0;
    QTest::newRow("whole range, automatic") << QList<double>{-dHuge, 0.0, dHuge} << g_dMissingValue;
}

void tst_FrequencyClasses::everyValueIsCountedOnce()
{
    QFETCH(QList<double>, values);
    QFETCH(double, interval);
    const std::span<const double> vdValues(values.data(), std::size_t(values.size()));
    const FrequencyClasses oClasses = frequencyClasses(vdValues, interval);
    QVERIFY(oClasses.count() >= 1 && oClasses.count() <= FrequencyClasses::s_iMaximumCount);
    QVERIFY(oClasses.interval() > 0.0 && std::isfinite(oClasses.interval()));
    QVERIFY(oClasses.leftEdge(0) == values.first());
    QVERIFY(oClasses.rightEdge(oClasses.count() - 1) >= values.last());
    const auto viCounts = classCounts(vdValues, oClasses);
    QCOMPARE(std::accumulate(viCounts.begin(), viCounts.end(), std::size_t(0)), vdValues.size());
    int iLastClass = 0;
    for (const double dValue : vdValues) { // rising values lie in rising classes
        QVERIFY(oClasses.classOf(dValue) >= iLastClass);
        iLastClass = oClasses.classOf(dValue);
    }
}

void tst_FrequencyClasses::automaticInterval_data()
{
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<double>("expected");
    QList<double> even;
    QList<double> mostlyEqual;
    QList<double> outlier;
    for (int i = 0; i < 1000; ++i) {
        even << i * 0.1;                              // IQR 49.95: 2 · 49.95 / 10 = 9.99
        mostlyEqual << (i % 10 == 0 ? i * 0.1 : 5.0); // IQR 0
        outlier << (i == 0 ? 1e6 : i * 0.1);
    }
    QTest::newRow("even") << even << 10.0;
    QTest::newRow("quartiles equal") << mostlyEqual << 5.0; // s = 15.1: Scott 5.3
    QTest::newRow("outlier: 200 classes at most") << outlier << 5000.0;
    QTest::newRow("two values: 5 classes at least") << QList<double>{0.0, 1.0} << 0.2;
    QTest::newRow("all equal") << QList<double>{4.0, 4.0} << 0.0;
    QTest::newRow("none") << QList<double>{} << 0.0;
}

void tst_FrequencyClasses::automaticInterval()
{
    QFETCH(QList<double>, values);
    QTEST(gkBase::automaticInterval(RecordValues({values.data(), std::size_t(values.size())})), "expected");
}

void tst_FrequencyClasses::automaticIsForBadSizes()
{
    const double dInfinity = std::numeric_limits<double>::infinity();
    for (const double dSize : {0.0, 1e-8, -3.0, g_dEmptyCell, g_dMissingValue, dInfinity, -dInfinity}) {
        QVERIFY(isAutomaticInterval(dSize));
    }
    QVERIFY(!isAutomaticInterval(1.1e-8));
}

void tst_FrequencyClasses::cumulativeEndsAtHundred()
{
    const std::vector<std::size_t> viCounts{1, 0, 1, 1, 0};
    const auto vdPercent = cumulativePercent(viCounts);
    GK_COMPARE_CLOSE(vdPercent[1], 100.0 / 3.0, 1e-15);
    QVERIFY(vdPercent[0] == vdPercent[1]); // empty classes share the value bit for bit
    QVERIFY(vdPercent[3] == 100.0 && vdPercent[4] == 100.0);
    QCOMPARE(cumulativePercent(std::vector<std::size_t>{0, 0}), (std::vector<double>{0.0, 0.0}));
}

QTEST_APPLESS_MAIN(tst_FrequencyClasses)
#include "tst_frequencyclasses.moc"
