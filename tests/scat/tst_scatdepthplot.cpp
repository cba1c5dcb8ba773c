// The dipmeter window: directions, apparent dips, selection, settings of tracks, scenarios.

#include "ScatTestPanel.h"
#include "TemporarySettings.h"

#include <gkBase/DepthLineField.h>
#include <gkBase/MatrixData.h>
#include <gkBase/MissingValue.h>
#include <gkBase/QDepthTrackArea.h>
#include <gkBase/QDepthTrackPlot.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/QScatDepthPlotWidget.h>
#include <gkBase/ScatDirectionFinder.h>
#include <gkBase/ScatScenarios.h>
#include <gkBase/UnitManager.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <memory>

using namespace gkBase;
using gkTest::FoldedWell;
using gkTest::Panel;
using gkTest::selected;

namespace {

constexpr double g_dNone = g_dMissingValue;
constexpr double g_adTransverse[] = {-20, -30, -20, 0, 8, 34, 40, 36};

} // namespace

class TestScatDepthPlot : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { gkTest::useTemporarySettings(m_folder.path(), QStringLiteral("tst_scatdepthplot")); }
    void init() { QSettings().clear(); }
    void foldGivesItsDirections();
    void apparentDipsFollowEdits();
    void keptDirections();
    void selectionRules();
    void activeTracksTakeSettings();
    void settingsOfTracksThatDiffer();
    void shortPanelsFoldTheHelp();
    void samplingKeepsRecordNumbers();
    void closingAsksForChanges();
    void savingRenames();
    void importTellsErrors();
    void dialogsOfTheDesktop();
    void settingsComeBack();
    void goneNodesLeaveAnEmptyPanel();

private:
    QTemporaryDir m_folder;
};

// ---- directions -----------------------------------------------------------------------------------------------------

void TestScatDepthPlot::foldGivesItsDirections()
{
    FoldedWell well;
    const Panel panel(well);
    QVERIFY(std::abs(panel.transverseDirection() - 310.0) < 0.1);
    for (int i = 0; i < 8; ++i) {
        QVERIFY(std::abs(panel.transverseDip()->recordNumber(i) - g_adTransverse[i]) < 0.1);
        QVERIFY(std::abs(std::abs(panel.longitudinalDip()->recordNumber(i)) - 10.0) < 0.1);
    }
}

void TestScatDepthPlot::apparentDipsFollowEdits()
{
    FoldedWell well;
    Panel panel(well);
    panel.setDirections(90.0, 0.0);
    well.node("Dip").setValue(3, 0, 30.0);
    well.node("Azimuth").setValue(3, 0, 90.0);
    well.node("Azimuth").setValue(4, 0, QVariant());
    QVERIFY(std::abs(panel.transverseDip()->recordNumber(0) - 30.0) < 1e-9);
    QVERIFY(std::abs(panel.longitudinalDip()->recordNumber(0)) < 1e-9);
    QVERIFY(std::isnan(panel.transverseDip()->recordNumber(1)));
    QVERIFY(!panel.trackArea()->model(QScatDepthPlotWidget::TransverseDipTrack)->isValid(1));
    panel.setDirections(270.0, 0.0);
    QVERIFY(std::abs(panel.transverseDip()->recordNumber(0) + 30.0) < 1e-9);
    // The same planes in radians.
    for (const char* pName : {"Dip", "Azimuth"}) {
        for (int i = 0; i < 8; ++i)
            well.node(pName).setValue(3 + i, 0, well.node(pName).recordNumber(i) * M_PI / 180.0);
        well.node(pName).setUnitManager(
            boost::shared_ptr<UnitManager>(new UnitManager(QStringLiteral("orientation"), QStringLiteral("rad"))));
    }
    panel.call("slotUpdateChartData");
    QVERIFY(std::abs(panel.transverseDip()->recordNumber(0) + M_PI / 6.0) < 1e-9);
    QVERIFY(std::abs(panel.plot(QScatDepthPlotWidget::DipTrack).rangeB().x() - M_PI / 2.0) < 1e-9);
}

void TestScatDepthPlot::keptDirections()
{
    FoldedWell well;
    Panel panel(well);
    auto* pqKeep = panel.findChild<QCheckBox*>(QStringLiteral("m_pqKeepTandLCheckBox"));
    auto* pqEdit = panel.findChild<QWidget*>(QStringLiteral("m_pqTDirectionEdit"));
    QVERIFY(pqKeep->isChecked() && !pqEdit->isEnabled());
    panel.updateTandLdirection(50.0, 140.0); // the panel's own proposal is kept, too
    QVERIFY(std::abs(panel.transverseDirection() - 310.0) < 0.1);
    const QSignalSpy changed(&panel, &QScatDepthPlotWidget::directionsChanged);
    panel.setDirections(0.0, 0.0);
    panel.setDirections(0.0, 0.0);
    QCOMPARE(changed.count(), 1);
    panel.updateTandLdirection(50.0, 140.0);
    QCOMPARE(panel.longitudinalDirection(), 140.0);
    // A suggestion that the user takes counts although the directions are kept.
    panel.show();
    panel.choose("m_pqLineBtn");
    QVERIFY(std::abs(panel.transverseDirection() - 310.0) < 0.1);
    QVERIFY(std::abs(panel.transverseDip()->recordNumber(6) - 40.0) < 0.1);
    panel.setDirections(50.0, 140.0);
    pqKeep->click();
    QVERIFY(pqEdit->isEnabled());
    panel.updateTandLdirection(-50.0, g_dNone);
    QCOMPARE(panel.transverseDirection(), 310.0);
    QCOMPARE(panel.longitudinalDirection(), 140.0);
}

// ---- selection and looks --------------------------------------------------------------------------------------------

void TestScatDepthPlot::selectionRules()
{
    FoldedWell well;
    Panel panel(well);
    panel.choose("m_pqHorizonBtn");
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1350.0);
    panel.choose("m_pqNoneBtn");
    QSignalSpy spy(&panel, &QScatDepthPlotWidget::dataPointsSelection);
    panel.lasso(QScatDepthPlotWidget::TransverseDipTrack, 1050.0, 1250.0);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(selected(spy.back()), (std::vector<int>{1, 2}));
    QVERIFY(!panel.lines(0).isSomethingSelected());
    QCOMPARE(panel.activeTracks(), std::vector<int>{QScatDepthPlotWidget::TransverseDipTrack});
    const auto isEverywhere = [&panel](const std::vector<int>& viRecords) {
        for (int i = 0; i < QScatDepthPlotWidget::NumberOfTracks; ++i) {
            if (panel.trackArea()->model(i)->selectedRecords() != viRecords)
                return false;
        }
        return true;
    };
    QVERIFY(isEverywhere({1, 2}));
    // An outline around nothing, and the press of a pick, leave the selection alone.
    panel.lasso(QScatDepthPlotWidget::DipTrack, 1320.0, 1380.0);
    panel.choose("m_pqHorizonBtn");
    panel.click(QScatDepthPlotWidget::AzimuthTrack, 100.0, 1350.0);
    QVERIFY(isEverywhere({1, 2}));
    QTest::keyClick(&panel.plot(0), Qt::Key_Escape);
    QCOMPARE(spy.count(), 2);
    QVERIFY(isEverywhere({}));
    panel.setSelectedRecords({5});
    QCOMPARE(spy.count(), 2);
    QVERIFY(isEverywhere({5}));
}

void TestScatDepthPlot::activeTracksTakeSettings()
{
    FoldedWell well;
    Panel panel(well);
    panel.call("slotNewScenario");
    QList<QWidget*> lpqHeaders;
    for (QWidget* pqWidget : panel.trackArea()->findChildren<QWidget*>()) {
        if (pqWidget->accessibleName().startsWith(QLatin1String("Track ")))
            lpqHeaders << pqWidget;
    }
    const auto header = [&lpqHeaders](const char* pName) {
        return *std::find_if(lpqHeaders.begin(), lpqHeaders.end(), [pName](const QWidget* pqHeader) {
            return pqHeader->accessibleName().contains(QLatin1String(pName));
        });
    };
    QTest::mouseClick(header("Azimuth"), Qt::LeftButton);
    QTest::mouseClick(header("Transverse"), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(panel.activeTracks(),
             (std::vector<int>{QScatDepthPlotWidget::AzimuthTrack, QScatDepthPlotWidget::TransverseDipTrack}));
    QTest::mouseClick(header("Transverse"), Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(QMetaObject::invokeMethod(&panel, "slotDomainTransparency", Q_ARG(int, 15)));
    panel.findChild<QCheckBox*>(QStringLiteral("m_pqShowFaults"))->click();
    panel.call("slotNewScenario"); // display settings hold for later scenarios too
    for (int i = 0; i < QScatDepthPlotWidget::NumberOfTracks; ++i) {
        const bool bActive = i == QScatDepthPlotWidget::AzimuthTrack;
        QCOMPARE(panel.lines(i).domainTransparency(), bActive ? 15 : 70);
        QCOMPARE(panel.lines(i).showFaults(), !bActive);
    }
}

void TestScatDepthPlot::settingsOfTracksThatDiffer()
{
    FoldedWell well;
    Panel panel(well);
    const auto enter = [&panel](const char* pName, const char* pText) {
        auto* pqEdit = panel.findChild<QLineEdit*>(QLatin1String(pName));
        pqEdit->clear();
        QTest::keyClicks(pqEdit, QLatin1String(pText));
        QTest::keyClick(pqEdit, Qt::Key_Return);
    };
    const auto axis = [&panel](int i) { return std::pair(panel.plot(i).rangeA().x(), panel.plot(i).rangeB().x()); };
    // Each end on its own; the other one stays what suits the track.
    enter("m_pqHorizontalMaxEdit", "30");
    QCOMPARE(axis(0), std::pair(0.0, 30.0));
    QCOMPARE(axis(1), std::pair(0.0, 30.0));
    QCOMPARE(axis(2), std::pair(-60.0, 30.0));
    // Reversed in the tracks of dips, which go back to what suits them.
    enter("m_pqHorizontalMaxEdit", "270");
    enter("m_pqHorizontalMinEdit", "100");
    QCOMPARE(axis(1), std::pair(100.0, 270.0));
    QCOMPARE(axis(3), std::pair(-60.0, 60.0));
    panel.choose("m_pqResetLimitsBtn");
    QCOMPARE(axis(1), std::pair(0.0, 360.0));
    // Dips have tadpoles at first, the other tracks have none.
    auto* pqTadpoles = panel.findChild<QCheckBox*>(QStringLiteral("m_pqTadpoles"));
    auto* pqData = panel.findChild<QComboBox*>(QStringLiteral("m_pqDisplayDataType"));
    QCOMPARE(pqTadpoles->checkState(), Qt::PartiallyChecked);
    QVERIFY(QMetaObject::invokeMethod(&panel, "updateDisplayDataType", Q_ARG(int, int(ScatTrackSettings::Line))));
    QCOMPARE(pqTadpoles->checkState(), Qt::Unchecked);
    panel.setActiveTracks({1});
    pqTadpoles->click();
    QCOMPARE(pqData->currentIndex(), int(ScatTrackSettings::Points));
    QCOMPARE(panel.trackArea()->tracks()[1].m_oStyle.m_bPoints, true);
    panel.setActiveTracks({0, 1});
    QCOMPARE(pqData->currentIndex(), -1);
    pqTadpoles->click(); // for both, although the one had them
    for (int i : {0, 1})
        QCOMPARE(panel.trackArea()->tracks()[static_cast<std::size_t>(i)].m_eKind, DepthTrack::Tadpoles);
}

void TestScatDepthPlot::shortPanelsFoldTheHelp()
{
    FoldedWell well;
    Panel panel(well);
    auto* pqFinder = panel.findChild<ScatDirectionFinder*>();
    const auto* pqPage = panel.findChild<QScrollArea*>(QStringLiteral("interpretationPage"));
    panel.show();
    panel.resize(1400, 1000);
    QTRY_VERIFY(pqFinder->areDiagramsShown());
    panel.resize(1400, 640);
    QTRY_VERIFY(!pqFinder->areDiagramsShown());
    QTRY_COMPARE(pqPage->verticalScrollBar()->maximum(), 0);
    panel.choose("m_pqHelpBtn"); // what the user unfolds stays
    panel.resize(1400, 600);
    QTRY_VERIFY(pqPage->verticalScrollBar()->maximum() > 0);
    QVERIFY(pqFinder->areDiagramsShown());
    // The wheel over a control changes nothing that has no focus, and is left to the page.
    auto* pqTabs = pqFinder->findChild<QTabBar*>();
    const QPointF oCentre = pqTabs->rect().center();
    QWheelEvent wheel(oCentre, pqTabs->mapToGlobal(oCentre), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(pqTabs, &wheel);
    QCOMPARE(pqTabs->currentIndex(), 0);
    QVERIFY(!wheel.isAccepted());
}

void TestScatDepthPlot::samplingKeepsRecordNumbers()
{
    FoldedWell well;
    Panel panel(well);
    panel.setTableRows({1, 2, 4, 5, 7});
    auto* pqSampling = panel.findChild<QWidget*>(QStringLiteral("m_pqVertexSampling"));
    QVERIFY(QMetaObject::invokeMethod(pqSampling, "setValue", Q_ARG(int, 2)));
    QSignalSpy spy(&panel, &QScatDepthPlotWidget::dataPointsSelection);
    panel.lasso(QScatDepthPlotWidget::LongitudinalDipTrack, 990.0, 1800.0);
    QCOMPARE(selected(spy.back()), (std::vector<int>{1, 4, 7}));
}

// ---- scenarios ------------------------------------------------------------------------------------------------------

void TestScatDepthPlot::closingAsksForChanges()
{
    FoldedWell well;
    Panel panel(well);
    panel.choose("m_pqFaultBtn");
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1350.0);
    panel.call("slotNewScenario");
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1450.0);
    QCOMPARE(panel.lines(0).lineNames().front(), QStringLiteral("Fault0"));
    QVERIFY(!panel.close());
    QCOMPARE(panel.m_lAsked, QStringList{QStringLiteral("Do you want to save the changes you made to 'Scenario_0' ?")});
    panel.m_eAnswer = QMessageBox::Yes; // but the dialog for the file is cancelled
    panel.call("slotCloseScenario");
    QCOMPARE(panel.m_lProposed.size(), 1);
    QCOMPARE(panel.scenarios()->count(), 2);
    panel.m_eAnswer = QMessageBox::No;
    QVERIFY(panel.canClose());
    QCOMPARE(panel.m_lAsked.size(), 4);
    panel.scenarios()->setActive(1);
    panel.call("slotCloseScenario");
    QCOMPARE(panel.m_lAsked.back(), QStringLiteral("Do you want to save the changes you made to 'Scenario_1' ?"));
    QCOMPARE(panel.scenarios()->names(), QStringList{QStringLiteral("Scenario_0")});
}

void TestScatDepthPlot::savingRenames()
{
    FoldedWell well;
    Panel panel(well);
    panel.addStructuralTopsSenario(QStringLiteral("north"));
    panel.addStructuralTopsSenario(QStringLiteral("south"));
    panel.choose("m_pqFaultBtn");
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1350.0);
    auto* pqBox = panel.findChild<QComboBox*>(QStringLiteral("m_pqScenarioComboBox"));
    QCOMPARE(pqBox->itemText(1), QStringLiteral("south*"));
    // A name that another scenario has already: the one that was active is written, not its namesake.
    panel.saveTo(m_folder.filePath(QStringLiteral("north.txt")));
    QCOMPARE(panel.scenarios()->names(), (QStringList{QStringLiteral("north"), QStringLiteral("north")}));
    QCOMPARE(panel.scenarios()->active(), 1);
    QCOMPARE(pqBox->itemText(1), QStringLiteral("north"));
    QVERIFY(panel.m_lWarnings.isEmpty());
    panel.call("slotDeleteSelected");
    panel.saveTo(m_folder.filePath(QStringLiteral("missing/folder.txt")));
    QCOMPARE(panel.m_lWarnings.size(), 1);
    QCOMPARE(panel.scenarios()->name(1), QStringLiteral("north"));
    QVERIFY(panel.scenarios()->isModified(1));
}

void TestScatDepthPlot::importTellsErrors()
{
    FoldedWell well;
    Panel panel(well);
    panel.choose("m_pqFaultBtn");
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1350.0);
    panel.saveTo(m_folder.filePath(QStringLiteral("a.txt")));
    panel.m_lFiles = {m_folder.filePath(QStringLiteral("a.txt")), m_folder.filePath(QStringLiteral("none.txt")),
                      m_folder.filePath(QStringLiteral("a.txt"))};
    panel.call("slotOpenScenario");
    QCOMPARE(panel.scenarios()->count(), 3);
    QCOMPARE(panel.scenarios()->active(), 2);
    QCOMPARE(panel.lines(3).lineNames().front(), QStringLiteral("Fault0"));
    QCOMPARE(panel.m_lWarnings.size(), 1);
    QVERIFY(panel.m_lWarnings.front().contains(QLatin1String("none.txt")));
    panel.writeSettings();
    QCOMPARE(QSettings().value(QStringLiteral("scat_window/last_trn_data_file_path/path")).toString(), m_folder.path());
}

void TestScatDepthPlot::dialogsOfTheDesktop()
{
    FoldedWell well;
    Panel panel(well);
    panel.setDialogs(ScatDialogs::standard());
    panel.addStructuralTopsSenario(QStringLiteral("north"));
    QStringList lSeen;
    const auto cancelFileDialog = [&lSeen] {
        auto* pqDialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        QVERIFY(pqDialog);
        lSeen = {pqDialog->windowTitle(), pqDialog->nameFilters().join(QLatin1Char('|')), pqDialog->defaultSuffix(),
                 QFileInfo(pqDialog->selectedFiles().value(0)).completeBaseName()};
        pqDialog->reject();
    };
    QTimer::singleShot(0, qApp, cancelFileDialog);
    panel.call("slotSaveScenario");
    QCOMPARE(lSeen, (QStringList{QStringLiteral("Save"), QStringLiteral("Ascii (*.txt)"), QStringLiteral("txt"),
                                 QStringLiteral("north")}));
    QTimer::singleShot(0, qApp, cancelFileDialog);
    panel.call("slotOpenScenario");
    QCOMPARE(lSeen.mid(0, 2), (QStringList{QStringLiteral("Import Scenario"), QStringLiteral("File (*.txt)")}));
    panel.choose("m_pqFaultBtn");
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1350.0);
    QTimer::singleShot(0, qApp, [&lSeen] {
        auto* pqBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(pqBox);
        lSeen = {pqBox->windowTitle(), pqBox->text()};
        pqBox->button(QMessageBox::No)->click();
    });
    panel.call("slotCloseScenario");
    QCOMPARE(lSeen, (QStringList{QStringLiteral("Close"),
                                 QStringLiteral("Do you want to save the changes you made to 'north' ?")}));
    QCOMPARE(panel.scenarios()->count(), 0);
}

void TestScatDepthPlot::settingsComeBack()
{
    FoldedWell well;
    ScatSettings wanted;
    wanted.m_aTracks[2].m_eDomains = DepthLineField::HorizonDomains;
    wanted.m_aTracks[3].m_oPointColor = Qt::darkGreen;
    wanted.m_aTracks[1].m_dMaximum = 180.0;
    for (ScatTrackSettings& track : wanted.m_aTracks)
        track.m_oDisplay.m_bBlackBackground = true;
    {
        QSettings settings;
        wanted.save(settings);
        QVERIFY(settings.contains(QStringLiteral("scat_window/well_log_plots/transverse_dip_plot/domains")));
    }
    Panel panel(well);
    panel.readSettings();
    panel.addStructuralTopsSenario(QStringLiteral("s"));
    QCOMPARE(panel.lines(2).domainType(), DepthLineField::HorizonDomains);
    QCOMPARE(panel.plot(1).rangeB().x(), 180.0);
    QCOMPARE(panel.plot(3).pointFillColor(), QColor(Qt::darkGreen));
    QCOMPARE(panel.picture().m_oBackground, QColor(Qt::black));
    QSettings().clear();
    panel.writeSettings();
    QSettings settings;
    QVERIFY(ScatSettings::load(settings) == wanted);
}

// ---- lifetime -------------------------------------------------------------------------------------------------------

void TestScatDepthPlot::goneNodesLeaveAnEmptyPanel()
{
    FoldedWell well;
    Panel panel(well);
    panel.choose("m_pqFaultBtn");
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1350.0);
    well.m_poSet->removeChild(&well.node("Azimuth"));
    QVERIFY(!panel.azimuthAttribute() && !panel.transverseDip());
    QVERIFY(!panel.trackArea()->message().isEmpty());
    panel.setDataSet(well.m_poSet); // depth and dip alone
    panel.setDirections(10.0, 100.0);
    panel.click(QScatDepthPlotWidget::DipTrack, 60.0, 1350.0);
    for (const char* pSlot : {"slotUpdateChartData", "slotModifySelectedOrientation", "slotDeleteSelected",
                              "slotMoveSelectedUpdateStop", "clearSelection", "slotResetAnnotationSettings"})
        QVERIFY(panel.call(pSlot));
    well.m_poRoot.reset();
    QVERIFY(!panel.depthAttribute());
    panel.setDataSet(nullptr);
    panel.grab();
}

QTEST_MAIN(TestScatDepthPlot)
#include "tst_scatdepthplot.moc"
