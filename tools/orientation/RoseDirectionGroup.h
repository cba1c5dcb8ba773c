#pragma once

#include "AttributeChooser.h"
#include "RoseChartSettings.h"
#include "gkBaseToolsExport.h"

#include <QGroupBox>

class QIntSpinBoxWithSlider;
class QRadioButton;

namespace gkBase {

/// What a rose shows: attribute of directions, size of the sectors, and how directions are counted and drawn.
class GKBASETOOLS_EXPORT RoseDirectionGroup : public QGroupBox
{
    Q_OBJECT
public:
    explicit RoseDirectionGroup(QWidget* pqParent = nullptr);

    AttributeChooser* chooser() const { return m_pqChooser; }
    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(RoseChartSettings& settings) const;
    /// Emits nothing.
    void setSettings(const RoseChartSettings& settings);

signals:
    void sectorSizeChanged(int iDegrees);
    void dataTypeChanged();
    /// Rose or vectors, or the scaling.
    void looksChanged();

private:
    QRadioButton* newButton(const QString& sText, const QString& sToolTip, const char* pObjectName);
    QWidget* newPair(const QString& sName, QRadioButton* pqFirst, QRadioButton* pqSecond);

    AttributeChooser* m_pqChooser;
    QIntSpinBoxWithSlider* m_pqSectorSpinBox;
    QRadioButton* m_pqRosePlotBtn;
    QRadioButton* m_pqUnitVectorsBtn;
    QRadioButton* m_pqAreaBtn;
    QRadioButton* m_pqLinearBtn;
    QRadioButton* m_pqUnidirectionalBtn;
    QRadioButton* m_pqBidirectionalBtn;
};

} // namespace gkBase
