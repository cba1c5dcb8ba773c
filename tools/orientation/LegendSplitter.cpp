#include "LegendSplitter.h"

#include <QBoxLayout>
#include <QResizeEvent>

#include <algorithm>

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
{
    m_pqLegendLayout->setContentsMargins(0, 0, 0, 0);
    m_pqLegends->setMinimumSize(g_iLegendMinimumWidth, g_iLegendMinimumHeight);
    addWidget(pqChart);
    addWidget(m_pqLegends);
    setStretchFactor(0, 1);
    setStretchFactor(1, 0);
    setChildrenCollapsible(false);
    m_pqLegends->hide();
}

void LegendSplitter::addLegend(QWidget* pqLegend)
{
    m_pqLegendLayout->addWidget(pqLegend);
}

void LegendSplitter::setLegendsVisible(bool bVisible)
{
    if (m_pqLegends->isHidden() != bVisible)
        return;
    m_pqLegends->setVisible(bVisible);
    if (bVisible)
        arrange();
}

void LegendSplitter::restore(const QByteArray& state)
{
    if (!restoreState(state))
        return;
    // The state holds the orientation that suited the window of that time.
    m_pqLegendLayout->setDirection(direction());
    fitOrientation(size());
}

void LegendSplitter::resizeEvent(QResizeEvent* pEvent)
{
    fitOrientation(pEvent->size());
    QSplitter::resizeEvent(pEvent);
}

void LegendSplitter::fitOrientation(const QSize& oSize)
{
    const Qt::Orientation eWanted =
        oSize.width() >= oSize.height() + g_iLegendMinimumWidth ? Qt::Horizontal : Qt::Vertical;
    if (eWanted == orientation())
        return;
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
    const bool bBeside = orientation() == Qt::Horizontal;
    m_pqLegendLayout->setDirection(direction());
    const int iLegends = bBeside ? g_iLegendWidth : g_iLegendHeight;
    setSizes({std::max(1, (bBeside ? width() : height()) - iLegends), iLegends});
}

} // namespace gkBase
