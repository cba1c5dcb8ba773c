#include "ScatTrackPage.h"

#include "AngleUnits.h"
#include "ChartPanelControls.h"
#include "ColorButton.h"
#include "QIntSpinBoxWithSlider.h"
#include "QUnitLineEdit.h"
#include "ScatSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

namespace gkBase {

ScatTrackPage::ScatTrackPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqActiveLabel(new QLabel)
    , m_pqDataComboBox(newChooser(tr("Data"), tr("How the records are drawn"), QStringLiteral("m_pqDisplayDataType")))
    , m_pqLineColorButton(new ColorButton(tr("Colour of the line"), tr("Colour of the line"), tr("Default")))
    , m_pqPointColorButton(new ColorButton(tr("Colour of the points"), tr("Colour of the points"), tr("Default")))
    , m_pqTadpoles(newCheckBox(tr("Tadpoles"), tr("Points with a tail towards the dip azimuth"), "m_pqTadpoles"))
    , m_pqVertexSampling(new QIntSpinBoxWithSlider(1, ScatTrackSettings::s_iMostSampling, 99))
    , m_dShownMinimum(g_dMissingValue)
    , m_dShownMaximum(g_dMissingValue)
{
    m_pqActiveLabel->setWordWrap(true);
    m_pqActiveLabel->setTextFormat(Qt::PlainText);
    m_pqActiveLabel->setToolTip(
        tr("A click on the header of a track makes it the active one, with Ctrl beside others"));
    m_pqDataComboBox->addItems({tr("Points"), tr("Line"), tr("Points and Line")});
    m_pqLineColorButton->setObjectName(QStringLiteral("m_pqLineColorButton"));
    m_pqPointColorButton->setObjectName(QStringLiteral("m_pqPointColorButton"));
    m_pqVertexSampling->setObjectName(QStringLiteral("m_pqVertexSampling"));
    m_pqVertexSampling->setControlName(tr("Vertex Sampling"));
    m_pqVertexSampling->setToolTip(tr("1 takes every record, n every n-th; in all tracks"));
    auto* pqForm = new QFormLayout(this);
    pqForm->setRowWrapPolicy(QFormLayout::DontWrapRows);
    pqForm->addRow(m_pqActiveLabel);
    pqForm->addRow(tr("Data"), m_pqDataComboBox);
    pqForm->addRow(tr("Line Color"), m_pqLineColorButton);
    pqForm->addRow(tr("Point Color"), m_pqPointColorButton);
    pqForm->addRow(m_pqTadpoles);
    pqForm->addRow(tr("Vertex Sampling"), m_pqVertexSampling);
    m_pqHorizontalMinEdit = newLimit(pqForm, tr("Horizontal Min"), "m_pqHorizontalMinEdit");
    m_pqHorizontalMaxEdit = newLimit(pqForm, tr("Horizontal Max"), "m_pqHorizontalMaxEdit");
    m_pqVerticalMinEdit = newLimit(pqForm, tr("Vertical Min"), "m_pqVerticalMinEdit");
    m_pqVerticalMaxEdit = newLimit(pqForm, tr("Vertical Max"), "m_pqVerticalMaxEdit");
    for (QUnitLineEdit* pqEdit : {m_pqHorizontalMinEdit, m_pqHorizontalMaxEdit})
        pqEdit->unitManager(degreeUnit());
    auto* pqReset = new QPushButton(tr("Reset Limits"));
    pqReset->setObjectName(QStringLiteral("m_pqResetLimitsBtn"));
    pqReset->setToolTip(tr("All depths, and the limits that suit the active tracks"));
    pqForm->addRow(pqReset);
    connect(m_pqDataComboBox, &QComboBox::activated, this, &ScatTrackPage::dataChosen);
    connect(m_pqLineColorButton, &ColorButton::colorPicked, this, &ScatTrackPage::lineColorPicked);
    connect(m_pqPointColorButton, &ColorButton::colorPicked, this, &ScatTrackPage::pointColorPicked);
    connect(m_pqTadpoles, &QCheckBox::toggled, this, &ScatTrackPage::edited);
    connect(m_pqVertexSampling, &QIntSpinBoxWithSlider::valueChanged, this, &ScatTrackPage::edited);
    connect(pqReset, &QPushButton::clicked, this, [this] { emit boundariesReset(true); });
}

QUnitLineEdit* ScatTrackPage::newLimit(QFormLayout* pqForm, const QString& sName, const char* pObjectName)
{
    auto* pqEdit = new QUnitLineEdit;
    pqEdit->setAccessibleName(sName);
    pqEdit->setObjectName(QLatin1String(pObjectName));
    pqForm->addRow(sName, pqEdit);
    connect(pqEdit, &QUnitLineEdit::modelValueChanged, this, &ScatTrackPage::boundariesEdited);
    return pqEdit;
}

void ScatTrackPage::writeTo(ScatTrackSettings& settings) const
{
    settings.m_eData = static_cast<ScatTrackSettings::Data>(m_pqDataComboBox->currentIndex());
    settings.m_oLineColor = m_pqLineColorButton->color();
    settings.m_oPointColor = m_pqPointColorButton->color();
    settings.m_bTadpoles = m_pqTadpoles->isChecked();
    settings.m_iVertexSampling = m_pqVertexSampling->getValue();
    const double dMinimum = m_pqHorizontalMinEdit->modelValue();
    const double dMaximum = m_pqHorizontalMaxEdit->modelValue();
    if (dMinimum != m_dShownMinimum || dMaximum != m_dShownMaximum) {
        settings.m_dMinimum = dMinimum;
        settings.m_dMaximum = dMaximum;
    }
}

void ScatTrackPage::setSettings(const ScatTrackSettings& settings, double dMinimum, double dMaximum)
{
    const QSignalBlocker blocker(this);
    m_pqDataComboBox->setCurrentIndex(settings.m_eData);
    m_pqLineColorButton->setColor(settings.m_oLineColor);
    m_pqPointColorButton->setColor(settings.m_oPointColor);
    m_pqTadpoles->setChecked(settings.m_bTadpoles);
    m_pqVertexSampling->setValue(settings.m_iVertexSampling);
    m_pqHorizontalMinEdit->setModelValue(dMinimum, false);
    m_pqHorizontalMaxEdit->setModelValue(dMaximum, false);
    m_dShownMinimum = dMinimum;
    m_dShownMaximum = dMaximum;
}

void ScatTrackPage::setDepthUnit(const boost::shared_ptr<UnitManager>& poUnit)
{
    m_pqVerticalMinEdit->unitManager(poUnit);
    m_pqVerticalMaxEdit->unitManager(poUnit);
}

void ScatTrackPage::setDepthRange(double dFrom, double dTo)
{
    m_pqVerticalMinEdit->setModelValue(dFrom, false);
    m_pqVerticalMaxEdit->setModelValue(dTo, false);
}

double ScatTrackPage::depthFrom() const
{
    return m_pqVerticalMinEdit->modelValue();
}

double ScatTrackPage::depthTo() const
{
    return m_pqVerticalMaxEdit->modelValue();
}

void ScatTrackPage::setActiveTracks(const QString& sNames)
{
    m_pqActiveLabel->setText(tr("Active tracks: %1").arg(sNames));
}

} // namespace gkBase
