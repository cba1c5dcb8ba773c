#include "AxisScale.h"
#include "AxisTicks.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

using namespace gkBase;

namespace {

constexpr double g_dNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double g_dInfinity = std::numeric_limits<double>::infinity();

/// A label is as long as its text would be in a fixed font.
double fixedFont(const QString& sLabel)
{
    return 8.0 * double(sLabel.size());
}

double readBack(QString sLabel)
{
    return sLabel.remove(QChar(0x202F)).toDouble();
}

} // namespace

class tst_AxisTicks : public QObject
{
    Q_OBJECT
private slots:
    void ticks_obeyTheirLaws_data();
    void ticks_obeyTheirLaws();
    void ranges_withoutTicks_data();
    void ranges_withoutTicks();
    void niceRange_widensToMultiples_data();
    void niceRange_widensToMultiples();
    void labels_data();
    void labels();
    void minorTicks_divideTheStep_data();
    void minorTicks_divideTheStep();
    void labelPlaces_stayInsideAndApart_data();
    void labelPlaces_stayInsideAndApart();
    void bounds_thatMissARoundValueByARoundingErrorCarryATick();
    void scale_data();
    void scale();
};

void tst_AxisTicks::ticks_obeyTheirLaws_data()
{
    QTest::addColumn<double>("dMin");
    QTest::addColumn<double>("dMax");
    QTest::addColumn<int>("iLength");

    QTest::newRow("unit") << 0.0 << 1.0 << 400;
    QTest::newRow("across zero") << -0.37 << 0.52 << 400;
    QTest::newRow("azimuth") << 0.0 << 360.0 << 700;
    QTest::newRow("short axis") << 0.0 << 100.0 << 30;
    QTest::newRow("magnified chart") << 1234.5 << 1240.25 << 20000;
    QTest::newRow("longest chart") << -1.0 << 1.0 << 1000000;
    QTest::newRow("map co-ordinates") << 6543210.0 << 6543290.0 << 500;
    QTest::newRow("tiny") << 1.0e-12 << 3.0e-12 << 500;
    QTest::newRow("nearly denormal") << 0.0 << 1.0e-270 << 500;
    QTest::newRow("huge") << -1.0e300 << 1.0e300 << 500;
    QTest::newRow("few digits left") << 1.0e9 << 1.0e9 + 0.1 << 500;
    QTest::newRow("missing mark as bound") << 0.0 << 99999.0 << 500;
}

void tst_AxisTicks::ticks_obeyTheirLaws()
{
    QFETCH(double, dMin);
    QFETCH(double, dMax);
    QFETCH(int, iLength);
    const AxisScale oScale(dMin, dMax, iLength, Qt::Horizontal);
    const AxisTicks oTicks = fittedAxisTicks(oScale, fixedFont, 10.0, 20.0);

    const double dStep = oTicks.m_oStep.value();
    QVERIFY(QList<int>({1, 2, 5}).contains(oTicks.m_oStep.m_iMantissa));
    QCOMPARE(oTicks.m_lLabels.size(), oTicks.m_vMajor.size());
    QVERIFY(oTicks.m_vMajor.size() <= g_iMaxMajorTicks + 1);
    QVERIFY(oTicks.m_vMinor.size() <= 6 * g_iMaxMajorTicks);
    if (iLength >= 400)
        QVERIFY2(oTicks.m_vMajor.size() >= 2, "a long axis shows a scale");

    const double dSlack = 1e-6 * dStep;
    for (qsizetype i = 0; i < oTicks.m_vMajor.size(); ++i) {
        const double dTick = oTicks.m_vMajor[i];
        QVERIFY(dTick >= dMin - dSlack && dTick <= dMax + dSlack);
        QVERIFY2(std::abs(readBack(oTicks.m_lLabels[i]) - dTick) < 1e-3 * dStep, "the label says what the tick is");
        if (i > 0) {
            QVERIFY(std::abs(dTick - oTicks.m_vMajor[i - 1] - dStep) < 1e-3 * dStep);
            QVERIFY(oTicks.m_lLabels[i] != oTicks.m_lLabels[i - 1]);
            const double dApart = oScale.toPixel(dTick) - oScale.toPixel(oTicks.m_vMajor[i - 1]);
            QVERIFY(dApart >= 0.999 * (fixedFont(oTicks.m_lLabels[i]) + 10.0));
        }
    }
    if (!oTicks.m_vMajor.isEmpty()) {
        QVERIFY2(oTicks.m_vMajor.first() - dStep < dMin + dSlack, "no tick is left out at the start");
        QVERIFY2(oTicks.m_vMajor.last() + dStep > dMax - dSlack, "no tick is left out at the end");
    }
}

void tst_AxisTicks::ranges_withoutTicks_data()
{
    QTest::addColumn<double>("dMin");
    QTest::addColumn<double>("dMax");
    QTest::addColumn<int>("nTicks");

    QTest::newRow("no width") << 7.5 << 7.5 << 1;
    QTest::newRow("zero") << 0.0 << 0.0 << 1;
    QTest::newRow("one rounding error wide") << 1.0 << std::nextafter(1.0, 2.0) << 1;
    QTest::newRow("denormal") << 0.0 << 5.0e-320 << 1;
    QTest::newRow("NaN") << g_dNaN << 1.0 << 0;
    QTest::newRow("both NaN") << g_dNaN << g_dNaN << 0;
    QTest::newRow("infinite") << 0.0 << g_dInfinity << 0;
    QTest::newRow("width overflows") << -1.5e308 << 1.5e308 << 1;
}

void tst_AxisTicks::ranges_withoutTicks()
{
    QFETCH(double, dMin);
    QFETCH(double, dMax);
    QFETCH(int, nTicks);
    QVERIFY(!niceStep(dMin, dMax, 10).isValid());

    const AxisScale oScale(dMin, dMax, 500, Qt::Vertical);
    const AxisTicks oTicks = fittedAxisTicks(oScale, fixedFont, 10.0, 20.0);
    QCOMPARE(oTicks.m_vMajor.size(), nTicks);
    QCOMPARE(oTicks.m_lLabels.size(), nTicks);
    QVERIFY(placeLabels(oScale, oTicks, fixedFont, 0, 500).size() <= 1);

    double dNiceMin = dMin;
    double dNiceMax = dMax;
    niceRange(dNiceMin, dNiceMax);
    QVERIFY(std::memcmp(&dNiceMin, &dMin, sizeof dMin) == 0 && std::memcmp(&dNiceMax, &dMax, sizeof dMax) == 0);
}

void tst_AxisTicks::niceRange_widensToMultiples_data()
{
    QTest::addColumn<double>("dMin");
    QTest::addColumn<double>("dMax");
    QTest::addColumn<double>("dNiceMin");
    QTest::addColumn<double>("dNiceMax");

    QTest::newRow("nice already") << 0.0 << 100.0 << 0.0 << 100.0;
    QTest::newRow("both ends") << 3.2 << 96.1 << 0.0 << 100.0;
    QTest::newRow("negative") << -0.83 << -0.12 << -0.9 << -0.1;
    QTest::newRow("step of two") << 101.0 << 119.0 << 100.0 << 120.0;
    QTest::newRow("step of five") << 1.0 << 44.0 << 0.0 << 45.0;
    QTest::newRow("wrong order") << 96.1 << 3.2 << 0.0 << 100.0;
    QTest::newRow("small") << 0.00012 << 0.00088 << 0.0001 << 0.0009;
}

void tst_AxisTicks::niceRange_widensToMultiples()
{
    QFETCH(double, dMin);
    QFETCH(double, dMax);
    QFETCH(double, dNiceMin);
    QFETCH(double, dNiceMax);
    niceRange(dMin, dMax);
    QCOMPARE(dMin, dNiceMin);
    QCOMPARE(dMax, dNiceMax);
    niceRange(dMin, dMax);
    QCOMPARE(dMin, dNiceMin);
    QCOMPARE(dMax, dNiceMax);
}

void tst_AxisTicks::labels_data()
{
    QTest::addColumn<double>("dMin");
    QTest::addColumn<double>("dMax");
    QTest::addColumn<QString>("sLabels");

    QTest::newRow("no binary rests") << 0.0 << 0.5 << "0.0 0.1 0.2 0.3 0.4 0.5";
    QTest::newRow("no negative zero") << -0.2 << 0.2 << "-0.2 -0.1 0.0 0.1 0.2";
    QTest::newRow("whole") << 0.0 << 40.0 << "0 10 20 30 40";
    QTest::newRow("not grouped") << 40000.0 << 80000.0 << "40000 50000 60000 70000 80000";
    QTest::newRow("grouped") << 0.0 << 1.0e6 << "0 200_000 400_000 600_000 800_000 1_000_000";
    QTest::newRow("grouped negative") << -2.0e5 << 0.0 << "-200_000 -150_000 -100_000 -50_000 0";
    QTest::newRow("large") << 0.0 << 4.0e8 << "0 1e8 2e8 3e8 4e8";
    QTest::newRow("large and close") << 1.2e7 << 1.2e7 + 4 << "12_000_000 12_000_001 12_000_002 12_000_003 12_000_004";
    QTest::newRow("small") << 0.0 << 4.0e-7 << "0 1e-7 2e-7 3e-7 4e-7";
    QTest::newRow("small fractions") << 1.0e-6 << 1.4e-6 << "1.0e-6 1.1e-6 1.2e-6 1.3e-6 1.4e-6";
}

void tst_AxisTicks::labels()
{
    QFETCH(double, dMin);
    QFETCH(double, dMax);
    QFETCH(QString, sLabels);
    const AxisTicks oTicks = axisTicks(dMin, dMax, niceStep(dMin, dMax, 5));
    QCOMPARE(oTicks.m_lLabels.join(QLatin1Char(' ')).replace(QChar(0x202F), QLatin1Char('_')), sLabels);
}

void tst_AxisTicks::minorTicks_divideTheStep_data()
{
    QTest::addColumn<int>("iMantissa");
    QTest::addColumn<int>("nParts");
    QTest::newRow("1 in fifths") << 1 << 5;
    QTest::newRow("2 in quarters") << 2 << 4;
    QTest::newRow("5 in fifths") << 5 << 5;
}

void tst_AxisTicks::minorTicks_divideTheStep()
{
    QFETCH(int, iMantissa);
    QFETCH(int, nParts);
    const NiceStep oStep{iMantissa, -1};
    const double dStep = oStep.value();
    // The range starts and ends half a step beside the major ticks.
    const AxisTicks oTicks = axisTicks(-2.5 * dStep, 2.5 * dStep, oStep);
    QCOMPARE(oTicks.m_vMajor.size(), 5);
    QList<double> vAll = oTicks.m_vMajor + oTicks.m_vMinor;
    std::sort(vAll.begin(), vAll.end());
    for (qsizetype i = 1; i < vAll.size(); ++i)
        QVERIFY(std::abs(vAll[i] - vAll[i - 1] - dStep / nParts) < 1e-9 * dStep);
    QVERIFY(vAll.first() < -2.5 * dStep + dStep / nParts);
    QVERIFY(vAll.last() > 2.5 * dStep - dStep / nParts);
}

void tst_AxisTicks::labelPlaces_stayInsideAndApart_data()
{
    QTest::addColumn<int>("iChartLength");
    QTest::addColumn<int>("iOffset");
    QTest::addColumn<int>("iLength");
    QTest::addColumn<bool>("bVertical");
    for (const bool bVertical : {false, true}) {
        const auto add = [bVertical](const char* pcName, int iChartLength, int iOffset, int iLength) {
            QTest::addRow("%s, %s", pcName, bVertical ? "vertical" : "horizontal")
                << iChartLength << iOffset << iLength << bVertical;
        };
        add("whole chart", 400, 0, 400);
        add("start of a magnified chart", 4000, 0, 400);
        add("middle", 4000, 1833, 400);
        add("end", 4000, 3600, 400);
        add("hardly room for a label", 30, 0, 30);
        add("beyond the end", 400, 900, 400);
        add("no room at all", 400, 10, 0);
    }
}

void tst_AxisTicks::labelPlaces_stayInsideAndApart()
{
    QFETCH(int, iChartLength);
    QFETCH(int, iOffset);
    QFETCH(int, iLength);
    QFETCH(bool, bVertical);
    const AxisScale oScale(0.0, 500.0, iChartLength, bVertical ? Qt::Vertical : Qt::Horizontal);
    const AxisTicks oTicks = fittedAxisTicks(oScale, fixedFont, 6.0, 20.0);
    const QList<AxisLabelPlace> vPlaces = placeLabels(oScale, oTicks, fixedFont, iOffset, iLength);

    double dEnd = 0.0;
    for (const AxisLabelPlace& oPlace : vPlaces) {
        QVERIFY(oPlace.m_dStart >= dEnd);
        dEnd = oPlace.m_dStart + oPlace.m_dLength;
        QVERIFY(dEnd <= iLength);
        const double dTick = oScale.toPixel(oTicks.m_vMajor[oPlace.m_iTick]) - iOffset;
        QVERIFY2(dTick >= oPlace.m_dStart - 1 && dTick <= dEnd + 1, "the tick stands at its label");
    }
    if (iOffset + iLength <= iChartLength && iLength >= 400)
        QVERIFY(vPlaces.size() >= 4);
}

void tst_AxisTicks::bounds_thatMissARoundValueByARoundingErrorCarryATick()
{
    const double dFoot = 0.3048;
    const AxisTicks oTicks = axisTicks(3280.0 * dFoot / dFoot, std::nextafter(3290.0, 0.0), {2, 0});
    QCOMPARE(oTicks.m_vMajor.first(), 3280.0);
    QCOMPARE(oTicks.m_vMajor.last(), 3290.0);
}

void tst_AxisTicks::scale_data()
{
    QTest::addColumn<bool>("bVertical");
    QTest::addColumn<bool>("bInverted");
    QTest::addColumn<int>("iPixelOfMin");
    QTest::newRow("horizontal") << false << false << 0;
    QTest::newRow("horizontal inverted") << false << true << 299;
    QTest::newRow("vertical") << true << false << 299;
    QTest::newRow("depth") << true << true << 0;
}

void tst_AxisTicks::scale()
{
    QFETCH(bool, bVertical);
    QFETCH(bool, bInverted);
    QFETCH(int, iPixelOfMin);
    const AxisScale oScale(-3.0, 0.1, 300, bVertical ? Qt::Vertical : Qt::Horizontal, bInverted);
    QCOMPARE(oScale.toPixel(-3.0), double(iPixelOfMin));
    QCOMPARE(oScale.toPixel(0.1), 299.0 - iPixelOfMin);
    QCOMPARE(oScale.toPixelIndex(-3.0), iPixelOfMin);
    for (int iPixel = 0; iPixel < 300; ++iPixel)
        QCOMPARE(oScale.toPixelIndex(oScale.toData(iPixel)), iPixel);
    // Values beyond the ends stay on the picture.
    QVERIFY(oScale.toPixelIndex(1e300) == 0 || oScale.toPixelIndex(1e300) == 299);
}

QTEST_APPLESS_MAIN(tst_AxisTicks)
#include "tst_axisticks.moc"
