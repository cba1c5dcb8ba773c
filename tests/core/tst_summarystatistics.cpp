#include "ReferenceData.h"
#include "SummaryStatistics.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <numeric>

using namespace gkBase;

class tst_SummaryStatistics : public QObject
{
    Q_OBJECT
private slots:
    void summary_data();
    void summary();
    void quantilesOfAnyOrder_data();
    void quantilesOfAnyOrder();
    void sortedQuantiles();
    void quantilesMatchReference();
};

void tst_SummaryStatistics::summary_data()
{
    const double dNone = g_dEmptyCell;
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("mean");
    QTest::addColumn<double>("deviation");
    QTest::newRow("empty") << QList<double>{} << 0 << g_dMissingValue << g_dMissingValue;
    QTest::newRow("all missing") << QList<double>{dNone, g_dMissingValue} << 0 << g_dMissingValue << g_dMissingValue;
    QTest::newRow("one") << QList<double>{dNone, 4.5} << 1 << 4.5 << g_dMissingValue;
    QTest::newRow("textbook") << QList<double>{2, 4, 4, 4, 5, 5, 7, 9} << 8 << 5.0 << std::sqrt(32.0 / 7.0);
    QTest::newRow("missing left out") << QList<double>{2, dNone, 4, g_dMissingValue, 6} << 3 << 4.0 << 2.0;
    QTest::newRow("equal values have no spread at all") << QList<double>{0.1, 0.1, 0.1} << 3 << 0.1 << 0.0;
    QTest::newRow("small spread far from zero")
        << QList<double>{1e9 + 4, 1e9 + 7, 1e9 + 13, 1e9 + 16} << 4 << 1e9 + 10 << std::sqrt(30.0);
    QTest::newRow("astronomic") << QList<double>{-1.5e308, 1.5e308} << 2 << 0.0 << 1.5e308 * std::sqrt(2.0);
    QTest::newRow("sum beyond the doubles") << QList<double>{1e308, 1e308, 1e308} << 3 << 1e308 << 0.0;
}

void tst_SummaryStatistics::summary()
{
    QFETCH(QList<double>, values);
    QFETCH(int, count);
    QFETCH(double, mean);
    QFETCH(double, deviation);
    const SummaryStatistics oResult = summaryStatistics(RecordValues({values.data(), std::size_t(values.size())}));
    QCOMPARE(int(oResult.m_iCount), count);
    QCOMPARE(int(oResult.m_iMissing), int(values.size()) - count);
    QVERIFY2(oResult.m_dMean == mean, qPrintable(QString::number(oResult.m_dMean, 'g', 17)));
    if (std::isinf(deviation)) { // √2 · 1.5e308 is no double
        QVERIFY(std::isinf(oResult.m_dStandardDeviation));
    } else {
        GK_COMPARE_CLOSE(oResult.m_dStandardDeviation, deviation, 1e-15);
    }
    // The quick pass for tables tells the same, for all records and for a list of them.
    std::vector<int> viAll(static_cast<std::size_t>(values.size()));
    std::iota(viAll.begin(), viAll.end(), 0);
    for (const std::vector<int>& viRecords : {std::vector<int>(), viAll}) {
        const SummaryStatistics oQuick =
            rangeAndMean(RecordValues({values.data(), std::size_t(values.size())}, viRecords));
        QCOMPARE(oQuick.m_iCount, oResult.m_iCount);
        QCOMPARE(oQuick.m_dMin, oResult.m_dMin);
        QCOMPARE(oQuick.m_dMax, oResult.m_dMax);
        GK_COMPARE_CLOSE(oQuick.m_dMean, mean, 1e-15);
    }
    values.removeIf([](double dValue) { return isMissing(dValue); });
    QCOMPARE(oResult.m_dMin, values.isEmpty() ? g_dMissingValue : *std::min_element(values.begin(), values.end()));
    QCOMPARE(oResult.m_dMax, values.isEmpty() ? g_dMissingValue : *std::max_element(values.begin(), values.end()));
}

void tst_SummaryStatistics::quantilesOfAnyOrder_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("factor");
    QTest::addColumn<double>("largest");
    QTest::newRow("one") << 1 << 1.0 << 0.0;
    QTest::newRow("many") << 10007 << 1.0 << 10006.0;
    QTest::newRow("all others squeezed together by an outlier") << 10007 << 1.0 << 1e15;
    QTest::newRow("equal") << 997 << 0.0 << 0.0;
    QTest::newRow("range wider than the doubles") << 997 << -1e305 << 1.7e308;
    QTest::newRow("smallest doubles") << 997 << 5e-324 << 997 * 5e-324;
}

void tst_SummaryStatistics::quantilesOfAnyOrder()
{
    QFETCH(int, count);
    QFETCH(double, factor);
    QFETCH(double, largest);
    std::vector<double> vdValues;
    for (int i = 0; i < count; ++i) {
        vdValues.push_back((i * 389) % count * factor); // every multiple once, shuffled
    }
    *std::max_element(vdValues.begin(), vdValues.end()) = largest;
    vdValues.push_back(g_dEmptyCell);
    const std::array<double, 8> adPercents{75.0, 0.0, 100.0, 25.04, g_dMissingValue, 50.0, -5.0, 105.0};
    const std::vector<double> vdResult = quantiles(vdValues, adPercents);
    vdValues.pop_back();
    std::sort(vdValues.begin(), vdValues.end());
    for (std::size_t i = 0; i < adPercents.size(); ++i) {
        QVERIFY(vdResult[i] == sortedQuantile(vdValues, adPercents[i]));
    }
}

void tst_SummaryStatistics::sortedQuantiles()
{
    const std::vector<double> vdSorted{10.0, 20.0, 40.0, 80.0, 160.0};
    QCOMPARE(sortedQuantile(vdSorted, 0.0), 10.0);
    QCOMPARE(sortedQuantile(vdSorted, 50.0), 40.0);
    QCOMPARE(sortedQuantile(vdSorted, 62.5), 60.0);
    QCOMPARE(sortedQuantile(vdSorted, 250.0), 160.0);
    QCOMPARE(sortedQuantile({}, 50.0), g_dMissingValue);
    QCOMPARE(quantiles(std::vector<double>(), std::array{50.0})[0], g_dMissingValue);
}

void tst_SummaryStatistics::quantilesMatchReference()
{
    GK_REQUIRE_REFERENCE();
    const auto columns = gkTest::referenceColumns("rock");
    const QJsonObject attributes = gkTest::referenceValues("rock")["attributes"].toObject();
    QCOMPARE(attributes.size(), 4);
    for (const QString& sName : attributes.keys()) {
        const QJsonObject percentiles =
            attributes[sName].toObject()["histograms"].toArray()[0].toObject()["percentiles"].toObject();
        const std::array<double, 3> adPercents{10.0, 50.0, 90.0};
        const std::vector<double> vdResult = quantiles(columns[sName], adPercents);
        GK_COMPARE_CLOSE(vdResult[0], percentiles["P10"].toObject()["sample_quantile"].toDouble(), 1e-9);
        GK_COMPARE_CLOSE(vdResult[1], percentiles["P50"].toObject()["sample_quantile"].toDouble(), 1e-9);
        GK_COMPARE_CLOSE(vdResult[2], percentiles["P90"].toObject()["sample_quantile"].toDouble(), 1e-9);
    }
}

QTEST_APPLESS_MAIN(tst_SummaryStatistics)
#include "tst_summarystatistics.moc"
