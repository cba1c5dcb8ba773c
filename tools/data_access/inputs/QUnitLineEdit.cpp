#include "QUnitLineEdit.h"

#include "DisplayUnitManager.h"
#include "MissingValue.h"
#include "NumberWithUnit.h"

#include <QAction>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QStyle>

#include <optional>
#include <utility>

namespace gkBase {

namespace {

bool isNothing(const QString& sText)
{
    const QString sTrimmed = sText.trimmed();
    return sTrimmed.isEmpty() || sTrimmed == QLatin1String("---");
}

} // namespace

QUnitLineEdit::QUnitLineEdit(QWidget* pqParent)
    : QLineEdit(pqParent)
    , m_dModelValue(g_dMissingValue)
{
    m_pqInvalidMark = addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::TrailingPosition);
    m_pqInvalidMark->setToolTip(tr("This is not a number with a known unit"));
    m_pqInvalidMark->setVisible(false);
    connect(this, &QLineEdit::textEdited, this, &QUnitLineEdit::slotTextEdited);
    connect(&DisplayUnitManager::instance(), &DisplayUnitManager::displayChanged, this,
            &QUnitLineEdit::slotDisplayUnitChanged);
}

void QUnitLineEdit::unitManager(boost::shared_ptr<UnitManager> poUnitManager)
{
    m_poUnitManager = std::move(poUnitManager);
    showModelValue();
}

void QUnitLineEdit::setModelValue(double dValue, bool bEmit)
{
    const double dNewValue = isMissing(dValue) ? g_dMissingValue : dValue;
    const bool bChanged = dNewValue != m_dModelValue;
    m_dModelValue = dNewValue;
    showModelValue();
    if (bChanged && bEmit)
        emit modelValueChanged(m_dModelValue);
}

void QUnitLineEdit::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape && isModified()) {
        showModelValue();
        return;
    }
    if (pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter)
        commit();
    QLineEdit::keyPressEvent(pEvent);
}

void QUnitLineEdit::focusOutEvent(QFocusEvent* pEvent)
{
    // A popup (context menu, completer) takes the focus only for a while.
    if (pEvent->reason() != Qt::PopupFocusReason && isModified()) {
        commit();
        if (!m_bTextValid)
            showModelValue();
    }
    QLineEdit::focusOutEvent(pEvent);
}

void QUnitLineEdit::changeEvent(QEvent* pEvent)
{
    QLineEdit::changeEvent(pEvent);
    if (pEvent->type() == QEvent::StyleChange && m_pqInvalidMark)
        m_pqInvalidMark->setIcon(style()->standardIcon(QStyle::SP_MessageBoxWarning));
}

void QUnitLineEdit::slotDisplayUnitChanged(const QString& sCategory)
{
    if (m_poUnitManager && m_poUnitManager->category() == sCategory)
        showModelValue();
}

void QUnitLineEdit::slotTextEdited(const QString& sText)
{
    const std::optional<NumberWithUnit> oTyped = NumberWithUnit::parse(sText);
    setTextValid(isNothing(sText) || (oTyped && oTyped->modelValue(m_poUnitManager.get())));
}

void QUnitLineEdit::commit()
{
    // A text that nobody edited is the value rounded for display; taking it would lose digits.
    if (!isModified() || !m_bTextValid)
        return;
    const std::optional<NumberWithUnit> oTyped = NumberWithUnit::parse(text());
    const std::optional<double> oModelValue = oTyped ? oTyped->modelValue(m_poUnitManager.get()) : std::nullopt;
    setModelValue(oModelValue.value_or(g_dMissingValue), true);
}

void QUnitLineEdit::showModelValue()
{
    QString sText;
    if (!isMissing(m_dModelValue)) {
        if (m_poUnitManager) {
            const double dShown = m_poUnitManager->convertModelToDisplay(m_dModelValue);
            sText = QString::number(dShown, 'f', m_poUnitManager->precision());
            if (const QString sTag = m_poUnitManager->getDisplayUnitTag(); !sTag.isEmpty())
                sText += QLatin1Char(' ') + sTag;
        } else {
            sText = QString::number(m_dModelValue, 'g', 10);
        }
    }
    setText(sText);
    setModified(false);
    setTextValid(true);
}

void QUnitLineEdit::setTextValid(bool bValid)
{
    m_bTextValid = bValid;
    updateMark();
}

void QUnitLineEdit::updateMark()
{
    m_pqInvalidMark->setVisible(!m_bTextValid);
    setAccessibleDescription(m_bTextValid ? QString() : m_pqInvalidMark->toolTip());
}

} // namespace gkBase
