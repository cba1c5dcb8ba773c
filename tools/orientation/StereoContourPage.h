#pragma once

#include "StereoChartSettings.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

class QCheckBox;
class QDoubleSpinBox;
class QIntSpinBoxWithSlider;

namespace gkBase {

/// The controls of the density contours.
class GKBASETOOLS_EXPORT StereoContourPage : public QWidget
{
    Q_OBJECT
public:
    explicit StereoContourPage(QWidget* pqParent = nullptr);

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(StereoChartSettings& settings) const;
    /// Emits nothing.
    void setSettings(const StereoChartSettings& settings);

signals:
    void changed();

private:
    void slotChanged();
    void enableControls();

    QCheckBox* m_pqLinesCheckBox;
    QCheckBox* m_pqFillCheckBox;
    QCheckBox* m_pqColorFillCheckBox;
    QCheckBox* m_pqLowestBandCheckBox;
    QCheckBox* m_pqRedToBlueCheckBox;
    QCheckBox* m_pqLabelsCheckBox;
    QCheckBox* m_pqLegendCheckBox;
    QIntSpinBoxWithSlider* m_pqNodesSpinBox;
    QDoubleSpinBox* m_pqIntervalSpinBox;
};

} // namespace gkBase
