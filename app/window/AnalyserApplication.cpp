#include "AnalyserApplication.h"

#include "AnalyserWindow.h"

#include <QFileInfo>
#include <QSettings>

namespace gkHost {

namespace {

constexpr int g_iMaxRecentFiles = 8;

QString recentFilesKey()
{
    return QStringLiteral("gkanalyser/recent_files");
}

} // namespace

AnalyserApplication::AnalyserApplication(QObject* pqParent)
    : QObject(pqParent)
    , m_importController(&m_document)
{
    connect(&m_importController, &ImportController::opened, this, &AnalyserApplication::addRecentFile);
    connect(&m_importController, &ImportController::failed, this, &AnalyserApplication::dropVanishedFile);
}

AnalyserApplication::~AnalyserApplication()
{
    for (const QPointer<AnalyserWindow>& pqWindow : std::as_const(m_lWindows))
        delete pqWindow; // before the document that they show
}

void AnalyserApplication::start(const QStringList& lFiles)
{
    AnalyserWindow* pqWindow = newWindow();
    m_importController.open(lFiles, pqWindow);
}

AnalyserWindow* AnalyserApplication::newWindow()
{
    auto* pqWindow = new AnalyserWindow(this);
    m_lWindows.removeAll(QPointer<AnalyserWindow>());
    m_lWindows << pqWindow;
    pqWindow->show();
    return pqWindow;
}

QStringList AnalyserApplication::recentFiles() const
{
    return QSettings().value(recentFilesKey()).toStringList();
}

void AnalyserApplication::dropVanishedFile(const QString& sPath)
{
    QStringList lFiles = recentFiles();
    if (QFileInfo::exists(sPath) || lFiles.removeAll(QFileInfo(sPath).absoluteFilePath()) == 0)
        return;
    QSettings().setValue(recentFilesKey(), lFiles);
    emit recentFilesChanged();
}

void AnalyserApplication::addRecentFile(const QString& sPath)
{
    QStringList lFiles = recentFiles();
    const QString sAbsolute = QFileInfo(sPath).absoluteFilePath();
    lFiles.removeAll(sAbsolute);
    lFiles.prepend(sAbsolute);
    QSettings().setValue(recentFilesKey(), lFiles.mid(0, g_iMaxRecentFiles));
    emit recentFilesChanged();
}

} // namespace gkHost
