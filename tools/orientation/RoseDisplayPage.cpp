#include "RoseDisplayPage.h"

#include "ChartDisplayPage.h"
#include "ChartPanelControls.h"
#include "QIntSpinBoxWithSlider.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QSignalBlocker>

#include <algorithm>

namespace gkBase {

RoseDisplayPage::RoseDisplayPage(ChartDisplayPage* pqDisplayPage, QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqAnglesBtn(new QRadioButton(tr("Angles")))
    , m_pqDirectionsBtn(new QRadioButton(tr("Directions")))
    , m_pqAnnotationOffBtn(new QRadioButton(tr("Off")))
    , m_pqDistanceSpinBox(new QIntSpinBoxWithSlider(0, 100, 100))
    , m_pqCirclesCheckBox(
          newCheckBox(tr("Circles"), tr("Circles of equal count, and a line every 30 degrees"), "m_pqCirclesCheckBox"))
    , m_pqTickMarksCheckBox(newCheckBox(tr("Tick Marks"),
                                        tr("Axes to north, east, south and west with a mark at every "
                                           "step of the scale"),
                                        "m_pqTickMarksCheckBox"))
    , m_pqScalingOffCheckBox(newCheckBox(tr("Off"), tr("Neither circles nor tick marks"), "m_pqScalingOffCheckBox"))
    , m_pqCircleFrameCheckBox(
          newCheckBox(tr("Circle Frame"), tr("The circle around the rose"), "m_pqCircleFrameCheckBox"))
    , m_pqZeroCircleSpinBox(new QIntSpinBoxWithSlider(0, 100, 100))
{
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(createAnnotationGroup());
    pqLayout->addWidget(createScalingGroup());
    pqDisplayPage->layout()->setContentsMargins(0, 0, 0, 0);
    pqLayout->addWidget(pqDisplayPage, 1);
    setSettings({});

    using Page = RoseDisplayPage;
    for (QRadioButton* pqBtn : {m_pqAnglesBtn, m_pqDirectionsBtn, m_pqAnnotationOffBtn})
        connect(pqBtn, &QRadioButton::clicked, this, &Page::looksChanged);
    for (QCheckBox* pqBox : {m_pqCirclesCheckBox, m_pqTickMarksCheckBox, m_pqCircleFrameCheckBox})
        connect(pqBox, &QCheckBox::clicked, this, &Page::looksChanged);
    connect(m_pqScalingOffCheckBox, &QCheckBox::clicked, this, [this] {
        enableControls();
        emit looksChanged();
    });
    connect(m_pqDistanceSpinBox, &QIntSpinBoxWithSlider::valueChanged, this, &Page::looksChanged);
    connect(m_pqZeroCircleSpinBox, &QIntSpinBoxWithSlider::valueChanged, this, &Page::looksChanged);
}

QGroupBox* RoseDisplayPage::createAnnotationGroup()
{
    m_pqAnglesBtn->setToolTip(tr("Azimuths in degrees around the rose"));
    m_pqDirectionsBtn->setToolTip(tr("Compass directions around the rose"));
    m_pqAnnotationOffBtn->setToolTip(tr("No labels around the rose"));
    m_pqAnglesBtn->setObjectName(QStringLiteral("m_pqAnglesBtn"));
    m_pqDirectionsBtn->setObjectName(QStringLiteral("m_pqDirectionsBtn"));
    m_pqAnnotationOffBtn->setObjectName(QStringLiteral("m_pqAnnotationOffBtn"));
    m_pqAnnotationOffBtn->setAccessibleName(tr("Annotation Off"));
    auto* pqGroup = new QGroupBox(tr("Annotation"));
    auto* pqLayout = new QHBoxLayout(pqGroup);
    for (QRadioButton* pqBtn : {m_pqAnglesBtn, m_pqDirectionsBtn, m_pqAnnotationOffBtn})
        pqLayout->addWidget(pqBtn);
    return pqGroup;
}

QGroupBox* RoseDisplayPage::createScalingGroup()
{
    m_pqDistanceSpinBox->setObjectName(QStringLiteral("m_pqGridCircleDistanceSpinBox"));
    m_pqDistanceSpinBox->setControlName(tr("Interval Size of the Scale"));
    m_pqDistanceSpinBox->setToolTip(tr("Counts from one circle or tick mark to the next; 0 for none"));
    m_pqScalingOffCheckBox->setAccessibleName(tr("Scaling Off"));
    m_pqZeroCircleSpinBox->setObjectName(QStringLiteral("m_pqZeroCircleSpinBox"));
    m_pqZeroCircleSpinBox->setControlName(tr("Zero Circle Size"));
    m_pqZeroCircleSpinBox->setSuffix(tr(" %"));
    m_pqZeroCircleSpinBox->setToolTip(tr("Radius at which petals and circles begin, in per cent of that of the rose"));
    auto* pqGroup = new QGroupBox(tr("Scaling"));
    auto* pqForm = new QFormLayout(pqGroup);
    auto* pqBoxes = new QHBoxLayout;
    for (QCheckBox* pqBox : {m_pqCirclesCheckBox, m_pqTickMarksCheckBox, m_pqScalingOffCheckBox})
        pqBoxes->addWidget(pqBox);
    pqForm->addRow(pqBoxes);
    pqForm->addRow(tr("Interval Size"), m_pqDistanceSpinBox);
    pqForm->addRow(m_pqCircleFrameCheckBox);
    pqForm->addRow(tr("Zero Circle Size"), m_pqZeroCircleSpinBox);
    return pqGroup;
}

void RoseDisplayPage::enableControls()
{
    const bool bOn = !m_pqScalingOffCheckBox->isChecked();
    m_pqCirclesCheckBox->setEnabled(bOn);
    m_pqTickMarksCheckBox->setEnabled(bOn);
    m_pqDistanceSpinBox->setEnabled(bOn);
}

void RoseDisplayPage::writeTo(RoseChartSettings& settings) const
{
    settings.m_eAnnotation = m_pqAnglesBtn->isChecked()       ? RoseChartSettings::Annotation::Angles
                             : m_pqDirectionsBtn->isChecked() ? RoseChartSettings::Annotation::Directions
                                                              : RoseChartSettings::Annotation::Off;
    settings.m_iGridCircleDistance = m_pqDistanceSpinBox->getValue();
    settings.m_bCircles = m_pqCirclesCheckBox->isChecked();
    settings.m_bTickMarks = m_pqTickMarksCheckBox->isChecked();
    settings.m_bScalingOff = m_pqScalingOffCheckBox->isChecked();
    settings.m_bCircleFrame = m_pqCircleFrameCheckBox->isChecked();
    settings.m_iZeroCircleSize = m_pqZeroCircleSpinBox->getValue();
}

void RoseDisplayPage::setSettings(const RoseChartSettings& settings)
{
    const QSignalBlocker zeroBlocker(m_pqZeroCircleSpinBox);
    m_pqAnglesBtn->setChecked(settings.m_eAnnotation == RoseChartSettings::Annotation::Angles);
    m_pqDirectionsBtn->setChecked(settings.m_eAnnotation == RoseChartSettings::Annotation::Directions);
    m_pqAnnotationOffBtn->setChecked(settings.m_eAnnotation == RoseChartSettings::Annotation::Off);
    setGridCircleDistance(settings.m_iGridCircleDistance, m_pqDistanceSpinBox->maximum());
    m_pqCirclesCheckBox->setChecked(settings.m_bCircles);
    m_pqTickMarksCheckBox->setChecked(settings.m_bTickMarks);
    m_pqScalingOffCheckBox->setChecked(settings.m_bScalingOff);
    m_pqCircleFrameCheckBox->setChecked(settings.m_bCircleFrame);
    m_pqZeroCircleSpinBox->setValue(settings.m_iZeroCircleSize);
    enableControls();
}

void RoseDisplayPage::setGridCircleDistance(int iDistance, int iMaximum)
{
    const QSignalBlocker blocker(m_pqDistanceSpinBox);
    const int iLargest = std::max({1, iDistance, iMaximum});
    m_pqDistanceSpinBox->initialise(0, iLargest, iLargest);
    m_pqDistanceSpinBox->setValue(iDistance);
}

} // namespace gkBase
