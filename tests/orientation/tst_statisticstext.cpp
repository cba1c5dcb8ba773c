// What panels and reports say about orientation statistics: rows, page, report and the legend of contours.

#include <ContourLegend.h>
#include <ContourLegendGeometry.h>
#include <OrientationReport.h>
#include <StereoStatisticsPage.h>
#include <gkBase/OrientationStatisticsRows.h>
#include <gkBase/QDataStatisticSummary.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QMap>
#include <QPainter>
#include <QScrollBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextTable>

#include <algorithm>
#include <vector>

using namespace gkBase;

namespace {

using Numbers = std::vector<double>;
using Rows = std::vector<OrientationStatisticsRow>;

const Numbers g_vdDips{30, 35, 25, 30, 40};
const Numbers g_vdAzimuths{90, 95, 85, 80, 100};
/// Steep planes that dip both ways: as vectors their poles cancel.
const Numbers g_vdSteepDips{85, 85, 88, 88};
const Numbers g_vdSteepAzimuths{90, 270, 92, 268};

Rows rowsOf(const Numbers& vdAngles, const Numbers& vdAzimuths, OrientationType eType = OrientationType::Planes,
            OrientationConvention eConvention = OrientationConvention::DipAzimuth)
{
    return orientationStatisticsRows(orientationStatistics(eType, vdAngles, vdAzimuths), false, eConvention);
}

QString valueOf(const Rows& vRows, const QString& sLabel)
{
    const auto it = std::find_if(vRows.begin(), vRows.end(), [&](const auto& row) { return row.m_sLabel == sLabel; });
    return it == vRows.end() ? QStringLiteral("no such row") : it->m_sValue;
}

OrientationReportData reportData(const QString& sName)
{
    OrientationReportData data;
    data.m_sName = sName;
    data.m_vStatistics = {orientationStatistics(OrientationType::Planes, g_vdDips, g_vdAzimuths)};
    return data;
}

/// Cells of all tables of the document.
QStringList cellsOf(const QTextDocument& document)
{
    QStringList lCells;
    for (QTextFrame* pqFrame : document.rootFrame()->childFrames()) {
        const auto* pqTable = qobject_cast<QTextTable*>(pqFrame);
        for (int i = 0; pqTable && i < pqTable->rows() * pqTable->columns(); ++i) {
            QTextCursor cursor = pqTable->cellAt(i / pqTable->columns(), i % pqTable->columns()).firstCursorPosition();
            cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            lCells << cursor.selectedText();
        }
    }
    return lCells;
}

} // namespace

class TestStatisticsText : public QObject
{
    Q_OBJECT
private slots:
    void knownRecords();
    void undefinedValues_data();
    void undefinedValues();
    void conventions();
    void misleadingMeanIsReplaced();
    void weightsShowTheEffectiveNumber();
    void anglesOutOfRangeAreTold();
    void pageFitsASideBarAndCopies();
    void reportIsWhatIsComposed();
    void reportsDoNotAccumulate();
    void reportOfAnAnalysis();
    void reportIsSaved();
    void legendNumbersKeepApart_data();
    void legendNumbersKeepApart();
    void legendTellsWhatItsNumbersMean();
};

void TestStatisticsText::knownRecords()
{
    const Rows vRows = rowsOf(g_vdDips, g_vdAzimuths);
    const QMap<QString, QString> expected{
        {"N", "5"},
        {"Mean resultant length", "0.993839"},
        {"κ", "129.846"},
        {"α95 [°]", "6.740"},
        {"Mean resultant plane", "31.79/090.83"},
        {"Mean resultant pole", "58.21/270.83"},
        {"e1 = S3", "0.004280"},
        {"e2 = S2", "0.057020"},
        {"e3 = S1", "4.938701"},
        {"ln(S1/S2)", "4.461463"},
        {"ln(S2/S3)", "2.589468"},
        {"K", "1.722926"},
        {"C", "7.050931"},
        {"Classification", "1. clustered unimodal"},
        {"Unimodal", "yes"},
    };
    for (auto it = expected.begin(); it != expected.end(); ++it)
        QCOMPARE(valueOf(vRows, it.key()), it.value());
    QCOMPARE(tabSeparatedText(vRows).count('\t'), static_cast<qsizetype>(vRows.size()));
}

void TestStatisticsText::undefinedValues_data()
{
    QTest::addColumn<Numbers>("dips");
    QTest::addColumn<Numbers>("azimuths");
    QTest::addColumn<QStringList>("undefined"); ///< labels
    QTest::addColumn<QStringList>("unbounded");
    QTest::addColumn<QStringList>("defined");
    const QStringList lOpenAxes{"Best-fit girdle", "Fold axis", "T azimuth", "T plane", "L plane", "Suggested section"};
    const QStringList lMeans{"Mean resultant plane", "Mean principal pole"};
    QTest::newRow("no records") << Numbers{} << Numbers{}
                                << QStringList{"κ", "α95 [°]", "K", "C", "e1 = S3", "Classification", "Unimodal"} +
                                       lOpenAxes + lMeans
                                << QStringList{} << QStringList{"N"};
    QTest::newRow("one record") << Numbers{30} << Numbers{90}
                                << QStringList{"κ", "α95 [°]", "ln(S2/S3)", "K"} + lOpenAxes
                                << QStringList{"ln(S1/S2)", "C"} << lMeans;
    QTest::newRow("identical records") << Numbers{30, 30, 30} << Numbers{90, 90, 90}
                                       << QStringList{"ln(S2/S3)", "K"} + lOpenAxes
                                       << QStringList{"κ", "ln(S1/S2)", "C"} << QStringList{"α95 [°]"} + lMeans;
    QTest::newRow("coplanar poles") << Numbers{90, 90, 90} << Numbers{0, 30, 50} << QStringList{"K"}
                                    << QStringList{"ln(S2/S3)", "C"} << QStringList{"ln(S1/S2)", "κ"} + lMeans;
    QTest::newRow("cancelling poles") << Numbers{90, 90} << Numbers{0, 180}
                                      << QStringList{"α95 [°]", "Mean resultant plane", "Suggested section"}
                                      << QStringList{} << QStringList{"Mean principal plane"};
}

void TestStatisticsText::undefinedValues()
{
    QFETCH(Numbers, dips);
    QFETCH(Numbers, azimuths);
    const Rows vRows = rowsOf(dips, azimuths);
    const auto compare = [&vRows](const QStringList& lLabels, const QString& sValue) {
        for (const QString& sLabel : lLabels)
            QVERIFY2(valueOf(vRows, sLabel) == sValue, qPrintable(sLabel + " is " + valueOf(vRows, sLabel)));
    };
    QFETCH(QStringList, undefined);
    QFETCH(QStringList, unbounded);
    QFETCH(QStringList, defined);
    compare(undefined, "---");
    compare(unbounded, "unbounded");
    for (const QString& sLabel : defined)
        QVERIFY2(valueOf(vRows, sLabel).at(0).isDigit(), qPrintable(sLabel + " is " + valueOf(vRows, sLabel)));
    for (const OrientationStatisticsRow& row : vRows) {
        QVERIFY2(!row.m_sToolTip.isEmpty(), qPrintable(row.m_sLabel));
        QVERIFY2(!row.m_sValue.contains("99999") && !row.m_sValue.contains("nan"), qPrintable(row.m_sLabel));
        const bool bHasNumber = row.m_sValue != "---" && row.m_sValue != "unbounded";
        QVERIFY2(row.m_sReason.isEmpty() == bHasNumber, qPrintable(row.m_sLabel));
        QVERIFY2(row.m_sToolTip.endsWith(row.m_sReason), qPrintable(row.m_sLabel));
    }
}

void TestStatisticsText::conventions()
{
    using enum OrientationConvention;
    const auto mean = [](OrientationConvention eConvention) {
        return valueOf(rowsOf({30, 30}, {90, 90}, OrientationType::Planes, eConvention), "Mean resultant plane");
    };
    QCOMPARE(mean(DipAzimuth), "30.00/090.00");
    QCOMPARE(mean(StrikeDip), "000.00/30.00");
    QCOMPARE(mean(StrikeDipSense), "000.00/30.00/E");
    const Rows vLines = rowsOf({30, 30}, {5, 5}, OrientationType::Lines, StrikeDipSense);
    QCOMPARE(valueOf(vLines, "Mean resultant line"), "30.00/005.00");
    QCOMPARE(valueOf(vLines, "Mean resultant plane"), "no such row");
}

void TestStatisticsText::misleadingMeanIsReplaced()
{
    const Rows vRows = rowsOf(g_vdSteepDips, g_vdSteepAzimuths);
    const auto it = std::find_if(vRows.begin(), vRows.end(), [](const auto& row) { return row.m_bWarning; });
    QVERIFY(it != vRows.end());
    QVERIFY2(it->m_sValue.contains(valueOf(vRows, "Mean principal plane")), qPrintable(it->m_sValue));
    for (const OrientationStatisticsRow& row : rowsOf(g_vdDips, g_vdAzimuths))
        QVERIFY(!row.m_bWarning);
}

void TestStatisticsText::weightsShowTheEffectiveNumber()
{
    const Numbers vdWeights{1, 1, 1, 1, 0}; // worth four records
    const auto oStatistics = orientationStatistics(OrientationType::Planes, g_vdDips, g_vdAzimuths, {}, vdWeights);
    using enum OrientationConvention;
    QCOMPARE(valueOf(orientationStatisticsRows(oStatistics, true, DipAzimuth), "Effective N"), "4.00");
    QCOMPARE(valueOf(rowsOf(g_vdDips, g_vdAzimuths), "Effective N"), "no such row");
}

void TestStatisticsText::anglesOutOfRangeAreTold()
{
    const Numbers vdAngles{30, 999, -5, 90, 0, -95, 200};
    const Numbers vdAzimuths{90, 95, 85, 80, 100, 5, 99999.0};
    QCOMPARE(valueOf(rowsOf(vdAngles, vdAzimuths), "Out of range"), "3");
    QCOMPARE(valueOf(rowsOf(vdAngles, vdAzimuths, OrientationType::Lines), "Out of range"), "2");
    QCOMPARE(valueOf(rowsOf(g_vdDips, g_vdAzimuths), "Out of range"), "no such row");
}

void TestStatisticsText::pageFitsASideBarAndCopies()
{
    StereoStatisticsPage page;
    page.resize(320, 600);
    page.show();
    const std::vector<OrientationStatistics> vStatistics{
        orientationStatistics(OrientationType::Planes, g_vdSteepDips, g_vdSteepAzimuths),
        orientationStatistics(OrientationType::Lines, g_vdSteepDips, g_vdSteepAzimuths)};
    page.showStatistics("Fractures", vStatistics, true, OrientationConvention::StrikeDipSense);
    auto* pqTable = page.findChild<QTableWidget*>();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QCOMPARE(page.width(), 320);
    QCOMPARE(pqTable->horizontalScrollBar()->maximum(), 0);
    for (int iRow = 0; iRow < pqTable->rowCount(); ++iRow) { // no text is cut
        for (int iColumn = 0; iColumn < 2; ++iColumn) {
            if (const QTableWidgetItem* pqItem = pqTable->item(iRow, iColumn))
                QVERIFY2(pqTable->columnSpan(iRow, iColumn) == 2 ||
                             pqTable->fontMetrics().horizontalAdvance(pqItem->text()) < pqTable->columnWidth(iColumn),
                         qPrintable(pqItem->text()));
        }
    }
    QCOMPARE(page.text().count("\nN\t4\n"), 2); // of the poles and of the dip lines
    pqTable->selectRow(2);
    QTest::keyClick(pqTable, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "N\t4\n");
    pqTable->verticalScrollBar()->setValue(100);
    page.showStatistics("Fractures", vStatistics, true, OrientationConvention::DipAzimuth);
    QCOMPARE(pqTable->verticalScrollBar()->value(), 100);
    page.showNothing("No records");
    QVERIFY(page.text().isEmpty() && !pqTable->isVisible());
}

void TestStatisticsText::reportIsWhatIsComposed()
{
    QDataStatisticSummary summary;
    summary.newDocument("Beds");
    summary.newTable("Means");
    summary.appendRow("R", "0.99");
    summary.appendRow("a < b & c", "two\nlines");
    summary.endTable();
    summary.updateDocument();
    const QString sCell = "<td style=\"font-family:arial;font-size:80%;color:black\">";
    const QString sValue = "<td align=right style=\"font-family:arial;font-size:80%;color:black\">";
    const QString sBody =
        "<p style=\"font-family:arial;font-size:150%;color:black\"><u><b>Summary of the Statistical Investigations of "
        "Spherical Data</b>:</u></p><p style=\"font-family:arial;font-size:150%;color:red\">Observation Data: Beds</p>"
        "<p><u><b> Means</b>:</u><table align=center bgcolor=white border=1 cellpadding=2>"
        "<tr>" +
        sCell + "R</td>" + sValue + "0.99</tr><tr>" + sCell + "a &lt; b &amp; c</td>" + sValue +
        "two<br>lines</tr></table><p>";
    QVERIFY2(summary.html().contains(sBody), qPrintable(summary.html()));
    // A reader of HTML closes the open cells.
    const QStringList lCells = cellsOf(*summary.textEdit()->document());
    QCOMPARE(lCells.size(), 4);
    QCOMPARE(lCells.mid(0, 3), (QStringList{"R", "0.99", "a < b & c"}));
}

void TestStatisticsText::reportsDoNotAccumulate()
{
    QDataStatisticSummary summary;
    showOrientationReport(summary, reportData("first"));
    const QStringList lFirst = cellsOf(*summary.textEdit()->document());
    showOrientationReport(summary, reportData("second"));
    QCOMPARE(cellsOf(*summary.textEdit()->document()).size(), lFirst.size());
    QVERIFY(summary.html().contains("second") && !summary.html().contains("first<"));
    summary.copyToClipboard();
    QCOMPARE(QApplication::clipboard()->text().count("Observation Data"), 1);
    QVERIFY(QApplication::clipboard()->text().contains("\nκ\t129.846\n"));
}

void TestStatisticsText::reportOfAnAnalysis()
{
    OrientationReportData data = reportData("Fractures <N & S>");
    data.m_bWeighted = true;
    data.m_oScanLine = {10, 45, 75};
    data.m_vRotations = {Rotation({0, 45}, 40), Rotation({5, 90}, 20)};
    const auto oSmall = orientationStatistics(OrientationType::Planes, Numbers{90, 90}, Numbers{0, 30});
    data.m_vClusters = {{"0", 5, data.m_vStatistics.front().m_oWoodcock, Qt::red},
                        {"1", 2, oSmall.m_oWoodcock, Qt::blue}};
    QDataStatisticSummary summary;
    showOrientationReport(summary, data);
    const QString sText = summary.textEdit()->document()->toPlainText();
    for (const char* pExpected : {"Fractures <N & S>", "10.00/045.00", "75.00°", "40.00° about the axis 0.00/045.00",
                                  "20.00° about the axis 5.00/090.00", "K = 1.7229", "C = ---", "Effective N",
                                  "It knows nothing of the weights"})
        QVERIFY2(sText.contains(pExpected), pExpected);

    data.m_vStatistics.clear();
    data.m_sNoStatistics = "There are no records";
    showOrientationReport(summary, data);
    QVERIFY(summary.textEdit()->document()->toPlainText().contains("none: There are no records"));
}

void TestStatisticsText::reportIsSaved()
{
    const QTemporaryDir folder;
    QDataStatisticSummary summary;
    showOrientationReport(summary, reportData("Schichtflächen"));
    QString sError;
    QVERIFY(!summary.saveAsHtml(folder.filePath("missing/report.html"), &sError));
    QVERIFY2(sError.contains("report.html") && sError.contains(": "), qPrintable(sError));
    QVERIFY2(summary.saveAsHtml(folder.filePath("report.html"), &sError), qPrintable(sError));
    QFile file(folder.filePath("report.html"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QTextDocument document;
    document.setHtml(QString::fromUtf8(file.readAll()));
    QCOMPARE(cellsOf(document), cellsOf(*summary.textEdit()->document()));
    QVERIFY(document.toPlainText().contains("Schichtflächen"));
}

void TestStatisticsText::legendNumbersKeepApart_data()
{
    QTest::addColumn<int>("bands");
    QTest::addColumn<double>("line");
    QTest::newRow("all have room") << 19 << 10.0;
    QTest::newRow("some") << 19 << 25.0;
    QTest::newRow("many") << 999 << 14.0;
    QTest::newRow("one band") << 1 << 14.0;
    QTest::newRow("no room at all") << 5 << 1000.0;
}

void TestStatisticsText::legendNumbersKeepApart()
{
    QFETCH(int, bands);
    QFETCH(double, line);
    const QRectF oArea(3, 5, 20, 280);
    const auto vBands = contourLegendBands(static_cast<std::size_t>(bands), oArea, line, true);
    QCOMPARE(vBands.size(), static_cast<std::size_t>(bands));
    QVERIFY(vBands.front().m_bNumber);
    double dLast = oArea.bottom() + line;
    double dEdge = oArea.bottom();
    for (const ContourLegendBand& band : vBands) {
        QVERIFY(std::abs(band.m_oBox.bottom() - dEdge) < 1e-9); // they tile the area
        dEdge = band.m_oBox.top();
        if (!band.m_bNumber)
            continue;
        QVERIFY(dLast - band.m_oBox.bottom() > line - 1e-9);
        dLast = band.m_oBox.bottom();
    }
    QVERIFY(std::abs(dEdge - oArea.top()) < 1e-9);
    QVERIFY(dLast - oArea.top() > line - 1e-9 || dLast == oArea.bottom());
}

void TestStatisticsText::legendTellsWhatItsNumbersMean()
{
    ContourLegend legend;
    QVERIFY(legend.isEmpty() && legend.pictureSize().isEmpty());
    ContourLegendInfo info;
    info.m_iRecords = 500;
    info.m_dMaximum = 4.0;
    info.m_iColumns = 50;
    info.m_iRows = 40;
    legend.setLevels({{0.0, Qt::blue}, {2.0, Qt::red}, {4.0, Qt::green}}, info);
    QVERIFY(legend.explanation().contains("N = 500") && legend.explanation().contains("50 × 40"));
    QVERIFY(!legend.explanation().contains("weights"));
    QImage oImage(legend.pictureSize().toSize(), QImage::Format_RGB32);
    oImage.fill(Qt::white);
    QPainter painter(&oImage);
    legend.paint(painter, oImage.rect(), Qt::black);
    painter.end();
    QMap<QRgb, int> pixels;
    for (int i = 0; i < oImage.width() * oImage.height(); ++i)
        ++pixels[oImage.pixel(i % oImage.width(), i / oImage.width())];
    // Two bands of the same size; none above the maximum.
    const int iBlue = pixels[QColor(Qt::blue).rgb()];
    QVERIFY(iBlue > 100 && std::abs(iBlue - pixels[QColor(Qt::red).rgb()]) < 60);
    QCOMPARE(pixels[QColor(Qt::green).rgb()], 0);
    info.m_bWeighted = true;
    legend.setLevels({{0.0, Qt::blue}, {2.0, Qt::red}}, info);
    QVERIFY(legend.explanation().contains("weights"));
}

QTEST_MAIN(TestStatisticsText)
#include "tst_statisticstext.moc"
