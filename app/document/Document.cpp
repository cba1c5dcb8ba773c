#include "Document.h"

#include <gkBase/MatrixDataNotifier.h>

#include <QFileInfo>

namespace gkHost {

Document::Document(QObject* pqParent)
    : QObject(pqParent)
    , m_root(QStringLiteral("Data"))
{
    m_root.setRegistry(&m_registry);
    m_iSavedState = m_root.undoState();
    connect(m_root.notifier(), &gkBase::MatrixDataNotifier::undoStateChanged, this, [this] {
        updateModified();
        emit undoStateChanged();
    });
}

Document::~Document() = default;

void Document::add(DataFile&& file, const QString& sPath)
{
    if (!file.isOk())
        return;
    for (std::unique_ptr<gkBase::MatrixData>& poDataSet : file.m_vDataSets) {
        QString sName = poDataSet->name();
        m_root.createUniqueName(sName);
        poDataSet->setName(sName);
        m_root.appendChild(poDataSet.release(), false);
    }
    m_vReports.push_back(std::move(file.m_oReport));
    m_lFiles << sPath;
    emit filesChanged();
}

QString Document::title() const
{
    if (m_lFiles.isEmpty())
        return tr("No data");
    if (m_lFiles.size() == 1)
        return QFileInfo(m_lFiles.constFirst()).fileName();
    return tr("%1 and %n more", nullptr, static_cast<int>(m_lFiles.size()) - 1)
        .arg(QFileInfo(m_lFiles.constFirst()).fileName());
}

bool Document::save(const QString& sPath)
{
    bool bOk = false;
    m_root.writeCSV(sPath, &bOk);
    if (bOk) {
        m_iSavedState = m_root.undoState();
        updateModified();
    }
    return bOk;
}

void Document::updateModified()
{
    const bool bModified = m_root.undoState() != m_iSavedState;
    if (bModified == m_bModified)
        return;
    m_bModified = bModified;
    emit modifiedChanged(bModified);
}

} // namespace gkHost
