#pragma once

#include "gkBaseToolsExport.h"

#include <QGroupBox>

#include <array>

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace gkBase {

class MatrixData;
class QUnitLineEdit;

/// The directions in which apparent dips are taken, in degrees from north, and whether others may change them.
class GKBASETOOLS_EXPORT ScatDirectionGroup : public QGroupBox
{
    Q_OBJECT
public:
    explicit ScatDirectionGroup(QWidget* pqParent = nullptr);

    double transverse() const; ///< 0 while none is given
    double longitudinal() const;
    /// These emit nothing; directions are brought to [0, 360), missing ones change nothing.
    void setTransverse(double dDirection);
    void setLongitudinal(double dDirection);
    /// Checked at first.
    bool isKept() const;
    /// While it is checked, the edits are grayed out.
    void setEditsEnabled(bool bEnabled);
    /// Angles are shown in the display unit of the data set's angles; null: degrees.
    void setAngles(const MatrixData* poDip);
    /// Puts a widget below the directions, which it helps to find. The group becomes its parent.
    void addHelp(QWidget* pqWidget);
    /// Puts a button into the first row.
    void addButton(QWidget* pqButton);

signals:
    /// The user has given another direction.
    void transverseEdited(double dDirection);
    void longitudinalEdited(double dDirection);
    void keepSwitched(bool bKeep);

protected:
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    QUnitLineEdit* newEdit(const QString& sName, const char* pObjectName);
    static void show(QUnitLineEdit* pqEdit, double dDirection);

    QCheckBox* m_pqKeepCheckBox;
    QUnitLineEdit* m_pqTransverseEdit;
    QUnitLineEdit* m_pqLongitudinalEdit;
    std::array<QLabel*, 2> m_apqLabels{};
    QHBoxLayout* m_pqFirstRow;
    QVBoxLayout* m_pqLayout;
};

} // namespace gkBase
