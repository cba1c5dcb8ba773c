#include "QLegendItemDelegate.h"

#include "QLegendListModel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QIcon>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace gkBase {

namespace {

constexpr int g_iRowMargin = 4;
constexpr int g_iMinimumNameWidth = 24;

const QStyle* styleOf(const QStyleOptionViewItem& option)
{
    return option.widget ? option.widget->style() : QApplication::style();
}

} // namespace

QString QLegendItemDelegate::name(const QLegendListModel& oModel, int iRow)
{
    return oModel.data(oModel.index(iRow, 0)).toString();
}

void QLegendItemDelegate::paintPicture(QPainter* pPainter, const QRectF& oPlace, const QLegendListModel& oModel,
                                       int iRow)
{
    const int iClassId = iRow + 1;
    const bool bSymbol = oModel.hasSymbol(iClassId);
    const QColor oSwatch = bSymbol ? QColor(Qt::white) : oModel.swatchColor(iClassId);
    if (!oSwatch.isValid())
        return;
    pPainter->save();
    // The frame tells a swatch from a ground of its own colour.
    pPainter->setPen(QPen(bSymbol ? Qt::NoPen : QPen(QColor(128, 128, 128), 1.0)));
    pPainter->setBrush(oSwatch);
    pPainter->drawRect(oPlace.adjusted(0.5, 0.5, -0.5, -0.5));
    if (bSymbol) {
        pPainter->setRenderHint(QPainter::Antialiasing);
        // The centre on the middle of a pixel, as the chart's own symbols.
        pPainter->translate(oPlace.center() + QPointF(0.5, 0.5));
        drawSymbol(pPainter, QPointF(0, 0), oModel.symbolLook(iClassId));
    }
    pPainter->restore();
}

QStyleOptionViewItem QLegendItemDelegate::rowOption(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem oOption = option;
    initStyleOption(&oOption, index);
    oOption.text = index.data().toString();
    oOption.features |= QStyleOptionViewItem::HasDisplay | QStyleOptionViewItem::HasDecoration;
    oOption.icon = QIcon();
    oOption.decorationSize = QSize(s_iIconSide, s_iIconSide);
    return oOption;
}

void QLegendItemDelegate::paint(QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QStyleOptionViewItem oOption = rowOption(option, index);
    const QStyle* pStyle = styleOf(oOption);
    pStyle->drawControl(QStyle::CE_ItemViewItem, &oOption, pPainter, oOption.widget);
    if (const auto* pModel = qobject_cast<const QLegendListModel*>(index.model())) {
        const QRect oPlace = pStyle->subElementRect(QStyle::SE_ItemViewItemDecoration, &oOption, oOption.widget);
        paintPicture(pPainter, oPlace, *pModel, index.row());
    }
}

QSize QLegendItemDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const
{
    return QSize(s_iIconSide + 2 * g_iRowMargin + g_iMinimumNameWidth,
                 std::max(s_iIconSide, option.fontMetrics.height()) + g_iRowMargin);
}

bool QLegendItemDelegate::helpEvent(QHelpEvent* pEvent, QAbstractItemView* pqView, const QStyleOptionViewItem& option,
                                    const QModelIndex& index)
{
    if (!pEvent || !pqView || pEvent->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(pEvent, pqView, option, index);
    const QStyleOptionViewItem oOption = rowOption(option, index);
    const QRect oTextRect = styleOf(oOption)->subElementRect(QStyle::SE_ItemViewItemText, &oOption, pqView);
    const int iMargin = styleOf(oOption)->pixelMetric(QStyle::PM_FocusFrameHMargin, &oOption, pqView) + 1;
    const bool bElided = oOption.fontMetrics.horizontalAdvance(oOption.text) > oTextRect.width() - 2 * iMargin;
    if (!bElided) { // the view's own tool tip, if it has one
        QToolTip::hideText();
        return false;
    }
    // Text of the data is shown as it stands, not read as markup.
    QToolTip::showText(pEvent->globalPos(), oOption.text.toHtmlEscaped(), pqView);
    return true;
}

} // namespace gkBase
