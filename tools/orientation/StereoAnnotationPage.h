#pragma once

#include "StereoNetSettings.h"
#include "gkBaseToolsExport.h"

#include <QGroupBox>

class QCheckBox;
class QRadioButton;

namespace gkBase {

/// The labels at the rim of a circular chart, and its circle.
class GKBASETOOLS_EXPORT StereoAnnotationPage : public QGroupBox
{
    Q_OBJECT
public:
    explicit StereoAnnotationPage(QWidget* pqParent = nullptr);

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(StereoNetSettings& net) const;
    /// Emits nothing.
    void setSettings(const StereoNetSettings& net);

signals:
    void changed();

private:
    QRadioButton* m_pqAnglesBtn;
    QRadioButton* m_pqDirectionsBtn;
    QRadioButton* m_pqOffBtn;
    QCheckBox* m_pqCircleFrameCheckBox;
    QCheckBox* m_pqHemisphereCheckBox;
};

} // namespace gkBase
