#include "DepthIntervalPage.h"

#include "IntervalBins.h"
#include "MissingValue.h"
#include "QUnitLineEdit.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <utility>

namespace gkBase {

namespace {

constexpr int g_iFirstNumber = 10;

} // namespace

DepthIntervalPage::DepthIntervalPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqSizeEdit(new QUnitLineEdit)
    , m_pqSizeButton(new QPushButton(tr("Apply")))
    , m_pqNumberSpinBox(new QSpinBox)
    , m_pqNumberButton(new QPushButton(tr("Apply")))
    , m_pqByHand(new QCheckBox(tr("Edit by hand")))
    , m_pqRemoveButton(new QPushButton(tr("Remove All")))
    , m_pqCount(new QLabel)
{
    m_pqSizeEdit->setAccessibleName(tr("Interval Size"));
    m_pqSizeEdit->setToolTip(tr("Depth from one boundary to the next"));
    m_pqSizeEdit->setMinimumWidth(40);
    m_pqSizeButton->setAccessibleName(tr("Apply the interval size"));
    m_pqNumberSpinBox->setRange(1, g_iMaximumIntervalLines - 1);
    m_pqNumberSpinBox->setValue(g_iFirstNumber);
    m_pqNumberSpinBox->setAccessibleName(tr("Number of intervals"));
    m_pqNumberSpinBox->setToolTip(tr("Intervals of equal size over the depths that are shown"));
    m_pqNumberButton->setAccessibleName(tr("Apply the number of intervals"));
    m_pqByHand->setToolTip(tr("A click into a track inserts a boundary, a click on a boundary removes it"));
    m_pqSizeEdit->setObjectName(QStringLiteral("m_pqSizeEdit"));
    m_pqSizeButton->setObjectName(QStringLiteral("m_pqSizeButton"));
    m_pqNumberSpinBox->setObjectName(QStringLiteral("m_pqNumberSpinBox"));
    m_pqNumberButton->setObjectName(QStringLiteral("m_pqNumberButton"));
    m_pqByHand->setObjectName(QStringLiteral("m_pqByHand"));
    m_pqRemoveButton->setObjectName(QStringLiteral("m_pqRemoveButton"));
    auto* pqLayout = new QGridLayout(this);
    pqLayout->addWidget(new QLabel(tr("Interval Size")), 0, 0, 1, 2);
    pqLayout->addWidget(m_pqSizeEdit, 1, 0);
    pqLayout->addWidget(m_pqSizeButton, 1, 1);
    pqLayout->addWidget(new QLabel(tr("Number of Intervals")), 2, 0, 1, 2);
    pqLayout->addWidget(m_pqNumberSpinBox, 3, 0);
    pqLayout->addWidget(m_pqNumberButton, 3, 1);
    pqLayout->addWidget(m_pqByHand, 4, 0, 1, 2);
    pqLayout->addWidget(m_pqCount, 5, 0);
    pqLayout->addWidget(m_pqRemoveButton, 5, 1);
    pqLayout->setRowStretch(6, 1);
    pqLayout->setColumnStretch(0, 1);
    setNumberOfIntervals(0);
    connectControls();
}

void DepthIntervalPage::connectControls()
{
    const auto applySize = [this] {
        if (!isMissing(m_pqSizeEdit->modelValue()))
            emit sizeAsked(m_pqSizeEdit->modelValue());
    };
    connect(m_pqSizeButton, &QPushButton::clicked, this, applySize);
    connect(m_pqSizeEdit, &QLineEdit::returnPressed, this, applySize);
    connect(m_pqNumberButton, &QPushButton::clicked, this, [this] { emit numberAsked(m_pqNumberSpinBox->value()); });
    connect(m_pqByHand, &QCheckBox::toggled, this, &DepthIntervalPage::byHandSwitched);
    connect(m_pqRemoveButton, &QPushButton::clicked, this, &DepthIntervalPage::removeAllAsked);
}

void DepthIntervalPage::setUnitManager(boost::shared_ptr<UnitManager> poUnit)
{
    m_pqSizeEdit->unitManager(std::move(poUnit));
}

void DepthIntervalPage::setSize(double dSize)
{
    m_pqSizeEdit->setModelValue(dSize, false);
}

void DepthIntervalPage::setNumberOfIntervals(int iIntervals)
{
    m_pqCount->setText(iIntervals == 0 ? tr("No intervals") : tr("Intervals: %1").arg(iIntervals));
    m_pqRemoveButton->setEnabled(iIntervals > 0);
}

void DepthIntervalPage::setByHand(bool bOn)
{
    m_pqByHand->setChecked(bOn);
}

} // namespace gkBase
