#include "PointInPolygon.h"
#include "ReferenceData.h"
#include "TriangleContour.h"

#include <QTest>

#include <limits>
#include <vector>

using namespace gkBase;

namespace {

double area(const ContourPoint* pPoints, int iCount)
{
    double dTwice = 0.0;
    for (int i = 0; i < iCount; ++i) {
        const ContourPoint& first = pPoints[i];
        const ContourPoint& second = pPoints[(i + 1) % iCount];
        dTwice += first.m_dX * second.m_dY - second.m_dX * first.m_dY;
    }
    return 0.5 * dTwice;
}

} // namespace

class tst_PlaneGeometry : public QObject
{
    Q_OBJECT
private slots:
    void isoline_data();
    void isoline();
    void isolinePointsAreSharedByNeighbours();
    void band_data();
    void band();
    void bandsTileTheTriangle();
    void pointInPolygon_data();
    void pointInPolygon();
    void tilesHoldAPointOnce();
};

void tst_PlaneGeometry::isoline_data()
{
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<double>("level");
    QTest::addColumn<int>("count");
    QTest::newRow("through two edges") << QList<double>{0, 10, 20} << 5.0 << 2;
    QTest::newRow("through a corner") << QList<double>{0, 10, 20} << 10.0 << 2;
    QTest::newRow("touches a corner from below") << QList<double>{0, 10, 20} << 20.0 << 0;
    QTest::newRow("edge at the level, triangle below") << QList<double>{5, 5, 0} << 5.0 << 2;
    QTest::newRow("edge at the level, triangle above") << QList<double>{5, 5, 9} << 5.0 << 0;
    QTest::newRow("flat") << QList<double>{5, 5, 5} << 5.0 << 0;
    QTest::newRow("missing corner") << QList<double>{0, std::nan(""), 20} << 5.0 << 0;
}

void tst_PlaneGeometry::isoline()
{
    QFETCH(QList<double>, values);
    QFETCH(double, level);
    QFETCH(int, count);
    const TriangleCorner aCorners[3] = {{0, 0, values[0]}, {8, 0, values[1]}, {0, 4, values[2]}};
    ContourPoint aPoints[2];
    QCOMPARE(triangleIsoline(aCorners, level, aPoints), count);
    for (int i = 0; i < count; ++i) { // the plane has the level there
        const double dValue =
            values[0] + (values[1] - values[0]) * aPoints[i].m_dX / 8 + (values[2] - values[0]) * aPoints[i].m_dY / 4;
        GK_COMPARE_CLOSE(dValue, level, 1e-14);
    }
}

void tst_PlaneGeometry::isolinePointsAreSharedByNeighbours()
{
    const TriangleCorner oA{0.1, 0.2, 1.7};
    const TriangleCorner oB{0.9, 0.35, 3.1};
    const TriangleCorner aFirst[3] = {oA, oB, {0.4, 0.9, 1.1}};
    const TriangleCorner aSecond[3] = {oB, oA, {0.5, -0.7, 0.3}};
    for (double dLevel = 1.8; dLevel < 3.1; dLevel += 0.07) {
        ContourPoint aOne[2];
        ContourPoint aTwo[2];
        QCOMPARE(triangleIsoline(aFirst, dLevel, aOne), 2);
        QCOMPARE(triangleIsoline(aSecond, dLevel, aTwo), 2);
        // Edge 0 is the shared one in both.
        QVERIFY(aOne[0].m_dX == aTwo[0].m_dX && aOne[0].m_dY == aTwo[0].m_dY);
    }
}

void tst_PlaneGeometry::band_data()
{
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::addColumn<int>("count");
    QTest::newRow("whole") << QList<double>{1, 2, 3} << 0.0 << 4.0 << 3;
    QTest::newRow("five corners") << QList<double>{0, 5, 10} << 2.0 << 8.0 << 5;
    QTest::newRow("touches a corner") << QList<double>{0, 0, 10} << 10.0 << 20.0 << 0;
    QTest::newRow("touches an edge") << QList<double>{10, 10, 0} << 10.0 << 20.0 << 0;
    QTest::newRow("flat at the lower level") << QList<double>{5, 5, 5} << 5.0 << 6.0 << 3;
    QTest::newRow("flat at the upper level") << QList<double>{5, 5, 5} << 4.0 << 5.0 << 0;
    QTest::newRow("missing corner") << QList<double>{5, std::nan(""), 5} << 4.0 << 6.0 << 0;
    QTest::newRow("open above") << QList<double>{0, 5, 10} << 5.0 << std::numeric_limits<double>::infinity() << 3;
}

void tst_PlaneGeometry::band()
{
    QFETCH(QList<double>, values);
    QFETCH(double, lower);
    QFETCH(double, upper);
    const TriangleCorner aCorners[3] = {{0, 0, values[0]}, {8, 0, values[1]}, {0, 4, values[2]}};
    ContourPoint aPoints[6];
    QTEST(triangleBand(aCorners, lower, upper, aPoints), "count");
}

void tst_PlaneGeometry::bandsTileTheTriangle()
{
    for (int iCase = 0; iCase < 60; ++iCase) {
        const double dFirst = (iCase * 7) % 11;
        const double dSecond = (iCase * 5) % 13;
        const double dThird = (iCase * 3) % 8;
        const TriangleCorner aCorners[3] = {{0.3, 0.1, dFirst}, {7.7, 1.9, dSecond}, {2.2, 5.3, dThird}};
        double dSum = 0.0;
        for (double dLevel = 0.0; dLevel < 13.0; dLevel += 1.0) {
            ContourPoint aPoints[6];
            const int iCount = triangleBand(aCorners, dLevel, dLevel + 1.0, aPoints);
            const double dArea = area(aPoints, iCount);
            QVERIFY(iCount == 0 || dArea > 0.0); // same sense of rotation as the triangle
            dSum += dArea;
        }
        const ContourPoint aWhole[3] = {{0.3, 0.1}, {7.7, 1.9}, {2.2, 5.3}};
        GK_COMPARE_CLOSE(dSum, area(aWhole, 3), 1e-13);
    }
}

void tst_PlaneGeometry::pointInPolygon_data()
{
    QTest::addColumn<QList<double>>("polygonX");
    QTest::addColumn<QList<double>>("polygonY");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<bool>("inside");
    const QList<double> squareX{0, 4, 4, 0};
    const QList<double> squareY{0, 0, 4, 4};
    QTest::newRow("square, inside") << squareX << squareY << 1.0 << 3.0 << true;
    QTest::newRow("square, outside at corner height") << squareX << squareY << -1.0 << 4.0 << false;
    QTest::newRow("a missing corner is left out")
        << QList<double>{0, 4, 99999.0, 4, 0} << QList<double>{0, 0, 2, 4, 4} << 3.9 << 2.0 << true;
    QTest::newRow("star: middle counts twice")
        << QList<double>{0, 6, -6, 6, -6} << QList<double>{10, -8, 3, 3, -8} << 0.0 << 0.0 << false;
    QTest::newRow("notch") << QList<double>{0, 6, 6, 3, 0} << QList<double>{0, 0, 6, 1, 6} << 3.0 << 4.0 << false;
    QTest::newRow("missing point") << squareX << squareY << 99999.0 << 2.0 << false;
}

void tst_PlaneGeometry::pointInPolygon()
{
    QFETCH(QList<double>, polygonX);
    QFETCH(QList<double>, polygonY);
    QFETCH(double, x);
    QFETCH(double, y);
    const std::span<const double> vdX(polygonX.data(), std::size_t(polygonX.size()));
    const std::span<const double> vdY(polygonY.data(), std::size_t(polygonY.size()));
    QTEST(gkBase::pointInPolygon(vdX, vdY, x, y), "inside");
}

void tst_PlaneGeometry::tilesHoldAPointOnce()
{
    // Two triangles share the diagonal of a square; points on it, and on grid lines, belong to one of them.
    const std::vector<double> vdLowerX{0, 3, 3};
    const std::vector<double> vdLowerY{0, 0, 3};
    const std::vector<double> vdUpperX{0, 3, 0};
    const std::vector<double> vdUpperY{0, 3, 3};
    for (double x = 0.0; x < 3.0; x += 0.3) {
        for (double y = 0.0; y < 3.0; y += 0.3) {
            const bool bLower = gkBase::pointInPolygon(vdLowerX, vdLowerY, x, y);
            const bool bUpper = gkBase::pointInPolygon(vdUpperX, vdUpperY, x, y);
            QVERIFY2(bLower != bUpper, qPrintable(QString("%1 %2").arg(x).arg(y)));
        }
    }
}

QTEST_APPLESS_MAIN(tst_PlaneGeometry)
#include "tst_planegeometry.moc"
