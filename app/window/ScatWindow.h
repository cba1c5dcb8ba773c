#pragma once

#include <gkBase/MatrixData.h>

#include <QMainWindow>

#include <array>

class QLabel;
class QMenu;

namespace gkBase {
class QScatDepthPlotWidget;
class ScatAnalyserLink;
} // namespace gkBase

namespace gkHost {

class AnalyserApplication;
class AnalyserWindow;

/// A main window with the dipmeter panel on a data set of an analyser, with which it shares the selection. It asks
/// before scenarios with changes are lost, and goes with its analyser's window.
class ScatWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// The data set to show for an analyser: its current one, or the well of that, or the first that has depth, dip and
    /// azimuth. Null when none has.
    static gkBase::MatrixData* dataSetFor(const AnalyserWindow& analyser);

    /// Shows the data set. iNumber, from 1, tells windows on the same data set apart. Neither the application nor the
    /// analyser's window is owned.
    ScatWindow(AnalyserApplication* pApplication, AnalyserWindow* pqAnalyser, gkBase::MatrixData* poDataSet,
               int iNumber);
    ~ScatWindow() override;

    gkBase::QScatDepthPlotWidget* panel() const { return m_pqPanel; }
    /// The name of the data set that is shown; empty for none.
    QString wellName() const;
    /// The same with the number behind it, where that is not 1.
    QString numberedName() const;
    int number() const { return m_iNumber; }
    /// Asks what becomes of scenarios with changes; false when the user wants to keep the window.
    bool canClose();
    /// Closes the window of which canClose() was asked before.
    void closeUnasked();

protected:
    void closeEvent(QCloseEvent* pEvent) override;

private:
    void createMenus(const AnalyserWindow* pqAnalyser);
    /// A data set that was removed and came back is shown again.
    void restoreAttributes();
    void updateTitle();
    void exportChart();
    void printChart();
    void readSettings();
    void writeSettings() const;

    AnalyserApplication* m_pApplication; ///< not owned
    int m_iNumber;
    gkBase::QScatDepthPlotWidget* m_pqPanel;
    gkBase::ScatAnalyserLink* m_pLink = nullptr;
    QLabel* m_pqStatusLabel;
    std::array<int, 3> m_aiAttributes{}; ///< identifiers of depth, dip and azimuth
    bool m_bAsked = false;
};

} // namespace gkHost
