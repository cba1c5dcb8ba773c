#include "StereoPointPage.h"

#include "ChartPanelControls.h"
#include "ColorButton.h"
#include "ColorMapEdits.h"
#include "OrientationText.h"
#include "QChartDrawingArea.h"
#include "QIntSpinBoxWithSlider.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace gkBase {

StereoPointPage::StereoPointPage(QChartDrawingArea* pqCanvas, QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqCanvas(pqCanvas)
{
    auto* pqForm = new QFormLayout(this);
    addLayers(*pqForm);
    addSymbols(*pqForm);
    addAttributes(*pqForm);
    setColorAttribute(nullptr, false);
    setSettings({});
}

void StereoPointPage::addLayers(QFormLayout& form)
{
    const std::array<QString, s_iLayers> aNames = {tr("First Data Set"), tr("Second Data Set"), tr("Lineations")};
    const std::array<const char*, s_iLayers> aObjectNames = {"m_pqPoints", "m_pqSecondPoints", "m_pqLineationPoints"};
    for (std::size_t i = 0; i < s_iLayers; ++i) {
        Layer& layer = m_aLayers[i];
        layer.m_pqShow = newCheckBox(aNames[i], tr("Draw the points of these records"), aObjectNames[i]);
        layer.m_pqColor = new ColorButton(tr("Color: %1").arg(aNames[i]), tr("Color of these points"));
        layer.m_pqColor->setObjectName(QLatin1String(aObjectNames[i]) + QLatin1String("ColorBtn"));
        auto* pqRow = new QHBoxLayout;
        pqRow->addWidget(layer.m_pqShow, 1);
        pqRow->addWidget(layer.m_pqColor);
        form.addRow(pqRow);
        connect(layer.m_pqShow, &QCheckBox::clicked, this, &StereoPointPage::changed);
        connect(layer.m_pqColor, &ColorButton::colorPicked, this, &StereoPointPage::changed);
    }
}

void StereoPointPage::addSymbols(QFormLayout& form)
{
    m_pqStyleComboBox = newChooser(tr("Point Style"), tr("The symbol of points without a symbol attribute"),
                                   QStringLiteral("m_pqPointStyleComboBox"));
    m_pqCanvas->initializePointSytleComboBox(m_pqStyleComboBox, true);
    showStyleIcons();
    m_pqSizeSpinBox = new QIntSpinBoxWithSlider(1, StereoChartSettings::s_iLargestPointSize,
                                                StereoChartSettings::s_iLargestPointSize - 1);
    m_pqSizeSpinBox->setObjectName(QStringLiteral("m_pqPointSizeSpinBox"));
    m_pqSizeSpinBox->setControlName(tr("Point Size"));
    m_pqSizeSpinBox->setSuffix(tr(" px"));
    m_pqSizeSpinBox->setToolTip(tr("Half the width of the symbols in pixels"));
    m_pqHollowCheckBox =
        newCheckBox(tr("Hollow Symbols"), tr("Draw the outlines of the symbols only"), "m_pqHollowCheckBox");
    form.addRow(tr("Style"), m_pqStyleComboBox);
    form.addRow(tr("Size"), m_pqSizeSpinBox);
    form.addRow(m_pqHollowCheckBox);
    connect(m_pqStyleComboBox, &QComboBox::activated, this, &StereoPointPage::changed);
    connect(m_pqSizeSpinBox, &QIntSpinBoxWithSlider::valueChanged, this, &StereoPointPage::changed);
    connect(m_pqHollowCheckBox, &QCheckBox::clicked, this, &StereoPointPage::changed);
}

void StereoPointPage::addAttributes(QFormLayout& form)
{
    m_pqColorChooser = new AttributeChooser(tr("Color Attribute"), true);
    m_pqColorChooser->setObjectName(QStringLiteral("m_pqColorChooser"));
    m_pqColorChooser->setToolTip(tr("The attribute whose values color the points of the first data set"));
    m_pqSymbolChooser = new AttributeChooser(tr("Symbol Attribute"), true);
    m_pqSymbolChooser->setObjectName(QStringLiteral("m_pqSymbolChooser"));
    m_pqSymbolChooser->setToolTip(tr("The attribute whose values choose the symbols of the first data set"));
    m_pqColorLegendCheckBox = newCheckBox(
        tr("Color Legend"), tr("List the classes of the color attribute beside the net"), "m_pqColorLegendCheckBox");
    m_pqSymbolLegendCheckBox = newCheckBox(
        tr("Symbol Legend"), tr("List the classes of the symbol attribute beside the net"), "m_pqSymbolLegendCheckBox");
    form.addRow(tr("Color By"), m_pqColorChooser);
    form.addRow(tr("Symbol By"), m_pqSymbolChooser);
    form.addRow(m_pqColorLegendCheckBox);
    form.addRow(m_pqSymbolLegendCheckBox);
    form.addRow(newColorMapGroup());
    using Page = StereoPointPage;
    connect(m_pqColorChooser, &AttributeChooser::attributeChosen, this, &Page::colorAttributeChosen);
    connect(m_pqSymbolChooser, &AttributeChooser::attributeChosen, this, &Page::symbolAttributeChosen);
    for (QCheckBox* pqBox : {m_pqColorLegendCheckBox, m_pqSymbolLegendCheckBox})
        connect(pqBox, &QCheckBox::clicked, this, &Page::changed);
}

QGroupBox* StereoPointPage::newColorMapGroup()
{
    m_pqColorMapGroup = new QGroupBox(tr("Color Map"));
    m_pqColorMapGroup->setToolTip(
        tr("Bands of colors for attributes of numbers; an empty field takes what suits the values"));
    m_pqColorMapEdits = new ColorMapEdits(tr("Interval"), undefinedText());
    m_pqRedToBlueCheckBox =
        newCheckBox(tr("Red to Blue"), tr("Small values are red and large ones blue"), "m_pqClassesRedToBlueCheckBox");
    auto* pqLayout = new QVBoxLayout(m_pqColorMapGroup);
    pqLayout->addWidget(m_pqColorMapEdits);
    pqLayout->addWidget(m_pqRedToBlueCheckBox);
    connect(m_pqColorMapEdits, &ColorMapEdits::edited, this, &StereoPointPage::colorMapChanged);
    connect(m_pqRedToBlueCheckBox, &QCheckBox::clicked, this, &StereoPointPage::colorMapChanged);
    return m_pqColorMapGroup;
}

void StereoPointPage::showStyleIcons()
{
    const QColor oColor = m_pqStyleComboBox->palette().color(QPalette::Text);
    for (int i = 0; i < m_pqStyleComboBox->count(); ++i) {
        const auto eStyle = static_cast<PointStyle>(m_pqStyleComboBox->itemData(i).toInt());
        m_pqStyleComboBox->setItemIcon(i, QIcon(m_pqCanvas->getSymbolPixmap(eStyle, oColor)));
    }
}

void StereoPointPage::changeEvent(QEvent* pEvent)
{
    QWidget::changeEvent(pEvent);
    if (pEvent->type() == QEvent::PaletteChange)
        showStyleIcons();
}

void StereoPointPage::setEntries(const std::vector<AttributeEntry>& vEntries, int iRecords)
{
    const auto fits = [iRecords](const AttributeEntry& entry) { return iRecords < 0 || entry.m_iRecords == iRecords; };
    m_pqColorChooser->setEntries(vEntries, fits);
    m_pqSymbolChooser->setEntries(vEntries, fits);
}

void StereoPointPage::removeEntries(const std::unordered_set<int>& iGlobalIDs)
{
    m_pqColorChooser->removeEntries(iGlobalIDs);
    m_pqSymbolChooser->removeEntries(iGlobalIDs);
}

RelationshipClasses::ColorMap StereoPointPage::colorMap() const
{
    RelationshipClasses::ColorMap map = m_pqColorMapEdits->colorMap();
    map.m_bRedToBlue = m_pqRedToBlueCheckBox->isChecked();
    return map;
}

void StereoPointPage::setColorMap(const RelationshipClasses::ColorMap& map)
{
    m_pqColorMapEdits->setColorMap(map);
}

void StereoPointPage::setColorAttribute(const MatrixData* poAttribute, bool bBanded)
{
    m_pqColorMapGroup->setEnabled(poAttribute && bBanded);
    m_pqColorMapEdits->setAttribute(poAttribute);
}

void StereoPointPage::writeTo(StereoChartSettings& settings) const
{
    StereoNetSettings& net = settings.m_oNet;
    net.m_bPoints = m_aLayers[0].m_pqShow->isChecked();
    net.m_bSecondPoints = m_aLayers[1].m_pqShow->isChecked();
    net.m_bLineationPoints = m_aLayers[2].m_pqShow->isChecked();
    net.m_oPointColor = m_aLayers[0].m_pqColor->color();
    net.m_oSecondPointColor = m_aLayers[1].m_pqColor->color();
    net.m_oLineationColor = m_aLayers[2].m_pqColor->color();
    settings.m_ePointStyle = static_cast<PointStyle>(m_pqStyleComboBox->currentData().toInt());
    settings.m_iPointSize = m_pqSizeSpinBox->getValue();
    settings.m_bHollow = m_pqHollowCheckBox->isChecked();
    settings.m_bClassesRedToBlue = m_pqRedToBlueCheckBox->isChecked();
    settings.m_bColorLegend = m_pqColorLegendCheckBox->isChecked();
    settings.m_bSymbolLegend = m_pqSymbolLegendCheckBox->isChecked();
}

void StereoPointPage::setSettings(const StereoChartSettings& settings)
{
    const StereoNetSettings& net = settings.m_oNet;
    m_aLayers[0].m_pqShow->setChecked(net.m_bPoints);
    m_aLayers[1].m_pqShow->setChecked(net.m_bSecondPoints);
    m_aLayers[2].m_pqShow->setChecked(net.m_bLineationPoints);
    m_aLayers[0].m_pqColor->setColor(net.m_oPointColor);
    m_aLayers[1].m_pqColor->setColor(net.m_oSecondPointColor);
    m_aLayers[2].m_pqColor->setColor(net.m_oLineationColor);
    const QSignalBlocker blocker(m_pqSizeSpinBox);
    m_pqStyleComboBox->setCurrentIndex(m_pqStyleComboBox->findData(static_cast<int>(settings.m_ePointStyle)));
    m_pqSizeSpinBox->setValue(settings.m_iPointSize);
    m_pqHollowCheckBox->setChecked(settings.m_bHollow);
    m_pqRedToBlueCheckBox->setChecked(settings.m_bClassesRedToBlue);
    m_pqColorLegendCheckBox->setChecked(settings.m_bColorLegend);
    m_pqSymbolLegendCheckBox->setChecked(settings.m_bSymbolLegend);
}

} // namespace gkBase
