#include "LasImporter.h"
#include "ReferenceData.h"

#include <QRegularExpression>
#include <QTest>

#include <cmath>

using namespace gkHost;

namespace {

const QByteArray g_qVersion = "~Version\n VERS. 2.0 : form\n WRAP. NO : one line per step\n";
const QByteArray g_qWell = "~Well\n STRT.M 100 : start\n STOP.M 102 : stop\n STEP.M 1 : step\n NULL. -999.25 : null\n"
                           " WELL. North 1 : WELL\n";
const QByteArray g_qCurves = "~Curve\n DEPT.M : depth\n GR.gAPI : gamma\n RHOB.g/cm3 : density\n";

ImportResult read(const QByteArray& qBytes, const ImportOptions& options = {})
{
    return LasImporter::readBytes(qBytes, QStringLiteral("file.las"), options);
}

/// "name [unit]: cell|cell" per curve; a missing cell is "~", text stands in quotes.
QStringList dump(const ImportTable& table)
{
    QStringList lLines;
    for (const ImportColumn& column : table.m_vColumns) {
        QStringList lCells;
        for (int i = 0; i < column.m_oValues.size(); ++i) {
            const QVariant qValue = column.m_oValues.value(i);
            const bool bText = qValue.typeId() == QMetaType::QString;
            lCells << (!qValue.isValid() ? QStringLiteral("~")
                       : bText           ? u'"' + qValue.toString() + u'"'
                                         : qValue.toString());
        }
        const QString sUnit = column.m_sUnit.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(column.m_sUnit);
        lLines << column.m_sName + sUnit + QStringLiteral(": ") + lCells.join(u'|');
    }
    return lLines;
}

struct Statistics
{
    int m_iMissing = 0;
    bool m_bText = false;
    double m_dFirst = NAN;
    double m_dLast = NAN;
    double m_dSum = 0;
};

Statistics statistics(const gkBase::MatrixColumn& values)
{
    Statistics result;
    result.m_bText = values.type() == QMetaType::QString;
    for (int i = 0; i < values.size(); ++i) {
        if (values.isMissing(i)) {
            ++result.m_iMissing;
            continue;
        }
        const double dValue = values.number(i);
        result.m_dFirst = std::isnan(result.m_dFirst) ? dValue : result.m_dFirst;
        result.m_dLast = dValue;
        result.m_dSum += dValue;
    }
    return result;
}

bool sameNumber(const QJsonValue& qExpected, double dActual)
{
    return !qExpected.isDouble() || std::abs(qExpected.toDouble() - dActual) <= 1e-9 * std::max(1.0, std::abs(dActual));
}

/// Where our reading differs from the other reader's, by word: "count", "unit", "name", "text", "missing", "values".
QStringList differences(const ImportTable& table, const QJsonArray& qCurves)
{
    QStringList lDifferences;
    if (qCurves.size() != table.columnCount()) {
        return {QStringLiteral("count")};
    }
    static const QRegularExpression theirs(QStringLiteral(":\\d+$"));
    static const QRegularExpression ours(QStringLiteral("_\\d+$"));
    for (int i = 0; i < table.columnCount(); ++i) {
        const ImportColumn& column = table.m_vColumns[static_cast<std::size_t>(i)];
        const QJsonObject qCurve = qCurves[i].toObject();
        const QString sTheirs = qCurve["mnemonic"].toString().remove(theirs);
        const auto add = [&](bool bDifferent, const char* pcWord) {
            if (bDifferent && !lDifferences.contains(QLatin1String(pcWord))) {
                lDifferences << QLatin1String(pcWord);
            }
        };
        add(sTheirs.compare(QString(column.m_sName).remove(ours), Qt::CaseInsensitive) != 0, "name");
        add(qCurve["unit"].toString() != column.m_sUnit, "unit");
        add(qCurve["n"].toInt() != column.m_oValues.size(), "rows");
        const Statistics values = statistics(column.m_oValues);
        if (qCurve["text"].toBool() || values.m_bText) {
            add(qCurve["text"].toBool() != values.m_bText, "text");
            continue;
        }
        add(qCurve["missing"].toInt() != values.m_iMissing, "missing");
        add(!sameNumber(qCurve["first"], values.m_dFirst) || !sameNumber(qCurve["last"], values.m_dLast) ||
                !sameNumber(qCurve["sum"], values.m_dSum),
            "values");
    }
    return lDifferences;
}

/// Files that we read differently, on purpose: what differs, and what the file holds.
struct KnownDifference
{
    const char* m_pcFile;
    QStringList m_lWords;
    const char* m_pcReason;
};

const QList<KnownDifference> g_lKnown = {
    {"3.0__Curve-Param_Error_11_SS.las", {"count"}, "curves stand in ~LOG_DEFINITION; we read them"},
    {"3.0__Curve-Param_Error_14_SS.LAS", {"count"}, "curves stand in ~Phase_Definition_RMDATA; we read them"},
    {"3.0__Curve-Param_Error_16_SS.LAS", {"count"}, "curves stand in ~Phase_Definition_RMDATA; we read them"},
    {"3.0__Curve-Param_Error_1_MS.LAS", {"count"}, "two data sections, ~Phase_A_data first; we read both"},
    {"3.0__Curve-Param_Error_3_MS.LAS", {"count"}, "two data sections, ~Phase_A_data first; we read both"},
    {"3.0__Curve-Param_Error_5_MS.LAS", {"count"}, "two data sections, ~Phase_A_data first; we read both"},
    {"3.0__Curve-Param_Error_7_SS.LAS", {"count"}, "curves stand in ~Phase_Definition_RMDATA; we read them"},
    {"3.0__Curve-Param_Error_9_SS.LAS", {"count"}, "curves stand in ~Phase_Definition_RMDATA; we read them"},
    {"autodepthindex_F.las", {"unit"}, "the depth unit F is given as ft"},
    {"barebones.las", {"unit"}, "the depth unit F is given as ft"},
    {"encodings_utf8.las", {"name"}, "the name of a curve is UTF-8 and read as such"},
    {"excess_curves.las", {"unit"}, "the depth unit F is given as ft"},
    {"issue83.las", {"unit"}, "the depth unit F is given as ft"},
    {"lasio_issue_271.las", {"unit"}, "the unit \"unitless\" means none"},
    {"missing_null.las", {"missing", "values"}, "no NULL line; -999.25 stands twice, far below the rest"},
    {"mnemonic_missing.las", {"name"}, "a curve without a mnemonic is called by its number"},
    {"multi_channel.las", {"unit"}, "the depth unit F is given as ft"},
    {"multi_channel_out_of_order.las", {"unit"}, "the depth unit F is given as ft"},
    {"null_policy_dashes.las", {"text"}, "dashes mark missing values; the curve stays numbers"},
    {"null_policy_null.las", {"text"}, "(null) marks a missing value; the curve stays numbers"},
    {"null_policy_runon.las", {"missing", "values"}, "numbers that touch are parted where the columns end"},
};

} // namespace

class TestLasImport : public QObject
{
    Q_OBJECT

private slots:
    void traps_data();
    void traps();
    void refused_data();
    void refused();
    void formThree();
    void formOneKeepsWellNameBehindTheColon();
    void rejectedAndRepairedLinesAreNamed();
    void likeTheOtherReader_data();
    void likeTheOtherReader();
};

void TestLasImport::traps_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("expected");
    const QByteArray qHead = g_qVersion + g_qWell + g_qCurves;
    using L = QStringList;
    const auto row = [](const char* pcName, const QByteArray& qBytes, const L& lExpected) {
        QTest::newRow(pcName) << qBytes << lExpected;
    };
    const auto three = [](const char* pcDepth, const char* pcGamma, const char* pcDensity) {
        return L{QString("DEPT [M]: %1").arg(pcDepth), QString("GR [gAPI]: %1").arg(pcGamma),
                 QString("RHOB [g/cm3]: %1").arg(pcDensity)};
    };
    row("null as a number", qHead + "~A\n100 -999.2500 2.5\n102 7 -9.9925E2\n", three("100|102", "~|7", "2.5|~"));
    row("falling, irregular depth", qHead + "~A\n102 1 2\n101.5 3 4\n100 5 6\n",
        three("102|101.5|100", "1|3|5", "2|4|6"));
    row("commas in form 2.0", qHead + "~A\n100,1.5,2\n101,,4\n", three("100|101", "1.5|~", "2|4"));
    row("tabs with empty cells", qHead + "~A\n100\t1\t2\n101\t\t4\n102\t5\t6\n",
        three("100|101|102", "1|~|5", "2|4|6"));
    row("decimal commas", qHead + "~A\n100,5 1,5 2\n101,5 2,5 4\n", three("100.5|101.5", "1.5|2.5", "2|4"));
    row("one decimal comma", qHead + "~A\n100.5 1.5 2\n101.5 2,5 4\n", three("100.5|101.5", "1.5|2.5", "2|4"));
    row("numbers that touch",
        qHead + "~A\n   100.0    12.3     2.5\n   101.0    12.3-10004.5\n   102.0123456.1     3.5\n",
        three("100|101|102", "12.3|12.3|123456.1", "2.5|-10004.5|3.5"));
    row("signs without columns", qHead + "~A\n1 2 3\n100 12.3-4.5\n", three("1|100", "2|12.3", "3|-4.5"));
    row("blank cells in columns", qHead + "~A\n  100   1.5   2.5\n  101         3.5\n  102   4.5\n",
        three("100|101|102", "1.5|~|4.5", "2.5|3.5|~"));
    row("too few columns", qHead + "~A\n100 1\n101 2\n", three("100|101", "1|2", "~|~"));
    row("too many columns", qHead + "~A DEPT GR RHOB X\n100 1 2 3\n101 4 5 6\n",
        three("100|101", "1|4", "2|5") + L{"X: 3|6"});
    row("wrapped", QByteArray(qHead).replace("WRAP. NO", "WRAP. YES") + "~A\n100\n1\n2\n101\n3 4\n102\n5\n",
        three("100|101|102", "1|3|5", "2|4|~"));
    row("wrapped without saying so", qHead + "~A\n100\n1 2\n101\n3 4\n", three("100|101", "1|3", "2|4"));
    row("text in the data", qHead + "~A\n100 1 \"upper sand\"\n101 2 none\n102 3 'x y'\n",
        three("100|101|102", "1|2|3", "\"upper sand\"|\"none\"|\"x y\""));
    row("missing marks", qHead + "~A\n100 - (null)\n101 -- 1.#QNAN\n102 3 4\n", three("100|101|102", "~|~|3", "~|~|4"));
    row("comments, blank lines, end mark", qHead + "# x\n~A\n# y\n100 1 2\n\n101 3 4\n\x1a\n",
        three("100|101", "1|3", "2|4"));
    row("CR LF", QByteArray(qHead + "~A\n100 1 2\n").replace("\n", "\r\n"), three("100", "1", "2"));
    row("no data", qHead + "~A\n", three("", "", ""));
    row("depth equal to the null value",
        g_qVersion + "~W\nSTRT.M 1:\nSTOP.M 3:\nNULL. 2:\n" + g_qCurves + "~A\n1 2 5\n2 4 2\n3 5 6\n",
        three("1|2|3", "~|4|5", "5|~|6"));
    row("no version, no well", g_qCurves + "~A\n100 1 2\n", three("100", "1", "2"));
    row("no curves, names in the title", g_qVersion + "~A DEPT GR\n100 1\n", L{"DEPT: 100", "GR: 1"});
    row("no curves, no names", g_qVersion + "~A\n100 1\n", L{"Column 1: 100", "Column 2: 1"});
    row("mnemonics",
        g_qVersion + "~C\nDEPT.F :\nGR.[gAPI] :\nGR.gAPI: corrected\nCond..MS/M : c\nI. Res..OHM-M : r\n.V : "
                     "none\nT.HH:MM:SS 5 : t\nGR[0]. :\n"
                     "~A\n1 2 3 4 5 6 7 8\n",
        L{"DEPT [ft]: 1", "GR [gAPI]: 2", "GR_1 [gAPI]: 3", "Cond. [MS/M]: 4", "I. Res. [OHM-M]: 5", "Curve 6 [V]: 6",
          "T [HH:MM:SS]: 7", "GR[0]: 8"});
}

void TestLasImport::traps()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, expected);
    const ImportResult result = read(bytes);
    QCOMPARE(result.m_sError, QString());
    QCOMPARE(dump(result.m_vTables.at(0)), expected);
}

void TestLasImport::refused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("part");
    QTest::newRow("no sections") << QByteArray("1 2 3\n") << "no well log";
    QTest::newRow("no data section") << g_qVersion + g_qWell + g_qCurves << "~A";
    QTest::newRow("neither curves nor data") << g_qVersion + "~A\n"
                                             << "neither";
    QTest::newRow("binary") << QByteArray("~V\n\0", 4) << "line 2";
}

void TestLasImport::refused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, part);
    const ImportResult result = read(bytes);
    QVERIFY2(result.m_sError.startsWith("file.las: ") && result.m_sError.contains(part), qPrintable(result.m_sError));
    QVERIFY(result.m_vTables.empty());
}

void TestLasImport::formThree()
{
    const QByteArray qFile =
        "~Version\nVERS. 3.0 :\nWRAP. NO :\nDLM. COMMA :\n~Well\nWELL. W7 : well\nNULL. -999 :\n"
        "~Core_Definition\nTOP.M : {F}\nNOTE. : {S}\n~Core_Data[1] | Core_Definition\n5,\"a, b\"\n6,007\n"
        "~Log_Parameter\nBS.MM 200 : bit size {F}\n"
        "~Log_Definition\nDEPT.M : {F}\nWHEN. : {DD/MM/YYYY}\nNMR[1].ms : {AF;0ms}\nNMR[2].ms : {AF;5ms}\n"
        "~Log_Data | Log_Definition\n1,01/02/2003,-999,2\n2,,3,4\n";
    const ImportResult result = read(qFile);
    QCOMPARE(result.m_vTables.size(), std::size_t(2));
    QCOMPARE(result.m_vTables[0].m_sName, QStringLiteral("W7"));
    QCOMPARE(dump(result.m_vTables[0]),
             QStringList({"DEPT [M]: 1|2", "WHEN: \"01/02/2003\"|~", "NMR[1] [ms]: ~|3", "NMR[2] [ms]: 2|4"}));
    QCOMPARE(dump(result.m_vTables[1]), QStringList({"TOP [M]: 5|6", "NOTE: \"a, b\"|\"007\""}));
    QVERIFY(result.m_oReport.parameters().contains("BS = 200 MM  (bit size)"));
}

void TestLasImport::formOneKeepsWellNameBehindTheColon()
{
    const QByteArray qWell =
        "~W\nSTRT.M 5 :\nNULL. -1 : NULL VALUE\nWELL. WELL: NORTH 12:30 # 2\nUWI. UNIQUE WELL ID: 007\n";
    const ImportResult result = read("~V\nVERS. 1.2: form\n" + qWell + g_qCurves + "~A\n5 -1 2\n");
    QCOMPARE(result.m_vTables.at(0).m_sName, QStringLiteral("NORTH 12:30 # 2"));
    QCOMPARE(dump(result.m_vTables[0]).at(1), QStringLiteral("GR [gAPI]: ~"));
    QVERIFY(result.m_oReport.parameters().contains("UWI = 007  (UNIQUE WELL ID)"));
}

void TestLasImport::rejectedAndRepairedLinesAreNamed()
{
    const QByteArray qHead = g_qVersion + g_qWell + g_qCurves + "~A\n";
    const auto iFirst = qHead.count('\n') + 1;
    const ImportResult result = read(qHead + "100 1 2\n101 3 4 junk\n102 5\n103 6 7\nend of file\n");
    QCOMPARE(dump(result.m_vTables.at(0)).at(0), QStringLiteral("DEPT [M]: 100|102|103"));
    const ImportReport& report = result.m_oReport;
    QCOMPARE(report.rejectedRowCount(), 2);
    QCOMPARE(report.rejectedRows()[0].m_iLine, iFirst + 1);
    QCOMPARE(report.rejectedRows()[1].m_iLine, iFirst + 4);
    QCOMPARE(report.repairs().at(0).m_iLine, iFirst + 2);
    QCOMPARE(result.m_vTables[0].m_oLines.line(2), iFirst + 3);
}

void TestLasImport::likeTheOtherReader_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QJsonObject>("expected");
    QFile file(gkTest::referenceFile(QStringLiteral("las/expected.json")));
    if (!file.open(QIODevice::ReadOnly)) {
        QTest::newRow("no reference files") << QString() << QJsonObject();
        return;
    }
    const QJsonObject qFiles = QJsonDocument::fromJson(file.readAll()).object();
    for (auto it = qFiles.begin(); it != qFiles.end(); ++it) {
        QTest::newRow(qPrintable(it.key())) << it.key() << it.value().toObject();
    }
}

void TestLasImport::likeTheOtherReader()
{
    QFETCH(QString, file);
    QFETCH(QJsonObject, expected);
    GK_REQUIRE_REFERENCE();
    const ImportResult result = LasImporter::readFile(gkTest::referenceFolder() + "/las/" + file);
    QCOMPARE(result.m_sError, QString());
    QVERIFY(result.m_vTables.at(0).columnCount() > 0);
    if (!expected.contains("curves")) {
        return; // the other reader gives up on this file
    }
    QStringList lKnown;
    for (const KnownDifference& known : g_lKnown) {
        if (file == QLatin1String(known.m_pcFile)) {
            lKnown = known.m_lWords;
        }
    }
    QCOMPARE(differences(result.m_vTables[0], expected["curves"].toArray()), lKnown);
}

QTEST_GUILESS_MAIN(TestLasImport)
#include "tst_lasimport.moc"
