// The canvas of cartesian point charts: its mapping, what an outline selects, and lines that are picked and moved.

#include <gkBase/CrossPlotGeometry.h>
#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/PointInPolygon.h>
#include <gkBase/QCrossPlot.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/UnitManager.h>

#include <QCoreApplication>
#include <QHelpEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <cmath>
#include <memory>
#include <random>

using namespace gkBase;

namespace {

std::unique_ptr<MatrixData> numbers(const char* pName, std::vector<double> vdValues)
{
    auto poData = std::make_unique<MatrixData>(QString::fromLatin1(pName), 0, 1, QMetaType::Double);
    poData->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
    return poData;
}

void send(QWidget& widget, QEvent::Type eType, const QPointF& oPosition, Qt::MouseButton eButton = Qt::LeftButton,
          Qt::KeyboardModifiers eModifiers = Qt::NoModifier)
{
    const Qt::MouseButtons eHeld = eType == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(eButton);
    QMouseEvent event(eType, oPosition, widget.mapToGlobal(oPosition),
                      eType == QEvent::MouseMove ? Qt::NoButton : eButton, eHeld, eModifiers);
    QCoreApplication::sendEvent(&widget, &event);
}

/// A drag without its release.
void press(QWidget& widget, const std::vector<QPointF>& voPath, Qt::MouseButton eButton = Qt::LeftButton,
           Qt::KeyboardModifiers eModifiers = Qt::NoModifier)
{
    send(widget, QEvent::MouseButtonPress, voPath.front(), eButton, eModifiers);
    for (std::size_t i = 1; i < voPath.size(); ++i)
        send(widget, QEvent::MouseMove, voPath[i], eButton, eModifiers);
}

void drag(QWidget& widget, const std::vector<QPointF>& voPath, Qt::MouseButton eButton = Qt::LeftButton,
          Qt::KeyboardModifiers eModifiers = Qt::NoModifier)
{
    press(widget, voPath, eButton, eModifiers);
    send(widget, QEvent::MouseButtonRelease, voPath.back(), eButton, eModifiers);
}

void pressKey(QWidget& widget, int iKey)
{
    QKeyEvent event(QEvent::KeyPress, iKey, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

std::vector<QPointF> box(double dLeft, double dTop, double dRight, double dBottom)
{
    return {{dLeft, dTop}, {dRight, dTop}, {dRight, dBottom}, {dLeft, dBottom}};
}

/// Random points in 0 … 100 on a canvas of 400 × 300 whose y grows upwards.
struct Plot
{
    explicit Plot(int iCount = 2000)
    {
        std::mt19937 generator(11);
        std::uniform_real_distribution<double> uniform(0.0, 100.0);
        std::vector<double> vdX(static_cast<std::size_t>(iCount));
        std::vector<double> vdY(static_cast<std::size_t>(iCount));
        for (std::size_t i = 0; i < vdX.size(); ++i) {
            vdX[i] = uniform(generator);
            vdY[i] = uniform(generator);
        }
        vdY[5] = 99999.0;
        m_poX = numbers("Porosity", vdX);
        m_poY = numbers("Density", vdY);
        m_model.takeNewDataSet(m_poX.get(), m_poY.get());
        m_plot.resize(400, 300);
        m_plot.setModel(&m_model);
        m_plot.setRange({0.0, 0.0}, {100.0, 100.0});
    }
    DepthLineField& tops()
    {
        if (!m_model.structuralTops())
            m_model.addStructuralTopsSenario(QStringLiteral("Tops"));
        return *m_model.structuralTops();
    }
    void addLines(const std::vector<double>& vdDepths)
    {
        for (const double dDepth : vdDepths)
            tops().insertHorizontalLine(dDepth, 0.0, QStringLiteral("Top"), Qt::red, DepthLineField::Horizon);
    }
    /// The row of the widget at a y in chart units.
    double rowAt(double dY) { return m_plot.transformInPixelPoint({0.0, dY}).y() - m_plot.pixmapRect().top(); }

    std::unique_ptr<MatrixData> m_poX;
    std::unique_ptr<MatrixData> m_poY;
    QRelationshipItemModel m_model;
    QCrossPlot m_plot;
};

/// Applies what the canvas asks for, and writes it down; steps that follow each other as their sum.
struct LineReceiver
{
    explicit LineReceiver(Plot& plot)
        : m_tops(plot.tops())
    {
        QObject* pqContext = &m_context;
        QObject::connect(&plot.m_plot, &QCrossPlot::sendScatPickPos, pqContext,
                         [this](const std::vector<int>& viLines) {
                             m_lLog << QStringLiteral("pick");
                             for (const int iLine : viLines)
                                 m_lLog.last() += QStringLiteral(" %1").arg(iLine);
                             if (!m_bAdd)
                                 m_tops.deselectAll();
                             m_tops.setSelected(viLines);
                         });
        QObject::connect(&plot.m_plot, &QCrossPlot::sendMoveSelectedUpdate, pqContext,
                         [this, &plot](const QPointF& oStep) {
                             if (m_dMoved == 0.0) {
                                 m_before = m_tops;
                                 m_lLog << QString();
                             }
                             m_dMoved += oStep.y();
                             m_lLog.last() = QStringLiteral("move %1").arg(m_dMoved);
                             m_tops.moveSelectedLines(oStep);
                             plot.m_plot.updateLines();
                         });
        QObject::connect(&plot.m_plot, &QCrossPlot::sendMoveSelectedUpdateStop, pqContext, [this] { end("stop"); });
        QObject::connect(&plot.m_plot, &QCrossPlot::sendMoveSelectedCancel, pqContext, [this] {
            m_tops = m_before;
            end("cancel");
        });
        QObject::connect(&plot.m_plot, &QCrossPlot::sendInsertScatUpdate, pqContext, [this](const QPointF& oPosition) {
            m_lLog << QStringLiteral("insert %1").arg(oPosition.y());
            m_tops.deselectAll();
            m_tops.setSelected(
                m_tops.insertHorizontalLine(oPosition.y(), 0.0, QString(), Qt::blue, DepthLineField::Horizon), true);
        });
    }
    void end(const char* pText)
    {
        m_dMoved = 0.0;
        m_lLog << QString::fromLatin1(pText);
    }

    DepthLineField& m_tops;
    DepthLineField m_before;
    bool m_bAdd = false; ///< Ctrl is held
    double m_dMoved = 0.0;
    QStringList m_lLog;
    QObject m_context;
};

} // namespace

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
    void draggedLinesKeepTheirDistances_data();
    void draggedLinesKeepTheirDistances();
    void onlyAHeldButtonMovesLines();
    void picksReplaceAddAndReduce_data();
    void picksReplaceAddAndReduce();
    void gripsAreReachable();
    void boundariesAreRemovedByPress();
    void linesFollowTheirFlags();
    void regressionIsDrawnAndNamed();
    void menuOffersLinesOnlyWhenPicked();
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

void TestQCrossPlot::draggedLinesKeepTheirDistances_data()
{
    QTest::addColumn<bool>("receiver");
    QTest::addColumn<int>("domains");
    QTest::newRow("the canvas moves") << false << 0;
    QTest::newRow("a receiver moves") << true << 0;
    QTest::newRow("over domains") << true << int(DepthLineField::AllLineDomains);
}

void TestQCrossPlot::draggedLinesKeepTheirDistances()
{
    QFETCH(bool, receiver);
    QFETCH(int, domains);
    Plot plot;
    const std::vector<double> vdDepths{20.0, 35.5, 70.0};
    plot.addLines(vdDepths);
    DepthLineField& tops = plot.tops();
    tops.setDomainType(static_cast<DepthLineField::DomainType>(domains));
    tops.setSelected({0, 1});
    tops.setModified(false);
    plot.m_plot.setDataCreationType(QCrossPlot::StructuralTopCreation);
    plot.m_plot.setStructuralTopsMovable(true);
    std::unique_ptr<LineReceiver> pReceiver(receiver ? new LineReceiver(plot) : nullptr);
    const QImage oAtRest = plot.m_plot.grab().toImage();
    // Pressed beside the line, within reach.
    std::vector<QPointF> voPath{{50.0, plot.rowAt(20.0) + 3.0}};
    for (int i = 1; i <= 25; ++i)
        voPath.push_back(voPath.front() - QPointF(0.0, 3.0 * i));
    press(plot.m_plot, voPath);
    const double dMoved = 75.0 * 100.0 / 299.0;
    QVERIFY(std::abs(tops.lineDepths()[0] - (20.0 + dMoved)) < 1e-9);
    QVERIFY(std::abs(tops.lineDepths()[1] - tops.lineDepths()[0] - 15.5) < 1e-9);
    QCOMPARE(tops.lineDepths()[2], 70.0);
    QVERIFY(plot.m_plot.grab().toImage() != oAtRest);

    // A second button is no release, Escape gives all steps up, and the release after it means nothing.
    send(plot.m_plot, QEvent::MouseButtonPress, voPath.back(), Qt::RightButton);
    pressKey(plot.m_plot, Qt::Key_Escape);
    QCOMPARE(tops.lineDepths(), vdDepths);
    QVERIFY(receiver || !tops.modified());
    send(plot.m_plot, QEvent::MouseButtonRelease, voPath.back());
    if (receiver)
        QCOMPARE(pReceiver->m_lLog, (QStringList{"pick 0 1", "move 25.0836", "cancel"}));
    drag(plot.m_plot, voPath);
    QVERIFY(std::abs(tops.lineDepths()[0] - (20.0 + dMoved)) < 1e-9);
    QCOMPARE(tops.selectedLines(), (std::vector<int>{0, 1}));
    if (receiver)
        QCOMPARE(pReceiver->m_lLog.mid(3), (QStringList{"pick 0 1", "move 25.0836", "stop"}));
    // A key that is held moves once, a pixel at a time.
    for (const bool bRepeated : {false, true, true}) {
        QKeyEvent nudge(QEvent::KeyPress, Qt::Key_Up, Qt::AltModifier, QString(), bRepeated);
        QCoreApplication::sendEvent(&plot.m_plot, &nudge);
    }
    QVERIFY(std::abs(tops.lineDepths()[1] - (35.5 + dMoved + 300.0 / 299.0)) < 1e-9);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Up, Qt::AltModifier);
    QCoreApplication::sendEvent(&plot.m_plot, &release);
    if (receiver)
        QCOMPARE(pReceiver->m_lLog.mid(6), (QStringList{"move 1.00334", "stop"}));
}

void TestQCrossPlot::onlyAHeldButtonMovesLines()
{
    Plot plot;
    plot.addLines({20.5});
    const DepthLineField& tops = plot.tops();
    plot.m_plot.setDataCreationType(QCrossPlot::StructuralTopCreation);
    plot.m_plot.setStructuralTopsMovable(true);
    // The release goes to a dialog that the press opened.
    send(plot.m_plot, QEvent::MouseButtonPress, {50.0, plot.rowAt(20.0)});
    QCOMPARE(tops.selectedLines(), std::vector<int>{0});
    send(plot.m_plot, QEvent::MouseMove, {50.0, 10.0}, Qt::NoButton);
    QCOMPARE(tops.lineDepths()[0], 20.5);
    // A press beside all lines drags none, but the one that is inserted there.
    drag(plot.m_plot, {{50.0, plot.rowAt(70.0)}, {50.0, plot.rowAt(80.0)}});
    QCOMPARE(tops.lineDepths()[0], 20.5);
    const LineReceiver receiver(plot);
    drag(plot.m_plot, {{50.0, plot.rowAt(40.0)}, {50.0, plot.rowAt(50.0)}});
    QCOMPARE(receiver.m_lLog, (QStringList{"insert 40", "move 10", "stop"}));
    QCOMPARE(tops.lineDepths(), (std::vector<double>{20.5, 50.0}));

    // An outline whose release was lost is given up.
    plot.m_plot.setDataCreationType(QCrossPlot::NoCreation);
    plot.m_model.setSelectedRecords({3});
    send(plot.m_plot, QEvent::MouseButtonPress, {50.0, 50.0});
    send(plot.m_plot, QEvent::MouseMove, {200.0, 50.0}, Qt::NoButton);
    send(plot.m_plot, QEvent::MouseButtonRelease, {200.0, 200.0});
    QCOMPARE(plot.m_model.selectedRecords(), std::vector<int>{3});
}

void TestQCrossPlot::picksReplaceAddAndReduce_data()
{
    QTest::addColumn<bool>("receiver");
    QTest::newRow("the canvas picks") << false;
    QTest::newRow("a receiver picks") << true;
}

void TestQCrossPlot::picksReplaceAddAndReduce()
{
    QFETCH(bool, receiver);
    Plot plot;
    plot.addLines({20.0, 60.0, 61.0, 80.0});
    DepthLineField& tops = plot.tops();
    tops.insertHorizontalLine(60.0, 0.0, QStringLiteral("hidden"), Qt::red, DepthLineField::Fault);
    tops.setShowFaults(false);
    plot.m_plot.setDataCreationType(QCrossPlot::StructuralTopCreation);
    plot.m_plot.setStructuralTopsMovable(true);
    const std::unique_ptr<LineReceiver> pReceiver(receiver ? new LineReceiver(plot) : nullptr);
    const auto click = [&](double dY, Qt::KeyboardModifiers eModifiers = Qt::NoModifier,
                           Qt::MouseButton eButton = Qt::LeftButton) {
        if (pReceiver)
            pReceiver->m_bAdd = eModifiers == Qt::ControlModifier;
        drag(plot.m_plot, {{200.0, plot.rowAt(dY)}}, eButton, eModifiers);
        return tops.selectedLines();
    };
    QCOMPARE(click(20.0), std::vector<int>{0});
    QCOMPARE(click(60.3), std::vector<int>{1}); // the nearest of two within reach
    QCOMPARE(click(60.7), std::vector<int>{2});
    QCOMPARE(click(20.0, Qt::ControlModifier), (std::vector<int>{0, 2}));
    QCOMPARE(click(20.0, Qt::ControlModifier), (std::vector<int>{0, 2}));
    QCOMPARE(click(20.0), std::vector<int>{0});
    // The menu is for the line under it, or for all picked ones, and leaves points alone.
    plot.m_model.setSelectedRecords({3});
    QCOMPARE(click(80.0, {}, Qt::RightButton), std::vector<int>{3});
    QCOMPARE(click(20.0, Qt::ControlModifier), (std::vector<int>{0, 3}));
    QCOMPARE(click(80.0, {}, Qt::RightButton), (std::vector<int>{0, 3}));
    QCOMPARE(click(40.0, {}, Qt::RightButton), (std::vector<int>{0, 3}));
    QCOMPARE(plot.m_model.selectedRecords(), std::vector<int>{3});
    // Who hears of cleared points and unpicks the lines for that leaves the new pick.
    int iTold = 0;
    connect(&plot.m_plot, &QCrossPlot::dataPointsSelection, this, [&] {
        ++iTold;
        tops.deselectAll();
    });
    QCOMPARE(click(60.0), std::vector<int>{1});
    QCOMPARE(iTold, 1);

    QSignalSpy deleted(&plot.m_plot, &QCrossPlot::sendDeleteSelectedUpdate);
    pressKey(plot.m_plot, Qt::Key_Delete);
    QCOMPARE(deleted.count(), 1);
}

void TestQCrossPlot::gripsAreReachable()
{
    Plot plot;
    // Upwards: the first lies at the bottom. Four within one grip's height, two at the same depth.
    plot.addLines({50.0, 50.5, 51.0, 51.0, 0.0, 100.0});
    DepthLineField& tops = plot.tops();
    plot.m_plot.setDataCreationType(QCrossPlot::NoCreation);
    plot.m_plot.setStructuralTopsMovable(true);
    // The mark of an orientation where the grip would lie does not hide under it.
    tops.setSelected(5, true);
    tops.changePickedOrientation({3.0, 90.0});
    plot.m_plot.setLineOrientationPosition([](const QPointF& oOrientation) { return oOrientation.x(); });
    const std::vector<std::pair<int, QRectF>> vHandles = plot.m_plot.lineHandles();
    QVERIFY(vHandles.back().second.left() > 12.0 + CrossPlotOrientationMark::s_iRadius);
    QCOMPARE(int(vHandles.size()), tops.count());
    for (const auto& [iLine, oRect] : vHandles) {
        QVERIFY(QRectF(plot.m_plot.rect()).contains(oRect));
        for (const auto& [iOther, oOther] : vHandles)
            QVERIFY(iOther == iLine || !oOther.intersects(oRect));
        drag(plot.m_plot, {oRect.center()});
        QCOMPARE(tops.selectedLines(), std::vector<int>{iLine});
    }
    // Beside the grip the line is no obstacle to an outline; on it the line is dragged.
    plot.m_model.setSelectedRecords({});
    drag(plot.m_plot, {{200.0, plot.rowAt(50.0)}, {399.0, plot.rowAt(50.0)}, {399.0, 0.0}, {200.0, 0.0}});
    QVERIFY(plot.m_model.numberOfSelectedPoints() > 100);
    const QPointF oGrip = plot.m_plot.lineHandles().front().second.center();
    const int iLine = plot.m_plot.lineAt(oGrip);
    const double dBefore = tops.lineDepths()[static_cast<std::size_t>(iLine)];
    drag(plot.m_plot, {oGrip, oGrip + QPointF(0.0, 29.9)});
    QVERIFY(std::abs(tops.lineDepths()[static_cast<std::size_t>(iLine)] - (dBefore - 10.0)) < 1e-9);
    // What a press would take shows at the cursor and in the tip, as long as it is there.
    const QPointF oHovered = plot.m_plot.lineHandles().front().second.center();
    const Qt::CursorShape eShape = plot.m_plot.cursor().shape();
    send(plot.m_plot, QEvent::MouseMove, oHovered, Qt::NoButton);
    QCOMPARE(plot.m_plot.cursor().shape(), Qt::SizeVerCursor);
    QHelpEvent help(QEvent::ToolTip, oHovered.toPoint(), plot.m_plot.mapToGlobal(oHovered.toPoint()));
    QCoreApplication::sendEvent(&plot.m_plot, &help);
    QVERIFY(QToolTip::text().startsWith(QStringLiteral("Horizon<br>Top<br>Density: 50.5")));
    tops.clearAll();
    plot.m_plot.grab(); // before the canvas hears of it
    plot.m_plot.updateLines();
    QCOMPARE(plot.m_plot.cursor().shape(), eShape);
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

void TestQCrossPlot::linesFollowTheirFlags()
{
    const QSize oChart(200, 101);
    const CrossPlotMap oMap({0.0, 0.0}, {1.0, 100.0}, false, oChart);
    DepthLineField field;
    field.insertHorizontalLine(80.0, 0.0, QStringLiteral("H2"), Qt::red, DepthLineField::Horizon);
    field.insertHorizontalLine(10.0, 0.0, QStringLiteral("F"), Qt::red, DepthLineField::Fault);
    field.insertHorizontalLine(30.0, 0.0, QStringLiteral("H1"), Qt::blue, DepthLineField::Horizon, {35.0, 120.0});
    field.insertHorizontalLine(40.0, 0.0, QStringLiteral("A"), Qt::red, DepthLineField::AverageOrientation,
                               {99999.0, 99999.0});
    field.insertHorizontalLine(500.0, 0.0, QStringLiteral("H3"), Qt::red, DepthLineField::Horizon);
    QStringList lLabels;
    for (const CrossPlotDepthLine& line : crossPlotDepthLines(field, oMap, oChart))
        lLabels << QStringLiteral("%1@%2").arg(line.m_sLabel).arg(line.m_dY);
    QCOMPARE(lLabels, (QStringList{"F@10", "H1@30", "A@40", "H2@80"}));
    field.setShowFaults(false);
    field.setShowAverageOrientations(false);
    field.setShowHorizonLables(false);
    const std::vector<CrossPlotDepthLine> vLines = crossPlotDepthLines(field, oMap, oChart);
    QCOMPARE(int(vLines.size()), 2);
    QVERIFY(vLines[0].m_sLabel.isEmpty());

    QVERIFY(crossPlotDomains(field, oMap, oChart).empty());
    field.setDomainType(DepthLineField::HorizonDomains);
    field.setDomainTransparency(60);
    const std::vector<CrossPlotDomain> vDomains = crossPlotDomains(field, oMap, oChart);
    QCOMPARE(int(vDomains.size()), 2); // the second one is cut at the chart's end
    QCOMPARE(vDomains[0].m_oRect, QRectF(0, 30, 200, 50));
    QCOMPARE(vDomains[0].m_oColor.rgb(), QColor(Qt::blue).rgb());
    QCOMPARE(vDomains[0].m_oColor.alpha(), 102);
    QCOMPARE(vDomains[1].m_oRect.bottom(), 101.0);
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

void TestQCrossPlot::menuOffersLinesOnlyWhenPicked()
{
    Plot plot;
    QMenu without;
    plot.m_plot.addToContextMenuEvent(&without);
    QVERIFY(without.actions().isEmpty());
    plot.tops().insertHorizontalLine(20.0, 0.0, QStringLiteral("A"), Qt::red, DepthLineField::Horizon);
    plot.tops().setSelected(0, true);
    QMenu with;
    plot.m_plot.addToContextMenuEvent(&with);
    QStringList lTexts;
    for (const QAction* pqAction : with.actions())
        lTexts << pqAction->text();
    lTexts.removeAll(QString());
    QCOMPARE(lTexts, (QStringList{"Rename...", "Modify Colour...", "Modify Orientation", "Delete"}));
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
