#pragma once

#include <QLineEdit>
#include <QMetaType>

#include <boost/shared_ptr.hpp>

class QAction;

namespace gkBase {

class MatrixData;
class UnitManager;

/// The line edit of a table cell, by the type of its attribute. Numbers take a decimal point or comma and a unit
/// ("12.5 ft"), which is converted; a tool tip names the unit that numbers have without one. A text that is no number
/// is marked while it is typed and never reaches the cell.
class CellValueEdit : public QLineEdit
{
    Q_OBJECT
public:
    CellValueEdit(const MatrixData& oAttribute, QWidget* pqParent);

    /// An empty text is valid: it clears the cell.
    bool isTextValid() const;
    /// The text for the cell, numbers in its display unit.
    QString cellText() const;

private:
    void updateMark();

    QMetaType::Type m_eType;
    boost::shared_ptr<UnitManager> m_poUnit; ///< of numbers with decimals only
    QAction* m_pqErrorMark;
};

} // namespace gkBase
