// What is selected in the analyser, in its table and in its charts.

#include "AnalyserWithWell.h"
#include "QAttributeTreeView.h"
#include "QCrossPlot.h"
#include "QCrossPlotWidget.h"
#include "QDepthPlotWidget.h"
#include "QRelationshipItemModel.h"
#include "QTreeItemModel.h"

#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>

#include <array>
#include <memory>

using namespace gkBase;

class tst_AnalyserSelection : public QObject, private gkTest::AnalyserWithWell
{
    Q_OBJECT

private slots:
    void initTestCase() { useSettings(QStringLiteral("selection")); }
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void selectionOfAChartReachesTableAndOtherCharts()
    {
        const QSignalSpy refills(histogramModel(), &QAbstractItemModel::modelReset);
        QVERIFY(refills.isValid());
        select({1, 2, 5});
        QCOMPARE(m_pqDialog->vertexTable()->selectedRecords(), (std::vector<int>{1, 2, 5}));
        QCoreApplication::processEvents();
        QCOMPARE(refills.count(), 0); // hidden

        showHistogram();
        QVERIFY(refills.count() > 0);
        QCOMPARE(histogramModel()->numberOfPoints(), 3);
        const auto iRefills = refills.count();
        showTable();
        showHistogram();
        QCOMPARE(refills.count(), iRefills); // nothing changed since

        select({7}); // while it is shown
        QTRY_COMPARE(histogramModel()->numberOfPoints(), 1);
        select({7, 8});
        m_pqDialog->copyToClipboard();
        QCOMPARE(histogramModel()->numberOfPoints(), 2); // a picture of what is selected now
        select({});
        QTRY_COMPARE(histogramModel()->numberOfPoints(), 10); // no selection means all
    }

    void tornOffChartFollowsTheSelection()
    {
        m_pqDialog->tabWidget()->slotTabBarMoved(m_pqDialog->tabWidget()->indexOf(m_pqDialog->histogramChart()));
        QVERIFY(m_pqDialog->tabWidget()->isFloating(m_pqDialog->histogramChart()));
        QTRY_COMPARE(histogramModel()->numberOfPoints(), 10);
        select({0, 9});
        QTRY_COMPARE(histogramModel()->numberOfPoints(), 2);

        QWidget* pqDock = m_pqDialog->histogramChart()->window();
        pqDock->hide();
        select({0, 1, 2});
        QCoreApplication::processEvents();
        QCOMPARE(histogramModel()->numberOfPoints(), 2);
        pqDock->show();
        QTRY_COMPARE(histogramModel()->numberOfPoints(), 3);
    }

    void lassoInTheCrossPlotSelectsEverywhere()
    {
        m_pqDialog->tabWidget()->slotTabBarMoved(m_pqDialog->tabWidget()->indexOf(m_pqDialog->histogramChart()));
        showPage(m_pqDialog->crossPlot());
        QCrossPlot* pqCanvas = m_pqDialog->crossPlot()->drawingArea();
        // Around the upper half of the points: Dip against Depth rises from corner to corner.
        const QRect oHalf(pqCanvas->width() / 2, -5, pqCanvas->width() / 2 + 10, pqCanvas->height() + 10);
        QTest::mousePress(pqCanvas, Qt::LeftButton, {}, oHalf.topLeft());
        for (const QPoint& oCorner : {oHalf.bottomLeft(), oHalf.bottomRight(), oHalf.topRight()}) {
            QMouseEvent move(QEvent::MouseMove, oCorner, pqCanvas->mapToGlobal(oCorner), Qt::NoButton, Qt::LeftButton,
                             {});
            QCoreApplication::sendEvent(pqCanvas, &move);
        }
        QTest::mouseRelease(pqCanvas, Qt::LeftButton, {}, oHalf.topRight());

        const std::vector<int> viRecords = m_pqDialog->vertexTable()->selectedRecords();
        QCOMPARE(viRecords, (std::vector<int>{5, 6, 7, 8, 9}));
        QTRY_COMPARE(histogramModel()->numberOfPoints(), 5);
        QCOMPARE(m_pqDialog->crossPlot()->numberOfSelectedRows(), 5);
        showPage(m_pqDialog->depthPlot());
        int iTracks = 0;
        for (const QRelationshipItemModel* pModel : m_pqDialog->depthPlot()->findChildren<QRelationshipItemModel*>())
            if (pModel->nodeX()) {
                ++iTracks;
                QCOMPARE(pModel->selectedRecords(), viRecords);
            }
        QVERIFY(iTracks > 0);
    }

    void selectedRowsComeIntoView()
    {
        auto* poLong = new MatrixData(QStringLiteral("Long"));
        m_poRoot->appendChild(poLong, false);
        poLong->appendChild(gkTest::risingAttribute(QStringLiteral("Value"), 1000, 1.0), true);
        m_pqDialog->updateAllViews();
        QCoreApplication::processEvents();
        const auto bFlags = std::make_unique<bool[]>(1000);
        const auto seenAfterSelecting = [&](std::initializer_list<int> lRecords, int iRecord) {
            for (const int iSelected : lRecords)
                bFlags[static_cast<std::size_t>(iSelected)] = true;
            m_pqDialog->selectRecordsOf(poLong, bFlags.get(), 1000);
            QVertexModelTableView* pqTable = m_pqDialog->vertexTable();
            const QRect oRow = pqTable->visualRect(m_pqDialog->vertexItemModel()->index(iRecord + 3, 0));
            return pqTable->viewport()->rect().intersects(oRow);
        };
        QVERIFY(seenAfterSelecting({500, 900}, 500));
        QVERIFY2(seenAfterSelecting({2}, 500), "what is in view stays there");
    }

    void thinnedTableDoesNotCutWhatAChartSelected()
    {
        m_pqDialog->vertexItemModel()->updateModel(3, {}); // records 0, 2, 5, 8
        const auto showsAfterRefill = [this](int iRecords) {
            showTable();
            showHistogram();
            const int iInHistogram = histogramModel()->numberOfPoints();
            showPage(m_pqDialog->crossPlot());
            const int iInCrossPlot = m_pqDialog->crossPlot()->numberOfSelectedRows();
            return iInHistogram == iRecords && iInCrossPlot == iRecords % 10;
        };
        select({1, 2, 3});
        QCOMPARE(m_pqDialog->vertexTable()->selectedRecords(), std::vector<int>{2});
        QVERIFY(showsAfterRefill(3));
        select({3, 4}); // the table shows none of them
        QVERIFY(m_pqDialog->vertexTable()->selectedRecords().empty());
        QVERIFY(showsAfterRefill(2));
        QTest::keyClick(m_pqDialog->vertexTable(), Qt::Key_Escape);
        QVERIFY(showsAfterRefill(10));
        select({1, 2, 3});
        m_pqDialog->selectInverse(); // in the table
        QVERIFY(showsAfterRefill(3));
    }

    void selectionIsAnnouncedOncePerChange()
    {
        auto* poOther = new MatrixData(QStringLiteral("Other"));
        m_poRoot->appendChild(poOther, false);
        poOther->appendChild(gkTest::risingAttribute(QStringLiteral("Value"), 4, 1.0), true);
        m_pqDialog->vertexItemModel()->updateModel(3, {}); // records 0, 2, 5, 8
        QCoreApplication::processEvents();
        const QSignalSpy changed(m_pqDialog, &QDataAnalyserDialog::selectionChanged);
        const auto announced = [&changed](int iTimes) {
            QCoreApplication::processEvents();
            return changed.count() == iTimes;
        };
        select({7});
        select({1, 2, 3});
        QVERIFY(announced(1));
        QCOMPARE(m_pqDialog->selectedRecords(), (std::vector<int>{1, 2, 3}));
        MatrixData& well = *m_poRoot->child(0);
        QVERIFY(m_pqDialog->selectsRecordsOf(well) && !m_pqDialog->selectsRecordsOf(*poOther));
        select({1, 2, 3});
        QVERIFY(announced(1));
        m_pqDialog->vertexTable()->clearSelection();
        m_pqDialog->vertexTable()->setCurrentIndex(m_pqDialog->vertexItemModel()->index(3, 2)); // a cell, no row
        QVERIFY(announced(2) && m_pqDialog->selectedRecords().empty());
        QCOMPARE(m_pqDialog->currentDataSet(), poOther);
        QVERIFY(m_pqDialog->selectsRecordsOf(*poOther) && !m_pqDialog->selectsRecordsOf(well));
        m_pqDialog->vertexTable()->selectAll();
        QVERIFY(announced(3));
        m_pqDialog->clearAllSelections();
        QVERIFY(announced(4));
    }

    void switchingAttributesKeepsTheSelection()
    {
        select({3, 4});
        QTreeItemModel* pTree = m_pqDialog->treeItemModel();
        const QModelIndex dip = pTree->indexFromNode(m_poRoot->getNodeFromName(QStringLiteral("Dip")));
        QVERIFY(pTree->setData(dip, Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(m_pqDialog->vertexItemModel()->columnCount(), 1);
        QCOMPARE(m_pqDialog->vertexTable()->selectedRecords(), (std::vector<int>{3, 4}));
    }

    void clickInTheTreeClearsTheRowsAndChoosesTheHistogram()
    {
        select({1});
        QAttributeTreeView* pqTree = m_pqDialog->treeView();
        MatrixData* poDip = m_poRoot->getNodeFromName(QStringLiteral("Dip"));
        const QRect oRect = pqTree->visualRect(m_pqDialog->treeItemModel()->indexFromNode(poDip));
        QVERIFY(oRect.isValid());
        QTest::mouseClick(pqTree->viewport(), Qt::LeftButton, {}, oRect.center());
        QCOMPARE(m_pqDialog->vertexTable()->selectedRowCount(), 0);
        QCOMPARE(m_pqDialog->histogramChart()->currentSelectedDataSet(), poDip);
    }

    void updateCellViewKeepsTheRows()
    {
        select({0, 1, 8});
        m_pqDialog->updateCellView();
        QCOMPARE(m_pqDialog->vertexTable()->selectedRecords(), (std::vector<int>{0, 1, 8}));
    }
};

QTEST_MAIN(tst_AnalyserSelection)
#include "tst_analyserselection.moc"
