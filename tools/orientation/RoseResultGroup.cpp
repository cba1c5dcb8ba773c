#include "RoseResultGroup.h"

#include "ChartPanelControls.h"
#include "OrientationText.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>

namespace gkBase {

namespace {

constexpr int g_iDecimals = 2;

QLabel* addResult(QFormLayout& form, const QString& sName, const QString& sToolTip, const char* pObjectName)
{
    auto* pqName = new QLabel(sName);
    pqName->setToolTip(sToolTip);
    QLabel* pqValue = newValueLabel(sName);
    pqValue->setToolTip(sToolTip);
    pqValue->setObjectName(QLatin1String(pObjectName));
    form.addRow(pqName, pqValue);
    return pqValue;
}

void showRow(QLabel* pqValue, bool bShow)
{
    pqValue->setVisible(bShow);
    auto* pqForm = static_cast<QFormLayout*>(pqValue->parentWidget()->layout());
    pqForm->labelForField(pqValue)->setVisible(bShow);
}

} // namespace

RoseResultGroup::RoseResultGroup(QWidget* pqParent)
    : QGroupBox(pqParent)
    , m_pqMeanDirectionCheckBox(newCheckBox(tr("Mean Direction"),
                                            tr("Show the direction of the sum of all unit vectors as an arrow, and the "
                                               "mean axis of bidirectional data as a dashed line"),
                                            "m_pqMeanDirectionCheckBox"))
    , m_pqMeanLengthCheckBox(newCheckBox(tr("Normalized Length"),
                                         tr("Make the arrow as long as the mean resultant length, the radius being 1"),
                                         "m_pqMeanLengthCheckBox"))
    , m_pqMeanDirectionLabel(newValueLabel(tr("Mean Direction")))
    , m_pqMeanLengthLabel(newValueLabel(tr("Normalized Length")))
{
    setTitle(tr("Resultant"));
    m_pqMeanDirectionLabel->setObjectName(QStringLiteral("m_pqMeanDirectionLabel"));
    m_pqMeanLengthLabel->setObjectName(QStringLiteral("m_pqMeanLengthLabel"));
    auto* pqForm = new QFormLayout(this);
    pqForm->addRow(m_pqMeanDirectionCheckBox, m_pqMeanDirectionLabel);
    pqForm->addRow(m_pqMeanLengthCheckBox, m_pqMeanLengthLabel);
    m_pqAxisDirectionLabel = addResult(*pqForm, tr("Axial Mean:"),
                                       tr("The mean axis (0° to 180°), from doubled angles: azimuths that differ by "
                                          "180° are the same axis"),
                                       "m_pqAxisDirectionLabel");
    m_pqAxisLengthLabel =
        addResult(*pqForm, tr("Axial Length:"), tr("The mean resultant length of the doubled angles, 0 to 1"),
                  "m_pqAxisLengthLabel");
    m_pqNumberOfPointsLabel =
        addResult(*pqForm, tr("Number of Points:"),
                  tr("The number of <b>data points</b>, that are taken into account for creating the histogram"),
                  "m_pqNumberOfPointsLabel");
    m_pqMissingLabel =
        addResult(*pqForm, tr("Without a Direction:"), tr("Records that hold no azimuth"), "m_pqMissingLabel");
    m_pqUncoveredLabel =
        addResult(*pqForm, tr("In No Sector:"),
                  tr("Directions in the rest of the circle that the sectors leave uncovered"), "m_pqUncoveredLabel");
    for (QCheckBox* pqBox : {m_pqMeanDirectionCheckBox, m_pqMeanLengthCheckBox})
        connect(pqBox, &QCheckBox::clicked, this, &RoseResultGroup::looksChanged);
    // Without the arrow there is nothing to draw at that length.
    connect(m_pqMeanDirectionCheckBox, &QCheckBox::clicked, m_pqMeanLengthCheckBox, &QWidget::setEnabled);
    setSettings({});
    showResults({}, {}, true);
}

void RoseResultGroup::showMean(const CircularMean& mean, QLabel* pqDirection, QLabel* pqLength) const
{
    const bool bDefined = !isMissing(mean.m_dDirection);
    const QString sReason = mean.m_iCount == 0 ? tr("There are no directions")
                            : bDefined         ? QString()
                                               : tr("The directions cancel out: they have no mean");
    pqDirection->setText(bDefined ? QString::number(mean.m_dDirection, 'f', g_iDecimals) + QChar(0xB0)
                                  : undefinedText());
    pqDirection->setToolTip(sReason);
    pqLength->setText(mean.m_iCount > 0 ? QString::number(mean.m_dResultantLength, 'f', g_iDecimals) : undefinedText());
    pqLength->setToolTip(mean.m_iCount > 0 ? tr("Mean resultant length: 1 where all directions are equal, 0 where they "
                                                "cancel out")
                                           : sReason);
}

void RoseResultGroup::showResults(const RoseBins& bins, const CircularMeans& means, bool bUnidirectional)
{
    showMean(means.m_oDirection, m_pqMeanDirectionLabel, m_pqMeanLengthLabel);
    showMean(means.m_oAxis, m_pqAxisDirectionLabel, m_pqAxisLengthLabel);
    m_pqNumberOfPointsLabel->setText(QString::number(bins.m_iRecords));
    m_pqMissingLabel->setText(QString::number(bins.m_iMissing));
    const double dRest = bins.m_dSectorSize * bins.sectors();
    m_pqUncoveredLabel->setText(QString::number(bins.m_iUncovered));
    m_pqUncoveredLabel->setToolTip(
        tr("Directions from %1° to 360°, the rest of the circle that the sectors leave uncovered").arg(dRest));
    showRow(m_pqAxisDirectionLabel, !bUnidirectional);
    showRow(m_pqAxisLengthLabel, !bUnidirectional);
    showRow(m_pqMissingLabel, bins.m_iMissing > 0);
    showRow(m_pqUncoveredLabel, bins.sectors() > 0 && dRest < 360.0);
}

void RoseResultGroup::writeTo(RoseChartSettings& settings) const
{
    settings.m_bMeanDirection = m_pqMeanDirectionCheckBox->isChecked();
    settings.m_bMeanLength = m_pqMeanLengthCheckBox->isChecked();
}

void RoseResultGroup::setSettings(const RoseChartSettings& settings)
{
    m_pqMeanDirectionCheckBox->setChecked(settings.m_bMeanDirection);
    m_pqMeanLengthCheckBox->setEnabled(settings.m_bMeanDirection);
    m_pqMeanLengthCheckBox->setChecked(settings.m_bMeanLength);
}

} // namespace gkBase
