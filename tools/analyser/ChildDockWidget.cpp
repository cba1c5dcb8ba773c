#include "ChildDockWidget.h"

#include <QEvent>
#include <QStackedWidget>

namespace gkBase {

ChildDockWidget::ChildDockWidget(const QString& sTitle, QWidget* pqParent)
    : QDockWidget(sTitle, pqParent)
    , m_pqStack(new QStackedWidget(this))
{
    setWidget(m_pqStack);
}

ChildDockWidget::~ChildDockWidget()
{
    if (m_pqPage)
        emit destroyedWithPage(this);
}

void ChildDockWidget::setPage(QWidget* pqPage)
{
    takePage();
    if (!pqPage)
        return;
    m_pqPage = pqPage;
    m_pqStack->addWidget(pqPage);
    m_pqStack->setCurrentWidget(pqPage);
    connect(pqPage, &QObject::destroyed, this, &QObject::deleteLater);
}

QWidget* ChildDockWidget::takePage()
{
    QWidget* pqPage = m_pqPage;
    m_pqPage.clear();
    if (pqPage) {
        disconnect(pqPage, nullptr, this, nullptr);
        m_pqStack->removeWidget(pqPage);
    }
    return pqPage;
}

bool ChildDockWidget::event(QEvent* pEvent)
{
    // With native and with drawn titles alike, a double click would make the window a part of the main window.
    const bool bDoubleClick =
        pEvent->type() == QEvent::MouseButtonDblClick || pEvent->type() == QEvent::NonClientAreaMouseButtonDblClick;
    if (bDoubleClick && isFloating()) {
        pEvent->accept();
        return true;
    }
    return QDockWidget::event(pEvent);
}

} // namespace gkBase
