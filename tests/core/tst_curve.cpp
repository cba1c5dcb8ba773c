#include "Curve.h"
#include "MissingValue.h"

#include <QList>
#include <QTest>

using namespace gkBase;

namespace {
std::span<const double> toSpan(const QList<double>& list)
{
    return {list.data(), std::size_t(list.size())};
}
} // namespace

class tst_Curve : public QObject
{
    Q_OBJECT
private slots:
    void lookUp_data();
    void lookUp();
    void averages();
    void fillsGaps_data();
    void fillsGaps();
};

void tst_Curve::lookUp_data()
{
    QTest::addColumn<QList<double>>("positions");
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<double>("at");
    QTest::addColumn<double>("expected");
    const QList<double> rising{0.0, 10.0, 30.0};
    const QList<double> values{5.0, 7.0, -1.0};
    QTest::newRow("between") << rising << values << 20.0 << 3.0;
    QTest::newRow("on a pair") << rising << values << 10.0 << 7.0;
    QTest::newRow("below") << rising << values << -4.0 << 5.0;
    QTest::newRow("above") << rising << values << 31.0 << -1.0;
    QTest::newRow("falling") << QList<double>{30.0, 10.0, 0.0} << QList<double>{-1.0, 7.0, 5.0} << 20.0 << 3.0;
    QTest::newRow("falling, above") << QList<double>{30.0, 10.0, 0.0} << QList<double>{-1.0, 7.0, 5.0} << 40.0 << -1.0;
    QTest::newRow("a step: first arrival")
        << QList<double>{0.0, 4.0, 4.0, 8.0} << QList<double>{0.0, 1.0, 3.0, 4.0} << 4.0 << 1.0;
    QTest::newRow("missing pairs left out") << QList<double>{0.0, 10.0, g_dEmptyCell, 30.0}
                                            << QList<double>{5.0, g_dMissingValue, 2.0, 11.0} << 15.0 << 8.0;
    QTest::newRow("one pair") << QList<double>{3.0} << QList<double>{4.0} << -7.0 << 4.0;
    QTest::newRow("empty") << QList<double>{} << QList<double>{} << 1.0 << g_dMissingValue;
    QTest::newRow("missing position") << rising << values << g_dEmptyCell << g_dMissingValue;
}

void tst_Curve::lookUp()
{
    QFETCH(QList<double>, positions);
    QFETCH(QList<double>, values);
    QFETCH(double, at);
    QTEST(curveValue(toSpan(positions), toSpan(values), at), "expected");
}

void tst_Curve::averages()
{
    const std::vector<double> vdPositions{3.0, 1.0, 3.0, g_dEmptyCell, 2.0, 3.0, 1.0};
    const std::vector<double> vdValues{10.0, 4.0, 20.0, 7.0, g_dMissingValue, 60.0, 5.0};
    const AveragedCurve oCurve = averagedCurve(vdPositions, vdValues);
    QCOMPARE(oCurve.m_vdPositions, (std::vector<double>{1.0, 3.0}));
    QCOMPARE(oCurve.m_vdValues, (std::vector<double>{4.5, 30.0}));
    QVERIFY(averagedCurve({}, {}).m_vdPositions.empty());
}

void tst_Curve::fillsGaps_data()
{
    const double dNone = g_dEmptyCell;
    QTest::addColumn<QList<double>>("before");
    QTest::addColumn<QList<double>>("after");
    QTest::addColumn<int>("filled");
    QTest::newRow("two gaps, open ends") << QList<double>{dNone, 1.0, dNone, g_dMissingValue, 4.0, dNone, 2.0, dNone}
                                         << QList<double>{dNone, 1.0, 2.0, 3.0, 4.0, 3.0, 2.0, dNone} << 3;
    QTest::newRow("one value") << QList<double>{dNone, 1.0, dNone} << QList<double>{dNone, 1.0, dNone} << 0;
    QTest::newRow("none") << QList<double>{dNone, dNone} << QList<double>{dNone, dNone} << 0;
    QTest::newRow("empty") << QList<double>{} << QList<double>{} << 0;
}

void tst_Curve::fillsGaps()
{
    QFETCH(QList<double>, before);
    QFETCH(QList<double>, after);
    QFETCH(int, filled);
    QCOMPARE(fillGaps({before.data(), std::size_t(before.size())}), filled);
    for (qsizetype i = 0; i < after.size(); ++i) {
        QVERIFY(std::isnan(after[i]) ? std::isnan(before[i]) : before[i] == after[i]);
    }
}

QTEST_APPLESS_MAIN(tst_Curve)
#include "tst_curve.moc"
