#pragma once

#include "MissingValue.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

#include <boost/shared_ptr.hpp>

class QPushButton;

namespace gkBase {

class QUnitLineEdit;
class UnitManager;

/// The ends of the axes of a cross plot in model units; 99999.0 where the data decide.
struct CrossPlotLimits
{
    double m_dXMin = g_dMissingValue;
    double m_dXMax = g_dMissingValue;
    double m_dYMin = g_dMissingValue;
    double m_dYMax = g_dMissingValue;

    bool operator==(const CrossPlotLimits&) const = default;
};

/// The controls of the axis limits, in display units.
class GKBASETOOLS_EXPORT CrossPlotAxesPage : public QWidget
{
    Q_OBJECT
public:
    explicit CrossPlotAxesPage(QWidget* pqParent = nullptr);

    /// Null means values without a unit.
    void setUnits(const boost::shared_ptr<UnitManager>& poX, const boost::shared_ptr<UnitManager>& poY);
    /// Shows the ends that the axes have. bAutomatic: all of them come from the data.
    void setLimits(const CrossPlotLimits& shown, bool bAutomatic);

signals:
    /// The user has typed an end: shown limits with that one changed. Ends in the wrong order are exchanged; two ends
    /// that are equal are never sent.
    void limitsEdited(const gkBase::CrossPlotLimits& limits);
    void automaticLimitsWanted();

private:
    QUnitLineEdit* newEdit(const QString& sName, const QString& sObjectName);
    void slotEdited();

    CrossPlotLimits m_oShown;
    QUnitLineEdit* m_pqXMinEdit;
    QUnitLineEdit* m_pqXMaxEdit;
    QUnitLineEdit* m_pqYMinEdit;
    QUnitLineEdit* m_pqYMaxEdit;
    QPushButton* m_pqAutomaticBtn;
};

} // namespace gkBase
