#pragma once

#include "StereoChartSettings.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

#include <cstddef>

class QCheckBox;
class QDoubleSpinBoxWithSlider;
class QLabel;
class QPushButton;

namespace gkBase {

/// The scan line along which planes were counted, and whether they are weighed against its bias.
class GKBASETOOLS_EXPORT StereoBiasPage : public QWidget
{
    Q_OBJECT
public:
    explicit StereoBiasPage(QWidget* pqParent = nullptr);

    /// Lines get no weights: nothing can be chosen then, and the page says why.
    void setLines(bool bLines);

    /// Degrees.
    double plunge() const;
    double azimuth() const;
    double limitAngle() const;
    bool weightsAreOn() const;

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(StereoChartSettings& settings) const;
    /// Emits nothing.
    void setSettings(const StereoChartSettings& settings);
    /// iRecords: those that are weighed; dEffective: the number of equally weighted records that are worth as much.
    void showEffectiveCount(std::size_t iRecords, double dEffective);

signals:
    void weightsToggled();
    /// One of the three values, while the weights are on.
    void scanLineChanged();
    void attributeWanted();

private:
    QDoubleSpinBoxWithSlider* m_pqPlungeSpinBox = nullptr;
    QDoubleSpinBoxWithSlider* m_pqAzimuthSpinBox = nullptr;
    QDoubleSpinBoxWithSlider* m_pqLimitAngleSpinBox = nullptr;
    QCheckBox* m_pqWeightsCheckBox;
    QLabel* m_pqEffectiveLabel;
    QLabel* m_pqLinesLabel; ///< says why there are no weights
    QPushButton* m_pqApplyBtn;
    bool m_bLines = false;
};

} // namespace gkBase
