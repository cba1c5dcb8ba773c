// The normal probability plot: points, axis, fit and its place in the histogram panel.

#include <gkBase/MatrixData.h>
#include <gkBase/NormalProbability.h>
#include <gkBase/ProbabilityPlotGeometry.h>
#include <gkBase/QHistogramChartWidget.h>
#include <gkBase/QHistogramPlotWidget.h>
#include <gkBase/QProbabilityPlot.h>
#include <gkBase/UnitManager.h>

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <set>
#include <utility>

using namespace gkBase;

namespace {

constexpr double g_dMean = 1500.0;
constexpr double g_dDeviation = 120.0;

std::vector<double> normalSample(std::size_t iCount)
{
    std::mt19937 generator(11);
    std::normal_distribution<double> distribution(g_dMean, g_dDeviation);
    std::vector<double> vdValues(iCount);
    std::generate(vdValues.begin(), vdValues.end(), [&] { return distribution(generator); });
    return vdValues;
}

HistogramMap mapOf(const std::vector<double>& vdSorted, const QSize& oSize)
{
    const double dRange = quantileRange(vdSorted.size());
    return histogramMap(guardedBoundaries({{vdSorted.front(), -dRange}, {vdSorted.back(), dRange}}), oSize);
}

std::pair<int, int> pixelOf(const QPointF& oPoint)
{
    return {static_cast<int>(std::floor(oPoint.x())), static_cast<int>(std::floor(oPoint.y()))};
}

std::unique_ptr<MatrixData> rootWith(const std::vector<double>& vdValues)
{
    auto poRoot = std::make_unique<MatrixData>(QStringLiteral("root"));
    auto* poSet = new MatrixData(QStringLiteral("Well"));
    poRoot->appendChild(poSet, false);
    auto* poNode = new MatrixData(QStringLiteral("a"), 0, 1);
    poNode->setColumn(0, MatrixColumn::fromDoubles(vdValues));
    poSet->appendChild(poNode, true);
    return poRoot;
}

} // namespace

class TestProbabilityPlot : public QObject
{
    Q_OBJECT
private slots:
    void thinningKeepsEveryPixel_data();
    void thinningKeepsEveryPixel();
    void axisShowsTheUsualProbabilities();
    void lineOfTheFit();
    void panelSwitchesToThePlot();
    void selectedRowsAndMissingValues();
    void resultsInDisplayUnits();
    void picture();
};

void TestProbabilityPlot::thinningKeepsEveryPixel_data()
{
    QTest::addColumn<std::vector<double>>("values");
    QTest::newRow("one") << std::vector<double>{3.0};
    QTest::newRow("two") << std::vector<double>{3.0, 4.0};
    QTest::newRow("all equal") << std::vector<double>(5000, 3.0);
    QTest::newRow("normal") << normalSample(20000);
    std::vector<double> vdTies;
    for (int i = 0; i < 20000; ++i)
        vdTies.push_back(i % 7 == 0 ? 1e6 : i % 5);
    QTest::newRow("ties and one far away") << vdTies;
}

void TestProbabilityPlot::thinningKeepsEveryPixel()
{
    QFETCH(std::vector<double>, values);
    std::sort(values.begin(), values.end());
    const HistogramMap map = mapOf(values, QSize(300, 200));
    std::set<std::pair<int, int>> all;
    for (std::size_t i = 0; i < values.size(); ++i)
        all.insert(pixelOf(map.toPixel({values[i], normalQuantile(plottingPosition(i, values.size()))})));
    const std::vector<ProbabilityPoint> vPoints = probabilityPoints(values, map);
    std::set<std::pair<int, int>> kept;
    for (const ProbabilityPoint& point : vPoints)
        kept.insert(pixelOf(point.m_oPixel));
    QVERIFY(kept == all);
    QVERIFY(vPoints.size() <= all.size() + 1); // the last value may share its pixel
    QCOMPARE(vPoints.front().m_iRank, std::size_t(0));
    QCOMPARE(vPoints.back().m_iRank, values.size() - 1);
}

void TestProbabilityPlot::axisShowsTheUsualProbabilities()
{
    const AxisTicks ticks = probabilityTicks(quantileRange(100));
    QCOMPARE(ticks.m_lLabels, QStringList({"0.1", "1", "5", "10", "25", "50", "75", "90", "95", "99", "99.9"}));
    for (qsizetype i = 0; i < ticks.m_vMajor.size(); ++i)
        QVERIFY(std::abs(100.0 * normalProbability(ticks.m_vMajor[i]) - ticks.m_lLabels[i].toDouble()) < 1e-9);
    QVERIFY(std::is_sorted(ticks.m_vMinor.begin(), ticks.m_vMinor.end()));
    // More values need more of the tails: every plotting position is inside.
    QVERIFY(probabilityTicks(quantileRange(1000000)).m_lLabels.contains(QStringLiteral("99.9999")));
    for (const std::size_t iCount : {1u, 10u, 1000u, 1000000u})
        QVERIFY(quantileRange(iCount) > -normalQuantile(plottingPosition(0, iCount)));
}

void TestProbabilityPlot::lineOfTheFit()
{
    std::vector<double> vdValues = normalSample(5000);
    std::sort(vdValues.begin(), vdValues.end());
    const NormalFit fit = normalProbabilityFit(vdValues);
    QVERIFY(std::abs(fit.m_dMean - g_dMean) < 5.0);
    QVERIFY(std::abs(fit.m_dStandardDeviation - g_dDeviation) < 3.0);
    const HistogramMap map = mapOf(vdValues, QSize(400, 300));
    const QLineF oLine = fitLine(fit, map);
    for (const QPointF& oEnd : {oLine.p1(), oLine.p2()}) {
        const QPointF oData = map.toData(oEnd);
        QVERIFY(std::abs(oData.x() - fit.m_dMean - oData.y() * fit.m_dStandardDeviation) < 1e-6);
        QVERIFY(QRectF(-0.001, -0.001, 399.002, 299.002).contains(oEnd));
        QVERIFY(std::min({oEnd.x(), oEnd.y(), 399.0 - oEnd.x(), 299.0 - oEnd.y()}) < 0.001); // up to the frame
    }
    QVERIFY(fitLine(NormalFit(), map).isNull());
}

void TestProbabilityPlot::panelSwitchesToThePlot()
{
    const std::unique_ptr<MatrixData> poRoot = rootWith(normalSample(1000));
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot.get());
    panel.resize(900, 600);
    panel.show();
    QVERIFY(panel.drawingArea()->isVisible());
    QVERIFY(panel.probabilityPlot()->values().empty()); // sorted only when asked for
    panel.setHistogramType(QHistogramChartWidget::s_iNormalProbability);
    QVERIFY(panel.probabilityPlot()->isVisible() && !panel.drawingArea()->isVisible());
    QCOMPARE(panel.probabilityPlot()->values().size(), std::size_t(1000));
    panel.setBlackBackground(true);
    QCOMPARE(panel.probabilityPlot()->backgroundColor(), QColor(Qt::black));

    QProbabilityPlot& plot = *panel.probabilityPlot();
    panel.grab();
    const ProbabilityPoint& middle = plot.points()[plot.points().size() / 2];
    QVERIFY(plot.intervalAt(middle.m_oPixel) >= 0);
    QCOMPARE(plot.intervalAt(QPointF(middle.m_oPixel.x(), 0.0)), -1);

    panel.setHistogramType(MatrixData::Frequency);
    QVERIFY(panel.drawingArea()->isVisible() && !panel.probabilityPlot()->isVisible());
    poRoot->removeChild(poRoot->child(0));
    panel.setHistogramType(QHistogramChartWidget::s_iNormalProbability);
    QVERIFY(panel.probabilityPlot()->values().empty());
    panel.grab();
}

void TestProbabilityPlot::selectedRowsAndMissingValues()
{
    const std::unique_ptr<MatrixData> poRoot = rootWith({5.0, std::nan(""), 1.0, 99999.0, 3.0, 9.0});
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setHistogramType(QHistogramChartWidget::s_iNormalProbability);
    panel.setDataSet(poRoot.get());
    QCOMPARE(panel.probabilityPlot()->values(), (std::vector<double>{1.0, 3.0, 5.0, 9.0}));
    QVERIFY(panel.setSelectedRows({0, 1, 4}));
    QCOMPARE(panel.probabilityPlot()->values(), (std::vector<double>{3.0, 5.0}));
}

void TestProbabilityPlot::resultsInDisplayUnits()
{
    const std::unique_ptr<MatrixData> poRoot = rootWith({3.048, 6.096});
    const boost::shared_ptr<UnitManager> poUnit(new UnitManager(QStringLiteral("length"), QStringLiteral("m")));
    QVERIFY(poUnit->displayUnit(QStringLiteral("ft")));
    poRoot->child(0)->child(0)->setUnitManager(poUnit);
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setHistogramType(QHistogramChartWidget::s_iNormalProbability);
    panel.setDataSet(poRoot.get());
    const QStringList lLines = panel.probabilityPlot()->resultLines();
    QCOMPARE(lLines.value(1), QStringLiteral("Mean: 15.000 ft"));
    QVERIFY(poUnit->displayUnit(QStringLiteral("m")));
    QCOMPARE(panel.probabilityPlot()->resultLines().value(1), QStringLiteral("Mean: 4.572 m"));
    // Two values lie on the line through their quantiles.
    const double dDeviation = 10.0 / (2.0 * normalQuantile(plottingPosition(1, 2)));
    QCOMPARE(lLines.value(2), QStringLiteral("Stand. Deviation: %1 ft").arg(dDeviation, 0, 'f', 3));
}

void TestProbabilityPlot::picture()
{
    const std::unique_ptr<MatrixData> poRoot = rootWith(normalSample(500));
    poRoot->child(0)->child(0)->setColor(Qt::red);
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot.get());
    panel.setHistogramType(QHistogramChartWidget::s_iNormalProbability);
    const QTemporaryDir dir;
    const QString sPath = dir.filePath(QStringLiteral("p.png"));
    QString sError;
    QVERIFY2(panel.exportChart(sPath, {640, 480}, &sError), qPrintable(sError));
    const QImage image(sPath);
    // The points run from the lower left to the upper right.
    int iOnDiagonal = 0;
    int iBeside = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == QColor(Qt::red))
                ++((x < 320) == (y > 240) ? iOnDiagonal : iBeside);
    QVERIFY(iOnDiagonal > 500);
    QVERIFY(iBeside < iOnDiagonal / 4);
    panel.copyToClipboard();
    QVERIFY(!QApplication::clipboard()->pixmap().isNull());
}

QTEST_MAIN(TestProbabilityPlot)
#include "tst_probabilityplot.moc"
