#include "QDoubleSpinBoxWithSlider.h"

#include "AxisTicks.h"

#include <QBoxLayout>
#include <QDoubleSpinBox>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>
#include <cmath>

namespace {

constexpr int g_iDefaultDecimals = 2;

/// A box that reads a decimal comma as well as a point, whatever the language settings.
class DecimalSpinBox : public QDoubleSpinBox
{
public:
    explicit DecimalSpinBox(QWidget* pqParent)
        : QDoubleSpinBox(pqParent)
    {
        setLocale(QLocale::c());
    }

    QValidator::State validate(QString& sInput, int& iPos) const override
    {
        const bool bHasSuffix = !suffix().isEmpty() && sInput.endsWith(suffix());
        const qsizetype iNumberEnd = sInput.size() - (bHasSuffix ? suffix().size() : 0);
        if (const qsizetype iComma = sInput.indexOf(QLatin1Char(',')); iComma >= 0 && iComma < iNumberEnd)
            sInput[iComma] = QLatin1Char('.');
        return QDoubleSpinBox::validate(sInput, iPos);
    }
};

double roundedTo(double dValue, int iDecimals)
{
    const double dPower = std::pow(10.0, iDecimals);
    const double dRounded = std::round(dValue * dPower) / dPower;
    return std::isfinite(dRounded) ? dRounded : dValue;
}

} // namespace

QDoubleSpinBoxWithSlider::QDoubleSpinBoxWithSlider(double dMin, double dMax, int iSteps, QWidget* pqParent,
                                                   bool bSideBySide)
    : QWidget(pqParent)
    , m_pqSpinBox(new DecimalSpinBox(this))
    , m_pqSlider(new QSlider(Qt::Horizontal, this))
{
    m_pqSpinBox->setDecimals(g_iDefaultDecimals);
    m_pqSpinBox->setKeyboardTracking(false);
    m_pqSpinBox->setAccelerated(true);

    auto* pqLayout = new QBoxLayout(bSideBySide ? QBoxLayout::LeftToRight : QBoxLayout::BottomToTop, this);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->addWidget(m_pqSpinBox);
    pqLayout->addWidget(m_pqSlider, 1);
    setFocusProxy(m_pqSpinBox);
    setTabOrder(m_pqSpinBox, m_pqSlider);

    initialise(dMin, dMax, iSteps);
    connect(m_pqSpinBox, &QDoubleSpinBox::valueChanged, this, &QDoubleSpinBoxWithSlider::slotBoxChanged);
    connect(m_pqSlider, &QSlider::valueChanged, this, &QDoubleSpinBoxWithSlider::slotSliderChanged);
}

void QDoubleSpinBoxWithSlider::initialise(double dMin, double dMax, int iSteps)
{
    if (!std::isfinite(dMin) || !std::isfinite(dMax) || !std::isfinite(dMax - dMin))
        return;
    m_dMin = std::min(dMin, dMax);
    m_dMax = std::max(dMin, dMax);
    {
        const QSignalBlocker blockSlider(m_pqSlider);
        m_pqSlider->setRange(0, std::max(iSteps, 1));
        m_pqSlider->setPageStep(std::max(m_pqSlider->maximum() / 10, 1));
    }
    updateSteps();
    takeValue(std::clamp(m_dValue, m_dMin, m_dMax));
    showInBox();
    showInSlider();
}

void QDoubleSpinBoxWithSlider::setDecimals(int iDecimals)
{
    {
        const QSignalBlocker blockBox(m_pqSpinBox);
        m_pqSpinBox->setDecimals(iDecimals);
    }
    updateSteps();
    showInBox();
}

void QDoubleSpinBoxWithSlider::setSpinBoxWidth(int iPixels)
{
    m_pqSpinBox->setFixedWidth(std::max(iPixels, 0));
}

void QDoubleSpinBoxWithSlider::setSuffix(const QString& sSuffix)
{
    m_pqSpinBox->setSuffix(sSuffix);
}

void QDoubleSpinBoxWithSlider::setSingleStep(double dStep)
{
    m_dSingleStep = dStep > 0.0 && std::isfinite(dStep) ? dStep : 0.0;
    updateSteps();
}

void QDoubleSpinBoxWithSlider::setControlName(const QString& sName)
{
    m_pqSpinBox->setAccessibleName(sName);
    m_pqSlider->setAccessibleName(sName);
}

void QDoubleSpinBoxWithSlider::setValue(double dValue)
{
    if (!std::isnan(dValue))
        takeValue(std::clamp(dValue, m_dMin, m_dMax));
}

void QDoubleSpinBoxWithSlider::takeValue(double dValue)
{
    if (dValue == m_dValue)
        return;
    m_dValue = dValue;
    showInBox();
    showInSlider();
    emit valueChanged(m_dValue);
}

void QDoubleSpinBoxWithSlider::slotBoxChanged(double dValue)
{
    takeValue(std::clamp(dValue, m_dMin, m_dMax));
    // A typed bound that the decimals round beyond the range changes nothing but must not stay in the box.
    showInBox();
}

void QDoubleSpinBoxWithSlider::slotSliderChanged(int iPosition)
{
    double dValue = iPosition == 0 ? m_dMin : m_dMax;
    if (iPosition > 0 && iPosition < m_pqSlider->maximum()) {
        const double dPicked = m_dMin + (m_dMax - m_dMin) * iPosition / m_pqSlider->maximum();
        dValue = std::clamp(roundedTo(dPicked, m_pqSpinBox->decimals()), m_dMin, m_dMax);
    }
    if (dValue == m_dValue)
        return;
    // The slider keeps its position: moving it to the rounded value could hold it back for ever.
    m_dValue = dValue;
    showInBox();
    emit valueChanged(m_dValue);
}

void QDoubleSpinBoxWithSlider::showInBox()
{
    const QSignalBlocker blockBox(m_pqSpinBox);
    m_pqSpinBox->setValue(m_dValue);
}

void QDoubleSpinBoxWithSlider::showInSlider()
{
    const QSignalBlocker blockSlider(m_pqSlider);
    const double dWidth = m_dMax - m_dMin;
    const double dFraction = dWidth > 0.0 ? (m_dValue - m_dMin) / dWidth : 0.0;
    m_pqSlider->setValue(qRound(dFraction * m_pqSlider->maximum()));
}

void QDoubleSpinBoxWithSlider::updateSteps()
{
    const QSignalBlocker blockBox(m_pqSpinBox);
    m_pqSpinBox->setRange(m_dMin, m_dMax);
    const double dFinest = std::pow(10.0, -m_pqSpinBox->decimals());
    const gkBase::NiceStep oStep = gkBase::niceStep(m_dMin, m_dMax, m_pqSlider->maximum());
    const double dStep = m_dSingleStep > 0.0 ? m_dSingleStep : oStep.isValid() ? oStep.value() : dFinest;
    m_pqSpinBox->setSingleStep(std::max(dStep, dFinest));
}
