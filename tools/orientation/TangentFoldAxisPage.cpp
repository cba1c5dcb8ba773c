#include "TangentFoldAxisPage.h"

#include "ChartPanelControls.h"
#include "NetProjection.h"
#include "OrientationText.h"
#include "QDoubleSpinBoxWithSlider.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace gkBase {

namespace {

constexpr double g_dSmallestMaximumAngle = 10.0;
constexpr double g_dLargestMaximumAngle = 85.0;

void showResult(QLabel& label, const QString& sText, const QString& sToolTip)
{
    label.setText(sText);
    label.setToolTip(sToolTip);
}

} // namespace

TangentFoldAxisPage::TangentFoldAxisPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqShowCheckBox(newCheckBox(tr("Show Fold Axis"),
                                   tr("Draw the axis, which can be dragged, and where planes that contain it plot"),
                                   "m_pqShowFoldAxisCheckBox"))
    , m_pqFitLabel(newValueLabel(tr("Fitted Fold Axis")))
    , m_pqPlanesLabel(newValueLabel(tr("Planes of the Fit")))
    , m_pqTransverseLabel(newValueLabel(tr("T Across the Fold Axis")))
    , m_pqStatisticsLabel(newValueLabel(tr("T of the Statistics")))
    , m_pqFitBtn(new QPushButton(tr("Set to Fitted Axis")))
{
    auto* pqForm = new QFormLayout;
    m_pqMaximumAngleSpinBox =
        newAngleSpinBox(*pqForm, tr("Maximum Angle"), tr("The angle that lies on the rim, 10 to 85 degrees"),
                        g_dSmallestMaximumAngle, g_dLargestMaximumAngle, "m_pqMaximumAngleSpinBox");
    m_pqMaximumAngleSpinBox->setValue(NetProjection::s_dDefaultMaximumAngle);
    pqForm->addRow(m_pqShowCheckBox);
    m_pqPlungeSpinBox = newAngleSpinBox(*pqForm, tr("Plunge"), tr("Plunge of the fold axis, 0 to 90 degrees"), 0.0,
                                        90.0, "m_pqFoldAxisPlungeSpinBox");
    m_pqAzimuthSpinBox =
        newAngleSpinBox(*pqForm, tr("Azimuth"), tr("Azimuth of the fold axis, degrees clockwise from north"), 0.0,
                        360.0, "m_pqFoldAxisAzimuthSpinBox");
    pqForm->addRow(tr("Fitted Axis"), m_pqFitLabel);
    pqForm->addRow(tr("Planes"), m_pqPlanesLabel);
    pqForm->addRow(tr("T across the fold axis"), m_pqTransverseLabel);
    pqForm->addRow(tr("T of the statistics"), m_pqStatisticsLabel);
    m_pqFitLabel->setObjectName(QStringLiteral("m_pqFittedAxisLabel"));
    m_pqPlanesLabel->setObjectName(QStringLiteral("m_pqFittedPlanesLabel"));
    m_pqTransverseLabel->setObjectName(QStringLiteral("m_pqTransverseLabel"));
    m_pqStatisticsLabel->setObjectName(QStringLiteral("m_pqStatisticsTLabel"));
    m_pqFitBtn->setObjectName(QStringLiteral("m_pqFitAxisBtn"));
    m_pqFitBtn->setAccessibleName(m_pqFitBtn->text());
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addLayout(pqForm);
    pqLayout->addWidget(m_pqFitBtn);
    pqLayout->addStretch(1);
    showNoFit(tr("There are no records"));

    using Page = TangentFoldAxisPage;
    using Box = QDoubleSpinBoxWithSlider;
    connect(m_pqMaximumAngleSpinBox, &Box::valueChanged, this, &Page::maximumAngleChanged);
    connect(m_pqPlungeSpinBox, &Box::valueChanged, this, &Page::plungeChanged);
    connect(m_pqAzimuthSpinBox, &Box::valueChanged, this, &Page::azimuthChanged);
    connect(m_pqShowCheckBox, &QCheckBox::toggled, this, &Page::showToggled);
    connect(m_pqFitBtn, &QPushButton::clicked, this, &Page::fitWanted);
}

// ---- the axis that is shown -----------------------------------------------------------------------------------------

double TangentFoldAxisPage::plunge() const
{
    return m_pqPlungeSpinBox->getValue();
}

double TangentFoldAxisPage::azimuth() const
{
    return m_pqAzimuthSpinBox->getValue();
}

bool TangentFoldAxisPage::foldAxisIsShown() const
{
    return m_pqShowCheckBox->isChecked();
}

void TangentFoldAxisPage::setFoldAxis(double dPlunge, double dAzimuth)
{
    const QSignalBlocker plungeBlocker(m_pqPlungeSpinBox);
    const QSignalBlocker azimuthBlocker(m_pqAzimuthSpinBox);
    m_pqPlungeSpinBox->setValue(dPlunge);
    m_pqAzimuthSpinBox->setValue(dAzimuth);
}

void TangentFoldAxisPage::setFoldAxisShown(bool bShown)
{
    const QSignalBlocker blocker(m_pqShowCheckBox);
    m_pqShowCheckBox->setChecked(bShown);
}

void TangentFoldAxisPage::setMaximumAngle(double dAngle)
{
    const QSignalBlocker blocker(m_pqMaximumAngleSpinBox);
    m_pqMaximumAngleSpinBox->setValue(dAngle);
}

// ---- the axis that fits ---------------------------------------------------------------------------------------------

void TangentFoldAxisPage::showFit(const TangentFit& fit, const LineOrientation& oStatisticsT)
{
    const bool bFound = !isMissing(fit.m_oFoldAxis.m_dPlunge);
    const QString sNoLine = tr("The planes mark no line: there are too few, or they scatter alike to all sides");
    showResult(*m_pqFitLabel, lineText(fit.m_oFoldAxis),
               bFound ? tr("Plunge/azimuth in degrees: of the line with the least squared distances from the points")
                      : sNoLine);
    showResult(*m_pqPlanesLabel, QString::number(fit.m_iCount),
               tr("%1 steeper than 85° or overturned and %2 without angles are left out")
                   .arg(fit.m_iTooSteep)
                   .arg(fit.m_iMissing));
    showResult(*m_pqTransverseLabel, azimuthText(fit.m_dTransverse),
               bFound ? tr("Azimuth of the direction in which the dip changes most, degrees: across the fitted axis")
                      : sNoLine);
    showResult(*m_pqStatisticsLabel, lineText(oStatisticsT),
               isMissing(oStatisticsT.m_dPlunge)
                   ? tr("The records do not settle a middle eigenvector")
                   : tr("Plunge/azimuth of the middle eigenvector, degrees: not the direction across the fold axis"));
    m_pqFitBtn->setEnabled(bFound);
    m_pqFitBtn->setToolTip(bFound ? tr("Show the axis that fits the planes") : sNoLine);
}

void TangentFoldAxisPage::showNoFit(const QString& sReason)
{
    for (QLabel* pqLabel : {m_pqFitLabel, m_pqPlanesLabel, m_pqTransverseLabel, m_pqStatisticsLabel}) {
        showResult(*pqLabel, undefinedText(), sReason);
    }
    m_pqFitBtn->setEnabled(false);
    m_pqFitBtn->setToolTip(sReason);
}

void TangentFoldAxisPage::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    emit shown();
}

} // namespace gkBase
