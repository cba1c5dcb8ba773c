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
    /// restoreState() of what saveState() gave, in a window of any shape. Nothing for another state.
    void restore(const QByteArray& state);

protected:
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    void fitOrientation(const QSize& oSize);
    QBoxLayout::Direction direction() const;
    void arrange();

    QWidget* m_pqLegends;
    QBoxLayout* m_pqLegendLayout;
};

} // namespace gkBase
