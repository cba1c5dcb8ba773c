// The orientation charts as pages of the analyser.

#include "../TemporarySettings.h"
#include "../TestDataSets.h"

#include <gkBase/MatrixData.h>
#include <gkBase/QCrossPlotWidget.h>
#include <gkBase/QDataAnalyserDialog.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/QRoseChartWidget.h>
#include <gkBase/QStereoChartWidget.h>
#include <gkBase/QTangentChartWidget.h>
#include <gkBase/QVertexItemModel.h>
#include <gkBase/QVertexMinMaxItemModel.h>
#include <gkBase/QVertexMinMaxModelTableView.h>
#include <gkBase/QVertexModelTableView.h>
#include <gkBase/TabWidgetWithFloatingTabs.h>
#include <gkBase/UnitRegistry.h>

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <memory>

using namespace gkBase;

namespace {

constexpr int g_iRecords = 8;
constexpr int g_iHole = 5; ///< a record without a dip

} // namespace

class tst_OrientationPages : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        gkTest::useTemporarySettings(m_folder.path(), QStringLiteral("orientation pages"));
    }

    void init()
    {
        QSettings().clear();
        m_poDip = gkTest::attribute(QStringLiteral("dip"), {30, 35, 25, 30, 40, NAN, 85, 88});
        m_poAzimuth = gkTest::attribute(QStringLiteral("azimuth"), {90, 95, 85, 80, 100, 10, 270, 88});
        m_poDip->setSelected(true);
        m_poAzimuth->setSelected(true);
        m_poRoot = gkTest::rootOf({m_poDip, m_poAzimuth});
        m_pqDialog = newDialog(true);
    }

    void cleanup()
    {
        m_pqDialog.reset();
        m_poRoot.reset();
    }

    void pagesFollowTheData()
    {
        QStringList lPages;
        for (int i = 0; i < m_pqDialog->tabWidget()->count(); ++i)
            lPages << m_pqDialog->tabWidget()->widget(i)->objectName();
        QCOMPARE(lPages, (QStringList{"TABLE", "BARCHART", "HISTOGRAM", "CROSSPLOT", "ROSEPLOT", "STEREOPLOT",
                                      "TANGENTPLOT", "WELLLOGPLOT"}));
        QCOMPARE(shownPages(), QStringList()); // numbers without a unit
        QAbstractItemModel* pSummary = m_pqDialog->minMaxVertexTable()->model();
        for (const int iColumn : {1, 0}) {
            QCOMPARE(shownPages(), iColumn == 1 ? QStringList() : QStringList{"ROSEPLOT"});
            QVERIFY(pSummary->setData(pSummary->index(QVertexMinMaxItemModel::UnitCategory, iColumn),
                                      QStringLiteral("orientation")));
        }
        QCOMPARE(shownPages(), (QStringList{"ROSEPLOT", "STEREOPLOT", "TANGENTPLOT"}));
        showPage(m_pqDialog->stereoChart());
        QCOMPARE(m_pqDialog->stereoChart()->nodeAngle(), m_poDip);
        QCOMPARE(m_pqDialog->stereoChart()->relationshipItemModel()->numberOfValidPoints(), g_iRecords - 1);

        std::unique_ptr<MatrixData> poOther = gkTest::rootOf({gkTest::attribute(QStringLiteral("x"), {1.0, 2.0})});
        m_pqDialog->changeDataRoot(poOther.get());
        QCOMPARE(shownPages(), QStringList());
        poOther.reset();
        m_pqDialog->hideShowOrientationWindows();
        QVERIFY(!m_pqDialog->stereoChart()->nodeAngle());
    }

    void selectionGoesBothWays()
    {
        takeOrientations();
        std::array<bool, g_iRecords> bFlags{};
        bFlags[1] = bFlags[6] = true;
        showPage(m_pqDialog->stereoChart());
        emit m_pqDialog->stereoChart()->dataPointsSelection(bFlags.data(), g_iRecords);
        QCOMPARE(m_pqDialog->vertexTable()->selectedRecords(), (std::vector<int>{1, 6}));
        showPage(m_pqDialog->crossPlot());
        QCOMPARE(m_pqDialog->crossPlot()->numberOfSelectedRows(), 2);

        showPage(m_pqDialog->tangentChart());
        QCOMPARE(m_pqDialog->tangentChart()->relationshipItemModel()->selectedRecords(), (std::vector<int>{1, 6}));

        // The stereonet is hidden now: it hears of two selections when it is next shown, once.
        const QRelationshipItemModel& model = *m_pqDialog->stereoChart()->relationshipItemModel();
        const quint64 iRevision = model.revision();
        bFlags[2] = true;
        m_pqDialog->setNewRowSelectionFromGraphicalSelection(bFlags.data(), g_iRecords);
        bFlags[1] = false;
        m_pqDialog->setNewRowSelectionFromGraphicalSelection(bFlags.data(), g_iRecords);
        QCoreApplication::processEvents();
        QCOMPARE(model.revision(), iRevision);
        showPage(m_pqDialog->stereoChart());
        QCOMPARE(model.selectedRecords(), (std::vector<int>{2, 6}));
        QCOMPARE(model.numberOfTakenPoints(), 2);
        m_pqDialog->clearAllSelections();
        QCoreApplication::processEvents();
        QCOMPARE(model.numberOfTakenPoints(), g_iRecords - 1);
    }

    void resultsBecomeAttributesUntilUndo()
    {
        takeOrientations();
        const std::unique_ptr<MatrixData> poBefore(m_poRoot->clone());
        showPage(m_pqDialog->stereoChart());
        QStereoChartWidget& panel = *m_pqDialog->stereoChart();
        QRelationshipItemModel& model = *panel.relationshipItemModel();
        const QSignalSpy modified(m_pqDialog.get(), &QDataAnalyserDialog::dataModified);

        emit panel.createRotatedAttributes(); // nothing is turned
        QVERIFY(!m_poRoot->canUndo());
        model.rotateDataAboutRotationAxis(nullptr, {0.0, 45.0}, 40.0, true);
        emit panel.createRotatedAttributes();
        const MatrixData* poDip = m_poRoot->getNodeFromName(QStringLiteral("Rotated:Dip"));
        QVERIFY(poDip && poDip->column().isMissing(g_iHole));
        QCOMPARE(poDip->recordNumber(0), model.rotatedData(0).x());
        QCOMPARE(modified.count(), 1);
        QCOMPARE(m_pqDialog->vertexItemModel()->columnCount(), 4);
        QVERIFY(model.isRotated());

        QVERIFY(panel.applyClusters(2));
        QVERIFY(model.colorAttribute() && model.colorAttribute()->owner()->name() == "Cluster Distributions");
        model.setScanline(90.0, 0.0, 80.0);
        emit panel.createBiasWeightAttribute(QStringLiteral("Bias Weights"), &model);
        QVERIFY(m_poRoot->getNodeFromName(QStringLiteral("Bias Weights")));
        QCOMPARE(m_poRoot->childCount(), 3); // the well, "Orientation Data" and "Cluster Distributions"
        int iSteps = 0;
        while (m_poRoot->undo())
            ++iSteps;
        QCOMPARE(iSteps, 3);
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));
    }

    /// What is shown is what was written: it must not be turned twice.
    void rotatingTheRotatedAttributes()
    {
        takeOrientations();
        showPage(m_pqDialog->stereoChart());
        QStereoChartWidget& panel = *m_pqDialog->stereoChart();
        QRelationshipItemModel& model = *panel.relationshipItemModel();
        model.rotateDataAboutRotationAxis(nullptr, {0.0, 45.0}, 40.0, true);
        emit panel.createRotatedAttributes();
        panel.setDataSet(m_poRoot->getNodeFromName(QStringLiteral("Rotated:Dip"))->owner());
        QVERIFY(!model.isRotated());
        model.rotateDataAboutRotationAxis(nullptr, {0.0, 45.0}, -40.0, true);
        const QPointF oFirst = model.rotatedData(0);
        emit panel.createRotatedAttributes();
        QCoreApplication::processEvents();
        QCOMPARE(model.rotatedData(0), oFirst);
    }

    void copyingTakesThePicture()
    {
        takeOrientations();
        for (QWidget* pqPage : std::initializer_list<QWidget*>{m_pqDialog->roseChart(), m_pqDialog->stereoChart(),
                                                               m_pqDialog->tangentChart()}) {
            QApplication::clipboard()->clear();
            showPage(pqPage);
            m_pqDialog->copyToClipboard();
            QVERIFY(QApplication::clipboard()->mimeData()->hasImage());
        }
    }

    void roseFindsItsAttributeInDataThatComeLater()
    {
        const QString sKey = QStringLiteral("attribute_analyser/rose_plot/display/rose_plot_selected_data_set");
        QSettings().setValue(sKey, 1);
        m_pqDialog.reset(); // before its data go
        m_poRoot = std::make_unique<MatrixData>(QStringLiteral("root"));
        m_pqDialog = newDialog(true);
        m_poDip = gkTest::attribute(QStringLiteral("first azimuth"), {10, 20, 30});
        m_poAzimuth = gkTest::attribute(QStringLiteral("second azimuth"), {40, 50, 60});
        gkTest::addDataSet(*m_poRoot, QStringLiteral("Well"), {m_poDip, m_poAzimuth});
        takeOrientations();
        m_pqDialog->updateAllViews();
        showPage(m_pqDialog->roseChart());
        QCOMPARE(m_pqDialog->roseChart()->currentSelectedDataSet(), m_poAzimuth);
        m_pqDialog->saveSettings();
        QCOMPARE(QSettings().value(sKey).toInt(), 1);
    }

    void withoutOrientationCharts()
    {
        takeOrientations();
        const QStringList lGroups = {QStringLiteral("rose_plot"), QStringLiteral("stereo_plot"),
                                     QStringLiteral("tangent_plot")};
        m_pqDialog = newDialog(false);
        QVERIFY(!m_pqDialog->roseChart() && !m_pqDialog->stereoChart() && !m_pqDialog->tangentChart());
        QCOMPARE(m_pqDialog->tabWidget()->count(), 5);
        m_pqDialog->hideShowOrientationWindows();
        m_pqDialog->updateStereoChartData();
        m_pqDialog->saveSettings();
        QSettings settings;
        settings.beginGroup(QStringLiteral("attribute_analyser"));
        for (const QString& sGroup : lGroups)
            QVERIFY(!settings.childGroups().contains(sGroup));
        m_pqDialog = newDialog(true);
        m_pqDialog->saveSettings();
        settings.sync();
        for (const QString& sGroup : lGroups)
            QVERIFY2(settings.childGroups().contains(sGroup), qPrintable(sGroup));
    }

private:
    std::unique_ptr<QDataAnalyserDialog> newDialog(bool bOrientationCharts)
    {
        auto pqDialog = std::make_unique<QDataAnalyserDialog>();
        pqDialog->initialize(QStringLiteral("Test"), nullptr, Qt::Horizontal, false, bOrientationCharts, true, 0);
        pqDialog->setRegistry(&m_registry);
        pqDialog->changeDataRoot(m_poRoot.get());
        pqDialog->resize(1200, 800);
        pqDialog->show();
        return pqDialog;
    }

    void takeOrientations()
    {
        m_poDip->setUnitManager(QStringLiteral("orientation"));
        m_poAzimuth->setUnitManager(QStringLiteral("orientation"));
        m_pqDialog->hideShowOrientationWindows();
    }

    void showPage(QWidget* pqPage)
    {
        m_pqDialog->tabWidget()->setCurrentWidget(pqPage);
        QCoreApplication::processEvents();
    }

    /// The orientation pages with a visible tab.
    QStringList shownPages() const
    {
        QStringList lPages;
        const TabWidgetWithFloatingTabs* pqTabs = m_pqDialog->tabWidget();
        for (int i = 4; i < pqTabs->count() - 1; ++i)
            if (pqTabs->isTabVisible(i))
                lPages << pqTabs->widget(i)->objectName();
        return lPages;
    }

    QTemporaryDir m_folder;
    UnitRegistry m_registry;
    std::unique_ptr<MatrixData> m_poRoot;
    MatrixData* m_poDip = nullptr;
    MatrixData* m_poAzimuth = nullptr;
    std::unique_ptr<QDataAnalyserDialog> m_pqDialog;
};

QTEST_MAIN(tst_OrientationPages)
#include "tst_orientationpages.moc"
