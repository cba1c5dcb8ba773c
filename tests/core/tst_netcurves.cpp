#include "DirectionCosines.h"
#include "NetLines.h"

#include <QTest>

#include <algorithm>
#include <cmath>

using namespace gkBase;

namespace {

double radius(const NetPoint& oPoint)
{
    return std::hypot(oPoint.m_dX, oPoint.m_dY);
}

double distance(const NetPoint& oFirst, const NetPoint& oSecond)
{
    return std::hypot(oFirst.m_dX - oSecond.m_dX, oFirst.m_dY - oSecond.m_dY);
}

/// The largest difference between dAngle and the angle that the points make with an axis.
double largestError(const NetProjection& oProjection, const NetPolyline& vPoints, const gdfVertex& oAxis, double dAngle)
{
    double dLargest = 0.0;
    for (const NetPoint& oPoint : vPoints) {
        if (oProjection.layout() == NetLayout::Tangent && radius(oPoint) < 1e-9) {
            continue; // all level lines plot there
        }
        const LineOrientation oLine = oProjection.lineAt(pulledOntoNet(oPoint));
        const double dFound = angleBetweenAxes(lineVector(oLine.m_dPlunge, oLine.m_dAzimuth), oAxis);
        dLargest = std::max(dLargest, std::abs(dFound - dAngle));
    }
    return dLargest;
}

} // namespace

class tst_NetCurves : public QObject
{
    Q_OBJECT
private slots:
    void greatCircles_data();
    void greatCircles();
    void specialPlanes();
    void arcCarriesTheGreatCircle();
    void smallCircles_data();
    void smallCircles();
    void clipping();
    void nets();
};

void tst_NetCurves::greatCircles_data()
{
    QTest::addColumn<int>("layout");
    QTest::newRow("equal area") << 0;
    QTest::newRow("equal angle") << 1;
    QTest::newRow("tangent") << 2;
}

void tst_NetCurves::greatCircles()
{
    QFETCH(int, layout);
    const NetProjection oProjection(static_cast<NetLayout>(layout));
    for (const double dDip : {0.5, 30.0, 60.0, 75.0, 89.9}) {
        for (const double dAzimuth : {0.0, 90.0, 200.0, 359.0}) {
            const std::vector<NetPolyline> vPieces = greatCircle(oProjection, dDip, dAzimuth);
            const bool bCut = layout == 2 && dDip > 60.0;
            QCOMPARE(vPieces.size(), std::size_t(bCut ? 2 : 1));
            for (const NetPolyline& vPoints : vPieces) { // every line of it is normal to the pole
                QVERIFY(largestError(oProjection, vPoints, poleVector(dDip, dAzimuth), 90.0) < 1e-6);
                QVERIFY(std::all_of(vPoints.begin(), vPoints.end(), isOnNet));
            }
            if (layout < 2) {
                QCOMPARE(vPieces[0].size(), std::size_t(37));
                QVERIFY(distance(vPieces[0].front(), oProjection.line(0.0, dAzimuth - 90.0)) < 1e-9);
                QVERIFY(distance(vPieces[0][18], oProjection.line(dDip, dAzimuth)) < 1e-9);
                QVERIFY(distance(vPieces[0].back(), oProjection.line(0.0, dAzimuth + 90.0)) < 1e-9);
            } else if (bCut) {
                QVERIFY(std::abs(radius(vPieces[0].back()) - 1.0) < 1e-12);
                QVERIFY(std::abs(radius(vPieces[1].front()) - 1.0) < 1e-12);
            }
        }
    }
}

void tst_NetCurves::specialPlanes()
{
    const NetProjection oProjection;
    const auto vUpright = greatCircle(oProjection, 89.996, 90.0);
    QCOMPARE(vUpright[0].size(), std::size_t(2));
    QVERIFY(distance(vUpright[0][0], {0.0, 1.0}) < 1e-15 && distance(vUpright[0][1], {0.0, -1.0}) < 1e-15);
    const auto vLevel = greatCircle(oProjection, 0.004, 90.0, 10.0);
    QCOMPARE(vLevel[0].size(), std::size_t(37));
    QVERIFY(distance(vLevel[0].front(), vLevel[0].back()) < 1e-15);
    QVERIFY(greatCircle(NetProjection(NetLayout::Tangent), 0.0, 90.0).empty());
    QVERIFY(greatCircle(oProjection, g_dMissingValue, 90.0).empty());
}

void tst_NetCurves::arcCarriesTheGreatCircle()
{
    QVERIFY(std::abs(greatCircleArc(30.0, 90.0).m_dRadius - 1.1547) < 1e-4);
    for (const double dDip : {5.0, 30.0, 80.0}) {
        const NetCircle oCircle = greatCircleArc(dDip, 130.0);
        const auto vPieces = greatCircle(NetProjection(NetLayout::EqualAngle), dDip, 130.0);
        for (const NetPoint& oPoint : vPieces[0]) {
            QVERIFY(std::abs(distance(oPoint, oCircle.m_oCentre) - oCircle.m_dRadius) < 1e-12 * oCircle.m_dRadius);
        }
    }
    QVERIFY(std::isnan(greatCircleArc(90.0, 10.0).m_dRadius));
}

void tst_NetCurves::smallCircles_data()
{
    QTest::addColumn<double>("plunge");
    QTest::addColumn<double>("angle");
    QTest::addColumn<int>("pieces");
    QTest::addColumn<bool>("closed");
    QTest::newRow("level axis") << 0.0 << 30.0 << 2 << false;
    QTest::newRow("complement") << 0.0 << 150.0 << 2 << false;
    QTest::newRow("below the horizontal") << 50.0 << 30.0 << 1 << true;
    QTest::newRow("touches the horizontal") << 30.0 << 30.0 << 1 << true;
    QTest::newRow("reaches beyond") << 20.0 << 40.0 << 2 << false;
    QTest::newRow("upright axis") << 90.0 << 40.0 << 1 << true;
    QTest::newRow("all upwards") << 60.0 << 170.0 << 1 << true;
    QTest::newRow("great circle") << 40.0 << 90.0 << 2 << false;
}

void tst_NetCurves::smallCircles()
{
    QFETCH(double, plunge);
    QFETCH(double, angle);
    QFETCH(int, pieces);
    QFETCH(bool, closed);
    for (const NetLayout eLayout : {NetLayout::EqualArea, NetLayout::EqualAngle}) {
        const NetProjection oProjection(eLayout);
        const std::vector<NetPolyline> vPieces = smallCircle(oProjection, plunge, 77.0, angle);
        QCOMPARE(int(vPieces.size()), pieces);
        for (const NetPolyline& vPoints : vPieces) {
            const double dExpected = std::min(angle, 180.0 - angle); // to the axis, whichever its end
            QVERIFY(largestError(oProjection, vPoints, lineVector(plunge, 77.0), dExpected) < 1e-6);
            QVERIFY(std::all_of(vPoints.begin(), vPoints.end(), isOnNet));
            QCOMPARE(distance(vPoints.front(), vPoints.back()) < 1e-7, closed);
            QVERIFY(closed || std::abs(radius(vPoints.front()) - 1.0) < 1e-9);
            for (std::size_t i = 1; i < vPoints.size(); ++i) { // no jump across the net
                QVERIFY(distance(vPoints[i - 1], vPoints[i]) < 0.15);
            }
        }
    }
    for (const NetPolyline& vPoints : smallCircle(NetProjection(NetLayout::Tangent), plunge, 77.0, angle)) {
        QVERIFY(std::all_of(vPoints.begin(), vPoints.end(), isOnNet));
    }
}

void tst_NetCurves::clipping()
{
    const double dNaN = g_dEmptyCell;
    const NetPolyline vLine{{-2, 0}, {2, 0}, {2, 0.5}, {0, 0.5}, {0, 0.1}, {dNaN, dNaN}, {0, 0}, {3, 3}, {3, -3}};
    const std::vector<NetPolyline> vPieces = clippedToNet(vLine);
    QCOMPARE(vPieces.size(), std::size_t(3));
    QVERIFY(distance(vPieces[0][0], {-1, 0}) < 1e-15 && distance(vPieces[0][1], {1, 0}) < 1e-15);
    QCOMPARE(vPieces[1].size(), std::size_t(3));
    QVERIFY(std::abs(radius(vPieces[1][0]) - 1.0) < 1e-15);
    QVERIFY(distance(vPieces[2][1], {std::sqrt(0.5), std::sqrt(0.5)}) < 1e-15);
    QVERIFY(clippedToNet({}).empty());
}

void tst_NetCurves::nets()
{
    const NetLines oFine = netLines(NetProjection(), g_iFineNetStep);
    QCOMPARE(oFine.m_vGreatCircles.size(), std::size_t(88));
    QCOMPARE(oFine.m_vSmallCircles.size(), std::size_t(88));
    const NetLines oTangent = netLines(NetProjection(NetLayout::Tangent, 60.0), g_iCoarseNetStep);
    QCOMPARE(oTangent.m_vdRadii.size(), std::size_t(5));
    QCOMPARE(oTangent.m_vdAzimuths.size(), std::size_t(36));
    QVERIFY(oTangent.m_vGreatCircles.empty());
    QCOMPARE(clearedNetCentre(NetProjection(), true), std::sqrt(2.0) * std::sin(radians(10.0)));
}

QTEST_APPLESS_MAIN(tst_NetCurves)
#include "tst_netcurves.moc"
