#include "CommandRun.h"
#include "ReferenceData.h"
#include "TestFolder.h"

#include <QApplication>
#include <QTest>

using gkHost::CommandResult;
using gkTest::runCommand;

namespace {

const QStringList g_lNames{"--depth", "depth", "--dip", "dip", "--azimuth", "azimuth"};

} // namespace

class tst_ScatCommand : public QObject, private gkTest::TestFolder
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        // A fold about the axis 10/220, T = 310.
        write("fold.csv", "depth [m],dip [deg],azimuth [deg]\n1000,22.02,155.85\n1100,31.12,146.98\n1200,22.02,155.85\n"
                          "1300,10.00,220.00\n1400,12.71,258.56\n1500,34.88,295.35\n1600,40.61,298.13\n"
                          "1700,36.78,296.36\n1800,,290\n");
        write("same.csv", "depth,dip,azimuth\n1,30,200\n2,30,200\n3,30,200\n");
        write("strike.csv", "strike,dip,depth [m]\n0,30,1\n10,40,2\n");
    }

    void foldAsJson()
    {
        const CommandResult result = scat("fold.csv", {"--t", "310", "--json"});
        QCOMPARE(result.m_sMessage, QString());
        const QByteArray qJson = result.m_sOutput.toUtf8();
        QVERIFY2(qJson.startsWith("{\"n\":8,\"t\":310,\"l\":220,\"tFromTangent\":310.000"), qJson);
        QVERIFY2(qJson.contains(",\"tFromRms\":307.18"), qJson);
        QVERIFY2(qJson.endsWith(",\"crests\":[1300],\"inflections\":[1100,1600]}\n"), qJson);
    }

    void directions_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<double>("t");
        QTest::addColumn<double>("l");
        QTest::newRow("line") << "fold.csv" << QStringList() << 310.0 << 220.0;
        QTest::newRow("T alone") << "fold.csv" << QStringList{"--t", "-40"} << 320.0 << 230.0;
        QTest::newRow("L alone") << "fold.csv" << QStringList{"--l", "40"} << 310.0 << 40.0;
        QTest::newRow("both") << "fold.csv" << QStringList{"--t", "100", "--l", "20"} << 100.0 << 20.0;
        QTest::newRow("no line") << "same.csv" << QStringList() << 200.0 << 110.0;
    }

    void directions()
    {
        QFETCH(QString, file);
        QFETCH(QStringList, options);
        QFETCH(double, t);
        QFETCH(double, l);
        const QJsonObject json = jsonOf(scat(file, options + QStringList{"--json"}));
        QVERIFY2(qAbs(json["t"].toDouble() - t) < 0.01, qPrintable(QString::number(json["t"].toDouble())));
        QVERIFY2(qAbs(json["l"].toDouble() - l) < 0.01, qPrintable(QString::number(json["l"].toDouble())));
        QCOMPARE(json["tFromTangent"].isNull(), file == "same.csv");
    }

    void directionsOfReferenceWell()
    {
        GK_REQUIRE_REFERENCE();
        const QJsonObject json =
            jsonOf(runCommand({"scat", gkTest::referenceFile(QStringLiteral("data/fold_well_a.csv")), "--depth",
                               "depth", "--dip", "dip", "--azimuth", "dip_azimuth", "--json"}));
        QVERIFY(qAbs(json["t"].toDouble() - 70.0) < 1.0);
        QVERIFY(qAbs(json["l"].toDouble() - 340.0) < 1.0);
        QCOMPARE(json["crests"].toArray().size(), 1);
    }

    void whatIsUndefinedIsNull()
    {
        const QStringList lOne{"--rows", "1", "--out", path("one.csv")};
        const QJsonObject json = jsonOf(scat("fold.csv", lOne + QStringList{"--json"}));
        for (const char* pKey : {"t", "l", "tFromTangent", "tFromRms"}) {
            QVERIFY2(json[QLatin1String(pKey)].isNull(), pKey);
        }
        QCOMPARE(json["crests"], QJsonValue(QJsonArray()));
        QCOMPARE(json["inflections"], QJsonValue(QJsonArray()));
        QCOMPARE(json["n"].toInt(), 1);
        QVERIFY2(content(path("one.csv")).endsWith("1000,22.02,155.85,,\n"), content(path("one.csv")));
        const QString sText = scat("fold.csv", lOne).m_sOutput;
        QVERIFY2(sText.contains("---") && !sText.contains("nan") && !sText.contains("99999"), qPrintable(sText));
    }

    void apparentDipsAsCsv()
    {
        const CommandResult result = scat("fold.csv", {"--t", "310", "--l", "40", "--out", path("out.csv")});
        QCOMPARE(result.m_sMessage, QString());
        QVERIFY2(result.m_sOutput.contains("crests [m]             1300.00\n"), qPrintable(result.m_sOutput));
        QList<QByteArray> lRows = content(path("out.csv")).split('\n');
        while (lRows.first().startsWith('#')) {
            lRows.removeFirst();
        }
        QCOMPARE(lRows[0], "depth [m],dip [deg],azimuth [deg],Transverse Dip [deg],Longitudinal Dip [deg]");
        QCOMPARE(lRows[4], "1300,10,220,0,-10");
        QCOMPARE(lRows[9], "1800,,290,,");
        QVERIFY(qAbs(lRows[2].split(',')[3].toDouble() + 30.0) < 0.01);
    }

    void anglesMayBeRadians()
    {
        write("radians.csv", "depth [ft],dip [rad],azimuth [rad]\n10,0.349065850398866,0\n20,0.349065850398866,"
                             "3.14159265358979\n30,0.349065850398866,3.14159265358979\n");
        const CommandResult result = scat("radians.csv", {"--json", "--t", "180", "--out", path("degrees.csv")});
        QCOMPARE(jsonOf(result)["crests"].toArray(), QJsonArray{15});
        const QByteArray qContent = content(path("degrees.csv"));
        const QList<QByteArray> lCells = qContent.trimmed().split('\n').last().split(',');
        QVERIFY2(qAbs(lCells[3].toDouble() - 20.0) < 1e-9, qContent);
        QVERIFY2(qContent.contains(QString::fromUtf8("Transverse Dip [°]").toUtf8()), qContent);
    }

    void everyOptionChangesTheChart()
    {
        const QString sScenario = QDir(GK_SOURCE_DIR).filePath("samples/folded_well_scenario.txt");
        QList<QByteArray> lPictures;
        for (const QStringList& lOptions : QList<QStringList>{{},
                                                              {"--scenario", sScenario},
                                                              {"--background", "black"},
                                                              {"--t", "300", "--l", "220"},
                                                              {"--t", "310", "--l", "230"}}) {
            const QString sFile = path("chart.png");
            QCOMPARE(render(QStringList{"--out", sFile, "--size", "500x400"} + lOptions).m_sMessage, QString());
            const QByteArray qPicture = content(sFile);
            QVERIFY2(!qPicture.isEmpty() && !lPictures.contains(qPicture), qPrintable(lOptions.join(' ')));
            lPictures << qPicture;
        }
    }

    void scenarioWithoutLinesIsDrawnWithAWarning()
    {
        write("no_lines.txt", "Title\nX Depth\n");
        const CommandResult result = render({"--out", path("bare.png"), "--scenario", path("no_lines.txt")});
        QCOMPARE(static_cast<int>(result.m_eStatus), 0);
        QVERIFY2(result.m_sMessage.contains(path("no_lines.txt")), qPrintable(result.m_sMessage));
        QVERIFY(!content(path("bare.png")).isEmpty());
    }

    void exitStatus_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("word"); // of the message
        const QStringList lScat = QStringList{"scat", path("fold.csv")};
        QTest::newRow("no depth") << lScat + g_lNames.mid(2) << 2 << "--depth";
        QTest::newRow("no such dip") << lScat + QStringList{"--dip", "plunge"} + g_lNames.mid(0, 2) + g_lNames.mid(4)
                                     << 1 << "plunge";
        QTest::newRow("T in words") << lScat + g_lNames + QStringList{"--t", "north"} << 2 << "--t";
        QTest::newRow("empty path") << lScat + g_lNames + QStringList{"--out="} << 2 << "--out";
        QTest::newRow("into nowhere") << lScat + g_lNames + QStringList{"--out", path("no/x.csv")} << 1 << "written";
        const QStringList lRender =
            QStringList{"render", path("fold.csv"), "--chart", "scat", "--out", path("x.png")} + g_lNames;
        QTest::newRow("no scenario") << lRender + QStringList{"--scenario", path("none.txt")} << 1 << "none.txt";
        QTest::newRow("chart without T") << lRender + QStringList{"--rows", "1"} << 1 << "--t";
        const QStringList lStrike{"scat", path("strike.csv"), "--depth", "depth", "--dip"};
        QTest::newRow("strike for azimuth")
            << lStrike + QStringList{"dip", "--azimuth", "strike"} << 1 << "is a strike";
        QTest::newRow("dip in metres") << lStrike + QStringList{"depth", "--azimuth", "azimuth"} << 1 << "in m";
    }

    void exitStatus()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        QFETCH(QString, word);
        gkTest::verifyFailure(arguments, status, word);
    }

private:
    CommandResult scat(const QString& sFile, const QStringList& lOptions) const
    {
        return runCommand(QStringList{"scat", m_folder.filePath(sFile)} + g_lNames + lOptions);
    }

    CommandResult render(const QStringList& lOptions) const
    {
        return runCommand(QStringList{"render", path("fold.csv"), "--chart", "scat"} + g_lNames + lOptions);
    }

    static QJsonObject jsonOf(const CommandResult& result)
    {
        return QJsonDocument::fromJson(result.m_sOutput.toUtf8()).object();
    }
};

QTEST_MAIN(tst_ScatCommand)
#include "tst_scatcommand.moc"
