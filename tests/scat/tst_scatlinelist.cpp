// The list of interpreted lines: its order, cells that are edited in place, and rows and picks that follow each other.

#include <gkBase/DepthLineField.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/ScatLineList.h>
#include <gkBase/ScatLineModel.h>
#include <gkBase/ScatScenarios.h>
#include <gkBase/UnitManager.h>

#include "TestDataSets.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

#include <memory>
#include <random>

using namespace gkBase;

class TestScatLineList : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void followsEveryChange();
    void editing_data();
    void editing();
    void depthsHaveTheirUnit();
    void rowsArePicks();
    void drags();
    void keys();
    void coloursByDialog();
    void outlivesTheScenarios();

private:
    void insert(double dDepth, const char* pName)
    {
        QVERIFY(m_pqScenarios->insert(DepthLineField::Horizon, {0.0, dDepth}, QString::fromUtf8(pName), Qt::blue, 0.0));
    }
    QString cell(int iRow, int iColumn, int iRole = Qt::DisplayRole) const
    {
        return m_pqList->model()->index(iRow, iColumn).data(iRole).toString();
    }
    QStringList names() const
    {
        QStringList lNames;
        for (int i = 0; i < m_pqList->model()->rowCount(); ++i)
            lNames << cell(i, ScatLineModel::NameColumn);
        return lNames;
    }
    std::vector<int> selectedRows() const
    {
        std::vector<int> viRows;
        for (int i = 0; i < m_pqList->model()->rowCount(); ++i)
            if (m_pqList->selectionModel()->isRowSelected(i))
                viRows.push_back(i);
        return viRows;
    }
    void click(int iRow, int iColumn, Qt::KeyboardModifiers eModifiers = Qt::NoModifier)
    {
        QTest::mouseClick(m_pqList->viewport(), Qt::LeftButton, eModifiers, centre(iRow, iColumn));
    }
    QPoint centre(int iRow, int iColumn) const
    {
        return m_pqList->visualRect(m_pqList->model()->index(iRow, iColumn)).center();
    }
    void makeCurrent(int iRow, int iColumn) { m_pqList->setCurrentIndex(m_pqList->model()->index(iRow, iColumn)); }
    QUndoStack& history() { return *m_pqScenarios->undoGroup()->activeStack(); }

    std::unique_ptr<std::array<QRelationshipItemModel, ScatScenarios::s_iTracks>> m_pModels;
    std::unique_ptr<ScatScenarios> m_pqScenarios;
    std::unique_ptr<ScatLineList> m_pqList;
};

void TestScatLineList::init()
{
    m_pModels = std::make_unique<std::array<QRelationshipItemModel, ScatScenarios::s_iTracks>>();
    m_pqScenarios = std::make_unique<ScatScenarios>(
        ScatScenarios::Models{&m_pModels->at(0), &m_pModels->at(1), &m_pModels->at(2), &m_pModels->at(3)});
    m_pqList = std::make_unique<ScatLineList>(m_pqScenarios.get());
    m_pqList->resize(360, 240);
    m_pqList->show();
    insert(1200.0, "C");
    insert(1000.0, "A");
    insert(1100.0, "B");
    m_pqScenarios->deselectAll();
}

void TestScatLineList::cleanup()
{
    m_pqList.reset();
    m_pqScenarios.reset();
}

/// The table is right after edits, undo and other scenarios, and announces its changes as views need it.
void TestScatLineList::followsEveryChange()
{
    const QAbstractItemModelTester tester(m_pqList->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    std::mt19937 generator(11);
    const auto next = [&generator](unsigned iEnd) { return static_cast<int>(generator() % iEnd); };
    for (int iStep = 0; iStep < 400; ++iStep) {
        const int iLines = m_pqScenarios->lines()->count();
        switch (next(9)) {
        case 0:
        case 1:
            insert(1000.0 + next(300), "X");
            break;
        case 2:
        case 3:
            m_pqScenarios->pick({next(iLines + 1U), next(iLines + 1U)}, next(2) == 0);
            break;
        case 4:
            m_pqScenarios->move({0.0, next(100) - 50.0});
            break;
        case 5:
            m_pqScenarios->erasePicked();
            break;
        case 6:
            history().undo();
            break;
        case 7:
            history().redo();
            break;
        default:
            if (m_pqScenarios->count() < 3)
                m_pqScenarios->addNew();
            else
                m_pqScenarios->setActive(next(3));
            break;
        }
        const DepthLineField& field = *m_pqScenarios->lines();
        QCOMPARE(m_pqList->model()->rowCount(), field.count());
        const std::vector<int> viLines = field.linesByDepth();
        std::vector<int> viPickedRows;
        for (int iRow = 0; iRow < field.count(); ++iRow) {
            const int iLine = viLines[static_cast<std::size_t>(iRow)];
            QCOMPARE(cell(iRow, ScatLineModel::DepthColumn), QString::number(field.line(iLine).m_dDepth, 'f', 2));
            if (field.isSelected(iLine))
                viPickedRows.push_back(iRow);
        }
        QCOMPARE(selectedRows(), viPickedRows);
    }
}

void TestScatLineList::editing_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QVariant>("typed");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("text"); ///< of the cell for editing
    QTest::addColumn<int>("row");      ///< where the line is then
    const auto row = [](const char* pName, int iColumn, const QVariant& qTyped, const char* pText, int iRow = 0) {
        QTest::newRow(pName) << iColumn << qTyped << true << QString::fromUtf8(pText) << iRow;
    };
    const auto refused = [](const char* pName, int iColumn, const QVariant& qTyped, const char* pText) {
        QTest::newRow(pName) << iColumn << qTyped << false << QString::fromUtf8(pText) << 0;
    };
    row("name", ScatLineModel::NameColumn, "Top  A", "Top  A");
    row("no name", ScatLineModel::NameColumn, "", "");
    row("type", ScatLineModel::TypeColumn, "axial plane", "Axial Plane");
    refused("no type", ScatLineModel::TypeColumn, "River", "Horizon");
    refused("type of other fields", ScatLineModel::TypeColumn, "Average Orientation", "Horizon");
    row("depth", ScatLineModel::DepthColumn, "1000.123456", "1000.123456");
    row("decimal comma", ScatLineModel::DepthColumn, "1150,5", "1150.5", 1);
    refused("no depth", ScatLineModel::DepthColumn, "deep", "1000");
    refused("empty depth", ScatLineModel::DepthColumn, "", "1000");
    refused("missing depth", ScatLineModel::DepthColumn, "99999", "1000");
    refused("unit without attribute", ScatLineModel::DepthColumn, "5 ft", "1000");
    row("orientation", ScatLineModel::OrientationColumn, "30/120", "30/120");
    row("blanks, comma, degrees", ScatLineModel::OrientationColumn, " 30,5\u00b0  360 ", "30.5/0");
    row("no orientation", ScatLineModel::OrientationColumn, "", "");
    refused("dip alone", ScatLineModel::OrientationColumn, "30", "22/33");
    refused("three angles", ScatLineModel::OrientationColumn, "1/2/3", "22/33");
    refused("beyond vertical", ScatLineModel::OrientationColumn, "91/10", "22/33");
    refused("beyond the circle", ScatLineModel::OrientationColumn, "9/361", "22/33");
    refused("negative", ScatLineModel::OrientationColumn, "-1/-1", "22/33");
    refused("no angle", ScatLineModel::OrientationColumn, "nan/1", "22/33");
    row("colour", ScatLineModel::ColorColumn, QColor(1, 2, 3), "#010203");
    row("colour by name", ScatLineModel::ColorColumn, "Red", "#ff0000");
    refused("no colour", ScatLineModel::ColorColumn, "reddish", "#0000ff");
}

/// The uppermost line, whose number is 1, is edited.
void TestScatLineList::editing()
{
    QFETCH(int, column);
    QFETCH(QVariant, typed);
    QFETCH(bool, accepted);
    QFETCH(QString, text);
    QFETCH(int, row);
    m_pqScenarios->pick({1}, false);
    m_pqScenarios->setPickedOrientation({22.0, 33.0});
    const std::vector<DepthLineField::Line> vBefore = m_pqScenarios->lines()->lines();
    const int iBefore = history().index();
    QCOMPARE(m_pqList->model()->setData(m_pqList->model()->index(0, column), typed), accepted);
    QCOMPARE(cell(row, column, Qt::EditRole), text);
    QCOMPARE(selectedRows(), std::vector<int>{row});
    QCOMPARE(history().index(), iBefore + (accepted ? 1 : 0));
    if (accepted) {
        QVERIFY(!history().undoText().isEmpty());
        history().undo();
    }
    QVERIFY(m_pqScenarios->lines()->lines() == vBefore);
}

void TestScatLineList::depthsHaveTheirUnit()
{
    std::unique_ptr<MatrixData> poDepth(gkTest::attribute(QStringLiteral("Depth"), std::vector<double>{1.0}));
    poDepth->setUnitManager(boost::shared_ptr<UnitManager>(new UnitManager("length", "m")));
    m_pqList->setDepthAttribute(poDepth.get());
    const auto header = [this] {
        return m_pqList->model()->headerData(ScatLineModel::DepthColumn, Qt::Horizontal).toString();
    };
    QCOMPARE(header(), QStringLiteral("Depth (m)"));
    QVERIFY(poDepth->unitManager()->displayUnit(QStringLiteral("ft")));
    QCOMPARE(header(), QStringLiteral("Depth (ft)"));
    QVERIFY(cell(0, ScatLineModel::DepthColumn).startsWith(QStringLiteral("3280.8")));
    // What the editor shows, given back, costs no digit and is no edit.
    const int iBefore = history().index();
    const QModelIndex depth = m_pqList->model()->index(0, ScatLineModel::DepthColumn);
    QVERIFY(m_pqList->model()->setData(depth, depth.data(Qt::EditRole)));
    QCOMPARE(history().index(), iBefore);
    QVERIFY(m_pqList->model()->setData(depth, QStringLiteral("3300")));
    QCOMPARE(m_pqScenarios->lines()->line(1).m_dDepth, 1005.84);
    QVERIFY(m_pqList->model()->setData(depth, QStringLiteral("900 m")));
    QCOMPARE(m_pqScenarios->lines()->line(1).m_dDepth, 900.0);
    QVERIFY(poDepth->unitManager()->displayUnit(QString()));
    poDepth.reset();
    QCOMPARE(header(), QStringLiteral("Depth"));
    QCOMPARE(cell(0, ScatLineModel::DepthColumn), QStringLiteral("900.00"));
}

void TestScatLineList::rowsArePicks()
{
    QSignalSpy picks(m_pqScenarios.get(), &ScatScenarios::pickChanged);
    click(0, ScatLineModel::NameColumn);
    click(2, ScatLineModel::TypeColumn, Qt::ControlModifier);
    QCOMPARE(m_pqScenarios->lines()->selectedLines(), (std::vector<int>{0, 1}));
    QCOMPARE(picks.count(), 2);
    click(0, ScatLineModel::NameColumn);
    click(2, ScatLineModel::NameColumn, Qt::ShiftModifier);
    QCOMPARE(m_pqScenarios->lines()->selectedLines(), (std::vector<int>{0, 1, 2}));
    picks.clear();
    m_pqScenarios->pick({2}, false);
    QCOMPARE(selectedRows(), std::vector<int>{1});
    QCOMPARE(m_pqList->currentIndex().row(), 1);
    QCOMPARE(picks.count(), 1);
    const ScatLineList other(m_pqScenarios.get()); // a new one takes the picks over
    QVERIFY(other.selectionModel()->isRowSelected(1) && selectedRows() == std::vector<int>{1});
    m_pqScenarios->deselectAll();
    QVERIFY(selectedRows().empty() && !other.selectionModel()->hasSelection());
}

/// A list that shows a drag must not end it: it stays one step, although rows change places; and only then more than
/// their data changes.
void TestScatLineList::drags()
{
    click(0, ScatLineModel::NameColumn);
    click(1, ScatLineModel::NameColumn, Qt::ControlModifier);
    const int iBefore = history().index();
    QSignalSpy resets(m_pqList->model(), &QAbstractItemModel::modelReset);
    QSignalSpy layouts(m_pqList->model(), &QAbstractItemModel::layoutChanged);
    QSignalSpy changes(m_pqList->model(), &QAbstractItemModel::dataChanged);
    for (int i = 0; i < 30; ++i)
        m_pqScenarios->move({0.0, 9.0});
    QCOMPARE(names(), (QStringList{"C", "A", "B"}));
    QCOMPARE(selectedRows(), (std::vector<int>{1, 2}));
    QCOMPARE(history().index(), iBefore + 1);
    QCOMPARE(changes.count(), 30);
    QCOMPARE(layouts.count(), 2); // each of the two passes C
    QCOMPARE(resets.count(), 0);
}

void TestScatLineList::keys()
{
    makeCurrent(1, ScatLineModel::TypeColumn);
    QTest::keyClick(m_pqList.get(), Qt::Key_Return);
    auto* pqTypes = m_pqList->viewport()->findChild<QComboBox*>();
    QVERIFY(pqTypes);
    QCOMPARE(pqTypes->count(), 5);
    QCOMPARE(pqTypes->currentText(), QStringLiteral("Horizon"));
    pqTypes->setCurrentIndex(pqTypes->findText(QStringLiteral("Fault")));
    emit pqTypes->activated(pqTypes->currentIndex());
    QCOMPARE(m_pqScenarios->lines()->line(2).m_eType, DepthLineField::Fault);

    makeCurrent(1, ScatLineModel::NameColumn);
    QTest::keyClick(m_pqList.get(), Qt::Key_F2);
    auto* pqName = m_pqList->viewport()->findChild<QLineEdit*>();
    QVERIFY(pqName);
    QTest::keyClicks(pqName, QStringLiteral("Base"));
    QTest::keyClick(pqName, Qt::Key_Delete); // of the editor, not of the line
    QTest::keyClick(pqName, Qt::Key_Return);
    QTRY_COMPARE(names(), (QStringList{"A", "Base", "C"}));

    m_pqList->activateWindow();
    m_pqList->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_pqList.get()));
    m_pqScenarios->pick({1, 2}, false);
    QTest::keyClick(m_pqList.get(), Qt::Key_Delete);
    QCOMPARE(names(), QStringList{"C"});
    QTest::keyClick(m_pqList.get(), Qt::Key_Delete); // nothing is picked
    QCOMPARE(names(), QStringList{"C"});
    history().undo();
    QCOMPARE(names(), (QStringList{"A", "Base", "C"}));
}

void TestScatLineList::coloursByDialog()
{
    QColor oInitial;
    QColor oAnswer(10, 20, 30);
    m_pqList->setColorChooser([&](const QColor& oFirst, QWidget*) {
        oInitial = oFirst;
        return oAnswer;
    });
    makeCurrent(2, ScatLineModel::ColorColumn);
    QTest::keyClick(m_pqList.get(), Qt::Key_F2);
    QCOMPARE(oInitial, QColor(Qt::blue));
    QCOMPARE(m_pqScenarios->lines()->line(0).m_oColor, oAnswer);
    const int iBefore = history().index();
    oAnswer = QColor(); // cancelled
    QTest::keyClick(m_pqList.get(), Qt::Key_Return);
    QCOMPARE(oInitial, QColor(10, 20, 30));
    QCOMPARE(history().index(), iBefore);

    // The first click on a line selects it, a double click goes there, and only a single one later asks.
    oInitial = QColor();
    QSignalSpy depths(m_pqList.get(), &ScatLineList::depthActivated);
    click(1, ScatLineModel::ColorColumn);
    QTest::mouseDClick(m_pqList->viewport(), Qt::LeftButton, {}, centre(1, ScatLineModel::ColorColumn));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QCOMPARE(depths.count(), 1);
    QCOMPARE(depths.first().first().toDouble(), 1100.0);
    QVERIFY(!oInitial.isValid());
    click(1, ScatLineModel::ColorColumn);
    QTRY_VERIFY(oInitial.isValid());
}

void TestScatLineList::outlivesTheScenarios()
{
    click(0, ScatLineModel::NameColumn);
    m_pqScenarios.reset();
    QCOMPARE(m_pqList->model()->rowCount(), 0);
    QTest::keyClick(m_pqList.get(), Qt::Key_Delete);
    QTest::keyClick(m_pqList.get(), Qt::Key_Return);
    QVERIFY(!m_pqList->grab().isNull());
}

QTEST_MAIN(TestScatLineList)
#include "tst_scatlinelist.moc"
