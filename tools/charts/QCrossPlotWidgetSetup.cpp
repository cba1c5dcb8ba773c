// The controls of the cross plot panel and how they are laid out and connected.

#include "AttributeChooser.h"
#include "ChartDisplayPage.h"
#include "ChartFrame.h"
#include "ChartPanelControls.h"
#include "ClassLegends.h"
#include "CrossPlotAttributeGroup.h"
#include "CrossPlotClusterPage.h"
#include "CrossPlotPointPage.h"
#include "DisplayUnitManager.h"
#include "QCrossPlot.h"
#include "QCrossPlotWidget.h"
#include "QDecoratedToolBox.h"
#include "QRelationshipItemModel.h"

#include <QCheckBox>
#include <QVBoxLayout>

namespace gkBase {

namespace {

constexpr int g_iPageMinimumHeight = 110;
constexpr int g_iLegendWidth = 150;
constexpr int g_iLegendMinimumWidth = 90;

} // namespace

QCrossPlotWidget::QCrossPlotWidget(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pModel(new QRelationshipItemModel(this))
{
    createChart();
    createControls();
    connectChart();
    connectControls();
    setSettings(settings());
    updateCursorPosLabel(QPointF(g_dMissingValue, g_dMissingValue));
    updateDataSetSelectionBox();
    updateCrossPlot();
}

QCrossPlotWidget::~QCrossPlotWidget() = default;

void QCrossPlotWidget::createChart()
{
    m_pqPlot = new QCrossPlot(nullptr, tr("Cross Plot"));
    m_pqPlot->setModel(m_pModel);
    m_pqPlot->setDataCreationType(QCrossPlot::NoCreation);
    m_pqFrame = new ChartFrame(m_pqPlot);
    m_pqLegends = new ClassLegends(m_pqPlot);
    m_pqLegends->setMinimumWidth(g_iLegendMinimumWidth);
}

void QCrossPlotWidget::createControls()
{
    m_pqClusterPage = new CrossPlotClusterPage;
    m_pqAttributeGroup = new CrossPlotAttributeGroup(m_pqClusterPage->thirdChooser());
    m_pqPointPage = new CrossPlotPointPage(m_pqPlot);
    m_pqAxesPage = new CrossPlotAxesPage;
    m_pqDisplayPage = new ChartDisplayPage(m_pqFrame);

    auto* pqToolBox = new QDecoratedToolBox;
    pqToolBox->addItem(m_pqPointPage, tr("Points and Colors"));
    pqToolBox->addItem(createStatisticsPage(), tr("Regression and Range"));
    pqToolBox->addItem(m_pqClusterPage, tr("Clusters"));
    pqToolBox->addItem(m_pqAxesPage, tr("Axis Limits"));
    pqToolBox->addItem(m_pqDisplayPage, tr("Annotation/Display Settings"));
    // All headers stay in reach on small screens: a page that is taller scrolls by itself.
    QWidget* pqSideBar = newSideBar({m_pqAttributeGroup}, pqToolBox, g_iPageMinimumHeight);
    m_pqSplitter = layOutPanel(this, {m_pqFrame, m_pqLegends}, pqSideBar,
                               {3 * g_iChartSideBarWidth, g_iLegendWidth, g_iChartSideBarWidth});
}

QWidget* QCrossPlotWidget::createStatisticsPage()
{
    auto* pqPage = new QWidget;
    m_pqRegressionCheckBox = new QCheckBox(tr("Regression Line"));
    m_pqRegressionCheckBox->setObjectName(QStringLiteral("m_pqRegressionCheckBox"));
    m_pqRegressionCheckBox->setToolTip(tr("The line of y over x, with its equation and correlation"));
    m_pqRegressionOfSelectionCheckBox = new QCheckBox(tr("Selected Points Only"));
    m_pqRegressionOfSelectionCheckBox->setObjectName(QStringLiteral("m_pqRegressionOfSelectionCheckBox"));
    m_pqRegressionOfSelectionCheckBox->setToolTip(tr("Leave points that are not selected out of the regression"));
    m_pq90PercentCheckBox = new QCheckBox(tr("90% Range"));
    m_pq90PercentCheckBox->setObjectName(QStringLiteral("m_pq90PercentCheckBox"));
    m_pq90PercentCheckBox->setToolTip(tr("Lines that hold 90 % of the points between them, for x and for y"));
    auto* pqLayout = new QVBoxLayout(pqPage);
    pqLayout->addWidget(m_pqRegressionCheckBox);
    pqLayout->addWidget(m_pqRegressionOfSelectionCheckBox);
    pqLayout->addWidget(m_pq90PercentCheckBox);
    pqLayout->addStretch(1);
    return pqPage;
}

void QCrossPlotWidget::connectChart()
{
    using Panel = QCrossPlotWidget;
    connect(m_pqPlot, &QChartDrawingArea::cursorPos, this, &Panel::updateCursorPosLabel);
    connect(m_pqPlot, &QChartDrawingArea::dataPointsSelection, this, &Panel::slotPointsSelected);
    connect(m_pqPlot, &QChartDrawingArea::signalCopyToClipboard, this, &Panel::copyToClipboard);
    connect(m_pqPlot, &QCrossPlot::signalCopyWEMFToClipboard, this, &Panel::copyEWMFToClipboard);
    connect(m_pqLegends, &ClassLegends::selectedClassesChanged, this, &Panel::slotLegendSelection);
    connect(&DisplayUnitManager::instance(), &DisplayUnitManager::displayChanged, this, &Panel::slotDisplayUnitChanged);
}

void QCrossPlotWidget::connectControls()
{
    using Panel = QCrossPlotWidget;
    connect(m_pqAttributeGroup, &CrossPlotAttributeGroup::attributeChosen, this, &Panel::slotAttributeChosen);
    connect(m_pqAttributeGroup, &CrossPlotAttributeGroup::swapWanted, this, &Panel::swapAxes);
    connect(m_pqPointPage, &CrossPlotPointPage::looksChanged, this, &Panel::slotLooksChanged);
    connect(m_pqPointPage, &CrossPlotPointPage::colorMapChanged, this, &Panel::slotColorMapChanged);
    connect(m_pqClusterPage, &CrossPlotClusterPage::applyWanted, this, &Panel::slotApplyClusters);
    connect(m_pqClusterPage, &CrossPlotClusterPage::centroidsToggled, this, &Panel::slotLooksChanged);
    connect(m_pqAxesPage, &CrossPlotAxesPage::limitsEdited, this, &Panel::setLimits);
    connect(m_pqAxesPage, &CrossPlotAxesPage::automaticLimitsWanted, this, [this] { setLimits({}); });
    for (QCheckBox* pqBox : {m_pqRegressionCheckBox, m_pqRegressionOfSelectionCheckBox, m_pq90PercentCheckBox})
        connect(pqBox, &QCheckBox::clicked, this, &Panel::slotStatisticsChanged);
}

} // namespace gkBase
