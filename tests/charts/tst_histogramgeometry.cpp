// Bars, percentile lines and ranges of a histogram as plain shapes.

#include <gkBase/HistogramGeometry.h>

#include <QTest>

#include <cmath>
#include <limits>

using namespace gkBase;

namespace {

constexpr double g_dNaN = std::numeric_limits<double>::quiet_NaN();

HistogramMap mapOf(double dXMax, double dYMax, const QSize& oChart)
{
    return histogramMap({QPointF(0, 0), QPointF(dXMax, dYMax)}, oChart);
}

} // namespace

class TestHistogramGeometry : public QObject
{
    Q_OBJECT
private slots:
    void narrowRanges_data();
    void narrowRanges();
    void mapIsTheAxesMap();
    void barsOfIntervals();
    void thinBarsKeepAPixel();
    void everyBarIsFoundWhereItStands();
    void percentileLines_data();
    void percentileLines();
    void directionMarks_data();
    void directionMarks();
    void labelsOfOneRowDoNotTouch();
};

void TestHistogramGeometry::narrowRanges_data()
{
    QTest::addColumn<QPointF>("lower");
    QTest::addColumn<QPointF>("upper");
    QTest::addColumn<QPointF>("guardedLower");
    QTest::addColumn<QPointF>("guardedUpper");
    QTest::newRow("both wide") << QPointF(0, 0) << QPointF(5, 7) << QPointF(0, 0) << QPointF(5, 7);
    QTest::newRow("x narrow: margin from y") << QPointF(5, 0) << QPointF(5, 8) << QPointF(1, 0) << QPointF(9, 8);
    QTest::newRow("y narrow: margin from x") << QPointF(0, 3) << QPointF(8, 3) << QPointF(0, -1) << QPointF(8, 7);
    QTest::newRow("both narrow") << QPointF(5, 3) << QPointF(5, 3) << QPointF(-5, -7) << QPointF(15, 13);
    const double dCentre = static_cast<double>(0.1f);
    QTest::newRow("both narrow, single precision")
        << QPointF(0.1, 0.1) << QPointF(0.1, 0.1) << QPointF(dCentre - 10, dCentre - 10)
        << QPointF(dCentre + 10, dCentre + 10);
    QTest::newRow("just narrow") << QPointF(0, 0) << QPointF(4.9e-7, 2) << QPointF(4.9e-7 - 1, 0)
                                 << QPointF(4.9e-7 + 1, 2);
    QTest::newRow("just wide enough") << QPointF(0, 0) << QPointF(5e-7, 2) << QPointF(0, 0) << QPointF(5e-7, 2);
}

void TestHistogramGeometry::narrowRanges()
{
    QFETCH(QPointF, lower);
    QFETCH(QPointF, upper);
    const HistogramBoundaries guarded = guardedBoundaries({lower, upper});
    QTEST(guarded.m_oLowerLeft, "guardedLower");
    QTEST(guarded.m_oUpperRight, "guardedUpper");
}

void TestHistogramGeometry::mapIsTheAxesMap()
{
    const HistogramMap map = mapOf(10, 20, {101, 201});
    QCOMPARE(map.toPixel({0, 0}), QPointF(0, 200));
    QCOMPARE(map.toPixel({10, 20}), QPointF(100, 0));
    for (const QPointF& oData : {QPointF(3.7, 1.25), QPointF(-4, 30)})
        QVERIFY(QLineF(map.toData(map.toPixel(oData)), oData).length() < 1e-9);
    for (const HistogramMap& useless : {mapOf(0, 0, {100, 100}), mapOf(1, 1, {1, 1}), mapOf(1, 1, {0, 0})}) {
        const QPointF oPixel = useless.toPixel({0.3, 0.3});
        QVERIFY(std::isfinite(oPixel.x()) && std::isfinite(oPixel.y()));
    }
    QCOMPARE(mapOf(1, 1, {1, 100}).toPixel({0.7, 0}).x(), 0.0);
}

void TestHistogramGeometry::barsOfIntervals()
{
    // Ten pixels per unit; heights in units of ten pixels.
    const HistogramMap map = mapOf(10, 10, {101, 101});
    const std::vector<HistogramBar> vBars =
        histogramBars({{0, 2, 3}, {2, 4, 0}, {4, 6, g_dNaN}, {6, 8, 10}, {8, 10, -1}}, map);
    QCOMPARE(vBars.size(), std::size_t(2));
    QCOMPARE(vBars[0].m_oRect, QRectF(QPointF(1, 70), QPointF(19, 100)));
    QCOMPARE(vBars[0].m_iInterval, 0);
    QCOMPARE(vBars[1].m_oRect, QRectF(QPointF(61, 0), QPointF(79, 100)));
    QCOMPARE(vBars[1].m_iInterval, 3);

    QCOMPARE(barAt(vBars, {19.9, 70}), 0);
    QCOMPARE(barAt(vBars, {20, 80}), -1); // the gap between neighbours
    QCOMPARE(barAt(vBars, {10, 69}), -1); // above the bar
    QCOMPARE(barAt(vBars, {0.5, 90}), -1);
    QCOMPARE(barAt(vBars, {61, 0}), 3);
    QCOMPARE(barAt({}, {61, 0}), -1);
}

void TestHistogramGeometry::thinBarsKeepAPixel()
{
    std::vector<HistogramInterval> vIntervals;
    for (int i = 0; i < 1000; ++i)
        vIntervals.push_back({i * 0.01, (i + 1) * 0.01, 1.0 + i % 7});
    for (const int iWidth : {2, 50, 700, 1001, 2500, 5000}) {
        const std::vector<HistogramBar> vBars = histogramBars(vIntervals, mapOf(10, 10, {iWidth, 101}));
        QCOMPARE(vBars.size(), vIntervals.size());
        for (const HistogramBar& bar : vBars) {
            QVERIFY(bar.m_oRect.left() >= 0.0 && bar.m_oRect.right() <= iWidth - 1.0);
            QVERIFY(bar.m_oRect.width() >= 0.0); // first pixel = last pixel: one pixel wide
        }
    }
    // All values equal: an interval without width in a range around it.
    const HistogramBoundaries guarded = guardedBoundaries({QPointF(7, 0), QPointF(7, 12)});
    const std::vector<HistogramBar> vBars = histogramBars({{7, 7, 12}}, histogramMap(guarded, {201, 101}));
    QCOMPARE(vBars.at(0).m_oRect, QRectF(QPointF(100, 0), QPointF(100, 100)));
}

void TestHistogramGeometry::everyBarIsFoundWhereItStands()
{
    std::vector<HistogramInterval> vIntervals;
    for (int i = 0; i < 40; ++i)
        vIntervals.push_back({i * 0.25, (i + 1) * 0.25, static_cast<double>((i * 13) % 11)});
    const std::vector<HistogramBar> vBars = histogramBars(vIntervals, mapOf(10, 11, {777, 333}));
    QCOMPARE(vBars.size(), std::size_t(36)); // four heights are 0
    for (const HistogramBar& bar : vBars) {
        QCOMPARE(barAt(vBars, bar.m_oRect.center()), bar.m_iInterval);
        QCOMPARE(barAt(vBars, bar.m_oRect.bottomRight()), bar.m_iInterval);
    }
}

void TestHistogramGeometry::percentileLines_data()
{
    QTest::addColumn<double>("p10");
    QTest::addColumn<double>("p90");
    QTest::addColumn<bool>("show");
    QTest::addColumn<QList<int>>("percents");
    QTest::newRow("all") << 1.0 << 9.0 << true << QList<int>{10, 50, 90};
    QTest::newRow("P50 off") << 1.0 << 9.0 << false << QList<int>{10, 90};
    QTest::newRow("missing") << 99999.0 << g_dNaN << true << QList<int>{50};
    QTest::newRow("outside the range") << -0.5 << 10.5 << true << QList<int>{50};
    QTest::newRow("on the edges") << 0.0 << 10.0 << true << QList<int>{10, 50, 90};
}

void TestHistogramGeometry::percentileLines()
{
    QFETCH(double, p10);
    QFETCH(double, p90);
    QFETCH(bool, show);
    QFETCH(QList<int>, percents);
    QList<int> liShown;
    for (const HistogramLine& line :
         gkBase::percentileLines({p10, 5.0, p90}, true, show, true, mapOf(10, 10, {101, 101}))) {
        liShown << line.m_iPercent;
        QVERIFY(line.m_dX >= 0.0 && line.m_dX <= 100.0);
        QVERIFY(line.m_iPercent != 50 || line.m_dX == 50.0);
    }
    QCOMPARE(liShown, percents);
}

void TestHistogramGeometry::directionMarks_data()
{
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<double>("t");
    QTest::addColumn<double>("l");
    QTest::addColumn<QString>("marks"); // in degrees from the left end, which is pixel 0
    QTest::newRow("from left to right") << 0.0 << 360.0 << 310.0 << 220.0 << "L220 T310";
    QTest::newRow("by whole turns") << 0.0 << 360.0 << 370.0 << -30.0 << "T10 L330";
    QTest::newRow("another start") << -180.0 << 180.0 << 310.0 << 40.0 << "T130 L220";
    QTest::newRow("half a circle: axes") << 0.0 << 180.0 << 310.0 << 220.0 << "L40 T130";
    QTest::newRow("before the first azimuth") << 20.0 << 360.0 << 10.0 << 100.0 << "L80";
    QTest::newRow("missing") << 0.0 << 360.0 << 99999.0 << g_dNaN << "";
}

void TestHistogramGeometry::directionMarks()
{
    QFETCH(double, from);
    QFETCH(double, to);
    const int iPixels = static_cast<int>(to - from) + 1; // one per degree
    QStringList lMarks;
    QFETCH(double, t);
    QFETCH(double, l);
    for (const HistogramDirection& mark :
         gkBase::directionMarks(t, l, histogramMap({QPointF(from, 0), QPointF(to, 1)}, QSize(iPixels, 50))))
        lMarks << (mark.m_bTransverse ? QStringLiteral("T%1") : QStringLiteral("L%1")).arg(mark.m_dX);
    QTEST(lMarks.join(QLatin1Char(' ')), "marks");
}

void TestHistogramGeometry::labelsOfOneRowDoNotTouch()
{
    QCOMPARE(labelRows({10, 100, 200}, {20, 20, 20}, 4), QList<int>({0, 0, 0}));
    QCOMPARE(labelRows({10, 11, 12}, {20, 20, 20}, 4), QList<int>({0, 1, 2}));
    QCOMPARE(labelRows({10, 30, 44}, {20, 20, 20}, 4), QList<int>({0, 1, 0}));
    QCOMPARE(labelRows({}, {}, 4), QList<int>());
}

QTEST_APPLESS_MAIN(TestHistogramGeometry)
#include "tst_histogramgeometry.moc"
