#include "CsvImporter.h"
#include "OrientationRecognizer.h"
#include "OrientationText.h"

#include <gkBase/MatrixData.h>
#include <gkBase/MatrixDataStrike.h>
#include <gkBase/UnitRegistry.h>

#include <QTest>

#include <cmath>

using namespace gkHost;
using Convention = OrientationConvention;

namespace {

ImportTable table(const QByteArray& qBytes)
{
    ImportResult result = CsvImporter::readBytes(qBytes, QStringLiteral("a.csv"));
    return result.m_vTables.empty() ? ImportTable() : std::move(result.m_vTables.front());
}

/// "convention: angle column, direction column" per proposal.
QStringList describe(const ImportTable& table)
{
    QStringList lLines;
    const auto name = [&](int i) {
        return i < 0 ? QStringLiteral("-") : table.m_vColumns[static_cast<std::size_t>(i)].m_sName;
    };
    for (const OrientationProposal& proposal : OrientationRecognizer::propose(table)) {
        lLines << OrientationRecognizer::conventionName(proposal.m_eConvention).section(u' ', 0, 1) + u':' +
                      name(proposal.m_iAngleColumn) + u',' + name(proposal.m_iDirectionColumn);
    }
    return lLines;
}

QStringList cells(const ImportTable& table, const QString& sName)
{
    QStringList lCells;
    const int i = table.indexOf(sName);
    if (i >= 0) {
        const gkBase::MatrixColumn& values = table.m_vColumns[static_cast<std::size_t>(i)].m_oValues;
        for (int iRow = 0; iRow < values.size(); ++iRow) {
            lCells << (values.isMissing(iRow) ? QStringLiteral("~") : values.value(iRow).toString());
        }
    }
    return lCells;
}

} // namespace

class TestOrientationImport : public QObject
{
    Q_OBJECT

private slots:
    void planeTexts_data();
    void planeTexts();
    void planeTextsOfAllStrikesLieAcross();
    void directionTexts();
    void proposals_data();
    void proposals();
    void strikeIsLinkedToAzimuth();
    void strikeBesideItsAzimuth_data();
    void strikeBesideItsAzimuth();
    void anglesAreCheckedNotBent();
    void textsBecomeAngles_data();
    void textsBecomeAngles();
    void unfitProposalsChangeNothing();
};

void TestOrientationImport::planeTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("dip");
    QTest::addColumn<double>("azimuth"); // -1: no orientation
    const auto row = [](const char* pcText, double dDip, double dAzimuth) {
        QTest::newRow(pcText) << QString::fromUtf8(pcText) << dDip << dAzimuth;
    };
    row("N30E/45NW", 45, 300);
    row("N30E 45 NW", 45, 300);
    row("N30E, 45SE", 45, 120);
    row("n 30.5° w / 20° ne", 20, 59.5);
    row("S30W 45 E", 45, 120);
    row("N-S/60E", 60, 90);
    row("EW 30 N", 30, 0);
    row("NE 45 SE", 45, 135);
    row("045 30 SE", 30, 135);
    row("N30E/NW45", 45, 300);
    row("N0E/10W", 10, 270);
    row("N90W 80S", 80, 180);
    row("N30E/90", 90, 120);
    row("N30E/0", 0, 120);
    row("N30E/30NE", 30, 120); // the letters lie 15 degrees off the strike
    row("N45E/30NE", 0, -1);
    row("N30E/45", 0, -1); // either side
    row("N30E/95NW", 0, -1);
    row("N130E/45NW", 0, -1);
    row("N30E", 0, -1);
    row("045/30", 0, -1);
    row("folded", 0, -1);
    row("", 0, -1);
}

void TestOrientationImport::planeTexts()
{
    QFETCH(QString, text);
    QFETCH(double, dip);
    QFETCH(double, azimuth);
    const auto oPlane = quadrantPlane(text);
    QCOMPARE(oPlane.has_value(), azimuth >= 0);
    if (oPlane) {
        QCOMPARE(oPlane->m_dAngle, dip);
        QCOMPARE(oPlane->m_dAzimuth, azimuth);
    }
}

void TestOrientationImport::planeTextsOfAllStrikesLieAcross()
{
    const QStringList lLetters = {"N", "NE", "E", "SE", "S", "SW", "W", "NW"};
    for (int iStrike = 0; iStrike < 180; ++iStrike) {
        const QString sStrike = iStrike <= 90 ? QString("N%1E").arg(iStrike) : QString("S%1E").arg(180 - iStrike);
        for (int i = 0; i < lLetters.size(); ++i) {
            const auto oPlane = quadrantPlane(sStrike + "/30" + lLetters[i]);
            const double dAcross = std::abs(std::remainder(45.0 * i - iStrike, 180.0));
            QCOMPARE(oPlane.has_value(), dAcross > 0);
            if (oPlane) {
                QCOMPARE(std::abs(std::remainder(oPlane->m_dAzimuth - iStrike, 180.0)), 90.0);
                QVERIFY(std::abs(std::remainder(oPlane->m_dAzimuth - 45.0 * i, 360.0)) < 90);
            }
        }
    }
}

void TestOrientationImport::directionTexts()
{
    const auto azimuth = [](const char* pcText) {
        const auto oDirection = quadrantDirection(QString::fromUtf8(pcText));
        return oDirection ? oDirection->m_dAzimuth : -1;
    };
    QCOMPARE(azimuth("S45W"), 225.0);
    QCOMPARE(azimuth("N10W"), 350.0);
    QCOMPARE(azimuth("N0W"), 0.0);
    QCOMPARE(azimuth("SE"), 135.0);
    QCOMPARE(azimuth("W"), 270.0);
    QCOMPARE(azimuth("30 S45W"), 225.0);
    QCOMPARE(quadrantDirection("S45W/30")->m_odPlunge, std::optional(30.0));
    QCOMPARE(azimuth("S95W"), -1.0);
    QCOMPARE(azimuth("95 N10E"), -1.0);
    QCOMPARE(azimuth("45"), -1.0);
}

void TestOrientationImport::proposals_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("expected");
    using L = QStringList;
    const auto row = [](const char* pcName, const QByteArray& qBytes, const L& lExpected) {
        QTest::newRow(pcName) << qBytes << lExpected;
    };
    row("dip and azimuth", "depth,dip,dip_azimuth\n1,2,3\n", L{"Dip and:dip,dip_azimuth"});
    row("other words", "DipDir (deg),Dip [°]\n1,2\n", L{"Dip and:Dip,DipDir"});
    row("strike", "Strike (RHR),Dip\n1,2\n", L{"Strike (right-hand:Dip,Strike (RHR)"});
    row("lines", "Plunge,Trend\n1,2\n", L{"Plunge and:Plunge,Trend"});
    row("two groups", "fault_dip,line_azimuth,fault_azimuth,line_plunge\n1,2,3,4\n",
        L{"Plunge and:line_plunge,line_azimuth", "Dip and:fault_dip,fault_azimuth"});
    row("direction alone", "azimuth,length\n1,2\n", L{"Azimuth:-,azimuth"});
    row("no angles", "dip_quality,strike_class,Depth\n1,2,3\n", L{});
    row("angles in other units", "dip [rad],azimuth [rad]\n1,2\n", L{});
    row("a dip alone", "dip\n1\n", L{});
    row("quadrants", "a,b\nN30E/45NW,1\nN-S 20 W,2\n", L{"Strike, dip:-,a"});
    row("bearings", "flow\nS45W\nN10E\n", L{"Direction by:-,flow"});
    row("letters of a code", "class\nN\nS\nE\n", L{});
    row("azimuth first", "plane\n045/30\n120/08\n", L{"Strike (right-hand:-,plane"});
    row("azimuth first, named", "dip direction\n045/30\n", L{"Dip azimuth/dip:-,dip direction"});
    row("angle first", "line plunge\n30/045\n", L{"Plunge/trend (30/045):-,line plunge"});
    row("dates", "day\n12/11\n01/02\n", L{});
}

void TestOrientationImport::proposals()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, expected);
    QStringList lActual = describe(table(bytes));
    lActual.sort();
    expected.sort();
    QCOMPARE(lActual, expected);
}

void TestOrientationImport::strikeBesideItsAzimuth_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("azimuth"); // column that the last one is linked to
    QTest::newRow("agree") << QByteArray("dip,dip azimuth,strike\n30,120,30\n45,10,280\n60,90,360\n,,\n") << 1;
    QTest::newRow("rounded") << QByteArray("dip,azimuth,strike\n30,120.004,30\n45,89.996,0\n") << 1;
    QTest::newRow("no dip") << QByteArray("azimuth,strike\n120,30\n45,315\n") << 0;
    QTest::newRow("one off") << QByteArray("dip,dip azimuth,strike\n30,120,30\n45,10,280.1\n") << -1;
    QTest::newRow("left-hand") << QByteArray("dip,dip azimuth,strike\n30,120,210\n45,10,100\n") << -1;
    QTest::newRow("a gap") << QByteArray("dip,dip azimuth,strike\n30,120,30\n45,10,\n") << -1;
    QTest::newRow("all empty") << QByteArray("dip,dip azimuth,strike\n30,,\n45,,\n") << -1;
}

void TestOrientationImport::strikeBesideItsAzimuth()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, azimuth);
    ImportTable planes = table(bytes);
    ImportReport report;
    const int iColumns = planes.columnCount();
    OrientationRecognizer::applyOrientation(planes, OrientationRecognizer::propose(planes), report);
    QCOMPARE(planes.columnCount(), iColumns);
    QCOMPARE(planes.m_vColumns.back().m_iStrikeOf, azimuth);
    const bool bAllEmpty = bytes.endsWith(",,\n45,,\n");
    QCOMPARE(report.toText().contains(QLatin1String("\"strike\" is ")), !bAllEmpty); // told either way
}

void TestOrientationImport::strikeIsLinkedToAzimuth()
{
    ImportTable strikes = table("strike,dip\n0,10\n270.5,20\n,30\n-45,40\n");
    ImportReport report;
    OrientationRecognizer::applyOrientation(strikes, OrientationRecognizer::propose(strikes), report);
    QCOMPARE(cells(strikes, "azimuth"), QStringList({"90", "0.5", "~", "45"}));
    QCOMPARE(report.repairCount(), 1); // -45 reads as 315
    QCOMPARE(report.repairs()[0].m_iLine, 5);

    const auto poDataSet = toDataSet(std::move(strikes), gkBase::UnitRegistry::standard());
    auto* poStrike = dynamic_cast<gkBase::MatrixDataStrike*>(poDataSet->getNodeFromName("strike"));
    QVERIFY(poStrike);
    QCOMPARE(poStrike->azimuth(), poDataSet->getNodeFromName("azimuth"));
    QCOMPARE(poStrike->toDouble(3, 0), 0.0);
    QCOMPARE(poStrike->toDouble(4, 0), 270.5);
    QCOMPARE(poStrike->toDouble(6, 0), 315.0);
    QVERIFY(poDataSet->hasOrientationData());
    QCOMPARE(poDataSet->getNodeFromName("dip")->unitCategory(), QStringLiteral("orientation"));
}

void TestOrientationImport::anglesAreCheckedNotBent()
{
    ImportTable planes = table("dip,dip azimuth\n95,360\n-5,-10\n90,359\n99999,400\n");
    ImportReport report;
    OrientationRecognizer::applyOrientation(planes, OrientationRecognizer::propose(planes), report);
    QCOMPARE(cells(planes, "dip azimuth"), QStringList({"0", "-10", "359", "400"}));
    QCOMPARE(cells(planes, "dip").first(), QStringLiteral("95"));
    QList<qint64> lLines;
    for (const ImportNote& note : report.remarks()) {
        lLines << note.m_iLine;
    }
    QCOMPARE(lLines, QList<qint64>({2, 3, 3, 5})); // dips, then azimuths
    QCOMPARE(report.repairs().at(0).m_iLine, 2);
}

void TestOrientationImport::textsBecomeAngles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Convention>("convention");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("angles");
    QTest::addColumn<QStringList>("azimuths");
    using L = QStringList;
    QTest::newRow("quadrants") << QByteArray("a\nN30E/45NW\n\nNA\nN-S 20 W\nbroken\n") << Convention::QuadrantPlane
                               << L{"a", "Dip", "Dip Azimuth"} << L{"45", "~", "20", "~"} << L{"300", "~", "270", "~"};
    QTest::newRow("directions") << QByteArray("a\nS45W\nN10E\n") << Convention::QuadrantDirection << L{"a", "Azimuth"}
                                << L{} << L{"225", "10"};
    QTest::newRow("lines") << QByteArray("a\n30 S45W\nN10E\n") << Convention::QuadrantDirection
                           << L{"a", "Plunge", "Trend"} << L{"30", "~"} << L{"225", "10"};
    QTest::newRow("strike/dip") << QByteArray("a\n045/30\n300/08\n") << Convention::StrikeDipText
                                << L{"a", "Dip", "Dip Azimuth"} << L{"30", "8"} << L{"135", "30"};
    QTest::newRow("azimuth/dip") << QByteArray("a\n360/30\n045/95\n") << Convention::AzimuthDipText
                                 << L{"a", "Dip", "Dip Azimuth"} << L{"30", "~"} << L{"0", "~"};
    QTest::newRow("plunge/trend") << QByteArray("a\n30/045\n") << Convention::PlungeTrendText
                                  << L{"a", "Plunge", "Trend"} << L{"30"} << L{"45"};
}

void TestOrientationImport::textsBecomeAngles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(Convention, convention);
    QFETCH(QStringList, names);
    QFETCH(QStringList, angles);
    QFETCH(QStringList, azimuths);
    ImportTable texts = table(bytes);
    const QStringList lBefore = cells(texts, "a");
    ImportReport report;
    OrientationRecognizer::applyOrientation(texts, {{convention, -1, 0, QString(), {}}}, report);
    QStringList lNames;
    for (const ImportColumn& column : texts.m_vColumns) {
        lNames << column.m_sName;
    }
    QCOMPARE(lNames, names);
    QCOMPARE(cells(texts, "a"), lBefore);
    QCOMPARE(cells(texts, names.last()), azimuths);
    if (!angles.isEmpty()) {
        QCOMPARE(cells(texts, names[1]), angles);
    }
    QCOMPARE(report.remarks().size(), std::size_t(lBefore.count("broken") + lBefore.count("045/95")));
}

void TestOrientationImport::unfitProposalsChangeNothing()
{
    const QByteArray qBytes = "dip,azimuth,text\n1,2,x\n";
    ImportTable angles = table(qBytes);
    ImportReport report;
    const std::vector<OrientationProposal> vUnfit = {{Convention::DipAndAzimuth, 0, 7, QString(), {}},
                                                     {Convention::DipAndAzimuth, 0, 2, QString(), {}},
                                                     {Convention::DipAndAzimuth, 1, 1, QString(), {}},
                                                     {Convention::StrikeAndDip, -1, 0, QString(), {}},
                                                     {Convention::QuadrantPlane, -1, 0, QString(), {}}};
    OrientationRecognizer::applyOrientation(angles, vUnfit, report);
    QCOMPARE(report.remarks().size(), vUnfit.size());
    QCOMPARE(angles.columnCount(), 3);
    QCOMPARE(angles.m_vColumns[0].m_sCategory, QString());
    QCOMPARE(angles.m_vColumns[0].m_oValues.type(), QMetaType::Int);
}

QTEST_GUILESS_MAIN(TestOrientationImport)
#include "tst_orientationimport.moc"
