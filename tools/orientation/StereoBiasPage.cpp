#include "StereoBiasPage.h"

#include "BiasWeights.h"
#include "ChartPanelControls.h"
#include "QDoubleSpinBoxWithSlider.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace gkBase {

StereoBiasPage::StereoBiasPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqWeightsCheckBox(newCheckBox(tr("Weigh Statistics and Contours"),
                                      tr("Planes that a scan line misses because they run along it count for more"),
                                      "m_pqBiasWeightsCheckBox"))
    , m_pqEffectiveLabel(newValueLabel(tr("Effective Number of Records")))
    , m_pqLinesLabel(new QLabel(tr("These records are lines. A scan line misses planes that run along it; lines have "
                                   "no such bias and get no weights.")))
    , m_pqApplyBtn(new QPushButton(tr("Apply")))
{
    auto* pqForm = new QFormLayout;
    m_pqPlungeSpinBox = newAngleSpinBox(*pqForm, tr("Plunge"), tr("Plunge of the scan line or well, 0 to 90 degrees"),
                                        0.0, 90.0, "m_pqScanPlungeSpinBox");
    m_pqAzimuthSpinBox =
        newAngleSpinBox(*pqForm, tr("Azimuth"), tr("Azimuth of the scan line or well, degrees clockwise from north"),
                        0.0, 360.0, "m_pqScanAzimuthSpinBox");
    m_pqLimitAngleSpinBox = newAngleSpinBox(
        *pqForm, tr("Limit Angle"), tr("Poles at a larger angle to the scan line, in degrees, get no larger weight"),
        0.0, ScanLine::s_dLargestLimitAngle, "m_pqLimitAngleSpinBox");
    pqForm->addRow(m_pqWeightsCheckBox);
    pqForm->addRow(tr("Effective Number"), m_pqEffectiveLabel);
    m_pqEffectiveLabel->setObjectName(QStringLiteral("m_pqEffectiveNumberLabel"));
    m_pqApplyBtn->setObjectName(QStringLiteral("m_pqApplyBiasBtn"));
    m_pqApplyBtn->setToolTip(tr("Write the weight of each record as the attribute \"Bias Weights\""));
    m_pqLinesLabel->setObjectName(QStringLiteral("m_pqNoWeightsLabel"));
    m_pqLinesLabel->setWordWrap(true);
    m_pqLinesLabel->hide();
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(m_pqLinesLabel);
    pqLayout->addLayout(pqForm);
    pqLayout->addWidget(m_pqApplyBtn);
    pqLayout->addStretch(1);
    setSettings({});
    showEffectiveCount(0, 0.0);

    connect(m_pqWeightsCheckBox, &QCheckBox::clicked, this, &StereoBiasPage::weightsToggled);
    for (QDoubleSpinBoxWithSlider* pqBox : {m_pqPlungeSpinBox, m_pqAzimuthSpinBox, m_pqLimitAngleSpinBox})
        connect(pqBox, &QDoubleSpinBoxWithSlider::valueChanged, this, [this] {
            if (weightsAreOn())
                emit scanLineChanged();
        });
    connect(m_pqApplyBtn, &QPushButton::clicked, this, &StereoBiasPage::attributeWanted);
}

void StereoBiasPage::setLines(bool bLines)
{
    m_bLines = bLines;
    m_pqLinesLabel->setVisible(bLines);
    m_pqWeightsCheckBox->setEnabled(!bLines);
    for (QDoubleSpinBoxWithSlider* pqBox : {m_pqPlungeSpinBox, m_pqAzimuthSpinBox, m_pqLimitAngleSpinBox})
        pqBox->setEnabled(!bLines);
}

double StereoBiasPage::plunge() const
{
    return m_pqPlungeSpinBox->getValue();
}

double StereoBiasPage::azimuth() const
{
    return m_pqAzimuthSpinBox->getValue();
}

double StereoBiasPage::limitAngle() const
{
    return m_pqLimitAngleSpinBox->getValue();
}

bool StereoBiasPage::weightsAreOn() const
{
    return m_pqWeightsCheckBox->isChecked();
}

void StereoBiasPage::writeTo(StereoChartSettings& settings) const
{
    settings.m_bWeights = weightsAreOn();
    settings.m_dScanPlunge = plunge();
    settings.m_dScanAzimuth = azimuth();
    settings.m_dLimitAngle = limitAngle();
}

void StereoBiasPage::setSettings(const StereoChartSettings& settings)
{
    const QSignalBlocker plungeBlocker(m_pqPlungeSpinBox);
    const QSignalBlocker azimuthBlocker(m_pqAzimuthSpinBox);
    const QSignalBlocker limitBlocker(m_pqLimitAngleSpinBox);
    m_pqWeightsCheckBox->setChecked(settings.m_bWeights);
    m_pqPlungeSpinBox->setValue(settings.m_dScanPlunge);
    m_pqAzimuthSpinBox->setValue(settings.m_dScanAzimuth);
    m_pqLimitAngleSpinBox->setValue(settings.m_dLimitAngle);
}

void StereoBiasPage::showEffectiveCount(std::size_t iRecords, double dEffective)
{
    m_pqApplyBtn->setEnabled(iRecords > 0 && !m_bLines);
    if (!weightsAreOn() || iRecords == 0 || m_bLines) {
        m_pqEffectiveLabel->setText(undefinedText());
        m_pqEffectiveLabel->setToolTip(iRecords == 0 ? tr("There are no records")
                                       : m_bLines    ? tr("Lines get no weights")
                                                     : tr("All records count alike while they are not weighed"));
        return;
    }
    m_pqEffectiveLabel->setText(tr("%1 of %2").arg(dEffective, 0, 'f', 1).arg(iRecords));
    m_pqEffectiveLabel->setToolTip(
        tr("The number of equally weighted records that are worth as much as the weighted ones"));
}

} // namespace gkBase
