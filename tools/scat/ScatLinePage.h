#pragma once

#include "gkBaseToolsExport.h"

#include <QWidget>

#include <utility>
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

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(ScatTrackSettings& settings) const;
    /// Emits nothing.
    void setSettings(const ScatTrackSettings& settings);

signals:
    /// The user has switched something other than the transparency.
    void edited();
    void transparencyEdited(int iPercent);

private:
    QCheckBox* newSwitch(const QString& sText, const QString& sToolTip, const char* pObjectName,
                         bool ScatTrackSettings::*pbFlag);

    std::vector<std::pair<QCheckBox*, bool ScatTrackSettings::*>> m_vSwitches;
    QComboBox* m_pqDomainsComboBox;
    QIntSpinBoxWithSlider* m_pqTransparencySpinBox;
};

} // namespace gkBase
