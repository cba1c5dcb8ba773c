#pragma once

#include "ColorButton.h"
#include "gkBaseToolsExport.h"

#include <QPointer>
#include <QTableView>

#include <utility>
#include <vector>

namespace gkBase {

class MatrixData;
class ScatLineModel;
class ScatScenarios;

/// The list of the lines of the active scenario beside the tracks, by depth. Its selected rows are the picked lines,
/// both ways. F2, Enter or a click on a selected line edits a cell, the Delete key deletes the picked lines, and a
/// double click asks for the place of the line on the tracks.
class GKBASETOOLS_EXPORT ScatLineList : public QTableView
{
    Q_OBJECT
public:
    /// The scenarios are not owned; they may go first.
    explicit ScatLineList(ScatScenarios* pqScenarios, QWidget* pqParent = nullptr);

    /// Gives depths their unit; not owned, may be null. Call it again when display units changed.
    void setDepthAttribute(const MatrixData* poDepth);
    /// QColorDialog at first.
    void setColorChooser(ColorButton::ColorChooser fnChooser) { m_fnChooseColor = std::move(fnChooser); }

    using QTableView::edit;
    QSize sizeHint() const override;
    /// The header with some rows.
    QSize minimumSizeHint() const override;

signals:
    /// The tracks should show this depth (model units).
    void depthActivated(double dDepth);

protected:
    bool edit(const QModelIndex& index, EditTrigger eTrigger, QEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    void setUpView();
    void setUpActions();
    int rowHeightForText() const;
    void fitColumns();
    std::vector<int> selectedLines() const;
    std::vector<int> pickedLines() const;
    void showPicks();
    void pickSelected();
    void updateActions();
    void goToDepth(const QModelIndex& index);
    void renamePicked();
    void chooseColorOfPicked();
    void chooseColor(const QModelIndex& index);
    void deletePicked();

    QPointer<ScatScenarios> m_pqScenarios;
    ScatLineModel* m_pqModel;
    QAction* m_pqGoToAction;
    QAction* m_pqRenameAction;
    QAction* m_pqColorAction;
    QAction* m_pqDeleteAction;
    ColorButton::ColorChooser m_fnChooseColor;
    bool m_bShowingPicks = false;
};

} // namespace gkBase
