#include "QUnitLineEdit.h"

#include "DisplayUnitManager.h"
#include "MissingValue.h"
#include "UnitConverter.h"

#include <QAction>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QStyle>

#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

namespace gkBase {

namespace {

struct NumberWithUnit
{
    double m_dValue = 0.0;
    QString m_sUnit; ///< empty when the text has none
};

/// "12.5 ft" → 12.5, "ft". The number may have a decimal comma instead of the point, but no grouping; nothing else may
/// stand before it.
std::optional<NumberWithUnit> parseNumberWithUnit(const QString& sText)
{
    // A sign that looks like a minus is one.
    QString sNumber = sText.trimmed();
    sNumber.replace(QChar(0x2212), QLatin1Char('-')).replace(QLatin1Char(','), QLatin1Char('.'));
    if (sNumber.startsWith(QLatin1String("+-")))
        return std::nullopt;
    if (sNumber.startsWith(QLatin1Char('+')))
        sNumber.remove(0, 1);
    const QByteArray aNumber = sNumber.toUtf8();

    NumberWithUnit oResult;
    const char* pcEnd = aNumber.constData() + aNumber.size();
    const std::from_chars_result parsed = std::from_chars(aNumber.constData(), pcEnd, oResult.m_dValue);
    if (parsed.ec != std::errc() || !std::isfinite(oResult.m_dValue))
        return std::nullopt;
    oResult.m_sUnit = QString::fromUtf8(parsed.ptr, pcEnd - parsed.ptr).trimmed();
    // What follows a number is a unit only when it cannot be more of a number ("1.5.2", "1 234").
    if (!oResult.m_sUnit.isEmpty() && (oResult.m_sUnit[0].isDigit() || oResult.m_sUnit[0] == QLatin1Char('.')))
        return std::nullopt;
    return oResult;
}

/// The typed value in model units; nothing when its unit does not convert to them.
std::optional<double> toModelValue(const NumberWithUnit& oTyped, const UnitManager* poUnitManager)
{
    if (!poUnitManager)
        return oTyped.m_sUnit.isEmpty() ? std::optional(oTyped.m_dValue) : std::nullopt;
    if (oTyped.m_sUnit.isEmpty() || oTyped.m_sUnit == poUnitManager->getDisplayUnitTag())
        return poUnitManager->convertDisplayToModel(oTyped.m_dValue);
    const auto poConverter = UnitConverter::create(oTyped.m_sUnit, poUnitManager->modelUnit());
    return poConverter ? std::optional(poConverter->forward(oTyped.m_dValue)) : std::nullopt;
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
    const std::optional<NumberWithUnit> oTyped = parseNumberWithUnit(sText);
    setTextValid(sText.trimmed().isEmpty() || (oTyped && toModelValue(*oTyped, m_poUnitManager.get())));
}

void QUnitLineEdit::commit()
{
    // A text that nobody edited is the value rounded for display; taking it would lose digits.
    if (!isModified() || !m_bTextValid)
        return;
    const std::optional<NumberWithUnit> oTyped = parseNumberWithUnit(text());
    const std::optional<double> oModelValue = oTyped ? toModelValue(*oTyped, m_poUnitManager.get()) : std::nullopt;
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
