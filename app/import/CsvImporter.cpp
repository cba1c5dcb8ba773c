#include "CsvImporter.h"

#include "CsvTableReader.h"
#include "ExportedCsvReader.h"
#include "TextSource.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <new>

namespace gkHost {

namespace {

ImportResult readSource(const TextSource& source, const ImportOptions& options, const ImportProgress& progress)
{
    ImportResult result;
    result.m_oReport.setFile(source.file());
    const QString sName = QFileInfo(source.file()).completeBaseName();
    try {
        if (ExportedCsvReader::recognises(source.bytes())) {
            ExportedCsvReader(source, progress, result).read(sName);
        } else {
            CsvTableReader(source, options, progress, result).read(sName);
        }
    } catch (const std::bad_alloc&) {
        result.m_sError =
            QCoreApplication::translate("CsvImporter", "%1: there is not enough memory.").arg(source.file());
    }
    if (!result.isOk()) {
        result.m_vTables.clear();
    }
    return result;
}

ImportResult failed(const TextSource& source)
{
    ImportResult result;
    result.m_oReport.setFile(source.file());
    result.m_sError = source.error();
    return result;
}

} // namespace

ImportResult CsvImporter::readFile(const QString& sPath, const ImportOptions& options, const ImportProgress& progress)
{
    TextSource source;
    return source.openFile(sPath, options.m_eEncoding) ? readSource(source, options, progress) : failed(source);
}

ImportResult CsvImporter::readBytes(const QByteArray& qBytes, const QString& sFile, const ImportOptions& options,
                                    const ImportProgress& progress)
{
    TextSource source;
    return source.openBytes(qBytes, sFile, options.m_eEncoding) ? readSource(source, options, progress)
                                                                : failed(source);
}

} // namespace gkHost
