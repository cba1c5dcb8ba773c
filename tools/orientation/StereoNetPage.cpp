#include "StereoNetPage.h"

#include "ChartPanelControls.h"
#include "ColorButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>

namespace gkBase {

StereoNetPage::StereoNetPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqForm(new QFormLayout(this))
    , m_pqProjectionComboBox(newChooser(
          tr("Projection"), tr("Equal area for densities, equal angle for constructions; both of the lower hemisphere"),
          QStringLiteral("m_pqProjectionComboBox")))
    , m_pqPlanesAsComboBox(newChooser(tr("Planes As"),
                                      tr("Planes are points where their poles, or their dip lines, "
                                         "pierce the lower hemisphere"),
                                      QStringLiteral("m_pqPlanesAsComboBox")))
    , m_pqGreatCirclesCheckBox(
          newCheckBox(tr("Great Circles"), tr("Draw every plane as a great circle"), "m_pqGreatCirclesCheckBox"))
    , m_pqCoarseNetCheckBox(
          newCheckBox(tr("Coarse Net"), tr("Great and small circles every 10 degrees"), "m_pqCoarseNetCheckBox"))
    , m_pqFineNetCheckBox(
          newCheckBox(tr("Fine Net"), tr("Great and small circles every 2 degrees"), "m_pqFineNetCheckBox"))
    , m_pqFineNetColorBtn(new ColorButton(tr("Color of the Fine Net"), tr("Color of the fine net")))
{
    m_pqProjectionComboBox->addItem(tr("Equal Area (Schmidt)"), true);
    m_pqProjectionComboBox->addItem(tr("Equal Angle (Wulff)"), false);
    m_pqPlanesAsComboBox->addItems({tr("Poles"), tr("Dip Lines")});
    m_pqFineNetColorBtn->setObjectName(QStringLiteral("m_pqFineNetColorBtn"));
    auto* pqFineNet = new QHBoxLayout;
    pqFineNet->addWidget(m_pqFineNetCheckBox, 1);
    pqFineNet->addWidget(m_pqFineNetColorBtn);
    m_pqForm->addRow(tr("Projection"), m_pqProjectionComboBox);
    m_pqForm->addRow(tr("Planes As"), m_pqPlanesAsComboBox);
    m_pqForm->addRow(m_pqGreatCirclesCheckBox);
    m_pqForm->addRow(m_pqCoarseNetCheckBox);
    m_pqForm->addRow(pqFineNet);
    setSettings({});

    for (QComboBox* pqBox : {m_pqProjectionComboBox, m_pqPlanesAsComboBox})
        connect(pqBox, &QComboBox::activated, this, &StereoNetPage::changed);
    for (QCheckBox* pqBox : {m_pqGreatCirclesCheckBox, m_pqCoarseNetCheckBox, m_pqFineNetCheckBox})
        connect(pqBox, &QCheckBox::clicked, this, &StereoNetPage::changed);
    connect(m_pqFineNetColorBtn, &ColorButton::colorPicked, this, &StereoNetPage::changed);
}

void StereoNetPage::writeTo(StereoNetSettings& net) const
{
    net.m_bEqualArea = m_pqProjectionComboBox->currentIndex() == 0;
    net.m_iProjectionTarget = m_pqPlanesAsComboBox->currentIndex();
    net.m_bGreatCircles = m_pqGreatCirclesCheckBox->isChecked();
    net.m_bCoarseNet = m_pqCoarseNetCheckBox->isChecked();
    net.m_bFineNet = m_pqFineNetCheckBox->isChecked();
    net.m_oFineNetColor = m_pqFineNetColorBtn->color();
}

void StereoNetPage::setSettings(const StereoNetSettings& net)
{
    m_pqProjectionComboBox->setCurrentIndex(net.m_bEqualArea ? 0 : 1);
    m_pqPlanesAsComboBox->setCurrentIndex(net.m_iProjectionTarget);
    m_pqGreatCirclesCheckBox->setChecked(net.m_bGreatCircles);
    m_pqCoarseNetCheckBox->setChecked(net.m_bCoarseNet);
    m_pqFineNetCheckBox->setChecked(net.m_bFineNet);
    m_pqFineNetColorBtn->setColor(net.m_oFineNetColor);
}

void StereoNetPage::setPlanes(bool bPlanes)
{
    m_pqPlanesAsComboBox->setEnabled(bPlanes);
    m_pqGreatCirclesCheckBox->setEnabled(bPlanes);
}

void StereoNetPage::hideProjection()
{
    m_pqProjectionComboBox->hide();
    m_pqForm->labelForField(m_pqProjectionComboBox)->hide();
}

} // namespace gkBase
