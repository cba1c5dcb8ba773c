#pragma once

#include "DataFile.h"
#include "ImportOptions.h"
#include "ImportResult.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <atomic>
#include <functional>
#include <memory>

class QProgressDialog;
class QThread;
class QTimer;
class QWidget;

namespace gkHost {

class Document;

/// Opens files into a document, one after the other: a worker thread parses, with progress and cancel, and the GUI
/// thread asks about orientations and makes the data sets. A file that cannot be read gives one message and changes
/// nothing.
class ImportController : public QObject
{
    Q_OBJECT
public:
    using Message = std::function<void(QWidget* pqParent, const QString& sText)>;

    /// The document is not owned and must outlive this object.
    explicit ImportController(Document* pDocument, QObject* pqParent = nullptr);
    /// Cancels what is being read and waits for the worker.
    ~ImportController() override;

    /// Queues the files. Dialogs open over pqWindow (may be null).
    void open(const QStringList& lFiles, QWidget* pqWindow, const ImportOptions& options = {});
    bool isBusy() const { return m_pqThread != nullptr; }

    /// Replaces the orientation dialog and the message box; for tests and hosts without dialogs.
    void setOrientationChoice(OrientationChoice fnChoice) { m_fnChoice = std::move(fnChoice); }
    void setMessage(Message fnMessage) { m_fnMessage = std::move(fnMessage); }

signals:
    /// The file's data sets are in the document; its report is the document's last one.
    void opened(const QString& sPath);
    /// The file could not be read; the user was told.
    void failed(const QString& sPath);
    /// Nothing is left to read.
    void finished();

private:
    struct Job
    {
        QString m_sPath;
        ImportOptions m_options;
        QPointer<QWidget> m_pqWindow;
    };

    void startNext();
    void showProgress();
    void closeProgress();
    void finishJob();

    Document* m_pDocument; ///< not owned
    OrientationChoice m_fnChoice;
    Message m_fnMessage;
    QList<Job> m_lJobs; ///< the first one is being read
    QThread* m_pqThread = nullptr;
    std::unique_ptr<ImportResult> m_pResult;
    std::atomic<qint64> m_iDone{0};
    std::atomic<qint64> m_iTotal{0};
    std::atomic<bool> m_bCancel{false};
    bool m_bShowingProgress = false; ///< inside of QProgressDialog::setValue()
    bool m_bFinishPending = false;   ///< the job ended in the meantime
    QTimer* m_pqProgressTimer;
    QPointer<QProgressDialog> m_pqProgressDialog;
};

} // namespace gkHost
