#include "RoseDirectionGroup.h"

#include "QIntSpinBoxWithSlider.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>

namespace gkBase {

RoseDirectionGroup::RoseDirectionGroup(QWidget* pqParent)
    : QGroupBox(pqParent)
    , m_pqChooser(new AttributeChooser(tr("Select a Data Set"), false))
    , m_pqSectorSpinBox(new QIntSpinBoxWithSlider(1, RoseChartSettings::s_iLargestSector, 359))
    , m_pqRosePlotBtn(newButton(tr("Rose Plot"), tr("A petal per sector"), "m_pqRosePlotBtn"))
    , m_pqUnitVectorsBtn(newButton(
          tr("Unit Vectors"), tr("A vector and a circle per sector, both as long as its count"), "m_pqUnitVectorsBtn"))
    , m_pqAreaBtn(newButton(tr("Area"), tr("The area of a petal goes with its count"), "m_pqAreaBtn"))
    , m_pqLinearBtn(newButton(tr("Linear"), tr("The radius of a petal goes with its count"), "m_pqLinearBtn"))
    , m_pqUnidirectionalBtn(newButton(tr("Unidirectional"), tr("Directions: every record counts at its azimuth"),
                                      "m_pqUnidirectionalBtn"))
    , m_pqBidirectionalBtn(newButton(tr("Bidirectional"),
                                     tr("Axes, such as strikes: every record counts at its azimuth and at the opposite "
                                        "one; the mean axis is shown beside the mean direction"),
                                     "m_pqBidirectionalBtn"))
{
    setTitle(tr("Select a Data Set"));
    m_pqChooser->setObjectName(QStringLiteral("m_pqRoseDataSetComboBox"));
    m_pqChooser->setToolTip(tr("The attribute whose azimuths (degrees) are counted"));
    m_pqChooser->setPlaceholderText(tr("Select a Data Set"));
    m_pqSectorSpinBox->setObjectName(QStringLiteral("m_pqIntervalSizeSpinBox"));
    m_pqSectorSpinBox->setControlName(tr("Interval Size"));
    m_pqSectorSpinBox->setSuffix(QStringLiteral("°"));
    m_pqSectorSpinBox->setToolTip(tr("Size of the sectors in degrees, clockwise from north; one that does not divide "
                                     "360 leaves a rest of the circle without a sector"));
    auto* pqForm = new QFormLayout(this);
    pqForm->addRow(m_pqChooser);
    pqForm->addRow(tr("Interval Size"), m_pqSectorSpinBox);
    pqForm->addRow(new QLabel(tr("Show Directions As")));
    pqForm->addRow(newPair(tr("Show Directions As"), m_pqRosePlotBtn, m_pqUnitVectorsBtn));
    pqForm->addRow(new QLabel(tr("Scaling")));
    pqForm->addRow(newPair(tr("Scaling"), m_pqAreaBtn, m_pqLinearBtn));
    pqForm->addRow(new QLabel(tr("Data Type")));
    pqForm->addRow(newPair(tr("Data Type"), m_pqUnidirectionalBtn, m_pqBidirectionalBtn));
    setSettings({});

    connect(m_pqSectorSpinBox, &QIntSpinBoxWithSlider::valueChanged, this, &RoseDirectionGroup::sectorSizeChanged);
    for (QRadioButton* pqBtn : {m_pqRosePlotBtn, m_pqUnitVectorsBtn, m_pqAreaBtn, m_pqLinearBtn})
        connect(pqBtn, &QRadioButton::clicked, this, &RoseDirectionGroup::looksChanged);
    for (QRadioButton* pqBtn : {m_pqUnidirectionalBtn, m_pqBidirectionalBtn})
        connect(pqBtn, &QRadioButton::clicked, this, &RoseDirectionGroup::dataTypeChanged);
}

QRadioButton* RoseDirectionGroup::newButton(const QString& sText, const QString& sToolTip, const char* pObjectName)
{
    auto* pqBtn = new QRadioButton(sText);
    pqBtn->setToolTip(sToolTip);
    pqBtn->setObjectName(QLatin1String(pObjectName));
    return pqBtn;
}

/// Buttons exclude each other within their parent.
QWidget* RoseDirectionGroup::newPair(const QString& sName, QRadioButton* pqFirst, QRadioButton* pqSecond)
{
    auto* pqPair = new QWidget;
    auto* pqLayout = new QHBoxLayout(pqPair);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    for (QRadioButton* pqBtn : {pqFirst, pqSecond}) {
        pqBtn->setAccessibleName(sName + QLatin1String(": ") + pqBtn->text());
        pqLayout->addWidget(pqBtn);
    }
    return pqPair;
}

void RoseDirectionGroup::writeTo(RoseChartSettings& settings) const
{
    settings.m_iSelectedDataSet = m_pqChooser->currentIndex();
    settings.m_iSectorSize = m_pqSectorSpinBox->getValue();
    settings.m_bRosePlot = m_pqRosePlotBtn->isChecked();
    settings.m_bAreaScaling = m_pqAreaBtn->isChecked();
    settings.m_bUnidirectional = m_pqUnidirectionalBtn->isChecked();
}

void RoseDirectionGroup::setSettings(const RoseChartSettings& settings)
{
    const QSignalBlocker blocker(m_pqSectorSpinBox);
    m_pqSectorSpinBox->setValue(settings.m_iSectorSize);
    (settings.m_bRosePlot ? m_pqRosePlotBtn : m_pqUnitVectorsBtn)->setChecked(true);
    (settings.m_bAreaScaling ? m_pqAreaBtn : m_pqLinearBtn)->setChecked(true);
    (settings.m_bUnidirectional ? m_pqUnidirectionalBtn : m_pqBidirectionalBtn)->setChecked(true);
}

} // namespace gkBase
