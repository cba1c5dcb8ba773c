#pragma once

#include "gkBaseToolsExport.h"

#include <QWidget>

#include <boost/shared_ptr.hpp>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QIntSpinBoxWithSlider;
class QLabel;
class QPushButton;

namespace gkBase {

class ColorButton;
class QUnitLineEdit;
class UnitManager;
struct ScatTrackSettings;

/// How the active tracks show their records, and the limits of their axes.
class GKBASETOOLS_EXPORT ScatTrackPage : public QWidget
{
    Q_OBJECT
public:
    explicit ScatTrackPage(QWidget* pqParent = nullptr);

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(ScatTrackSettings& settings) const;
    /// Emits nothing. The limits are those that are shown, in degrees, also where the settings leave them open.
    void setSettings(const ScatTrackSettings& settings, double dMinimum, double dMaximum);
    /// Null means values without a unit.
    void setDepthUnit(const boost::shared_ptr<UnitManager>& poUnit);
    /// Model units; 99999.0 without depths. Emits nothing.
    void setDepthRange(double dFrom, double dTo);
    double depthFrom() const;
    double depthTo() const;
    /// Says which tracks follow the page.
    void setActiveTracks(const QString& sNames);

signals:
    /// Tadpoles or vertex sampling changed.
    void edited();
    void dataChosen(int iData);
    void lineColorPicked();
    void pointColorPicked();
    void boundariesEdited();
    /// Limits that suit the data are wanted.
    void boundariesReset(bool bAutomatic);

private:
    QUnitLineEdit* newLimit(QFormLayout* pqForm, const QString& sName, const char* pObjectName);

    QLabel* m_pqActiveLabel;
    QComboBox* m_pqDataComboBox;
    ColorButton* m_pqLineColorButton;
    ColorButton* m_pqPointColorButton;
    QCheckBox* m_pqTadpoles;
    QIntSpinBoxWithSlider* m_pqVertexSampling;
    QUnitLineEdit* m_pqHorizontalMinEdit = nullptr;
    QUnitLineEdit* m_pqHorizontalMaxEdit = nullptr;
    QUnitLineEdit* m_pqVerticalMinEdit = nullptr;
    QUnitLineEdit* m_pqVerticalMaxEdit = nullptr;
    double m_dShownMinimum; ///< of the horizontal axis; an edit that differs is the user's
    double m_dShownMaximum;
};

} // namespace gkBase
