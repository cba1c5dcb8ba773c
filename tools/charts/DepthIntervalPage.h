#pragma once

#include "UnitManager.h"

#include <QWidget>

#include <boost/shared_ptr.hpp>

class QCheckBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace gkBase {

class QUnitLineEdit;

/// The controls of an interval filter: boundaries by size, by number or by hand. Sizes are in model units.
class DepthIntervalPage : public QWidget
{
    Q_OBJECT
public:
    explicit DepthIntervalPage(QWidget* pqParent = nullptr);

    /// The unit in which sizes are typed; null for none.
    void setUnitManager(boost::shared_ptr<UnitManager> poUnit);
    /// Proposes a size; 99999.0 leaves the line empty.
    void setSize(double dSize);
    void setNumberOfIntervals(int iIntervals);
    void setByHand(bool bOn);

signals:
    void sizeAsked(double dSize);
    void numberAsked(int n);
    void byHandSwitched(bool bOn);
    void removeAllAsked();

private:
    void connectControls();

    QUnitLineEdit* m_pqSizeEdit;
    QPushButton* m_pqSizeButton;
    QSpinBox* m_pqNumberSpinBox;
    QPushButton* m_pqNumberButton;
    QCheckBox* m_pqByHand;
    QPushButton* m_pqRemoveButton;
    QLabel* m_pqCount;
};

} // namespace gkBase
