#include "ScatCreationGroup.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QRadioButton>

namespace gkBase {

namespace {

constexpr int g_iNone = -1;
constexpr int g_iColumns = 3;

} // namespace

ScatCreationGroup::ScatCreationGroup(QWidget* pqParent)
    : QGroupBox(tr("A Click Creates"), pqParent)
    , m_pqTypes(new QButtonGroup(this))
{
    struct Choice
    {
        int m_iType;
        QString m_sText;
        QString m_sToolTip;
        const char* m_pObjectName;
    };
    const Choice aChoices[] = {
        {g_iNone, tr("None"), tr("The mouse selects records"), "m_pqNoneBtn"},
        {DepthLineField::CrestalPlane, tr("Crestal Plane"), tr("Where the transverse dip changes its sign"),
         "m_pqCrestalPlaneBtn"},
        {DepthLineField::AxialPlane, tr("Axial Plane"), tr("Where the curvature of the fold is greatest"),
         "m_pqAxialPlaneBtn"},
        {DepthLineField::InflectionPlane, tr("Inflection Plane"), tr("Where the transverse dip is steepest"),
         "m_pqInflectionPlaneBtn"},
        {DepthLineField::Horizon, tr("Horizon"), tr("A bed"), "m_pqHorizonBtn"},
        {DepthLineField::Fault, tr("Fault"), tr("A fault"), "m_pqFaultBtn"},
    };
    auto* pqGrid = new QGridLayout(this);
    int iPlace = 0;
    for (const Choice& choice : aChoices) {
        auto* pqButton = new QRadioButton(choice.m_sText);
        pqButton->setToolTip(choice.m_sToolTip);
        pqButton->setObjectName(QLatin1String(choice.m_pObjectName));
        // Identifiers of the group begin at 0: −1 makes it give one of its own.
        m_pqTypes->addButton(pqButton, choice.m_iType + 1);
        pqGrid->addWidget(pqButton, iPlace / g_iColumns, iPlace % g_iColumns);
        ++iPlace;
        connect(pqButton, &QRadioButton::clicked, this, &ScatCreationGroup::typeChosen);
    }
    m_pqTypes->button(g_iNone + 1)->setChecked(true);
}

std::optional<DepthLineField::DataType> ScatCreationGroup::type() const
{
    const int iType = m_pqTypes->checkedId() - 1;
    return iType == g_iNone ? std::nullopt : std::optional(static_cast<DepthLineField::DataType>(iType));
}

} // namespace gkBase
