#include <gkBase/MissingValue.h>
#include <gkBase/ScatTrackLimits.h>

#include <QTest>

#include <cmath>

using namespace gkBase;

class tst_ScatTrackLimits : public QObject
{
    Q_OBJECT

private slots:
    void apparentDipsHaveRoom()
    {
        for (double dSteepest = 0.0; dSteepest <= 90.0; dSteepest += 0.5) {
            const ScatTrackLimits limits = apparentDipLimits(dSteepest);
            QCOMPARE(limits.m_dMinimum, -limits.m_dMaximum);
            QVERIFY(limits.m_dMaximum <= g_dSteepestApparentDip);
            QVERIFY(limits.m_dMaximum > dSteepest || limits.m_dMaximum == g_dSteepestApparentDip);
        }
        QCOMPARE(apparentDipLimits(40.0).m_dMaximum, 60.0); // at 40 the frame would cut its symbol
        QCOMPARE(apparentDipLimits(38.0).m_dMaximum, 40.0);
        QCOMPARE(apparentDipLimits(0.0).m_dMaximum, 10.0);
    }

    void chosenEnds_data()
    {
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<bool>("apparent");
        QTest::addColumn<double>("from");
        QTest::addColumn<double>("to");
        constexpr double dNone = g_dMissingValue;
        QTest::newRow("none") << dNone << dNone << true << -30.0 << 30.0;
        QTest::newRow("one end") << dNone << 60.0 << true << -30.0 << 60.0;
        QTest::newRow("steep") << -90.0 << 90.0 << true << -80.0 << 80.0;
        QTest::newRow("steep, but a true dip") << 0.0 << 90.0 << false << 0.0 << 90.0;
        QTest::newRow("made for azimuths") << 100.0 << 270.0 << true << -30.0 << 30.0;
        QTest::newRow("equal") << 5.0 << 5.0 << false << -30.0 << 30.0;
        QTest::newRow("beyond the other end") << 40.0 << dNone << true << -30.0 << 30.0;
        QTest::newRow("no number") << std::nan("") << 20.0 << true << -30.0 << 20.0;
    }

    void chosenEnds()
    {
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        QFETCH(bool, apparent);
        QFETCH(double, from);
        QFETCH(double, to);
        const ScatTrackLimits limits = chosenTrackLimits({-30.0, 30.0}, minimum, maximum, apparent);
        QCOMPARE(limits.m_dMinimum, from);
        QCOMPARE(limits.m_dMaximum, to);
    }
};

QTEST_APPLESS_MAIN(tst_ScatTrackLimits)
#include "tst_scattracklimits.moc"
