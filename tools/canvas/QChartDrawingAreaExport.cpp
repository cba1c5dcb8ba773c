// Copies of a chart and the menu that offers them.

#include "EMFDevice.h"
#include "MetafileClipboard.h"
#include "QChartDrawingArea.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFile>
#include <QIcon>
#include <QMenu>
#include <QPainter>

namespace gkBase {

QAction* QChartDrawingArea::newCopyAction(const char* pText, const char* pShortcut)
{
    auto* pqAction = new QAction(QCoreApplication::translate("QCrossPlotWidget", pText), this);
    pqAction->setShortcut(QKeySequence(QCoreApplication::translate("QCrossPlotWidget", pShortcut)));
    // Several charts and tables share a window; the one with the focus copies.
    pqAction->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    const QString sIcon = QStringLiteral(":/orrel/Resources/page_copy.png");
    pqAction->setIcon(QFile::exists(sIcon) ? QIcon(sIcon) : QIcon::fromTheme(QStringLiteral("edit-copy")));
    addAction(pqAction);
    return pqAction;
}

void QChartDrawingArea::createActions()
{
    m_pqCopyAction =
        newCopyAction(QT_TRANSLATE_NOOP("QCrossPlotWidget", "Copy"), QT_TRANSLATE_NOOP("QCrossPlotWidget", "Ctrl+C"));
    connect(m_pqCopyAction, &QAction::triggered, this, &QChartDrawingArea::copyToClipboard);
    // The doubled plus has always been there, and translations know the text so.
    m_pqCopyMetafileAction = newCopyAction(QT_TRANSLATE_NOOP("QCrossPlotWidget", "Copy to Enhanced metafile"),
                                           QT_TRANSLATE_NOOP("QCrossPlotWidget", "Ctrl++Shift+C"));
    connect(m_pqCopyMetafileAction, &QAction::triggered, this, &QChartDrawingArea::slotCopyWEMFToClipboard);
    allowCopyToWMF(false);
}

void QChartDrawingArea::allowCopyToWMF(bool bAllow)
{
    m_pqCopyMetafileAction->setVisible(bAllow);
}

void QChartDrawingArea::copyToClipboard()
{
    QClipboard* pqClipboard = QApplication::clipboard();
    pqClipboard->clear();
    pqClipboard->setPixmap(grab(rect()));
    emit signalCopyToClipboard();
}

void QChartDrawingArea::slotCopyWEMFToClipboard()
{
    copyWEMFToClipboard();
}

void QChartDrawingArea::copyWEMFToClipboard()
{
    if (m_fnMetafileCopy) {
        m_fnMetafileCopy();
        return;
    }
    QApplication::clipboard()->clear();
    if (m_bNeedsRedraw)
        layOut();
    const QRect oVisible = pixmapRect();
    EMFDevice device;
    device.setBoundingRect(oVisible);
    device.setBackgroundColor(m_oBackgroundColor);
    QPainter painter(&device);
    painter.setFont(font());
    painter.save();
    painter.setClipRect(oVisible);
    painter.fillRect(oVisible, m_oBackgroundColor);
    drawChart(painter);
    painter.translate(oVisible.topLeft());
    drawVisibleFrame(painter, oVisible);
    painter.restore();
    drawAxis(painter, oVisible);
    painter.end();
    copyMetafileToClipboard(device.metafile(), this);
}

void QChartDrawingArea::contextMenuEvent(QContextMenuEvent* pEvent)
{
    QMenu menu(this);
    menu.addAction(m_pqCopyAction);
    menu.addAction(m_pqCopyMetafileAction);
    addToContextMenuEvent(&menu);
    QList<QAction*> lpqOfPanel = actions();
    lpqOfPanel.removeOne(m_pqCopyAction);
    lpqOfPanel.removeOne(m_pqCopyMetafileAction);
    if (!lpqOfPanel.isEmpty())
        menu.addSeparator();
    menu.addActions(lpqOfPanel);
    menu.setDefaultAction(m_pqCopyAction);
    menu.exec(pEvent->globalPos());
}

} // namespace gkBase
