// The rose panel along the ways of its users.

#include "ReferenceData.h"
#include "TemporarySettings.h"
#include "TestControls.h"
#include "TestDataSets.h"

#include <gkBase/ClassLegends.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QLegendListModel.h>
#include <gkBase/QLegendListView.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/QRoseChartWidget.h>
#include <gkBase/QRosePlotWidget.h>
#include <gkBase/QUnitLineEdit.h>
#include <gkBase/UnitManager.h>

#include "QIntSpinBoxWithSlider.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>

#include <boost/make_shared.hpp>

#include <memory>

using namespace gkBase;
using namespace gkTest;

namespace {

MatrixData* angle(const QString& sName, const std::vector<double>& vdValues)
{
    MatrixData* poAngle = attribute(sName, vdValues);
    poAngle->setUnitManager(boost::make_shared<UnitManager>(QStringLiteral("orientation"), QStringLiteral("deg")));
    return poAngle;
}

/// "Well": dip azimuths at 10 (three times), 30 and 358 degrees and a gap, the number of the record as "depth" and a
/// text. "Other": two azimuths.
struct Fixture
{
    std::unique_ptr<MatrixData> m_poRoot = std::make_unique<MatrixData>(QStringLiteral("root"));
    QRoseChartWidget m_panel;

    Fixture()
    {
        addDataSet(*m_poRoot, QStringLiteral("Well"),
                   {angle(QStringLiteral("Dip"), {1, 2, 3, 4, 5, 6}),
                    angle(QStringLiteral("Dip Azimuth"), {10, 10, 10, 30, 358, qQNaN()}),
                    attribute(QStringLiteral("depth"), std::vector<double>{0.5, 1, 2, 3, 4, 5}),
                    attribute(QStringLiteral("rock"), QMetaType::QString, {"a", "b", "a", "b", "a", "b"})});
        addDataSet(*m_poRoot, QStringLiteral("Other"), {angle(QStringLiteral("Strike Azimuth"), {0, 180})});
        m_panel.setDataRoot(m_poRoot.get());
    }
    MatrixData* node(const char* pName) const { return m_poRoot->getNodeFromName(QLatin1String(pName)); }
    template <typename Control>
    Control* control(const char* pName) const
    {
        return m_panel.findChild<Control*>(QLatin1String(pName));
    }
    QString label(const char* pName) const { return control<QLabel>(pName)->text(); }
    QStringList entries(const char* pName) const { return gkTest::entries(m_panel, pName); }
    void pick(const char* pName, const QString& sEntry) { gkTest::pick(m_panel, pName, sEntry); }
    const RoseBins& bins() const { return m_panel.drawingArea()->bins(); }
};

} // namespace

class tst_RoseChartWidget : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void referenceCounts();
    void choosersOfferDirections();
    void results();
    void undefinedMeanSaysWhy();
    void otherUnitsOfAngle();
    void sectorsThatLeaveARest();
    void onlySelectedRowsCount();
    void clickedSectorsReachTheOwner();
    void rebuildsOnlyWhatChanged();
    void colourAttribute();
    void colourMapRange();
    void nodesThatGo();
    void settingsUnderTheirKeys();
    void settingsFindTheirAttributesLater();
    void legendsKeepTheirRoom();
    void pictures();

private:
    QTemporaryDir m_oFolder;
};

void tst_RoseChartWidget::initTestCase()
{
    useTemporarySettings(m_oFolder.path(), QStringLiteral("tst_rosechartwidget"));
}

void tst_RoseChartWidget::referenceCounts()
{
    GK_REQUIRE_REFERENCE();
    const QJsonObject sets = referenceValues("rose_a")["sets"].toObject();
    QVERIFY(!sets.isEmpty());
    for (const QString& sSet : sets.keys()) {
        const auto poRoot =
            rootOf({angle(QStringLiteral("Azimuth"), referenceColumns("rose_a", "set", sSet)["azimuth"])});
        QRoseChartWidget panel;
        panel.setDataRoot(poRoot.get());
        panel.setDataSet(poRoot.get()->child(0));
        for (const auto& value : sets[sSet].toObject()["sectors"].toArray()) {
            const QJsonObject expected = value.toObject();
            panel.setSectorSize(expected["size"].toInt());
            for (const bool bBidirectional : {false, true}) {
                panel.setBidirectional(bBidirectional);
                const char* pKey = bBidirectional ? "bidirectional" : "unidirectional";
                QCOMPARE(panel.drawingArea()->bins().m_vdCounts, toDoubles(expected[QLatin1String(pKey)].toArray()));
            }
        }
    }
}

void tst_RoseChartWidget::choosersOfferDirections()
{
    Fixture fixture;
    QCOMPARE(fixture.entries("m_pqRoseDataSetComboBox"), QStringList({"Well: Dip Azimuth", "Other: Strike Azimuth"}));
    QVERIFY(!fixture.m_panel.currentSelectedDataSet());
    QSignalSpy spy(&fixture.m_panel, &QRoseChartWidget::dataSetSelected);
    fixture.pick("m_pqRoseDataSetComboBox", "Well: Dip Azimuth");
    QCOMPARE(spy.count(), 1);
    QCOMPARE(fixture.m_panel.currentSelectedDataSet(), fixture.node("Dip Azimuth"));
    QCOMPARE(fixture.m_panel.currentSelectedDataSetName(), QString("Well: Dip Azimuth"));
    QCOMPARE(int(fixture.bins().m_iRecords), 5);
    // Colours have one value per direction.
    QCOMPARE(fixture.entries("m_pqColorDataSetComboBox"),
             QStringList({"None", "Well: Dip", "Well: Dip Azimuth", "Well: depth", "Well: rock"}));
    // A data set stands for its azimuth; other numbers may be shown by an owner, texts may not.
    fixture.m_panel.setDataSet(fixture.node("Other"));
    QCOMPARE(fixture.m_panel.currentSelectedDataSet(), fixture.node("Strike Azimuth"));
    fixture.m_panel.setDataSet(fixture.node("depth"));
    QCOMPARE(int(fixture.bins().m_iRecords), 6);
    fixture.m_panel.setDataSet(fixture.node("rock"));
    QCOMPARE(int(fixture.bins().m_iRecords), 0);
}

void tst_RoseChartWidget::results()
{
    Fixture fixture;
    fixture.m_panel.setDataSet(fixture.node("Well"));
    QCOMPARE(fixture.label("m_pqNumberOfPointsLabel"), QString("5"));
    QCOMPARE(fixture.control<QLabel>("m_pqNumberOfPointsLabel")->toolTip(),
             QString("The number of <b>data points</b>, that are taken into account for creating the histogram"));
    QCOMPARE(fixture.label("m_pqMissingLabel"), QString("1"));
    // By hand: sums 4.8198 north and 0.9860 east of 5 unit vectors.
    QCOMPARE(fixture.label("m_pqMeanDirectionLabel"), QString("11.56°"));
    QCOMPARE(fixture.label("m_pqMeanLengthLabel"), QString("0.98"));
    QVERIFY(fixture.control<QLabel>("m_pqAxisDirectionLabel")->isHidden());
    fixture.control<QRadioButton>("m_pqBidirectionalBtn")->click();
    QVERIFY(!fixture.control<QLabel>("m_pqAxisDirectionLabel")->isHidden());
    QCOMPARE(fixture.bins().m_vdCounts[0], 3.0);
    QCOMPARE(fixture.bins().m_vdCounts[9], 3.0); // 180° – 200°
    QCOMPARE(fixture.m_panel.drawingArea()->getGridCircleDistance(), 1);
    QCOMPARE(fixture.control<QIntSpinBoxWithSlider>("m_pqGridCircleDistanceSpinBox")->getValue(), 1);
}

void tst_RoseChartWidget::undefinedMeanSaysWhy()
{
    Fixture fixture;
    const auto* pqMean = fixture.control<QLabel>("m_pqMeanDirectionLabel");
    QCOMPARE(pqMean->text(), QString("---"));
    QVERIFY(!pqMean->toolTip().isEmpty());
    fixture.m_panel.setDataSet(fixture.node("Other")); // 0° and 180°
    QCOMPARE(pqMean->text(), QString("---"));
    QVERIFY(pqMean->toolTip().contains("cancel"));
    QCOMPARE(fixture.label("m_pqMeanLengthLabel"), QString("0.00"));
    QCOMPARE(fixture.label("m_pqAxisDirectionLabel"), QString("0.00°"));
}

void tst_RoseChartWidget::otherUnitsOfAngle()
{
    MatrixData* poGons = attribute(QStringLiteral("Dip Azimuth"), {100.0, 100.0, 390.0, qQNaN()});
    poGons->setUnitManager(boost::make_shared<UnitManager>(QStringLiteral("orientation"), QStringLiteral("gon")));
    const auto poRoot = rootOf({poGons});
    QRoseChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poGons);
    QCOMPARE(panel.drawingArea()->bins().m_vdCounts[4], 2.0);  // 90°
    QCOMPARE(panel.drawingArea()->bins().m_vdCounts[17], 1.0); // 351°
    QCOMPARE(int(panel.drawingArea()->bins().m_iMissing), 1);
    poGons->setUnitManager(boost::make_shared<UnitManager>(QStringLiteral("orientation"), QStringLiteral("deg")));
    panel.updateRoseChartData();
    QCOMPARE(panel.drawingArea()->bins().m_vdCounts[5], 2.0);
}

void tst_RoseChartWidget::sectorsThatLeaveARest()
{
    Fixture fixture;
    fixture.m_panel.setDataSet(fixture.node("Well"));
    QCOMPARE(fixture.bins().sectors(), 18);
    QVERIFY(fixture.control<QLabel>("m_pqUncoveredLabel")->isHidden());
    fixture.control<QIntSpinBoxWithSlider>("m_pqIntervalSizeSpinBox")->setValue(7);
    QCOMPARE(fixture.bins().sectors(), 51);
    QVERIFY(!fixture.control<QLabel>("m_pqUncoveredLabel")->isHidden());
    QCOMPARE(fixture.label("m_pqUncoveredLabel"), QString("1")); // 358°
    fixture.m_panel.setSectorSize(0);
    QCOMPARE(fixture.bins().sectors(), 360);
    fixture.m_panel.setSectorSize(1000);
    QCOMPARE(fixture.bins().sectors(), 1);
}

void tst_RoseChartWidget::onlySelectedRowsCount()
{
    Fixture fixture;
    fixture.m_panel.setDataSet(fixture.node("Well"));
    QVERIFY(fixture.m_panel.setSelectedRows({0, 3, 4, 5, 77}));
    QVERIFY(!fixture.m_panel.setSelectedRows({0, 3, 4, 5, 77}));
    QCOMPARE(int(fixture.bins().m_iRecords), 3);
    QCOMPARE(int(fixture.bins().m_iMissing), 1);
    QCOMPARE(fixture.bins().m_vdCounts[0], 1.0);
    QVERIFY(fixture.m_panel.setSelectedRows({}));
    QCOMPARE(int(fixture.bins().m_iRecords), 5);
}

void tst_RoseChartWidget::clickedSectorsReachTheOwner()
{
    Fixture fixture;
    fixture.m_panel.resize(900, 600);
    fixture.m_panel.grab();
    fixture.m_panel.setDataSet(fixture.node("Well"));
    std::vector<int> viSelected;
    connect(&fixture.m_panel, &QRoseChartWidget::dataPointsSelection, this, [&](const bool* pb, int iLength) {
        viSelected.clear();
        for (int i = 0; i < iLength; ++i) {
            if (pb[i])
                viSelected.push_back(i);
        }
        fixture.m_panel.setSelectedRows(viSelected); // as owners do
    });
    QRosePlotWidget* pqPlot = fixture.m_panel.drawingArea();
    pqPlot->grab();
    QTest::mouseClick(pqPlot, Qt::LeftButton, Qt::NoModifier, pqPlot->pointAt(5.0, 30.0).toPoint());
    QCOMPARE(viSelected, (std::vector<int>{0, 1, 2}));
    QCOMPARE(int(fixture.bins().m_iRecords), 3);
    // A class of the legend is a selection as well.
    fixture.m_panel.setColorAttribute(fixture.node("rock"));
    QLegendListView* pqLegend = fixture.m_panel.legends()->colorView();
    pqLegend->selectionModel()->select(pqLegend->legendModel()->indexOfClass(2), QItemSelectionModel::ClearAndSelect);
    QCOMPARE(viSelected, (std::vector<int>{1, 3, 5}));
    QCOMPARE(int(fixture.bins().m_iRecords), 2);
    QCOMPARE(pqLegend->getSelectedIDs(), std::vector<int>{2});
    fixture.m_panel.setSelectedRows({0}); // other rows from elsewhere are no class
    QVERIFY(pqLegend->getSelectedIDs().empty());
}

void tst_RoseChartWidget::rebuildsOnlyWhatChanged()
{
    Fixture fixture;
    auto* pqDistance = fixture.control<QIntSpinBoxWithSlider>("m_pqGridCircleDistanceSpinBox");
    fixture.m_panel.chooseDataSet(fixture.node("Well"));
    QCOMPARE(int(fixture.bins().m_iRecords), 0); // nothing is read for a panel that is not seen
    fixture.m_panel.updateRoseChartData();
    QCOMPARE(int(fixture.bins().m_iRecords), 5);
    pqDistance->setValue(2);
    QCOMPARE(fixture.m_panel.drawingArea()->getGridCircleDistance(), 2);
    fixture.m_panel.updateRoseChartData();
    QCOMPARE(pqDistance->getValue(), 2); // a new count would have chosen a distance
    fixture.node("Dip Azimuth")->setColumn(0, MatrixColumn::fromDoubles(std::vector<double>(6, 90.0)));
    QCOMPARE(fixture.bins().m_vdCounts[0], 3.0);
    fixture.m_panel.updateRoseChartData();
    QCOMPARE(fixture.bins().m_vdCounts[4], 6.0);
    QCOMPARE(fixture.label("m_pqMeanDirectionLabel"), QString("90.00°"));
    QCOMPARE(pqDistance->getValue(), 1);
    // Switches of the looks count nothing.
    pqDistance->setValue(3);
    fixture.control<QRadioButton>("m_pqLinearBtn")->click();
    fixture.control<QCheckBox>("m_pqMeanLengthCheckBox")->click();
    QCOMPARE(pqDistance->getValue(), 3);
    QVERIFY(!fixture.m_panel.drawingArea()->equalAreaScaling());
    // A length without an arrow is none.
    fixture.control<QCheckBox>("m_pqMeanDirectionCheckBox")->click();
    QVERIFY(!fixture.control<QCheckBox>("m_pqMeanLengthCheckBox")->isEnabled());
}

void tst_RoseChartWidget::colourAttribute()
{
    Fixture fixture;
    fixture.m_panel.setDataSet(fixture.node("Well"));
    fixture.pick("m_pqColorDataSetComboBox", "Well: rock");
    QCOMPARE(fixture.m_panel.currentColorSelectedDataSet(), fixture.node("rock"));
    QCOMPARE(fixture.bins().m_iClasses, 3);
    QCOMPARE(fixture.bins().classCount(0, 1), 2.0); // "a" at 10°
    QCOMPARE(fixture.bins().classCount(0, 2), 1.0);
    QVERIFY(!fixture.m_panel.legends()->isEmpty());
    QVERIFY(!fixture.control<QGroupBox>("m_pqColorMapGroup")->isEnabled());
    // Petals of another data set have no such classes.
    fixture.m_panel.setDataSet(fixture.node("Other"));
    QVERIFY(!fixture.m_panel.currentColorSelectedDataSet());
    QCOMPARE(fixture.bins().m_iClasses, 0);
    fixture.m_panel.setColorAttribute(fixture.node("rock"));
    QVERIFY(!fixture.m_panel.currentColorSelectedDataSet());
    fixture.m_panel.setDataSet(fixture.node("Well"));
    fixture.pick("m_pqColorDataSetComboBox", "Well: rock");
    fixture.pick("m_pqColorDataSetComboBox", "None");
    QCOMPARE(fixture.bins().m_iClasses, 0);
    QVERIFY(fixture.m_panel.legends()->isEmpty());
}

void tst_RoseChartWidget::colourMapRange()
{
    Fixture fixture;
    fixture.m_panel.setDataSet(fixture.node("Well"));
    fixture.m_panel.setColorAttribute(fixture.node("depth"));
    auto* pqMin = fixture.control<QUnitLineEdit>("m_pqColorMapMinEdit");
    auto* pqInterval = fixture.control<QUnitLineEdit>("m_pqColorMapIntervalEdit");
    QCOMPARE(pqMin->placeholderText(), QString("---"));
    const auto type = [](QUnitLineEdit* pqEdit, const QString& sText) {
        pqEdit->selectAll();
        QTest::keyClicks(pqEdit, sText);
        QTest::keyClick(pqEdit, Qt::Key_Return);
    };
    type(pqMin, "2.5");
    type(pqInterval, "1");
    // 2.5, 3.5, 4.5, 5: three bands, and class 0.
    QCOMPARE(fixture.bins().m_iClasses, 4);
    const QColor oFirst = fixture.m_panel.relationshipItemModel()->colorClasses().color(1);
    fixture.control<QRadioButton>("m_pqRedBlueBtn")->click();
    QCOMPARE(fixture.m_panel.relationshipItemModel()->colorClasses().color(3), oFirst);
    fixture.control<QPushButton>("m_pqExpandColorMapBtn")->click();
    QCOMPARE(pqMin->modelValue(), 0.5);
    QCOMPARE(fixture.bins().m_iClasses, 6); // 0.5 to 5 in steps of 1
    type(pqMin, "---");
    type(pqInterval, "---");
    QVERIFY(pqMin->isTextValid() && pqInterval->isTextValid());
    QCOMPARE(fixture.bins().m_iClasses, 20);
    // A range belongs to its attribute.
    type(pqMin, "2.5");
    fixture.m_panel.setColorAttribute(nullptr);
    fixture.m_panel.setColorAttribute(fixture.node("depth"));
    QVERIFY(pqMin->text().isEmpty());
    QCOMPARE(fixture.bins().m_iClasses, 20);
}

void tst_RoseChartWidget::nodesThatGo()
{
    Fixture fixture;
    fixture.m_panel.setDataSet(fixture.node("Well"));
    fixture.m_panel.setColorAttribute(fixture.node("rock"));
    const auto remove = [&fixture](const char* pName) {
        MatrixData* poNode = fixture.node(pName);
        poNode->owner()->takeChild(poNode);
    };
    remove("rock");
    QVERIFY(!fixture.m_panel.currentColorSelectedDataSet());
    QCOMPARE(fixture.bins().m_iClasses, 0);
    QVERIFY(!fixture.entries("m_pqColorDataSetComboBox").contains("Well: rock"));
    remove("Dip Azimuth");
    QVERIFY(!fixture.m_panel.currentSelectedDataSet());
    QCOMPARE(int(fixture.bins().m_iRecords), 0);
    QCOMPARE(fixture.entries("m_pqRoseDataSetComboBox"), QStringList{"Other: Strike Azimuth"});
    fixture.m_panel.setDataSet(fixture.node("Other"));
    fixture.m_poRoot.reset();
    QVERIFY(!fixture.m_panel.currentSelectedDataSet());
    QVERIFY(fixture.entries("m_pqRoseDataSetComboBox").isEmpty());
    fixture.m_panel.updateRoseChartData();
    fixture.m_panel.grab();
}

void tst_RoseChartWidget::settingsUnderTheirKeys()
{
    const QString sGroup = QStringLiteral("attribute_analyser/rose_plot/");
    {
        QRoseChartWidget panel;
        panel.writeSettings(sGroup);
    }
    QSettings stored;
    stored.beginGroup(sGroup);
    const QVariantMap defaults{
        {"display/rose_plot_selected_data_set", -1},
        {"display/rose_plot_interval_size", 20},
        {"display/show_direction_as_rose_plot", true},
        {"display/show_direction_as_unit_vectors", false},
        {"display/scaling_area", true},
        {"display/scaling_linear", false},
        {"display/data_type_unidirectional", true},
        {"display/data_type_bidirectional", false},
        {"display/classified_by_attribute", "None"},
        {"color_map_settings/color_map_min_range", "---"},
        {"color_map_settings/color_map_max_range", "---"},
        {"color_map_settings/color_map_interval_size", "---"},
        {"color_map_settings/color_map_blue_red", true},
        {"color_map_settings/color_map_red_blue", false},
        {"display_settings/background_white", true},
        {"display_settings/background_black", false},
        {"display_settings/annotation_angles", true},
        {"display_settings/annotation_directions", false},
        {"display_settings/annotation_off", false},
        {"display_settings/scaling_interval_size", 5},
        {"display_settings/scaling_circles", true},
        {"display_settings/scaling_tickmarks", false},
        {"display_settings/scaling_off", false},
        {"display_settings/scaling_circle_frame", true},
        {"display_settings/zero_circle_size", 0},
    };
    for (auto it = defaults.begin(); it != defaults.end(); ++it)
        QCOMPARE(stored.value(it.key()).toString(), it.value().toString());
    QVERIFY(stored.contains("splitter_sizes/side_panel_splitter") && stored.contains("splitter_sizes/legend_splitter"));

    RoseChartSettings changed;
    changed.m_iSectorSize = 45;
    changed.m_bRosePlot = changed.m_bAreaScaling = changed.m_bUnidirectional = changed.m_bCircles = false;
    changed.m_bBlackBackground = changed.m_bTickMarks = changed.m_bMeanLength = true;
    changed.m_bCircleFrame = changed.m_bMeanDirection = false;
    changed.m_eAnnotation = RoseChartSettings::Annotation::Off;
    changed.m_iGridCircleDistance = 33;
    changed.m_iZeroCircleSize = 25;
    changed.m_dFontSize = 12.0;
    changed.m_oColorMap.m_bRedToBlue = true;
    QRoseChartWidget first;
    first.setSettings(changed);
    first.writeSettings("changed");
    QRoseChartWidget second;
    second.readSettings("changed");
    RoseChartSettings read = second.settings();
    read.m_oSidePanelSplitter.clear();
    read.m_oLegendSplitter.clear();
    QCOMPARE(read, changed);
    QCOMPARE(second.drawingArea()->backgroundColor(), QColor(Qt::black));
    // What makes no sense stays as it is.
    stored.setValue("display/rose_plot_interval_size", 400);
    stored.setValue("display_settings/zero_circle_size", "much");
    second.readSettings(sGroup);
    QCOMPARE(second.settings().m_iSectorSize, 20);
    QCOMPARE(second.settings().m_iZeroCircleSize, 0);
}

void tst_RoseChartWidget::settingsFindTheirAttributesLater()
{
    {
        Fixture fixture;
        fixture.pick("m_pqRoseDataSetComboBox", "Well: Dip Azimuth");
        fixture.m_panel.setColorAttribute(fixture.node("depth"));
        fixture.control<QUnitLineEdit>("m_pqColorMapMinEdit")->setModelValue(1.5, true);
        fixture.m_panel.writeSettings("later");
    }
    QCOMPARE(QSettings().value("later/display/classified_by_attribute").toString(), QString("depth"));
    QRoseChartWidget panel;
    panel.readSettings("later");
    panel.writeSettings("later"); // without data in between nothing is lost
    panel.readSettings("later");
    Fixture fixture;
    panel.setDataRoot(fixture.m_poRoot.get());
    QCOMPARE(panel.currentSelectedDataSet(), fixture.node("Dip Azimuth"));
    QCOMPARE(panel.currentColorSelectedDataSet(), fixture.node("depth"));
    QCOMPARE(panel.settings().m_oColorMap.m_dMin, 1.5);
    // Nor does it matter when the owner, not the settings, chooses the directions.
    QRoseChartWidget other;
    RoseChartSettings settings;
    settings.m_sClassifiedBy = QStringLiteral("rock");
    other.setSettings(settings);
    other.setDataRoot(fixture.m_poRoot.get());
    other.setDataSet(fixture.node("Well"));
    QCOMPARE(other.currentColorSelectedDataSet(), fixture.node("rock"));
    // The root may be there before its data are, and an unseen panel reads nothing.
    MatrixData root(QStringLiteral("root"));
    QRoseChartWidget early;
    settings.m_iSelectedDataSet = 1;
    early.setSettings(settings);
    early.setDataRoot(&root);
    addDataSet(root, QStringLiteral("Well"),
               {angle(QStringLiteral("First Azimuth"), {1, 2, 3}), angle(QStringLiteral("Second Azimuth"), {4, 5, 6})});
    early.updateDataSetSelectionBox();
    QCOMPARE(early.currentSelectedDataSetName(), QString("Second Azimuth"));
    QCOMPARE(early.settings().m_iSelectedDataSet, 1);
    QCOMPARE(int(early.drawingArea()->bins().m_iRecords), 0);
    early.updateRoseChartData();
    QCOMPARE(int(early.drawingArea()->bins().m_iRecords), 3);
    // The user's choice is not undone by what was stored.
    panel.setDataSet(fixture.node("Other"));
    panel.setDataRoot(fixture.m_poRoot.get());
    QCOMPARE(panel.currentSelectedDataSet(), fixture.node("Strike Azimuth"));
}

void tst_RoseChartWidget::legendsKeepTheirRoom()
{
    const auto show = [](Fixture& fixture, const QSize& oSize) {
        fixture.m_panel.setDataSet(fixture.node("Well"));
        fixture.m_panel.setColorAttribute(fixture.node("rock"));
        fixture.m_panel.resize(oSize);
        fixture.m_panel.grab();
    };
    const QSize oWide(1300, 600);
    {
        Fixture fixture;
        show(fixture, oWide);
        auto* pqSplitter = fixture.control<QSplitter>("m_pqLegendSplitter");
        QCOMPARE(pqSplitter->orientation(), Qt::Horizontal);
        QCOMPARE(pqSplitter->sizes().last(), 150);
        const int iChart = pqSplitter->sizes().first();
        pqSplitter->setSizes({iChart - 80, 230}); // as a drag does
        for (const char* pColor : {"None", "Well: rock"}) {
            fixture.pick("m_pqColorDataSetComboBox", pColor);
            fixture.m_panel.grab();
        }
        QCOMPARE(pqSplitter->sizes(), QList<int>({iChart - 80, 230}));
        // Below the chart there is another room for them; beside it the old one is there again.
        for (const QSize& oSize : {QSize(700, 1000), oWide}) {
            fixture.m_panel.resize(oSize);
            fixture.m_panel.grab();
            QCOMPARE(pqSplitter->sizes().last(), oSize == oWide ? 230 : 130);
        }
        fixture.m_panel.writeSettings("legends");
    }
    Fixture unseen;
    unseen.m_panel.readSettings("legends");
    unseen.m_panel.writeSettings("legends");
    Fixture fixture;
    fixture.m_panel.readSettings("legends");
    show(fixture, oWide);
    QCOMPARE(fixture.control<QSplitter>("m_pqLegendSplitter")->sizes().last(), 230);
}

void tst_RoseChartWidget::pictures()
{
    Fixture fixture;
    fixture.m_panel.chooseDataSet(fixture.node("Well"));
    const QString sFile = m_oFolder.filePath("rose.svg");
    QString sError;
    QVERIFY2(fixture.m_panel.exportChart(sFile, QSize(500, 400), &sError), qPrintable(sError));
    QFile file(sFile);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray oSvg = file.readAll();
    for (const char* pText : {"Rose Diagram: Well: Dip Azimuth", "n = 5", ">N<", ">270<"})
        QVERIFY2(oSvg.contains(pText), pText);
    QVERIFY(!fixture.m_panel.exportChart(m_oFolder.filePath("rose.txt"), QSize(500, 400), &sError));
    QVERIFY(!sError.isEmpty());
    // The legend stands beside the rose and takes its room.
    QImage oPicture(600, 400, QImage::Format_RGB32);
    oPicture.fill(Qt::white);
    fixture.m_panel.setColorAttribute(fixture.node("rock"));
    QPainter painter(&oPicture);
    fixture.m_panel.renderTo(painter, QRectF(0, 0, 600, 400));
    painter.end();
    const QColor oSwatch = fixture.m_panel.relationshipItemModel()->colorClasses().color(2);
    bool bFound = false;
    for (int y = 0; y < 100; ++y) {
        for (int x = 600 - int(fixture.m_panel.legends()->widthBeside()); x < 600; ++x)
            bFound = bFound || oPicture.pixelColor(x, y) == oSwatch;
    }
    QVERIFY(bFound);
}

QTEST_MAIN(tst_RoseChartWidget)
#include "tst_rosechartwidget.moc"
