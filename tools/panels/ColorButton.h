#pragma once

#include "gkBaseToolsExport.h"

#include <QColor>
#include <QToolButton>

#include <functional>
#include <utility>

namespace gkBase {

/// A button that shows a colour and lets the user pick another one. With a default it offers "Default" too, which is
/// the invalid colour and is shown as a struck out swatch.
class GKBASETOOLS_EXPORT ColorButton : public QToolButton
{
    Q_OBJECT
public:
    /// Asks for a colour, starting with the given one; an invalid answer means that the user cancelled.
    using ColorChooser = std::function<QColor(const QColor& oInitial, QWidget* pqParent)>;

    /// sDefault names the default colour; empty: there is none. sToolTip says what is coloured.
    ColorButton(const QString& sAccessibleName, const QString& sToolTip, const QString& sDefault = {},
                QWidget* pqParent = nullptr);

    QColor color() const { return m_oColor; }
    /// Emits nothing. An invalid colour is taken only where there is a default.
    void setColor(const QColor& oColor);
    /// QColorDialog at first.
    void setColorChooser(ColorChooser fnChooser) { m_fnChooseColor = std::move(fnChooser); }

signals:
    /// The user has picked another colour.
    void colorPicked(const QColor& oColor);

protected:
    void changeEvent(QEvent* pEvent) override;

private:
    void chooseColor();
    void pick(const QColor& oColor);
    void showColor();

    QColor m_oColor = Qt::black;
    QString m_sToolTip;
    QString m_sDefault;
    ColorChooser m_fnChooseColor;
};

} // namespace gkBase
