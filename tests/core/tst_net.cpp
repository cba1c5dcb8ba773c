#include "Angles.h"
#include "NetProjection.h"
#include "ReferenceData.h"
#include "SineCosine.h"

#include <QTest>

#include <cmath>
#include <vector>

using namespace gkBase;

namespace {

const NetProjection g_aProjections[] = {NetProjection(NetLayout::EqualArea), NetProjection(NetLayout::EqualAngle),
                                        NetProjection(NetLayout::Tangent, 60.0)};

/// The orientation sets of the reference data: name and how they are read.
struct OrientationSet
{
    QString m_sName;
    bool m_bPlanes;
    std::vector<double> m_vdAngle;
    std::vector<double> m_vdAzimuth;
    QJsonObject m_values;
};

std::vector<OrientationSet> orientationSets(const QString& sFile)
{
    std::vector<OrientationSet> vSets;
    const QJsonObject sets = gkTest::referenceValues(sFile)["sets"].toObject();
    for (const QString& sSet : sets.keys()) {
        const auto columns = gkTest::referenceColumns(sFile, "set", sSet);
        for (const bool bPlanes : {true, false}) {
            const QJsonObject values = sets[sSet].toObject()[bPlanes ? "as_planes" : "as_lines"].toObject();
            vSets.push_back({sFile + "/" + sSet + (bPlanes ? " planes" : " lines"), bPlanes, columns["angle"],
                             columns["azimuth"], values});
        }
    }
    return vSets;
}

} // namespace

class tst_Net : public QObject
{
    Q_OBJECT
private slots:
    void sinesAndCosines();
    void pixels_data();
    void pixels();
    void roundTrip_data();
    void roundTrip();
    void beyondTheRim();
    void vectorsPlotAsTheirAngles();
    void referencePositions();
};

void tst_Net::sinesAndCosines()
{
    for (double dAngle = -1000.0; dAngle < 1000.0; dAngle += 0.37) {
        const SineCosine o = sineCosine(dAngle);
        const long double dExact = static_cast<long double>(dAngle) * 3.14159265358979323846264338327950288L / 180.0L;
        QVERIFY(std::abs(static_cast<long double>(o.m_dSine) - std::sin(dExact)) < 3e-16L);
        QVERIFY(std::abs(static_cast<long double>(o.m_dCosine) - std::cos(dExact)) < 3e-16L);
    }
    QVERIFY(sineCosine(180.0).m_dSine == 0.0 && sineCosine(-270.0).m_dCosine == 0.0);
    QVERIFY(std::abs(sineCosine(1e300).m_dSine) <= 1.0);
}

void tst_Net::pixels_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<bool>("pole");
    QTest::addColumn<double>("angle");
    QTest::addColumn<double>("azimuth");
    QTest::addColumn<QPointF>("pixel"); // on 400 x 400
    QTest::newRow("line, equal area") << 0 << false << 30.0 << 90.0 << QPointF(312.14, 199);
    QTest::newRow("line, equal angle") << 1 << false << 30.0 << 90.0 << QPointF(291.38, 199);
    QTest::newRow("pole, equal area") << 0 << true << 30.0 << 90.0 << QPointF(140.44, 199);
    QTest::newRow("pole, equal angle") << 1 << true << 30.0 << 90.0 << QPointF(156.13, 199);
    QTest::newRow("level line south") << 0 << false << 0.0 << 180.0 << QPointF(199, 359);
    QTest::newRow("upright line") << 1 << false << 90.0 << 33.0 << QPointF(199, 199);
    QTest::newRow("upright plane") << 0 << true << 90.0 << 0.0 << QPointF(199, 359);
    QTest::newRow("level plane") << 0 << true << 0.0 << 77.0 << QPointF(199, 199);
    QTest::newRow("tangent, line at the maximum angle") << 2 << false << 60.0 << 270.0 << QPointF(39, 199);
    QTest::newRow("tangent, level line") << 2 << false << 0.0 << 12.0 << QPointF(199, 199);
    QTest::newRow("tangent, pole") << 2 << true << 45.0 << 180.0 << QPointF(199, 199 - 160 / std::sqrt(3.0));
}

void tst_Net::pixels()
{
    QFETCH(int, layout);
    QFETCH(bool, pole);
    QFETCH(double, angle);
    QFETCH(double, azimuth);
    QFETCH(QPointF, pixel);
    const NetProjection& oProjection = g_aProjections[layout];
    const NetPoint oPoint = pole ? oProjection.pole(angle, azimuth) : oProjection.line(angle, azimuth);
    const NetPoint oPixel = NetFrame::fitted(400, 400).toPixel(oPoint);
    QVERIFY2(std::hypot(oPixel.m_dX - pixel.x(), oPixel.m_dY - pixel.y()) < 0.006,
             qPrintable(QString("%1 %2").arg(oPixel.m_dX).arg(oPixel.m_dY)));
    const NetFrame oFlat = NetFrame::fitted(300, 201);
    QCOMPARE(oFlat.m_dRadius, 80.0);
    QCOMPARE(QPointF(oFlat.m_dCentreX, oFlat.m_dCentreY), QPointF(149, 100));
}

void tst_Net::roundTrip_data()
{
    QTest::addColumn<int>("layout");
    QTest::newRow("equal area") << 0;
    QTest::newRow("equal angle") << 1;
    QTest::newRow("tangent") << 2;
}

void tst_Net::roundTrip()
{
    QFETCH(int, layout);
    const NetProjection& oProjection = g_aProjections[layout];
    const NetFrame oFrame = NetFrame::fitted(400, 300);
    for (double dAngle = 0.0; dAngle <= 90.0; dAngle += 2.5) {
        for (double dAzimuth = 0.0; dAzimuth < 360.0; dAzimuth += 7.5) {
            const NetPoint oLine = oProjection.line(dAngle, dAzimuth);
            const LineOrientation oLineBack = oProjection.lineAt(oLine);
            QVERIFY(std::abs(oLineBack.m_dPlunge - dAngle) < 1e-10);
            QVERIFY(oLineBack.m_dAzimuth >= 0.0 && oLineBack.m_dAzimuth < 360.0);
            const NetPoint oPole = oProjection.pole(dAngle, dAzimuth);
            // Through pixels, as a pick does it: off by their rounding, also on the rim.
            const NetPoint oPixel = oFrame.toPixel(oPole);
            const PlaneOrientation oPlane = oProjection.poleAt(oFrame.toNet(oPixel.m_dX, oPixel.m_dY));
            QVERIFY(std::abs(oPlane.m_dDip - dAngle) < 1e-9);
            const NetPoint oAgain = oProjection.pole(oPlane.m_dDip, oPlane.m_dDipAzimuth);
            const double dSize = std::max(1.0, std::hypot(oPole.m_dX, oPole.m_dY));
            QVERIFY(std::hypot(oAgain.m_dX - oPole.m_dX, oAgain.m_dY - oPole.m_dY) < 1e-9 * dSize);
            // The pole of a plane is the line 90 - dip in the opposite direction.
            const NetPoint oOpposite = oProjection.line(90.0 - dAngle, dAzimuth + 180.0);
            QVERIFY(std::hypot(oOpposite.m_dX - oPole.m_dX, oOpposite.m_dY - oPole.m_dY) < 1e-12 * dSize);
        }
    }
    QCOMPARE(oProjection.lineAt({0.0, -0.0}).m_dAzimuth, 0.0);
    QVERIFY(std::isnan(oProjection.line(g_dMissingValue, 10.0).m_dX));
    QVERIFY(isMissing(oProjection.poleAt({g_dEmptyCell, 0.0}).m_dDip));
}

void tst_Net::beyondTheRim()
{
    const NetProjection oProjection;
    QCOMPARE(oProjection.poleAt({0.0, 1.0 + 1e-10}).m_dDip, 90.0);
    QVERIFY(isMissing(oProjection.poleAt({0.0, 1.0 + 1e-8}).m_dDip));
    QVERIFY(oProjection.lineAt(pulledOntoNet({3.0, -4.0})).m_dPlunge < 1e-9);
    QCOMPARE(NetProjection(NetLayout::Tangent).lineAt({0.0, std::sqrt(3.0)}).m_dPlunge, degrees(std::atan(3.0)));
    QCOMPARE(NetProjection(NetLayout::Tangent, 89.0).maximumAngle(), 85.0);
}

void tst_Net::vectorsPlotAsTheirAngles()
{
    for (const NetProjection& oProjection : g_aProjections) {
        for (double dPlunge = 0.0; dPlunge < 90.0; dPlunge += 4.5) {
            const double dAzimuth = 11.0 * dPlunge;
            const double dHorizontal = std::cos(radians(dPlunge));
            const double dNorth = dHorizontal * std::cos(radians(dAzimuth));
            const double dEast = dHorizontal * std::sin(radians(dAzimuth));
            const double dDown = std::sin(radians(dPlunge));
            const NetPoint oLine = oProjection.line(dPlunge, dAzimuth);
            const NetPoint oDown = oProjection.vector(3.0 * dNorth, 3.0 * dEast, 3.0 * dDown);
            const double dSize = std::max(1.0, std::hypot(oLine.m_dX, oLine.m_dY));
            QVERIFY(std::hypot(oDown.m_dX - oLine.m_dX, oDown.m_dY - oLine.m_dY) < 1e-12 * dSize);
            const NetPoint oUp = oProjection.vector(-dNorth, -dEast, -dDown);
            QVERIFY(dPlunge == 0.0 || std::hypot(oUp.m_dX - oLine.m_dX, oUp.m_dY - oLine.m_dY) < 1e-12 * dSize);
        }
    }
}

void tst_Net::referencePositions()
{
    GK_REQUIRE_REFERENCE();
    int iChecked = 0;
    for (const QString& sFile : {QString("shapes_a"), QString("published_orient_a")}) {
        for (const OrientationSet& oSet : orientationSets(sFile)) {
            for (const int i : {0, 1}) {
                const QJsonArray expected =
                    oSet.m_values[i == 0 ? "net_equal_area_xy" : "net_equal_angle_xy"].toArray();
                if (expected.size() != qsizetype(oSet.m_vdAngle.size())) {
                    continue; // sets with missing angles list the others only
                }
                std::vector<NetPoint> vPoints(oSet.m_vdAngle.size());
                const auto fnProject = oSet.m_bPlanes ? projectPoles : projectLines;
                fnProject(g_aProjections[i], oSet.m_vdAngle, oSet.m_vdAzimuth, vPoints);
                for (std::size_t iPoint = 0; iPoint < vPoints.size(); ++iPoint) {
                    const std::vector<double> vd = gkTest::toDoubles(expected[qsizetype(iPoint)].toArray());
                    QVERIFY2(std::hypot(vPoints[iPoint].m_dX - vd[0], vPoints[iPoint].m_dY - vd[1]) < 1e-9,
                             qPrintable(oSet.m_sName));
                    ++iChecked;
                }
            }
        }
    }
    QVERIFY(iChecked > 1000);
}

QTEST_APPLESS_MAIN(tst_Net)
#include "tst_net.moc"
