#include "MatrixColumn.h"
#include "MissingValue.h"

#include <QBuffer>
#include <QDataStream>
#include <QTest>

#include <bit>
#include <cmath>

using namespace gkBase;

namespace {

const std::vector<QMetaType::Type> vTypes = {QMetaType::Double, QMetaType::Int, QMetaType::Bool, QMetaType::QString,
                                             QMetaType::QColor};

/// A value of the type that differs with n; every fifth is missing.
QVariant sample(QMetaType::Type eType, int n)
{
    if (n % 5 == 4)
        return QVariant();
    switch (eType) {
    case QMetaType::Double:
        return n / 7.0;
    case QMetaType::Int:
        return n - 3;
    case QMetaType::Bool:
        return n % 2 == 0;
    case QMetaType::QColor:
        return QColor(n % 256, 20, 30);
    default:
        return QString("t%1").arg(n % 6);
    }
}

MatrixColumn filled(QMetaType::Type eType, int iSize)
{
    MatrixColumn column(eType);
    for (int i = 0; i < iSize; ++i)
        column.appendValue(sample(eType, i));
    return column;
}

} // namespace

class TestMatrixColumn : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void keepsCellsOfEveryType_data()
    {
        QTest::addColumn<int>("iType");
        for (QMetaType::Type eType : vTypes)
            QTest::newRow(QMetaType(eType).name()) << int(eType);
    }
    /// The same column made by appending, by writing into missing cells, by inserting at the front, and in two parts.
    void keepsCellsOfEveryType()
    {
        QFETCH(int, iType);
        const auto eType = static_cast<QMetaType::Type>(iType);
        const int iSize = 43;
        const MatrixColumn column = filled(eType, iSize);
        MatrixColumn written(eType, iSize);
        MatrixColumn inserted(eType);
        std::vector<std::int32_t> viAll;
        for (int i = 0; i < iSize; ++i) {
            QCOMPARE(column.value(i), sample(eType, i));
            QCOMPARE(column.isMissing(i), i % 5 == 4);
            written.setValue(iSize - 1 - i, sample(eType, iSize - 1 - i));
            inserted.insertValue(0, sample(eType, iSize - 1 - i));
            viAll.push_back(i);
        }
        MatrixColumn parts = column.mid(0, 20);
        parts.append(column.mid(20, 1000));
        QVERIFY(written == column && inserted == column && parts == column && column.gather(viAll) == column);

        MatrixColumn changed = column;
        changed.setMissing(3);
        QVERIFY(!(changed == column));
        MatrixColumn block = column.mid(3, 1);
        changed.swapCell(3, block, 0);
        QVERIFY(changed == column && block.isMissing(0));
        changed.resize(41);
        QCOMPARE(changed.usedSize(), 41);
        changed.resize(43);
        QVERIFY(changed.isMissing(41) && changed.isMissing(42) && !(changed == column));
        QCOMPARE(changed.usedSize(), 41);
    }

    void exchangesCells_data()
    {
        QTest::addColumn<int>("iCells"); // few of them keep texts of their own
        QTest::newRow("few") << 2;
        QTest::newRow("many") << 90;
    }

    void exchangesCells()
    {
        QFETCH(int, iCells);
        for (QMetaType::Type eType : vTypes) {
            const MatrixColumn before = filled(eType, 42);
            MatrixColumn cells(eType);
            for (int j = 0; j < iCells; ++j)
                cells.appendValue(sample(eType, 1003 + j));
            const MatrixColumn cellsBefore = cells;
            MatrixColumn column = before;
            MatrixColumn expected = before;
            const auto cellOf = [](int j) { return (j * 5) % 44 - 1; }; // some twice, some out of range
            for (int j = 0; j < iCells; ++j) {
                expected.setValue(cellOf(j), cellsBefore.value(j));
                column.swapCell(cellOf(j), cells, j);
            }
            QVERIFY(column == expected);
            for (int j = iCells - 1; j >= 0; --j)
                column.swapCell(cellOf(j), cells, j);
            QVERIFY(column == before && cells == cellsBefore);
        }
    }

    void ignoresCellsOutOfRange()
    {
        for (QMetaType::Type eType : vTypes) {
            MatrixColumn column = filled(eType, 3);
            const MatrixColumn before = column;
            for (int i : {-1, 3, 1 << 30}) {
                column.setValue(i, sample(eType, 0));
                column.setMissing(i);
                QVERIFY(!column.value(i).isValid() && std::isnan(column.number(i)) && column.isMissing(i));
            }
            QVERIFY(column == before);
        }
    }

    void readsMissingMarksAsMissing()
    {
        MatrixColumn column = MatrixColumn::fromDoubles({1.0, 99999.0, std::nan(""), INFINITY});
        const std::vector<double> vdNumbers = column.numbers();
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(std::isnan(column.number(i)), i > 0);
            QCOMPARE(std::isnan(vdNumbers[size_t(i)]), i > 0);
        }
        QCOMPARE(column.value(1), QVariant(99999.0)); // the cell itself is kept
        column.setValue(0, QVariant(std::nan("")));
        QVERIFY(column.isMissing(0));
    }

    void equalityIsBitForBit()
    {
        const double dNaN = std::bit_cast<double>(std::bit_cast<quint64>(std::nan("")) + 7);
        QVERIFY(MatrixColumn::fromDoubles({std::nan("")}) == MatrixColumn::fromDoubles({dNaN}));
        QVERIFY(!(MatrixColumn::fromDoubles({0.0}) == MatrixColumn::fromDoubles({-0.0})));
    }

    void sharesTexts()
    {
        MatrixColumn column(QMetaType::QString);
        for (int i = 0; i < 1000; ++i)
            column.appendText(QString::number(i % 10));
        QCOMPARE(column.texts().size(), size_t(10));
        QCOMPARE(column.textCodes()[13], column.textCodes()[3]);
        MatrixColumn copy = column;
        copy.setText(0, "new"); // must not change the texts of the other
        QCOMPARE(column.texts().size(), size_t(10));
        QCOMPARE(column.text(0), QString("0"));
        QCOMPARE(copy.text(0), QString("new"));
        QCOMPARE(copy.text(11), QString("1"));
    }

    /// Cells taken out of a column for undo hold neither more than they need nor the column's table.
    void gathersFewTextsWithoutTheOthers()
    {
        MatrixColumn column(QMetaType::QString);
        for (int i = 0; i < 1000; ++i)
            column.appendText(QString::number(i));
        column.setMissing(8);
        const MatrixColumn before = column;
        const std::vector<std::int32_t> viCells{900, 7, 8};
        MatrixColumn cells = column.gather(viCells);
        QCOMPARE(cells.texts().size(), size_t(2));
        QVERIFY(cells.text(0) == "900" && cells.text(1) == "7" && cells.isMissing(2));
        for (std::int32_t i : viCells)
            column.setText(i, "new");
        for (int i = 0; i < cells.size(); ++i)
            column.swapCell(viCells[size_t(i)], cells, i);
        QVERIFY(cells.text(2) == "new");
        QVERIFY(column == before);
    }

    void converts()
    {
        MatrixColumn texts(QMetaType::QString);
        for (const char* pText : {"2.5", "abc", "", "-3"})
            texts.appendText(pText);
        const MatrixColumn numbers = texts.converted(QMetaType::Double);
        QCOMPARE(numbers.value(0), QVariant(2.5));
        QVERIFY(numbers.isMissing(1) && numbers.isMissing(2));
        QCOMPARE(numbers.converted(QMetaType::QString).text(3), QString("-3"));
        const MatrixColumn flags = texts.converted(QMetaType::Bool);
        QVERIFY(flags.value(0).toBool() && flags.isMissing(1) && flags.isMissing(2) && flags.value(3).toBool());
        MatrixColumn ints(QMetaType::Int);
        for (const QVariant& qValue :
             {QVariant(2147483647.0), QVariant(5e9), QVariant(-2147483649.0), QVariant("-2.6")})
            ints.appendValue(qValue);
        QCOMPARE(ints.value(0), QVariant(2147483647));
        QVERIFY(ints.isMissing(1) && ints.isMissing(2)); // not a wrapped number
        QCOMPARE(ints.value(3), QVariant(-3));
        MatrixColumn colors(QMetaType::QColor, 2);
        colors.setValue(0, "#0000ff");
        colors.setValue(1, "no colour");
        QCOMPARE(colors.color(0), QColor(Qt::blue));
        QVERIFY(colors.isMissing(1));
    }

    void streamsEveryType()
    {
        for (QMetaType::Type eType : vTypes) {
            const MatrixColumn column = filled(eType, 70001); // more than one block
            QByteArray oBytes;
            QDataStream out(&oBytes, QIODevice::WriteOnly);
            column.write(out);
            column.write(out, 12);
            QDataStream in(oBytes);
            const auto oWhole = MatrixColumn::read(in);
            const auto oPart = MatrixColumn::read(in);
            QVERIFY(oWhole && *oWhole == column);
            QVERIFY(oPart && *oPart == column.mid(0, 12));
            QVERIFY(in.atEnd());
        }
    }
};

QTEST_APPLESS_MAIN(TestMatrixColumn)
#include "tst_matrixcolumn.moc"
