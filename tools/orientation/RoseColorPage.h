#pragma once

#include "AttributeChooser.h"
#include "RoseChartSettings.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

class QGroupBox;
class QRadioButton;

namespace gkBase {

class ColorMapEdits;
class MatrixData;

/// The attribute whose classes cut the petals of a rose into bands, and its colour map.
class GKBASETOOLS_EXPORT RoseColorPage : public QWidget
{
    Q_OBJECT
public:
    explicit RoseColorPage(QWidget* pqParent = nullptr);

    AttributeChooser* chooser() const { return m_pqChooser; }
    /// The range of another attribute is not set at first; bBanded false switches the range and the colours off, which
    /// the values give. Emits nothing.
    void setColorAttribute(const MatrixData* poAttribute, bool bBanded);
    /// In model units.
    RelationshipClasses::ColorMap colorMap() const;
    /// Emits nothing.
    void setColorMap(const RelationshipClasses::ColorMap& map);

signals:
    void colorMapChanged();
    /// The colours shall reach over all values of the attribute.
    void expandWanted();

private:
    QGroupBox* createColorMapGroup();

    AttributeChooser* m_pqChooser;
    ColorMapEdits* m_pqColorMapEdits;
    QRadioButton* m_pqBlueRedBtn;
    QRadioButton* m_pqRedBlueBtn;
    QGroupBox* m_pqColorMapGroup;
};

} // namespace gkBase
