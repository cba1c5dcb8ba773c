#include "ChartDisplayPage.h"

#include "ChartViewport.h"
#include "QDoubleSpinBoxWithSlider.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <utility>

namespace gkBase {

namespace {

constexpr double g_dSmallestFont = 5.0;
constexpr double g_dLargestFont = 30.0;
/// What checking the zoom box gives at first.
constexpr double g_dFirstZoom = 2.0;

} // namespace

ChartDisplayPage::ChartDisplayPage(Actions actions, QWidget* pqParent)
    : QWidget(pqParent)
    , m_actions(std::move(actions))
{
    createControls();
    connectControls();
    gridSwitch();
    m_actions.m_fnSetFontSize(m_pqFontSizeSpinBox->getValue());
}

/// Style sheets and scripts find the controls by their object names.
void ChartDisplayPage::createControls()
{
    m_pqShowGrid = new QCheckBox(tr("Grid"));
    m_pqShowGrid->setObjectName(QStringLiteral("m_pqShowGrid"));
    m_pqShowGrid->setChecked(true);
    m_pqShowGrid->setToolTip(tr("Lines at the ticks of both axes"));
    m_pqBlackBackgroundBtn = new QRadioButton(tr("black"));
    m_pqBlackBackgroundBtn->setObjectName(QStringLiteral("m_pqBlackBackgroundBtn"));
    m_pqBlackBackgroundBtn->setAccessibleName(tr("Background Color: black"));
    m_pqWhiteBackgroundBtn = new QRadioButton(tr("white"));
    m_pqWhiteBackgroundBtn->setObjectName(QStringLiteral("m_pqWhiteBackgroundBtn"));
    m_pqWhiteBackgroundBtn->setAccessibleName(tr("Background Color: white"));
    m_pqWhiteBackgroundBtn->setChecked(true);
    m_pqBlackBackgroundBtn->setToolTip(tr("Light texts on black"));
    m_pqWhiteBackgroundBtn->setToolTip(tr("Dark texts on white"));
    auto* pqExclusive = new QButtonGroup(this);
    pqExclusive->addButton(m_pqBlackBackgroundBtn);
    pqExclusive->addButton(m_pqWhiteBackgroundBtn);
    m_pqFontSizeSpinBox = new QDoubleSpinBoxWithSlider(g_dSmallestFont, g_dLargestFont, 50);
    m_pqFontSizeSpinBox->setObjectName(QStringLiteral("m_pqFontSizeSpinBox"));
    m_pqFontSizeSpinBox->setDecimals(1);
    m_pqFontSizeSpinBox->setSuffix(tr(" pt"));
    m_pqFontSizeSpinBox->setControlName(tr("Font Size"));
    m_pqFontSizeSpinBox->setToolTip(tr("Size of the chart's texts in points"));
    m_pqFontSizeSpinBox->setValue(font().pointSizeF());
    m_pqZoomFactorCheckBox = new QCheckBox(tr("Zoom Factor"));
    m_pqZoomFactorCheckBox->setObjectName(QStringLiteral("m_pqZoomFactorCheckBox"));
    m_pqZoomFactorCheckBox->setToolTip(tr("Magnify the chart; the scroll bars move it, the wheel changes the factor"));
    m_pqZoomFactorSpinBox = new QDoubleSpinBoxWithSlider(ChartViewport::s_dMinZoom, ChartViewport::s_dMaxZoom, 190);
    m_pqZoomFactorSpinBox->setObjectName(QStringLiteral("m_pqZoomFactorSpinBox"));
    m_pqZoomFactorSpinBox->setDecimals(1);
    m_pqZoomFactorSpinBox->setControlName(tr("Zoom Factor"));
    m_pqZoomFactorSpinBox->setToolTip(tr("Size of the chart against the window, 1 to 20"));
    m_pqZoomFactorSpinBox->setValue(g_dFirstZoom);
    m_pqZoomFactorSpinBox->setEnabled(false);

    auto* pqBackground = new QHBoxLayout;
    pqBackground->addWidget(m_pqBlackBackgroundBtn);
    pqBackground->addWidget(m_pqWhiteBackgroundBtn);
    m_pqLayout = new QVBoxLayout(this);
    m_pqLayout->addWidget(m_pqShowGrid);
    m_pqLayout->addWidget(new QLabel(tr("Background Color")));
    m_pqLayout->addLayout(pqBackground);
    m_pqLayout->addWidget(new QLabel(tr("Font Size")));
    m_pqLayout->addWidget(m_pqFontSizeSpinBox);
    m_pqLayout->addWidget(m_pqZoomFactorCheckBox);
    m_pqLayout->addWidget(m_pqZoomFactorSpinBox);
    m_pqLayout->addStretch(1);
}

void ChartDisplayPage::connectControls()
{
    using Page = ChartDisplayPage;
    connect(m_pqShowGrid, &QCheckBox::stateChanged, this, &Page::gridSwitch);
    connect(m_pqBlackBackgroundBtn, &QRadioButton::clicked, this, &Page::blackWhiteSwitch);
    connect(m_pqWhiteBackgroundBtn, &QRadioButton::clicked, this, &Page::blackWhiteSwitch);
    connect(m_pqFontSizeSpinBox, &QDoubleSpinBoxWithSlider::valueChanged, this, m_actions.m_fnSetFontSize);
    connect(m_pqZoomFactorCheckBox, &QCheckBox::toggled, this, &Page::slotZoomFactorReset);
    connect(m_pqZoomFactorSpinBox, &QDoubleSpinBoxWithSlider::valueChanged, this, &Page::applyZoom);
}

QCheckBox* ChartDisplayPage::addCheckBox(const QString& sText, const QString& sToolTip, const QString& sObjectName)
{
    auto* pqBox = new QCheckBox(sText);
    pqBox->setChecked(true);
    pqBox->setToolTip(sToolTip);
    pqBox->setObjectName(sObjectName);
    m_pqLayout->insertWidget(m_iBoxes++, pqBox);
    return pqBox;
}

void ChartDisplayPage::hideGrid()
{
    m_pqShowGrid->hide();
}

ChartDisplaySettings ChartDisplayPage::settings() const
{
    return {m_pqShowGrid->isChecked(), blackBackground(), m_pqFontSizeSpinBox->getValue()};
}

void ChartDisplayPage::setSettings(const ChartDisplaySettings& settings)
{
    m_pqShowGrid->setChecked(settings.m_bGrid);
    m_eShownGrid = m_pqShowGrid->checkState();
    setBlackBackground(settings.m_bBlackBackground);
    if (settings.m_dFontSize > 0.0)
        m_pqFontSizeSpinBox->setValue(settings.m_dFontSize);
}

void ChartDisplayPage::setGridMixed(bool bMixed)
{
    m_pqShowGrid->setTristate(bMixed); // clicks lead out of the third state, not into it
    if (bMixed)
        m_pqShowGrid->setCheckState(Qt::PartiallyChecked);
    m_eShownGrid = m_pqShowGrid->checkState();
}

bool ChartDisplayPage::isGridSwitched() const
{
    return m_pqShowGrid->checkState() != m_eShownGrid;
}

bool ChartDisplayPage::blackBackground() const
{
    return m_pqBlackBackgroundBtn->isChecked();
}

void ChartDisplayPage::setBlackBackground(bool bBlack)
{
    m_pqBlackBackgroundBtn->setChecked(bBlack);
    m_pqWhiteBackgroundBtn->setChecked(!bBlack);
    blackWhiteSwitch();
}

void ChartDisplayPage::gridSwitch()
{
    m_actions.m_fnSetGrid(m_pqShowGrid->isChecked());
}

void ChartDisplayPage::blackWhiteSwitch()
{
    m_actions.m_fnSetBlackBackground(blackBackground());
    emit backgroundChanged(blackBackground());
}

void ChartDisplayPage::applyZoom()
{
    m_actions.m_fnSetZoom(m_pqZoomFactorCheckBox->isChecked() ? m_pqZoomFactorSpinBox->getValue() : 1.0);
}

void ChartDisplayPage::slotZoomFactorReset(bool bOn)
{
    m_pqZoomFactorSpinBox->setEnabled(bOn);
    applyZoom();
}

void ChartDisplayPage::slotCanvasZoomed(double dZoom)
{
    const QSignalBlocker boxBlocker(m_pqZoomFactorCheckBox);
    const QSignalBlocker spinBlocker(m_pqZoomFactorSpinBox);
    m_pqZoomFactorCheckBox->setChecked(dZoom > 1.0);
    m_pqZoomFactorSpinBox->setEnabled(dZoom > 1.0);
    // Back at 1 the box keeps the last factor for the next time that it is checked.
    if (dZoom > 1.0)
        m_pqZoomFactorSpinBox->setValue(dZoom);
}

} // namespace gkBase
