#include "MissingValue.h"
#include "NormalProbability.h"
#include "ReferenceData.h"
#include "Regression.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using namespace gkBase;

using Doubles = std::vector<double>;

class tst_Regression : public QObject
{
    Q_OBJECT
private slots:
    void referenceSets_data();
    void referenceSets();
    void chartRule_data();
    void chartRule();
    void leavesOutMissingAndMasked();
    void leastSquaresFarFromTheOrigin();
    void quantileInvertsTheDistribution();
    void normalFit();
};

void tst_Regression::referenceSets_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("rock") << "rock";
    QTest::newRow("clusters with missing values") << "clusters_a";
    QTest::newRow("well") << "fold_well_a";
}

void tst_Regression::referenceSets()
{
    GK_REQUIRE_REFERENCE();
    QFETCH(QString, file);
    const auto columns = gkTest::referenceColumns(file);
    const QJsonObject expected = gkTest::referenceValues(file)["regression"].toObject();
    QVERIFY(!expected.isEmpty());
    for (const QString& sPair : expected.keys()) {
        const QStringList lNames = sPair.split("_on_");
        const Doubles vdX = columns[lNames[1]];
        const Doubles vdY = columns[lNames[0]];
        const auto compare = [&](const RegressionLine& oLine, const char* pRule) {
            const QJsonObject rule = expected[sPair].toObject()[pRule].toObject();
            QCOMPARE(int(oLine.m_iPoints), expected[sPair].toObject()["n"].toInt());
            GK_COMPARE_CLOSE(oLine.m_dSlope, rule["slope"].toDouble(), 1e-9);
            GK_COMPARE_CLOSE(oLine.m_dIntercept, rule["intercept"].toDouble(), 1e-9);
            GK_COMPARE_CLOSE(oLine.m_dCorrelation, rule["correlation"].toDouble(), 1e-9);
            QVERIFY(oLine.m_bIsFunction);
        };
        compare(chartRegression(vdX, vdY), "sums_over_n_plus_1");
        compare(leastSquares(vdX, vdY), "ordinary_least_squares");
    }
}

void tst_Regression::chartRule_data()
{
    QTest::addColumn<Doubles>("x");
    QTest::addColumn<Doubles>("y");
    QTest::addColumn<Doubles>("line"); // slope, intercept, correlation
    QTest::addColumn<bool>("function");
    const double dHuge = std::numeric_limits<double>::max();
    QTest::newRow("none") << Doubles{} << Doubles{} << Doubles{0, 0, 0} << true;
    QTest::newRow("three points") << Doubles{1, 2, 3} << Doubles{1, 2, 9} << Doubles{0, 0, 0} << true;
    QTest::newRow("y = 2x + 1") << Doubles{0, 1, 2, 3} << Doubles{1, 3, 5, 7} << Doubles{2.044776, 0.746269, 0.996687}
                                << true;
    // About means of 1.2 and 4, which are not those of the points, the line leans.
    QTest::newRow("constant y") << Doubles{0, 1, 2, 3} << Doubles{5, 5, 5, 5}
                                << Doubles{1.2 / 5.36, 4.0 - 1.2 * 1.2 / 5.36, 0} << true;
    QTest::newRow("vertical") << Doubles{7, 7 + 4e-7, 7, 7 - 4e-7} << Doubles{1, 2, 3, 4}
                              << Doubles{g_dMissingValue, 0, 0} << false;
    // About means of 0 the spread of x is below 5e-6 although the x differ.
    QTest::newRow("hardly any spread") << Doubles{-1e-6, 0, 0, 1e-6} << Doubles{1, 2, 3, 4} << Doubles{0, 2, 0} << true;
    QTest::newRow("nearly flat through 0")
        << Doubles{-1, 1, -1, 1} << Doubles{-1e-6, 1e-6, -1e-6, 1e-6} << Doubles{0, 0, 1} << true;
    QTest::newRow("overflow") << Doubles{-dHuge, dHuge, 1, 2} << Doubles{dHuge, dHuge, dHuge, -dHuge}
                              << Doubles{0, 0, 0} << true;
}

void tst_Regression::chartRule()
{
    QFETCH(Doubles, x);
    QFETCH(Doubles, y);
    QFETCH(Doubles, line);
    const RegressionLine oLine = chartRegression(x, y);
    GK_COMPARE_CLOSE(oLine.m_dSlope, line[0], 5e-7);
    GK_COMPARE_CLOSE(oLine.m_dIntercept, line[1], 5e-7);
    GK_COMPARE_CLOSE(oLine.m_dCorrelation, line[2], 5e-7);
    QTEST(oLine.m_bIsFunction, "function");
    QCOMPARE(oLine.m_iPoints, x.size());
}

void tst_Regression::leavesOutMissingAndMasked()
{
    // The first record, which a mask leaves out, must not decide whether all x are equal.
    const Doubles vdX{9, 0, g_dMissingValue, 1, 2, g_dEmptyCell, 3, 50};
    const Doubles vdY{9, 1, 4, 3, 5, 2, 7, g_dMissingValue};
    const std::vector<unsigned char> vbMask{0, 1, 1, 1, 1, 1, 1, 1};
    const RegressionLine oLine = chartRegression(vdX, vdY, vbMask);
    const RegressionLine oExpected = chartRegression(Doubles{0, 1, 2, 3}, Doubles{1, 3, 5, 7});
    QCOMPARE(oLine.m_iPoints, size_t(4));
    QCOMPARE(oLine.m_dSlope, oExpected.m_dSlope);
    const Doubles vdVertical(8, 3.0);
    QVERIFY(!chartRegression(vdVertical, vdVertical).m_bIsFunction);
    QVERIFY(!leastSquares(vdVertical, vdX).m_bIsFunction);
    QVERIFY(leastSquares(vdX, vdVertical, vbMask).m_bIsFunction);
    QCOMPARE(leastSquares(vdX, vdY, std::vector<unsigned char>(8, 0)).m_iPoints, size_t(0));
}

void tst_Regression::leastSquaresFarFromTheOrigin()
{
    Doubles vdX;
    Doubles vdY;
    for (int i = 0; i < 1000; ++i) {
        vdX.push_back(5e9 + i * 0.25);
        vdY.push_back(-3e9 - i * 0.125);
    }
    const RegressionLine oLine = leastSquares(vdX, vdY);
    GK_COMPARE_CLOSE(oLine.m_dSlope, -0.5, 1e-12);
    GK_COMPARE_CLOSE(oLine.m_dCorrelation, -1.0, 1e-12);
}

void tst_Regression::quantileInvertsTheDistribution()
{
    // Digits from the tables that go with the algorithm's statement.
    GK_COMPARE_CLOSE(normalQuantile(0.25), -0.6744897501960817, 1e-15);
    GK_COMPARE_CLOSE(normalQuantile(0.001), -3.090232306167814, 1e-15);
    GK_COMPARE_CLOSE(normalQuantile(1e-20), -9.262340089798408, 1e-15);
    for (double dZ = -37.0; dZ <= 7.0; dZ += 0.03125) {
        const double dShare = normalProbability(dZ);
        // The share knows z to within its rounding over the density.
        const double dKnown = 4e-16 * dShare * std::sqrt(2.0 * 3.14159265358979) * std::exp(0.5 * dZ * dZ);
        QVERIFY2(std::abs(normalQuantile(dShare) - dZ) <= 4e-15 * std::max(1.0, std::abs(dZ)) + dKnown,
                 qPrintable(QString::number(dZ)));
    }
    QVERIFY(std::isinf(normalQuantile(0.0)) && std::isinf(normalQuantile(1.0)));
    QVERIFY(std::isnan(normalQuantile(-0.1)) && std::isnan(normalQuantile(g_dEmptyCell)));
}

void tst_Regression::normalFit()
{
    Doubles vdValues;
    for (size_t i = 0; i < 500; ++i) {
        vdValues.push_back(40.0 + 6.0 * normalQuantile(plottingPosition(i, 500)));
    }
    const NormalFit oFit = normalProbabilityFit(vdValues); // points that lie on a line give that line
    GK_COMPARE_CLOSE(oFit.m_dMean, 40.0, 1e-12);
    GK_COMPARE_CLOSE(oFit.m_dStandardDeviation, 6.0, 1e-12);
    GK_COMPARE_CLOSE(oFit.m_dCorrelation, 1.0, 1e-12);
    std::transform(vdValues.begin(), vdValues.end(), vdValues.begin(), [](double d) { return std::exp(d / 10.0); });
    QVERIFY(normalProbabilityFit(vdValues).m_dCorrelation < 0.97);
    const NormalFit oEqual = normalProbabilityFit(Doubles(7, 0.1));
    QCOMPARE(oEqual.m_dMean, 0.1);
    QCOMPARE(oEqual.m_dStandardDeviation, 0.0);
    QCOMPARE(normalProbabilityFit(Doubles{3.0}).m_dStandardDeviation, g_dMissingValue);
    QCOMPARE(normalProbabilityFit({}).m_dMean, g_dMissingValue);
}

QTEST_APPLESS_MAIN(tst_Regression)
#include "tst_regression.moc"
