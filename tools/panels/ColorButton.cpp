#include "ColorButton.h"

#include <QColorDialog>
#include <QEvent>
#include <QMenu>
#include <QPainter>
#include <QPixmap>

namespace gkBase {

namespace {

constexpr QSize g_oSwatchSize(24, 12);

QPixmap swatch(const QColor& oColor, const QColor& oFrame, qreal dRatio)
{
    QPixmap oSwatch(g_oSwatchSize * dRatio);
    oSwatch.setDevicePixelRatio(dRatio);
    oSwatch.fill(Qt::transparent);
    QPainter painter(&oSwatch);
    painter.setPen(oFrame);
    if (oColor.isValid())
        painter.setBrush(oColor);
    const QRect oRect(QPoint(0, 0), g_oSwatchSize - QSize(1, 1));
    painter.drawRect(oRect);
    if (!oColor.isValid()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawLine(oRect.bottomLeft(), oRect.topRight());
    }
    return oSwatch;
}

} // namespace

ColorButton::ColorButton(const QString& sAccessibleName, const QString& sToolTip, const QString& sDefault,
                         QWidget* pqParent)
    : QToolButton(pqParent)
    , m_sToolTip(sToolTip)
    , m_sDefault(sDefault)
    , m_fnChooseColor([](const QColor& oInitial, QWidget* pqDialogParent) {
        return QColorDialog::getColor(oInitial, pqDialogParent);
    })
{
    setAccessibleName(sAccessibleName);
    setFocusPolicy(Qt::StrongFocus);
    setIconSize(g_oSwatchSize);
    if (m_sDefault.isEmpty()) {
        connect(this, &QToolButton::clicked, this, &ColorButton::chooseColor);
    } else {
        auto* pqMenu = new QMenu(this);
        pqMenu->addAction(m_sDefault, this, [this] { pick({}); });
        pqMenu->addAction(tr("Choose Color..."), this, &ColorButton::chooseColor);
        setMenu(pqMenu);
        setPopupMode(QToolButton::InstantPopup);
        m_oColor = {};
    }
    showColor();
}

void ColorButton::setColor(const QColor& oColor)
{
    if (oColor == m_oColor || (!oColor.isValid() && m_sDefault.isEmpty()))
        return;
    m_oColor = oColor;
    showColor();
}

void ColorButton::chooseColor()
{
    const QColor oChosen = m_fnChooseColor(m_oColor.isValid() ? m_oColor : QColor(Qt::white), this);
    if (oChosen.isValid())
        pick(oChosen);
}

void ColorButton::pick(const QColor& oColor)
{
    if (oColor == m_oColor)
        return;
    setColor(oColor);
    emit colorPicked(m_oColor);
}

void ColorButton::showColor()
{
    setIcon(QIcon(swatch(m_oColor, palette().color(QPalette::WindowText), devicePixelRatioF())));
    setToolTip(m_sToolTip + QLatin1String(": ") + (m_oColor.isValid() ? m_oColor.name() : m_sDefault));
}

void ColorButton::changeEvent(QEvent* pEvent)
{
    QToolButton::changeEvent(pEvent);
    if (pEvent->type() == QEvent::PaletteChange)
        showColor();
}

} // namespace gkBase
