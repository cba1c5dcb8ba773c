#include "ScatWheelGuard.h"

#include "QChartDrawingArea.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QScrollBar>
#include <QTabBar>
#include <QWidget>

namespace gkBase {

namespace {

class WheelGuard : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* pqWatched, QEvent* pEvent) override
    {
        if (pEvent->type() != QEvent::Wheel || static_cast<QWidget*>(pqWatched)->hasFocus())
            return false;
        pEvent->ignore(); // it goes on to the parents
        return true;
    }
};

bool isMovedByWheel(const QWidget* pqWidget)
{
    return qobject_cast<const QComboBox*>(pqWidget) || qobject_cast<const QAbstractSpinBox*>(pqWidget) ||
           qobject_cast<const QTabBar*>(pqWidget) || qobject_cast<const QChartDrawingArea*>(pqWidget) ||
           (qobject_cast<const QAbstractSlider*>(pqWidget) && !qobject_cast<const QScrollBar*>(pqWidget));
}

} // namespace

void keepFromWheel(QWidget& page)
{
    auto* pqGuard = new WheelGuard(&page);
    for (QWidget* pqWidget : page.findChildren<QWidget*>()) {
        if (!isMovedByWheel(pqWidget))
            continue;
        pqWidget->installEventFilter(pqGuard);
        if (pqWidget->focusPolicy() == Qt::WheelFocus)
            pqWidget->setFocusPolicy(Qt::StrongFocus);
    }
}

} // namespace gkBase
