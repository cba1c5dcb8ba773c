#include "AxialClusters.h"
#include "KMdata.h"
#include "KMeansClusters.h"
#include "KMfilterCenters.h"
#include "KMlocalLloyds.h"
#include "KMterm.h"
#include "MissingValue.h"
#include "OrientationMatrix.h"
#include "PrincipalAxes.h"
#include "ReferenceData.h"
#include "Rotation.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <set>

namespace {

const KMterm g_oTerm(100.0, 0.0, 0.0, 0.0, 0.1, 0.1, 3, 0.5, 10, 0.95);

/// Points in blobs of uneven size, some of them repeated.
void fill(KMdata& oData, unsigned iSeed)
{
    std::mt19937 oRandom(iSeed);
    for (int i = 0; i < oData.pointCount(); ++i) {
        for (int d = 0; d < oData.dim(); ++d) {
            const double dBlob = double((i % 7) * ((d + 3) * 5 % 11));
            oData[i][d] = dBlob + double(oRandom() % 1000) / 250.0;
        }
    }
}

struct Nearest
{
    std::vector<int> m_viClusters;
    std::vector<double> m_vdSquares;
    double m_dTotal = 0.0;
};

Nearest assignByHand(const KMdata& oData, const KMfilterCenters& oCenters)
{
    Nearest oResult;
    for (int i = 0; i < oData.pointCount(); ++i) {
        double dBest = std::numeric_limits<double>::infinity();
        int iBest = -1;
        for (int k = 0; k < oCenters.centerCount(); ++k) {
            double dSquare = 0.0;
            for (int d = 0; d < oData.dim(); ++d) {
                dSquare += (oData[i][d] - oCenters[k][d]) * (oData[i][d] - oCenters[k][d]);
            }
            if (dSquare < dBest) {
                dBest = dSquare;
                iBest = k;
            }
        }
        oResult.m_viClusters.push_back(iBest);
        oResult.m_vdSquares.push_back(dBest);
        oResult.m_dTotal += dBest;
    }
    return oResult;
}

/// Least distortion of Lloyd iterations from random points, each run to its end.
double bestOfRandomStarts(const std::vector<std::vector<double>>& vvdPoints, int k, int iStarts)
{
    std::mt19937 oRandom(9);
    const int iDim = int(vvdPoints[0].size());
    KMdata oData(iDim, int(vvdPoints.size()));
    for (int i = 0; i < oData.pointCount(); ++i) {
        std::copy(vvdPoints[size_t(i)].begin(), vvdPoints[size_t(i)].end(), oData[i]);
    }
    oData.buildKcTree();
    KMfilterCenters oCenters(k, oData);
    double dBest = std::numeric_limits<double>::infinity();
    for (int iStart = 0; iStart < iStarts; ++iStart) {
        for (int i = 0; i < k; ++i) {
            std::copy_n(oData[int(oRandom() % vvdPoints.size())], iDim, oCenters[i]);
        }
        for (int iStage = 0; iStage < 100; ++iStage) {
            dBest = std::min(dBest, oCenters.computeDistortion());
            oCenters.moveToCentroids();
        }
    }
    return dBest;
}

} // namespace

class tst_KMeans : public QObject
{
    Q_OBJECT
private slots:
    void filterEqualsExhaustiveSearch_data();
    void filterEqualsExhaustiveSearch();
    void reachesTheReferenceOptimum_data();
    void reachesTheReferenceOptimum();
    void resultIsALocalOptimum();
    void farFromTheOrigin();
    void clipsToDistinctPoints();
    void emptyClusterIsFilled();
    void pointsThatAreNoNumbers();
    void clustersOfColumns_data();
    void clustersOfColumns();
    void clustersOfAxes();
    void degenerateInput();
};

void tst_KMeans::filterEqualsExhaustiveSearch_data()
{
    QTest::addColumn<int>("dim");
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("k");
    QTest::newRow("line") << 1 << 500 << 5;
    QTest::newRow("plane") << 2 << 3000 << 12;
    QTest::newRow("space") << 3 << 5000 << 8;
    QTest::newRow("five dimensions") << 5 << 2000 << 40;
    QTest::newRow("one centre") << 2 << 100 << 1;
    QTest::newRow("fewer than a leaf") << 2 << 7 << 3;
}

void tst_KMeans::filterEqualsExhaustiveSearch()
{
    QFETCH(int, dim);
    QFETCH(int, points);
    QFETCH(int, k);
    KMdata oData(dim, points);
    fill(oData, 7);
    oData.buildKcTree();
    KMfilterCenters oCenters(k, oData);
    QCOMPARE(oCenters.centerCount(), k);
    for (int iStage = 0; iStage < 4; ++iStage) {
        const Nearest oExpected = assignByHand(oData, oCenters);
        GK_COMPARE_CLOSE(oCenters.computeDistortion(), oExpected.m_dTotal, 1e-12);
        std::vector<int> viClusters(static_cast<size_t>(points));
        std::vector<double> vdSquares(static_cast<size_t>(points));
        oCenters.getAssignments(viClusters.data(), vdSquares.data());
        for (size_t i = 0; i < viClusters.size(); ++i) {
            // A point midway between two centres may go to either.
            QVERIFY(viClusters[i] == oExpected.m_viClusters[i] ||
                    gkTest::isClose(vdSquares[i], oExpected.m_vdSquares[i], 1e-12));
        }
        oCenters.moveToCentroids();
    }
}

void tst_KMeans::reachesTheReferenceOptimum_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("clusters_a") << "clusters_a";
    QTest::newRow("rock") << "rock";
}

void tst_KMeans::reachesTheReferenceOptimum()
{
    GK_REQUIRE_REFERENCE();
    QFETCH(QString, file);
    const auto columns = gkTest::referenceColumns(file);
    const QJsonObject expected = gkTest::referenceValues(file)["k_means"].toObject();
    QVERIFY(!expected.isEmpty());
    for (const QString& sColumns : expected.keys()) {
        std::vector<std::vector<double>> vvdPoints;
        const QStringList lNames = sColumns.split(' ');
        if (!std::all_of(lNames.begin(), lNames.end(), [&](const QString& sName) { return columns.contains(sName); })) {
            continue; // made of the columns by a projection that is not tested here
        }
        for (size_t i = 0; i < columns[lNames[0]].size(); ++i) {
            std::vector<double> vdPoint;
            for (const QString& sName : lNames) {
                vdPoint.push_back(columns[sName][i]);
            }
            if (std::none_of(vdPoint.begin(), vdPoint.end(), gkBase::isMissing)) {
                vvdPoints.push_back(vdPoint);
            }
        }
        KMdata oData(int(vvdPoints[0].size()), int(vvdPoints.size()));
        for (int i = 0; i < oData.pointCount(); ++i) {
            std::copy(vvdPoints[size_t(i)].begin(), vvdPoints[size_t(i)].end(), oData[i]);
        }
        oData.buildKcTree();
        for (const auto& run : expected[sColumns].toArray()) {
            KMlocalLloyds oLloyds(KMfilterCenters(run.toObject()["k"].toInt(), oData, 1.0), g_oTerm);
            KMfilterCenters oBest = oLloyds.execute();
            QVERIFY(oLloyds.totalStages() <= 100);
            const double dOptimum = run.toObject()["optimum_total_distortion"].toDouble();
            const double dReached = oBest.computeDistortion();
            QVERIFY(dReached > dOptimum * (1.0 - 1e-9));
            QVERIFY2(dReached < dOptimum * 1.01, qPrintable(QString("%1 k=%2: %3 %")
                                                                .arg(sColumns)
                                                                .arg(oBest.centerCount())
                                                                .arg(100.0 * (dReached / dOptimum - 1.0))));
        }
    }
}

void tst_KMeans::resultIsALocalOptimum()
{
    KMdata oData(2, 4000);
    fill(oData, 3);
    oData.buildKcTree();
    KMfilterCenters oBest = KMlocalLloyds(KMfilterCenters(9, oData, 1.0), g_oTerm).execute();
    const KMfilterCenters oAgain = KMlocalLloyds(KMfilterCenters(9, oData, 1.0), g_oTerm).execute();
    QVERIFY(std::equal(oBest[0], oBest[9], oAgain[0])); // the same on every run
    std::vector<int> viClusters(4000);
    oBest.getAssignments(viClusters.data(), nullptr);
    for (int k = 0; k < 9; ++k) {
        double dX = 0.0;
        double dY = 0.0;
        int iCount = 0;
        for (int i = 0; i < 4000; ++i) {
            if (viClusters[size_t(i)] == k) {
                dX += oData[i][0];
                dY += oData[i][1];
                ++iCount;
            }
        }
        QCOMPARE(oBest.clusterSize(k), iCount);
        GK_COMPARE_CLOSE(oBest[k][0], dX / iCount, 1e-10); // each centre is the centroid of its points
        GK_COMPARE_CLOSE(oBest[k][1], dY / iCount, 1e-10);
    }
}

void tst_KMeans::farFromTheOrigin()
{
    // Map coordinates: the squares of the sums would lose every digit of the distortion.
    KMdata oNear(2, 2000);
    fill(oNear, 11);
    KMdata oFar(2, 2000);
    for (int i = 0; i < 2000; ++i) {
        oFar[i][0] = oNear[i][0] + 67108864.0;
        oFar[i][1] = oNear[i][1] - 536870912.0;
    }
    oNear.buildKcTree();
    oFar.buildKcTree();
    KMfilterCenters oNearBest = KMlocalLloyds(KMfilterCenters(5, oNear, 1.0), g_oTerm).execute();
    KMfilterCenters oFarBest = KMlocalLloyds(KMfilterCenters(5, oFar, 1.0), g_oTerm).execute();
    GK_COMPARE_CLOSE(oFarBest.distortion(), oNearBest.distortion(), 1e-6);
}

void tst_KMeans::clipsToDistinctPoints()
{
    const int points = 400;
    const int places = 3;
    KMdata oData(2, points);
    for (int i = 0; i < points; ++i) {
        oData[i][0] = double(i % places) * 3.0;
        oData[i][1] = 5.0;
    }
    oData.buildKcTree();
    KMfilterCenters oBest = KMlocalLloyds(KMfilterCenters(10, oData, 1.0), g_oTerm).execute();
    QCOMPARE(oBest.centerCount(), places);
    QCOMPARE(oBest.computeDistortion(), 0.0);
    std::vector<int> viClusters(static_cast<size_t>(points));
    oBest.getAssignments(viClusters.data(), nullptr);
    QCOMPARE(int(std::set<int>(viClusters.begin(), viClusters.end()).size()), places);
}

void tst_KMeans::emptyClusterIsFilled()
{
    KMdata oData(1, 30);
    for (int i = 0; i < 30; ++i) {
        oData[i][0] = i % 3 * 10.0 + i * 0.01;
    }
    oData.buildKcTree();
    KMfilterCenters oCenters(3, oData);
    oCenters[0][0] = 5.0;
    oCenters[1][0] = 1e6; // far from every point
    oCenters[2][0] = -1e6;
    oCenters.computeDistortion();
    QCOMPARE(oCenters.clusterSize(1), 0);
    oCenters.moveToCentroids();
    oCenters.computeDistortion();
    for (int k = 0; k < 3; ++k) {
        QVERIFY(oCenters.clusterSize(k) > 0);
    }
}

void tst_KMeans::pointsThatAreNoNumbers()
{
    KMdata oData(2, 200);
    fill(oData, 2);
    oData[17][1] = gkBase::g_dEmptyCell;
    oData[18][0] = std::numeric_limits<double>::infinity();
    oData.buildKcTree();
    const KMfilterCenters oBest = KMlocalLloyds(KMfilterCenters(4, oData, 1.0), g_oTerm).execute();
    QVERIFY(std::isfinite(oBest.distortion()));
    std::vector<int> viClusters(200);
    std::vector<double> vdSquares(200);
    oBest.getAssignments(viClusters.data(), vdSquares.data());
    QCOMPARE(std::count(viClusters.begin(), viClusters.end(), -1), 2);
    QCOMPARE(viClusters[17], -1);
    QCOMPARE(vdSquares[18], gkBase::g_dMissingValue);
}

void tst_KMeans::clustersOfColumns_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("two dimensions") << "clusters_a" << QStringList{"x", "y"};
    QTest::newRow("third with missing values") << "clusters_a" << QStringList{"x", "y", "third"};
    QTest::newRow("rock") << "rock" << QStringList{"area", "peri", "perm"};
    QTest::newRow("uneven axes") << "fold_well_a" << QStringList{"depth", "gamma_ray"};
}

/// Against the plain definition: the best of 50 Lloyd iterations from random records.
void tst_KMeans::clustersOfColumns()
{
    GK_REQUIRE_REFERENCE();
    QFETCH(QString, file);
    QFETCH(QStringList, names);
    const auto columns = gkTest::referenceColumns(file);
    std::vector<std::span<const double>> vColumns;
    for (const QString& sName : names) {
        vColumns.push_back(columns.find(sName).value());
    }
    const size_t iRecords = vColumns[0].size();
    std::vector<unsigned char> vbMask(iRecords, 1);
    vbMask[0] = 0;
    std::vector<std::vector<double>> vvdPoints;
    for (size_t i = 1; i < iRecords; ++i) {
        std::vector<double> vdPoint;
        for (const auto& vdColumn : vColumns) {
            vdPoint.push_back(vdColumn[i]);
        }
        if (std::none_of(vdPoint.begin(), vdPoint.end(), gkBase::isMissing)) {
            vvdPoints.push_back(vdPoint);
        }
    }
    for (int k = 1; k <= 8; ++k) {
        const gkBase::KMeansClusters oFound = gkBase::kMeansClusters(vColumns, k, vbMask);
        QCOMPARE(oFound.m_iK, k);
        QCOMPARE(oFound.m_vdCentroids.size(), size_t(k) * vColumns.size());
        QCOMPARE(oFound.m_viClusterOfPoint[0], -1);
        double dTotal = 0.0;
        std::vector<size_t> viSizes(size_t(k), 0);
        for (size_t i = 0; i < iRecords; ++i) {
            const int iCluster = oFound.m_viClusterOfPoint[i];
            for (size_t d = 0; iCluster >= 0 && d < vColumns.size(); ++d) {
                dTotal += std::pow(vColumns[d][i] - oFound.m_vdCentroids[size_t(iCluster) * vColumns.size() + d], 2);
            }
            viSizes[size_t(qMax(iCluster, 0))] += iCluster >= 0;
        }
        QCOMPARE(oFound.m_viSizes, viSizes);
        QCOMPARE(std::accumulate(viSizes.begin(), viSizes.end(), size_t(0)), vvdPoints.size());
        GK_COMPARE_CLOSE(oFound.m_dDistortion, dTotal, 1e-10);
        QVERIFY2(dTotal <= 1.01 * bestOfRandomStarts(vvdPoints, k, 50), qPrintable(QString::number(k)));
    }
    QCOMPARE(gkBase::kMeansClusters(vColumns, 0).m_iK, 0);
    QVERIFY(gkBase::kMeansClusters(vColumns, 2, std::vector<unsigned char>(iRecords, 0)).m_viClusterOfPoint.empty());
    QCOMPARE(gkBase::kMeansClusters({vColumns[0]}, 2).m_iK, 0);
}

/// The known sets are found, whichever end of an axis is written down and however the frame lies: also when a set
/// comes to lie on both sides of the rim.
void tst_KMeans::clustersOfAxes()
{
    GK_REQUIRE_REFERENCE();
    using namespace gkBase;
    auto columns = gkTest::referenceColumns("clusters_a");
    const std::vector<double> vdDips = columns["dip"];
    const std::vector<double> vdAzimuths = columns["dip_azimuth"];
    const std::vector<double> vdTrue = columns["true_cluster"];
    const KMeansClusters oFound = axialClusters(OrientationType::Planes, vdDips, vdAzimuths, 3);
    QVERIFY(std::is_sorted(oFound.m_viSizes.rbegin(), oFound.m_viSizes.rend()));
    size_t iAgreeing = 0;
    for (int iCluster = 0; iCluster < 3; ++iCluster) {
        std::array<size_t, 3> aiMembers{};
        for (size_t i = 0; i < vdTrue.size(); ++i) {
            aiMembers[size_t(vdTrue[i]) - 1] += oFound.m_viClusterOfPoint[i] == iCluster;
        }
        iAgreeing += *std::max_element(aiMembers.begin(), aiMembers.end());
    }
    QVERIFY(iAgreeing >= vdTrue.size() - 1);

    std::vector<double> vdTurnedDips(vdDips.size());
    std::vector<double> vdTurnedAzimuths(vdDips.size());
    for (const Rotation& oRotation : {Rotation({0.0, 130.0}, 65.0), Rotation({40.0, 222.0}, -100.0)}) {
        rotateOrientations(OrientationType::Planes, oRotation, vdDips, vdAzimuths, vdTurnedDips, vdTurnedAzimuths);
        for (size_t i = 0; i < vdDips.size(); i += 2) { // overturned: the other end of the pole
            vdTurnedDips[i] = 180.0 - vdTurnedDips[i];
            vdTurnedAzimuths[i] += 180.0;
        }
        const KMeansClusters oTurned = axialClusters(OrientationType::Planes, vdTurnedDips, vdTurnedAzimuths, 3);
        QCOMPARE(oTurned.m_viClusterOfPoint, oFound.m_viClusterOfPoint);
        GK_COMPARE_CLOSE(oTurned.m_dDistortion, oFound.m_dDistortion, 1e-9);
        for (int iCluster = 0; iCluster < 3; ++iCluster) {
            const PlaneOrientation oExpected =
                oRotation.apply(PlaneOrientation{oFound.centroid(iCluster, 0), oFound.centroid(iCluster, 1)});
            QVERIFY(angleBetweenAxes(poleVector(oExpected.m_dDip, oExpected.m_dDipAzimuth),
                                     poleVector(oTurned.centroid(iCluster, 0), oTurned.centroid(iCluster, 1))) < 1e-6);
        }
    }

    // One cluster: the squared sines to the mean matrix follow from the eigenvalues alone.
    const auto adValues = principalAxes(orientationSums(OrientationType::Lines, vdDips, vdAzimuths)).m_adValues;
    const double dRecords = double(vdDips.size());
    GK_COMPARE_CLOSE(
        axialClusters(OrientationType::Lines, vdDips, vdAzimuths, 1).m_dDistortion,
        0.5 * (dRecords - std::inner_product(adValues.begin(), adValues.end(), adValues.begin(), 0.0) / dRecords),
        1e-10);
}

void tst_KMeans::degenerateInput()
{
    for (const auto& [iDim, iPoints, k] : {std::array{3, 0, 2}, std::array{0, 5, 2}, std::array{2, 5, 0}}) {
        KMdata oData(iDim, iPoints);
        oData.buildKcTree();
        KMfilterCenters oBest = KMlocalLloyds(KMfilterCenters(k, oData, 1.0), g_oTerm).execute();
        QCOMPARE(oBest.centerCount(), 0);
        QCOMPARE(oBest.computeDistortion(), 0.0);
    }
    KMdata oNoTree(2, 5);
    KMfilterCenters oCenters(2, oNoTree);
    QCOMPARE(oCenters.centerCount(), 0);
    std::vector<int> viClusters(5, 7);
    oCenters.getAssignments(viClusters.data(), nullptr);
    QCOMPARE(viClusters, std::vector<int>(5, -1));
}

QTEST_APPLESS_MAIN(tst_KMeans)
#include "tst_kmeans.moc"
