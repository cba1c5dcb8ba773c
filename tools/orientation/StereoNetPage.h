#pragma once

#include "StereoNetSettings.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QFormLayout;

namespace gkBase {

class ColorButton;

/// The controls of the net: projection, reference nets, and how planes are drawn.
class GKBASETOOLS_EXPORT StereoNetPage : public QWidget
{
    Q_OBJECT
public:
    explicit StereoNetPage(QWidget* pqParent = nullptr);

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(StereoNetSettings& net) const;
    /// Emits nothing.
    void setSettings(const StereoNetSettings& net);
    /// Lines are points whatever stands here: without planes on the net how they are drawn cannot be chosen.
    void setPlanes(bool bPlanes);
    /// For diagrams with a projection of their own.
    void hideProjection();

signals:
    void changed();

private:
    QFormLayout* m_pqForm;
    QComboBox* m_pqProjectionComboBox;
    QComboBox* m_pqPlanesAsComboBox;
    QCheckBox* m_pqGreatCirclesCheckBox;
    QCheckBox* m_pqCoarseNetCheckBox;
    QCheckBox* m_pqFineNetCheckBox;
    ColorButton* m_pqFineNetColorBtn;
};

} // namespace gkBase
