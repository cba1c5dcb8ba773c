#include "MatrixData.h"
#include "QAttributeTreeView.h"
#include "QTreeItemModel.h"

#include <QAction>
#include <QColor>
#include <QItemSelectionModel>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace gkBase;

class tst_QAttributeTreeView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void selection();
    void navigation();
    void stateOverResets();
    void deleteKey();
    void colorShortcut();
    void menuOnRightButton();

private:
    QModelIndex attribute(int iDataSet, int i) const { return m_pqModel->index(i, 0, m_pqModel->index(iDataSet, 0)); }

    std::unique_ptr<MatrixData> m_pRoot;
    std::unique_ptr<QTreeItemModel> m_pqModel;
    std::unique_ptr<QAttributeTreeView> m_pqView;
};

void tst_QAttributeTreeView::init()
{
    m_pRoot = std::make_unique<MatrixData>(QStringLiteral("root"));
    for (int i = 0; i < 3; ++i) {
        auto* poDataSet = new MatrixData(QStringLiteral("Well %1").arg(i));
        m_pRoot->appendChild(poDataSet, false);
        for (int k = 0; k < 3; ++k)
            poDataSet->appendChild(new MatrixData(QStringLiteral("A%1_%2").arg(i).arg(k), 2, 1), true);
    }
    m_pqModel = std::make_unique<QTreeItemModel>(nullptr, m_pRoot.get());
    m_pqView = std::make_unique<QAttributeTreeView>(nullptr, nullptr);
    m_pqView->setModel(m_pqModel.get());
    m_pqView->resize(300, 400);
    m_pqView->show();
    m_pqView->expandAll();
    QVERIFY(QTest::qWaitForWindowExposed(m_pqView.get()));
}

void tst_QAttributeTreeView::cleanup()
{
    m_pqView.reset();
    m_pqModel.reset();
    m_pRoot.reset();
}

void tst_QAttributeTreeView::selection()
{
    QCOMPARE(m_pqView->firstSelected(), nullptr);
    m_pqView->selectAll();
    QCOMPARE(m_pqView->selectionModel()->selectedIndexes().size(), 12);
    QCOMPARE(m_pqView->allSelected().size(), std::size_t(9));
    // From an attribute of one data set to one of the next.
    QTest::mouseClick(m_pqView->viewport(), Qt::LeftButton, {}, m_pqView->visualRect(attribute(0, 1)).center());
    QTest::mouseClick(m_pqView->viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      m_pqView->visualRect(attribute(1, 0)).center());
    QCOMPARE(m_pqView->allSelected(),
             (std::vector<MatrixData*>{m_pRoot->child(0)->child(1), m_pRoot->child(0)->child(2),
                                       m_pRoot->child(1)->child(0)}));
    QCOMPARE(m_pqView->firstSelected(), m_pRoot->child(0)->child(1));
}

// The row of an attribute's parent index is not the row of its data set.
void tst_QAttributeTreeView::navigation()
{
    m_pqView->setCurrentIndex(attribute(2, 1));
    QTest::keyClick(m_pqView.get(), Qt::Key_Left);
    QCOMPARE(m_pqView->currentIndex(), m_pqModel->index(2, 0));
    QTest::keyClick(m_pqView.get(), Qt::Key_Left);
    QVERIFY(!m_pqView->isExpanded(m_pqModel->index(2, 0)));
    QTest::keyClick(m_pqView.get(), Qt::Key_Right);
    QVERIFY(m_pqView->isExpanded(m_pqModel->index(2, 0)));
    QTest::keyClick(m_pqView.get(), Qt::Key_Up);
    QCOMPARE(m_pqView->currentIndex(), attribute(1, 2));

    m_pqView->collapseAll();
    m_pqView->scrollTo(attribute(1, 2));
    QVERIFY(m_pqView->isExpanded(m_pqModel->index(1, 0)));
    QVERIFY(m_pqView->visualRect(attribute(1, 2)).isValid());
    m_pqView->collapseAll();
    m_pqView->expand(m_pqModel->parent(attribute(1, 2)));
    QVERIFY(m_pqView->isExpanded(m_pqModel->index(1, 0)));
}

void tst_QAttributeTreeView::stateOverResets()
{
    m_pqView->collapse(m_pqModel->index(0, 0));
    m_pqView->setCurrentIndex(attribute(1, 2));
    // The first data set goes, a new one comes: everything else moves up.
    m_pRoot->removeChild(m_pRoot->child(0));
    auto* poNew = new MatrixData(QStringLiteral("New"));
    poNew->appendChild(new MatrixData(QStringLiteral("N"), 1, 1), true);
    m_pqView->collapse(m_pqModel->index(1, 0));
    m_pRoot->insertChild(0, poNew);
    m_pqModel->updateModel();
    QCOMPARE(m_pqView->currentIndex(), attribute(1, 2));
    QCOMPARE(m_pqView->allSelected(), std::vector<MatrixData*>{m_pRoot->child(1)->child(2)});
    QVERIFY(m_pqView->isExpanded(m_pqModel->index(0, 0)));
    QVERIFY(m_pqView->isExpanded(m_pqModel->index(1, 0)));
    QVERIFY(!m_pqView->isExpanded(m_pqModel->index(2, 0)));
    m_pqView->updateView();
    QVERIFY(m_pqView->isExpanded(m_pqModel->index(2, 0)));
    m_pRoot.reset();
    QCOMPARE(m_pqModel->rowCount(), 0);
    QVERIFY(!m_pqView->currentIndex().isValid());
}

void tst_QAttributeTreeView::deleteKey()
{
    m_pqView->setCurrentIndex(attribute(1, 1));
    QTest::keyClick(m_pqView.get(), Qt::Key_Delete);
    QCOMPARE(m_pRoot->child(1)->childCount(), 2);
    QVERIFY(m_pqView->allSelected().empty());
    QVERIFY(m_pRoot->undo());
    QCOMPARE(m_pqModel->rowCount(m_pqModel->index(1, 0)), 3);
}

void tst_QAttributeTreeView::colorShortcut()
{
    QSignalSpy oChanged(m_pqView.get(), &QAttributeTreeView::treeItemsChanged);
    QColor oPicked;
    m_pqView->setColorPicker([&oPicked](const QColor&, QWidget*) { return oPicked; });
    m_pqView->setCurrentIndex(attribute(0, 0));
    const QColor oBefore = m_pRoot->child(0)->child(0)->color();
    m_pqView->activateWindow();
    m_pqView->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_pqView.get()));
    QTest::keyClick(m_pqView.get(), Qt::Key_E, Qt::ControlModifier); // cancelled
    QCOMPARE(m_pRoot->child(0)->child(0)->color(), oBefore);
    QCOMPARE(oChanged.count(), 0);
    oPicked = QColor(9, 8, 7);
    QTest::keyClick(m_pqView.get(), Qt::Key_E, Qt::ControlModifier);
    QCOMPARE(m_pRoot->child(0)->child(0)->color(), oPicked);
    QCOMPARE(oChanged.count(), 1);
}

void tst_QAttributeTreeView::menuOnRightButton()
{
    QCOMPARE(m_pqView->menu()->actions().size(), 1);
    QMenu menu;
    menu.addAction(QStringLiteral("Host"));
    QAttributeTreeView view(nullptr, &menu);
    QVERIFY(view.findChildren<QMenu*>().isEmpty());
    view.setModel(m_pqModel.get());
    view.show();
    int iOpened = 0;
    connect(&menu, &QMenu::aboutToShow, this, [&] {
        ++iOpened;
        QTimer::singleShot(0, &menu, &QMenu::close);
    });
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, view.visualRect(m_pqModel->index(0, 0)).center());
    QCOMPARE(iOpened, 1);
}

QTEST_MAIN(tst_QAttributeTreeView)
#include "tst_qattributetreeview.moc"
