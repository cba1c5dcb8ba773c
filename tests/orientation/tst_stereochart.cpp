// The stereonet panel on small data sets.

#include "TemporarySettings.h"
#include "TestControls.h"
#include "TestDataSets.h"

#include <gkBase/MatrixData.h>
#include <gkBase/MatrixDataArray.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/QStereoChartWidget.h>
#include <gkBase/QStereoPlotWidget.h>
#include <gkBase/QUnitLineEdit.h>
#include <gkBase/UnitManager.h>
#include <gkBase/UnitRegistry.h>

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <boost/make_shared.hpp>

#include <memory>
#include <numeric>
#include <vector>

using namespace gkBase;
using gkTest::addDataSet;
using gkTest::attribute;

namespace {

constexpr int g_iRecords = 40;

MatrixData* angles(const QString& sName, const std::vector<double>& vdValues)
{
    MatrixData* poNode = attribute(sName, vdValues);
    poNode->setUnitManager(boost::make_shared<UnitManager>(QStringLiteral("orientation"), QStringLiteral("deg")));
    return poNode;
}

/// Beds of two limbs, 30/090 and 60/270 with a scatter of a few degrees; joints with fewer records; lineations; logs
/// without orientations.
std::unique_ptr<MatrixData> newRoot()
{
    auto poRoot = std::make_unique<MatrixData>(QStringLiteral("root"));
    std::vector<double> vdDips;
    std::vector<double> vdAzimuths;
    std::vector<double> vdSpacings;
    QStringList lLimbs;
    for (int i = 0; i < g_iRecords; ++i) {
        const bool bEast = i % 2 == 0;
        vdDips.push_back((bEast ? 30.0 : 60.0) + i % 5);
        vdAzimuths.push_back((bEast ? 90.0 : 270.0) + i % 7);
        vdSpacings.push_back(0.25 * i);
        lLimbs << (bEast ? QStringLiteral("east") : QStringLiteral("west"));
    }
    addDataSet(*poRoot, QStringLiteral("Beds"),
               {angles(QStringLiteral("Dip"), vdDips), angles(QStringLiteral("Dip Azimuth"), vdAzimuths),
                attribute(QStringLiteral("Limb"), QMetaType::QString, lLimbs),
                attribute(QStringLiteral("Spacing"), vdSpacings)});
    addDataSet(
        *poRoot, QStringLiteral("Joints"),
        {angles(QStringLiteral("Dip"), {80.0, 85.0, 75.0}), angles(QStringLiteral("Dip Azimuth"), {10.0, 20.0, 15.0})});
    addDataSet(*poRoot, QStringLiteral("Lineations"),
               {angles(QStringLiteral("Plunge"), {12.0, 15.0}), angles(QStringLiteral("Plunge Azimuth"), {5.0, 8.0})});
    addDataSet(*poRoot, QStringLiteral("Logs"), {attribute(QStringLiteral("Gamma"), {1.0, 2.0})});
    return poRoot;
}

/// The panel shows the beds.
struct Fixture
{
    std::unique_ptr<MatrixData> m_poRoot = newRoot();
    QStereoChartWidget m_panel;

    Fixture()
    {
        m_panel.setDataRoot(m_poRoot.get());
        m_panel.setDataSet(node("Beds"));
    }
    MatrixData* node(const char* pName) const { return m_poRoot->getNodeFromName(QLatin1String(pName)); }
    QRelationshipItemModel& model() { return *m_panel.relationshipItemModel(); }
    template <typename Control>
    Control* control(const char* pName) const
    {
        return m_panel.findChild<Control*>(QLatin1String(pName));
    }
    QStringList entries(const char* pName) const { return gkTest::entries(m_panel, pName); }
    void pick(const char* pName, const QString& sEntry) { gkTest::pick(m_panel, pName, sEntry); }
    std::size_t taken() const
    {
        const std::vector<OrientationStatistics> vStatistics = m_panel.statistics();
        return vStatistics.empty() ? 0 : vStatistics.front().m_oSums.m_iCount;
    }
    QTableWidget& openStatistics()
    {
        auto* pqTabs = control<QTabWidget>("m_pqTabs");
        pqTabs->setCurrentIndex(1);
        return *pqTabs->currentWidget()->findChild<QTableWidget*>();
    }
};

/// The cell to the right of a label in a table of labels and values.
QString valueOf(const QTableWidget& table, const QString& sLabel)
{
    for (int iRow = 0; iRow < table.rowCount(); ++iRow) {
        const QTableWidgetItem* pqLabel = table.item(iRow, 0);
        if (pqLabel && pqLabel->text() == sLabel)
            return table.item(iRow, 1)->text();
    }
    return {};
}

std::vector<double> columnOf(std::span<const double> vdValues)
{
    return {vdValues.begin(), vdValues.end()};
}

QStringList colorsOf(const QStereoChartWidget& panel)
{
    QStringList lColors;
    for (int i = 0; i < panel.relationshipItemModel()->numberOfPoints(); ++i) {
        QColor oColor;
        panel.relationshipItemModel()->getColor(i, oColor);
        lColors << oColor.name();
    }
    return lColors;
}

} // namespace

class TestStereoChart : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void choosersOfferOrientations();
    void namesTellPlanesFromLines();
    void anglesKeepTheirOwnAzimuths();
    void planesStayPolesBesideLines();
    void linesGetNoWeights();
    void whatCannotBeShownIsSaid();
    void selectionDecidesWhatCounts();
    void pressOnTheNetLeavesNone();
    void hiddenPagesAreFilledWhenShown();
    void rotationTurnsAllDataSetsAndComesBack();
    void clustersColourThePoints();
    void centroidsFollowRotations();
    void ownerKeepsTheClusters();
    void biasWeightsAreAskedFor();
    void settingsComeBack();
    void choiceComesBack();
    void brokenSettingsAreIgnored();
    void removedNodesLeaveTheChart();
    void rootMayDieFirst();

private:
    QTemporaryDir m_oFolder;
};

void TestStereoChart::initTestCase()
{
    gkTest::useTemporarySettings(m_oFolder.path(), QStringLiteral("stereochart"));
}

void TestStereoChart::choosersOfferOrientations()
{
    Fixture f;
    const QStringList lSets = {QStringLiteral("Beds"), QStringLiteral("Joints"), QStringLiteral("Lineations")};
    QCOMPARE(f.entries("m_pqDataSetChooser"), lSets);
    QCOMPARE(f.entries("m_pqSecondDataSetChooser").mid(1), lSets);
    QCOMPARE(f.control<QComboBox>("m_pqAngleChooser")->currentText(), QStringLiteral("Beds: Dip"));
    QCOMPARE(f.model().numberOfValidPoints(), g_iRecords);
    QVERIFY(f.entries("m_pqColorChooser").contains(QStringLiteral("Beds: Limb")));
    QVERIFY(!f.entries("m_pqColorChooser").contains(QStringLiteral("Joints: Dip")));

    f.m_panel.setColorAttribute(f.node("Limb"));
    const QSignalSpy chosen(&f.m_panel, &QStereoChartWidget::dataSetSelected);
    f.pick("m_pqDataSetChooser", QStringLiteral("Joints"));
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(f.model().numberOfValidPoints(), 3);
    QVERIFY(!f.model().colorAttribute()); // it has other records
    QCOMPARE(f.control<QComboBox>("m_pqAzimuthChooser")->currentText(), QStringLiteral("Joints: Dip Azimuth"));
}

void TestStereoChart::namesTellPlanesFromLines()
{
    Fixture f;
    QVERIFY(!f.model().linesAreShown());
    QCOMPARE(f.m_panel.statistics().size(), std::size_t(2)); // of poles and of dip lines
    f.m_panel.setDataSet(f.node("Lineations"));
    QVERIFY(f.model().linesAreShown());
    QVERIFY(f.entries("m_pqRecordsComboBox").contains(QStringLiteral("Automatic (lines)")));
    QVERIFY(!f.m_panel.drawingArea()->polesAreShown());
    QCOMPARE(f.m_panel.statistics().size(), std::size_t(1));
    f.pick("m_pqRecordsComboBox", QStringLiteral("Planes"));
    QVERIFY(!f.model().linesAreShown());
    QVERIFY(f.m_panel.drawingArea()->polesAreShown());
    f.m_panel.setAttributes(f.node("Beds")->dipAttribute(), f.node("Beds")->azimuthAttribute(), true);
    QVERIFY(f.model().linesAreShown());
    QVERIFY(f.entries("m_pqRecordsComboBox").contains(QStringLiteral("Automatic (planes)")));

    f.pick("m_pqRecordsComboBox", QStringLiteral("Automatic (planes)"));
    addDataSet(*f.m_poRoot, QStringLiteral("Wells"),
               {angles(QStringLiteral("Inclination"), {10.0, 20.0}), angles(QStringLiteral("Trend"), {30.0, 40.0})});
    f.m_panel.setAttributes(f.node("Inclination"), f.node("Trend"), true);
    QVERIFY(f.model().linesAreShown());
    QCOMPARE(f.m_panel.settings().m_eRecords, StereoChartSettings::Records::Automatic);
}

void TestStereoChart::anglesKeepTheirOwnAzimuths()
{
    Fixture f;
    // As many records as the beds, but others.
    const std::vector<double> vdDips(g_iRecords, 45.0);
    addDataSet(*f.m_poRoot, QStringLiteral("Derived"),
               {angles(QStringLiteral("Rotated:Dip"), vdDips), angles(QStringLiteral("Rotated:Dip Azimuth"), vdDips)});
    f.node("Beds")->appendChild(angles(QStringLiteral("Apparent Dip"), vdDips), true);
    f.m_panel.updateDataSetSelectionBox();
    f.pick("m_pqAngleChooser", QStringLiteral("Beds: Apparent Dip"));
    QCOMPARE(f.m_panel.nodeAzimuth(), f.node("Dip Azimuth"));
    f.pick("m_pqAngleChooser", QStringLiteral("Derived: Rotated:Dip"));
    QCOMPARE(f.m_panel.nodeAngle(), f.node("Rotated:Dip"));
    QCOMPARE(f.m_panel.nodeAzimuth(), f.node("Rotated:Dip Azimuth"));
}

void TestStereoChart::planesStayPolesBesideLines()
{
    Fixture f;
    f.m_panel.setDataSet(f.node("Lineations"));
    auto* pqPlanesAs = f.control<QComboBox>("m_pqPlanesAsComboBox");
    QVERIFY(!pqPlanesAs->isEnabled()); // no planes
    f.m_panel.setSecondDataSet(f.node("Joints"));
    QVERIFY(pqPlanesAs->isEnabled());
    StereoNetSettings net = f.m_panel.settings().m_oNet;
    net.m_oPointColor = Qt::blue;
    net.m_oSecondPointColor = Qt::red;
    f.m_panel.setSettings(net);

    // The joints dip by 80 degrees and more: their poles lie near the rim in the south, their dip lines in the north.
    QStereoPlotWidget* pqNet = f.m_panel.drawingArea();
    const auto isRedNear = [pqNet](const QPointF& oPixel) {
        const QImage oPicture = pqNet->grab().toImage();
        const QPoint oAt = (oPixel - pqNet->pixmapRect().topLeft()).toPoint();
        return QColor(oPicture.pixel(oAt)) == QColor(Qt::red);
    };
    f.m_panel.resize(900, 600);
    f.m_panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f.m_panel));
    pqNet->grab();
    QVERIFY(isRedNear(pqNet->poleInPixel({80.0, 10.0})));
    // The lines are lines, and so are the numbers under the cursor.
    QCOMPARE(pqNet->transformInPixelPoint({12.0, 5.0}), pqNet->dipDirectionInPixel({12.0, 5.0}));
    const QPointF oUnderCursor = pqNet->transformInDataPoint(pqNet->dipDirectionInPixel({12.0, 5.0}));
    QVERIFY((oUnderCursor - QPointF(12.0, 5.0)).manhattanLength() < 1e-6);

    net.m_iProjectionTarget = 1;
    f.m_panel.setSettings(net);
    QVERIFY(isRedNear(pqNet->dipDirectionInPixel({80.0, 10.0})));
}

void TestStereoChart::linesGetNoWeights()
{
    Fixture f;
    auto* pqWeights = f.control<QAbstractButton>("m_pqBiasWeightsCheckBox");
    pqWeights->click();
    QVERIFY(!f.model().appliedWeights().empty());
    f.m_panel.setDataSet(f.node("Lineations"));
    QVERIFY(f.model().appliedWeights().empty());
    QVERIFY(!pqWeights->isEnabled() && !f.control<QPushButton>("m_pqApplyBiasBtn")->isEnabled());
    QVERIFY(!f.control<QLabel>("m_pqNoWeightsLabel")->isHidden());
    f.m_panel.setDataSet(f.node("Beds"));
    QVERIFY(pqWeights->isEnabled() && pqWeights->isChecked());
    QVERIFY(!f.model().appliedWeights().empty());
}

void TestStereoChart::whatCannotBeShownIsSaid()
{
    Fixture f;
    const auto* pqMessage = f.control<QLabel>("m_pqMessageLabel");
    QVERIFY(pqMessage->text().isEmpty());
    f.m_panel.setAttributes(f.node("Limb"), f.node("Dip Azimuth"), false);
    QCOMPARE(pqMessage->text(), QStringLiteral("\"Limb\" does not hold numbers"));
    f.node("Dip")->setUnitManager(UnitRegistry::standard().managerForUnit(QStringLiteral("m")));
    f.m_panel.setAttributes(f.node("Dip"), f.node("Dip Azimuth"), false);
    QCOMPARE(pqMessage->text(), QStringLiteral("\"Dip\" is measured in m and holds no angles"));
    f.m_panel.setDataSet(f.node("Logs"));
    QVERIFY(pqMessage->text().contains(QStringLiteral("Select a data set")));
    QVERIFY(f.m_panel.statistics().empty());
}

void TestStereoChart::selectionDecidesWhatCounts()
{
    Fixture f;
    QCOMPARE(f.taken(), std::size_t(g_iRecords));
    QVERIFY(f.m_panel.setSelectedRows({0, 2, 4}));
    QVERIFY(!f.m_panel.setSelectedRows({0, 2, 4}));
    QCOMPARE(f.m_panel.numberOfSelectedRows(), 3);
    QCOMPARE(f.taken(), std::size_t(3));
    f.control<QAbstractButton>("m_pqSelectedOnlyCheckBox")->click();
    QCOMPARE(f.taken(), std::size_t(g_iRecords));
    f.control<QAbstractButton>("m_pqSelectedOnlyCheckBox")->click();
    QVERIFY(f.m_panel.setSelectedRows({}));
    QCOMPARE(f.taken(), std::size_t(g_iRecords));
}

void TestStereoChart::pressOnTheNetLeavesNone()
{
    Fixture f;
    f.m_panel.resize(900, 600);
    f.m_panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f.m_panel));
    f.m_panel.setSelectedRows({0, 2, 4});
    QStereoPlotWidget* pqNet = f.m_panel.drawingArea();
    QSignalSpy selected(&f.m_panel, &QStereoChartWidget::dataPointsSelection);
    const QPoint oEmpty = pqNet->pointAt(0.0, 0.8 * pqNet->radius()).toPoint(); // no pole lies in the north
    QTest::mouseClick(pqNet, Qt::LeftButton, {}, oEmpty);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(f.m_panel.numberOfSelectedRows(), 0);
    QCOMPARE(f.taken(), std::size_t(0));
    // The table tells the panel that no row is selected now; that is no news.
    QVERIFY(!f.m_panel.setSelectedRows({}));
    QCOMPARE(f.taken(), std::size_t(0));
    f.m_panel.setSelectedRows({1});
    QCOMPARE(f.taken(), std::size_t(1));
    // A click that clears, and another one: all count again.
    QTest::mouseClick(pqNet, Qt::LeftButton, {}, oEmpty);
    QCOMPARE(f.taken(), std::size_t(0));
    QTest::mouseClick(pqNet, Qt::LeftButton, {}, oEmpty);
    QCOMPARE(f.taken(), std::size_t(g_iRecords));
}

void TestStereoChart::hiddenPagesAreFilledWhenShown()
{
    Fixture f;
    const QTableWidget& table = f.openStatistics();
    QCOMPARE(valueOf(table, QStringLiteral("N")), QString::number(g_iRecords));
    auto* pqTabs = f.control<QTabWidget>("m_pqTabs");
    pqTabs->setCurrentIndex(0);
    f.m_panel.setSelectedRows({0, 2, 4});
    QCOMPARE(valueOf(table, QStringLiteral("N")), QString::number(g_iRecords));
    pqTabs->setCurrentIndex(1);
    QCOMPARE(valueOf(table, QStringLiteral("N")), QStringLiteral("3"));
    f.m_panel.setSelectedRows({1});
    QCOMPARE(valueOf(table, QStringLiteral("N")), QStringLiteral("1"));
    f.pick("m_pqConventionComboBox", QStringLiteral("Strike/Dip/Sense"));
    QCOMPARE(valueOf(table, QStringLiteral("Planes as")), QStringLiteral("Strike/Dip/Sense"));
}

void TestStereoChart::rotationTurnsAllDataSetsAndComesBack()
{
    Fixture f;
    f.m_panel.setSecondDataSet(f.node("Joints"));
    const std::vector<double> vdDips = columnOf(f.model().x());
    const std::vector<double> vdJoints = columnOf(f.m_panel.secondModel()->x());
    f.m_panel.setSelectedRows({0, 2, 4, 6});
    f.control<QPushButton>("m_pqToCenterBtn")->click();
    QVERIFY(f.model().meanResultantPole().x() < 1e-6);
    QVERIFY(columnOf(f.m_panel.secondModel()->x()) != vdJoints);

    // What is chosen now is turned as what was there.
    const std::vector<double> vdTurnedJoints = columnOf(f.m_panel.secondModel()->x());
    f.m_panel.setSecondDataSet(nullptr);
    f.m_panel.setSecondDataSet(f.node("Joints"));
    QCOMPARE(columnOf(f.m_panel.secondModel()->x()), vdTurnedJoints);

    StereoChartSettings settings = f.m_panel.settings();
    settings.m_dAxisAzimuth = 45.0;
    settings.m_dRotationAngle = 40.0;
    f.m_panel.setSettings(settings);
    f.control<QPushButton>("m_pqRotateBtn")->click();
    QVERIFY(f.control<QLabel>("m_pqRotationLabel")->text().contains(QStringLiteral("about 0.0/045.0 by 40.0")));
    const QSignalSpy wanted(&f.m_panel, &QStereoChartWidget::createRotatedAttributes);
    f.control<QPushButton>("m_pqWriteRotatedBtn")->click();
    QCOMPARE(wanted.count(), 1);

    // What cannot be done is said beside what was done.
    settings.m_dRotationAngle = 0.0;
    f.m_panel.setSettings(settings);
    f.control<QPushButton>("m_pqRotateBtn")->click();
    const auto* pqProblem = f.control<QLabel>("m_pqRotationProblemLabel");
    QVERIFY(pqProblem->text().contains(QStringLiteral("0 turns nothing")));
    QVERIFY(f.control<QLabel>("m_pqRotationLabel")->text().contains(QStringLiteral("about 0.0/045.0 by 40.0")));

    f.control<QPushButton>("m_pqUndoRotationBtn")->click();
    QVERIFY(pqProblem->isHidden());
    QCOMPARE(columnOf(f.m_panel.secondModel()->x()), vdTurnedJoints);
    f.control<QPushButton>("m_pqUndoAllRotationsBtn")->click();
    QCOMPARE(columnOf(f.model().x()), vdDips);
    QCOMPARE(columnOf(f.m_panel.secondModel()->x()), vdJoints);
    QVERIFY(!f.control<QPushButton>("m_pqWriteRotatedBtn")->isEnabled());
}

void TestStereoChart::clustersColourThePoints()
{
    Fixture f;
    QSignalSpy made(&f.m_panel, &QStereoChartWidget::createClusterAttribute);
    QVERIFY(f.m_panel.applyClusters(2));
    QCOMPARE(made.count(), 1);
    QCOMPARE(made.first().first().toString(), QStringLiteral("StereoPlot_Beds_Dip"));
    // The limbs, which clusters of axes tell apart, have colours of their own.
    QCOMPARE(f.control<QTableWidget>("m_pqClusterTable")->rowCount(), 2);
    QVERIFY(f.model().clusterID(0) != f.model().clusterID(1));
    QColor oFirst;
    QColor oSecond;
    f.model().getColor(0, oFirst);
    f.model().getColor(1, oSecond);
    QVERIFY(oFirst != oSecond);
    QSignalSpy selected(&f.m_panel, &QStereoChartWidget::dataPointsSelection);
    emit f.control<QTableWidget>("m_pqClusterTable")->cellClicked(f.model().clusterID(1), 0);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(f.taken(), std::size_t(g_iRecords / 2));
    QVERIFY(f.model().isSelected(1) && !f.model().isSelected(0));
    // So does a row beside the Woodcock diagram, where the cluster stays highlighted.
    f.m_panel.calculateWoodcockParameterForClusters();
    auto* pqShapes = f.control<QTableWidget>("m_pqWoodcockTable");
    pqShapes->selectRow(1 + f.model().clusterID(0));
    QTRY_VERIFY(f.model().isSelected(0) && !f.model().isSelected(1));
    f.m_panel.calculateWoodcockParameterForClusters();
    QCOMPARE(pqShapes->item(0, 0)->text(), QStringLiteral("Selected"));
    QVERIFY(pqShapes->item(1 + f.model().clusterID(0), 0)->isSelected());
    f.m_panel.setDataSet(f.node("Joints"));
    QVERIFY(!f.model().clusterCentroids());
    QVERIFY(!f.model().colorAttributeIsOn());
}

void TestStereoChart::centroidsFollowRotations()
{
    Fixture f;
    QVERIFY(f.m_panel.applyClusters(2));
    const auto centroid = [&f](int i) {
        const MatrixDataArray& centroids = *f.model().clusterCentroids();
        return QPointF(centroids.cell(i, 0), centroids.cell(i, 1));
    };
    const auto isNear = [](const QPointF& a, const QPointF& b) { return (a - b).manhattanLength() < 1e-6; };
    const QPointF oBefore = centroid(0);
    f.m_panel.rotateDataToCenterPole();
    const QPointF oTurned = centroid(0);
    QVERIFY(!isNear(oTurned, oBefore));
    QVERIFY(f.m_panel.applyClusters(2)); // of the turned records
    QVERIFY(isNear(centroid(0), oTurned));
    f.m_panel.undoAllRotations();
    QVERIFY(isNear(centroid(0), oBefore));
}

void TestStereoChart::ownerKeepsTheClusters()
{
    Fixture f;
    connect(&f.m_panel, &QStereoChartWidget::createClusterAttribute, &f.m_panel,
            [&f](const QString& sName, QRelationshipItemModel* pModel) {
                const std::span<const int> viIDs = pModel->clusterIDs();
                MatrixData* poKept = f.node("StereoPlot_Beds_Dip");
                const MatrixColumn oIDs = MatrixColumn::fromDoubles({viIDs.begin(), viIDs.end()});
                if (poKept)
                    poKept->setColumn(0, oIDs);
                else
                    addDataSet(*f.m_poRoot, QStringLiteral("Clusters"), {attribute(sName, oIDs)});
            });
    QVERIFY(f.m_panel.applyClusters(2));
    QCOMPARE(f.model().colorAttribute(), f.node("StereoPlot_Beds_Dip"));
    QVERIFY(f.m_panel.applyClusters(3)); // the same attribute with other values
    QCOMPARE(f.model().colorAttribute(), f.node("StereoPlot_Beds_Dip"));
    QCOMPARE(f.model().colorClasses().highestId(), 3);
    QVERIFY(f.entries("m_pqColorChooser").contains(QStringLiteral("Clusters: StereoPlot_Beds_Dip")));
}

void TestStereoChart::biasWeightsAreAskedFor()
{
    Fixture f;
    StereoChartSettings settings = f.m_panel.settings();
    settings.m_dScanPlunge = 30.0;
    settings.m_dScanAzimuth = 90.0;
    settings.m_dLimitAngle = 70.0;
    f.m_panel.setSettings(settings);
    const double dUnweighted = f.m_panel.statistics().front().m_oAxes.m_adValues[2];
    QSignalSpy wanted(&f.m_panel, &QStereoChartWidget::createBiasWeightAttribute);
    f.control<QPushButton>("m_pqApplyBiasBtn")->click();
    QCOMPARE(wanted.count(), 1);
    QCOMPARE(wanted.first().first().toString(), QStringLiteral("Bias Weights"));
    QCOMPARE(f.model().scanLine().m_dLimitAngle, 70.0);
    const std::span<const double> vdWeights = f.model().biasWeights();
    QVERIFY(std::abs(std::accumulate(vdWeights.begin(), vdWeights.end(), 0.0) - g_iRecords) < 1e-9);

    const auto* pqEffective = f.control<QLabel>("m_pqEffectiveNumberLabel");
    QCOMPARE(pqEffective->text(), QStringLiteral("---"));
    QCOMPARE(f.m_panel.statistics().front().m_oAxes.m_adValues[2], dUnweighted);
    f.control<QAbstractButton>("m_pqBiasWeightsCheckBox")->click();
    QVERIFY(pqEffective->text().endsWith(QStringLiteral(" of 40")));
    QVERIFY(pqEffective->text().section(QLatin1Char(' '), 0, 0).toDouble() < g_iRecords);
    QVERIFY(f.m_panel.statistics().front().m_oAxes.m_adValues[2] != dUnweighted);
}

void TestStereoChart::settingsComeBack()
{
    StereoChartSettings wanted;
    wanted.m_oDisplay.m_bBlackBackground = true;
    wanted.m_oDisplay.m_dFontSize = 11.5;
    wanted.m_oNet.m_bEqualArea = false;
    wanted.m_oNet.m_iProjectionTarget = 1;
    wanted.m_oNet.m_dMaximumAngle = 70.0;
    wanted.m_oNet.m_bFineNet = true;
    wanted.m_oNet.m_oFineNetColor = QColor(1, 2, 3);
    wanted.m_oNet.m_bSecondPoints = false;
    wanted.m_oNet.m_bContourFill = true;
    wanted.m_oNet.m_iNodes = 77;
    wanted.m_oNet.m_dInterval = 1.25;
    wanted.m_oNet.m_bAnglesAtRim = false;
    wanted.m_oNet.m_bDirectionsAtRim = true;
    wanted.m_oNet.result(StereoResult::BestFitGirdle) = {true, QColor(4, 5, 6), 5};
    wanted.m_oNet.result(StereoResult::TPole).m_bShow = true;
    wanted.m_oNet.result(StereoResult::ConfidenceCone) = {true, QColor(7, 8, 9), 4};
    wanted.m_eRecords = StereoChartSettings::Records::Lines;
    wanted.m_eConvention = OrientationConvention::StrikeDip;
    wanted.m_bSelectedOnly = false;
    wanted.m_bPickMode = true;
    wanted.m_ePointStyle = PointStyle::Diamond;
    wanted.m_iPointSize = 6;
    wanted.m_bContourLegend = false;
    wanted.m_dRotationAngle = -35.5;
    wanted.m_iClusters = 7;
    wanted.m_bWeights = true;
    wanted.m_dLimitAngle = 65.0;

    const QString sGroup = QStringLiteral("attribute_analyser/stereo_plot/");
    Fixture first;
    first.m_panel.setSettings(wanted);
    QCOMPARE(first.m_panel.settings(), wanted); // the controls hold all of it
    first.m_panel.writeSettings(sGroup);
    Fixture second;
    second.m_panel.readSettings(sGroup);
    QCOMPARE(second.m_panel.settings(), wanted);
    QCOMPARE(second.m_panel.drawingArea()->mouseMode(), QStereoPlotWidget::MouseMode::Pick);
    QVERIFY(second.model().linesAreShown());
    second.pick("m_pqRecordsComboBox", QStringLiteral("Planes"));
    QVERIFY(second.model().biasCorrectionIsOn());
}

void TestStereoChart::choiceComesBack()
{
    const QString sGroup = QStringLiteral("attribute_analyser/stereo_choice/");
    Fixture first;
    first.m_panel.setAttributes(first.node("Dip"), first.node("Dip Azimuth"), false);
    first.m_panel.setSecondDataSet(first.node("Joints"));
    first.m_panel.setLineationDataSet(first.node("Lineations"));
    first.m_panel.setColorAttribute(first.node("Spacing"));
    first.m_panel.setSymbolAttribute(first.node("Limb"));
    auto* pqSmallest = first.control<QUnitLineEdit>("m_pqColorMapMinEdit");
    QVERIFY(pqSmallest);
    const QStringList lBands = colorsOf(first.m_panel);
    pqSmallest->setModelValue(6.0, true);
    const QStringList lWanted = colorsOf(first.m_panel);
    QVERIFY(lWanted != lBands);
    first.m_panel.writeSettings(sGroup);

    const auto isBack = [&](QStereoChartWidget& panel, const MatrixData& root) {
        const auto node = [&root](const char* pName) { return root.getNodeFromName(QLatin1String(pName)); };
        const QRelationshipItemModel& model = *panel.relationshipItemModel();
        return panel.nodeAngle() == node("Dip") && panel.nodeAzimuth() == node("Dip Azimuth") &&
               panel.secondModel()->numberOfPoints() == 3 && panel.lineationModel()->numberOfPoints() == 2 &&
               model.colorAttribute() == node("Spacing") && model.symbolAttribute() == node("Limb") &&
               colorsOf(panel) == lWanted;
    };
    // Settings before the data, as an application reads them, which writes them again when nothing was looked at.
    const std::unique_ptr<MatrixData> poRoot = newRoot();
    QStereoChartWidget early;
    early.readSettings(sGroup);
    early.writeSettings(sGroup);
    early.setDataRoot(poRoot.get());
    early.updateStereoChart();
    QVERIFY(isBack(early, *poRoot));
    // And after them.
    Fixture late;
    late.m_panel.setDataSet(late.node("Joints"));
    late.m_panel.readSettings(sGroup);
    QVERIFY(isBack(late.m_panel, *late.m_poRoot));
    // What is chosen meanwhile stays.
    QStereoChartWidget other;
    other.readSettings(sGroup);
    const std::unique_ptr<MatrixData> poOther = std::make_unique<MatrixData>(QStringLiteral("root"));
    addDataSet(*poOther, QStringLiteral("Veins"),
               {angles(QStringLiteral("Dip"), {50.0}), angles(QStringLiteral("Dip Azimuth"), {10.0})});
    other.setDataRoot(poOther.get());
    QVERIFY(!other.nodeAngle());
    other.setDataSet(poOther->getNodeFromName(QStringLiteral("Veins")));
    addDataSet(*poOther, QStringLiteral("Beds"),
               {angles(QStringLiteral("Dip"), {50.0}), angles(QStringLiteral("Dip Azimuth"), {10.0})});
    other.updateDataSetSelectionBox();
    QCOMPARE(other.nodeAngle()->owner()->name(), QStringLiteral("Veins"));
}

void TestStereoChart::brokenSettingsAreIgnored()
{
    QSettings stored;
    stored.beginGroup(QStringLiteral("broken"));
    for (const auto& [sKey, qValue] : {std::pair<QString, QVariant>{QStringLiteral("contours/nodes"), -3},
                                       {QStringLiteral("contours/interval"), QStringLiteral("abc")},
                                       {QStringLiteral("points/point_color"), QStringLiteral("no colour")},
                                       {QStringLiteral("points/style"), 99},
                                       {QStringLiteral("clusters/number"), 0},
                                       {QStringLiteral("bias/plunge"), 1e300},
                                       {QStringLiteral("display/convention"), 17}})
        stored.setValue(sKey, qValue);
    stored.endGroup();
    Fixture f;
    const StereoChartSettings before = f.m_panel.settings();
    f.m_panel.readSettings(QStringLiteral("broken"));
    QCOMPARE(f.m_panel.settings(), before);
}

void TestStereoChart::removedNodesLeaveTheChart()
{
    Fixture f;
    f.m_panel.setSecondDataSet(f.node("Joints"));
    f.m_panel.setLineationDataSet(f.node("Lineations"));
    f.m_panel.setColorAttribute(f.node("Limb"));
    f.m_poRoot->removeChild(f.node("Joints"));
    QCOMPARE(f.m_panel.secondModel()->numberOfPoints(), 0);
    QVERIFY(!f.entries("m_pqDataSetChooser").contains(QStringLiteral("Joints")));
    f.node("Beds")->removeChild(f.node("Limb"));
    QVERIFY(!f.model().colorAttributeIsOn());
    f.node("Beds")->removeChild(f.node("Dip Azimuth"));
    QCOMPARE(f.model().numberOfPoints(), 0);
    QVERIFY(!f.control<QLabel>("m_pqMessageLabel")->text().isEmpty());
    QCOMPARE(f.m_panel.lineationModel()->numberOfPoints(), 2);
}

void TestStereoChart::rootMayDieFirst()
{
    Fixture f;
    f.m_panel.setSecondDataSet(f.node("Joints"));
    f.m_panel.setSelectedRows({1, 2});
    f.m_poRoot.reset();
    QCOMPARE(f.model().numberOfPoints(), 0);
    QCOMPARE(f.m_panel.secondModel()->numberOfPoints(), 0);
    QCOMPARE(f.entries("m_pqDataSetChooser").size(), 0);
    f.m_panel.grab();
}

QTEST_MAIN(TestStereoChart)

#include "tst_stereochart.moc"
