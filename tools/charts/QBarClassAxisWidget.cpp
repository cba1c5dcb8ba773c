#include "QBarClassAxisWidget.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>
#include <utility>

namespace gkBase {

namespace {

constexpr int g_iTick = 6;
constexpr int g_iLabelDistance = 3;
constexpr int g_iTitleDistance = 4;
constexpr int g_iRim = 2;

} // namespace

QBarClassAxisWidget::QBarClassAxisWidget(QWidget* pqParent)
    : QWidget(pqParent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void QBarClassAxisWidget::setClasses(std::shared_ptr<const BarDiagramClasses> pClasses)
{
    m_pClasses = std::move(pClasses);
    classesChanged();
}

void QBarClassAxisWidget::classesChanged()
{
    m_dWidest = m_pClasses ? widestName(m_pClasses->bars(), QFontMetricsF(font())) : 0.0;
    updateLayout();
}

void QBarClassAxisWidget::setWindow(const BarWindow& window)
{
    m_oWindow = window;
    updateLayout();
}

void QBarClassAxisWidget::setTitle(const QString& sTitle)
{
    m_sTitle = sTitle;
    setAccessibleName(sTitle);
    updateGeometry();
    update();
}

void QBarClassAxisWidget::setAxisColor(const QColor& oColor)
{
    m_oAxisColor = oColor;
    update();
}

void QBarClassAxisWidget::setMostDepth(double dPixels)
{
    if (dPixels == m_dMostDepth)
        return;
    m_dMostDepth = dPixels;
    updateLayout();
}

BarLabels QBarClassAxisWidget::labels(const BarWindow& window, int iWidth, double dMostDepth) const
{
    if (!m_pClasses)
        return {};
    return barLabels(m_pClasses->bars(), window, iWidth, QFontMetricsF(font()), m_dWidest, dMostDepth);
}

void QBarClassAxisWidget::updateLayout()
{
    const double dDepth = m_oLabels.m_dDepth;
    m_oLabels = labels(m_oWindow, width(), m_dMostDepth);
    if (m_oLabels.m_dDepth != dDepth)
        updateGeometry();
    update();
}

int QBarClassAxisWidget::thickness(const BarWindow& window, int iWidth, double dMostDepth) const
{
    const QFontMetricsF metrics(font());
    double dThickness = g_iTick + g_iLabelDistance + labels(window, iWidth, dMostDepth).m_dDepth + g_iRim;
    if (!m_sTitle.isEmpty())
        dThickness += g_iTitleDistance + metrics.height();
    return static_cast<int>(std::ceil(dThickness));
}

QSize QBarClassAxisWidget::sizeHint() const
{
    return {20 * fontMetrics().averageCharWidth(), thickness(m_oWindow, width(), m_dMostDepth)};
}

QSize QBarClassAxisWidget::minimumSizeHint() const
{
    return {1, thickness(m_oWindow, width(), m_dMostDepth)};
}

void QBarClassAxisWidget::drawAxis(QPainter& painter, const QRect& oChart, const BarWindow& window,
                                   double dMostDepth) const
{
    const BarLabels shown = labels(window, oChart.width(), dMostDepth);
    const QFontMetricsF metrics(font());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setFont(font());
    painter.setPen(QPen(m_oAxisColor, 1));
    painter.translate(oChart.left(), oChart.top() + oChart.height());
    painter.drawLine(0, 0, oChart.width() - 1, 0);
    const double dTop = g_iTick + g_iLabelDistance;
    for (const BarLabel& label : shown.m_vLabels) {
        painter.drawLine(QPointF(std::floor(label.m_dCentre), 0), QPointF(std::floor(label.m_dCentre), g_iTick));
        const double dWidth = metrics.horizontalAdvance(label.m_sText);
        if (!shown.m_bUpright) {
            painter.drawText(QRectF(label.m_dCentre - dWidth / 2, dTop, dWidth, metrics.height()),
                             Qt::AlignCenter | Qt::TextDontClip, label.m_sText);
            continue;
        }
        painter.save();
        painter.translate(label.m_dCentre, dTop);
        painter.rotate(-90.0);
        painter.drawText(QRectF(-dWidth, -metrics.height() / 2, dWidth, metrics.height()),
                         Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip, label.m_sText);
        painter.restore();
    }
    const QRectF oTitle(0, dTop + shown.m_dDepth + g_iTitleDistance, oChart.width(), metrics.height());
    painter.drawText(oTitle, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip,
                     metrics.elidedText(m_sTitle, Qt::ElideRight, oTitle.width()));
    painter.restore();
}

void QBarClassAxisWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawAxis(painter, QRect(0, 0, width(), 0), m_oWindow, m_dMostDepth);
}

void QBarClassAxisWidget::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    updateLayout();
}

void QBarClassAxisWidget::changeEvent(QEvent* pEvent)
{
    QWidget::changeEvent(pEvent);
    if (pEvent->type() == QEvent::FontChange)
        classesChanged();
}

bool QBarClassAxisWidget::event(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::ToolTip || !m_pClasses || width() < 2)
        return QWidget::event(pEvent);
    const auto* pHelp = static_cast<QHelpEvent*>(pEvent);
    const double dBar = std::floor(m_oWindow.m_dFirst + m_oWindow.m_dCount * pHelp->x() / (width() - 1));
    const bool bBar = dBar >= 0.0 && dBar < m_pClasses->barCount();
    const QString sName = bBar ? m_pClasses->bars()[static_cast<std::size_t>(dBar)].m_sName : QString();
    QToolTip::showText(pHelp->globalPos(), sName.toHtmlEscaped(), this);
    return true;
}

} // namespace gkBase
