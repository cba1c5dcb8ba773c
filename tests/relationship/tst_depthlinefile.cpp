// Scenario files: their bytes, what is read from damaged ones, and that a file is old or new, never half written.

#include <gkBase/DepthLineField.h>
#include <gkBase/DepthLineFile.h>

#include "TestFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTest>
#include <QThread>

#include <array>
#include <random>

#ifdef Q_OS_LINUX
#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
bool g_bDieBeforeRename = false;
}

/// Stands in for the C library's: the step between the finished temporary file and the file's new name.
extern "C" __attribute__((visibility("default"))) int rename(const char* pFrom, const char* pTo) noexcept
{
    if (g_bDieBeforeRename)
        raise(SIGKILL);
    return renameat(AT_FDCWD, pFrom, AT_FDCWD, pTo);
}
#endif

using namespace gkBase;

namespace {

const QPointF g_oNoOrientation(-1.0, -1.0);

QByteArray inField(const QString& sItem)
{
    return sItem.rightJustified(30, u' ').toUtf8();
}

/// A line of the file as the format has it.
QByteArray fileLine(const QStringList& lItems)
{
    QByteArray sLine;
    for (const QString& sItem : lItems)
        sLine += inField(sItem);
    return sLine + inField(QStringLiteral("\n"));
}

QByteArray head()
{
    return "Brennick, Structural SCAT Interpretation 4DKastor2008 v1.0\n" +
           fileLine({"X", "Depth", "Types", "Colors", "Dip", "Azimuth", "Names"});
}

QStringList dump(const DepthLineField& oField)
{
    QStringList lLines;
    for (const DepthLineField::Line& line : oField.lines())
        lLines << QStringLiteral("%1 %2 %3 %4 %5/%6 [%7]")
                      .arg(line.m_dX)
                      .arg(line.m_dDepth)
                      .arg(line.m_eType)
                      .arg(line.m_oColor.name())
                      .arg(line.m_oOrientation.x())
                      .arg(line.m_oOrientation.y())
                      .arg(line.m_sName);
    return lLines;
}

QStringList readBack(const QByteArray& sText)
{
    DepthLineField back;
    readDepthLineFileText(sText, back);
    return dump(back);
}

/// Two scenarios that fill many pages.
DepthLineField bigField(bool bFirst)
{
    DepthLineField oField;
    for (int i = 0; i < (bFirst ? 900 : 700); ++i)
        oField.insertHorizontalLine(1000.0 + i, 0.0, bFirst ? QStringLiteral("first") : QStringLiteral("second"),
                                    Qt::red, DepthLineField::Horizon);
    return oField;
}

} // namespace

class TestDepthLineFile : public QObject, gkTest::TestFolder
{
    Q_OBJECT
private slots:
    void bytes();
    void reading_data();
    void reading();
    void namesThatDoNotComeBack();
    void files();
    void failuresLeaveTheFile_data();
    void failuresLeaveTheFile();
#ifdef Q_OS_LINUX
    void interruptedWriting_data();
    void interruptedWriting();
    void killedAtAnyTime();
#endif
    void cleanupTestCase()
    {
        QFile::setPermissions(path("closed"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
};

void TestDepthLineFile::bytes()
{
    DepthLineField oField;
    QCOMPARE(depthLineFileText(oField), head());
    oField.insertHorizontalLine(1234.5678, 0.0, QStringLiteral("Top  of\tM\u00fcnster\u00a0A\n"), QColor(0, 128, 255),
                                DepthLineField::Horizon);
    oField.insertHorizontalLine(-1234567.0, 0.00001234567, QString(), QColor(), DepthLineField::CrestalPlane,
                                {30.25, 359.99999});
    oField.insertHorizontalLine(1.0e-300, 1.0e20, QString(29, u'n'), Qt::black, DepthLineField::Fault, {0.0, 100000.0});
    oField.insertHorizontalLine(1.0, 0.0, QString(30, u'n'), Qt::black, DepthLineField::AxialPlane, {2.0, 3.0});
    const QByteArray sText = depthLineFileText(oField);
    const QByteArray sFirst =
        fileLine({"0", "1234.57", "3", "#0080ff", "-1", "-1", QStringLiteral("Top__of_M\u00fcnster_A_")});
    QCOMPARE(QString::fromUtf8(sFirst).size(), 240);
    QCOMPARE(sText, head() + sFirst + fileLine({"1.23457e-05", "-1.23457e+06", "0", "#000000", "30.25", "360", ""}) +
                        fileLine({"1e+20", "1e-300", "4", "#000000", "0", "100000", QString(29, u'n')}) +
                        fileLine({"0", "1", "1", "#000000", "2", "3", QString(30, u'n')}));
}

void TestDepthLineFile::reading_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QStringList>("read");
    const QByteArray sGood = fileLine({"1", "100", "3", "#00ff00", "10", "20", "Top_A"});
    const QString sRead = QStringLiteral("1 100 3 #00ff00 10/20 [Top_A]");
    const auto line = [](const char* pX, const char* pDepth, const char* pType, const char* pColor = "#0000ff") {
        return fileLine({pX, pDepth, pType, pColor, "10", "20", "A"});
    };

    QTest::newRow("none") << QByteArray() << QStringList();
    QTest::newRow("one") << sGood << QStringList{sRead};
    QTest::newRow("empty line ends") << sGood + "\n" + sGood << QStringList{sRead};
    QTest::newRow("third line empty") << "\n" + sGood << QStringList();
    QTest::newRow("line of blanks") << "   \n" + sGood << QStringList{sRead};
    QTest::newRow("other widths, tabs") << QByteArray(" 1\t100 3 #00ff00 10 20 Top_A") << QStringList{sRead};
    QTest::newRow("too few items") << QByteArray(" 1 100 3 #00ff00 10 20\n") + sGood << QStringList{sRead};
    QTest::newRow("more items") << QByteArray(" 1 100 3 #00ff00 10 20 Top_A of the well") << QStringList{sRead};
    QTest::newRow("no blank in front") << QByteArray("1 100 3 #00ff00 10 20 Top_A\n") << QStringList();
    QTest::newRow("no blank in front, one behind")
        << QByteArray("1 100 3 #00ff00 10 20 Top_A \n") << QStringList{QStringLiteral("100 3 0 #000000 20/0 []")};
    QTest::newRow("without a name") << fileLine({"1", "100", "3", "#00ff00", "10", "20", ""})
                                    << QStringList{QStringLiteral("1 100 3 #00ff00 10/20 []")};
    QTest::newRow("long name") << fileLine({"1", "100", "3", "#00ff00", "10", "20", QString(31, u'n')})
                               << QStringList{QStringLiteral("1 100 3 #00ff00 10/0 []")};
    QTest::newRow("type above") << line("0", "1", "5") + sGood << QStringList{sRead};
    QTest::newRow("type below") << line("0", "1", "-1") + sGood << QStringList{sRead};
    QTest::newRow("no types") << line("0", "1", "Fault") + line("0", "2", "3.0")
                              << QStringList{"0 1 0 #0000ff 10/20 [A]", "0 2 0 #0000ff 10/20 [A]"};
    QTest::newRow("no numbers") << line("west", "1,5", "4") + line("nan", "0x10", "4")
                                << QStringList{"0 0 4 #0000ff 10/20 [A]", "0 0 4 #0000ff 10/20 [A]"};
    QTest::newRow("no depths") << line("0", "nan", "4") + line("0", "inf", "4") + line("0", "1e999", "4") +
                                      line("0", "99999", "4") + sGood
                               << QStringList{sRead};
    QTest::newRow("no colour") << line("0", "1", "4", "colour") << QStringList{"0 1 4 #000000 10/20 [A]"};
    QTest::newRow("Latin-1") << QByteArray(" 1 100 3 #00ff00 10 20 M\xfcnster")
                             << QStringList{QStringLiteral("1 100 3 #00ff00 10/20 [M\u00fcnster]")};
    QTest::newRow("no-break space") << QByteArray(" 1 100 3 #00ff00 10 20 A\xc2\xa0"
                                                  "B")
                                    << QStringList{QStringLiteral("1 100 3 #00ff00 10/20 [A\u00a0B]")};
}

void TestDepthLineFile::reading()
{
    QFETCH(QByteArray, lines);
    QFETCH(QStringList, read);
    QCOMPARE(readBack("any writer\nany titles\n" + lines), read);
    // Lines ended as on Windows; what is missing for a count of items must not be filled up by the carriage return.
    write("crlf.txt", "any writer\r\nany titles\r\n" + QByteArray(lines).replace("\n", "\r\n"));
    DepthLineField oField;
    oField.read(path("crlf.txt"));
    QCOMPARE(dump(oField), read);
}

void TestDepthLineFile::namesThatDoNotComeBack()
{
    DepthLineField oField;
    const auto insert = [&](const QString& sName, DepthLineField::DataType eType = DepthLineField::Fault) {
        oField.insertHorizontalLine(1234.5678, 0.0, sName, Qt::red, eType, {12.3456789, 1.0});
    };
    insert(QString());
    insert(QStringLiteral("two words"));
    insert(QString(29, u'a'));
    insert(QStringLiteral("\u00e4\u00f6\u00fc"));
    QVERIFY(depthLineNamesNotReadBack(oField).isEmpty());
    insert(QString(30, u'b'));
    insert(QStringLiteral("mean"), DepthLineField::AverageOrientation);
    QCOMPARE(depthLineNamesNotReadBack(oField), (QStringList{QString(30, u'b'), QStringLiteral("mean")}));
}

void TestDepthLineFile::files()
{
    DepthLineField oField;
    oField.insertHorizontalLine(5.0, 0.0, QStringLiteral("A B"), Qt::red, DepthLineField::Horizon);
    write("well.txt", "old");
    QVERIFY(QFile::setPermissions(path("well.txt"), QFile::ReadOwner | QFile::WriteOwner));
    QVERIFY(QFile::link(path("well.txt"), path("link.txt")));
    oField.write(path("link.txt"));
    QVERIFY(QFileInfo(path("link.txt")).isSymLink());
    QCOMPARE(content(path("well.txt")), depthLineFileText(oField));
    const QFile::Permissions ePermissions = QFileInfo(path("well.txt")).permissions();
    QVERIFY(!(ePermissions & (QFile::ReadGroup | QFile::ReadOther)));

    oField.read(path("well.txt"));
    QCOMPARE(oField.lineNames(), (std::vector<QString>{QStringLiteral("A B"), QStringLiteral("A_B")}));
    for (const QString& sPath : {path("none.txt"), m_folder.path(), QString()}) {
        QString sError;
        QVERIFY(!readDepthLineFile(sPath, oField, &sError));
        QVERIFY2(sError.contains(u'"' + sPath + u'"') && !sError.contains(QLatin1String("Unknown")),
                 qPrintable(sError));
    }
    QCOMPARE(oField.count(), 2);
}

void TestDepthLineFile::failuresLeaveTheFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    write("old.txt", "old");
    QTest::newRow("folder") << m_folder.path() << "folder";
    QTest::newRow("no folder") << path("none/new.txt") << "folder does not exist";
    QTest::newRow("below a file") << path("old.txt/new.txt") << "folder does not exist";
    QTest::newRow("no name") << QString() << "no file name";
    QTest::newRow("name too long") << path(QByteArray(260, 'x').constData()) << "too long";
#ifdef Q_OS_LINUX
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QTest::newRow("pipe") << path("pipe") << "no ordinary file";
    if (geteuid() != 0) { // nothing is forbidden to the administrator
        const auto eReadOnly = QFile::ReadOwner | QFile::ExeOwner;
        QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("closed")));
        write("closed/old.txt", "old");
        QVERIFY(QFile::setPermissions(path("closed"), eReadOnly));
        QTest::newRow("closed folder") << path("closed/old.txt") << "ermission denied";
        QVERIFY(QFile::setPermissions(path("old.txt"), eReadOnly));
        QTest::newRow("closed file") << path("old.txt") << "not writable";
    }
#endif
}

void TestDepthLineFile::failuresLeaveTheFile()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    const QByteArray sBefore = QFileInfo(path).isFile() ? content(path) : QByteArray();
    const QStringList lFiles = QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden);
    QString sError;
    QVERIFY(!writeDepthLineFile(bigField(true), path, &sError));
    QVERIFY2(sError.contains(u'"' + path + u'"') && sError.contains(reason), qPrintable(sError));
    QCOMPARE(QFileInfo(path).isFile() ? content(path) : QByteArray(), sBefore);
    QCOMPARE(QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden), lFiles);
}

#ifdef Q_OS_LINUX

void TestDepthLineFile::interruptedWriting_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<bool>("killed");
    QTest::addColumn<QByteArray>("report");
    QTest::newRow("killed before the renaming") << "die" << true << QByteArray();
    QTest::newRow("disk full, small file") << "100" << false << QByteArray("File too large");
    QTest::newRow("disk full, large file") << "160000" << false << QByteArray("File too large");
}

void TestDepthLineFile::interruptedWriting()
{
    QFETCH(QString, mode);
    QFETCH(bool, killed);
    QFETCH(QByteArray, report);
    const QByteArray sOld = depthLineFileText(bigField(true));
    write("interrupted.txt", sOld);
    QProcess writer;
    writer.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--write"), mode, path("interrupted.txt")});
    QVERIFY(writer.waitForFinished());
    QCOMPARE(writer.exitStatus(), killed ? QProcess::CrashExit : QProcess::NormalExit);
    QVERIFY2(writer.readAllStandardError().contains(report), "the reason is told");
    QVERIFY(content(path("interrupted.txt")) == sOld);
}

void TestDepthLineFile::killedAtAnyTime()
{
    const std::array<QByteArray, 2> vTexts = {depthLineFileText(bigField(true)), depthLineFileText(bigField(false))};
    std::mt19937 generator(7);
    for (int i = 0; i < 24; ++i) {
        QProcess writer;
        writer.start(QCoreApplication::applicationFilePath(), {"--write", "always", path("killed.txt")});
        QVERIFY(writer.waitForReadyRead());
        QThread::usleep(generator() % 20000);
        writer.kill();
        QVERIFY(writer.waitForFinished());
        const QByteArray sNow = content(path("killed.txt"));
        QVERIFY2(sNow == vTexts[0] || sNow == vTexts[1], qPrintable(QString::number(sNow.size())));
    }
}

/// Another process: writes once, dying before the renaming or with so many bytes of disk, or again and again.
int writeInChild(const QString& sMode, const QString& sPath)
{
    if (sMode == QLatin1String("always")) {
        for (bool bFirst = true;; bFirst = !bFirst) {
            writeDepthLineFile(bigField(bFirst), sPath);
            if (::write(STDOUT_FILENO, "\n", 1) != 1)
                return 1; // nobody listens any more
        }
    }
    g_bDieBeforeRename = sMode == QLatin1String("die");
    if (!g_bDieBeforeRename) {
        const rlimit limit{sMode.toUInt(), sMode.toUInt()};
        signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    QString sError;
    const DepthLineField oField = sMode == QLatin1String("100") ? DepthLineField() : bigField(false);
    const bool bWritten = writeDepthLineFile(oField, sPath, &sError);
    fprintf(stderr, "%s\n", qPrintable(sError));
    return bWritten ? 1 : 0;
}

#endif

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
#ifdef Q_OS_LINUX
    if (argc == 4 && application.arguments().at(1) == QLatin1String("--write"))
        return writeInChild(application.arguments().at(2), application.arguments().at(3));
#endif
    TestDepthLineFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_depthlinefile.moc"
