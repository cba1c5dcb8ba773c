#include "ImportController.h"

#include "Document.h"
#include "FileImporter.h"
#include "OrientationDialog.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>

namespace gkHost {

namespace {

constexpr int g_iProgressInterval = 100; // milliseconds
constexpr int g_iProgressSteps = 1000;

void showMessage(QWidget* pqParent, const QString& sText)
{
    QMessageBox box(QMessageBox::Warning, ImportController::tr("Open"), sText, QMessageBox::Ok, pqParent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace

ImportController::ImportController(Document* pDocument, QObject* pqParent)
    : QObject(pqParent)
    , m_pDocument(pDocument)
    , m_fnMessage(showMessage)
    , m_pqProgressTimer(new QTimer(this))
{
    m_pqProgressTimer->setInterval(g_iProgressInterval);
    connect(m_pqProgressTimer, &QTimer::timeout, this, &ImportController::showProgress);
}

ImportController::~ImportController()
{
    m_bCancel = true;
    if (m_pqThread) {
        disconnect(m_pqThread, nullptr, this, nullptr);
        m_pqThread->wait();
        delete m_pqThread;
    }
    delete m_pqProgressDialog;
}

void ImportController::open(const QStringList& lFiles, QWidget* pqWindow, const ImportOptions& options)
{
    for (const QString& sFile : lFiles)
        m_lJobs.append({sFile, options, pqWindow});
    startNext();
}

void ImportController::startNext()
{
    if (m_pqThread)
        return;
    if (m_lJobs.isEmpty()) {
        emit finished();
        return;
    }
    m_iDone = 0;
    m_iTotal = 0;
    m_bCancel = false;
    m_pqThread =
        QThread::create([this, sPath = m_lJobs.constFirst().m_sPath, options = m_lJobs.constFirst().m_options] {
            m_pResult = std::make_unique<ImportResult>(
                FileImporter::readFile(sPath, options, [this](qint64 iDone, qint64 iTotal) {
                    m_iDone = iDone;
                    m_iTotal = iTotal;
                    return !m_bCancel;
                }));
        });
    connect(m_pqThread, &QThread::finished, this, &ImportController::finishJob);
    m_pqThread->start();
    m_pqProgressTimer->start();
}

void ImportController::showProgress()
{
    if (!m_pqThread)
        return;
    if (!m_pqProgressDialog) {
        const Job& job = m_lJobs.constFirst();
        m_pqProgressDialog = new QProgressDialog(tr("Reading %1").arg(QFileInfo(job.m_sPath).fileName()), tr("Cancel"),
                                                 0, g_iProgressSteps, job.m_pqWindow);
        m_pqProgressDialog->setWindowTitle(tr("Open"));
        m_pqProgressDialog->setWindowModality(Qt::WindowModal);
        m_pqProgressDialog->setAutoClose(false);
        m_pqProgressDialog->setAutoReset(false);
        connect(m_pqProgressDialog, &QProgressDialog::canceled, this, [this] { m_bCancel = true; });
    }
    const qint64 iTotal = m_iTotal;
    const QPointer<ImportController> pqThis(this);
    // A modal progress dialog handles events within setValue(): the job may end, and this object with it.
    m_bShowingProgress = true;
    m_pqProgressDialog->setValue(iTotal > 0 ? static_cast<int>(g_iProgressSteps * m_iDone / iTotal) : 0);
    if (!pqThis)
        return;
    m_bShowingProgress = false;
    if (m_bFinishPending)
        finishJob();
}

void ImportController::closeProgress()
{
    if (!m_pqProgressDialog)
        return;
    m_pqProgressDialog->disconnect(this);
    // Also stops the timer that shows the dialog after a while, which would block the questions that come next.
    m_pqProgressDialog->reset();
    m_pqProgressDialog->hide();
    m_pqProgressDialog->deleteLater();
    m_pqProgressDialog.clear();
}

void ImportController::finishJob()
{
    m_bFinishPending = m_bShowingProgress;
    if (m_bFinishPending)
        return;
    m_pqProgressTimer->stop();
    closeProgress();
    m_pqThread->deleteLater();
    m_pqThread = nullptr;
    const Job job = m_lJobs.takeFirst();
    const std::unique_ptr<ImportResult> pResult = std::move(m_pResult);

    if (pResult->m_bCancelled) {
        m_lJobs.clear(); // cancel means the whole queue
    } else {
        const OrientationChoice fnChoice =
            m_fnChoice ? m_fnChoice
                       : OrientationChoice(
                             [&job](const ImportTable& table, const std::vector<OrientationProposal>& vProposals) {
                                 return OrientationDialog::choose(table, vProposals, job.m_pqWindow);
                             });
        DataFile file = dataFileFrom(std::move(*pResult), *m_pDocument->registry(), fnChoice);
        if (file.isOk()) {
            m_pDocument->add(std::move(file), job.m_sPath);
            emit opened(job.m_sPath);
        } else {
            m_fnMessage(job.m_pqWindow, file.m_sError);
            emit failed(job.m_sPath);
        }
    }
    startNext();
}

} // namespace gkHost
