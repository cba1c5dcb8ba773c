#pragma once

#include "Document.h"
#include "ImportController.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>

namespace gkHost {

class AnalyserWindow;

/// What all windows of the program share: the document, the import of files and the list of recent ones. It makes
/// the windows and ends the program with the last of them.
class AnalyserApplication : public QObject
{
    Q_OBJECT
public:
    explicit AnalyserApplication(QObject* pqParent = nullptr);
    ~AnalyserApplication() override;

    /// Opens the first window and the files.
    void start(const QStringList& lFiles);
    /// Opens one more window on the same data.
    AnalyserWindow* newWindow();
    const QList<QPointer<AnalyserWindow>>& windows() const { return m_lWindows; }

    Document* document() { return &m_document; }
    ImportController* importController() { return &m_importController; }

    /// Most recent first.
    QStringList recentFiles() const;
    void addRecentFile(const QString& sPath);

signals:
    void recentFilesChanged();

private:
    /// A recent file that is gone leaves the list once opening it failed.
    void dropVanishedFile(const QString& sPath);

    Document m_document;
    ImportController m_importController;
    QList<QPointer<AnalyserWindow>> m_lWindows;
};

} // namespace gkHost
