#include "AttributeTable.h"
#include "CellChange.h"
#include "DisplayUnitManager.h"
#include "MissingValue.h"
#include "QVertexItemModel.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

using namespace gkBase;

using M = CellModification::Method;

class tst_CellChange : public QObject
{
    Q_OBJECT

private slots:
    void error_data();
    void error();
    void calculation_data();
    void calculation();
    void displayUnits();
    void setAndClear_data();
    void setAndClear();
    void gapsAreFilledInsideRunsOnly();
    void columnsChangeInTheirOwnWay();
};

void tst_CellChange::error_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("method");
    QTest::addColumn<QString>("operand");
    QTest::addColumn<bool>("wrong");
    const auto row = [](const char* szName, QMetaType::Type eType, M eMethod, const char* szOperand, bool bWrong) {
        QTest::newRow(szName) << int(eType) << int(eMethod) << QString::fromUtf8(szOperand) << bWrong;
    };
    row("number", QMetaType::Double, M::Add, "-1.5e3", false);
    row("comma", QMetaType::Double, M::Set, "1,5", false);
    row("nothing", QMetaType::Double, M::Set, "", true);
    row("text", QMetaType::Double, M::Set, "sand", true);
    row("endless", QMetaType::Double, M::Set, "inf", true);
    row("zero", QMetaType::Double, M::Divide, "-0.0", true);
    row("multiply by zero", QMetaType::Double, M::Multiply, "0", false);
    row("clear", QMetaType::Double, M::Clear, "sand", false);
    row("beyond int", QMetaType::Int, M::Set, "3e9", true);
    row("factor of int", QMetaType::Int, M::Multiply, "3e9", false);
    row("text column", QMetaType::QString, M::Set, " ", false);
    row("text without a text", QMetaType::QString, M::Set, "", true);
    row("text calculates", QMetaType::QString, M::Add, "1", true);
    row("flag", QMetaType::Bool, M::Set, "True", false);
    row("no flag", QMetaType::Bool, M::Set, "2", true);
    row("flags have no gaps", QMetaType::Bool, M::Interpolate, "", true);
    row("colour", QMetaType::QColor, M::Set, " orange", false);
    row("no colour", QMetaType::QColor, M::Set, "#12345g", true);
}

void tst_CellChange::error()
{
    QFETCH(int, type);
    QFETCH(int, method);
    QFETCH(QString, operand);
    const CellChange oChange(static_cast<M>(method), operand);
    QTEST(!oChange.error(static_cast<QMetaType::Type>(type)).isEmpty(), "wrong");
}

void tst_CellChange::calculation_data()
{
    QTest::addColumn<int>("method");
    QTest::addColumn<double>("operand");
    QTest::addColumn<QList<double>>("doubles"); // of 2, missing, -3, 99999, 1e308
    QTest::addColumn<QList<int>>("ints");       // of 2, missing, -3, 2147483647; an entry that stays is missing here
    const double dMissing = g_dMissingValue;
    const int iStays = -99;
    QTest::newRow("add") << int(M::Add) << 0.5 << QList<double>{2.5, dMissing, -2.5, dMissing, dMissing}
                         << QList<int>{3, iStays, -2, iStays};
    QTest::newRow("add 0") << int(M::Add) << 0.0 << QList<double>(5, dMissing) << QList<int>(4, iStays);
    QTest::newRow("subtract") << int(M::Subtract) << 99999.0
                              << QList<double>{-99997, dMissing, -100002, dMissing, dMissing}
                              << QList<int>{-99997, iStays, -100002, 2147383648};
    QTest::newRow("multiply") << int(M::Multiply) << 1000.0 << QList<double>{2000, dMissing, -3000, dMissing, dMissing}
                              << QList<int>{2000, iStays, -3000, iStays};
    QTest::newRow("divide") << int(M::Divide) << 4.0 << QList<double>{0.5, dMissing, -0.75, dMissing, 2.5e307}
                            << QList<int>{1, iStays, -1, 536870912};
    QTest::newRow("divide by 0") << int(M::Divide) << 0.0 << QList<double>(5, dMissing) << QList<int>(4, iStays);
}

void tst_CellChange::calculation()
{
    QFETCH(int, method);
    QFETCH(double, operand);
    QFETCH(QList<double>, doubles);
    QFETCH(QList<int>, ints);
    const CellChange oChange(static_cast<M>(method), operand);

    MatrixData oDouble(QStringLiteral("D"), 0, 1);
    oDouble.setColumn(0, MatrixColumn::fromDoubles({2, g_dEmptyCell, -3, g_dMissingValue, 1e308}));
    std::vector<int> viRecords{0, 1, 2, 3, 4, 5}; // the last is past the end
    ChangedCells oChanged = oChange.changedCells(oDouble, viRecords);
    QList<double> lDoubles(5, g_dMissingValue);
    for (std::size_t i = 0; i < oChanged.m_viRecords.size(); ++i)
        lDoubles[oChanged.m_viRecords[i]] = oChanged.value(static_cast<int>(i)).toDouble();
    for (int i = 0; i < 5; ++i)
        if (!isMissing(doubles[i]) || !isMissing(lDoubles[i]))
            QVERIFY2(std::abs(lDoubles[i] - doubles[i]) <= 1e-12 * std::abs(doubles[i]),
                     qPrintable(QString::number(i)));

    MatrixData oInt(QStringLiteral("I"), 0, 1, QMetaType::Int);
    MatrixColumn oCells(QMetaType::Int, 4);
    oCells.setValue(0, 2);
    oCells.setValue(2, -3);
    oCells.setValue(3, 2147483647);
    oInt.setColumn(0, oCells);
    oChanged = oChange.changedCells(oInt, viRecords);
    QList<int> lInts(4, -99);
    for (std::size_t i = 0; i < oChanged.m_viRecords.size(); ++i)
        lInts[oChanged.m_viRecords[i]] = oChanged.value(static_cast<int>(i)).toInt();
    QCOMPARE(lInts, ints);
}

void tst_CellChange::displayUnits()
{
    const AttributeTable table;
    QVERIFY(table.m_poX->unitManager()->displayUnit(QStringLiteral("ft")));
    const ChangedCells oAdded = CellChange(M::Add, 10).changedCells(*table.m_poX, {4});
    const ChangedCells oSet = CellChange(M::Set, QStringLiteral("10")).changedCells(*table.m_poX, {4});
    const ChangedCells oDoubled = CellChange(M::Multiply, 2).changedCells(*table.m_poX, {4});
    const ChangedCells oSame = CellChange(M::Multiply, 1).changedCells(*table.m_poX, {1, 2, 3, 4});
    QVERIFY(table.m_poX->unitManager()->displayUnit(QString()));
    const double dOld = table.m_poX->recordNumber(4);
    QVERIFY(std::abs(oAdded.value(0).toDouble() - (dOld + 3.048)) < 1e-9);
    QVERIFY(std::abs(oSet.value(0).toDouble() - 3.048) < 1e-9);
    QVERIFY(std::abs(oDoubled.value(0).toDouble() - 2 * dOld) < 1e-9);
    QVERIFY(oSame.m_viRecords.empty()); // converting there and back is no change
}

void tst_CellChange::setAndClear_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<QVariant>("operand");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("already"); // cells of 25 that have the value
    QTest::newRow("double") << "X" << QVariant(7) << QVariant(7.0) << 0;
    QTest::newRow("int") << "N" << QVariant(QStringLiteral("110.4")) << QVariant(110) << 1;
    QTest::newRow("text") << "T" << QVariant(QStringLiteral("-3")) << QVariant(QStringLiteral("-3")) << 1;
    QTest::newRow("new text") << "T" << QVariant(QStringLiteral("clay")) << QVariant(QStringLiteral("clay")) << 0;
    QTest::newRow("flag") << "B" << QVariant(QStringLiteral("false")) << QVariant(false) << 12;
    QTest::newRow("colour") << "C" << QVariant(QColor(5, 0, 255)) << QVariant(QColor(5, 0, 255)) << 1;
}

void tst_CellChange::setAndClear()
{
    QFETCH(QString, attribute);
    QFETCH(QVariant, operand);
    QFETCH(QVariant, stored);
    QFETCH(int, already);
    AttributeTable table;
    const MatrixData oBefore(*table.m_poRoot);
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    MatrixData* poNode = table.m_poRoot->getNodeFromName(attribute);
    int iColumn = 0;
    while (model.getNode(iColumn) != poNode)
        ++iColumn;
    CellRuns oCells(model.columnCount());
    oCells.setColumn(iColumn, {{0, 27}}); // with the summary rows
    const ChangedCells oChanged = model.changedCells(oCells, iColumn, CellChange(M::Set, operand));
    QCOMPARE(int(oChanged.m_viRecords.size()), 25 - already);
    QVERIFY(model.modifySelectedCells(oCells, operand, M::Set));
    for (int iRow = 3; iRow < 28; ++iRow)
        QCOMPARE(poNode->value(iRow, 0), stored);
    QVERIFY(!model.modifySelectedCells(oCells, operand, M::Set)); // no record for nothing
    QVERIFY(model.modifySelectedCells(oCells, QVariant(), M::Clear));
    QVERIFY(!poNode->value(3, 0).isValid());
    QVERIFY(table.m_poRoot->undo() && table.m_poRoot->undo());
    QVERIFY(table.m_poRoot->isIdenticalTo(oBefore));
    QVERIFY(!table.m_poRoot->undo());
}

void tst_CellChange::gapsAreFilledInsideRunsOnly()
{
    MatrixData oData(QStringLiteral("D"), 0, 1);
    const double dGap = g_dEmptyCell;
    oData.setColumn(0, MatrixColumn::fromDoubles({dGap, 1, dGap, 3, dGap, dGap, 6, dGap, dGap, g_dMissingValue, 10}));
    const auto filled = [&](const std::vector<int>& viRecords) {
        std::map<int, double> oFilled;
        const ChangedCells oChanged = CellChange(M::Interpolate).changedCells(oData, viRecords);
        for (std::size_t i = 0; i < oChanged.m_viRecords.size(); ++i)
            oFilled[oChanged.m_viRecords[i]] = oChanged.value(static_cast<int>(i)).toDouble();
        return oFilled;
    };
    using Filled = std::map<int, double>;
    QCOMPARE(filled({0, 1, 2}), (Filled{{2, 2.0}}));
    QCOMPARE(filled({2, 4}), (Filled{{2, 2.0}}));                        // the gap 4 … 5 goes on past its run
    QCOMPARE(filled({2, 4, 5}), (Filled{{2, 2.0}, {4, 4.0}, {5, 5.0}})); // values beside the runs serve
    QCOMPARE(filled({7, 8, 9, 10, 11, 12}), (Filled{{7, 7.0}, {8, 8.0}, {9, 9.0}}));
    QCOMPARE(filled({11, 12}), Filled{});
}

void tst_CellChange::columnsChangeInTheirOwnWay()
{
    AttributeTable table;
    table.m_poT->setEditable(false);
    const MatrixData oBefore(*table.m_poRoot);
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    const CellRuns oRows = CellRuns::ofRows({{3, 4}}, model.columnCount());
    QVertexItemModel::ColumnChanges oChanges;
    oChanges[1] = CellChange(M::Add, 5);
    oChanges[2] = CellChange(M::Clear);
    oChanges[3] = CellChange(M::Set, QStringLiteral("true"));
    oChanges[99] = CellChange(M::Clear);
    QVERIFY(model.modifySelectedCells(oRows, oChanges));
    QCOMPARE(table.m_poN->value(4, 0).toInt(), 106);
    QVERIFY(table.m_poT->value(4, 0).isValid()); // read-only
    QVERIFY(table.m_poB->value(4, 0).toBool());
    QCOMPARE(table.m_poX->value(4, 0), oBefore.child(0)->child(0)->value(4, 0));
    QVERIFY(table.undoName().startsWith(QStringLiteral("Modify Cell(s):")));
    QVERIFY(table.undoName().endsWith(QStringLiteral(": column=N")));
    QVERIFY(table.m_poRoot->undo()); // one record for all
    QVERIFY(table.m_poRoot->isIdenticalTo(oBefore));
}

QTEST_GUILESS_MAIN(tst_CellChange)
#include "tst_cellchange.moc"
