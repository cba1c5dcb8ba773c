#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace gkHost {

/// One remark about a line of the file; line 0 is the file as a whole.
struct ImportNote
{
    qint64 m_iLine = 0;
    QString m_sText;
};

/// What an importer took for granted, what it repaired and what it left out.
///
/// The first s_iMaxNotes notes of each list are kept; the totals count all of them.
class ImportReport
{
public:
    static constexpr int s_iMaxNotes = 200;

    void setFile(const QString& sFile) { m_sFile = sFile; }
    QString file() const { return m_sFile; }

    /// "Delimiter: semicolon", "Header: line 1", …
    void addAssumption(const QString& sWhat, const QString& sValue);
    /// A value that was changed or understood in another way than written.
    void addRepair(qint64 iLine, const QString& sText);
    /// A row that did not become a record.
    void addRejectedRow(qint64 iLine, const QString& sText);
    /// Something the user should know that changed nothing.
    void addRemark(qint64 iLine, const QString& sText);
    /// A parameter of the file's header: name, value with unit, description.
    void addParameter(const QString& sName, const QString& sValue, const QString& sDescription);
    /// Rows and columns of a table that was read.
    void addTable(const QString& sName, int iColumns, int iRows);

    const QStringList& assumptions() const { return m_lAssumptions; }
    const std::vector<ImportNote>& repairs() const { return m_oRepairs.m_vNotes; }
    const std::vector<ImportNote>& rejectedRows() const { return m_oRejected.m_vNotes; }
    const std::vector<ImportNote>& remarks() const { return m_oRemarks.m_vNotes; }
    const QStringList& parameters() const { return m_lParameters; }
    qint64 repairCount() const { return m_oRepairs.m_iTotal; }
    qint64 rejectedRowCount() const { return m_oRejected.m_iTotal; }
    /// Nothing was repaired or left out.
    bool isClean() const { return repairCount() == 0 && rejectedRowCount() == 0; }

    /// The report as plain text for people.
    QString toText() const;
    /// Writes toText() as UTF-8; the old file stays when that fails. sError (may be null) says why.
    bool save(const QString& sPath, QString* sError = nullptr) const;

private:
    struct NoteList
    {
        std::vector<ImportNote> m_vNotes;
        qint64 m_iTotal = 0;
        void add(qint64 iLine, const QString& sText);
        QString toText(const QString& sTitle) const;
    };

    QString m_sFile;
    QStringList m_lTables;
    QStringList m_lAssumptions;
    QStringList m_lParameters;
    NoteList m_oRepairs;
    NoteList m_oRejected;
    NoteList m_oRemarks;
};

} // namespace gkHost
