#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QString>
#include <QTest>

#include <limits>
#include <vector>

/// Sample data with values that independent programs computed from them. The folder is no part of the sources:
/// GK_REFERENCE_DIR names it, or it lies in "shared/reference" beside the source tree. Begin a test that needs it
/// with GK_REQUIRE_REFERENCE().
namespace gkTest {

/// Path of the folder, empty when there is none.
inline QString referenceFolder()
{
    QStringList lCandidates;
    if (qEnvironmentVariableIsSet("GK_REFERENCE_DIR")) {
        lCandidates << qEnvironmentVariable("GK_REFERENCE_DIR");
    }
    const QString sSource = QStringLiteral(GK_SOURCE_DIR);
    lCandidates << sSource + "/../shared/reference" << sSource + "/../../shared/reference";
    for (const QString& sCandidate : lCandidates) {
        if (QFileInfo(sCandidate + "/expected").isDir()) {
            return QDir::cleanPath(sCandidate);
        }
    }
    return {};
}

/// Path of a file below the folder.
inline QString referenceFile(const QString& sFile)
{
    return QDir(referenceFolder()).filePath(sFile);
}

/// expected/<sName>.json; empty when it cannot be read.
inline QJsonObject referenceValues(const QString& sName)
{
    QFile file(referenceFolder() + "/expected/" + sName + ".json");
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

/// The columns of data/<sName>.csv by their header; cells that are no number are NaN. Rows may be restricted to those
/// whose column sSetColumn holds the text sSet.
inline QMap<QString, std::vector<double>> referenceColumns(const QString& sName, const QString& sSetColumn = QString(),
                                                           const QString& sSet = QString())
{
    QMap<QString, std::vector<double>> columns;
    QFile file(referenceFolder() + "/data/" + sName + ".csv");
    if (!file.open(QIODevice::ReadOnly)) {
        return columns;
    }
    const QList<QByteArray> lHeaders = file.readLine().trimmed().split(',');
    const qsizetype iSetColumn = lHeaders.indexOf(sSetColumn.toUtf8());
    while (!file.atEnd()) {
        const QList<QByteArray> lCells = file.readLine().trimmed().split(',');
        if (lCells.size() != lHeaders.size() || (iSetColumn >= 0 && lCells[iSetColumn] != sSet.toUtf8())) {
            continue;
        }
        for (qsizetype i = 0; i < lCells.size(); ++i) {
            bool bNumber = false;
            const double dValue = lCells[i].toDouble(&bNumber);
            columns[QString::fromUtf8(lHeaders[i])].push_back(bNumber ? dValue
                                                                      : std::numeric_limits<double>::quiet_NaN());
        }
    }
    return columns;
}

inline std::vector<double> toDoubles(const QJsonArray& array)
{
    std::vector<double> vdValues;
    for (const auto& value : array) {
        vdValues.push_back(value.toDouble(std::numeric_limits<double>::quiet_NaN()));
    }
    return vdValues;
}

/// True when the numbers agree to a relative error, or to the same absolute one below 1.
inline bool isClose(double dActual, double dExpected, double dTolerance = 1e-9)
{
    return qAbs(dActual - dExpected) <= dTolerance * qMax(1.0, qAbs(dExpected));
}

} // namespace gkTest

#define GK_REQUIRE_REFERENCE()                                                                                         \
    if (gkTest::referenceFolder().isEmpty())                                                                           \
    QSKIP("no reference data: set GK_REFERENCE_DIR")

/// As QVERIFY(gkTest::isClose(...)), and tells both numbers when it fails.
#define GK_COMPARE_CLOSE(actual, expected, tolerance)                                                                  \
    QVERIFY2(gkTest::isClose(actual, expected, tolerance),                                                             \
             qPrintable(QString("%1: %2 instead of %3")                                                                \
                            .arg(#actual)                                                                              \
                            .arg(static_cast<double>(actual), 0, 'g', 17)                                              \
                            .arg(static_cast<double>(expected), 0, 'g', 17)))
