#pragma once

#include "CrossPlotSettings.h"
#include "RelationshipClasses.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QIntSpinBoxWithSlider;

namespace gkBase {

class ColorMapEdits;
class MatrixData;
class QChartDrawingArea;

/// The controls of the looks of a cross plot's points: style, size, legends and the bands of the colour map.
class GKBASETOOLS_EXPORT CrossPlotPointPage : public QWidget
{
    Q_OBJECT
public:
    /// The canvas draws the pictures of the styles; it lives as long as the page.
    explicit CrossPlotPointPage(QChartDrawingArea* pqCanvas, QWidget* pqParent = nullptr);

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(CrossPlotSettings& settings) const;
    /// Emits nothing.
    void setSettings(const CrossPlotSettings& settings);

    /// In model units.
    RelationshipClasses::ColorMap colorMap() const;
    /// The bands of the attribute come from its values again; null, or bBanded false, switches the controls off.
    /// Emits nothing.
    void setColorAttribute(const MatrixData* poAttribute, bool bBanded);

signals:
    /// Style, size, fill or a legend.
    void looksChanged();
    void colorMapChanged();

protected:
    void changeEvent(QEvent* pEvent) override;

private:
    /// Pictures of the styles that can be seen on the palette's background.
    void showStyleIcons();
    QWidget* createStyleControls();
    QGroupBox* createColorMapGroup();

    QChartDrawingArea* m_pqCanvas; ///< not owned
    QComboBox* m_pqStyleComboBox;
    QIntSpinBoxWithSlider* m_pqSizeSpinBox;
    QCheckBox* m_pqHollowCheckBox;
    QCheckBox* m_pqColorLegendCheckBox;
    QCheckBox* m_pqSymbolLegendCheckBox;
    QGroupBox* m_pqColorMapGroup;
    ColorMapEdits* m_pqColorMapEdits;
    QCheckBox* m_pqRedToBlueCheckBox;
};

} // namespace gkBase
