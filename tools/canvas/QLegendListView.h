#pragma once

#include "gkBaseToolsExport.h"

#include <QColor>
#include <QListView>
#include <QPixmap>

#include <functional>
#include <vector>

class QAction;
class QMenu;

namespace gkBase {

class QLegendItemDelegate;
class QLegendListModel;

/// A legend beside a chart: several classes can be picked, recoloured and copied as a picture. Long names end in "…"
/// and are told whole by a tool tip. Cost grows with the visible rows, not with the classes.
class GKBASETOOLS_EXPORT QLegendListView : public QListView
{
    Q_OBJECT
public:
    /// Asks for a colour, starting with the given one; an invalid answer means that the user cancelled.
    using ColorChooser = std::function<QColor(const QColor& oInitial, QWidget* pqParent)>;

    explicit QLegendListView(QWidget* pqParent);

    /// The model of this view; null when it is none of that class.
    QLegendListModel* legendModel() const;
    /// QColorDialog at first.
    void setColorChooser(ColorChooser fnChooser) { m_fnChooseColor = std::move(fnChooser); }

    /// The class ids of the selected rows, in the order of the selected indexes.
    std::vector<int> getSelectedIDs() const;
    /// Selects exactly these classes; those that are not listed are skipped. Emits nothing.
    void setSelectedIDs(const std::vector<int>& viClassIds);

    // ---- the whole legend as a picture, whatever part of it is in sight
    /// Logical size. A legend of more than 500 classes gets several columns, one of more than 5000 ends there and
    /// tells how many are left out. Null size without classes.
    QSize wholeLegendSize() const;
    /// The names in the given colour (invalid: the palette's text colour); the background stays as it is.
    void paintLegend(QPainter& painter, const QPointF& oTopLeft, const QColor& oTextColor = QColor()) const;
    /// On the palette's background, in the resolution of the view's screen. Null without classes.
    QPixmap wholeLegend() const;

    QMenu* popupMenu() const { return m_pqMenu; }

public slots:
    /// Follows the scroll bar of another legend: iValue of its vertical scroll bar, whose range follows from the
    /// rows of its model when both legends are equally high.
    void slotLegendsVerticalScrollBarChanged(gkBase::QLegendListModel* pModel, int iValue);

signals:
    /// The user selected other classes.
    void selectedClassesChanged(const std::vector<int>& viClassIds);

protected:
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void selectionChanged(const QItemSelection& oSelected, const QItemSelection& oDeselected) override;

private slots:
    void changeColor();
    void copyToClipboard();

private:
    /// How the rows of the whole legend are arranged.
    struct PictureLayout
    {
        int m_iRows = 0;    ///< listed ones
        int m_iLeftOut = 0; ///< classes that are not
        int m_iRowsPerColumn = 0;
        QSize m_oCell;
        QSize m_oSize;
    };

    void createDefaultPopupMenu();
    void showPopupMenu(const QPoint& oGlobalPos);
    void enableActions();
    PictureLayout pictureLayout() const;

    QLegendItemDelegate* m_pqDelegate;
    QMenu* m_pqMenu = nullptr;
    QAction* m_pqColorAction = nullptr;
    QAction* m_pqCopyAction = nullptr;
    ColorChooser m_fnChooseColor;
    bool m_bSettingSelection = false;
};

} // namespace gkBase
