// Lines at depths on the canvas of cartesian charts: how they are picked, dragged and shown.

#include "CrossPlotCanvas.h"

#include <gkBase/CrossPlotGeometry.h>

#include <QHelpEvent>
#include <QImage>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <cmath>

using namespace gkBase;
using namespace gkTest;

namespace {

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

class TestCrossPlotLines : public QObject
{
    Q_OBJECT
private slots:
    void draggedLinesKeepTheirDistances_data();
    void draggedLinesKeepTheirDistances();
    void draggedLineStaysInSight();
    void onlyAHeldButtonMovesLines();
    void picksReplaceAddAndReduce_data();
    void picksReplaceAddAndReduce();
    void gripsAreReachable();
    void nameOfThePickedLineStays();
    void linesFollowTheirFlags();
    void menuOffersLinesOnlyWhenPicked();
};

void TestCrossPlotLines::draggedLinesKeepTheirDistances_data()
{
    QTest::addColumn<bool>("receiver");
    QTest::addColumn<int>("domains");
    QTest::newRow("the canvas moves") << false << 0;
    QTest::newRow("a receiver moves") << true << 0;
    QTest::newRow("over domains") << true << int(DepthLineField::AllLineDomains);
}

void TestCrossPlotLines::draggedLinesKeepTheirDistances()
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

void TestCrossPlotLines::draggedLineStaysInSight()
{
    Plot plot;
    plot.addLines({20.0, 35.5});
    const DepthLineField& tops = plot.tops();
    plot.m_plot.zoom(2.0);
    plot.m_plot.yoffset(100); // 0 … 50 are seen
    plot.m_plot.setDataCreationType(QCrossPlot::StructuralTopCreation);
    plot.m_plot.setStructuralTopsMovable(true);
    const auto dragTo = [&plot, &tops](double dRow) {
        const double dFrom = plot.rowAt(tops.lineDepths()[0]);
        const double dPressed = dFrom < 150.0 ? dFrom + 3.0 : dFrom - 3.0; // beside the line, within reach
        drag(plot.m_plot, {{50.0, dPressed}, {50.0, 150.0}, {50.0, dRow}});
        return plot.rowAt(tops.lineDepths()[0]);
    };
    QVERIFY(std::abs(dragTo(-5000.0)) < 1e-9);
    QVERIFY(std::abs(dragTo(5000.0) - 299.0) < 1e-9);
    QCOMPARE(tops.lineDepths()[1], 35.5);
}

void TestCrossPlotLines::onlyAHeldButtonMovesLines()
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

void TestCrossPlotLines::picksReplaceAddAndReduce_data()
{
    QTest::addColumn<bool>("receiver");
    QTest::newRow("the canvas picks") << false;
    QTest::newRow("a receiver picks") << true;
}

void TestCrossPlotLines::picksReplaceAddAndReduce()
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

void TestCrossPlotLines::gripsAreReachable()
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

void TestCrossPlotLines::nameOfThePickedLineStays()
{
    Plot plot(6);
    plot.addLines({44.0, 47.0, 53.0, 56.0});
    plot.tops().insertHorizontalLine(50.0, 0.0, QStringLiteral("Top"), Qt::blue, DepthLineField::Horizon);
    // Marks of orientations stand where names do.
    plot.tops().setSelected({0, 1, 2, 3, 4});
    plot.tops().changePickedOrientation({97.0, 90.0});
    plot.m_plot.setLineOrientationPosition([](const QPointF& oOrientation) { return oOrientation.x(); });
    plot.m_plot.setStructuralTopsMovable(true);
    const auto hasName = [&plot] {
        plot.m_plot.updateLines();
        const QImage oPicture = plot.m_plot.grab().toImage();
        // The stripe before a name is higher than the line and stands right of the grips.
        for (int x = 100; x < 380; ++x) {
            int iBlue = 0;
            for (int y = 0; y < oPicture.height(); ++y)
                iBlue += oPicture.pixelColor(x, y) == QColor(Qt::blue);
            if (iBlue > 8)
                return true;
        }
        return false;
    };
    plot.tops().deselectAll();
    QVERIFY(!hasName());
    plot.tops().setSelected({4});
    QVERIFY(hasName());
}

void TestCrossPlotLines::linesFollowTheirFlags()
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

void TestCrossPlotLines::menuOffersLinesOnlyWhenPicked()
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

QTEST_MAIN(TestCrossPlotLines)
#include "tst_crossplotlines.moc"
