#include "TabWidgetWithFloatingTabs.h"

#include "ChildDockWidget.h"
#include "TabWidgetWithFloatingTabsBar.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace gkBase {

namespace {

/// The settings key of a page's dock rectangle. Slashes would make groups of their own.
QString geometryKey(const QString& sTitle)
{
    QString sName = sTitle;
    sName.replace(QLatin1Char('/'), QLatin1String("%2F")).replace(QLatin1Char('\\'), QLatin1String("%5C"));
    return QStringLiteral("TabWidgetWithFloatingTabs/dockSizes/") + sName;
}

void storeGeometry(const ChildDockWidget& dock)
{
    // A dock that the user put into the main window has no rectangle of its own.
    if (dock.isFloating() && !dock.windowTitle().isEmpty())
        QSettings().setValue(geometryKey(dock.windowTitle()), dock.geometry());
}

QRect storedGeometry(const QString& sTitle)
{
    if (sTitle.isEmpty())
        return {};
    const QRect rect = QSettings().value(geometryKey(sTitle)).toRect();
    if (rect.isEmpty())
        return {};
    QList<QRect> vScreens;
    for (const QScreen* pqScreen : QGuiApplication::screens())
        vScreens.append(pqScreen->availableGeometry());
    return broughtOntoScreen(rect, vScreens);
}

qint64 area(const QRect& rect)
{
    return rect.isEmpty() ? 0 : qint64(rect.width()) * rect.height();
}

} // namespace

QRect broughtOntoScreen(const QRect& rect, const QList<QRect>& vScreens)
{
    if (vScreens.isEmpty())
        return rect;
    const QRect screen = *std::max_element(vScreens.begin(), vScreens.end(), [&rect](const QRect& a, const QRect& b) {
        return area(a & rect) < area(b & rect);
    });
    const QSize size = rect.size().boundedTo(screen.size());
    const int iLeft = std::clamp(rect.left(), screen.left(), screen.left() + screen.width() - size.width());
    const int iTop = std::clamp(rect.top(), screen.top(), screen.top() + screen.height() - size.height());
    return {QPoint(iLeft, iTop), size};
}

TabWidgetWithFloatingTabs::TabWidgetWithFloatingTabs(QWidget* pqParent)
    : QTabWidget(pqParent)
{
    auto* pqTabBar = new TabWidgetWithFloatingTabsBar(this);
    setTabBar(pqTabBar);
    connect(pqTabBar, &TabWidgetWithFloatingTabsBar::signalMouseMoveOnTab, this,
            &TabWidgetWithFloatingTabs::slotTabBarMoved);
    setMainWindow(mainWindow());
}

TabWidgetWithFloatingTabs::~TabWidgetWithFloatingTabs()
{
    const QList<FloatingPage> vFloating = std::exchange(m_vFloating, {});
    for (const FloatingPage& oFloating : vFloating) {
        storeGeometry(*oFloating.m_pqDock);
        disconnect(oFloating.m_pqDock, nullptr, this, nullptr);
        disconnect(oFloating.m_pqPage, nullptr, this, nullptr);
        delete oFloating.m_pqDock;
    }
}

int TabWidgetWithFloatingTabs::addTab(QWidget* pqPage, const QString& sText)
{
    return addTab(pqPage, QIcon(), sText);
}

int TabWidgetWithFloatingTabs::addTab(QWidget* pqPage, const QIcon& icon, const QString& sText)
{
    releaseFloating(pqPage);
    return QTabWidget::addTab(pqPage, icon, sText);
}

void TabWidgetWithFloatingTabs::removeTab(int iIndex)
{
    if (iIndex < count())
        QTabWidget::removeTab(iIndex);
    else
        releaseFloating(widget(iIndex));
}

int TabWidgetWithFloatingTabs::indexOf(const QWidget* pqPage) const
{
    const int iTab = QTabWidget::indexOf(pqPage);
    if (iTab >= 0)
        return iTab;
    const qsizetype iFloating = floatingPages().indexOf(pqPage);
    return iFloating < 0 ? -1 : count() + static_cast<int>(iFloating);
}

QWidget* TabWidgetWithFloatingTabs::widget(int iIndex) const
{
    if (iIndex < count())
        return QTabWidget::widget(iIndex);
    const int iFloating = iIndex - count();
    return iFloating < m_vFloating.size() ? m_vFloating[iFloating].m_pqPage : nullptr;
}

QList<QWidget*> TabWidgetWithFloatingTabs::floatingPages() const
{
    QList<QWidget*> vPages;
    for (const FloatingPage& oFloating : m_vFloating)
        vPages.append(oFloating.m_pqPage);
    return vPages;
}

ChildDockWidget* TabWidgetWithFloatingTabs::floatingDock(const QWidget* pqPage) const
{
    for (const FloatingPage& oFloating : m_vFloating) {
        if (oFloating.m_pqPage == pqPage)
            return oFloating.m_pqDock;
    }
    return nullptr;
}

void TabWidgetWithFloatingTabs::setMainWindow(QMainWindow* pqMainWindow)
{
    m_pqMainWindow = pqMainWindow;
}

QMainWindow* TabWidgetWithFloatingTabs::mainWindow() const
{
    if (m_pqMainWindow)
        return m_pqMainWindow;
    for (QWidget* pqAncestor = parentWidget(); pqAncestor; pqAncestor = pqAncestor->parentWidget()) {
        if (auto* pqMainWindow = qobject_cast<QMainWindow*>(pqAncestor))
            return pqMainWindow;
    }
    return nullptr;
}

void TabWidgetWithFloatingTabs::slotTabBarMoved(int i)
{
    const QPointer<QWidget> pqPage = i >= 0 && i < count() ? widget(i) : nullptr;
    if (!pqPage || !m_bTabsCanBeMoved || !mainWindow())
        return;
    emit detachingTab(i);
    // A receiver may have changed the tabs or the main window.
    const int iTab = QTabWidget::indexOf(pqPage);
    QMainWindow* pqMainWindow = mainWindow();
    if (!pqPage || iTab < 0 || !pqMainWindow)
        return;

    updateHomeOrder();
    const QString sTitle = tabText(iTab);
    const QSize pageSize = pqPage->size();
    ChildDockWidget* pqDock = createDock(pqMainWindow, sTitle, tabIcon(iTab));
    m_vFloating.append({pqPage, pqDock, tabToolTip(iTab), tabWhatsThis(iTab)});
    connect(pqPage, &QObject::destroyed, this, &TabWidgetWithFloatingTabs::forgetPage);
    {
        const QSignalBlocker blocker(this);
        QTabWidget::removeTab(iTab);
        pqDock->setPage(pqPage);
        pqDock->resize(pageSize);
        updateGeometry();
    }
    const QRect stored = storedGeometry(sTitle);
    if (stored.isValid())
        pqDock->setGeometry(stored);
    else
        pqDock->move(QCursor::pos());
    pqDock->show();
    emit detachedTab(pqPage);
}

ChildDockWidget* TabWidgetWithFloatingTabs::createDock(QMainWindow* pqMainWindow, const QString& sTitle,
                                                       const QIcon& icon)
{
    auto* pqDock = new ChildDockWidget(sTitle, pqMainWindow);
    pqDock->setObjectName(sTitle);
    pqDock->installEventFilter(this);
    pqDock->setAllowedAreas(Qt::AllDockWidgetAreas);
    // Adding shows the dock inside the visible main window for a moment unless it is hidden on purpose.
    pqDock->hide();
    pqMainWindow->addDockWidget(Qt::RightDockWidgetArea, pqDock);
    pqDock->setWindowIcon(icon);
    pqDock->setFloating(true);
    connect(pqDock, &ChildDockWidget::destroyedWithPage, this, &TabWidgetWithFloatingTabs::rescuePage);
    return pqDock;
}

bool TabWidgetWithFloatingTabs::eventFilter(QObject* pqWatched, QEvent* pEvent)
{
    auto* pqDock = pEvent->type() == QEvent::Close ? qobject_cast<ChildDockWidget*>(pqWatched) : nullptr;
    if (!pqDock)
        return QTabWidget::eventFilter(pqWatched, pEvent);
    if (!pqDock->page())
        return true;
    attach(pqDock);
    return QTabWidget::eventFilter(pqWatched, pEvent);
}

void TabWidgetWithFloatingTabs::attach(ChildDockWidget* pqDock)
{
    const FloatingPage oFloating = takeFloating(pqDock);
    if (!oFloating.m_pqPage)
        return;
    storeGeometry(*pqDock);
    pqDock->deleteLater();
    const int iTab = insertReturningPage(oFloating, pqDock->windowIcon(), pqDock->windowTitle());
    setCurrentIndex(iTab);
    emit attachedTab(iTab);
}

/// The dock dies with its main window. No signals: receivers above may be half destroyed themselves.
void TabWidgetWithFloatingTabs::rescuePage(ChildDockWidget* pqDock)
{
    const QSignalBlocker blocker(this);
    const FloatingPage oFloating = takeFloating(pqDock);
    if (oFloating.m_pqPage)
        insertReturningPage(oFloating, pqDock->windowIcon(), pqDock->windowTitle());
}

TabWidgetWithFloatingTabs::FloatingPage TabWidgetWithFloatingTabs::takeFloating(ChildDockWidget* pqDock)
{
    const auto it = std::find_if(m_vFloating.begin(), m_vFloating.end(),
                                 [pqDock](const FloatingPage& oFloating) { return oFloating.m_pqDock == pqDock; });
    if (it == m_vFloating.end())
        return {};
    updateHomeOrder();
    FloatingPage oFloating = *it;
    m_vFloating.erase(it);
    disconnect(oFloating.m_pqPage, &QObject::destroyed, this, &TabWidgetWithFloatingTabs::forgetPage);
    pqDock->takePage();
    return oFloating;
}

int TabWidgetWithFloatingTabs::insertReturningPage(const FloatingPage& oFloating, const QIcon& icon,
                                                   const QString& sTitle)
{
    const qsizetype iHome = m_vHomeOrder.indexOf(oFloating.m_pqPage);
    int iBefore = 0;
    for (int iTab = 0; iTab < count(); ++iTab) {
        if (m_vHomeOrder.indexOf(QTabWidget::widget(iTab)) < iHome)
            iBefore = iTab + 1;
    }
    const int iIndex = insertTab(iBefore, oFloating.m_pqPage, icon, sTitle);
    setTabToolTip(iIndex, oFloating.m_sToolTip);
    setTabWhatsThis(iIndex, oFloating.m_sWhatsThis);
    return iIndex;
}

/// The tabs may have been added to or moved since the last time: they give the order, and every torn-off page stands
/// behind the page that was before it.
void TabWidgetWithFloatingTabs::updateHomeOrder()
{
    const QList<const QWidget*> vOldOrder = std::exchange(m_vHomeOrder, {});
    for (int iTab = 0; iTab < count(); ++iTab)
        m_vHomeOrder.append(QTabWidget::widget(iTab));
    qsizetype iInsert = 0;
    for (const QWidget* pqPage : vOldOrder) {
        const qsizetype iPlace = m_vHomeOrder.indexOf(pqPage);
        if (iPlace >= 0)
            iInsert = iPlace + 1;
        else if (isFloating(pqPage))
            m_vHomeOrder.insert(iInsert++, pqPage);
    }
}

void TabWidgetWithFloatingTabs::forgetPage(QObject* pqPage)
{
    // Only the address is compared: the widget part of the page is gone.
    m_vFloating.removeIf(
        [pqPage](const FloatingPage& oFloating) { return static_cast<QObject*>(oFloating.m_pqPage) == pqPage; });
}

void TabWidgetWithFloatingTabs::releaseFloating(QWidget* pqPage)
{
    ChildDockWidget* pqDock = floatingDock(pqPage);
    if (!pqDock)
        return;
    storeGeometry(*pqDock);
    takeFloating(pqDock);
    pqPage->hide();
    pqPage->setParent(this);
    pqDock->hide();
    pqDock->deleteLater();
}

} // namespace gkBase
