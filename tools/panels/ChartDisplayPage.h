#pragma once

#include "ChartDisplaySettings.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

#include <functional>

class QCheckBox;
class QDoubleSpinBoxWithSlider;
class QRadioButton;
class QVBoxLayout;

namespace gkBase {

/// The controls that every chart has: grid, background, font size and zoom. They act on the chart's frame at once.
class GKBASETOOLS_EXPORT ChartDisplayPage : public QWidget
{
    Q_OBJECT
public:
    /// What the controls do to the charts.
    struct Actions
    {
        std::function<void(bool)> m_fnSetGrid;
        std::function<void(bool)> m_fnSetBlackBackground;
        std::function<void(double)> m_fnSetFontSize;
        std::function<void(double)> m_fnSetZoom;
    };

    /// For panels that decide themselves which of their charts follow. Grid and font size are set at once.
    explicit ChartDisplayPage(Actions actions, QWidget* pqParent = nullptr);
    /// Frame: a ChartFrame, or another widget around charts with its setGridIsOn(), setBlackBackground(),
    /// setFontSize(), setZoom() and zoomChanged(). It is not owned and lives as long as the page.
    template <typename Frame>
    explicit ChartDisplayPage(Frame* pqFrame, QWidget* pqParent = nullptr)
        : ChartDisplayPage(Actions{[pqFrame](bool bOn) { pqFrame->setGridIsOn(bOn); },
                                   [pqFrame](bool bBlack) { pqFrame->setBlackBackground(bBlack); },
                                   [pqFrame](double dPointSize) { pqFrame->setFontSize(dPointSize); },
                                   [pqFrame](double dZoom) { pqFrame->setZoom(dZoom); }},
                           pqParent)
    {
        connect(pqFrame, &Frame::zoomChanged, this, &ChartDisplayPage::slotCanvasZoomed);
    }

    ChartDisplaySettings settings() const;
    void setSettings(const ChartDisplaySettings& settings);
    /// Shows that the grid is on in some charts only, until setSettings() or a click says otherwise.
    void setGridMixed(bool bMixed);
    /// The grid's box stands elsewhere than setSettings() and setGridMixed() put it.
    bool isGridSwitched() const;
    bool blackBackground() const;
    void setBlackBackground(bool bBlack);
    /// A further check box, checked, below the grid's; owned by the page.
    QCheckBox* addCheckBox(const QString& sText, const QString& sToolTip, const QString& sObjectName);
    /// For charts without a grid.
    void hideGrid();
    /// Magnifies the frame's chart as the controls say.
    void applyZoom();
    /// The charts were magnified by other means.
    void slotCanvasZoomed(double dZoom);

signals:
    void backgroundChanged(bool bBlack);

private:
    void createControls();
    void connectControls();
    void gridSwitch();
    void blackWhiteSwitch();
    void slotZoomFactorReset(bool bOn);

    Actions m_actions;
    QVBoxLayout* m_pqLayout = nullptr;
    int m_iBoxes = 1; ///< check boxes at the top
    QCheckBox* m_pqShowGrid = nullptr;
    Qt::CheckState m_eShownGrid = Qt::Checked;
    QRadioButton* m_pqBlackBackgroundBtn = nullptr;
    QRadioButton* m_pqWhiteBackgroundBtn = nullptr;
    QDoubleSpinBoxWithSlider* m_pqFontSizeSpinBox = nullptr;
    QCheckBox* m_pqZoomFactorCheckBox = nullptr;
    QDoubleSpinBoxWithSlider* m_pqZoomFactorSpinBox = nullptr;
};

} // namespace gkBase
