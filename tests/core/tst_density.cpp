#include "DensityContours.h"
#include "MissingValue.h"
#include "ReferenceData.h"
#include "TriangleContour.h"

#include <QTest>

#include <cmath>
#include <numeric>
#include <random>

using namespace gkBase;

using Doubles = std::vector<double>;

namespace {

struct Planes
{
    Doubles m_vdDip;
    Doubles m_vdAzimuth;
};

Planes randomPlanes(int iCount)
{
    std::mt19937 oRandom(5);
    std::uniform_real_distribution<double> oShare(0.0, 1.0);
    Planes oPlanes;
    for (int i = 0; i < iCount; ++i) {
        oPlanes.m_vdDip.push_back(i % 10 == 0 ? 90.0 : 90.0 * oShare(oRandom));
        oPlanes.m_vdAzimuth.push_back(i % 7 == 0 ? 90.0 * (i % 4) : 360.0 * oShare(oRandom));
    }
    return oPlanes;
}

double sum(const DensityGrid& oGrid)
{
    return std::accumulate(oGrid.m_vdCounts.begin(), oGrid.m_vdCounts.end(), 0.0);
}

double twiceArea(const NetPolyline& vOutline)
{
    double dTwice = 0.0;
    for (std::size_t i = 0; i < vOutline.size(); ++i) {
        const NetPoint& oNext = vOutline[(i + 1) % vOutline.size()];
        dTwice += vOutline[i].m_dX * oNext.m_dY - oNext.m_dX * vOutline[i].m_dY;
    }
    return dTwice;
}

/// Area of a band, added up over the triangles about the cell centres.
double bandArea(const DensityGrid& oGrid, double dLower, double dUpper)
{
    double dTwice = 0.0;
    for (int iRow = 0; iRow + 1 < oGrid.m_iRows; ++iRow) {
        for (int iColumn = 0; iColumn + 1 < oGrid.m_iColumns; ++iColumn) {
            TriangleCorner aCorners[4];
            TriangleCorner oCentre{0.0, 0.0, 0.0};
            for (int i = 0; i < 4; ++i) {
                const int iX = iColumn + (i == 1 || i == 2 ? 1 : 0);
                const int iY = iRow + (i < 2 ? 1 : 0);
                aCorners[i] = {oGrid.x(iX), oGrid.y(iY), oGrid.count(iX, iY) * oGrid.percentFactor()};
                oCentre.m_dX += 0.25 * aCorners[i].m_dX;
                oCentre.m_dY += 0.25 * aCorners[i].m_dY;
                oCentre.m_dValue += 0.25 * aCorners[i].m_dValue;
            }
            for (int i = 0; i < 4; ++i) {
                ContourPoint aPoints[6];
                const int iCount = triangleBand({aCorners[i], aCorners[(i + 1) % 4], oCentre}, dLower, dUpper, aPoints);
                NetPolyline vPolygon;
                for (int k = 0; k < iCount; ++k) {
                    vPolygon.push_back({aPoints[k].m_dX, aPoints[k].m_dY});
                }
                dTwice += twiceArea(vPolygon);
            }
        }
    }
    return 0.5 * dTwice;
}

DensityGrid randomGrid(int iRecords, int iColumns, int iRows)
{
    const Planes oPlanes = randomPlanes(iRecords);
    return densityGrid(NetProjection(), OrientationType::Planes, oPlanes.m_vdDip, oPlanes.m_vdAzimuth, iColumns, iRows);
}

} // namespace

class tst_Density : public QObject
{
    Q_OBJECT
private slots:
    void everyRecordCountsFourTimes_data();
    void everyRecordCountsFourTimes();
    void edgeRule();
    void masksAndWeights();
    void referenceCounts_data();
    void referenceCounts();
    void levels_data();
    void levels();
    void bandsTileTheSquare_data();
    void bandsTileTheSquare();
    void isolinesRunOnTheNet();
    void labelsKeepTheirDistance();
};

void tst_Density::everyRecordCountsFourTimes_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::newRow("equal area") << 0 << 20 << 20;
    QTest::newRow("equal angle, nodes on the axes") << 1 << 21 << 11;
    QTest::newRow("one cell") << 0 << 2 << 2;
    QTest::newRow("fine") << 1 << 200 << 7;
}

void tst_Density::everyRecordCountsFourTimes()
{
    QFETCH(int, layout);
    QFETCH(int, columns);
    QFETCH(int, rows);
    const NetProjection oProjection(static_cast<NetLayout>(layout));
    const Planes oPlanes = randomPlanes(500);
    for (const OrientationType eRecords : {OrientationType::Planes, OrientationType::Lines}) {
        DensityGrid oGrid = countOnNet(oProjection, eRecords, oPlanes.m_vdDip, oPlanes.m_vdAzimuth, columns, rows);
        QCOMPARE(oGrid.m_iRecords, std::size_t(500));
        QCOMPARE(oGrid.m_iOutside, std::size_t(0));
        QCOMPARE(sum(oGrid), 2000.0);
        // Both nodes of a rim pair gain the count of the other.
        double dRim = 0.0;
        for (int iRow = 0; iRow < rows; ++iRow) {
            for (int iColumn = 0; iColumn < columns; ++iColumn) {
                const bool bCentre = 2 * iRow == rows - 1 && 2 * iColumn == columns - 1;
                dRim += oGrid.isOnRim(iColumn, iRow) && !bCentre ? oGrid.count(iColumn, iRow) : 0.0;
            }
        }
        applyEdgeRule(oGrid);
        QCOMPARE(sum(oGrid), 2000.0 + dRim);
    }
    // All around the rim, and on its four corners of the compass.
    Doubles vdAzimuth(36);
    std::generate(vdAzimuth.begin(), vdAzimuth.end(), [i = 0]() mutable { return 10.0 * i++; });
    const Doubles vdUpright(36, 90.0);
    QCOMPARE(sum(countOnNet(oProjection, OrientationType::Planes, vdUpright, vdAzimuth, columns, rows)), 144.0);
}

void tst_Density::edgeRule()
{
    DensityGrid oGrid = countOnNet(NetProjection(), OrientationType::Lines, {}, {}, 11, 11);
    QVERIFY(oGrid.isOnRim(0, 5) && oGrid.isOnRim(10, 5) && !oGrid.isOnRim(5, 5) && !oGrid.isOnRim(0, 0));
    oGrid.m_vdCounts[oGrid.index(0, 5)] = 3.0;
    oGrid.m_vdCounts[oGrid.index(10, 5)] = 1.0;
    oGrid.m_vdCounts[oGrid.index(5, 5)] = 7.0;
    applyEdgeRule(oGrid);
    QCOMPARE(oGrid.count(0, 5), 4.0);
    QCOMPARE(oGrid.count(10, 5), 4.0);
    QCOMPARE(sum(oGrid), 15.0);
    QVERIFY(oGrid.percentages().empty()); // per cent of no records
    QVERIFY(countOnNet(NetProjection(), OrientationType::Lines, {}, {}, 1, 11).isEmpty());
}

void tst_Density::masksAndWeights()
{
    const Doubles vdDip{10, 20, g_dEmptyCell, 40, 50, 60};
    const Doubles vdAzimuth{0, 70, 140, g_dMissingValue, 210, 280};
    const Doubles vdWeights{1.5, 2.5, 1, 1, -1};
    const std::vector<unsigned char> vbMask{1, 0, 1, 1, 1, 1};
    const NetProjection oProjection;
    const auto count = [&](std::span<const unsigned char> vbTaken, std::span<const double> vdGiven) {
        return countOnNet(oProjection, OrientationType::Planes, vdDip, vdAzimuth, 15, 15, vbTaken, vdGiven);
    };
    const DensityGrid oAll = count({}, {});
    QCOMPARE(oAll.m_iRecords, std::size_t(4));
    QCOMPARE(oAll.m_iMissing, std::size_t(2));
    const DensityGrid oMasked = count(vbMask, {});
    QCOMPARE(oMasked.m_iRecords, std::size_t(3));
    QCOMPARE(sum(oMasked), 12.0);
    const DensityGrid oWeighted = count({}, vdWeights); // a weight below 0, and one that is not there
    QCOMPARE(oWeighted.m_iRecords, std::size_t(2));
    QCOMPARE(sum(oWeighted), 4.0 * 4.0);
    const Doubles vdPercent = oWeighted.percentages();
    QCOMPARE(std::accumulate(vdPercent.begin(), vdPercent.end(), 0.0), 400.0);
    // A gentle dip is a steep pole, which lies outside a tangent net but is one of N.
    const DensityGrid oTangent =
        countOnNet(NetProjection(NetLayout::Tangent), OrientationType::Planes, vdDip, vdAzimuth, 15, 15);
    QCOMPARE(oTangent.m_iOutside, std::size_t(2));
    QCOMPARE(oTangent.m_iRecords, std::size_t(4));
}

void tst_Density::referenceCounts_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("shapes_a") << "shapes_a";
    QTest::newRow("published_orient_a") << "published_orient_a";
}

void tst_Density::referenceCounts()
{
    GK_REQUIRE_REFERENCE();
    QFETCH(QString, file);
    const QJsonObject sets = gkTest::referenceValues(file)["sets"].toObject();
    int iGrids = 0;
    for (const QString& sSet : sets.keys()) {
        auto columns = gkTest::referenceColumns(file, "set", sSet);
        for (const bool bPlanes : {true, false}) {
            const QJsonObject values = sets[sSet].toObject()[bPlanes ? "as_planes" : "as_lines"].toObject();
            for (const auto& value : values["density"].toArray()) {
                const QJsonObject density = value.toObject();
                const NetProjection oProjection(density["net"] == "equal_area" ? NetLayout::EqualArea
                                                                               : NetLayout::EqualAngle);
                DensityGrid oGrid =
                    countOnNet(oProjection, bPlanes ? OrientationType::Planes : OrientationType::Lines,
                               columns["angle"], columns["azimuth"], density["nx"].toInt(), density["ny"].toInt());
                for (const char* szCounts : {"counts_before_edge_rule", "counts_after_edge_rule"}) {
                    Doubles vdExpected;
                    for (const auto& row : density[szCounts].toArray()) {
                        const Doubles vdRow = gkTest::toDoubles(row.toArray());
                        vdExpected.insert(vdExpected.end(), vdRow.begin(), vdRow.end());
                    }
                    QVERIFY2(oGrid.m_vdCounts == vdExpected, qPrintable(sSet));
                    if (szCounts == QByteArrayView("counts_before_edge_rule")) {
                        applyEdgeRule(oGrid);
                    }
                }
                const Doubles vdLevels = contourLevels(oGrid);
                GK_COMPARE_CLOSE(vdLevels.front(), density["contour_min_percent"].toDouble(), 1e-9);
                GK_COMPARE_CLOSE(vdLevels.back(), density["contour_max_percent"].toDouble(), 1e-9);
                ++iGrids;
            }
        }
    }
    QVERIFY(iGrids > 5);
}

void tst_Density::levels_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("interval");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("last");
    QTest::newRow("automatic") << 0.0 << 55.0 << g_dMissingValue << 20 << 55.0;
    QTest::newRow("explicit") << 0.0 << 27.0 << 5.0 << 6 << 25.0;
    QTest::newRow("ends at the maximum") << 0.1 << 0.7 << 0.1 << 7 << 0.7;
    QTest::newRow("wider than the range") << 3.0 << 4.0 << 5.0 << 1 << 3.0;
    QTest::newRow("equal") << 5.0 << 5.0 << g_dMissingValue << 0 << 0.0;
    QTest::newRow("no interval") << 0.0 << 5.0 << 0.0 << 0 << 0.0;
    QTest::newRow("negative") << 0.0 << 5.0 << -1.0 << 0 << 0.0;
    QTest::newRow("too many") << 0.0 << 100.0 << 0.1 << 0 << 0.0;
    QTest::newRow("no number") << 0.0 << 5.0 << g_dEmptyCell << 0 << 0.0;
}

void tst_Density::levels()
{
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, interval);
    QFETCH(double, last);
    const Doubles vdLevels = contourLevels(minimum, maximum, interval);
    QTEST(int(vdLevels.size()), "count");
    QCOMPARE(vdLevels.empty() ? 0.0 : vdLevels.back(), last);
    QVERIFY(std::is_sorted(vdLevels.begin(), vdLevels.end()));
    QVERIFY(contourLevels(DensityGrid()).empty() && densityContours(DensityGrid(), vdLevels).empty());
}

void tst_Density::bandsTileTheSquare_data()
{
    QTest::addColumn<int>("records");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::addColumn<double>("interval");
    QTest::newRow("one record") << 1 << 10 << 10 << g_dMissingValue;
    QTest::newRow("levels at node values") << 50 << 15 << 9 << 2.0;
    QTest::newRow("many") << 3000 << 40 << 40 << g_dMissingValue;
    QTest::newRow("one cell") << 5 << 2 << 2 << g_dMissingValue;
}

void tst_Density::bandsTileTheSquare()
{
    QFETCH(int, records);
    QFETCH(int, columns);
    QFETCH(int, rows);
    QFETCH(double, interval);
    DensityGrid oGrid = randomGrid(records, columns, rows);
    if (oGrid.m_iColumns == 2) { // every node has the same count
        oGrid.m_vdCounts = {1.0, 2.0, 0.0, 5.0};
    }
    const Doubles vdLevels = contourLevels(oGrid, interval);
    const std::vector<DensityContour> vContours = densityContours(oGrid, vdLevels);
    QCOMPARE(vContours.size(), vdLevels.size());
    Doubles vdAreas;
    for (const DensityContour& oContour : vContours) {
        double dTwice = 0.0;
        for (const NetPolyline& vOutline : oContour.m_vOutlines) {
            dTwice += twiceArea(vOutline);
        }
        vdAreas.push_back(0.5 * dTwice);
    }
    QVERIFY(std::abs(vdAreas.front() - 4.0) < 1e-12);
    vdAreas.push_back(0.0);
    for (std::size_t i = 0; i < vdLevels.size(); ++i) {
        const double dUpper = i + 1 < vdLevels.size() ? vdLevels[i + 1] : 1e9;
        QVERIFY(std::abs(vdAreas[i] - vdAreas[i + 1] - bandArea(oGrid, vdLevels[i], dUpper)) < 1e-12);
    }
}

void tst_Density::isolinesRunOnTheNet()
{
    const DensityGrid oGrid = randomGrid(400, 25, 25);
    int iClosed = 0;
    for (const DensityContour& oContour : densityContours(oGrid, contourLevels(oGrid))) {
        for (const NetPolyline& vLine : oContour.m_vLines) {
            QVERIFY(std::all_of(vLine.begin(), vLine.end(), isOnNet));
            for (std::size_t i = 1; i < vLine.size(); ++i) { // within a triangle at a time
                const double dStep = std::hypot(vLine[i].m_dX - vLine[i - 1].m_dX, vLine[i].m_dY - vLine[i - 1].m_dY);
                QVERIFY(dStep > 0.0 && dStep < 2.0 / 24 + 1e-12);
            }
            iClosed += vLine.front().m_dX == vLine.back().m_dX && vLine.front().m_dY == vLine.back().m_dY ? 1 : 0;
        }
    }
    QVERIFY(iClosed > 10);
}

void tst_Density::labelsKeepTheirDistance()
{
    const DensityGrid oGrid = randomGrid(2000, 50, 50);
    const std::vector<DensityContour> vContours = densityContours(oGrid, contourLevels(oGrid));
    const double dDistance = 50.0 / 160.0;
    const std::vector<ContourLabel> vLabels = contourLabels(vContours, dDistance);
    QVERIFY(vLabels.size() > 10);
    const auto distance = [](const NetPoint& o, const NetPoint& p) {
        return std::hypot(o.m_dX - p.m_dX, o.m_dY - p.m_dY);
    };
    for (std::size_t i = 0; i < vLabels.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) {
            QVERIFY(distance(vLabels[i].m_oPoint, vLabels[k].m_oPoint) > dDistance);
        }
    }
    for (const DensityContour& oContour : vContours) { // nothing is left that could have had a label
        for (const NetPolyline& vLine : oContour.m_vLines) {
            const NetPoint oMiddle{0.5 * (vLine[0].m_dX + vLine[1].m_dX), 0.5 * (vLine[0].m_dY + vLine[1].m_dY)};
            QVERIFY(std::any_of(vLabels.begin(), vLabels.end(), [&](const ContourLabel& oLabel) {
                return distance(oLabel.m_oPoint, oMiddle) <= dDistance;
            }));
        }
    }
    QVERIFY(contourLabels(vContours, 0.0).empty());

    // What is refused keeps nothing away: a half without room leaves the other half as full of labels as it can be.
    const auto isEast = [](const ContourLabel& oLabel) { return oLabel.m_oPoint.m_dX > 0.0; };
    const std::vector<ContourLabel> vEast = contourLabels(vContours, dDistance, isEast);
    QVERIFY(std::all_of(vEast.begin(), vEast.end(), isEast));
    for (const ContourLabel& oLabel : vLabels) {
        QVERIFY(!isEast(oLabel) || std::any_of(vEast.begin(), vEast.end(), [&](const ContourLabel& oKept) {
            return distance(oKept.m_oPoint, oLabel.m_oPoint) <= dDistance;
        }));
    }
}

QTEST_APPLESS_MAIN(tst_Density)
#include "tst_density.moc"
