#include "CsvImporter.h"

#include <gkBase/MatrixData.h>
#include <gkBase/MatrixDataStrike.h>
#include <gkBase/UnitManager.h>
#include <gkBase/UnitRegistry.h>

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <boost/make_shared.hpp>

#include <bit>
#include <cmath>
#include <limits>

using namespace gkHost;
using gkBase::MatrixData;
using gkBase::MatrixDataStrike;
using gkBase::UnitManager;
using gkBase::UnitRegistry;

namespace {

double randomDouble(QRandomGenerator& random)
{
    switch (random.bounded(5)) {
    case 0: { // any bits that are a number
        const double dValue = std::bit_cast<double>(random.generate64());
        return std::isnan(dValue) ? 0.1 : dValue;
    }
    case 1:
        return random.bounded(1000) / 100.0;
    case 2:
        return 99999.0;
    case 3:
        return -0.0;
    default:
        return std::numeric_limits<double>::infinity() * (random.bounded(2) == 0 ? 1 : -1);
    }
}

QString randomText(QRandomGenerator& random)
{
    static const QStringList lParts = {",", "\"", "\n",  "\r", " ", "#", "a", "ß\u20ac",   "\U0001F30B",
                                       ";", "NA", "007", "\\", "[", "]", "|", "# types: ", "true"};
    QString sText;
    for (int i = random.bounded(5); i > 0; --i) {
        sText += lParts[random.bounded(static_cast<int>(lParts.size()))];
    }
    return sText;
}

QVariant randomValue(QRandomGenerator& random, QMetaType::Type eType)
{
    if (random.bounded(4) == 0) {
        return QVariant();
    }
    switch (eType) {
    case QMetaType::Double:
        return randomDouble(random);
    case QMetaType::Int:
        return static_cast<int>(random.generate());
    case QMetaType::Bool:
        return random.bounded(2) == 1;
    case QMetaType::QColor:
        return QColor(random.bounded(256), random.bounded(256), random.bounded(256));
    default:
        return randomText(random);
    }
}

std::unique_ptr<MatrixData> randomAttribute(QRandomGenerator& random, const QString& sName, int iRows)
{
    constexpr QMetaType::Type veTypes[] = {QMetaType::Double, QMetaType::Int, QMetaType::Bool, QMetaType::QString,
                                           QMetaType::QColor};
    const QMetaType::Type eType = veTypes[random.bounded(5)];
    auto poAttribute = std::make_unique<MatrixData>(sName, iRows, 1, eType);
    for (int i = 0; i < iRows; ++i) {
        poAttribute->setValue(3 + i, 0, randomValue(random, eType));
    }
    const QStringList lUnits = {"", "m", "deg", "g/cm3", "odd [unit]|x\\", "API"};
    const QString sUnit = lUnits[random.bounded(static_cast<int>(lUnits.size()))];
    poAttribute->setUnitManager(random.bounded(3) == 0 ? boost::make_shared<UnitManager>("orientation", sUnit)
                                                       : UnitRegistry::standard().managerForUnit(sUnit));
    return poAttribute;
}

std::unique_ptr<MatrixData> randomDataSet(QRandomGenerator& random, const QString& sName)
{
    auto poDataSet = std::make_unique<MatrixData>(sName);
    const int iRows = random.bounded(12);
    const int iColumns = random.bounded(5);
    const QStringList lNames = {"Depth", "a,b", "x [m]", "q\"uote", "two\nlines", "[", "# x", " blank "};
    for (int i = 0; i < iColumns; ++i) {
        const QString sColumn = lNames[random.bounded(static_cast<int>(lNames.size()))] + QString::number(i);
        poDataSet->appendChild(randomAttribute(random, sColumn, iRows).release(), true);
    }
    if (random.bounded(3) == 0) {
        auto* poAzimuth = new MatrixData("azimuth", iRows, 1, QMetaType::Double);
        for (int i = 0; i < iRows; ++i) {
            poAzimuth->setValue(3 + i, 0, random.bounded(360));
        }
        auto* poStrike = new MatrixDataStrike("Strike", poAzimuth);
        poDataSet->appendChild(poStrike, true);
        poDataSet->appendChild(poAzimuth, true);
        poStrike->setUnitManager(boost::make_shared<UnitManager>("orientation", "deg"));
        poAzimuth->setUnitManager(poStrike->unitManager());
    }
    return poDataSet;
}

/// The form carries neither colours nor which attributes are shown.
void takeLooks(MatrixData& target, const MatrixData& source)
{
    target.setColor(source.color());
    for (int i = 0; i < std::min(target.childCount(), source.childCount()); ++i) {
        takeLooks(*target.child(i), *source.child(i));
    }
    if (target.childCount() == 0) {
        target.setSelected(source.isSelected());
    }
}

} // namespace

class TestImportRoundTrip : public QObject
{
    Q_OBJECT

private slots:
    void exportedDataSetsComeBack_data();
    void exportedDataSetsComeBack();
    void damagedExports_data();
    void damagedExports();
};

void TestImportRoundTrip::exportedDataSetsComeBack_data()
{
    QTest::addColumn<int>("seed");
    for (int i = 0; i < 60; ++i) {
        QTest::addRow("seed %d", i) << i;
    }
}

void TestImportRoundTrip::exportedDataSetsComeBack()
{
    QFETCH(int, seed);
    QRandomGenerator random(static_cast<quint32>(seed));
    MatrixData root("root");
    const int iDataSets = 1 + random.bounded(3);
    for (int i = 0; i < iDataSets; ++i) {
        const QString sName =
            i == 0 && random.bounded(2) == 0 ? QStringLiteral("file") : QStringLiteral("set\\ \n, \"%1").arg(i);
        root.appendChild(randomDataSet(random, sName).release(), false);
    }
    QTemporaryDir dir;
    const QString sPath = dir.filePath("file.csv");
    bool bOk = false;
    root.writeCSV(sPath, &bOk);
    QVERIFY(bOk);

    ImportResult result = CsvImporter::readFile(sPath);
    if (iDataSets == 1 && root.child(0)->childCount() == 0 && root.child(0)->name() == u"file") {
        return; // nothing is written of it, and an empty file is no file of data
    }
    QCOMPARE(result.m_sError, QString());
    QVERIFY2(result.m_oReport.isClean(), qPrintable(result.m_oReport.toText()));
    MatrixData copy("root");
    for (ImportTable& table : result.m_vTables) {
        copy.appendChild(toDataSet(std::move(table), UnitRegistry::standard()).release(), false);
    }
    takeLooks(copy, root);
    QFile file(sPath);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY2(copy.isIdenticalTo(root), file.readAll().constData());
}

void TestImportRoundTrip::damagedExports_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* pcName, const QByteArray& qBytes, const char* pcError) {
        QTest::newRow(pcName) << qBytes << QString(pcError);
    };
    row("unknown type", "# types: double,date\na,b\n1,2\n", "line 1");
    row("names do not fit the types", "# types: double\na,b\n1,2\n", "line 2");
    row("no types", "# data set: x\na,b\n1,2\n", "line 2");
    row("no header", "# types: double\n", "header");
    row("azimuth beyond the columns", "# types: strike:3,double\na,b\n1,2\n", "column 3");
    row("open quote", "# types: text\na\nx\n\"y\n", "line 4");
}

void TestImportRoundTrip::damagedExports()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    const ImportResult result = CsvImporter::readBytes(bytes, "file.csv");
    QVERIFY2(result.m_sError.contains(error), qPrintable(result.m_sError));
    QVERIFY(result.m_vTables.empty());
}

QTEST_GUILESS_MAIN(TestImportRoundTrip)
#include "tst_importroundtrip.moc"
