#pragma once

#include "gkBaseToolsExport.h"

#include <QStyledItemDelegate>

namespace gkBase {

class QLegendListModel;

/// Paints a row of a legend: a framed swatch, or the symbol on white, then the name. Both are drawn as outlines and so
/// are sharp on every device. Rows without a picture keep the room for it.
class GKBASETOOLS_EXPORT QLegendItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    /// Logical side of swatches and symbols.
    static constexpr int s_iIconSide = 16;

    using QStyledItemDelegate::QStyledItemDelegate;

    /// The name of a class as text.
    static QString name(const QLegendListModel& oModel, int iRow);
    /// The swatch or symbol of a row at a place of any device; nothing when it has none.
    static void paintPicture(QPainter* pPainter, const QRectF& oPlace, const QLegendListModel& oModel, int iRow);

    void paint(QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Small in width, so that no name makes the list scroll sideways.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* pEvent, QAbstractItemView* pqView, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    /// The option of a row, with room for the picture.
    QStyleOptionViewItem rowOption(const QStyleOptionViewItem& option, const QModelIndex& index) const;
};

} // namespace gkBase
