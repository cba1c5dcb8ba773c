// The dipmeter panel and the analyser of the same data: selections, directions and markers between them.

#include "TemporarySettings.h"
#include "TestDataSets.h"

#include <gkBase/AngleUnits.h>
#include <gkBase/DepthLineField.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QDataAnalyserDialog.h>
#include <gkBase/QDepthTrackArea.h>
#include <gkBase/QHistogramChartWidget.h>
#include <gkBase/QHistogramPlotWidget.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/QScatDepthPlotWidget.h>
#include <gkBase/QVertexItemModel.h>
#include <gkBase/QVertexModelTableView.h>
#include <gkBase/ScatAnalyserLink.h>
#include <gkBase/ScatScenarios.h>
#include <gkBase/UnitManager.h>
#include <gkBase/UnitRegistry.h>
#include <gkBase/WellDataSets.h>

#include <QCheckBox>
#include <QImage>
#include <QPainter>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <memory>

using namespace gkBase;
using gkTest::addDataSet;

class tst_ScatAnalyserLink : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        gkTest::useTemporarySettings(m_folder.path(), QStringLiteral("link"));
    }

    void init()
    {
        QSettings().clear();
        m_poRoot = std::make_unique<MatrixData>(QStringLiteral("root"));
        m_poRoot->setRegistry(&m_registry);
        // A fold with its axis at 220/10.
        m_poWell =
            addDataSet(*m_poRoot, QStringLiteral("Well"),
                       {attribute("Depth", {1000, 1100, 1200, 1300, 1400, 1500, 1600, 1700}, false),
                        attribute("Dip", {22.02, 31.12, 22.02, 10.00, 12.71, 34.88, 40.61, 36.78}, true),
                        attribute("Azimuth", {155.85, 146.98, 155.85, 220.00, 258.56, 295.35, 298.13, 296.36}, true)});
        m_poOther = addDataSet(*m_poRoot, QStringLiteral("Other"), {attribute("Value", {1, 2, 3}, false)});
        m_pAnalyser = std::make_unique<QDataAnalyserDialog>();
        m_pAnalyser->initialize(QStringLiteral("Test"), nullptr, Qt::Horizontal, false, true, true, 0);
        m_pAnalyser->setRegistry(&m_registry);
        m_pAnalyser->changeDataRoot(m_poRoot.get());
        m_pPanel = std::make_unique<QScatDepthPlotWidget>();
        m_pPanel->setDataRoot(m_poRoot.get());
        m_pPanel->setDataSet(m_poWell);
        m_pLink = std::make_unique<ScatAnalyserLink>(m_pAnalyser.get(), m_pPanel.get());
        QCoreApplication::processEvents();
    }

    void cleanup()
    {
        m_pLink.reset();
        m_pPanel.reset();
        m_pAnalyser.reset();
        m_poRoot.reset();
    }

    void directionsOfAllAndOfTheSelection()
    {
        const auto directionsAre = [this](double dT, double dL) {
            return std::abs(m_pPanel->transverseDirection() - dT) < 0.1 &&
                   std::abs(m_pPanel->longitudinalDirection() - dL) < 0.1;
        };
        QVERIFY(directionsAre(310, 220));
        m_pPanel->findChild<QCheckBox*>(QStringLiteral("m_pqKeepTandLCheckBox"))->setChecked(false);
        gesture({0, 1, 2}); // the limb that dips the other way
        QVERIFY(directionsAre(130, 220));
        gesture({4}); // one plane has no fold
        QVERIFY(directionsAre(130, 220));
        gesture({});
        QVERIFY(directionsAre(310, 220));
    }

    void pickedLinesTakeTheMeanOfTheSelection()
    {
        addLine();
        m_pPanel->scenarios()->pick({0}, false);
        QMetaObject::invokeMethod(m_pPanel.get(), "slotModifySelectedOrientation");
        QVERIFY(m_pPanel->isOrientationMode());
        gesture({0, 2}); // two planes that are alike
        const auto orientation = [this] { return m_pPanel->structuralTops()->lineOrientations().front(); };
        QVERIFY(std::abs(orientation().x() - 22.02) < 1e-9 && std::abs(orientation().y() - 155.85) < 1e-9);
        // Nothing selected orients no line, and what orients a line says nothing about the fold.
        m_pPanel->findChild<QCheckBox*>(QStringLiteral("m_pqKeepTandLCheckBox"))->setChecked(false);
        gesture({0, 1, 2});
        const QPointF oOfThree = orientation();
        QVERIFY(std::abs(oOfThree.x() - 22.02) > 1.0);
        m_pAnalyser->clearAllSelections();
        QCoreApplication::processEvents();
        QVERIFY(m_pPanel->selectedRecords().empty());
        QCOMPARE(orientation(), oOfThree);
        QVERIFY(std::abs(m_pPanel->transverseDirection() - 310.0) < 0.1);
    }

    void selectionsGoBothWaysOnce_data()
    {
        QTest::addColumn<int>("iStep");
        QTest::newRow("whole table") << -1;
        QTest::newRow("thinned table") << 3;
    }

    void selectionsGoBothWaysOnce()
    {
        QFETCH(int, iStep);
        m_pAnalyser->vertexItemModel()->updateModel(iStep, {});
        const QSignalSpy analyserSelects(m_pAnalyser.get(), &QDataAnalyserDialog::selectionChanged);
        const QSignalSpy panelSelects(m_pPanel.get(), &QScatDepthPlotWidget::dataPointsSelection);
        gesture({1, 3, 4});
        QCOMPARE(m_pAnalyser->selectedRecords(), (std::vector<int>{1, 3, 4}));
        QCOMPARE(m_pPanel->selectedRecords(), (std::vector<int>{1, 3, 4}));
        QCOMPARE(analyserSelects.count(), 1);
        QCOMPARE(panelSelects.count(), 1); // the gesture itself
        const int iShown = m_pPanel->trackArea()->model(QScatDepthPlotWidget::DipTrack)->numberOfValidPoints();
        QCOMPARE(iShown, iStep < 0 ? 8 : 3); // records 0, 2 and 5

        m_pAnalyser->vertexTable()->clearSelection();
        const int iRow = m_pAnalyser->vertexItemModel()->rowCount() - 1;
        m_pAnalyser->vertexTable()->selectRow(iRow);
        QCoreApplication::processEvents();
        QCOMPARE(m_pPanel->selectedRecords(), m_pAnalyser->selectedRecords());
        QCOMPARE(m_pPanel->selectedRecords().size(), 1U);
        m_pAnalyser->clearAllSelections();
        QCoreApplication::processEvents();
        QVERIFY(m_pPanel->selectedRecords().empty());
        QCOMPARE(panelSelects.count(), 1);
    }

    void recordsOfOtherDataSetsStayApart()
    {
        gesture({1, 2});
        bool abOther[] = {true, false, false}; // in a chart of "Other"
        m_pAnalyser->setNewRowSelectionFromGraphicalSelection(abOther, 3);
        QCoreApplication::processEvents();
        QCOMPARE(m_pPanel->selectedRecords(), (std::vector<int>{1, 2}));
        // Another well of the same length, and a data set that came from this one.
        MatrixData* poTwin = addDataSet(
            *m_poRoot, QStringLiteral("Twin"),
            {attribute("Depth", {1, 2, 3, 4, 5, 6, 7, 8}, false), attribute("Value", {1, 2, 3, 4, 5, 6, 7, 8}, false)});
        MatrixData* poDerived =
            addDataSet(*m_poRoot, QStringLiteral("Derived"), {attribute("Weight", {1, 2, 3, 4, 5, 6, 7, 8}, false)});
        noteSource(*poDerived, *m_poWell);
        bool abEight[8] = {true};
        m_pAnalyser->selectRecordsOf(poTwin, abEight, 8);
        QCoreApplication::processEvents();
        QCOMPARE(m_pPanel->selectedRecords(), (std::vector<int>{1, 2}));
        abEight[7] = true;
        m_pAnalyser->selectRecordsOf(poDerived, abEight, 8);
        QCoreApplication::processEvents();
        QCOMPARE(m_pPanel->selectedRecords(), (std::vector<int>{0, 7}));
        for (MatrixData* poDataSet : {m_poWell, poDerived})
            poDataSet->setSelected(false);
        m_pAnalyser->updateAllViews(); // the table shows others alone
        gesture({5, 6});
        QVERIFY(m_pAnalyser->selectedRecords() != (std::vector<int>{5, 6}));
        QCOMPARE(m_pPanel->selectedRecords(), (std::vector<int>{5, 6}));
    }

    void eachSideSurvivesTheOther()
    {
        addLine();
        m_pAnalyser.reset();
        gesture({1, 2});
        emit m_pPanel->createWellMarkers();
        QVERIFY(m_poRoot->getNodeFromName(QStringLiteral("Well Markers")));
        m_poRoot->removeChild(m_poWell);
        gesture({});
        emit m_pPanel->createWellMarkers(); // the panel has no well any more
        emit m_pPanel->deleteWellMarkers();
        init();
        m_pPanel.reset();
        m_pAnalyser->clearAllSelections();
        m_pAnalyser->vertexTable()->selectAll();
        QCoreApplication::processEvents();
        m_pLink->takeSelection();
    }

    void histogramOfTheAzimuthMarksTAndL()
    {
        QHistogramChartWidget* pqHistogram = m_pAnalyser->histogramChart();
        pqHistogram->setDataSet(m_poWell->azimuthAttribute());
        const auto markedT = [pqPlot = pqHistogram->drawingArea()] {
            QImage oPicture(720, 200, QImage::Format_RGB32);
            QPainter painter(&oPicture);
            pqPlot->renderTo(painter, oPicture.rect()); // lays the marks out
            for (const HistogramDirection& mark : pqPlot->directionMarks())
                if (mark.m_bTransverse)
                    return 10 * qRound(pqPlot->transformInDataPoint({mark.m_dX, 0.0}).x() / 10.0); // whole pixels
            return -1;
        };
        m_pPanel->setDirections(300.0, 210.0);
        QCOMPARE(markedT(), 300);
        {
            QScatDepthPlotWidget second; // on the same well
            second.setDataSet(m_poWell);
            const ScatAnalyserLink link(m_pAnalyser.get(), &second);
            second.setDirections(200.0, 290.0);
            QCOMPARE(markedT(), 200);
        }
        QCOMPARE(markedT(), 300);
        pqHistogram->setDataSet(m_poWell->dipAttribute());
        m_pAnalyser->updateHistogramData();
        QCOMPARE(markedT(), -1);
        pqHistogram->setDataSet(m_poWell->azimuthAttribute());
        m_pAnalyser->updateHistogramData();
        QCOMPARE(markedT(), 300);
        m_pLink.reset();
        QCOMPARE(markedT(), -1);
    }

    void linesBecomeMarkersInOneStep()
    {
        const QSignalSpy modified(m_pAnalyser.get(), &QDataAnalyserDialog::dataModified);
        const QSignalSpy reported(m_pLink.get(), &ScatAnalyserLink::markersReported);
        emit m_pPanel->createWellMarkers();
        QVERIFY(!m_poRoot->canUndo() && modified.isEmpty());
        addLine();
        emit m_pPanel->createWellMarkers();
        const MatrixData* poMarkers = m_poRoot->getNodeFromName(QStringLiteral("Well Markers"));
        QVERIFY(poMarkers);
        QCOMPARE(poMarkers->depthAttribute()->recordNumber(0), 1300.0);
        QCOMPARE(modified.count(), 1);
        emit m_pPanel->createWellMarkers();
        QCOMPARE(modified.count(), 1);
        QVERIFY(reported.last().constFirst().toString().contains(QLatin1String("shows them")));
        m_pAnalyser->setMarkerVisibility(false, false, false, false, true, true); // no row says that it is shown
        emit m_pPanel->createWellMarkers();
        QVERIFY(reported.last().constFirst().toString().contains(QLatin1String("hides 1 of 1")));
        QVERIFY(m_poRoot->undo());
        emit m_pPanel->deleteWellMarkers();
        QCOMPARE(m_poRoot->childCount(), 2);
        QVERIFY(m_poRoot->undo() && m_poRoot->undo() && !m_poRoot->canUndo());
        QCOMPARE(reported.count(), 5);
    }

private:
    static MatrixData* attribute(const char* pName, const std::vector<double>& vdValues, bool bAngle)
    {
        MatrixData* poNode = gkTest::attribute(QLatin1String(pName), vdValues);
        if (bAngle)
            poNode->setUnitManager(degreeUnit());
        else if (QLatin1String(pName) == QLatin1String("Depth"))
            poNode->setUnitManager(boost::shared_ptr<UnitManager>(new UnitManager(u"depth"_qs, u"m"_qs)));
        poNode->setSelected(true);
        return poNode;
    }

    void addLine()
    {
        m_pPanel->scenarios()->insert(DepthLineField::CrestalPlane, {0.0, 1300.0}, QStringLiteral("Dummy"), Qt::blue,
                                      0.0);
    }

    /// What the panel does when the user selects in a track.
    void gesture(const std::vector<int>& viRecords)
    {
        bool abFlags[8] = {};
        for (const int iRecord : viRecords)
            abFlags[iRecord] = true;
        m_pPanel->setSelectedRecords(viRecords);
        emit m_pPanel->dataPointsSelection(abFlags, 8);
        QCoreApplication::processEvents();
    }

    QTemporaryDir m_folder;
    UnitRegistry m_registry;
    std::unique_ptr<MatrixData> m_poRoot;
    MatrixData* m_poWell = nullptr;
    MatrixData* m_poOther = nullptr;
    std::unique_ptr<QDataAnalyserDialog> m_pAnalyser;
    std::unique_ptr<QScatDepthPlotWidget> m_pPanel;
    std::unique_ptr<ScatAnalyserLink> m_pLink;
};

QTEST_MAIN(tst_ScatAnalyserLink)
#include "tst_scatanalyserlink.moc"
