#pragma once

#include <QMainWindow>
#include <QPointer>

class QLabel;
class QMenu;

namespace gkBase {
class QDataAnalyserDialog;
}

namespace gkHost {

class AnalyserApplication;

/// A main window with an analyser over the program's document.
class AnalyserWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// The application is not owned and must outlive the window.
    explicit AnalyserWindow(AnalyserApplication* pApplication);
    ~AnalyserWindow() override;

    gkBase::QDataAnalyserDialog* analyser() const { return m_pqAnalyser; }
    /// Asks what becomes of unsaved edits of the data; false when the user wants to keep them open.
    bool mayLoseEdits();
    /// Closes the window, and its dipmeter windows, without a question.
    void closeUnasked();

protected:
    void closeEvent(QCloseEvent* pEvent) override;
    void dragEnterEvent(QDragEnterEvent* pEvent) override;
    void dropEvent(QDropEvent* pEvent) override;

private:
    void createFileMenu();
    void createEditMenu();
    void createViewMenu();
    void createWindowMenu();
    void createHelpMenu();
    void fillRecentMenu();
    void fillUnitsMenu();
    void fillWindowMenu();

    void openFiles();
    void openWithOptions();
    /// True when the data were written.
    bool saveAsCsv();
    void exportChart();
    void printChart();
    /// Says so when the active page is no chart.
    bool chartIsShown();
    void showReport();
    void openScatWindow();
    /// Asks what becomes of whatever closing this window would lose; false keeps it open.
    bool canClose();
    void showOpened(const QString& sPath);
    void updateTitle();
    void updateUndoActions();

    AnalyserApplication* m_pApplication; ///< not owned
    gkBase::QDataAnalyserDialog* m_pqAnalyser;
    QLabel* m_pqStatusLabel;
    QMenu* m_pqRecentMenu = nullptr;
    QMenu* m_pqUnitsMenu = nullptr;
    QMenu* m_pqWindowMenu = nullptr;
    QAction* m_pqUndoAction = nullptr;
    QAction* m_pqRedoAction = nullptr;
    QAction* m_pqExportAction = nullptr;
    QAction* m_pqPrintAction = nullptr;
    QAction* m_pqReportAction = nullptr;
    bool m_bAsked = false;
};

} // namespace gkHost
