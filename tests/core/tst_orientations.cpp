#include "ApparentDip.h"
#include "DirectionCosines.h"
#include "LineInPlane.h"
#include "ReferenceData.h"
#include "Rotation.h"
#include "StrikeText.h"

#include <QTest>

#include <vector>

using namespace gkBase;

namespace {

double axesApart(const LineOrientation& oFirst, const LineOrientation& oSecond)
{
    return angleBetweenAxes(lineVector(oFirst.m_dPlunge, oFirst.m_dAzimuth),
                            lineVector(oSecond.m_dPlunge, oSecond.m_dAzimuth));
}

double planesApart(const PlaneOrientation& oFirst, const PlaneOrientation& oSecond)
{
    return axesApart(poleOfPlane(oFirst), poleOfPlane(oSecond));
}

bool isInRange(double dAngle, double dAzimuth)
{
    return dAngle >= 0.0 && dAngle <= 90.0 && dAzimuth >= 0.0 && dAzimuth < 360.0;
}

/// Angles and azimuths over the hemisphere with its rim and centre.
template <typename Function>
void overTheHemisphere(Function&& fn)
{
    for (double dAngle = 0.0; dAngle <= 90.0; dAngle += 7.5) {
        for (double dAzimuth = 0.0; dAzimuth < 360.0; dAzimuth += 22.5) {
            fn(dAngle, dAzimuth);
        }
    }
}

} // namespace

class tst_Orientations : public QObject
{
    Q_OBJECT
private slots:
    void anglesAndVectorsAgree();
    void poleIsNormalToItsLines();
    void specialDirections();
    void rotatesAndRotatesBack();
    void knownRotation();
    void meanComesToTheCentre();
    void rotatedRecords();
    void rotationLeavesMissingRecordsEmpty();
    void apparentDips_data();
    void apparentDips();
    void apparentDipsOfReference_data();
    void apparentDipsOfReference();
    void strikeWords();
};

void tst_Orientations::anglesAndVectorsAgree()
{
    overTheHemisphere([](double dAngle, double dAzimuth) {
        const LineOrientation oLine = lineOf(lineVector(dAngle, dAzimuth));
        QVERIFY(isInRange(oLine.m_dPlunge, oLine.m_dAzimuth));
        GK_COMPARE_CLOSE(oLine.m_dPlunge, dAngle, 1e-13);
        QVERIFY(dAngle == 90.0 || angularDifference(oLine.m_dAzimuth, dAzimuth) < 1e-12);
        const PlaneOrientation oPlane = planeOfPole(poleVector(dAngle, dAzimuth) * 17.0);
        GK_COMPARE_CLOSE(oPlane.m_dDip, dAngle, 1e-13);
        QVERIFY(dAngle == 0.0 || angularDifference(oPlane.m_dDipAzimuth, dAzimuth) < 1e-12);
        // Both roads from a plane to its pole.
        QVERIFY(axesApart(lineOf(poleVector(dAngle, dAzimuth)), poleOfPlane({dAngle, dAzimuth})) < 1e-12);
        QVERIFY(planesApart(planeOfPole(poleOfPlane({dAngle, dAzimuth})), {dAngle, dAzimuth}) < 1e-12);
    });
}

void tst_Orientations::poleIsNormalToItsLines()
{
    overTheHemisphere([](double dDip, double dAzimuth) {
        for (double dPitch = 0.0; dPitch <= 180.0; dPitch += 20.0) {
            const LineOrientation oLine = lineInPlane(dDip, dAzimuth, dPitch);
            GK_COMPARE_CLOSE(axesApart(oLine, poleOfPlane({dDip, dAzimuth})), 90.0, 1e-12);
        }
    });
}

void tst_Orientations::specialDirections()
{
    QCOMPARE(lineOf({0.0, 0.0, -3.0}).m_dPlunge, 90.0);
    QCOMPARE(lineOf({0.0, 0.0, -3.0}).m_dAzimuth, 0.0);
    QCOMPARE(planeOfPole(gdfVertex(0.0, 0.0, 1.0)).m_dDip, 0.0);
    QCOMPARE(lineOf({0.0, 1.0, -1e-15}).m_dAzimuth, 90.0); // lifted by rounding only
    QCOMPARE(lineOf({0.0, 1.0, -1.0}).m_dAzimuth, 270.0);
    QCOMPARE(lineOf({}).m_dPlunge, g_dMissingValue);
    QCOMPARE(planeOfPole(gdfVertex(1.0, std::nan(""), 0.0)).m_dDip, g_dMissingValue);
    QCOMPARE(poleOfPlane({g_dMissingValue, 10.0}).m_dAzimuth, g_dMissingValue);
}

void tst_Orientations::rotatesAndRotatesBack()
{
    const Rotation oRotation({25.0, 310.0}, 115.5);
    const Rotation oBack = oRotation.inverse();
    overTheHemisphere([&](double dAngle, double dAzimuth) {
        const LineOrientation oLine{dAngle, dAzimuth};
        const LineOrientation oTurned = oRotation.apply(oLine);
        QVERIFY(isInRange(oTurned.m_dPlunge, oTurned.m_dAzimuth));
        QVERIFY(axesApart(oBack.apply(oTurned), oLine) < 1e-12);
        // A plane takes its lines with it.
        const PlaneOrientation oPlane = oRotation.apply(PlaneOrientation{dAngle, dAzimuth});
        QVERIFY(planesApart(oBack.apply(oPlane), {dAngle, dAzimuth}) < 1e-12);
        const LineOrientation oInPlane = oRotation.apply(lineInPlane(dAngle, dAzimuth, 35.0));
        GK_COMPARE_CLOSE(axesApart(oInPlane, poleOfPlane(oPlane)), 90.0, 1e-12);
    });
    QVERIFY(axesApart(oRotation.apply(LineOrientation{25.0, 310.0}), {25.0, 310.0}) < 1e-12);
}

void tst_Orientations::knownRotation()
{
    const PlaneOrientation oPlane = Rotation({0.0, 45.0}, 40.0).apply(PlaneOrientation{30.0, 90.0});
    QCOMPARE(qRound(oPlane.m_dDip * 100.0), 6414);
    QCOMPARE(qRound(oPlane.m_dDipAzimuth * 100.0), 11187);
    // Clockwise seen along the axis: about a vertical axis azimuths grow.
    GK_COMPARE_CLOSE(Rotation({90.0, 0.0}, 30.0).apply(LineOrientation{10.0, 350.0}).m_dAzimuth, 20.0, 1e-12);
    // Without an axis nothing moves.
    const Rotation oNone(g_oMissingLine, 40.0);
    GK_COMPARE_CLOSE(oNone.apply(LineOrientation{10.0, 350.0}).m_dAzimuth, 350.0, 1e-12);
}

void tst_Orientations::meanComesToTheCentre()
{
    overTheHemisphere([](double dAngle, double dAzimuth) {
        const Rotation oRotation = rotationToHorizontal({dAngle, dAzimuth});
        QVERIFY(oRotation.apply(PlaneOrientation{dAngle, dAzimuth}).m_dDip < 1e-6);
        const LineOrientation oLine{dAngle, dAzimuth};
        QVERIFY(rotationToVertical(oLine).apply(oLine).m_dPlunge > 90.0 - 1e-6);
    });
    QCOMPARE(rotationToHorizontal({30.0, 90.0}).axis().m_dAzimuth, 0.0);
    QCOMPARE(rotationToHorizontal({30.0, 20.0}).axis().m_dAzimuth, 290.0);
    QCOMPARE(rotationToHorizontal({30.0, 20.0}).angle(), 330.0);
}

void tst_Orientations::rotatedRecords()
{
    GK_REQUIRE_REFERENCE();
    const QString set = "apsg_B12";
    const auto columns = gkTest::referenceColumns("published_orient_a", "set", set);
    const QJsonObject expected = gkTest::referenceValues("published_orient_a")["sets"][set].toObject();
    for (const bool bPlanes : {true, false}) {
        const auto eType = bPlanes ? OrientationType::Planes : OrientationType::Lines;
        const QJsonArray rotations = expected[bPlanes ? "as_planes" : "as_lines"]["rotations"].toArray();
        for (const QJsonValue value : rotations) {
            const QJsonArray axis = value["axis_plunge_azimuth"].toArray();
            const QJsonArray records = value["records"].toArray();
            std::vector<double> vdAngles = columns["angle"];
            std::vector<double> vdAzimuths = columns["azimuth"];
            const Rotation oRotation({axis[0].toDouble(), axis[1].toDouble()}, value["angle"].toDouble());
            rotateOrientations(eType, oRotation, vdAngles, vdAzimuths, vdAngles, vdAzimuths); // in place
            QCOMPARE(std::size_t(records.size()), vdAngles.size());
            for (qsizetype i = 0; i < records.size(); ++i) {
                const gdfVertex oExpected =
                    orientationVector(eType, records[i][0].toDouble(), records[i][1].toDouble());
                const gdfVertex oActual = orientationVector(eType, vdAngles[size_t(i)], vdAzimuths[size_t(i)]);
                QVERIFY(angleBetweenAxes(oExpected, oActual) < 1e-6); // printed with six decimals
            }
        }
    }
}

void tst_Orientations::rotationLeavesMissingRecordsEmpty()
{
    const std::vector<double> vdAngles{30.0, std::nan(""), 20.0};
    const std::vector<double> vdAzimuths{99999.0, 10.0, 40.0};
    std::vector<double> vdDips(3, -1.0);
    std::vector<double> vdDipAzimuths(2, -1.0);
    rotateOrientations(OrientationType::Planes, Rotation({0, 0}, 10), vdAngles, vdAzimuths, vdDips, vdDipAzimuths);
    QVERIFY(std::isnan(vdDips[0]) && std::isnan(vdDips[1]) && std::isnan(vdDipAzimuths[1]));
    QCOMPARE(vdDips[2], -1.0); // no room for its azimuth
}

void tst_Orientations::apparentDips_data()
{
    QTest::addColumn<double>("dip");
    QTest::addColumn<double>("azimuth");
    QTest::addColumn<double>("direction");
    QTest::addColumn<double>("expected");
    QTest::newRow("down the dip") << 30.0 << 90.0 << 90.0 << 30.0;
    QTest::newRow("along strike") << 30.0 << 90.0 << 0.0 << 0.0;
    QTest::newRow("up the dip") << 30.0 << 90.0 << 270.0 << -30.0;
    QTest::newRow("over north") << 30.0 << 350.0 << 10.0
                                << degrees(std::atan(std::tan(radians(30.0)) * 0.9396926207859084));
    QTest::newRow("vertical, oblique") << 90.0 << 10.0 << 99.0 << 90.0;
    QTest::newRow("vertical, away") << 90.0 << 10.0 << 101.0 << -90.0;
    QTest::newRow("vertical, along strike") << 90.0 << 10.0 << 280.0 << 0.0;
    QTest::newRow("vertical, along strike but for rounding") << 90.0 << 10.0 << 280.00000000002 << 0.0;
}

void tst_Orientations::apparentDips()
{
    QFETCH(double, dip);
    QFETCH(double, azimuth);
    QFETCH(double, direction);
    QFETCH(double, expected);
    GK_COMPARE_CLOSE(apparentDip(dip, azimuth, direction), expected, 1e-12);
    QVERIFY(std::isnan(apparentDip(dip, 99999.0, direction)));
    QVERIFY(std::isnan(apparentDip(dip, azimuth, std::nan(""))));
}

void tst_Orientations::apparentDipsOfReference_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("key");
    QTest::newRow("fold") << "fold_well_a"
                          << "apparent_dip_by_direction";
    QTest::newRow("faults") << "angelier_faults"
                            << "apparent_dip";
}

void tst_Orientations::apparentDipsOfReference()
{
    GK_REQUIRE_REFERENCE();
    QFETCH(QString, file);
    QFETCH(QString, key);
    const auto columns = gkTest::referenceColumns(file);
    const QJsonObject expected = gkTest::referenceValues(file)[key].toObject();
    QVERIFY(!expected.isEmpty());
    std::vector<double> vdApparent(columns["dip"].size());
    for (auto it = expected.begin(); it != expected.end(); ++it) {
        gkBase::apparentDips(columns["dip"], columns["dip_azimuth"], it.key().toDouble(), vdApparent);
        const std::vector<double> vdExpected = gkTest::toDoubles(it.value().toArray());
        QCOMPARE(vdApparent.size(), vdExpected.size());
        for (std::size_t i = 0; i < vdExpected.size(); ++i) {
            QCOMPARE(std::isnan(vdApparent[i]), std::isnan(vdExpected[i]));
            QVERIFY(std::isnan(vdExpected[i]) || gkTest::isClose(vdApparent[i], vdExpected[i], 1e-9));
        }
    }
}

void tst_Orientations::strikeWords()
{
    const auto word = [](double dStrike) {
        return QString::fromUtf8(dipDirection(dStrike).data(), int(dipDirection(dStrike).size()));
    };
    QCOMPARE(rightHandStrike(0.0), 270.0);
    QCOMPARE(rightHandStrike(90.0), 0.0);
    QCOMPARE(rightHandStrike(99999.0), g_dMissingValue);
    QCOMPARE(word(270.0), "N");
    QCOMPARE(word(0.0), "E");
    QCOMPARE(word(90.0), "S");
    QCOMPARE(word(-67.5), "N"); // 22.5, the upper limit
    QCOMPARE(word(-67.4), "NE");
    QCOMPARE(word(247.5), "NW"); // 337.5
    QCOMPARE(word(247.6), "N");
    QVERIFY(dipDirection(std::nan("")).empty());
}

QTEST_APPLESS_MAIN(tst_Orientations)
#include "tst_orientations.moc"
