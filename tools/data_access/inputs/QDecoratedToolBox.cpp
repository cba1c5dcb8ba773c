#include "QDecoratedToolBox.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QProxyStyle>
#include <QStyleOptionToolBox>

#include <algorithm>

namespace {

constexpr int g_iMargin = 6;

/// Draws the page headers; everything else is left to the application's style.
class ToolBoxHeaderStyle : public QProxyStyle
{
public:
    void drawControl(ControlElement element, const QStyleOption* pOption, QPainter* pPainter,
                     const QWidget* pqWidget) const override
    {
        const auto* pHeader = qstyleoption_cast<const QStyleOptionToolBox*>(pOption);
        if (element == CE_ToolBoxTab && pHeader)
            drawHeader(*pPainter, *pHeader);
        else
            QProxyStyle::drawControl(element, pOption, pPainter, pqWidget);
    }

private:
    void drawHeader(QPainter& painter, const QStyleOptionToolBox& option) const;
};

/// A triangle that points to the right, or down on the open page.
QPainterPath headerArrow(const QRectF& box, bool bOpen, bool bRightToLeft)
{
    const QPointF centre = box.center();
    const double dHalf = box.width() / 2;
    const double dForward = bRightToLeft ? -dHalf : dHalf;
    QPainterPath path;
    if (bOpen) {
        path.moveTo(centre + QPointF(-dHalf, -dHalf / 2));
        path.lineTo(centre + QPointF(dHalf, -dHalf / 2));
        path.lineTo(centre + QPointF(0, dHalf / 2));
    } else {
        path.moveTo(centre + QPointF(-dForward / 2, -dHalf));
        path.lineTo(centre + QPointF(-dForward / 2, dHalf));
        path.lineTo(centre + QPointF(dForward / 2, 0));
    }
    path.closeSubpath();
    return path;
}

void ToolBoxHeaderStyle::drawHeader(QPainter& painter, const QStyleOptionToolBox& option) const
{
    const QPalette::ColorGroup group = option.state & State_Enabled ? QPalette::Normal : QPalette::Disabled;
    const bool bOpen = option.state & State_Selected;
    const bool bHover = (option.state & State_MouseOver) && (option.state & State_Enabled);
    const QPalette& palette = option.palette;
    QColor fill = palette.color(group, QPalette::Button);
    if (bHover || (option.state & State_Sunken))
        fill = palette.color(group, QPalette::Midlight);
    const QColor text = palette.color(group, QPalette::ButtonText);
    const QColor accent = palette.color(group, QPalette::Highlight);

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(palette.color(group, QPalette::Mid));
    painter.setBrush(fill);
    painter.drawRoundedRect(box, 3, 3);
    if (bOpen)
        painter.fillRect(QRectF(option.rect.left(), option.rect.bottom() - 1, option.rect.width(), 2), accent);

    const int iArrow = std::max(option.fontMetrics.height() / 2, 6);
    QRect content = option.rect.adjusted(g_iMargin, 0, -g_iMargin, 0);
    const auto placed = [&option](const QRect& logical) { return visualRect(option.direction, option.rect, logical); };
    const QRect arrow(content.left(), content.center().y() - iArrow / 2, iArrow, iArrow);
    painter.fillPath(headerArrow(QRectF(placed(arrow)), bOpen, option.direction == Qt::RightToLeft), text);
    content.setLeft(arrow.right() + 1 + g_iMargin);

    if (!option.icon.isNull()) {
        const int iIcon = std::min(proxy()->pixelMetric(PM_SmallIconSize, &option), option.rect.height());
        const QRect icon(content.left(), content.center().y() - iIcon / 2, iIcon, iIcon);
        option.icon.paint(&painter, placed(icon), Qt::AlignCenter,
                          option.state & State_Enabled ? QIcon::Normal : QIcon::Disabled);
        content.setLeft(icon.right() + 1 + g_iMargin);
    }

    QFont font = painter.font();
    font.setBold(bOpen);
    painter.setFont(font);
    painter.setPen(text);
    const QString sText =
        QFontMetrics(font).elidedText(option.text, Qt::ElideRight, content.width(), Qt::TextShowMnemonic);
    painter.drawText(placed(content), int(Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic), sText);

    if (option.state & State_HasFocus) {
        painter.setPen(QPen(accent, 1, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box.adjusted(2, 2, -2, -2), 2, 2);
    }
    painter.restore();
}

} // namespace

QDecoratedToolBox::QDecoratedToolBox(QWidget* pqParent, Qt::WindowFlags flags)
    : QToolBox(pqParent, flags)
    , m_pqHeaderStyle(new ToolBoxHeaderStyle)
{
    m_pqHeaderStyle->setParent(this);
}

void QDecoratedToolBox::itemInserted(int iIndex)
{
    QToolBox::itemInserted(iIndex);
    // The headers are the only buttons that the tool box itself owns; those of the pages lie deeper.
    const QList<QAbstractButton*> vHeaders = findChildren<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
    for (QAbstractButton* pqHeader : vHeaders) {
        if (pqHeader->focusPolicy() == Qt::TabFocus)
            continue;
        pqHeader->setFocusPolicy(Qt::TabFocus);
        pqHeader->setAttribute(Qt::WA_Hover);
        pqHeader->setStyle(m_pqHeaderStyle);
        pqHeader->installEventFilter(this);
    }
}

bool QDecoratedToolBox::eventFilter(QObject* pqWatched, QEvent* pEvent)
{
    auto* pqHeader = qobject_cast<QAbstractButton*>(pqWatched);
    if (pqHeader && pEvent->type() == QEvent::KeyPress) {
        const int iKey = static_cast<QKeyEvent*>(pEvent)->key();
        if (iKey == Qt::Key_Return || iKey == Qt::Key_Enter) {
            pqHeader->click();
            return true;
        }
    }
    return QToolBox::eventFilter(pqWatched, pEvent);
}
