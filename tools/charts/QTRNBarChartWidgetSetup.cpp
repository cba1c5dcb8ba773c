// The controls of the bar chart panel and how they are laid out and connected.

#include "AttributeChooser.h"
#include "BarChartFrame.h"
#include "ChartDisplayPage.h"
#include "ChartPanelControls.h"
#include "DisplayUnitManager.h"
#include "MissingValue.h"
#include "QBarDiagramWidget.h"
#include "QDecoratedToolBox.h"
#include "QDoubleSpinBoxWithSlider.h"
#include "QTRNBarChartWidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace gkBase {

QTRNBarChartWidget::QTRNBarChartWidget(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pClasses(std::make_shared<BarDiagramClasses>())
{
    createChart();
    createControls();
    connectControls();
    updateBarChart();
}

QTRNBarChartWidget::~QTRNBarChartWidget() = default;

void QTRNBarChartWidget::createChart()
{
    m_pqPlot = new QBarDiagramWidget(this, tr("Bar Chart"));
    m_pqFrame = new BarChartFrame(m_pqPlot);
    m_pqFrame->setClasses(m_pClasses);
}

void QTRNBarChartWidget::createControls()
{
    auto* pqToolBox = new QDecoratedToolBox;
    pqToolBox->addItem(createDisplayPage(), tr("Annotation/Display Settings"));
    // The side bar scrolls as a whole; bars of the page inside it would leave a slit of it on small screens.
    QWidget* pqSideBar =
        newSideBar({createSelectionGroup(), createStatisticsGroup()}, pqToolBox, tallestPage(*pqToolBox));
    layOutPanel(this, {m_pqFrame}, pqSideBar, {3 * g_iChartSideBarWidth, g_iChartSideBarWidth});
}

QWidget* QTRNBarChartWidget::createSelectionGroup()
{
    auto* pqGroup = new QGroupBox(tr("Select a Data Set"));
    m_pqBarChartDataSetComboBox = new AttributeChooser(tr("Select a Data Set"), false);
    m_pqBarChartDataSetComboBox->setObjectName(QStringLiteral("m_pqBarChartDataSetComboBox"));
    m_pqBarChartDataSetComboBox->setPlaceholderText(tr("Select a Data Set"));
    m_pqBarChartDataSetComboBox->setToolTip(tr("The attribute whose records are counted"));
    m_pqBarChartTypeComboBox = newChooser(tr("Chart Type"), tr("Records of each class, or per cent of all bars"),
                                          QStringLiteral("m_pqBarChartTypeComboBox"));
    m_pqBarChartTypeComboBox->addItems({tr("Count"), tr("Per cent")});
    m_pqOrderComboBox =
        newChooser(tr("Sort by"), tr("Order of the bars from left to right"), QStringLiteral("m_pqOrderComboBox"));
    m_pqOrderComboBox->addItems({tr("Name"), tr("Value"), tr("Count")});
    m_pqIntervalCheckBox = new QCheckBox(tr("Interval Size"));
    m_pqIntervalCheckBox->setObjectName(QStringLiteral("m_pqIntervalCheckBox"));
    m_pqIntervalCheckBox->setToolTip(tr("Count numbers in intervals instead of a bar for each distinct number"));
    m_pqIntervalSizeSpinBox = new QDoubleSpinBoxWithSlider(0.0, 1.0, 200);
    m_pqIntervalSizeSpinBox->setObjectName(QStringLiteral("m_pqIntervalSizeSpinBox"));
    m_pqIntervalSizeSpinBox->setControlName(tr("Interval Size"));
    m_pqIntervalSizeSpinBox->setToolTip(tr("Width of the intervals in the attribute's display unit"));

    auto* pqLayout = new QVBoxLayout(pqGroup);
    pqLayout->addWidget(m_pqBarChartDataSetComboBox);
    pqLayout->addWidget(new QLabel(tr("Chart Type")));
    pqLayout->addWidget(m_pqBarChartTypeComboBox);
    pqLayout->addWidget(new QLabel(tr("Sort by")));
    pqLayout->addWidget(m_pqOrderComboBox);
    pqLayout->addWidget(m_pqIntervalCheckBox);
    pqLayout->addWidget(m_pqIntervalSizeSpinBox);
    return pqGroup;
}

QWidget* QTRNBarChartWidget::createStatisticsGroup()
{
    auto* pqGroup = new QGroupBox(tr("Statistics"));
    auto* pqForm = new QFormLayout(pqGroup);
    m_pqNumberOfRecordsLabel = newValueLabel(tr("Number of Records:"));
    m_pqNumberOfClassesLabel = newValueLabel(tr("Number of Classes:"));
    m_pqMissingLabel = newValueLabel(tr("Missing Values:"));
    m_pqNumberOfRecordsLabel->setToolTip(tr("Records in all bars: what 100 per cent are"));
    m_pqMissingLabel->setToolTip(tr("Records without a value, shown as a bar or not"));
    pqForm->addRow(tr("Number of Records:"), m_pqNumberOfRecordsLabel);
    pqForm->addRow(tr("Number of Classes:"), m_pqNumberOfClassesLabel);
    pqForm->addRow(tr("Missing Values:"), m_pqMissingLabel);
    return pqGroup;
}

QWidget* QTRNBarChartWidget::createDisplayPage()
{
    m_pqDisplayPage = new ChartDisplayPage(m_pqFrame);
    m_pqColorByClass = m_pqDisplayPage->addCheckBox(tr("Color by Class"), tr("Each bar in the color of its class"),
                                                    QStringLiteral("m_pqColorByClass"));
    m_pqShowValues = m_pqDisplayPage->addCheckBox(tr("Bar Values"), tr("Numbers above the bars where there is room"),
                                                  QStringLiteral("m_pqShowValues"));
    m_pqShowMissing = m_pqDisplayPage->addCheckBox(tr("Missing Values"), tr("A bar for the records without a value"),
                                                   QStringLiteral("m_pqShowMissing"));
    return m_pqDisplayPage;
}

void QTRNBarChartWidget::connectControls()
{
    using Panel = QTRNBarChartWidget;
    connect(m_pqBarChartDataSetComboBox, &AttributeChooser::attributeChosen, this, &Panel::slotAttributeChosen);
    connect(m_pqBarChartTypeComboBox, &QComboBox::activated, this, &Panel::arrangeBars);
    connect(m_pqOrderComboBox, &QComboBox::activated, this, &Panel::arrangeBars);
    connect(m_pqIntervalCheckBox, &QCheckBox::toggled, this, &Panel::slotIntervalChanged);
    connect(m_pqIntervalSizeSpinBox, &QDoubleSpinBoxWithSlider::valueChanged, this, &Panel::slotIntervalChanged);
    connect(m_pqShowMissing, &QCheckBox::toggled, this, &Panel::arrangeBars);
    connect(m_pqShowValues, &QCheckBox::toggled, this, &Panel::updateDiagramSettings);
    connect(m_pqColorByClass, &QCheckBox::toggled, this, &Panel::updateDiagramSettings);
    connect(m_pqPlot, &QChartDrawingArea::cursorPos, this, &Panel::updateCursorPosLabel);
    connect(m_pqPlot, &QChartDrawingArea::signalCopyToClipboard, this, &Panel::copyToClipboard);
    m_pqPlot->setMetafileCopy([this] { copyEWMFToClipboard(); });
    m_pqPlot->allowCopyToWMF(true);
    connect(m_pqPlot, &QBarDiagramWidget::barClicked, this, &Panel::slotBarClicked);
    connect(&DisplayUnitManager::instance(), &DisplayUnitManager::displayChanged, this, &Panel::slotDisplayUnitChanged);
    updateCursorPosLabel(QPointF(g_dMissingValue, g_dMissingValue));
}

} // namespace gkBase
