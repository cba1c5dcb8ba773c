#include "RoseColorPage.h"

#include "ColorMapEdits.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace gkBase {

namespace {

/// A long text must not widen the column of controls.
QString inTwoLines(const QString& sText)
{
    QString sLines = sText;
    const qsizetype iSpace = sText.indexOf(QLatin1Char(' '), sText.size() / 2 - 3);
    if (iSpace > 0)
        sLines[iSpace] = QLatin1Char('\n');
    return sLines;
}

} // namespace

RoseColorPage::RoseColorPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqChooser(new AttributeChooser(tr("Plot Classified by Attribute shown as"), true))
    , m_pqColorMapEdits(new ColorMapEdits(tr("Interval Size"), QStringLiteral("---")))
    , m_pqBlueRedBtn(new QRadioButton(tr("Blue-Red")))
    , m_pqRedBlueBtn(new QRadioButton(tr("Red-Blue")))
{
    m_pqChooser->setObjectName(QStringLiteral("m_pqColorDataSetComboBox"));
    m_pqChooser->setToolTip(tr("The attribute whose values divide the petals into bands of colours"));
    m_pqBlueRedBtn->setObjectName(QStringLiteral("m_pqBlueRedBtn"));
    m_pqRedBlueBtn->setObjectName(QStringLiteral("m_pqRedBlueBtn"));
    m_pqBlueRedBtn->setToolTip(tr("Small values are blue and large ones red"));
    m_pqRedBlueBtn->setToolTip(tr("Small values are red and large ones blue"));
    m_pqColorMapGroup = createColorMapGroup();
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(new QLabel(tr("Plot Classified by Attribute shown as")));
    pqLayout->addWidget(m_pqChooser);
    pqLayout->addWidget(m_pqColorMapGroup);
    pqLayout->addStretch(1);
    setColorMap({});
    setColorAttribute(nullptr, false);

    connect(m_pqColorMapEdits, &ColorMapEdits::edited, this, &RoseColorPage::colorMapChanged);
    connect(m_pqBlueRedBtn, &QRadioButton::clicked, this, &RoseColorPage::colorMapChanged);
    connect(m_pqRedBlueBtn, &QRadioButton::clicked, this, &RoseColorPage::colorMapChanged);
}

QGroupBox* RoseColorPage::createColorMapGroup()
{
    auto* pqGroup = new QGroupBox(tr("Colour Map"));
    pqGroup->setObjectName(QStringLiteral("m_pqColorMapGroup"));
    const QString sExpand = tr("Expand Colormap to Maximum Value Range");
    auto* pqExpandBtn = new QPushButton(inTwoLines(sExpand));
    pqExpandBtn->setAccessibleName(sExpand);
    pqExpandBtn->setObjectName(QStringLiteral("m_pqExpandColorMapBtn"));
    pqExpandBtn->setToolTip(tr("Set minimum and maximum to those of all values of the attribute"));
    connect(pqExpandBtn, &QPushButton::clicked, this, &RoseColorPage::expandWanted);
    auto* pqColors = new QHBoxLayout;
    pqColors->addWidget(m_pqBlueRedBtn);
    pqColors->addWidget(m_pqRedBlueBtn);
    auto* pqLayout = new QVBoxLayout(pqGroup);
    pqLayout->addLayout(pqColors);
    pqLayout->addWidget(new QLabel(tr("Colour Map Range")));
    pqLayout->addWidget(m_pqColorMapEdits);
    pqLayout->addWidget(pqExpandBtn);
    return pqGroup;
}

void RoseColorPage::setColorAttribute(const MatrixData* poAttribute, bool bBanded)
{
    m_pqColorMapGroup->setEnabled(poAttribute && bBanded);
    m_pqColorMapEdits->setAttribute(poAttribute);
}

RelationshipClasses::ColorMap RoseColorPage::colorMap() const
{
    RelationshipClasses::ColorMap map = m_pqColorMapEdits->colorMap();
    map.m_bRedToBlue = m_pqRedBlueBtn->isChecked();
    return map;
}

void RoseColorPage::setColorMap(const RelationshipClasses::ColorMap& map)
{
    m_pqColorMapEdits->setColorMap(map);
    (map.m_bRedToBlue ? m_pqRedBlueBtn : m_pqBlueRedBtn)->setChecked(true);
}

} // namespace gkBase
