#pragma once

#include "MatrixData.h"
#include "QDataAnalyserDialog.h"
#include "QHistogramChartWidget.h"
#include "QHistogramItemModel.h"
#include "QVertexItemModel.h"
#include "QVertexModelTableView.h"
#include "TabWidgetWithFloatingTabs.h"
#include "TemporarySettings.h"
#include "UnitRegistry.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <memory>
#include <vector>

namespace gkTest {

/// A number attribute 0, dStep, 2 · dStep …, switched on.
inline gkBase::MatrixData* risingAttribute(const QString& sName, int iRecords, double dStep)
{
    auto* poAttribute = new gkBase::MatrixData(sName, iRecords, 1);
    for (int i = 0; i < iRecords; ++i)
        poAttribute->setValue(poAttribute->rowOffSet() + i, 0, dStep * i);
    poAttribute->setSelected(true);
    return poAttribute;
}

/// An analyser in a window, over a well of ten records: depth 0, 1, … and dip 0, 5, ….
class AnalyserWithWell
{
protected:
    static std::unique_ptr<gkBase::MatrixData> newWell()
    {
        auto poRoot = std::make_unique<gkBase::MatrixData>(QStringLiteral("Data"));
        auto* poWell = new gkBase::MatrixData(QStringLiteral("Well"));
        poRoot->appendChild(poWell, false);
        poWell->appendChild(risingAttribute(QStringLiteral("Depth"), 10, 1.0), true);
        poWell->appendChild(risingAttribute(QStringLiteral("Dip"), 10, 5.0), true);
        return poRoot;
    }

    void useSettings(const QString& sName)
    {
        QVERIFY(m_folder.isValid());
        useTemporarySettings(m_folder.path(), sName);
    }
    void setUp()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral("QObject::connect|No such (signal|slot)|Ambiguous")));
        QSettings().clear();
        m_poRoot = newWell();
        m_pqWindow = std::make_unique<QMainWindow>();
        m_pqDialog = new gkBase::QDataAnalyserDialog(m_pqWindow.get());
        m_pqWindow->setCentralWidget(m_pqDialog);
        m_pqDialog->initialize(QStringLiteral("Test"), nullptr, Qt::Horizontal, false, true, true, 0);
        m_pqDialog->setRegistry(&m_registry);
        m_pqDialog->changeDataRoot(m_poRoot.get());
        m_pqWindow->resize(1000, 700);
        m_pqWindow->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_pqWindow.get()));
    }
    void tearDown()
    {
        m_pqWindow.reset();
        m_poRoot.reset();
    }

    /// What a chart of the well does.
    void select(const std::vector<int>& viRecords)
    {
        std::array<bool, 10> bFlags{};
        for (const int iRecord : viRecords)
            bFlags[static_cast<std::size_t>(iRecord)] = true;
        m_pqDialog->setNewRowSelectionFromGraphicalSelection(bFlags.data(), static_cast<int>(bFlags.size()));
        bFlags.fill(true); // a receiver that kept the array would see this
    }
    void showTable() { m_pqDialog->tabWidget()->setCurrentIndex(0); }
    void showPage(QWidget* pqPage)
    {
        m_pqDialog->tabWidget()->setCurrentWidget(pqPage);
        QCoreApplication::processEvents();
    }
    void showHistogram() { showPage(m_pqDialog->histogramChart()); }
    gkBase::QHistogramItemModel* histogramModel() const { return m_pqDialog->histogramChart()->histogramItemModel(); }

    QTemporaryDir m_folder;
    gkBase::UnitRegistry m_registry;
    std::unique_ptr<gkBase::MatrixData> m_poRoot;
    std::unique_ptr<QMainWindow> m_pqWindow;
    gkBase::QDataAnalyserDialog* m_pqDialog = nullptr;
};

} // namespace gkTest
