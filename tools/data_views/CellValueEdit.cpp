#include "CellValueEdit.h"

#include "MatrixData.h"
#include "NumberWithUnit.h"
#include "UnitManager.h"

#include <QAction>
#include <QLocale>
#include <QStyle>

namespace gkBase {

CellValueEdit::CellValueEdit(const MatrixData& oAttribute, QWidget* pqParent)
    : QLineEdit(pqParent)
    , m_eType(oAttribute.type())
    , m_pqErrorMark(addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), LeadingPosition))
{
    setFrame(false);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setAccessibleName(tr("Cell value"));
    m_pqErrorMark->setVisible(false);
    m_pqErrorMark->setToolTip(tr("This is no number"));
    if (m_eType == QMetaType::Double) {
        m_poUnit = oAttribute.unitManager();
        m_pqErrorMark->setToolTip(tr("This is not a number with a known unit"));
        if (const QString sUnit = m_poUnit->getDisplayUnitName(); !sUnit.isEmpty())
            setToolTip(tr("In %1; other units may follow the number").arg(sUnit));
    }
    connect(this, &QLineEdit::textChanged, this, &CellValueEdit::updateMark);
}

bool CellValueEdit::isTextValid() const
{
    if ((m_eType != QMetaType::Double && m_eType != QMetaType::Int) || text().trimmed().isEmpty())
        return true;
    const auto oTyped = NumberWithUnit::parse(text());
    return oTyped && oTyped->modelValue(m_poUnit.get());
}

QString CellValueEdit::cellText() const
{
    if (m_eType != QMetaType::Double && m_eType != QMetaType::Int)
        return text();
    const auto oTyped = NumberWithUnit::parse(text());
    if (!oTyped)
        return QString();
    if (!m_poUnit || oTyped->m_sUnit.isEmpty() || oTyped->m_sUnit == m_poUnit->getDisplayUnitTag())
        return QString::number(oTyped->m_dValue, 'g', QLocale::FloatingPointShortest);
    const auto dModel = oTyped->modelValue(m_poUnit.get());
    // 15 digits are certain after a conversion.
    return dModel ? QString::number(m_poUnit->convertModelToDisplay(*dModel), 'g', 15) : QString();
}

void CellValueEdit::updateMark()
{
    const bool bValid = isTextValid();
    m_pqErrorMark->setVisible(!bValid);
    setAccessibleDescription(bValid ? QString() : m_pqErrorMark->toolTip());
}

} // namespace gkBase
