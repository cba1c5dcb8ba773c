// The tangent diagram: its projection, its net, and the fold axis.

#include "RecordingDevice.h"
#include "StereoRecords.h"

#include <gkBase/GreatCirclePainter.h>
#include <gkBase/LineInPlane.h>
#include <gkBase/NetPaths.h>
#include <gkBase/QTangentPlotWidget.h>

#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <array>

using namespace gkBase;

namespace {

/// Radius 160 about (199, 199).
class Diagram : public QTangentPlotWidget
{
public:
    Diagram()
        : QTangentPlotWidget(nullptr, QStringLiteral("Tangent Diagram"))
    {
        resize(400, 400);
        m_choice.m_iProjectionTarget = 1;
        choose();
    }
    void choose()
    {
        setSettings(m_choice);
        redraw();
    }
    StereoNetSettings m_choice;
};

double distance(const QPointF& a, const QPointF& b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

} // namespace

class TestTangentPlot : public QObject
{
    Q_OBJECT
private slots:
    void anglesGoThereAndBack();
    void polesAreLines();
    void netHasItsCircles();
    void linesEndOutsideTheClearedDisc();
    void foldLiesOnTheLineOfItsAxis();
    void axisIsDragged();
    void pickStaysOnTheDisc();
    void curvesOfOnePlaceAreDrawnOnce();
};

void TestTangentPlot::anglesGoThereAndBack()
{
    Diagram diagram;
    QCOMPARE(diagram.maximumAngle(), 60.0);
    QVERIFY(distance(diagram.tangentPlotPointInPixel({60.0, 90.0}), {359.0, 199.0}) < 1e-9);
    QVERIFY(distance(diagram.tangentPlotPointInPixel({0.0, 90.0}), {199.0, 199.0}) < 1e-9);
    QVERIFY(qAbs(diagram.tangentRadius(30.0) - 160.0 / 3.0) < 1e-9);
    for (double dAngle = 1.0; dAngle < 80.0; dAngle += 3.0) {
        for (double dAzimuth = 0.0; dAzimuth < 360.0; dAzimuth += 11.0) {
            const QPointF oLine(dAngle, dAzimuth);
            const QPointF oFound = diagram.transformInDataPoint(diagram.transformInPixelPoint(oLine));
            QVERIFY(distance(oFound, oLine) < 1e-9);
        }
    }
}

void TestTangentPlot::polesAreLines()
{
    Diagram diagram;
    const QPointF oLine = diagram.transformInPixelPoint({50.0, 200.0});
    diagram.m_choice.m_iProjectionTarget = 0;
    diagram.choose();
    QVERIFY(distance(diagram.transformInPixelPoint({40.0, 20.0}), oLine) < 1e-9);

    // A level plane has its pole nowhere near the disc, and takes part in no selection.
    gkTest::StereoRecords records({0.0, 40.0}, {10.0, 20.0});
    diagram.setModel(&records.m_model);
    QVERIFY(std::isnan(diagram.pointPixels()[0].x()));
    QVERIFY(distance(diagram.pointPixels()[1], oLine) < 1e-9);
    QCOMPARE(diagram.pointsText(), QStringLiteral("points = 2 (1 beyond 60°)"));
    diagram.m_choice.m_iProjectionTarget = 1;
    diagram.choose();
    QCOMPARE(diagram.pointsText(), QStringLiteral("points = 2"));
}

void TestTangentPlot::netHasItsCircles()
{
    const NetProjection oProjection(NetLayout::Tangent, 60.0);
    const NetFrame oFrame{199.0, 199.0, 160.0};
    const NetPaths paths = tangentNetPaths(oProjection, oFrame, false, true);
    // Five circles of 13 elements each.
    QCOMPARE(paths.m_oCoarse.elementCount(), 5 * 13);
    const double dOuter = std::trunc(160.0 * std::tan(50.0 * std::numbers::pi / 180.0) / std::sqrt(3.0));
    QCOMPARE(paths.m_oCoarse.boundingRect().width(), 2.0 * dOuter);
    QCOMPARE(paths.m_oAxes.boundingRect().top(), 199.0 - 166.0);
    QVERIFY(paths.m_oFine.isEmpty());
    QVERIFY(tangentNetPaths(oProjection, oFrame, false, false).m_oAxes.isEmpty());
}

void TestTangentPlot::linesEndOutsideTheClearedDisc()
{
    const auto length = [](const std::vector<NetPolyline>& vLines) {
        double dLength = 0.0;
        for (const NetPolyline& line : vLines)
            for (std::size_t i = 1; i < line.size(); ++i)
                dLength += std::hypot(line[i].m_dX - line[i - 1].m_dX, line[i].m_dY - line[i - 1].m_dY);
        return dLength;
    };
    const std::vector<NetPolyline> vLines{{{-1.0, 0.0}, {1.0, 0.0}},
                                          {{0.0, 0.5}, {0.0, 0.1}, {0.1, 0.1}},
                                          {{0.05, 0.05}, {0.05, 0.06}},
                                          {{-0.5, 0.3}, {0.5, 0.3}}};
    const std::vector<NetPolyline> vPieces = outsideRadius(vLines, 0.2);
    QCOMPARE(vPieces.size(), std::size_t{4});
    QVERIFY(qAbs(length(vPieces) - (1.6 + 0.3 + 1.0)) < 1e-12);
    for (const NetPolyline& piece : vPieces)
        for (const NetPoint& oPoint : piece)
            QVERIFY(std::hypot(oPoint.m_dX, oPoint.m_dY) > 0.2 - 1e-12);
}

void TestTangentPlot::foldLiesOnTheLineOfItsAxis()
{
    // Planes that contain the axis lie on the line across it, and so do pixels that the line colours.
    Diagram diagram;
    diagram.setLineColor(Qt::blue);
    diagram.setFoldAxis(20.0, 45.0);
    diagram.setShowFoldAxis(true);
    QImage oImage(diagram.size(), QImage::Format_RGB32);
    diagram.render(&oImage);
    int iColoured = 0;
    for (double dOff = -60.0; dOff <= 60.0; dOff += 1.0) {
        // tan dip · cos(dip azimuth − azimuth) = tan plunge
        const double dDip =
            std::atan(std::tan(20.0 * std::numbers::pi / 180.0) / std::cos(dOff * std::numbers::pi / 180.0)) * 180.0 /
            std::numbers::pi;
        const QPointF oPixel = diagram.transformInPixelPoint({dDip, 45.0 + dOff});
        if (distance(oPixel, {199.0, 199.0}) > 150.0)
            continue;
        iColoured += oImage.pixelColor(oPixel.toPoint()).red() < 160 ? 1 : 0;
    }
    QVERIFY(iColoured > 40);
}

void TestTangentPlot::axisIsDragged()
{
    gkTest::StereoRecords records({20.0}, {45.0});
    Diagram diagram;
    diagram.setModel(&records.m_model);
    records.m_model.setSelectedRecords({0});
    diagram.setFoldAxis(20.0, 45.0);
    QSignalSpy moved(&diagram, &QTangentPlotWidget::foldAxisMoved);
    const QPointF oFrom = diagram.transformInPixelPoint({20.0, 45.0});
    const QPointF oTo = diagram.transformInPixelPoint({35.0, 200.0}).toPoint();
    // Hidden it is not there: the press selects.
    gkTest::dragMouse(diagram, {oFrom});
    QCOMPARE(moved.count(), 0);
    diagram.setShowFoldAxis(true);
    gkTest::dragMouse(diagram, {oFrom, oTo});
    QVERIFY(!moved.isEmpty());
    QCOMPARE(moved.last().front().toPointF(), diagram.foldAxis());
    QVERIFY(distance(diagram.foldAxis(), {35.0, 200.0}) < 1.5);
    QCOMPARE(records.m_model.selectedRecords(), std::vector<int>{0});
    // Never beyond the rim; at the centre the azimuth stays.
    gkTest::dragMouse(diagram, {oTo, {199.0, 399.0}});
    QVERIFY(distance(diagram.foldAxis(), {60.0, 180.0}) < 1e-6);
    gkTest::dragMouse(diagram, {{199.0, 359.0}, {199.0, 199.0}});
    QVERIFY(distance(diagram.foldAxis(), {0.0, 180.0}) < 1e-6);

    // Another button changes nothing, and Escape brings the axis back.
    gkTest::sendMouse(diagram, QEvent::MouseButtonPress, {199.0, 199.0});
    gkTest::sendMouse(diagram, QEvent::MouseMove, {250.0, 199.0});
    QMouseEvent second(QEvent::MouseButtonPress, {250.0, 199.0}, {250.0, 199.0}, Qt::MiddleButton,
                       Qt::LeftButton | Qt::MiddleButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&diagram, &second);
    QCOMPARE(records.m_model.selectedRecords(), std::vector<int>{0});
    QVERIFY(diagram.foldAxis().x() > 10.0);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&diagram, &escape);
    QVERIFY(distance(diagram.foldAxis(), {0.0, 180.0}) < 1e-6);
    QCOMPARE(moved.last().front().toPointF(), diagram.foldAxis());
    gkTest::sendMouse(diagram, QEvent::MouseButtonRelease, {250.0, 199.0});
    QCOMPARE(records.m_model.selectedRecords(), std::vector<int>{0});
}

void TestTangentPlot::pickStaysOnTheDisc()
{
    // Planes whose dip point lies beyond the rim; at the centre it lies nowhere.
    Diagram diagram;
    diagram.setMouseMode(QStereoPlotWidget::MouseMode::Pick);
    QImage oBefore(diagram.size(), QImage::Format_RGB32);
    diagram.render(&oBefore);
    for (const QPointF& oPosition : {QPointF(199.0, 199.0), QPointF(215.0, 199.0)}) {
        gkTest::sendMouse(diagram, QEvent::MouseButtonPress, oPosition);
        QImage oHeld(diagram.size(), QImage::Format_RGB32);
        diagram.render(&oHeld);
        gkTest::sendMouse(diagram, QEvent::MouseButtonRelease, oPosition);
        int iChanged = 0;
        for (int y = 0; y < 190; ++y)
            for (int x = 0; x < 400; ++x)
                if (std::hypot(x - 199.0, y - 199.0) > 165.0)
                    iChanged += oHeld.pixel(x, y) != oBefore.pixel(x, y) ? 1 : 0;
        QCOMPARE(iChanged, 0);
    }
}

void TestTangentPlot::curvesOfOnePlaceAreDrawnOnce()
{
    // Bundles of planes, flat ones whose poles lie far beyond the rim among them: one curve of each goes into files.
    std::vector<double> vdDips;
    std::vector<double> vdAzimuths;
    for (int i = 0; i < 2000; ++i) {
        vdDips.push_back(std::array{2.0, 20.0, 55.0, 75.0, 88.0}[static_cast<std::size_t>(i % 5)] + 1e-6 * i);
        vdAzimuths.push_back(40.0 + 1e-6 * i);
    }
    GreatCircleBatch batch;
    batch.m_vdDips = vdDips;
    batch.m_vdDipAzimuths = vdAzimuths;
    batch.m_oColor = Qt::red;
    batch.m_oProjection = NetProjection(NetLayout::Tangent, 60.0);
    batch.m_oFrame = {199.3, 199.3, 160.0};
    gkTest::RecordingDevice device(QSize(400, 400));
    QPainter painter(&device);
    GreatCirclePainter().draw(&painter, batch);
    painter.end();
    const auto iCurves = device.recording().m_voShapes.size();
    QVERIFY2(iCurves >= 5 && iCurves <= 10, qPrintable(QString::number(iCurves)));
}

QTEST_MAIN(TestTangentPlot)
#include "tst_tangentplot.moc"
