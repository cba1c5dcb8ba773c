#include "CrossPlotAxesPage.h"

#include "QUnitLineEdit.h"

#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace gkBase {

namespace {

/// What an axis shows when the user asks for these ends; the known ends when they leave no axis.
void takeEnds(double& dMin, double& dMax, double dKnownMin, double dKnownMax)
{
    if (isMissing(dMin))
        dMin = dKnownMin;
    if (isMissing(dMax))
        dMax = dKnownMax;
    if (dMin > dMax)
        std::swap(dMin, dMax);
    if (!(dMin < dMax)) {
        dMin = dKnownMin;
        dMax = dKnownMax;
    }
}

} // namespace

CrossPlotAxesPage::CrossPlotAxesPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqXMinEdit(newEdit(tr("x from"), QStringLiteral("m_pqXMinEdit")))
    , m_pqXMaxEdit(newEdit(tr("x to"), QStringLiteral("m_pqXMaxEdit")))
    , m_pqYMinEdit(newEdit(tr("y from"), QStringLiteral("m_pqYMinEdit")))
    , m_pqYMaxEdit(newEdit(tr("y to"), QStringLiteral("m_pqYMaxEdit")))
    , m_pqAutomaticBtn(new QPushButton(tr("Reset Limits")))
{
    m_pqAutomaticBtn->setObjectName(QStringLiteral("m_pqAutomaticLimitsBtn"));
    m_pqAutomaticBtn->setToolTip(tr("Let the axes show all points"));
    auto* pqLayout = new QVBoxLayout(this);
    auto* pqForm = new QFormLayout;
    for (QUnitLineEdit* pqEdit : {m_pqXMinEdit, m_pqXMaxEdit, m_pqYMinEdit, m_pqYMaxEdit})
        pqForm->addRow(pqEdit->accessibleName(), pqEdit);
    pqLayout->addLayout(pqForm);
    pqLayout->addWidget(m_pqAutomaticBtn);
    pqLayout->addStretch(1);
    connect(m_pqAutomaticBtn, &QPushButton::clicked, this, &CrossPlotAxesPage::automaticLimitsWanted);
}

QUnitLineEdit* CrossPlotAxesPage::newEdit(const QString& sName, const QString& sObjectName)
{
    auto* pqEdit = new QUnitLineEdit;
    pqEdit->setAccessibleName(sName);
    pqEdit->setObjectName(sObjectName);
    pqEdit->setToolTip(tr("End of the axis in the attribute's display unit"));
    connect(pqEdit, &QUnitLineEdit::modelValueChanged, this, &CrossPlotAxesPage::slotEdited);
    return pqEdit;
}

void CrossPlotAxesPage::setUnits(const boost::shared_ptr<UnitManager>& poX, const boost::shared_ptr<UnitManager>& poY)
{
    m_pqXMinEdit->unitManager(poX);
    m_pqXMaxEdit->unitManager(poX);
    m_pqYMinEdit->unitManager(poY);
    m_pqYMaxEdit->unitManager(poY);
}

void CrossPlotAxesPage::setLimits(const CrossPlotLimits& shown, bool bAutomatic)
{
    m_oShown = shown;
    m_pqXMinEdit->setModelValue(shown.m_dXMin, false);
    m_pqXMaxEdit->setModelValue(shown.m_dXMax, false);
    m_pqYMinEdit->setModelValue(shown.m_dYMin, false);
    m_pqYMaxEdit->setModelValue(shown.m_dYMax, false);
    m_pqAutomaticBtn->setEnabled(!bAutomatic);
}

void CrossPlotAxesPage::slotEdited()
{
    CrossPlotLimits wanted{m_pqXMinEdit->modelValue(), m_pqXMaxEdit->modelValue(), m_pqYMinEdit->modelValue(),
                           m_pqYMaxEdit->modelValue()};
    takeEnds(wanted.m_dXMin, wanted.m_dXMax, m_oShown.m_dXMin, m_oShown.m_dXMax);
    takeEnds(wanted.m_dYMin, wanted.m_dYMax, m_oShown.m_dYMin, m_oShown.m_dYMax);
    if (wanted == m_oShown)
        setLimits(m_oShown, !m_pqAutomaticBtn->isEnabled());
    else
        emit limitsEdited(wanted);
}

} // namespace gkBase
