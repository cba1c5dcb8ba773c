#pragma once

#include "gkBaseQtExport.h"

#include <QToolBox>

/// A tool box whose page headers are drawn as bars with an arrow that shows the open page, in the palette's colours.
/// The headers take the keyboard focus; Space or Return opens a page, the up and down keys walk between them.
class GKBASEQT_EXPORT QDecoratedToolBox : public QToolBox
{
    Q_OBJECT
public:
    explicit QDecoratedToolBox(QWidget* pqParent = nullptr, Qt::WindowFlags flags = {});

protected:
    void itemInserted(int iIndex) override;
    bool eventFilter(QObject* pqWatched, QEvent* pEvent) override;

private:
    QStyle* m_pqHeaderStyle; ///< child of this
};
