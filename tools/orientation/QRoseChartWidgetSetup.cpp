// The controls of the rose panel and how they are laid out and connected.

#include "ChartDisplayPage.h"
#include "ChartPanelControls.h"
#include "ClassLegends.h"
#include "DisplayUnitManager.h"
#include "LegendSplitter.h"
#include "PolarChartFrame.h"
#include "QDecoratedToolBox.h"
#include "QRelationshipItemModel.h"
#include "QRoseChartWidget.h"
#include "QRosePlotWidget.h"
#include "RoseColorPage.h"
#include "RoseDirectionGroup.h"
#include "RoseDisplayPage.h"
#include "RoseResultGroup.h"

#include <QSplitter>

namespace gkBase {

QRoseChartWidget::QRoseChartWidget(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pModel(new QRelationshipItemModel(this))
{
    createChart();
    createControls();
    connectControls();
    setSettings({});
}

QRoseChartWidget::~QRoseChartWidget() = default;

void QRoseChartWidget::createChart()
{
    m_pqPlot = new QRosePlotWidget(nullptr, tr("Rose Diagram"));
    m_pqPlot->setModel(m_pModel);
    m_pqPlot->setMetafileCopy([this] { copyEWMFToClipboard(); });
    m_pqPlot->allowCopyToWMF(true);
    m_pqFrame = new PolarChartFrame(m_pqPlot);
    m_pqLegends = new ClassLegends(m_pqPlot);
    m_pqLegendSplitter = new LegendSplitter(m_pqFrame);
    m_pqLegendSplitter->setObjectName(QStringLiteral("m_pqLegendSplitter"));
    m_pqLegendSplitter->addLegend(m_pqLegends);
}

void QRoseChartWidget::createControls()
{
    m_pqDirectionGroup = new RoseDirectionGroup;
    m_pqResultGroup = new RoseResultGroup;
    m_pqColorPage = new RoseColorPage;
    m_pqDisplayPage = new ChartDisplayPage(m_pqFrame);
    m_pqDisplayPage->hideGrid();
    m_pqDisplaySettingsPage = new RoseDisplayPage(m_pqDisplayPage);
    auto* pqToolBox = new QDecoratedToolBox;
    pqToolBox->addItem(m_pqColorPage, tr("Colour Attribute Settings"));
    pqToolBox->addItem(m_pqDisplaySettingsPage, tr("Annotation/ Display Settings"));
    // The side bar scrolls as a whole; bars of the page inside it would leave a slit of it on small screens.
    m_pqSideBar = newSideBar({m_pqDirectionGroup, m_pqResultGroup}, pqToolBox, tallestPage(*pqToolBox));
    m_pqSidePanelSplitter =
        layOutPanel(this, {m_pqLegendSplitter}, m_pqSideBar, {3 * g_iChartSideBarWidth, g_iChartSideBarWidth});
}

void QRoseChartWidget::connectControls()
{
    using Panel = QRoseChartWidget;
    connect(m_pqDirectionGroup->chooser(), &AttributeChooser::attributeChosen, this, &Panel::slotDirectionChosen);
    connect(m_pqDirectionGroup, &RoseDirectionGroup::sectorSizeChanged, this, &Panel::updateRoseChartIntervals);
    connect(m_pqDirectionGroup, &RoseDirectionGroup::dataTypeChanged, this, &Panel::slotDataTypeChanged);
    connect(m_pqDirectionGroup, &RoseDirectionGroup::looksChanged, this, &Panel::updateRoseChart);
    connect(m_pqResultGroup, &RoseResultGroup::looksChanged, this, &Panel::updateRoseChart);
    connect(m_pqColorPage->chooser(), &AttributeChooser::attributeChosen, this, &Panel::slotResetDisplayColorAttribute);
    connect(m_pqColorPage, &RoseColorPage::colorMapChanged, this, &Panel::updateRoseChartClassification);
    connect(m_pqColorPage, &RoseColorPage::expandWanted, this, &Panel::resetDisplayColorAttribute);
    connect(m_pqDisplaySettingsPage, &RoseDisplayPage::looksChanged, this, &Panel::updateRoseChart);
    connect(m_pqPlot, &QChartDrawingArea::cursorPos, this, &Panel::slotCursorMoved);
    connect(m_pqPlot, &QChartDrawingArea::dataPointsSelection, this, &Panel::slotPointsSelected);
    connect(m_pqPlot, &QChartDrawingArea::signalCopyToClipboard, this, &Panel::copyToClipboard);
    connect(m_pqLegends, &ClassLegends::selectedClassesChanged, this, &Panel::slotLegendSelection);
    connect(&DisplayUnitManager::instance(), &DisplayUnitManager::displayChanged, this, &Panel::slotDisplayUnitChanged);
}

} // namespace gkBase
