#include "StereoResultPage.h"

#include "ChartPanelControls.h"
#include "ColorButton.h"
#include "StereoChartSettings.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QSignalBlocker>
#include <QSpinBox>

namespace gkBase {

namespace {

constexpr int g_iShowColumn = 0;
constexpr int g_iColorColumn = 1;
constexpr int g_iWidthColumn = 2;

QString resultName(StereoResult eResult)
{
    return QCoreApplication::translate("StereoResult", stereoResultName(eResult));
}

} // namespace

StereoResultPage::StereoResultPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqLabelsCheckBox(
          newCheckBox(tr("Labels"), tr("Write the names beside the results"), "m_pqResultLabelsCheckBox"))
{
    auto* pqGrid = new QGridLayout(this);
    pqGrid->setVerticalSpacing(1);
    pqGrid->setColumnStretch(g_iShowColumn, 1);
    pqGrid->addWidget(m_pqLabelsCheckBox, 0, g_iShowColumn, 1, 3);
    for (std::size_t i = 0; i < g_iStereoResults; ++i)
        addRow(*pqGrid, static_cast<StereoResult>(i));
    pqGrid->setRowStretch(pqGrid->rowCount(), 1);
    setSettings({});
    connect(m_pqLabelsCheckBox, &QCheckBox::clicked, this, &StereoResultPage::changed);
}

void StereoResultPage::addRow(QGridLayout& grid, StereoResult eResult)
{
    const auto i = static_cast<std::size_t>(eResult);
    const QString sName = resultName(eResult);
    const QByteArray objectName = "m_pqResult" + QByteArray::number(static_cast<int>(i));
    Row& row = m_aRows[i];
    row.m_pqShow = newCheckBox(sName, toolTipOf(eResult), objectName.constData());
    row.m_pqColor = new ColorButton(tr("Color: %1").arg(sName), tr("Color of this result"), tr("Color of the labels"));
    row.m_pqColor->setObjectName(QLatin1String(objectName) + QLatin1String("ColorBtn"));
    const int iRow = static_cast<int>(i) + 1;
    grid.addWidget(row.m_pqShow, iRow, g_iShowColumn);
    grid.addWidget(row.m_pqColor, iRow, g_iColorColumn);
    connect(row.m_pqShow, &QCheckBox::clicked, this, &StereoResultPage::changed);
    connect(row.m_pqColor, &ColorButton::colorPicked, this, &StereoResultPage::changed);
    if (!isStereoCircle(eResult))
        return;
    row.m_pqWidth = new QSpinBox;
    row.m_pqWidth->setRange(1, StereoChartSettings::s_iWidestResult);
    row.m_pqWidth->setSuffix(tr(" px"));
    row.m_pqWidth->setAccessibleName(tr("Line Width: %1").arg(sName));
    row.m_pqWidth->setToolTip(tr("Width of the circle in pixels"));
    row.m_pqWidth->setObjectName(QLatin1String(objectName) + QLatin1String("WidthSpinBox"));
    grid.addWidget(row.m_pqWidth, iRow, g_iWidthColumn);
    connect(row.m_pqWidth, &QSpinBox::valueChanged, this, &StereoResultPage::changed);
}

QString StereoResultPage::toolTipOf(StereoResult eResult)
{
    switch (eResult) {
    case StereoResult::MeanResultantPole:
        return tr("The mean of the poles as vectors");
    case StereoResult::MeanPrincipalPole:
        return tr("The mean of the poles as axes: the eigenvector of the largest eigenvalue");
    case StereoResult::TPole:
        return tr("The eigenvector of the middle eigenvalue of the poles: the direction of most change");
    case StereoResult::LPole:
        return tr("The eigenvector of the smallest eigenvalue of the poles: the direction of least change");
    case StereoResult::MeanResultantAzimuth:
        return tr("The mean of the lines (of planes: their dip lines) as vectors");
    case StereoResult::MeanPrincipalAzimuth:
        return tr("The mean of the lines as axes: the eigenvector of the largest eigenvalue");
    case StereoResult::TAzimuth:
        return tr("The eigenvector of the middle eigenvalue of the lines");
    case StereoResult::LAzimuth:
        return tr("The eigenvector of the smallest eigenvalue of the lines");
    case StereoResult::MeanPrincipalPlane:
        return tr("The plane whose pole is the mean principal pole");
    case StereoResult::MeanResultantPlane:
        return tr("The plane whose pole is the mean resultant pole");
    case StereoResult::SuggestedSectionPlane:
        return tr("The plane across the structure: its pole is the middle eigenvector of the records turned to their "
                  "mean");
    case StereoResult::BestFitGirdle:
        return tr("The great circle nearest to the points; its pole is the fold axis of folded beds");
    case StereoResult::ConfidenceCone:
        return tr("The cone that holds the mean resultant of the poles, or of the lines where these are shown, with a "
                  "confidence of 95 %; records that scatter too much have none, and it knows nothing of bias weights");
    }
    return {};
}

void StereoResultPage::writeTo(StereoNetSettings& net) const
{
    net.m_bResultLabels = m_pqLabelsCheckBox->isChecked();
    for (std::size_t i = 0; i < g_iStereoResults; ++i) {
        StereoResultStyle& style = net.m_aResults[i];
        style.m_bShow = m_aRows[i].m_pqShow->isChecked();
        style.m_oColor = m_aRows[i].m_pqColor->color();
        if (m_aRows[i].m_pqWidth)
            style.m_iWidth = m_aRows[i].m_pqWidth->value();
    }
}

void StereoResultPage::setSettings(const StereoNetSettings& net)
{
    m_pqLabelsCheckBox->setChecked(net.m_bResultLabels);
    for (std::size_t i = 0; i < g_iStereoResults; ++i) {
        const StereoResultStyle& style = net.m_aResults[i];
        m_aRows[i].m_pqShow->setChecked(style.m_bShow);
        m_aRows[i].m_pqColor->setColor(style.m_oColor);
        if (m_aRows[i].m_pqWidth) {
            const QSignalBlocker blocker(m_aRows[i].m_pqWidth);
            m_aRows[i].m_pqWidth->setValue(style.m_iWidth);
        }
    }
}

void StereoResultPage::setLines(bool bLines)
{
    for (const StereoResult eResult :
         {StereoResult::MeanResultantPole, StereoResult::MeanPrincipalPole, StereoResult::TPole, StereoResult::LPole,
          StereoResult::MeanPrincipalPlane, StereoResult::MeanResultantPlane})
        m_aRows[static_cast<std::size_t>(eResult)].m_pqShow->setEnabled(!bLines);
}

} // namespace gkBase
