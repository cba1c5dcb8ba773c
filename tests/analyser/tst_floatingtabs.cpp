#include "ChildDockWidget.h"
#include "TabWidgetWithFloatingTabs.h"
#include "TabWidgetWithFloatingTabsBar.h"

#include <QCoreApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPixmap>
#include <QPointer>
#include <QProxyStyle>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace gkBase;

namespace {

/// Switches tabs on the release of the button, as some desktops do.
class SwitchOnReleaseStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption* pOption, const QWidget* pqWidget,
                  QStyleHintReturn* pReturn) const override
    {
        return hint == SH_TabBar_SelectMouseType ? int(QEvent::MouseButtonRelease)
                                                 : QProxyStyle::styleHint(hint, pOption, pqWidget, pReturn);
    }
};

/// A main window with three pages "A", "B" and "C".
struct Fixture
{
    explicit Fixture(int nPages = 3)
        : m_pqTabs(new TabWidgetWithFloatingTabs(&m_oWindow))
    {
        m_oWindow.setCentralWidget(m_pqTabs);
        for (int i = 0; i < nPages; ++i) {
            auto* pqPage = new QLabel(QStringLiteral("page"));
            pqPage->setObjectName(QStringLiteral("page%1").arg(i));
            m_pqTabs->addTab(pqPage, QString(QChar(u'A' + i)));
            m_vPages.append(pqPage);
        }
        m_oWindow.resize(500, 300);
        m_oWindow.show();
    }

    QTabBar* bar() const { return m_pqTabs->tabBar(); }
    QPoint tabCentre(int iTab) const { return bar()->tabRect(iTab).center(); }
    /// The tabs' texts, and those of the torn-off pages' docks after a bar.
    QString order() const
    {
        QString sOrder;
        for (int i = 0; i < m_pqTabs->count(); ++i)
            sOrder += m_pqTabs->tabText(i);
        sOrder += QLatin1Char('|');
        for (QWidget* pqPage : m_pqTabs->floatingPages())
            sOrder += m_pqTabs->floatingDock(pqPage)->windowTitle();
        return sOrder;
    }
    void tearOff(const char* pcTitle)
    {
        for (int i = 0; i < m_pqTabs->count(); ++i) {
            if (m_pqTabs->tabText(i) == QLatin1String(pcTitle)) {
                m_pqTabs->slotTabBarMoved(i);
                return;
            }
        }
    }

    QMainWindow m_oWindow;
    TabWidgetWithFloatingTabs* m_pqTabs;
    QList<QWidget*> m_vPages;
};

void runDeferredDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class tst_FloatingTabs : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void pressSwitchesTheTab_data();
    void pressSwitchesTheTab();
    void pullTearsOffOneTabPerGesture();
    void doubleClickTearsOffTheCurrentTabOnly();
    void tearOffAndClose_keepWhatThePageHad();
    void signalsTellTheStory();
    void returningPage_standsAtItsOldPlace_data();
    void returningPage_standsAtItsOldPlace();
    void pagesThatCannotBeTornOff();
    void numberingKnowsFloatingPages();
    void addTab_bringsAFloatingPageBack();
    void geometry_isRestored();
    void geometry_comesOntoAScreen_data();
    void geometry_comesOntoAScreen();
    void doubleClickOnTheTitleKeepsTheDockFloating();
    void emptyDockConsumesItsClose();
    void deathInAnyOrder_data();
    void deathInAnyOrder();
    void pageSurvivesAMainWindowThatIsNotItsOwn();

private:
    QTemporaryDir m_oSettingsDir;
};

void tst_FloatingTabs::initTestCase()
{
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_oSettingsDir.path());
    QCoreApplication::setOrganizationName(QStringLiteral("gkTests"));
    QCoreApplication::setApplicationName(QStringLiteral("floatingtabs"));
}

void tst_FloatingTabs::init()
{
    QSettings().clear();
}

void tst_FloatingTabs::pressSwitchesTheTab_data()
{
    QTest::addColumn<bool>("bOnRelease");
    QTest::newRow("the application's style") << false;
    QTest::newRow("a style that switches on the release") << true;
}

void tst_FloatingTabs::pressSwitchesTheTab()
{
    QFETCH(bool, bOnRelease);
    SwitchOnReleaseStyle style;
    Fixture f;
    if (bOnRelease)
        f.bar()->setStyle(&style);
    QTest::mouseClick(f.bar(), Qt::LeftButton, {}, f.tabCentre(1));
    QCOMPARE(f.m_pqTabs->currentIndex(), 1);
    f.m_pqTabs->setTabEnabled(2, false);
    QTest::mouseClick(f.bar(), Qt::LeftButton, {}, f.tabCentre(2));
    QCOMPARE(f.m_pqTabs->currentIndex(), 1);
    QTest::mouseClick(f.bar(), Qt::RightButton, {}, f.tabCentre(0));
    QCOMPARE(f.m_pqTabs->currentIndex(), 1);
}

void tst_FloatingTabs::pullTearsOffOneTabPerGesture()
{
    Fixture f;
    const QPoint pos = f.tabCentre(1);
    QTest::mouseMove(f.bar(), pos + QPoint(-3, 0));
    QTest::mouseMove(f.bar(), pos + QPoint(9, 0));
    QCOMPARE(f.order(), QStringLiteral("ABC|")); // no button, no gesture

    QTest::mousePress(f.bar(), Qt::LeftButton, {}, pos);
    QTest::mouseMove(f.bar(), pos + QPoint(3, 2));
    QCOMPARE(f.order(), QStringLiteral("ABC|"));
    QTest::mouseMove(f.bar(), pos + QPoint(3, 3));
    QCOMPARE(f.order(), QStringLiteral("AC|B"));
    for (int i = 0; i < 5; ++i)
        QTest::mouseMove(f.bar(), f.tabCentre(i % 2));
    QTest::mouseRelease(f.bar(), Qt::LeftButton, {}, f.tabCentre(0));
    QTest::mouseMove(f.bar(), f.tabCentre(1));
    QCOMPARE(f.order(), QStringLiteral("AC|B"));

    QTest::mousePress(f.bar(), Qt::RightButton, {}, f.tabCentre(0));
    QTest::mouseMove(f.bar(), f.tabCentre(0) + QPoint(0, 7));
    QTest::mouseRelease(f.bar(), Qt::RightButton, {}, f.tabCentre(0));
    QCOMPARE(f.order(), QStringLiteral("AC|B"));

    QTest::mousePress(f.bar(), Qt::LeftButton, {}, f.tabCentre(0));
    QTest::mouseMove(f.bar(), f.tabCentre(0) - QPoint(0, 6));
    QTest::mouseRelease(f.bar(), Qt::LeftButton, {}, f.tabCentre(0));
    QCOMPARE(f.order(), QStringLiteral("C|BA"));
}

void tst_FloatingTabs::doubleClickTearsOffTheCurrentTabOnly()
{
    Fixture f;
    const QPoint pos = f.tabCentre(1);
    QTest::mouseClick(f.bar(), Qt::LeftButton, {}, pos);
    // The second press of a double click is the double click itself; the button is held until the release.
    QTest::mouseDClick(f.bar(), Qt::LeftButton, {}, pos);
    QTest::mouseMove(f.bar(), f.tabCentre(0));
    QTest::mouseMove(f.bar(), f.tabCentre(1));
    QTest::mouseRelease(f.bar(), Qt::LeftButton, {}, f.tabCentre(1));
    QCOMPARE(f.order(), QStringLiteral("AC|B"));
}

void tst_FloatingTabs::tearOffAndClose_keepWhatThePageHad()
{
    Fixture f;
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    f.m_pqTabs->setTabIcon(1, QIcon(pixmap));
    f.m_pqTabs->setTabToolTip(1, QStringLiteral("tip"));
    QWidget* pqPage = f.m_vPages[1];
    const QSize size = f.m_vPages[0]->size();
    f.tearOff("B");

    ChildDockWidget* pqDock = f.m_pqTabs->floatingDock(pqPage);
    QVERIFY(pqDock && pqDock->isFloating() && pqDock->isVisible() && pqPage->isVisible());
    QCOMPARE(pqDock->parentWidget(), &f.m_oWindow);
    QCOMPARE(pqDock->objectName(), QStringLiteral("B"));
    QCOMPARE(pqDock->allowedAreas(), Qt::AllDockWidgetAreas);
    QVERIFY(!pqDock->windowIcon().isNull());
    QVERIFY(pqPage->width() >= size.width() && pqPage->height() >= size.height() - 40);
    QCOMPARE(pqPage->objectName(), QStringLiteral("page1"));

    QPointer<ChildDockWidget> pqGuard(pqDock);
    pqDock->close();
    runDeferredDeletes();
    QVERIFY(!pqGuard);
    QCOMPARE(f.order(), QStringLiteral("ABC|"));
    QCOMPARE(f.m_pqTabs->currentWidget(), pqPage);
    QVERIFY(pqPage->isVisible());
    QVERIFY(!f.m_pqTabs->tabIcon(1).isNull());
    QCOMPARE(f.m_pqTabs->tabToolTip(1), QStringLiteral("tip"));
    QCOMPARE(pqPage->objectName(), QStringLiteral("page1"));
}

void tst_FloatingTabs::signalsTellTheStory()
{
    Fixture f;
    QStringList lStory;
    connect(f.m_pqTabs, &TabWidgetWithFloatingTabs::detachingTab, this,
            [&](int i) { lStory += QStringLiteral("detaching %1 %2").arg(i).arg(f.order()); });
    connect(f.m_pqTabs, &TabWidgetWithFloatingTabs::detachedTab, this,
            [&](QWidget* pqPage) { lStory += QStringLiteral("detached %1 %2").arg(pqPage->objectName(), f.order()); });
    connect(f.m_pqTabs, &TabWidgetWithFloatingTabs::attachedTab, this,
            [&](int i) { lStory += QStringLiteral("attached %1 %2").arg(i).arg(f.order()); });
    QSignalSpy currentSpy(f.m_pqTabs, &QTabWidget::currentChanged);
    f.tearOff("A");
    QCOMPARE(currentSpy.count(), 0);
    f.m_pqTabs->floatingDock(f.m_vPages[0])->close();
    QCOMPARE(lStory, QStringList({"detaching 0 ABC|", "detached page0 BC|A", "attached 0 ABC|"}));
    QCOMPARE(currentSpy.last().first().toInt(), 0);
}

void tst_FloatingTabs::returningPage_standsAtItsOldPlace_data()
{
    QTest::addColumn<QString>("sSteps"); // a capital tears a page off, a small letter brings it back
    QTest::addColumn<QString>("sOrder");
    QTest::newRow("neighbours away") << "BCb"
                                     << "ABD|C";
    QTest::newRow("all away, last first") << "ABCDdcba"
                                          << "ABCD|";
    QTest::newRow("all away, mixed") << "DBACcadb"
                                     << "ABCD|";
    QTest::newRow("left neighbour returns later") << "ABba"
                                                  << "ABCD|";
    QTest::newRow("again and again") << "BbCcBCcb"
                                     << "ABCD|";
    QTest::newRow("a page added meanwhile") << "DB+bd"
                                            << "ABCDE|";
    QTest::newRow("tabs moved meanwhile") << "B>b"
                                          << "CABD|";
}

void tst_FloatingTabs::returningPage_standsAtItsOldPlace()
{
    QFETCH(QString, sSteps);
    QFETCH(QString, sOrder);
    Fixture f(4);
    for (const QChar step : sSteps) {
        if (step == u'+')
            f.m_pqTabs->addTab(new QWidget, QStringLiteral("E"));
        else if (step == u'>')
            f.bar()->moveTab(1, 0); // C before A
        else if (step.isUpper())
            f.tearOff(QByteArray(1, step.toLatin1()).constData());
        else
            f.m_pqTabs->floatingDock(f.m_vPages[step.toUpper().toLatin1() - 'A'])->close();
    }
    QCOMPARE(f.order(), sOrder);
}

void tst_FloatingTabs::pagesThatCannotBeTornOff()
{
    TabWidgetWithFloatingTabs alone;
    alone.addTab(new QWidget, QStringLiteral("A"));
    QSignalSpy aloneSpy(&alone, &TabWidgetWithFloatingTabs::detachingTab);
    alone.slotTabBarMoved(0);
    QCOMPARE(alone.count(), 1);
    QCOMPARE(aloneSpy.count(), 0);

    QMainWindow other;
    alone.setMainWindow(&other);
    alone.slotTabBarMoved(0);
    QCOMPARE(alone.count(), 0);

    Fixture f;
    for (const int iTab : {-1, 3, 99})
        f.m_pqTabs->slotTabBarMoved(iTab);
    f.m_pqTabs->setAllTabBarsCanBeMoved(false);
    f.m_pqTabs->slotTabBarMoved(0);
    QCOMPARE(f.order(), QStringLiteral("ABC|"));
    f.m_pqTabs->setAllTabBarsCanBeMoved(true);

    // A receiver of detachingTab may take the page away.
    connect(f.m_pqTabs, &TabWidgetWithFloatingTabs::detachingTab, this, [&](int i) { delete f.m_pqTabs->widget(i); });
    f.m_pqTabs->slotTabBarMoved(0);
    QCOMPARE(f.order(), QStringLiteral("BC|"));
}

void tst_FloatingTabs::numberingKnowsFloatingPages()
{
    Fixture f;
    f.tearOff("C");
    f.tearOff("A");
    QCOMPARE(f.m_pqTabs->indexOf(f.m_vPages[1]), 0);
    QCOMPARE(f.m_pqTabs->indexOf(f.m_vPages[2]), 1);
    QCOMPARE(f.m_pqTabs->indexOf(f.m_vPages[0]), 2);
    QCOMPARE(f.m_pqTabs->indexOf(&f.m_oWindow), -1);
    QCOMPARE(f.m_pqTabs->indexOf(nullptr), -1);
    for (QWidget* pqPage : f.m_vPages)
        QCOMPARE(f.m_pqTabs->widget(f.m_pqTabs->indexOf(pqPage)), pqPage);
    QVERIFY(!f.m_pqTabs->widget(3) && !f.m_pqTabs->widget(-1));
    QVERIFY(f.m_pqTabs->isFloating(f.m_vPages[2]) && !f.m_pqTabs->isFloating(f.m_vPages[1]));

    QPointer<QWidget> pqRemoved = f.m_vPages[2];
    QPointer<ChildDockWidget> pqDock = f.m_pqTabs->floatingDock(pqRemoved);
    f.m_pqTabs->removeTab(f.m_pqTabs->indexOf(pqRemoved));
    f.m_pqTabs->removeTab(7);
    f.m_pqTabs->removeTab(-1);
    runDeferredDeletes();
    QCOMPARE(f.order(), QStringLiteral("B|A"));
    QVERIFY(!pqDock && pqRemoved && !pqRemoved->isVisible());
    QVERIFY(f.m_pqTabs->isAncestorOf(pqRemoved));
    QCOMPARE(f.m_pqTabs->indexOf(pqRemoved), -1);
}

void tst_FloatingTabs::addTab_bringsAFloatingPageBack()
{
    Fixture f;
    f.tearOff("A");
    QCOMPARE(f.m_pqTabs->addTab(f.m_vPages[0], QStringLiteral("Z")), 2);
    QCOMPARE(f.order(), QStringLiteral("BCZ|"));
    f.m_pqTabs->setCurrentIndex(2);
    QVERIFY(f.m_vPages[0]->isVisible());
}

void tst_FloatingTabs::geometry_isRestored()
{
    const QRect rect(120, 90, 333, 222);
    {
        Fixture f;
        f.tearOff("B");
        ChildDockWidget* pqDock = f.m_pqTabs->floatingDock(f.m_vPages[1]);
        pqDock->setGeometry(rect);
        pqDock->close();
        f.tearOff("B");
        QCOMPARE(f.m_pqTabs->floatingDock(f.m_vPages[1])->geometry(), rect);
        // Docked by the user, it has no rectangle of its own to remember.
        f.m_pqTabs->floatingDock(f.m_vPages[1])->setFloating(false);
        f.m_pqTabs->floatingDock(f.m_vPages[1])->close();
    }
    QCOMPARE(QSettings().value(QStringLiteral("TabWidgetWithFloatingTabs/dockSizes/B")).toRect(), rect);
    Fixture next;
    next.m_pqTabs->setTabText(0, QStringLiteral("Depth/time"));
    next.tearOff("Depth/time");
    next.tearOff("B");
    QCOMPARE(next.m_pqTabs->floatingDock(next.m_vPages[1])->geometry(), rect);
    next.m_pqTabs->floatingDock(next.m_vPages[0])->close();
    QSettings settings;
    settings.beginGroup(QStringLiteral("TabWidgetWithFloatingTabs/dockSizes"));
    QVERIFY(settings.childGroups().isEmpty());
    QCOMPARE(settings.childKeys().size(), 2);
}

void tst_FloatingTabs::geometry_comesOntoAScreen_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("inside") << QRect(10, 20, 300, 200) << QRect(10, 20, 300, 200);
    QTest::newRow("inside the second") << QRect(900, 20, 300, 200) << QRect(900, 20, 300, 200);
    QTest::newRow("on a screen that is gone") << QRect(5000, 5000, 300, 200) << QRect(500, 400, 300, 200);
    QTest::newRow("above") << QRect(-50, -300, 300, 200) << QRect(0, 0, 300, 200);
    QTest::newRow("mostly on the second") << QRect(790, -10, 300, 200) << QRect(800, 0, 300, 200);
    QTest::newRow("too large") << QRect(-10, -10, 3000, 200) << QRect(800, 0, 1000, 200);
}

void tst_FloatingTabs::geometry_comesOntoAScreen()
{
    QFETCH(QRect, rect);
    QFETCH(QRect, expected);
    const QList<QRect> vScreens{QRect(0, 0, 800, 600), QRect(800, 0, 1000, 900)};
    QCOMPARE(broughtOntoScreen(rect, vScreens), expected);
    QCOMPARE(broughtOntoScreen(rect, {}), rect);
}

void tst_FloatingTabs::doubleClickOnTheTitleKeepsTheDockFloating()
{
    Fixture f;
    f.tearOff("B");
    ChildDockWidget* pqDock = f.m_pqTabs->floatingDock(f.m_vPages[1]);
    for (const QEvent::Type type : {QEvent::NonClientAreaMouseButtonDblClick, QEvent::MouseButtonDblClick}) {
        const QPointF pos(20, 4);
        QMouseEvent event(type, pos, pqDock->mapToGlobal(pos), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(pqDock, &event);
        QVERIFY(pqDock->isFloating() && pqDock->isWindow());
    }
}

void tst_FloatingTabs::emptyDockConsumesItsClose()
{
    Fixture f;
    QSignalSpy attachedSpy(f.m_pqTabs, &TabWidgetWithFloatingTabs::attachedTab);
    ChildDockWidget empty(QStringLiteral("A"));
    QEvent close(QEvent::Close);
    QEvent other(QEvent::Move);
    QVERIFY(f.m_pqTabs->eventFilter(&empty, &close));
    QVERIFY(!f.m_pqTabs->eventFilter(&empty, &other));
    QCOMPARE(attachedSpy.count(), 0);
    QCOMPARE(f.order(), QStringLiteral("ABC|"));
}

void tst_FloatingTabs::deathInAnyOrder_data()
{
    QTest::addColumn<QString>("sOrder"); // w main window, t tab widget, p page, d dock
    for (const char* pcOrder : {"w", "t", "tw", "p", "pw", "pt", "ptw", "d", "dw", "dp", "dpt", "dpw", "pd"})
        QTest::newRow(pcOrder) << QString::fromLatin1(pcOrder);
}

void tst_FloatingTabs::deathInAnyOrder()
{
    QFETCH(QString, sOrder);
    for (const bool bDeferred : {false, true}) {
        auto poFixture = std::make_unique<Fixture>();
        poFixture->tearOff("B");
        poFixture->tearOff("C");
        TabWidgetWithFloatingTabs* pqTabs = poFixture->m_pqTabs;
        const QPointer<QWidget> pqTabWidget = pqTabs;
        const QList<QPointer<QWidget>> vPages(poFixture->m_vPages.begin(), poFixture->m_vPages.end());
        const QPointer<QWidget> pqDock = pqTabs->floatingDock(vPages[1]);
        for (const QChar victim : sOrder) {
            if (victim == u'w')
                poFixture.reset();
            else if (victim == u't')
                delete pqTabWidget;
            else if (victim == u'p')
                delete vPages[1];
            else
                delete pqDock;
            if (bDeferred)
                runDeferredDeletes();
            if (victim == u't')
                QVERIFY2(!vPages[2], "torn-off pages die with their tab widget");
            if (victim == u'd' && !sOrder.startsWith(u'p'))
                QCOMPARE(pqTabs->indexOf(vPages[1]), 1); // a tab again
            if (victim == u'p')
                QCOMPARE(pqTabs->floatingPages().size(), 1);
        }
        if (poFixture && pqTabWidget)
            pqTabs->floatingDock(vPages[2])->close();
        poFixture.reset();
        runDeferredDeletes();
        QVERIFY(!pqTabWidget && !pqDock);
        for (const QPointer<QWidget>& pqPage : vPages)
            QVERIFY(!pqPage);
    }
}

void tst_FloatingTabs::pageSurvivesAMainWindowThatIsNotItsOwn()
{
    Fixture f;
    auto poOther = std::make_unique<QMainWindow>();
    f.m_pqTabs->setMainWindow(poOther.get());
    f.tearOff("B");
    f.tearOff("A");
    QCOMPARE(f.m_pqTabs->floatingDock(f.m_vPages[1])->parentWidget(), poOther.get());
    QSignalSpy attachedSpy(f.m_pqTabs, &TabWidgetWithFloatingTabs::attachedTab);
    poOther.reset();
    QCOMPARE(f.order(), QStringLiteral("ABC|"));
    QCOMPARE(attachedSpy.count(), 0);
    f.tearOff("C"); // into the window above, now that the other one is gone
    QCOMPARE(f.m_pqTabs->floatingDock(f.m_vPages[2])->parentWidget(), &f.m_oWindow);
}

QTEST_MAIN(tst_FloatingTabs)
#include "tst_floatingtabs.moc"
