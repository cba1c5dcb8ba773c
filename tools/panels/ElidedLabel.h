#pragma once

#include <QLabel>

namespace gkBase {

/// A centred one-line label that ends in "…" where it is too narrow for its text and tells the whole text as a tool
/// tip.
class ElidedLabel : public QLabel
{
    Q_OBJECT
public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    bool event(QEvent* pEvent) override;
};

} // namespace gkBase
