// The point model of orientations: what counts as selected, statistics, rotations, bias weights, clusters of axes.

#include "../TestDataSets.h"

#include <gkBase/Angles.h>
#include <gkBase/MatrixData.h>
#include <gkBase/MatrixDataArray.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/UnitManager.h>
#include <gkBase/UnitRegistry.h>

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

using namespace gkBase;

namespace {

constexpr double dMissing = 99999.0;
constexpr double dNaN = std::numeric_limits<double>::quiet_NaN();
const QPointF g_oUndefined(dMissing, dMissing);

struct Records
{
    std::vector<double> m_vdAngles;
    std::vector<double> m_vdAzimuths;
};

const Records g_oFivePlanes{{30.0, 35.0, 25.0, 30.0, 40.0}, {90.0, 95.0, 85.0, 80.0, 100.0}};

/// Planes around (dip, azimuth); dips beyond the vertical are written as the plane dipping the other way.
void addSet(Records& records, int iCount, double dDip, double dAzimuth, double dSpread, unsigned iSeed)
{
    std::mt19937 generator(iSeed);
    std::normal_distribution<double> spread(0.0, dSpread);
    for (int i = 0; i < iCount; ++i) {
        const double dRecordDip = dDip + spread(generator);
        const bool bOverturned = dRecordDip > 90.0;
        records.m_vdAngles.push_back(bOverturned ? 180.0 - dRecordDip : std::abs(dRecordDip));
        records.m_vdAzimuths.push_back(wrapAzimuth(dAzimuth + spread(generator) + (bOverturned ? 180.0 : 0.0)));
    }
}

double anglesApart(bool bPlanes, const QPointF& oFirst, const QPointF& oSecond)
{
    const OrientationType eType = bPlanes ? OrientationType::Planes : OrientationType::Lines;
    return angleBetweenAxes(orientationVector(eType, oFirst.x(), oFirst.y()),
                            orientationVector(eType, oSecond.x(), oSecond.y()));
}

/// A model over attributes of its own.
class Chart
{
public:
    explicit Chart(const Records& records, bool bLines = false)
        : m_poDip(gkTest::attribute(QStringLiteral("Dip"), records.m_vdAngles))
        , m_poAzimuth(gkTest::attribute(QStringLiteral("Azimuth"), records.m_vdAzimuths))
        , m_poRoot(gkTest::rootOf({m_poDip, m_poAzimuth}))
    {
        show(m_poDip, bLines);
    }

    void show(MatrixData* poDip, bool bLines = false)
    {
        m_oModel.takeNewDataSet(-1, QRelationshipItemModel::OrientationDisplay, poDip, m_poAzimuth, nullptr, nullptr,
                                bLines, {});
    }

    std::vector<double> columns() const
    {
        std::vector<double> vdColumns(m_oModel.x().begin(), m_oModel.x().end());
        vdColumns.insert(vdColumns.end(), m_oModel.y().begin(), m_oModel.y().end());
        return vdColumns;
    }

    MatrixData* m_poDip;
    MatrixData* m_poAzimuth;
    std::unique_ptr<MatrixData> m_poRoot;
    QRelationshipItemModel m_oModel;
};

bool isSame(const std::vector<double>& vdFirst, const std::vector<double>& vdSecond)
{
    return std::equal(vdFirst.begin(), vdFirst.end(), vdSecond.begin(), vdSecond.end(),
                      [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); });
}

struct FisherValues
{
    FisherValues(const QRelationshipItemModel& model, bool bPoles, bool bSelectionOnly)
    {
        model.calculateFisherStatistics(m_dR, m_dVariance, m_dKappa, m_dE1, m_dE2, m_dE3, m_dR2, m_dK, m_dC, m_dLnS1S2,
                                        m_dLnS2S3, m_dAlpha95, m_bUnimodal, m_sText, bPoles, bSelectionOnly);
    }

    double m_dR = 0, m_dVariance = 0, m_dKappa = 0, m_dE1 = 0, m_dE2 = 0, m_dE3 = 0, m_dR2 = 0, m_dK = 0, m_dC = 0,
           m_dLnS1S2 = 0, m_dLnS2S3 = 0, m_dAlpha95 = 0;
    bool m_bUnimodal = true;
    QString m_sText;
};

} // namespace

class TestOrientationModel : public QObject
{
    Q_OBJECT
private slots:
    void anglesOfAllUnitsAreDegrees();
    void knownStatistics();
    void linesHaveTheSecondKindOfResults();
    void nothingSelectedMeansAllOrNone();
    void withoutRecordsNothingIsDefined();
    void identicalRecords();
    void rotationsAreUndoneExactly();
    void rotationsOutliveEditsButNotOtherAttributes();
    void meanComesToTheCentre_data();
    void meanComesToTheCentre();
    void sectionOfARotatedCopy();
    void weightsAddUpToTheRecords();
    void clustersOfAxes();
};

void TestOrientationModel::anglesOfAllUnitsAreDegrees()
{
    Chart chart({{M_PI / 6.0, dNaN, M_PI / 2.0}, {100.0, 200.0, 350.0}});
    QRelationshipItemModel& model = chart.m_oModel;
    QCOMPARE(model.x()[0], M_PI / 6.0); // without a unit they are degrees
    chart.m_poDip->setUnitManager(UnitRegistry::standard().managerForUnit(QStringLiteral("rad")));
    chart.m_poAzimuth->setUnitManager(UnitRegistry::standard().managerForUnit(QStringLiteral("gon")));
    model.refresh();
    QVERIFY(std::abs(model.x()[0] - 30.0) < 1e-9 && std::abs(model.x()[2] - 90.0) < 1e-9);
    QVERIFY(std::abs(model.y()[0] - 90.0) < 1e-9 && std::abs(model.y()[2] - 315.0) < 1e-9);
    QCOMPARE(model.numberOfValidPoints(), 2);
    model.setTadPoleAzimuthDataNode(chart.m_poAzimuth);
    QVERIFY(std::abs(model.azimuthTadPole(1) - 180.0) < 1e-9);

    // Other charts have axes in the unit of the attribute; their means of bins go with them.
    model.takeNewDataSet(-1, QRelationshipItemModel::DepthDisplay, chart.m_poDip, chart.m_poAzimuth, {});
    QCOMPARE(model.x()[0], M_PI / 6.0);
    model.generateNumberOfIntervalFilter(1, 0.0, 150.0);
    model.generateDataDecimation();
    QVERIFY(std::abs(model.decimationAngle()[0].x() - 30.0) < 1e-9);
    QVERIFY(std::abs(model.decimationAngle()[0].y() - 90.0) < 1e-9);
    QVERIFY(std::abs(model.decimationData()->cell(0, 1) - M_PI / 6.0) < 1e-9);
}

void TestOrientationModel::knownStatistics()
{
    Chart chart(g_oFivePlanes);
    const FisherValues values(chart.m_oModel, true, false);
    const std::pair<double, double> aKnown[] = {
        {values.m_dR, 0.993839},      {values.m_dR2, 0.993839},   {values.m_dVariance, 0.006161},
        {values.m_dE1, 0.004280},     {values.m_dE2, 0.057020},   {values.m_dE3, 4.938701},
        {values.m_dLnS1S2, 4.461463}, {values.m_dK, 1.722926},    {values.m_dC, 7.050931},
        {values.m_dLnS2S3, 2.589468}, {values.m_dKappa, 129.846}, {degrees(values.m_dAlpha95), 6.740}};
    for (const auto& [dValue, dKnown] : aKnown)
        QVERIFY2(std::abs(dValue - dKnown) < (dKnown > 6.0 && dKnown != 7.050931 ? 5e-4 : 1e-6),
                 qPrintable(QString::number(dValue)));
    QVERIFY(values.m_bUnimodal);
    QCOMPARE(values.m_sText, QStringLiteral("1. clustered unimodal\n"));
    chart.m_oModel.updateOrientationResults();
    QVERIFY(std::abs(chart.m_oModel.meanResultantPole().x() - 31.79) < 0.005);
    QVERIFY(std::abs(chart.m_oModel.meanResultantPole().y() - 90.83) < 0.005);

    double aadMatrix[3][3];
    double dSx, dSy, dSz;
    int iCount = 0;
    chart.m_oModel.initialiseCharacteristicMatrix(aadMatrix, dSx, dSy, dSz, iCount, true, false);
    QCOMPARE(iCount, 5);
    QVERIFY(std::abs(aadMatrix[0][0] + aadMatrix[1][1] + aadMatrix[2][2] - 5.0) < 1e-12);
    QVERIFY(std::abs(std::hypot(dSx, dSy, dSz) - 5.0 * values.m_dR) < 1e-12);
}

void TestOrientationModel::linesHaveTheSecondKindOfResults()
{
    Records records;
    addSet(records, 60, 40.0, 350.0, 12.0, 3);
    Chart planes(records);
    Chart lines(records, true);
    planes.m_oModel.updateOrientationResults();
    lines.m_oModel.updateOrientationResults();
    QVERIFY(planes.m_oModel.meanPrincipalPlane() != g_oUndefined);
    QCOMPARE(lines.m_oModel.meanPrincipalPlane(), g_oUndefined);
    QVERIFY(anglesApart(false, lines.m_oModel.meanResultantDipDirection(), {40.0, 350.0}) < 5.0);
    QCOMPARE(planes.m_oModel.meanResultantDipDirection(), lines.m_oModel.meanResultantDipDirection());
    QCOMPARE(planes.m_oModel.LdirectionDipDirection(), lines.m_oModel.LdirectionDipDirection());
    // The same attributes as lines: what was found for planes is gone.
    planes.m_oModel.rotateDataAboutRotationAxis(nullptr, {0.0, 45.0}, 40.0, true);
    planes.show(planes.m_poDip, true);
    QCOMPARE(planes.m_oModel.meanPrincipalPlane(), g_oUndefined);
    QVERIFY(!planes.m_oModel.isRotated() && isSame(planes.columns(), lines.columns()));
}

void TestOrientationModel::nothingSelectedMeansAllOrNone()
{
    Records records = g_oFivePlanes;
    records.m_vdAngles.push_back(dNaN);
    records.m_vdAzimuths.push_back(10.0);
    Chart chart(records);
    QRelationshipItemModel& model = chart.m_oModel;
    QVERIFY(model.takenMask().empty());
    QCOMPARE(model.numberOfTakenPoints(), 5);
    const double dAll = FisherValues(model, true, true).m_dKappa;
    model.setEmptySelectionTakesAll(false);
    QCOMPARE(FisherValues(model, true, true).m_dKappa, dMissing);
    QCOMPARE(FisherValues(model, true, false).m_dKappa, dAll);
    for (const bool bAll : {false, true}) {
        model.setEmptySelectionTakesAll(bAll);
        model.setSelectedRecords({1, 4, 5});
        QCOMPARE(model.numberOfTakenPoints(), 2);
        model.setPartSelection(true);
        model.updateOrientationResults();
        QVERIFY(anglesApart(true, model.meanPrincipalPlane(), {37.5, 97.65}) < 0.2);
        model.clearSelection();
        QCOMPARE(model.numberOfTakenPoints(), bAll ? 5 : 0);
    }
}

void TestOrientationModel::withoutRecordsNothingIsDefined()
{
    Chart empty(Records{{dNaN, 30.0}, {10.0, dMissing}});
    QRelationshipItemModel& model = empty.m_oModel;
    model.setScanline(90.0, 0.0, 80.0);
    model.setBiasCorrectionOn(true);
    model.updateOrientationResults();
    model.calculateSuggestedSectionOrientation(true, false, nullptr);
    const FisherValues values(model, true, true);
    for (const double dValue : {values.m_dR, values.m_dVariance, values.m_dKappa, values.m_dE1, values.m_dE3,
                                values.m_dAlpha95, values.m_dK, values.m_dC, values.m_dLnS1S2, values.m_dLnS2S3})
        QCOMPARE(dValue, dMissing);
    QVERIFY(values.m_sText.isEmpty() && !values.m_bUnimodal);
    for (const QPointF& oResult : {model.meanResultantPole(), model.meanPrincipalPlane(), model.LdirectionPlane(),
                                   model.suggestedSectionPlane(), model.rotatedData(0), model.rotatedData(7)})
        QCOMPARE(oResult, g_oUndefined);
    QVERIFY(!model.buildClusters_KML_ForStereoProjection(QStringLiteral("c"), 3));
    model.rotateDataToMeanPole(model.meanResultantPole(), true, nullptr);
    QVERIFY(!model.isRotated());
}

void TestOrientationModel::identicalRecords()
{
    Chart chart({std::vector<double>(7, 33.3), std::vector<double>(7, 217.1)});
    const FisherValues values(chart.m_oModel, true, false);
    QCOMPARE(values.m_dKappa, dMissing);
    QVERIFY(std::abs(values.m_dVariance) < 1e-15 && values.m_dE1 == 0.0 && values.m_dK == 0.0);
    chart.m_oModel.updateOrientationResults();
    QVERIFY(anglesApart(true, chart.m_oModel.meanPrincipalPlane(), {33.3, 217.1}) < 1e-9);
    QCOMPARE(chart.m_oModel.TdirectionPlane(), g_oUndefined);
    QVERIFY(chart.m_oModel.buildClusters_KML_ForStereoProjection(QStringLiteral("c"), 4));
    QCOMPARE(chart.m_oModel.clusterSizes().size(), std::size_t{1});
}

void TestOrientationModel::rotationsAreUndoneExactly()
{
    Records records{{30.0, 0.0, 90.0, 12.0, dNaN}, {90.0, 77.0, 300.0, dNaN, 1.0}};
    Chart chart(records);
    QRelationshipItemModel& model = chart.m_oModel;
    const std::vector<double> vdRead = chart.columns();
    const quint64 iRevision = model.revision();
    const quint64 iPointsRevision = model.pointsRevision();

    model.rotateDataAboutRotationAxis(nullptr, {0.0, 45.0}, 40.0, true);
    QVERIFY(model.revision() > iRevision && model.pointsRevision() > iPointsRevision);
    QVERIFY(std::abs(model.rotatedData(0).x() - 64.14) < 0.005 && std::abs(model.rotatedData(0).y() - 111.87) < 0.005);
    QCOMPARE(model.data()->point(0), model.rotatedData(0));
    QVERIFY(!model.isValid(3));
    const std::vector<double> vdOnce = chart.columns();

    model.rotateDataAboutRotationAxis(nullptr, {25.0, 200.0}, -73.0, false);
    model.rotateDataAboutRotationAxis(nullptr, {60.0, 10.0}, 170.0, false);
    // Together they do what they do one after the other.
    QPointF oStep(30.0, 90.0);
    for (const Rotation& oRotation : model.rotations()) {
        const PlaneOrientation oPlane = oRotation.apply(PlaneOrientation{oStep.x(), oStep.y()});
        oStep = {oPlane.m_dDip, oPlane.m_dDipAzimuth};
    }
    QVERIFY(anglesApart(true, model.rotatedData(0), oStep) < 1e-10);

    QCOMPARE(model.numberOfRotations(), 3);
    model.undoRotation();
    model.undoRotation();
    QVERIFY(isSame(chart.columns(), vdOnce));
    model.rotateDataAboutRotationAxis(nullptr, {0.0, 45.0}, -40.0, true);
    for (int i = 0; i < 3; ++i)
        QVERIFY(anglesApart(true, model.rotatedData(i), {vdRead[std::size_t(i)], vdRead[std::size_t(i) + 5]}) < 1e-10);
    model.undoAllRotations();
    QVERIFY(!model.isRotated() && isSame(chart.columns(), vdRead));
    QVERIFY(model.meanPrincipalPlane() != g_oUndefined);

    for (const double dAngle : {0.0, -720.0, dMissing})
        model.rotateDataAboutRotationAxis(nullptr, {25.0, 200.0}, dAngle, false);
    QVERIFY(!model.isRotated());
}

void TestOrientationModel::rotationsOutliveEditsButNotOtherAttributes()
{
    Chart chart(g_oFivePlanes);
    QRelationshipItemModel& model = chart.m_oModel;
    model.rotateDataAboutRotationAxis(nullptr, {0.0, 45.0}, 40.0, true);
    model.buildClusters_KML_ForStereoProjection(QStringLiteral("c"), 2);
    const QPointF oFirst = model.rotatedData(0);
    chart.m_poDip->mutableColumn().setValue(1, 30.0);
    chart.m_poAzimuth->mutableColumn().setValue(1, 90.0);
    chart.m_poDip->valuesChanged();
    chart.m_poAzimuth->valuesChanged();
    model.refresh();
    QVERIFY(model.isRotated());
    QCOMPARE(model.rotatedData(1), oFirst);
    QVERIFY(model.clusterCentroids() != nullptr);
    model.undoRotation();
    QCOMPARE(model.rotatedData(1), QPointF(30.0, 90.0));

    model.rotateDataAboutRotationAxis(nullptr, {0.0, 45.0}, 40.0, true);
    chart.show(chart.m_poAzimuth);
    QVERIFY(!model.isRotated());
    QCOMPARE(model.rotatedData(1), QPointF(90.0, 90.0));
    QCOMPARE(model.meanResultantPole(), g_oUndefined);
}

void TestOrientationModel::meanComesToTheCentre_data()
{
    QTest::addColumn<bool>("bLines");
    QTest::newRow("planes") << false;
    QTest::newRow("lines") << true;
}

void TestOrientationModel::meanComesToTheCentre()
{
    QFETCH(bool, bLines);
    Records records;
    addSet(records, 80, 50.0, 205.0, 5.0, 8);
    Chart chart(records, bLines);
    QRelationshipItemModel& model = chart.m_oModel;
    const auto mean = [&] { return bLines ? model.meanResultantDipDirection() : model.meanResultantPole(); };
    model.updateOrientationResults();
    const QPointF oMean = mean();
    const double dKappa = FisherValues(model, !bLines, false).m_dKappa;

    MatrixDataArray copy(*model.data());
    model.rotateDataToMeanPole(oMean, true, &copy);
    QCOMPARE(mean(), oMean);
    QVERIFY(!model.isRotated());
    model.rotateDataToMeanPole(oMean, true, nullptr);
    QVERIFY(std::abs(mean().x() - (bLines ? 90.0 : 0.0)) < 1e-9);
    for (int i = 0; i < model.numberOfPoints(); ++i)
        QVERIFY(anglesApart(!bLines, copy.point(i), model.rotatedData(i)) < 1e-10);
    // Directions scatter as before.
    QVERIFY(std::abs(FisherValues(model, !bLines, false).m_dKappa / dKappa - 1.0) < 1e-9);
}

void TestOrientationModel::sectionOfARotatedCopy()
{
    Records records;
    addSet(records, 60, 60.0, 80.0, 9.0, 5);
    addSet(records, 60, 20.0, 80.0, 9.0, 6);
    Chart chart(records);
    QRelationshipItemModel& model = chart.m_oModel;
    model.updateOrientationResults();
    MatrixDataArray copy(*model.data());
    model.rotateDataToMeanPole(model.meanResultantPole(), true, &copy);
    model.calculateSuggestedSectionOrientation(true, false, &copy);
    const PlaneOrientation oSection = model.orientationStatistics(true, false).m_oSectionPlane;
    QVERIFY(anglesApart(true, model.suggestedSectionPlane(), {oSection.m_dDip, oSection.m_dDipAzimuth}) < 1e-6);
    QCOMPARE(model.suggestedSectionDipDirection(), g_oUndefined);
    model.setEmptySelectionTakesAll(false);
    model.setPartSelection(true);
    model.updateOrientationResults();
    QCOMPARE(model.suggestedSectionPlane(), g_oUndefined);
}

void TestOrientationModel::weightsAddUpToTheRecords()
{
    Records records;
    addSet(records, 40, 10.0, 30.0, 4.0, 1);
    addSet(records, 40, 80.0, 120.0, 4.0, 2);
    records.m_vdAngles.push_back(dNaN);
    records.m_vdAzimuths.push_back(5.0);
    Chart chart(records);
    QRelationshipItemModel& model = chart.m_oModel;
    QCOMPARE(model.biasCorrection(3), 1.0);
    QVERIFY(model.biasWeights().empty());

    const quint64 iRevision = model.revision();
    model.setScanline(90.0, 0.0, 85.0);
    QVERIFY(model.revision() > iRevision);
    QVERIFY(model.appliedWeights().empty());
    model.setBiasCorrectionOn(true);
    double dTotal = 0.0;
    model.totalBiasWeight(dTotal);
    double dSum = 0.0;
    for (int i = 0; i < 80; ++i) {
        dSum += model.biasCorrection(i);
        QVERIFY(std::abs(model.biasCorrection(i) - model.biasCorrection(i, 80, dTotal)) < 1e-12);
    }
    QVERIFY(std::abs(dSum - 80.0) < 1e-9);
    QCOMPARE(model.biasCorrection(80), dMissing);
    // A vertical well misses the steep set.
    QVERIFY(model.biasCorrection(60) > 3.0 * model.biasCorrection(20));
    const FisherStatistics oWeighed = model.orientationStatistics(true, false).m_oFisher;
    QVERIFY(anglesApart(true, {oWeighed.m_oMeanPlane.m_dDip, oWeighed.m_oMeanPlane.m_dDipAzimuth}, {80.0, 120.0}) <
            20.0);

    // The well stays where it was when the beds are turned back.
    const std::vector<double> vdWeights(model.biasWeights().begin(), model.biasWeights().end());
    model.rotateDataAboutRotationAxis(nullptr, {0.0, 20.0}, 50.0, true);
    QVERIFY(isSame({model.biasWeights().begin(), model.biasWeights().end()}, vdWeights));
    model.setBiasCorrectionOn(false);
    QVERIFY(model.orientationStatistics(true, false).m_oSums.m_dEffectiveCount == 80.0);
}

void TestOrientationModel::clustersOfAxes()
{
    Records records;
    addSet(records, 30, 20.0, 300.0, 5.0, 1);
    addSet(records, 50, 88.0, 90.0, 4.0, 2); // dips both ways: on both sides of the rim
    Chart chart(records);
    QRelationshipItemModel& model = chart.m_oModel;
    QVERIFY(model.buildClusters_KML_ForStereoProjection(QStringLiteral("Sets"), 2));
    QCOMPARE(model.clusterAttributeName(), QStringLiteral("Sets"));
    for (int i = 0; i < 80; ++i)
        QCOMPARE(model.clusterID(i), i < 30 ? 1 : 0); // the largest comes first
    const MatrixDataArray& centroids = *model.clusterCentroids();
    QVERIFY(anglesApart(true, {centroids.cell(0, 0), centroids.cell(0, 1)}, {88.0, 90.0}) < 3.0);
    QVERIFY(anglesApart(true, {centroids.cell(1, 0), centroids.cell(1, 1)}, {20.0, 300.0}) < 3.0);

    double dK, dC, dLnS1S2, dLnS2S3;
    model.calculateWoodcockParameterForOneSubSet(1, dK, dC, dLnS1S2, dLnS2S3, true);
    std::vector<int> viFirstSet(30);
    std::iota(viFirstSet.begin(), viFirstSet.end(), 0);
    model.setSelectedRecords(viFirstSet);
    const FisherValues values(model, true, true);
    QCOMPARE(dK, values.m_dK);
    QCOMPARE(dC, values.m_dC);
    model.calculateWoodcockParameterForOneSubSet(2, dK, dC, dLnS1S2, dLnS2S3, true);
    QCOMPARE(dK, dMissing);

    model.setPartSelection(true);
    QVERIFY(model.buildClusters_KML_ForStereoProjection(QStringLiteral("Part"), 2));
    QCOMPARE(model.clusterID(79), -1);
    QCOMPARE(model.clusterSizes()[0] + model.clusterSizes()[1], std::size_t{30});
}

QTEST_GUILESS_MAIN(TestOrientationModel)
#include "tst_orientationmodel.moc"
