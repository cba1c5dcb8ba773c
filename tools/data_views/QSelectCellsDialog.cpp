#include "QSelectCellsDialog.h"

#include "UnitManager.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace gkBase {

namespace {

QWidget* editWithUnit(QLineEdit* pqEdit, QLabel* pqUnitLabel)
{
    auto* pqRow = new QWidget;
    auto* pqLayout = new QHBoxLayout(pqRow);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->addWidget(pqEdit, 1);
    pqLayout->addWidget(pqUnitLabel);
    return pqRow;
}

QLabel* plainLabel(QWidget* pqParent)
{
    auto* pqLabel = new QLabel(pqParent);
    pqLabel->setTextFormat(Qt::PlainText);
    return pqLabel;
}

} // namespace

QSelectCellsDialog::QSelectCellsDialog(QWidget* pqParent)
    : QDialog(pqParent)
{
    setWindowTitle(tr("Select Cell(s)"));
    setModal(false);
    createWidgets();
    createLayout();
    connectWidgets();
    updateMethods();
    setColumns({});
}

void QSelectCellsDialog::createWidgets()
{
    m_pqByValueButton = new QRadioButton(tr("By &value"), this);
    m_pqByColumnButton = new QRadioButton(tr("By &columns"), this);
    m_pqByValueButton->setChecked(true);
    m_pqValueBox = new QGroupBox(tr("Condition"), this);
    m_pqColumnBox = new QGroupBox(tr("Columns"), this);

    m_pqAttributeLabel = plainLabel(m_pqValueBox);
    m_pqMethodBox = new QComboBox(m_pqValueBox);
    m_pqMethodBox->setAccessibleName(tr("Condition"));
    m_pqValue1Edit = new QLineEdit(m_pqValueBox);
    m_pqValue1Edit->setAccessibleName(tr("First value"));
    m_pqValue2Edit = new QLineEdit(m_pqValueBox);
    m_pqValue2Edit->setAccessibleName(tr("Second value"));
    m_pqValue1Label = new QLabel(tr("Value:"), m_pqValueBox);
    m_pqValue2Label = new QLabel(tr("and:"), m_pqValueBox);
    m_pqUnit1Label = plainLabel(m_pqValueBox);
    m_pqUnit2Label = plainLabel(m_pqValueBox);
    m_pqRowsButton = new QRadioButton(tr("&Rows"), m_pqValueBox);
    m_pqRowsButton->setToolTip(tr("Select the whole row of every cell that satisfies the condition"));
    m_pqCellsButton = new QRadioButton(tr("C&ells"), m_pqValueBox);
    m_pqCellsButton->setToolTip(tr("Select only the cells that satisfy the condition"));
    m_pqRowsButton->setChecked(true);

    m_pqFromBox = new QComboBox(m_pqColumnBox);
    m_pqFromBox->setAccessibleName(tr("First column"));
    m_pqToBox = new QComboBox(m_pqColumnBox);
    m_pqToBox->setAccessibleName(tr("Last column"));
    for (QComboBox* pqBox : {m_pqFromBox, m_pqToBox}) {
        pqBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        pqBox->setMinimumContentsLength(16);
    }

    m_pqKeepBox = new QCheckBox(tr("&Keep previous selection"), this);
    m_pqHintLabel = plainLabel(this);
    m_pqHintLabel->setWordWrap(true);
    m_pqHintLabel->setMinimumHeight(2 * m_pqHintLabel->fontMetrics().lineSpacing());
    m_pqHintLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_pqAcceptButton = new QPushButton(tr("&Select"), this);
    m_pqAcceptButton->setDefault(true);
    m_pqClearButton = new QPushButton(tr("C&lear Selection"), this);
    m_pqCloseButton = new QPushButton(tr("Close"), this);
    m_pqClearButton->setAutoDefault(false);
    m_pqCloseButton->setAutoDefault(false);
}

void QSelectCellsDialog::createLayout()
{
    auto* pqScopeLayout = new QHBoxLayout;
    pqScopeLayout->addWidget(m_pqRowsButton);
    pqScopeLayout->addWidget(m_pqCellsButton);
    pqScopeLayout->addStretch();

    auto* pqValueLayout = new QFormLayout(m_pqValueBox);
    pqValueLayout->addRow(tr("Attribute:"), m_pqAttributeLabel);
    pqValueLayout->addRow(tr("Cells that are:"), m_pqMethodBox);
    pqValueLayout->addRow(m_pqValue1Label, editWithUnit(m_pqValue1Edit, m_pqUnit1Label));
    pqValueLayout->addRow(m_pqValue2Label, editWithUnit(m_pqValue2Edit, m_pqUnit2Label));
    pqValueLayout->addRow(tr("Select:"), pqScopeLayout);
    m_pqValue1Label->setBuddy(m_pqValue1Edit);
    m_pqValue2Label->setBuddy(m_pqValue2Edit);

    auto* pqColumnLayout = new QFormLayout(m_pqColumnBox);
    pqColumnLayout->addRow(tr("From:"), m_pqFromBox);
    pqColumnLayout->addRow(tr("To:"), m_pqToBox);

    auto* pqModeLayout = new QHBoxLayout;
    pqModeLayout->addWidget(m_pqByValueButton);
    pqModeLayout->addWidget(m_pqByColumnButton);
    pqModeLayout->addStretch();

    auto* pqButtonBox = new QDialogButtonBox(this);
    pqButtonBox->addButton(m_pqAcceptButton, QDialogButtonBox::ActionRole);
    pqButtonBox->addButton(m_pqClearButton, QDialogButtonBox::ActionRole);
    pqButtonBox->addButton(m_pqCloseButton, QDialogButtonBox::RejectRole);

    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addLayout(pqModeLayout);
    pqLayout->addWidget(m_pqValueBox);
    pqLayout->addWidget(m_pqColumnBox);
    pqLayout->addWidget(m_pqKeepBox);
    pqLayout->addWidget(m_pqHintLabel);
    pqLayout->addStretch();
    pqLayout->addWidget(pqButtonBox);
}

void QSelectCellsDialog::connectWidgets()
{
    connect(m_pqByColumnButton, &QRadioButton::toggled, this, &QSelectCellsDialog::updateInput);
    connect(m_pqMethodBox, &QComboBox::currentIndexChanged, this, &QSelectCellsDialog::updateInput);
    connect(m_pqValue1Edit, &QLineEdit::textChanged, this, &QSelectCellsDialog::updateInput);
    connect(m_pqValue2Edit, &QLineEdit::textChanged, this, &QSelectCellsDialog::updateInput);
    connect(m_pqClearButton, &QPushButton::clicked, this, &QSelectCellsDialog::clearSelection);
    connect(m_pqCloseButton, &QPushButton::clicked, this, &QSelectCellsDialog::reject);
}

QString QSelectCellsDialog::methodText(Method eMethod) const
{
    switch (eMethod) {
    case CellCondition::Equal:
        return tr("equal to");
    case CellCondition::NotEqual:
        return tr("not equal to");
    case CellCondition::Less:
        return tr("less than");
    case CellCondition::Greater:
        return tr("greater than");
    case CellCondition::Between:
        return tr("between (limits included)");
    case CellCondition::Outside:
        return tr("outside");
    case CellCondition::Empty:
        return tr("empty");
    case CellCondition::Contains:
        return tr("containing the text");
    }
    return QString();
}

QString QSelectCellsDialog::valueHint() const
{
    if (method() == CellCondition::Contains)
        return tr("Enter a part of the text that the cells show.");
    switch (m_eType) {
    case QMetaType::Double:
    case QMetaType::Int:
        return tr("Enter a number.");
    case QMetaType::QColor:
        return tr("Enter a colour as #rrggbb or by its name.");
    case QMetaType::Bool:
        return tr("Enter true or false.");
    default:
        return tr("Enter a value.");
    }
}

// The methods that fit the attribute's type; the chosen one stays when it fits.
void QSelectCellsDialog::updateMethods()
{
    const Method eChosen = method();
    {
        const QSignalBlocker oBlocker(m_pqMethodBox);
        m_pqMethodBox->clear();
        for (int i = 0; i < CellCondition::s_iMethods; ++i)
            if (CellCondition::isApplicable(static_cast<Method>(i), m_eType))
                m_pqMethodBox->addItem(methodText(static_cast<Method>(i)), i);
        m_pqMethodBox->setCurrentIndex(std::max(0, m_pqMethodBox->findData(static_cast<int>(eChosen))));
    }
    updateInput();
}

void QSelectCellsDialog::updateInput()
{
    const bool bColumns = isColumnSelection();
    const int iValues = CellCondition::valueCount(method());
    m_pqValueBox->setEnabled(!bColumns);
    m_pqColumnBox->setEnabled(bColumns);
    m_pqValue1Edit->setEnabled(iValues >= 1);
    m_pqValue1Label->setEnabled(iValues >= 1);
    m_pqValue2Edit->setEnabled(iValues == 2);
    m_pqValue2Label->setEnabled(iValues == 2);

    const bool bValid = bColumns ? columnFrom() >= 0 : condition().isValid(m_eType);
    m_pqAcceptButton->setEnabled(bValid);
    m_pqHintLabel->setText(bValid || bColumns ? QString() : valueHint());
}

void QSelectCellsDialog::setAttribute(const QString& sName, QMetaType::Type eType,
                                      const boost::shared_ptr<UnitManager>& poUnit)
{
    m_eType = eType;
    const QString sUnit = poUnit ? poUnit->getDisplayUnitTag() : QString();
    m_pqAttributeLabel->setText(sName);
    for (QLabel* pqLabel : {m_pqUnit1Label, m_pqUnit2Label}) {
        pqLabel->setText(sUnit);
        pqLabel->setVisible(!sUnit.isEmpty());
    }
    const QString sTip = sUnit.isEmpty() ? QString() : tr("In %1").arg(poUnit->getDisplayUnitName());
    m_pqValue1Edit->setToolTip(sTip);
    m_pqValue2Edit->setToolTip(sTip);
    updateMethods();
}

void QSelectCellsDialog::setColumns(const QStringList& lNames)
{
    const int iFrom = std::max(0, m_pqFromBox->currentIndex());
    const int iTo = std::max(0, m_pqToBox->currentIndex());
    for (QComboBox* pqBox : {m_pqFromBox, m_pqToBox}) {
        pqBox->clear();
        pqBox->addItems(lNames);
    }
    setColumnRange(iFrom, iTo);
    m_pqByColumnButton->setEnabled(!lNames.isEmpty());
    if (lNames.isEmpty())
        m_pqByValueButton->setChecked(true);
    updateInput();
}

QString QSelectCellsDialog::value1() const
{
    return CellCondition::valueCount(method()) >= 1 ? m_pqValue1Edit->text() : QString();
}

QString QSelectCellsDialog::value2() const
{
    return CellCondition::valueCount(method()) == 2 ? m_pqValue2Edit->text() : QString();
}

QSelectCellsDialog::Method QSelectCellsDialog::method() const
{
    return static_cast<Method>(m_pqMethodBox->currentData().toInt());
}

CellCondition QSelectCellsDialog::condition() const
{
    return CellCondition(method(), value1(), value2());
}

bool QSelectCellsDialog::isRowSelection() const
{
    return m_pqRowsButton->isChecked();
}

bool QSelectCellsDialog::keepPreviousSelection() const
{
    return m_pqKeepBox->isChecked();
}

bool QSelectCellsDialog::isColumnSelection() const
{
    return m_pqByColumnButton->isChecked();
}

int QSelectCellsDialog::columnFrom() const
{
    return std::min(m_pqFromBox->currentIndex(), m_pqToBox->currentIndex());
}

int QSelectCellsDialog::columnTo() const
{
    return std::max(m_pqFromBox->currentIndex(), m_pqToBox->currentIndex());
}

void QSelectCellsDialog::setMethod(Method eMethod)
{
    const int iIndex = m_pqMethodBox->findData(static_cast<int>(eMethod));
    if (iIndex >= 0)
        m_pqMethodBox->setCurrentIndex(iIndex);
}

void QSelectCellsDialog::setValues(const QString& sValue1, const QString& sValue2)
{
    m_pqValue1Edit->setText(sValue1);
    m_pqValue2Edit->setText(sValue2);
}

void QSelectCellsDialog::setColumnSelection(bool bColumns)
{
    if (m_pqByColumnButton->isEnabled() || !bColumns)
        (bColumns ? m_pqByColumnButton : m_pqByValueButton)->setChecked(true);
}

void QSelectCellsDialog::setColumnRange(int iFrom, int iTo)
{
    const int iLast = m_pqFromBox->count() - 1;
    if (iLast < 0)
        return;
    m_pqFromBox->setCurrentIndex(std::clamp(iFrom, 0, iLast));
    m_pqToBox->setCurrentIndex(std::clamp(iTo, 0, iLast));
}

void QSelectCellsDialog::setRowSelection(bool bRows)
{
    (bRows ? m_pqRowsButton : m_pqCellsButton)->setChecked(true);
}

void QSelectCellsDialog::setKeepPreviousSelection(bool bKeep)
{
    m_pqKeepBox->setChecked(bKeep);
}

} // namespace gkBase
