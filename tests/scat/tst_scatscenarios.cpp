// Scenarios of interpreted lines: every edit alike in four tracks, undone and redone, kept apart by scenario; files.

#include <gkBase/DepthLineField.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/ScatLineDefaults.h>
#include <gkBase/ScatScenarios.h>

#include "TestFolder.h"

#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

using Line = DepthLineField::Line;

/// Scenarios with the models of four tracks.
struct Well
{
    std::array<QRelationshipItemModel, ScatScenarios::s_iTracks> m_vModels;
    std::unique_ptr<ScatScenarios> m_pqScenarios = std::make_unique<ScatScenarios>(
        ScatScenarios::Models{&m_vModels[0], &m_vModels[1], &m_vModels[2], &m_vModels[3]});

    ScatScenarios* operator->() { return m_pqScenarios.get(); }
    QUndoStack& history() { return *m_pqScenarios->undoGroup()->activeStack(); }

    bool insert(double dDepth, DepthLineField::DataType eType = DepthLineField::Horizon)
    {
        return m_pqScenarios->insert(eType, {0.0, dDepth}, QString::number(dDepth), Qt::blue, 0.0);
    }

    /// Without what is picked, which is no edit.
    std::vector<Line> lines()
    {
        std::vector<Line> vLines;
        if (const DepthLineField* pField = m_pqScenarios->lines())
            vLines = pField->lines();
        for (Line& line : vLines)
            line.m_bSelected = false;
        return vLines;
    }

    /// The tracks agree in everything, and the flags of the fields with the histories.
    bool isConsistent()
    {
        for (const QRelationshipItemModel& model : m_vModels) {
            if (model.activeScenario() != m_pqScenarios->active() ||
                static_cast<int>(model.structuralTopsScenarios().size()) != m_pqScenarios->count())
                return false;
            for (int i = 0; i < m_pqScenarios->count(); ++i) {
                const auto& pField = model.structuralTopsScenarios()[static_cast<std::size_t>(i)];
                if (pField->name() != m_pqScenarios->name(i) || pField->modified() != m_pqScenarios->isModified(i) ||
                    pField->lines() != m_pqScenarios->fields(i).front()->lines())
                    return false;
            }
        }
        return true;
    }
};

/// Makes one edit or pick; several small steps where it is a drag.
void editAtRandom(Well& well, std::mt19937& generator)
{
    const auto next = [&generator](int iEnd) { return static_cast<int>(generator() % static_cast<unsigned>(iEnd)); };
    const int iLine = well->lines() && well->lines()->count() ? next(well->lines()->count()) : 0;
    switch (next(11)) {
    case 0:
    case 1:
    case 2:
        well.insert(1000.0 + next(500), static_cast<DepthLineField::DataType>(next(5)));
        break;
    case 3:
    case 4:
        well->pick({iLine, iLine / 2}, next(2) == 0);
        break;
    case 5: {
        for (int i = next(6); i >= 0; --i)
            well->move({0.5, 0.25 * (next(40) - 20)});
        const int iEnd = next(4); // 0: the next edit ends it, as it does with nudges
        if (iEnd == 1)
            well->cancelMove();
        else if (iEnd > 1)
            well->endMove();
        break;
    }
    case 6:
        well->setPickedName(QString::number(next(100)));
        break;
    case 7:
        well->setPickedColor(QColor::fromRgb(generator()));
        break;
    case 8:
        well->setPickedOrientation(QPointF(next(90), next(360)));
        break;
    case 9:
        if (well->lines() && well->lines()->count()) {
            Line line = well->lines()->lines()[static_cast<std::size_t>(iLine)];
            line.m_dDepth += next(30);
            well->setLine(iLine, line, QStringLiteral("Change"));
        }
        break;
    default:
        well->erasePicked();
        break;
    }
}

} // namespace

class TestScatScenarios : public QObject, gkTest::TestFolder
{
    Q_OBJECT
private slots:
    void historiesLeadBackAndForth_data();
    void historiesLeadBackAndForth();
    void drags();
    void undoInTheMiddleOfADrag();
    void editsThatChangeNothing();
    void scenariosAreKeptApart();
    void files();
    void closingWhileOthersListen();
    void defaultNames();
};

void TestScatScenarios::historiesLeadBackAndForth_data()
{
    QTest::addColumn<int>("seed");
    for (int i = 1; i <= 8; ++i)
        QTest::addRow("%d", i) << i;
}

/// Whatever was done, undone and redone in between: at each place of the history the lines are those that were there
/// when it was written, in all tracks, and the scenario is unmodified at the place where it was saved.
void TestScatScenarios::historiesLeadBackAndForth()
{
    QFETCH(int, seed);
    std::mt19937 generator(static_cast<unsigned>(seed));
    Well well;
    well->addNew();
    std::vector<std::vector<Line>> vStates(1);
    int iSaved = 0;
    for (int iStep = 0; iStep < 300; ++iStep) {
        const int iBefore = well.history().index();
        const unsigned iKind = generator() % 12;
        if (iKind < 9) {
            editAtRandom(well, generator);
            const auto iNow = static_cast<std::size_t>(well.history().index());
            if (static_cast<int>(iNow) > iBefore && iSaved > iBefore)
                iSaved = -1;
            vStates.resize(std::max(vStates.size(), iNow + 1));
            vStates[iNow] = well.lines();
        } else if (iKind == 9) {
            iSaved = iBefore;
            QVERIFY(well->save(0, path("saved.txt")));
        } else {
            iKind == 10 ? well.history().undo() : well.history().redo();
        }
        QVERIFY(well.lines() == vStates[static_cast<std::size_t>(well.history().index())]);
        QCOMPARE(well->isModified(0), well.history().index() != iSaved);
        QVERIFY(well.isConsistent());
    }
    for (const bool bBack : {true, false, true})
        while (bBack ? well.history().canUndo() : well.history().canRedo()) {
            bBack ? well.history().undo() : well.history().redo();
            QVERIFY(well.lines() == vStates[static_cast<std::size_t>(well.history().index())]);
            QVERIFY(well.isConsistent());
        }
    QVERIFY(well.lines().empty());
}

void TestScatScenarios::drags()
{
    Well well;
    for (const double dDepth : {1000.0, 1010.0, 1040.0, 1100.0})
        well.insert(dDepth);
    well->pick({0, 2, 3}, false);
    const int iBefore = well.history().index();
    const std::vector<Line> vStart = well.lines();
    std::mt19937 generator(3);
    for (int i = 0; i < 1000; ++i)
        well->move({0.0, static_cast<double>(generator() % 1000) / 300.0 - 1.0});
    well->endMove();
    const std::vector<Line> vEnd = well.lines();
    QCOMPARE(well.history().index(), iBefore + 1);
    QVERIFY(std::abs(vEnd[0].m_dDepth - vStart[0].m_dDepth) > 100.0);
    QVERIFY(std::abs((vEnd[2].m_dDepth - vEnd[0].m_dDepth) - 40.0) < 1e-9);
    QVERIFY(std::abs((vEnd[3].m_dDepth - vEnd[0].m_dDepth) - 100.0) < 1e-9);
    QVERIFY(vEnd[1] == vStart[1]);
    well.history().undo();
    QVERIFY(well.lines() == vStart);
    QCOMPARE(well->lines()->selectedLines(), (std::vector<int>{0, 2, 3}));

    well->move({0.0, 5.0});
    well->cancelMove();
    QVERIFY(well.lines() == vStart && !well.history().canRedo());
    for (const double dStep : {0.1, 0.2, -0.3}) // there and back, but for rounding
        well->move({0.0, dStep});
    well->endMove();
    QVERIFY(well.lines() == vStart && well.history().index() == iBefore);
    // Beyond every depth nothing goes.
    well->pick({0, 1}, false);
    well->move({0.0, 99999.0 - 1010.0});
    QVERIFY(well.lines() == vStart);
    // Nudges are one step until something else is done.
    well->move({0.0, 1.0});
    well->move({0.0, 1.0});
    well->pick({1}, false);
    well->move({0.0, 1.0});
    QCOMPARE(well.history().index(), iBefore + 2);
    QCOMPARE(well.lines()[1].m_dDepth, 1013.0);
}

void TestScatScenarios::undoInTheMiddleOfADrag()
{
    Well well;
    well.insert(1000.0);
    well->setPickedName(QStringLiteral("A"));
    well->move({0.0, 3.0});
    well->move({0.0, 4.0});
    well.history().undo();
    QCOMPARE(well.lines()[0].m_dDepth, 1000.0);
    well->move({0.0, 1.0}); // the mouse goes on
    well->endMove();
    QCOMPARE(well.lines()[0].m_dDepth, 1001.0);
    well.history().undo();
    QCOMPARE(well.lines()[0].m_sName, QStringLiteral("A"));
    well->cancelMove(); // there is none
    QCOMPARE(well.lines()[0].m_dDepth, 1000.0);
}

void TestScatScenarios::editsThatChangeNothing()
{
    constexpr double dNaN = std::numeric_limits<double>::quiet_NaN();
    Well well;
    QSignalSpy lines(well.m_pqScenarios.get(), &ScatScenarios::linesChanged);
    well->move({0.0, 1.0});
    well->erasePicked();
    well->setPickedName(QStringLiteral("A"));
    well->setLine(0, {}, QString());
    well->closeActive();
    QVERIFY(!well.insert(99999.0) && !well.insert(dNaN));
    QVERIFY(!well->save(0, path("none.txt")));
    QCOMPARE(well->count(), 0);
    QVERIFY(well.insert(5.0));
    QVERIFY(!well->insert(DepthLineField::Horizon, {0.0, 5.5}, QString(), Qt::red, 1.0));
    QCOMPARE(lines.count(), 1);

    Line line = well.lines()[0];
    line.m_dDepth = dNaN;
    well->setLine(0, line, QString());
    well->setPickedColor(QColor());
    well->setPickedColor(Qt::blue);
    well->setPickedOrientation({10.0, dNaN});
    well->move({0.0, 0.0});
    well->pick({7, -1}, true);
    QCOMPARE(lines.count(), 1);
    QCOMPARE(well.history().count(), 1);
    QCOMPARE(well->lines()->selectedLines(), std::vector<int>{0});
}

void TestScatScenarios::scenariosAreKeptApart()
{
    Well well;
    QSignalSpy active(well.m_pqScenarios.get(), &ScatScenarios::activeChanged);
    for (const double dDepth : {1.0, 2.0, 3.0}) {
        well->addNew();
        well.insert(dDepth);
    }
    QCOMPARE(well->names(), (QStringList{"Scenario_0", "Scenario_1", "Scenario_2"}));
    well->move({0.0, 10.0}); // not ended
    well->setActive(0);
    well->setActive(0);
    well->setActive(3);
    QCOMPARE(active.count(), 4);
    well->move({0.0, 20.0});
    well->setActive(1);
    well->closeActive();
    QCOMPARE(well->active(), 0);
    QVERIFY(well.isConsistent());
    // Histories of the others are where they were.
    QCOMPARE(well.lines()[0].m_dDepth, 21.0);
    well.history().undo();
    QCOMPARE(well.lines()[0].m_dDepth, 1.0);
    well->setActive(1);
    QCOMPARE(well.lines()[0].m_dDepth, 13.0);
    well.history().undo();
    QCOMPARE(well.lines()[0].m_dDepth, 3.0);
    // Names follow the count and may repeat.
    well->addNew();
    QCOMPARE(well->names(), (QStringList{"Scenario_0", "Scenario_2", "Scenario_2"}));
    well->rename(1, QStringLiteral("Base"));
    QCOMPARE(well->names(), (QStringList{"Scenario_0", "Base", "Scenario_2"}));
    QVERIFY(well->isModified(0) && well->isModified(1) && !well->isModified(2));
    QVERIFY(well.isConsistent());
    while (well->count() > 0)
        well->closeActive();
    QCOMPARE(well->active(), -1);
    QVERIFY(!well->undoGroup()->activeStack() && well.isConsistent());
}

void TestScatScenarios::files()
{
    Well well;
    well.insert(1000.0);
    well->move({0.0, 1.0});
    QString sError;
    QVERIFY(!well->save(0, path("none/well.txt"), &sError));
    QVERIFY(!sError.isEmpty() && well->isModified(0));
    QSignalSpy modified(well.m_pqScenarios.get(), &ScatScenarios::modifiedChanged);
    QVERIFY(well->save(0, path("Upper fold 1.2.txt")));
    QVERIFY(!well->isModified(0) && well.isConsistent());
    well.history().undo();
    QVERIFY(well->isModified(0));
    well.history().redo();
    QVERIFY(!well->isModified(0));
    QCOMPARE(modified.count(), 3);

    QCOMPARE(well->import(path("Upper fold 1.2.txt")), 1);
    QCOMPARE(well->name(1), QStringLiteral("Upper fold 1.2"));
    QCOMPARE(well.lines()[0].m_dDepth, 1001.0);
    QVERIFY(!well->isModified(1) && !well.history().canUndo() && well.isConsistent());
    QCOMPARE(well->import(path("none.txt"), &sError), -1);
    QCOMPARE(well->count(), 2);
    QVERIFY(sError.contains(QLatin1String("none.txt")));
}

/// Whoever listens may ask for everything at any time, and the end of the scenarios is silent.
void TestScatScenarios::closingWhileOthersListen()
{
    Well well;
    const ScatScenarios* pqScenarios = well.m_pqScenarios.get();
    int iCalls = 0;
    bool bConsistent = true;
    const auto fnAsk = [&] {
        ++iCalls;
        bConsistent = bConsistent && well.isConsistent();
    };
    for (const auto fnSignal : {&ScatScenarios::scenariosChanged, &ScatScenarios::activeChanged,
                                &ScatScenarios::linesChanged, &ScatScenarios::modifiedChanged})
        connect(pqScenarios, fnSignal, this, fnAsk);
    for (int i = 0; i < 3; ++i) {
        well->addNew();
        well.insert(i);
        well->move({0.0, 1.0});
        well.history().undo();
    }
    well->setActive(1);
    well->closeActive();
    QVERIFY(bConsistent && iCalls > 20);
    iCalls = 0;
    well.m_pqScenarios.reset();
    QCOMPARE(iCalls, 0);
}

void TestScatScenarios::defaultNames()
{
    ScatLineDefaults defaults;
    QStringList lNames;
    for (const auto eType :
         {DepthLineField::AxialPlane, DepthLineField::Horizon, DepthLineField::Fault, DepthLineField::Horizon})
        lNames << defaults.nextName(eType);
    defaults.restart();
    lNames << defaults.nextName(DepthLineField::Horizon);
    QCOMPARE(lNames, (QStringList{"Dummy", "Horizon_0", "Fault0", "Horizon_1", "Horizon_0"}));
}

QTEST_GUILESS_MAIN(TestScatScenarios)
#include "tst_scatscenarios.moc"
