#include "LasImporter.h"

#include "LasSections.h"
#include "LasTableReader.h"
#include "TextReading.h"
#include "TextSource.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <new>

namespace gkHost {

namespace {

QString tr(const char* pcText)
{
    return QCoreApplication::translate("LasImporter", pcText);
}

bool sameMnemonic(const LasItem& item, const char* pcMnemonic)
{
    return item.m_sMnemonic.compare(QLatin1String(pcMnemonic), Qt::CaseInsensitive) == 0;
}

std::optional<double> number(const QString& sText)
{
    const std::string sBytes = sText.section(u' ', 0, 0).toStdString();
    double dValue = 0;
    if (parseNumber(sBytes, '.', dValue) == NumberKind::None && parseNumber(sBytes, ',', dValue) == NumberKind::None) {
        return std::nullopt;
    }
    return dValue;
}

/// Form 1.2 writes the data of most lines of the well section behind the colon and its name before it.
QString wellValue(const LasItem& item, double dVersion)
{
    const bool bNumeric = sameMnemonic(item, "STRT") || sameMnemonic(item, "STOP") || sameMnemonic(item, "STEP") ||
                          sameMnemonic(item, "NULL");
    const bool bBehind = dVersion < 2 && !bNumeric && !item.m_sDescription.isEmpty() &&
                         !sameMnemonic(item, item.m_sDescription.toLatin1().constData());
    return bBehind ? item.m_sDescription : item.m_sValue;
}

void readVersion(const LasSection& section, LasHeader& header)
{
    for (const LasItem& item : section.m_vItems) {
        const QString sValue = item.m_sValue.toUpper();
        if (sameMnemonic(item, "VERS")) {
            header.m_dVersion = number(item.m_sValue).value_or(header.m_dVersion);
        } else if (sameMnemonic(item, "WRAP")) {
            header.m_bWrapped = sValue.startsWith(u'Y');
        } else if (sameMnemonic(item, "DLM")) {
            header.m_cDelimiter = sValue.startsWith(u'C') || sValue == u","     ? ','
                                  : sValue.startsWith(u'T')                     ? '\t'
                                  : sValue.startsWith(u'S') || sValue.isEmpty() ? ' '
                                                                                : char(0);
        }
    }
}

void readWell(const LasSection& section, LasHeader& header, ImportReport& report)
{
    for (const LasItem& item : section.m_vItems) {
        const QString sValue = wellValue(item, header.m_dVersion);
        if (sameMnemonic(item, "NULL")) {
            header.m_odNull = number(sValue);
            header.m_sNullText = header.m_odNull ? QString() : sValue;
        } else if (sameMnemonic(item, "STRT")) {
            header.m_odStart = number(sValue);
        } else if (sameMnemonic(item, "STOP")) {
            header.m_odStop = number(sValue);
        } else if (sameMnemonic(item, "WELL")) {
            header.m_sWell = sValue;
        }
        const bool bBehind = sValue == item.m_sDescription && sValue != item.m_sValue;
        if (!sValue.isEmpty()) {
            report.addParameter(item.m_sMnemonic, (sValue + u' ' + item.m_sUnit).trimmed(),
                                bBehind ? item.m_sValue : item.m_sDescription);
        }
    }
}

void reportParameters(const LasSection& section, ImportReport& report)
{
    for (const LasItem& item : section.m_vItems) {
        if (!item.m_sValue.isEmpty()) {
            report.addParameter(item.m_sMnemonic, (item.m_sValue + u' ' + item.m_sUnit).trimmed(), item.m_sDescription);
        }
    }
}

/// The section that describes the columns of a data section; null when there is none.
const LasSection* definitionOf(const LasSection& data, const std::vector<LasSection>& vSections)
{
    const LasSection* pCurves = nullptr;
    for (const LasSection& section : vSections) {
        if (section.m_eKind != LasSectionKind::Curves) {
            continue;
        }
        const bool bNamed = !data.m_sAssociation.isEmpty() && section.m_sWord == data.m_sAssociation;
        const bool bGroup = data.m_sAssociation.isEmpty() && !data.group().isEmpty() && section.group() == data.group();
        if (bNamed || bGroup) {
            return &section;
        }
        if (!pCurves && section.group().isEmpty()) {
            pCurves = &section;
        }
    }
    if (pCurves || data.group().isEmpty()) {
        return pCurves;
    }
    // A misspelt association: the nearest definition above.
    for (auto it = vSections.rbegin(); it != vSections.rend(); ++it) {
        if (it->m_eKind == LasSectionKind::Curves && it->m_iLine < data.m_iLine) {
            return &*it;
        }
    }
    return nullptr;
}

/// The data sections, the log first.
std::vector<const LasSection*> dataSections(const std::vector<LasSection>& vSections)
{
    std::vector<const LasSection*> vpData;
    for (const LasSection& section : vSections) {
        if (section.m_eKind == LasSectionKind::Data) {
            vpData.push_back(&section);
        }
    }
    std::stable_partition(vpData.begin(), vpData.end(), [](const LasSection* pSection) {
        return pSection->group().isEmpty() || pSection->group() == u"log";
    });
    return vpData;
}

/// Everything of one file; fills the result.
class LasRead
{
public:
    LasRead(const TextSource& source, const ImportOptions& options, const ImportProgress& progress,
            ImportResult& result)
        : m_oSource(source)
        , m_oOptions(options)
        , m_oProgress(progress)
        , m_oResult(result)
    {
    }

    void run()
    {
        const std::vector<LasSection> vSections = lasSections(m_oSource);
        if (vSections.empty()) {
            fail(tr("this is no well log: no line begins with \"~\"."));
            return;
        }
        readHeader(vSections);
        const std::vector<const LasSection*> vpData = dataSections(vSections);
        if (vpData.empty()) {
            fail(tr("the file has no data section (~A)."));
            return;
        }
        LasTableReader reader(m_oSource, m_oHeader, m_oOptions, m_oProgress, m_oResult);
        for (const LasSection* pData : vpData) {
            if (!reader.read(*pData, definitionOf(*pData, vSections), tableName(*pData, pData == vpData.front()))) {
                return;
            }
        }
        if (m_oResult.m_vTables.empty()) {
            fail(tr("the file has neither curves nor data."));
        }
    }

private:
    void fail(const QString& sReason) { m_oResult.m_sError = tr("%1: %2").arg(m_oSource.file(), sReason); }

    void readHeader(const std::vector<LasSection>& vSections)
    {
        ImportReport& report = m_oResult.m_oReport;
        report.addAssumption(tr("Encoding"), m_oSource.encodingName());
        bool bVersion = false;
        bool bWell = false;
        for (const LasSection& section : vSections) {
            if (section.m_eKind == LasSectionKind::Version) {
                readVersion(section, m_oHeader);
                bVersion = true;
            }
        }
        for (const LasSection& section : vSections) {
            if (section.m_eKind == LasSectionKind::Well) {
                readWell(section, m_oHeader, report);
                bWell = true;
            } else if (section.m_eKind == LasSectionKind::Parameters) {
                reportParameters(section, report);
            } else if (section.m_eKind == LasSectionKind::Unknown) {
                report.addRemark(section.m_iLine, tr("The section ~%1 is not used.").arg(section.m_sTitle));
            } else if (section.m_eKind == LasSectionKind::Other && !trimmed(section.m_sBody).empty()) {
                report.addParameter(tr("Other"), m_oSource.text(section.m_sBody).simplified(), QString());
            }
        }
        report.addAssumption(tr("Form"), tr("LAS %1").arg(m_oHeader.m_dVersion));
        if (!bVersion) {
            report.addRepair(0, tr("The version section is missing; form 2.0 was assumed."));
        }
        if (!bWell) {
            report.addRepair(0, tr("The well section is missing."));
        }
        const QString sNull =
            m_oHeader.m_odNull ? QString::number(*m_oHeader.m_odNull, 'g', 17) : m_oHeader.m_sNullText;
        report.addAssumption(tr("Null value"), sNull.isEmpty() ? tr("none in the header") : sNull);
    }

    QString tableName(const LasSection& data, bool bFirst) const
    {
        const QString sFile = QFileInfo(m_oSource.file()).completeBaseName();
        const QString sWell = m_oHeader.m_sWell.isEmpty() ? sFile : m_oHeader.m_sWell;
        const QString sGroup = data.m_sTitle.section(u'|', 0, 0).simplified().section(u' ', 0, 0);
        return bFirst ? sWell : sWell + u' ' + sGroup;
    }

    const TextSource& m_oSource;
    const ImportOptions& m_oOptions;
    const ImportProgress& m_oProgress;
    ImportResult& m_oResult;
    LasHeader m_oHeader;
};

ImportResult readSource(const TextSource& source, const ImportOptions& options, const ImportProgress& progress)
{
    ImportResult result;
    result.m_oReport.setFile(source.file());
    result.m_sError = source.error();
    if (result.m_sError.isEmpty()) {
        try {
            LasRead(source, options, progress, result).run();
        } catch (const std::bad_alloc&) {
            result.m_sError = tr("%1: there is not enough memory.").arg(source.file());
        }
    }
    if (!result.isOk()) {
        result.m_vTables.clear();
    }
    return result;
}

} // namespace

ImportResult LasImporter::readFile(const QString& sPath, const ImportOptions& options, const ImportProgress& progress)
{
    TextSource source;
    source.openFile(sPath, options.m_eEncoding);
    return readSource(source, options, progress);
}

ImportResult LasImporter::readBytes(const QByteArray& qBytes, const QString& sFile, const ImportOptions& options,
                                    const ImportProgress& progress)
{
    TextSource source;
    source.openBytes(qBytes, sFile, options.m_eEncoding);
    return readSource(source, options, progress);
}

} // namespace gkHost
