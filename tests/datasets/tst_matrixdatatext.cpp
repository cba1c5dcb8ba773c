#include <gkBase/DisplayUnitManager.h>
#include <gkBase/MatrixData.h>
#include <gkBase/MatrixDataCsv.h>
#include <gkBase/MatrixDataStrike.h>
#include <gkBase/UnitManager.h>
#include <gkBase/UnitRegistry.h>

#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace gkBase;

namespace {

MatrixData* addAttribute(MatrixData* poDataSet, const char* name, const char* unit, QMetaType::Type eType,
                         const QList<QVariant>& lValues)
{
    auto* poNode = new MatrixData(QString::fromUtf8(name), static_cast<int>(lValues.size()), 1, eType);
    poNode->setUnitManager(
        UnitRegistry::standard().managerForAttribute(QString::fromUtf8(name), QString::fromUtf8(unit)));
    for (int i = 0; i < lValues.size(); ++i)
        if (lValues[i].isValid())
            poNode->setValue(poNode->rowOffSet() + i, lValues[i]);
    poDataSet->appendChild(poNode, true);
    return poNode;
}

QByteArray contents(const QString& sPath)
{
    QFile file(sPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestMatrixDataText : public QObject
{
    Q_OBJECT

private slots:
    void writesEveryType();
    void writesSeveralDataSets();
    void writesFlaggedRecords_data();
    void writesFlaggedRecords();
    void failureKeepsTheOldFile();
    void headersReadBack_data();
    void headersReadBack();
    void typeWordsReadBack();
    void clipboardTable();
};

void TestMatrixDataText::writesEveryType()
{
    MatrixData root(QStringLiteral("root"));
    auto* poWell = new MatrixData(QStringLiteral("well"));
    root.appendChild(poWell, false);
    addAttribute(poWell, "Depth", "m", QMetaType::Double, {0.1 + 0.2, QVariant(), 1e-300, 100000.0});
    MatrixData* poAzimuth = addAttribute(poWell, "Azimuth", "deg", QMetaType::Double, {45.0, 90.5});
    addAttribute(poWell, "Größe, \"x\"", "", QMetaType::QString, {"a,b", "say \"no\"\nµ", QString(""), " #1"});
    addAttribute(poWell, "n", "", QMetaType::Int, {-7, QVariant(), 0, 99999});
    addAttribute(poWell, "ok", "", QMetaType::Bool, {true, false, QVariant(), true});
    addAttribute(poWell, "c", "", QMetaType::QColor, {QColor(1, 171, 255)});
    poWell->appendChild(new MatrixDataStrike(QStringLiteral("Strike"), poAzimuth), true);

    QTemporaryDir dir;
    const QString sPath = dir.filePath(QStringLiteral("well.csv"));
    bool bOk = false;
    root.writeCSV(sPath, &bOk);
    QVERIFY(bOk);
    QCOMPARE(QString::fromUtf8(contents(sPath)),
             QStringLiteral("# types: double,double,text,int,bool,color,strike:2\n"
                            "Depth [m],Azimuth [deg],\"Größe, \"\"x\"\"\",n,ok,c,Strike [deg]\n"
                            "0.30000000000000004,45,\"a,b\",-7,true,#01abff,315\n"
                            ",90.5,\"say \"\"no\"\"\nµ\",,false,,0.5\n"
                            "1e-300,,\"\",0,,,\n"
                            "100000,,\" #1\",99999,true,,\n"));
}

void TestMatrixDataText::writesSeveralDataSets()
{
    MatrixData root(QStringLiteral("root"));
    for (const char* name : {"A", "B\nb\\"}) {
        auto* poDataSet = new MatrixData(QString::fromUtf8(name));
        root.appendChild(poDataSet, false);
        addAttribute(poDataSet, "v", "", QMetaType::Int, {1, QVariant()});
    }
    root.appendChild(new MatrixData(QStringLiteral("empty")), false);
    QTemporaryDir dir;
    const QString sPath = dir.filePath(QStringLiteral("A.csv"));
    root.writeCSV(sPath, nullptr);
    QCOMPARE(contents(sPath), QByteArray("# data set: A\n# types: int\nv\n1\n\n\n"
                                         "# data set: B\\nb\\\\\n# types: int\nv\n1\n\n\n"
                                         "# data set: empty\n"));
    QCOMPARE(MatrixDataCsv::unescapedName("B\\nb\\\\"), QStringLiteral("B\nb\\"));
}

void TestMatrixDataText::writesFlaggedRecords_data()
{
    QTest::addColumn<QList<bool>>("flags");
    QTest::addColumn<QByteArray>("records");
    QTest::newRow("no flags") << QList<bool>() << QByteArray("0\n1\n2\n3\n");
    QTest::newRow("none set") << QList<bool>{false, false} << QByteArray("0\n1\n2\n3\n");
    QTest::newRow("some") << QList<bool>{true, false, false, true} << QByteArray("0\n3\n");
    QTest::newRow("short") << QList<bool>{false, true} << QByteArray("1\n");
    QTest::newRow("long") << QList<bool>{false, false, true, false, true, true} << QByteArray("2\n");
}

void TestMatrixDataText::writesFlaggedRecords()
{
    QFETCH(QList<bool>, flags);
    QFETCH(QByteArray, records);
    MatrixData root(QStringLiteral("root"));
    auto* poDataSet = new MatrixData(QStringLiteral("d"));
    root.appendChild(poDataSet, false);
    addAttribute(poDataSet, "v", "", QMetaType::Int, {0, 1, 2, 3});
    QTemporaryDir dir;
    const QString sPath = dir.filePath(QStringLiteral("d.csv"));
    root.writeCSV(sPath, nullptr, flags.isEmpty() ? nullptr : flags.constData(), static_cast<int>(flags.size()));
    QCOMPARE(contents(sPath), QByteArray("# types: int\nv\n") + records);
}

void TestMatrixDataText::failureKeepsTheOldFile()
{
    MatrixData root(QStringLiteral("root"));
    bool bOk = true;
    QTemporaryDir dir;
    root.writeCSV(dir.filePath(QStringLiteral("no/such/folder.csv")), &bOk);
    QVERIFY(!bOk);
    // A folder stands where the file should be: nothing may be left beside it.
    QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("taken.csv")));
    bOk = true;
    root.writeCSV(dir.filePath(QStringLiteral("taken.csv")), &bOk);
    QVERIFY(!bOk);
    QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("taken.csv")});
#ifdef Q_OS_LINUX
    // The disk is full before the last bytes, which are still in a buffer.
    addAttribute(&root, "value", "", QMetaType::Double, {1.0, 2.0});
    const QString sPath = dir.filePath(QStringLiteral("full.csv"));
    root.writeCSV(sPath, &bOk);
    QVERIFY(bOk);
    const QByteArray sOld = contents(sPath);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{4, before.rlim_max};
    const auto oldHandler = signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    root.writeCSV(sPath, &bOk);
    setrlimit(RLIMIT_FSIZE, &before);
    signal(SIGXFSZ, oldHandler);
    QVERIFY(!bOk);
    QCOMPARE(contents(sPath), sOld);
#endif
}

void TestMatrixDataText::headersReadBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("text");
    QTest::newRow("depth by name") << "Depth"
                                   << "ft"
                                   << "depth"
                                   << "Depth [ft]";
    QTest::newRow("depth that is a length") << "Depth"
                                            << "ft"
                                            << "length"
                                            << "Depth [ft|length]";
    QTest::newRow("no unit") << "Set"
                             << ""
                             << "dimensionless"
                             << "Set";
    QTest::newRow("category without unit") << "Set"
                                           << ""
                                           << "length"
                                           << "Set [|length]";
    QTest::newRow("brackets in the name") << "a [m]"
                                          << ""
                                          << "dimensionless"
                                          << "a [m] []";
    QTest::newRow("odd unit") << "a"
                              << "x [y]|z\\"
                              << "dimensionless"
                              << "a [x \\[y\\]\\|z\\\\]";
    QTest::newRow("own category") << "a"
                                  << "u"
                                  << "my|own]"
                                  << "a [u|my\\|own\\]]";
    QTest::newRow("no name") << ""
                             << "m"
                             << "length"
                             << " [m]";
}

void TestMatrixDataText::headersReadBack()
{
    QFETCH(QString, name);
    QFETCH(QString, unit);
    QFETCH(QString, category);
    const QString sText = MatrixDataCsv::headerText(name, UnitManager(category, unit));
    QTEST(sText, "text");
    const MatrixDataCsv::Header header = MatrixDataCsv::parseHeader(sText);
    QCOMPARE(header.sName, name);
    QVERIFY(*MatrixDataCsv::headerUnit(header, UnitRegistry::standard()) == UnitManager(category, unit));
}

void TestMatrixDataText::typeWordsReadBack()
{
    for (const auto eType : {QMetaType::Double, QMetaType::Int, QMetaType::Bool, QMetaType::QString, QMetaType::QColor})
        QCOMPARE(MatrixDataCsv::parseTypeWord(MatrixDataCsv::typeWord(eType))->eType, eType);
    QCOMPARE(MatrixDataCsv::parseTypeWord("strike:3")->iAzimuthColumn, 2);
    QVERIFY(!MatrixDataCsv::parseTypeWord("strike:0"));
    QVERIFY(!MatrixDataCsv::parseTypeWord("number"));
}

void TestMatrixDataText::clipboardTable()
{
    MatrixData dataSet(QStringLiteral("d"));
    MatrixData* poDepth = addAttribute(&dataSet, "Depth", "ft", QMetaType::Double, {1.0, QVariant(), 99999.0, 10.0});
    MatrixData* poText = addAttribute(&dataSet, "<b>&", "", QMetaType::QString, {"x<y", "a\tb"});
    DisplayUnitManager::instance().setDisplayUnit(QStringLiteral("depth"), QStringLiteral("m"));
    QMimeData mime;
    MatrixData::setHTML_MimeData(&mime, {&dataSet, poDepth, nullptr, poText}, {});
    QCOMPARE(mime.text(), QStringLiteral("Depth [m]\t<b>&\n0.3048\tx<y\n\ta b\n\t\n3.048\t\n"));
    QVERIFY(mime.html().contains(QStringLiteral("<th>&lt;b&gt;&amp;</th>")));
    QVERIFY(mime.html().contains(QStringLiteral(">0.30</td>")));
    QCOMPARE(mime.html().count(QStringLiteral("<tr>")), 5);
    MatrixData::setHTML_MimeData(&mime, {poDepth}, {3, 17, -1, 0});
    QCOMPARE(mime.text(), QStringLiteral("Depth [m]\n3.048\n0.3048\n"));
    DisplayUnitManager::instance().setDisplayUnit(QStringLiteral("depth"), QString());
}

QTEST_GUILESS_MAIN(TestMatrixDataText)
#include "tst_matrixdatatext.moc"
