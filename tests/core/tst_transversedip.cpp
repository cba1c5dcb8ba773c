#include "Angles.h"
#include "ApparentDip.h"
#include "Curve.h"
#include "ReferenceData.h"
#include "TransverseDipEvents.h"
#include "TransverseDirection.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

constexpr double g_dEmpty = std::numeric_limits<double>::quiet_NaN();

/// A fold about the axis 10/220: towards 310 its planes dip −20 −30 −20 0 8 34 40 36.
const std::vector<double> g_vdDepths{1000, 1100, 1200, 1300, 1400, 1500, 1600, 1700};
const std::vector<double> g_vdDips{22.02, 31.12, 22.02, 10.00, 12.71, 34.88, 40.61, 36.78};
const std::vector<double> g_vdAzimuths{155.85, 146.98, 155.85, 220.00, 258.56, 295.35, 298.13, 296.36};

double rootMeanSquare(const std::vector<double>& vdDips, const std::vector<double>& vdAzimuths, double dDirection)
{
    double dSquares = 0.0;
    for (std::size_t i = 0; i < vdDips.size(); ++i) {
        dSquares += std::pow(apparentDip(vdDips[i], vdAzimuths[i], dDirection), 2);
    }
    return std::sqrt(dSquares / static_cast<double>(vdDips.size()));
}

/// Two hundred dips that change their sign at 1100 and 1600 and are steepest at 1350 and 1850, with normal noise.
struct NoisyWell
{
    std::vector<double> m_vdDepths;
    std::vector<double> m_vdDips;

    explicit NoisyWell(double dNoise, double dAmplitude = 30.0, double dRegional = 0.0)
    {
        std::mt19937_64 oRandom(11);
        std::normal_distribution<double> oNormal(0.0, dNoise);
        for (int i = 0; i < 200; ++i) {
            m_vdDepths.push_back(1000.0 + 5.0 * i);
            const double dPhase = 2.0 * g_dPi * (m_vdDepths.back() - 1100.0) / 1000.0;
            m_vdDips.push_back(dRegional + dAmplitude * std::sin(dPhase) + oNormal(oRandom));
        }
    }
    TransverseDipEvents events() const { return transverseDipEvents(m_vdDepths, m_vdDips); }
};

bool isNear(const std::vector<double>& vdActual, const std::vector<double>& vdExpected, double dTolerance)
{
    return std::equal(vdActual.begin(), vdActual.end(), vdExpected.begin(), vdExpected.end(),
                      [=](double a, double b) { return std::abs(a - b) <= dTolerance; });
}

} // namespace

class tst_TransverseDip : public QObject
{
    Q_OBJECT
private slots:
    void directionsOfFold();
    void rootMeanSquareIsLargest();
    void directionsOfOddPlanes();
    void masksAndGaps();
    void eventsOfFold();
    void eventsOfReferenceWell();
    void eventsInNoise();
    void nothingPlain_data();
    void nothingPlain();
    void outliersAreNoEvents();
    void flatStretchesHaveOneEvent();
};

void tst_TransverseDip::directionsOfFold()
{
    const TransverseDirections oLine = directionsByTangentLine(g_vdDips, g_vdAzimuths);
    QVERIFY(std::abs(oLine.m_dTransverse - 310.0) < 0.01);
    QVERIFY(std::abs(oLine.m_dLongitudinal - 220.0) < 0.01);
    // Squares of tangents would give 304.8.
    const TransverseDirections oSquares = directionsByRootMeanSquare(g_vdDips, g_vdAzimuths);
    QVERIFY(std::abs(oSquares.m_dTransverse - 307.18) < 0.01);
    QVERIFY(std::abs(oSquares.m_dLongitudinal - 217.18) < 0.01);
}

void tst_TransverseDip::rootMeanSquareIsLargest()
{
    std::mt19937_64 oRandom(3);
    std::uniform_real_distribution<double> oUniform(0.0, 1.0);
    for (int iRun = 0; iRun < 20; ++iRun) {
        std::vector<double> vdDips;
        std::vector<double> vdAzimuths;
        for (int i = 0; i < 3 + 20 * iRun; ++i) {
            vdDips.push_back(100.0 * std::pow(oUniform(oRandom), 2) - 3.0); // some of them overturned
            vdAzimuths.push_back(360.0 * oUniform(oRandom));
        }
        const double dFound = directionsByRootMeanSquare(vdDips, vdAzimuths).m_dTransverse;
        const double dLargest = rootMeanSquare(vdDips, vdAzimuths, dFound);
        for (double dDirection = 0.0; dDirection < 180.0; dDirection += 0.5) {
            QVERIFY(rootMeanSquare(vdDips, vdAzimuths, dDirection) <= dLargest * (1.0 + 1e-12));
        }
    }
}

void tst_TransverseDip::directionsOfOddPlanes()
{
    using Values = std::vector<double>;
    // Planes that dip alike: no line, but most dip down their dip. 0 dips along strike: L is the half below 180.
    const Values vdSame{30, 30, 30};
    QCOMPARE(directionsByTangentLine(vdSame, Values{200, 200, 200}).m_dTransverse, g_dMissingValue);
    const TransverseDirections oSame = directionsByRootMeanSquare(vdSame, Values{200, 200, 200});
    GK_COMPARE_CLOSE(oSame.m_dTransverse, 200.0, 1e-9);
    GK_COMPARE_CLOSE(oSame.m_dLongitudinal, 110.0, 1e-9);
    for (const Values& vdDips : {Values{}, Values{30}, Values{0, 0, 0}, Values{90, 90, 90}}) {
        const TransverseDirections oNone = directionsByRootMeanSquare(vdDips, Values{10, 100, 250});
        QCOMPARE(oNone.m_dTransverse, g_dMissingValue);
        QCOMPARE(oNone.m_dLongitudinal, g_dMissingValue);
        QCOMPARE(oNone.m_iCount, vdDips.size());
    }
    // More planes decide, not steeper ones; then the sum does.
    QCOMPARE(positiveSide(90.0, Values{10, 10, 80}, Values{90, 90, 270}), 90.0);
    QCOMPARE(positiveSide(90.0, Values{10, 80}, Values{90, 270}), 270.0);
    QCOMPARE(positiveSide(270.0, Values{10, 10}, Values{90, 270}), 90.0);
    QCOMPARE(positiveSide(-270.0, Values{}, Values{}), 90.0);
    QCOMPARE(positiveSide(g_dMissingValue, vdSame, vdSame), g_dMissingValue);
}

void tst_TransverseDip::masksAndGaps()
{
    std::vector<double> vdDips = g_vdDips;
    std::vector<double> vdAzimuths = g_vdAzimuths;
    std::vector<unsigned char> vbMask(vdDips.size(), 1);
    for (const double dDip : {60.0, 70.0, g_dEmpty}) {
        vdDips.push_back(dDip);
        vdAzimuths.push_back(10.0);
        vbMask.push_back(std::isnan(dDip) ? 1 : 0);
    }
    for (const auto& rule : {directionsByTangentLine, directionsByRootMeanSquare}) {
        const TransverseDirections oMasked = rule(vdDips, vdAzimuths, vbMask);
        const TransverseDirections oPlain = rule(g_vdDips, g_vdAzimuths, {});
        QCOMPARE(oMasked.m_dTransverse, oPlain.m_dTransverse);
        QCOMPARE(oMasked.m_dLongitudinal, oPlain.m_dLongitudinal);
        QCOMPARE(oMasked.m_iCount, std::size_t(8));
        QCOMPARE(oMasked.m_iMissing, std::size_t(1));
    }
}

void tst_TransverseDip::eventsOfFold()
{
    std::vector<double> vdDepths = g_vdDepths;
    std::vector<double> vdDips(8);
    apparentDips(g_vdDips, g_vdAzimuths, 310.0, vdDips);
    const auto check = [&] {
        const TransverseDipEvents oEvents = transverseDipEvents(vdDepths, vdDips);
        QVERIFY(isNear(oEvents.m_vdCrests, {1300}, 1e-9));
        QVERIFY(isNear(oEvents.m_vdInflections, {1100, 1600}, 0.0));
    };
    check();
    std::reverse(vdDepths.begin(), vdDepths.end());
    std::reverse(vdDips.begin(), vdDips.end());
    check();
    // A depth twice, with dips whose mean is the one of the fold, and gaps.
    vdDepths.insert(vdDepths.end(), {1600, 1600, 1150, g_dEmpty});
    vdDips.insert(vdDips.end(), {vdDips[1] + 9, vdDips[1] - 9, g_dEmpty, 80});
    check();
}

void tst_TransverseDip::eventsOfReferenceWell()
{
    GK_REQUIRE_REFERENCE();
    const auto columns = gkTest::referenceColumns("fold_well_a");
    std::vector<double> vdDips(columns["dip"].size());
    apparentDips(columns["dip"], columns["dip_azimuth"], 70.0, vdDips);
    const TransverseDipEvents oEvents = transverseDipEvents(columns["depth"], vdDips);
    QCOMPARE(oEvents.m_vdCrests.size(), std::size_t(1));
    // It lies between two records far apart.
    QVERIFY(std::abs(curveValue(columns["depth"], vdDips, oEvents.m_vdCrests[0])) < 1e-9);
    QVERIFY(oEvents.m_vdInflections.empty()); // from end to end it steepens
}

void tst_TransverseDip::eventsInNoise()
{
    for (const double dNoise : {0.0, 1.0, 4.0}) {
        const TransverseDipEvents oEvents = NoisyWell(dNoise).events();
        QVERIFY(std::abs(oEvents.m_dNoise - dNoise) <= 0.1 + 0.2 * dNoise);
        QVERIFY(isNear(oEvents.m_vdCrests, {1100, 1600}, 0.1 + 5.0 * dNoise));
        QVERIFY(isNear(oEvents.m_vdInflections, {1350, 1850}, 10.0 * dNoise));
    }
}

void tst_TransverseDip::nothingPlain_data()
{
    QTest::addColumn<std::vector<double>>("dips");
    QTest::newRow("empty") << std::vector<double>();
    QTest::newRow("one") << std::vector<double>{10};
    QTest::newRow("all missing") << std::vector<double>{g_dEmpty, 99999.0};
    QTest::newRow("constant") << std::vector<double>(200, 20.0);
    QTest::newRow("zero") << std::vector<double>(200, 0.0);
    QTest::newRow("noise about zero") << NoisyWell(5.0, 0.0).m_vdDips;
    QTest::newRow("noise about a monocline") << NoisyWell(5.0, 0.0, 30.0).m_vdDips;
    QTest::newRow("a fold weaker than the limit") << NoisyWell(0.0, 1.4).m_vdDips;
    std::vector<double> vdRising(200);
    for (std::size_t i = 0; i < vdRising.size(); ++i) {
        vdRising[i] = 5.0 + 0.2 * static_cast<double>(i);
    }
    QTest::newRow("the ends of the well") << vdRising;
}

void tst_TransverseDip::nothingPlain()
{
    QFETCH(std::vector<double>, dips);
    const TransverseDipEvents oEvents = transverseDipEvents(NoisyWell(0.0).m_vdDepths, dips);
    QVERIFY(oEvents.m_vdCrests.empty());
    QVERIFY(oEvents.m_vdInflections.empty());
}

void tst_TransverseDip::outliersAreNoEvents()
{
    NoisyWell well(1.0, 0.0, 15.0);
    for (const std::size_t i : {20, 70, 71, 120, 199}) {
        well.m_vdDips[i] = -70.0;
    }
    const TransverseDipEvents oEvents = well.events();
    QVERIFY(oEvents.m_vdCrests.empty() && oEvents.m_vdInflections.empty());
}

void tst_TransverseDip::flatStretchesHaveOneEvent()
{
    // A kink fold of straight limbs, its hinge a stretch of horizontal beds; then a terrace.
    std::vector<double> vdDepths;
    std::vector<double> vdDips;
    for (int i = 0; i <= 500; ++i) {
        vdDepths.push_back(i);
        vdDips.push_back(i < 50     ? -5
                         : i < 150  ? -30
                         : i <= 170 ? 0
                         : i <= 270 ? 30
                         : i <= 330 ? 10
                         : i <= 430 ? 25
                                    : 5);
    }
    const TransverseDipEvents oEvents = transverseDipEvents(vdDepths, vdDips);
    QVERIFY(isNear(oEvents.m_vdCrests, {160}, 0.5));
    QVERIFY(isNear(oEvents.m_vdInflections, {99.5, 220.5, 300.5, 380.5}, 0.5));
    // A hinge that wavers about 0: most of it dips as the limb above.
    const std::vector<double> vdWavering{20, -1, 1.2, 1.3, 1.2, -20};
    const TransverseDipEvents oHinge = transverseDipEvents(std::vector<double>{0, 10, 20, 30, 40, 50}, vdWavering);
    QVERIFY(isNear(oHinge.m_vdCrests, {40.0 + 12.0 / 21.2}, 1e-9));
}

QTEST_APPLESS_MAIN(tst_TransverseDip)
#include "tst_transversedip.moc"
