#include "ValueChangeWidget.h"

#include "DisplayUnitManager.h"
#include "UnitManager.h"

#include <QAction>
#include <QColorDialog>
#include <QComboBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

namespace gkBase {

namespace {

constexpr int g_iSwatchSide = 14;

QString methodText(CellChange::Method eMethod)
{
    switch (eMethod) {
    case CellModification::Set:
        return ValueChangeWidget::tr("Set to");
    case CellModification::Add:
        return ValueChangeWidget::tr("Add");
    case CellModification::Subtract:
        return ValueChangeWidget::tr("Subtract");
    case CellModification::Multiply:
        return ValueChangeWidget::tr("Multiply by");
    case CellModification::Divide:
        return ValueChangeWidget::tr("Divide by");
    case CellModification::Interpolate:
        return ValueChangeWidget::tr("Interpolate gaps");
    case CellModification::Clear:
        return ValueChangeWidget::tr("Clear");
    }
    return QString();
}

QIcon swatch(const QColor& oColor)
{
    QPixmap oPicture(g_iSwatchSide, g_iSwatchSide);
    oPicture.fill(oColor);
    return QIcon(oPicture);
}

} // namespace

ValueChangeWidget::ValueChangeWidget(QWidget* pqParent)
    : QWidget(pqParent)
{
    createWidgets();
    createLayout();
    updateMethods();
    connect(m_pqMethodBox, &QComboBox::currentIndexChanged, this, &ValueChangeWidget::slotInput);
    connect(m_pqFlagBox, &QComboBox::currentIndexChanged, this, &ValueChangeWidget::slotInput);
    connect(m_pqValueEdit, &QLineEdit::textChanged, this, &ValueChangeWidget::slotInput);
    connect(m_pqColorButton, &QToolButton::clicked, this, &ValueChangeWidget::chooseColor);
    connect(&DisplayUnitManager::instance(), &DisplayUnitManager::displayChanged, this,
            &ValueChangeWidget::slotDisplayUnitChanged);
}

void ValueChangeWidget::createWidgets()
{
    m_pqMethodBox = new QComboBox(this);
    // As wide as its longest entry, so that the editors of several attributes stand in one column.
    for (int i = 0; i < CellModification::g_iMethods; ++i)
        m_pqMethodBox->addItem(methodText(static_cast<CellChange::Method>(i)), i);
    m_pqMethodBox->setMinimumWidth(m_pqMethodBox->sizeHint().width());
    m_pqValueEdit = new QLineEdit(this);
    m_pqErrorMark =
        m_pqValueEdit->addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::TrailingPosition);
    m_pqErrorMark->setVisible(false);
    m_pqFlagBox = new QComboBox(this);
    m_pqFlagBox->addItem(tr("true"), QStringLiteral("true"));
    m_pqFlagBox->addItem(tr("false"), QStringLiteral("false"));
    m_pqColorButton = new QToolButton(this);
    m_pqColorButton->setToolTip(tr("Choose a colour"));
    m_pqUnitLabel = new QLabel(this);
    m_pqUnitLabel->setTextFormat(Qt::PlainText);
    // Room for a unit even without one: editors of several attributes end at the same place.
    m_pqUnitLabel->setMinimumWidth(m_pqUnitLabel->fontMetrics().horizontalAdvance(QStringLiteral("g/cm³")));
}

void ValueChangeWidget::createLayout()
{
    auto* pqLayout = new QHBoxLayout(this);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->addWidget(m_pqMethodBox);
    pqLayout->addWidget(m_pqValueEdit, 1);
    pqLayout->addWidget(m_pqFlagBox, 1);
    pqLayout->addWidget(m_pqColorButton);
    pqLayout->addWidget(m_pqUnitLabel);
}

void ValueChangeWidget::setAttribute(const QString& sName, QMetaType::Type eType,
                                     const boost::shared_ptr<UnitManager>& poUnit)
{
    m_pqMethodBox->setAccessibleName(tr("Change of %1").arg(sName));
    m_pqValueEdit->setAccessibleName(tr("Value for %1").arg(sName));
    m_pqFlagBox->setAccessibleName(m_pqValueEdit->accessibleName());
    m_poUnit = poUnit;
    if (eType == m_eType) {
        updateUnit();
        return;
    }
    m_eType = eType;
    updateMethods();
}

CellChange::Method ValueChangeWidget::method() const
{
    return static_cast<CellChange::Method>(m_pqMethodBox->currentData().toInt());
}

void ValueChangeWidget::setMethod(CellChange::Method eMethod)
{
    const int iIndex = m_pqMethodBox->findData(static_cast<int>(eMethod));
    if (iIndex >= 0)
        m_pqMethodBox->setCurrentIndex(iIndex);
}

QString ValueChangeWidget::value() const
{
    if (!CellModification::needsOperand(method()))
        return QString();
    return m_eType == QMetaType::Bool ? m_pqFlagBox->currentData().toString() : m_pqValueEdit->text();
}

void ValueChangeWidget::setValue(const QString& sValue)
{
    if (m_eType != QMetaType::Bool)
        m_pqValueEdit->setText(sValue);
    else if (const int iIndex = m_pqFlagBox->findData(sValue.trimmed().toLower()); iIndex >= 0)
        m_pqFlagBox->setCurrentIndex(iIndex);
}

CellChange ValueChangeWidget::change() const
{
    const QString sValue = value();
    // Blanks belong to a text, and to nothing else.
    return CellChange(method(), m_eType == QMetaType::QString ? sValue : sValue.trimmed());
}

QString ValueChangeWidget::error() const
{
    return change().error(m_eType);
}

// The methods that fit the attribute's type; the chosen one stays when it fits.
void ValueChangeWidget::updateMethods()
{
    const CellChange::Method eChosen = method();
    {
        const QSignalBlocker oBlocker(m_pqMethodBox);
        m_pqMethodBox->clear();
        for (int i = 0; i < CellModification::g_iMethods; ++i) {
            const auto eMethod = static_cast<CellChange::Method>(i);
            if (CellModification::isApplicable(eMethod, m_eType))
                m_pqMethodBox->addItem(methodText(eMethod), i);
        }
        m_pqMethodBox->setCurrentIndex(std::max(0, m_pqMethodBox->findData(static_cast<int>(eChosen))));
    }
    slotInput();
}

void ValueChangeWidget::slotInput()
{
    updateEditor();
    emit changed();
}

void ValueChangeWidget::updateEditor()
{
    const bool bOperand = CellModification::needsOperand(method());
    const bool bFlag = m_eType == QMetaType::Bool;
    setFocusProxy(bFlag ? static_cast<QWidget*>(m_pqFlagBox) : m_pqValueEdit);
    m_pqFlagBox->setVisible(bFlag);
    m_pqFlagBox->setEnabled(bOperand);
    m_pqValueEdit->setVisible(!bFlag);
    m_pqValueEdit->setEnabled(bOperand);
    m_pqColorButton->setVisible(m_eType == QMetaType::QColor);
    m_pqColorButton->setEnabled(bOperand);
    if (m_eType == QMetaType::QColor) {
        const QColor oColor(m_pqValueEdit->text().trimmed());
        m_pqColorButton->setIcon(swatch(oColor.isValid() ? oColor : QColor(Qt::transparent)));
    }
    // An empty editor is not wrong yet.
    const QString sError = m_pqValueEdit->text().isEmpty() ? QString() : error();
    m_pqErrorMark->setVisible(!sError.isEmpty());
    m_pqErrorMark->setToolTip(sError);
    m_pqValueEdit->setAccessibleDescription(sError);
    updateUnit();
}

void ValueChangeWidget::updateUnit()
{
    // Whole numbers are shown as they are stored; a factor has no unit.
    const CellChange::Method eMethod = method();
    const bool bUnit =
        m_poUnit && m_eType == QMetaType::Double &&
        (eMethod == CellModification::Set || eMethod == CellModification::Add || eMethod == CellModification::Subtract);
    m_pqUnitLabel->setText(bUnit ? m_poUnit->getDisplayUnitTag() : QString());
    m_pqUnitLabel->setToolTip(bUnit ? m_poUnit->getDisplayUnitName() : QString());
}

void ValueChangeWidget::slotDisplayUnitChanged(const QString& sCategory)
{
    if (!m_poUnit || m_poUnit->category() != sCategory)
        return;
    // The number stays as typed and now means another value.
    updateUnit();
    emit changed();
}

void ValueChangeWidget::chooseColor()
{
    const QColor oOld(m_pqValueEdit->text().trimmed());
    const QColor oColor = QColorDialog::getColor(oOld.isValid() ? oOld : QColor(Qt::white), this);
    if (oColor.isValid())
        m_pqValueEdit->setText(oColor.name());
}

} // namespace gkBase
