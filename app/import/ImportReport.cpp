#include "ImportReport.h"

#include <gkBase/FileCommit.h>

#include <QCoreApplication>
#include <QSaveFile>

namespace gkHost {

namespace {

QString tr(const char* pcText, int iCount = -1)
{
    return QCoreApplication::translate("ImportReport", pcText, nullptr, iCount);
}

QString section(const QString& sTitle, const QStringList& lLines)
{
    return lLines.isEmpty() ? QString() : sTitle + "\n  " + lLines.join("\n  ") + "\n\n";
}

} // namespace

void ImportReport::NoteList::add(qint64 iLine, const QString& sText)
{
    ++m_iTotal;
    if (m_vNotes.size() < s_iMaxNotes) {
        m_vNotes.push_back({iLine, sText});
    }
}

QString ImportReport::NoteList::toText(const QString& sTitle) const
{
    QStringList lLines;
    for (const ImportNote& note : m_vNotes) {
        lLines << (note.m_iLine > 0 ? tr("line %1: %2").arg(note.m_iLine).arg(note.m_sText) : note.m_sText);
    }
    const qint64 iMore = m_iTotal - static_cast<qint64>(m_vNotes.size());
    if (iMore > 0) {
        lLines << tr("… and %1 more").arg(iMore);
    }
    return section(tr("%1 (%2)").arg(sTitle).arg(m_iTotal), lLines);
}

void ImportReport::addAssumption(const QString& sWhat, const QString& sValue)
{
    const QString sLine = sWhat + ": " + sValue;
    if (m_lAssumptions.isEmpty() || m_lAssumptions.last() != sLine) { // the tables of one file often agree
        m_lAssumptions << sLine;
    }
}

void ImportReport::addRepair(qint64 iLine, const QString& sText)
{
    m_oRepairs.add(iLine, sText);
}

void ImportReport::addRejectedRow(qint64 iLine, const QString& sText)
{
    m_oRejected.add(iLine, sText);
}

void ImportReport::addRemark(qint64 iLine, const QString& sText)
{
    m_oRemarks.add(iLine, sText);
}

void ImportReport::addParameter(const QString& sName, const QString& sValue, const QString& sDescription)
{
    m_lParameters << (sDescription.isEmpty() ? sName + " = " + sValue
                                             : sName + " = " + sValue + "  (" + sDescription + ')');
}

void ImportReport::addTable(const QString& sName, int iColumns, int iRows)
{
    m_lTables << tr("%1: %2 columns, %3 rows").arg(sName).arg(iColumns).arg(iRows);
}

QString ImportReport::toText() const
{
    QString sText = m_sFile + "\n\n";
    sText += section(tr("Tables"), m_lTables);
    sText += section(tr("Assumptions"), m_lAssumptions);
    if (m_oRejected.m_iTotal > 0) {
        sText += m_oRejected.toText(tr("Rows left out"));
    }
    if (m_oRepairs.m_iTotal > 0) {
        sText += m_oRepairs.toText(tr("Repairs"));
    }
    if (m_oRemarks.m_iTotal > 0) {
        sText += m_oRemarks.toText(tr("Remarks"));
    }
    sText += section(tr("Header"), m_lParameters);
    return sText.trimmed() + '\n';
}

bool ImportReport::save(const QString& sPath, QString* sError) const
{
    QSaveFile file(sPath);
    const QByteArray qText = toText().toUtf8();
    const bool bOk = file.open(QIODevice::WriteOnly) && file.write(qText) == qText.size() && gkBase::commitWhole(file);
    if (!bOk && sError) {
        *sError = tr("%1: %2").arg(sPath, file.errorString());
    }
    return bOk;
}

} // namespace gkHost
