#include "FileImporter.h"
#include "OrientationRecognizer.h"

#include <QTest>

#include <array>
#include <cmath>

using namespace gkHost;

namespace {

constexpr double g_dRadians = 3.14159265358979323846 / 180;
using Vector = std::array<double, 3>;

Vector lineVector(double dPlunge, double dAzimuth)
{
    return {std::cos(dPlunge * g_dRadians) * std::cos(dAzimuth * g_dRadians),
            std::cos(dPlunge * g_dRadians) * std::sin(dAzimuth * g_dRadians), std::sin(dPlunge * g_dRadians)};
}

double angleBetweenAxes(const Vector& a, const Vector& b)
{
    const double dCosine = a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
    const double dLengths = std::hypot(a[0], a[1], a[2]) * std::hypot(b[0], b[1], b[2]);
    return std::acos(std::min(1.0, std::abs(dCosine) / dLengths)) / g_dRadians;
}

ImportTable sample(const QString& sName)
{
    ImportResult result = FileImporter::readFile(QStringLiteral(GK_SOURCE_DIR "/samples/") + sName);
    return result.isOk() && result.m_oReport.isClean() ? std::move(result.m_vTables.front()) : ImportTable();
}

const gkBase::MatrixColumn& values(const ImportTable& table, const char* pcName)
{
    return table.m_vColumns.at(static_cast<std::size_t>(table.indexOf(QLatin1String(pcName)))).m_oValues;
}

} // namespace

class TestSamplesImport : public QObject
{
    Q_OBJECT

private slots:
    void everySampleHoldsOrientationsOrLogs_data();
    void everySampleHoldsOrientationsOrLogs();
    void foldHasItsAxis();
    void fractureSetsHaveTheirMeans_data();
    void fractureSetsHaveTheirMeans();
};

void TestSamplesImport::everySampleHoldsOrientationsOrLogs_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("orientations");
    QTest::newRow("folded well") << "folded_well.csv" << 220 << 1;
    QTest::newRow("fractures") << "fractures.csv" << 140 << 1;
    QTest::newRow("lineations") << "lineations.csv" << 80 << 1;
    QTest::newRow("logs") << "logs.las" << 301 << 0;
    QTest::newRow("mixed") << "mixed.csv" << 60 << 0;
}

void TestSamplesImport::everySampleHoldsOrientationsOrLogs()
{
    QFETCH(QString, file);
    QFETCH(int, rows);
    QFETCH(int, orientations);
    const ImportTable table = sample(file);
    QCOMPARE(table.rowCount(), rows);
    QCOMPARE(int(OrientationRecognizer::propose(table).size()), orientations);
}

void TestSamplesImport::foldHasItsAxis()
{
    const ImportTable table = sample("folded_well.csv");
    const Vector axis = lineVector(15, 300);
    double dSquares = 0;
    for (int i = 0; i < table.rowCount(); ++i) {
        const Vector pole = lineVector(90 - values(table, "dip").number(i), values(table, "azimuth").number(i) + 180);
        dSquares += std::pow(90 - angleBetweenAxes(axis, pole), 2);
    }
    const double dDeviation = std::sqrt(dSquares / table.rowCount());
    QVERIFY2(dDeviation > 0.9 && dDeviation < 1.4, qPrintable(QString::number(dDeviation)));
}

void TestSamplesImport::fractureSetsHaveTheirMeans_data()
{
    QTest::addColumn<QString>("set");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("dip");
    QTest::addColumn<double>("azimuth");
    QTest::newRow("east") << "joints east" << 60 << 72.0 << 110.0;
    QTest::newRow("south-west") << "joints south-west" << 45 << 55.0 << 215.0;
    QTest::newRow("sheeting") << "sheeting" << 35 << 15.0 << 20.0;
}

void TestSamplesImport::fractureSetsHaveTheirMeans()
{
    QFETCH(QString, set);
    QFETCH(int, count);
    QFETCH(double, dip);
    QFETCH(double, azimuth);
    const ImportTable table = sample("fractures.csv");
    const Vector mean = lineVector(90 - dip, azimuth + 180);
    Vector sum{};
    int iCount = 0;
    for (int i = 0; i < table.rowCount(); ++i) {
        if (values(table, "set").text(i) != set) {
            continue;
        }
        ++iCount;
        const Vector pole =
            lineVector(90 - values(table, "dip").number(i), values(table, "dip azimuth").number(i) + 180);
        const double dSign = pole[0] * mean[0] + pole[1] * mean[1] + pole[2] * mean[2] < 0 ? -1 : 1;
        for (std::size_t k = 0; k < 3; ++k) {
            sum[k] += dSign * pole[k];
        }
    }
    QCOMPARE(iCount, count);
    QVERIFY2(angleBetweenAxes(sum, mean) < 4, qPrintable(QString::number(angleBetweenAxes(sum, mean))));
}

QTEST_GUILESS_MAIN(TestSamplesImport)
#include "tst_samplesimport.moc"
