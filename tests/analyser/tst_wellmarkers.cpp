// Interpreted lines as markers of a well, whose markers a depth plot shows, and how they are switched on and off.

#include "TestDataSets.h"

#include <gkBase/DepthLineField.h>
#include <gkBase/DepthMarkers.h>
#include <gkBase/MarkerVisibility.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QMarkerVisibilityDlg.h>
#include <gkBase/UnitManager.h>
#include <gkBase/UnitRegistry.h>
#include <gkBase/WellMarkers.h>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <memory>

using namespace gkBase;
using gkTest::addDataSet;

namespace {

MatrixData* depths(const std::vector<double>& vdDepths, const char* pUnit = "m")
{
    return gkTest::attribute(QStringLiteral("Depth"), vdDepths, "depth", pUnit);
}

MatrixData* texts(const char* pName, const QStringList& lTexts)
{
    return gkTest::attribute(QLatin1String(pName), QMetaType::QString, lTexts);
}

MatrixData* addWell(MatrixData& root, const char* pName, const char* pUnit = "m")
{
    return addDataSet(root, QLatin1String(pName),
                      {depths({1000, 1100, 1200}, pUnit), gkTest::attribute(QStringLiteral("Value"), {1, 2, 3})});
}

/// "Type:Name@depth" of what a plot of the data set shows.
QStringList shown(const MatrixData& root, const MatrixData& dataSet)
{
    QStringList lTexts;
    for (const DepthMarker& marker : collectDepthMarkers(&root, dataSet.depthAttribute(), {}).m_vLines)
        lTexts << QStringLiteral("%1@%2").arg(marker.m_sName).arg(marker.m_dDepth);
    return lTexts;
}

} // namespace

class tst_WellMarkers : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_poRoot = std::make_unique<MatrixData>(QStringLiteral("root"));
        m_poRoot->setRegistry(&m_registry);
        m_poWell = addWell(*m_poRoot, "A");
        m_lines = DepthLineField();
        m_lines.insertHorizontalLine(1150, 0, QStringLiteral("Fault0"), Qt::gray, DepthLineField::Fault, {60, 90});
        m_lines.insertHorizontalLine(1050, 0, QStringLiteral("Dummy"), Qt::green, DepthLineField::AxialPlane);
        m_lines.insertHorizontalLine(1010, 0, QStringLiteral("Horizon_0"), Qt::red, DepthLineField::Horizon);
        m_lines.insertHorizontalLine(1020, 0, QString(), Qt::red, DepthLineField::AverageOrientation, {1, 2});
    }

    void linesBecomeRowsAndUndoTakesThemBack()
    {
        const std::unique_ptr<MatrixData> poBefore(m_poRoot->clone());
        QVERIFY(create());
        const std::unique_ptr<MatrixData> poCreated(m_poRoot->clone());
        QCOMPARE(markers()->name(), QStringLiteral("A Markers"));
        QCOMPARE(rows(), (QStringList{"1010 Horizon Horizon_0 - - SCAT", "1050 Axial Plane Dummy - - SCAT",
                                      "1150 Fault Fault0 60 90 SCAT"}));
        QVERIFY(!markers()->isSelected());
        QVERIFY(markers()->getNodeFromName(QStringLiteral("$V"))->column().isMissing(0));
        QCOMPARE(shown(*m_poRoot, *m_poWell), (QStringList{"Horizon_0@1010", "Axial Plane@1050", "Fault0@1150"}));

        const int iState = m_poRoot->undoState();
        QVERIFY2(!create(), "nothing new, no undo step");
        QCOMPARE(m_poRoot->undoState(), iState);
        QVERIFY(m_poRoot->undo());
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));
        QVERIFY(m_poRoot->redo());
        QVERIFY(m_poRoot->isIdenticalTo(*poCreated));
        QVERIFY2(!create(), "the set that came back is known");

        QVERIFY(deleteWellMarkers(*m_poRoot, depth()));
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));
        QVERIFY(!deleteWellMarkers(*m_poRoot, depth()));
        QVERIFY(m_poRoot->undo());
        QVERIFY(m_poRoot->isIdenticalTo(*poCreated));
    }

    void updateKeepsWhatIsNotOfTheLines()
    {
        create();
        // The user hides the fault, comments on the horizon and adds a row.
        MatrixData* poComment = texts("Comment", {"good", "", ""});
        markers()->appendChild(poComment, true);
        node("$V")->setValue(2 + 3, 0, false);
        node("Depth")->setValue(3 + 3, 0, 1300.0);
        node("Type")->setValue(3 + 3, 0, QStringLiteral("Top"));
        node("Name")->setValue(3 + 3, 0, QStringLiteral("by hand"));
        const std::unique_ptr<MatrixData> poBefore(m_poRoot->clone());

        m_lines.updatePickedHorizon(0, 1160); // the fault moves
        m_lines.setSelected(2, true);         // the horizon gets a name
        m_lines.changePickedLineName(QStringLiteral("Chalk"));
        m_lines.eraseLine(1); // the plane goes
        m_lines.insertHorizontalLine(1100, 0, QStringLiteral("Fault1"), Qt::gray, DepthLineField::Fault);
        QVERIFY(create());
        QCOMPARE(rows(), (QStringList{"1010 Horizon Chalk - - SCAT", "1160 Fault Fault0 60 90 SCAT",
                                      "1300 Top by hand - - ", "1100 Fault Fault1 - - SCAT"}));
        QCOMPARE(poComment->column().text(0), QStringLiteral("good"));
        QCOMPARE(node("$V")->recordNumber(1), 0.0);
        for (const int iRow : {0, 2, 3})
            QVERIFY(node("$V")->column().isMissing(iRow));
        QVERIFY(!create());
        QVERIFY(m_poRoot->undo());
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));

        QVERIFY(deleteWellMarkers(*m_poRoot, depth()));
        QCOMPARE(rows(), (QStringList{"1300 Top by hand - - "}));
    }

    void rowsAreKnownAgainInAnotherTree()
    {
        // As after saving and opening: nothing but names tells what belongs to what, and depths may be in other units.
        create();
        const std::unique_ptr<MatrixData> poOther(m_poRoot->clone());
        MatrixData* poDepth = poOther->child(1)->depthAttribute();
        poDepth->setColumn(0, MatrixColumn::fromDoubles({1010 / 0.3048, 1050 / 0.3048, 1150 / 0.3048}));
        const std::unique_ptr<MatrixData> poFeet(depths({}, "ft"));
        poDepth->setUnitManager(poFeet->unitManager());
        poOther->child(1)->removeChild(poOther->child(1)->getNodeFromName(QStringLiteral("$V")));
        m_lines.eraseLine(1);
        QVERIFY(createWellMarkers(*poOther, m_lines, *poOther->child(0)->depthAttribute()));
        QCOMPARE(poOther->childCount(), 2);
        QCOMPARE(shown(*poOther, *poOther->child(0)), (QStringList{"Horizon_0@1010", "Fault0@1150"}));
    }

    void rowsAreKnownWhateverTheirTablesAreCalled()
    {
        create();
        markers()->setName(QStringLiteral("Picks"));
        QVERIFY2(!create(), "the renamed table");
        const std::unique_ptr<MatrixData> poSecond(m_poRoot->child(1)->clone()); // and a copy of it
        auto* poCopy = addDataSet(*m_poRoot, QStringLiteral("A Markers"), {});
        for (int i = 0; i < poSecond->childCount(); ++i)
            poCopy->appendChild(poSecond->child(i)->clone(), true);
        QCOMPARE(shown(*m_poRoot, *m_poWell).size(), 6);
        const std::unique_ptr<MatrixData> poBefore(m_poRoot->clone());
        m_lines.eraseLine(1);
        QVERIFY(create());
        QCOMPARE(shown(*m_poRoot, *m_poWell), (QStringList{"Horizon_0@1010", "Fault0@1150"}));
        QVERIFY(m_poRoot->undo());
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));
        QVERIFY(deleteWellMarkers(*m_poRoot, depth()));
        QCOMPARE(m_poRoot->childCount(), 1);
        QVERIFY(m_poRoot->undo());
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));
    }

    void markersStayWithTheirWell_data()
    {
        QTest::addColumn<QString>("sName");
        QTest::addColumn<QStringList>("lWells"); // on whose plots the table "sName" shows
        QTest::newRow("named after a well") << "A Tops" << QStringList{"A"};
        QTest::newRow("named after the longer name") << "A 2 Tops" << QStringList{"A 2"};
        QTest::newRow("second file of the same name") << "A Tops_1" << QStringList{"A_1"};
        QTest::newRow("of nobody knows which") << "Picks" << QStringList{};
    }

    void markersStayWithTheirWell()
    {
        QFETCH(QString, sName);
        QFETCH(QStringList, lWells);
        MatrixData* poTops = addDataSet(*m_poRoot, sName, {depths({1001}), texts("Top", {"T"})});
        QCOMPARE(shown(*m_poRoot, *m_poWell).size(), 1); // the only well there is
        const QList<MatrixData*> lpWells{m_poWell, addWell(*m_poRoot, "A 2"), addWell(*m_poRoot, "A_1")};
        for (const MatrixData* poWell : lpWells)
            QCOMPARE(shown(*m_poRoot, *poWell).size(), lWells.contains(poWell->name()) ? 1 : 0);
        QCOMPARE(shown(*m_poRoot, *poTops).size(), 1);
        // Markers that are sent follow the same rules, and the well's name may change.
        create();
        m_poWell->setName(QStringLiteral("renamed"));
        QVERIFY(shown(*m_poRoot, *m_poWell).contains(QStringLiteral("Fault0@1150")));
        QVERIFY(!shown(*m_poRoot, *lpWells[1]).contains(QStringLiteral("Fault0@1150")));
        QVERIFY(!create());
    }

    void measurementsWithMarkersAreAWellOfTheirOwn()
    {
        m_poWell->appendChild(texts("Top", {"", "own", ""}), true);
        const MatrixData* poOther = addWell(*m_poRoot, "A sidetrack");
        QCOMPARE(shown(*m_poRoot, *m_poWell), (QStringList{"own@1100"}));
        QCOMPARE(shown(*m_poRoot, *poOther), QStringList());
    }

    void allMarkersFollowTheDefaultAlone()
    {
        create();
        setMarkersVisible(*m_poRoot, MarkerKind::Scat, {}, true); // a cell of its own
        MatrixData* poOther = addWell(*m_poRoot, "B");
        createWellMarkers(*m_poRoot, m_lines, *poOther->depthAttribute());
        const MatrixColumn cells = node("$V")->column();
        const std::unique_ptr<MatrixData> poBefore(m_poRoot->clone());
        QVERIFY(setMarkerVisibility(*m_poRoot, {true, true, true, true, true, false}));
        QVERIFY(areMarkersHidden(*m_poRoot));
        QCOMPARE(shown(*m_poRoot, *m_poWell) + shown(*m_poRoot, *poOther), QStringList());
        QVERIFY(node("$V")->column() == cells);
        QVERIFY2(!setMarkerVisibility(*m_poRoot, {true, false, false, false, false, false}), "nothing left to change");
        QVERIFY(setMarkerVisibility(*m_poRoot, {true, false, false, false, false, true}));
        QCOMPARE(shown(*m_poRoot, *m_poWell).size(), 3);
        QVERIFY(m_poRoot->undo() && m_poRoot->undo());
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));
        QVERIFY(!areMarkersHidden(*m_poRoot));
    }

    void typesAreOneStep_data()
    {
        QTest::addColumn<bool>("bScat");
        QTest::addColumn<bool>("bTops");
        QTest::addColumn<bool>("bFaults");
        QTest::addColumn<QStringList>("lShown");
        QTest::newRow("planes") << true << false << false << QStringList{"Axial Plane@1050"};
        QTest::newRow("tops and horizons") << false << true << false << QStringList{"Horizon_0@1010"};
        QTest::newRow("planes, faults") << true << false << true << QStringList{"Axial Plane@1050", "Fault0@1150"};
    }

    void typesAreOneStep()
    {
        QFETCH(bool, bScat);
        QFETCH(bool, bTops);
        QFETCH(bool, bFaults);
        QFETCH(QStringList, lShown);
        create();
        setMarkerVisibility(*m_poRoot, {true, false, false, false, false, false});
        const std::unique_ptr<MatrixData> poBefore(m_poRoot->clone());
        QVERIFY(setMarkerVisibility(*m_poRoot, {false, bScat, false, bTops, bFaults, true}));
        QCOMPARE(shown(*m_poRoot, *m_poWell), lShown);
        QVERIFY(m_poRoot->undo());
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));
        QVERIFY(areMarkersHidden(*m_poRoot));
        MatrixData withoutFlags(QStringLiteral("root"));
        QVERIFY(!hasMarkerVisibility(&withoutFlags) && !setMarkerVisibility(withoutFlags, {true}));
    }

    void dialogExcludesOneChoiceByTheOther()
    {
        QMarkerVisibilityDlg dialog(QStringLiteral("A"), true);
        auto* pqAll = dialog.findChild<QCheckBox*>(QStringLiteral("allCheckBox"));
        auto* pqTypes = dialog.findChild<QGroupBox*>(QStringLiteral("markerTypesGroupBox"));
        auto* pqOk = dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Ok);
        QVERIFY(dialog.allMarkers() && !pqTypes->isChecked() && pqOk->isEnabled());
        QVERIFY2(!dialog.visibilityValue(), "what is shown is offered to be hidden");
        pqTypes->setChecked(true);
        QVERIFY(!dialog.allMarkers() && !pqOk->isEnabled());
        const std::vector<std::pair<const char*, bool (QMarkerVisibilityDlg::*)() const>> vBoxes{
            {"scatCheckBox", &QMarkerVisibilityDlg::scatMarkers},
            {"decimatedDipAzimuthCheckBox", &QMarkerVisibilityDlg::decimatedDipAzimuthMarkers},
            {"topsCheckBox", &QMarkerVisibilityDlg::topMarkers},
            {"faultsCheckBox", &QMarkerVisibilityDlg::faultMarkers}};
        for (const auto& [pName, pAnswer] : vBoxes) {
            auto* pqBox = dialog.findChild<QCheckBox*>(QLatin1String(pName));
            QVERIFY(pqBox->isEnabled());
            pqBox->click();
            QVERIFY((dialog.*pAnswer)() && pqOk->isEnabled());
            pqBox->click();
            QVERIFY(!(dialog.*pAnswer)() && !pqOk->isEnabled());
        }
        pqAll->click();
        QVERIFY(!pqTypes->isChecked() && pqOk->isEnabled());
        pqAll->click();
        QVERIFY(pqTypes->isChecked());
        dialog.findChild<QRadioButton*>(QStringLiteral("radioButtonOn"))->click();
        QVERIFY(dialog.visibilityValue());
        QVERIFY(QMarkerVisibilityDlg(QString(), false).visibilityValue());
    }

private:
    const MatrixData& depth() const { return *m_poWell->depthAttribute(); }
    bool create() { return createWellMarkers(*m_poRoot, m_lines, depth()); }
    MatrixData* markers() const { return m_poRoot->getNodeFromName(QStringLiteral("A Markers")); }
    MatrixData* node(const char* pName) const { return markers()->getNodeFromName(QLatin1String(pName)); }
    QStringList rows() const
    {
        QStringList lRows;
        const auto number = [](const MatrixData* poNode, int i) {
            return poNode->column().isMissing(i) ? QStringLiteral("-") : QString::number(poNode->recordNumber(i));
        };
        for (int i = 0; i < node("Depth")->recordCount(); ++i)
            lRows << (QStringList{number(node("Depth"), i), node("Type")->column().text(i),
                                  node("Name")->column().text(i), number(node("Dip"), i), number(node("Azimuth"), i),
                                  node("Origin")->column().text(i)})
                         .join(QLatin1Char(' '));
        return lRows;
    }

    UnitRegistry m_registry;
    std::unique_ptr<MatrixData> m_poRoot;
    MatrixData* m_poWell = nullptr;
    DepthLineField m_lines;
};

QTEST_MAIN(tst_WellMarkers)
#include "tst_wellmarkers.moc"
