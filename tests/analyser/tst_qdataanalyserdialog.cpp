#include "MatrixDataRestore.h"
#include "QAttributeTreeView.h"
#include "QDataAnalyserDialog.h"
#include "QHistogramChartWidget.h"
#include "QHistogramItemModel.h"
#include "QSelectCellsDialog.h"
#include "QTreeItemModel.h"
#include "QVertexItemModel.h"
#include "QVertexMinMaxModelTableView.h"
#include "QVertexModelTableView.h"
#include "TabWidgetWithFloatingTabs.h"
#include "UnitRegistry.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QHeaderView>
#include <QMainWindow>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <memory>

using namespace gkBase;

namespace {

MatrixData* newAttribute(const QString& sName, int iRecords, double dStep)
{
    auto* poAttribute = new MatrixData(sName, iRecords, 1);
    for (int i = 0; i < iRecords; ++i)
        poAttribute->setValue(poAttribute->rowOffSet() + i, 0, dStep * i);
    poAttribute->setSelected(true);
    return poAttribute;
}

/// A root with one well of ten records: depth 0, 1, … and dip 0, 5, ….
std::unique_ptr<MatrixData> newRoot()
{
    auto poRoot = std::make_unique<MatrixData>(QStringLiteral("Data"));
    auto* poWell = new MatrixData(QStringLiteral("Well"));
    poRoot->appendChild(poWell, false);
    poWell->appendChild(newAttribute(QStringLiteral("Depth"), 10, 1.0), true);
    poWell->appendChild(newAttribute(QStringLiteral("Dip"), 10, 5.0), true);
    return poRoot;
}

} // namespace

class tst_QDataAnalyserDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
        QCoreApplication::setOrganizationName(QStringLiteral("test"));
        QCoreApplication::setApplicationName(QStringLiteral("analyser"));
    }

    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral("QObject::connect|No such (signal|slot)")));
        QSettings().clear();
        m_poRoot = newRoot();
        m_pqWindow = std::make_unique<QMainWindow>();
        m_pqDialog = new QDataAnalyserDialog(m_pqWindow.get());
        m_pqWindow->setCentralWidget(m_pqDialog);
        m_pqDialog->initialize(QStringLiteral("Test"), nullptr, Qt::Horizontal, false, true, true, 0);
        m_pqDialog->setRegistry(&m_registry);
        m_pqDialog->changeDataRoot(m_poRoot.get());
        m_pqWindow->resize(1000, 700);
        m_pqWindow->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_pqWindow.get()));
    }

    void cleanup()
    {
        m_pqWindow.reset();
        m_poRoot.reset();
    }

    void pagesAndTables()
    {
        QCOMPARE(m_pqDialog->tabWidget()->widget(0)->objectName(), QStringLiteral("TABLE"));
        QCOMPARE(m_pqDialog->tabWidget()->widget(1)->objectName(), QStringLiteral("HISTOGRAM"));
        QCOMPARE(m_pqDialog->vertexItemModel()->columnCount(), 2);
        QCOMPARE(m_pqDialog->vertexItemModel()->rowCount(), 13);
        QVERIFY(m_pqDialog->findChild<QWidget*>(QStringLiteral("VertexTableFrame")));
        QVERIFY(m_pqDialog->findChild<QWidget*>(QStringLiteral("VertexMinMaxTableFrame")));

        m_pqDialog->vertexTable()->setColumnWidth(1, 177);
        QCOMPARE(m_pqDialog->minMaxVertexTable()->columnWidth(1), 177);
        QCOMPARE(m_pqDialog->minMaxVertexTable()->verticalHeader()->width(),
                 m_pqDialog->vertexTable()->verticalHeader()->width());
    }

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
        select({});
        QTRY_COMPARE(histogramModel()->numberOfPoints(), 10); // no selection means all
    }

    void tornOffChartFollowsTheSelection()
    {
        m_pqDialog->tabWidget()->slotTabBarMoved(1);
        QVERIFY(m_pqDialog->tabWidget()->isFloating(m_pqDialog->histogramChart()));
        QTRY_COMPARE(histogramModel()->numberOfPoints(), 10);
        select({0, 9});
        QTRY_COMPARE(histogramModel()->numberOfPoints(), 2);
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

    void editsUndoAndRedoReachHostAndCharts()
    {
        QSignalSpy modified(m_pqDialog, &QDataAnalyserDialog::dataModified);
        showHistogram();
        const QModelIndex cell = m_pqDialog->vertexItemModel()->index(3, 1);
        QVERIFY(m_pqDialog->vertexItemModel()->setData(cell, QStringLiteral("500")));
        QVERIFY(modified.count() > 0);
        double dMin = 0.0;
        double dMax = 0.0;
        const MatrixData* poDip = m_poRoot->getNodeFromName(QStringLiteral("Dip"));
        poDip->getMinMax(dMin, dMax);
        QCOMPARE(dMax, 500.0);

        modified.clear();
        QVERIFY(m_poRoot->undo());
        QVERIFY(modified.count() > 0);
        poDip->getMinMax(dMin, dMax);
        QCOMPARE(dMax, 45.0);
        QCOMPARE(m_pqDialog->vertexItemModel()->data(cell, Qt::EditRole).toDouble(), 0.0);
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

    void pasteIsOfferedAfterCopyingCellsOnly()
    {
        select({0});
        m_pqDialog->copyToClipboard();
        QVERIFY(QApplication::clipboard()->mimeData()->hasText());
        QVERIFY(m_pqDialog->pasteAction()->isEnabled());
        showHistogram();
        m_pqDialog->copyToClipboard();
        QVERIFY(!QApplication::clipboard()->mimeData()->imageData().isNull());
        QVERIFY(!m_pqDialog->pasteAction()->isEnabled());
    }

    void selectCellsByCondition()
    {
        m_pqDialog->vertexTable()->setCurrentIndex(m_pqDialog->vertexItemModel()->index(3, 1)); // Dip
        m_pqDialog->vertexTable()->clearSelection();
        m_pqDialog->showSelectValueCellsDlg();
        auto* pqSelect = m_pqDialog->findChild<QSelectCellsDialog*>();
        QVERIFY(pqSelect);
        QCOMPARE(pqSelect->windowTitle(), QStringLiteral("Select Cell(s)"));
        pqSelect->setColumnSelection(false);
        pqSelect->setRowSelection(true);
        pqSelect->setMethod(CellCondition::Equal);
        pqSelect->setValues(QStringLiteral("25"));
        QVERIFY(pqSelect->acceptButton()->isEnabled());
        pqSelect->acceptButton()->click();
        QCOMPARE(m_pqDialog->vertexTable()->selectedRecords(), std::vector<int>{5});
        m_pqDialog->hide();
        QVERIFY(!pqSelect->isVisible());
    }

    void saveAsWritesTheSelectedRowsAndRemembersTheFolder()
    {
        const QString sFile = m_folder.filePath(QStringLiteral("well.csv"));
        m_pqDialog->setFileChooser([&](QWidget*, const QString&) { return sFile; });
        QSignalSpy written(m_pqDialog, &QDataAnalyserDialog::csvWritten);
        select({2, 3});
        m_pqDialog->slotSaveAs();
        QCOMPARE(written.count(), 1);
        QVERIFY(written.constFirst().at(1).toBool());
        QFile file(sFile);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray qText = file.readAll();
        QVERIFY2(qText.contains("2,10") && qText.contains("3,15") && !qText.contains("4,20"), qText.constData());
        QCOMPARE(m_pqDialog->fileName(), QStringLiteral("well.csv"));
        QCOMPARE(
            QSettings().value(QStringLiteral("attribute_analyser/last_trn_data_analyser_file_path/path")).toString(),
            m_folder.path());
        QVERIFY(QSettings().contains(QStringLiteral("attribute_analyser/tree_splitter_size/tree_splitter")));
    }

    void removedAttributesAndRootsLeaveNothingBehind()
    {
        showHistogram();
        m_pqDialog->histogramChart()->setCurrentDataSet(m_poRoot->getNodeFromName(QStringLiteral("Dip"))->globalID());
        QTreeItemModel* pTree = m_pqDialog->treeItemModel();
        pTree->deleteSelectedRows({pTree->indexFromNode(m_poRoot->getNodeFromName(QStringLiteral("Dip")))});
        QCOMPARE(m_pqDialog->vertexItemModel()->columnCount(), 1);
        QVERIFY(!m_pqDialog->histogramChart()->currentSelectedDataSet());
        QVERIFY(m_poRoot->undo());
        QCOMPARE(m_pqDialog->vertexItemModel()->columnCount(), 2);

        m_poRoot.reset();
        QCoreApplication::processEvents();
        QCOMPARE(m_pqDialog->dataRoot(), nullptr);
        QCOMPARE(m_pqDialog->vertexItemModel()->columnCount(), 0);
        QCOMPARE(m_pqDialog->treeItemModel()->rowCount(), 0);
        m_pqDialog->updateAllViews();
        m_pqDialog->slotSaveAs();
        m_pqDialog->updateCellView();
    }

    void updateCellViewKeepsTheRows()
    {
        select({0, 1, 8});
        m_pqDialog->updateCellView();
        QCOMPARE(m_pqDialog->vertexTable()->selectedRecords(), (std::vector<int>{0, 1, 8}));
    }

private:
    void select(const std::vector<int>& viRecords)
    {
        std::array<bool, 10> bFlags{};
        for (const int iRecord : viRecords)
            bFlags[static_cast<std::size_t>(iRecord)] = true;
        m_pqDialog->setNewRowSelectionFromGraphicalSelection(bFlags.data(), static_cast<int>(bFlags.size()));
        bFlags.fill(true); // a receiver that kept the array would see this
    }

    void showTable() { m_pqDialog->tabWidget()->setCurrentIndex(0); }
    void showHistogram()
    {
        m_pqDialog->tabWidget()->setCurrentWidget(m_pqDialog->histogramChart());
        QCoreApplication::processEvents();
    }
    QHistogramItemModel* histogramModel() const { return m_pqDialog->histogramChart()->histogramItemModel(); }

    QTemporaryDir m_folder;
    UnitRegistry m_registry;
    std::unique_ptr<MatrixData> m_poRoot;
    std::unique_ptr<QMainWindow> m_pqWindow;
    QDataAnalyserDialog* m_pqDialog = nullptr;
};

QTEST_MAIN(tst_QDataAnalyserDialog)
#include "tst_qdataanalyserdialog.moc"
