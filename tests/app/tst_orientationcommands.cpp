#include "CommandRun.h"
#include "TestFolder.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using gkHost::CommandResult;
using gkTest::runCommand;

namespace {

const QStringList g_lAngles{"--dip", "dip", "--azimuth", "azimuth"};

bool isClose(double dActual, double dExpected, double dTolerance)
{
    return qAbs(dActual - dExpected) <= dTolerance;
}

} // namespace

class tst_OrientationCommands : public QObject, private gkTest::TestFolder
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        write("planes.csv", "dip [deg],azimuth [deg],bed\n30,90,a\n35,95,a\n25,85,b\n,80,b\n30,80,b\n40,100,b\n");
        // The same in radians.
        write("radians.csv", "dip [rad],azimuth [rad]\n0.5235987755982988,1.5707963267948966\n"
                             "0.6108652381980153,1.6580627893946132\n0.4363323129985824,1.4835298641951802\n"
                             "0.5235987755982988,1.3962634015954636\n0.6981317007977318,1.7453292519943295\n");
        write("same.csv", "dip,azimuth\n60,10\n60,10\n60,10\n");
        write("strike.csv", "strike,dip,depth [m],rock\n0,30,1,a\n10,40,2,b\n");
        write("directions.csv", "azimuth\n0\n10\n20\n189\n355\n\n");
    }

    void planesHaveTheirNumbers_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("degrees") << path("planes.csv");
        QTest::newRow("radians") << path("radians.csv");
    }

    void planesHaveTheirNumbers()
    {
        QFETCH(QString, file);
        const QJsonObject json = jsonOf(QStringList{"stats", file, "--json"} + g_lAngles);
        QCOMPARE(json["n"].toInt(), 5);
        QCOMPARE(json["missing"].toInt(), file == path("planes.csv") ? 1 : 0);
        QVERIFY(isClose(json["meanResultantLength"].toDouble(), 0.993839, 5e-7));
        QVERIFY(isClose(json["sphericalVariance"].toDouble(), 1.0 - 0.993839, 5e-7));
        QVERIFY(isClose(json["kappa"].toDouble(), 129.846, 5e-4));
        QVERIFY(isClose(json["alpha95"].toDouble(), 6.740, 5e-4));
        const double adValues[] = {0.004280, 0.057020, 4.938701};
        for (int i = 0; i < 3; ++i) {
            QVERIFY(isClose(json["eigenvalues"][i].toDouble(), adValues[i], 5e-7));
        }
        QVERIFY(isClose(json["lnS1S2"].toDouble(), 4.461463, 5e-7));
        QVERIFY(isClose(json["lnS2S3"].toDouble(), 2.589468, 5e-7));
        QVERIFY(isClose(json["K"].toDouble(), 1.722926, 5e-7));
        QVERIFY(isClose(json["C"].toDouble(), 7.050931, 5e-7));
        QVERIFY(json["unimodal"].toBool());
        const QJsonValue mean = json["meanResultant"];
        QVERIFY(isClose(mean["plane"]["dip"].toDouble(), 31.79, 0.005));
        QVERIFY(isClose(mean["plane"]["azimuth"].toDouble(), 90.83, 0.005));
        // A pole stands upright on its plane, the fold axis is the first eigenvector.
        for (const char* pKey : {"meanResultant", "meanPrincipal", "girdle", "suggestedSection", "T", "L"}) {
            const QJsonValue result = json[QLatin1String(pKey)];
            QVERIFY(isClose(result["plane"]["dip"].toDouble() + result["pole"]["plunge"].toDouble(), 90.0, 1e-9));
        }
        QCOMPARE(json["girdle"]["pole"], json["eigenvectors"][0]);
        QCOMPARE(json["T"]["pole"], json["eigenvectors"][1]);
        QCOMPARE(json["meanPrincipal"]["pole"], json["eigenvectors"][2]);
    }

    void linesAreTakenAsTheyAre()
    {
        const QJsonObject json = jsonOf(QStringList{"stats", path("same.csv"), "--lines", "--json"} + g_lAngles);
        QVERIFY(isClose(json["meanResultant"]["line"]["plunge"].toDouble(), 60.0, 1e-9));
        QVERIFY(isClose(json["meanPrincipal"]["line"]["azimuth"].toDouble(), 10.0, 1e-9));
        QVERIFY(isClose(json["resultant"][2].toDouble(), 3.0 * std::sin(60.0 * M_PI / 180.0), 1e-9));
    }

    void whatIsUndefinedIsNull()
    {
        const QJsonObject same = jsonOf(QStringList{"stats", path("same.csv"), "--json"} + g_lAngles);
        QCOMPARE(same["kappa"], QJsonValue("unbounded"));
        QCOMPARE(same["alpha95"].toDouble(-1.0), 0.0);
        QVERIFY(same["girdle"].isNull() && same["T"].isNull() && same["eigenvectors"][0].isNull());
        QVERIFY(same["meanPrincipal"].isObject());

        const QJsonObject one = jsonOf(QStringList{"stats", path("same.csv"), "--rows", "1", "--json"} + g_lAngles);
        QVERIFY(one["kappa"].isNull() && one["alpha95"].isNull() && one["meanResultant"].isObject());

        const QStringList lNone{"stats", path("planes.csv"), "--where", "bed=c"};
        const QJsonObject none = jsonOf(lNone + g_lAngles + QStringList{"--json"});
        QCOMPARE(none.keys(), same.keys());
        for (const QString& sKey : none.keys()) {
            QVERIFY2(none[sKey].isNull() != (sKey == "n" || sKey == "missing"), qPrintable(sKey));
        }
        const QString sText = runCommand(lNone + g_lAngles).m_sOutput;
        QVERIFY2(sText.contains("---") && !sText.contains("nan") && !sText.contains("99999"), qPrintable(sText));
    }

    void directionsAreCountedInSectors()
    {
        const QStringList lStats{"stats", path("directions.csv"), "--direction", "azimuth"};
        QJsonObject json = jsonOf(lStats + QStringList{"--json"});
        QCOMPARE(json["n"].toInt(), 5);
        QCOMPARE(json["sectors"].toArray().size(), 18);
        QCOMPARE(json["sectors"][0].toInt(), 2);
        QCOMPARE(json["sectors"][1].toInt(), 1);
        // 7 degrees leave 357 to 360 uncovered; 100 leave 300 to 360.
        QCOMPARE(jsonOf(lStats + QStringList{"--json", "--sector", "7"})["sectors"].toArray().size(), 51);
        const QString sText = runCommand(lStats + QStringList{"--sector", "100"}).m_sOutput;
        QVERIFY2(sText.contains("   300    360         1"), qPrintable(sText));
        // Axes: 189 is 9.
        json = jsonOf(lStats + QStringList{"--json", "--axial", "--sector", "180"});
        QCOMPARE(json["sectors"], QJsonValue(QJsonArray{5, 5}));
        const QString sAxes = runCommand(lStats + QStringList{"--axial", "--sector", "180"}).m_sOutput;
        QVERIFY2(sAxes.contains("180         5     50.00"), qPrintable(sAxes));
        QVERIFY2(sAxes.contains("per cent of 5 records, both ends"), qPrintable(sAxes));
        QVERIFY(isClose(json["meanDirection"].toDouble(), 6.8, 0.1));
        QVERIFY(json["meanResultantLength"].toDouble() > 0.9);
        json = jsonOf(lStats + QStringList{"--json", "--rows", "6"});
        QCOMPARE(json["n"].toInt(-1), 0);
        QVERIFY(json["meanDirection"].isNull() && json["meanResultantLength"].isNull());
    }

    void densityRunsFromNorthWest()
    {
        const QStringList lDensity{"density", path("same.csv"), "--grid", "5x4", "--json"};
        const QJsonObject lines = jsonOf(lDensity + g_lAngles + QStringList{"--lines"});
        QCOMPARE(lines["nx"].toInt(), 5);
        QCOMPARE(lines["ny"].toInt(), 4);
        QCOMPARE(lines["counts"].toArray().size(), 4);
        QCOMPARE(lines["counts"][0].toArray().size(), 5);
        // 60/010 lies a little to the north-east of the centre: between the middle and the next column, in the upper
        // of the two rows beside the centre.
        const QJsonArray counts = lines["counts"].toArray();
        QCOMPARE(counts[0].toArray(), (QJsonArray{0, 0, 3, 3, 0}));
        QCOMPARE(counts[1].toArray(), (QJsonArray{0, 0, 3, 3, 0}));
        // The pole of 60/010 lies on the other side, further out.
        const QJsonArray poles = jsonOf(lDensity + g_lAngles)["counts"].toArray();
        QCOMPARE(poles[2].toArray(), (QJsonArray{0, 3, 3, 0, 0}));
        const QString sText =
            runCommand(QStringList{"density", path("same.csv"), "--projection", "equal-angle"} + g_lAngles).m_sOutput;
        QVERIFY2(sText.contains("100.00 per cent of N"), qPrintable(sText));
    }

    void rotationAddsTwoAttributes()
    {
        const QString sOut = path("rotated.csv");
        const QStringList lRotate{"rotate", path("planes.csv"), "--axis", "0/45", "--angle", "40", "--out", sOut};
        const CommandResult result = runCommand(lRotate + g_lAngles);
        QCOMPARE(result.m_sMessage, QString());
        QVERIFY(result.m_sOutput.startsWith("5 of 6 records"));
        QList<QByteArray> lRows = content(sOut).split('\n');
        while (lRows.first().startsWith('#')) {
            lRows.removeFirst();
        }
        QCOMPARE(lRows[0], "dip [deg],azimuth [deg],bed,Rotated:Dip [deg],Rotated:Dip Azimuth [deg]");
        QVERIFY(lRows[1].startsWith("30,90,a,64.14"));
        QVERIFY(isClose(lRows[1].split(',').last().toDouble(), 111.87, 0.005));
        QCOMPARE(lRows[4], ",80,b,,"); // a missing dip stays missing
        // And back again, beside the attributes of the first rotation.
        const QStringList lBack{"rotate", sOut, "--axis", "0/45",        "--angle",   "-40",
                                "--out",  sOut, "--dip",  "Rotated:Dip", "--azimuth", "Rotated:Dip Azimuth"};
        QCOMPARE(runCommand(lBack).m_sMessage, QString());
        const QJsonObject before = jsonOf(QStringList{"stats", path("planes.csv"), "--json"} + g_lAngles);
        const QJsonObject after =
            jsonOf({"stats", sOut, "--json", "--dip", "Rotated:Dip_1", "--azimuth", "Rotated:Dip Azimuth_1"});
        QVERIFY(isClose(after["meanResultant"]["plane"]["azimuth"].toDouble(),
                        before["meanResultant"]["plane"]["azimuth"].toDouble(), 1e-9));
        QVERIFY(isClose(after["kappa"].toDouble(), before["kappa"].toDouble(), 1e-6));
    }

    void woodcockTellsWhatItLeavesOut()
    {
        const QStringList lRender{"render", path("planes.csv"), "--chart", "woodcock", "--size", "400x300", "--out"};
        const CommandResult result =
            runCommand(lRender + QStringList{path("w.png"), "--color-by", "bed", "--background", "black"} + g_lAngles);
        QCOMPARE(result.m_sMessage, QString());
        QVERIFY2(result.m_sOutput.startsWith("\"a\" is not in the diagram."),
                 qPrintable(result.m_sOutput)); // two planes
        QVERIFY2(!result.m_sOutput.contains("\"b\""), qPrintable(result.m_sOutput));
        const QImage image(path("w.png"));
        QCOMPARE(image.size(), QSize(400, 300));
        QCOMPARE(image.pixelColor(2, 2), QColor(Qt::black));
    }

    void everyOptionChangesTheChart_data()
    {
        QTest::addColumn<QStringList>("chart");
        QTest::addColumn<QList<QStringList>>("options");
        const QList<QStringList> lvBoth{
            {},           {"--contours"}, {"--contours", "--grid", "10"}, {"--no-points"},
            {"--planes"}, {"--net"},      {"--color-by", "bed"},          {"--background", "black"}};
        QList<QStringList> lvStereonet{{"--projection", "equal-angle"}, {"--lines"}};
        for (const char* pResult : {"mean", "principal", "girdle", "T", "L", "section"}) {
            lvStereonet << QStringList{"--results", pResult};
        }
        const QList<QStringList> lvTangent{{"--maximum-angle", "50"}, {"--fold-axis"}};
        QTest::newRow("stereonet") << QStringList{"stereonet"} + g_lAngles << lvBoth + lvStereonet;
        QTest::newRow("tangent") << QStringList{"tangent"} + g_lAngles << lvBoth + lvTangent;
        QTest::newRow("rose") << QStringList{"rose", "--direction", "azimuth"}
                              << QList<QStringList>{{},          {"--sector", "5"},     {"--scaling", "linear"},
                                                    {"--axial"}, {"--color-by", "bed"}, {"--background", "black"}};
    }

    void everyOptionChangesTheChart()
    {
        QFETCH(QStringList, chart);
        QFETCH(QList<QStringList>, options);
        QHash<QByteArray, QStringList> hPictures;
        for (const QStringList& lOptions : options) {
            const QString sFile = path("chart.png");
            const CommandResult result =
                runCommand(QStringList{"render", path("planes.csv"), "--size", "500x400", "--out", sFile, "--chart"} +
                           chart + lOptions);
            QCOMPARE(result.m_sMessage, QString());
            const QByteArray qPicture = content(sFile);
            QVERIFY2(!hPictures.contains(qPicture),
                     qPrintable(lOptions.join(' ') + " is drawn as " + hPictures[qPicture].join(' ')));
            hPictures.insert(qPicture, lOptions);
        }
        for (const char* pFormat : {"svg", "pdf", "emf"}) {
            const QString sFile = path("chart.") + QLatin1String(pFormat);
            QCOMPARE(
                runCommand(QStringList{"render", path("planes.csv"), "--out", sFile, "--chart"} + chart).m_sMessage,
                QString());
            QVERIFY(content(sFile).size() > 1000);
        }
    }

    void tangentTellsTheFoldAxis()
    {
        // Planes that contain the line 20/050: tan dip · cos(azimuth − 50) = tan 20.
        write("fold.csv", "dip,azimuth\n20,50\n36.05389,110\n36.05389,350\n27.2366,95\n");
        const QStringList lRender{"render", path("fold.csv"), "--chart", "tangent", "--fold-axis", "--out"};
        const CommandResult result = runCommand(lRender + QStringList{path("t.png")} + g_lAngles);
        QVERIFY2(result.m_sOutput.startsWith("fold axis 20.0/050.0"), qPrintable(result.m_sOutput));
        const CommandResult one = runCommand(lRender + QStringList{path("t.png"), "--rows", "1"} + g_lAngles);
        QVERIFY2(one.m_sOutput.startsWith("no fold axis"), qPrintable(one.m_sOutput));
    }

    void exitStatus_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("word"); // of the message
        const QString sPlanes = path("planes.csv");
        const QString sStrike = path("strike.csv");
        const QStringList lStats{"stats", sPlanes};
        QTest::newRow("nothing to tell of") << lStats << 2 << "--direction";
        QTest::newRow("dip alone") << lStats + QStringList{"--dip", "dip"} << 2 << "azimuth";
        QTest::newRow("two subjects") << lStats + g_lAngles + QStringList{"--attribute", "dip"} << 2 << "--dip";
        QTest::newRow("sector of planes") << lStats + g_lAngles + QStringList{"--sector", "10"} << 2 << "--sector";
        QTest::newRow("no such dip") << lStats + QStringList{"--dip", "plunge", "--azimuth", "azimuth"} << 1
                                     << "plunge";
        QTest::newRow("dip in metres") << QStringList{"stats", sStrike, "--dip", "depth", "--azimuth", "azimuth"} << 1
                                       << "measured in m";
        QTest::newRow("strike for azimuth")
            << QStringList{"stats", sStrike, "--dip", "dip", "--azimuth", "strike"} << 1 << "is a strike";
        QTest::newRow("directions of texts") << QStringList{"stats", sStrike, "--direction", "rock"} << 1 << "rock";
        const QStringList lRose{"stats", sPlanes, "--direction", "azimuth", "--sector"};
        QTest::newRow("sector of nothing") << lRose + QStringList{"0"} << 2 << "--sector";
        QTest::newRow("sector beyond the circle") << lRose + QStringList{"361"} << 2 << "--sector";
        const QStringList lDensity = QStringList{"density", sPlanes} + g_lAngles;
        QTest::newRow("grid of one row") << lDensity + QStringList{"--grid", "5x1"} << 2 << "--grid";
        QTest::newRow("huge grid") << lDensity + QStringList{"--grid", "5x2001"} << 2 << "--grid";
        QTest::newRow("no grid") << lDensity + QStringList{"--grid", "5"} << 2 << "--grid";
        QTest::newRow("projection") << lDensity + QStringList{"--projection", "mercator"} << 2 << "mercator";
        const QStringList lRotate = QStringList{"rotate", sPlanes, "--out", path("out.csv")} + g_lAngles;
        QTest::newRow("no axis") << lRotate + QStringList{"--angle", "4"} << 2 << "--axis";
        QTest::newRow("axis of one number") << lRotate + QStringList{"--angle", "4", "--axis", "12"} << 2 << "--axis";
        QTest::newRow("axis steeper than vertical")
            << lRotate + QStringList{"--angle", "4", "--axis", "91/0"} << 2 << "--axis";
        QTest::newRow("angle in words") << lRotate + QStringList{"--angle", "much", "--axis", "0/0"} << 2 << "--angle";
        const QStringList lNet = QStringList{"render", sPlanes, "--chart", "stereonet", "--out", path("n.png")};
        QTest::newRow("unknown result") << lNet + g_lAngles + QStringList{"--results", "mean,beta"} << 2 << "beta";
        QTest::newRow("contours of a huge grid") << lNet + g_lAngles + QStringList{"--grid", "501"} << 2 << "--grid";
        QTest::newRow("planes of lines") << lNet + g_lAngles + QStringList{"--planes", "--lines"} << 2 << "--planes";
        QTest::newRow("net without azimuth") << lNet + QStringList{"--dip", "dip"} << 2 << "--azimuth";
        const QStringList lTangent = QStringList{"render", sPlanes, "--chart", "tangent", "--out", path("t.png")};
        QTest::newRow("flat tangent diagram")
            << lTangent + g_lAngles + QStringList{"--maximum-angle", "9"} << 2 << "--maximum-angle";
        QTest::newRow("fold axis of lines")
            << lTangent + g_lAngles + QStringList{"--fold-axis", "--lines"} << 2 << "--fold-axis";
        QTest::newRow("rose without direction")
            << QStringList{"render", sPlanes, "--chart", "rose", "--out", path("r.png")} << 2 << "--direction";
        QTest::newRow("rotate into nowhere")
            << QStringList{"rotate", sPlanes, "--out", path("no/x.csv"), "--angle", "4", "--axis", "0/0"} + g_lAngles
            << 1 << "written";
    }

    void exitStatus()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        QFETCH(QString, word);
        gkTest::verifyFailure(arguments, status, word);
    }

private:
    static QJsonObject jsonOf(const QStringList& lArguments)
    {
        const CommandResult result = runCommand(lArguments);
        if (!result.m_sMessage.isEmpty())
            qWarning().noquote() << result.m_sMessage;
        return QJsonDocument::fromJson(result.m_sOutput.toUtf8()).object();
    }
};

QTEST_MAIN(tst_OrientationCommands)
#include "tst_orientationcommands.moc"
