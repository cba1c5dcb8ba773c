#include "AnalyserApplication.h"

#include "AnalyserWindow.h"
#include "ScatWindow.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <QPoint>
#include <QSettings>

#include <algorithm>

namespace gkHost {

namespace {

constexpr int g_iMaxRecentFiles = 8;
constexpr QPoint g_oStepOfWindows(32, 32);

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
    for (const Scat& scat : std::as_const(m_lScatWindows))
        delete scat.m_pqWindow;
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

ScatWindow* AnalyserApplication::newScatWindow(AnalyserWindow* pqAnalyser)
{
    gkBase::MatrixData* poDataSet = ScatWindow::dataSetFor(*pqAnalyser);
    if (!poDataSet)
        return nullptr;
    m_lScatWindows.removeIf([](const Scat& scat) { return !scat.m_pqWindow; });
    const auto hasWindow = [this](auto&& isSame) {
        return std::any_of(m_lScatWindows.cbegin(), m_lScatWindows.cend(),
                           [&isSame](const Scat& scat) { return isSame(*scat.m_pqWindow); });
    };
    int iNumber = 1;
    while (hasWindow(
        [&](const ScatWindow& other) { return other.number() == iNumber && other.wellName() == poDataSet->name(); }))
        ++iNumber;
    auto* pqWindow = new ScatWindow(this, pqAnalyser, poDataSet, iNumber);
    // Each comes back where the last one was; two must not hide each other.
    while (hasWindow([pqWindow](const ScatWindow& other) { return other.pos() == pqWindow->pos(); }))
        pqWindow->move(pqWindow->pos() + g_oStepOfWindows);
    m_lScatWindows.append({pqWindow, pqAnalyser});
    pqWindow->show();
    return pqWindow;
}

QList<ScatWindow*> AnalyserApplication::scatWindows(const AnalyserWindow* pqAnalyser) const
{
    QList<ScatWindow*> lpWindows;
    for (const Scat& scat : m_lScatWindows)
        if (scat.m_pqWindow && scat.m_pqAnalyser == pqAnalyser)
            lpWindows << scat.m_pqWindow;
    return lpWindows;
}

void AnalyserApplication::quit()
{
    for (const Scat& scat : std::as_const(m_lScatWindows))
        if (scat.m_pqWindow && !scat.m_pqWindow->canClose())
            return;
    m_lWindows.removeAll(QPointer<AnalyserWindow>());
    if (!m_lWindows.isEmpty() && !m_lWindows.constFirst()->mayLoseEdits())
        return;
    for (const QPointer<AnalyserWindow>& pqWindow : std::as_const(m_lWindows))
        if (pqWindow)
            pqWindow->closeUnasked();
}

void AnalyserApplication::listWindows(QMenu* pqMenu, const QWidget* pqCurrent) const
{
    const auto add = [pqMenu, pqCurrent](QWidget* pqWindow, const QString& sText) {
        QAction* pqAction = pqMenu->addAction(sText, pqWindow, [pqWindow] {
            pqWindow->raise();
            pqWindow->activateWindow();
        });
        pqAction->setCheckable(true);
        pqAction->setChecked(pqWindow == pqCurrent);
    };
    int iNumber = 0;
    for (const QPointer<AnalyserWindow>& pqWindow : m_lWindows) {
        if (!pqWindow)
            continue;
        add(pqWindow, tr("Analyser &%1").arg(++iNumber));
        for (ScatWindow* pqScat : scatWindows(pqWindow))
            add(pqScat,
                QStringLiteral("    ") +
                    tr("SCAT Dipmeter: %1").arg(pqScat->numberedName().replace(QLatin1Char('&'), QLatin1String("&&"))));
    }
}

QString AnalyserApplication::lastFolder() const
{
    const QStringList lRecent = recentFiles();
    return lRecent.isEmpty() ? QString() : QFileInfo(lRecent.constFirst()).absolutePath();
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
