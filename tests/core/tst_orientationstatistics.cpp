#include "BiasWeights.h"
#include "FisherStatistics.h"
#include "OrientationMatrix.h"
#include "PrincipalAxes.h"
#include "ReferenceData.h"
#include "Rotation.h"
#include "TangentFit.h"
#include "WoodcockParameters.h"

#include <QTest>

#include <limits>
#include <vector>

using namespace gkBase;

namespace {

const std::vector<double> g_vdDips{30, 35, 25, 30, 40};
const std::vector<double> g_vdDipAzimuths{90, 95, 85, 80, 100};

struct Statistics
{
    explicit Statistics(const OrientationSums& oSums)
        : m_oSums(oSums)
        , m_oFisher(fisherStatistics(oSums))
        , m_oAxes(principalAxes(oSums))
        , m_oWoodcock(woodcockParameters(m_oAxes))
        , m_oShape(mardiaClassification(m_oAxes, m_oFisher.m_dMeanResultantLength))
    {
    }
    Statistics(const std::vector<double>& vdAngles, const std::vector<double>& vdAzimuths,
               OrientationType eType = OrientationType::Planes)
        : Statistics(orientationSums(eType, vdAngles, vdAzimuths))
    {
    }

    OrientationSums m_oSums;
    FisherStatistics m_oFisher;
    PrincipalAxes m_oAxes;
    WoodcockParameters m_oWoodcock;
    ShapeClassification m_oShape;
};

/// Some scattered records without chance.
void fillScattered(std::vector<double>& vdAngles, std::vector<double>& vdAzimuths, int iCount)
{
    for (int i = 0; i < iCount; ++i) {
        vdAngles.push_back(45.0 + 30.0 * std::sin(1.7 * i));
        vdAzimuths.push_back(wrapAngle(200.0 + 60.0 * std::sin(2.3 * i + 1.0), 360.0));
    }
}

double degreesApart(const LineOrientation& oLine, double dPlunge, double dAzimuth)
{
    return angleBetweenAxes(lineVector(oLine.m_dPlunge, oLine.m_dAzimuth), lineVector(dPlunge, dAzimuth));
}

double degreesApart(const LineOrientation& oLine, const QJsonValue& expected)
{
    return degreesApart(oLine, expected[0].toDouble(), expected[1].toDouble());
}

} // namespace

class tst_OrientationStatistics : public QObject
{
    Q_OBJECT
private slots:
    void knownNumbers();
    void reference_data();
    void reference();
    void eigenvaluesSumToTheCount();
    void turningTheFrameChangesNothing();
    void fewRecords();
    void identicalAndCoplanarRecords();
    void cancellingRecordsHaveNoMean();
    void missingRecordsAndMasks();
    void overturnedPlanesAreTheSamePlanes();
    void weightsRepeatRecords();
    void classification_data();
    void classification();
    void biasWeightsOfAWell();
    void foldAxisOfReference();
    void tangentFitOfCylinders();
    void tangentFitWithoutALine();

private:
    void compareFisher(const FisherStatistics& oActual, const QJsonObject& expected);
    void compareAxes(const Statistics& oActual, const QJsonObject& expected);
};

void tst_OrientationStatistics::knownNumbers()
{
    const Statistics o(g_vdDips, g_vdDipAzimuths);
    QCOMPARE(o.m_oFisher.m_iCount, std::size_t(5));
    const double aadNumbers[][3] = {
        // computed, printed, half a unit of its last digit
        {o.m_oFisher.m_dMeanResultantLength, 0.993839, 5e-7},
        {o.m_oFisher.m_dKappa, 129.846, 5e-4},
        {o.m_oFisher.m_dAlpha95, 6.740, 5e-4},
        {o.m_oFisher.m_oMeanPlane.m_dDip, 31.79, 5e-3},
        {o.m_oFisher.m_oMeanPlane.m_dDipAzimuth, 90.83, 5e-3},
        {o.m_oAxes.m_adValues[0], 0.004280, 5e-7},
        {o.m_oAxes.m_adValues[1], 0.057020, 5e-7},
        {o.m_oAxes.m_adValues[2], 4.938701, 5e-7},
        {o.m_oWoodcock.m_dLnS1S2, 4.461463, 5e-7},
        {o.m_oWoodcock.m_dLnS2S3, 2.589468, 5e-7},
        {o.m_oWoodcock.m_dK, 1.722926, 5e-7},
        {o.m_oWoodcock.m_dC, 7.050931, 5e-7},
    };
    for (const auto& adNumber : aadNumbers) {
        QVERIFY2(std::abs(adNumber[0] - adNumber[1]) <= adNumber[2], qPrintable(QString::number(adNumber[1])));
    }
}

void tst_OrientationStatistics::reference_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("set");
    QTest::addColumn<QStringList>("columns");
    for (const char* szSet : {"apsg_B2", "apsg_B12", "pmag_di_eq"}) {
        QTest::newRow(szSet) << "published_orient_a" << szSet << QStringList{"angle", "azimuth"};
    }
    for (const char* szSet : {"fisher", "wide", "girdle", "girdle_symmetric", "bimodal", "bipolar", "uniform",
                              "two_clusters", "with_missing", "identical", "pair", "horizontal_lines"}) {
        QTest::newRow(szSet) << "shapes_a" << szSet << QStringList{"angle", "azimuth"};
    }
    QTest::newRow("faults") << "angelier_faults"
                            << "planes" << QStringList{"dip", "dip_azimuth"};
    QTest::newRow("slickenlines") << "angelier_faults"
                                  << "slickenlines" << QStringList{"line_plunge", "line_azimuth"};
    QTest::newRow("fold") << "fold_well_a" << QString() << QStringList{"dip", "dip_azimuth"};
    QTest::newRow("clusters") << "clusters_a" << QString() << QStringList{"dip", "dip_azimuth"};
}

void tst_OrientationStatistics::reference()
{
    GK_REQUIRE_REFERENCE();
    QFETCH(QString, file);
    QFETCH(QString, set);
    QFETCH(QStringList, columns);
    const bool bSetColumn = columns[0] == "angle";
    const auto values = gkTest::referenceColumns(file, bSetColumn ? "set" : QString(), set);
    const QJsonObject all = gkTest::referenceValues(file);
    const QJsonObject expected = set.isEmpty() ? all["orientation"].toObject() : all["sets"][set].toObject();
    for (const bool bPlanes : {true, false}) {
        const QJsonObject part = expected[bPlanes ? "as_planes" : "as_lines"].toObject();
        const Statistics oActual(values[columns[0]], values[columns[1]],
                                 bPlanes ? OrientationType::Planes : OrientationType::Lines);
        QCOMPARE(int(oActual.m_oFisher.m_iCount), part["n"].toInt());
        compareFisher(oActual.m_oFisher, part["fisher"].toObject());
        compareAxes(oActual, part);
        QCOMPARE(QString::fromStdString(oActual.m_oShape.m_sText), part["classification"]["text"].toString());
        QCOMPARE(oActual.m_oShape.m_bUnimodal, part["classification"]["unimodal"].toBool());
        const QJsonValue mean = part["mean_resultant"]["as_line"];
        QVERIFY(degreesApart(oActual.m_oFisher.m_oMeanLine, mean) < 1e-9);
        const QJsonValue section = part["suggested_section"]["after_rotation_to_mean_pole"];
        if (section.isObject()) {
            const Rotation oRotation = rotationToHorizontal(oActual.m_oFisher.m_oMeanPlane);
            const PlaneOrientation oSection = rotatedAxes(oActual.m_oAxes, oRotation).sectionPlane();
            const QJsonValue angles = section["rule_with_angle_from_vertical"];
            QVERIFY(degreesApart(poleOfPlane(oSection), 90.0 - angles[0].toDouble(), angles[1].toDouble() + 180.0) <
                    1e-6);
        }
    }
}

void tst_OrientationStatistics::compareFisher(const FisherStatistics& oActual, const QJsonObject& expected)
{
    GK_COMPARE_CLOSE(oActual.m_dResultantLength, expected["resultant_length"].toDouble(), 1e-9);
    GK_COMPARE_CLOSE(oActual.m_dMeanResultantLength, expected["mean_resultant_length"].toDouble(), 1e-9);
    GK_COMPARE_CLOSE(oActual.m_dSphericalVariance, expected["spherical_variance"].toDouble(), 1e-9);
    GK_COMPARE_CLOSE(oActual.m_dKappa, expected["kappa"].toDouble(), 1e-9);
    GK_COMPARE_CLOSE(oActual.m_dAlpha95, expected["alpha95_deg"].toDouble(g_dMissingValue), 1e-9);
}

void tst_OrientationStatistics::compareAxes(const Statistics& oActual, const QJsonObject& expected)
{
    const std::vector<double> vdValues = gkTest::toDoubles(expected["eigenvalues_e1_e2_e3"].toArray());
    for (std::size_t i = 0; i < 3; ++i) {
        GK_COMPARE_CLOSE(oActual.m_oAxes.m_adValues[i], vdValues[i], 1e-9);
        const bool bUnique =
            (i == 0 || vdValues[i] - vdValues[i - 1] > 1e-6) && (i == 2 || vdValues[i + 1] - vdValues[i] > 1e-6);
        const QString sName = QString("e%1").arg(i + 1);
        QVERIFY(!bUnique ||
                degreesApart(oActual.m_oAxes.m_aoLines[i], expected["eigenvectors_plunge_azimuth"][sName]) < 1e-6);
    }
    QVERIFY(degreesApart(oActual.m_oAxes.meanLine(), expected["mean_principal"]["as_line"]) < 1e-6);
    const QJsonValue woodcock = expected["woodcock"];
    if (!woodcock["rounding_decides"].toBool()) {
        // An eigenvalue far below the trace has few digits in any program.
        const double dTolerance = qMax(1e-9, 2.0 * woodcock["relative_error_of_e1"].toDouble());
        GK_COMPARE_CLOSE(oActual.m_oWoodcock.m_dLnS1S2, woodcock["ln_S1_S2"].toDouble(), 1e-9);
        GK_COMPARE_CLOSE(oActual.m_oWoodcock.m_dLnS2S3, woodcock["ln_S2_S3"].toDouble(), dTolerance);
        GK_COMPARE_CLOSE(oActual.m_oWoodcock.m_dK, woodcock["K"].toDouble(), dTolerance);
        GK_COMPARE_CLOSE(oActual.m_oWoodcock.m_dC, woodcock["C"].toDouble(), dTolerance);
    }
}

void tst_OrientationStatistics::eigenvaluesSumToTheCount()
{
    std::vector<double> vdAngles;
    std::vector<double> vdAzimuths;
    fillScattered(vdAngles, vdAzimuths, 5000);
    for (const auto eType : {OrientationType::Planes, OrientationType::Lines}) {
        const PrincipalAxes oAxes = Statistics(vdAngles, vdAzimuths, eType).m_oAxes;
        const auto& adValues = oAxes.m_adValues;
        GK_COMPARE_CLOSE(adValues[0] + adValues[1] + adValues[2], 5000.0, 1e-13);
        GK_COMPARE_CLOSE(eigenvalueShare(oAxes, 0) + eigenvalueShare(oAxes, 1) + eigenvalueShare(oAxes, 2), 1.0, 1e-13);
        QVERIFY(adValues[0] <= adValues[1] && adValues[1] <= adValues[2]);
        for (std::size_t i = 0; i < 3; ++i) {
            GK_COMPARE_CLOSE(angleBetweenAxes(oAxes.m_aoVectors[i], oAxes.m_aoVectors[(i + 1) % 3]), 90.0, 1e-12);
            QVERIFY(oAxes.m_aoVectors[i].z() >= 0.0);
        }
        QVERIFY(degreesApart(poleOfPlane(oAxes.girdle()), oAxes.foldAxis().m_dPlunge, oAxes.foldAxis().m_dAzimuth) <
                1e-12);
    }
}

void tst_OrientationStatistics::turningTheFrameChangesNothing()
{
    const Statistics oBefore(g_vdDips, g_vdDipAzimuths);
    const Rotation oRotation({20.0, 200.0}, 15.0); // keeps the poles in the lower hemisphere
    std::vector<double> vdDips(g_vdDips.size());
    std::vector<double> vdDipAzimuths(g_vdDips.size());
    rotateOrientations(OrientationType::Planes, oRotation, g_vdDips, g_vdDipAzimuths, vdDips, vdDipAzimuths);
    const Statistics oAfter(vdDips, vdDipAzimuths);
    GK_COMPARE_CLOSE(oAfter.m_oFisher.m_dKappa, oBefore.m_oFisher.m_dKappa, 1e-11);
    GK_COMPARE_CLOSE(oAfter.m_oFisher.m_dAlpha95, oBefore.m_oFisher.m_dAlpha95, 1e-11);
    GK_COMPARE_CLOSE(oAfter.m_oWoodcock.m_dK, oBefore.m_oWoodcock.m_dK, 1e-11);
    const LineOrientation oMean = oRotation.apply(oBefore.m_oFisher.m_oMeanLine);
    QVERIFY(degreesApart(oAfter.m_oFisher.m_oMeanLine, oMean.m_dPlunge, oMean.m_dAzimuth) < 1e-11);
    const PrincipalAxes oTurned = rotatedAxes(oBefore.m_oAxes, oRotation);
    for (std::size_t i = 0; i < 3; ++i) {
        GK_COMPARE_CLOSE(oAfter.m_oAxes.m_adValues[i], oTurned.m_adValues[i], 1e-12);
        QVERIFY(angleBetweenAxes(oAfter.m_oAxes.m_aoVectors[i], oTurned.m_aoVectors[i]) < 1e-10);
    }
}

void tst_OrientationStatistics::fewRecords()
{
    const Statistics oNone({}, {});
    QCOMPARE(oNone.m_oFisher.m_dResultantLength, g_dMissingValue);
    QCOMPARE(oNone.m_oFisher.m_dKappa, g_dMissingValue);
    QVERIFY(!oNone.m_oFisher.m_bKappaUnbounded && !oNone.m_oAxes.isDefined() && oNone.m_oShape.m_sText.empty());
    QCOMPARE(oNone.m_oAxes.m_adValues[2], g_dMissingValue);
    QCOMPARE(oNone.m_oAxes.foldAxis().m_dPlunge, g_dMissingValue);
    QCOMPARE(oNone.m_oWoodcock.m_dC, g_dMissingValue);

    const Statistics oOne({30}, {90});
    QCOMPARE(oOne.m_oFisher.m_dMeanResultantLength, 1.0);
    QVERIFY(oOne.m_oFisher.m_bKappaUnbounded);
    QCOMPARE(oOne.m_oFisher.m_dAlpha95, g_dMissingValue);
    QCOMPARE(oOne.m_oFisher.m_oMeanPlane.m_dDip, 30.0);
    QCOMPARE(oOne.m_oAxes.m_adValues[1], 0.0);

    const Statistics oTwo({30, 40}, {90, 90});
    GK_COMPARE_CLOSE(oTwo.m_oFisher.m_dResultantLength, 2.0 * std::cos(radians(5.0)), 1e-14);
    GK_COMPARE_CLOSE(oTwo.m_oFisher.m_dKappa, 0.5 / (1.0 - std::cos(radians(5.0))), 1e-10);
    GK_COMPARE_CLOSE(oTwo.m_oFisher.m_oMeanPlane.m_dDip, 35.0, 1e-13);
    QCOMPARE(oTwo.m_oAxes.m_adValues[0], 0.0);

    // One record has no girdle, two have one.
    QVERIFY(!isAxisSettled(oNone.m_oAxes, 2));
    QVERIFY(!isAxisSettled(oOne.m_oAxes, 0) && !isAxisSettled(oOne.m_oAxes, 1) && isAxisSettled(oOne.m_oAxes, 2));
    QVERIFY(isAxisSettled(oTwo.m_oAxes, 0) && isAxisSettled(oTwo.m_oAxes, 1) && isAxisSettled(oTwo.m_oAxes, 2));
}

void tst_OrientationStatistics::identicalAndCoplanarRecords()
{
    const std::vector<double> vdDip(300000, 37.5);
    const Statistics oSame(vdDip, std::vector<double>(vdDip.size(), 214.25));
    QVERIFY(oSame.m_oFisher.m_bKappaUnbounded);
    QCOMPARE(oSame.m_oFisher.m_dKappa, g_dMissingValue);
    QCOMPARE(oSame.m_oFisher.m_dSphericalVariance, 0.0);
    QCOMPARE(oSame.m_oFisher.m_dAlpha95, 0.0);
    QCOMPARE(oSame.m_oAxes.m_adValues[0] + oSame.m_oAxes.m_adValues[1], 0.0);
    QCOMPARE(oSame.m_oWoodcock.m_dLnS1S2, 0.0);
    QVERIFY(oSame.m_oShape.m_bUnimodal);

    std::vector<double> vdPlunges;
    std::vector<double> vdAzimuths;
    for (int i = 0; i < 50000; ++i) {
        const LineOrientation oLine = lineInPlane(33.0, 71.0, 0.0036 * i);
        vdPlunges.push_back(oLine.m_dPlunge);
        vdAzimuths.push_back(oLine.m_dAzimuth);
    }
    const Statistics oPlane(vdPlunges, vdAzimuths, OrientationType::Lines);
    QCOMPARE(oPlane.m_oAxes.m_adValues[0], 0.0);
    QCOMPARE(oPlane.m_oWoodcock.m_dLnS2S3, 0.0);
    QCOMPARE(oPlane.m_oWoodcock.m_dK, 0.0);
    QVERIFY(oPlane.m_oWoodcock.m_dLnS1S2 >= 0.0);
    GK_COMPARE_CLOSE(oPlane.m_oAxes.girdle().m_dDip, 33.0, 1e-9);
    GK_COMPARE_CLOSE(oPlane.m_oAxes.girdle().m_dDipAzimuth, 71.0, 1e-9);
}

void tst_OrientationStatistics::cancellingRecordsHaveNoMean()
{
    // Steep planes that dip both ways: the resultant says little, the principal mean is right.
    const Statistics oSteep({85, 85, 88, 88}, {90, 270, 92, 268});
    QCOMPARE(qRound(100.0 * oSteep.m_oFisher.m_dResultantLength), 25);
    QCOMPARE(oSteep.m_oFisher.m_dAlpha95, g_dMissingValue);
    QVERIFY(oSteep.m_oAxes.meanPlane().m_dDip > 89.0);
    QVERIFY(doesVectorMeanMislead(oSteep.m_oAxes, oSteep.m_oFisher.m_dMeanResultantLength));
    std::vector<double> vdAngles; // broad, but without opposite ends
    std::vector<double> vdAzimuths;
    fillScattered(vdAngles, vdAzimuths, 200);
    const Statistics oBroad(vdAngles, vdAzimuths);
    QVERIFY(!doesVectorMeanMislead(oBroad.m_oAxes, oBroad.m_oFisher.m_dMeanResultantLength));
    const Statistics oNone({0, 0}, {0, 180}, OrientationType::Lines);
    QVERIFY(oNone.m_oFisher.m_dMeanResultantLength < 1e-15);
    QCOMPARE(oNone.m_oFisher.m_oMeanLine.m_dAzimuth, g_dMissingValue);
    QCOMPARE(oNone.m_oFisher.m_dAlpha95, g_dMissingValue);
}

void tst_OrientationStatistics::missingRecordsAndMasks()
{
    const double dNaN = std::nan("");
    const std::vector<double> vdDips{30, dNaN, 35, 99999.0, 25, 30, 10, 40, 5};
    const std::vector<double> vdDipAzimuths{90, 10, 95, 10, 85, 80, std::numeric_limits<double>::infinity(), 100};
    const Statistics o(vdDips, vdDipAzimuths); // the last dip has no azimuth at all
    QCOMPARE(o.m_oSums.m_iCount, std::size_t(5));
    QCOMPARE(o.m_oSums.m_iMissing, std::size_t(3));
    QCOMPARE(o.m_oFisher.m_dKappa, Statistics(g_vdDips, g_vdDipAzimuths).m_oFisher.m_dKappa);
    const std::vector<unsigned char> vbMask{1, 1, 0, 0, 1};
    const OrientationSums oMasked = orientationSums(OrientationType::Planes, vdDips, vdDipAzimuths, vbMask);
    QCOMPARE(oMasked.m_iCount, std::size_t(2));
    QCOMPARE(oMasked.m_iMissing, std::size_t(1));
}

void tst_OrientationStatistics::overturnedPlanesAreTheSamePlanes()
{
    const Statistics oUpright({80, 75, 90}, {270, 260, 265});
    const Statistics oOverturned({100, 75, 90}, {90, 260, 265});
    GK_COMPARE_CLOSE(oOverturned.m_oFisher.m_dKappa, oUpright.m_oFisher.m_dKappa, 1e-10);
    const Statistics oUpward({-10, 20}, {40, 230}, OrientationType::Lines);
    const Statistics oDownward({10, 20}, {220, 230}, OrientationType::Lines);
    GK_COMPARE_CLOSE(oUpward.m_oFisher.m_dKappa, oDownward.m_oFisher.m_dKappa, 1e-10);
}

void tst_OrientationStatistics::weightsRepeatRecords()
{
    // Weights of 2 and 4 are as records that stand once and twice.
    const std::vector<double> vdWeights{2, 4, 2, std::nan(""), -1, 4};
    const std::vector<double> vdDips{30, 35, 25, 60, 70, 40};
    const std::vector<double> vdDipAzimuths{90, 95, 85, 200, 10, 100};
    const OrientationSums oWeighted = orientationSums(OrientationType::Planes, vdDips, vdDipAzimuths, {}, vdWeights);
    const OrientationSums oRepeated =
        orientationSums(OrientationType::Planes, std::vector<double>{30, 35, 35, 25, 40, 40},
                        std::vector<double>{90, 95, 95, 85, 100, 100});
    QCOMPARE(oWeighted.m_iCount, std::size_t(4));
    QCOMPARE(oWeighted.m_iMissing, std::size_t(2));
    GK_COMPARE_CLOSE(oWeighted.m_oResultant.length() / 4.0, oRepeated.m_oResultant.length() / 6.0, 1e-14);
    GK_COMPARE_CLOSE(oWeighted.matrix(2, 1) / 4.0, oRepeated.matrix(1, 2) / 6.0, 1e-14);
    GK_COMPARE_CLOSE(oWeighted.m_dEffectiveCount, 144.0 / 40.0, 1e-14);
    GK_COMPARE_CLOSE(effectiveCount(vdWeights), 144.0 / 40.0, 1e-14);
    QCOMPARE(effectiveCount({}), 0.0);
    const std::vector<double> vdNone(6, 0.0);
    QCOMPARE(orientationSums(OrientationType::Planes, vdDips, vdDipAzimuths, {}, vdNone).m_iCount, std::size_t(0));
    QVERIFY(isMissing(tangentFit(vdDips, vdDipAzimuths, 85.0, {}, vdNone).m_dTransverse));
}

void tst_OrientationStatistics::classification_data()
{
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<double>("length");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("unimodal");
    const QList<double> girdle{1, 40, 59};
    QTest::newRow("uniform") << QList<double>{10, 10, 10} << 0.5 << "is uniform distributed" << false;
    QTest::newRow("cluster") << QList<double>{5, 10, 85} << 0.9 << "1. clustered unimodal\n" << true;
    QTest::newRow("bipolar") << QList<double>{10, 10.4, 79.6} << 0.89 << "1. clustered bipolar\n" << false;
    QTest::newRow("bimodal") << QList<double>{10, 11, 79} << 0.89 << "1. clustered bimodal\n" << false;
    QTest::newRow("girdle") << girdle << 0.5 << "1. clustered multi modal\n2. girdle pattern" << false;
    QTest::newRow("short girdle") << girdle << 0.9 << "1. clustered unimodal\n2. girdle pattern" << true;
    QTest::newRow("symmetric") << QList<double>{1, 49.4, 49.6} << 0.9 << "2. symmetrical girdle patter" << true;
    QTest::newRow("between") << QList<double>{15, 30, 55} << 0.5 << "Orientation classification indeterminate" << false;
    QTest::newRow("nothing") << QList<double>{0, 0, 0} << 0.5 << "" << false;
}

void tst_OrientationStatistics::classification()
{
    QFETCH(QList<double>, values);
    QFETCH(double, length);
    const ShapeClassification oShape = mardiaClassification(values[0], values[1], values[2], length);
    QTEST(QString::fromStdString(oShape.m_sText), "text");
    QTEST(oShape.m_bUnimodal, "unimodal");
}

void tst_OrientationStatistics::biasWeightsOfAWell()
{
    // A vertical well: cos δ = cos dip, at most 1 / cos 80°.
    const std::vector<double> vdDips{0, 60, 89, std::nan(""), 60};
    const std::vector<double> vdDipAzimuths{0, 40, 220, 10, 300};
    const std::vector<double> vdWeights =
        biasWeights(OrientationType::Planes, vdDips, vdDipAzimuths, {90.0, 0.0, 80.0});
    GK_COMPARE_CLOSE(vdWeights[0] + vdWeights[1] + vdWeights[2] + vdWeights[4], 4.0, 1e-14);
    GK_COMPARE_CLOSE(vdWeights[1] / vdWeights[0], 2.0, 1e-13);
    GK_COMPARE_CLOSE(vdWeights[4] / vdWeights[0], 2.0, 1e-13);
    GK_COMPARE_CLOSE(vdWeights[2] / vdWeights[0], 1.0 / std::cos(radians(80.0)), 1e-13);
    QVERIFY(std::isnan(vdWeights[3]));
    for (const double dWeight : biasWeights(OrientationType::Planes, g_vdDips, g_vdDipAzimuths, {})) {
        QCOMPARE(dWeight, 1.0); // no line, no bias
    }
    // Planes along the line stay finite whatever the limit.
    const auto vdAlong =
        biasWeights(OrientationType::Planes, std::vector<double>{90, 0}, std::vector<double>{10, 0}, {90.0, 0.0, 90.0});
    QVERIFY(vdAlong[0] / vdAlong[1] < 600.0);
}

void tst_OrientationStatistics::foldAxisOfReference()
{
    GK_REQUIRE_REFERENCE();
    const auto columns = gkTest::referenceColumns("fold_well_a");
    const TangentFit oFit = tangentFit(columns["dip"], columns["dip_azimuth"]);
    QVERIFY(degreesApart(oFit.m_oFoldAxis, 12.0, 340.0) < 0.01); // the records have two decimals
    GK_COMPARE_CLOSE(oFit.m_dTransverse, 70.0, 1e-3);
    QCOMPARE(oFit.m_iCount + oFit.m_iMissing, std::size_t(96));
    const PrincipalAxes oAxes = Statistics(columns["dip"], columns["dip_azimuth"]).m_oAxes;
    QVERIFY(degreesApart(oAxes.longitudinal(), 12.0, 340.0) < 0.01);
}

void tst_OrientationStatistics::tangentFitOfCylinders()
{
    for (const double dPlunge : {0.0, 5.0, 30.0}) {
        for (double dAzimuth = 10.0; dAzimuth < 360.0; dAzimuth += 50.0) {
            std::vector<double> vdDips;
            std::vector<double> vdDipAzimuths;
            for (double dPitch = -50.0; dPitch <= 50.0; dPitch += 8.0) {
                // Planes through the axis: turn one about it.
                const PlaneOrientation oPlane =
                    Rotation({dPlunge, dAzimuth}, dPitch).apply(PlaneOrientation{dPlunge, dAzimuth});
                vdDips.push_back(oPlane.m_dDip);
                vdDipAzimuths.push_back(oPlane.m_dDipAzimuth);
            }
            const TangentFit oFit = tangentFit(vdDips, vdDipAzimuths);
            QVERIFY(degreesApart(oFit.m_oFoldAxis, dPlunge, dAzimuth) < 1e-6);
            QVERIFY(oFit.m_dDeviation < 1e-6);
            GK_COMPARE_CLOSE(axialDifference(oFit.m_dTransverse, dAzimuth), 90.0, 1e-6);
        }
    }
}

void tst_OrientationStatistics::tangentFitWithoutALine()
{
    const std::vector<double> vdSame(4, 30.0);
    QCOMPARE(tangentFit(vdSame, vdSame).m_oFoldAxis.m_dPlunge, g_dMissingValue);
    QCOMPARE(tangentFit(vdSame, std::vector<double>{0, 90, 180, 270}).m_dTransverse, g_dMissingValue); // a dome
    const TangentFit oFit = tangentFit(std::vector<double>{30, 88, std::nan(""), 90}, vdSame);
    QCOMPARE(oFit.m_iCount, std::size_t(1));
    QCOMPARE(oFit.m_iTooSteep, std::size_t(2));
    QCOMPARE(oFit.m_iMissing, std::size_t(1));
    QCOMPARE(oFit.m_dDeviation, g_dMissingValue);
}

QTEST_APPLESS_MAIN(tst_OrientationStatistics)
#include "tst_orientationstatistics.moc"
