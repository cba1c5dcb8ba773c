// The depth plot panel: tracks, selection, intervals, markers, settings.

#include "TemporarySettings.h"
#include "TestDataSets.h"

#include <gkBase/MatrixData.h>
#include <gkBase/QCartesianAxisWidget.h>
#include <gkBase/QDepthPlotWidget.h>
#include <gkBase/QDepthTrackArea.h>
#include <gkBase/QDepthTrackPlot.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/UnitManager.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

using namespace gkBase;
using gkTest::addDataSet;
using gkTest::attribute;
using gkTest::texts;

namespace {

constexpr double g_dNone = std::numeric_limits<double>::quiet_NaN();
const QString g_sGroup = QStringLiteral("attribute_analyser/well_log_plot/");

/// 200 records from 1000 m down, every half metre.
struct Well
{
    Well()
    {
        std::vector<double> vdDepth;
        std::vector<double> vdGr;
        std::vector<double> vdSonic;
        for (int i = 0; i < 200; ++i) {
            vdDepth.push_back(1000.0 + i * 0.5);
            vdGr.push_back(75.0 + 60.0 * std::sin(i * 0.2));
            vdSonic.push_back(i % 50 == 7 ? g_dNone : 80.0 + i * 0.1);
        }
        m_poSet = addDataSet(m_root, QStringLiteral("Well"),
                             {attribute(QStringLiteral("Depth"), vdDepth, "depth", "m"),
                              attribute(QStringLiteral("GR"), vdGr, "gamma ray", "API"),
                              attribute(QStringLiteral("DT"), vdSonic)});
    }
    MatrixData* node(const char* pName) { return m_root.getNodeFromName(QLatin1String(pName)); }

    MatrixData m_root{QStringLiteral("root")};
    MatrixData* m_poSet = nullptr;
};

/// The panel at a size, laid out.
struct Panel : QDepthPlotWidget
{
    explicit Panel(Well& well)
    {
        resize(900, 600);
        setDataRoot(&well.m_root);
        setDataSet(well.m_poSet);
        grab();
    }
    QDepthTrackPlot& plot(int i) { return *trackArea()->plot(i); }
    QStringList trackNames() const
    {
        QStringList lNames;
        for (const DepthTrack& track : depthTracks())
            lNames << track.name();
        return lNames;
    }
};

void turnWheel(QWidget& widget, const QPointF& oPosition, int iNotches)
{
    QWheelEvent event(oPosition, widget.mapToGlobal(oPosition), {}, {0, 120 * iNotches}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

double depthAtRow(QDepthTrackPlot& plot, double dRow)
{
    return plot.transformInDataPoint(QPointF(0.0, dRow) + plot.pixmapRect().topLeft()).y();
}

} // namespace

class TestDepthPlot : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init() { QSettings().clear(); }
    void firstTracks();
    void filteredTablesKeepTheLine();
    void dataSetWithoutDepth();
    void limits();
    void wheelKeepsTheDepthUnderIt();
    void dragPansByPixels();
    void lassoSelectsInAllTracks_data();
    void lassoSelectsInAllTracks();
    void binsAreShared();
    void decimationIsAskedForEachTrack();
    void cursorReadsAllTracks();
    void removedAttributeLeavesAnEmptyTrack();
    void removedDataSetLeavesAnEmptyPlot();
    void tracksAreEdited();
    void settingsComeBack();
    void steepDipsStandAtTheSides();
    void pictureNeedsNoWindow();

private:
    QTemporaryDir m_folder;
};

void TestDepthPlot::initTestCase()
{
    gkTest::useTemporarySettings(m_folder.path(), QStringLiteral("tst_depthplot"));
}

void TestDepthPlot::firstTracks()
{
    Well well;
    well.m_poSet->appendChild(attribute(QStringLiteral("Dip"), std::vector<double>(200, 30.0), "orientation", "deg"),
                              true);
    well.m_poSet->appendChild(
        attribute(QStringLiteral("Dip Azimuth"), std::vector<double>(200, 90.0), "orientation", "deg"), true);
    well.m_poSet->appendChild(texts(QStringLiteral("Remark"), {QStringLiteral("a")}), true);
    Panel panel(well);
    QCOMPARE(panel.depthAttribute(), well.node("Depth"));
    QCOMPARE(panel.trackNames(), (QStringList{"Dip / Dip Azimuth", "GR", "DT"}));
    QCOMPARE(panel.depthTracks()[0].m_eKind, DepthTrack::Tadpoles);
    QVERIFY(panel.trackArea()->model(0)->tadpoleAttributeIsOn());
    QCOMPARE(panel.trackArea()->message(), QString());
    QCOMPARE(panel.trackArea()->model(2)->numberOfPoints(), 200);
    QCOMPARE(panel.trackArea()->model(2)->numberOfValidPoints(), 196);
    // Lines of azimuths break at north.
    QCOMPARE(DepthTrack::curve(well.node("Dip Azimuth")).fullTurn(), 360.0);
    QCOMPARE(DepthTrack::curve(well.node("Dip")).fullTurn(), g_dMissingValue);
}

void TestDepthPlot::filteredTablesKeepTheLine()
{
    Well well;
    Panel panel(well);
    std::vector<int> viOdd;
    for (int i = 1; i < 200; i += 2)
        viOdd.push_back(i);
    panel.trackArea()->setTableRows(viOdd);
    panel.grab();
    QCOMPARE(panel.plot(0).pieces().size(), std::size_t(1));
    QCOMPARE(panel.plot(0).pieces().front().m_oLine.size(), 100);
    QCOMPARE(panel.plot(1).pieces().size(), std::size_t(5)); // four values are missing
}

void TestDepthPlot::dataSetWithoutDepth()
{
    Well well;
    well.node("Depth")->setUnitManager(boost::shared_ptr<UnitManager>());
    well.node("Depth")->setName(QStringLiteral("Position"));
    Panel panel(well);
    QCOMPARE(panel.depthAttribute(), nullptr);
    QVERIFY(!panel.trackArea()->message().isEmpty());
    panel.setDepthAttribute(well.node("Position"));
    QVERIFY(panel.trackArea()->message().isEmpty());
    QVERIFY(panel.trackArea()->depthFrom() < 1000.0 && panel.trackArea()->depthTo() > 1099.5);
    panel.setDepthAttribute(nullptr);
    QCOMPARE(panel.trackArea()->model(0)->numberOfPoints(), 0);
}

void TestDepthPlot::limits()
{
    const boost::shared_ptr<UnitManager> poMetres(new UnitManager(QStringLiteral("length"), QStringLiteral("m")));
    const std::unique_ptr<MatrixData> poLength(attribute(QStringLiteral("Caliper"), {0.21, 0.27, 0.48}));
    poLength->setUnitManager(poMetres);
    DepthTrack track = DepthTrack::curve(poLength.get());
    QCOMPARE(track.limits(), (DepthTrackLimits{0.2, 0.5}));
    poMetres->displayUnit(QStringLiteral("ft")); // 0.69 … 1.57 ft: round in feet
    const DepthTrackLimits inFeet = track.limits();
    const QString sLeft = track.displayText(inFeet.m_dLeft);
    poMetres->displayUnit(QString());
    QVERIFY(std::abs(inFeet.m_dLeft - 0.6 * 0.3048) < 1e-9);
    QCOMPARE(sLeft, QStringLiteral("0.6"));
    track.m_oStyle.m_bReversed = true;
    QCOMPARE(track.limits(), (DepthTrackLimits{0.5, 0.2}));
    track.m_oStyle.m_bAutomaticLimits = false;
    track.m_oStyle.m_dMinimum = 0.1;
    track.m_oStyle.m_dMaximum = 0.9;
    QCOMPARE(track.limits(), (DepthTrackLimits{0.9, 0.1}));
    track.m_oStyle.m_dMaximum = 0.1; // no range: as if automatic
    QCOMPARE(track.limits(), (DepthTrackLimits{0.5, 0.2}));

    const std::unique_ptr<MatrixData> poEqual(attribute(QStringLiteral("Bit Size"), {216, 216}));
    const DepthTrackLimits around = DepthTrack::curve(poEqual.get()).limits();
    QVERIFY(around.m_dLeft < 216.0 && around.m_dRight > 216.0);
    const std::unique_ptr<MatrixData> poNone(attribute(QStringLiteral("empty"), {g_dNone, 99999.0}));
    QCOMPARE(DepthTrack::curve(poNone.get()).limits(), DepthTrackLimits());
}

void TestDepthPlot::wheelKeepsTheDepthUnderIt()
{
    Well well;
    Panel panel(well);
    QDepthTrackPlot& plot = panel.plot(0);
    const auto* pqAxis = panel.findChild<QCartesianAxisWidget*>();
    QSignalSpy zoomed(panel.trackArea(), &QDepthTrackArea::zoomChanged);
    for (const double dRow : {0.2 * plot.height(), 0.7 * plot.height()}) {
        const double dDepth = depthAtRow(plot, dRow);
        turnWheel(plot, QPointF(5.0, dRow), 20);
        QVERIFY(std::abs(depthAtRow(plot, dRow) - dDepth) < 0.5); // two rows of the whole chart
    }
    QCOMPARE(plot.zoomFactor(), 5.0);
    QCOMPARE(zoomed.size(), 2);
    QCOMPARE(plot.chartSize().width(), plot.width()); // in depth only
    QCOMPARE(panel.plot(1).pixmapRect(), plot.pixmapRect());
    QCOMPARE(pqAxis->offset(), plot.pixmapRect().top());
    QCOMPARE(pqAxis->zoom(), 5.0);
    panel.resize(700, 500); // still in depth only, all together
    panel.grab();
    QCOMPARE(plot.chartSize().width(), plot.width());
    QCOMPARE(panel.plot(1).pixmapRect().top(), plot.pixmapRect().top());
    QCOMPARE(pqAxis->offset(), plot.pixmapRect().top());
    turnWheel(plot, QPointF(5.0, 5.0), -90);
    QCOMPARE(plot.zoomFactor(), 1.0);
    QCOMPARE(plot.pixmapRect().top(), 0);
}

void TestDepthPlot::dragPansByPixels()
{
    Well well;
    Panel panel(well);
    panel.trackArea()->setZoom(20.0);
    QDepthTrackPlot& plot = panel.plot(1);
    const int iTop = plot.pixmapRect().top();
    const Qt::CursorShape eShape = plot.cursor().shape();
    QTest::mousePress(&plot, Qt::MiddleButton, {}, {20, 200});
    QMouseEvent move(QEvent::MouseMove, QPointF(20, 193), plot.mapToGlobal(QPointF(20, 193)), Qt::NoButton,
                     Qt::MiddleButton, {});
    QCoreApplication::sendEvent(&plot, &move);
    QTest::mouseRelease(&plot, Qt::MiddleButton, {}, {20, 193});
    QCOMPARE(plot.cursor().shape(), eShape);
    QCOMPARE(plot.pixmapRect().top(), iTop + 7);
    QCOMPARE(panel.plot(0).pixmapRect().top(), iTop + 7);
    QTest::keyClick(&plot, Qt::Key_PageDown);
    QCOMPARE(plot.pixmapRect().top(), iTop + 7 + plot.height());
    QTest::keyClick(&plot, Qt::Key_End);
    QCOMPARE(plot.pixmapRect().bottom() + 1, plot.chartSize().height());
    QCOMPARE(panel.trackArea()->model(0)->numberOfSelectedPoints(), 0);
}

void TestDepthPlot::lassoSelectsInAllTracks_data()
{
    QTest::addColumn<double>("zoom");
    QTest::newRow("whole chart") << 1.0;
    QTest::newRow("zoomed and panned") << 4.0;
}

void TestDepthPlot::lassoSelectsInAllTracks()
{
    QFETCH(double, zoom);
    Well well;
    Panel panel(well);
    panel.trackArea()->setZoom(zoom);
    QDepthTrackPlot& plot = panel.plot(0);
    QSignalSpy selected(&panel, &QDepthPlotWidget::dataPointsSelection);
    std::vector<int> viExpected;
    const QRectF oBox(-1.0, 100.0, plot.width() + 2.0, 80.0);
    for (int i = 0; i < 200; ++i) {
        const QPointF oPixel = plot.transformInPixelPoint(
            {plot.model()->x()[static_cast<std::size_t>(i)], plot.model()->y()[static_cast<std::size_t>(i)]});
        if (oBox.contains(oPixel - plot.pixmapRect().topLeft()))
            viExpected.push_back(i);
    }
    QVERIFY(!viExpected.empty() && viExpected.size() < 100);
    QTest::mousePress(&plot, Qt::LeftButton, {}, {0, 100});
    for (const QPointF& oCorner :
         {QPointF(-1, 100), QPointF(plot.width() + 1.0, 100), QPointF(plot.width() + 1.0, 180), QPointF(-1, 180)}) {
        QMouseEvent move(QEvent::MouseMove, oCorner, plot.mapToGlobal(oCorner), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&plot, &move);
    }
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, {0, 180});
    QCOMPARE(selected.size(), 1);
    QCOMPARE(selected[0][1].toInt(), 200);
    QCOMPARE(panel.trackArea()->selectedRecords(), viExpected);
    QCOMPARE(panel.trackArea()->model(1)->selectedRecords(), viExpected);
    QVERIFY(!panel.setSelectedRows(viExpected)); // what comes back from the table is no news
    QVERIFY(panel.setSelectedRows({3}));
    QCOMPARE(panel.trackArea()->model(0)->selectedRecords(), std::vector<int>{3});
}

void TestDepthPlot::binsAreShared()
{
    Well well;
    Panel panel(well);
    panel.generateNumberOfIntervals(4);
    for (int i = 0; i < 2; ++i)
        QCOMPARE(panel.trackArea()->model(i)->intervalFilter()->lineDepths(),
                 (std::vector<double>{1000.0, 1024.875, 1049.75, 1074.625, 1099.5}));
    panel.generateIntervals(1e9); // larger than the range: one interval
    QCOMPARE(panel.trackArea()->model(1)->intervalFilter()->count(), 2);
    panel.deleteIntervals();
    panel.generateIntervals(-1.0);
    QCOMPARE(panel.trackArea()->model(0)->intervalFilter()->count(), 0);

    panel.findChild<QCheckBox*>(QStringLiteral("m_pqByHand"))->setChecked(true);
    QDepthTrackPlot& plot = panel.plot(1);
    QTest::mouseClick(&plot, Qt::LeftButton, {}, {10, 100});
    QTest::mouseClick(&plot, Qt::LeftButton, {}, {10, 200});
    const std::vector<double> vdDepths = panel.trackArea()->model(0)->intervalFilter()->lineDepths();
    QCOMPARE(vdDepths.size(), std::size_t(2));
    QVERIFY(std::abs(vdDepths[0] - depthAtRow(plot, 100)) < 1e-9);
    QTest::mouseClick(&panel.plot(0), Qt::LeftButton, {}, {10, 102}); // on the first one, in another track
    QCOMPARE(panel.trackArea()->model(1)->intervalFilter()->lineDepths(), std::vector<double>{vdDepths[1]});
}

void TestDepthPlot::decimationIsAskedForEachTrack()
{
    Well well;
    Panel panel(well);
    panel.applyDecimation(); // without intervals nothing is asked
    std::vector<const MatrixData*> vpOriginals;
    int iRecords = 0;
    double dMean = 0.0;
    connect(&panel, &QDepthPlotWidget::createDataDecimationAttribute, &panel,
            [&](QRelationshipItemModel* pModel, bool bAverage, bool bReplace, MatrixData* poOriginal) {
                vpOriginals.push_back(poOriginal);
                QVERIFY(bAverage && bReplace);
                for (int i = 0; i < pModel->decimationCount()->recordCount(); ++i)
                    iRecords += pModel->decimationCount()->toInt(i, 0);
                dMean = decimatedBins(*pModel, bAverage).front().m_dValue;
            });
    panel.generateNumberOfIntervals(10);
    panel.applyDecimation();
    QCOMPARE(vpOriginals, (std::vector<const MatrixData*>{well.node("GR"), well.node("DT")}));
    QCOMPARE(iRecords, 200 + 196);
    const double dExpected = (80.0 * 19 + (19 * 20 / 2 - 7) * 0.1) / 19; // records 0 … 19 without the missing seventh
    QVERIFY(std::abs(dMean - dExpected) < 1e-9);
}

void TestDepthPlot::cursorReadsAllTracks()
{
    Well well;
    Panel panel(well);
    QDepthTrackPlot& plot = panel.plot(0);
    const QImage oBefore = panel.plot(1).grab().toImage();
    const double dRow = std::round(plot.transformInPixelPoint({0.0, 1050.0}).y());
    QMouseEvent move(QEvent::MouseMove, QPointF(9, dRow), plot.mapToGlobal(QPointF(9, dRow)), Qt::NoButton,
                     Qt::NoButton, {});
    QCoreApplication::sendEvent(&plot, &move);
    QCOMPARE(panel.trackArea()->readOuts(),
             (QStringList{QString::number(depthAtRow(plot, dRow), 'f', 2), "129.8", "90.000"}));
    QVERIFY(panel.plot(1).grab().toImage() != oBefore); // the line crosses the other track
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&plot, &leave);
    QCOMPARE(panel.trackArea()->readOuts(), (QStringList{"", "", ""}));
    QVERIFY(panel.plot(1).grab().toImage() == oBefore);
}

void TestDepthPlot::removedAttributeLeavesAnEmptyTrack()
{
    Well well;
    Panel panel(well);
    panel.generateNumberOfIntervals(5);
    well.m_root.removeChild(well.node("GR"));
    QCOMPARE(panel.trackNames(), (QStringList{"", "DT"}));
    QCOMPARE(panel.trackArea()->model(0)->numberOfPoints(), 0);
    QCOMPARE(panel.trackArea()->model(1)->numberOfPoints(), 200);
    panel.applyDecimation();
    panel.updateDepthPlot();
    panel.grab();
    well.m_root.removeChild(well.node("Depth"));
    QCOMPARE(panel.depthAttribute(), nullptr);
    QVERIFY(!panel.trackArea()->message().isEmpty());
    QCOMPARE(panel.trackArea()->model(1)->numberOfPoints(), 0);
    panel.updateDataSetSelectionBox();
    panel.grab();
}

void TestDepthPlot::removedDataSetLeavesAnEmptyPlot()
{
    auto poWell = std::make_unique<Well>();
    addDataSet(poWell->m_root, QStringLiteral("Other"),
               {attribute(QStringLiteral("a"), {1, 2}), attribute(QStringLiteral("b"), {1, 2})});
    Panel panel(*poWell);
    auto* pqChooser = panel.findChild<QComboBox*>(QStringLiteral("m_pqDepthPlotDataSetComboBox"));
    QCOMPARE(pqChooser->count(), 2);
    poWell->m_root.removeChild(poWell->m_poSet);
    QCOMPARE(panel.currentSelectedDataSet(), nullptr);
    QCOMPARE(panel.trackArea()->numberOfTracks(), 0);
    QCOMPARE(pqChooser->count(), 1);
    QCOMPARE(pqChooser->currentIndex(), -1);
    panel.grab();
    panel.setDataSet(poWell->m_root.child(0));
    poWell.reset(); // the root may die first
    QCOMPARE(panel.currentSelectedDataSet(), nullptr);
    QCOMPARE(pqChooser->count(), 0);
    panel.updateDepthPlot();
    panel.grab();
}

void TestDepthPlot::tracksAreEdited()
{
    Well well;
    Panel panel(well);
    auto* pqList = panel.findChild<QListWidget*>(QStringLiteral("m_pqTrackList"));
    QCOMPARE(pqList->count(), 2);
    pqList->setCurrentRow(0);
    const auto click = [&panel](const char* pName) {
        panel.findChild<QAbstractButton*>(QLatin1String(pName))->click();
    };
    click("m_pqDownButton");
    QCOMPARE(panel.trackNames(), (QStringList{"DT", "GR"}));
    QCOMPARE(panel.trackArea()->model(0)->nodeX(), well.node("DT"));
    QCOMPARE(pqList->currentRow(), 1); // the moved track stays the current one
    click("m_pqReversed");
    QVERIFY(panel.plot(1).rangeA().x() > panel.plot(1).rangeB().x());
    click("m_pqRemoveButton");
    QCOMPARE(panel.trackNames(), (QStringList{"DT"}));
    auto* pqAdd = panel.findChild<QComboBox*>(QStringLiteral("m_pqAddBox"));
    pqAdd->setCurrentIndex(pqAdd->findText(QStringLiteral("GR")));
    click("m_pqAddButton");
    QCOMPARE(panel.trackNames(), (QStringList{"DT", "GR"}));
    QVERIFY(panel.depthTracks()[1].m_oStyle.m_bReversed); // an attribute keeps its looks
}

void TestDepthPlot::settingsComeBack()
{
    Well well;
    DepthPlotSettings saved;
    {
        Panel panel(well);
        std::vector<DepthTrack> vTracks = panel.depthTracks();
        std::swap(vTracks[0], vTracks[1]);
        vTracks[0].m_oStyle = {true, true, 3, 5, QColor(1, 2, 3), QColor(4, 5, 6), false, -12.5, 1e-3, true};
        panel.setDepthTracks(vTracks);
        panel.setBlackBackground(true);
        panel.setAllScatMarkersVisibility(false);
        panel.writeSettings(g_sGroup);
        QSettings settings;
        saved = DepthPlotSettings::load(settings, g_sGroup);
        QCOMPARE(saved.m_styles.at(QStringLiteral("DT")), vTracks[0].m_oStyle);
    }
    Panel other(well);
    other.readSettings(g_sGroup);
    other.setDataSet(well.m_poSet);
    QCOMPARE(other.trackNames(), (QStringList{"DT", "GR"}));
    QCOMPARE(other.depthTracks()[0].m_oStyle, saved.m_styles.at(QStringLiteral("DT")));
    QCOMPARE(other.trackArea()->backgroundColor(), QColor(Qt::black));
    QCOMPARE(other.markerVisibility().m_bScat, false);
    other.writeSettings(QStringLiteral("again"));
    QSettings settings;
    QVERIFY(DepthPlotSettings::load(settings, QStringLiteral("again")) == saved);
    QCOMPARE(DepthPlotSettings::load(settings, QStringLiteral("none")), DepthPlotSettings());
}

void TestDepthPlot::steepDipsStandAtTheSides()
{
    const std::unique_ptr<MatrixData> poDip(attribute(QStringLiteral("T"), {10.0, 85.0, -88.0, g_dNone, 80.0}));
    const std::unique_ptr<MatrixData> poDepth(attribute(QStringLiteral("Depth"), {10, 30, 50, 60, 90}));
    QRelationshipItemModel model;
    model.takeNewDataSet(poDip.get(), poDepth.get());
    model.setPointPixelSize(5);
    QDepthTrackPlot plot;
    plot.resize(201, 101);
    plot.setModel(&model);
    plot.setRange({80.0, 0.0}, {-40.0, 100.0}); // reversed, and cut on one side
    plot.setDepthRange(0.0, 100.0);
    plot.setSteepLimit(80.0);
    const std::vector<QPointF> voPixels = plot.pointPixels();
    for (const auto& [iRecord, bLeft] : {std::pair(1, true), std::pair(2, false)}) {
        const QPointF oPixel = voPixels[static_cast<std::size_t>(iRecord)];
        QVERIFY(bLeft ? oPixel.x() > 0.0 && oPixel.x() < 10.0 : oPixel.x() < 200.0 && oPixel.x() > 190.0);
        QCOMPARE(plot.grab().toImage().pixelColor(oPixel.toPoint()), plot.backgroundColor()); // open
        QTest::mouseClick(&plot, Qt::LeftButton, {}, oPixel.toPoint());
        QCOMPARE(model.selectedRecords(), std::vector<int>{iRecord});
    }
    QCOMPARE(voPixels[1].y(), plot.transformInPixelPoint({0.0, 30.0}).y());
    QVERIFY(std::isnan(voPixels[3].x()));
    for (const std::size_t i : {0U, 4U}) {
        QCOMPARE(voPixels[i], plot.transformInPixelPoint({model.x()[i], model.y()[i]}));
        QVERIFY(plot.grab().toImage().pixelColor(voPixels[i].toPoint()) != plot.backgroundColor());
    }
    // Where the track shows a line only, too.
    model.clearSelection();
    model.setDrawSymbols(false);
    plot.scheduleRedraw();
    const QImage oLineOnly = plot.grab().toImage();
    for (const std::size_t i : {1U, 2U}) {
        QCOMPARE(oLineOnly.pixelColor(voPixels[i].toPoint()), plot.backgroundColor());
        QVERIFY(oLineOnly.pixelColor(voPixels[i].toPoint() - QPoint(0, 5)) != plot.backgroundColor());
    }
    plot.setSteepLimit(99999.0);
    QVERIFY(plot.pointPixels()[2].x() > 200.0);
}

void TestDepthPlot::pictureNeedsNoWindow()
{
    Well well;
    addDataSet(well.m_root, QStringLiteral("Picks"),
               {attribute(QStringLiteral("Depth"), {1020}, "depth", "m"), texts(QStringLiteral("Top"), {"Chalk"})});
    QDepthPlotWidget panel;
    panel.setDataRoot(&well.m_root);
    panel.setDataSet(well.m_poSet);
    QTemporaryDir folder;
    QString sError;
    QVERIFY2(panel.exportChart(folder.filePath(QStringLiteral("d.svg")), {700, 900}, &sError), qPrintable(sError));
    QFile svg(folder.filePath(QStringLiteral("d.svg")));
    QVERIFY(svg.open(QIODevice::ReadOnly));
    const QByteArray oSvg = svg.readAll();
    QVERIFY(!oSvg.contains("<image"));
    for (const char* pText : {"Depth Plot: Well", "Depth", "GR", "DT", "Chalk", "1010"})
        QVERIFY2(oSvg.contains(pText), pText);
    QVERIFY(panel.exportChart(folder.filePath(QStringLiteral("tiny.png")), {5, 5}, &sError));
}

QTEST_MAIN(TestDepthPlot)
#include "tst_depthplot.moc"
