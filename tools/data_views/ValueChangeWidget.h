#pragma once

#include "CellChange.h"
#include "gkBaseToolsExport.h"

#include <QMetaType>
#include <QString>
#include <QWidget>

#include <boost/shared_ptr.hpp>

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QToolButton;

namespace gkBase {

class UnitManager;

/// How the cells of one attribute change: a chooser of the methods that its type allows, and an editor of the operand
/// by type, a number with the display unit, true or false, a colour or a text.
///
/// The operand is checked as it is typed: error() tells what is wrong, and a mark stands in the editor. It is a display
/// value; factors and divisors have no unit.
class GKBASETOOLS_EXPORT ValueChangeWidget : public QWidget
{
    Q_OBJECT
public:
    explicit ValueChangeWidget(QWidget* pqParent = nullptr);

    /// The attribute that is changed. Method and operand stay as far as the type allows. poUnit may be null.
    void setAttribute(const QString& sName, QMetaType::Type eType, const boost::shared_ptr<UnitManager>& poUnit);
    QMetaType::Type attributeType() const { return m_eType; }

    CellChange::Method method() const;
    /// A method that the type does not allow is ignored.
    void setMethod(CellChange::Method eMethod);
    /// As typed; empty when the method needs none.
    QString value() const;
    void setValue(const QString& sValue);
    CellChange change() const;

    bool isValid() const { return error().isEmpty(); }
    /// In words for the user; empty when the change can be applied.
    QString error() const;

signals:
    /// Method or operand changed.
    void changed();

private:
    void createWidgets();
    void createLayout();
    void updateMethods();
    void updateEditor();
    void updateUnit();
    void slotDisplayUnitChanged(const QString& sCategory);
    void slotInput();
    void chooseColor();

    QComboBox* m_pqMethodBox = nullptr;
    QLineEdit* m_pqValueEdit = nullptr;
    QComboBox* m_pqFlagBox = nullptr;
    QToolButton* m_pqColorButton = nullptr;
    QLabel* m_pqUnitLabel = nullptr;
    QAction* m_pqErrorMark = nullptr;

    QMetaType::Type m_eType = QMetaType::Double;
    boost::shared_ptr<UnitManager> m_poUnit;
};

} // namespace gkBase
