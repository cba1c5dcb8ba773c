// Shapes of depth tracks: curves, bars, labels of lines, and the record at a depth.

#include "TestDataSets.h"

#include <gkBase/DepthOrder.h>
#include <gkBase/DepthTrackGeometry.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/SeriesThinning.h>

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <numeric>
#include <random>

using namespace gkBase;

namespace {

constexpr double g_dNone = std::numeric_limits<double>::quiet_NaN();

std::vector<DepthTrackPiece> pieces(const std::vector<double>& vdValues, const std::vector<double>& vdDepths,
                                    const DepthTrackMap& map, int iRows)
{
    return depthTrackPieces(thinSeries(vdDepths, vdValues, map.m_oY.data0(), map.m_oY.data1(), iRows), vdValues,
                            vdDepths, map);
}

/// The lines through these values at the depths 0, 1, 2, … as their values; one pixel per unit.
QStringList lines(const std::vector<double>& vdValues, const std::vector<int>& viTableRows, double dFullTurn = 99999.0)
{
    std::vector<double> vdDepths(vdValues.size());
    std::iota(vdDepths.begin(), vdDepths.end(), 0.0);
    const std::unique_ptr<MatrixData> poValues(gkTest::attribute(QStringLiteral("a"), vdValues));
    const std::unique_ptr<MatrixData> poDepths(gkTest::attribute(QStringLiteral("Depth"), vdDepths));
    QRelationshipItemModel model;
    model.takeNewDataSet(-1, QRelationshipItemModel::DepthDisplay, poValues.get(), poDepths.get(), viTableRows);
    QStringList lLines;
    for (const DepthTrackPiece& piece :
         depthTrackLine(model, depthTrackMap({0, 400}, 0, 20, {401, 21}), 21, dFullTurn)) {
        QStringList lValues;
        for (const QPointF& oPoint : piece.m_oLine)
            lValues << QString::number(oPoint.x());
        lLines << lValues.join(QLatin1Char(' '));
    }
    return lLines;
}

} // namespace

class TestDepthTrackGeometry : public QObject
{
    Q_OBJECT
private slots:
    void gapsBreakTheLine();
    void recordsLeftOutLeaveNoGap();
    void directionsGoRoundNorth();
    void longLinesKeepTheirExtremes();
    void valuesFarOutsideStayDrawable();
    void barsEndAtTheirValues();
    void labels_data();
    void labels();
    void labelsThatLeadTheFieldStay();
    void recordAtDepth_data();
    void recordAtDepth();
};

void TestDepthTrackGeometry::gapsBreakTheLine()
{
    const std::vector<double> vdValues{1, 2, g_dNone, 3, 99999.0, 4, 5, 6};
    const std::vector<double> vdDepths{0, 1, 2, 3, 4, 5, 6, 7};
    const DepthTrackMap map = depthTrackMap({0, 10}, 0, 10, {101, 101});
    const std::vector<DepthTrackPiece> vPieces = pieces(vdValues, vdDepths, map, 101);
    QCOMPARE(vPieces.size(), std::size_t(3));
    QCOMPARE(vPieces[0].m_oLine, QPolygonF({{10, 0}, {20, 10}}));
    QCOMPARE(vPieces[1].m_oLine, QPolygonF({{30, 30}, {30, 30}})); // alone between gaps: a dot
    QCOMPARE(vPieces[2].m_oLine, QPolygonF({{40, 50}, {50, 60}, {60, 70}}));
    QCOMPARE(vPieces[2].m_dTop, 50.0);
    QCOMPARE(vPieces[2].m_dBottom, 70.0);
}

void TestDepthTrackGeometry::recordsLeftOutLeaveNoGap()
{
    const std::vector<double> vdValues{1, 2, 3, g_dNone, 5, 6, g_dNone, 8, 9, 10};
    QCOMPARE(lines(vdValues, {}), (QStringList{"1 2 3", "5 6", "8 9 10"}));
    QCOMPARE(lines(vdValues, {0, 2, 4, 6, 8}), (QStringList{"1 3 5", "9 9"})); // the missing one that takes part is
    QCOMPARE(lines(vdValues, {9, 5, 1, -1, 7}), QStringList{"2 6 8 10"});      // a table sorted the other way
}

void TestDepthTrackGeometry::directionsGoRoundNorth()
{
    const std::vector<double> vdAzimuths{340, 359, 1, 20, g_dNone, 350, 100, 280, 90};
    QCOMPARE(lines(vdAzimuths, {}, 360.0), (QStringList{"340 359", "1 20", "350 350", "100 280", "90 90"}));
    QCOMPARE(lines(vdAzimuths, {}), (QStringList{"340 359 1 20", "350 100 280 90"}));
    QCOMPARE(lines(vdAzimuths, {0, 2, 3}, 360.0), (QStringList{"340 340", "1 20"}));
}

void TestDepthTrackGeometry::longLinesKeepTheirExtremes()
{
    constexpr int n = 200000;
    constexpr int iRows = 500;
    std::mt19937 generator(3);
    std::normal_distribution<double> noise(50.0, 10.0);
    std::vector<double> vdValues(n);
    std::vector<double> vdDepths(n);
    for (int i = 0; i < n; ++i) {
        vdValues[static_cast<std::size_t>(i)] = noise(generator);
        vdDepths[static_cast<std::size_t>(i)] = i + 0.25; // never 99999.0
    }
    const DepthTrackMap map = depthTrackMap({0, 100}, 0, n - 1, {200, iRows});
    const std::vector<DepthTrackPiece> vPieces = pieces(vdValues, vdDepths, map, iRows);
    qsizetype iPoints = 0;
    double dLeft = 200.0;
    double dRight = 0.0;
    for (std::size_t i = 0; i < vPieces.size(); ++i) {
        iPoints += vPieces[i].m_oLine.size();
        for (const QPointF& oPoint : vPieces[i].m_oLine) {
            dLeft = std::min(dLeft, oPoint.x());
            dRight = std::max(dRight, oPoint.x());
            QVERIFY(oPoint.y() >= vPieces[i].m_dTop && oPoint.y() <= vPieces[i].m_dBottom);
        }
        if (i > 0)
            QCOMPARE(vPieces[i].m_oLine.first(), vPieces[i - 1].m_oLine.last());
    }
    QVERIFY(iPoints < 5 * iRows);
    const auto [least, greatest] = std::minmax_element(vdValues.begin(), vdValues.end());
    QCOMPARE(dLeft, map.m_oX.toPixel(*least));
    QCOMPARE(dRight, map.m_oX.toPixel(*greatest));
}

void TestDepthTrackGeometry::valuesFarOutsideStayDrawable()
{
    const DepthTrackMap map = depthTrackMap({0, 1e-12}, 0, 2, {100, 100});
    const std::vector<DepthTrackPiece> vPieces = pieces({-1e300, 5e-13, 1e300}, {0, 1, 2}, map, 100);
    QCOMPARE(vPieces.size(), std::size_t(1));
    for (const QPointF& oPoint : vPieces[0].m_oLine)
        QVERIFY(std::abs(oPoint.x()) < 32768.0); // what a raster painter can count
}

void TestDepthTrackGeometry::barsEndAtTheirValues()
{
    const DepthTrackMap map = depthTrackMap({100, 0}, 0, 100, {101, 101}); // reversed
    const std::vector<DepthBin> vBins{{0, 10, 80, 99999.0}, {10, 30, 99999.0, 99999.0}, {30, 40, 250, 99999.0}};
    const std::vector<DepthBinBar> vBars = depthBinBars(vBins, map);
    QCOMPARE(vBars.size(), std::size_t(2)); // none for the empty bin
    QCOMPARE(vBars[0].m_oBar, QRectF(0, 0, 20, 10));
    QCOMPARE(vBars[1].m_oBar, QRectF(0, 30, 0, 10)); // beyond the limit: at the edge
    QCOMPARE(vBars[1].m_iBin, 2);
}

void TestDepthTrackGeometry::labels_data()
{
    QTest::addColumn<std::vector<double>>("lines");
    QTest::addColumn<std::vector<double>>("tops"); // empty: only the laws
    QTest::newRow("none") << std::vector<double>{} << std::vector<double>{};
    QTest::newRow("room for each") << std::vector<double>{20, 50, 80} << std::vector<double>{15, 45, 75};
    QTest::newRow("two on one line share the way") << std::vector<double>{50, 50} << std::vector<double>{40, 50};
    QTest::newRow("pushed inside") << std::vector<double>{1, 2, 99} << std::vector<double>{0, 10, 90};
    QTest::newRow("groups meet") << std::vector<double>{20, 22, 31, 33} << std::vector<double>{};
    QTest::newRow("too many") << std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 30, 31, 32, 60, 99}
                              << std::vector<double>{};
}

void TestDepthTrackGeometry::labels()
{
    QFETCH(std::vector<double>, lines);
    QFETCH(std::vector<double>, tops);
    const std::vector<DepthLineLabel> vLabels = placeDepthLabels(lines, 10.0, 100.0);
    QCOMPARE(vLabels.size(), std::min<std::size_t>(lines.size(), 10));
    for (std::size_t i = 0; i < vLabels.size(); ++i) {
        QVERIFY(vLabels[i].m_dTop > -1e-9 && vLabels[i].m_dTop < 90.0 + 1e-9);
        QCOMPARE(vLabels[i].m_dLineY, lines[vLabels[i].m_iLine]);
        if (i > 0) {
            QVERIFY(vLabels[i].m_iLine > vLabels[i - 1].m_iLine);
            QVERIFY(vLabels[i].m_dTop - vLabels[i - 1].m_dTop > 10.0 - 1e-9);
        }
        if (!tops.empty())
            QVERIFY(std::abs(vLabels[i].m_dTop - tops[i]) < 1e-9);
    }
    QVERIFY(placeDepthLabels(lines, 10.0, 9.0).empty());
}

void TestDepthTrackGeometry::labelsThatLeadTheFieldStay()
{
    std::vector<double> vdLines;
    for (int i = 0; i < 50; ++i)
        vdLines.push_back(20.0 + i * 0.1);
    vdLines.push_back(80.0);
    const std::vector<DepthLineLabel> vLabels = placeDepthLabels(vdLines, 10.0, 30.0);
    QCOMPARE(vLabels.size(), std::size_t(3));
    QCOMPARE(vLabels.front().m_iLine, std::size_t(0));
    QCOMPARE(vLabels.back().m_iLine, std::size_t(50));
}

void TestDepthTrackGeometry::recordAtDepth_data()
{
    QTest::addColumn<std::vector<double>>("depths");
    QTest::addColumn<double>("depth");
    QTest::addColumn<int>("record");
    const std::vector<double> vdRising{10, 20, 30};
    const std::vector<double> vdFalling{30, 20, 10};
    const std::vector<double> vdMixed{20, g_dNone, 10, 99999.0, 30};
    QTest::newRow("none") << std::vector<double>{} << 5.0 << -1;
    QTest::newRow("all missing") << std::vector<double>{g_dNone} << 5.0 << -1;
    QTest::newRow("no depth") << vdRising << 99999.0 << -1;
    QTest::newRow("nearest") << vdRising << 24.0 << 1;
    QTest::newRow("half way: the shallower") << vdRising << 25.0 << 1;
    QTest::newRow("run upwards") << vdFalling << 11.0 << 2;
    QTest::newRow("unsorted with gaps") << vdMixed << 28.0 << 4;
    QTest::newRow("a little above") << vdRising << 9.5 << 0;
    QTest::newRow("far above") << vdRising << 8.0 << -1;
    QTest::newRow("far below") << vdMixed << 32.0 << -1;
}

void TestDepthTrackGeometry::recordAtDepth()
{
    QFETCH(std::vector<double>, depths);
    QFETCH(double, depth);
    const DepthOrder order(depths);
    QTEST(order.recordAt(depths, depth, 1.0), "record");
}

QTEST_APPLESS_MAIN(TestDepthTrackGeometry)
#include "tst_depthtrackgeometry.moc"
