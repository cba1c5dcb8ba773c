#include "CellCondition.h"
#include "MatrixColumn.h"
#include "UnitManager.h"

#include <QColor>
#include <QTest>

#include <memory>

using namespace gkBase;

class tst_CellCondition : public QObject
{
    Q_OBJECT

private slots:
    void flags_data();
    void flags();
    void shownNumbers();
};

namespace {

MatrixColumn column(QMetaType::Type eType, const QVariantList& lCells)
{
    MatrixColumn result(eType);
    for (const QVariant& qCell : lCells)
        result.appendValue(qCell);
    return result;
}

/// '1' for a flagged cell.
QString flagged(const CellCondition& condition, const MatrixColumn& cells, const UnitManager* poUnit = nullptr)
{
    const auto iSize = static_cast<std::size_t>(cells.size());
    const std::unique_ptr<bool[]> pbFlags(new bool[iSize]);
    const int iCount = condition.flagCells(cells, poUnit, {pbFlags.get(), iSize});
    QString sFlags;
    for (std::size_t i = 0; i < iSize; ++i)
        sFlags += pbFlags[i] ? u'1' : u'0';
    return sFlags.count(u'1') == iCount ? sFlags : QStringLiteral("wrong count");
}

} // namespace

void tst_CellCondition::flags_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVariantList>("cells");
    QTest::addColumn<int>("method");
    QTest::addColumn<QString>("value1");
    QTest::addColumn<QString>("value2");
    QTest::addColumn<QString>("expected");
    using C = CellCondition;
    const int iDouble = QMetaType::Double;
    const QVariantList lNumbers{-1.0, 2.0, 2.004, 3.5, QVariant(), 99999.0};
    QTest::newRow("equal as shown") << iDouble << lNumbers << int(C::Equal) << "2"
                                    << ""
                                    << "011000";
    QTest::newRow("more decimals typed") << iDouble << lNumbers << int(C::Equal) << "2.0040"
                                         << ""
                                         << "001000";
    QTest::newRow("exponent") << iDouble << lNumbers << int(C::Equal) << " 2.004e0"
                              << ""
                              << "001000";
    QTest::newRow("missing is not unequal") << iDouble << lNumbers << int(C::NotEqual) << "2"
                                            << ""
                                            << "100100";
    QTest::newRow("less leaves equal out") << iDouble << lNumbers << int(C::Less) << "2"
                                           << ""
                                           << "100000";
    QTest::newRow("greater leaves equal out") << iDouble << lNumbers << int(C::Greater) << "2"
                                              << ""
                                              << "000100";
    QTest::newRow("limits in either order") << iDouble << lNumbers << int(C::Between) << "3.5"
                                            << "2"
                                            << "011100";
    QTest::newRow("outside") << iDouble << lNumbers << int(C::Outside) << "2"
                             << "3"
                             << "100100";
    QTest::newRow("empty") << iDouble << lNumbers << int(C::Empty) << ""
                           << ""
                           << "000011";
    QTest::newRow("shown text") << iDouble << lNumbers << int(C::Contains) << ".0"
                                << ""
                                << "111000";
    QTest::newRow("no number") << iDouble << lNumbers << int(C::NotEqual) << "2,5,0"
                               << ""
                               << "000000";
    QTest::newRow("second value missing") << iDouble << lNumbers << int(C::Between) << "2"
                                          << ""
                                          << "000000";

    const int iInt = QMetaType::Int;
    const QVariantList lInts{9, 10, 11, QVariant()};
    QTest::newRow("integers") << iInt << lInts << int(C::Greater) << "9"
                              << ""
                              << "0110";
    QTest::newRow("no integer equals a half") << iInt << lInts << int(C::Equal) << "9.5"
                                              << ""
                                              << "0000";
    QTest::newRow("integers have no decimals") << iInt << lInts << int(C::Contains) << "0"
                                               << ""
                                               << "0100";

    const int iText = QMetaType::QString;
    const QVariantList lTexts{"Sand", "sandstone", "Clay", "Sand", QVariant(), ""};
    QTest::newRow("text exactly") << iText << lTexts << int(C::Equal) << "Sand"
                                  << ""
                                  << "100100";
    QTest::newRow("text in any case") << iText << lTexts << int(C::Contains) << "SAND"
                                      << ""
                                      << "110100";
    QTest::newRow("text range") << iText << lTexts << int(C::Between) << "Sand"
                                << "C"
                                << "101100";
    QTest::newRow("other texts") << iText << lTexts << int(C::NotEqual) << "Clay"
                                 << ""
                                 << "110100";
    QTest::newRow("text without characters") << iText << lTexts << int(C::Empty) << ""
                                             << ""
                                             << "000011";

    const int iColor = QMetaType::QColor;
    const QVariantList lColors{QColor(255, 0, 0), QColor(1, 2, 0xab), QVariant()};
    QTest::newRow("colour name") << iColor << lColors << int(C::Equal) << "red"
                                 << ""
                                 << "100";
    QTest::newRow("colour code") << iColor << lColors << int(C::NotEqual) << "#FF0000"
                                 << ""
                                 << "010";
    QTest::newRow("part of a code") << iColor << lColors << int(C::Contains) << "#0102AB"
                                    << ""
                                    << "010";
    QTest::newRow("colours have no order") << iColor << lColors << int(C::Less) << "red"
                                           << ""
                                           << "000";

    const int iBool = QMetaType::Bool;
    const QVariantList lBools{true, false, QVariant()};
    QTest::newRow("true") << iBool << lBools << int(C::Equal) << "TRUE"
                          << ""
                          << "100";
    QTest::newRow("not true") << iBool << lBools << int(C::NotEqual) << "1"
                              << ""
                              << "010";
    QTest::newRow("part of false") << iBool << lBools << int(C::Contains) << "als"
                                   << ""
                                   << "010";
    QTest::newRow("no flag") << iBool << lBools << int(C::NotEqual) << "maybe"
                             << ""
                             << "000";
}

void tst_CellCondition::flags()
{
    QFETCH(int, type);
    QFETCH(QVariantList, cells);
    QFETCH(int, method);
    QFETCH(QString, value1);
    QFETCH(QString, value2);
    const CellCondition condition(static_cast<CellCondition::Method>(method), value1, value2);
    QTEST(flagged(condition, column(static_cast<QMetaType::Type>(type), cells)), "expected");
}

// Whatever the display unit does, a number is equal to what is shown of it, and less, equal and greater exclude each
// other.
void tst_CellCondition::shownNumbers()
{
    UnitManager oUnit(QStringLiteral("length"), QStringLiteral("m"), 1);
    if (!oUnit.displayUnit(QStringLiteral("ft")))
        QSKIP("no conversion from metres to feet");
    const MatrixColumn cells = column(QMetaType::Double, {0.0, 0.3048, 3.048, -12.34, 1234.5678, QVariant()});
    for (int i = 0; i < 5; ++i) {
        const QString sShown = QString::number(oUnit.convertModelToDisplay(cells.number(i)), 'f', 1);
        const QString sEqual = flagged(CellCondition(CellCondition::Equal, sShown), cells, &oUnit);
        const QString sLess = flagged(CellCondition(CellCondition::Less, sShown), cells, &oUnit);
        const QString sGreater = flagged(CellCondition(CellCondition::Greater, sShown), cells, &oUnit);
        QCOMPARE(sEqual[i], u'1');
        QCOMPARE(flagged(CellCondition(CellCondition::Contains, sShown), cells, &oUnit)[i], u'1');
        for (int k = 0; k < 5; ++k)
            QCOMPARE((sEqual[k] == u'1') + (sLess[k] == u'1') + (sGreater[k] == u'1'), 1);
        QCOMPARE(sLess[5], u'0');
    }
    // One cell short: what lies past the end is empty.
    bool bFlags[7];
    QCOMPARE(CellCondition(CellCondition::Empty).flagCells(cells, &oUnit, bFlags), 2);
    oUnit.displayUnit(QStringLiteral("m"));
}

QTEST_GUILESS_MAIN(tst_CellCondition)
#include "tst_cellcondition.moc"
