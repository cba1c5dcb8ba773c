// The controls of the histogram panel and how they are laid out and connected.

#include "ChartDisplayPage.h"
#include "ChartFrame.h"
#include "ChartFrameStack.h"
#include "ChartPanelControls.h"
#include "DisplayUnitManager.h"
#include "ProbabilityPlotFrame.h"
#include "QDecoratedToolBox.h"
#include "QDoubleSpinBoxWithSlider.h"
#include "QHistogramChartWidget.h"
#include "QHistogramItemModel.h"
#include "QHistogramPlotWidget.h"
#include "QProbabilityPlot.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include <initializer_list>

namespace gkBase {

QHistogramChartWidget::QHistogramChartWidget(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pModel(new QHistogramItemModel(this))
{
    createChart();
    createControls();
    nameControls();
    connectControls();
    updateCursorPosLabel(QPointF(g_dMissingValue, g_dMissingValue));
    m_bInitialising = false;
    updateHistogramWithDefaultIntervals();
}

QHistogramChartWidget::~QHistogramChartWidget() = default;

void QHistogramChartWidget::createChart()
{
    m_pqPlot = new QHistogramPlotWidget(this, tr("Histogram"));
    m_pqPlot->setHistogramItemModel(m_pModel);
    m_pqFrame = new ChartFrame(m_pqPlot);
    m_pqProbabilityPlot = new QProbabilityPlot(this, tr("Normal Probability"));
    m_pqProbabilityFrame = new ProbabilityPlotFrame(m_pqProbabilityPlot);
    m_pqFrames = new ChartFrameStack;
    m_pqFrames->addFrame(m_pqFrame);
    m_pqFrames->addFrame(m_pqProbabilityFrame);
}

void QHistogramChartWidget::createControls()
{
    auto* pqToolBox = new QDecoratedToolBox;
    m_pqDisplayPage = new ChartDisplayPage(m_pqFrames);
    pqToolBox->addItem(m_pqDisplayPage, tr("Annotation/Display Settings"));
    // The side bar scrolls as a whole; bars of the page inside it would leave a slit of it on small screens.
    QWidget* pqSideBar =
        newSideBar({createSelectionGroup(), createStatisticsGroup()}, pqToolBox, tallestPage(*pqToolBox));
    layOutPanel(this, {m_pqFrames}, pqSideBar, {3 * g_iChartSideBarWidth, g_iChartSideBarWidth});
}

QWidget* QHistogramChartWidget::createSelectionGroup()
{
    auto* pqGroup = new QGroupBox(tr("Select a Data Set"));
    m_pqHistogramDataSetComboBox = newChooser(tr("Select a Data Set"), tr("The attribute whose values are counted"),
                                              QStringLiteral("m_pqHistogramDataSetComboBox"));
    m_pqHistogramDataSetComboBox->setPlaceholderText(tr("Select a Data Set"));
    m_pqHistogramTypeComboBox =
        newChooser(tr("Chart Type"),
                   tr("Counts, per cent of all values, running per cent, or sorted values against normal probability"),
                   QStringLiteral("m_pqHistogramTypeComboBox"));
    m_pqHistogramTypeComboBox->addItems(
        {tr("Frequency"), tr("Relative Frequency"), tr("Cumulative Relative Frequency"), tr("Normal Probability")});
    m_pqIntervalSizeSpinBox = new QDoubleSpinBoxWithSlider(0.0, 1.0, 200);
    m_pqIntervalSizeSpinBox->setControlName(tr("Interval Size"));
    m_pqIntervalSizeSpinBox->setToolTip(tr("Width of the intervals in the attribute's display unit"));

    auto* pqLayout = new QVBoxLayout(pqGroup);
    pqLayout->addWidget(m_pqHistogramDataSetComboBox);
    pqLayout->addWidget(new QLabel(tr("Chart Type")));
    pqLayout->addWidget(m_pqHistogramTypeComboBox);
    pqLayout->addWidget(new QLabel(tr("Interval Size")));
    pqLayout->addWidget(m_pqIntervalSizeSpinBox);
    return pqGroup;
}

QCheckBox* QHistogramChartWidget::createPercentileBox(int iPercent)
{
    auto* pqBox = new QCheckBox(QStringLiteral("P(%1) =").arg(iPercent));
    pqBox->setChecked(true);
    pqBox->setToolTip(tr("Show the line below which %1 % of the values lie").arg(iPercent));
    return pqBox;
}

QWidget* QHistogramChartWidget::createStatisticsGroup()
{
    auto* pqGroup = new QGroupBox(tr("Statistics"));
    auto* pqForm = new QFormLayout(pqGroup);
    m_pqNumberOfPointsLabel = newValueLabel(tr("Number of Points:"));
    m_pqStandardDeviationLabel = newValueLabel(tr("Stand. Deviation:"));
    m_pqP10Label = newValueLabel(QStringLiteral("P(10)"));
    m_pqP50Label = newValueLabel(QStringLiteral("P(50)"));
    m_pqP90Label = newValueLabel(QStringLiteral("P(90)"));
    m_pqP10CheckBox = createPercentileBox(10);
    m_pqP50CheckBox = createPercentileBox(50);
    m_pqP90CheckBox = createPercentileBox(90);

    auto* pqPointsName = new QLabel(tr("Number of Points:"));
    const QString sToolTip =
        tr("The number of <b>data points</b>, that are taken into account for creating the histogram");
    pqPointsName->setToolTip(sToolTip);
    m_pqNumberOfPointsLabel->setToolTip(sToolTip);
    pqForm->addRow(pqPointsName, m_pqNumberOfPointsLabel);
    pqForm->addRow(tr("Stand. Deviation:"), m_pqStandardDeviationLabel);
    pqForm->addRow(m_pqP10CheckBox, m_pqP10Label);
    pqForm->addRow(m_pqP50CheckBox, m_pqP50Label);
    pqForm->addRow(m_pqP90CheckBox, m_pqP90Label);
    return pqGroup;
}

/// Style sheets and scripts find the controls by these names.
void QHistogramChartWidget::nameControls()
{
    m_pqHistogramDataSetComboBox->setObjectName(QStringLiteral("m_pqHistogramDataSetComboBox"));
    m_pqHistogramTypeComboBox->setObjectName(QStringLiteral("m_pqHistogramTypeComboBox"));
    m_pqIntervalSizeSpinBox->setObjectName(QStringLiteral("m_pqIntervalSizeSpinBox"));
    m_pqP10CheckBox->setObjectName(QStringLiteral("m_pqP10CheckBox"));
    m_pqP50CheckBox->setObjectName(QStringLiteral("m_pqP50CheckBox"));
    m_pqP90CheckBox->setObjectName(QStringLiteral("m_pqP90CheckBox"));
}

void QHistogramChartWidget::connectControls()
{
    using Panel = QHistogramChartWidget;
    using Spin = QDoubleSpinBoxWithSlider;
    connect(m_pqIntervalSizeSpinBox, &Spin::valueChanged, this, &Panel::updateHistogramIntervals);
    connect(m_pqHistogramTypeComboBox, &QComboBox::activated, this, &Panel::updateHistogram);
    connect(m_pqHistogramDataSetComboBox, &QComboBox::activated, this, &Panel::slotDataSetActivated);
    connect(m_pqPlot, &QChartDrawingArea::cursorPos, this, &Panel::updateCursorPosLabel);
    connect(m_pqPlot, &QChartDrawingArea::signalCopyToClipboard, this, &Panel::copyToClipboard);
    connect(m_pqProbabilityPlot, &QChartDrawingArea::signalCopyToClipboard, this, &Panel::copyToClipboard);
    for (QChartDrawingArea* pqCanvas : std::initializer_list<QChartDrawingArea*>{m_pqPlot, m_pqProbabilityPlot}) {
        pqCanvas->setMetafileCopy([this] { copyEWMFToClipboard(); });
        pqCanvas->allowCopyToWMF(true);
    }
    // The percentile lines have the background's colour.
    connect(m_pqDisplayPage, &ChartDisplayPage::backgroundChanged, this, &Panel::showStatistics);
    for (QCheckBox* pqBox : {m_pqP10CheckBox, m_pqP50CheckBox, m_pqP90CheckBox})
        connect(pqBox, &QCheckBox::stateChanged, this, &Panel::updateDiagramSettings);
    connect(&DisplayUnitManager::instance(), &DisplayUnitManager::displayChanged, this, &Panel::slotDisplayUnitChanged);
}

} // namespace gkBase
