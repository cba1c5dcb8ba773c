#pragma once

#include "AttributeChooser.h"
#include "StereoChartSettings.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

#include <array>
#include <cstddef>
#include <unordered_set>
#include <vector>

class QCheckBox;
class QFormLayout;

namespace gkBase {

/// What is chosen for a stereonet: data sets, and attributes of the first one.
enum class StereoRole
{
    DataSet,
    Angle,   ///< dip or plunge
    Azimuth, ///< dip azimuth or that of the plunge
    SecondDataSet,
    Lineations
};

/// The choosers of the data of a stereonet, what its records are, and which of them count.
class GKBASETOOLS_EXPORT StereoDataGroup : public QWidget
{
    Q_OBJECT
public:
    explicit StereoDataGroup(QWidget* pqParent = nullptr);

    /// Data sets with a dip and an azimuth, for the three choosers of data sets.
    void setDataSets(const std::vector<AttributeEntry>& vDataSets);
    /// Number attributes for angle and azimuth; the azimuth must have iRecords records, −1 while it is not known.
    void setAttributes(const std::vector<AttributeEntry>& vEntries, int iRecords);
    /// What is about to go is not offered any more.
    void removeEntries(const std::unordered_set<int>& iGlobalIDs);
    /// Shows what is chosen; null is none. Emits nothing.
    void choose(StereoRole eRole, const MatrixData* poNode);

    StereoChartSettings::Records records() const;
    /// What the records are by the names of their attributes, which is what Automatic takes; Automatic while there are
    /// none.
    void showAutomatic(StereoChartSettings::Records eFound);
    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(StereoChartSettings& settings) const;
    /// Emits nothing.
    void setSettings(const StereoChartSettings& settings);

signals:
    /// The user has chosen another node; −1 for none.
    void nodeChosen(gkBase::StereoRole eRole, int iGlobalID);
    void recordsChosen();
    void selectedOnlyToggled();

private:
    static constexpr std::size_t s_iRoles = 5;

    AttributeChooser* chooser(StereoRole eRole) const { return m_apqChoosers[static_cast<std::size_t>(eRole)]; }
    void addChooser(QFormLayout& form, StereoRole eRole, const QString& sName, const QString& sToolTip,
                    const char* pObjectName);

    std::array<AttributeChooser*, s_iRoles> m_apqChoosers{}; ///< by role
    QComboBox* m_pqRecordsComboBox;
    QCheckBox* m_pqSelectedOnlyCheckBox;
};

} // namespace gkBase
