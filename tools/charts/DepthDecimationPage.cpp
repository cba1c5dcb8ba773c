#include "DepthDecimationPage.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace gkBase {

DepthDecimationPage::DepthDecimationPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqBinAverage(new QRadioButton(tr("Bin average")))
    , m_pqNearestRecord(new QRadioButton(tr("Record nearest the centre")))
    , m_pqReplace(new QCheckBox(tr("Replace the earlier decimation")))
    , m_pqSelectedOnly(new QCheckBox(tr("Selected records only")))
    , m_pqPreview(new QCheckBox(tr("Preview")))
    , m_pqCounts(new QLabel)
    , m_pqApply(new QPushButton(tr("Create Attributes")))
{
    m_pqBinAverage->setChecked(true);
    m_pqBinAverage->setToolTip(tr("Mean of the values in each interval; mean direction of dip and azimuth"));
    m_pqNearestRecord->setToolTip(tr("The values of one record of each interval"));
    m_pqReplace->setChecked(true);
    m_pqReplace->setToolTip(tr("Attributes of an earlier decimation with other intervals make room"));
    m_pqPreview->setToolTip(tr("Show the decimated values as bars and large tadpoles"));
    m_pqApply->setToolTip(tr("Decimate all tracks into attributes of their own, with the number of records"));
    m_pqCounts->setWordWrap(true);
    m_pqBinAverage->setObjectName(QStringLiteral("m_pqBinAverage"));
    m_pqNearestRecord->setObjectName(QStringLiteral("m_pqNearestRecord"));
    m_pqReplace->setObjectName(QStringLiteral("m_pqReplace"));
    m_pqSelectedOnly->setObjectName(QStringLiteral("m_pqSelectedOnly"));
    m_pqPreview->setObjectName(QStringLiteral("m_pqPreview"));
    m_pqApply->setObjectName(QStringLiteral("m_pqApply"));
    auto* pqLayout = new QVBoxLayout(this);
    for (QWidget* pqControl :
         {static_cast<QWidget*>(m_pqBinAverage), static_cast<QWidget*>(m_pqNearestRecord),
          static_cast<QWidget*>(m_pqReplace), static_cast<QWidget*>(m_pqSelectedOnly),
          static_cast<QWidget*>(m_pqPreview), static_cast<QWidget*>(m_pqCounts), static_cast<QWidget*>(m_pqApply)})
        pqLayout->addWidget(pqControl);
    pqLayout->addStretch(1);
    connect(m_pqBinAverage, &QRadioButton::toggled, this, &DepthDecimationPage::optionsChanged);
    connect(m_pqSelectedOnly, &QCheckBox::toggled, this, &DepthDecimationPage::optionsChanged);
    connect(m_pqPreview, &QCheckBox::toggled, this, &DepthDecimationPage::optionsChanged);
    connect(m_pqApply, &QPushButton::clicked, this, &DepthDecimationPage::applyAsked);
    showCounts(0, 0, 0);
}

bool DepthDecimationPage::binAverage() const
{
    return m_pqBinAverage->isChecked();
}

void DepthDecimationPage::setBinAverage(bool bAverage)
{
    (bAverage ? m_pqBinAverage : m_pqNearestRecord)->setChecked(true);
}

bool DepthDecimationPage::replaces() const
{
    return m_pqReplace->isChecked();
}

void DepthDecimationPage::setReplaces(bool bReplace)
{
    m_pqReplace->setChecked(bReplace);
}

bool DepthDecimationPage::selectedOnly() const
{
    return m_pqSelectedOnly->isChecked();
}

bool DepthDecimationPage::preview() const
{
    return m_pqPreview->isChecked();
}

void DepthDecimationPage::showCounts(int iBins, int iEmptyBins, int iRecords)
{
    m_pqApply->setEnabled(iBins > 0);
    m_pqPreview->setEnabled(iBins > 0);
    m_pqCounts->setText(
        iBins > 0 ? tr("%1 intervals, %2 of them empty, hold %3 records.").arg(iBins).arg(iEmptyBins).arg(iRecords)
                  : tr("Set up the interval filter first."));
}

} // namespace gkBase
