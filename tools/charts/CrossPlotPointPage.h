#pragma once

#include "CrossPlotSettings.h"
#include "RelationshipClasses.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

#include <boost/shared_ptr.hpp>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QIntSpinBoxWithSlider;

namespace gkBase {

class MatrixData;
class QChartDrawingArea;
class QUnitLineEdit;

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
    QUnitLineEdit* newEdit(const QString& sName, const QString& sObjectName);

    QChartDrawingArea* m_pqCanvas; ///< not owned
    QComboBox* m_pqStyleComboBox;
    QIntSpinBoxWithSlider* m_pqSizeSpinBox;
    QCheckBox* m_pqHollowCheckBox;
    QCheckBox* m_pqColorLegendCheckBox;
    QCheckBox* m_pqSymbolLegendCheckBox;
    QGroupBox* m_pqColorMapGroup;
    QUnitLineEdit* m_pqMinEdit;
    QUnitLineEdit* m_pqMaxEdit;
    QUnitLineEdit* m_pqIntervalEdit;
    QCheckBox* m_pqRedToBlueCheckBox;
    int m_iColorAttribute = -1; ///< globalID() of the attribute whose bands are shown
    double m_dDisplayScale = 1.0;
};

} // namespace gkBase
