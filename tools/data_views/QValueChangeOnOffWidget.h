#pragma once

#include "CellChange.h"
#include "gkBaseToolsExport.h"

#include <QMetaType>
#include <QString>
#include <QWidget>

#include <boost/shared_ptr.hpp>

class QCheckBox;
class QLabel;

namespace gkBase {

class UnitManager;
class ValueChangeWidget;

/// The change of one attribute among several: a check box with the attribute's name that switches it on, the change
/// itself, and a line below that tells what it does or what is wrong with it.
class GKBASETOOLS_EXPORT QValueChangeOnOffWidget : public QWidget
{
    Q_OBJECT
public:
    explicit QValueChangeOnOffWidget(QWidget* pqParent = nullptr);

    /// As ValueChangeWidget::setAttribute(). An attribute that is not editable cannot be switched on.
    void setAttribute(const QString& sName, QMetaType::Type eType, const boost::shared_ptr<UnitManager>& poUnit,
                      bool bEditable = true);
    QString attributeName() const { return m_sName; }
    ValueChangeWidget* valueChange() const { return m_pqValueChange; }

    /// Off at first.
    bool isOn() const;
    void setOn(bool bOn);
    CellChange change() const;
    /// False while it is on and its operand cannot be read.
    bool isValid() const;

    /// What the change does, shown below while it is on and its operand can be read.
    void setPreview(const QString& sText);
    /// Width that the whole name asks for.
    int nameWidth() const;
    /// Pixels for the name, which ends in "…" and has a tool tip where it is longer.
    void setNameWidth(int iWidth);

signals:
    /// Switch, method or operand changed.
    void changed();

private:
    void slotChanged();
    void showName();
    void showNote();

    QString m_sName;
    QString m_sPreview;
    bool m_bEditable = true;
    QCheckBox* m_pqOnBox;
    ValueChangeWidget* m_pqValueChange;
    QLabel* m_pqNoteLabel;
};

} // namespace gkBase
