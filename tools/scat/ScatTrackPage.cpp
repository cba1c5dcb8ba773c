#include "ScatTrackPage.h"

#include "AngleUnits.h"
#include "ChartPanelControls.h"
#include "ColorButton.h"
#include "MissingValue.h"
#include "QIntSpinBoxWithSlider.h"
#include "QUnitLineEdit.h"
#include "ScatMixedControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

namespace gkBase {

namespace {

constexpr int g_iLabelLines = 2;

} // namespace

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
    m_pqActiveLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    fixLabelHeight(); // other controls stay where they are whatever it says
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
    connect(m_pqTadpoles, &QCheckBox::stateChanged, this, &ScatTrackPage::edited);
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
    if (m_pqTadpoles->checkState() != m_eShownTadpoles)
        settings.setTadpoles(m_pqTadpoles->isChecked());
    if (m_pqHorizontalMinEdit->modelValue() != m_dShownMinimum)
        settings.m_dMinimum = m_pqHorizontalMinEdit->modelValue();
    if (m_pqHorizontalMaxEdit->modelValue() != m_dShownMaximum)
        settings.m_dMaximum = m_pqHorizontalMaxEdit->modelValue();
}

void ScatTrackPage::setSettings(const std::vector<Shown>& vShown)
{
    const QSignalBlocker blocker(this);
    const auto common = [&vShown](const auto& fnValue) {
        return std::all_of(vShown.begin(), vShown.end(),
                           [&](const Shown& shown) { return fnValue(shown) == fnValue(vShown.front()); });
    };
    const ScatTrackSettings& first = vShown.front().m_settings;
    showChoice(*m_pqDataComboBox, common([](const Shown& shown) { return shown.m_settings.m_eData; }), first.m_eData);
    m_eShownTadpoles = showSwitch(
        *m_pqTadpoles, common([](const Shown& shown) { return shown.m_settings.m_bTadpoles; }), first.m_bTadpoles);
    m_pqLineColorButton->setColor(first.m_oLineColor);
    m_pqPointColorButton->setColor(first.m_oPointColor);
    m_pqVertexSampling->setValue(first.m_iVertexSampling);
    const bool bMinimum = common([](const Shown& shown) { return shown.m_dMinimum; });
    const bool bMaximum = common([](const Shown& shown) { return shown.m_dMaximum; });
    m_dShownMinimum = bMinimum ? vShown.front().m_dMinimum : g_dMissingValue;
    m_dShownMaximum = bMaximum ? vShown.front().m_dMaximum : g_dMissingValue;
    m_pqHorizontalMinEdit->setModelValue(m_dShownMinimum, false);
    m_pqHorizontalMaxEdit->setModelValue(m_dShownMaximum, false);
    m_pqHorizontalMinEdit->setPlaceholderText(bMinimum ? QString() : variousText());
    m_pqHorizontalMaxEdit->setPlaceholderText(bMaximum ? QString() : variousText());
}

bool ScatTrackPage::areLimitsReversed() const
{
    const double dMinimum = m_pqHorizontalMinEdit->modelValue();
    const double dMaximum = m_pqHorizontalMaxEdit->modelValue();
    return !isMissing(dMinimum) && !isMissing(dMaximum) && !(dMinimum < dMaximum);
}

QColor ScatTrackPage::lineColor() const
{
    return m_pqLineColorButton->color();
}

QColor ScatTrackPage::pointColor() const
{
    return m_pqPointColorButton->color();
}

int ScatTrackPage::vertexSampling() const
{
    return m_pqVertexSampling->getValue();
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

void ScatTrackPage::setActiveTracks(const QStringList& lNames)
{
    m_pqActiveLabel->setText(
        tr("Active tracks: %1").arg(lNames.isEmpty() ? tr("all") : lNames.join(QStringLiteral(", "))));
}

void ScatTrackPage::fixLabelHeight()
{
    m_pqActiveLabel->setFixedHeight(g_iLabelLines * m_pqActiveLabel->fontMetrics().lineSpacing());
}

void ScatTrackPage::changeEvent(QEvent* pEvent)
{
    QWidget::changeEvent(pEvent);
    if (pEvent->type() == QEvent::FontChange || pEvent->type() == QEvent::StyleChange)
        fixLabelHeight();
}

} // namespace gkBase
