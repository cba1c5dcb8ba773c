#pragma once

#include "Document.h"
#include "ImportController.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>

class QMenu;
class QWidget;

namespace gkHost {

class AnalyserWindow;
class ScatWindow;

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
    /// Opens a dipmeter window on the data set that the analyser works on. Null when no data set has depth, dip and
    /// azimuth.
    ScatWindow* newScatWindow(AnalyserWindow* pqAnalyser);
    /// The open dipmeter windows of an analyser's window.
    QList<ScatWindow*> scatWindows(const AnalyserWindow* pqAnalyser) const;
    /// Closes all windows, once the user has answered for everything that would be lost; refusing keeps all of them.
    void quit();
    /// Appends an action for every window to a menu; it brings the window to the front.
    void listWindows(QMenu* pqMenu, const QWidget* pqCurrent) const;

    Document* document() { return &m_document; }
    ImportController* importController() { return &m_importController; }

    /// Where file dialogs begin.
    QString lastFolder() const;
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
    struct Scat
    {
        QPointer<ScatWindow> m_pqWindow;
        QPointer<AnalyserWindow> m_pqAnalyser;
    };
    QList<Scat> m_lScatWindows;
};

} // namespace gkHost
