#pragma once

#include "RoseChartSettings.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

class QCheckBox;
class QGroupBox;
class QIntSpinBoxWithSlider;
class QRadioButton;

namespace gkBase {

class ChartDisplayPage;

/// Labels, scale and frame of a rose, above the controls that every chart has.
class GKBASETOOLS_EXPORT RoseDisplayPage : public QWidget
{
    Q_OBJECT
public:
    /// Becomes the owner of the page of common controls.
    explicit RoseDisplayPage(ChartDisplayPage* pqDisplayPage, QWidget* pqParent = nullptr);

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(RoseChartSettings& settings) const;
    /// Emits nothing.
    void setSettings(const RoseChartSettings& settings);
    /// Counts between grid circles, 0 … iMaximum. Emits nothing.
    void setGridCircleDistance(int iDistance, int iMaximum);

signals:
    void looksChanged();

private:
    QGroupBox* createAnnotationGroup();
    QGroupBox* createScalingGroup();
    void enableControls();

    QRadioButton* m_pqAnglesBtn;
    QRadioButton* m_pqDirectionsBtn;
    QRadioButton* m_pqAnnotationOffBtn;
    QIntSpinBoxWithSlider* m_pqDistanceSpinBox;
    QCheckBox* m_pqCirclesCheckBox;
    QCheckBox* m_pqTickMarksCheckBox;
    QCheckBox* m_pqScalingOffCheckBox;
    QCheckBox* m_pqCircleFrameCheckBox;
    QIntSpinBoxWithSlider* m_pqZeroCircleSpinBox;
};

} // namespace gkBase
