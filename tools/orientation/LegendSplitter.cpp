#include "LegendSplitter.h"

#include <QBoxLayout>
#include <QResizeEvent>

namespace gkBase {

namespace {

constexpr int g_iLegendWidth = 150;
constexpr int g_iLegendHeight = 130;
constexpr int g_iLegendMinimumWidth = 90;
constexpr int g_iLegendMinimumHeight = 70;

} // namespace

LegendSplitter::LegendSplitter(QWidget* pqChart, QWidget* pqParent)
    : QSplitter(pqParent)
    , m_pqLegends(new QWidget)
    , m_pqLegendLayout(new QBoxLayout(QBoxLayout::TopToBottom, m_pqLegends))
    , m_iRoomBeside(g_iLegendWidth)
    , m_iRoomBelow(g_iLegendHeight)
{
    m_pqLegendLayout->setContentsMargins(0, 0, 0, 0);
    m_pqLegends->setMinimumSize(g_iLegendMinimumWidth, g_iLegendMinimumHeight);
    addWidget(pqChart);
    addWidget(m_pqLegends);
    setStretchFactor(0, 1);
    setStretchFactor(1, 0);
    setChildrenCollapsible(false);
    m_pqLegends->hide();
    arrange();
}

void LegendSplitter::addLegend(QWidget* pqLegend)
{
    m_pqLegendLayout->addWidget(pqLegend);
}

void LegendSplitter::setLegendsVisible(bool bVisible)
{
    // QSplitter keeps the size of what is hidden, so that a restored or dragged one is there when legends come back.
    m_pqLegends->setVisible(bVisible);
}

void LegendSplitter::restore(const QByteArray& state)
{
    if (!restoreState(state))
        return;
    // The state holds the orientation that suited the window of that time.
    m_pqLegendLayout->setDirection(direction());
    if (m_bLaidOut)
        fitOrientation(size());
}

void LegendSplitter::resizeEvent(QResizeEvent* pEvent)
{
    fitOrientation(pEvent->size());
    m_bLaidOut = true;
    QSplitter::resizeEvent(pEvent);
}

void LegendSplitter::fitOrientation(const QSize& oSize)
{
    const Qt::Orientation eWanted =
        oSize.width() >= oSize.height() + g_iLegendMinimumWidth ? Qt::Horizontal : Qt::Vertical;
    if (eWanted == orientation())
        return;
    if (m_bLaidOut && !m_pqLegends->isHidden())
        legendRoom() = sizes().last();
    setOrientation(eWanted);
    arrange();
}

/// Legends beside the chart stand one below the other, those below it side by side.
QBoxLayout::Direction LegendSplitter::direction() const
{
    return orientation() == Qt::Horizontal ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
}

void LegendSplitter::arrange()
{
    m_pqLegendLayout->setDirection(direction());
    // The chart stretches over what the legends leave, now and after every change of the window.
    setSizes({1, legendRoom()});
}

} // namespace gkBase
