#pragma once

#include "CellCondition.h"
#include "gkBaseToolsExport.h"

#include <QDialog>
#include <QMetaType>
#include <QString>
#include <QStringList>

#include <boost/shared_ptr.hpp>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace gkBase {

class UnitManager;

/// The non-modal dialog "Select Cell(s)": a condition on cell values, or a range of columns.
///
/// It selects nothing itself. The owner connects clicked() of acceptButton() and reads the input, which is valid
/// whenever that button is enabled.
class GKBASETOOLS_EXPORT QSelectCellsDialog : public QDialog
{
    Q_OBJECT
public:
    using Method = CellCondition::Method;

    explicit QSelectCellsDialog(QWidget* pqParent = nullptr);

    /// The attribute that the values are meant for: its type decides which methods and values are allowed, its
    /// display unit is shown. An unknown type (the start) allows every method and any text.
    void setAttribute(const QString& sName, QMetaType::Type eType, const boost::shared_ptr<UnitManager>& poUnit);
    /// Names of the table's columns, in their order. Without columns there is no column selection.
    void setColumns(const QStringList& lNames);

    /// The values as typed, in display units; empty when the method does not need them.
    QString value1() const;
    QString value2() const;
    Method method() const;
    CellCondition condition() const;
    /// True: whole rows of the cells that satisfy the condition; false: these cells only.
    bool isRowSelection() const;
    bool keepPreviousSelection() const;
    /// True: columns columnFrom() to columnTo() instead of a condition.
    bool isColumnSelection() const;
    /// First and last column, both within the range, counted from 0 as the table model does; −1 without columns.
    int columnFrom() const;
    int columnTo() const;

    QPushButton* acceptButton() const { return m_pqAcceptButton; }

    void setMethod(Method eMethod);
    void setValues(const QString& sValue1, const QString& sValue2 = QString());
    void setColumnSelection(bool bColumns);
    void setColumnRange(int iFrom, int iTo);
    void setRowSelection(bool bRows);
    void setKeepPreviousSelection(bool bKeep);

signals:
    /// The clear button was pressed.
    void clearSelection();

private:
    void createWidgets();
    void createLayout();
    void connectWidgets();
    QString methodText(Method eMethod) const;
    QString valueHint() const;
    void updateMethods();
    void updateInput();

    QRadioButton* m_pqByValueButton = nullptr;
    QRadioButton* m_pqByColumnButton = nullptr;
    QGroupBox* m_pqValueBox = nullptr;
    QGroupBox* m_pqColumnBox = nullptr;
    QLabel* m_pqAttributeLabel = nullptr;
    QComboBox* m_pqMethodBox = nullptr;
    QLineEdit* m_pqValue1Edit = nullptr;
    QLineEdit* m_pqValue2Edit = nullptr;
    QLabel* m_pqValue1Label = nullptr;
    QLabel* m_pqValue2Label = nullptr;
    QLabel* m_pqUnit1Label = nullptr;
    QLabel* m_pqUnit2Label = nullptr;
    QRadioButton* m_pqRowsButton = nullptr;
    QRadioButton* m_pqCellsButton = nullptr;
    QComboBox* m_pqFromBox = nullptr;
    QComboBox* m_pqToBox = nullptr;
    QCheckBox* m_pqKeepBox = nullptr;
    QLabel* m_pqHintLabel = nullptr;
    QPushButton* m_pqAcceptButton = nullptr;
    QPushButton* m_pqClearButton = nullptr;
    QPushButton* m_pqCloseButton = nullptr;

    QMetaType::Type m_eType = QMetaType::UnknownType;
};

} // namespace gkBase
