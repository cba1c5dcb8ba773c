#pragma once

#include "UnitManager.h"
#include "gkBaseQtExport.h"

#include <QLineEdit>

#include <boost/shared_ptr.hpp>

class QAction;

namespace gkBase {

/// A line edit that shows a model value in display units with the unit tag ("12.50 ft"). It accepts a decimal point or
/// comma and an optional unit ("12.5", "12,5", "12.5 ft"); a unit other than the display unit is converted. The value
/// is taken with Return or when the focus leaves ("---" stands for none, as an empty line does); a text that cannot be
/// read is marked, and goes back to the value with Esc or when the focus leaves. Text and language settings of the
/// process play no part in it.
class GKBASEQT_EXPORT QUnitLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    explicit QUnitLineEdit(QWidget* pqParent = nullptr);

    /// Null means values without a unit.
    void unitManager(boost::shared_ptr<UnitManager> poUnitManager);
    boost::shared_ptr<UnitManager> unitManager() const { return m_poUnitManager; }

    /// Shows the value; 99999.0 and values that are not finite are missing and leave the line empty. bEmit: emit
    /// modelValueChanged() when the value changes.
    void setModelValue(double dValue, bool bEmit);
    /// The last value that was set or accepted, in model units; 99999.0 when the line is empty.
    double modelValue() const { return m_dModelValue; }
    /// False while the text cannot be read as a number with a known unit.
    bool isTextValid() const { return m_bTextValid; }

signals:
    void modelValueChanged(double dValue);

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
    void focusOutEvent(QFocusEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;

private:
    void slotDisplayUnitChanged(const QString& sCategory);
    void slotTextEdited(const QString& sText);
    void commit();
    void showModelValue();
    void setTextValid(bool bValid);
    void updateMark();

    boost::shared_ptr<UnitManager> m_poUnitManager;
    double m_dModelValue;
    bool m_bTextValid = true;
    QAction* m_pqInvalidMark;
};

} // namespace gkBase
