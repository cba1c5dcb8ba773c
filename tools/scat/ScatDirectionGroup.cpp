#include "ScatDirectionGroup.h"

#include "AngleUnits.h"
#include "Angles.h"
#include "ChartPanelControls.h"
#include "MatrixData.h"
#include "QUnitLineEdit.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace gkBase {

namespace {

double directionOf(const QUnitLineEdit& edit)
{
    const double dDirection = wrapAzimuth(edit.modelValue());
    return isMissing(dDirection) ? 0.0 : dDirection;
}

} // namespace

ScatDirectionGroup::ScatDirectionGroup(QWidget* pqParent)
    : QGroupBox(tr("T and L Direction"), pqParent)
    , m_pqKeepCheckBox(newCheckBox(tr("Keep T and L Direction"),
                                   tr("A new selection does not change the directions while this is checked"),
                                   "m_pqKeepTandLCheckBox"))
    , m_pqTransverseEdit(newEdit(tr("Direction of most Change (T Direction)"), "m_pqTDirectionEdit"))
    , m_pqLongitudinalEdit(newEdit(tr("Direction of least Change (L Direction)"), "m_pqLDirectionEdit"))
    , m_pqFirstRow(new QHBoxLayout)
    , m_pqLayout(new QVBoxLayout(this))
{
    m_pqKeepCheckBox->setChecked(true);
    setAngles(nullptr);
    auto* pqGrid = new QGridLayout;
    int iRow = 0;
    for (QUnitLineEdit* pqEdit : {m_pqTransverseEdit, m_pqLongitudinalEdit}) {
        auto*& pqLabel = m_apqLabels[static_cast<std::size_t>(iRow)];
        pqLabel = new QLabel(pqEdit->accessibleName());
        pqLabel->setWordWrap(true);
        pqLabel->setBuddy(pqEdit);
        pqGrid->addWidget(pqLabel, iRow, 0);
        pqGrid->addWidget(pqEdit, iRow++, 1);
        pqEdit->setModelValue(0.0, false);
    }
    pqGrid->setColumnStretch(0, 1);
    m_pqFirstRow->addWidget(m_pqKeepCheckBox, 1);
    m_pqLayout->addLayout(m_pqFirstRow);
    m_pqLayout->addLayout(pqGrid);
    connect(m_pqKeepCheckBox, &QCheckBox::toggled, this, &ScatDirectionGroup::keepSwitched);
    connect(m_pqTransverseEdit, &QUnitLineEdit::modelValueChanged, this, [this] {
        setTransverse(transverse());
        emit transverseEdited(transverse());
    });
    connect(m_pqLongitudinalEdit, &QUnitLineEdit::modelValueChanged, this, [this] {
        setLongitudinal(longitudinal());
        emit longitudinalEdited(longitudinal());
    });
}

QUnitLineEdit* ScatDirectionGroup::newEdit(const QString& sName, const char* pObjectName)
{
    auto* pqEdit = new QUnitLineEdit;
    pqEdit->setObjectName(QLatin1String(pObjectName));
    pqEdit->setAccessibleName(sName);
    pqEdit->setFixedWidth(pqEdit->fontMetrics().horizontalAdvance(QStringLiteral("0000.0 deg")));
    pqEdit->setToolTip(tr("Clockwise from north, towards which an apparent dip is positive"));
    return pqEdit;
}

double ScatDirectionGroup::transverse() const
{
    return directionOf(*m_pqTransverseEdit);
}

double ScatDirectionGroup::longitudinal() const
{
    return directionOf(*m_pqLongitudinalEdit);
}

void ScatDirectionGroup::show(QUnitLineEdit* pqEdit, double dDirection)
{
    const double dWrapped = wrapAzimuth(dDirection);
    if (!isMissing(dWrapped))
        pqEdit->setModelValue(dWrapped, false);
}

void ScatDirectionGroup::setTransverse(double dDirection)
{
    show(m_pqTransverseEdit, dDirection);
}

void ScatDirectionGroup::setLongitudinal(double dDirection)
{
    show(m_pqLongitudinalEdit, dDirection);
}

bool ScatDirectionGroup::isKept() const
{
    return m_pqKeepCheckBox->isChecked();
}

void ScatDirectionGroup::setEditsEnabled(bool bEnabled)
{
    m_pqTransverseEdit->setEnabled(bEnabled);
    m_pqLongitudinalEdit->setEnabled(bEnabled);
}

void ScatDirectionGroup::setAngles(const MatrixData* poDip)
{
    const boost::shared_ptr<UnitManager> poUnit = degreeUnit(poDip ? poDip->registry() : nullptr);
    m_pqTransverseEdit->unitManager(poUnit);
    m_pqLongitudinalEdit->unitManager(poUnit);
}

/// The least height of a wrapped text depends on the width.
void ScatDirectionGroup::resizeEvent(QResizeEvent* pEvent)
{
    QGroupBox::resizeEvent(pEvent);
    for (QLabel* pqLabel : m_apqLabels)
        pqLabel->setMinimumHeight(pqLabel->heightForWidth(pqLabel->width()));
}

void ScatDirectionGroup::addButton(QWidget* pqButton)
{
    m_pqFirstRow->addWidget(pqButton);
}

void ScatDirectionGroup::addHelp(QWidget* pqWidget)
{
    m_pqLayout->addWidget(pqWidget, 1);
}

} // namespace gkBase
