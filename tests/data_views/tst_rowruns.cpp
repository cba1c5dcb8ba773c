#include "CellRuns.h"
#include "RowRuns.h"
#include "TableRowMap.h"

#include <QRandomGenerator>
#include <QStandardItemModel>
#include <QTest>

#include <memory>
#include <set>

using namespace gkBase;

namespace {

constexpr int s_iRows = 60;

std::set<int> rowSet(const RowRuns& vRuns)
{
    const std::vector<int> viRows = rowsOfRuns(vRuns);
    return {viRows.begin(), viRows.end()};
}

bool isNormal(const RowRuns& vRuns)
{
    return normalizedRuns(vRuns) == vRuns;
}

RowRuns randomRuns(QRandomGenerator& generator)
{
    const std::unique_ptr<bool[]> pbFlags(new bool[s_iRows]);
    const int iShare = generator.bounded(5); // 0: no row, 4: all
    for (int i = 0; i < s_iRows; ++i)
        pbFlags[i] = generator.bounded(4) < iShare;
    return runsOfFlags(pbFlags.get(), s_iRows);
}

} // namespace

class tst_RowRuns : public QObject
{
    Q_OBJECT

private slots:
    void laws();
    void normalized();
    void cells();
    void rowMap_data();
    void rowMap();
};

void tst_RowRuns::laws()
{
    QRandomGenerator generator(7);
    for (int iRound = 0; iRound < 300; ++iRound) {
        const RowRuns vA = randomRuns(generator);
        const RowRuns vB = randomRuns(generator);
        const std::set<int> a = rowSet(vA);
        const std::set<int> b = rowSet(vB);
        const RowRuns vResults[] = {complementOfRuns(vA, s_iRows), unitedRuns(vA, vB), intersectedRuns(vA, vB),
                                    toggledRuns(vA, vB)};
        std::set<int> expected[4];
        for (int i = 0; i < s_iRows; ++i) {
            const bool bA = a.count(i) > 0;
            const bool bB = b.count(i) > 0;
            QCOMPARE(runsContain(vA, i), bA);
            const bool pbIn[] = {!bA, bA || bB, bA && bB, bA != bB};
            for (int k = 0; k < 4; ++k)
                if (pbIn[k])
                    expected[k].insert(i);
        }
        for (int k = 0; k < 4; ++k) {
            QVERIFY(rowSet(vResults[k]) == expected[k]);
            QVERIFY(isNormal(vResults[k]));
        }
        QCOMPARE(countOfRuns(vA), int(a.size()));
        QVERIFY(complementOfRuns(vResults[0], s_iRows) == vA);
        QVERIFY(runsOfRows(rowsOfRuns(vA)) == vA);
    }
}

void tst_RowRuns::normalized()
{
    QVERIFY((normalizedRuns({{7, 9}, {3, 2}, {0, 1}, {2, 4}, {8, 12}}) == RowRuns{{0, 4}, {7, 12}}));
    QVERIFY((runsOfRows({1, 1, 2, 5}) == RowRuns{{1, 2}, {5, 5}}));
    QVERIFY(runsOfFlags(nullptr, 3).empty());
    const bool pbFlags[] = {true, false, true, true};
    QVERIFY((runsOfFlags(pbFlags, 4, 3) == RowRuns{{3, 3}, {5, 6}}));
}

void tst_RowRuns::cells()
{
    QStandardItemModel model(s_iRows, 3);
    QRandomGenerator generator(8);
    for (int iRound = 0; iRound < 50; ++iRound) {
        CellRuns a(3);
        CellRuns b(3);
        for (int iColumn = 0; iColumn < 3; ++iColumn) {
            a.setColumn(iColumn, randomRuns(generator));
            b.setColumn(iColumn, iColumn == 1 ? a.column(0) : randomRuns(generator));
        }
        const CellRuns oInverse = a.complement(s_iRows);
        const CellRuns oToggled = a.toggled(b);
        const CellRuns oBack = CellRuns::ofSelection(b.toSelection(model), 3);
        QCOMPARE(a.cellCount() + oInverse.cellCount(), qint64(3 * s_iRows));
        for (int iRow = 0; iRow < s_iRows; ++iRow) {
            int iIn = 0;
            for (int iColumn = 0; iColumn < 3; ++iColumn) {
                const bool bA = a.contains(iRow, iColumn);
                const bool bB = b.contains(iRow, iColumn);
                iIn += bA;
                QCOMPARE(oInverse.contains(iRow, iColumn), !bA);
                QCOMPARE(oToggled.contains(iRow, iColumn), bA != bB);
                QCOMPARE(oBack.contains(iRow, iColumn), bB);
            }
            QCOMPARE(runsContain(a.fullRows(), iRow), iIn == 3);
            QCOMPARE(runsContain(a.touchedRows(), iRow), iIn > 0);
        }
        QCOMPARE(int(b.toSelection(model).size()), b.rangeCount());
    }
}

void tst_RowRuns::rowMap_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<QList<int>>("list");
    QTest::addColumn<QList<int>>("rows");
    QTest::addColumn<QStringList>("labels");
    QTest::addColumn<QList<int>>("selected"); // table rows of the records 0, 9 and 19
    QTest::newRow("plain") << -1 << QList<int>() << QList<int>{0, 1, 2, 3, 4}
                           << QStringList{"Minimum", "Mean", "Maximum", "1", "2"} << QList<int>{3};
    QTest::newRow("step 0 is none") << 0 << QList<int>() << QList<int>{0, 1, 2, 3, 4}
                                    << QStringList{"Minimum", "Mean", "Maximum", "1", "2"} << QList<int>{3};
    QTest::newRow("thinned") << 10 << QList<int>() << QList<int>{3, 12, 22, 32} << QStringList{"1", "10", "20", "30"}
                             << QList<int>{0, 1, 2};
    QTest::newRow("step 1") << 1 << QList<int>() << QList<int>{3, 3, 4} << QStringList{"1", "1", "2"}
                            << QList<int>{0, 1};
    QTest::newRow("list") << -1 << QList<int>{4, 12, 30} << QList<int>{4, 12, 30}
                          << QStringList{"Minimum", "Mean", "Maximum"} << QList<int>{1};
    QTest::newRow("thinned list, past its end")
        << 2 << QList<int>{4, 12, 30} << QList<int>{4, 30, 30} << QStringList{"2", "28", "30"} << QList<int>();
}

void tst_RowRuns::rowMap()
{
    QFETCH(int, step);
    QFETCH(QList<int>, list);
    QFETCH(QList<int>, rows);
    QFETCH(QStringList, labels);
    QFETCH(QList<int>, selected);
    TableRowMap map;
    map.m_iRowOffSet = 3;
    map.setStep(step);
    map.m_viSheetRows.assign(list.begin(), list.end());
    for (int i = 0; i < rows.size(); ++i) {
        QCOMPARE(map.sheetRow(i), rows[i]);
        QCOMPARE(map.label(i), labels[i]);
    }
    bool pbFlags[20] = {};
    pbFlags[0] = pbFlags[9] = pbFlags[19] = true;
    const std::vector<int> viTableRows = rowsOfRuns(map.tableRowsOfRecords(pbFlags, 20, int(rows.size())));
    QCOMPARE(QList<int>(viTableRows.begin(), viTableRows.end()), selected);
    for (const int iRecord : map.recordsOfTableRows(runsOfRows(viTableRows)))
        QVERIFY(pbFlags[iRecord]);
}

QTEST_GUILESS_MAIN(tst_RowRuns)
#include "tst_rowruns.moc"
