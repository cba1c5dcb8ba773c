#include "CrossPlotPointPage.h"

#include "ColorMapEdits.h"
#include "QChartDrawingArea.h"
#include "QIntSpinBoxWithSlider.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace gkBase {

CrossPlotPointPage::CrossPlotPointPage(QChartDrawingArea* pqCanvas, QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqCanvas(pqCanvas)
    , m_pqStyleComboBox(new QComboBox)
    , m_pqSizeSpinBox(new QIntSpinBoxWithSlider(1, CrossPlotSettings::s_iLargestPointSize,
                                                CrossPlotSettings::s_iLargestPointSize - 1))
    , m_pqHollowCheckBox(new QCheckBox(tr("Hollow Symbols")))
    , m_pqColorLegendCheckBox(new QCheckBox(tr("Color Legend")))
    , m_pqSymbolLegendCheckBox(new QCheckBox(tr("Symbol Legend")))
{
    m_pqColorMapGroup = createColorMapGroup();
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(createStyleControls());
    pqLayout->addWidget(m_pqColorMapGroup);
    pqLayout->addStretch(1);
    setSettings({});
    setColorAttribute(nullptr, false);

    using Page = CrossPlotPointPage;
    connect(m_pqStyleComboBox, &QComboBox::activated, this, &Page::looksChanged);
    connect(m_pqSizeSpinBox, &QIntSpinBoxWithSlider::valueChanged, this, &Page::looksChanged);
    for (QCheckBox* pqBox : {m_pqHollowCheckBox, m_pqColorLegendCheckBox, m_pqSymbolLegendCheckBox})
        connect(pqBox, &QCheckBox::clicked, this, &Page::looksChanged);
    connect(m_pqRedToBlueCheckBox, &QCheckBox::clicked, this, &Page::colorMapChanged);
}

QWidget* CrossPlotPointPage::createStyleControls()
{
    auto* pqControls = new QWidget;
    auto* pqForm = new QFormLayout(pqControls);
    pqForm->setContentsMargins(0, 0, 0, 0);
    m_pqCanvas->initializePointSytleComboBox(m_pqStyleComboBox, true);
    showStyleIcons();
    m_pqStyleComboBox->setObjectName(QStringLiteral("m_pqPointStyleComboBox"));
    m_pqStyleComboBox->setAccessibleName(tr("Point Style"));
    m_pqStyleComboBox->setToolTip(tr("The symbol of points without a symbol attribute"));
    m_pqSizeSpinBox->setObjectName(QStringLiteral("m_pqPointSizeSpinBox"));
    m_pqSizeSpinBox->setControlName(tr("Point Size"));
    m_pqSizeSpinBox->setSuffix(tr(" px"));
    m_pqSizeSpinBox->setToolTip(tr("Half the width of the symbols in pixels"));
    m_pqHollowCheckBox->setToolTip(tr("Draw the outlines of the symbols only"));
    m_pqColorLegendCheckBox->setToolTip(tr("List the classes of the color attribute beside the chart"));
    m_pqSymbolLegendCheckBox->setToolTip(tr("List the classes of the symbol attribute beside the chart"));
    m_pqHollowCheckBox->setObjectName(QStringLiteral("m_pqHollowCheckBox"));
    m_pqColorLegendCheckBox->setObjectName(QStringLiteral("m_pqColorLegendCheckBox"));
    m_pqSymbolLegendCheckBox->setObjectName(QStringLiteral("m_pqSymbolLegendCheckBox"));
    pqForm->addRow(tr("Style"), m_pqStyleComboBox);
    pqForm->addRow(tr("Size"), m_pqSizeSpinBox);
    pqForm->addRow(m_pqHollowCheckBox);
    pqForm->addRow(m_pqColorLegendCheckBox);
    pqForm->addRow(m_pqSymbolLegendCheckBox);
    return pqControls;
}

void CrossPlotPointPage::showStyleIcons()
{
    const QColor oColor = m_pqStyleComboBox->palette().color(QPalette::Text);
    for (int i = 0; i < m_pqStyleComboBox->count(); ++i) {
        const auto eStyle = static_cast<PointStyle>(m_pqStyleComboBox->itemData(i).toInt());
        m_pqStyleComboBox->setItemIcon(i, QIcon(m_pqCanvas->getSymbolPixmap(eStyle, oColor)));
    }
}

void CrossPlotPointPage::changeEvent(QEvent* pEvent)
{
    QWidget::changeEvent(pEvent);
    if (pEvent->type() == QEvent::PaletteChange)
        showStyleIcons();
}

QGroupBox* CrossPlotPointPage::createColorMapGroup()
{
    auto* pqGroup = new QGroupBox(tr("Color Map"));
    pqGroup->setToolTip(tr("Bands of colors for attributes of numbers; an empty field takes what suits the values"));
    m_pqColorMapEdits = new ColorMapEdits(tr("Interval"), tr("automatic"));
    connect(m_pqColorMapEdits, &ColorMapEdits::edited, this, &CrossPlotPointPage::colorMapChanged);
    m_pqRedToBlueCheckBox = new QCheckBox(tr("Red to Blue"));
    m_pqRedToBlueCheckBox->setObjectName(QStringLiteral("m_pqRedToBlueCheckBox"));
    m_pqRedToBlueCheckBox->setToolTip(tr("Small values are red and large ones blue"));
    auto* pqLayout = new QVBoxLayout(pqGroup);
    pqLayout->addWidget(m_pqColorMapEdits);
    pqLayout->addWidget(m_pqRedToBlueCheckBox);
    return pqGroup;
}

void CrossPlotPointPage::writeTo(CrossPlotSettings& settings) const
{
    settings.m_ePointStyle = static_cast<PointStyle>(m_pqStyleComboBox->currentData().toInt());
    settings.m_iPointSize = m_pqSizeSpinBox->getValue();
    settings.m_bHollow = m_pqHollowCheckBox->isChecked();
    settings.m_bColorLegend = m_pqColorLegendCheckBox->isChecked();
    settings.m_bSymbolLegend = m_pqSymbolLegendCheckBox->isChecked();
    settings.m_bRedToBlue = m_pqRedToBlueCheckBox->isChecked();
}

void CrossPlotPointPage::setSettings(const CrossPlotSettings& settings)
{
    const QSignalBlocker blocker(m_pqSizeSpinBox);
    m_pqStyleComboBox->setCurrentIndex(m_pqStyleComboBox->findData(static_cast<int>(settings.m_ePointStyle)));
    m_pqSizeSpinBox->setValue(settings.m_iPointSize);
    m_pqHollowCheckBox->setChecked(settings.m_bHollow);
    m_pqColorLegendCheckBox->setChecked(settings.m_bColorLegend);
    m_pqSymbolLegendCheckBox->setChecked(settings.m_bSymbolLegend);
    m_pqRedToBlueCheckBox->setChecked(settings.m_bRedToBlue);
}

RelationshipClasses::ColorMap CrossPlotPointPage::colorMap() const
{
    RelationshipClasses::ColorMap map = m_pqColorMapEdits->colorMap();
    map.m_bRedToBlue = m_pqRedToBlueCheckBox->isChecked();
    return map;
}

void CrossPlotPointPage::setColorAttribute(const MatrixData* poAttribute, bool bBanded)
{
    m_pqColorMapGroup->setEnabled(poAttribute && bBanded);
    m_pqColorMapEdits->setAttribute(poAttribute);
}

} // namespace gkBase
