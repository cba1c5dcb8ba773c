#include "CsvImporter.h"
#include "FileImporter.h"

#include <gkBase/MatrixData.h>
#include <gkBase/UnitRegistry.h>

#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace gkHost;

namespace {

ImportResult read(const QByteArray& qBytes, const ImportOptions& options = {})
{
    return CsvImporter::readBytes(qBytes, QStringLiteral("file.csv"), options);
}

const char* typeName(QMetaType::Type eType)
{
    return eType == QMetaType::QString ? "text" : QMetaType(eType).name();
}

/// "name [unit] type: cell|cell|…" per column; a missing cell is "~".
QStringList dump(const ImportResult& result)
{
    QStringList lLines;
    for (const ImportTable& table : result.m_vTables) {
        for (const ImportColumn& column : table.m_vColumns) {
            QStringList lCells;
            for (int i = 0; i < column.m_oValues.size(); ++i) {
                const QVariant qValue = column.m_oValues.value(i);
                lCells << (!qValue.isValid()                      ? QStringLiteral("~")
                           : qValue.typeId() == QMetaType::QColor ? qValue.value<QColor>().name()
                                                                  : qValue.toString());
            }
            const QString sUnit = column.m_sUnit.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(column.m_sUnit);
            lLines << column.m_sName + sUnit + u' ' + QLatin1String(typeName(column.m_oValues.type())) +
                          QStringLiteral(": ") + lCells.join(u'|');
        }
    }
    return lLines;
}

QByteArray utf16(const QString& sText, bool bBigEndian, bool bMark)
{
    QByteArray qBytes;
    const QString sAll = bMark ? QChar(0xfeff) + sText : sText;
    for (const QChar c : sAll) {
        const char vcBytes[] = {static_cast<char>(c.unicode() & 0xff), static_cast<char>(c.unicode() >> 8)};
        qBytes += vcBytes[bBigEndian ? 1 : 0];
        qBytes += vcBytes[bBigEndian ? 0 : 1];
    }
    return qBytes;
}

} // namespace

class TestCsvImport : public QObject
{
    Q_OBJECT

private slots:
    void tables_data();
    void tables();
    void encodings_data();
    void encodings();
    void errors_data();
    void errors();
    void lateTextKeepsEarlierCells();
    void raggedRowsAreReported();
    void missingNumbers();
    void optionsOverruleDetection();
    void cancelGivesNothing();
    void unreadableFiles();
    void dataSetHasUnitsAndOwners();
};

void TestCsvImport::tables_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("expected");
    using L = QStringList;
    const auto row = [](const char* pcName, const QByteArray& qBytes, const L& lExpected) {
        QTest::newRow(pcName) << qBytes << lExpected;
    };
    row("comma", "a,b\n1.5,x\n2,y\n", L{"a double: 1.5|2", "b text: x|y"});
    row("semicolon and decimal comma", "a;b\n1,5;2\n-0,25;3\n", L{"a double: 1.5|-0.25", "b int: 2|3"});
    row("blanks and decimal comma", "a  b\n 1,5   2,25\n 3,5  4\n", L{"a double: 1.5|3.5", "b double: 2.25|4"});
    row("tab with empty cells", "a\tb\tc\n1\t\t3\n\t5\t6\n", L{"a int: 1|~", "b int: ~|5", "c int: 3|6"});
    row("pipe", "a|b\n1|2\n", L{"a int: 1", "b int: 2"});
    row("comma in tab-separated text", "a\tb\nx, y\t1\nz, w, v\t2\n", L{"a text: x, y|z, w, v", "b int: 1|2"});
    row("text column with blanks", "unit\nupper sand\nlower sand\n", L{"unit text: upper sand|lower sand"});
    row("quotes hide everything", "a,\"b, c\"\n\"x\ny\",1\n\"say \"\"no\"\"\",2\n",
        L{"a text: x\ny|say \"no\"", "b, c int: 1|2"});
    row("quoted decimal comma", "a,b\n\"1,5\",x\n\"2,5\",y\n", L{"a double: 1.5|2.5", "b text: x|y"});
    row("CR LF", "a,b\r\n1,2\r\n3,4\r\n", L{"a int: 1|3", "b int: 2|4"});
    row("CR alone", "a,b\r1,2\r3,4", L{"a int: 1|3", "b int: 2|4"});
    row("no header", "1,2\n3,4\n", L{"Column 1 int: 1|3", "Column 2 int: 2|4"});
    row("units in brackets", "Depth [m],GR (API),dip (measured),img[0]\n1,2,3,4\n",
        L{"Depth [m] int: 1", "GR [API] int: 2", "dip (measured) int: 3", "img[0] int: 4"});
    row("units line", "Depth,RHOB,zone\nm,g/cm3,-\n1.5,2.5,a\n",
        L{"Depth [m] double: 1.5", "RHOB [g/cm3] double: 2.5", "zone text: a"});
    row("words that are no units", "rock,code\nm,x\nf,y\n", L{"rock text: m|f", "code text: x|y"});
    row("comments", "# survey\n// of 1999\n\na,b\n1,2\n# half way\n3,4\n", L{"a int: 1|3", "b int: 2|4"});
    row("header in the comment", "# x y\n1 2\n3 4\n", L{"x int: 1|3", "y int: 2|4"});
    row("colours are no comments", "c,a\n#ff0000,1\n#00FF7f,2\n,3\n", L{"c QColor: #ff0000|#00ff7f|~", "a int: 1|2|3"});
    row("flags", "p,q\ntrue,yes\nFALSE,no\nNA,Yes\n", L{"p bool: true|false|~", "q bool: true|false|true"});
    row("flags mixed with words", "p\ntrue\nmaybe\n", L{"p text: true|maybe"});
    row("missing marks", "a,b\n1,x\nNA,N/A\nNaN,null\n-,-\n2,\n", L{"a int: 1|~|~|~|2", "b text: x|~|~|-|~"});
    row("labels keep their zeros", "id,azimuth\n007,045\n12,120\n", L{"id text: 007|12", "azimuth double: 45|120"});
    row("whole numbers past 32 bits", "a\n1\n3000000000\n", L{"a double: 1|3e+09"});
    row("labels too long for a double", "id\n12345678901234567\n1\n", L{"id text: 12345678901234567|1"});
    row("not a number", "a\n1.2.3\n4\n", L{"a text: 1.2.3|4"});
    row("out of range", "a\n1e400\n4\n", L{"a text: 1e400|4"});
    row("signs and exponents", "a\n+1.5\n-2e-3\n.5\n5.\n", L{"a double: 1.5|-0.002|0.5|5"});
    row("names", "x,x,,x\n1,2,3,4\n", L{"x int: 1", "x_1 int: 2", "Column 3 int: 3", "x_2 int: 4"});
    row("delimiter at the line end", "a,b,\n1,2,\n3,4,\n", L{"a int: 1|3", "b int: 2|4"});
    row("all empty", "a,b\n,1\n,2\n", L{"a double: ~|~", "b int: 1|2"});
    row("header only", "a,b\n", L{"a double: ", "b double: "});
}

void TestCsvImport::tables()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, expected);
    const ImportResult result = read(bytes);
    QCOMPARE(result.m_sError, QString());
    QCOMPARE(dump(result), expected);
}

void TestCsvImport::encodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("encoding");
    const QString sText = QStringLiteral("Höhe [µm],x\n1.5,ä\u20ac\n");
    QTest::newRow("UTF-8") << sText.toUtf8() << "UTF-8";
    QTest::newRow("UTF-8 with mark") << QByteArray("\xef\xbb\xbf") + sText.toUtf8() << "UTF-8";
    QTest::newRow("Windows-1252") << QByteArray("H\xf6he [\xb5m],x\n1.5,\xe4\x80\n") << "Windows-1252";
    QTest::newRow("UTF-16 LE with mark") << utf16(sText, false, true) << "UTF-16 LE";
    QTest::newRow("UTF-16 BE with mark") << utf16(sText, true, true) << "UTF-16 BE";
    QTest::newRow("UTF-16 LE bare") << utf16(sText, false, false) << "UTF-16 LE";
    QTest::newRow("UTF-16 BE bare") << utf16(sText, true, false) << "UTF-16 BE";
}

void TestCsvImport::encodings()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, encoding);
    const ImportResult result = read(bytes);
    QCOMPARE(dump(result), QStringList({"Höhe [µm] double: 1.5", "x text: ä\u20ac"}));
    QVERIFY(result.m_oReport.assumptions().contains("Encoding: " + encoding));
}

void TestCsvImport::errors_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("part");
    QTest::newRow("empty") << QByteArray() << "empty";
    QTest::newRow("blank lines") << QByteArray("\n  \r\n\t\n") << "empty";
    QTest::newRow("comments only") << QByteArray("# a\n# b\n") << "comments";
    QTest::newRow("binary") << QByteArray("a,b\n1,2\n\0\1\2\n", 11) << "line 3";
    QTest::newRow("open quote") << QByteArray("a,b\n1,2\n\"x,3\n4,5\n") << "line 3";
    QTest::newRow("open quote in the header") << QByteArray("a,\"b\n1,2\n") << "line 1";
}

void TestCsvImport::errors()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, part);
    const ImportResult result = read(bytes);
    QVERIFY2(result.m_sError.startsWith("file.csv: ") && result.m_sError.contains(part), qPrintable(result.m_sError));
    QVERIFY(result.m_vTables.empty());
}

void TestCsvImport::lateTextKeepsEarlierCells()
{
    QByteArray qBytes = "a,b\n";
    for (int i = 0; i < 5000; ++i) {
        qBytes += "1.50," + QByteArray::number(i) + '\n';
    }
    const ImportResult result = read(qBytes + "broken,5000\n");
    const gkBase::MatrixColumn& texts = result.m_vTables.at(0).m_vColumns.at(0).m_oValues;
    QCOMPARE(texts.type(), QMetaType::QString);
    QCOMPARE(texts.text(0), QStringLiteral("1.50")); // as written, not 1.5
    QCOMPARE(texts.text(5000), QStringLiteral("broken"));
    QCOMPARE(result.m_vTables[0].m_vColumns[1].m_oValues.type(), QMetaType::Int);
    QCOMPARE(result.m_oReport.remarks().at(0).m_iLine, 5002);
    QCOMPARE(read("id\n\n007\n").m_oReport.remarks().at(0).m_iLine, 3);
}

void TestCsvImport::raggedRowsAreReported()
{
    const ImportResult result = read("a,b,c\n1,2,3\n4,5\n\n6,7,8,9\n\"x\ny\",1,2\n7,8,9,,\n10,11,12\n");
    QCOMPARE(dump(result), QStringList({"a text: 1|4|x\ny|7|10", "b int: 2|5|1|8|11", "c int: 3|~|2|9|12"}));
    const ImportReport& report = result.m_oReport;
    QCOMPARE(report.rejectedRowCount(), 1);
    QCOMPARE(report.rejectedRows().at(0).m_iLine, 5);
    QCOMPARE(report.repairs().at(0).m_iLine, 3);
    QCOMPARE(report.repairs().at(1).m_iLine, 8); // behind a cell of two lines
    QCOMPARE(result.m_vTables[0].m_oLines.line(2), 6);
    QCOMPARE(result.m_vTables[0].m_oLines.line(4), 9);
    QVERIFY(report.toText().contains("line 5:"));

    QByteArray qLong = "a,b\n";
    for (int i = 0; i < 1000; ++i) {
        qLong += "1,2\n1,2,3\n";
    }
    const ImportReport many = read(qLong).m_oReport;
    QCOMPARE(many.rejectedRowCount(), 1000);
    QCOMPARE(many.rejectedRows().size(), std::size_t(ImportReport::s_iMaxNotes));
}

void TestCsvImport::missingNumbers()
{
    // Twice and far below the rest: missing. Once: a value. Among its neighbours: a value.
    const ImportResult result = read("a,b,c\n1,-999,-999\n-999.25,5,-998\n-999.25,6,-997\n4,7,-999\n");
    QCOMPARE(dump(result), QStringList({"a double: 1|~|~|4", "b int: ~|5|6|7", "c int: -999|-998|-997|-999"}));
    QCOMPARE(dump(read("a\n1\n-999.25\n")), QStringList({"a double: 1|-999.25"}));
    ImportOptions options;
    options.m_bDetectMissingNumbers = false;
    options.m_vdMissingNumbers = {7};
    options.m_lMissingTexts = QStringList{"none given"};
    QCOMPARE(dump(read("a,b\n7,x\n-999,None given\n-999,y\n", options)),
             QStringList({"a int: ~|-999|-999", "b text: x|~|y"}));
}

void TestCsvImport::optionsOverruleDetection()
{
    ImportOptions options;
    options.m_oDelimiter = ';';
    options.m_oDecimalMark = '.';
    options.m_oHeaderLine = false;
    QCOMPARE(dump(read("1,5;2\n", options)), QStringList({"Column 1 text: 1,5", "Column 2 int: 2"}));
    options = {};
    options.m_oHeaderLine = true;
    QCOMPARE(dump(read("1995,1996\n1,2\n", options)), QStringList({"1995 int: 1", "1996 int: 2"}));
    options = {};
    options.m_eEncoding = TextEncoding::Windows1252;
    QCOMPARE(dump(read("a\n\xc3\xa4\n", options)), QStringList({"a text: Ã¤"}));
}

void TestCsvImport::cancelGivesNothing()
{
    QByteArray qBytes = "a,b\n";
    for (int i = 0; i < 20000; ++i) {
        qBytes += "1,x\n";
    }
    QList<qint64> lDone;
    qint64 iTotal = 0;
    const auto record = [&](qint64 iDone, qint64 iAll) {
        lDone << iDone;
        iTotal = iAll;
        return true;
    };
    QVERIFY(CsvImporter::readBytes(qBytes, "a.csv", {}, record).isOk());
    QVERIFY(std::is_sorted(lDone.begin(), lDone.end()));
    QCOMPARE(lDone.last(), iTotal);
    const auto calls = lDone.size();
    for (qsizetype iStop = 0; iStop + 1 < calls; ++iStop) {
        qsizetype iCall = 0;
        const ImportResult result =
            CsvImporter::readBytes(qBytes, "a.csv", {}, [&](qint64, qint64) { return iCall++ < iStop; });
        QVERIFY(result.m_bCancelled && !result.isOk() && result.m_vTables.empty());
    }
}

void TestCsvImport::unreadableFiles()
{
    QTemporaryDir dir;
    const QString sMissing = dir.filePath("none.csv");
    for (const QString& sPath : {sMissing, dir.path()}) {
        const ImportResult result = FileImporter::readFile(sPath);
        QVERIFY(!result.isOk() && result.m_sError.startsWith(sPath));
    }
    QFile file(dir.filePath("well"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("# a log\n~V\nVERS. 2.0:\n~C\nDEPT.M :\nGR.API :\n~A\n1 2\n");
    file.close();
    const ImportResult result = FileImporter::readFile(file.fileName());
    QCOMPARE(dump(result), QStringList({"DEPT [M] double: 1", "GR [API] double: 2"}));
}

void TestCsvImport::dataSetHasUnitsAndOwners()
{
    QByteArray qHeader = "Depth [m]";
    QByteArray qCells = "1000.5";
    for (int i = 1; i < 12; ++i) {
        qHeader += ",c" + QByteArray::number(i);
        qCells += ',' + QByteArray::number(i);
    }
    ImportResult result = read(qHeader + '\n' + qCells + '\n');
    const auto poDataSet = toDataSet(std::move(result.m_vTables.at(0)), gkBase::UnitRegistry::standard());
    QCOMPARE(poDataSet->name(), QStringLiteral("file"));
    QCOMPARE(poDataSet->childCount(), 12);
    QCOMPARE(poDataSet->numberOfSelectedItems(), g_iSelectedAttributes);
    const gkBase::MatrixData* poDepth = poDataSet->child(0);
    QCOMPARE(poDepth->unitCategory(), QStringLiteral("depth"));
    QCOMPARE(poDepth->owner(), poDataSet.get());
    QCOMPARE(poDepth->toDouble(3, 0), 1000.5);
    QVERIFY(poDepth->color() != poDataSet->child(1)->color());
}

QTEST_GUILESS_MAIN(TestCsvImport)
#include "tst_csvimport.moc"
