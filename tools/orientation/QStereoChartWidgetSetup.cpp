// The controls of the stereonet panel and how they are laid out and connected.

#include "ChartDisplayPage.h"
#include "ChartPanelControls.h"
#include "ClassLegends.h"
#include "ContourLegend.h"
#include "ElidedLabel.h"
#include "LegendSplitter.h"
#include "PolarChartFrame.h"
#include "QDataStatisticSummary.h"
#include "QDecoratedToolBox.h"
#include "QStereoChartWidget.h"
#include "QStereoPlotWidget.h"
#include "QWoodcockHelpWidget.h"
#include "StereoAnnotationPage.h"
#include "StereoBiasPage.h"
#include "StereoClusterPage.h"
#include "StereoContourPage.h"
#include "StereoDataGroup.h"
#include "StereoNetPage.h"
#include "StereoPointPage.h"
#include "StereoResultPage.h"
#include "StereoRotationPage.h"
#include "StereoStatisticsPage.h"
#include "StereoWoodcockPage.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QProxyStyle>
#include <QScrollArea>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace gkBase {

namespace {

constexpr int g_iSideBarWidth = 330;
constexpr int g_iPageMinimumHeight = 110;

constexpr int g_iTabMargin = 10;

/// Tabs that stand closer together than usual, so that all of them are seen above a narrow side bar.
class NarrowTabStyle : public QProxyStyle
{
public:
    int pixelMetric(PixelMetric eMetric, const QStyleOption* pOption, const QWidget* pqWidget) const override
    {
        return eMetric == PM_TabBarTabHSpace ? g_iTabMargin : QProxyStyle::pixelMetric(eMetric, pOption, pqWidget);
    }
};

QToolButton* newModeButton(const QString& sText, const QString& sToolTip, const char* pObjectName)
{
    auto* pqBtn = new QToolButton;
    pqBtn->setText(sText);
    pqBtn->setToolTip(sToolTip);
    pqBtn->setAccessibleName(sText);
    pqBtn->setObjectName(QLatin1String(pObjectName));
    pqBtn->setCheckable(true);
    return pqBtn;
}

} // namespace

QStereoChartWidget::QStereoChartWidget(QWidget* pqParent)
    : QStereoChartWidget(
          [](QWidget* pqCanvasParent) {
              return new QStereoPlotWidget(pqCanvasParent, QStereoChartWidget::tr("Stereonet"));
          },
          pqParent)
{
}

QStereoChartWidget::QStereoChartWidget(const CanvasFactory& fnNewCanvas, QWidget* pqParent)
    : QWidget(pqParent)
{
    for (Layer& oLayer : m_aLayers)
        oLayer.m_pModel = new QRelationshipItemModel(this);
    createChart(fnNewCanvas);
    createPages();
    QWidget* pqChartSide = new QWidget;
    auto* pqLayout = new QVBoxLayout(pqChartSide);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->setSpacing(2);
    pqLayout->addWidget(createMouseBar());
    pqLayout->addWidget(m_pqLegendSplitter, 1);
    createTabs();
    m_pqSplitter = layOutPanel(this, {pqChartSide}, m_pqTabs, {2 * g_iSideBarWidth, g_iSideBarWidth});
    connectChart();
    connectControls();
    connectAnalysis();
    setSettings(StereoChartSettings());
    updateDataSetSelectionBox();
    m_bReadNeeded = true;
    updateStereoChart();
}

QStereoChartWidget::~QStereoChartWidget() = default;

// ---- layout ---------------------------------------------------------------------------------------------------------

void QStereoChartWidget::createChart(const CanvasFactory& fnNewCanvas)
{
    m_pqPlot = fnNewCanvas(nullptr);
    m_pqPlot->setModel(relationshipItemModel());
    m_pqPlot->setSecondModel(secondModel());
    m_pqPlot->setLineationModel(lineationModel());
    m_pqPlot->setMetafileCopy([this] { copyEWMFToClipboard(); });
    m_pqPlot->allowCopyToWMF(true);
    m_pqFrame = new PolarChartFrame(m_pqPlot);
    m_pqLegends = new ClassLegends(m_pqPlot);
    m_pqContourLegend = new ContourLegend;
    m_pqLegendSplitter = new LegendSplitter(m_pqFrame);
    m_pqLegendSplitter->setObjectName(QStringLiteral("m_pqLegendSplitter"));
    m_pqLegendSplitter->addLegend(m_pqLegends);
    // Too small to be read it would be of no use: where there is little room it is scrolled.
    m_pqContourScrollArea = new QScrollArea;
    m_pqContourScrollArea->setWidget(m_pqContourLegend);
    m_pqContourScrollArea->setWidgetResizable(true);
    m_pqContourScrollArea->setFrameShape(QFrame::NoFrame);
    m_pqContourScrollArea->hide();
    m_pqLegendSplitter->addLegend(m_pqContourScrollArea);
}

QWidget* QStereoChartWidget::createMouseBar()
{
    m_pqSelectBtn = newModeButton(
        tr("Select"), tr("Draw a lasso around points or click them; Ctrl adds to the selection"), "m_pqSelectBtn");
    m_pqPickBtn = newModeButton(tr("Pick"), tr("Press and move: the plane whose pole lies under the cursor is shown"),
                                "m_pqPickBtn");
    auto* pqModes = new QButtonGroup(this);
    pqModes->addButton(m_pqSelectBtn);
    pqModes->addButton(m_pqPickBtn);
    m_pqConventionComboBox =
        newChooser(tr("Convention"), tr("How planes are written everywhere in this panel, degrees"),
                   QStringLiteral("m_pqConventionComboBox"));
    for (int i = 0; i < g_iOrientationConventions; ++i)
        m_pqConventionComboBox->addItem(planeHeader(static_cast<OrientationConvention>(i)));
    m_pqMessageLabel = new ElidedLabel;
    m_pqMessageLabel->setTextFormat(Qt::PlainText);
    m_pqMessageLabel->setObjectName(QStringLiteral("m_pqMessageLabel"));
    auto* pqBar = new QWidget;
    auto* pqLayout = new QHBoxLayout(pqBar);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->addWidget(m_pqSelectBtn);
    pqLayout->addWidget(m_pqPickBtn);
    pqLayout->addWidget(m_pqMessageLabel, 1);
    pqLayout->addStretch();
    pqLayout->addWidget(m_pqConventionComboBox);
    return pqBar;
}

void QStereoChartWidget::createPages()
{
    m_pqDataGroup = new StereoDataGroup;
    m_pqNetPage = new StereoNetPage;
    m_pqPointPage = new StereoPointPage(m_pqPlot);
    m_pqContourPage = new StereoContourPage;
    m_pqResultPage = new StereoResultPage;
    m_pqAnnotationPage = new StereoAnnotationPage;
    m_pqDisplayPage = new ChartDisplayPage(m_pqFrame);
    m_pqDisplayPage->hideGrid();
    m_pqRotationPage = new StereoRotationPage;
    m_pqClusterPage = new StereoClusterPage;
    m_pqBiasPage = new StereoBiasPage;
    m_pqStatisticsPage = new StereoStatisticsPage;
    m_pqWoodcockPage = new StereoWoodcockPage;
    m_pqReport = new QDataStatisticSummary;
}

QWidget* QStereoChartWidget::createPlotTab()
{
    auto* pqDisplay = new QWidget;
    auto* pqLayout = new QVBoxLayout(pqDisplay);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->addWidget(m_pqAnnotationPage);
    pqLayout->addWidget(m_pqDisplayPage, 1);
    m_pqPlotToolBox = new QDecoratedToolBox;
    m_pqPlotToolBox->addItem(m_pqNetPage, tr("Net"));
    m_pqPlotToolBox->addItem(m_pqPointPage, tr("Points"));
    m_pqPlotToolBox->addItem(m_pqContourPage, tr("Contours"));
    m_pqPlotToolBox->addItem(m_pqResultPage, tr("Results"));
    m_pqPlotToolBox->addItem(pqDisplay, tr("Annotation/ Display Settings"));
    return newSideBar({m_pqDataGroup}, m_pqPlotToolBox, g_iPageMinimumHeight);
}

QWidget* QStereoChartWidget::createAnalysisTab()
{
    auto* pqToolBox = new QDecoratedToolBox;
    pqToolBox->addItem(m_pqRotationPage, tr("Rotation"));
    pqToolBox->addItem(m_pqClusterPage, tr("Clusters"));
    pqToolBox->addItem(m_pqBiasPage, tr("Bias"));
    return newSideBar({}, pqToolBox, g_iPageMinimumHeight);
}

void QStereoChartWidget::createTabs()
{
    m_pqTabs = new QTabWidget;
    m_pqTabs->setObjectName(QStringLiteral("m_pqTabs"));
    m_pqTabs->setDocumentMode(true);
    auto* pqStyle = new NarrowTabStyle;
    pqStyle->setParent(m_pqTabs);
    m_pqTabs->tabBar()->setStyle(pqStyle);
    m_pqTabs->addTab(createPlotTab(), tr("Plot"));
    m_pqTabs->addTab(m_pqStatisticsPage, tr("Statistics"));
    m_pqTabs->addTab(createAnalysisTab(), tr("Analysis"));
    m_pqTabs->addTab(m_pqWoodcockPage, tr("Woodcock"));
    m_pqTabs->addTab(m_pqReport, tr("Report"));
    m_pqTabs->setMinimumWidth(g_iSideBarWidth);
}

void QStereoChartWidget::addPlotPage(QWidget* pqPage, const QString& sTitle)
{
    m_pqPlotToolBox->insertItem(0, pqPage, sTitle);
    m_pqPlotToolBox->setCurrentIndex(0);
}

void QStereoChartWidget::hideProjection()
{
    m_pqNetPage->hideProjection();
}

// ---- connections ----------------------------------------------------------------------------------------------------

void QStereoChartWidget::connectChart()
{
    using Panel = QStereoChartWidget;
    connect(m_pqPlot, &QChartDrawingArea::cursorPos, this, &Panel::updateCursorPosLabel);
    connect(m_pqPlot, &QChartDrawingArea::dataPointsSelection, this, &Panel::slotPointsSelected);
    connect(m_pqPlot, &QChartDrawingArea::signalCopyToClipboard, this, &Panel::copyToClipboard);
    connect(m_pqPlot, &QStereoPlotWidget::clearSelection, this, &Panel::slotSelectionCleared);
    connect(m_pqLegends, &ClassLegends::selectedClassesChanged, this, &Panel::slotLegendSelection);
    connect(m_pqTabs, &QTabWidget::currentChanged, this, &Panel::fillVisiblePage);
}

void QStereoChartWidget::connectControls()
{
    using Panel = QStereoChartWidget;
    connect(m_pqDataGroup, &StereoDataGroup::nodeChosen, this, &Panel::slotNodeChosen);
    connect(m_pqDataGroup, &StereoDataGroup::recordsChosen, this, &Panel::slotRecordsChosen);
    connect(m_pqDataGroup, &StereoDataGroup::selectedOnlyToggled, this, &Panel::slotSelectedOnlyToggled);
    connect(m_pqPickBtn, &QToolButton::toggled, this, &Panel::slotMouseModeChosen);
    connect(m_pqConventionComboBox, &QComboBox::activated, this, &Panel::slotConventionChosen);
    connect(m_pqNetPage, &StereoNetPage::changed, this, &Panel::slotLooksChanged);
    connect(m_pqPointPage, &StereoPointPage::changed, this, &Panel::slotLooksChanged);
    connect(m_pqPointPage, &StereoPointPage::colorMapChanged, this, &Panel::slotColorMapChanged);
    connect(m_pqPointPage, &StereoPointPage::colorAttributeChosen, this,
            [this](int iGlobalID) { setColorAttribute(node(iGlobalID)); });
    connect(m_pqPointPage, &StereoPointPage::symbolAttributeChosen, this,
            [this](int iGlobalID) { setSymbolAttribute(node(iGlobalID)); });
    connect(m_pqContourPage, &StereoContourPage::changed, this, &Panel::slotLooksChanged);
    connect(m_pqResultPage, &StereoResultPage::changed, this, &Panel::slotResultsChanged);
    connect(m_pqAnnotationPage, &StereoAnnotationPage::changed, this, &Panel::slotLooksChanged);
    connect(m_pqDisplayPage, &ChartDisplayPage::backgroundChanged, m_pqWoodcockPage->diagram(),
            [pqDiagram = m_pqWoodcockPage->diagram()](bool bBlack) {
                pqDiagram->setLabelColor(bBlack ? Qt::white : Qt::black);
            });
    // The band of the smallest densities has the colour of the background.
    connect(m_pqDisplayPage, &ChartDisplayPage::backgroundChanged, this, &Panel::updateChart);
}

void QStereoChartWidget::connectAnalysis()
{
    using Panel = QStereoChartWidget;
    connect(m_pqRotationPage, &StereoRotationPage::toCenterWanted, this, &Panel::rotateDataToCenterPole);
    connect(m_pqRotationPage, &StereoRotationPage::aboutAxisWanted, this, &Panel::rotateDataAboutRotationAxis);
    connect(m_pqRotationPage, &StereoRotationPage::undoWanted, this, &Panel::undoRotation);
    connect(m_pqRotationPage, &StereoRotationPage::undoAllWanted, this, &Panel::undoAllRotations);
    connect(m_pqRotationPage, &StereoRotationPage::attributesWanted, this, &Panel::createRotatedAttributes);
    connect(m_pqClusterPage, &StereoClusterPage::applyWanted, this, &Panel::slotApplyClusterGeneration);
    connect(m_pqClusterPage, &StereoClusterPage::clusterClicked, this, &Panel::slotClusterClicked);
    // Queued: the selection fills the table again in which the row was chosen.
    connect(m_pqWoodcockPage, &StereoWoodcockPage::shapeChosen, this, &Panel::slotShapeChosen, Qt::QueuedConnection);
    connect(m_pqClusterPage, &StereoClusterPage::centroidsToggled, this, &Panel::slotLooksChanged);
    connect(m_pqBiasPage, &StereoBiasPage::weightsToggled, this, &Panel::slotScanLineChanged);
    connect(m_pqBiasPage, &StereoBiasPage::scanLineChanged, this, &Panel::slotScanLineChanged);
    connect(m_pqBiasPage, &StereoBiasPage::attributeWanted, this, &Panel::slotApplyCreateBiasWeightAttribute);
}

} // namespace gkBase
