// The controls of the histogram panel and how they are laid out and connected.

#include "DisplayUnitManager.h"
#include "ElidedLabel.h"
#include "QCartesianAxisWidget.h"
#include "QDecoratedToolBox.h"
#include "QDoubleSpinBoxWithSlider.h"
#include "QHistogramChartWidget.h"
#include "QHistogramItemModel.h"
#include "QHistogramPlotWidget.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

namespace gkBase {

namespace {

constexpr int g_iCentrePercent = 50;
constexpr double g_dSmallestFont = 5.0;
constexpr double g_dLargestFont = 30.0;
/// What checking the zoom box gives at first.
constexpr double g_dFirstZoom = 2.0;
constexpr int g_iPlotMinimumWidth = 120;
constexpr int g_iPlotMinimumHeight = 90;
constexpr int g_iSideBarWidth = 270;

QScrollBar* newPercentBar(Qt::Orientation eOrientation, const QString& sName)
{
    auto* pqBar = new QScrollBar(eOrientation);
    pqBar->setRange(0, 100);
    pqBar->setValue(g_iCentrePercent);
    pqBar->setAccessibleName(sName);
    pqBar->hide();
    return pqBar;
}

QLabel* newValueLabel(const QString& sName)
{
    auto* pqLabel = new QLabel(QStringLiteral("---"));
    pqLabel->setTextFormat(Qt::PlainText);
    pqLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    pqLabel->setAccessibleName(sName);
    return pqLabel;
}

} // namespace

QHistogramChartWidget::QHistogramChartWidget(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pModel(new QHistogramItemModel(this))
{
    createChart();
    createFrame();
    createControls();
    nameControls();
    connectControls();
    blackWhiteSwitch();
    fontSizeChanged(m_pqFontSizeSpinBox->getValue());
    updateCursorPosLabel(QPointF(g_dMissingValue, g_dMissingValue));
    m_bInitialising = false;
    updateHistogramWithDefaultIntervals();
}

QHistogramChartWidget::~QHistogramChartWidget() = default;

void QHistogramChartWidget::createChart()
{
    m_pqPlot = new QHistogramPlotWidget(this, tr("Histogram"));
    m_pqPlot->setHistogramItemModel(m_pModel);
    m_pqPlot->setMinimumSize(g_iPlotMinimumWidth, g_iPlotMinimumHeight);
    m_pqPlot->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_pqPlot->installEventFilter(this);
    m_pqLeftAxis = new QCartesianAxisWidget(QCartesianAxisWidget::Left, this);
    m_pqBottomAxis = new QCartesianAxisWidget(QCartesianAxisWidget::Bottom, this);
    m_pqPlot->setAxes(m_pqLeftAxis, m_pqBottomAxis);
    m_pqTitleLabel = new ElidedLabel(this);
    m_pqTitleLabel->setTextFormat(Qt::PlainText);
    // A long name must not push the chart wider than the window.
    m_pqTitleLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void QHistogramChartWidget::createFrame()
{
    m_pqChartFrame = new QFrame;
    m_pqChartFrame->setFrameShape(QFrame::StyledPanel);
    m_pqChartFrame->setAutoFillBackground(true);
    auto* pqGrid = new QGridLayout(m_pqChartFrame);
    pqGrid->setSpacing(0);
    pqGrid->setContentsMargins(6, 6, 12, 6);
    pqGrid->addWidget(m_pqTitleLabel, 0, 1);
    m_pqTitleLabel->setContentsMargins(0, 0, 0, 4);
    pqGrid->addWidget(m_pqLeftAxis, 1, 0);
    pqGrid->addWidget(m_pqPlot, 1, 1);
    pqGrid->addWidget(m_pqBottomAxis, 2, 1);
    pqGrid->setRowStretch(1, 1);
    pqGrid->setColumnStretch(1, 1);

    m_pqVerticalScrollBar = newPercentBar(Qt::Vertical, tr("Vertical position of the zoomed chart in per cent"));
    m_pqHorizontalScrollBar = newPercentBar(Qt::Horizontal, tr("Horizontal position of the zoomed chart in per cent"));
    m_pqCursorPosLabel = newValueLabel(tr("Cursor position in the chart"));

    auto* pqChartSide = new QWidget;
    auto* pqOuter = new QGridLayout(pqChartSide);
    pqOuter->setContentsMargins(0, 0, 0, 0);
    pqOuter->setSpacing(2);
    pqOuter->addWidget(m_pqChartFrame, 0, 0);
    pqOuter->addWidget(m_pqVerticalScrollBar, 0, 1);
    pqOuter->addWidget(m_pqHorizontalScrollBar, 1, 0);
    pqOuter->addWidget(m_pqCursorPosLabel, 2, 0);
    pqOuter->setRowStretch(0, 1);
    pqOuter->setColumnStretch(0, 1);

    auto* pqSplitter = new QSplitter(Qt::Horizontal, this);
    pqSplitter->setObjectName(QStringLiteral("m_pqSplitter"));
    pqSplitter->setChildrenCollapsible(false);
    pqSplitter->addWidget(pqChartSide);
    pqSplitter->setStretchFactor(0, 1);
    auto* pqLayout = new QHBoxLayout(this);
    pqLayout->setContentsMargins(4, 4, 4, 4);
    pqLayout->addWidget(pqSplitter);
}

void QHistogramChartWidget::createControls()
{
    auto* pqControls = new QWidget;
    auto* pqLayout = new QVBoxLayout(pqControls);
    pqLayout->setContentsMargins(4, 0, 4, 0);
    pqLayout->addWidget(createSelectionGroup());
    pqLayout->addWidget(createStatisticsGroup());
    auto* pqToolBox = new QDecoratedToolBox;
    QWidget* pqDisplayPage = createDisplayPage();
    pqToolBox->addItem(pqDisplayPage, tr("Annotation/Display Settings"));
    // The side bar scrolls as a whole; bars of the page inside it would leave a slit of it on small screens.
    pqToolBox->setMinimumHeight(pqToolBox->minimumSizeHint().height() + pqDisplayPage->minimumSizeHint().height());
    pqLayout->addWidget(pqToolBox, 1);

    // A small screen scrolls the controls, never the chart; long numbers and units make them wider than now.
    auto* pqScrollArea = new QScrollArea;
    pqScrollArea->setWidget(pqControls);
    pqScrollArea->setWidgetResizable(true);
    pqScrollArea->setFrameShape(QFrame::NoFrame);
    pqScrollArea->setMinimumWidth(pqControls->minimumSizeHint().width() +
                                  pqScrollArea->verticalScrollBar()->sizeHint().width());
    auto* pqSplitter = findChild<QSplitter*>(QStringLiteral("m_pqSplitter"));
    pqSplitter->addWidget(pqScrollArea);
    pqSplitter->setStretchFactor(1, 0);
    pqSplitter->setSizes({3 * g_iSideBarWidth, g_iSideBarWidth});
}

QWidget* QHistogramChartWidget::createSelectionGroup()
{
    auto* pqGroup = new QGroupBox(tr("Select a Data Set"));
    m_pqHistogramDataSetComboBox = new QComboBox;
    m_pqHistogramDataSetComboBox->setPlaceholderText(tr("Select a Data Set"));
    m_pqHistogramDataSetComboBox->setAccessibleName(tr("Select a Data Set"));
    m_pqHistogramDataSetComboBox->setToolTip(tr("The attribute whose values are counted"));
    m_pqHistogramDataSetComboBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_pqHistogramDataSetComboBox->setMinimumContentsLength(12);
    m_pqHistogramTypeComboBox = new QComboBox;
    m_pqHistogramTypeComboBox->addItems(
        {tr("Frequency"), tr("Relative Frequency"), tr("Cumulative Relative Frequency")});
    m_pqHistogramTypeComboBox->setAccessibleName(tr("Chart Type"));
    m_pqHistogramTypeComboBox->setToolTip(tr("Counts, per cent of all values, or running per cent"));
    m_pqHistogramTypeComboBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_pqHistogramTypeComboBox->setMinimumContentsLength(12);
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

QWidget* QHistogramChartWidget::createDisplayPage()
{
    auto* pqPage = new QWidget;
    m_pqShowGrid = new QCheckBox(tr("Grid"));
    m_pqShowGrid->setChecked(true);
    m_pqShowGrid->setToolTip(tr("Lines at the ticks of both axes"));
    m_pqBlackBackgroundBtn = new QRadioButton(tr("black"));
    m_pqWhiteBackgroundBtn = new QRadioButton(tr("white"));
    m_pqBlackBackgroundBtn->setAccessibleName(tr("Background Color: black"));
    m_pqWhiteBackgroundBtn->setAccessibleName(tr("Background Color: white"));
    auto* pqExclusive = new QButtonGroup(this);
    for (QRadioButton* pqButton : {m_pqBlackBackgroundBtn, m_pqWhiteBackgroundBtn}) {
        pqExclusive->addButton(pqButton);
    }
    m_pqWhiteBackgroundBtn->setChecked(true);
    m_pqFontSizeSpinBox = new QDoubleSpinBoxWithSlider(g_dSmallestFont, g_dLargestFont, 50);
    m_pqFontSizeSpinBox->setDecimals(1);
    m_pqFontSizeSpinBox->setSuffix(tr(" pt"));
    m_pqFontSizeSpinBox->setControlName(tr("Font Size"));
    m_pqFontSizeSpinBox->setToolTip(tr("Size of the chart's texts in points"));
    m_pqFontSizeSpinBox->setValue(font().pointSizeF());
    m_pqZoomFactorCheckBox = new QCheckBox(tr("Zoom Factor"));
    m_pqZoomFactorCheckBox->setToolTip(tr("Magnify the chart; the scroll bars move it, the wheel changes the factor"));
    m_pqZoomFactorSpinBox = new QDoubleSpinBoxWithSlider(ChartViewport::s_dMinZoom, ChartViewport::s_dMaxZoom, 190);
    m_pqZoomFactorSpinBox->setDecimals(1);
    m_pqZoomFactorSpinBox->setControlName(tr("Zoom Factor"));
    m_pqZoomFactorSpinBox->setToolTip(tr("Size of the chart against the window, 1 to 20"));
    m_pqZoomFactorSpinBox->setValue(g_dFirstZoom);
    m_pqZoomFactorSpinBox->setEnabled(false);

    auto* pqBackground = new QHBoxLayout;
    pqBackground->addWidget(m_pqBlackBackgroundBtn);
    pqBackground->addWidget(m_pqWhiteBackgroundBtn);
    auto* pqLayout = new QVBoxLayout(pqPage);
    pqLayout->addWidget(m_pqShowGrid);
    pqLayout->addWidget(new QLabel(tr("Background Color")));
    pqLayout->addLayout(pqBackground);
    pqLayout->addWidget(new QLabel(tr("Font Size")));
    pqLayout->addWidget(m_pqFontSizeSpinBox);
    pqLayout->addWidget(m_pqZoomFactorCheckBox);
    pqLayout->addWidget(m_pqZoomFactorSpinBox);
    pqLayout->addStretch(1);
    return pqPage;
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
    m_pqShowGrid->setObjectName(QStringLiteral("m_pqShowGrid"));
    m_pqBlackBackgroundBtn->setObjectName(QStringLiteral("m_pqBlackBackgroundBtn"));
    m_pqWhiteBackgroundBtn->setObjectName(QStringLiteral("m_pqWhiteBackgroundBtn"));
    m_pqFontSizeSpinBox->setObjectName(QStringLiteral("m_pqFontSizeSpinBox"));
    m_pqZoomFactorCheckBox->setObjectName(QStringLiteral("m_pqZoomFactorCheckBox"));
    m_pqZoomFactorSpinBox->setObjectName(QStringLiteral("m_pqZoomFactorSpinBox"));
}

void QHistogramChartWidget::connectControls()
{
    using Panel = QHistogramChartWidget;
    using Spin = QDoubleSpinBoxWithSlider;
    connect(m_pqIntervalSizeSpinBox, &Spin::valueChanged, this, &Panel::updateHistogramIntervals);
    connect(m_pqHistogramTypeComboBox, &QComboBox::activated, this, &Panel::updateHistogram);
    connect(m_pqHistogramDataSetComboBox, &QComboBox::activated, this, &Panel::slotDataSetActivated);
    connect(m_pqPlot, &QChartDrawingArea::cursorPos, this, &Panel::updateCursorPosLabel);
    connect(m_pqPlot, &QChartDrawingArea::zoomChanged, this, &Panel::slotCanvasZoomed);
    connect(m_pqPlot, &QChartDrawingArea::signalCopyToClipboard, this, &Panel::copyToClipboard);
    connect(m_pqLeftAxis, &QCartesianAxisWidget::gridLinesChanged, m_pqPlot,
            &QHistogramPlotWidget::horizontalGridLinesChanged);
    connect(m_pqBottomAxis, &QCartesianAxisWidget::gridLinesChanged, m_pqPlot,
            &QHistogramPlotWidget::verticalGridLinesChanged);
    connect(m_pqBlackBackgroundBtn, &QRadioButton::clicked, this, &Panel::blackWhiteSwitch);
    connect(m_pqWhiteBackgroundBtn, &QRadioButton::clicked, this, &Panel::blackWhiteSwitch);
    for (QCheckBox* pqBox : {m_pqShowGrid, m_pqP10CheckBox, m_pqP50CheckBox, m_pqP90CheckBox})
        connect(pqBox, &QCheckBox::stateChanged, this, &Panel::updateDiagramSettings);
    connect(m_pqZoomFactorCheckBox, &QCheckBox::toggled, this, &Panel::slotZoomFactorReset);
    connect(m_pqZoomFactorSpinBox, &Spin::valueChanged, this, &Panel::slotZoomFactorChanged);
    connect(m_pqVerticalScrollBar, &QScrollBar::valueChanged, this, &Panel::slotVerticalSliderChanged);
    connect(m_pqHorizontalScrollBar, &QScrollBar::valueChanged, this, &Panel::slotHorizontalSliderChanged);
    connect(m_pqFontSizeSpinBox, &Spin::valueChanged, this, &Panel::fontSizeChanged);
    connect(&DisplayUnitManager::instance(), &DisplayUnitManager::displayChanged, this, &Panel::slotDisplayUnitChanged);
    m_pqPlot->verticalGridLinesChanged(m_pqBottomAxis->gridLines());
    m_pqPlot->horizontalGridLinesChanged(m_pqLeftAxis->gridLines());
}

} // namespace gkBase
