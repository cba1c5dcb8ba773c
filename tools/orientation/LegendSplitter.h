#pragma once

#include "gkBaseToolsExport.h"

#include <QBoxLayout>
#include <QByteArray>
#include <QSplitter>

namespace gkBase {

/// A chart and its legends: beside it where the room is wide, below it where it is not, so that a circular chart stays
/// as large as can be.
class GKBASETOOLS_EXPORT LegendSplitter : public QSplitter
{
    Q_OBJECT
public:
    explicit LegendSplitter(QWidget* pqChart, QWidget* pqParent = nullptr);

    /// Beside or below those that are there; owned by the splitter.
    void addLegend(QWidget* pqLegend);
    /// The legends take no room while there is nothing in them.
    void setLegendsVisible(bool bVisible);
    /// restoreState() of what saveState() gave, in a window of any shape; sizes hold for legends on the side where they
    /// stood. Nothing for another state.
    void restore(const QByteArray& state);

protected:
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    void fitOrientation(const QSize& oSize);
    QBoxLayout::Direction direction() const;
    void arrange();
    int& legendRoom() { return orientation() == Qt::Horizontal ? m_iRoomBeside : m_iRoomBelow; }

    QWidget* m_pqLegends;
    QBoxLayout* m_pqLegendLayout;
    int m_iRoomBeside; ///< pixels for the legends when they come to stand there
    int m_iRoomBelow;
    bool m_bLaidOut = false; ///< size() is that of the window, not one from before it was seen
};

} // namespace gkBase
