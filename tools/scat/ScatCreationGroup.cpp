#include "ScatCreationGroup.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QRadioButton>

#include <algorithm>
#include <numeric>
#include <vector>

namespace gkBase {

namespace {

constexpr int g_iNone = -1;
constexpr int g_iMostColumns = 3;
constexpr int g_iWidth = 360; ///< that the buttons may take, so that large letters do not cost the tracks theirs

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
    for (const Choice& choice : aChoices) {
        auto* pqButton = new QRadioButton(choice.m_sText);
        pqButton->setToolTip(choice.m_sToolTip);
        pqButton->setObjectName(QLatin1String(choice.m_pObjectName));
        // Identifiers of the group begin at 0: −1 makes it give one of its own.
        m_pqTypes->addButton(pqButton, choice.m_iType + 1);
        connect(pqButton, &QRadioButton::clicked, this, &ScatCreationGroup::typeChosen);
    }
    m_pqTypes->button(g_iNone + 1)->setChecked(true);
    layOut();
}

void ScatCreationGroup::layOut()
{
    const QList<QAbstractButton*> lpqButtons = m_pqTypes->buttons();
    auto* pqGrid = new QGridLayout(this);
    const auto width = [&](int iColumns) {
        std::vector<int> viWidths(static_cast<std::size_t>(iColumns));
        for (int i = 0; i < lpqButtons.size(); ++i) {
            int& iWidth = viWidths[static_cast<std::size_t>(i % iColumns)];
            iWidth = std::max(iWidth, lpqButtons[i]->sizeHint().width());
        }
        return std::accumulate(viWidths.begin(), viWidths.end(), (iColumns - 1) * pqGrid->horizontalSpacing());
    };
    const int iColumns = width(g_iMostColumns) <= g_iWidth ? g_iMostColumns : g_iMostColumns - 1;
    for (int i = 0; i < lpqButtons.size(); ++i)
        pqGrid->addWidget(lpqButtons[i], i / iColumns, i % iColumns);
}

std::optional<DepthLineField::DataType> ScatCreationGroup::type() const
{
    const int iType = m_pqTypes->checkedId() - 1;
    return iType == g_iNone ? std::nullopt : std::optional(static_cast<DepthLineField::DataType>(iType));
}

} // namespace gkBase
