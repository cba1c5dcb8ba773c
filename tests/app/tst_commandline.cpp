#include "CommandRun.h"
#include "TestFolder.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using gkHost::CommandLine;
using gkHost::CommandResult;
using gkTest::runCommand;

class tst_CommandLine : public QObject, private gkTest::TestFolder
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        write("even.csv", "Value [m],Set,Flag\n" + evenRows());
        write("sets.csv", "# data set: A\n# types: double,double\nDepth,GR\n1,2\n3,4\n\n"
                          "# data set: B\n# types: double,bool\nDepth,Good\n7,true\n8,false\n9,true\n");
        // Two flat clouds far from each other, the second deeper; the record without azimuth counts for GR alone.
        write("well.csv",
              "Depth [m],Dip [deg],Azimuth [deg],GR\n0,40,350,1\n1,40,10,3\n2,30,120,\n9,30,,101\n10,30,120,99\n");
        write("bad.csv", QByteArray("a,b\n1,\"never closed\n"));
    }

    void statistics()
    {
        const QJsonObject json = stats({QStringLiteral("--interval"), QStringLiteral("10")});
        QCOMPARE(json[QStringLiteral("attribute")].toString(), QStringLiteral("Value"));
        QCOMPARE(json[QStringLiteral("unit")].toString(), QStringLiteral("m"));
        QCOMPARE(json[QStringLiteral("n")].toInt(), 101);
        QCOMPARE(json[QStringLiteral("missing")].toInt(), 1);
        QCOMPARE(json[QStringLiteral("min")].toDouble(), 0.0);
        QCOMPARE(json[QStringLiteral("max")].toDouble(), 100.0);
        QCOMPARE(json[QStringLiteral("mean")].toDouble(), 50.0);
        QCOMPARE(json[QStringLiteral("standardDeviation")].toDouble(), 29.300170647967224); // of 0, 1, … 100
        QCOMPARE(json[QStringLiteral("interval")].toDouble(), 10.0);
        const QJsonArray classes = json[QStringLiteral("classes")].toArray();
        QCOMPARE(classes.size(), 10);
        double dCount = 0.0;
        double dRelative = 0.0;
        for (const QJsonValue& value : classes) {
            dCount += value[QStringLiteral("count")].toDouble();
            dRelative += value[QStringLiteral("relative")].toDouble();
        }
        QCOMPARE(dCount, 101.0);
        QVERIFY(qAbs(dRelative - 100.0) < 1e-9);
        QCOMPARE(classes.first()[QStringLiteral("count")].toDouble(), 10.0);
        QCOMPARE(classes.last()[QStringLiteral("count")].toDouble(), 11.0); // closed on both sides
        QCOMPARE(classes.last()[QStringLiteral("cumulative")].toDouble(), 100.0);
        QVERIFY(qAbs(json[QStringLiteral("p50")].toDouble() - 50.0) < 1.0);
    }

    void recordsAreCountedFromOne()
    {
        const QJsonObject rows = stats({QStringLiteral("--rows"), QStringLiteral("1,4-9")});
        QCOMPARE(rows[QStringLiteral("n")].toInt(), 7);
        QCOMPARE(rows[QStringLiteral("max")].toDouble(), 8.0);
        QCOMPARE(stats({QStringLiteral("--where"), QStringLiteral("Set=even")})[QStringLiteral("n")].toInt(), 51);
        QCOMPARE(stats({QStringLiteral("--where"), QStringLiteral("Value=3.0")})[QStringLiteral("n")].toInt(), 1);
        QCOMPARE(
            stats({QStringLiteral("--where"), QStringLiteral("Flag=false"), QStringLiteral("--where"),
                   QStringLiteral("Set=odd"), QStringLiteral("--rows"), QStringLiteral("1-10")})[QStringLiteral("n")]
                .toInt(),
            5);
        // Nothing passes: nothing is counted, and nothing is invented.
        const QJsonObject none = stats({QStringLiteral("--where"), QStringLiteral("Set=none")});
        QCOMPARE(none[QStringLiteral("n")].toInt(), 0);
        QVERIFY(none[QStringLiteral("mean")].isNull());
        QVERIFY(none[QStringLiteral("p50")].isNull());
        QVERIFY(none[QStringLiteral("classes")].toArray().isEmpty());
    }

    void attributesOfSeveralDataSets_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("values");
        QTest::addColumn<double>("max");
        QTest::newRow("the first that has it") << QStringList{"--attribute", "Depth"} << 2 << 3.0;
        QTest::newRow("by data set") << QStringList{"--attribute", "B: Depth"} << 3 << 9.0;
        QTest::newRow("any case") << QStringList{"--attribute", "b:depth"} << 3 << 9.0;
        QTest::newRow("only there") << QStringList{"--attribute", "GR", "--where", "gr=2"} << 1 << 2.0;
        QTest::newRow("condition on all")
            << QStringList{"--attribute", "B: Depth", "--where", "Good=yes", "--where", "Depth=9"} << 1 << 9.0;
        QTest::newRow("condition on one") << QStringList{"--attribute", "Depth", "--where", "B: Good=true"} << 2 << 3.0;
        QTest::newRow("no such cells") << QStringList{"--attribute", "GR", "--where", "Good=true"} << 0 << 0.0;
    }

    void attributesOfSeveralDataSets()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, values);
        QFETCH(double, max);
        const CommandResult result = runCommand(QStringList{"stats", path("sets.csv"), "--json"} + arguments);
        QCOMPARE(result.m_sMessage, QString());
        const QJsonObject json = QJsonDocument::fromJson(result.m_sOutput.toUtf8()).object();
        QCOMPARE(json[QStringLiteral("n")].toInt(), values);
        QCOMPARE(json[QStringLiteral("max")].toDouble(), max);
    }

    void regression()
    {
        write("line.csv", "x,y,up\n0,1,5\n1,3,5\n2,5,5\n3,7,5\n4,,5\n");
        const QJsonObject json = jsonOf({"stats", path("line.csv"), "--x", "x", "--y", "y", "--json"});
        QCOMPARE(json["n"].toInt(), 4);
        QVERIFY(qAbs(json["regression"]["slope"].toDouble() - 2.044776) < 5e-7);
        QVERIFY(qAbs(json["regression"]["intercept"].toDouble() - 0.746269) < 5e-7);
        QVERIFY(qAbs(json["regression"]["correlation"].toDouble() - 0.996687) < 5e-7);
        QCOMPARE(json["leastSquares"]["slope"].toDouble(), 2.0);
        QCOMPARE(json["leastSquares"]["intercept"].toDouble(), 1.0);
        const QJsonObject upright = jsonOf({"stats", path("line.csv"), "--x", "up", "--y", "y", "--json"});
        QCOMPARE(upright["regression"]["slope"].toDouble(), 99999.0);
        QVERIFY(upright["leastSquares"]["slope"].isNull());
    }

    void clustersBecomeAnAttribute()
    {
        const QString sOut = path("clusters.csv");
        const QJsonObject json = jsonOf({"cluster", path("well.csv"), "--columns", "Depth, GR", "--k", "2", "--rows",
                                         "1-4", "--out", sOut, "--json"});
        QCOMPARE(json["k"].toInt(), 2);
        QCOMPARE(json["n"].toInt(), 3);
        QCOMPARE(json["distortion"].toDouble(), 2.5); // of (0, 1) and (1, 3) about (0.5, 2)
        const int iDeep = json["sizes"][0].toInt() == 1 ? 0 : 1;
        QCOMPARE(json["centroids"][iDeep].toArray(), (QJsonArray{9, 101}));
        const QByteArray qIds = QByteArray::number(1 - iDeep);
        QCOMPARE(content(sOut).split('\n').mid(2, 5),
                 (QList<QByteArray>{"Depth [m],Dip [deg],Azimuth [deg],GR,Cluster", "0,40,350,1," + qIds,
                                    "1,40,10,3," + qIds, "2,30,120,,", "9,30,,101," + QByteArray::number(iDeep)}));
    }

    void decimationWritesTheMeans_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QList<QByteArray>>("lines");
        QTest::newRow("planes and numbers")
            << QStringList{"--step", "2.5", "--columns", "Azimuth,GR,Dip"}
            << QList<QByteArray>{"Depth [m],Count,Azimuth [deg],GR,Dip [deg]", "1.25,3,23.082488834,2,24.728729434",
                                 "3.75,0,,,", "6.25,0,,,", "8.75,2,120,100,30"};
        QTest::newRow("from, to and the closed end")
            << QStringList{"--bins", "1", "--from", "9", "--to", "10", "--columns", "GR"}
            << QList<QByteArray>{"Depth [m],Count,GR", "9.5,2,100"};
        QTest::newRow("azimuths alone") << QStringList{"--bins", "1", "--to", "1", "--columns", "Azimuth"}
                                        << QList<QByteArray>{"Depth [m],Count,Azimuth [deg]", "0.5,2,0"};
        QTest::newRow("a single depth has no range")
            << QStringList{"--bins", "1", "--columns", "Dip,Azimuth", "--where", "GR=101"} << QList<QByteArray>();
    }

    void decimationWritesTheMeans()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QList<QByteArray>, lines);
        const QString sOut = path("means.csv");
        const CommandResult result =
            runCommand(QStringList{"decimate", path("well.csv"), "--depth", "depth", "--out", sOut} + arguments);
        QCOMPARE(result.m_sMessage.isEmpty(), !lines.isEmpty()); // a single depth has no range
        const QList<QByteArray> lRows = content(sOut).split('\n').mid(1);
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const QList<QByteArray> lExpected = lines[i].split(',');
            const QList<QByteArray> lCells = lRows.value(i).split(',');
            QCOMPARE(lCells.size(), lExpected.size());
            for (qsizetype iCell = 0; iCell < lCells.size(); ++iCell) {
                bool bNumber = false;
                const double dExpected = lExpected[iCell].toDouble(&bNumber);
                QVERIFY2(bNumber && !lCells[iCell].isEmpty() ? qAbs(lCells[iCell].toDouble() - dExpected) < 1e-9
                                                             : lCells[iCell] == lExpected[iCell],
                         lRows[i].constData());
            }
        }
    }

    void helpTellsTheCommandAndItsOptions()
    {
        for (const QString& sCommand : {QStringLiteral("stats"), QStringLiteral("cluster"), QStringLiteral("decimate"),
                                        QStringLiteral("convert"), QStringLiteral("render")}) {
            const CommandResult help = runCommand({sCommand, "--help"});
            QCOMPARE(help.m_sMessage, QString());
            QVERIFY2(help.m_sOutput.startsWith("Usage: gkanalyser " + sCommand), qPrintable(help.m_sOutput));
            QVERIFY2(!help.m_sOutput.contains("--help-all"), "there is no such option");
        }
    }

    void exitStatus_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        const QString sEven = path("even.csv");
        const QString sOut = path("out.png");
        QTest::newRow("help") << QStringList{"--help"} << 0;
        QTest::newRow("version") << QStringList{"--version"} << 0;
        QTest::newRow("command help") << QStringList{"stats", "--help"} << 0;
        QTest::newRow("no file") << QStringList{"stats", "--attribute", "Value"} << 2;
        QTest::newRow("no attribute") << QStringList{"stats", sEven} << 2;
        QTest::newRow("unknown option") << QStringList{"stats", sEven, "--attribute", "Value", "--nonsense"} << 2;
        QTest::newRow("bad rows") << QStringList{"stats", sEven, "--attribute", "Value", "--rows", "4-1"} << 2;
        QTest::newRow("row zero") << QStringList{"stats", sEven, "--attribute", "Value", "--rows", "0"} << 2;
        QTest::newRow("bad interval") << QStringList{"stats", sEven, "--attribute", "Value", "--interval", "-1"} << 2;
        QTest::newRow("unknown attribute") << QStringList{"stats", sEven, "--attribute", "Dip"} << 1;
        QTest::newRow("text attribute") << QStringList{"stats", sEven, "--attribute", "Set"} << 1;
        QTest::newRow("unknown condition")
            << QStringList{"stats", sEven, "--attribute", "Value", "--where", "x=1"} << 1;
        QTest::newRow("missing file") << QStringList{"stats", path("none.csv"), "--attribute", "Value"} << 1;
        QTest::newRow("bad file") << QStringList{"stats", path("bad.csv"), "--attribute", "a"} << 1;
        QTest::newRow("no chart") << QStringList{"render", sEven, "--out", sOut} << 2;
        QTest::newRow("unknown chart") << QStringList{"render", sEven, "--chart", "pie", "--out", sOut} << 2;
        QTest::newRow("unknown type") << QStringList{"render", sEven,    "--chart", "histogram", "--attribute",
                                                     "Value",  "--type", "x",       "--out",     sOut}
                                      << 2;
        QTest::newRow("interval of texts") << QStringList{"render", sEven,        "--chart", "barchart", "--attribute",
                                                          "Set",    "--interval", "2",       "--out",    sOut}
                                           << 1;
        const QStringList lCrossPlot{"render", sEven, "--chart", "crossplot", "--out", sOut, "--x", "Value"};
        QTest::newRow("cross plot without y") << lCrossPlot << 2;
        QTest::newRow("cross plot of texts") << lCrossPlot + QStringList{"--y", "Set"} << 1;
        QTest::newRow("cross plot without that colour")
            << lCrossPlot + QStringList{"--y", "Value", "--color-by", "Rock"} << 1;
        const QStringList lDepthPlot{"render", path("well.csv"), "--chart", "depthplot", "--out", sOut, "--depth"};
        QTest::newRow("depth plot without tracks") << lDepthPlot + QStringList{"Depth"} << 2;
        QTest::newRow("tadpoles without azimuth") << lDepthPlot + QStringList{"Depth", "--tadpoles", "Dip"} << 2;
        QTest::newRow("track that is not there") << lDepthPlot + QStringList{"Depth", "--tracks", "GR,Rho"} << 1;
        QTest::newRow("unknown format") << QStringList{"render",      sEven,   "--chart", "histogram",
                                                       "--attribute", "Value", "--out",   path("x.gif")}
                                        << 2;
        QTest::newRow("bad size") << QStringList{"render", sEven,   "--chart", "histogram", "--attribute",
                                                 "Value",  "--out", sOut,      "--size",    "9"}
                                  << 2;
        QTest::newRow("folder that is not there")
            << QStringList{"render", sEven, "--chart", "histogram", "--attribute", "Value", "--out", path("no/x.png")}
            << 1;
        const QString sCsv = path("out.csv");
        QTest::newRow("x without y") << QStringList{"stats", sEven, "--x", "Value"} << 2;
        QTest::newRow("x and attribute") << QStringList{"stats", sEven,   "--x",         "Value",
                                                        "--y",   "Value", "--attribute", "Value"}
                                         << 2;
        QTest::newRow("regression of texts") << QStringList{"stats", sEven, "--x", "Value", "--y", "Set"} << 1;
        const QStringList lCluster{"cluster", sEven, "--out", sCsv, "--columns"};
        QTest::newRow("clusters of one column") << lCluster + QStringList{"Value", "--k", "2"} << 2;
        QTest::newRow("no number of clusters") << lCluster + QStringList{"Value,Flag", "--k", "1.5"} << 2;
        QTest::newRow("nothing to cluster") << lCluster + QStringList{"Value,Flag", "--k", "2", "--rows", "102"} << 1;
        QTest::newRow("data sets of different length")
            << QStringList{"cluster", path("sets.csv"), "--out", sCsv, "--columns", "GR,Good", "--k", "2"} << 1;
        const QStringList lDecimate{"decimate", sEven, "--depth", "Value", "--columns", "Flag", "--out"};
        QTest::newRow("neither step nor bins") << lDecimate + QStringList{sCsv} << 2;
        QTest::newRow("both step and bins") << lDecimate + QStringList{sCsv, "--step", "1", "--bins", "2"} << 2;
        QTest::newRow("range upside down")
            << lDecimate + QStringList{sCsv, "--bins", "2", "--from", "9", "--to", "1"} << 2;
        QTest::newRow("too many intervals") << lDecimate + QStringList{sCsv, "--step", "1e-6"} << 2;
        QTest::newRow("decimate into nowhere") << lDecimate + QStringList{path("no/x.csv"), "--bins", "2"} << 1;
        QTest::newRow("convert into nowhere") << QStringList{"convert", sEven, "--out", path("no/x.csv")} << 1;
    }

    void exitStatus()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        const CommandResult result = runCommand(arguments);
        QCOMPARE(static_cast<int>(result.m_eStatus), status);
        QCOMPARE(result.m_sMessage.isEmpty(), status == 0); // one message when something is wrong
        QVERIFY(!result.m_sMessage.contains(QLatin1Char('\n')));
        QCOMPARE(result.m_sOutput.isEmpty(), status != 0);
    }

    void renderWritesEveryFormat_data()
    {
        QTest::addColumn<QStringList>("chart");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("start");
        const QStringList lHistogram{"histogram", "--attribute", "Value", "--interval", "5", "--type", "relative"};
        const QStringList lBars{"barchart", "--attribute", "Set", "--type", "percent", "--sort", "count"};
        const QStringList lProbability{"probability", "--attribute", "Value"};
        const QStringList lCrossPlot{"crossplot",  "--x", "Value",       "--y",  "Flag",
                                     "--color-by", "set", "--symbol-by", "Flag", "--regression"};
        const QStringList lDepthPlot{"depthplot",  "--depth",    "Value",      "--tracks",
                                     "Flag,Value", "--tadpoles", "Value,Value"};
        QTest::newRow("depth plot png") << lDepthPlot << path("d.png") << QByteArray("\x89PNG");
        QTest::newRow("depth plot svg") << lDepthPlot << path("d.svg") << QByteArray("<?xml");
        QTest::newRow("cross plot png") << lCrossPlot << path("x.png") << QByteArray("\x89PNG");
        QTest::newRow("cross plot pdf") << lCrossPlot << path("x.pdf") << QByteArray("%PDF");
        QTest::newRow("png") << lHistogram << path("h.png") << QByteArray("\x89PNG");
        QTest::newRow("svg") << lHistogram << path("h.svg") << QByteArray("<?xml");
        QTest::newRow("pdf") << lHistogram << path("h.pdf") << QByteArray("%PDF");
        QTest::newRow("bars png") << lBars << path("b.png") << QByteArray("\x89PNG");
        QTest::newRow("bars svg") << lBars << path("b.svg") << QByteArray("<?xml");
        QTest::newRow("probability png") << lProbability << path("p.png") << QByteArray("\x89PNG");
        QTest::newRow("probability pdf") << lProbability << path("p.pdf") << QByteArray("%PDF");
        QTest::newRow("emf") << lHistogram << path("h.emf") << QByteArray("\1\0\0\0", 4);
    }

    void renderWritesEveryFormat()
    {
        QFETCH(QStringList, chart);
        QFETCH(QString, file);
        QFETCH(QByteArray, start);
        const CommandResult result = runCommand(QStringList{"render", path("even.csv"), "--background", "black",
                                                            "--size", "640x480", "--out", file, "--chart"} +
                                                chart);
        QCOMPARE(result.m_sMessage, QString());
        QFile picture(file);
        QVERIFY(picture.open(QIODevice::ReadOnly));
        QVERIFY(picture.readAll().startsWith(start));
        if (file.endsWith(QLatin1String(".png"))) {
            const QImage image(file);
            QCOMPARE(image.size(), QSize(640, 480));
            QCOMPARE(image.pixelColor(2, 2), QColor(Qt::black));
        }
    }

    void convertReadsBackTheSame()
    {
        const QString sFirst = path("first.csv");
        const QString sSecond = path("second.csv");
        const QString sReport = path("report.txt");
        QCOMPARE(runCommand({"convert", path("even.csv"), "--out", sFirst, "--report", sReport}).m_sMessage, QString());
        QVERIFY(QFile::exists(sReport));
        QCOMPARE(runCommand({"convert", sFirst, "--out", sSecond}).m_sMessage, QString());
        QByteArray qFirst = content(sFirst);
        QByteArray qSecond = content(sSecond);
        QVERIFY(!qFirst.isEmpty());
        // The data set keeps the name of the first file, which the second one has to say.
        QVERIFY2(qSecond.endsWith(qFirst.mid(qFirst.indexOf("# types"))), qSecond.constData());
    }

    void windowArguments()
    {
        QString sError;
        QVERIFY(!CommandLine({"gkanalyser", "a.csv", "b.las"}).isCommand());
        QCOMPARE(CommandLine({"gkanalyser", "a.csv", "b.las"}).files(sError), (QStringList{"a.csv", "b.las"}));
        QVERIFY(sError.isEmpty());
        CommandLine({"gkanalyser", "--what"}).files(sError);
        QVERIFY(sError.contains(QLatin1String("--what")));
        CommandLine({"gkanalyser", "statistics", "a.csv"}).files(sError = QString());
        QVERIFY(sError.contains(QLatin1String("statistics")));
    }

private:
    /// 0, 1, … 100 and one empty cell, even and odd.
    static QByteArray evenRows()
    {
        QByteArray qRows;
        for (int i = 0; i <= 100; ++i)
            qRows += QByteArray::number(i) + (i % 2 ? ",odd,false\n" : ",even,true\n");
        return qRows + ",even,true\n";
    }

    QJsonObject stats(const QStringList& lArguments) const
    {
        return jsonOf(QStringList{"stats", path("even.csv"), "--attribute", "Value", "--json"} + lArguments);
    }

    static QJsonObject jsonOf(const QStringList& lArguments)
    {
        const CommandResult result = runCommand(lArguments);
        if (!result.m_sMessage.isEmpty())
            qWarning().noquote() << result.m_sMessage;
        return QJsonDocument::fromJson(result.m_sOutput.toUtf8()).object();
    }
};

QTEST_MAIN(tst_CommandLine)
#include "tst_commandline.moc"
