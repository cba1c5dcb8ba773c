#include "StereoContourPage.h"

#include "ChartPanelControls.h"
#include "MissingValue.h"
#include "OrientationText.h"
#include "QIntSpinBoxWithSlider.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QSignalBlocker>

namespace gkBase {

namespace {

constexpr double g_dLargestInterval = 100.0;
constexpr double g_dIntervalStep = 0.5;
constexpr int g_iSliderSteps = 99;

} // namespace

StereoContourPage::StereoContourPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqLinesCheckBox(newCheckBox(tr("Contour Lines"), tr("Lines of equal density"), "m_pqContourLinesCheckBox"))
    , m_pqFillCheckBox(
          newCheckBox(tr("Filled Bands"), tr("Fill the bands between the contours"), "m_pqContourFillCheckBox"))
    , m_pqColorFillCheckBox(newCheckBox(tr("In Color"), tr("Bands in the colors of the color map instead of grays"),
                                        "m_pqContourColorFillCheckBox"))
    , m_pqLowestBandCheckBox(newCheckBox(tr("Lowest Band"),
                                         tr("Fill the band of the smallest densities too; otherwise the net shows on "
                                            "the background there"),
                                         "m_pqContourLowestBandCheckBox"))
    , m_pqRedToBlueCheckBox(newCheckBox(tr("Red to Blue"), tr("Low densities are red and high ones blue"),
                                        "m_pqContourRedToBlueCheckBox"))
    , m_pqLabelsCheckBox(newCheckBox(tr("Labels"), tr("Write the level beside the contours, per cent of the records"),
                                     "m_pqContourLabelsCheckBox"))
    , m_pqLegendCheckBox(newCheckBox(tr("Legend"), tr("List the bands, and what their numbers mean, beside the net"),
                                     "m_pqContourLegendCheckBox"))
    , m_pqNodesSpinBox(
          new QIntSpinBoxWithSlider(StereoNetSettings::s_iFewestNodes, StereoNetSettings::s_iMostNodes, g_iSliderSteps))
    , m_pqIntervalSpinBox(new QDoubleSpinBox)
{
    m_pqNodesSpinBox->setObjectName(QStringLiteral("m_pqContourNodesSpinBox"));
    m_pqNodesSpinBox->setControlName(tr("Grid Nodes"));
    m_pqNodesSpinBox->setToolTip(tr("Nodes of the counting grid in each direction: few smooth the density, many "
                                    "resolve it"));
    m_pqIntervalSpinBox->setObjectName(QStringLiteral("m_pqContourIntervalSpinBox"));
    m_pqIntervalSpinBox->setAccessibleName(tr("Contour Interval"));
    m_pqIntervalSpinBox->setToolTip(tr("Per cent of the records between two contours; --- divides the range into 20 "
                                       "levels"));
    m_pqIntervalSpinBox->setRange(0.0, g_dLargestInterval);
    m_pqIntervalSpinBox->setSingleStep(g_dIntervalStep);
    m_pqIntervalSpinBox->setDecimals(2);
    m_pqIntervalSpinBox->setSuffix(tr(" %"));
    m_pqIntervalSpinBox->setSpecialValueText(undefinedText());
    m_pqIntervalSpinBox->setKeyboardTracking(false);
    auto* pqForm = new QFormLayout(this);
    for (QCheckBox* pqBox : {m_pqLinesCheckBox, m_pqLabelsCheckBox, m_pqFillCheckBox, m_pqLowestBandCheckBox,
                             m_pqColorFillCheckBox, m_pqRedToBlueCheckBox, m_pqLegendCheckBox}) {
        pqForm->addRow(pqBox);
        connect(pqBox, &QCheckBox::clicked, this, &StereoContourPage::slotChanged);
    }
    pqForm->addRow(tr("Grid Nodes"), m_pqNodesSpinBox);
    pqForm->addRow(tr("Interval"), m_pqIntervalSpinBox);
    setSettings({});

    connect(m_pqNodesSpinBox, &QIntSpinBoxWithSlider::valueChanged, this, &StereoContourPage::slotChanged);
    connect(m_pqIntervalSpinBox, &QDoubleSpinBox::valueChanged, this, &StereoContourPage::slotChanged);
}

void StereoContourPage::slotChanged()
{
    enableControls();
    emit changed();
}

void StereoContourPage::enableControls()
{
    const bool bFill = m_pqFillCheckBox->isChecked();
    m_pqLowestBandCheckBox->setEnabled(bFill);
    m_pqColorFillCheckBox->setEnabled(bFill);
    m_pqRedToBlueCheckBox->setEnabled(bFill && m_pqColorFillCheckBox->isChecked());
}

void StereoContourPage::writeTo(StereoChartSettings& settings) const
{
    StereoNetSettings& net = settings.m_oNet;
    net.m_bContourLines = m_pqLinesCheckBox->isChecked();
    net.m_bContourFill = m_pqFillCheckBox->isChecked();
    net.m_bFillLowestBand = m_pqLowestBandCheckBox->isChecked();
    net.m_bContourColorFill = m_pqColorFillCheckBox->isChecked();
    net.m_bRedToBlue = m_pqRedToBlueCheckBox->isChecked();
    net.m_bContourLabels = m_pqLabelsCheckBox->isChecked();
    net.m_iNodes = m_pqNodesSpinBox->getValue();
    net.m_dInterval = m_pqIntervalSpinBox->value() > 0.0 ? m_pqIntervalSpinBox->value() : g_dMissingValue;
    settings.m_bContourLegend = m_pqLegendCheckBox->isChecked();
}

void StereoContourPage::setSettings(const StereoChartSettings& settings)
{
    const QSignalBlocker nodesBlocker(m_pqNodesSpinBox);
    const QSignalBlocker intervalBlocker(m_pqIntervalSpinBox);
    const StereoNetSettings& net = settings.m_oNet;
    m_pqLinesCheckBox->setChecked(net.m_bContourLines);
    m_pqFillCheckBox->setChecked(net.m_bContourFill);
    m_pqLowestBandCheckBox->setChecked(net.m_bFillLowestBand);
    m_pqColorFillCheckBox->setChecked(net.m_bContourColorFill);
    m_pqRedToBlueCheckBox->setChecked(net.m_bRedToBlue);
    m_pqLabelsCheckBox->setChecked(net.m_bContourLabels);
    m_pqNodesSpinBox->setValue(net.m_iNodes);
    m_pqIntervalSpinBox->setValue(isMissing(net.m_dInterval) ? 0.0 : net.m_dInterval);
    m_pqLegendCheckBox->setChecked(settings.m_bContourLegend);
    enableControls();
}

} // namespace gkBase
