#include "PointInPolygon.h"
#include "PolygonMask.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <random>

using namespace gkBase;

using Doubles = std::vector<double>;

class tst_PolygonMask : public QObject
{
    Q_OBJECT
private slots:
    void equalsTheExactTest_data();
    void equalsTheExactTest();
    void degenerate();
};

void tst_PolygonMask::equalsTheExactTest_data()
{
    QTest::addColumn<int>("corners");
    QTest::addColumn<double>("size");   // of the outline in pixels
    QTest::addColumn<double>("offset"); // of its centre
    QTest::addColumn<bool>("whole");    // corners on whole pixels, many edges upright or level
    QTest::addColumn<bool>("random");   // corners anywhere: the outline crosses itself everywhere
    QTest::newRow("triangles") << 3 << 300.0 << 0.0 << false << true;
    QTest::newRow("lasso") << 200 << 500.0 << 250.0 << false << false;
    QTest::newRow("on whole pixels") << 60 << 40.0 << 20.0 << true << true;
    QTest::newRow("scribble") << 300 << 200.0 << -50.0 << false << true;
    QTest::newRow("below a pixel") << 20 << 0.3 << 7.1 << false << false;
    QTest::newRow("larger than a mask per pixel") << 40 << 1e7 << 3e6 << false << true;
    QTest::newRow("far away") << 12 << 30.0 << 1e11 << false << true;
}

void tst_PolygonMask::equalsTheExactTest()
{
    QFETCH(int, corners);
    QFETCH(double, size);
    QFETCH(double, offset);
    QFETCH(bool, whole);
    QFETCH(bool, random);
    std::mt19937_64 oRandom(corners);
    std::uniform_real_distribution<double> oShare(0.0, 1.0);
    const auto snapped = [&](double d) { return whole ? std::round(d) : d; };
    for (int iOutline = 0; iOutline < 8; ++iOutline) {
        Doubles vdX;
        Doubles vdY;
        for (int i = 0; i < corners; ++i) {
            const double dRadius = 0.5 * size * (0.6 + 0.4 * oShare(oRandom));
            const double dAngle = 6.283 * i / corners;
            vdX.push_back(snapped(offset + (random ? size * (oShare(oRandom) - 0.5) : dRadius * std::cos(dAngle))));
            vdY.push_back(snapped(offset + (random ? size * (oShare(oRandom) - 0.5) : dRadius * std::sin(dAngle))));
        }
        const PolygonMask oMask(vdX, vdY);
        QString sDifferent;
        const auto compare = [&](double dX, double dY) {
            if (oMask.contains(dX, dY) != pointInPolygon(vdX, vdY, dX, dY)) {
                sDifferent = QString("%1 %2").arg(dX, 0, 'g', 17).arg(dY, 0, 'g', 17);
            }
        };
        for (int i = 0; i < 1500; ++i) {
            compare(snapped(offset + 1.2 * size * (oShare(oRandom) - 0.5)),
                    snapped(offset + 1.2 * size * (oShare(oRandom) - 0.5)));
            // On an edge, a rounding beside it, and level with a corner.
            const auto iFrom = oRandom() % size_t(corners);
            const auto iTo = (iFrom + 1) % size_t(corners);
            const double dShare = i % 16 / 15.0;
            const double dX = vdX[iFrom] + dShare * (vdX[iTo] - vdX[iFrom]);
            const double dY = vdY[iFrom] + dShare * (vdY[iTo] - vdY[iFrom]);
            compare(dX, dY);
            compare(std::nextafter(dX, 1e300), dY);
            compare(dX + size * (oShare(oRandom) - 0.5), vdY[iFrom]);
        }
        QVERIFY2(sDifferent.isEmpty(), qPrintable(sDifferent));
    }
}

void tst_PolygonMask::degenerate()
{
    const Doubles vdX{0, 10, g_dMissingValue, 10, 0, g_dEmptyCell};
    const Doubles vdY{0, 0, 5, 10, 10, 1};
    const PolygonMask oSquare(vdX, vdY); // without the two corners that are none
    QVERIFY(oSquare.contains(5.0, 5.0));
    QVERIFY(oSquare.contains(0.0, 0.0));
    QVERIFY(!oSquare.contains(10.0, 10.0));
    QVERIFY(!oSquare.contains(g_dEmptyCell, 5.0));
    QVERIFY(!oSquare.contains(std::numeric_limits<double>::infinity(), 5.0));
    const Doubles vdWide{0, 2e5, 2e5, 0};
    QVERIFY(PolygonMask(vdWide, Doubles{0, 0, 10, 10}).contains(1e5, 5.0));
    QVERIFY(!PolygonMask(vdWide, Doubles{0, 0, 10, 10}).contains(g_dMissingValue, 5.0));
    QVERIFY(!PolygonMask(Doubles{1, 9}, Doubles{1, 9}).contains(5.0, 5.0));
    QVERIFY(!PolygonMask(Doubles(5, 4.0), Doubles(5, 4.0)).contains(4.0, 4.0));
    QVERIFY(!PolygonMask({}, {}).contains(0.0, 0.0));
    const double dHuge = std::numeric_limits<double>::max();
    QVERIFY(!PolygonMask(Doubles{-dHuge, dHuge, 0}, Doubles{-dHuge, 0, dHuge}).contains(1.0, 1.0));
}

QTEST_APPLESS_MAIN(tst_PolygonMask)
#include "tst_polygonmask.moc"
