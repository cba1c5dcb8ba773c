#include "FileImporter.h"

#include "CsvImporter.h"
#include "LasImporter.h"

#include <QCoreApplication>
#include <QFile>

namespace gkHost {

namespace {

QString tr(const char* pcText)
{
    return QCoreApplication::translate("FileImporter", pcText);
}

/// The first line that is neither empty nor a comment opens a section.
bool beginsWithSection(const QString& sPath)
{
    QFile file(sPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    QByteArray qStart = file.read(4096);
    qStart.replace('\0', "").replace("\xef\xbb\xbf", "").replace("\xff\xfe", "").replace("\xfe\xff", "");
    qStart.replace('\r', '\n');
    for (const QByteArray& qLine : qStart.split('\n')) {
        const QByteArray qText = qLine.trimmed();
        if (!qText.isEmpty() && !qText.startsWith('#')) {
            return qText.startsWith('~');
        }
    }
    return false;
}

} // namespace

ImportResult FileImporter::readFile(const QString& sPath, const ImportOptions& options, const ImportProgress& progress)
{
    const bool bLas = sPath.endsWith(QStringLiteral(".las"), Qt::CaseInsensitive) || beginsWithSection(sPath);
    return bLas ? LasImporter::readFile(sPath, options, progress) : CsvImporter::readFile(sPath, options, progress);
}

QStringList FileImporter::nameFilters()
{
    return {tr("Data files (*.csv *.tsv *.tab *.txt *.dat *.asc *.xyz *.las)"),
            tr("Delimited text (*.csv *.tsv *.tab *.txt *.dat *.asc *.xyz)"), tr("Well logs (*.las)"),
            tr("All files (*)")};
}

} // namespace gkHost
