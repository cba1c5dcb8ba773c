// Classes, geometry and panel of the bar chart.

#include "TestDataSets.h"

#include <gkBase/BarDiagramClasses.h>
#include <gkBase/BarDiagramGeometry.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QBarDiagramWidget.h>
#include <gkBase/QTRNBarChartWidget.h>
#include <gkBase/UnitManager.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QFontMetricsF>
#include <QImage>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>
#include <numeric>

using namespace gkBase;
using gkTest::attribute;
using gkTest::rootOf;

namespace {

/// An empty text is a missing cell.
/// 7 records: 3 × b, 2 × A, 1 × c, 1 missing.
MatrixData* rocks()
{
    return attribute(QStringLiteral("rock"), QMetaType::QString, {"b", "A", "b", "", "c", "A", "b"});
}

QString barsText(const BarDiagramClasses& classes)
{
    QStringList lBars;
    for (const BarClass& bar : classes.bars())
        lBars << QStringLiteral("%1=%2").arg(bar.m_sName).arg(bar.m_iCount);
    return lBars.join(QLatin1Char(' '));
}

QString barsText(const MatrixData& node, double dInterval, BarDiagramClasses::Order eOrder, bool bMissing = true)
{
    BarDiagramClasses classes;
    classes.classify(&node, dInterval);
    classes.count({});
    classes.arrange(eOrder, bMissing);
    return barsText(classes);
}

/// What the panel's owner does: keeps the selected records and hands them back.
struct Owner
{
    explicit Owner(QTRNBarChartWidget& panel)
    {
        QObject::connect(&panel, &QTRNBarChartWidget::dataPointsSelection, &panel,
                         [this, &panel](const bool* pbFlags, int iLength) {
                             m_iLength = iLength;
                             m_viRecords.clear();
                             for (int i = 0; i < iLength; ++i)
                                 if (pbFlags[i])
                                     m_viRecords.push_back(i);
                             m_bRebuilt = panel.setSelectedRows(m_viRecords);
                         });
    }

    std::vector<int> m_viRecords;
    int m_iLength = -1;
    bool m_bRebuilt = false;
};

void click(QBarDiagramWidget& plot, const QPointF& oPosition, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QMouseEvent press(QEvent::MouseButtonPress, oPosition, oPosition, Qt::LeftButton, Qt::LeftButton, modifiers);
    QCoreApplication::sendEvent(&plot, &press);
}

/// The middle of a bar, a little above the baseline.
QPointF onBar(QBarDiagramWidget& plot, int iBar)
{
    const QPointF oFoot = plot.transformInPixelPoint({iBar + 0.5, 0.0}) - plot.pixmapRect().topLeft();
    return oFoot - QPointF(0.0, 3.0);
}

} // namespace

class TestBarChart : public QObject
{
    Q_OBJECT
private slots:
    void classesOfEachType_data();
    void classesOfEachType();
    void ordersAndMissing_data();
    void ordersAndMissing();
    void intervalsPartitionTheRecords();
    void suggestedInterval();
    void displayUnitsNameTheIntervals();
    void sharesAndSelectedRecords();
    void windowKeepsBarsReadable();
    void barsInPixels();
    void namesNeverOverlap_data();
    void namesNeverOverlap();
    void clicksSelectRecords();
    void otherSelectionsRestrict();
    void manyClassesScroll();
    void whatDisappearsLeavesAnEmptyChart();
    void picture();
};

void TestBarChart::classesOfEachType_data()
{
    QTest::addColumn<QMetaType::Type>("type");
    QTest::addColumn<QStringList>("cells");
    QTest::addColumn<double>("interval");
    QTest::addColumn<QString>("bars");
    QTest::newRow("texts") << QMetaType::QString << QStringList{"b", "a", "b", ""} << 0.0 << "a=1 b=2 (missing)=1";
    QTest::newRow("texts take no interval") << QMetaType::QString << QStringList{"1", "2"} << 5.0 << "1=1 2=1";
    QTest::newRow("ints") << QMetaType::Int << QStringList{"10", "9", "10", "-1"} << 0.0 << "-1=1 9=1 10=2";
    QTest::newRow("flags") << QMetaType::Bool << QStringList{"true", "", "true"} << 0.0 << "true=2 (missing)=1";
    QTest::newRow("colours") << QMetaType::QColor << QStringList{"#ff0000", "#0000ff", "#ff0000"} << 0.0
                             << "#0000ff=1 #ff0000=2";
    QTest::newRow("doubles") << QMetaType::Double << QStringList{"2.5", "0.5", "2.5", "99999"} << 0.0
                             << "0.5=1 2.5=2 (missing)=1";
    QTest::newRow("values on the limits of decimal intervals")
        << QMetaType::Double << QStringList{"0.1", "0.3", "0.6", "0.7"} << 0.1
        << QStringLiteral("0.1 – 0.2=1 0.3 – 0.4=1 0.6 – 0.7=2");
    QTest::newRow("intervals from whole multiples") << QMetaType::Double << QStringList{"0.9", "1", "2.999", "-0.1"}
                                                    << 1.0 << QStringLiteral("-1 – 0=1 0 – 1=1 1 – 2=1 2 – 3=1");
    QTest::newRow("the last interval holds its end")
        << QMetaType::Double << QStringList{"0", "0.5", "1"} << 0.5 << QStringLiteral("0.0 – 0.5=1 0.5 – 1.0=2");
    QTest::newRow("equal values") << QMetaType::Double << QStringList{"4", "4"} << 0.5 << QStringLiteral("4.0 – 4.5=2");
    QTest::newRow("only missing") << QMetaType::Double << QStringList{"", ""} << 0.5 << "(missing)=2";
    QTest::newRow("nothing") << QMetaType::Int << QStringList() << 0.0 << "";
}

void TestBarChart::classesOfEachType()
{
    QFETCH(QMetaType::Type, type);
    QFETCH(QStringList, cells);
    QFETCH(double, interval);
    const std::unique_ptr<MatrixData> poNode(attribute(QStringLiteral("a"), type, cells));
    QTEST(barsText(*poNode, interval, BarDiagramClasses::ValueOrder), "bars");
}

void TestBarChart::ordersAndMissing_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<bool>("missing");
    QTest::addColumn<QString>("bars");
    QTest::newRow("name") << 0 << true << "alpha=1 Beta=2 Zone 2=1 zone 10=3 (missing)=4";
    QTest::newRow("value") << 1 << true << "Beta=2 Zone 2=1 alpha=1 zone 10=3 (missing)=4";
    QTest::newRow("count, ties by value") << 2 << true << "zone 10=3 Beta=2 Zone 2=1 alpha=1 (missing)=4";
    QTest::newRow("no missing") << 0 << false << "alpha=1 Beta=2 Zone 2=1 zone 10=3";
}

void TestBarChart::ordersAndMissing()
{
    QFETCH(int, order);
    QFETCH(bool, missing);
    const std::unique_ptr<MatrixData> poNode(
        attribute(QStringLiteral("a"), QMetaType::QString,
                  {"zone 10", "Beta", "", "Zone 2", "alpha", "zone 10", "", "", "Beta", "zone 10", ""}));
    QTEST(barsText(*poNode, 0.0, static_cast<BarDiagramClasses::Order>(order), missing), "bars");
}

void TestBarChart::intervalsPartitionTheRecords()
{
    std::vector<double> vdValues(997);
    for (std::size_t i = 0; i < vdValues.size(); ++i)
        vdValues[i] = std::fmod(static_cast<double>(i) * 0.7237, 13.1) - 4.0;
    MatrixData node(QStringLiteral("a"), 0, 1);
    node.setColumn(0, MatrixColumn::fromDoubles(vdValues));
    for (const double dInterval : {0.001, 0.1, 0.3, 1.0, 7.0, 50.0}) {
        BarDiagramClasses classes;
        classes.classify(&node, dInterval);
        classes.count({});
        classes.arrange(BarDiagramClasses::ValueOrder, true);
        QVERIFY(classes.barCount() <= BarDiagramClasses::s_iMostIntervals + 2);
        QCOMPARE(classes.total(), 997);
        for (const BarClass& bar : classes.bars()) {
            const QStringList lEdges = bar.m_sName.split(QStringLiteral(" – "));
            const double dFrom = lEdges.value(0).toDouble() - 1e-9;
            const double dTo = lEdges.value(1).toDouble() + 1e-9;
            for (const int iRecord : classes.recordsOf(std::vector<int>{bar.m_iId})) {
                const double dValue = vdValues[static_cast<std::size_t>(iRecord)];
                QVERIFY(dValue >= dFrom && dValue <= dTo);
            }
        }
    }
}

void TestBarChart::suggestedInterval()
{
    QStringList lFew;
    QStringList lMeasured;
    for (int i = 0; i < 200; ++i) {
        lFew << QString::number(i % 4 + 0.5);
        lMeasured << QString::number(i * 0.731);
    }
    const auto suggested = [](QMetaType::Type eType, const QStringList& lCells) {
        const std::unique_ptr<MatrixData> poNode(attribute(QStringLiteral("a"), eType, lCells));
        return BarDiagramClasses::suggestedInterval(*poNode);
    };
    QCOMPARE(suggested(QMetaType::Double, lFew), 0.0);
    QCOMPARE(suggested(QMetaType::Double, lMeasured), 20.0);
    QVERIFY(suggested(QMetaType::Double, {"1.5", "2.25", "7.0"}) > 0.0); // all different: measured
    QCOMPARE(suggested(QMetaType::Int, {"3", "1", "2"}), 0.0);
    QCOMPARE(suggested(QMetaType::QString, lMeasured), 0.0);
    QCOMPARE(suggested(QMetaType::Double, {}), 0.0);
}

void TestBarChart::displayUnitsNameTheIntervals()
{
    const std::unique_ptr<MatrixData> poNode(
        attribute(QStringLiteral("depth"), QMetaType::Double, {"0.1", "3.1", "3.2"}));
    const boost::shared_ptr<UnitManager> poUnit(new UnitManager(QStringLiteral("length"), QStringLiteral("m")));
    QVERIFY(poUnit->displayUnit(QStringLiteral("ft")));
    poNode->setUnitManager(poUnit);
    QCOMPARE(barsText(*poNode, 3.048, BarDiagramClasses::ValueOrder), QStringLiteral("0 – 10=1 10 – 20=2"));
    QVERIFY(poUnit->displayUnit(QStringLiteral("m")));
}

void TestBarChart::sharesAndSelectedRecords()
{
    const std::unique_ptr<MatrixData> poNode(rocks());
    BarDiagramClasses classes;
    QVERIFY(classes.classify(poNode.get(), 0.0));
    QVERIFY(!classes.classify(poNode.get(), 0.0));
    for (const std::vector<int>& viRecords : {std::vector<int>(), std::vector<int>{0, 1, 3, 6, 99, -1}}) {
        classes.count(viRecords);
        for (const bool bMissing : {true, false}) {
            classes.arrange(BarDiagramClasses::CountOrder, bMissing);
            double dShares = 0.0;
            for (int i = 0; i < classes.barCount(); ++i)
                dShares += classes.share(i);
            QVERIFY(std::abs(dShares - 100.0) < 1e-9);
        }
        QCOMPARE(barsText(classes), viRecords.empty() ? QStringLiteral("b=3 A=2 c=1") : QStringLiteral("b=2 A=1"));
    }
    QCOMPARE(classes.recordsOf(std::vector<int>{2, 0}), (std::vector<int>{0, 3, 6})); // b and missing
    poNode->setValue(poNode->rowOffSet(), 0, QStringLiteral("d"));
    QVERIFY(classes.classify(poNode.get(), 0.0)); // its values changed
}

void TestBarChart::windowKeepsBarsReadable()
{
    QCOMPARE(barWindow(0, 800, 16.0, 1.0, 5.0), BarWindow());
    QCOMPARE(barWindow(3, 800, 16.0, 1.0, 2.0), (BarWindow{0.0, 3.0}));     // all fit: nothing to scroll
    QCOMPARE(barWindow(500, 800, 16.0, 1.0, -4.0), (BarWindow{0.0, 50.0})); // 16 pixels each
    QCOMPARE(barWindow(500, 800, 16.0, 1.0, 9999.0), (BarWindow{450.0, 50.0}));
    QCOMPARE(barWindow(500, 800, 16.0, 5.0, 480.0), (BarWindow{480.0, 10.0}));
    QCOMPARE(barWindow(3, 800, 16.0, 1.0, std::nan("")), (BarWindow{0.0, 3.0}));
}

void TestBarChart::barsInPixels()
{
    const std::vector<double> vdHeights{4.0, 0.0, 2.0, 0.01};
    const HistogramMap map = histogramMap({{0.0, 0.0}, {4.0, 4.0}}, QSize(401, 101));
    const std::vector<HistogramBar> vBars = diagramBars(vdHeights, map);
    QCOMPARE(vBars.size(), std::size_t(3)); // none for 0
    QCOMPARE(vBars[0].m_oRect, QRectF(15, 0, 70, 100));
    QCOMPARE(vBars[1].m_oRect, QRectF(215, 50, 70, 50));
    QCOMPARE(diagramBarAt(vBars, {250.0, 60.0}), 2);
    QCOMPARE(diagramBarAt(vBars, {250.0, 40.0}), -1); // above it
    QCOMPARE(diagramBarAt(vBars, {290.0, 60.0}), -1); // between two
    QCOMPARE(diagramBarAt(vBars, {350.0, 95.0}), 3);  // a low bar has a foot to click on

    // More bars than pixels: never two on one pixel, and the tallest is seen.
    std::vector<double> vdMany(10000, 1.0);
    vdMany[7777] = 4.0;
    const std::vector<HistogramBar> vThin =
        diagramBars(vdMany, histogramMap({{0.0, 0.0}, {10000.0, 4.0}}, QSize(400, 101)));
    QVERIFY(vThin.size() <= 400);
    for (std::size_t i = 1; i < vThin.size(); ++i)
        QVERIFY(vThin[i].m_oRect.left() > vThin[i - 1].m_oRect.right());
    QVERIFY(std::any_of(vThin.begin(), vThin.end(), [](const HistogramBar& bar) { return bar.m_iInterval == 7777; }));
}

void TestBarChart::namesNeverOverlap_data()
{
    QTest::addColumn<int>("bars");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("upright");
    QTest::newRow("few") << 3 << "granite" << false;
    QTest::newRow("few and long: cut") << 3 << QString(200, QLatin1Char('m')) << false;
    QTest::newRow("many") << 25 << "granite" << true;
    QTest::newRow("many and long: cut") << 25 << QString(200, QLatin1Char('m')) << true;
    QTest::newRow("too many: every n-th") << 3000 << "granite" << true;
}

void TestBarChart::namesNeverOverlap()
{
    QFETCH(int, bars);
    QFETCH(QString, name);
    QFETCH(bool, upright);
    const std::vector<BarClass> vBars(static_cast<std::size_t>(bars), BarClass{1, name, Qt::blue, 1});
    const QFontMetricsF metrics{QFont()};
    const double dMostDepth = 90.0;
    const BarLabels labels =
        barLabels(vBars, {0.0, static_cast<double>(bars)}, 800, metrics, widestName(vBars, metrics), dMostDepth);
    QCOMPARE(labels.m_bUpright, upright);
    QVERIFY(labels.m_dDepth <= dMostDepth);
    QVERIFY(!labels.m_vLabels.empty());
    if (bars < 100)
        QCOMPARE(labels.m_vLabels.size(), static_cast<std::size_t>(bars));
    double dEnd = -1e9;
    for (const BarLabel& label : labels.m_vLabels) {
        const double dText = metrics.horizontalAdvance(label.m_sText);
        const double dAlong = upright ? metrics.height() : dText;
        QVERIFY(!upright || dText <= dMostDepth + 1e-6);
        QVERIFY(label.m_dCentre - dAlong / 2.0 >= dEnd - 1e-6);
        dEnd = label.m_dCentre + dAlong / 2.0;
    }
}

void TestBarChart::clicksSelectRecords()
{
    const std::unique_ptr<MatrixData> poRoot = rootOf(
        {rocks(), attribute(QStringLiteral("longer"), QMetaType::Int, {"1", "2", "3", "4", "5", "6", "7", "8"})});
    QTRNBarChartWidget panel;
    Owner owner(panel);
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0));
    QCOMPARE(panel.currentSelectedDataSet()->name(), QStringLiteral("rock"));
    panel.resize(900, 600);
    panel.grab();
    QBarDiagramWidget& plot = *panel.drawingArea();

    click(plot, onBar(plot, 0));
    QCOMPARE(owner.m_iLength, 8); // all records of the data set
    QCOMPARE(owner.m_viRecords, (std::vector<int>{1, 5}));
    QVERIFY(!owner.m_bRebuilt); // the other bars stay
    QCOMPARE(panel.classes().total(), 7);
    click(plot, onBar(plot, 3), Qt::ControlModifier);
    QCOMPARE(owner.m_viRecords, (std::vector<int>{1, 3, 5}));
    click(plot, QPointF(2.0, 2.0), Qt::ControlModifier);
    QCOMPARE(owner.m_viRecords, (std::vector<int>{1, 3, 5}));
    click(plot, onBar(plot, 0), Qt::ControlModifier); // takes away
    QCOMPARE(owner.m_viRecords, (std::vector<int>{3}));
    click(plot, QPointF(2.0, 2.0));
    QVERIFY(owner.m_viRecords.empty());
    QCOMPARE(panel.classes().total(), 7);

    // For another attribute the records are a selection like any other.
    click(plot, onBar(plot, 1));
    panel.setDataSet(poRoot->child(0)->child(1));
    QCOMPARE(barsText(panel.classes()), QStringLiteral("1=1 3=1 7=1"));
}

void TestBarChart::otherSelectionsRestrict()
{
    const std::unique_ptr<MatrixData> poRoot = rootOf({rocks()});
    QTRNBarChartWidget panel;
    Owner owner(panel);
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot.get());
    panel.resize(900, 600);
    QVERIFY(panel.setSelectedRows({0, 1, 2, 3}));
    QVERIFY(!panel.setSelectedRows({0, 1, 2, 3}));
    QCOMPARE(barsText(panel.classes()), QStringLiteral("A=1 b=2 (missing)=1"));
    panel.grab();
    click(*panel.drawingArea(), onBar(*panel.drawingArea(), 1));
    QCOMPARE(owner.m_viRecords, (std::vector<int>{0, 2})); // of the records that are counted
    QCOMPARE(barsText(panel.classes()), QStringLiteral("A=1 b=2 (missing)=1"));
    QVERIFY(panel.setSelectedRows({4}));
    QCOMPARE(barsText(panel.classes()), QStringLiteral("c=1"));
    QVERIFY(panel.setSelectedRows({}));
    QCOMPARE(panel.classes().total(), 7);
}

void TestBarChart::manyClassesScroll()
{
    QStringList lCells;
    for (int i = 0; i < 500; ++i)
        lCells << QStringLiteral("class %1").arg(i);
    const std::unique_ptr<MatrixData> poRoot =
        rootOf({attribute(QStringLiteral("a"), QMetaType::QString, lCells), rocks()});
    QTRNBarChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0)->child(0));
    panel.resize(900, 600);
    panel.grab();
    QBarDiagramWidget& plot = *panel.drawingArea();
    const auto lBars = panel.findChildren<QScrollBar*>();
    const auto itBar = std::find_if(lBars.begin(), lBars.end(), [](const QScrollBar* pqBar) {
        return pqBar->orientation() == Qt::Horizontal && pqBar->accessibleName().contains(QLatin1String("bar"));
    });
    QVERIFY(itBar != lBars.end());
    QVERIFY(!(*itBar)->isHidden());
    (*itBar)->setValue((*itBar)->maximum());
    QVERIFY(std::abs(plot.window().m_dFirst + plot.window().m_dCount - 500.0) < 1e-9);
    QCOMPARE(plot.intervalAt(onBar(plot, 499)), 499);
    const double dCentre = plot.window().m_dFirst + plot.window().m_dCount / 2.0;
    plot.zoom(2.0);
    QVERIFY(std::abs(plot.window().m_dFirst + plot.window().m_dCount / 2.0 - dCentre) < 1e-9);
    panel.setDataSet(poRoot->child(0)->child(1)); // four bars need no scrolling once the zoom is off
    plot.zoom(1.0);
    QVERIFY((*itBar)->isHidden());
    QCOMPARE(plot.window(), (BarWindow{0.0, 4.0}));
}

void TestBarChart::whatDisappearsLeavesAnEmptyChart()
{
    std::unique_ptr<MatrixData> poRoot = rootOf({rocks(), attribute(QStringLiteral("n"), QMetaType::Int, {"1", "2"})});
    QTRNBarChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot.get());
    auto* pqChooser = panel.findChild<QComboBox*>(QStringLiteral("m_pqBarChartDataSetComboBox"));
    QCOMPARE(pqChooser->count(), 2);
    QCOMPARE(pqChooser->currentText(), QStringLiteral("rock"));
    poRoot->removeChild(poRoot->child(0)->child(0));
    QVERIFY(!panel.currentSelectedDataSet());
    QCOMPARE(pqChooser->currentIndex(), -1);
    QCOMPARE(pqChooser->count(), 1);
    QCOMPARE(panel.classes().barCount(), 0);
    pqChooser->setCurrentIndex(0);
    emit pqChooser->activated(0); // as the user does
    QCOMPARE(barsText(panel.classes()), QStringLiteral("1=1 2=1"));
    poRoot.reset();
    QCOMPARE(panel.classes().barCount(), 0);
    QCOMPARE(pqChooser->count(), 0);
    panel.updateBarChart();
    panel.grab();
}

void TestBarChart::picture()
{
    const std::unique_ptr<MatrixData> poRoot =
        rootOf({attribute(QStringLiteral("colour"), QMetaType::QColor, {"#ff0000", "#ff0000", "#ff0000", "#0000ff"})});
    QTRNBarChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot.get());
    panel.setBlackBackground(true);
    const QTemporaryDir dir;
    const QString sPath = dir.filePath(QStringLiteral("bars.png"));
    QString sError;
    QVERIFY2(panel.exportChart(sPath, {640, 480}, &sError), qPrintable(sError));
    const QImage image(sPath);
    int iRed = 0;
    int iBlue = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            iRed += image.pixelColor(x, y) == QColor(Qt::red);
            iBlue += image.pixelColor(x, y) == QColor(Qt::blue);
        }
    QVERIFY(iBlue > 1000);
    QVERIFY(std::abs(static_cast<double>(iRed) / iBlue - 3.0) < 0.1); // areas tell the counts
    QCOMPARE(image.pixelColor(1, 1), QColor(Qt::black));
    QVERIFY(!panel.exportChart(dir.filePath(QStringLiteral("no/bars.png")), {640, 480}, &sError));
    QVERIFY(!sError.isEmpty());
    panel.resize(640, 480);
    panel.copyToClipboard();
    QVERIFY(!QApplication::clipboard()->pixmap().isNull());
}

QTEST_MAIN(TestBarChart)
#include "tst_barchart.moc"
