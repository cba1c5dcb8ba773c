// The dipmeter window: edits of lines on four tracks, the keys of undo, what unpicks lines, the orientation mode.

#include "ScatTestPanel.h"
#include "TemporarySettings.h"

#include <gkBase/ScatScenarios.h>

#include <QAction>
#include <QCheckBox>
#include <QMainWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSplitter>
#include <QTemporaryDir>
#include <QUndoGroup>
#include <QUndoStack>
#include <QWindow>

#include <cmath>

using namespace gkBase;
using gkTest::FoldedWell;
using gkTest::Panel;
using gkTest::selected;

class TestScatLineEdits : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { gkTest::useTemporarySettings(m_folder.path(), QStringLiteral("tst_scatlineedits")); }
    void init() { QSettings().clear(); }
    void everyEditShowsOnFourTracks();
    void keysOfUndoBelongToThePanel();
    void draggedLinesKeepTheirDistances();
    void hiddenLinesAreLeftAlone();
    void emptySelectionsUnpickLines();
    void orientationMode();

private:
    QTemporaryDir m_folder;
};

void TestScatLineEdits::everyEditShowsOnFourTracks()
{
    FoldedWell well;
    Panel panel(well);
    panel.click(QScatDepthPlotWidget::DipTrack, 45.0, 1350.0);
    QCOMPARE(panel.scenarios()->count(), 0); // "None" creates nothing
    panel.choose("m_pqHorizonBtn");
    panel.click(QScatDepthPlotWidget::DipTrack, 45.0, 1350.0);
    panel.click(QScatDepthPlotWidget::AzimuthTrack, 200.0, 1450.0);
    panel.choose("m_pqFaultBtn");
    panel.click(QScatDepthPlotWidget::TransverseDipTrack, 0.0, 1550.0);
    QCOMPARE(panel.lines(0).lineNames(), (std::vector<QString>{QStringLiteral("Horizon_0"), QStringLiteral("Horizon_1"),
                                                               QStringLiteral("Fault0")}));
    panel.click(QScatDepthPlotWidget::LongitudinalDipTrack, 0.0, 1350.0);
    QCOMPARE(panel.lines(0).selectedLines(), std::vector<int>{0});
    panel.click(QScatDepthPlotWidget::DipTrack, 45.0, 1450.0, Qt::ControlModifier);
    QCOMPARE(panel.lines(3).selectedLines(), (std::vector<int>{0, 1}));
    QVERIFY(QMetaObject::invokeMethod(&panel, "slotSendScatUpdate", Q_ARG(QString, QStringLiteral("Bed"))));
    QVERIFY(QMetaObject::invokeMethod(&panel, "slotSendScatUpdate", Q_ARG(QColor, QColor(1, 2, 3))));
    for (int i = 0; i < QScatDepthPlotWidget::NumberOfTracks; ++i) {
        const std::vector<QColor>& voColors = panel.lines(i).lineColors();
        QVERIFY(voColors[0] == QColor(1, 2, 3) && voColors[1] == voColors[0] && voColors[2] != voColors[0]);
    }
    panel.click(QScatDepthPlotWidget::DipTrack, 45.0, 1550.0);
    QTest::keyClick(&panel.plot(QScatDepthPlotWidget::AzimuthTrack), Qt::Key_Delete);
    const auto onAllTracks = [&panel] {
        for (int i = 1; i < QScatDepthPlotWidget::NumberOfTracks; ++i) {
            if (panel.lines(i).lines() != panel.lines(0).lines())
                return false;
        }
        return true;
    };
    QCOMPARE(panel.lines(0).lineNames(), (std::vector<QString>{QStringLiteral("Bed"), QStringLiteral("Bed")}));
    QVERIFY(onAllTracks());
    panel.show();
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    // Three insertions, a name, a colour and a deletion; picks are no edits.
    QCOMPARE(panel.undoGroup()->activeStack()->count(), 6);
    for (const int iLines : {3, 3, 3, 2, 1, 0}) {
        QTest::keyClick(&panel, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(panel.lines(0).count(), iLines);
        QVERIFY(onAllTracks());
    }
    QVERIFY(!panel.scenarios()->isModified(0));
    QTest::keyClick(&panel, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&panel, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(panel.lines(2).count(), 2);
    QVERIFY(onAllTracks());
}

void TestScatLineEdits::keysOfUndoBelongToThePanel()
{
    FoldedWell well;
    QMainWindow window;
    auto* pqTwo = new QSplitter;
    auto* pqFirst = new Panel(well);
    auto* pqSecond = new Panel(well);
    pqTwo->addWidget(pqFirst);
    pqTwo->addWidget(pqSecond);
    auto* pqBeside = new QPushButton;
    pqTwo->addWidget(pqBeside);
    window.setCentralWidget(pqTwo);
    // A window that has the panel's action in its menu, and one of its own with the same key.
    QMenu* pqMenu = window.menuBar()->addMenu(QStringLiteral("Edit"));
    pqMenu->addAction(pqFirst->undoAction());
    const QAction* pqOwn =
        pqMenu->addAction(QStringLiteral("Own"), QKeySequence(QStringLiteral("Ctrl+Z")), &window, [] {});
    QSignalSpy own(pqOwn, &QAction::triggered);
    window.resize(1400, 700);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    for (Panel* pqPanel : {pqFirst, pqSecond}) {
        pqPanel->choose("m_pqFaultBtn");
        pqPanel->click(QScatDepthPlotWidget::DipTrack, 45.0, 1350.0);
        pqPanel->click(QScatDepthPlotWidget::DipTrack, 45.0, 1550.0);
    }
    const auto press = [&window](QWidget* pqFocus) {
        pqFocus->setFocus();
        QTest::keyClick(window.windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    };
    press(&pqFirst->plot(1));
    QCOMPARE(pqFirst->lines(0).count(), 1);
    QCOMPARE(pqSecond->lines(0).count(), 2);
    press(&pqSecond->plot(0));
    QCOMPARE(pqSecond->lines(0).count(), 1);
    QCOMPARE(own.count(), 0);
    press(pqBeside);
    QCOMPARE(own.count(), 1);
    QCOMPARE(pqFirst->lines(0).count() + pqSecond->lines(0).count(), 2);
}

void TestScatLineEdits::draggedLinesKeepTheirDistances()
{
    FoldedWell well;
    Panel panel(well);
    panel.choose("m_pqCrestalPlaneBtn");
    for (const double dDepth : {1250.0, 1350.0, 1500.0})
        panel.click(QScatDepthPlotWidget::DipTrack, 60.0, dDepth);
    const std::vector<double> vdBefore = panel.lines(0).lineDepths();
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1250.0);
    QDepthTrackPlot& canvas = panel.plot(QScatDepthPlotWidget::AzimuthTrack);
    const QPoint oStart = panel.pixel(QScatDepthPlotWidget::AzimuthTrack, 200.0, 1350.0);
    QTest::mousePress(&canvas, Qt::LeftButton, Qt::ControlModifier, oStart);
    for (const int iStep : {7, 30, 55}) {
        QMouseEvent event(QEvent::MouseMove, oStart + QPoint(0, iStep), canvas.mapToGlobal(oStart + QPoint(0, iStep)),
                          Qt::NoButton, Qt::LeftButton, Qt::ControlModifier);
        QCoreApplication::sendEvent(&canvas, &event);
    }
    QTest::mouseRelease(&canvas, Qt::LeftButton, Qt::ControlModifier, oStart + QPoint(0, 55));
    const double dStep = canvas.transformInDataPoint({0.0, 155.0}).y() - canvas.transformInDataPoint({0.0, 100.0}).y();
    for (int i = 0; i < QScatDepthPlotWidget::NumberOfTracks; ++i) {
        const std::vector<double>& vdDepths = panel.lines(i).lineDepths();
        QVERIFY(std::abs(vdDepths[0] - vdBefore[0] - dStep) < 1e-6);
        QVERIFY(std::abs(vdDepths[1] - vdBefore[1] - dStep) < 1e-6);
        QCOMPARE(vdDepths[2], vdBefore[2]);
    }
    panel.undoAction()->trigger(); // one step
    QCOMPARE(panel.lines(2).lineDepths(), vdBefore);
}

void TestScatLineEdits::hiddenLinesAreLeftAlone()
{
    FoldedWell well;
    Panel panel(well);
    panel.choose("m_pqHorizonBtn");
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1350.0);
    panel.choose("m_pqFaultBtn");
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1550.0);
    panel.scenarios()->pick({0, 1}, false);
    auto* pqHorizons = panel.findChild<QCheckBox*>(QStringLiteral("m_pqShowHorizons"));
    panel.setActiveTracks({0, 1, 2});
    pqHorizons->click();
    QCOMPARE(panel.lines(0).selectedLines(), (std::vector<int>{0, 1})); // seen on one track
    panel.setActiveTracks({3});
    pqHorizons->click();
    QCOMPARE(panel.lines(0).selectedLines(), std::vector<int>{1});
    const double dHidden = panel.lines(0).lineDepths()[0];
    panel.scenarios()->pick({0, 1}, false); // in the list, for instance
    QTest::keyClick(&panel.plot(0), Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(panel.lines(0).lineDepths()[0], dHidden);
    panel.scenarios()->pick({0, 1}, false);
    QTest::keyClick(&panel.plot(0), Qt::Key_Delete);
    QCOMPARE(panel.lines(0).lineNames(), std::vector<QString>{QStringLiteral("Horizon_0")});
    const auto* pqNotice = panel.findChild<QWidget*>(QStringLiteral("m_pqNoticeLabel"));
    QVERIFY(pqNotice->isHidden());
    panel.choose("m_pqHorizonBtn");
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1350.0);
    QCOMPARE(panel.lines(0).count(), 1);
    QVERIFY(!pqNotice->isHidden());
}

void TestScatLineEdits::emptySelectionsUnpickLines()
{
    FoldedWell well;
    Panel panel(well);
    panel.choose("m_pqHorizonBtn");
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1350.0);
    panel.setSelectedRecords({1, 2});
    QSignalSpy spy(&panel, &QScatDepthPlotWidget::dataPointsSelection);
    // The press of a pick clears the points of its track, too, but is no selection.
    panel.click(QScatDepthPlotWidget::AzimuthTrack, 100.0, 1350.0);
    QCOMPARE(panel.lines(0).selectedLines(), std::vector<int>{0});
    QCOMPARE(panel.activeTracks().size(), std::size_t(4));
    panel.choose("m_pqNoneBtn");
    panel.click(QScatDepthPlotWidget::AzimuthTrack, 100.0, 1250.0); // beside all records
    QVERIFY(!panel.lines(0).isSomethingSelected());
    QCOMPARE(panel.activeTracks(), std::vector<int>{QScatDepthPlotWidget::AzimuthTrack});
    panel.scenarios()->pick({0}, false);
    panel.lasso(QScatDepthPlotWidget::DipTrack, 1320.0, 1380.0); // around none
    QVERIFY(!panel.lines(0).isSomethingSelected());
    QCOMPARE(panel.selectedRecords(), (std::vector<int>{1, 2}));
    QCOMPARE(spy.count(), 0);
    panel.scenarios()->pick({0}, false);
    QTest::keyClick(&panel.plot(0), Qt::Key_Escape); // the records
    QVERIFY(panel.lines(0).isSomethingSelected());
    QTest::keyClick(&panel.plot(0), Qt::Key_Escape);
    QVERIFY(!panel.lines(0).isSomethingSelected());
}

void TestScatLineEdits::orientationMode()
{
    FoldedWell well;
    Panel panel(well);
    panel.updateMeanOrientation({20.0, 30.0});
    panel.choose("m_pqAxialPlaneBtn");
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1350.0);
    panel.updateMeanOrientation({20.0, 30.0});
    QCOMPARE(panel.lines(0).lineOrientations().front(), QPointF(-1.0, -1.0));
    panel.call("slotModifySelectedOrientation");
    QCOMPARE(panel.plot(2).dataCreationType(), int(QCrossPlot::OrientationCreation));
    const auto* pqLabel = panel.findChild<QWidget*>(QStringLiteral("m_pqOrientationLabel"));
    QVERIFY(!pqLabel->isHidden());
    QSignalSpy spy(&panel, &QScatDepthPlotWidget::dataPointsSelection);
    panel.lasso(QScatDepthPlotWidget::DipTrack, 1050.0, 1250.0);
    QCOMPARE(spy.count(), 1);
    panel.updateMeanOrientation({20.0, 30.0});
    for (int i = 0; i < QScatDepthPlotWidget::NumberOfTracks; ++i)
        QCOMPARE(panel.lines(i).lineOrientations().front(), QPointF(20.0, 30.0));
    QTest::keyClick(&panel, Qt::Key_Escape);
    QCOMPARE(panel.plot(0).dataCreationType(), int(QCrossPlot::StructuralTopCreation));
    QCOMPARE(spy.count(), 2);
    QVERIFY(selected(spy.back()).empty());
    QVERIFY(pqLabel->isHidden());
    // Where a click creates nothing, none does after the mode either.
    panel.choose("m_pqNoneBtn");
    panel.call("slotModifySelectedOrientation");
    panel.call("slotModifySelectedOrientation");
    QCOMPARE(panel.plot(3).dataCreationType(), int(QCrossPlot::NoCreation));
}

QTEST_MAIN(TestScatLineEdits)
#include "tst_scatlineedits.moc"
