// Zoom and pan, the held part of a large chart, and the shapes of the symbols: all without a window.

#include <gkBase/ChartBackingStore.h>
#include <gkBase/ChartViewport.h>
#include <gkBase/SymbolGeometry.h>

#include <QTest>

#include <cmath>
#include <limits>

using namespace gkBase;

namespace {

constexpr double g_dNaN = std::numeric_limits<double>::quiet_NaN();

ChartViewport viewport(const QSize& oView, double dZoom, int iPercentX, int iPercentY)
{
    ChartViewport oViewport;
    oViewport.setViewSize(oView);
    oViewport.setPercentX(iPercentX);
    oViewport.setPercentY(iPercentY);
    oViewport.setZoom(dZoom);
    return oViewport;
}

} // namespace

class TestChartGeometry : public QObject
{
    Q_OBJECT
private slots:
    void offsets_data();
    void offsets();
    void everyPixelCanBePannedTo();
    void heightOnlyZoomKeepsTheWidth();
    void uselessZoomsAreIgnored();
    void wheel_data();
    void wheel();
    void wheelThereAndBack();
    void heldPart_data();
    void heldPart();
    void symbolBoxes_data();
    void symbolBoxes();
    void crossesAndPolygons();
    void unknownStylesAreCircles();
    void tadpoleTails_data();
    void tadpoleTails();
};

void TestChartGeometry::offsets_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("percentX");
    QTest::addColumn<int>("percentY");
    QTest::addColumn<QPoint>("offset");
    QTest::newRow("zoom 1 never pans") << 1.0 << 100 << 37 << QPoint(0, 0);
    QTest::newRow("far end") << 2.0 << 100 << 100 << QPoint(400, 300);
    QTest::newRow("start") << 2.0 << 0 << 0 << QPoint(0, 0);
    QTest::newRow("centre") << 3.0 << 50 << 50 << QPoint(400, 300);
    QTest::newRow("halves go up") << 1.0025 << 50 << 50 << QPoint(1, 1); // 401 × 301 chart: half a pixel each
    QTest::newRow("smaller chart, halves go up") << 0.9975 << 50 << 50 << QPoint(0, 0); // 399 × 299
    QTest::newRow("percentages are clamped") << 2.0 << 250 << -3 << QPoint(400, 0);
}

void TestChartGeometry::offsets()
{
    QFETCH(double, zoom);
    QFETCH(int, percentX);
    QFETCH(int, percentY);
    const ChartViewport oViewport = viewport({400, 300}, zoom, percentX, percentY);
    QTEST(oViewport.offset(), "offset");
    QCOMPARE(oViewport.visibleRect().size(), QSize(400, 300));
}

void TestChartGeometry::everyPixelCanBePannedTo()
{
    ChartViewport oViewport = viewport({400, 300}, 20.0, 50, 50);
    for (int i = 0; i < 5700; ++i) {
        oViewport.setOffset({i, 5700 - i});
        QCOMPARE(oViewport.offset(), QPoint(i, 5700 - i));
    }
    oViewport.setOffset({-7, 99999});
    QCOMPARE(oViewport.offset(), QPoint(0, 5700));
    oViewport.setZoom(1.0); // nothing to pan keeps the place for the next zoom
    oViewport.setOffset({30, 30});
    oViewport.setZoom(2.0);
    QCOMPARE(oViewport.offset(), QPoint(0, 300));
}

void TestChartGeometry::heightOnlyZoomKeepsTheWidth()
{
    ChartViewport oViewport = viewport({400, 300}, 1.0, 80, 100);
    oViewport.setZoomY(2.5);
    QCOMPARE(oViewport.chartSize(), QSize(400, 750));
    QCOMPARE(oViewport.offset(), QPoint(0, 450));
    oViewport.setViewSize({200, 100});
    QCOMPARE(oViewport.chartSize(), QSize(200, 250));
    QCOMPARE(oViewport.offset(), QPoint(0, 150));
}

void TestChartGeometry::uselessZoomsAreIgnored()
{
    ChartViewport oViewport = viewport({400, 300}, 2.0, 50, 50);
    for (const double dZoom : {0.0, -1.0, g_dNaN, std::numeric_limits<double>::infinity()}) {
        QVERIFY(!oViewport.setZoom(dZoom));
        QVERIFY(!oViewport.setZoomY(dZoom));
    }
    QCOMPARE(oViewport.chartSize(), QSize(800, 600));
    QVERIFY(oViewport.setZoom(1e300));
    QVERIFY(oViewport.chartSize().width() > 0 && oViewport.offset().x() > 0);
}

void TestChartGeometry::wheel_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("delta");
    QTest::addColumn<double>("expected");
    QTest::newRow("one notch") << 1.0 << 120 << 1.1;
    QTest::newRow("three notches back") << 2.0 << -360 << 1.7;
    QTest::newRow("below a notch") << 1.5 << 119 << 1.5;
    QTest::newRow("below a notch back") << 1.5 << -119 << 1.5;
    QTest::newRow("a notch and a half") << 1.5 << 180 << 1.6;
    QTest::newRow("lower end") << 1.0 << -120 << 1.0;
    QTest::newRow("below a notch between tenths") << 1.23456789 << 119 << 1.23456789;
    QTest::newRow("onto the lower end") << 1.05 << -120 << 1.0;
    QTest::newRow("upper end") << 19.95 << 240 << 20.0;
}

void TestChartGeometry::wheel()
{
    QFETCH(double, zoom);
    QFETCH(int, delta);
    QFETCH(double, expected);
    QVERIFY(std::abs(ChartViewport::wheelZoom(zoom, delta) - expected) < 1e-12);
}

void TestChartGeometry::wheelThereAndBack()
{
    // Zoom 1 is compared exactly: it hides scroll bars and drops the offsets.
    for (int iNotches = 1; iNotches <= 190; ++iNotches) {
        double zoom = 1.0;
        for (int i = 0; i < 2 * iNotches; ++i)
            zoom = ChartViewport::wheelZoom(zoom, i < iNotches ? 120 : -120);
        QCOMPARE(zoom - 1.0, 0.0);
    }
}

void TestChartGeometry::heldPart_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("percent");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<bool>("whole");
    QTest::newRow("unzoomed") << 1.0 << 50 << 1.0 << true;
    QTest::newRow("below the budget") << 2.0 << 100 << 1.0 << true;
    QTest::newRow("zoom 20, middle") << 20.0 << 50 << 1.0 << false;
    QTest::newRow("zoom 20, start") << 20.0 << 0 << 1.0 << false;
    QTest::newRow("zoom 20, end") << 20.0 << 100 << 1.0 << false;
    QTest::newRow("zoom 20, fine screen") << 20.0 << 33 << 2.0 << false;
    QTest::newRow("view above the budget") << 20.0 << 33 << 4.0 << false;
}

void TestChartGeometry::heldPart()
{
    QFETCH(double, zoom);
    QFETCH(int, percent);
    QFETCH(double, ratio);
    QFETCH(bool, whole);
    const ChartViewport oViewport = viewport({1920, 1080}, zoom, percent, percent);
    const qint64 iBudget = ChartBackingStore::s_iDefaultBudget;
    const QRect oChart(QPoint(0, 0), oViewport.chartSize());
    const QRect oHeld = ChartBackingStore::coverageFor(oChart.size(), oViewport.visibleRect(), ratio, iBudget);
    QVERIFY(oHeld.contains(oViewport.visibleRect()));
    QVERIFY(oChart.contains(oHeld));
    QCOMPARE(oHeld == oChart, whole);
    const qint64 iView = ChartBackingStore::bytes(oViewport.viewSize(), ratio);
    QVERIFY(ChartBackingStore::bytes(oHeld.size(), ratio) <= qMax(iBudget, iView));
}

void TestChartGeometry::symbolBoxes_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QRectF>("box");
    const QRectF oSquare(QPointF(16, 26), QPointF(24, 34)); // centre (20, 30), size 4
    const QRectF oTriangle = oSquare.adjusted(-1, 0, 1, 0);
    for (const int iStyle : {Circle, Ring, Cross, Square, Square1, Diamond, Diamond1, BigCross1, BigCross3})
        QTest::addRow("%s", qPrintable(pointStyleName(iStyle))) << iStyle << oSquare;
    for (const int iStyle : {Triangle1, Triangle2, Triangle3, Triangle4})
        QTest::addRow("%s", qPrintable(pointStyleName(iStyle))) << iStyle << oTriangle;
}

void TestChartGeometry::symbolBoxes()
{
    QFETCH(int, style);
    QFETCH(QRectF, box);
    // Centres are rounded to whole pixels first.
    for (const QPointF& oCentre : {QPointF(20, 30), QPointF(19.5, 30.49)})
        QCOMPARE(symbolPath(style, oCentre, 4).boundingRect(), box);
    QVERIFY(symbolPath(style, QPointF(20, 30), -2).boundingRect().width() <= 2.0);
}

void TestChartGeometry::crossesAndPolygons()
{
    // Plus: arms of half-width floor(5 × 0.5) = 2, twelve different corners.
    const QPolygonF plus = symbolPolygon(BigCross1, QPointF(0, 0), 5);
    QCOMPARE(plus.size(), 12);
    QVERIFY(plus.contains(QPointF(2, -5)) && plus.contains(QPointF(-5, 2)) && plus.contains(QPointF(-2, 2)));
    // Turned by 45 degrees every corner keeps its distance.
    const QPolygonF turned = symbolPolygon(BigCross2, QPointF(0, 0), 5);
    QCOMPARE(turned.size(), 12);
    for (const QPointF& oCorner : turned)
        QVERIFY(std::abs(std::hypot(oCorner.x(), oCorner.y()) - std::hypot(2, 5)) < 1e-9 ||
                std::abs(std::hypot(oCorner.x(), oCorner.y()) - std::hypot(2, 2)) < 1e-9);
    // Apexes.
    QCOMPARE(symbolPolygon(Triangle1, QPointF(10, 10), 4).first(), QPointF(10, 6));
    QCOMPARE(symbolPolygon(Triangle2, QPointF(10, 10), 4).first(), QPointF(10, 14));

    const QPolygonF hexagon = regularPolygon(QPointF(0, 0), 8, 6);
    QCOMPARE(hexagon.size(), 6);
    QVERIFY(QLineF(hexagon.first(), QPointF(0, -8)).length() < 1e-9);
    for (qsizetype i = 0; i < 6; ++i)
        QVERIFY(std::abs(QLineF(hexagon[i], hexagon[(i + 1) % 6]).length() - 8.0) < 1e-9);
    QVERIFY(regularPolygon(QPointF(0, 0), 8, 2).isEmpty());
}

void TestChartGeometry::unknownStylesAreCircles()
{
    for (const int iStyle : {-1, 16, 99999}) {
        QCOMPARE(symbolPath(iStyle, QPointF(3, 4), 5), symbolPath(Circle, QPointF(3, 4), 5));
        QCOMPARE(symbolFill(iStyle), SymbolFill::Colour);
    }
    QCOMPARE(offeredPointStyles(false).size(), 9);
    QList<PointStyle> lAll = offeredPointStyles(true);
    std::sort(lAll.begin(), lAll.end());
    QCOMPARE(std::unique(lAll.begin(), lAll.end()) - lAll.begin(), 16);
}

void TestChartGeometry::tadpoleTails_data()
{
    QTest::addColumn<QPointF>("centre");
    QTest::addColumn<double>("azimuth");
    QTest::addColumn<QPointF>("end"); // NaN: no tail
    const QPointF oNone(g_dNaN, g_dNaN);
    QTest::newRow("up") << QPointF(50, 50) << 0.0 << QPointF(50, 32);
    QTest::newRow("right") << QPointF(50, 50) << 90.0 << QPointF(68, 50);
    QTest::newRow("down") << QPointF(50, 50) << 180.0 << QPointF(50, 68);
    QTest::newRow("left") << QPointF(50, 50) << 270.0 << QPointF(32, 50);
    QTest::newRow("leaves at the top") << QPointF(50, 17) << 0.0 << oNone;
    QTest::newRow("just inside") << QPointF(50, 18) << 0.0 << QPointF(50, 0);
    QTest::newRow("leaves at the left") << QPointF(17, 50) << 270.0 << oNone;
    QTest::newRow("head outside") << QPointF(-8, 50) << 90.0 << oNone;
    QTest::newRow("missing") << QPointF(50, 50) << 99999.0 << oNone;
    QTest::newRow("NaN") << QPointF(50, 50) << g_dNaN << oNone;
}

void TestChartGeometry::tadpoleTails()
{
    QFETCH(QPointF, centre);
    QFETCH(double, azimuth);
    QFETCH(QPointF, end);
    const std::optional<QLineF> tail = tadpoleTail(centre, azimuth, 4);
    QCOMPARE(tail.has_value(), !std::isnan(end.x()));
    if (tail) {
        QVERIFY(QLineF(tail->p2(), end).length() < 1e-6);
        QVERIFY(std::abs(QLineF(centre, tail->p1()).length() - 4.0) < 1e-9);
    }
}

QTEST_APPLESS_MAIN(TestChartGeometry)
#include "tst_chartgeometry.moc"
