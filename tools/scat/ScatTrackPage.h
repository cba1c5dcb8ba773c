#pragma once

#include "ScatSettings.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QWidget>

#include <boost/shared_ptr.hpp>

#include <vector>

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

/// How the active tracks show their records, and the limits of their axes.
class GKBASETOOLS_EXPORT ScatTrackPage : public QWidget
{
    Q_OBJECT
public:
    explicit ScatTrackPage(QWidget* pqParent = nullptr);

    /// The settings of a track, and its limits as they are seen, in degrees, also where the settings leave them open.
    struct Shown
    {
        ScatTrackSettings m_settings;
        double m_dMinimum;
        double m_dMaximum;
    };

    /// Writes what the user has changed here since setSettings(); the rest stays. Colours and data have signals of
    /// their own.
    void writeTo(ScatTrackSettings& settings) const;
    /// Shows the settings of the active tracks, at least one, and where they differ. Emits nothing.
    void setSettings(const std::vector<Shown>& vShown);
    /// The limits make no axis: the minimum is not below the maximum.
    bool areLimitsReversed() const;
    QColor lineColor() const;
    QColor pointColor() const;
    int vertexSampling() const;
    /// Null means values without a unit.
    void setDepthUnit(const boost::shared_ptr<UnitManager>& poUnit);
    /// Model units; 99999.0 without depths. Emits nothing.
    void setDepthRange(double dFrom, double dTo);
    double depthFrom() const;
    double depthTo() const;
    /// Says which tracks follow the page; an empty list for all. The label keeps its height.
    void setActiveTracks(const QStringList& lNames);

signals:
    /// The user switched tadpoles or changed the vertex sampling.
    void edited();
    void dataChosen(int iData);
    void lineColorPicked();
    void pointColorPicked();
    void boundariesEdited();
    /// Limits that suit the data are wanted.
    void boundariesReset(bool bAutomatic);

protected:
    void changeEvent(QEvent* pEvent) override;

private:
    void fixLabelHeight();
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
    Qt::CheckState m_eShownTadpoles = Qt::Unchecked;
    double m_dShownMinimum; ///< of the horizontal axis; an edit that differs is the user's
    double m_dShownMaximum;
};

} // namespace gkBase
