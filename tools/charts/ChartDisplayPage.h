#pragma once

#include "ChartDisplaySettings.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

class QCheckBox;
class QDoubleSpinBoxWithSlider;
class QRadioButton;

namespace gkBase {

class ChartFrame;

/// The controls that every chart has: grid, background, font size and zoom. They act on the frame at once.
class GKBASETOOLS_EXPORT ChartDisplayPage : public QWidget
{
    Q_OBJECT
public:
    /// The frame is not owned and lives as long as the page.
    explicit ChartDisplayPage(ChartFrame* pqFrame, QWidget* pqParent = nullptr);

    ChartDisplaySettings settings() const;
    void setSettings(const ChartDisplaySettings& settings);
    bool blackBackground() const;
    void setBlackBackground(bool bBlack);
    /// Magnifies the frame's chart as the controls say.
    void applyZoom();

signals:
    void backgroundChanged(bool bBlack);

private:
    void createControls();
    void connectControls();
    void gridSwitch();
    void blackWhiteSwitch();
    void slotZoomFactorReset(bool bOn);
    void slotCanvasZoomed(double dZoom);

    ChartFrame* m_pqFrame; ///< not owned
    QCheckBox* m_pqShowGrid = nullptr;
    QRadioButton* m_pqBlackBackgroundBtn = nullptr;
    QRadioButton* m_pqWhiteBackgroundBtn = nullptr;
    QDoubleSpinBoxWithSlider* m_pqFontSizeSpinBox = nullptr;
    QCheckBox* m_pqZoomFactorCheckBox = nullptr;
    QDoubleSpinBoxWithSlider* m_pqZoomFactorSpinBox = nullptr;
};

} // namespace gkBase
