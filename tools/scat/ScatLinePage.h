#pragma once

#include "gkBaseToolsExport.h"

#include <QWidget>

#include <vector>

class QCheckBox;
class QComboBox;
class QIntSpinBoxWithSlider;

namespace gkBase {

struct ScatTrackSettings;

/// Which lines the active tracks show, and the domains between them.
class GKBASETOOLS_EXPORT ScatLinePage : public QWidget
{
    Q_OBJECT
public:
    explicit ScatLinePage(QWidget* pqParent = nullptr);

    /// Writes what the user has changed here since setSettings(); the rest stays.
    void writeTo(ScatTrackSettings& settings) const;
    /// Shows the settings of the active tracks, at least one, and where they differ. Emits nothing.
    void setSettings(const std::vector<ScatTrackSettings>& vSettings);

signals:
    /// The user has switched something other than the transparency.
    void edited();
    void transparencyEdited(int iPercent);

private:
    struct Switch
    {
        QCheckBox* m_pqBox;
        bool ScatTrackSettings::*m_pbFlag;
        Qt::CheckState m_eShown;
    };

    QCheckBox* newSwitch(const QString& sText, const QString& sToolTip, const char* pObjectName,
                         bool ScatTrackSettings::*pbFlag);

    std::vector<Switch> m_vSwitches;
    QComboBox* m_pqDomainsComboBox;
    int m_iShownDomains = -1; ///< index in the box
    QIntSpinBoxWithSlider* m_pqTransparencySpinBox;
};

} // namespace gkBase
