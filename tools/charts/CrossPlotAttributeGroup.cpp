#include "CrossPlotAttributeGroup.h"

#include "MatrixData.h"

#include <QFormLayout>
#include <QPushButton>

namespace gkBase {

CrossPlotAttributeGroup::CrossPlotAttributeGroup(AttributeChooser* pqThirdChooser, QWidget* pqParent)
    : QGroupBox(pqParent)
{
    setTitle(tr("Attributes"));
    auto* pqForm = new QFormLayout(this);
    const auto addChooser = [&](CrossPlotRole eRole, const char* pObjectName, const QString& sName,
                                const QString& sToolTip) {
        AttributeChooser* pqChooser = newChooser(eRole, sName, sToolTip);
        pqChooser->setObjectName(QLatin1String(pObjectName));
        pqForm->addRow(sName, pqChooser);
    };
    addChooser(CrossPlotRole::X, "m_pqXChooser", tr("x"), tr("The attribute along the horizontal axis"));
    addChooser(CrossPlotRole::Y, "m_pqYChooser", tr("y"), tr("The attribute along the vertical axis"));
    auto* pqSwapBtn = new QPushButton(tr("Swap Axes"));
    pqSwapBtn->setObjectName(QStringLiteral("m_pqSwapAxesBtn"));
    pqSwapBtn->setToolTip(tr("Show x along the vertical axis and y along the horizontal one"));
    connect(pqSwapBtn, &QPushButton::clicked, this, &CrossPlotAttributeGroup::swapWanted);
    pqForm->addRow(QString(), pqSwapBtn);
    addChooser(CrossPlotRole::Color, "m_pqColorChooser", tr("Color"),
               tr("The attribute whose values colour the points"));
    addChooser(CrossPlotRole::Symbol, "m_pqSymbolChooser", tr("Symbol"),
               tr("The attribute whose values choose the points' symbols"));
    addChooser(CrossPlotRole::TadPole, "m_pqTadPoleChooser", tr("Tadpole"),
               tr("The azimuth that is drawn as a tail on each point"));
    m_vpChoosers[static_cast<std::size_t>(CrossPlotRole::Third)] = pqThirdChooser;
    connect(pqThirdChooser, &AttributeChooser::attributeChosen, this,
            [this](int iGlobalID) { emit attributeChosen(CrossPlotRole::Third, iGlobalID); });
}

AttributeChooser* CrossPlotAttributeGroup::newChooser(CrossPlotRole eRole, const QString& sName,
                                                      const QString& sToolTip)
{
    const bool bOptional = eRole != CrossPlotRole::X && eRole != CrossPlotRole::Y;
    auto* pqChooser = new AttributeChooser(tr("Attribute: %1").arg(sName), bOptional);
    pqChooser->setToolTip(sToolTip);
    connect(pqChooser, &AttributeChooser::attributeChosen, this,
            [this, eRole](int iGlobalID) { emit attributeChosen(eRole, iGlobalID); });
    m_vpChoosers[static_cast<std::size_t>(eRole)] = pqChooser;
    return pqChooser;
}

void CrossPlotAttributeGroup::setEntries(const std::vector<AttributeEntry>& vEntries, int iRecords)
{
    const auto fits = [iRecords](const AttributeEntry& entry) { return iRecords < 0 || entry.m_iRecords == iRecords; };
    const auto isNumber = [](const AttributeEntry& entry) { return isNumericAttribute(entry.m_poNode); };
    const auto isFittingNumber = [&](const AttributeEntry& entry) { return fits(entry) && isNumber(entry); };
    // x decides how many records the points have, so that another data set can be reached at all.
    chooser(CrossPlotRole::X)->setEntries(vEntries, isNumber);
    chooser(CrossPlotRole::Y)->setEntries(vEntries, isFittingNumber);
    chooser(CrossPlotRole::TadPole)->setEntries(vEntries, isFittingNumber);
    chooser(CrossPlotRole::Third)->setEntries(vEntries, isFittingNumber);
    chooser(CrossPlotRole::Color)->setEntries(vEntries, fits);
    chooser(CrossPlotRole::Symbol)->setEntries(vEntries, fits);
}

void CrossPlotAttributeGroup::removeEntries(const std::unordered_set<int>& iGlobalIDs)
{
    for (AttributeChooser* pqChooser : m_vpChoosers)
        pqChooser->removeEntries(iGlobalIDs);
}

void CrossPlotAttributeGroup::choose(CrossPlotRole eRole, const MatrixData* poNode)
{
    chooser(eRole)->choose(poNode);
}

} // namespace gkBase
