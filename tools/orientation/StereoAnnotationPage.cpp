#include "StereoAnnotationPage.h"

#include "ChartPanelControls.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QRadioButton>

namespace gkBase {

StereoAnnotationPage::StereoAnnotationPage(QWidget* pqParent)
    : QGroupBox(pqParent)
    , m_pqAnglesBtn(new QRadioButton(tr("Angles")))
    , m_pqDirectionsBtn(new QRadioButton(tr("Directions")))
    , m_pqOffBtn(new QRadioButton(tr("Off")))
    , m_pqCircleFrameCheckBox(
          newCheckBox(tr("Circle Frame"), tr("The circle around the net"), "m_pqCircleFrameCheckBox"))
    , m_pqHemisphereCheckBox(newCheckBox(tr("Hemisphere"), tr("Projection and hemisphere in the lower left corner"),
                                         "m_pqHemisphereCheckBox"))
{
    setTitle(tr("Annotation"));
    m_pqAnglesBtn->setToolTip(tr("Azimuths in degrees around the net"));
    m_pqDirectionsBtn->setToolTip(tr("Compass directions around the net"));
    m_pqOffBtn->setToolTip(tr("No labels around the net"));
    m_pqAnglesBtn->setObjectName(QStringLiteral("m_pqAnglesBtn"));
    m_pqDirectionsBtn->setObjectName(QStringLiteral("m_pqDirectionsBtn"));
    m_pqOffBtn->setObjectName(QStringLiteral("m_pqAnnotationOffBtn"));
    m_pqOffBtn->setAccessibleName(tr("Annotation Off"));
    auto* pqLayout = new QGridLayout(this);
    pqLayout->addWidget(m_pqAnglesBtn, 0, 0);
    pqLayout->addWidget(m_pqDirectionsBtn, 0, 1);
    pqLayout->addWidget(m_pqOffBtn, 0, 2);
    pqLayout->addWidget(m_pqCircleFrameCheckBox, 1, 0, 1, 3);
    pqLayout->addWidget(m_pqHemisphereCheckBox, 2, 0, 1, 3);
    setSettings({});

    for (QRadioButton* pqBtn : {m_pqAnglesBtn, m_pqDirectionsBtn, m_pqOffBtn})
        connect(pqBtn, &QRadioButton::clicked, this, &StereoAnnotationPage::changed);
    for (QCheckBox* pqBox : {m_pqCircleFrameCheckBox, m_pqHemisphereCheckBox})
        connect(pqBox, &QCheckBox::clicked, this, &StereoAnnotationPage::changed);
}

void StereoAnnotationPage::writeTo(StereoNetSettings& net) const
{
    net.m_bAnglesAtRim = m_pqAnglesBtn->isChecked();
    net.m_bDirectionsAtRim = m_pqDirectionsBtn->isChecked();
    net.m_bCircleFrame = m_pqCircleFrameCheckBox->isChecked();
    net.m_bHemisphereLabel = m_pqHemisphereCheckBox->isChecked();
}

void StereoAnnotationPage::setSettings(const StereoNetSettings& net)
{
    // Radio buttons: one of them is always on, the angles where both are asked for.
    QRadioButton* pqBtn = net.m_bAnglesAtRim ? m_pqAnglesBtn : net.m_bDirectionsAtRim ? m_pqDirectionsBtn : m_pqOffBtn;
    pqBtn->setChecked(true);
    m_pqCircleFrameCheckBox->setChecked(net.m_bCircleFrame);
    m_pqHemisphereCheckBox->setChecked(net.m_bHemisphereLabel);
}

} // namespace gkBase
