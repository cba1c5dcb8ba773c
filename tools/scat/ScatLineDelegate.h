#pragma once

#include "QComboBoxItemDelegate.h"

namespace gkBase {

/// Shows and edits the cells of a ScatLineModel: a type with a piece of the line as the tracks draw it, a colour as a
/// framed swatch. Types are chosen from a combo box, other cells are typed; colours have no editor here (the list opens
/// a dialog).
class ScatLineDelegate : public QComboBoxItemDelegate
{
    Q_OBJECT
public:
    explicit ScatLineDelegate(QObject* pqParent = nullptr);

    /// The width of a column of types by their letters, and of one of colours.
    static int letterColumnWidth(const QFontMetrics& metrics);
    static int colorColumnWidth();

    void paint(QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Types in full.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* pqParent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* pqEditor, const QModelIndex& index) const override;
    void setModelData(QWidget* pqEditor, QAbstractItemModel* pqModel, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* pqEditor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const override;
};

} // namespace gkBase
