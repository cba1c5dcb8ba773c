// The controls of the depth plot panel and how they are laid out and connected.

#include "AttributeChooser.h"
#include "ChartDisplayPage.h"
#include "ChartPanelControls.h"
#include "DepthDecimationPage.h"
#include "DepthIntervalPage.h"
#include "DepthTrackEditor.h"
#include "DisplayUnitManager.h"
#include "QDecoratedToolBox.h"
#include "QDepthPlotWidget.h"
#include "QDepthTrackArea.h"
#include "QUnitLineEdit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace gkBase {

namespace {

constexpr int g_iAreaMinimumWidth = 200;
constexpr int g_iAreaMinimumHeight = 160;

QUnitLineEdit* newDepthEdit(const QString& sName, const QString& sObjectName)
{
    auto* pqEdit = new QUnitLineEdit;
    pqEdit->setObjectName(sObjectName);
    pqEdit->setAccessibleName(sName);
    pqEdit->setToolTip(sName);
    pqEdit->setMinimumWidth(40);
    return pqEdit;
}

QCheckBox* newSwitch(const QString& sText, const QString& sObjectName, const QString& sToolTip)
{
    auto* pqBox = new QCheckBox(sText);
    pqBox->setObjectName(sObjectName);
    pqBox->setToolTip(sToolTip);
    pqBox->setChecked(true);
    return pqBox;
}

} // namespace

QDepthPlotWidget::QDepthPlotWidget(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqArea(new QDepthTrackArea)
{
    m_pqArea->setMinimumSize(g_iAreaMinimumWidth, g_iAreaMinimumHeight);
    createControls();
    connectControls();
    connectPages();
    updateDepthPlot();
}

QDepthPlotWidget::~QDepthPlotWidget() = default;

void QDepthPlotWidget::createControls()
{
    m_pqTrackEditor = new DepthTrackEditor;
    m_pqIntervalPage = new DepthIntervalPage;
    m_pqDecimationPage = new DepthDecimationPage;
    m_pqDisplayPage = new ChartDisplayPage(m_pqArea);
    auto* pqToolBox = new QDecoratedToolBox;
    pqToolBox->addItem(m_pqTrackEditor, tr("Tracks"));
    pqToolBox->addItem(m_pqIntervalPage, tr("Interval Filter"));
    pqToolBox->addItem(m_pqDecimationPage, tr("Data Decimation"));
    pqToolBox->addItem(createMarkerPage(), tr("Markers"));
    pqToolBox->addItem(m_pqDisplayPage, tr("Annotation/Display Settings"));
    // The side bar scrolls as a whole; bars of a page inside it would leave a slit of it on small screens.
    QWidget* pqSideBar = newSideBar({createDataGroup()}, pqToolBox, tallestPage(*pqToolBox));
    layOutPanel(this, {m_pqArea}, pqSideBar, {3 * g_iChartSideBarWidth, g_iChartSideBarWidth});
}

QWidget* QDepthPlotWidget::createDataGroup()
{
    auto* pqGroup = new QGroupBox(tr("Select a Data Set"));
    m_pqDepthPlotDataSetComboBox = newChooser(tr("Select a Data Set"), tr("The well whose attributes are shown"),
                                              QStringLiteral("m_pqDepthPlotDataSetComboBox"));
    m_pqDepthPlotDataSetComboBox->setPlaceholderText(tr("Select a Data Set"));
    m_pqDepthAttributeChooser = new AttributeChooser(tr("Select the Depth"), false);
    m_pqDepthAttributeChooser->setObjectName(QStringLiteral("m_pqDepthAttributeChooser"));
    m_pqDepthAttributeChooser->setToolTip(tr("The attribute that is plotted downwards"));
    m_pqDepthFromEdit = newDepthEdit(tr("Upper end of the depth axis"), QStringLiteral("m_pqDepthFromEdit"));
    m_pqDepthToEdit = newDepthEdit(tr("Lower end of the depth axis"), QStringLiteral("m_pqDepthToEdit"));
    auto* pqWhole = new QToolButton;
    pqWhole->setText(tr("All"));
    pqWhole->setObjectName(QStringLiteral("m_pqWholeRangeButton"));
    pqWhole->setToolTip(tr("Show all depths"));
    connect(pqWhole, &QToolButton::clicked, this, [this] {
        m_pqArea->showWholeRange();
        showDepthRange();
    });
    auto* pqGrid = new QGridLayout(pqGroup);
    pqGrid->addWidget(m_pqDepthPlotDataSetComboBox, 0, 0, 1, 3);
    pqGrid->addWidget(new QLabel(tr("Depth")), 1, 0);
    pqGrid->addWidget(m_pqDepthAttributeChooser, 1, 1, 1, 2);
    pqGrid->addWidget(m_pqDepthFromEdit, 2, 0);
    pqGrid->addWidget(m_pqDepthToEdit, 2, 1);
    pqGrid->addWidget(pqWhole, 2, 2);
    pqGrid->setColumnStretch(0, 1);
    pqGrid->setColumnStretch(1, 1);
    return pqGroup;
}

QWidget* QDepthPlotWidget::createMarkerPage()
{
    auto* pqPage = new QWidget;
    m_pqShowTops =
        newSwitch(tr("Tops and horizons"), QStringLiteral("m_pqShowTops"), tr("Records that name a top or a horizon"));
    m_pqShowFaults = newSwitch(tr("Faults"), QStringLiteral("m_pqShowFaults"), tr("Records that name a fault"));
    m_pqShowScat = newSwitch(tr("SCAT"), QStringLiteral("m_pqShowScat"),
                             tr("Crestal, axial and inflection planes of the structural interpretation"));
    m_pqShowDecimated = newSwitch(tr("Decimated Dip/Azimuth"), QStringLiteral("m_pqShowDecimated"),
                                  tr("Large tadpoles of decimated dips"));
    m_pqMarkerLabels =
        newSwitch(tr("Labels"), QStringLiteral("m_pqMarkerLabels"), tr("Names of the markers beside the depth axis"));
    auto* pqLayout = new QVBoxLayout(pqPage);
    for (QCheckBox* pqBox : {m_pqShowTops, m_pqShowFaults, m_pqShowScat, m_pqShowDecimated, m_pqMarkerLabels})
        pqLayout->addWidget(pqBox);
    pqLayout->addStretch(1);
    return pqPage;
}

void QDepthPlotWidget::connectControls()
{
    using Panel = QDepthPlotWidget;
    connect(m_pqDepthPlotDataSetComboBox, &QComboBox::activated, this, &Panel::slotDataSetActivated);
    connect(m_pqDepthAttributeChooser, &AttributeChooser::attributeChosen, this, &Panel::slotDepthChosen);
    for (QUnitLineEdit* pqEdit : {m_pqDepthFromEdit, m_pqDepthToEdit})
        connect(pqEdit, &QUnitLineEdit::modelValueChanged, this, &Panel::slotDepthRangeEdited);
    for (QCheckBox* pqBox : {m_pqShowTops, m_pqShowFaults, m_pqShowScat, m_pqShowDecimated})
        connect(pqBox, &QCheckBox::toggled, this, &Panel::slotMarkersSwitched);
    connect(m_pqMarkerLabels, &QCheckBox::toggled, m_pqArea, &QDepthTrackArea::setMarkerLabels);
    connect(m_pqArea, &QDepthTrackArea::selectionMade, this, &Panel::slotSelectionMade);
    connect(m_pqArea, &QDepthTrackArea::boundaryPressed, this, &Panel::slotBoundaryPressed);
    connect(m_pqArea, &QDepthTrackArea::copyAsked, this, &Panel::copyToClipboard);
    connect(m_pqArea, &QDepthTrackArea::metafileCopyAsked, this, &Panel::copyEWMFToClipboard);
    connect(m_pqArea, &QDepthTrackArea::trackClicked, this, [this](int iTrack) {
        m_pqTrackEditor->setCurrentTrack(iTrack);
        m_pqArea->setCurrentTrack(iTrack);
    });
    connect(&DisplayUnitManager::instance(), &DisplayUnitManager::displayChanged, this, &Panel::slotDisplayUnitChanged);
}

void QDepthPlotWidget::connectPages()
{
    using Panel = QDepthPlotWidget;
    connect(m_pqTrackEditor, &DepthTrackEditor::tracksEdited, this,
            [this] { slotTracksEdited(m_pqTrackEditor->tracks()); });
    connect(m_pqTrackEditor, &DepthTrackEditor::trackEdited, this, &Panel::slotTrackEdited);
    connect(m_pqTrackEditor, &DepthTrackEditor::currentTrackChanged, m_pqArea, &QDepthTrackArea::setCurrentTrack);
    connect(m_pqIntervalPage, &DepthIntervalPage::sizeAsked, this, &Panel::generateIntervals);
    connect(m_pqIntervalPage, &DepthIntervalPage::numberAsked, this, &Panel::generateNumberOfIntervals);
    connect(m_pqIntervalPage, &DepthIntervalPage::removeAllAsked, this, &Panel::deleteIntervals);
    connect(m_pqIntervalPage, &DepthIntervalPage::byHandSwitched, m_pqArea, &QDepthTrackArea::setBoundaryEditing);
    connect(m_pqDecimationPage, &DepthDecimationPage::optionsChanged, this, &Panel::showDecimation);
    connect(m_pqDecimationPage, &DepthDecimationPage::applyAsked, this, &Panel::applyDecimation);
}

} // namespace gkBase
