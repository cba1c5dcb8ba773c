#pragma once

#include "gkBaseToolsExport.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QTreeView>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class QColor;
class QMenu;
class QMimeData;

namespace gkBase {

class MatrixData;
class QTreeItemModel;

/// The tree of data sets and attributes over a QTreeItemModel: check boxes, drag and drop between data sets (always
/// a copy), renaming in place (F2, double click), deleting (Delete key), copying (Ctrl+C) and a menu on
/// the right button.
///
/// Over a reset of the model it keeps what is expanded, selected and current; a data set that is new is shown open.
class GKBASETOOLS_EXPORT QAttributeTreeView : public QTreeView
{
    Q_OBJECT
public:
    /// Gives the chosen colour; an invalid one means that the user cancelled.
    using ColorPicker = std::function<QColor(const QColor& oInitial, QWidget* pqParent)>;

    /// pqMenu (not owned) opens on the right button; null builds the default menu.
    QAttributeTreeView(QWidget* pqParent, QMenu* pqMenu);
    ~QAttributeTreeView() override;

    /// The menu of the right button, the host's or the default one.
    QMenu* menu() const;

    /// The node of the first selected index; null when nothing is selected.
    MatrixData* firstSelected() const;
    /// The selected attributes in selection order, without data sets.
    std::vector<MatrixData*> allSelected() const;
    /// An HTML table of the selected attributes; the caller owns it. Null without a model.
    QMimeData* getSelectedData() const;
    /// Puts getSelectedData() on the clipboard; false when no attribute is selected, and the clipboard is as it was.
    bool copyToClipboard() const;
    /// Deletes the selected attributes that may be deleted, each with an undo record.
    void deleteSelectedAttributes();
    /// Expands every data set.
    void expandAll();

    /// Replaces the colour dialog. An empty function goes back to it.
    void setColorPicker(ColorPicker fnPicker);

    void setSelectionModel(QItemSelectionModel* pqSelectionModel) override;
    void scrollTo(const QModelIndex& index, ScrollHint eHint = EnsureVisible) override;

public slots:
    /// Reads the tree again and expands it.
    void updateView();

signals:
    void treeItemsChanged();

protected:
    void mouseReleaseEvent(QMouseEvent* pqEvent) override;
    void contextMenuEvent(QContextMenuEvent* pqEvent) override;
    void keyPressEvent(QKeyEvent* pqEvent) override;
    void startDrag(Qt::DropActions eActions) override;
    QModelIndex moveCursor(CursorAction eAction, Qt::KeyboardModifiers eModifiers) override;
    void drawBranches(QPainter* pPainter, const QRect& rect, const QModelIndex& index) const override;

private slots:
    void changeColor();

private:
    /// What a reset forgets, by node identifiers.
    struct ViewState;

    QTreeItemModel* treeModel() const;
    QMenu* createDefaultPopupMenu();
    void rememberState();
    void restoreState();
    void noteDataSets();
    QModelIndex ownIndex(const QModelIndex& index) const;

    QPointer<QMenu> m_pqMenu;
    ColorPicker m_fnColorPicker;
    std::unique_ptr<ViewState> m_pState; ///< set from the start of a model reset to its end
    /// The data sets after the last reset, with the indexes by which the base class knows them.
    std::vector<std::pair<int, QPersistentModelIndex>> m_vDataSets;
    bool m_bRestoring = false;
    QMetaObject::Connection m_oAboutToBeReset;
    QMetaObject::Connection m_oReset;
};

} // namespace gkBase
