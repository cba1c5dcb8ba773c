#include "StereoDataGroup.h"

#include "ChartPanelControls.h"
#include "MatrixData.h"

#include <QCheckBox>
#include <QFormLayout>

namespace gkBase {

StereoDataGroup::StereoDataGroup(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqRecordsComboBox(
          newChooser(tr("Records Are"),
                     tr("Planes by dip and dip azimuth, drawn as poles; lines by plunge and azimuth. Automatic: lines "
                        "when the angle is named a plunge or the azimuth a trend"),
                     QStringLiteral("m_pqRecordsComboBox")))
    , m_pqSelectedOnlyCheckBox(newCheckBox(
          tr("Selected Records Only"),
          tr("Statistics, contours and clusters of the selected records; of all of them while none is selected"),
          "m_pqSelectedOnlyCheckBox"))
{
    m_pqRecordsComboBox->addItems({tr("Automatic"), tr("Planes"), tr("Lines")});
    auto* pqForm = new QFormLayout(this);
    pqForm->setContentsMargins(0, 0, 0, 0);
    pqForm->setVerticalSpacing(2);
    addChooser(*pqForm, StereoRole::DataSet, tr("Data Set"), tr("The data set whose orientations are shown"),
               "m_pqDataSetChooser");
    addChooser(*pqForm, StereoRole::Angle, tr("Angle"), tr("Dip of planes or plunge of lines, degrees"),
               "m_pqAngleChooser");
    addChooser(*pqForm, StereoRole::Azimuth, tr("Azimuth"),
               tr("Dip azimuth of planes or azimuth of lines, degrees clockwise from north"), "m_pqAzimuthChooser");
    pqForm->addRow(tr("Records Are"), m_pqRecordsComboBox);
    addChooser(*pqForm, StereoRole::SecondDataSet, tr("Second Set"),
               tr("A further data set that is shown on the same net"), "m_pqSecondDataSetChooser");
    addChooser(*pqForm, StereoRole::Lineations, tr("Lineations"),
               tr("A data set of lines (plunge and azimuth) that is shown on the same net"), "m_pqLineationChooser");
    pqForm->addRow(m_pqSelectedOnlyCheckBox);
    setSettings({});

    connect(m_pqRecordsComboBox, &QComboBox::activated, this, &StereoDataGroup::recordsChosen);
    connect(m_pqSelectedOnlyCheckBox, &QCheckBox::clicked, this, &StereoDataGroup::selectedOnlyToggled);
}

void StereoDataGroup::addChooser(QFormLayout& form, StereoRole eRole, const QString& sName, const QString& sToolTip,
                                 const char* pObjectName)
{
    const bool bOptional = eRole == StereoRole::SecondDataSet || eRole == StereoRole::Lineations;
    auto* pqChooser = new AttributeChooser(sName, bOptional);
    pqChooser->setObjectName(QLatin1String(pObjectName));
    pqChooser->setToolTip(sToolTip);
    if (eRole == StereoRole::DataSet)
        pqChooser->setPlaceholderText(tr("Select a Data Set"));
    form.addRow(sName, pqChooser);
    connect(pqChooser, &AttributeChooser::attributeChosen, this,
            [this, eRole](int iGlobalID) { emit nodeChosen(eRole, iGlobalID); });
    m_apqChoosers[static_cast<std::size_t>(eRole)] = pqChooser;
}

void StereoDataGroup::setDataSets(const std::vector<AttributeEntry>& vDataSets)
{
    for (const StereoRole eRole : {StereoRole::DataSet, StereoRole::SecondDataSet, StereoRole::Lineations})
        chooser(eRole)->setEntries(vDataSets, {});
}

void StereoDataGroup::setAttributes(const std::vector<AttributeEntry>& vEntries, int iRecords)
{
    const auto isNumber = [](const AttributeEntry& entry) { return isNumericAttribute(entry.m_poNode); };
    chooser(StereoRole::Angle)->setEntries(vEntries, isNumber);
    chooser(StereoRole::Azimuth)->setEntries(vEntries, [&](const AttributeEntry& entry) {
        return isNumber(entry) && (iRecords < 0 || entry.m_iRecords == iRecords);
    });
}

void StereoDataGroup::removeEntries(const std::unordered_set<int>& iGlobalIDs)
{
    for (AttributeChooser* pqChooser : m_apqChoosers)
        pqChooser->removeEntries(iGlobalIDs);
}

void StereoDataGroup::choose(StereoRole eRole, const MatrixData* poNode)
{
    chooser(eRole)->choose(poNode);
}

StereoChartSettings::Records StereoDataGroup::records() const
{
    return static_cast<StereoChartSettings::Records>(m_pqRecordsComboBox->currentIndex());
}

void StereoDataGroup::showAutomatic(StereoChartSettings::Records eFound)
{
    using Records = StereoChartSettings::Records;
    m_pqRecordsComboBox->setItemText(static_cast<int>(Records::Automatic),
                                     eFound == Records::Lines    ? tr("Automatic (lines)")
                                     : eFound == Records::Planes ? tr("Automatic (planes)")
                                                                 : tr("Automatic"));
}

void StereoDataGroup::writeTo(StereoChartSettings& settings) const
{
    settings.m_eRecords = records();
    settings.m_bSelectedOnly = m_pqSelectedOnlyCheckBox->isChecked();
}

void StereoDataGroup::setSettings(const StereoChartSettings& settings)
{
    m_pqRecordsComboBox->setCurrentIndex(static_cast<int>(settings.m_eRecords));
    m_pqSelectedOnlyCheckBox->setChecked(settings.m_bSelectedOnly);
}

} // namespace gkBase
