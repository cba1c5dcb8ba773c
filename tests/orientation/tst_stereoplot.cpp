// The stereonet: its projection in pixels, what it counts and when, what the mouse selects, and what it draws.

#include "RecordingDevice.h"
#include "StereoRecords.h"

#include <gkBase/DirectionCosines.h>
#include <gkBase/EMFDevice.h>
#include <gkBase/PointInPolygon.h>
#include <gkBase/QStereoPlotWidget.h>

#include <QBuffer>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QSvgGenerator>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <numeric>

using namespace gkBase;
using gkTest::StereoRecords;

namespace {

/// A net of 400 × 400: radius 160 about (199, 199).
class Net : public QStereoPlotWidget
{
public:
    explicit Net(QRelationshipItemModel* pModel = nullptr)
        : QStereoPlotWidget(nullptr, QStringLiteral("Stereonet"))
    {
        resize(400, 400);
        setModel(pModel);
        redraw();
    }
    using QStereoPlotWidget::drawCyclographicTrace;
    using QStereoPlotWidget::pointToolTip;

    StereoNetSettings m_choice;
    void choose()
    {
        setSettings(m_choice);
        redraw();
    }
    QImage picture()
    {
        QImage oImage(size(), QImage::Format_RGB32);
        render(&oImage);
        return oImage;
    }
};

QByteArray svgOf(Net& net)
{
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(net.size());
    QPainter painter(&generator);
    net.renderTo(painter, net.rect());
    painter.end();
    return buffer.data();
}

bool near(const QPointF& a, const QPointF& b, double dDistance)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y()) <= dDistance;
}

} // namespace

class TestStereoPlot : public QObject
{
    Q_OBJECT
private slots:
    void knownPixels_data();
    void knownPixels();
    void pixelsAndOrientationsGoThereAndBack_data();
    void pixelsAndOrientationsGoThereAndBack();
    void strikesHaveWords();
    void recordsPlotAsOneByOne();
    void countsAreFourPerRecord();
    void countsFollowTheirMask();
    void nothingIsCountedAgainForNothing();
    void lassoSelectsWhatLiesInside_data();
    void lassoSelectsWhatLiesInside();
    void pressClearsAndCtrlAdds();
    void wheelLeavesALassoAlone();
    void cursorTellsOrientations();
    void pickIsShownWhileTheButtonIsDown();
    void contoursLieUnderPointsAndNet();
    void dataStaysWithinTheRim();
    void areasEndAtTheRim();
    void girdleOfLinesIsThePlaneAcrossThem();
    void coneIsDrawnAboutTheMean();
    void pansAddNothing();
    void vectorCopiesHaveTheSameParts();
    void tracesAreGreatCircles();
    void manyGreatCirclesLookLikeFew_data();
    void manyGreatCirclesLookLikeFew();
};

void TestStereoPlot::knownPixels_data()
{
    QTest::addColumn<bool>("equalArea");
    QTest::addColumn<QPointF>("line");
    QTest::addColumn<QPointF>("pole");
    QTest::newRow("equal area") << true << QPointF(312.137, 199.0) << QPointF(140.436, 199.0);
    QTest::newRow("equal angle") << false << QPointF(291.376, 199.0) << QPointF(156.128, 199.0);
}

void TestStereoPlot::knownPixels()
{
    QFETCH(bool, equalArea);
    Net net;
    net.m_choice.m_bEqualArea = equalArea;
    net.choose();
    QFETCH(QPointF, line);
    QFETCH(QPointF, pole);
    QVERIFY(near(net.dipDirectionInPixel({30.0, 90.0}), line, 5e-3));
    QVERIFY(near(net.poleInPixel({30.0, 90.0}), pole, 5e-3));
    QVERIFY(near(net.poleInPixel({90.0, 0.0}), {199.0, 359.0}, 1e-9));
    QVERIFY(near(net.poleInPixel({0.0, 123.0}), {199.0, 199.0}, 1e-9));
    QVERIFY(near(net.dipDirectionInPixel({0.0, 270.0}), {39.0, 199.0}, 1e-9));
    QVERIFY(qAbs(net.equalAreaRadius(30.0) - 113.137) < 1e-3 && qAbs(net.equalAngleRadius(30.0) - 92.376) < 1e-3);
    QCOMPARE(net.transformInAzimuth({199.0, 199.0}), 0.0);
    QCOMPARE(net.transformInAzimuth({99.0, 199.0}), 270.0);
}

void TestStereoPlot::pixelsAndOrientationsGoThereAndBack_data()
{
    QTest::addColumn<bool>("equalArea");
    QTest::newRow("equal area") << true;
    QTest::newRow("equal angle") << false;
}

void TestStereoPlot::pixelsAndOrientationsGoThereAndBack()
{
    QFETCH(bool, equalArea);
    Net net;
    net.m_choice.m_bEqualArea = equalArea;
    net.choose();
    for (double dDip = 0.0; dDip <= 90.0; dDip += 2.5) {
        for (double dAzimuth = 0.0; dAzimuth < 360.0; dAzimuth += 7.5) {
            const QPointF oPixel = net.poleInPixel({dDip, dAzimuth});
            double dFoundDip = -1.0;
            double dFoundAzimuth = -1.0;
            net.generateDipAndDipAzimuth(oPixel, dFoundDip, dFoundAzimuth);
            QVERIFY2(qAbs(dFoundDip - dDip) < 1e-6, qPrintable(QString::number(dDip)));
            QVERIFY(near(net.poleInPixel({dFoundDip, dFoundAzimuth}), oPixel, 1e-6));
        }
    }
    double dDip = 1.0;
    double dAzimuth = 1.0;
    net.generateDipAndDipAzimuth({199.0, 30.0}, dDip, dAzimuth);
    QCOMPARE(QPointF(dDip, dAzimuth), QPointF(0.0, 0.0));
}

void TestStereoPlot::strikesHaveWords()
{
    double dStrike = -1.0;
    QCOMPARE(QStereoPlotWidget::transformInStrikeDipConvention(90.0, dStrike), QStringLiteral("E"));
    QCOMPARE(dStrike, 0.0);
    QCOMPARE(QStereoPlotWidget::transformInStrikeDipConvention(0.0, dStrike), QStringLiteral("N"));
    QCOMPARE(dStrike, 270.0);
}

void TestStereoPlot::recordsPlotAsOneByOne()
{
    StereoRecords records = StereoRecords::even(200);
    Net net(&records.m_model);
    for (const int iTarget : {0, 1}) {
        net.m_choice.m_iProjectionTarget = iTarget;
        net.choose();
        const std::vector<QPointF>& voPixels = net.pointPixels();
        for (std::size_t i = 0; i < voPixels.size(); ++i) {
            const QPointF oRecord(records.m_model.x()[i], records.m_model.y()[i]);
            QVERIFY(near(voPixels[i], net.transformInPixelPoint(oRecord), 1e-9));
            QVERIFY(near(net.transformInDataPoint(voPixels[i]), oRecord, 1e-4));
        }
    }
}

void TestStereoPlot::countsAreFourPerRecord()
{
    // Away from the rim, where the edge rule adds nothing.
    StereoRecords records({10.0, 20.0, 30.0, 99999.0, 40.0}, {5.0, 50.0, 150.0, 10.0, 250.0});
    Net net(&records.m_model);
    QVERIFY(net.density().isEmpty() && net.contourLevels().empty());
    net.m_choice.m_bContourLines = true;
    net.m_choice.m_iNodes = 30;
    net.choose();
    const std::vector<double>& vdCounts = net.density().m_vdCounts;
    QCOMPARE(net.density().m_iRecords, std::size_t{4});
    QCOMPARE(std::accumulate(vdCounts.begin(), vdCounts.end(), 0.0), 16.0);
    const MatrixDataArray* poCounts = records.m_model.contourGridPoles();
    QVERIFY(poCounts && poCounts->arrayRows() == 30);
    // The pole of 10/005 lies a little south of the centre.
    QCOMPARE(poCounts->cell(14, 17), net.density().count(14, 17));
    QVERIFY(poCounts->cell(14, 17) > 0.0);
    QCOMPARE(net.contourLevels().size(), std::size_t{20});
    QCOMPARE(net.contourLevels().front().m_dPercent, 0.0);
    QCOMPARE(net.contourMinimum(), 0.0);
    QCOMPARE(net.contourMaximum(), *std::max_element(vdCounts.begin(), vdCounts.end()));
    QVERIFY(net.contourLevels().front().m_oColor != net.contourLevels().back().m_oColor);

    // 36 upright planes: every pole on the rim is counted on both sides.
    std::vector<double> vdAzimuths(36);
    std::iota(vdAzimuths.begin(), vdAzimuths.end(), 0.0);
    for (double& dAzimuth : vdAzimuths)
        dAzimuth *= 10.0;
    StereoRecords upright(std::vector<double>(36, 90.0), vdAzimuths);
    net.setModel(&upright.m_model);
    QCOMPARE(net.density().m_iRecords, std::size_t{36});
    QCOMPARE(net.density().m_iOutside, std::size_t{0});
    for (int i = 0; i < 30; ++i)
        for (int j = 0; j < 30; ++j)
            if (net.density().isOnRim(i, j))
                QCOMPARE(net.density().count(i, j), net.density().count(29 - i, 29 - j));
}

void TestStereoPlot::countsFollowTheirMask()
{
    StereoRecords records = StereoRecords::even(100);
    Net net(&records.m_model);
    net.m_choice.m_bContourFill = true;
    net.choose();
    records.m_model.setSelectedRecords({1, 2, 3});
    QCOMPARE(net.density().m_iRecords, std::size_t{100});
    records.m_model.setPartSelection(true);
    QCOMPARE(net.density().m_iRecords, std::size_t{3});
    records.m_model.clearSelection();
    QCOMPARE(net.density().m_iRecords, std::size_t{100});
    records.m_model.setEmptySelectionTakesAll(false);
    QVERIFY(net.density().isEmpty() && net.contourLevels().empty());
    records.m_model.setEmptySelectionTakesAll(true);

    // Weights move the counts, not their total.
    records.m_model.setScanline(90.0, 0.0, 80.0);
    const std::vector<double> vdBefore = net.density().m_vdCounts;
    records.m_model.setBiasCorrectionOn(true);
    QVERIFY(net.density().m_vdCounts != vdBefore);
    QVERIFY(qAbs(net.density().m_dWeight - 100.0) < 1e-9);

    std::unique_ptr<StereoRecords> poGone(new StereoRecords(StereoRecords::even(50)));
    net.setModel(&poGone->m_model);
    QCOMPARE(net.density().m_iRecords, std::size_t{50});
    poGone.reset();
    net.picture();
    QVERIFY(net.density().isEmpty());
}

void TestStereoPlot::nothingIsCountedAgainForNothing()
{
    StereoRecords records = StereoRecords::even(1000);
    Net net(&records.m_model);
    net.m_choice.m_bContourFill = true;
    net.choose();
    // New counts come in a vector of their own.
    const double* pdCounts = net.density().m_vdCounts.data();
    const auto isSame = [&] {
        net.redraw();
        return net.density().m_vdCounts.data() == pdCounts;
    };
    records.m_model.setSelectedRecords({5});
    QVERIFY(isSame());
    net.zoom(3.0);
    net.xoffset(20);
    QVERIFY(isSame());
    net.m_choice.m_bGreatCircles = true;
    net.m_choice.m_dInterval = 1.5;
    net.choose();
    QVERIFY(isSame());
    QCOMPARE(records.m_model.contourGridPoles()->intervalSize(), 1.5);
    records.m_model.setPartSelection(true);
    QVERIFY(!isSame());
}

void TestStereoPlot::lassoSelectsWhatLiesInside_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("percent");
    QTest::newRow("whole net") << 1.0 << 50;
    QTest::newRow("four times") << 4.0 << 45;
}

void TestStereoPlot::lassoSelectsWhatLiesInside()
{
    QFETCH(double, zoom);
    QFETCH(int, percent);
    StereoRecords records = StereoRecords::even(20000);
    Net net(&records.m_model);
    net.zoom(zoom);
    net.xoffset(percent);
    net.yoffset(percent);
    net.redraw();
    std::vector<QPointF> voPath;
    std::vector<double> vdX;
    std::vector<double> vdY;
    for (int i = 0; i < 21; ++i) {
        // A star that crosses itself.
        const double dAngle = i * 8.0 * 2.0 * std::numbers::pi / 21.0;
        voPath.emplace_back(std::round(190.0 + 140.0 * std::cos(dAngle)), std::round(210.0 + 120.0 * std::sin(dAngle)));
        vdX.push_back(voPath.back().x() + net.pixmapRect().left());
        vdY.push_back(voPath.back().y() + net.pixmapRect().top());
    }
    QSignalSpy selections(&net, &QStereoPlotWidget::dataPointsSelection);
    gkTest::dragMouse(net, voPath);
    QCOMPARE(selections.count(), 1);
    QCOMPARE(selections.front()[1].toInt(), 20000);
    QVERIFY(records.m_model.numberOfSelectedPoints() > 200);
    const std::vector<QPointF>& voPixels = net.pointPixels();
    for (std::size_t i = 0; i < voPixels.size(); ++i) {
        const QPointF oPixel = voPixels[i];
        QCOMPARE(records.m_model.isSelected(static_cast<int>(i)), pointInPolygon(vdX, vdY, oPixel.x(), oPixel.y()));
    }
}

void TestStereoPlot::pressClearsAndCtrlAdds()
{
    // The last two are one symbol.
    StereoRecords records({30.0, 30.0, 80.0, 80.0}, {90.0, 180.0, 270.0, 270.0});
    Net net(&records.m_model);
    QSignalSpy cleared(&net, &QStereoPlotWidget::clearSelection);
    const auto click = [&](int iRecord, Qt::KeyboardModifiers eModifiers) {
        const QPointF oPixel = net.pointPixels()[static_cast<std::size_t>(iRecord)] + QPointF(2.0, -1.0);
        gkTest::dragMouse(net, {oPixel}, eModifiers);
        return records.m_model.selectedRecords();
    };
    QCOMPARE(click(0, Qt::NoModifier), std::vector<int>{0});
    QCOMPARE(cleared.count(), 0);
    QCOMPARE(click(1, Qt::ControlModifier), (std::vector<int>{0, 1}));
    QCOMPARE(cleared.count(), 0);
    QCOMPARE(click(2, Qt::NoModifier), (std::vector<int>{2, 3}));
    QCOMPARE(cleared.count(), 1);

    // Escape brings back what the press cleared.
    gkTest::sendMouse(net, QEvent::MouseButtonPress, {20.0, 20.0});
    QCOMPARE(records.m_model.numberOfSelectedPoints(), 0);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&net, &escape);
    QCOMPARE(records.m_model.selectedRecords(), (std::vector<int>{2, 3}));
    gkTest::sendMouse(net, QEvent::MouseButtonRelease, {20.0, 20.0});
    QCOMPARE(records.m_model.selectedRecords(), (std::vector<int>{2, 3}));

    gkTest::dragMouse(net, {{20.0, 20.0}});
    QCOMPARE(records.m_model.numberOfSelectedPoints(), 0);
    QVERIFY(net.pointToolTip(2).contains(QStringLiteral("Dip Azimuth: 270")));
    records.m_model.rotateDataAboutRotationAxis(nullptr, {90.0, 0.0}, 10.0, true);
    QVERIFY(net.pointToolTip(2).contains(QStringLiteral("Rotated:Dip Azimuth: 280")));

    // What is not shown takes part in no gesture.
    records.m_model.setSelectedRecords({1});
    net.m_choice.m_bPoints = false;
    net.choose();
    QCOMPARE(click(0, Qt::NoModifier), std::vector<int>{1});
    net.m_choice.m_bGreatCircles = true;
    net.choose();
    QCOMPARE(click(0, Qt::NoModifier), std::vector<int>{0});
}

void TestStereoPlot::wheelLeavesALassoAlone()
{
    StereoRecords records = StereoRecords::even(10);
    Net net(&records.m_model);
    const auto turn = [&](Qt::MouseButtons eButtons) {
        QWheelEvent event({100.0, 100.0}, {100.0, 100.0}, {}, {0, 120}, eButtons, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(&net, &event);
        return net.zoomFactor();
    };
    net.enableMouseZoom(true);
    QCOMPARE(turn(Qt::LeftButton), 1.0);
    QVERIFY(turn(Qt::NoButton) > 1.0);
}

void TestStereoPlot::cursorTellsOrientations()
{
    Net net;
    QSignalSpy cursor(&net, &QStereoPlotWidget::cursorPos);
    const auto at = [&](const QPointF& oPixel) {
        QMouseEvent event(QEvent::MouseMove, oPixel, oPixel, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&net, &event);
        return cursor.takeLast().front().toPointF();
    };
    QVERIFY(near(at({199.0, 119.0}), {41.4096, 180.0}, 1e-3));
    QCOMPARE(at({199.0, 30.0}), QPointF(99999.0, 99999.0));
    net.m_choice.m_iProjectionTarget = 1;
    net.choose();
    QVERIFY(near(at({199.0, 119.0}), {48.5904, 0.0}, 1e-3));
    QCOMPARE(at({199.0, 199.0}), QPointF(90.0, 0.0));
}

void TestStereoPlot::pickIsShownWhileTheButtonIsDown()
{
    Net net;
    const QImage oBefore = net.picture();
    const QByteArray sCopy = svgOf(net);
    net.setMouseMode(QStereoPlotWidget::MouseMode::Pick);
    gkTest::sendMouse(net, QEvent::MouseButtonPress, {150.0, 199.0});
    // The pole lies in the west, so the plane dips east: its dip point is drawn there.
    const double dDip = 2.0 * std::asin(49.0 / 160.0 / std::sqrt(2.0)) * 180.0 / std::numbers::pi;
    const QPoint oDip = net.dipDirectionInPixel({dDip, 90.0}).toPoint();
    const QImage oHeld = net.picture();
    QVERIFY(oHeld.pixel(oDip) != oBefore.pixel(oDip));
    QCOMPARE(svgOf(net), sCopy);
    // Beyond the rim the position is pulled onto it.
    gkTest::sendMouse(net, QEvent::MouseMove, {10.0, 199.0});
    QVERIFY(near(net.mousePickingPos(), {39.0, 199.0}, 1e-9));
    gkTest::sendMouse(net, QEvent::MouseButtonRelease, {10.0, 199.0});
    QCOMPARE(net.picture(), oBefore);
}

void TestStereoPlot::contoursLieUnderPointsAndNet()
{
    StereoRecords records = StereoRecords::even(400);
    Net net(&records.m_model);
    net.m_choice.m_bContourFill = true;
    net.m_choice.m_bContourColorFill = true;
    net.m_choice.m_bPoints = false;
    net.choose();
    const QImage oFilled = net.picture();
    net.m_choice.m_bPoints = true;
    net.m_choice.m_bCoarseNet = true;
    net.m_choice.m_bFineNet = true;
    net.choose();
    const QImage oAll = net.picture();
    for (const QPointF& oPixel : net.pointPixels()) {
        const bool bInside = std::hypot(oPixel.x() - 199.0, oPixel.y() - 199.0) < 155.0;
        QVERIFY(!bInside || oAll.pixelColor(oPixel.toPoint()) == QColor(Qt::red));
        // Colours of bands: nothing of the background is left on the net.
        QVERIFY(!bInside || oFilled.pixelColor(oPixel.toPoint()) != QColor(Qt::white));
    }
    QCOMPARE(oFilled.pixelColor(20, 380), QColor(Qt::white));
}

void TestStereoPlot::dataStaysWithinTheRim()
{
    StereoRecords records(std::vector<double>(36, 90.0), std::vector<double>(36, 45.0));
    Net net(&records.m_model);
    net.m_choice.m_bGreatCircles = true;
    net.m_choice.m_bContourFill = true;
    net.m_choice.m_bContourColorFill = true;
    net.m_choice.m_bAnglesAtRim = false;
    net.m_choice.m_bHemisphereLabel = false;
    net.choose();
    const QImage oImage = net.picture();
    int iOutside = 0;
    for (int y = 30; y < 380; ++y)
        for (int x = 30; x < 350; ++x)
            if (std::hypot(x + 0.5 - 199.0, y + 0.5 - 199.0) > 163.0)
                iOutside += oImage.pixel(x, y) != qRgb(255, 255, 255) ? 1 : 0;
    QCOMPARE(iOutside, 0);
}

void TestStereoPlot::areasEndAtTheRim()
{
    // Bands hold what their level holds on the net, and nothing beyond: also on devices that do not clip.
    StereoRecords records = StereoRecords::even(300);
    Net net(&records.m_model);
    net.m_choice.m_bContourFill = true;
    net.m_choice.m_iNodes = 15;
    net.choose();
    const NetFrame oFrame = net.netFrame();
    const std::vector<double> vdLevels = contourLevels(net.density());
    const std::vector<DensityContour> vContours = densityContours(net.density(), vdLevels);
    const std::vector<ContourPath> vPaths = contourPaths(vContours, oFrame);
    for (std::size_t i = 0; i < vPaths.size(); ++i) {
        QPainterPath oWhole;
        oWhole.setFillRule(Qt::WindingFill);
        for (const NetPolyline& outline : vContours[i].m_vOutlines) {
            addToPath(oWhole, oFrame, std::span(&outline, 1));
            oWhole.closeSubpath();
        }
        for (double dX = 40.0; dX < 360.0; dX += 9.7) {
            for (double dY = 40.0; dY < 360.0; dY += 8.3) {
                const double dRadius = std::hypot(dX - 199.0, dY - 199.0);
                if (dRadius < 159.0)
                    QCOMPARE(vPaths[i].m_oArea.contains(QPointF(dX, dY)), oWhole.contains(QPointF(dX, dY)));
                else if (dRadius > 160.5)
                    QVERIFY(!vPaths[i].m_oArea.contains(QPointF(dX, dY)));
            }
        }
    }
    QVERIFY(vPaths.front().m_oArea.contains(QPointF(199.0, 199.0)));
}

void TestStereoPlot::girdleOfLinesIsThePlaneAcrossThem()
{
    StereoRecords lines = StereoRecords::even(60, true);
    StereoNetSettings settings;
    for (StereoResultStyle& style : settings.m_aResults)
        style.m_bShow = true;
    Net net(&lines.m_model);
    bool bFound = false;
    for (const StereoResultItem& item : stereoResults(lines.m_model, settings)) {
        QVERIFY(item.m_eKind != StereoResultItem::Kind::Pole);
        if (item.m_eResult == StereoResult::BestFitGirdle) {
            bFound = true;
            QVERIFY(near(net.poleInPixel(item.m_oOrientation),
                         net.dipDirectionInPixel(lines.m_model.LdirectionDipDirection()), 1e-6));
        }
    }
    QVERIFY(bFound);
    StereoRecords none({}, {});
    QVERIFY(stereoResults(none.m_model, settings).empty());
}

void TestStereoPlot::coneIsDrawnAboutTheMean()
{
    StereoRecords records({40.0, 60.0, 50.0, 45.0, 55.0}, {80.0, 100.0, 70.0, 110.0, 90.0});
    Net net(&records.m_model);
    net.m_choice.m_bPoints = false;
    net.m_choice.m_bResultLabels = false;
    net.m_choice.result(StereoResult::ConfidenceCone) = {true, Qt::blue, 3};
    for (const int iTarget : {0, 1}) { // about the mean pole and about the mean dip line
        net.m_choice.m_iProjectionTarget = iTarget;
        net.choose();
        const FisherStatistics oFisher = records.m_model.orientationStatistics(iTarget == 0, false).m_oFisher;
        const LineOrientation& oMean = oFisher.m_oMeanLine;
        const QImage oPicture = net.picture();
        // The axis and the circle lie in one upright plane where they have the same azimuth.
        for (const double dSide : {-1.0, 1.0}) {
            const QPointF oOn =
                net.dipDirectionInPixel({oMean.m_dPlunge + dSide * oFisher.m_dAlpha95, oMean.m_dAzimuth});
            QCOMPARE(QColor(oPicture.pixel(oOn.toPoint())), QColor(Qt::blue));
        }
        const QPoint oAxis = net.dipDirectionInPixel({oMean.m_dPlunge, oMean.m_dAzimuth}).toPoint();
        QVERIFY(QColor(oPicture.pixel(oAxis)) != QColor(Qt::blue));
    }
    const StereoRecords single({40.0}, {80.0});
    QVERIFY(stereoResults(single.m_model, net.m_choice).empty()); // one record has no cone
}

void TestStereoPlot::pansAddNothing()
{
    StereoRecords records = StereoRecords::even(300);
    Net net(&records.m_model);
    net.m_choice.m_bContourLabels = true;
    net.m_choice.m_bCoarseNet = true;
    net.m_choice.m_bGreatCircles = true;
    net.choose();
    net.zoom(4.0);
    const QImage oFirst = net.picture();
    for (int i = 0; i < 10; ++i) {
        net.xoffset(10 * i);
        net.yoffset(100 - 7 * i);
        net.picture();
    }
    net.xoffset(50);
    net.yoffset(50);
    QCOMPARE(net.picture(), oFirst);
}

void TestStereoPlot::vectorCopiesHaveTheSameParts()
{
    StereoRecords records = StereoRecords::even(40);
    Net net(&records.m_model);
    net.setMouseMode(QStereoPlotWidget::MouseMode::Pick);
    net.m_choice.m_bContourLabels = true;
    net.m_choice.m_bContourLines = true;
    net.m_choice.m_dInterval = 2.5;
    net.m_choice.result(StereoResult::MeanPrincipalPlane).m_bShow = true;
    net.m_choice.result(StereoResult::LPole).m_bShow = true;
    net.choose();
    const QByteArray sWithout = svgOf(net);
    for (const char* pText : {"Mean Principal Plane", "L Pole", "%", "points = "})
        QVERIFY2(sWithout.contains(pText), pText);
    // Results lie above the labels of contours.
    QVERIFY(sWithout.lastIndexOf("%<") < sWithout.indexOf("Mean Principal Plane"));
    QVERIFY(sWithout.lastIndexOf("%<") < sWithout.indexOf("L Pole"));
    // Every great circle is a curve of its own.
    net.m_choice.m_bGreatCircles = true;
    net.choose();
    QCOMPARE(svgOf(net).count("<path"), sWithout.count("<path") + 40);

    EMFDevice device;
    device.setBoundingRect(net.rect());
    QPainter painter(&device);
    net.renderTo(painter, net.rect());
    painter.end();
    const QByteArray sMetafile = device.metafile();
    const QString sLabel = QStringLiteral("Mean Principal Plane");
    QVERIFY(sMetafile.contains(QByteArray(reinterpret_cast<const char*>(sLabel.utf16()), 2 * sLabel.size())));
}

void TestStereoPlot::tracesAreGreatCircles()
{
    // Whatever way a trace is drawn, its points are lines at 90 degrees from the pole of the plane, to a pixel.
    Net net;
    for (const bool bEqualArea : {true, false}) {
        net.m_choice.m_bEqualArea = bEqualArea;
        net.choose();
        for (const double dDip : {0.002, 1.0, 30.0, 89.0, 89.99, 90.0}) {
            gkTest::RecordingDevice device(net.size());
            QPainter painter(&device);
            net.drawCyclographicTrace(&painter, dDip, 65.0, false);
            painter.end();
            QCOMPARE(device.recording().m_voShapes.size(), 1);
            for (const QPointF& oPixel : device.recording().m_voShapes.first()) {
                const NetPoint oPoint = pulledOntoNet(net.netFrame().toNet(oPixel.x(), oPixel.y()));
                const LineOrientation oLine = net.projection().lineAt(oPoint);
                const double dCosine = lineVector(oLine.m_dPlunge, oLine.m_dAzimuth).dot(poleVector(dDip, 65.0));
                QVERIFY2(std::abs(dCosine) < 0.02, qPrintable(QString::number(dDip)));
            }
        }
    }
}

void TestStereoPlot::manyGreatCirclesLookLikeFew_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("percent");
    QTest::newRow("whole net") << 1.0 << 50;
    QTest::newRow("twenty times, at the centre") << 20.0 << 50;
    QTest::newRow("twenty times, towards the rim") << 20.0 << 30;
}

void TestStereoPlot::manyGreatCirclesLookLikeFew()
{
    QFETCH(double, zoom);
    QFETCH(int, percent);
    // The same planes often enough to be written as pixels: the same curves, to a pixel, whatever part is seen.
    std::vector<double> vdDips;
    std::vector<double> vdAzimuths;
    for (int i = 0; i < 60; ++i) {
        vdDips.push_back(std::fmod(17.3 * i, 90.0));
        vdAzimuths.push_back(std::fmod(71.7 * i, 360.0));
    }
    std::vector<double> vdManyDips;
    std::vector<double> vdManyAzimuths;
    for (std::size_t i = 0; i <= GreatCirclePainter::s_iMostOutlines; ++i) {
        vdManyDips.push_back(vdDips[i % vdDips.size()]);
        vdManyAzimuths.push_back(vdAzimuths[i % vdDips.size()]);
    }
    StereoRecords few(vdDips, vdAzimuths);
    StereoRecords many(vdManyDips, vdManyAzimuths);
    Net net(&few.m_model);
    net.m_choice.m_bGreatCircles = true;
    net.m_choice.m_bPoints = false;
    net.m_choice.m_bCircleFrame = false;
    net.choose();
    net.zoom(zoom);
    net.xoffset(percent);
    net.yoffset(percent);
    const QImage oFew = net.picture();
    net.setModel(&many.m_model);
    const QImage oMany = net.picture();
    const auto isNear = [](const QImage& oImage, int x, int y) {
        for (int i = -1; i <= 1; ++i)
            for (int j = -1; j <= 1; ++j)
                if (qGreen(oImage.pixel(x + i, y + j)) < 200)
                    return true;
        return false;
    };
    int iWritten = 0;
    int iStray = 0;
    int iLost = 0;
    for (int y = 60; y < 340; ++y) {
        for (int x = 60; x < 340; ++x) {
            if (oMany.pixel(x, y) == qRgb(255, 0, 0)) {
                ++iWritten;
                iStray += isNear(oFew, x, y) ? 0 : 1;
            }
            iLost += qRed(oFew.pixel(x, y)) == 255 && qGreen(oFew.pixel(x, y)) < 40 && !isNear(oMany, x, y) ? 1 : 0;
        }
    }
    QCOMPARE(iStray, 0);
    QCOMPARE(iLost, 0);
    QVERIFY2(iWritten > 150, qPrintable(QString::number(iWritten)));
}

QTEST_MAIN(TestStereoPlot)
#include "tst_stereoplot.moc"
