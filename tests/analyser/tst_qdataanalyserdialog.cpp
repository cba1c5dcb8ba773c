#include "AnalyserWithWell.h"
#include "DepthMarkers.h"
#include "DisplayUnitManager.h"
#include "MatrixDataRestore.h"
#include "QAttributeTreeView.h"
#include "QCrossPlotWidget.h"
#include "QDepthPlotWidget.h"
#include "QHistogramPlotWidget.h"
#include "QMarkerVisibilityDlg.h"
#include "QModifyCellsDialog.h"
#include "QRelationshipItemModel.h"
#include "QSelectCellsDialog.h"
#include "QTreeItemModel.h"
#include "QValueChangeOnOffWidget.h"
#include "QVertexMinMaxModelTableView.h"
#include "ValueChangeWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QSplitter>
#include <QTest>

#include <memory>

using namespace gkBase;

class tst_QDataAnalyserDialog : public QObject, private gkTest::AnalyserWithWell
{
    Q_OBJECT

private slots:
    void initTestCase() { useSettings(QStringLiteral("analyser")); }
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void pagesAndTables()
    {
        QStringList lPages;
        for (int i = 0; i < m_pqDialog->tabWidget()->count(); ++i)
            lPages << m_pqDialog->tabWidget()->widget(i)->objectName();
        QCOMPARE(lPages, (QStringList{"TABLE", "BARCHART", "HISTOGRAM", "CROSSPLOT", "ROSEPLOT", "STEREOPLOT",
                                      "TANGENTPLOT", "WELLLOGPLOT"}));
        QCOMPARE(m_pqDialog->vertexItemModel()->columnCount(), 2);
        QCOMPARE(m_pqDialog->vertexItemModel()->rowCount(), 13);
        QVERIFY(m_pqDialog->findChild<QWidget*>(QStringLiteral("VertexTableFrame")));
        QVERIFY(m_pqDialog->findChild<QWidget*>(QStringLiteral("VertexMinMaxTableFrame")));

        m_pqDialog->vertexTable()->setColumnWidth(1, 177);
        QCOMPARE(m_pqDialog->minMaxVertexTable()->columnWidth(1), 177);
        QCOMPARE(m_pqDialog->minMaxVertexTable()->verticalHeader()->width(),
                 m_pqDialog->vertexTable()->verticalHeader()->width());
    }

    void resultsBecomeAttributesUntilUndo()
    {
        const std::unique_ptr<MatrixData> poBefore(m_poRoot->clone());
        const QSignalSpy modified(m_pqDialog, &QDataAnalyserDialog::dataModified);
        showPage(m_pqDialog->crossPlot());
        QVERIFY(m_pqDialog->crossPlot()->applyClusters(2, QStringLiteral("Sets")));
        QCOMPARE(modified.count(), 1);
        const MatrixData* poSets = m_poRoot->getNodeFromName(QStringLiteral("Sets"));
        QVERIFY(poSets);
        QCOMPARE(m_pqDialog->vertexItemModel()->columnCount(), 3);
        QCOMPARE(m_pqDialog->crossPlot()->relationshipItemModel()->colorAttribute(), poSets);

        showPage(m_pqDialog->depthPlot());
        m_pqDialog->depthPlot()->generateIntervals(3.0);
        m_pqDialog->depthPlot()->applyDecimation();
        QVERIFY(m_poRoot->getNodeFromName(QStringLiteral("Decimated:Dip")));
        QVERIFY(m_poRoot->undo());
        QVERIFY(!m_poRoot->getNodeFromName(QStringLiteral("Data Decimation")));
        QVERIFY(m_poRoot->undo());
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));
        showPage(m_pqDialog->crossPlot());
        QVERIFY(!m_pqDialog->crossPlot()->relationshipItemModel()->colorAttribute());
        QCOMPARE(m_pqDialog->vertexItemModel()->columnCount(), 2);
    }

    void oneChangeCountsOnce()
    {
        const QSignalSpy refills(histogramModel(), &QAbstractItemModel::modelReset);
        const auto clickInTree = [this](const QString& sName) {
            const MatrixData* poNode = m_poRoot->getNodeFromName(sName);
            const QRect oRect = m_pqDialog->treeView()->visualRect(m_pqDialog->treeItemModel()->indexFromNode(poNode));
            QTest::mouseClick(m_pqDialog->treeView()->viewport(), Qt::LeftButton, {}, oRect.center());
            QCoreApplication::processEvents();
        };
        select({1});
        clickInTree(QStringLiteral("Dip"));
        QCOMPARE(refills.count(), 0); // hidden
        showHistogram();
        QCOMPARE(refills.count(), 1);
        QCOMPARE(histogramModel()->numberOfPoints(), 10);
        clickInTree(QStringLiteral("Depth"));
        QCOMPARE(refills.count(), 2);
        auto* pqChooser =
            m_pqDialog->histogramChart()->findChild<QComboBox*>(QStringLiteral("m_pqHistogramDataSetComboBox"));
        QVERIFY(pqChooser && pqChooser->count() == 2);
        QTest::keyClick(pqChooser, Qt::Key_Down);
        QCoreApplication::processEvents();
        QCOMPARE(refills.count(), 3);
        QCOMPARE(m_pqDialog->histogramChart()->currentSelectedDataSet()->name(), QStringLiteral("Dip"));
    }

    void secondAnalyserOfTheSameRootFollows()
    {
        QDataAnalyserDialog other;
        other.initialize(QStringLiteral("Other"), nullptr, Qt::Vertical, false, true, true, 0);
        other.changeDataRoot(m_poRoot.get());
        other.show();
        other.tabWidget()->setCurrentWidget(other.histogramChart());
        QCoreApplication::processEvents();
        other.histogramChart()->setCurrentDataSet(m_poRoot->getNodeFromName(QStringLiteral("Dip"))->globalID());
        const QAbstractItemModel* pSummary = other.minMaxVertexTable()->model();
        const auto shown = [pSummary] {
            QStringList lTexts;
            for (int iRow = 0; iRow < pSummary->rowCount(); ++iRow)
                lTexts << pSummary->index(iRow, 1).data().toString();
            return lTexts;
        };
        const QStringList lBefore = shown();
        QVERIFY(m_pqDialog->vertexItemModel()->setData(m_pqDialog->vertexItemModel()->index(3, 1), 500));
        QCOMPARE(other.vertexItemModel()->index(3, 1).data(Qt::EditRole).toDouble(), 500.0);
        QVERIFY(shown() != lBefore);
        QTRY_COMPARE(other.histogramChart()->drawingArea()->boundaries().m_oUpperRight.x() >= 500.0, true);
        QVERIFY(m_poRoot->undo());
        QCOMPARE(shown(), lBefore);
        m_poRoot.reset(); // before both
        QCOMPARE(other.vertexItemModel()->columnCount(), 0);
    }

    void copyKeyCopiesWhereTheFocusIs_data()
    {
        QTest::addColumn<QString>("where");
        QTest::addColumn<QString>("copied"); // empty: a picture
        QTest::newRow("tree") << QStringLiteral("tree") << QStringLiteral("Dip\n0\n");
        QTest::newRow("table") << QStringLiteral("table") << QStringLiteral("1\t5");
        QTest::newRow("torn-off table") << QStringLiteral("torn-off table") << QStringLiteral("1\t5");
        QTest::newRow("chart") << QStringLiteral("chart") << QString();
        QTest::newRow("torn-off chart") << QStringLiteral("torn-off chart") << QString();
    }

    void copyKeyCopiesWhereTheFocusIs()
    {
        QFETCH(QString, where);
        QFETCH(QString, copied);
        QMenu* pqEditMenu = m_pqWindow->menuBar()->addMenu(QStringLiteral("Edit"));
        pqEditMenu->addAction(m_pqDialog->copyAction());
        pqEditMenu->addAction(m_pqDialog->pasteAction());
        select({1});
        QWidget* pqFocus = m_pqDialog->vertexTable();
        if (where == QStringLiteral("tree")) {
            pqFocus = m_pqDialog->treeView();
            m_pqDialog->treeView()->setCurrentIndex(
                m_pqDialog->treeItemModel()->indexFromNode(m_poRoot->getNodeFromName(QStringLiteral("Dip"))));
        } else if (where.endsWith(QStringLiteral("chart"))) {
            showHistogram();
            pqFocus = m_pqDialog->histogramChart()->drawingArea();
        }
        if (where.startsWith(QStringLiteral("torn-off")))
            m_pqDialog->tabWidget()->slotTabBarMoved(m_pqDialog->tabWidget()->currentIndex());
        pqFocus->window()->activateWindow();
        pqFocus->setFocus();
        QTRY_VERIFY(pqFocus->hasFocus());

        QApplication::clipboard()->setText(QStringLiteral("old"));
        QTest::keyClick(pqFocus, Qt::Key_C, Qt::ControlModifier);
        const auto checkClipboard = [&] {
            const QMimeData* pMimeData = QApplication::clipboard()->mimeData();
            QCOMPARE(pMimeData->hasImage(), copied.isEmpty());
            QVERIFY2(pMimeData->text().contains(copied), qPrintable(pMimeData->text()));
            QCOMPARE(pMimeData->hasHtml(), !copied.isEmpty());
        };
        checkClipboard();
        // The same by the menu.
        QApplication::clipboard()->setText(QStringLiteral("old"));
        m_pqDialog->copyAction()->trigger();
        checkClipboard();
        QCOMPARE(m_pqDialog->pasteAction()->isEnabled(), !copied.isEmpty());
    }

    void settingsComeBack()
    {
        auto* pqSplitter = m_pqDialog->findChild<QSplitter*>();
        pqSplitter->setSizes({333, 667});
        m_pqDialog->setAbsolutPath(m_folder.path());
        CrossPlotSettings chosen = m_pqDialog->crossPlot()->settings();
        chosen.m_iClusters = 7;
        m_pqDialog->crossPlot()->setSettings(chosen);
        m_pqDialog->depthPlot()->setAllTopMarkersVisibility(false);
        m_pqDialog->saveSettings();
        for (const Qt::Orientation eOrientation : {Qt::Horizontal, Qt::Vertical}) {
            QDataAnalyserDialog later;
            later.initialize(QStringLiteral("Later"), nullptr, eOrientation, false, false, false, 0);
            later.resize(1000, 700);
            later.show();
            later.tabWidget()->setCurrentIndex(1);
            const auto* pqLaterSplitter = later.findChild<QSplitter*>();
            QCOMPARE(pqLaterSplitter->orientation(), eOrientation);
            if (eOrientation == Qt::Horizontal)
                QCOMPARE(pqLaterSplitter->sizes().constFirst(), pqSplitter->sizes().constFirst());
            QCOMPARE(later.absolutePath(), m_folder.path());
            QVERIFY(later.crossPlot()->settings() == chosen);
            later.saveSettings(); // without a depth plot: its settings stay
        }
        QDataAnalyserDialog last;
        last.initialize(QStringLiteral("Last"), nullptr, Qt::Horizontal, false, false, true, 0);
        QVERIFY(!last.depthPlot()->markerVisibility().m_bTops);
        for (const char* pKey : {"attribute_analyser/cross_plot/clusters", "attribute_analyser/well_log_plot/tops"})
            QVERIFY2(QSettings().contains(QLatin1String(pKey)), pKey);
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
        showTable();
        m_pqDialog->clearAllSelections();
        QApplication::clipboard()->clear();
        m_pqDialog->copyToClipboard();
        QVERIFY2(!m_pqDialog->pasteAction()->isEnabled(), "nothing was copied");
    }

    void pointClassesOfTheHostFitThePoints()
    {
        auto* poShort = new MatrixData(QStringLiteral("Short"));
        m_poRoot->appendChild(poShort, false);
        poShort->appendChild(gkTest::risingAttribute(QStringLiteral("Other"), 4, 1.0), true);
        const MatrixData* poDip = m_poRoot->getNodeFromName(QStringLiteral("Dip"));
        m_pqDialog->setCurrentColorItem(poDip->globalID()); // before points are chosen
        showPage(m_pqDialog->crossPlot());
        const QRelationshipItemModel* pModel = m_pqDialog->crossPlot()->relationshipItemModel();
        QCOMPARE(pModel->colorAttribute(), poDip);
        for (const int iWrongID : {poShort->child(0)->globalID(), m_poRoot->child(0)->globalID(), 987654}) {
            m_pqDialog->setCurrentColorItem(poDip->globalID());
            m_pqDialog->setCurrentSymbolItem(poDip->globalID());
            QCOMPARE(pModel->symbolAttribute(), poDip);
            m_pqDialog->setCurrentColorItem(iWrongID);
            m_pqDialog->setCurrentSymbolItem(iWrongID);
            QVERIFY(!pModel->colorAttribute() && !pModel->symbolAttribute());
        }
    }

    void markersAreSwitchedInTheDataAndBackByUndo()
    {
        const QSignalSpy modified(m_pqDialog, &QDataAnalyserDialog::dataModified);
        const QDepthPlotWidget* pqPlot = m_pqDialog->depthPlot();
        m_pqDialog->setMarkerVisibility(false, false, false, true, false, false);
        QVERIFY2(pqPlot->markerVisibility().m_bTops, "no \"$V\": nothing happens");
        const auto addTable = [this](const char* pName, const char* pAttribute, const char* pText) {
            auto* poTable = new MatrixData(QLatin1String(pName));
            m_poRoot->appendChild(poTable, false);
            poTable->appendChild(gkTest::risingAttribute(QStringLiteral("Depth"), 2, 1.0), true);
            poTable->appendChild(new MatrixData(QLatin1String(pAttribute), 2, 1, QMetaType::QString), true);
            poTable->child(1)->setValue(3, 0, QLatin1String(pText));
            return poTable;
        };
        MatrixData* poMarkers = addTable("Well Markers", "Type", "Crestal Plane");
        poMarkers->child(1)->setValue(4, 0, QStringLiteral("Top"));
        poMarkers->appendChild(new MatrixData(QStringLiteral("$V"), 2, 1, QMetaType::Bool), true);
        const auto shown = [this, pqPlot] {
            return collectDepthMarkers(m_poRoot.get(), m_poRoot->child(0)->child(0), pqPlot->markerVisibility())
                .m_vLines.size();
        };
        QCOMPARE(shown(), 2U);
        const auto iModified = modified.count();
        m_pqDialog->setMarkerVisibility(false, true, true, true, true, false);
        QCOMPARE(shown(), 0U);
        QCOMPARE(modified.count(), iModified + 1);
        QVERIFY(m_poRoot->undo());
        QCOMPARE(shown(), 2U);
        // What "$V" does not reach goes by the box, which a choice of all markers leaves alone.
        addTable("Well Tops", "Top", "Chalk");
        QCOMPARE(shown(), 3U);
        m_pqDialog->setMarkerVisibility(false, true, false, true, false, false);
        QVERIFY(shown() == 0 && !pqPlot->markerVisibility().m_bTops && pqPlot->markerVisibility().m_bScat);
        m_pqDialog->setMarkerVisibility(true, false, false, false, false, true);
        QCOMPARE(shown(), 1U);
        m_pqDialog->setMarkerVisibility(false, false, false, true, false, true);
        QVERIFY(pqPlot->markerVisibility().m_bTops);
    }

    void markerDialogAsksForTheWindow()
    {
        m_poRoot->child(0)->appendChild(new MatrixData(QStringLiteral("$V"), 10, 1, QMetaType::Bool), true);
        QWidget asking;
        m_pqDialog->showMarkerVisibilityDlg(&asking);
        const QPointer<QMarkerVisibilityDlg> pqDialog = asking.findChild<QMarkerVisibilityDlg*>();
        pqDialog->accept();
        QCOMPARE(m_poRoot->getNodeFromName(QStringLiteral("$V"))->defaultValue1(), QVariant(false));
        QTRY_VERIFY(!pqDialog);
        m_pqDialog->showMarkerVisibilityDlg(&asking);
        delete m_pqDialog; // by the host, with the question open
        asking.findChild<QMarkerVisibilityDlg*>()->accept();
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

        const auto labels = [pqSelect] {
            QStringList lTexts;
            for (const QLabel* pqLabel : pqSelect->findChildren<QLabel*>())
                lTexts << pqLabel->text();
            return lTexts;
        };
        m_pqDialog->vertexTable()->setCurrentIndex(m_pqDialog->vertexItemModel()->index(3, 0));
        m_poRoot->getNodeFromName(QStringLiteral("Depth"))->setUnitManager(QStringLiteral("depth"));
        m_pqDialog->updateAllViews();
        QVERIFY(labels().contains(QStringLiteral("m")));
        DisplayUnitManager::instance().setDisplayUnit(QStringLiteral("depth"), QStringLiteral("ft"));
        const QStringList lAfter = labels();
        DisplayUnitManager::instance().setDisplayUnit(QStringLiteral("depth"), QString());
        QVERIFY2(lAfter.contains(QStringLiteral("ft")), qPrintable(lAfter.join(QLatin1Char(','))));
        m_pqDialog->hide();
        QVERIFY(!pqSelect->isVisible());
    }

    void modifyCellsFollowsTheSelection()
    {
        m_pqDialog->clearAllSelections();
        QVERIFY(!m_pqDialog->modifyCellsAction()->isEnabled());
        select({2, 3});
        QVERIFY(m_pqDialog->modifyCellsAction()->isEnabled());
        m_pqDialog->modifyCellsAction()->trigger();
        auto* pqModify = m_pqDialog->findChild<QModifyCellsDialog*>();
        QVERIFY(pqModify && pqModify->isVisible());
        QVERIFY(pqModify->valueChange(1));
        m_pqDialog->clearAllSelections();
        QVERIFY(!m_pqDialog->modifyCellsAction()->isEnabled());
        QVERIFY(!pqModify->valueChange(1));

        m_pqDialog->vertexTable()->selectColumnCells(1, 1, false); // Dip
        pqModify->valueChange(1)->valueChange()->setMethod(CellModification::Add);
        pqModify->valueChange(1)->valueChange()->setValue(QStringLiteral("1"));
        const double dOld = m_poRoot->getNodeFromName(QStringLiteral("Dip"))->recordNumber(2);
        pqModify->acceptButton()->click();
        QCOMPARE(m_poRoot->getNodeFromName(QStringLiteral("Dip"))->recordNumber(2), dOld + 1.0);
        m_pqDialog->hide();
        QVERIFY(!pqModify->isVisible());
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
        QCoreApplication::processEvents();
        QVERIFY2(!m_pqDialog->histogramChart()->currentSelectedDataSet(), "nothing takes its place unasked");
        QVERIFY(m_poRoot->undo());
        QCOMPARE(m_pqDialog->vertexItemModel()->columnCount(), 2);

        showPage(m_pqDialog->crossPlot());
        showPage(m_pqDialog->depthPlot());
        auto* poOther = new MatrixData(QStringLiteral("Other"));
        m_poRoot->appendChild(poOther, false);
        poOther->appendChild(gkTest::risingAttribute(QStringLiteral("MD"), 10, 1.0), true);
        poOther->appendChild(gkTest::risingAttribute(QStringLiteral("GR"), 10, 1.0), true);
        m_poRoot->removeChild(m_poRoot->child(0));
        QCoreApplication::processEvents();
        QVERIFY(!m_pqDialog->depthPlot()->currentSelectedDataSet());
        showPage(m_pqDialog->crossPlot());
        QVERIFY(!m_pqDialog->crossPlot()->nodeX() && !m_pqDialog->crossPlot()->nodeY());
        for (const QComboBox* pqChooser : m_pqDialog->crossPlot()->findChildren<QComboBox*>())
            QVERIFY(pqChooser->findText(QStringLiteral("Dip"), Qt::MatchContains) < 0);

        m_poRoot.reset();
        QCoreApplication::processEvents();
        QCOMPARE(m_pqDialog->dataRoot(), nullptr);
        QCOMPARE(m_pqDialog->vertexItemModel()->columnCount(), 0);
        QCOMPARE(m_pqDialog->treeItemModel()->rowCount(), 0);
        m_pqDialog->updateAllViews();
        m_pqDialog->slotSaveAs();
        m_pqDialog->updateCellView();
    }
};

QTEST_MAIN(tst_QDataAnalyserDialog)
#include "tst_qdataanalyserdialog.moc"
