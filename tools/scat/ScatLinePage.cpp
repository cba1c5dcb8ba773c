#include "ScatLinePage.h"

#include "ChartPanelControls.h"
#include "QIntSpinBoxWithSlider.h"
#include "ScatMixedControls.h"
#include "ScatSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace gkBase {

ScatLinePage::ScatLinePage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqDomainsComboBox(
          newChooser(tr("Domains"), tr("The lines between which domains are coloured"), QStringLiteral("m_pqDomains")))
    , m_pqTransparencySpinBox(new QIntSpinBoxWithSlider(0, 100, 100))
{
    using Settings = ScatTrackSettings;
    auto* pqSwitches = new QGridLayout;
    const auto addRow = [&](const QString& sText, const QString& sToolTip, const char* pName, bool Settings::*pbShow,
                            const char* pLabelName, bool Settings::*pbLabels) {
        const int iRow = pqSwitches->rowCount();
        pqSwitches->addWidget(newSwitch(sText, sToolTip, pName, pbShow), iRow, 0);
        QCheckBox* pqLabels = newSwitch(tr("Labels"), tr("Their names"), pLabelName, pbLabels);
        pqLabels->setAccessibleName(tr("%1: Labels").arg(sText));
        pqSwitches->addWidget(pqLabels, iRow, 1);
    };
    addRow(tr("Structural Planes"), tr("Crestal, axial and inflection planes"), "m_pqShowStructuralPlanes",
           &Settings::m_bStructuralPlanes, "m_pqShowStructuralPlaneLabels", &Settings::m_bStructuralPlaneLabels);
    addRow(tr("Horizons"), tr("Beds"), "m_pqShowHorizons", &Settings::m_bHorizons, "m_pqShowHorizonLabels",
           &Settings::m_bHorizonLabels);
    addRow(tr("Faults"), tr("Faults"), "m_pqShowFaults", &Settings::m_bFaults, "m_pqShowFaultLabels",
           &Settings::m_bFaultLabels);
    addRow(tr("Average Orientations"), tr("The orientations that were given to lines"), "m_pqShowAverageOrientations",
           &Settings::m_bAverageOrientations, "m_pqShowAverageOrientationLabels",
           &Settings::m_bAverageOrientationLabels);

    m_pqDomainsComboBox->addItem(tr("None"), DepthLineField::NoDomains);
    m_pqDomainsComboBox->addItem(tr("Between Structural Planes"), DepthLineField::StructuralPlaneDomains);
    m_pqDomainsComboBox->addItem(tr("Between Horizons"), DepthLineField::HorizonDomains);
    m_pqDomainsComboBox->addItem(tr("Between all Lines"), DepthLineField::AllLineDomains);
    m_pqTransparencySpinBox->setObjectName(QStringLiteral("m_pqDomainTransparency"));
    m_pqTransparencySpinBox->setControlName(tr("Transparency"));
    m_pqTransparencySpinBox->setToolTip(tr("0 hides the grid under the domains, 100 hides the domains"));
    m_pqTransparencySpinBox->setSuffix(tr(" %"));
    auto* pqDomains = new QGroupBox(tr("Structural Domains"));
    auto* pqForm = new QFormLayout(pqDomains);
    pqForm->addRow(tr("Domains"), m_pqDomainsComboBox);
    pqForm->addRow(tr("Transparency"), m_pqTransparencySpinBox);

    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addLayout(pqSwitches);
    pqLayout->addWidget(pqDomains);
    pqLayout->addStretch(1);
    setSettings({ScatTrackSettings()});
    for (const Switch& oSwitch : m_vSwitches)
        connect(oSwitch.m_pqBox, &QCheckBox::stateChanged, this, &ScatLinePage::edited);
    connect(m_pqDomainsComboBox, &QComboBox::activated, this, &ScatLinePage::edited);
    connect(m_pqTransparencySpinBox, &QIntSpinBoxWithSlider::valueChanged, this, &ScatLinePage::transparencyEdited);
}

QCheckBox* ScatLinePage::newSwitch(const QString& sText, const QString& sToolTip, const char* pObjectName,
                                   bool ScatTrackSettings::*pbFlag)
{
    QCheckBox* pqSwitch = newCheckBox(sText, sToolTip, pObjectName);
    m_vSwitches.push_back({pqSwitch, pbFlag, Qt::Unchecked});
    return pqSwitch;
}

void ScatLinePage::writeTo(ScatTrackSettings& settings) const
{
    for (const auto& [pqBox, pbFlag, eShown] : m_vSwitches) {
        if (pqBox->checkState() != eShown)
            settings.*pbFlag = pqBox->isChecked();
    }
    if (m_pqDomainsComboBox->currentIndex() != m_iShownDomains)
        settings.m_eDomains = static_cast<DepthLineField::DomainType>(m_pqDomainsComboBox->currentData().toInt());
}

void ScatLinePage::setSettings(const std::vector<ScatTrackSettings>& vSettings)
{
    const QSignalBlocker blocker(this);
    const ScatTrackSettings& first = vSettings.front();
    const auto common = [&](auto ScatTrackSettings::*pMember) {
        return std::all_of(vSettings.begin(), vSettings.end(),
                           [&](const ScatTrackSettings& settings) { return settings.*pMember == first.*pMember; });
    };
    for (Switch& oSwitch : m_vSwitches)
        oSwitch.m_eShown = showSwitch(*oSwitch.m_pqBox, common(oSwitch.m_pbFlag), first.*oSwitch.m_pbFlag);
    showChoice(*m_pqDomainsComboBox, common(&ScatTrackSettings::m_eDomains),
               m_pqDomainsComboBox->findData(first.m_eDomains));
    m_iShownDomains = m_pqDomainsComboBox->currentIndex();
    m_pqTransparencySpinBox->setValue(first.m_iTransparency);
}

} // namespace gkBase
