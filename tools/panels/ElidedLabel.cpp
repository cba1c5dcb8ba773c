#include "ElidedLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace gkBase {

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString sShown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), Qt::AlignCenter, sShown);
}

bool ElidedLabel::event(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::ToolTip && fontMetrics().horizontalAdvance(text()) > width()) {
        QToolTip::showText(static_cast<QHelpEvent*>(pEvent)->globalPos(), text().toHtmlEscaped(), this);
        return true;
    }
    return QLabel::event(pEvent);
}

} // namespace gkBase
