// The canvas of cartesian point charts: its mapping, what an outline selects, its pictures.

#include "CrossPlotCanvas.h"

#include <gkBase/CrossPlotGeometry.h>
#include <gkBase/PointInPolygon.h>
#include <gkBase/UnitManager.h>

#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

using namespace gkBase;
using namespace gkTest;

class TestQCrossPlot : public QObject
{
    Q_OBJECT
private slots:
    void cornersMapToCorners_data();
    void cornersMapToCorners();
    void outlineSelectsWhatLiesInside_data();
    void outlineSelectsWhatLiesInside();
    void modifiersAndButtons_data();
    void modifiersAndButtons();
    void clickSelectsTheNearestPoint();
    void escapeBringsTheSelectionBack();
    void boundariesAreRemovedByPress();
    void regressionIsDrawnAndNamed();
    void cursorIsToldInChartUnits();
    void picturesShowNoGesture();
};

void TestQCrossPlot::cornersMapToCorners_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("orientation");
    QTest::addColumn<QPointF>("b");
    QTest::addColumn<QPointF>("pixelOfA");
    QTest::addColumn<QPointF>("pixelOfB");
    const QSize oSize(400, 300);
    const QPointF oB(50.0, 9.0);
    QTest::newRow("upwards") << oSize << 1 << oB << QPointF(0, 299) << QPointF(399, 0);
    QTest::newRow("downwards") << oSize << 0 << oB << QPointF(0, 0) << QPointF(399, 299);
    QTest::newRow("x falls") << oSize << 0 << QPointF(-50.0, 9.0) << QPointF(0, 0) << QPointF(399, 299);
    QTest::newRow("one pixel wide") << QSize(1, 300) << 1 << oB << QPointF(0, 299) << QPointF(0, 0);
    QTest::newRow("equal x") << oSize << 1 << QPointF(10.0, 9.0) << QPointF(0, 299) << QPointF(0, 0);
    QTest::newRow("equal corners") << oSize << 1 << QPointF(10.0, 3.0) << QPointF(0, 0) << QPointF(0, 0);
}

void TestQCrossPlot::cornersMapToCorners()
{
    QFETCH(QSize, size);
    QFETCH(int, orientation);
    QFETCH(QPointF, b);
    const QPointF a(10.0, 3.0);
    QCrossPlot plot;
    plot.resize(size);
    plot.setRange(a, b);
    plot.setOrientationFlag(orientation);
    QTEST(plot.transformInPixelPoint(a), "pixelOfA");
    QTEST(plot.transformInPixelPoint(b), "pixelOfB");
    const QPointF oBack = plot.transformInDataPoint(plot.transformInPixelPoint({20.0, 4.0}));
    QVERIFY(oBack == QPointF(20.0, 4.0) || size.width() == 1 || a.x() == b.x());
}

void TestQCrossPlot::outlineSelectsWhatLiesInside_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("percentX");
    QTest::addColumn<int>("percentY");
    QTest::newRow("whole chart") << 1.0 << 50 << 50;
    QTest::newRow("three times") << 3.0 << 20 << 90;
    QTest::newRow("twenty times") << 20.0 << 63 << 41;
}

void TestQCrossPlot::outlineSelectsWhatLiesInside()
{
    QFETCH(double, zoom);
    QFETCH(int, percentX);
    QFETCH(int, percentY);
    Plot plot(60000);
    plot.m_plot.zoom(zoom);
    plot.m_plot.xoffset(percentX);
    plot.m_plot.yoffset(percentY);
    // A star that crosses itself.
    std::vector<QPointF> voPath;
    for (int i = 0; i < 21; ++i) {
        const double dAngle = i * 2.0 * 3.0 * M_PI / 21.0;
        const double dRadius = i % 2 ? 140.0 : 60.0;
        voPath.emplace_back(std::round(200.0 + dRadius * std::cos(dAngle)),
                            std::round(150.0 + dRadius * std::sin(dAngle)));
    }
    QSignalSpy spy(&plot.m_plot, &QCrossPlot::dataPointsSelection);
    drag(plot.m_plot, voPath);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy[0][1].toInt(), plot.m_model.numberOfPoints());
    QVERIFY(plot.m_model.selection() == spy[0][0].value<bool*>());

    const QPoint oOffset = plot.m_plot.pixmapRect().topLeft();
    std::vector<double> vdX;
    std::vector<double> vdY;
    for (const QPointF& oCorner : voPath) {
        vdX.push_back(oCorner.x() + oOffset.x());
        vdY.push_back(oCorner.y() + oOffset.y());
    }
    int iInside = 0;
    for (int i = 0; i < plot.m_model.numberOfPoints(); ++i) {
        const auto n = static_cast<std::size_t>(i);
        const QPointF oPixel = plot.m_plot.transformInPixelPoint({plot.m_model.x()[n], plot.m_model.y()[n]});
        const bool bInside = plot.m_model.isValid(i) && pointInPolygon(vdX, vdY, oPixel.x(), oPixel.y());
        iInside += bInside;
        QCOMPARE(plot.m_model.isSelected(i), bInside);
    }
    QVERIFY(iInside > 10);
}

void TestQCrossPlot::modifiersAndButtons_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("keepsOld");
    QTest::addColumn<bool>("addsNew");
    QTest::newRow("plain") << Qt::LeftButton << Qt::KeyboardModifiers() << false << true;
    QTest::newRow("ctrl") << Qt::LeftButton << Qt::KeyboardModifiers(Qt::ControlModifier) << true << true;
    QTest::newRow("ctrl and shift") << Qt::LeftButton << (Qt::ControlModifier | Qt::ShiftModifier) << false << true;
    QTest::newRow("middle") << Qt::MiddleButton << Qt::KeyboardModifiers() << false << true;
    QTest::newRow("right") << Qt::RightButton << Qt::KeyboardModifiers() << true << false;
}

void TestQCrossPlot::modifiersAndButtons()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(bool, keepsOld);
    QFETCH(bool, addsNew);
    Plot plot;
    drag(plot.m_plot, box(0, 0, 100, 299));
    const std::vector<int> viOld = plot.m_model.selectedRecords();
    QVERIFY(!viOld.empty());
    drag(plot.m_plot, box(200, 0, 300, 299), button, modifiers);
    const std::vector<int> viNow = plot.m_model.selectedRecords();
    const auto inHalf = [&plot](bool bLeft) {
        return [&plot, bLeft](int i) { return (plot.m_model.x()[static_cast<std::size_t>(i)] < 40.0) == bLeft; };
    };
    QCOMPARE(std::count_if(viNow.begin(), viNow.end(), inHalf(true)), keepsOld ? std::ssize(viOld) : 0);
    QCOMPARE(std::any_of(viNow.begin(), viNow.end(), inHalf(false)), addsNew);
}

void TestQCrossPlot::clickSelectsTheNearestPoint()
{
    Plot plot(30);
    const QPointF oPoint = plot.m_plot.pointPixels()[17];
    QSignalSpy spy(&plot.m_plot, &QCrossPlot::dataPointsSelection);
    drag(plot.m_plot, {oPoint + QPointF(1.0, 1.0)});
    QCOMPARE(plot.m_model.selectedRecords(), std::vector<int>{17});
    QCOMPARE(plot.m_plot.recordAt(oPoint + QPointF(0.0, 4.0), 3.0), -1);
    // Beside all points a click clears.
    drag(plot.m_plot, {{-50.0, -50.0}});
    QCOMPARE(plot.m_model.numberOfSelectedPoints(), 0);
    QCOMPARE(spy.count(), 2);
}

void TestQCrossPlot::escapeBringsTheSelectionBack()
{
    Plot plot;
    drag(plot.m_plot, box(0, 0, 100, 299));
    const std::vector<int> viOld = plot.m_model.selectedRecords();
    QSignalSpy spy(&plot.m_plot, &QCrossPlot::dataPointsSelection);
    send(plot.m_plot, QEvent::MouseButtonPress, {200, 10});
    send(plot.m_plot, QEvent::MouseMove, {300, 10});
    send(plot.m_plot, QEvent::MouseMove, {300, 200});
    QCOMPARE(plot.m_model.numberOfSelectedPoints(), 0);
    pressKey(plot.m_plot, Qt::Key_Escape);
    send(plot.m_plot, QEvent::MouseButtonRelease, {300, 200});
    QCOMPARE(plot.m_model.selectedRecords(), viOld);
    QCOMPARE(spy.count(), 0);
}

void TestQCrossPlot::boundariesAreRemovedByPress()
{
    Plot plot;
    plot.m_model.generateNumberOfIntervalFilter(4, 0.0, 100.0);
    QSignalSpy changed(&plot.m_plot, &QCrossPlot::intervalBoundariesChanged);
    plot.m_plot.setDataCreationType(QCrossPlot::IntervalBoundaryRemoval);
    drag(plot.m_plot, {{10.0, plot.rowAt(40.0)}}); // none there
    drag(plot.m_plot, {{10.0, plot.rowAt(50.0)}});
    QCOMPARE(changed.count(), 1);
    QCOMPARE(plot.m_model.intervalFilter()->count(), 4);
}

void TestQCrossPlot::regressionIsDrawnAndNamed()
{
    Plot plot;
    QCrossPlot& chart = plot.m_plot;
    chart.setShowRegressionLine(true);
    plot.m_poX->setColumn(0, MatrixColumn::fromDoubles({0.0, 1.0, 2.0, 3.0}));
    plot.m_poY->setColumn(0, MatrixColumn::fromDoubles({1.0, 3.0, 5.0, 7.0}));
    plot.m_model.takeNewDataSet(plot.m_poX.get(), plot.m_poY.get());
    chart.updateChart();
    QCOMPARE(chart.regressionText(), QStringLiteral("y=2.0448x+0.74627\n R=0.99669"));
    // A line through the origin goes through that of other units of length too.
    plot.m_poX->setColumn(0, MatrixColumn::fromDoubles({-3.0, -1.0, 1.0, 3.0}));
    plot.m_poY->setColumn(0, MatrixColumn::fromDoubles({-6.0, -2.0, 2.0, 6.0}));
    plot.m_poX->setUnitManager(QStringLiteral("depth"));
    plot.m_poX->unitManager()->displayUnit(QStringLiteral("ft"));
    plot.m_model.takeNewDataSet(plot.m_poX.get(), plot.m_poY.get());
    chart.setRange({3000.0, -10.0}, {3100.1, 10.0});
    chart.updateChart();
    QCOMPARE(chart.regressionText(), QStringLiteral("y=0.6096x+0\n R=1"));
    plot.m_poX->setColumn(0, MatrixColumn::fromDoubles({2.0, 2.0, 2.0, 2.0}));
    plot.m_model.takeNewDataSet(plot.m_poX.get(), plot.m_poY.get());
    chart.updateChart();
    QCOMPARE(chart.regressionText(), QStringLiteral("The regression is not a function"));

    // The line ends where it leaves the chart.
    const CrossPlotMap oMap({0.0, 0.0}, {10.0, 10.0}, true, QSize(101, 101));
    QCOMPARE(crossPlotLine(oMap, 1.0, 0.0), QLineF(0, 100, 100, 0));
    QCOMPARE(crossPlotLine(oMap, 2.0, 0.0), QLineF(0, 100, 50, 0));
    QCOMPARE(crossPlotLine(oMap, 0.0, 4.0), QLineF(0, 60, 100, 60));
    QVERIFY(crossPlotLine(oMap, 0.0, 11.0).isNull());
    QVERIFY(crossPlotLine(oMap, 1.0, 50.0).isNull());
}

void TestQCrossPlot::cursorIsToldInChartUnits()
{
    Plot plot;
    plot.m_plot.zoom(2.0);
    plot.m_plot.xoffset(100);
    plot.m_plot.yoffset(0);
    QSignalSpy spy(&plot.m_plot, &QCrossPlot::cursorPos);
    send(plot.m_plot, QEvent::MouseMove, {399.0, 0.0}, Qt::NoButton);
    QCOMPARE(spy.last()[0].toPointF(), QPointF(100.0, 100.0));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&plot.m_plot, &leave);
    QCOMPARE(spy.last()[0].toPointF(), QPointF(99999.0, 99999.0));
}

void TestQCrossPlot::picturesShowNoGesture()
{
    Plot plot(20);
    const auto picture = [&plot] {
        QImage oPicture(200, 100, QImage::Format_RGB32);
        QPainter painter(&oPicture);
        plot.m_plot.renderWithGrid(painter, oPicture.rect(), {50}, {50});
        return oPicture;
    };
    const QImage oAtRest = picture();
    plot.m_plot.setCursorLine(30.0);
    send(plot.m_plot, QEvent::MouseButtonPress, {10, 10});
    send(plot.m_plot, QEvent::MouseMove, {80, 10});
    send(plot.m_plot, QEvent::MouseMove, {80, 80});
    QCOMPARE(picture(), oAtRest);
    const QImage oShown = plot.m_plot.grab().toImage();
    plot.m_plot.setCursorLine(99999.0);
    QVERIFY(plot.m_plot.grab().toImage() != oShown);
}

QTEST_MAIN(TestQCrossPlot)
#include "tst_qcrossplot.moc"
