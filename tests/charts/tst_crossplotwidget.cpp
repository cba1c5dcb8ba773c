// The cross plot panel on small data sets.

#include "TemporarySettings.h"
#include "TestControls.h"
#include "TestDataSets.h"

#include <gkBase/ClassLegends.h>
#include <gkBase/MatrixData.h>
#include <gkBase/MatrixDataArray.h>
#include <gkBase/MetafileClipboard.h>
#include <gkBase/QCartesianAxisWidget.h>
#include <gkBase/QCrossPlot.h>
#include <gkBase/QCrossPlotWidget.h>
#include <gkBase/QLegendListModel.h>
#include <gkBase/QLegendListView.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/QUnitLineEdit.h>
#include <gkBase/UnitManager.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QItemSelectionModel>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <boost/make_shared.hpp>

#include <cmath>
#include <functional>
#include <memory>
#include <numeric>
#include <utility>
#include <vector>

using namespace gkBase;
using gkTest::addDataSet;

namespace {

constexpr int g_iRecords = 60;

MatrixData* newAttribute(const QString& sName, QMetaType::Type eType, const std::function<QVariant(int)>& value,
                         int iRecords = g_iRecords)
{
    MatrixColumn column(eType, iRecords);
    for (int i = 0; i < iRecords; ++i)
        column.setValue(i, value(i));
    auto* poNode = new MatrixData(sName, 0, 1, eType);
    poNode->setColumn(0, std::move(column));
    return poNode;
}

QString rockOf(int iRecord)
{
    return QStringLiteral("rock %1").arg(iRecord % 4);
}

/// A root with the data set "Well": depth (m), gamma with two groups of values and a gap at record 7, rock and facies.
std::unique_ptr<MatrixData> newRoot()
{
    auto poRoot = std::make_unique<MatrixData>(QStringLiteral("root"));
    MatrixData* poDepth = newAttribute(QStringLiteral("depth"), QMetaType::Double, [](int i) { return 1000.0 + i; });
    poDepth->setUnitManager(boost::make_shared<UnitManager>(QStringLiteral("depth"), QStringLiteral("m")));
    addDataSet(*poRoot, QStringLiteral("Well"),
               {newAttribute(QStringLiteral("rock"), QMetaType::QString, [](int i) { return rockOf(i); }), poDepth,
                newAttribute(QStringLiteral("gamma"), QMetaType::Double,
                             [](int i) { return i == 7 ? QVariant() : QVariant(i < 20 ? 5.0 + i % 3 : 500.0 + i); }),
                newAttribute(QStringLiteral("facies"), QMetaType::Int, [](int i) { return i % 3; })});
    return poRoot;
}

/// The panel shows depth over gamma.
struct Fixture
{
    std::unique_ptr<MatrixData> m_poRoot = newRoot();
    QCrossPlotWidget m_panel;

    Fixture()
    {
        m_panel.setDataRoot(m_poRoot.get());
        m_panel.setAttributes(node("gamma"), node("depth"));
    }
    MatrixData* node(const char* pName) const { return m_poRoot->getNodeFromName(QLatin1String(pName)); }
    QRelationshipItemModel& model() { return *m_panel.relationshipItemModel(); }
    QComboBox* chooser(const char* pName) const { return m_panel.findChild<QComboBox*>(QLatin1String(pName)); }
    QStringList entries(const char* pName) const { return gkTest::entries(m_panel, pName); }
    void pick(const char* pName, const QString& sEntry) { gkTest::pick(m_panel, pName, sEntry); }
};

void selectClass(QLegendListView* pqView, int iClass)
{
    pqView->selectionModel()->select(pqView->legendModel()->indexOfClass(iClass), QItemSelectionModel::ClearAndSelect);
}

void type(QUnitLineEdit* pqEdit, const QString& sText)
{
    pqEdit->selectAll();
    QTest::keyClicks(pqEdit, sText);
    QTest::keyClick(pqEdit, Qt::Key_Return);
}

/// Counts how often a widget is painted.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget* pqWidget) { pqWidget->installEventFilter(this); }
    int take() { return std::exchange(m_iPaints, 0); }

protected:
    bool eventFilter(QObject*, QEvent* pEvent) override
    {
        m_iPaints += pEvent->type() == QEvent::Paint;
        return false;
    }

private:
    int m_iPaints = 0;
};

} // namespace

class TestCrossPlotWidget : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void choosersOfferWhatFits();
    void dataSetStartsWithItsFirstNumbers_data();
    void dataSetStartsWithItsFirstNumbers();
    void userPicksAnotherDataSet();
    void legendSelectsExactlyItsClasses_data();
    void legendSelectsExactlyItsClasses();
    void recolouredClassesStayRecoloured();
    void removedAttributesLeaveTheChart();
    void rootMayDieFirst();
    void swapExchangesAttributesAndLimits();
    void limitsAreTypedInDisplayUnits();
    void equalValuesHaveAnAxis();
    void settingsComeBack();
    void brokenSettingsAreIgnored();
    void clustersColourAndAnnounce();
    void ownerKeepsTheClusters();
    void clustersOfSelectedPoints();
    void oneChangeDrawsOnce();
    void pictureHoldsTheLegends();

private:
    QTemporaryDir m_oFolder;
};

void TestCrossPlotWidget::initTestCase()
{
    gkTest::useTemporarySettings(m_oFolder.path(), QStringLiteral("crossplot"));
}

void TestCrossPlotWidget::choosersOfferWhatFits()
{
    Fixture f;
    const QStringList lNumbers = {QStringLiteral("depth"), QStringLiteral("gamma"), QStringLiteral("facies")};
    QCOMPARE(f.entries("m_pqXChooser"), lNumbers);
    QCOMPARE(f.entries("m_pqYChooser"), lNumbers);
    QCOMPARE(f.entries("m_pqColorChooser").size(), 5); // none, rock and the numbers

    addDataSet(*f.m_poRoot, QStringLiteral("Derived"),
               {newAttribute(QStringLiteral("id"), QMetaType::Int, [](int i) { return i; })});
    addDataSet(*f.m_poRoot, QStringLiteral("Short"),
               {newAttribute(
                   QStringLiteral("id"), QMetaType::Int, [](int i) { return i; }, 10)});
    f.m_panel.updateDataSetSelectionBox();
    QVERIFY(f.entries("m_pqXChooser").contains(QStringLiteral("Short: id")));
    for (const char* pName : {"m_pqYChooser", "m_pqColorChooser", "m_pqSymbolChooser", "m_pqTadPoleChooser"}) {
        QVERIFY(f.entries(pName).contains(QStringLiteral("Derived: id")));
        QVERIFY(!f.entries(pName).contains(QStringLiteral("Short: id")));
    }
    QCOMPARE(f.chooser("m_pqXChooser")->currentText(), QStringLiteral("Well: gamma"));
    QCOMPARE(f.chooser("m_pqYChooser")->currentText(), QStringLiteral("Well: depth"));
}

void TestCrossPlotWidget::dataSetStartsWithItsFirstNumbers_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("x");
    QTest::addColumn<QString>("y");
    QTest::newRow("data set, depth last") << "Well"
                                          << "gamma"
                                          << "facies";
    QTest::newRow("number attribute") << "facies"
                                      << "facies"
                                      << "gamma";
    QTest::newRow("depth") << "depth"
                           << "depth"
                           << "gamma";
    QTest::newRow("texts") << "rock"
                           << "gamma"
                           << "facies";
    QTest::newRow("nothing") << QString() << QString() << QString();
}

void TestCrossPlotWidget::dataSetStartsWithItsFirstNumbers()
{
    QFETCH(QString, node);
    QFETCH(QString, x);
    QFETCH(QString, y);
    Fixture f;
    f.m_panel.chooseDataSet(node.isEmpty() ? nullptr : f.m_poRoot->getNodeFromName(node));
    f.m_panel.updateCrossPlot();
    QCOMPARE(f.m_panel.nodeX() ? f.m_panel.nodeX()->name() : QString(), x);
    QCOMPARE(f.m_panel.nodeY() ? f.m_panel.nodeY()->name() : QString(), y);
    if (x.isEmpty())
        return;
    // No symbol is cut by the frame.
    const QRectF oBox = f.model().boundingBox();
    QVERIFY(f.m_panel.drawingArea()->rangeA().x() < oBox.left());
    QVERIFY(f.m_panel.drawingArea()->rangeA().y() < oBox.top());
    QVERIFY(f.m_panel.drawingArea()->rangeB().x() > oBox.right());
    QVERIFY(f.m_panel.drawingArea()->rangeB().y() > oBox.bottom());
}

void TestCrossPlotWidget::userPicksAnotherDataSet()
{
    Fixture f;
    addDataSet(*f.m_poRoot, QStringLiteral("Short"),
               {newAttribute(
                    QStringLiteral("a"), QMetaType::Int, [](int i) { return i; }, 10),
                newAttribute(
                    QStringLiteral("b"), QMetaType::Int, [](int i) { return i * i; }, 10)});
    f.m_panel.updateDataSetSelectionBox();
    f.m_panel.setColorAttribute(f.node("rock"));
    QSignalSpy spy(&f.m_panel, &QCrossPlotWidget::signalUpdateChartData);
    f.pick("m_pqXChooser", QStringLiteral("Short: a"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(f.m_panel.nodeX(), f.node("a"));
    QCOMPARE(f.m_panel.nodeY(), f.node("b"));
    QCOMPARE(f.model().numberOfValidPoints(), 10);
    QVERIFY(!f.model().colorAttributeIsOn());
    QCOMPARE(f.chooser("m_pqColorChooser")->currentIndex(), 0);
}

void TestCrossPlotWidget::legendSelectsExactlyItsClasses_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<bool>("symbols");
    QTest::newRow("colours of texts") << "rock" << false;
    QTest::newRow("symbols of texts") << "rock" << true;
    QTest::newRow("symbols of whole numbers") << "facies" << true;
    QTest::newRow("colours of bands") << "gamma" << false;
}

void TestCrossPlotWidget::legendSelectsExactlyItsClasses()
{
    QFETCH(QString, attribute);
    QFETCH(bool, symbols);
    Fixture f;
    MatrixData* poAttribute = f.m_poRoot->getNodeFromName(attribute);
    if (symbols)
        f.m_panel.setSymbolAttribute(poAttribute);
    else
        f.m_panel.setColorAttribute(poAttribute);
    const RelationshipClasses& classes = symbols ? f.model().symbolClasses() : f.model().colorClasses();
    QLegendListView* pqView = symbols ? f.m_panel.legends()->symbolView() : f.m_panel.legends()->colorView();
    QSignalSpy spy(&f.m_panel, &QCrossPlotWidget::dataPointsSelection);
    QVERIFY(classes.highestId() >= 3);
    int iSelected = 0;
    for (int iClass = 1; iClass <= classes.highestId(); ++iClass) {
        selectClass(pqView, iClass);
        for (int i = 0; i < g_iRecords; ++i)
            QCOMPARE(f.model().isSelected(i), classes.id(i) == iClass && f.model().isValid(i));
        iSelected += f.m_panel.numberOfSelectedRows();
    }
    QCOMPARE(iSelected, f.model().numberOfValidPoints());
    QCOMPARE(spy.count(), classes.highestId());
    QCOMPARE(spy.last()[1].toInt(), g_iRecords);
}

void TestCrossPlotWidget::recolouredClassesStayRecoloured()
{
    Fixture f;
    f.m_panel.setColorAttribute(f.node("rock"));
    QLegendListModel* pLegend = f.m_panel.legends()->colorView()->legendModel();
    pLegend->changeSymbolColor(pLegend->indexOfClass(2), Qt::magenta);
    QCOMPARE(f.model().colorClasses().color(2), QColor(Qt::magenta));
    // A new first class moves the others by one.
    f.node("rock")->setValue(f.node("rock")->rowOffSet(), QStringLiteral("a first one"));
    f.m_panel.updateCrossPlot();
    QCOMPARE(f.model().colorClasses().names().value(3), QVariant(rockOf(1)));
    QCOMPARE(f.model().colorClasses().color(3), QColor(Qt::magenta));
    QVERIFY(f.model().colorClasses().color(2) != QColor(Qt::magenta));
    QCOMPARE(pLegend->classColors().value(3), QColor(Qt::magenta));
}

void TestCrossPlotWidget::removedAttributesLeaveTheChart()
{
    Fixture f;
    f.m_panel.setColorAttribute(f.node("rock"));
    f.m_panel.setSymbolAttribute(f.node("facies"));
    f.m_poRoot->removeChild(f.node("rock"));
    QVERIFY(!f.model().colorAttributeIsOn());
    QCOMPARE(f.chooser("m_pqColorChooser")->currentText(), QStringLiteral("None"));
    QCOMPARE(f.m_panel.legends()->colorView()->legendModel()->rowCount(), 0);
    QCOMPARE(f.model().numberOfPoints(), g_iRecords);

    f.m_poRoot->removeChild(f.node("gamma"));
    QVERIFY(!f.m_panel.nodeX());
    QCOMPARE(f.m_panel.nodeY(), f.node("depth"));
    QCOMPARE(f.model().numberOfPoints(), 0);
    QCOMPARE(f.chooser("m_pqXChooser")->currentIndex(), -1);
    QVERIFY(!f.entries("m_pqXChooser").contains(QStringLiteral("gamma")));

    f.m_poRoot->removeChild(f.node("Well"));
    QVERIFY(!f.m_panel.nodeY());
    QVERIFY(!f.model().symbolAttributeIsOn());
    QCOMPARE(f.chooser("m_pqXChooser")->count(), 0);
}

void TestCrossPlotWidget::rootMayDieFirst()
{
    Fixture f;
    f.m_panel.setColorAttribute(f.node("rock"));
    f.m_poRoot.reset();
    QCOMPARE(f.model().numberOfPoints(), 0);
    QCOMPARE(f.chooser("m_pqXChooser")->count(), 0);
    f.m_panel.updateCrossPlot();
    f.m_panel.swapAxes();
    QVERIFY(!f.m_panel.applyClusters(3, QStringLiteral("none")));
}

void TestCrossPlotWidget::swapExchangesAttributesAndLimits()
{
    Fixture f;
    f.m_panel.setLimits({0.0, 600.0, g_dMissingValue, g_dMissingValue});
    const QPointF oA = f.m_panel.drawingArea()->rangeA();
    const QPointF oB = f.m_panel.drawingArea()->rangeB();
    f.m_panel.swapAxes();
    QCOMPARE(f.m_panel.nodeX(), f.node("depth"));
    QCOMPARE(f.m_panel.nodeY(), f.node("gamma"));
    QCOMPARE(f.m_panel.drawingArea()->rangeA(), oA.transposed());
    QCOMPARE(f.m_panel.drawingArea()->rangeB(), oB.transposed());
    QCOMPARE(f.chooser("m_pqXChooser")->currentText(), QStringLiteral("depth"));
}

void TestCrossPlotWidget::limitsAreTypedInDisplayUnits()
{
    Fixture f;
    auto* pqFrom = f.m_panel.findChild<QUnitLineEdit*>(QStringLiteral("m_pqYMinEdit"));
    auto* pqReset = f.m_panel.findChild<QPushButton*>(QStringLiteral("m_pqAutomaticLimitsBtn"));
    const QCrossPlot* pqPlot = f.m_panel.drawingArea();
    QVERIFY(pqFrom->text().endsWith(QStringLiteral(" m")));
    QVERIFY(!pqReset->isEnabled());
    const QPointF oA = pqPlot->rangeA();
    const QPointF oB = pqPlot->rangeB();

    type(pqFrom, QStringLiteral("3280.84 ft"));
    QVERIFY(std::abs(pqPlot->rangeA().y() - 1000.0) < 0.01);
    QCOMPARE(pqPlot->rangeB(), oB);
    // Ends in the wrong order are exchanged, equal ones are not taken.
    type(pqFrom, QStringLiteral("2000"));
    QCOMPARE(pqPlot->rangeB().y(), 2000.0);
    QCOMPARE(pqPlot->rangeA().y(), oB.y());
    type(pqFrom, QStringLiteral("2000"));
    QCOMPARE(pqPlot->rangeA().y(), oB.y());
    QCOMPARE(pqFrom->modelValue(), oB.y());

    QVERIFY(pqReset->isEnabled());
    pqReset->click();
    QCOMPARE(pqPlot->rangeA(), oA);
    QCOMPARE(pqPlot->rangeB(), oB);
    f.m_panel.setLimits({5.0, 6.0, 1001.0, 1002.0});
    f.m_panel.setAttributes(f.node("facies"), f.node("depth"));
    QCOMPARE(f.m_panel.limits(), CrossPlotLimits());
}

void TestCrossPlotWidget::equalValuesHaveAnAxis()
{
    Fixture f;
    addDataSet(*f.m_poRoot, QStringLiteral("Flat"),
               {newAttribute(QStringLiteral("same"), QMetaType::Double, [](int) { return -40.0; }),
                newAttribute(QStringLiteral("none"), QMetaType::Double, [](int) { return QVariant(); })});
    f.m_panel.setAttributes(f.node("same"), f.node("depth"));
    QCOMPARE(f.m_panel.drawingArea()->rangeA().x(), -42.0);
    QCOMPARE(f.m_panel.drawingArea()->rangeB().x(), -38.0);
    f.m_panel.setAttributes(f.node("none"), f.node("depth"));
    QVERIFY(!f.m_panel.drawingArea()->message().isEmpty());
}

void TestCrossPlotWidget::settingsComeBack()
{
    CrossPlotSettings chosen;
    chosen.m_oDisplay = {false, true, 12.5};
    chosen.m_ePointStyle = PointStyle::Diamond;
    chosen.m_iPointSize = 7;
    chosen.m_bHollow = true;
    chosen.m_bColorLegend = false;
    chosen.m_bRedToBlue = true;
    chosen.m_bRegressionLine = true;
    chosen.m_bRegressionOfSelection = true;
    chosen.m_b90PercentRange = true;
    chosen.m_iClusters = 8;
    chosen.m_bCentroids = false;
    const QString sGroup = QStringLiteral("attribute_analyser/cross_plot/");
    QCrossPlotWidget first;
    first.setSettings(chosen);
    QCOMPARE(first.settings(), chosen);
    first.writeSettings(sGroup);
    QCrossPlotWidget second;
    QVERIFY(!(second.settings() == chosen));
    second.readSettings(sGroup);
    QCOMPARE(second.settings(), chosen);
    QCOMPARE(second.relationshipItemModel()->pointPixelSize(), 7);
    QVERIFY(second.drawingArea()->showRegressionLine());
    QCOMPARE(second.drawingArea()->backgroundColor(), QColor(Qt::black));
}

void TestCrossPlotWidget::brokenSettingsAreIgnored()
{
    const QString sGroup = QStringLiteral("broken");
    QSettings stored;
    stored.beginGroup(sGroup);
    stored.setValue(QStringLiteral("point_size"), 4000);
    stored.setValue(QStringLiteral("point_style"), QStringLiteral("round"));
    stored.setValue(QStringLiteral("clusters"), -3);
    stored.setValue(QStringLiteral("font_size"), QStringLiteral("nan"));
    stored.endGroup();
    QCrossPlotWidget panel;
    const CrossPlotSettings before = panel.settings();
    panel.readSettings(sGroup);
    QCOMPARE(panel.settings(), before);
}

void TestCrossPlotWidget::clustersColourAndAnnounce()
{
    Fixture f;
    QSignalSpy spy(&f.m_panel, &QCrossPlotWidget::createClusterAttribute);
    QVERIFY(f.m_panel.applyClusters(2, QStringLiteral("groups")));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy[0][0].toString(), QStringLiteral("groups"));
    QCOMPARE(spy[0][1].value<QRelationshipItemModel*>(), &f.model());
    const auto viSizes = f.model().clusterSizes();
    QCOMPARE(std::accumulate(viSizes.begin(), viSizes.end(), std::size_t{0}), std::size_t{g_iRecords - 1});

    // Each of the two groups of values has one colour, the gap has none.
    QCOMPARE(f.model().colorClasses().highestId(), 2);
    QCOMPARE(f.model().colorClasses().id(7), 0);
    for (int i = 0; i < g_iRecords; ++i) {
        if (i != 7)
            QCOMPARE(f.model().colorClasses().id(i), f.model().colorClasses().id(i < 20 ? 0 : 20));
    }
    QCOMPARE(f.chooser("m_pqColorChooser")->currentText(), QStringLiteral("groups"));
    const auto* pqTable = f.m_panel.findChild<QTableWidget*>(QStringLiteral("m_pqClusterTable"));
    QCOMPARE(pqTable->rowCount(), 2);
    QCOMPARE(pqTable->columnCount(), 4);
    f.m_panel.setThirdAttribute(f.node("facies"));
    QVERIFY(!f.model().clusterCentroids());
    QVERIFY(f.m_panel.applyClusters(3, QStringLiteral("groups")));
    QCOMPARE(pqTable->columnCount(), 5);
    QVERIFY(!f.m_panel.applyClusters(0, QStringLiteral("groups")));
}

void TestCrossPlotWidget::ownerKeepsTheClusters()
{
    Fixture f;
    connect(&f.m_panel, &QCrossPlotWidget::createClusterAttribute, this,
            [&f](const QString& sName, QRelationshipItemModel* pModel) {
                addDataSet(*f.m_poRoot, QStringLiteral("Kept"), {newAttribute(sName, QMetaType::Int, [pModel](int i) {
                    return pModel->clusterID(i) < 0 ? QVariant() : QVariant(pModel->clusterID(i));
                })});
                f.m_panel.updateDataSetSelectionBox();
            });
    QVERIFY(f.m_panel.applyClusters(2, QStringLiteral("groups")));
    QCOMPARE(f.model().colorAttribute(), f.node("groups"));
    QCOMPARE(f.chooser("m_pqColorChooser")->currentText(), QStringLiteral("Kept: groups"));
    QCOMPARE(f.entries("m_pqColorChooser").filter(QStringLiteral("groups")).size(), 1);
}

void TestCrossPlotWidget::clustersOfSelectedPoints()
{
    Fixture f;
    CrossPlotSettings settings = f.m_panel.settings();
    settings.m_bClustersOfSelection = true;
    f.m_panel.setSettings(settings);
    QVERIFY(!f.m_panel.applyClusters(2, QStringLiteral("part")));
    f.m_panel.setSelectedRows({0, 1, 2, 30});
    QVERIFY(f.m_panel.applyClusters(2, QStringLiteral("part")));
    QCOMPARE(f.model().clusterID(30), f.model().clusterID(0) == 0 ? 1 : 0);
    QCOMPARE(f.model().clusterID(31), -1);
    QVERIFY(!f.model().partSelection());
}

void TestCrossPlotWidget::oneChangeDrawsOnce()
{
    Fixture f;
    f.m_panel.resize(900, 600);
    f.m_panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f.m_panel));
    QCoreApplication::processEvents();
    PaintCounter counter(f.m_panel.drawingArea());
    const auto paints = [&counter] {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        return counter.take();
    };
    QCOMPARE(paints(), 0);
    f.m_panel.setAttributes(f.node("facies"), f.node("depth"));
    QCOMPARE(paints(), 1);
    f.m_panel.setSelectedRows({1, 2});
    f.m_panel.updateCrossPlot();
    QCOMPARE(paints(), 1);
    f.pick("m_pqYChooser", QStringLiteral("gamma"));
    QCOMPARE(paints(), 1);
    // An owner brings back what the user selected here, and nothing else has changed.
    f.m_panel.setSelectedRows({1, 2});
    f.m_panel.updateCrossPlot();
    QCOMPARE(paints(), 0);
    f.node("gamma")->setValue(f.node("gamma")->rowOffSet(), 77.0);
    f.m_panel.updateCrossPlot();
    QCOMPARE(paints(), 1);
    QCOMPARE(f.model().y()[0], 77.0);
    f.m_panel.setShowRegressionLine(true);
    QCOMPARE(paints(), 1);
}

void TestCrossPlotWidget::pictureHoldsTheLegends()
{
    Fixture f;
    f.m_panel.setColorAttribute(f.node("rock"));
    const QColor oColor(1, 254, 3);
    QLegendListModel* pLegend = f.m_panel.legends()->colorView()->legendModel();
    pLegend->changeSymbolColor(pLegend->indexOfClass(2), oColor);
    // All points are in the left part of the chart.
    f.m_panel.setLimits({0.0, 5000.0, g_dMissingValue, g_dMissingValue});
    const auto swatchPixels = [&](bool bLegend) {
        CrossPlotSettings settings = f.m_panel.settings();
        settings.m_bColorLegend = bLegend;
        f.m_panel.setSettings(settings);
        QImage oImage(800, 500, QImage::Format_RGB32);
        QPainter painter(&oImage);
        f.m_panel.renderTo(painter, oImage.rect());
        painter.end();
        int iPixels = 0;
        for (int y = 0; y < oImage.height(); ++y) {
            for (int x = oImage.width() / 2; x < oImage.width(); ++x)
                iPixels += oImage.pixelColor(x, y) == oColor;
        }
        return iPixels;
    };
    QVERIFY(swatchPixels(true) > 20);
    QCOMPARE(swatchPixels(false), 0);

    const auto metafileHolds = [&](bool bLegend, const QString& sText) {
        CrossPlotSettings settings = f.m_panel.settings();
        settings.m_bColorLegend = bLegend;
        f.m_panel.setSettings(settings);
        f.m_panel.copyEWMFToClipboard();
        const QMimeData* pData = QApplication::clipboard()->mimeData();
        const QByteArray qUtf16(reinterpret_cast<const char*>(sText.utf16()), sText.size() * 2);
        return pData->data(QString::fromLatin1(g_sMetafileMimeType)).contains(qUtf16);
    };
    QVERIFY(metafileHolds(true, rockOf(1)));
    QVERIFY(metafileHolds(false, QStringLiteral("Well")));
    QVERIFY(!metafileHolds(false, rockOf(1)));
}

QTEST_MAIN(TestCrossPlotWidget)
#include "tst_crossplotwidget.moc"
