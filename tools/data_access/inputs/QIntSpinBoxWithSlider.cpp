#include "QIntSpinBoxWithSlider.h"

#include <QBoxLayout>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>

#include <algorithm>
#include <cmath>
#include <utility>

QIntSpinBoxWithSlider::QIntSpinBoxWithSlider(int iMin, int iMax, int iSteps, QWidget* pqParent, bool bSideBySide)
    : QWidget(pqParent)
    , m_pqSpinBox(new QSpinBox(this))
    , m_pqSlider(new QSlider(Qt::Horizontal, this))
{
    m_pqSpinBox->setLocale(QLocale::c());
    m_pqSpinBox->setKeyboardTracking(false);
    m_pqSpinBox->setAccelerated(true);

    auto* pqLayout = new QBoxLayout(bSideBySide ? QBoxLayout::LeftToRight : QBoxLayout::BottomToTop, this);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->addWidget(m_pqSpinBox);
    pqLayout->addWidget(m_pqSlider, 1);
    setFocusProxy(m_pqSpinBox);
    setTabOrder(m_pqSpinBox, m_pqSlider);

    connect(m_pqSpinBox, &QSpinBox::valueChanged, this, &QIntSpinBoxWithSlider::slotBoxChanged);
    connect(m_pqSlider, &QSlider::valueChanged, this, &QIntSpinBoxWithSlider::slotSliderChanged);
    initialise(iMin, iMax, iSteps);
}

void QIntSpinBoxWithSlider::initialise(int iMin, int iMax, int iSteps)
{
    if (iMin > iMax)
        std::swap(iMin, iMax);
    {
        const QSignalBlocker blockSlider(m_pqSlider);
        const qint64 iWidth = qint64(iMax) - iMin;
        m_pqSlider->setRange(0, static_cast<int>(std::clamp<qint64>(iWidth, 1, std::max(iSteps, 1))));
        m_pqSlider->setPageStep(std::max(m_pqSlider->maximum() / 10, 1));
    }
    const int iOldValue = getValue();
    {
        const QSignalBlocker blockBox(m_pqSpinBox);
        m_pqSpinBox->setRange(iMin, iMax);
    }
    showInSlider();
    if (getValue() != iOldValue)
        emit valueChanged(getValue());
}

int QIntSpinBoxWithSlider::minimum() const
{
    return m_pqSpinBox->minimum();
}

int QIntSpinBoxWithSlider::maximum() const
{
    return m_pqSpinBox->maximum();
}

int QIntSpinBoxWithSlider::getValue() const
{
    return m_pqSpinBox->value();
}

void QIntSpinBoxWithSlider::setSingleStep(int iStep)
{
    m_pqSpinBox->setSingleStep(std::max(iStep, 1));
}

void QIntSpinBoxWithSlider::setSpinBoxWidth(int iPixels)
{
    m_pqSpinBox->setFixedWidth(std::max(iPixels, 0));
}

void QIntSpinBoxWithSlider::setSuffix(const QString& sSuffix)
{
    m_pqSpinBox->setSuffix(sSuffix);
}

void QIntSpinBoxWithSlider::setControlName(const QString& sName)
{
    m_pqSpinBox->setAccessibleName(sName);
    m_pqSlider->setAccessibleName(sName);
}

void QIntSpinBoxWithSlider::setValue(int iValue)
{
    m_pqSpinBox->setValue(iValue);
}

void QIntSpinBoxWithSlider::slotBoxChanged(int iValue)
{
    showInSlider();
    emit valueChanged(iValue);
}

void QIntSpinBoxWithSlider::slotSliderChanged(int iPosition)
{
    const double dWidth = double(maximum()) - minimum();
    const double dValue = minimum() + std::round(dWidth * iPosition / m_pqSlider->maximum());
    {
        const QSignalBlocker blockBox(m_pqSpinBox);
        const int iOldValue = getValue();
        m_pqSpinBox->setValue(static_cast<int>(dValue));
        if (getValue() == iOldValue)
            return;
    }
    emit valueChanged(getValue());
}

void QIntSpinBoxWithSlider::showInSlider()
{
    const QSignalBlocker blockSlider(m_pqSlider);
    const double dWidth = double(maximum()) - minimum();
    const double dFraction = dWidth > 0.0 ? (double(getValue()) - minimum()) / dWidth : 0.0;
    m_pqSlider->setValue(qRound(dFraction * m_pqSlider->maximum()));
}
