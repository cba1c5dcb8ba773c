#pragma once

#include "gkBaseToolsExport.h"

#include <QIcon>
#include <QList>
#include <QPointer>
#include <QRect>
#include <QTabWidget>

class QMainWindow;

namespace gkBase {

class ChildDockWidget;

/// A tab widget whose pages can be torn off into dock windows of the main window, and come back to their old place
/// among the tabs when these are closed. Torn-off pages still belong to the tab widget: they die with it, and when
/// their dock window dies before it they become tabs again.
///
/// Pages have one numbering: the tabs from 0 to count() − 1, then the torn-off pages, in the order in which they were
/// torn off. indexOf(), widget() and removeTab() use it; count() and all else of QTabWidget knows the tabs alone.
class GKBASETOOLS_EXPORT TabWidgetWithFloatingTabs : public QTabWidget
{
    Q_OBJECT
public:
    explicit TabWidgetWithFloatingTabs(QWidget* pqParent = nullptr);
    ~TabWidgetWithFloatingTabs() override;

    /// Appends a tab and returns its index. A page that is torn off comes back from its dock window.
    int addTab(QWidget* pqPage, const QString& sText);
    int addTab(QWidget* pqPage, const QIcon& icon, const QString& sText);
    /// Removes a tab, or a torn-off page together with its dock window. The page is hidden but not deleted and remains
    /// a child of this widget; an index out of range changes nothing.
    void removeTab(int iIndex);
    /// −1 for a widget that is no page.
    int indexOf(const QWidget* pqPage) const;
    /// Null for an index out of range.
    QWidget* widget(int iIndex) const;

    /// True while the page is in a dock window, floating or docked by the user.
    bool isFloating(const QWidget* pqPage) const { return floatingDock(pqPage) != nullptr; }
    /// Torn-off pages in the order in which they were torn off.
    QList<QWidget*> floatingPages() const;
    /// The dock window of a torn-off page; null for any other widget.
    ChildDockWidget* floatingDock(const QWidget* pqPage) const;

    /// The main window that takes the dock windows from now on. Without one (nullptr) the nearest main window among the
    /// ancestors is taken, looked up again for each page; when there is none, pages cannot be torn off.
    void setMainWindow(QMainWindow* pqMainWindow);
    QMainWindow* mainWindow() const;

    /// Whether pages may be torn off (default true). Pages that are in dock windows stay there.
    void setAllTabBarsCanBeMoved(bool bCanBeMoved) { m_bTabsCanBeMoved = bCanBeMoved; }
    bool allTabBarsCanBeMoved() const { return m_bTabsCanBeMoved; }

    bool eventFilter(QObject* pqWatched, QEvent* pEvent) override;

public slots:
    /// Tears the tab off into a dock window.
    void slotTabBarMoved(int i);

signals:
    /// Before tab i is torn off.
    void detachingTab(int i);
    /// After a page was torn off. currentChanged() is not emitted for the tab that became current by that.
    void detachedTab(QWidget* pqPage);
    /// After a page came back as tab i, which is current then.
    void attachedTab(int i);

private:
    struct FloatingPage
    {
        QWidget* m_pqPage = nullptr;
        ChildDockWidget* m_pqDock = nullptr;
        QString m_sToolTip;
        QString m_sWhatsThis;
    };

    ChildDockWidget* createDock(QMainWindow* pqMainWindow, const QString& sTitle, const QIcon& icon);
    void attach(ChildDockWidget* pqDock);
    void rescuePage(ChildDockWidget* pqDock);
    void forgetPage(QObject* pqPage);
    FloatingPage takeFloating(ChildDockWidget* pqDock);
    int insertReturningPage(const FloatingPage& oFloating, const QIcon& icon, const QString& sTitle);
    void updateHomeOrder();
    void releaseFloating(QWidget* pqPage);

    QPointer<QMainWindow> m_pqMainWindow; ///< not owned
    QList<FloatingPage> m_vFloating;
    QList<const QWidget*> m_vHomeOrder; ///< all pages in the order of their tabs; may name dead ones, never followed
    bool m_bTabsCanBeMoved = true;
};

/// The rectangle moved, and shrunk where it must be, so that it lies inside the screen that shows most of it; a
/// rectangle that no screen shows comes to the first one. Without screens it stays as it is.
GKBASETOOLS_EXPORT QRect broughtOntoScreen(const QRect& rect, const QList<QRect>& vScreens);

} // namespace gkBase
