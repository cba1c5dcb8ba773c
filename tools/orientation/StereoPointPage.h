#pragma once

#include "AttributeChooser.h"
#include "RelationshipClasses.h"
#include "StereoChartSettings.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

#include <array>
#include <unordered_set>
#include <vector>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QGroupBox;
class QIntSpinBoxWithSlider;

namespace gkBase {

class ColorButton;
class ColorMapEdits;
class QChartDrawingArea;

/// The controls of a stereonet's points: the three layers with their colours, symbols, and the attributes whose
/// classes colour the points or give their symbols.
class GKBASETOOLS_EXPORT StereoPointPage : public QWidget
{
    Q_OBJECT
public:
    /// The canvas draws the pictures of the styles; it lives as long as the page.
    explicit StereoPointPage(QChartDrawingArea* pqCanvas, QWidget* pqParent = nullptr);

    /// Attributes of as many records as the points, −1 while that is not known.
    void setEntries(const std::vector<AttributeEntry>& vEntries, int iRecords);
    void removeEntries(const std::unordered_set<int>& iGlobalIDs);
    /// Shows what is chosen; null is none. Emits nothing.
    void chooseColor(const MatrixData* poNode) { m_pqColorChooser->choose(poNode); }
    void chooseSymbol(const MatrixData* poNode) { m_pqSymbolChooser->choose(poNode); }
    /// In model units.
    RelationshipClasses::ColorMap colorMap() const;
    /// Range and interval of the bands of the colour attribute, in model units. Emits nothing.
    void setColorMap(const RelationshipClasses::ColorMap& map);
    /// The bands of another attribute come from its values at first; null, or bBanded false, switches the colour map
    /// off. Emits nothing.
    void setColorAttribute(const MatrixData* poAttribute, bool bBanded);

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(StereoChartSettings& settings) const;
    /// Emits nothing.
    void setSettings(const StereoChartSettings& settings);

signals:
    void changed();
    void colorMapChanged();
    /// −1 for none.
    void colorAttributeChosen(int iGlobalID);
    void symbolAttributeChosen(int iGlobalID);

protected:
    void changeEvent(QEvent* pEvent) override;

private:
    /// The points of one data set.
    struct Layer
    {
        QCheckBox* m_pqShow = nullptr;
        ColorButton* m_pqColor = nullptr;
    };
    static constexpr std::size_t s_iLayers = 3;

    void addLayers(QFormLayout& form);
    void addSymbols(QFormLayout& form);
    void addAttributes(QFormLayout& form);
    QGroupBox* newColorMapGroup();
    /// Pictures of the styles that can be seen on the palette's background.
    void showStyleIcons();

    QChartDrawingArea* m_pqCanvas;            ///< not owned
    std::array<Layer, s_iLayers> m_aLayers{}; ///< first and second data set, lineations
    QComboBox* m_pqStyleComboBox = nullptr;
    QIntSpinBoxWithSlider* m_pqSizeSpinBox = nullptr;
    QCheckBox* m_pqHollowCheckBox = nullptr;
    AttributeChooser* m_pqColorChooser = nullptr;
    AttributeChooser* m_pqSymbolChooser = nullptr;
    QGroupBox* m_pqColorMapGroup = nullptr;
    ColorMapEdits* m_pqColorMapEdits = nullptr;
    QCheckBox* m_pqRedToBlueCheckBox = nullptr;
    QCheckBox* m_pqColorLegendCheckBox = nullptr;
    QCheckBox* m_pqSymbolLegendCheckBox = nullptr;
};

} // namespace gkBase
