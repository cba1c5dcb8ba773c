#pragma once

#include "gkBaseToolsExport.h"

#include <QDockWidget>
#include <QPointer>

class QStackedWidget;

namespace gkBase {

/// The dock window of one page that was torn off a TabWidgetWithFloatingTabs. It can be docked by dragging it to any
/// side of the main window; a double click on the title of the floating window does nothing, because the button and the
/// drag say more clearly where the page goes.
class GKBASETOOLS_EXPORT ChildDockWidget : public QDockWidget
{
    Q_OBJECT
public:
    explicit ChildDockWidget(const QString& sTitle, QWidget* pqParent = nullptr);
    ~ChildDockWidget() override;

    /// Takes the page as its child. When the page dies, the dock goes too.
    void setPage(QWidget* pqPage);
    QWidget* page() const { return m_pqPage; }
    /// Gives up the page, which stays a child of the dock until the caller puts it elsewhere.
    QWidget* takePage();

signals:
    /// The dock is being destroyed with the page still in it; a receiver that takes the page saves it.
    void destroyedWithPage(gkBase::ChildDockWidget* pqDock);

protected:
    bool event(QEvent* pEvent) override;

private:
    QStackedWidget* m_pqStack;
    QPointer<QWidget> m_pqPage;
};

} // namespace gkBase
