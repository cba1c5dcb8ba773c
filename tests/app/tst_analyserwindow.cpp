#include "AnalyserApplication.h"
#include "AnalyserWindow.h"
#include "ScatWindow.h"
#include "TemporarySettings.h"

#include <gkBase/DepthLineField.h>
#include <gkBase/MatrixDataRestore.h>
#include <gkBase/QDataAnalyserDialog.h>
#include <gkBase/QScatDepthPlotWidget.h>
#include <gkBase/QVertexItemModel.h>
#include <gkBase/ScatScenarios.h>

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <functional>
#include <vector>

using namespace gkHost;

class tst_AnalyserWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        gkTest::useTemporarySettings(m_folder.path(), QStringLiteral("window"));
        write("good.csv", "Depth [m],GR [API]\n1,50\n2,60\n3,70\n");
        write("other.csv", "Dip [deg],Azimuth [deg]\n10,350\n20,360\n");
        write("dips.csv", "Depth [m],Dip [deg],Azimuth [deg]\n1000,22,155\n1100,31,147\n1200,10,220\n1300,35,295\n");
        write("bad.csv", QByteArray("a,b\n1,\"never closed\n"));
        QApplication::setQuitOnLastWindowClosed(false);
    }

    void init()
    {
        m_pApplication = std::make_unique<AnalyserApplication>();
        m_pApplication->importController()->setMessage(
            [this](QWidget*, const QString& sText) { m_lMessages << sText; });
        m_pApplication->importController()->setOrientationChoice(
            [](const ImportTable&, const std::vector<OrientationProposal>& vProposals) { return vProposals; });
        m_pApplication->start({});
        m_pqWindow = m_pApplication->windows().constFirst();
        m_lMessages.clear();
    }

    void cleanup() { m_pApplication.reset(); }

    void filesOpenTogetherAndABadOneChangesNothing()
    {
        open({"good.csv", "bad.csv", "other.csv"});
        QCOMPARE(document()->root()->childCount(), 2);
        QCOMPARE(m_lMessages.size(), 1);
        QVERIFY2(m_lMessages.constFirst().contains(QLatin1String("bad.csv")), qPrintable(m_lMessages.constFirst()));
        QCOMPARE(document()->reports().size(), 2U);
        QCOMPARE(m_pqWindow->analyser()->vertexItemModel()->columnCount(), 4);
        QVERIFY(m_pqWindow->windowTitle().contains(QLatin1String("good.csv")));
        QVERIFY(!m_pqWindow->isWindowModified());
        QCOMPARE(m_pApplication->recentFiles().size(), 2);

        const gkBase::MatrixData* poAzimuth = document()->root()->getNodeFromName(QStringLiteral("Azimuth"));
        QCOMPARE(poAzimuth->unitCategory(), QStringLiteral("orientation"));
        QCOMPARE(poAzimuth->recordNumber(1), 0.0); // 360

        open({"good.csv"}); // again: a second data set of its own name
        QCOMPARE(document()->root()->childCount(), 3);
        QVERIFY(document()->root()->child(2)->name() != document()->root()->child(0)->name());
    }

    void editsMarkTheWindowsAndUndoUnmarksThem()
    {
        open({"good.csv"});
        AnalyserWindow* pqSecond = m_pApplication->newWindow();
        gkBase::QVertexItemModel* pModel = m_pqWindow->analyser()->vertexItemModel();
        QVERIFY(pModel->setData(pModel->index(3, 1), QStringLiteral("55")));
        QVERIFY(m_pqWindow->isWindowModified());
        QVERIFY(pqSecond->isWindowModified());
        QCOMPARE(pqSecond->analyser()
                     ->vertexItemModel()
                     ->data(pModel->index(3, 1).siblingAtColumn(1), Qt::EditRole)
                     .isValid(),
                 true);
        QAction* pqUndo = action(QStringLiteral("Undo"));
        QVERIFY2(pqUndo->text().contains(QLatin1String("Edit Cell: value=55")), qPrintable(pqUndo->text()));
        pqUndo->trigger();
        QVERIFY(!m_pqWindow->isWindowModified());
        QVERIFY(!pqUndo->isEnabled());
        QCOMPARE(document()->root()->getNodeFromName(QStringLiteral("GR"))->recordNumber(0), 50.0);
        action(QStringLiteral("Redo"))->trigger();
        QCOMPARE(document()->root()->getNodeFromName(QStringLiteral("GR"))->recordNumber(0), 55.0);
        QVERIFY(m_pqWindow->isWindowModified());
    }

    void closingAsksBeforeEditsAreLost()
    {
        open({"good.csv"});
        gkBase::QVertexItemModel* pModel = m_pqWindow->analyser()->vertexItemModel();
        QVERIFY(pModel->setData(pModel->index(3, 1), QStringLiteral("55")));
        answerQuestion(QMessageBox::Cancel);
        m_pqWindow->close();
        QVERIFY(m_bAsked);
        QVERIFY(m_pqWindow->isVisible());

        m_bAsked = false;
        QPointer<AnalyserWindow> pqSecond = m_pApplication->newWindow();
        pqSecond->close(); // the data stay open in the first window
        QVERIFY(!m_bAsked);

        answerQuestion(QMessageBox::Discard);
        m_pqWindow->close();
        QVERIFY(m_bAsked);
        QTRY_VERIFY(!m_pqWindow);
    }

    void dipmeterWindowNeedsDips()
    {
        open({"good.csv"});
        answerQuestion(QMessageBox::Ok);
        action(QStringLiteral("SCAT Dipmeter"))->trigger();
        QVERIFY(m_bAsked && m_pApplication->scatWindows(m_pqWindow).isEmpty());
        open({"dips.csv"}); // behind another data set
        action(QStringLiteral("SCAT Dipmeter"))->trigger();
        action(QStringLiteral("SCAT Dipmeter"))->trigger();
        QCOMPARE(m_pApplication->scatWindows(m_pqWindow).size(), 2);
        const ScatWindow* pqOther = m_pApplication->scatWindows(m_pqWindow).constLast();
        QVERIFY2(pqOther->windowTitle().startsWith(QLatin1String("dips (2) ")), qPrintable(pqOther->windowTitle()));
        QVERIFY(pqOther->pos() != m_pApplication->scatWindows(m_pqWindow).constFirst()->pos());
        QVERIFY(m_pApplication->scatWindows(m_pApplication->newWindow()).isEmpty());
        ScatWindow* pqScat = m_pApplication->scatWindows(m_pqWindow).constFirst();
        QCOMPARE(pqScat->wellName(), QStringLiteral("dips"));
        QCOMPARE(pqScat->panel()->numberOfRecords(), 4);

        // The data set goes and comes back; the interpretation stays.
        pqScat->panel()->scenarios()->insert(gkBase::DepthLineField::Fault, {0.0, 1150.0}, QStringLiteral("Fault0"),
                                             Qt::gray, 0.0);
        gkBase::MatrixData* poRoot = document()->root();
        poRoot->appendUndoAction(new gkBase::MatrixDataRestore(poRoot->child(1), QStringLiteral("Delete"), true), true);
        poRoot->removeChild(poRoot->child(1));
        QVERIFY(pqScat->wellName().isEmpty() && !pqScat->windowTitle().contains(QLatin1String("dips")));
        document()->undo();
        QCOMPARE(pqScat->panel()->numberOfRecords(), 4);
        QCOMPARE(pqScat->panel()->structuralTops()->count(), 1);
    }

    void scenariosAreAskedForBeforeTheyAreLost()
    {
        open({"dips.csv"});
        QPointer<ScatWindow> pqScat = m_pApplication->newScatWindow(m_pqWindow);
        pqScat->panel()->scenarios()->insert(gkBase::DepthLineField::Fault, {0.0, 1150.0}, QStringLiteral("Fault0"),
                                             Qt::gray, 0.0);
        QVERIFY(pqScat->isWindowModified());
        const std::vector<std::function<void()>> vfnClose{
            [&pqScat] { pqScat->close(); }, [this] { m_pqWindow->close(); }, [this] { m_pApplication->quit(); }};
        for (const auto& fnClose : vfnClose) {
            m_bAsked = false;
            answerQuestion(QMessageBox::Cancel);
            fnClose();
            QVERIFY(m_bAsked && pqScat->isVisible() && m_pqWindow->isVisible());
        }
        // Whoever refuses the second question while quitting keeps what the first was about.
        emit pqScat->panel()->createWellMarkers();
        answerQuestion(QMessageBox::No);
        answerLater(QMessageBox::Cancel);
        m_pApplication->quit();
        QVERIFY(pqScat->isVisible() && m_pqWindow->isVisible());
        document()->undo();

        m_bAsked = false;
        answerQuestion(QMessageBox::No);
        m_pqWindow->close(); // both go, asked once
        QVERIFY(m_bAsked);
        QTRY_VERIFY(!m_pqWindow && !pqScat);
    }

    void markersOfAWellAreSavedWithIt()
    {
        open({"dips.csv"});
        gkBase::DepthLineField lines;
        lines.insertHorizontalLine(1150, 0, QStringLiteral("Fault0"), Qt::gray, gkBase::DepthLineField::Fault);
        lines.insertHorizontalLine(1120, 0, QStringLiteral("Dummy"), Qt::blue, gkBase::DepthLineField::CrestalPlane,
                                   {12, 34});
        const auto create = [this, &lines] {
            return m_pqWindow->analyser()->createWellMarkers(lines, *document()->root()->child(0)->depthAttribute());
        };
        QVERIFY(create());
        QVERIFY(m_pqWindow->isWindowModified());
        QVERIFY(document()->save(path("saved.csv")));
        cleanup();
        init();
        open({"saved.csv"});
        QCOMPARE(document()->root()->childCount(), 2);
        QVERIFY2(!create(), "the rows are known again");
        lines.eraseLine(0);
        QVERIFY(create());
        QCOMPARE(document()->root()->child(1)->depthAttribute()->recordCount(), 1);
    }

    void filesCanBeDropped()
    {
        QMimeData mimeData;
        mimeData.setUrls({QUrl::fromLocalFile(path("good.csv"))});
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &mimeData, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_pqWindow, &enter);
        QVERIFY(enter.isAccepted());
        QSignalSpy finished(m_pApplication->importController(), &ImportController::finished);
        QDropEvent drop({5, 5}, Qt::CopyAction, &mimeData, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_pqWindow, &drop);
        QVERIFY(finished.wait());
        QCOMPARE(document()->root()->childCount(), 1);
    }

    void leavingWhileReadingIsSafe()
    {
        m_pApplication->importController()->open({path("good.csv"), path("other.csv")}, m_pqWindow);
        m_pApplication.reset();
        QCoreApplication::processEvents();
        QVERIFY(!m_pqWindow);
    }

private:
    QString path(const char* pName) const { return m_folder.filePath(QLatin1String(pName)); }
    Document* document() const { return m_pApplication->document(); }

    void write(const char* pName, const QByteArray& qContent) const
    {
        QFile file(path(pName));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(qContent);
    }

    void open(const QList<const char*>& lNames)
    {
        QSignalSpy finished(m_pApplication->importController(), &ImportController::finished);
        QStringList lFiles;
        for (const char* pName : lNames)
            lFiles << path(pName);
        m_pApplication->importController()->open(lFiles, m_pqWindow);
        QVERIFY(finished.wait());
    }

    QAction* action(const QString& sStart) const
    {
        for (QAction* pqMenu : m_pqWindow->menuBar()->actions())
            for (QAction* pqAction : pqMenu->menu()->actions())
                if (pqAction->text().remove(QLatin1Char('&')).startsWith(sStart))
                    return pqAction;
        return nullptr;
    }

    void answerQuestion(QMessageBox::StandardButton eAnswer)
    {
        QTimer::singleShot(0, this, [this, eAnswer] {
            if (auto* pqBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                m_bAsked = true;
                pqBox->button(eAnswer)->click();
            }
        });
    }

    /// Answers the question that follows the one that answerQuestion() answers.
    void answerLater(QMessageBox::StandardButton eAnswer)
    {
        QTimer::singleShot(0, this, [this, eAnswer] { answerQuestion(eAnswer); });
    }

    QTemporaryDir m_folder;
    std::unique_ptr<AnalyserApplication> m_pApplication;
    QPointer<AnalyserWindow> m_pqWindow;
    QStringList m_lMessages;
    bool m_bAsked = false;
};

QTEST_MAIN(tst_AnalyserWindow)
#include "tst_analyserwindow.moc"
