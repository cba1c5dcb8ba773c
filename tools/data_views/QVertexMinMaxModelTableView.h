#pragma once

#include "QVertexModelTableView.h"

namespace gkBase {

/// The summary table: five rows that follow the horizontal scrolling of the attribute table. It is as high as its rows
/// and has no scroll bars of its own.
class GKBASETOOLS_EXPORT QVertexMinMaxModelTableView : public QVertexModelTableView
{
    Q_OBJECT
public:
    explicit QVertexMinMaxModelTableView(QWidget* pqParent = nullptr);

    /// Height of header, five rows and frame.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    void slotSliderMoved(int iValue);

protected:
    void updateGeometries() override;
    void updateMetrics() override;

private:
    int m_iOffset = 0; ///< horizontal position of the attribute table, which may scroll further than this one
};

} // namespace gkBase
