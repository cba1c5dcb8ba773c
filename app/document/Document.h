#pragma once

#include "DataFile.h"

#include <gkBase/MatrixData.h>
#include <gkBase/UnitRegistry.h>

#include <QObject>
#include <QStringList>

#include <vector>

namespace gkHost {

/// The data sets that the program has open, shared by all of its windows: their root, units, the reports of their
/// imports, and whether there are edits that no file holds.
class Document : public QObject
{
    Q_OBJECT
public:
    explicit Document(QObject* pqParent = nullptr);
    ~Document() override;

    gkBase::MatrixData* root() { return &m_root; }
    gkBase::UnitRegistry* registry() { return &m_registry; }

    /// Adds the data sets of a file, with names made unique. A file with an error adds nothing.
    void add(DataFile&& file, const QString& sPath);
    /// Files whose data sets are open, in the order of opening.
    const QStringList& files() const { return m_lFiles; }
    const std::vector<ImportReport>& reports() const { return m_vReports; }
    /// For window titles: the file, or the number of files.
    QString title() const;
    bool isEmpty() const { return m_root.childCount() == 0; }

    bool isModified() const { return m_bModified; }
    /// Writes all data sets; false leaves the old file and the modified mark alone.
    bool save(const QString& sPath);

    bool canUndo() const { return m_root.canUndo(); }
    bool canRedo() const { return m_root.canRedo(); }
    void undo() { m_root.undo(); }
    void redo() { m_root.redo(); }

signals:
    void filesChanged();
    void modifiedChanged(bool bModified);
    /// Undo texts may differ.
    void undoStateChanged();

private:
    void updateModified();

    gkBase::UnitRegistry m_registry; // outlives the root, which refers to it
    gkBase::MatrixData m_root;
    QStringList m_lFiles;
    std::vector<ImportReport> m_vReports;
    int m_iSavedState = 0;
    bool m_bModified = false;
};

} // namespace gkHost
