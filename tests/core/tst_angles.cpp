#include "Angles.h"
#include "CircularStatistics.h"
#include "LineInPlane.h"
#include "ReferenceData.h"
#include "gdfVertex.h"

#include <QTest>

using namespace gkBase;

class tst_Angles : public QObject
{
    Q_OBJECT
private slots:
    void wrapsIntoHalfOpenCircle();
    void differences();
    void circularMean_data();
    void circularMean();
    void axialMean();
    void meansMatchReference();
    void meanIgnoresMissingAndForeignRecords();
    void lineInPlane_data();
    void lineInPlane();
    void lineLiesInThePlane();
    void compassAzimuth();
    void crossProductFollowsTheRightHand();
};

void tst_Angles::wrapsIntoHalfOpenCircle()
{
    QCOMPARE(wrapAzimuth(360.0), 0.0);
    QCOMPARE(wrapAzimuth(-90.0), 270.0);
    QCOMPARE(wrapAzimuth(725.0), 5.0);
    QCOMPARE(wrapAzimuth(-1e-20), 0.0); // −1e-20 + 360 rounds to 360
    QVERIFY(!std::signbit(wrapAzimuth(-360.0)));
    QVERIFY(std::isnan(wrapAzimuth(g_dMissingValue)));
    QVERIFY(std::isnan(wrapAzimuth(std::numeric_limits<double>::infinity())));
    QCOMPARE(acosDegrees(1.0 + 1e-15), 0.0);
    QCOMPARE(asinDegrees(-1.0 - 1e-15), -90.0);
}

void tst_Angles::differences()
{
    QCOMPARE(angularDifference(350.0, 10.0), 20.0);
    QCOMPARE(angularDifference(10.0, 190.0), 180.0);
    QCOMPARE(axialDifference(10.0, 190.0), 0.0);
    QCOMPARE(axialDifference(0.0, 270.0), 90.0);
    QCOMPARE(angularDifference(-720.0, 3720.0), 120.0);
    QCOMPARE(axialDifference(3720.0, -720.0), 60.0);
}

void tst_Angles::circularMean_data()
{
    QTest::addColumn<QList<double>>("angles");
    QTest::addColumn<double>("direction");
    QTest::addColumn<double>("length");
    QTest::newRow("none") << QList<double>{} << g_dMissingValue << 0.0;
    QTest::newRow("one") << QList<double>{123.0} << 123.0 << 1.0;
    QTest::newRow("across north") << QList<double>{350.0, 10.0} << 0.0 << std::cos(radians(10.0));
    QTest::newRow("right angle") << QList<double>{0.0, 90.0} << 45.0 << std::sqrt(0.5);
    QTest::newRow("opposite directions cancel") << QList<double>{30.0, 210.0} << g_dMissingValue << 0.0;
    QTest::newRow("three around the circle cancel") << QList<double>{10.0, 130.0, 250.0} << g_dMissingValue << 0.0;
}

void tst_Angles::circularMean()
{
    QFETCH(QList<double>, angles);
    QFETCH(double, direction);
    QFETCH(double, length);
    const CircularMean oMean = gkBase::circularMean(RecordValues({angles.data(), std::size_t(angles.size())}));
    QCOMPARE(oMean.m_iCount, std::size_t(angles.size()));
    QVERIFY(isMissing(direction) == isMissing(oMean.m_dDirection));
    QVERIFY(isMissing(direction) || angularDifference(oMean.m_dDirection, direction) < 1e-12);
    GK_COMPARE_CLOSE(oMean.m_dResultantLength, length, 1e-14);
}

void tst_Angles::axialMean()
{
    const CircularMean oMean = gkBase::axialMean(std::vector<double>{170.0, 190.0, 10.0, 350.0});
    QVERIFY(oMean.m_dDirection < 180.0 && axialDifference(oMean.m_dDirection, 0.0) < 1e-12);
    GK_COMPARE_CLOSE(gkBase::axialMean(std::vector<double>{30.0, 210.0}).m_dDirection, 30.0, 1e-14);
    QCOMPARE(gkBase::axialMean(std::vector<double>{45.0, 135.0}).m_dDirection, g_dMissingValue);
}

void tst_Angles::meansMatchReference()
{
    GK_REQUIRE_REFERENCE();
    const QJsonObject sets = gkTest::referenceValues("rose_a")["sets"].toObject();
    QCOMPARE(sets.size(), 5);
    for (const QString& sSet : sets.keys()) {
        const QJsonObject expected = sets[sSet].toObject();
        const std::vector<double> vdAzimuths = gkTest::referenceColumns("rose_a", "set", sSet)["azimuth"];
        const CircularMean oMean = gkBase::circularMean(vdAzimuths);
        const CircularMean oAxial = gkBase::axialMean(vdAzimuths);
        QCOMPARE(int(oMean.m_iCount), expected["n"].toInt());
        GK_COMPARE_CLOSE(oMean.m_dDirection, expected["mean_direction"].toDouble(), 1e-9);
        GK_COMPARE_CLOSE(oMean.m_dResultantLength, expected["normalized_length"].toDouble(), 1e-9);
        GK_COMPARE_CLOSE(oAxial.m_dDirection, expected["axial_mean_doubled_angles"].toDouble(), 1e-9);
        GK_COMPARE_CLOSE(oAxial.m_dResultantLength, expected["axial_length_doubled_angles"].toDouble(), 1e-9);
    }
}

void tst_Angles::meanIgnoresMissingAndForeignRecords()
{
    const std::vector<double> vdAngles{g_dEmptyCell, 80.0, g_dMissingValue, 100.0, 200.0};
    const std::vector<int> viRecords{-1, 0, 1, 2, 3, 5, std::numeric_limits<int>::max()};
    const CircularMean oMean = gkBase::circularMean({vdAngles, viRecords});
    QCOMPARE(oMean.m_iCount, std::size_t(2));
    QCOMPARE(oMean.m_dDirection, 90.0);
}

void tst_Angles::lineInPlane_data()
{
    QTest::addColumn<double>("dip");
    QTest::addColumn<double>("dipAzimuth");
    QTest::addColumn<double>("pitch");
    QTest::addColumn<double>("plunge");
    QTest::addColumn<double>("azimuth");
    QTest::newRow("strike") << 40.0 << 135.0 << 0.0 << 0.0 << 45.0;
    QTest::newRow("other end of the strike") << 40.0 << 135.0 << 180.0 << 0.0 << 225.0;
    QTest::newRow("dip line") << 40.0 << 135.0 << 90.0 << 40.0 << 135.0;
    QTest::newRow("vertical plane") << 90.0 << 90.0 << 30.0 << 30.0 << 0.0;
    QTest::newRow("vertical line") << 90.0 << 75.0 << 90.0 << 90.0 << 75.0;
    QTest::newRow("level plane") << 0.0 << 90.0 << 30.0 << 0.0 << 30.0;
    // asin(sin 45 · sin 30) and atan(tan 45 · cos 30), worked out by hand
    QTest::newRow("oblique") << 30.0 << 90.0 << 45.0 << 20.704811054635432 << 40.893394649130904;
    QTest::newRow("pitch beyond 180 names the lower end")
        << 30.0 << 90.0 << 225.0 << 20.704811054635432 << 40.893394649130904;
    QTest::newRow("missing dip") << g_dMissingValue << 90.0 << 45.0 << g_dMissingValue << g_dMissingValue;
}

void tst_Angles::lineInPlane()
{
    QFETCH(double, dip);
    QFETCH(double, dipAzimuth);
    QFETCH(double, pitch);
    QFETCH(double, plunge);
    QFETCH(double, azimuth);
    const LineOrientation oLine = gkBase::lineInPlane(dip, dipAzimuth, pitch);
    GK_COMPARE_CLOSE(oLine.m_dPlunge, plunge, 1e-12);
    GK_COMPARE_CLOSE(oLine.m_dAzimuth, azimuth, 1e-12);
}

void tst_Angles::lineLiesInThePlane()
{
    for (double dDip = 5.0; dDip < 90.0; dDip += 17.0) {
        for (double dPitch = 1.0; dPitch < 180.0; dPitch += 13.0) {
            const LineOrientation oLine = gkBase::lineInPlane(dDip, 312.0, dPitch);
            // A line of the plane is an apparent dip: tan plunge = tan dip · cos(azimuth − dip azimuth).
            const double dApparent =
                degrees(std::atan(std::tan(radians(dDip)) * std::cos(radians(oLine.m_dAzimuth - 312.0))));
            GK_COMPARE_CLOSE(oLine.m_dPlunge, dApparent, 1e-11);
            // Its angle with the strike is the pitch.
            const double dCosine = std::cos(radians(oLine.m_dPlunge)) * std::cos(radians(oLine.m_dAzimuth - 222.0));
            GK_COMPARE_CLOSE(acosDegrees(dCosine), dPitch, 1e-11);
        }
    }
}

void tst_Angles::compassAzimuth()
{
    QCOMPARE(gkBase::compassAzimuth("N").value_or(-1.0), 0.0);
    QCOMPARE(gkBase::compassAzimuth(" sw ").value_or(-1.0), 225.0);
    QCOMPARE(gkBase::compassAzimuth("Wnw").value_or(-1.0), 292.5);
    for (const char* pcText : {"", "X", "NS", "NNNE", "45"}) {
        QVERIFY2(!gkBase::compassAzimuth(pcText).has_value(), pcText);
    }
}

void tst_Angles::crossProductFollowsTheRightHand()
{
    QVERIFY((gdfVertex(1, 0, 0) ^ gdfVertex(0, 1, 0)) == gdfVertex(0, 0, 1));
    gdfVertex tiny(3e-320, 4e-320, 0.0);
    QVERIFY(tiny.normalize());
    GK_COMPARE_CLOSE(tiny.length(), 1.0, 1e-3); // few digits are left in such numbers, but the direction is there
    gdfVertex null;
    QVERIFY(!null.normalize());
}

QTEST_APPLESS_MAIN(tst_Angles)
#include "tst_angles.moc"
